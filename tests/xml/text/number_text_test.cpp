#include "NumberText.h"

#include <cfloat>
#include <climits>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>
#include <locale>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "xml/test_locale.h"

using namespace QVXML_940;

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// The text as a stream in the classic locale writes it.
std::string StreamText(double value, int precision, bool fixed) {
  std::ostringstream stream;
  stream.imbue(std::locale::classic());
  stream.precision(precision);
  if (fixed) stream.setf(std::ios::fixed);
  stream << value;
  return stream.str();
}

std::vector<double> ManyDoubles() {
  std::vector<double> values{0.0,
                             -0.0,
                             1.0,
                             0.1,
                             1e15,
                             1e16,
                             999999999999999.0,
                             9999999999999995.0,
                             1e-4,
                             1e-5,
                             DBL_MAX,
                             -DBL_MAX,
                             DBL_MIN,
                             DBL_TRUE_MIN,
                             DBL_EPSILON,
                             kInfinity,
                             -kInfinity,
                             kNaN,
                             -kNaN};
  std::mt19937_64 random(940);
  for (int i = 0; i < 20000; ++i) {
    const std::uint64_t bits = random();
    double value = 0.0;
    std::memcpy(&value, &bits, sizeof value);
    values.push_back(value);
    values.push_back(std::ldexp(static_cast<double>(bits >> 11), -static_cast<int>(bits % 64)));
  }
  return values;
}

// A decimal comma for the C++ streams, whatever locales the machine has.
class Comma : public std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

}  // namespace

// --- The classic form -------------------------------------------------------------------------

TEST(NumberText, FifteenDigits) {
  EXPECT_EQ(ReplaceSep(0.5, nullptr), "0.5");
  EXPECT_EQ(ReplaceSep(1000000.0, nullptr), "1000000");
  EXPECT_EQ(ReplaceSep(1e15, nullptr), "1e+15");
  EXPECT_EQ(ReplaceSep(1234567890123456.0, nullptr), "1.23456789012346e+15");
  EXPECT_EQ(ReplaceSep(999999999999999.0, nullptr), "999999999999999");
  EXPECT_EQ(ReplaceSep(0.0001, nullptr), "0.0001");
  EXPECT_EQ(ReplaceSep(0.00001, nullptr), "1e-05");
  EXPECT_EQ(ReplaceSep(0.1 + 0.2, nullptr), "0.3");
  EXPECT_EQ(ReplaceSep(1.0 / 3.0, nullptr), "0.333333333333333");
  EXPECT_EQ(ReplaceSep(-2.0, nullptr), "-2");
  EXPECT_EQ(ReplaceSep(0.0, nullptr), "0");
  EXPECT_EQ(ReplaceSep(-0.0, nullptr), "-0");
  EXPECT_EQ(ReplaceSep(-DBL_MAX, nullptr), "-1.79769313486232e+308");
  EXPECT_EQ(ReplaceSep(DBL_TRUE_MIN, nullptr), "4.94065645841247e-324");
}

TEST(NumberText, NaNAndTheInfinities) {
  EXPECT_EQ(ReplaceSep(kNaN, nullptr), "nan");
  EXPECT_EQ(ReplaceSep(-kNaN, nullptr), "-nan");
  EXPECT_EQ(ReplaceSep(kInfinity, nullptr), "inf");
  EXPECT_EQ(ReplaceSep(-kInfinity, nullptr), "-inf");
  EXPECT_EQ(ReplaceSep(kInfinity), "inf");
  EXPECT_EQ(ReplaceSep(kNaN), "nan");
}

TEST(NumberText, FixedForm) {
  EXPECT_EQ(ReplaceSep(0.5), "0.5000000000000000");
  EXPECT_EQ(ReplaceSep(2.0), "2.0000000000000000");
  EXPECT_EQ(ReplaceSep(-0.1), "-0.1000000000000000");
  EXPECT_EQ(ReplaceSep(1e-20), "0.0000000000000000");
  EXPECT_EQ(ReplaceSep(1e15), "1000000000000000.0000000000000000");
}

TEST(NumberText, FixedFormOfTheLargestNumber) {
  const std::string text = ReplaceSep(-DBL_MAX);
  EXPECT_EQ(text.size(), 1u + 309u + 1u + 16u);
  EXPECT_EQ(text.substr(0, 18), "-17976931348623157");
  EXPECT_EQ(text.substr(text.size() - 17), ".0000000000000000");
}

