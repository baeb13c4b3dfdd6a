#include "XMLObj.h"

#include <limits>
#include <utility>

#include "PersistenceVocabulary.h"
#include "QVMV.h"
#include "XMLUtil.h"
#include "XMLWrite.h"
#include "xml/persist/attribute_text.h"

namespace QVXML_940 {

XMLObj::XMLObj(std::string name, int nTabs) : fName(std::move(name)), fNTabs(nTabs) {
}

XMLObj::XMLObj(const XMLObj & other) = default;

XMLObj & XMLObj::operator=(const XMLObj & other) = default;

XMLObj::~XMLObj() = default;

const std::string & XMLObj::GetName() const {
  return fName;
}

int XMLObj::GetNTabs() const {
  return fNTabs;
}

int XMLObj::StartObj(std::ostream & out) const {
  return Write(out, XMLUtil::ROWSEP + XMLUtil::GetTabs(fNTabs) + XMLUtil::BEGIN_ELEMENT + XML_OBJ +
                        XMLUtil::SPACE + XML_OBJ_NAME + XMLUtil::EQUAL + XMLUtil::QUOTE + fName +
                        XMLUtil::QUOTE + XMLUtil::END_ELEMENT);
}

int XMLObj::EndObj(std::ostream & out) const {
  return Write(out, XMLUtil::ROWSEP + XMLUtil::GetTabs(fNTabs) + XMLUtil::BEGIN_ELEMENT +
                        XMLUtil::BEGIN_END_ELEMENT + XML_OBJ + XMLUtil::END_ELEMENT);
}

int XMLObj::WriteSubElement(std::ostream & out, int value) const {
  return WriteValue(out, XML_INT, AttributeText(XML_INT_VALUE, static_cast<double>(value)));
}

int XMLObj::WriteSubElement(std::ostream & out, unsigned int value) const {
  return WriteValue(out, XML_INT, AttributeText(XML_INT_VALUE, static_cast<double>(value)));
}

int XMLObj::WriteSubElement(std::ostream & out, long value) const {
  return WriteValue(out, XML_LONG, AttributeText(XML_LONG_VALUE, static_cast<double>(value)));
}

int XMLObj::WriteSubElement(std::ostream & out, bool value) const {
  return WriteValue(out, XML_INT, AttributeText(XML_INT_VALUE, value ? 1.0 : 0.0));
}

int XMLObj::WriteSubElement(std::ostream & out, double value) const {
  return WriteValue(out, XML_DOUBLE,
                    QVCommon_940::QVMV::IsMissing(value)
                        ? AttributeText(XML_DOUBLE_VALUE, XML_MISSING)
                        : AttributeText(XML_DOUBLE_VALUE, value));
}

int XMLObj::WriteSubElement(std::ostream & out, const std::string & value) const {
  return WriteValue(out, XML_STRING, AttributeText(XML_STRING_VALUE, value));
}

int XMLObj::WriteSubElement(std::ostream & out, const char * value) const {
  return WriteSubElement(out, value != nullptr ? std::string(value) : std::string());
}

int XMLObj::WriteValue(std::ostream & out, const std::string & tag,
                       const std::string & attribute) const {
  const int nTabs = fNTabs < std::numeric_limits<int>::max() ? fNTabs + 1 : fNTabs;
  return Write(out, XMLUtil::ROWSEP + XMLUtil::GetTabs(nTabs) + XMLUtil::BEGIN_ELEMENT + tag +
                        XMLUtil::SPACE + attribute + XMLUtil::BEGIN_END_ELEMENT +
                        XMLUtil::END_ELEMENT);
}

}  // namespace QVXML_940
