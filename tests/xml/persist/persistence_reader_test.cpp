#include <cfloat>
#include <climits>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "QVMV.h"
#include "XMLObj.h"
#include "XMLPersistence.h"
#include "xml/persist/file_of_text.h"
#include "xml/test_locale.h"

using namespace QVXML_940;

namespace {

// The result of one read, and the value behind it, as "true:value" or "false:value".
template <class Value>
std::string Parsed(const std::string & text, Value value) {
  FileOfText file(text);
  const bool result = ParseValue(file.Stream(), value);
  std::ostringstream answer;
  answer << std::boolalpha << result << ':' << value;
  return answer.str();
}

bool StartsObject(const std::string & text, const std::string & name) {
  FileOfText file(text);
  return ParseStartObj(file.Stream(), name);
}

bool EndsObject(const std::string & text) {
  FileOfText file(text);
  return ParseEndObj(file.Stream());
}

bool StartsFile(const std::string & text) {
  FileOfText file(text);
  return ParseStartXML(file.Stream());
}

// A line with the value of a string such that the whole has this length.
std::string StringLine(std::size_t length) {
  const std::string head = "\t<String value=\"";
  const std::string tail = "\"/>";
  return head + std::string(length - head.size() - tail.size(), 'x') + tail;
}

// What is written, read back.
template <class Value>
Value RoundTrip(const Value & value) {
  std::ostringstream out;
  XMLObj("A", 0).WriteSubElement(out, value);
  FileOfText file(out.str().substr(1));  // without the line feed that ends the line before
  Value back{};
  EXPECT_TRUE(ParseValue(file.Stream(), back));
  return back;
}

}  // namespace

// --- ParseStartXML ----------------------------------------------------------------------------

TEST(ParseStartXML, ThreeLines) {
  EXPECT_TRUE(
      StartsFile("<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n"
                 "<!DOCTYPE QVXMLRoot SYSTEM \"savexml.dtd\">\n"
                 "<QVXMLRoot copyright=\"a\">\n"));
  EXPECT_TRUE(StartsFile("<?xml\n<!DOCTYPE\n<QVXMLRoot>"));
  EXPECT_TRUE(StartsFile("?xml anything\r\n\t !DOCTYPE anything\r\n\"QVXMLRoot=\r\n"));
}

TEST(ParseStartXML, AWrongLineFails) {
  EXPECT_FALSE(StartsFile(""));
  EXPECT_FALSE(StartsFile("<?xml\n"));
  EXPECT_FALSE(StartsFile("<?xml\n<!DOCTYPE\n"));
  EXPECT_FALSE(StartsFile("<?xmlx\n<!DOCTYPE\n<QVXMLRoot>\n"));
  EXPECT_FALSE(StartsFile("<?xml\n<!DOC\n<QVXMLRoot>\n"));
  EXPECT_FALSE(StartsFile("<?xml\n<!DOCTYPE\n<Root>\n"));
  EXPECT_FALSE(StartsFile("\n<?xml\n<!DOCTYPE\n<QVXMLRoot>\n"));
  EXPECT_FALSE(StartsFile("<QVXMLRoot>\n"));
}

TEST(ParseStartXML, WhatTheWriterWritesNeedsTheTwoLinesAbove) {
  std::ostringstream root;
  WriteHeader(root, "c");
  EXPECT_FALSE(StartsFile(root.str()));
  EXPECT_TRUE(StartsFile("<?xml ?>\n<!DOCTYPE x>\n" + root.str()));
}

// --- ParseStartObj ----------------------------------------------------------------------------

TEST(ParseStartObj, NameMustBeTheSame) {
  EXPECT_TRUE(StartsObject("<Obj name=\"A\">\n", "A"));
  EXPECT_TRUE(StartsObject("\t\t<Obj name=\"A\">", "A"));
  EXPECT_FALSE(StartsObject("<Obj name=\"A\">\n", "B"));
  EXPECT_FALSE(StartsObject("<Obj name=\"A\">\n", "AB"));
  EXPECT_FALSE(StartsObject("<Obj name=\"AB\">\n", "A"));
  EXPECT_FALSE(StartsObject("<Obj name=\"a\">\n", "A"));
  EXPECT_FALSE(StartsObject("<Obj name=\"A\">\n", std::string("A\0", 2)));
}

