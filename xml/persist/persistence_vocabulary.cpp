#include "PersistenceVocabulary.h"

namespace QVXML_940 {

const std::string XML_ROOT = "QVXMLRoot";
const std::string XML_DOCTYPE_ROOT = "QVXMLRoot";
const std::string XML_COPYRIGHT = "copyright";

const std::string XML_OBJ = "Obj";
const std::string XML_OBJ_NAME = "name";

const std::string XML_INT = "Int";
const std::string XML_INT_VALUE = "value";
const std::string XML_LONG = "Long";
const std::string XML_LONG_VALUE = "value";
const std::string XML_DOUBLE = "Double";
const std::string XML_DOUBLE_VALUE = "value";
const std::string XML_MISSING = "Missing";
const std::string XML_STRING = "String";
const std::string XML_STRING_VALUE = "value";

const std::string XML_DTD = "savexml.dtd";

}  // namespace QVXML_940