TEST(NumberText, IsWhatAStreamInTheClassicLocaleWrites) {
  for (const double value : ManyDoubles()) {
    ASSERT_EQ(ReplaceSep(value, nullptr), StreamText(value, 15, false)) << value;
    ASSERT_EQ(ReplaceSep(value), StreamText(value, 16, true)) << value;
  }
}

TEST(NumberText, TheFormatIsNotUsedInTheClassicForm) {
  EXPECT_EQ(Format(2.5, false, nullptr), "2.5");
  EXPECT_EQ(Format(2.5, false, "%.2f"), "2.5");
  EXPECT_EQ(ReplaceSep(2.5, "%.2f"), "2.5");
}

// --- The form of printf -----------------------------------------------------------------------

TEST(NumberText, PrintfForm) {
  EXPECT_EQ(Format(2.5, true, nullptr), "2.5");
  EXPECT_EQ(Format(100000000000000000.0, true, nullptr), "1e+17");
  EXPECT_EQ(Format(2.5, true, "%.2f"), "2.50");
  EXPECT_EQ(Format(149.0, true, "%.0g"), "1e+02");
  EXPECT_EQ(Format(1.0 / 3.0, true, nullptr), "0.333333333333333");
  EXPECT_EQ(Format(0.25, true, ""), "");
}

TEST(NumberText, PrintfFormOfAnyLength) {
  EXPECT_EQ(Format(DBL_MAX, true, "%f").size(), 309u + 7u);
  const std::string wide = Format(1.0, true, "%5000.1f");
  EXPECT_EQ(wide.size(), 5000u);
  EXPECT_EQ(wide.substr(4990), "       1.0");
  for (int width = 28; width < 40; ++width) {  // around the first guess of the buffer
    const std::string form = std::string("%") + std::to_string(width) + ".3f";
    EXPECT_EQ(Format(1.5, true, form.c_str()),
              std::string(static_cast<std::size_t>(width - 5), ' ') + "1.500");
  }
}

TEST(NumberText, AFormatThatPrintfRefusesGivesNothing) {
  EXPECT_EQ(Format(1.0, true, "%3000000000f"), "");
}

TEST(NumberText, Integers) {
  EXPECT_EQ(Format(3L), "3");
  EXPECT_EQ(Format(0L), "0");
  EXPECT_EQ(Format(-1L), "-1");
  EXPECT_EQ(Format(static_cast<long>(INT_MAX)), "2147483647");
  EXPECT_EQ(Format(static_cast<long>(INT_MIN)), "-2147483648");
  EXPECT_EQ(Format(7), "7");
}

// --- Locales ----------------------------------------------------------------------------------

TEST(NumberText, UnderALocaleWithADecimalComma) {
  const TestLocale german("de_DE.UTF-8");
  ASSERT_TRUE(german.IsSet()) << german.Help();
  EXPECT_EQ(Format(2.5, false, nullptr), "2.5");
  EXPECT_EQ(ReplaceSep(2.5, nullptr), "2.5");
  EXPECT_EQ(ReplaceSep(2.5), "2.5000000000000000");
  EXPECT_EQ(Format(2.5, true, nullptr), "2,5");
  EXPECT_EQ(Format(2.5, true, "%.2f"), "2,50");
  EXPECT_EQ(Format(1234567L), "1234567");
  EXPECT_EQ(GetDecimalCharacter(), ",");
  EXPECT_EQ(GetListSeparator(), ";");
}

TEST(NumberText, UnderAGlobalStreamLocaleWithCommaAndGroups) {
  const std::locale before = std::locale::global(std::locale(std::locale::classic(), new Comma));
  EXPECT_EQ(ReplaceSep(1234567.5, nullptr), "1234567.5");
  EXPECT_EQ(ReplaceSep(1234567.5), "1234567.5000000000000000");
  EXPECT_EQ(Format(1234567.5, true, nullptr), "1234567.5");
  std::locale::global(before);
}

TEST(NumberText, Constants) {
  EXPECT_EQ(GetDecimalCharacter(), ".");
  EXPECT_EQ(GetListSeparator(), ";");
  EXPECT_EQ(GetDefaultNumericFormat(), "%.15g");
}
