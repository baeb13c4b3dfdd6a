#include "xml/export/field_attributes.h"

#include <numeric>

#include "DataModelVocabulary.h"
#include "PMMLVocabulary.h"
#include "QVCatVar.h"
#include "QVVarList.h"

namespace QVCommon_940 {

using namespace QVXML_940;

namespace {

QVStatus ErrorAtIndex(long code, int index) {
  QVStatus status(code, false);
  status.SetDiscreteDatum(0, index);
  return status;
}

}  // namespace

QVStatus WalkVariables(const QVVarList & variables, const std::vector<int> & indices,
                       QVMath_940::QVCancelInfo & cancel,
                       const std::function<void(const IQVVariable &)> & write) {
  for (int index : indices) {
    if (cancel.IsCancel()) break;
    if (index < 0 || index >= variables.Size()) return ErrorAtIndex(kStatusIndexOutOfRange, index);
    const IQVVariable * variable = variables.GetVarAt(index);
    if (variable == nullptr) return ErrorAtIndex(kStatusNoVariable, index);
    write(*variable);
  }
  return QVStatus();
}

std::vector<int> AllPositions(const QVVarList & variables) {
  std::vector<int> positions(static_cast<std::size_t>(variables.Size()));
  std::iota(positions.begin(), positions.end(), 0);
  return positions;
}

const QVCatVar * AsCategorical(const IQVVariable & variable) {
  const IQVVariable::MeasureLevel level = variable.GetMeasureLevel();
  if (level != 2 && level != 3) return nullptr;
  return dynamic_cast<const QVCatVar *>(&variable);
}

const std::string & DataTypeOf(IQVVariable::VariableStorage storage) {
  switch (static_cast<int>(storage)) {
    case 1:
      return PMML_integer;
    case 3:
      return PMML_string;
    case 4:
      return PMML_dateDaysSince_1970;
    case 5:
      return PMML_timeSeconds;
    case 6:
      return PMML_dateTimeSecondsSince_1970;
    default:
      return PMML_double;
  }
}

const std::string & StorageNameOf(IQVVariable::VariableStorage storage) {
  switch (static_cast<int>(storage)) {
    case 1:
      return DataModel_integer;
    case 3:
      return DataModel_string;
    case 4:
      return DataModel_date;
    case 5:
      return DataModel_time;
    case 6:
      return DataModel_timestamp;
    default:
      return DataModel_real;
  }
}

}  // namespace QVCommon_940
