#include "XMLPersistence.h"
#include "XMLUtil.h"
#include "XMLWrite.h"
#include "xml/persist/attribute_text.h"

namespace QVXML_940 {

int StartRoot(std::ostream & out, std::string copyright) {
  return Write(out, XMLUtil::BEGIN_ELEMENT + XML_ROOT + XMLUtil::SPACE +
                        AttributeText(XML_COPYRIGHT, copyright) + XMLUtil::END_ELEMENT);
}

int WriteHeader(std::ostream & out, std::string copyright) {
  return StartRoot(out, std::move(copyright));
}

int EndRoot(std::ostream & out) {
  return Write(out, XMLUtil::ROWSEP + XMLUtil::BEGIN_ELEMENT + XMLUtil::BEGIN_END_ELEMENT +
                        XML_ROOT + XMLUtil::END_ELEMENT);
}

int EndHeader(std::ostream & out) {
  return EndRoot(out);
}

}  // namespace QVXML_940
