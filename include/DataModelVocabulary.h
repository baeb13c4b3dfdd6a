/// The words of the `DataModel` element that describes the fields beside a PMML document.
///
///     XMLElement * field = XMLElement::Create(DataModel_Field);
///     field->AddAttribute(DataModel_role, DataModel_target);
///
/// A constant is named for its text: the prefix, then the text, with an underscore for whatever a
/// name cannot hold. Where the name does not spell its text, the text stands behind it or above.
///
/// Thread-safe: the strings are built when the library is loaded and never change.
#pragma once

#include <string>

#include "QVExport.h"

namespace QVXML_940 {

// --- Elements and attributes -------------------------------------------------------------------

QVCOMMON_API extern const std::string DataModel_DataModel;
QVCOMMON_API extern const std::string DataModel_Fields;
QVCOMMON_API extern const std::string DataModel_Field;
QVCOMMON_API extern const std::string DataModel_count;
QVCOMMON_API extern const std::string DataModel_name;
QVCOMMON_API extern const std::string DataModel_displayLabel;
QVCOMMON_API extern const std::string DataModel_measure;
QVCOMMON_API extern const std::string DataModel_role;
QVCOMMON_API extern const std::string DataModel_storage;

// --- Measures ----------------------------------------------------------------------------------

QVCOMMON_API extern const std::string DataModel_continuous;
QVCOMMON_API extern const std::string DataModel_nominal;
QVCOMMON_API extern const std::string DataModel_ordinal;
QVCOMMON_API extern const std::string DataModel_flag;
QVCOMMON_API extern const std::string DataModel_discrete;
QVCOMMON_API extern const std::string DataModel_typeless;
QVCOMMON_API extern const std::string DataModel_unknown;

// --- Storages ----------------------------------------------------------------------------------

QVCOMMON_API extern const std::string DataModel_integer;
QVCOMMON_API extern const std::string DataModel_real;
QVCOMMON_API extern const std::string DataModel_string;
QVCOMMON_API extern const std::string DataModel_date;
QVCOMMON_API extern const std::string DataModel_time;
QVCOMMON_API extern const std::string DataModel_timestamp;

// --- Roles -------------------------------------------------------------------------------------

QVCOMMON_API extern const std::string DataModel_input;
QVCOMMON_API extern const std::string DataModel_target;
QVCOMMON_API extern const std::string DataModel_freqWeight;
QVCOMMON_API extern const std::string DataModel_recordId;
QVCOMMON_API extern const std::string DataModel_none;

}  // namespace QVXML_940
