#include "XMLDocType.h"

#include "XMLUtil.h"
#include "xml/text/write_piece.h"

namespace QVXML_940 {

XMLDocType * XMLDocType::Create(const std::string & name, const std::string & systemId,
                                long number) {
  return new XMLDocType(name, systemId, number);
}

XMLDocType::XMLDocType(const std::string & name, const std::string & systemId, long number)
    : fName(name), fSystemId(systemId), fNumber(number) {
}

XMLDocType::~XMLDocType() = default;

int XMLDocType::AddExtension(const std::string & text) {
  fExtension.append(XMLUtil::ROWSEP).append(text);
  return static_cast<int>(fExtension.size());
}

int XMLDocType::ToString(std::string & out, ExportFormat & /*format*/) const {
  out += XMLUtil::FIRST_LINE + XMLUtil::ROWSEP;
  out += XMLUtil::BEGIN_ELEMENT + XMLUtil::BEGIN_PREPROCESSOR;
  out += "DOCTYPE" + XMLUtil::SPACE + fName + XMLUtil::SPACE;
  out += "SYSTEM" + XMLUtil::SPACE + XMLUtil::QUOTE + fSystemId + XMLUtil::QUOTE;
  if (!fExtension.empty()) {
    out += XMLUtil::ROWSEP + "[" + fExtension + XMLUtil::ROWSEP + "]";
  }
  out += XMLUtil::END_ELEMENT + XMLUtil::ROWSEP;
  return 0;
}

int XMLDocType::ToStream(std::ostream & out, ExportFormat & format, bool utf) const {
  std::string text;
  ToString(text, format);
  return WritePiece(out, text, utf);
}

XMLDocType * XMLDocType::Clone() const {
  return new XMLDocType(*this);
}

}  // namespace QVXML_940
