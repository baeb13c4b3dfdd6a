#include "XMLWrite.h"

#include <cstdio>
#include <fstream>
#include <memory>
#include <sstream>
#include <streambuf>
#include <string>
#include <type_traits>

#include <gtest/gtest.h>

#include "xml/test_locale.h"

using namespace QVXML_940;

namespace {

std::string Utf(const std::string & text) {
  std::ostringstream out;
  EXPECT_EQ(WriteUTF(out, text), 0);
  return out.str();
}

std::string Tree(const XMLDocType * docType, const XMLElement * root, bool format) {
  std::ostringstream out;
  EXPECT_EQ(WriteTree(out, docType, root, format), 0);
  return out.str();
}

std::string TreeUTF8(const XMLDocType * docType, const XMLElement * root, bool format) {
  std::ostringstream out;
  EXPECT_EQ(WriteTreeUTF8(out, docType, root, format), 0);
  return out.str();
}

std::unique_ptr<XMLElement> SmallTree(const std::string & text) {
  std::unique_ptr<XMLElement> root(XMLElement::Create("r"));
  root->AddAttribute("a", text);
  XMLElement * child = XMLElement::Create("c");
  root->AddElement(child);
  child->AddElement(XMLString::Create(text));
  return root;
}

const std::string kFirstLine = "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n";
const std::string kReplacement = "\xEF\xBF\xBD";

}  // namespace

// --- Bytes ------------------------------------------------------------------------------------

TEST(XMLWrite, WritePutsTheBytesAsTheyAre) {
  const std::string bytes("a\0\xFF\xC3<&\n", 7);
  std::ostringstream out;
  EXPECT_EQ(Write(out, bytes), 0);
  EXPECT_EQ(out.str(), bytes);
  EXPECT_EQ(Write(out, ""), 0);
  EXPECT_EQ(out.str(), bytes);
}

TEST(XMLWrite, WriteTakesNoNoticeOfWidthAndFill) {
  std::ostringstream out;
  out.width(10);
  out.fill('*');
  Write(out, "ab");
  WriteUTF(out, "cd");
  EXPECT_EQ(out.str(), "abcd");
}

TEST(XMLWrite, ResultIsZeroOnABrokenStream) {
  std::ostringstream out;
  out.setstate(std::ios::badbit);
  EXPECT_EQ(Write(out, "a"), 0);
  EXPECT_EQ(WriteUTF(out, "a"), 0);
  EXPECT_EQ(WriteTree(out, nullptr, SmallTree("t").get(), true), 0);
  EXPECT_EQ(WriteTreeUTF8(out, nullptr, SmallTree("t").get(), true), 0);
  EXPECT_EQ(out.str(), "");
}

// --- UTF-8 ------------------------------------------------------------------------------------

TEST(XMLWrite, ValidUtf8PassesInTheClassicLocale) {
  EXPECT_EQ(Utf(""), "");
  EXPECT_EQ(Utf("plain"), "plain");
  EXPECT_EQ(Utf(std::string("a\0b", 3)), std::string("a\0b", 3));
  EXPECT_EQ(Utf("\xC3\xA9"), "\xC3\xA9");                  // U+00E9
  EXPECT_EQ(Utf("\xE2\x82\xAC"), "\xE2\x82\xAC");          // U+20AC
  EXPECT_EQ(Utf("\xF0\x9F\x93\x88"), "\xF0\x9F\x93\x88");  // U+1F4C8
  EXPECT_EQ(Utf("\xF4\x8F\xBF\xBF"), "\xF4\x8F\xBF\xBF");  // U+10FFFF
}

