#include <cmath>
#include <iomanip>
#include <iostream>
#include <limits>
#include <locale>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "Value.h"

using QVCommon_940::Value;

namespace {

constexpr __int64 kLowest = std::numeric_limits<__int64>::min();
constexpr __int64 kHighest = std::numeric_limits<__int64>::max();

Value Array123() {
  Value array;
  array[0] = 1;
  array[1] = 2;
  array[2] = 3;
  return array;
}

Value EmptyArray() {
  Value array;
  array.Resize(0);
  return array;
}

Value EmptyMap() {
  struct Maker : Value {
    Maker() { AssertMap(); }
  };
  return Maker();
}

class Comma : public std::numpunct<char> {
 protected:
  char do_decimal_point() const override { return ','; }
};

// With thousands set apart by points, as in Germany.
class CommaAndGroups : public Comma {
 protected:
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

std::locale CommaLocale() {
  return std::locale(std::locale::classic(), new Comma);
}

// Sets the global locale and that of the standard output stream for one scope.
class Locales {
 public:
  Locales(const std::locale & global, const std::locale & output)
      : fGlobal(std::locale::global(global)), fOutput(std::cout.imbue(output)) {}
  ~Locales() {
    std::locale::global(fGlobal);
    std::cout.imbue(fOutput);
  }
  Locales(const Locales &) = delete;
  Locales & operator=(const Locales &) = delete;

