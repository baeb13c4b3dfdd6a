#include "DataModelVocabulary.h"

namespace QVXML_940 {

// --- Elements and attributes -------------------------------------------------------------------

const std::string DataModel_DataModel = "DataModel";
const std::string DataModel_Fields = "Fields";
const std::string DataModel_Field = "Field";
const std::string DataModel_count = "count";
const std::string DataModel_name = "name";
const std::string DataModel_displayLabel = "displayLabel";
const std::string DataModel_measure = "measure";
const std::string DataModel_role = "role";
const std::string DataModel_storage = "storage";

// --- Measures ----------------------------------------------------------------------------------

const std::string DataModel_continuous = "continuous";
const std::string DataModel_nominal = "nominal";
const std::string DataModel_ordinal = "ordinal";
const std::string DataModel_flag = "flag";
const std::string DataModel_discrete = "discrete";
const std::string DataModel_typeless = "typeless";
const std::string DataModel_unknown = "unknown";

// --- Storages ----------------------------------------------------------------------------------

const std::string DataModel_integer = "integer";
const std::string DataModel_real = "real";
const std::string DataModel_string = "string";
const std::string DataModel_date = "date";
const std::string DataModel_time = "time";
const std::string DataModel_timestamp = "timestamp";

// --- Roles -------------------------------------------------------------------------------------

const std::string DataModel_input = "input";
const std::string DataModel_target = "target";
const std::string DataModel_freqWeight = "freqWeight";
const std::string DataModel_recordId = "recordId";
const std::string DataModel_none = "none";

}  // namespace QVXML_940