TEST(ParseStartObj, ANameWithBlanksAndBracketsReadsWhole) {
  EXPECT_TRUE(StartsObject("<Obj name=\"A B\tC <D>=\">\n", "A B\tC <D>="));
}

TEST(ParseStartObj, AnEmptyNameIsNotRead) {
  EXPECT_FALSE(StartsObject("<Obj name=\"\">\n", ""));
  EXPECT_TRUE(StartsObject("<Obj name=\"\">\n", ">"));  // the tail of the tag is the token
}

TEST(ParseStartObj, OneEmptyLineBeforeIsSkipped) {
  EXPECT_TRUE(StartsObject("\n<Obj name=\"A\">\n", "A"));
  EXPECT_FALSE(StartsObject("\n\n<Obj name=\"A\">\n", "A"));
  EXPECT_FALSE(StartsObject("\n", "A"));
  EXPECT_FALSE(StartsObject(" \n<Obj name=\"A\">\n", "A"));
}

TEST(ParseStartObj, WrongTokensFail) {
  EXPECT_FALSE(StartsObject("", "A"));
  EXPECT_FALSE(StartsObject("<Obj>\n", "A"));
  EXPECT_FALSE(StartsObject("<Object name=\"A\">\n", "A"));
  EXPECT_FALSE(StartsObject("<Obj id=\"A\">\n", "A"));
  EXPECT_FALSE(StartsObject("<Obj name=\n", "A"));
  EXPECT_FALSE(StartsObject("<Obj name=\"\n", "A"));
  EXPECT_FALSE(StartsObject("</Obj>\n", "A"));
}

TEST(ParseStartObj, TheClosingQuoteMayBeMissing) {
  EXPECT_TRUE(StartsObject("<Obj name=\"A\n", "A"));
}

// --- ParseEndObj ------------------------------------------------------------------------------

TEST(ParseEndObj, FirstTokenOfTheLine) {
  EXPECT_TRUE(EndsObject("</Obj>\n"));
  EXPECT_TRUE(EndsObject("</Obj>"));
  EXPECT_TRUE(EndsObject("\t\t</Obj>\r\n"));
  EXPECT_TRUE(EndsObject("</Obj> and more\n"));
  EXPECT_FALSE(EndsObject("<Obj>\n"));
  EXPECT_FALSE(EndsObject("</Object>\n"));
  EXPECT_FALSE(EndsObject("\n</Obj>\n"));
  EXPECT_FALSE(EndsObject(""));
}

// --- Integers ---------------------------------------------------------------------------------

TEST(ParseValueInt, NumberOrZero) {
  EXPECT_EQ(Parsed("<Int value=\"5\"/>\n", 7), "true:5");
  EXPECT_EQ(Parsed("\t\t<Int value=\"-2147483648\"/>\n", 7), "true:-2147483648");
  EXPECT_EQ(Parsed("<Int value=\"2\"/>\n", 7), "true:2");
  EXPECT_EQ(Parsed("<Int value=\"2.9\"/>\n", 7), "true:2");
  EXPECT_EQ(Parsed("<Int value=\"x\"/>\n", 7), "true:0");
  EXPECT_EQ(Parsed("<Int value=\"1e+09\"/>\n", 7), "true:1");
}

TEST(ParseValueInt, ALongerNumberKeepsItsLow32Bits) {
  EXPECT_EQ(Parsed("<Int value=\"2147483648\"/>\n", 7), "true:-2147483648");
  EXPECT_EQ(Parsed("<Int value=\"4294967297\"/>\n", 7), "true:1");
  EXPECT_EQ(Parsed("<Int value=\"-4294967297\"/>\n", 7), "true:-1");
  EXPECT_EQ(Parsed("<Long value=\"1e9\"/>\n", 7L), "true:1");
  EXPECT_EQ(Parsed("<Long value=\"99999999999999999999\"/>\n", 7L),
            "true:" + std::to_string(LONG_MAX));
}

