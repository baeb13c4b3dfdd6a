#include "XMLUtil.h"

#include <climits>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "xml/text/naive_escape.h"

using QVXML_940::XMLUtil;

namespace {

// Replaces all and gives back result and text in one line.
std::string Replaced(std::string text, const char * from, const std::string & to) {
  const int result = XMLUtil::ReplaceAll(text, from, to);
  return std::to_string(result) + ":" + text;
}

}  // namespace

TEST(XMLUtil, Constants) {
  EXPECT_EQ(XMLUtil::AMPERSAND, "&");
  EXPECT_EQ(XMLUtil::LESS_THAN, "<");
  EXPECT_EQ(XMLUtil::GREATER_THAN, ">");
  EXPECT_EQ(XMLUtil::QUOTE, "\"");
  EXPECT_EQ(XMLUtil::XML_AMPERSAND, "&amp;");
  EXPECT_EQ(XMLUtil::XML_LESS_THAN, "&lt;");
  EXPECT_EQ(XMLUtil::XML_GREATER_THAN, "&gt;");
  EXPECT_EQ(XMLUtil::XML_QUOTE, "&quot;");
  EXPECT_EQ(XMLUtil::XML_CHARREF_TAB, "&#9;");
  EXPECT_EQ(XMLUtil::XML_CHARREF_NL, "&#10;");
  EXPECT_EQ(XMLUtil::XML_CHARREF_CR, "&#13;");
  EXPECT_EQ(XMLUtil::XML_CHARREF_SP, "&#32;");
  EXPECT_EQ(XMLUtil::XML_SP_CHARREF_SP, " &#32;");
  EXPECT_EQ(XMLUtil::BEGIN_ELEMENT, "<");
  EXPECT_EQ(XMLUtil::END_ELEMENT, ">");
  EXPECT_EQ(XMLUtil::BEGIN_END_ELEMENT, "/");
  EXPECT_EQ(XMLUtil::BEGIN_PREPROCESSOR, "!");
  EXPECT_EQ(XMLUtil::EQUAL, "=");
  EXPECT_EQ(XMLUtil::SPACE, " ");
  EXPECT_EQ(XMLUtil::ROWSEP, "\n");
  EXPECT_EQ(XMLUtil::ITEMINDENT, "\t");
  EXPECT_EQ(XMLUtil::TAB_LENGTH, 8);
  EXPECT_EQ(XMLUtil::FIRST_LINE, "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>");
  EXPECT_EQ(XMLUtil::FIRST_LINE.size(), 39u);
}

// --- Escape -----------------------------------------------------------------------------------

TEST(XMLUtilEscape, EachReservedCharacter) {
  EXPECT_EQ(XMLUtil::Escape("&"), "&amp;");
  EXPECT_EQ(XMLUtil::Escape("<"), "&lt;");
  EXPECT_EQ(XMLUtil::Escape(">"), "&gt;");
  EXPECT_EQ(XMLUtil::Escape("\""), "&quot;");
  EXPECT_EQ(XMLUtil::Escape("\t"), "&#9;");
  EXPECT_EQ(XMLUtil::Escape("\n"), "&#10;");
  EXPECT_EQ(XMLUtil::Escape("\r"), "&#13;");
  EXPECT_EQ(XMLUtil::Escape("<&>"), "&lt;&amp;&gt;");
  EXPECT_EQ(XMLUtil::Escape("&amp;"), "&amp;amp;");
}

TEST(XMLUtilEscape, LeavesTheRestAlone) {
  EXPECT_EQ(XMLUtil::Escape(""), "");
  EXPECT_EQ(XMLUtil::Escape("it's"), "it's");
  EXPECT_EQ(XMLUtil::Escape("\xC3\xA9\xFF"), "\xC3\xA9\xFF");
  EXPECT_EQ(XMLUtil::Escape(std::string("a\0b", 3)), std::string("a\0b", 3));
}

TEST(XMLUtilEscape, Blanks) {
  EXPECT_EQ(XMLUtil::Escape(" "), "&#32;");
  EXPECT_EQ(XMLUtil::Escape("  "), "&#32;&#32;");
  EXPECT_EQ(XMLUtil::Escape("   "), "&#32;&#32;&#32;");
  EXPECT_EQ(XMLUtil::Escape("a b"), "a b");
  EXPECT_EQ(XMLUtil::Escape("a  b"), "a &#32;b");
  EXPECT_EQ(XMLUtil::Escape("a   b"), "a &#32; b");
  EXPECT_EQ(XMLUtil::Escape("a    b"), "a &#32; &#32;b");
  EXPECT_EQ(XMLUtil::Escape(" a "), "&#32;a&#32;");
  EXPECT_EQ(XMLUtil::Escape("a  "), "a &#32;");
  EXPECT_EQ(XMLUtil::Escape("a   "), "a &#32;&#32;");
}

TEST(XMLUtilEscape, AgreesWithTheTenPassesOnEveryShortText) {
  const std::string letters = " a&\"";
  std::vector<std::string> texts{""};
  for (std::size_t first = 0; texts.back().size() < 7;) {
    const std::size_t last = texts.size();
    for (; first < last; ++first) {
      for (const char letter : letters)
        texts.push_back(texts[first] + letter);
    }
  }
  ASSERT_EQ(texts.size(), 21845u);  // 4^0 + ... + 4^7
  for (const std::string & text : texts) {
    ASSERT_EQ(XMLUtil::Escape(text), test::NaiveEscape(text)) << '[' << text << ']';
  }
}