 private:
  std::locale fGlobal;
  std::locale fOutput;
};

}  // namespace

// --- The table of conversions, row by row --------------------------------------------------------

TEST(ValueConvert, Null) {
  EXPECT_EQ(Value().GetBool(), false);
  EXPECT_EQ(Value().GetInteger(), 0);
  EXPECT_EQ(Value().GetReal(), Value::SYSMISVALUE);
  EXPECT_EQ(Value().GetString(), "");
}

TEST(ValueConvert, Boolean) {
  EXPECT_EQ(Value(true).GetBool(), true);
  EXPECT_EQ(Value(false).GetBool(), false);
  EXPECT_EQ(Value(true).GetInteger(), 1);
  EXPECT_EQ(Value(false).GetInteger(), 0);
  EXPECT_EQ(Value(true).GetReal(), 1.0);
  EXPECT_EQ(Value(false).GetReal(), 0.0);
  EXPECT_EQ(Value(true).GetString(), "1");
  EXPECT_EQ(Value(false).GetString(), "0");
}

TEST(ValueConvert, Integer) {
  EXPECT_EQ(Value(-5).GetBool(), true);
  EXPECT_EQ(Value(0).GetBool(), false);
  EXPECT_EQ(Value(kLowest).GetInteger(), kLowest);
  EXPECT_EQ(Value(1).GetReal(), 1.0);
  EXPECT_EQ(Value(kHighest).GetReal(), 9223372036854775808.0);
  EXPECT_EQ(Value(kLowest).GetString(), "-9223372036854775808");
  EXPECT_EQ(Value(42).GetString(), "42");
}

TEST(ValueConvert, Real) {
  EXPECT_EQ(Value(0.5).GetBool(), true);
  EXPECT_EQ(Value(0.0).GetBool(), false);
  EXPECT_EQ(Value(-0.0).GetBool(), false);
  EXPECT_EQ(Value(Value::SYSMISVALUE).GetBool(), true);
  EXPECT_EQ(Value(2.9).GetInteger(), 2);
  EXPECT_EQ(Value(-2.9).GetInteger(), -2);
  EXPECT_EQ(Value(2.5).GetReal(), 2.5);
  EXPECT_EQ(Value(2.5).GetString(), "2.5");
  EXPECT_EQ(Value(1.0).GetString(), "1");
  EXPECT_EQ(Value(1.0 / 3.0).GetString(), "0.333333");
  EXPECT_EQ(Value(1234567.0).GetString(), "1.23457e+06");
  EXPECT_EQ(Value(Value::SYSMISVALUE).GetString(), "-1.79769e+308");
}

TEST(ValueConvert, RealOutOfRangeGivesTheLowestInteger) {
  const double twoTo63 = 9223372036854775808.0;
  for (const double real : {Value::SYSMISVALUE, Value::QVVALUE_INFINITY, -Value::QVVALUE_INFINITY,
                            std::numeric_limits<double>::quiet_NaN(), twoTo63, 1e300,
                            std::nextafter(-twoTo63, -1e300)}) {
    EXPECT_EQ(Value(real).GetInteger(), kLowest) << real;
  }
  EXPECT_EQ(Value(-twoTo63).GetInteger(), kLowest);
  EXPECT_EQ(Value(std::nextafter(twoTo63, 0.0)).GetInteger(), 9223372036854774784);
}

TEST(ValueConvert, ArrayAndMapGiveTheirCount) {
  EXPECT_EQ(Array123().GetBool(), true);
  EXPECT_EQ(Array123().GetInteger(), 3);
  EXPECT_EQ(Array123().GetReal(), 3.0);
  EXPECT_EQ(Array123().GetString(), "{1,2,3}");
  EXPECT_EQ(EmptyArray().GetBool(), false);
  EXPECT_EQ(EmptyArray().GetInteger(), 0);
  EXPECT_EQ(EmptyArray().GetReal(), 0.0);
  EXPECT_EQ(EmptyArray().GetString(), "{}");
  Value map;
  map["k"] = 1;
  EXPECT_EQ(map.GetBool(), true);
  EXPECT_EQ(map.GetInteger(), 1);
  EXPECT_EQ(map.GetReal(), 1.0);
  EXPECT_EQ(map.GetString(), "[k:1]");
  EXPECT_EQ(EmptyMap().GetBool(), false);
  EXPECT_EQ(EmptyMap().GetInteger(), 0);
  EXPECT_EQ(EmptyMap().GetReal(), 0.0);
  EXPECT_EQ(EmptyMap().GetString(), "[]");
}

TEST(ValueConvert, ConvertingChangesNothing) {
  const Value value("12.5");
  value.GetBool();
  value.GetInteger();
  value.GetReal();
  EXPECT_EQ(value.GetType(), 4);
  EXPECT_EQ(value.GetStringRef(), "12.5");
}

// --- Texts ---------------------------------------------------------------------------------------

TEST(ValueParse, Bool) {
  EXPECT_EQ(Value("1").GetBool(), true);
  EXPECT_EQ(Value("0").GetBool(), false);
  EXPECT_EQ(Value(" 1").GetBool(), true);
  EXPECT_EQ(Value("1x").GetBool(), true);
  EXPECT_EQ(Value("").GetBool(), false);
  EXPECT_EQ(Value("  ").GetBool(), false);
  EXPECT_EQ(Value("true").GetBool(), false);  // no boolalpha
}

TEST(ValueParse, Integer) {
  EXPECT_EQ(Value("42").GetInteger(), 42);
  EXPECT_EQ(Value(" -42 ").GetInteger(), -42);
  EXPECT_EQ(Value("42abc").GetInteger(), 42);
  EXPECT_EQ(Value("2.9").GetInteger(), 2);
  EXPECT_EQ(Value("9223372036854775807").GetInteger(), kHighest);
  EXPECT_EQ(Value("").GetInteger(), 0);
  EXPECT_EQ(Value(" \t").GetInteger(), 0);
  EXPECT_EQ(Value("abc").GetInteger(), 0);
}

TEST(ValueParse, Real) {
  EXPECT_EQ(Value("2.5").GetReal(), 2.5);
  EXPECT_EQ(Value(" -2.5e3x").GetReal(), -2500.0);
  EXPECT_EQ(Value("7").GetReal(), 7.0);
  EXPECT_EQ(Value("1.5.7").GetReal(), 1.5);
}

TEST(ValueParse, EmptyAndBlankTextsStayMissingAndRejectedOnesGiveZero) {
  EXPECT_EQ(Value("").GetReal(), Value::SYSMISVALUE);
  EXPECT_EQ(Value("   ").GetReal(), Value::SYSMISVALUE);
  EXPECT_EQ(Value("\t\n").GetReal(), Value::SYSMISVALUE);
  EXPECT_EQ(Value("abc").GetReal(), 0.0);
  EXPECT_EQ(Value("-").GetReal(), 0.0);
}

TEST(ValueParse, PointIsUnderstoodUnderEveryPairOfLocales) {
  const std::locale classic = std::locale::classic(), comma = CommaLocale(),
                    groups(classic, new CommaAndGroups);
  for (const std::locale & global : {classic, comma, groups}) {
    for (const std::locale & output : {classic, comma, groups}) {
      const Locales locales(global, output);
      EXPECT_EQ(Value("2.5").GetReal(), 2.5);
      EXPECT_EQ(Value("-0.125e2").GetReal(), -12.5);
      EXPECT_EQ(Value("").GetReal(), Value::SYSMISVALUE);
      EXPECT_EQ(Value("17").GetInteger(), 17);
    }
  }
}

TEST(ValueParse, TheOutputStreamsCommaIsUnderstoodAsWell) {
  {
    const Locales locales(std::locale::classic(), CommaLocale());
    EXPECT_EQ(Value("2,5").GetReal(), 2.5);
  }
  {
    const Locales locales(CommaLocale(), std::locale::classic());
    EXPECT_EQ(Value("2,5").GetReal(), 2.0);
  }
}

TEST(ValueText, RealHasThePointUnderACommaLocale) {
  const Locales locales(CommaLocale(), CommaLocale());
  EXPECT_EQ(Value(2.5).GetString(), "2.5");
  EXPECT_EQ(Value(-1.25e-10).GetString(), "-1.25e-10");
  EXPECT_EQ(Value(2.5).GetReal(), 2.5);
}

// The oddity beside it: within an array or map the comma stays.
TEST(ValueText, NestedRealsKeepTheCommaOfTheLocale) {
  Value array;
  array[0] = 2.5;
  const Locales locales(CommaLocale(), std::locale::classic());
  EXPECT_EQ(array.GetString(), "{2,5}");
}

// --- Display -------------------------------------------------------------------------------------

namespace {

std::string Shown(const Value & value) {
  std::ostringstream stream;
  value.Display(stream);
  return stream.str();
}

}  // namespace

TEST(ValueDisplay, EachKind) {
  EXPECT_EQ(Shown(Value()), "");
  EXPECT_EQ(Shown(true), "1");
  EXPECT_EQ(Shown(-7), "-7");
  EXPECT_EQ(Shown(2.5), "2.5");
  EXPECT_EQ(Shown("a \"b\""), "a \"b\"");
  EXPECT_EQ(Shown(EmptyArray()), "{}");
  EXPECT_EQ(Shown(EmptyMap()), "[]");
  Value array;
  array[0] = 1;
  array[1] = true;
  array[2] = "a";
  EXPECT_EQ(Shown(array), "{1,1,a}");
  Value map;
  map["k"] = 1;
  EXPECT_EQ(Shown(map), "[k:1]");
  map["a"] = array;
  map["n"] = Value();
  map["e"] = EmptyMap();
  EXPECT_EQ(Shown(map), "[a:{1,1,a},e:[],k:1,n:]");
}

TEST(ValueDisplay, TakesTheFlagsAndTheLocaleOfTheStream) {
  std::ostringstream stream;
  stream << std::boolalpha << std::hex << std::fixed << std::setprecision(2);
  stream.imbue(CommaLocale());
  Value array;
  array[0] = true;
  array[1] = 255;
  array[2] = 2.5;
  stream << array << ' ' << Value(0.125);
  EXPECT_EQ(stream.str(), "{true,ff,2,50} 0,12");
}

TEST(ValueDisplay, InsertionGivesTheStreamBack) {
  std::ostringstream stream;
  EXPECT_EQ(&(stream << Value("a")), &stream);
  stream << Value(1) << Value() << Value("b");
  EXPECT_EQ(stream.str(), "a1b");
}