TEST(ParseValueInt, ANumberOfTwoPartsIsItsFirst) {
  EXPECT_EQ(Parsed("<Int value=\"5 6\"/>\n", 7), "true:5");
}

TEST(ParseValueInt, AnEmptyValueLeavesTheTailOfTheTag) {
  EXPECT_EQ(Parsed("<Int value=\"\"/>\n", 7), "true:0");
}

TEST(ParseValueInt, OtherTagsFail) {
  EXPECT_EQ(Parsed("<Long value=\"5\"/>\n", 7), "false:7");
  EXPECT_EQ(Parsed("<Double value=\"5\"/>\n", 7), "false:7");
  EXPECT_EQ(Parsed("<int value=\"5\"/>\n", 7), "false:7");
  EXPECT_EQ(Parsed("<Int Value=\"5\"/>\n", 7), "false:7");
  EXPECT_EQ(Parsed("<Int  value=\"5\"/>\n", 7), "false:7");  // two blanks
  EXPECT_EQ(Parsed("<Int>\n", 7), "false:7");
  EXPECT_EQ(Parsed("<Int value=\n", 7), "false:7");
  EXPECT_EQ(Parsed("<Int value=\"\n", 7), "false:7");
  EXPECT_EQ(Parsed("\n", 7), "false:7");
  EXPECT_EQ(Parsed("", 7), "false:7");
}

TEST(ParseValueLong, NumberOrZero) {
  EXPECT_EQ(Parsed("<Long value=\"5\"/>\n", 7L), "true:5");
  EXPECT_EQ(Parsed("<Long value=\"-2147483647\"/>\n", 7L), "true:-2147483647");
  EXPECT_EQ(Parsed("<Long value=\"x\"/>\n", 7L), "true:0");
  EXPECT_EQ(Parsed("<Int value=\"5\"/>\n", 7L), "false:7");
}

TEST(ParseValueUnsigned, KeepsTheLow32Bits) {
  EXPECT_EQ(Parsed("<Int value=\"1\"/>\n", 7u), "true:1");
  EXPECT_EQ(Parsed("<Int value=\"4294967295\"/>\n", 7u), "true:4294967295");
  EXPECT_EQ(Parsed("<Int value=\"-1\"/>\n", 7u), "true:4294967295");
  EXPECT_EQ(Parsed("<Int value=\"4294967297\"/>\n", 7u), "true:1");
  EXPECT_EQ(Parsed("<Int value=\"2.9\"/>\n", 7u), "true:2");
  EXPECT_EQ(Parsed("<Int value=\"1e+09\"/>\n", 7u), "true:1000000000");
  EXPECT_EQ(Parsed("<Int value=\"x\"/>\n", 7u), "true:0");
  EXPECT_EQ(Parsed("<Long value=\"1\"/>\n", 7u), "false:7");
}

TEST(ParseValueUnsigned, BeyondSixtyFourBitsIsZero) {
  EXPECT_EQ(Parsed("<Int value=\"9223372036854775808\"/>\n", 7u), "true:0");
  EXPECT_EQ(Parsed("<Int value=\"-9223372036854775808\"/>\n", 7u), "true:0");
  EXPECT_EQ(Parsed("<Int value=\"1e300\"/>\n", 7u), "true:0");
  EXPECT_EQ(Parsed("<Int value=\"-1e300\"/>\n", 7u), "true:0");
  EXPECT_EQ(Parsed("<Int value=\"nan\"/>\n", 7u), "true:0");
  EXPECT_EQ(Parsed("<Int value=\"inf\"/>\n", 7u), "true:0");
}

TEST(ParseValueBool, OnlyZeroAndOne) {
  EXPECT_EQ(Parsed("<Int value=\"0\"/>\n", true), "true:false");
  EXPECT_EQ(Parsed("<Int value=\"1\"/>\n", false), "true:true");
  EXPECT_EQ(Parsed("<Int value=\"2\"/>\n", true), "false:true");
  EXPECT_EQ(Parsed("<Int value=\"2\"/>\n", false), "false:false");
  EXPECT_EQ(Parsed("<Int value=\"-1\"/>\n", true), "false:true");
  EXPECT_EQ(Parsed("<Int value=\"true\"/>\n", true), "true:false");  // no number: 0
  EXPECT_EQ(Parsed("<Long value=\"1\"/>\n", false), "false:false");
}