TEST(XMLWrite, InvalidBytesBecomeTheReplacementCharacter) {
  EXPECT_EQ(Utf("a\xFFz"), "a" + kReplacement + "z");
  EXPECT_EQ(Utf("\xC3"), kReplacement);
  EXPECT_EQ(Utf("\xC3("), kReplacement + "(");
  EXPECT_EQ(Utf("\x80\xBF"), kReplacement + kReplacement);
  EXPECT_EQ(Utf("\xE2\x82|"), kReplacement + kReplacement + "|");              // cut short
  EXPECT_EQ(Utf("\xC0\x80"), kReplacement + kReplacement);                     // overlong
  EXPECT_EQ(Utf("\xED\xA0\x80"), kReplacement + kReplacement + kReplacement);  // a surrogate
  EXPECT_EQ(Utf("\xF4\x90\x80\x80"), kReplacement + kReplacement + kReplacement + kReplacement);
}

TEST(XMLWrite, Utf8LocaleBehavesAsTheClassicOne) {
  const TestLocale german("de_DE.UTF-8");
  ASSERT_TRUE(german.IsSet()) << german.Help();
  EXPECT_EQ(Utf("\xC3\xA9\xFF"), "\xC3\xA9" + kReplacement);
}

TEST(XMLWrite, Latin1LocaleIsConverted) {
  const TestLocale german("de_DE.ISO-8859-1");
  ASSERT_TRUE(german.IsSet()) << german.Help();
  EXPECT_EQ(Utf("M\xFCller"), "M\xC3\xBCller");
  EXPECT_EQ(Utf("\xC3\xA9"), "\xC3\x83\xC2\xA9");  // two characters there
  std::string all;
  std::string expected;
  for (int c = 1; c < 256; ++c) {
    all.push_back(static_cast<char>(c));
    if (c < 128) {
      expected.push_back(static_cast<char>(c));
    } else {
      expected.push_back(static_cast<char>(0xC0 | (c >> 6)));
      expected.push_back(static_cast<char>(0x80 | (c & 0x3F)));
    }
  }
  EXPECT_EQ(Utf(all), expected);
}

// --- Documents --------------------------------------------------------------------------------

TEST(XMLWrite, WithoutDocType) {
  const auto root = SmallTree("x<");
  EXPECT_EQ(Tree(nullptr, root.get(), false), kFirstLine + "<r a=\"x&lt;\"><c>x&lt;</c></r>");
  EXPECT_EQ(Tree(nullptr, root.get(), true), kFirstLine + "\n<r a=\"x&lt;\">\n<c>x&lt;</c>\n</r>");
  EXPECT_EQ(TreeUTF8(nullptr, root.get(), false), Tree(nullptr, root.get(), false));
  EXPECT_EQ(TreeUTF8(nullptr, root.get(), true), Tree(nullptr, root.get(), true));
}

TEST(XMLWrite, WithDocType) {
  const std::unique_ptr<XMLDocType> docType(XMLDocType::Create("r", "r.dtd", 0));
  const auto root = SmallTree("x");
  const std::string head = kFirstLine + "<!DOCTYPE r SYSTEM \"r.dtd\">\n";
  EXPECT_EQ(Tree(docType.get(), root.get(), false), head + "<r a=\"x\"><c>x</c></r>");
  EXPECT_EQ(Tree(docType.get(), root.get(), true), head + "\n<r a=\"x\">\n<c>x</c>\n</r>");
  EXPECT_EQ(TreeUTF8(docType.get(), root.get(), true), Tree(docType.get(), root.get(), true));
}

TEST(XMLWrite, ANullRootLeavesTheHead) {
  EXPECT_EQ(Tree(nullptr, nullptr, true), kFirstLine);
  EXPECT_EQ(TreeUTF8(nullptr, nullptr, true), kFirstLine);
}

TEST(XMLWrite, OnlyTheUtfFormTouchesTheBytes) {
  const auto root = SmallTree("\xC3\xA9\xFF");
  EXPECT_EQ(Tree(nullptr, root.get(), false),
            kFirstLine + "<r a=\"\xC3\xA9\xFF\"><c>\xC3\xA9\xFF</c></r>");
  EXPECT_EQ(TreeUTF8(nullptr, root.get(), false), kFirstLine + "<r a=\"\xC3\xA9" + kReplacement +
                                                      "\"><c>\xC3\xA9" + kReplacement + "</c></r>");
}

