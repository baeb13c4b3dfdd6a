#include <cfloat>
#include <limits>
#include <memory>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "XMLAttribute.h"
#include "XMLDocType.h"
#include "XMLInterface.h"
#include "XMLString.h"

using namespace QVXML_940;

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

// The node's text by `ToString`, after checking that both forms of `ToStream` write the same.
std::string Text(const XMLInterface & node) {
  std::string text;
  ExportFormat format;
  EXPECT_EQ(node.ToString(text, format), 0);
  for (const bool utf : {false, true}) {
    std::ostringstream stream;
    ExportFormat again;
    EXPECT_EQ(node.ToStream(stream, again, utf), 0);
    EXPECT_EQ(stream.str(), text);
  }
  return text;
}

std::string TextAndDelete(const XMLInterface * node) {
  const std::unique_ptr<const XMLInterface> owned(node);
  return Text(*owned);
}

}  // namespace

// --- XMLAttribute -----------------------------------------------------------------------------

TEST(XMLAttribute, TextValueIsEscaped) {
  EXPECT_EQ(TextAndDelete(XMLAttribute::Create("a", "v")), "a=\"v\"");
  EXPECT_EQ(TextAndDelete(XMLAttribute::Create("a", "")), "a=\"\"");
  EXPECT_EQ(TextAndDelete(XMLAttribute::Create("a", "x>\"y")), "a=\"x&gt;&quot;y\"");
  EXPECT_EQ(TextAndDelete(XMLAttribute::Create("a", "  ")), "a=\"&#32;&#32;\"");
}

TEST(XMLAttribute, TheNameIsWrittenAsItStands) {
  EXPECT_EQ(TextAndDelete(XMLAttribute::Create("a<&", "v")), "a<&=\"v\"");
}

TEST(XMLAttribute, NumberValue) {
  EXPECT_EQ(TextAndDelete(XMLAttribute::Create("a", 0.5)), "a=\"0.5\"");
  EXPECT_EQ(TextAndDelete(XMLAttribute::Create("a", 1e15)), "a=\"1e+15\"");
  EXPECT_EQ(TextAndDelete(XMLAttribute::Create("a", 3)), "a=\"3\"");
  EXPECT_EQ(TextAndDelete(XMLAttribute::Create("a", -DBL_MAX)), "a=\"-1.79769313486232e+308\"");
}

TEST(XMLAttribute, NumberValueInFixedForm) {
  EXPECT_EQ(TextAndDelete(XMLAttribute::Create("a", 0.5, true)), "a=\"0.5000000000000000\"");
  EXPECT_EQ(TextAndDelete(XMLAttribute::Create("a", 0.5, false)), "a=\"0.5\"");
}

TEST(XMLAttribute, RendersNumbersThatAreNotFinite) {
  EXPECT_EQ(TextAndDelete(XMLAttribute::Create("a", kInfinity)), "a=\"inf\"");
  EXPECT_EQ(TextAndDelete(XMLAttribute::Create("a", std::numeric_limits<double>::quiet_NaN())),
            "a=\"nan\"");
  EXPECT_EQ(TextAndDelete(XMLAttribute::Create("a", -kInfinity, true)), "a=\"-inf\"");
}

TEST(XMLAttribute, AppendsAndLeavesTheFormat) {
  const std::unique_ptr<XMLAttribute> attribute(XMLAttribute::Create("a", "v"));
  for (const bool paragraph : {false, true}) {
    std::string text = "before ";
    ExportFormat format;
    format.SetIsNewParagraph(paragraph);
    format.SetIndentation(true);
    format.fTabs = 2;
    attribute->ToString(text, format);
    EXPECT_EQ(text, "before a=\"v\"");
    EXPECT_EQ(format.fIsNewParagraph, paragraph);
    EXPECT_EQ(format.fTabs, 2);
  }
}

TEST(XMLAttribute, CopiesAreIndependent) {
  const std::unique_ptr<XMLAttribute> first(XMLAttribute::Create("a", "1"));
  const std::unique_ptr<XMLAttribute> second(XMLAttribute::Create("b", "2"));
  const std::unique_ptr<XMLAttribute> clone(first->Clone());
  *first = *second;
  EXPECT_EQ(Text(*first), "b=\"2\"");
  EXPECT_EQ(Text(*clone), "a=\"1\"");
}

