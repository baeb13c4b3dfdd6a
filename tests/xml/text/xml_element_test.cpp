#include "XMLElement.h"

#include <cfloat>
#include <limits>
#include <memory>
#include <sstream>
#include <string>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "XMLDocType.h"
#include "XMLWrite.h"
#include "common/virtual_slot.h"

using namespace QVXML_940;

namespace {

using Owned = std::unique_ptr<XMLElement>;

Owned Element(const char * name) {
  return Owned(XMLElement::Create(name));
}

// The text in this layout by `ToString`, after checking that `ToStream` writes the same and that
// both leave the same state behind.
std::string Text(const XMLElement & element, const ExportFormat & layout) {
  ExportFormat format = layout;
  std::string text;
  EXPECT_EQ(element.ToString(text, format), 0);
  EXPECT_TRUE(format.fIsNewParagraph);
  EXPECT_EQ(format.fTabs, layout.fTabs);
  EXPECT_EQ(format.fFormat, layout.fFormat);
  EXPECT_EQ(format.fIndentation, layout.fIndentation);
  for (const bool utf : {false, true}) {
    ExportFormat again = layout;
    std::ostringstream stream;
    EXPECT_EQ(element.ToStream(stream, again, utf), 0);
    EXPECT_EQ(stream.str(), text);
    EXPECT_TRUE(again.fIsNewParagraph);
    EXPECT_EQ(again.fTabs, layout.fTabs);
  }
  return text;
}

ExportFormat Layout(bool format, bool indentation = false, bool paragraph = true, int tabs = 0) {
  ExportFormat layout;
  layout.SetFormat(format);
  layout.SetIndentation(indentation);
  layout.SetIsNewParagraph(paragraph);
  layout.fTabs = tabs;
  return layout;
}

std::string Plain(const XMLElement & element) {
  return Text(element, Layout(false));
}

// An element that notes when it goes, writes and copies in its own way.
class Noted : public XMLElement {
 public:
  Noted(const std::string & name, std::vector<std::string> & notes)
      : XMLElement(name), fNoteName(name), fNotes(notes) {}
  ~Noted() override { fNotes.push_back(fNoteName); }

  int ToString(std::string & out, ExportFormat &) const override {
    out += "{" + fNoteName + "}";
    return 0;
  }
  int ToStream(std::ostream & out, ExportFormat &, bool utf) const override {
    return utf ? WriteUTF(out, "{" + fNoteName + "}") : Write(out, "{" + fNoteName + "}");
  }
  XMLElement * Clone() const override { return new Noted(fNoteName + "'", fNotes); }

 private:
  std::string fNoteName;
  std::vector<std::string> & fNotes;
};

}  // namespace

// --- Building ---------------------------------------------------------------------------------

TEST(XMLElement, IsNotCopied) {
  EXPECT_FALSE(std::is_copy_constructible_v<XMLElement>);
  EXPECT_FALSE(std::is_copy_assignable_v<XMLElement>);
  EXPECT_TRUE(std::is_copy_assignable_v<XMLAttribute>);
  EXPECT_TRUE(std::is_copy_assignable_v<XMLString>);
  EXPECT_TRUE(std::is_copy_assignable_v<XMLDocType>);
  EXPECT_TRUE(std::is_copy_assignable_v<XMLInterface>);
}

TEST(XMLElement, AddElementGivesTheNumberOfChildren) {
  const Owned element = Element("a");
  EXPECT_EQ(element->AddElement(XMLElement::Create("b")), 1);
  EXPECT_EQ(element->AddElement(XMLString::Create("t")), 2);
  EXPECT_EQ(element->AddElement(XMLElement::Create("c")), 3);
}

TEST(XMLElement, AttributesInOrderOfInsertionRepeatsIncluded) {
  const Owned element = Element("e");
  element->AddAttribute("b", "1");
  element->AddAttribute(XMLAttribute::Create("a", "2"));
  element->AddAttribute("b", 3.0);
  EXPECT_EQ(Plain(*element), "<e b=\"1\" a=\"2\" b=\"3\"/>");
}

TEST(XMLElement, NumbersThatAreNotFiniteLeaveNoAttribute) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double infinity = std::numeric_limits<double>::infinity();
  const Owned element = Element("e");
  element->AddAttribute("a", nan);
  element->AddAttribute("a", infinity);
  element->AddAttribute("a", -infinity);
  for (const bool fixedForm : {false, true}) {
    element->AddAttribute("a", nan, fixedForm);
    element->AddAttribute("a", infinity, fixedForm);
    element->AddAttribute("a", -infinity, fixedForm);
  }
  EXPECT_EQ(Plain(*element), "<e/>");
}