// --- Doubles ----------------------------------------------------------------------------------

TEST(ParseValueDouble, Numbers) {
  EXPECT_EQ(Parsed("<Double value=\"0.5\"/>\n", 7.0), "true:0.5");
  EXPECT_EQ(Parsed("\t<Double value=\"-1e-300\"/>\n", 7.0), "true:-1e-300");
  EXPECT_EQ(Parsed("<Double value=\"3\"/>\n", 7.0), "true:3");
  EXPECT_EQ(Parsed("<Int value=\"3\"/>\n", 7.0), "false:7");
}

TEST(ParseValueDouble, TheMissingValue) {
  FileOfText file("<Double value=\"Missing\"/>\n");
  double value = 7.0;
  EXPECT_TRUE(ParseValue(file.Stream(), value));
  EXPECT_TRUE(QVCommon_940::QVMV::IsMissing(value));
}

TEST(ParseValueDouble, NoNumberGivesZeroAndTrue) {
  EXPECT_EQ(Parsed("<Double value=\"x\"/>\n", 7.0), "true:0");
  EXPECT_EQ(Parsed("<Double value=\"\"/>\n", 7.0), "true:0");
  EXPECT_EQ(Parsed("<Double value=\"nan\"/>\n", 7.0), "true:0");
  EXPECT_EQ(Parsed("<Double value=\"inf\"/>\n", 7.0), "true:0");
  EXPECT_EQ(Parsed("<Double value=\"missing\"/>\n", 7.0), "true:0");
}

TEST(ParseValueDouble, BeyondTheRangeIsTheLargestOfItsSign) {
  const auto read = [](const std::string & text) {
    FileOfText file("<Double value=\"" + text + "\"/>\n");
    double value = 7.0;
    EXPECT_TRUE(ParseValue(file.Stream(), value));
    return value;
  };
  EXPECT_EQ(read("1.79769313486232e+308"), DBL_MAX);  // what the writer makes of the largest double
  EXPECT_EQ(read("1e999"), DBL_MAX);
  EXPECT_EQ(read("-1e999"), -DBL_MAX);
}

TEST(ParseValueDouble, TheDecimalCharacterIsThePointUnderEveryLocale) {
  const TestLocale german("de_DE.UTF-8");
  ASSERT_TRUE(german.IsSet()) << german.Help();
  EXPECT_EQ(Parsed("<Double value=\"0.5\"/>\n", 7.0), "true:0.5");
  EXPECT_EQ(Parsed("<Double value=\"0,5\"/>\n", 7.0), "true:0");
}

// --- Strings ----------------------------------------------------------------------------------

TEST(ParseValueString, TakesTheTextAsItStands) {
  const std::string old = "old";
  EXPECT_EQ(Parsed("<String value=\"text\"/>\n", old), "true:text");
  EXPECT_EQ(Parsed("\t<String value=\"a b=<c>\t'\"/>\r\n", old), "true:a b=<c>\t'");
  EXPECT_EQ(Parsed("<String value=\"a&amp;b\"/>\n", old), "true:a&amp;b");
  EXPECT_EQ(Parsed("<String value=\"\xE9\xFF\"/>\n", old), "true:\xE9\xFF");
}

TEST(ParseValueString, Empty) {
  EXPECT_EQ(Parsed("<String value=\"\"/>\n", std::string("old")), "true:");
  EXPECT_EQ(Parsed("<String value=\"\"/>\r\n", std::string("old")), "true:");
  EXPECT_EQ(Parsed("<String value=\"\"/>", std::string("old")), "true:");
}

TEST(ParseValueString, NoTextAtAllIsEmptyAsWell) {
  EXPECT_EQ(Parsed("<String value=\n", std::string("old")), "true:");
  EXPECT_EQ(Parsed("<String value=\"\n", std::string("old")), "true:");
  EXPECT_EQ(Parsed("<String value=\"\"\n", std::string("old")), "true:");
}