TEST(XMLUtilEscape, AgreesWithTheTenPassesOnRandomBytes) {
  std::mt19937 random(940);
  const std::string often = "  \t\n\r&<>\"';x";
  for (int i = 0; i < 2000; ++i) {
    std::string text(random() % 60, '\0');
    for (char & c : text) {
      c = random() % 2 ? often[random() % often.size()] : static_cast<char>(random() % 256);
    }
    ASSERT_EQ(XMLUtil::Escape(text), test::NaiveEscape(text));
  }
}

TEST(XMLUtilEscape, TakesLinearTime) {
  // Replacing one at a time in place would move 5e13 bytes here.
  const std::string text(10'000'000, '&');
  const std::string escaped = XMLUtil::Escape(text);
  EXPECT_EQ(escaped.size(), 5 * text.size());
}

// --- Tabs and integers ------------------------------------------------------------------------

TEST(XMLUtil, GetTabs) {
  EXPECT_EQ(XMLUtil::GetTabs(-1), "");
  EXPECT_EQ(XMLUtil::GetTabs(INT_MIN), "");
  EXPECT_EQ(XMLUtil::GetTabs(0), "");
  EXPECT_EQ(XMLUtil::GetTabs(1), "\t");
  EXPECT_EQ(XMLUtil::GetTabs(3), "\t\t\t");
}

TEST(XMLUtil, IntegerText) {
  EXPECT_EQ(XMLUtil::toString(0), "0");
  EXPECT_EQ(XMLUtil::toString(-17), "-17");
  EXPECT_EQ(XMLUtil::toString(INT_MAX), "2147483647");
  EXPECT_EQ(XMLUtil::toString(INT_MIN), "-2147483648");
}

// --- Replacing --------------------------------------------------------------------------------

TEST(XMLUtilReplaceString, TakesTheFirstOccurrence) {
  std::string text = "a-b-c";
  EXPECT_EQ(XMLUtil::ReplaceString(text, "-", "++"), 1);
  EXPECT_EQ(text, "a++b-c");
}

TEST(XMLUtilReplaceString, NothingFound) {
  std::string text = "abc";
  EXPECT_EQ(XMLUtil::ReplaceString(text, "x", "y"), -1);
  EXPECT_EQ(XMLUtil::ReplaceString(text, nullptr, "y"), -1);
  EXPECT_EQ(text, "abc");
  std::string empty;
  EXPECT_EQ(XMLUtil::ReplaceString(empty, "x", "y"), -1);
  EXPECT_EQ(empty, "");
}

TEST(XMLUtilReplaceString, AnEmptyPatternStandsAtTheStart) {
  std::string text = "abc";
  EXPECT_EQ(XMLUtil::ReplaceString(text, "", "y"), 0);
  EXPECT_EQ(text, "yabc");
}

TEST(XMLUtilReplaceString, TheTextMayReplaceItsOwnPart) {
  std::string text = "ab";
  EXPECT_EQ(XMLUtil::ReplaceString(text, "b", text), 1);
  EXPECT_EQ(text, "aab");
}

TEST(XMLUtilReplaceAll, ResultIsOneBelowTheLastSearch) {
  EXPECT_EQ(Replaced("abc", "x", "y"), "-1:abc");
  EXPECT_EQ(Replaced("", "x", "y"), "-1:");
  EXPECT_EQ(Replaced("a,b,c", ",", "; "), "5:a; b; c");  // the last search began at 6
  EXPECT_EQ(Replaced("a,b", ",", ""), "0:ab");
  EXPECT_EQ(Replaced(",b", ",", ""), "-1:b");  // found, and still -1
  EXPECT_EQ(Replaced("xx", "x", "yy"), "3:yyyy");
}

TEST(XMLUtilReplaceAll, SkipsWhatItPutIn) {
  EXPECT_EQ(Replaced("a", "a", "aa"), "1:aa");
  EXPECT_EQ(Replaced("aaa", "aa", "b"), "0:ba");
  EXPECT_EQ(Replaced("aabb", "ab", ""), "0:ab");  // the new "ab" is older than the last search
}

TEST(XMLUtilReplaceAll, AnEmptyPatternChangesNothing) {
  EXPECT_EQ(Replaced("abc", "", "y"), "-1:abc");
  EXPECT_EQ(Replaced("abc", nullptr, "y"), "-1:abc");
}

TEST(XMLUtilReplaceAll, TheTextMayReplaceItsOwnParts) {
  std::string text = "a.a";
  EXPECT_EQ(XMLUtil::ReplaceAll(text, "a", text), 6);
  EXPECT_EQ(text, "a.a.a.a");
}

TEST(XMLUtilReplaceAll, TakesLinearTime) {
  std::string text(10'000'000, 'x');
  EXPECT_EQ(XMLUtil::ReplaceAll(text, "x", "yz"), 19'999'999);
  EXPECT_EQ(text.size(), 20'000'000u);
}
