#include "QVSettings.h"

#include <cmath>
#include <cstdint>
#include <iostream>
#include <limits>
#include <locale>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "QVMV.h"
#include "common/display/captured_display.h"

namespace {

using namespace QVXML_940;
using QVCommon_940::QVMV;
using Pair = std::pair<std::string, std::string>;

/// Compares as a holder of any two values would.
bool Equal(const IQVSettingValue & a, const IQVSettingValue & b) {
  return a == b;
}
bool Less(const IQVSettingValue & a, const IQVSettingValue & b) {
  return a < b;
}

constexpr int kLowestInt = std::numeric_limits<int>::lowest();
constexpr __int64 kLowestLongLong = std::numeric_limits<__int64>::lowest();

// --- numbers ------------------------------------------------------------------------------------

TEST(NumValue, DefaultIsNotSet) {
  for (const QVNumValue & value : {QVNumValue(), QVNumValue::SYSINI}) {
    EXPECT_EQ(value.GetInt(), kLowestInt);
    EXPECT_TRUE(QVMV::IsMissing(value.GetDouble()));
    EXPECT_EQ(value.GetLongLong(), -2147483648LL);
    EXPECT_EQ(value.GetNumValueType(), 1);
    EXPECT_EQ(value.GetString(), "Undefined");
    EXPECT_FALSE(value.GetBool());
    EXPECT_EQ(value.GetType(), 0);
    EXPECT_EQ(value.GetSubType(), 0);
  }
}

TEST(NumValue, KeepsAllThreeInStep) {
  QVNumValue value(7);
  EXPECT_EQ(value.GetNumValueType(), 0);
  EXPECT_EQ(value.GetDouble(), 7.0);
  EXPECT_EQ(value.GetLongLong(), 7);
  value.SetNumValue(2.9);
  EXPECT_EQ(value.GetNumValueType(), 1);
  EXPECT_EQ(value.GetInt(), 2);
  EXPECT_EQ(value.GetLongLong(), 2);
  value.SetNumValue(-2.9);
  EXPECT_EQ(value.GetInt(), -2);
  value.SetNumValue(5000000001LL);
  EXPECT_EQ(value.GetNumValueType(), 2);
  EXPECT_EQ(value.GetInt(), 705032705);  // the low 32 bits
  EXPECT_EQ(value.GetDouble(), 5000000001.0);
  int i = 0;
  double d = 0.0;
  __int64 ll = 0;
  long l = 0;
  value.GetNumValue(i);
  value.GetNumValue(d);
  value.GetNumValue(ll);
  value.GetNumValue(l);
  EXPECT_EQ(i, 705032705);
  EXPECT_EQ(d, 5000000001.0);
  EXPECT_EQ(ll, 5000000001LL);
  EXPECT_EQ(l, 5000000001L);
}

TEST(NumValue, EveryKindOfIntegerCompiles) {
  EXPECT_EQ(QVNumValue(3L).GetNumValueType(), 2);
  EXPECT_EQ(QVNumValue(3LL).GetNumValueType(), 2);
  EXPECT_EQ(QVNumValue(std::int64_t{3}).GetNumValueType(), 2);
}

TEST(NumValue, DoublesBeyondTheIntegersGiveTheLowest) {
  for (const double value :
       {std::nan(""), 1e300, -1e300, std::numeric_limits<double>::infinity()}) {
    EXPECT_EQ(QVNumValue(value).GetInt(), kLowestInt);
    EXPECT_EQ(QVNumValue(value).GetLongLong(), kLowestLongLong);
  }
  EXPECT_EQ(QVNumValue(2147483647.9).GetInt(), 2147483647);
  EXPECT_EQ(QVNumValue(2147483648.0).GetInt(), kLowestInt);
  EXPECT_EQ(QVNumValue(-2147483648.9).GetInt(), kLowestInt);
  EXPECT_EQ(QVNumValue(2147483648.0).GetLongLong(), 2147483648LL);
  EXPECT_EQ(QVNumValue(-9223372036854775808.0).GetLongLong(), kLowestLongLong);
}

TEST(NumValue, Texts) {
  EXPECT_EQ(QVNumValue(7).GetString(), "7");
  EXPECT_EQ(QVNumValue(-5000000001LL).GetString(), "-5000000001");
  EXPECT_EQ(QVNumValue(0.123456789).GetString(), "0.123457");
  EXPECT_EQ(QVNumValue(QVMV::Missing()).GetString(), "Undefined");
  EXPECT_EQ(QVNumValue(-std::numeric_limits<double>::infinity()).GetString(), "Undefined");
}

TEST(NumValue, TrueAboveZero) {
  EXPECT_TRUE(QVNumValue(2.9).GetBool());
  EXPECT_TRUE(QVNumValue(0.5).GetBool());  // though its int is 0
  EXPECT_FALSE(QVNumValue(0).GetBool());
  EXPECT_FALSE(QVNumValue(0.0).GetBool());
  EXPECT_FALSE(QVNumValue(-3).GetBool());
  EXPECT_TRUE(QVNumValue(1LL).GetBool());
  EXPECT_FALSE(QVNumValue(-1LL).GetBool());
}

TEST(NumValue, EqualityOfDoublesHasATolerance) {
  EXPECT_TRUE(QVNumValue(0.0) == QVNumValue(-0.0));
  EXPECT_TRUE(QVNumValue(1.0) == QVNumValue(1.0));
  EXPECT_TRUE(QVNumValue(1.0) == QVNumValue(1.0 + 2.0e-16));   // which rounds to 1 + 2^-52
  EXPECT_FALSE(QVNumValue(1.0) == QVNumValue(1.0 + 4.5e-16));  // two steps above
  EXPECT_FALSE(QVNumValue(0.0) == QVNumValue(1e-300));
  EXPECT_TRUE(QVNumValue() == QVNumValue(QVMV::Missing()));
  EXPECT_FALSE(QVNumValue() == QVNumValue(1.0));
  EXPECT_FALSE(QVNumValue(1.0) == QVNumValue());
  EXPECT_FALSE(QVNumValue(std::nan("")) == QVNumValue(std::nan("")));
}

TEST(NumValue, DifferentKindsCompareByTheirInts) {
  EXPECT_TRUE(QVNumValue(2) == QVNumValue(2.9));
  EXPECT_TRUE(QVNumValue(705032705) == QVNumValue(5000000001LL));
  EXPECT_FALSE(QVNumValue(2) < QVNumValue(2.9));
  EXPECT_TRUE(QVNumValue(1) < QVNumValue(2.9));
  EXPECT_TRUE(QVNumValue(5000000001LL) < QVNumValue(5000000002LL));
  EXPECT_FALSE(QVNumValue(5000000001LL) == QVNumValue(705032705LL));
}

TEST(NumValue, OrderOfDoublesHasNoTolerance) {
  EXPECT_TRUE(QVNumValue(1.0) < QVNumValue(1.0 + 2.3e-16));
  EXPECT_FALSE(QVNumValue(1.0) < QVNumValue(1.0));
}

TEST(NumValue, OtherTypesAreNeitherEqualNorOrdered) {
  EXPECT_FALSE(Equal(QVNumValue(1), QVStrValue("1")));
  EXPECT_FALSE(Less(QVNumValue(1), QVStrValue("2")));
}

// --- texts --------------------------------------------------------------------------------------

TEST(StrValue, ReadsItselfAsNumbers) {
  EXPECT_EQ(QVStrValue("42x").GetInt(), 42);
  EXPECT_EQ(QVStrValue("no").GetInt(), 0);
  EXPECT_EQ(QVStrValue("99999999999").GetInt(), 2147483647);
  EXPECT_EQ(QVStrValue("99999999999").GetLongLong(), 99999999999LL);
  EXPECT_EQ(QVStrValue("2.5").GetDouble(), 2.5);
  EXPECT_EQ(QVStrValue("no").GetDouble(), 0.0);
  EXPECT_TRUE(QVMV::IsMissing(QVStrValue("").GetDouble()));
  EXPECT_TRUE(QVMV::IsMissing(QVStrValue().GetDouble()));
}

class DecimalComma : public std::numpunct<char> {
 protected:
  char do_decimal_point() const override { return ','; }
};

TEST(StrValue, ReadsThePointUnderADecimalComma) {
  const std::locale german(std::locale::classic(), new DecimalComma);
  const std::locale before = std::cout.imbue(german);
  EXPECT_EQ(QVStrValue("2.5").GetDouble(), 2.5);
  std::cout.imbue(before);
  const std::locale global = std::locale::global(german);
  EXPECT_EQ(QVStrValue("2.5").GetDouble(), 2.5);
  EXPECT_EQ(QVNumValue(2.5).GetString(), "2.5");
  std::locale::global(global);
}

TEST(StrValue, TrueIsExactlyTrue) {
  EXPECT_TRUE(QVStrValue("true").GetBool());
  EXPECT_FALSE(QVStrValue("TRUE").GetBool());
  EXPECT_FALSE(QVStrValue("true ").GetBool());
  EXPECT_FALSE(QVStrValue("1").GetBool());
}

TEST(StrValue, ContentAndComparison) {
  QVStrValue text("ab");
  EXPECT_EQ(text.GetLength(), 2);
  EXPECT_EQ(text.GetType(), 1);
  EXPECT_EQ(text.GetSubType(), 0);
  EXPECT_TRUE(text < QVStrValue("b"));
  EXPECT_FALSE(text < QVStrValue("ab"));
  EXPECT_TRUE(text == QVStrValue("ab"));
  EXPECT_FALSE(Equal(text, QVNumValue(1)));
  EXPECT_FALSE(Less(text, QVNumValue(1)));
  text.SetString("xyz");
  EXPECT_EQ(text.GetString(), "xyz");
}

// --- vectors and bags as values -----------------------------------------------------------------

TEST(VecValue, AnswersWithItsSize) {
  const QVVecValue<double> vector({1.5, 2.5});
  EXPECT_EQ(vector.GetInt(), 2);
  EXPECT_EQ(vector.GetLongLong(), 2);
  EXPECT_TRUE(QVMV::IsMissing(vector.GetDouble()));
  EXPECT_EQ(vector.GetString(), "Vector Value: Length of vector = 2");
  EXPECT_TRUE(vector.GetBool());
  EXPECT_FALSE(QVVecValue<int>().GetBool());
  EXPECT_EQ(vector.GetType(), 2);
}

TEST(VecValue, SubTypesHaveTheirNumbers) {
  EXPECT_EQ(QVVecValue<int>().GetSubType(), 1);
  EXPECT_EQ(QVVecValue<double>().GetSubType(), 2);
  EXPECT_EQ(QVVecValue<std::string>().GetSubType(), 3);
  EXPECT_EQ((QVVecValue<std::pair<std::string, int>>().GetSubType()), 4);
  EXPECT_EQ((QVVecValue<std::pair<std::string, double>>().GetSubType()), 5);
  EXPECT_EQ((QVVecValue<Pair>().GetSubType()), 6);
  EXPECT_EQ(QVVecValue<QVSettings>().GetSubType(), 7);
}

TEST(VecValue, ComparesElementByElement) {
  using Ints = QVVecValue<int>;
  EXPECT_TRUE(Ints({1, 2}) == Ints({1, 2}));
  EXPECT_TRUE(Ints({1, 2}) < Ints({1, 3}));
  EXPECT_TRUE(Ints({1}) < Ints({1, 0}));
  EXPECT_FALSE(Ints({1, 0}) < Ints({1}));
  EXPECT_FALSE(Equal(Ints({1}), QVVecValue<double>({1.0})));
  EXPECT_FALSE(Equal(Ints({1}), QVNumValue(1)));
  const std::unique_ptr<IQVSettingValue> clone(Ints({4, 5}).Clone());
  EXPECT_TRUE(*clone == Ints({4, 5}));
}

TEST(SettingListValue, FixedAnswersAndOwnership) {
  QVSettings bag;
  bag.AddNewSetting("x", 1.0, "");
  QVSettingListValue value(bag);
  bag.Clear();
  EXPECT_EQ(value.GetListValue()->Size(), 1u);
  EXPECT_EQ(value.GetInt(), kLowestInt);
  EXPECT_EQ(value.GetDouble(), 2.2250738585072014e-308);
  EXPECT_EQ(value.GetString(), "");
  EXPECT_TRUE(value.GetBool());
  EXPECT_EQ(value.GetLongLong(), kLowestLongLong);
  EXPECT_EQ(value.GetType(), 3);
  EXPECT_EQ(QVSettingListValue().GetListValue()->Size(), 0u);
  QVSettingListValue copy(value);
  copy.GetListValue()->Clear();
  EXPECT_EQ(value.GetListValue()->Size(), 1u);
  EXPECT_TRUE(copy < value);
  EXPECT_FALSE(copy == value);
  copy = value;
  EXPECT_TRUE(copy == value);
  EXPECT_FALSE(Equal(value, QVNumValue(1)));
}

// --- one setting --------------------------------------------------------------------------------

TEST(Setting, ValueIsReplaced) {
  QVSetting setting("name", 2.5);
  EXPECT_EQ(setting.GetName(), "name");
  EXPECT_EQ(setting.GetType(), "");
  EXPECT_EQ(setting.GetValue()->GetDouble(), 2.5);
  EXPECT_FALSE(setting.IsList());
  setting.SetValue("text");
  EXPECT_EQ(setting.GetValue()->GetType(), 1);
  setting.SetValue(QVSettings());
  EXPECT_TRUE(setting.HasChild());
  EXPECT_TRUE(QVSetting("v", QVVecValue<int>({1})).IsList());
}

TEST(Setting, EqualityLooksAtAllAndOrderAtTheValueAlone) {
  QVSetting a("a", 1.0);
  QVSetting b("b", 1.0);
  EXPECT_FALSE(a == b);
  EXPECT_FALSE(a < b);
  EXPECT_FALSE(b < a);
  b.SetName("a");
  EXPECT_TRUE(a == b);
  b.SetType("typed");
  EXPECT_FALSE(a == b);
  b.SetValue(2.0);
  EXPECT_TRUE(a < b);
  const std::unique_ptr<QVSetting> clone(b.Clone());
  EXPECT_TRUE(*clone == b);
  a = b;
  EXPECT_TRUE(a == b);
  EXPECT_NE(a.GetValue(), b.GetValue());
}

// --- the bag ------------------------------------------------------------------------------------

TEST(Settings, SeveralUnderOneName) {
  QVSettings bag;
  bag.AddNewSetting("x", 1.0, "first");
  bag.AddNewSetting("y", "text", "");
  bag.AddNewSetting("x", 2.0, "second");
  EXPECT_EQ(bag.Size(), 3u);
  EXPECT_EQ(bag.GetSettingAt(0)->GetType(), "first");
  double value = 0.0;
  EXPECT_TRUE(bag.GetSettingValByName("x", value));
  EXPECT_EQ(value, 1.0);
  const auto found = bag.GetSettingByName("x");
  ASSERT_EQ(found.size(), 2u);
  EXPECT_EQ(found[1], bag.GetSettingAt(2));
  EXPECT_TRUE(bag.GetSettingByName("z").empty());
  EXPECT_EQ(bag.GetSettingAt(3), nullptr);
  std::vector<std::string> names{"before"};
  bag.GetSettingNames(names);
  EXPECT_EQ(names, (std::vector<std::string>{"before", "x", "y", "x"}));
}

TEST(Settings, RemoveTheFirstOrAll) {
  QVSettings bag;
  for (const char * name : {"x", "y", "x", "x"}) {
    bag.AddNewSetting(name, static_cast<double>(bag.Size()), "");
  }
  EXPECT_FALSE(bag.RemoveSetting("z", true));
  EXPECT_TRUE(bag.RemoveSetting("x", false));
  EXPECT_EQ(bag.GetSettingAt(0)->GetName(), "y");
  double value = 0.0;
  EXPECT_TRUE(bag.GetSettingValByName("x", value));
  EXPECT_EQ(value, 2.0);
  EXPECT_TRUE(bag.RemoveSetting(bag.GetSettingAt(1)->GetName(), true));
  EXPECT_EQ(bag.Size(), 1u);
  EXPECT_FALSE(bag.GetSettingValByName("x", value));
  EXPECT_TRUE(bag.GetSettingValByName("y", value));
  EXPECT_EQ(value, 1.0);
  bag.Clear();
  EXPECT_EQ(bag.Size(), 0u);
  EXPECT_FALSE(bag.RemoveSetting("y", false));
}

TEST(Settings, AddSettingReplacesAllOrAdds) {
  QVSettings bag;
  bag.AddNewSetting("x", 1.0, "typed");
  bag.AddNewSetting("x", 2.0, "typed");
  EXPECT_TRUE(bag.AddSetting("x", 3.0, false));
  EXPECT_EQ(bag.Size(), 3u);
  EXPECT_TRUE(bag.AddSetting("x", 1.0, true));
  EXPECT_EQ(bag.Size(), 1u);
  EXPECT_EQ(bag.GetSettingAt(0)->GetType(), "");
  EXPECT_TRUE(bag.AddSetting("x", "text", true));
  std::string text;
  EXPECT_TRUE(bag.GetSettingValByName("x", text));
  EXPECT_EQ(text, "text");
  EXPECT_EQ(bag.Size(), 1u);
}

QVSettings Sample() {
  QVSettings bag;
  bag.AddNewSetting("number", 2.5, "");
  bag.AddNewSetting("text", "true", "");
  bag.AddNewSetting("ints", QVVecValue<int>({1, 2}), "");
  bag.AddNewSetting("doubles", QVVecValue<double>({1.5, -2.75, 1e300}), "");
  bag.AddNewSetting("texts", QVVecValue<std::string>(std::vector<std::string>{"1", "2.5x"}), "");
  bag.AddNewSetting("words", QVVecValue<std::string>({"1", "x", "3"}), "");
  bag.AddNewSetting("none", QVVecValue<std::string>(), "");
  bag.AddNewSetting("withInts", QVVecValue<std::pair<std::string, int>>({{"a", 1}}), "");
  bag.AddNewSetting("withDoubles", QVVecValue<std::pair<std::string, double>>({{"a", 0.5}}), "");
  bag.AddNewSetting("pairs", QVVecValue<Pair>(std::vector<Pair>{{"a", "b"}}), "");
  QVSettings inner;
  inner.AddNewSetting("deep", 7.0, "");
  bag.AddNewSetting("bag", inner, "");
  const QVSettings * const bags[] = {&inner, nullptr};
  bag.AddNewSetting("bags", bags, 2, "");
  return bag;
}

TEST(Settings, ScalarsReadAnyValue) {
  const QVSettings bag = Sample();
  int i = 0;
  double d = 0.0;
  __int64 ll = 0;
  std::int64_t l = 0;
  bool b = false;
  std::string s;
  EXPECT_TRUE(bag.GetSettingValByName("number", i));
  EXPECT_EQ(i, 2);
  EXPECT_TRUE(bag.GetSettingValByName("doubles", i));
  EXPECT_EQ(i, 3);
  EXPECT_TRUE(bag.GetSettingValByName("number", s));
  EXPECT_EQ(s, "2.5");
  EXPECT_TRUE(bag.GetSettingValByName("texts", d));
  EXPECT_TRUE(QVMV::IsMissing(d));
  EXPECT_TRUE(bag.GetSettingValByName("bag", ll));
  EXPECT_EQ(ll, kLowestLongLong);
  EXPECT_TRUE(bag.GetSettingValByName("number", l));
  EXPECT_EQ(l, 2);
  EXPECT_TRUE(bag.GetSettingValByName<bool>("text", b));
  EXPECT_TRUE(b);
  EXPECT_FALSE(bag.GetSettingValByName("absent", i));
  EXPECT_EQ(i, 3);
}

TEST(Settings, BagsAreReadFromBagsAlone) {
  const QVSettings bag = Sample();
  QVSettings inner;
  EXPECT_TRUE(bag.GetSettingValByName("bag", inner));
  double d = 0.0;
  EXPECT_TRUE(inner.GetSettingValByName("deep", d));
  EXPECT_EQ(d, 7.0);
  EXPECT_FALSE(bag.GetSettingValByName("number", inner));
  EXPECT_EQ(inner.Size(), 1u);
  std::vector<QVSettings> bags(3);
  EXPECT_TRUE(bag.GetSettingValByName("bags", bags));
  ASSERT_EQ(bags.size(), 2u);
  EXPECT_EQ(bags[0].Size(), 1u);
  EXPECT_EQ(bags[1].Size(), 0u);
  EXPECT_FALSE(bag.GetSettingValByName("number", bags));
  EXPECT_FALSE(bag.GetSettingValByName("ints", bags));
  EXPECT_EQ(bags.size(), 2u);
}

TEST(Settings, VectorsOfNumbers) {
  const QVSettings bag = Sample();
  std::vector<int> ints{9};
  EXPECT_TRUE(bag.GetSettingValByName("number", ints));  // no vector: true and left alone
  EXPECT_EQ(ints, std::vector<int>{9});
  EXPECT_TRUE(bag.GetSettingValByName("doubles", ints));  // converted ones are appended
  EXPECT_EQ(ints, (std::vector<int>{9, 1, -2, kLowestInt}));
  EXPECT_TRUE(bag.GetSettingValByName("ints", ints));  // the same kind is assigned
  EXPECT_EQ(ints, (std::vector<int>{1, 2}));
  EXPECT_TRUE(bag.GetSettingValByName("texts", ints));  // trailing characters are not looked at
  EXPECT_EQ(ints, (std::vector<int>{1, 2, 1, 2}));
  EXPECT_FALSE(bag.GetSettingValByName("words", ints));
  EXPECT_TRUE(ints.empty());
  ints = {4};
  EXPECT_FALSE(bag.GetSettingValByName("none", ints));
  EXPECT_TRUE(ints.empty());
  EXPECT_FALSE(bag.GetSettingValByName("absent", ints));
  EXPECT_TRUE(bag.GetSettingValByName("pairs", ints));

  std::vector<double> doubles;
  EXPECT_TRUE(bag.GetSettingValByName("ints", doubles));
  EXPECT_TRUE(bag.GetSettingValByName("texts", doubles));
  EXPECT_EQ(doubles, (std::vector<double>{1.0, 2.0, 1.0, 2.5}));
  EXPECT_TRUE(bag.GetSettingValByName("doubles", doubles));
  EXPECT_EQ(doubles.size(), 3u);
  EXPECT_FALSE(bag.GetSettingValByName("words", doubles));
  EXPECT_TRUE(doubles.empty());
}

TEST(Settings, VectorsOfTextsAndPairs) {
  const QVSettings bag = Sample();
  std::vector<std::string> texts;
  EXPECT_TRUE(bag.GetSettingValByName("ints", texts));
  EXPECT_TRUE(bag.GetSettingValByName("doubles", texts));
  EXPECT_EQ(texts, (std::vector<std::string>{"1", "2", "1.5", "-2.75", "1e+300"}));
  EXPECT_TRUE(bag.GetSettingValByName("words", texts));
  EXPECT_EQ(texts, (std::vector<std::string>{"1", "x", "3"}));
  EXPECT_TRUE(bag.GetSettingValByName("number", texts));
  EXPECT_EQ(texts.size(), 3u);

  std::vector<Pair> pairs;
  EXPECT_TRUE(bag.GetSettingValByName("withInts", pairs));
  EXPECT_TRUE(bag.GetSettingValByName("withDoubles", pairs));
  EXPECT_EQ(pairs, (std::vector<Pair>{{"a", "1"}, {"a", "0.5"}}));
  EXPECT_TRUE(bag.GetSettingValByName("pairs", pairs));
  EXPECT_EQ(pairs, (std::vector<Pair>{{"a", "b"}}));
  EXPECT_FALSE(bag.GetSettingValByName("ints", pairs));
  EXPECT_FALSE(bag.GetSettingValByName("number", pairs));
}

/// A value of the caller's that only its sub-type calls a vector.
class Foreign : public QVNumValue {
 public:
  explicit Foreign(ValueSubType subType) : fSubType(subType) {}
  IQVSettingValue * Clone() const override { return new Foreign(*this); }
  ValueType GetType() const override { return ValueTypeVector; }
  ValueSubType GetSubType() const override { return fSubType; }

