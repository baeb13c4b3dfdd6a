/// The words of the object persistence file: root, object frame and one element for each kind of
/// value. See XMLObj.h and XMLPersistence.h for the operations.
///
/// Thread-safe: the strings are built when the library is loaded and never change.
#pragma once

#include <string>

#include "QVExport.h"

namespace QVXML_940 {

// The root.
QVCOMMON_API extern const std::string XML_ROOT;  // "QVXMLRoot"
QVCOMMON_API extern const std::string
    XML_DOCTYPE_ROOT;                                 // "QVXMLRoot", for a caller's document type
QVCOMMON_API extern const std::string XML_COPYRIGHT;  // "copyright"

// The frame of an object.
QVCOMMON_API extern const std::string XML_OBJ;       // "Obj"
QVCOMMON_API extern const std::string XML_OBJ_NAME;  // "name"

// Values.
QVCOMMON_API extern const std::string XML_INT;           // "Int": int, unsigned int and bool
QVCOMMON_API extern const std::string XML_INT_VALUE;     // "value"
QVCOMMON_API extern const std::string XML_LONG;          // "Long"
QVCOMMON_API extern const std::string XML_LONG_VALUE;    // "value"
QVCOMMON_API extern const std::string XML_DOUBLE;        // "Double"
QVCOMMON_API extern const std::string XML_DOUBLE_VALUE;  // "value"
QVCOMMON_API extern const std::string XML_MISSING;       // "Missing": the missing value
QVCOMMON_API extern const std::string XML_STRING;        // "String"
QVCOMMON_API extern const std::string XML_STRING_VALUE;  // "value"

// The document type file, named on the second line of a file; nothing reads it.
QVCOMMON_API extern const std::string XML_DTD;  // "savexml.dtd"

}  // namespace QVXML_940
