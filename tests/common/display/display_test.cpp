#include "QVDisplay.h"

#include <cstdio>
#include <ctime>
#include <iomanip>
#include <iostream>
#include <limits>

#include <gtest/gtest.h>

#include "QVMV.h"
#include "common/display/captured_display.h"

using namespace QVDisplay_940;

namespace {

const double kMissing = QVCommon_940::QVMV::Missing();

class Display : public testing::Test {
 protected:
  CapturedDisplay captured;
};

/// Counts how often it is flushed.
class FlushCounter : public std::stringbuf {
 public:
  int flushes = 0;

 protected:
  int sync() override {
    ++flushes;
    return 0;
  }
};

}  // namespace

// --- The stream -------------------------------------------------------------------------------

TEST(DisplayStream, IsTheStandardOutputUntilItIsSet) {
  EXPECT_EQ(GetOutStream(), &std::cout);
}

TEST(DisplayStream, IsTheOneThatWasSet) {
  std::ostringstream mine;
  std::ostream * former = GetOutStream();
  SetOutStream(mine);
  EXPECT_EQ(GetOutStream(), &mine);
  DisplayI("n", 3);
  SetOutStream(*former);
  EXPECT_EQ(mine.str(), "\nn = 3");
}

TEST(DisplayStream, EveryFunctionWritesToTheStreamThatWasSet) {
  CapturedDisplay captured;
  std::streambuf * standard = std::cout.rdbuf();
  std::stringbuf leaked;
  std::cout.rdbuf(&leaked);
  const double one = 1.0;
  const std::string text = "t";
  int calls = 0;
  const auto wrote = [&captured, &calls] {
    ++calls;
    EXPECT_NE(captured.Text(), "") << "call " << calls;
  };
  DisplayText(1, "t"), wrote();
  DisplayText(1, text), wrote();
  DisplayB("l", true), wrote();
  DisplayD("l", 1.0), wrote();
  DisplayDF("l", 1.0), wrote();
  DisplayI("l", 1), wrote();
  DisplayS("l", "s"), wrote();
  DisplayTimeStamp("l"), wrote();
  DisplayDA("l", &one, 1, true), wrote();
  DisplayDAS(&one, 1), wrote();
  DisplayDV("l", {1.0}, false), wrote();
  DisplayIV("l", {1}), wrote();
  DisplayUV("l", {1u}), wrote();
  DisplayBV("l", {true}), wrote();
  DisplaySV("l", {"s"}), wrote();
  DisplayVPD("l", {{1.0, 2.0}}), wrote();
  DisplayVPDI("l", {{1.0, 2}}), wrote();
  DisplayVPII("l", {{1, 2}}), wrote();
  DisplayDVV("l", {{1.0}}, false), wrote();
  DisplaySVV("l", {{"s"}}), wrote();
  DisplayBVV("l", {{true}}), wrote();
  DisplayDVTR("l", {1.0}, 1), wrote();
  DisplayDVTRS({1.0}, 1), wrote();
  DisplayIIM("l", {{1, 2}}), wrote();
  DisplayDDM("l", {{1.0, 2.0}}), wrote();
  DisplayVIM("l", {{1, 2}}), wrote();
  DisplayIntVecIntMap("l", {{{1}, 2}}), wrote();
  DisplayIntVecDVecMap("l", {{{1}, {2.0}}}), wrote();
  DisplaySLDM("l", {{{"s"}, 2.0}}), wrote();
  std::cout.rdbuf(standard);
  EXPECT_EQ(leaked.str(), "");
}

TEST(DisplayStream, EachLineIsFlushed) {
  FlushCounter buffer;
  std::ostream stream(&buffer);
  std::ostream * former = GetOutStream();
  SetOutStream(stream);
  DisplayI("n", 3);
  const int afterLine = buffer.flushes;
  DisplayText(0, "x");
  const int afterText = buffer.flushes;
  SetOutStream(*former);
  EXPECT_EQ(afterLine, 2);  // the line end flushes, and the text behind it
  EXPECT_EQ(afterText, 3);
}