 private:
  ValueSubType fSubType;
};

TEST(Settings, AForeignVectorAnswersByItsSubType) {
  QVSettings bag;
  bag.AddNewSetting("pairs", Foreign(IQVSettingValue::ValueSubTypeStringString), "");
  bag.AddNewSetting("bags", Foreign(IQVSettingValue::ValueSubTypeSettings), "");
  std::vector<Pair> pairs{{"k", "v"}};
  EXPECT_TRUE(bag.GetSettingValByName("pairs", pairs));
  EXPECT_EQ(pairs.size(), 1u);
  EXPECT_FALSE(bag.GetSettingValByName("bags", pairs));
  std::vector<QVSettings> bags;
  EXPECT_TRUE(bag.GetSettingValByName("bags", bags));
}

TEST(Settings, ListsOfTexts) {
  QVSettings bag;
  char first[] = "a";
  char second[] = "b";
  char * texts[] = {first, nullptr, second};
  bag.AddNewSetting("texts", texts, 3, "typed");
  bag.AddNewSetting("empty", texts, -1, "");
  std::vector<std::string> read;
  EXPECT_TRUE(bag.GetSettingValByName("texts", read));
  EXPECT_EQ(read, (std::vector<std::string>{"a", "", "b"}));
  EXPECT_TRUE(bag.GetSettingAt(0)->IsList());
  EXPECT_EQ(bag.GetSettingAt(0)->GetType(), "typed");
  int size = -1;
  EXPECT_TRUE(bag.GetSettingValByName("empty", size));
  EXPECT_EQ(size, 0);
}

TEST(Settings, BagsCompareByPositionAndValue) {
  QVSettings a;
  QVSettings b;
  EXPECT_TRUE(a == b);
  a.AddNewSetting("one", 1.0, "t");
  b.AddNewSetting("other", 1.0, "");
  EXPECT_TRUE(a == b);  // names and type texts do not count
  b.AddNewSetting("more", 0.0, "");
  EXPECT_TRUE(a < b);
  EXPECT_FALSE(b < a);
  a.AddNewSetting("more", 1.0, "");
  EXPECT_TRUE(b < a);
  // Values of different types are never ordered: the walk goes on.
  QVSettings c;
  QVSettings d;
  c.AddNewSetting("x", 5.0, "");
  d.AddNewSetting("x", "a", "");
  EXPECT_TRUE(c == d);
  EXPECT_TRUE(c == c);
}

TEST(Settings, CopiesAreDeep) {
  const QVSettings bag = Sample();
  const std::unique_ptr<QVSettings> clone(bag.Clone());
  EXPECT_TRUE(*clone == bag);
  EXPECT_NE(clone->GetSettingAt(0), bag.GetSettingAt(0));
  clone->RemoveSetting("number", true);
  EXPECT_EQ(bag.Size(), 12u);
  QVSettings assigned;
  assigned.AddNewSetting("old", 1.0, "");
  assigned = bag;
  double d = 0.0;
  EXPECT_FALSE(assigned.GetSettingValByName("old", d));
  EXPECT_TRUE(assigned.GetSettingValByName("number", d));
  const QVSettings & self = assigned;
  assigned = self;
  EXPECT_EQ(assigned.Size(), 12u);
}

TEST(Settings, Display) {
  QVSettings bag;
  bag.AddNewSetting("n", 2.5, "type");
  bag.AddNewSetting("v", QVVecValue<int>({1, 2}), "");
  QVSettings inner;
  inner.AddNewSetting("s", "text", "");
  bag.AddNewSetting("b", inner, "");
  CapturedDisplay display;
  bag.Display();
  EXPECT_EQ(display.Text(),
            "\nSetting Name = n\nSetting Type = type\nSetting Value Type = Numeric"
            "\nSetting Value = 2.5"
            "\nSetting Name = v\nSetting Type = \nSetting Value Type = Vector"
            "\nTotal number of setting value = 2"
            "\nSetting Name = b\nSetting Type = "
            "\nSetting Name = s\nSetting Type = \nSetting Value Type = String"
            "\nSetting Value = text");
}

}  // namespace
