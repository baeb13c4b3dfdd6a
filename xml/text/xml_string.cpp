#include "XMLString.h"

#include "xml/text/escape.h"
#include "xml/text/write_piece.h"

namespace QVXML_940 {

XMLString * XMLString::Create(const std::string & text) {
  return new XMLString(text);
}

XMLString::XMLString(const std::string & text) : fText(text) {
}

XMLString::~XMLString() = default;

int XMLString::ToString(std::string & out, ExportFormat & format) const {
  AppendEscapedContent(out, fText);
  format.SetIsNewParagraph(false);
  return 0;
}

int XMLString::ToStream(std::ostream & out, ExportFormat & format, bool utf) const {
  std::string text;
  ToString(text, format);
  return WritePiece(out, text, utf);
}

XMLString * XMLString::Clone() const {
  return new XMLString(*this);
}

}  // namespace QVXML_940