// --- XMLString --------------------------------------------------------------------------------

TEST(XMLString, EscapesOnlyAmpersandAndLessThan) {
  EXPECT_EQ(TextAndDelete(XMLString::Create("")), "");
  EXPECT_EQ(TextAndDelete(XMLString::Create("x>\"y")), "x>\"y");
  EXPECT_EQ(TextAndDelete(XMLString::Create("a<b&c&amp;")), "a&lt;b&amp;c&amp;amp;");
  EXPECT_EQ(TextAndDelete(XMLString::Create("  a\t\r\n  b ")), "  a\t\r\n  b ");
  EXPECT_EQ(TextAndDelete(XMLString::Create("<<&&")), "&lt;&lt;&amp;&amp;");
}

TEST(XMLString, TurnsTheNewParagraphOff) {
  const std::unique_ptr<XMLString> node(XMLString::Create("t"));
  ExportFormat format;
  std::string text = "before ";
  node->ToString(text, format);
  EXPECT_EQ(text, "before t");
  EXPECT_FALSE(format.fIsNewParagraph);

  ExportFormat forStream;
  std::ostringstream stream;
  node->ToStream(stream, forStream, true);
  EXPECT_FALSE(forStream.fIsNewParagraph);
}

TEST(XMLString, CopiesAreIndependent) {
  const std::unique_ptr<XMLString> first(XMLString::Create("1"));
  const std::unique_ptr<XMLString> second(XMLString::Create("2"));
  const std::unique_ptr<XMLString> clone(first->Clone());
  *first = *second;
  EXPECT_EQ(Text(*first), "2");
  EXPECT_EQ(Text(*clone), "1");
}

TEST(XMLString, TakesLinearTime) {
  const std::string text = TextAndDelete(XMLString::Create(std::string(3'000'000, '<')));
  EXPECT_EQ(text.size(), 12'000'000u);
}

// --- XMLDocType -------------------------------------------------------------------------------

TEST(XMLDocType, WithoutExtension) {
  EXPECT_EQ(TextAndDelete(XMLDocType::Create("root", "file.dtd", 0)),
            "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n"
            "<!DOCTYPE root SYSTEM \"file.dtd\">\n");
}

TEST(XMLDocType, WithExtensions) {
  const std::unique_ptr<XMLDocType> docType(XMLDocType::Create("root", "file.dtd", 1));
  EXPECT_EQ(docType->AddExtension("ab"), 3);
  EXPECT_EQ(Text(*docType),
            "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n"
            "<!DOCTYPE root SYSTEM \"file.dtd\"\n"
            "[\n"
            "ab\n"
            "]>\n");
  EXPECT_EQ(docType->AddExtension(""), 4);
  EXPECT_EQ(docType->AddExtension("c"), 6);
  EXPECT_EQ(Text(*docType),
            "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n"
            "<!DOCTYPE root SYSTEM \"file.dtd\"\n"
            "[\n"
            "ab\n"
            "\n"
            "c\n"
            "]>\n");
}

TEST(XMLDocType, EscapesNothing) {
  EXPECT_EQ(TextAndDelete(XMLDocType::Create("r&", "a<\"b", 2)),
            "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n<!DOCTYPE r& SYSTEM \"a<\"b\">\n");
}

TEST(XMLDocType, TakesNoNoticeOfTheFormat) {
  const std::unique_ptr<XMLDocType> docType(XMLDocType::Create("r", "s", 0));
  ExportFormat format;
  format.SetFormat(false);
  format.fTabs = 3;
  std::string text;
  docType->ToString(text, format);
  EXPECT_EQ(text, "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n<!DOCTYPE r SYSTEM \"s\">\n");
  EXPECT_TRUE(format.fIsNewParagraph);
  EXPECT_EQ(format.fTabs, 3);
}

TEST(XMLDocType, CopiesHoldTheExtension) {
  const std::unique_ptr<XMLDocType> first(XMLDocType::Create("r", "s", 0));
  first->AddExtension("x");
  const std::unique_ptr<XMLDocType> clone(first->Clone());
  const std::string text = Text(*first);
  EXPECT_EQ(Text(*clone), text);
  first->AddExtension("y");
  EXPECT_EQ(Text(*clone), text);
  *first = *clone;
  EXPECT_EQ(Text(*first), text);
}
