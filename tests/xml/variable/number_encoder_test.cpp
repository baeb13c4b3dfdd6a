// The two encoders that pass numbers on: continuous values and frequency weights.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>

#include "QVContEncoder.h"
#include "QVMV.h"
#include "QVRoundEncoder.h"
#include "variable_test_tools.h"

namespace {

using QVCommon_940::QVMV;
using QVXML_940::IQVEncoder;
using QVXML_940::IQVVariable;
using QVXML_940::QVContEncoder;
using QVXML_940::QVRoundEncoder;
using variable_test::Shown;
using Strings = std::vector<std::string>;
using Numbers = std::vector<double>;

const double kMissing = QVMV::Missing();
const double kNaN = std::numeric_limits<double>::quiet_NaN();

// The answers that do not depend on the content.
void ExpectFixedAnswers(IQVEncoder & encoder) {
  EXPECT_EQ(encoder.Encode("1"), kMissing);
  EXPECT_EQ(encoder.EncodeConst("1"), kMissing);
  EXPECT_TRUE(encoder.IsMissing("1"));
  EXPECT_EQ(encoder.Decode(0), "");
  EXPECT_EQ(encoder.DecodeNum(0), kMissing);
  encoder.SetValueLabels({"a"});
  encoder.SetValueLabel(0, "a");
  EXPECT_EQ(encoder.GetValueLabels(), nullptr);
  EXPECT_FALSE(encoder.AddDiscreteUserMissing("x", "label"));
  EXPECT_EQ(encoder.GetDiscreteMissValuesStr(), nullptr);
  EXPECT_TRUE(encoder.GetDiscreteMissValues()->empty());
  EXPECT_TRUE(encoder.GetMissValueLabels()->empty());
}

void ExpectUserMissing(IQVEncoder & encoder) {
  double low = 0;
  double high = 0;
  EXPECT_FALSE(encoder.GetMissingInterval(low, high));
  EXPECT_TRUE(encoder.AddDiscreteUserMissing(9, "dk"));
  EXPECT_TRUE(encoder.SetMissingInterval(90, 99));
  EXPECT_FALSE(encoder.SetMissingInterval(1, 2));
  EXPECT_TRUE(encoder.GetMissingInterval(low, high));
  EXPECT_EQ(low, 90);
  EXPECT_EQ(high, 99);
  EXPECT_EQ(*encoder.GetDiscreteMissValues(), Numbers{9});
  EXPECT_EQ(*encoder.GetMissValueLabels(), Strings{"dk"});
  for (double value : {kMissing, 9.0, 90.0, 95.5, 99.0}) {
    EXPECT_TRUE(encoder.IsMissing(value));
    EXPECT_EQ(encoder.Encode(value), kMissing);
    EXPECT_EQ(encoder.EncodeConst(value), kMissing);
  }
  for (double value : {8.0, 89.0, 100.0}) {
    EXPECT_FALSE(encoder.IsMissing(value));
    EXPECT_EQ(encoder.Encode(value), value);
    EXPECT_EQ(encoder.EncodeConst(value), value);
  }
}

TEST(ContEncoder, DefaultHasOneBinAndNoBinning) {
  QVContEncoder encoder;
  EXPECT_EQ(encoder.GetEncoderType(), 1);
  EXPECT_EQ(encoder.GetNumberOfCategories(), 1);
  EXPECT_EQ(encoder.GetBinningEncoder(), nullptr);
  ExpectFixedAnswers(encoder);
  ExpectUserMissing(encoder);
}

TEST(ContEncoder, PassesNumbersOn) {
  QVContEncoder encoder(0, 10, 5);
  for (double value : {-1.5, 0.0, 4.1, 1e300})
    EXPECT_EQ(encoder.Encode(value), value);
  EXPECT_TRUE(std::isnan(encoder.Encode(kNaN)));
  EXPECT_EQ(encoder.Encode(-std::numeric_limits<double>::infinity()),
            -std::numeric_limits<double>::infinity());
}

TEST(ContEncoder, EqualWidthBinning) {
  const QVContEncoder encoder(0, 10, 5);
  EXPECT_EQ(encoder.GetNumberOfCategories(), 5);
  ASSERT_NE(encoder.GetBinningEncoder(), nullptr);
  EXPECT_EQ(encoder.GetBinningEncoder()->GetBinningCutpoints(), (Numbers{2, 4, 6, 8}));
}

TEST(ContEncoder, BinningByCuts) {
  const QVContEncoder encoder(Numbers{1, 5});
  EXPECT_EQ(encoder.GetNumberOfCategories(), 3);
  EXPECT_EQ(encoder.GetBinningEncoder()->Encode(3), 1);
}

TEST(ContEncoder, CountIsThatOfTheBinningEncoder) {
  EXPECT_EQ(QVContEncoder(0, 10, 0).GetNumberOfCategories(), 0);
  EXPECT_EQ(QVContEncoder(Numbers()).GetNumberOfCategories(), 1);
}

TEST(ContEncoder, EncodeGoesThroughEncodeConst) {
  struct Doubling : QVContEncoder {
    using QVContEncoder::EncodeConst;
    double EncodeConst(double value) const override { return 2 * value; }
  } encoder;
  IQVEncoder & base = encoder;
  EXPECT_EQ(base.Encode(4.0), 8.0);
}

TEST(ContEncoder, CopiesAreDeep) {
  auto encoder = std::make_unique<QVContEncoder>(0, 10, 5);
  const QVContEncoder copy(*encoder);
  QVContEncoder assigned;
  assigned = *encoder;
  const std::unique_ptr<QVContEncoder> clone(encoder->Clone());
  EXPECT_NE(copy.GetBinningEncoder(), encoder->GetBinningEncoder());
  encoder.reset();
  EXPECT_EQ(copy.GetBinningEncoder()->Encode(9), 4);
  EXPECT_EQ(assigned.GetBinningEncoder()->Encode(9), 4);
  EXPECT_EQ(clone->GetBinningEncoder()->Encode(9), 4);
  QVContEncoder & same = assigned;
  assigned = same;
  EXPECT_EQ(assigned.GetBinningEncoder()->Encode(9), 4);
  assigned = QVContEncoder();
  EXPECT_EQ(assigned.GetBinningEncoder(), nullptr);
}

TEST(ContEncoder, Display) {
  QVContEncoder encoder(0, 10, 5);
  EXPECT_EQ(Shown(encoder),
            "\n\tQVContEncoder: "
            "\nnumber of bins = 5"
            "\nDiscrete user missing values (size = 0)"
            "\n\t\tMissing Value Labels: (size = 0)"
            "\n\tQVBinningEncoder: number of bins = 5"
            "\n\t\tCutpoints (size = 4)\n 2 4 6 8");
}

QVRoundEncoder Round(int option) {
  return QVRoundEncoder(static_cast<IQVVariable::WRoundingOption>(option));
}

TEST(RoundEncoder, DefaultLeavesWeightsAsTheyAre) {
  QVRoundEncoder encoder;
  EXPECT_EQ(encoder.GetEncoderType(), 4);
  EXPECT_EQ(encoder.GetNumberOfCategories(), 0);
  EXPECT_EQ(encoder.EncodeConst(2.5), 2.5);
  ExpectFixedAnswers(encoder);
  ExpectUserMissing(encoder);
}

TEST(RoundEncoder, Truncates) {
  QVRoundEncoder encoder = Round(0);
  EXPECT_EQ(encoder.Encode(2.9), 2.0);
  EXPECT_EQ(encoder.Encode(1.0), 1.0);
  EXPECT_EQ(encoder.Encode(0.4), kMissing);
  EXPECT_EQ(encoder.Encode(0.99), kMissing);
  EXPECT_EQ(encoder.Encode(-1), kMissing);
}

TEST(RoundEncoder, RoundsToTheClosest) {
  QVRoundEncoder encoder = Round(1);
  EXPECT_EQ(encoder.Encode(2.5), 3.0);
  EXPECT_EQ(encoder.Encode(2.4), 2.0);
  EXPECT_EQ(encoder.Encode(0.5), 1.0);
  EXPECT_EQ(encoder.Encode(0.4), kMissing);
  EXPECT_EQ(encoder.Encode(-1), kMissing);
}

TEST(RoundEncoder, AsIsKeepsSmallWeights) {
  for (int option : {2, 3, -1}) {
    QVRoundEncoder encoder = Round(option);
    EXPECT_EQ(encoder.Encode(2.5), 2.5);
    EXPECT_EQ(encoder.Encode(0.4), 0.4);
    EXPECT_EQ(encoder.Encode(0.0), kMissing);
    EXPECT_EQ(encoder.Encode(-1), kMissing);
  }
}

TEST(RoundEncoder, NoWeightOfZeroOrBelow) {
  const QVRoundEncoder encoder;
  EXPECT_TRUE(encoder.IsMissing(0.0));
  EXPECT_TRUE(encoder.IsMissing(-0.0));
  EXPECT_TRUE(encoder.IsMissing(-3.0));
  EXPECT_TRUE(encoder.IsMissing(-std::numeric_limits<double>::infinity()));
  EXPECT_FALSE(encoder.IsMissing(std::numeric_limits<double>::denorm_min()));
  EXPECT_FALSE(encoder.IsMissing(kNaN));
}

TEST(RoundEncoder, NaNAndInfinityPassThroughEveryOption) {
  const double infinity = std::numeric_limits<double>::infinity();
  for (int option : {0, 1, 2}) {
    QVRoundEncoder encoder = Round(option);
    EXPECT_TRUE(std::isnan(encoder.Encode(kNaN))) << option;
    EXPECT_EQ(encoder.Encode(infinity), infinity) << option;
    EXPECT_EQ(encoder.Encode(-infinity), kMissing) << option;
  }
}

TEST(RoundEncoder, UserMissingIsTestedBeforeRounding) {
  QVRoundEncoder encoder = Round(1);
  encoder.AddDiscreteUserMissing(3, "");
  EXPECT_EQ(encoder.Encode(3.0), kMissing);
  EXPECT_EQ(encoder.Encode(2.9), 3.0);
}

TEST(RoundEncoder, EncodeGoesThroughEncodeConst) {
  struct Doubling : QVRoundEncoder {
    using QVRoundEncoder::EncodeConst;
    double EncodeConst(double value) const override { return 2 * value; }
  } encoder;
  IQVEncoder & base = encoder;
  EXPECT_EQ(base.Encode(4.0), 8.0);
}

TEST(RoundEncoder, CopiesAreIndependent) {
  QVRoundEncoder encoder = Round(1);
  const std::unique_ptr<IQVEncoder> clone(encoder.Clone());
  encoder.AddDiscreteUserMissing(7, "");
  EXPECT_EQ(clone->Encode(7.0), 7.0);
  EXPECT_EQ(clone->Encode(2.5), 3.0);
  EXPECT_EQ(clone->GetEncoderType(), 4);
}

TEST(RoundEncoder, Display) {
  const std::string rest =
      "\nDiscrete user missing values (size = 0)"
      "\n\t\tMissing Value Labels: (size = 0)";
  EXPECT_EQ(Shown(Round(0)), "\nQVRoundEncoder: option = Truncate to smaller int" + rest);
  EXPECT_EQ(Shown(Round(1)), "\nQVRoundEncoder: option = Round to closest int" + rest);
  EXPECT_EQ(Shown(Round(2)), "\nQVRoundEncoder: option = As is - no change" + rest);
  EXPECT_EQ(Shown(Round(3)), "\nQVRoundEncoder: option = unrecognized" + rest);
}

}  // namespace
