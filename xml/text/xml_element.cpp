#include "XMLElement.h"

#include <algorithm>
#include <limits>

#include "XMLUtil.h"
#include "xml/text/write_piece.h"

namespace QVXML_940 {

namespace {

// False for NaN and the infinities, true for the missing value.
bool IsWritable(double value) {
  constexpr double largest = std::numeric_limits<double>::max();
  return value >= -largest && value <= largest;
}

constexpr std::size_t kUsualTag = 256;  // few tags are longer: room for them in one go

}  // namespace

// --- Building ---------------------------------------------------------------------------------

XMLElement * XMLElement::Create(const std::string & name) {
  return new XMLElement(name);
}

XMLElement::XMLElement(const std::string & name) : fName(name) {
}

XMLElement::~XMLElement() {
  for (auto & attribute : fAttributes)
    attribute.reset();
  for (auto & child : fChildren)
    child.reset();
}

int XMLElement::AddElement(XMLElement * child) {
  return AddChild(child);
}

int XMLElement::AddElement(XMLString * child) {
  return AddChild(child);
}

int XMLElement::AddChild(XMLInterface * child) {
  std::unique_ptr<XMLInterface> owned(child);
  fChildren.push_back(std::move(owned));
  return static_cast<int>(fChildren.size());
}

void XMLElement::AddAttribute(XMLAttribute * attribute) {
  std::unique_ptr<XMLAttribute> owned(attribute);
  fAttributes.push_back(std::move(owned));
}

void XMLElement::AddAttribute(const std::string & name, const std::string & value) {
  AddAttribute(XMLAttribute::Create(name, value));
}

void XMLElement::AddAttribute(const std::string & name, double value) {
  if (IsWritable(value)) AddAttribute(XMLAttribute::Create(name, value));
}

void XMLElement::AddAttribute(const std::string & name, double value, bool fixedForm) {
  if (IsWritable(value)) AddAttribute(XMLAttribute::Create(name, value, fixedForm));
}

XMLElement * XMLElement::Clone() const {
  std::unique_ptr<XMLElement> copy(Create(fName));
  for (const auto & attribute : fAttributes) {
    if (attribute) copy->AddAttribute(attribute->Clone());
  }
  for (const auto & child : fChildren) {
    if (child) copy->AddChild(child->Clone());
  }
  return copy.release();
}

// --- Writing ----------------------------------------------------------------------------------

int XMLElement::ToString(std::string & out, ExportFormat & format) const {
  AppendStartTag(out, format);
  if (HasChildren()) {
    ++format.fTabs;
    for (const auto & child : fChildren) {
      if (child) child->ToString(out, format);
    }
    --format.fTabs;
    AppendEndTag(out, format);
  }
  format.SetIsNewParagraph(true);
  return 0;
}

int XMLElement::ToStream(std::ostream & out, ExportFormat & format, bool utf) const {
  // No text is kept while the children are written: a deep tree needs the stack.
  const auto write = [&](auto append) {
    std::string piece;
    piece.reserve(kUsualTag);
    append(piece);
    WritePiece(out, piece, utf);
  };

  write([&](std::string & piece) { AppendStartTag(piece, format); });
  if (HasChildren()) {
    ++format.fTabs;
    for (const auto & child : fChildren) {
      if (child) child->ToStream(out, format, utf);
    }
    --format.fTabs;
    write([&](std::string & piece) { AppendEndTag(piece, format); });
  }
  format.SetIsNewParagraph(true);
  return 0;
}

bool XMLElement::HasChildren() const {
  return std::any_of(fChildren.begin(), fChildren.end(),
                     [](const auto & child) { return child != nullptr; });
}

void XMLElement::AppendLineStart(std::string & out, const ExportFormat & format) const {
  if (format.IsNewParagraph()) out += XMLUtil::ROWSEP;
  if (format.HasIndentation()) out += XMLUtil::GetTabs(format.fTabs);
}

void XMLElement::AppendStartTag(std::string & out, ExportFormat & format) const {
  AppendLineStart(out, format);
  out.append(XMLUtil::BEGIN_ELEMENT).append(fName);
  ++format.fTabs;
  for (const auto & attribute : fAttributes) {
    if (!attribute) continue;
    out += XMLUtil::SPACE;
    if (format.HasIndentation()) out += XMLUtil::GetTabs(format.fTabs);
    attribute->ToString(out, format);
  }
  --format.fTabs;
  if (!HasChildren()) out += XMLUtil::BEGIN_END_ELEMENT;
  out += XMLUtil::END_ELEMENT;
}

void XMLElement::AppendEndTag(std::string & out, const ExportFormat & format) const {
  AppendLineStart(out, format);
  out.append(XMLUtil::BEGIN_ELEMENT).append(XMLUtil::BEGIN_END_ELEMENT).append(fName);
  out += XMLUtil::END_ELEMENT;
}

}  // namespace QVXML_940