TEST_F(Display, AWidthLeftOnTheStreamPadsNothing) {
  captured.Stream() << std::setw(20) << std::setfill('*');
  DisplayI("n", 3);
  EXPECT_EQ(captured.Text(), "\nn = 3");
}

// --- Scalars ----------------------------------------------------------------------------------

TEST_F(Display, TextWithLineEndsBefore) {
  DisplayText(2, "start");
  EXPECT_EQ(captured.Text(), "\n\nstart");
  DisplayText(2, std::string("start"));
  EXPECT_EQ(captured.Text(), "\n\nstart");
}

TEST_F(Display, TextWithoutLineEndsFromZeroDown) {
  DisplayText(0, "a");
  DisplayText(-3, std::string("b"));
  EXPECT_EQ(captured.Text(), "ab");
}

TEST_F(Display, NullTextWritesNothingAtAll) {
  DisplayText(5, static_cast<const char *>(nullptr));
  EXPECT_EQ(captured.Text(), "");
}

TEST_F(Display, EmptyTextStillWritesItsLineEnds) {
  DisplayText(2, "");
  EXPECT_EQ(captured.Text(), "\n\n");
}

TEST_F(Display, Bool) {
  DisplayB("flag", true);
  EXPECT_EQ(captured.Text(), "\nflag = true");
  DisplayB("flag", false);
  EXPECT_EQ(captured.Text(), "\nflag = false");
}

TEST_F(Display, DoubleInShortForm) {
  DisplayD("x", 2.5);
  EXPECT_EQ(captured.Text(), "\nx = 2.5");
  DisplayD("x", 1234567.0);
  EXPECT_EQ(captured.Text(), "\nx = 1.23457e+06");
  DisplayD("x", 0.1);
  EXPECT_EQ(captured.Text(), "\nx = 0.1");
}

TEST_F(Display, DoubleWithAllDigits) {
  DisplayDF("x", 0.1);
  EXPECT_EQ(captured.Text(), "\nx = 0.10000000000000001");
  DisplayDF("x", -1e-300);
  EXPECT_EQ(captured.Text(), "\nx = -1e-300");
}

TEST_F(Display, MissingIsAWord) {
  DisplayD("x", kMissing);
  EXPECT_EQ(captured.Text(), "\nx = miss");
  DisplayDF("x", kMissing);
  EXPECT_EQ(captured.Text(), "\nx = miss");
}

TEST_F(Display, InfinityAndNanAreNotMissing) {
  DisplayD("x", -std::numeric_limits<double>::infinity());
  EXPECT_EQ(captured.Text(), "\nx = -inf");
  DisplayD("x", std::numeric_limits<double>::quiet_NaN());
  EXPECT_EQ(captured.Text(), "\nx = nan");
}

TEST_F(Display, Int) {
  DisplayI("n", std::numeric_limits<int>::min());
  EXPECT_EQ(captured.Text(), "\nn = -2147483648");
}

TEST_F(Display, String) {
  DisplayS("name", "a b");
  EXPECT_EQ(captured.Text(), "\nname = a b");
  DisplayS("", "");
  EXPECT_EQ(captured.Text(), "\n = ");
}

TEST_F(Display, TimeStampIsTheLocalTimeThenTheLabel) {
  const std::time_t before = std::time(nullptr);
  DisplayTimeStamp("fit");
  const std::time_t after = std::time(nullptr);
  std::tm shown{};
  char label[8] = "";
  const std::string text = captured.Text();
  ASSERT_EQ(
      std::sscanf(text.c_str(), "\n%4d-%2d-%2d-%2d-%2d-%2d: %7s", &shown.tm_year, &shown.tm_mon,
                  &shown.tm_mday, &shown.tm_hour, &shown.tm_min, &shown.tm_sec, label),
      7)
      << text;
  EXPECT_STREQ(label, "fit");
  EXPECT_EQ(text.size(), std::string("\n2026-01-02-03-04-05: fit").size());  // each with its digits
  shown.tm_year -= 1900;
  shown.tm_mon -= 1;
  shown.tm_isdst = -1;
  const std::time_t time = std::mktime(&shown);
  EXPECT_GE(time, before);
  EXPECT_LE(time, after);
}