TEST(ParseValueString, ATailThatOnlyLooksEmpty) {
  EXPECT_EQ(Parsed("<String value=\"/>\"/>\n", std::string("old")), "true:/>");
  EXPECT_EQ(Parsed("<String value=\"\" />\n", std::string("old")), "true: />");
  EXPECT_EQ(Parsed("<String value=\"\"/> \n", std::string("old")), "true:/> ");
}

TEST(ParseValueString, WrongTokensFail) {
  EXPECT_EQ(Parsed("<Int value=\"1\"/>\n", std::string("old")), "false:old");
  EXPECT_EQ(Parsed("<String>\n", std::string("old")), "false:old");
  EXPECT_EQ(Parsed("<String name=\"a\"/>\n", std::string("old")), "false:old");
  EXPECT_EQ(Parsed("", std::string("old")), "false:old");
}

// --- Lines ------------------------------------------------------------------------------------

TEST(PersistenceLines, TheLongestLineHas255Characters) {
  const std::string value(255 - 19, 'x');
  EXPECT_EQ(StringLine(255).size(), 255u);
  EXPECT_EQ(Parsed(StringLine(255) + "\n", std::string("old")), "true:" + value);
  EXPECT_EQ(Parsed(StringLine(255), std::string("old")), "true:" + value);
  EXPECT_EQ(Parsed(StringLine(256) + "\n", std::string("old")), "false:old");
  EXPECT_EQ(Parsed(StringLine(256), std::string("old")), "false:old");
}

TEST(PersistenceLines, ALongLinePutsTheStreamIntoFailure) {
  FileOfText file(StringLine(300) + "\n<Int value=\"1\"/>\n");
  std::string text = "old";
  EXPECT_FALSE(ParseValue(file.Stream(), text));
  EXPECT_TRUE(file.Stream().fail());
  int value = 7;
  EXPECT_FALSE(ParseValue(file.Stream(), value));
  EXPECT_EQ(value, 7);
}

TEST(PersistenceLines, AFailedReadHasUsedItsLine) {
  FileOfText file("<Long value=\"1\"/>\n<Int value=\"2\"/>\n");
  int value = 7;
  EXPECT_FALSE(ParseValue(file.Stream(), value));
  EXPECT_TRUE(ParseValue(file.Stream(), value));
  EXPECT_EQ(value, 2);
}

TEST(PersistenceLines, ALastLineNeedsNoLineEnd) {
  FileOfText file("<Int value=\"2\"/>\n</Obj>");
  int value = 7;
  EXPECT_TRUE(ParseValue(file.Stream(), value));
  EXPECT_TRUE(ParseEndObj(file.Stream()));
  EXPECT_FALSE(ParseEndObj(file.Stream()));
}

TEST(PersistenceLines, AFileThatIsNotOpenFails) {
  std::ifstream in;
  int value = 7;
  std::string text = "old";
  EXPECT_FALSE(ParseStartXML(in));
  EXPECT_FALSE(ParseStartObj(in, "A"));
  EXPECT_FALSE(ParseValue(in, value));
  EXPECT_FALSE(ParseValue(in, text));
  EXPECT_FALSE(ParseEndObj(in));
  EXPECT_EQ(value, 7);
  EXPECT_EQ(text, "old");
}

// --- There and back ---------------------------------------------------------------------------

TEST(PersistenceRoundTrip, Numbers) {
  for (const int value : {0, 1, -1, 1234567890, INT_MAX, INT_MIN})
    EXPECT_EQ(RoundTrip(value), value);
  for (const unsigned value : {0u, 1u, UINT_MAX})
    EXPECT_EQ(RoundTrip(value), value);
  for (const long value : {0L, 2147483647L, -2147483647L})
    EXPECT_EQ(RoundTrip(value), value);
  EXPECT_EQ(RoundTrip(true), true);
  EXPECT_EQ(RoundTrip(false), false);
  for (const double value : {0.0, 0.5, -1e-300, 123456.789012345, DBL_MAX, -DBL_MAX}) {
    EXPECT_EQ(RoundTrip(value), value);
  }
}

