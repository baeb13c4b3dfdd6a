// The two encoders that give codes: numeric and string categories.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>

#include "QVCatNumEncoder.h"
#include "QVMV.h"
#include "QVStringEncoder.h"
#include "common/virtual_slot.h"
#include "variable_test_tools.h"

namespace {

using QVCommon_940::QVMV;
using QVXML_940::IQVEncoder;
using QVXML_940::QVCatNumEncoder;
using QVXML_940::QVStringEncoder;
using variable_test::Shown;
using Strings = std::vector<std::string>;
using Numbers = std::vector<double>;

const double kMissing = QVMV::Missing();
const double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(CatNumEncoder, CodesFollowTheOrderOfAppearance) {
  QVCatNumEncoder encoder;
  EXPECT_EQ(encoder.GetEncoderType(), 2);
  EXPECT_EQ(encoder.GetNumberOfCategories(), 0);
  EXPECT_EQ(encoder.Encode(5), 0.0);
  EXPECT_EQ(encoder.Encode(3), 1.0);
  EXPECT_EQ(encoder.Encode(5), 0.0);
  EXPECT_EQ(encoder.DecodeNum(1), 3.0);
  EXPECT_EQ(encoder.GetNumberOfCategories(), 2);
}

TEST(CatNumEncoder, EncodeConstAddsNothing) {
  QVCatNumEncoder encoder(Numbers{5, 3});
  EXPECT_EQ(encoder.EncodeConst(3.0), 1.0);
  EXPECT_EQ(encoder.EncodeConst(7.0), -1.0);
  EXPECT_EQ(encoder.GetNumberOfCategories(), 2);
}

TEST(CatNumEncoder, ConstructedFromValues) {
  const QVCatNumEncoder encoder(Numbers{2, kMissing, 2, -1, kNaN});
  EXPECT_EQ(encoder.GetNumberOfCategories(), 2);
  EXPECT_EQ(encoder.DecodeNum(0), 2.0);
  EXPECT_EQ(encoder.DecodeNum(1), -1.0);
}

TEST(CatNumEncoder, RoomOfAnySizeIsTaken) {
  for (int n : {-5, 0, 1, 100})
    EXPECT_EQ(QVCatNumEncoder(n).GetNumberOfCategories(), 0);
}

TEST(CatNumEncoder, ZeroHasOneCodeWhateverItsSign) {
  QVCatNumEncoder encoder;
  EXPECT_EQ(encoder.Encode(0.0), 0.0);
  EXPECT_EQ(encoder.Encode(-0.0), 0.0);
}

TEST(CatNumEncoder, NaNIsNeverACategory) {
  QVCatNumEncoder encoder(Numbers{1, 2, 3});
  EXPECT_EQ(encoder.Encode(kNaN), -1.0);
  EXPECT_EQ(encoder.EncodeConst(kNaN), -1.0);
  EXPECT_EQ(encoder.GetNumberOfCategories(), 3);
  EXPECT_FALSE(encoder.IsMissing(kNaN));
}

TEST(CatNumEncoder, TheInfinitiesAreCategories) {
  const double infinity = std::numeric_limits<double>::infinity();
  QVCatNumEncoder encoder;
  EXPECT_EQ(encoder.Encode(infinity), 0.0);
  EXPECT_EQ(encoder.Encode(-infinity), 1.0);
  EXPECT_EQ(encoder.EncodeConst(infinity), 0.0);
}

TEST(CatNumEncoder, StringsDoNotBelongHere) {
  QVCatNumEncoder encoder(Numbers{1});
  EXPECT_EQ(encoder.Encode("1"), -1.0);
  EXPECT_EQ(encoder.EncodeConst("1"), -1.0);
  EXPECT_TRUE(encoder.IsMissing("1"));
  EXPECT_FALSE(encoder.AddDiscreteUserMissing("1", "one"));
  EXPECT_EQ(encoder.GetDiscreteMissValuesStr(), nullptr);
  EXPECT_TRUE(encoder.GetMissValueLabels()->empty());
}

TEST(CatNumEncoder, DecodeGivesTheNumberAsText) {
  QVCatNumEncoder encoder(Numbers{2.5, 1e15, 1.0 / 3.0});
  encoder.SetValueLabel(0, "two and a half");
  EXPECT_EQ(encoder.Decode(0), "2.5");
  EXPECT_EQ(encoder.Decode(1), "1e+15");
  EXPECT_EQ(encoder.Decode(2), "0.333333333333333");
  EXPECT_EQ(encoder.Decode(-1), "");
  EXPECT_EQ(encoder.Decode(3), "");
  EXPECT_EQ(encoder.DecodeNum(-1), kMissing);
  EXPECT_EQ(encoder.DecodeNum(3), kMissing);
}

TEST(CatNumEncoder, DiscreteMissingValues) {
  QVCatNumEncoder encoder;
  EXPECT_TRUE(encoder.AddDiscreteUserMissing(9, "dk"));
  EXPECT_EQ(encoder.Encode(9), -1.0);
  EXPECT_EQ(encoder.EncodeConst(9), -1.0);
  EXPECT_EQ(encoder.GetNumberOfCategories(), 0);
  EXPECT_TRUE(encoder.IsMissing(9.0));
  EXPECT_FALSE(encoder.IsMissing(std::nextafter(9.0, 10.0)));
  EXPECT_TRUE(encoder.AddDiscreteUserMissing(9, "again"));
  EXPECT_EQ(*encoder.GetDiscreteMissValues(), (Numbers{9, 9}));
  EXPECT_EQ(*encoder.GetMissValueLabels(), (Strings{"dk", "again"}));
}

TEST(CatNumEncoder, ACategoryThatTurnsMissingKeepsItsCodeForDecoding) {
  QVCatNumEncoder encoder(Numbers{9});
  encoder.AddDiscreteUserMissing(9, "");
  EXPECT_EQ(encoder.Encode(9), -1.0);
  EXPECT_EQ(encoder.DecodeNum(0), 9.0);
}

// The interval is the same in the three numeric encoders; here it is tested once for all.
TEST(CatNumEncoder, MissingInterval) {
  QVCatNumEncoder encoder;
  double low = 7;
  double high = 8;
  EXPECT_FALSE(encoder.GetMissingInterval(low, high));
  EXPECT_FALSE(encoder.SetMissingInterval(5, 5));
  EXPECT_FALSE(encoder.SetMissingInterval(5, 4));
  EXPECT_FALSE(encoder.SetMissingInterval(kNaN, 4));
  EXPECT_FALSE(encoder.GetMissingInterval(low, high));
  EXPECT_EQ(low, 7);
  EXPECT_EQ(high, 8);
  EXPECT_TRUE(encoder.SetMissingInterval(1, 2));
  EXPECT_FALSE(encoder.SetMissingInterval(3, 4));
  EXPECT_TRUE(encoder.GetMissingInterval(low, high));
  EXPECT_EQ(low, 1);
  EXPECT_EQ(high, 2);
  EXPECT_TRUE(encoder.IsMissing(1.0));
  EXPECT_TRUE(encoder.IsMissing(1.5));
  EXPECT_TRUE(encoder.IsMissing(2.0));
  EXPECT_FALSE(encoder.IsMissing(0.99));
  EXPECT_FALSE(encoder.IsMissing(2.01));
  EXPECT_FALSE(encoder.IsMissing(3.5));
  EXPECT_TRUE(encoder.IsMissing(kMissing));
}

TEST(CatNumEncoder, ValueLabels) {
  QVCatNumEncoder encoder(Numbers{1, 2, 3});
  encoder.SetValueLabel(1, "two");
  EXPECT_EQ(*encoder.GetValueLabels(), (Strings{"", "two", ""}));
  encoder.SetValueLabels({"a", "b", "c", "d"});
  EXPECT_EQ(encoder.GetValueLabels()->size(), 4u);
  encoder.SetValueLabel(3, "no category");
  EXPECT_EQ(encoder.GetValueLabels()->back(), "d");
  encoder.SetValueLabels({"a"});
  encoder.SetValueLabel(-1, "ignored");  // but filled up
  EXPECT_EQ(*encoder.GetValueLabels(), (Strings{"a", "", ""}));
  encoder.SetValueLabels({});
  EXPECT_TRUE(encoder.GetValueLabels()->empty());
}

TEST(CatNumEncoder, CopiesAreIndependent) {
  QVCatNumEncoder encoder(Numbers{1, 2});
  QVCatNumEncoder copy(encoder);
  QVCatNumEncoder assigned;
  assigned = encoder;
  const std::unique_ptr<IQVEncoder> clone(encoder.Clone());
  encoder.Encode(3);
  EXPECT_EQ(copy.GetNumberOfCategories(), 2);
  EXPECT_EQ(assigned.GetNumberOfCategories(), 2);
  EXPECT_EQ(clone->GetNumberOfCategories(), 2);
  EXPECT_EQ(clone->GetEncoderType(), 2);
  EXPECT_EQ(clone->Encode(7), 2.0);
}

// The missing test is asked through the virtual operation, so a derived class may widen it.
TEST(CatNumEncoder, EncodeAsksTheVirtualMissingTest) {
  struct NoNegatives : QVCatNumEncoder {
    using QVCatNumEncoder::IsMissing;
    bool IsMissing(double value) const override { return value < 0; }
  } encoder;
  IQVEncoder & base = encoder;
  EXPECT_EQ(base.Encode(-2.0), -1.0);
  EXPECT_EQ(base.EncodeConst(-2.0), -1.0);
  EXPECT_EQ(base.Encode(2.0), 0.0);
}

TEST(CatNumEncoder, Display) {
  QVCatNumEncoder encoder(Numbers{5, 3});
  encoder.SetValueLabels({"five", "three"});
  encoder.AddDiscreteUserMissing(9, "dk");
  const std::string head =
      "\n\tBNCatNumEncoder: "
      "\nLast code = 1"
      "\n\t\tNumeric values of categories:  (size = 2)\n 5 3"
      "\nValue Labels: (size = 2)\n \"five\" \"three\""
      "\nDiscrete user missing values (size = 1)\n 9"
      "\n\t\tMissing Value Labels: (size = 1)\n \"dk\"";
  EXPECT_EQ(Shown(encoder), head);
  encoder.SetMissingInterval(kMissing, 0.5);
  EXPECT_EQ(Shown(encoder),
            head + "\n\t\tUser-missing interval for this encoder: \n\t\t[ miss, 0.5 ]");
}

TEST(StringEncoder, CodesFollowTheOrderOfAppearance) {
  QVStringEncoder encoder;
  EXPECT_EQ(encoder.GetEncoderType(), 3);
  EXPECT_EQ(encoder.GetNumberOfCategories(), 0);
  EXPECT_EQ(encoder.Encode("red"), 0.0);
  EXPECT_EQ(encoder.Encode("blue"), 1.0);
  EXPECT_EQ(encoder.Encode("red"), 0.0);
  EXPECT_EQ(encoder.Encode("Red"), 2.0);
  EXPECT_EQ(encoder.GetNumberOfCategories(), 3);
  EXPECT_EQ(encoder.Decode(1), "blue");
  EXPECT_EQ(encoder.Decode(3), "");
  EXPECT_EQ(encoder.Decode(-1), "");
  EXPECT_EQ(encoder.DecodeNum(0), kMissing);
}

TEST(StringEncoder, EncodeConstAddsNothing) {
  const QVStringEncoder encoder(Strings{"a", "b", "a"});
  EXPECT_EQ(encoder.EncodeConst("b"), 1.0);
  EXPECT_EQ(encoder.EncodeConst("c"), -1.0);
  EXPECT_EQ(encoder.GetNumberOfCategories(), 2);
}

TEST(StringEncoder, NumbersDoNotBelongHere) {
  QVStringEncoder encoder(Strings{"1"});
  EXPECT_EQ(encoder.Encode(1.0), -1.0);
  EXPECT_EQ(encoder.EncodeConst(1.0), -1.0);
  EXPECT_TRUE(encoder.IsMissing(1.0));
  EXPECT_FALSE(encoder.AddDiscreteUserMissing(1.0, "one"));
  EXPECT_FALSE(encoder.SetMissingInterval(1, 2));
  double low = 7;
  double high = 8;
  EXPECT_FALSE(encoder.GetMissingInterval(low, high));
  EXPECT_EQ(low, 7);
  EXPECT_EQ(encoder.GetDiscreteMissValues(), nullptr);
}

TEST(StringEncoder, EmptyStringIsMissingOnlyWhenListed) {
  QVStringEncoder encoder;
  EXPECT_FALSE(encoder.IsMissing(""));
  EXPECT_EQ(encoder.Encode(""), 0.0);
  EXPECT_TRUE(encoder.AddDiscreteUserMissing("", "blank"));
  EXPECT_TRUE(encoder.IsMissing(""));
  EXPECT_EQ(encoder.Encode(""), -1.0);
  EXPECT_EQ(encoder.EncodeConst(""), -1.0);
}

TEST(StringEncoder, MissingIsAnExactComparisonOfBytes) {
  QVStringEncoder encoder;
  encoder.AddDiscreteUserMissing("na", "none");
  encoder.AddDiscreteUserMissing("na", "twice");
  EXPECT_TRUE(encoder.IsMissing("na"));
  EXPECT_FALSE(encoder.IsMissing("NA"));
  EXPECT_FALSE(encoder.IsMissing("na "));
  EXPECT_EQ(*encoder.GetDiscreteMissValuesStr(), (Strings{"na", "na"}));
  EXPECT_EQ(*encoder.GetMissValueLabels(), (Strings{"none", "twice"}));
}

TEST(StringEncoder, ValueLabels) {
  QVStringEncoder encoder(Strings{"x", "y"});
  encoder.SetValueLabel(5, "ignored");
  EXPECT_EQ(*encoder.GetValueLabels(), (Strings{"", ""}));
  encoder.SetValueLabel(1, "the y");
  EXPECT_EQ(*encoder.GetValueLabels(), (Strings{"", "the y"}));
  encoder.SetValueLabels({"only"});
  EXPECT_EQ(*encoder.GetValueLabels(), (Strings{"only"}));
}

TEST(StringEncoder, CopiesPointIntoTheirOwnMap) {
  auto encoder = std::make_unique<QVStringEncoder>(Strings{"one", "two", "three"});
  const QVStringEncoder copy(*encoder);
  QVStringEncoder assigned(Strings{"x"});
  assigned = *encoder;
  const std::unique_ptr<IQVEncoder> clone(encoder->Clone());
  encoder.reset();
  for (const IQVEncoder * each :
       {static_cast<const IQVEncoder *>(&copy), static_cast<const IQVEncoder *>(&assigned),
        static_cast<const IQVEncoder *>(clone.get())}) {
    EXPECT_EQ(each->GetNumberOfCategories(), 3);
    EXPECT_EQ(each->Decode(0), "one");
    EXPECT_EQ(each->Decode(2), "three");
    EXPECT_EQ(each->EncodeConst("two"), 1.0);
  }
  QVStringEncoder & same = assigned;
  assigned = same;
  EXPECT_EQ(assigned.Decode(1), "two");
  EXPECT_EQ(assigned.Encode("four"), 3.0);
}

TEST(StringEncoder, Display) {
  QVStringEncoder encoder(Strings{"b", "a"});
  encoder.SetValueLabels({"bee", "ay"});
  encoder.AddDiscreteUserMissing("?", "unknown");
  EXPECT_EQ(Shown(encoder),
            "\n\tBNStringEncoder object:"
            "\nLast code = 1"
            "\n\t\tb\n\t\ta"
            "\nValue Labels: (size = 2)\n \"bee\" \"ay\""
            "\n\t\tMissing Values and their Labels: "
            "\n\t\t? = unknown");
}

// The order of the operations is part of the binary interface. The destructor fills two places.
TEST(EncoderInterface, SlotOrder) {
  using E = IQVEncoder;
  using S = std::string const &;
  int place = 2;
  EXPECT_EQ(VirtualSlot(&E::GetEncoderType), place++);
  EXPECT_EQ(VirtualSlot(&E::GetNumberOfCategories), place++);
  EXPECT_EQ(VirtualSlot(static_cast<double (E::*)(S)>(&E::Encode)), place++);
  EXPECT_EQ(VirtualSlot(static_cast<double (E::*)(double)>(&E::Encode)), place++);
  EXPECT_EQ(VirtualSlot(static_cast<double (E::*)(S) const>(&E::EncodeConst)), place++);
  EXPECT_EQ(VirtualSlot(static_cast<double (E::*)(double) const>(&E::EncodeConst)), place++);
  EXPECT_EQ(VirtualSlot(static_cast<bool (E::*)(S) const>(&E::IsMissing)), place++);
  EXPECT_EQ(VirtualSlot(static_cast<bool (E::*)(double) const>(&E::IsMissing)), place++);
  EXPECT_EQ(VirtualSlot(&E::Decode), place++);
  EXPECT_EQ(VirtualSlot(&E::DecodeNum), place++);
  EXPECT_EQ(VirtualSlot(&E::Clone), place++);
  EXPECT_EQ(VirtualSlot(&E::SetValueLabels), place++);
  EXPECT_EQ(VirtualSlot(&E::SetValueLabel), place++);
  EXPECT_EQ(VirtualSlot(static_cast<bool (E::*)(double, S)>(&E::AddDiscreteUserMissing)), place++);
  EXPECT_EQ(VirtualSlot(static_cast<bool (E::*)(S, S)>(&E::AddDiscreteUserMissing)), place++);
  EXPECT_EQ(VirtualSlot(&E::SetMissingInterval), place++);
  EXPECT_EQ(VirtualSlot(&E::GetValueLabels), place++);
  EXPECT_EQ(VirtualSlot(&E::GetDiscreteMissValues), place++);
  EXPECT_EQ(VirtualSlot(&E::GetDiscreteMissValuesStr), place++);
  EXPECT_EQ(VirtualSlot(&E::GetMissValueLabels), place++);
  EXPECT_EQ(VirtualSlot(&E::GetMissingInterval), place++);
  EXPECT_EQ(VirtualSlot(&E::WriteObjectXML), place++);
  EXPECT_EQ(VirtualSlot(&E::ReadObjectXML), place++);
  EXPECT_EQ(VirtualSlot(&E::Display), place++);
  EXPECT_EQ(place, 26);
}

}  // namespace
