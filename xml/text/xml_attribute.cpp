#include "XMLAttribute.h"

#include "NumberText.h"
#include "XMLUtil.h"
#include "xml/text/escape.h"
#include "xml/text/write_piece.h"

namespace QVXML_940 {

XMLAttribute * XMLAttribute::Create(const std::string & name, const std::string & value) {
  return new XMLAttribute(name, value);
}

XMLAttribute * XMLAttribute::Create(const std::string & name, double value) {
  return new XMLAttribute(name, Format(value, false, nullptr));
}

XMLAttribute * XMLAttribute::Create(const std::string & name, double value, bool fixedForm) {
  return fixedForm ? new XMLAttribute(name, ReplaceSep(value)) : Create(name, value);
}

XMLAttribute::XMLAttribute(const std::string & name, const std::string & value)
    : fName(name), fValue(value) {
}

XMLAttribute::~XMLAttribute() = default;

int XMLAttribute::ToString(std::string & out, ExportFormat & /*format*/) const {
  out.append(fName).append(XMLUtil::EQUAL).append(XMLUtil::QUOTE);
  AppendEscapedValue(out, fValue);
  out.append(XMLUtil::QUOTE);
  return 0;
}

int XMLAttribute::ToStream(std::ostream & out, ExportFormat & format, bool utf) const {
  std::string text;
  ToString(text, format);
  return WritePiece(out, text, utf);
}

XMLAttribute * XMLAttribute::Clone() const {
  return new XMLAttribute(*this);
}

}  // namespace QVXML_940