TEST(XMLWrite, TheUtfFormConvertsNamesTextsAndHead) {
  const TestLocale german("de_DE.ISO-8859-1");
  ASSERT_TRUE(german.IsSet()) << german.Help();
  std::unique_ptr<XMLElement> root(
      XMLElement::Create("gr\xF6\xDF"
                         "e"));
  root->AddAttribute("\xE4", "\xFC");
  root->AddElement(XMLString::Create("\xA7"));
  const std::unique_ptr<XMLDocType> docType(
      XMLDocType::Create("gr\xF6\xDF"
                         "e",
                         "\xE4.dtd", 0));
  EXPECT_EQ(TreeUTF8(docType.get(), root.get(), false),
            kFirstLine +
                "<!DOCTYPE gr\xC3\xB6\xC3\x9F"
                "e SYSTEM \"\xC3\xA4.dtd\">\n" +
                "<gr\xC3\xB6\xC3\x9F"
                "e \xC3\xA4=\"\xC3\xBC\">\xC2\xA7</gr\xC3\xB6\xC3\x9F"
                "e>");
  EXPECT_EQ(Tree(nullptr, root.get(), false), kFirstLine +
                                                  "<gr\xF6\xDF"
                                                  "e \xE4=\"\xFC\">\xA7</gr\xF6\xDF"
                                                  "e>");
}

TEST(XMLWrite, DocumentsDoNotChangeWithTheLocale) {
  std::unique_ptr<XMLElement> root(XMLElement::Create("r"));
  const TestLocale german("de_DE.UTF-8");
  ASSERT_TRUE(german.IsSet()) << german.Help();
  root->AddAttribute("a", 2.5);
  root->AddAttribute("b", 2.5, true);
  EXPECT_EQ(TreeUTF8(nullptr, root.get(), false),
            kFirstLine + "<r a=\"2.5\" b=\"2.5000000000000000\"/>");
}

// --- Well-formed documents, in the judgement of another parser --------------------------------

namespace {

// What the parser makes of one expression over a document: its output without the last line end.
std::string Ask(const std::string & file, const std::string & expression) {
  const std::string command = "xmllint --xpath '" + expression + "' " + file + " 2>&1";
  FILE * const pipe = popen(command.c_str(), "r");
  if (pipe == nullptr) return "no pipe";
  std::string answer;
  char chunk[4096];
  for (std::size_t n = 0; (n = fread(chunk, 1, sizeof chunk, pipe)) > 0;)
    answer.append(chunk, n);
  const int status = pclose(pipe);
  if (status != 0) return "xmllint failed: " + answer;
  if (!answer.empty() && answer.back() == '\n') answer.pop_back();
  return answer;
}

}  // namespace

TEST(XMLWrite, AnotherParserReadsTheTextsBack) {
  const std::string texts[] = {"plain",
                               " a  b   c ",
                               "<&>\"'",
                               "tab\tline\nend\rdone",
                               "    ",
                               "gr\xC3\xB6\xC3\x9F"
                               "e \xE2\x82\xAC \xF0\x9F\x93\x88",
                               "]]&gt;"};
  int number = 0;
  for (const std::string & text : texts) {
    for (const bool format : {false, true}) {
      const std::string path =
          testing::TempDir() + "xml_write_test_" + std::to_string(number++) + ".xml";
      const auto root = SmallTree(text);
      std::ofstream file(path, std::ios::binary);
      WriteTreeUTF8(file, nullptr, root.get(), format);
      file.close();
      ASSERT_TRUE(file);
      // The value of an attribute comes back byte by byte; content has its line ends made one kind.
      EXPECT_EQ(Ask(path, "string(/r/@a)"), text);
      if (text.find('\r') == std::string::npos) {
        EXPECT_EQ(Ask(path, "string(/r/c)"), text);
      }
      std::remove(path.c_str());
    }
  }
}