TEST(PersistenceRoundTrip, FifteenDigitsSurvive) {
  EXPECT_EQ(RoundTrip(1.0 / 3.0), 0.333333333333333);
  EXPECT_NE(RoundTrip(1.0 / 3.0), 1.0 / 3.0);
  EXPECT_EQ(RoundTrip(std::numeric_limits<double>::quiet_NaN()), 0.0);
}

TEST(PersistenceRoundTrip, StringsComeBackEscaped) {
  EXPECT_EQ(RoundTrip(std::string("plain text")), "plain text");
  EXPECT_EQ(RoundTrip(std::string()), "");
  EXPECT_EQ(RoundTrip(std::string("a&b")), "a&amp;b");
  EXPECT_EQ(RoundTrip(std::string("\t")), "&#9;");
  EXPECT_EQ(RoundTrip(std::string(" x")), "&#32;x");
  EXPECT_EQ(RoundTrip(std::string("   ")), "&#32;&#32;&#32;");
  EXPECT_EQ(RoundTrip(std::string("\"")), "&quot;");
  EXPECT_EQ(RoundTrip(std::string("/>")), "/&gt;");
}

TEST(PersistenceRoundTrip, AWholeFile) {
  std::ostringstream out;
  out << "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n"
      << "<!DOCTYPE QVXMLRoot SYSTEM \"savexml.dtd\">\n";
  WriteHeader(out, "c");
  const XMLObj object("A class", 1);
  object.StartObj(out);
  object.WriteSubElement(out, 3);
  object.WriteSubElement(out, "three");
  object.WriteSubElement(out, QVCommon_940::QVMV::Missing());
  object.EndObj(out);
  EndHeader(out);

  FileOfText file(out.str());
  int count = 0;
  std::string text;
  double number = 0.0;
  EXPECT_TRUE(ParseStartXML(file.Stream()));
  EXPECT_TRUE(ParseStartObj(file.Stream(), "A class"));
  EXPECT_TRUE(ParseValue(file.Stream(), count));
  EXPECT_TRUE(ParseValue(file.Stream(), text));
  EXPECT_TRUE(ParseValue(file.Stream(), number));
  EXPECT_TRUE(ParseEndObj(file.Stream()));
  EXPECT_EQ(count, 3);
  EXPECT_EQ(text, "three");
  EXPECT_TRUE(QVCommon_940::QVMV::IsMissing(number));
}

TEST(PersistenceRoundTrip, EveryTruncationIsAFailureOrAShorterFile) {
  std::string whole =
      "<Obj name=\"A\">\n\t<Int value=\"12\"/>\n\t<String value=\"text\"/>\n</Obj>\n";
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    FileOfText file(whole.substr(0, length));
    int number = 0;
    std::string text;
    const bool result = ParseStartObj(file.Stream(), "A") && ParseValue(file.Stream(), number) &&
                        ParseValue(file.Stream(), text) && ParseEndObj(file.Stream());
    EXPECT_EQ(result, length + 2 >= whole.size()) << length;  // the last ">" and line end may go
  }
}

TEST(PersistenceGarbage, RandomBytesNeverDoMoreThanFail) {
  std::mt19937 random(940);
  const std::string often = "<>=\"/ \t\r\nIntLongDoubleStringvalueObjname";
  for (int i = 0; i < 3000; ++i) {
    std::string bytes(random() % 400, '\0');
    for (char & c : bytes) {
      c = random() % 8 ? often[random() % often.size()] : static_cast<char>(random() % 256);
    }
    if (random() % 2) bytes.insert(0, "<String value=");
    FileOfText file(bytes);
    std::string text = "old";
    double number = 7.0;
    unsigned bits = 7;
    const bool readText = ParseValue(file.Stream(), text);
    EXPECT_TRUE(readText || text == "old");
    EXPECT_LE(text.size(), 255u);
    const bool readNumber = ParseValue(file.Stream(), number);
    EXPECT_TRUE(readNumber || number == 7.0);
    const bool readBits = ParseValue(file.Stream(), bits);
    EXPECT_TRUE(readBits || bits == 7);
    ParseStartObj(file.Stream(), "A");
    ParseEndObj(file.Stream());
  }
}