TEST(XMLElement, TheMissingValueIsWrittenAsANumber) {
  const Owned element = Element("e");
  element->AddAttribute("a", -DBL_MAX);
  element->AddAttribute("b", DBL_MAX);
  EXPECT_EQ(Plain(*element), "<e a=\"-1.79769313486232e+308\" b=\"1.79769313486232e+308\"/>");
}

TEST(XMLElement, NumbersInFixedForm) {
  const Owned element = Element("e");
  element->AddAttribute("a", 0.25, true);
  element->AddAttribute("b", 0.25, false);
  element->AddAttribute("c", -DBL_MAX, true);
  const std::string text = Plain(*element);
  EXPECT_EQ(text.substr(0, 46), "<e a=\"0.2500000000000000\" b=\"0.25\" c=\"-1797693");
}

TEST(XMLElement, DeletesAttributesAndChildrenInOrder) {
  std::vector<std::string> notes;
  {
    const Owned element = Element("e");
    element->AddElement(new Noted("first", notes));
    element->AddElement(XMLString::Create("t"));
    element->AddElement(new Noted("second", notes));
    EXPECT_TRUE(notes.empty());
  }
  EXPECT_EQ(notes, (std::vector<std::string>{"first", "second"}));
}

TEST(XMLElement, OrderOfTheVirtualOperations) {
  EXPECT_EQ(VirtualSlot(&XMLInterface::ToString), 2);
  EXPECT_EQ(VirtualSlot(&XMLInterface::ToStream), 3);
  EXPECT_EQ(VirtualSlot(&XMLInterface::Clone), 4);
  EXPECT_EQ(VirtualSlot(&XMLElement::Clone), 4);
  EXPECT_EQ(VirtualSlot(static_cast<int (XMLElement::*)(XMLElement *)>(&XMLElement::AddElement)),
            5);
  EXPECT_EQ(VirtualSlot(static_cast<int (XMLElement::*)(XMLString *)>(&XMLElement::AddElement)), 6);
}

// --- Writing ----------------------------------------------------------------------------------

TEST(XMLElement, EmptyWithoutFormat) {
  EXPECT_EQ(Plain(*Element("name")), "<name/>");
}

TEST(XMLElement, EmptyWithFormat) {
  EXPECT_EQ(Text(*Element("name"), Layout(true)), "\n<name/>");
  EXPECT_EQ(Text(*Element("name"), Layout(true, false, false)), "<name/>");
  EXPECT_EQ(Text(*Element("name"), Layout(true, true, true, 2)), "\n\t\t<name/>");
  EXPECT_EQ(Text(*Element("name"), Layout(true, true, false, 2)), "\t\t<name/>");
  EXPECT_EQ(Text(*Element("name"), Layout(true, false, true, 2)), "\n<name/>");
  EXPECT_EQ(Text(*Element("name"), Layout(false, true, true, 2)), "<name/>");
}

TEST(XMLElement, NamesAreNotEscaped) {
  EXPECT_EQ(Plain(*Element("a&b")), "<a&b/>");
}

TEST(XMLElement, TextKeepsTheEndTagOnItsLine) {
  const Owned root = Element("r");
  XMLElement * a = XMLElement::Create("a");
  root->AddElement(a);
  a->AddElement(XMLString::Create("text"));
  root->AddElement(XMLElement::Create("b"));
  EXPECT_EQ(Text(*root, Layout(true)), "\n<r>\n<a>text</a>\n<b/>\n</r>");
  EXPECT_EQ(Plain(*root), "<r><a>text</a><b/></r>");
}

TEST(XMLElement, AnElementBehindTextStaysOnTheLine) {
  const Owned root = Element("r");
  root->AddElement(XMLString::Create("t"));
  root->AddElement(XMLElement::Create("b"));
  root->AddElement(XMLString::Create("u"));
  EXPECT_EQ(Text(*root, Layout(true)), "\n<r>t<b/>u</r>");
  EXPECT_EQ(Text(*root, Layout(true, true)), "\n<r>t\t<b/>u</r>");
}

TEST(XMLElement, AnEmptyTextMakesTheElementNotEmpty) {
  const Owned element = Element("a");
  element->AddElement(XMLString::Create(""));
  EXPECT_EQ(Text(*element, Layout(true)), "\n<a></a>");
}

TEST(XMLElement, Indentation) {
  const Owned root = Element("r");
  root->AddAttribute("x", "1");
  root->AddAttribute("y", "2");
  XMLElement * a = XMLElement::Create("a");
  root->AddElement(a);
  a->AddAttribute("z", "3");
  XMLElement * b = XMLElement::Create("b");
  a->AddElement(b);
  b->AddElement(XMLString::Create("text"));
  // Attributes stand behind a blank and one tab more than their element; tabs stand before an end
  // tag even where text keeps it on its line.
  EXPECT_EQ(Text(*root, Layout(true, true)),
            "\n<r \tx=\"1\" \ty=\"2\">"
            "\n\t<a \t\tz=\"3\">"
            "\n\t\t<b>text\t\t</b>"
            "\n\t</a>"
            "\n</r>");
  EXPECT_EQ(Text(*root, Layout(false, true)), "<r x=\"1\" y=\"2\"><a z=\"3\"><b>text</b></a></r>");
}