// --- Lists ------------------------------------------------------------------------------------

TEST_F(Display, ArrayWithAndWithoutItsSize) {
  const double values[] = {1.0, kMissing, 2.5};
  DisplayDA("x", values, 3, true);
  EXPECT_EQ(captured.Text(), "\nx (size = 3)\n 1 miss 2.5");
  DisplayDA("x", values, 3, false);
  EXPECT_EQ(captured.Text(), "\nx\n 1 miss 2.5");
}

TEST_F(Display, ArrayWithoutHead) {
  const double values[] = {1.0, kMissing, 2.5};
  DisplayDAS(values, 3);
  EXPECT_EQ(captured.Text(), "\n 1 miss 2.5");
}

TEST_F(Display, ArrayWithoutItems) {
  const double values[] = {1.0};
  DisplayDA("x", values, 0, true);
  EXPECT_EQ(captured.Text(), "\nx (size = 0)");
  DisplayDA("x", nullptr, 0, false);
  EXPECT_EQ(captured.Text(), "\nx");
  DisplayDAS(values, 0);
  EXPECT_EQ(captured.Text(), "\n");
}

TEST_F(Display, TwentyFiveValuesStandOnThreeLines) {
  double values[25];
  for (int i = 0; i < 25; ++i) {
    values[i] = i;
  }
  const std::string lines = " 0 1 2 3 4 5 6 7 8 9\n 10 11 12 13 14 15 16 17 18 19\n 20 21 22 23 24";
  DisplayDA("x", values, 25, true);
  EXPECT_EQ(captured.Text(), "\nx (size = 25)\n" + lines);
  DisplayDAS(values, 25);
  EXPECT_EQ(captured.Text(), "\n" + lines);
  DisplayDV("x", std::vector<double>(values, values + 25), false);
  EXPECT_EQ(captured.Text(), "\nx (size = 25)\n" + lines);
}

TEST_F(Display, TenValuesStandOnOneLine) {
  DisplayIV("n", std::vector<int>(10, 7));
  EXPECT_EQ(captured.Text(), "\nn (size = 10)\n 7 7 7 7 7 7 7 7 7 7");
  DisplayIV("n", std::vector<int>(11, 7));
  EXPECT_EQ(captured.Text(), "\nn (size = 11)\n 7 7 7 7 7 7 7 7 7 7\n 7");
}

TEST_F(Display, DoublesInFineFormOneALine) {
  DisplayDV("x", {0.1, kMissing}, true);
  EXPECT_EQ(captured.Text(), "\nx (size = 2)\n = 0.10000000000000001\n = miss");
  DisplayDV("x", {}, true);
  EXPECT_EQ(captured.Text(), "\nx (size = 0)");
}

TEST_F(Display, Integers) {
  DisplayIV("n", {-1, 2});
  EXPECT_EQ(captured.Text(), "\nn (size = 2)\n -1 2");
  DisplayIV("n", {});
  EXPECT_EQ(captured.Text(), "\nn (size = 0)");
  DisplayUV("n", {4294967295u, 0u});
  EXPECT_EQ(captured.Text(), "\nn (size = 2)\n 4294967295 0");
}

TEST_F(Display, Flags) {
  DisplayBV("b", {true, false, true});
  EXPECT_EQ(captured.Text(), "\nb (size = 3)\n t f t");
}

TEST_F(Display, StringsInDoubleQuotes) {
  DisplaySV("s", {"a", "", "b c"});
  EXPECT_EQ(captured.Text(), "\ns (size = 3)\n \"a\" \"\" \"b c\"");
}

TEST_F(Display, PairsOfDoubles) {
  DisplayVPD("p", {{1.5, kMissing}, {kMissing, 2.0}});
  EXPECT_EQ(captured.Text(), "\np (size = 2)\n 1.5 miss miss 2");
}

TEST_F(Display, NothingStandsBetweenADoubleAndItsInteger) {
  DisplayVPDI("p", {{1.5, 7}, {kMissing, -2}});
  EXPECT_EQ(captured.Text(), "\np (size = 2)\n 1.57 miss-2");
}

TEST_F(Display, PairsOfIntegers) {
  DisplayVPII("p", {{1, 2}, {-3, 4}});
  EXPECT_EQ(captured.Text(), "\np (size = 2)\n (1,2) (-3,4) ");
}

TEST_F(Display, EachLineOfIntegerPairsStartsWithOneBlank) {
  DisplayVPII("p", std::vector<std::pair<int, int>>(11, {1, 2}));
  EXPECT_EQ(
      captured.Text(),
      "\np (size = 11)\n (1,2) (1,2) (1,2) (1,2) (1,2) (1,2) (1,2) (1,2) (1,2) (1,2) \n (1,2) ");
}

// --- Nested forms -----------------------------------------------------------------------------

TEST_F(Display, RowsOfDoubles) {
  DisplayDVV("m", {{1.0, 2.0}, {}}, false);
  EXPECT_EQ(captured.Text(), "\nm\nvec[0] (size = 2)\n 1 2\nvec[1] (size = 0)");
  DisplayDVV("m", {{0.1}}, true);
  EXPECT_EQ(captured.Text(), "\nm\nvec[0] (size = 1)\n = 0.10000000000000001");
}

TEST_F(Display, AnEmptyLabelOfANestedFormHasNoLine) {
  DisplayDVV("", {{1.0}}, false);
  EXPECT_EQ(captured.Text(), "\nvec[0] (size = 1)\n 1");
  DisplaySVV("", {{"a"}});
  EXPECT_EQ(captured.Text(), "\nvec[0] (size = 1)\n \"a\"");
}

TEST_F(Display, NoRowsAreNone) {
  DisplayDVV("m", {}, false);
  EXPECT_EQ(captured.Text(), "\nm <none>");
  DisplayDVV("", {}, true);
  EXPECT_EQ(captured.Text(), "\n <none>");
  DisplaySVV("m", {});
  EXPECT_EQ(captured.Text(), "\nm <none>");
}

TEST_F(Display, RowsOfStrings) {
  DisplaySVV("m", {{"a", "b"}, {"c"}});
  EXPECT_EQ(captured.Text(), "\nm\nvec[0] (size = 2)\n \"a\" \"b\"\nvec[1] (size = 1)\n \"c\"");
}

TEST_F(Display, TableOfFlags) {
  DisplayBVV("m", {{true, false, true}, {false, false, true}});
  EXPECT_EQ(captured.Text(), "\nm ( number of rows =  2, number of columns =  3 )\n t f t\n f f t");
}

TEST_F(Display, ARowOfFlagsStaysOnOneLine) {
  DisplayBVV("m", {std::vector<bool>(12, true)});
  EXPECT_EQ(captured.Text(),
            "\nm ( number of rows =  1, number of columns =  12 )\n t t t t t t t t t t t t");
}

TEST_F(Display, TableOfNoFlags) {
  DisplayBVV("m", {});
  EXPECT_EQ(captured.Text(), "\nm ( number of rows =  0, number of columns =  0 )");
}

TEST_F(Display, Triangle) {
  DisplayDVTR("s", {1.0, 2.0, kMissing, 4.0, 5.0, 6.5}, 3);
  EXPECT_EQ(captured.Text(),
            "\ns (number of elements = 6, number of rows = 3)"
            "\nrow  0:  1\nrow  1:  2 miss\nrow  2:  4 5 6.5");
}