TEST(XMLElement, IndentationStartsAtTheCallersTabCount) {
  const Owned root = Element("r");
  root->AddElement(XMLElement::Create("a"));
  EXPECT_EQ(Text(*root, Layout(true, true, true, 1)), "\n\t<r>\n\t\t<a/>\n\t</r>");
  EXPECT_EQ(Text(*root, Layout(true, true, true, -2)), "\n<r>\n<a/>\n</r>");
}

TEST(XMLElement, TextAndAttributesEscapeDifferently) {
  const Owned element = Element("e");
  element->AddAttribute("a", "x>\"y  ");
  element->AddElement(XMLString::Create("x>\"y  "));
  EXPECT_EQ(Plain(*element), "<e a=\"x&gt;&quot;y &#32;\">x>\"y  </e>");
}

TEST(XMLElement, AppendsToTheString) {
  ExportFormat format = Layout(false);
  std::string text = "before";
  Element("e")->ToString(text, format);
  EXPECT_EQ(text, "before<e/>");
}

TEST(XMLElement, ChildrenWriteThroughTheirOwnOperations) {
  std::vector<std::string> notes;
  const Owned root = Element("r");
  root->AddElement(new Noted("n", notes));
  EXPECT_EQ(Plain(*root), "<r>{n}</r>");
}

TEST(XMLElement, VeryLongNamesAndValues) {
  const std::string name(100'000, 'n');
  const std::string value(5'000'000, 'v');
  const Owned element(XMLElement::Create(name));
  element->AddAttribute("a", value);
  EXPECT_EQ(Plain(*element), "<" + name + " a=\"" + value + "\"/>");
}

// --- Null pointers ----------------------------------------------------------------------------

TEST(XMLElement, NullPointersAreCountedAndSkipped) {
  const Owned element = Element("e");
  element->AddAttribute(static_cast<XMLAttribute *>(nullptr));
  element->AddAttribute("a", "1");
  EXPECT_EQ(element->AddElement(static_cast<XMLElement *>(nullptr)), 1);
  EXPECT_EQ(element->AddElement(XMLElement::Create("b")), 2);
  EXPECT_EQ(element->AddElement(static_cast<XMLString *>(nullptr)), 3);
  EXPECT_EQ(Text(*element, Layout(true)), "\n<e a=\"1\">\n<b/>\n</e>");
  EXPECT_EQ(Text(*Owned(element->Clone()), Layout(true)), "\n<e a=\"1\">\n<b/>\n</e>");
}

TEST(XMLElement, WithNullChildrenAloneItIsEmpty) {
  const Owned element = Element("e");
  element->AddElement(static_cast<XMLElement *>(nullptr));
  EXPECT_EQ(Plain(*element), "<e/>");
  EXPECT_EQ(Plain(*Owned(element->Clone())), "<e/>");
}

// --- Copies -----------------------------------------------------------------------------------

TEST(XMLElement, CloneIsDeepAndKeepsTheOrder) {
  Owned root = Element("r");
  root->AddAttribute("x", "1");
  root->AddAttribute("w", "2");
  XMLElement * a = XMLElement::Create("a");
  root->AddElement(a);
  root->AddElement(XMLString::Create("t"));
  const std::string text = Text(*root, Layout(true));

  const Owned clone(root->Clone());
  a->AddAttribute("late", "1");
  root->AddElement(XMLElement::Create("late"));
  EXPECT_EQ(Text(*clone, Layout(true)), text);
  root.reset();
  EXPECT_EQ(Text(*clone, Layout(true)), text);
}

TEST(XMLElement, CloneCopiesChildrenThroughTheirOwnOperation) {
  std::vector<std::string> notes;
  const Owned root = Element("r");
  root->AddElement(new Noted("n", notes));
  EXPECT_EQ(Plain(*Owned(root->Clone())), "<r>{n'}</r>");
}

// --- Deep trees -------------------------------------------------------------------------------

TEST(XMLElement, DeepTree) {
  constexpr int kDepth = 5000;
  const Owned root = Element("d");
  XMLElement * deepest = root.get();
  for (int i = 1; i < kDepth; ++i) {
    XMLElement * child = XMLElement::Create("d");
    deepest->AddElement(child);
    deepest = child;
  }
  std::string expected;
  for (int i = 1; i < kDepth; ++i)
    expected += "<d>";
  expected += "<d/>";
  for (int i = 1; i < kDepth; ++i)
    expected += "</d>";
  EXPECT_EQ(Plain(*root), expected);
  EXPECT_EQ(Plain(*Owned(root->Clone())), expected);
}