TEST_F(Display, TriangleWithoutLabel) {
  DisplayDVTRS({1.0, 2.0, 3.0}, 2);
  EXPECT_EQ(captured.Text(),
            "\n (number of elements = 3, number of rows = 2)\nrow  0:  1\nrow  1:  2 3");
}

TEST_F(Display, ARowOfATriangleStaysOnOneLine) {
  DisplayDVTR("s", std::vector<double>(78, 1.0), 12);
  const std::string text = captured.Text();
  EXPECT_EQ(text.substr(text.rfind('\n')), "\nrow  11:  1 1 1 1 1 1 1 1 1 1 1 1");
}

TEST_F(Display, TriangleEndsWhereTheValuesEnd) {
  DisplayDVTR("s", {1.0, 2.0}, 5);
  EXPECT_EQ(captured.Text(),
            "\ns (number of elements = 2, number of rows = 5)\nrow  0:  1\nrow  1:  2");
  DisplayDVTR("s", {1.0, 2.0, 3.0}, 1);
  EXPECT_EQ(captured.Text(), "\ns (number of elements = 3, number of rows = 1)\nrow  0:  1");
  DisplayDVTR("s", {}, -1);
  EXPECT_EQ(captured.Text(), "\ns (number of elements = 0, number of rows = -1)");
}

// --- Maps -------------------------------------------------------------------------------------

TEST_F(Display, EmptyMaps) {
  DisplayIIM("m", {});
  EXPECT_EQ(captured.Text(), "\nm <empty>");
  DisplayDDM("m", {});
  EXPECT_EQ(captured.Text(), "\nm <empty>");
  DisplayVIM("", {});
  EXPECT_EQ(captured.Text(), "\n <empty>");
  DisplayIntVecIntMap("m", {});
  EXPECT_EQ(captured.Text(), "\nm <empty>");
  DisplayIntVecDVecMap("m", {});
  EXPECT_EQ(captured.Text(), "\nm <empty>");
  DisplaySLDM("m", {});
  EXPECT_EQ(captured.Text(), "\nm <empty>");
}

TEST_F(Display, MapOfIntegers) {
  DisplayIIM("m", {{3, 4}, {1, -2}});
  EXPECT_EQ(captured.Text(), "\nm\nmap size = 2\n (1,-2) (3,4)");
}

TEST_F(Display, MapOfIntegersWithoutSize) {
  DisplayVIM("m", {{3, 4}, {1, -2}});
  EXPECT_EQ(captured.Text(), "\nm\n (1,-2) (3,4)");
}

TEST_F(Display, AnEmptyLabelOfAMapHasNoLine) {
  DisplayIIM("", {{1, 2}});
  EXPECT_EQ(captured.Text(), "\nmap size = 1\n (1,2)");
  DisplayVIM("", {{1, 2}});
  EXPECT_EQ(captured.Text(), "\n (1,2)");
}

TEST_F(Display, MapOfDoubles) {
  DisplayDDM("m", {{kMissing, 0.5}, {1.5, kMissing}});
  EXPECT_EQ(captured.Text(), "\nm\nmap size = 2\n (miss,0.5) (1.5,miss)");
}

TEST_F(Display, MapFromListsToIntegers) {
  DisplayIntVecIntMap("m", {{{1, 2}, 5}, {{1}, 6}});
  EXPECT_EQ(captured.Text(),
            "\nm\nMap key (size = 1)\n 1\nMap value = 6\nMap key (size = 2)\n 1 2\nMap value = 5");
}

TEST_F(Display, MapFromListsToLists) {
  DisplayIntVecDVecMap("m", {{{1, 2}, {0.5, kMissing}}});
  EXPECT_EQ(captured.Text(), "\nm\nMap key (size = 2)\n 1 2\nMap value (size = 2)\n 0.5 miss");
}

TEST_F(Display, MapFromStringListsToDoubles) {
  DisplaySLDM("m", {{{"a", "b"}, kMissing}});
  EXPECT_EQ(captured.Text(),
            "\nm\nMap's StringList: (size = 2)\n \"a\" \"b\"\nMap's double = miss");
}
