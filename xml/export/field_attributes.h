/// What the dictionary and the data model have in common: the walk over the listed variables and
/// the words for a variable's storage.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "IQVVariable.h"
#include "QVCancelInfo.h"
#include "QVStatus.h"

namespace QVXML_940 {
class QVCatVar;
class QVVarList;
}  // namespace QVXML_940

namespace QVCommon_940 {

/// The outcome codes of the exporter.
inline constexpr long kStatusCancelled = 1;
inline constexpr long kStatusIndexOutOfRange = 101;
inline constexpr long kStatusNoVariable = 102;
inline constexpr long kStatusInvalidStatistics = 117;

/// Calls `write` for each listed variable in order, and stops early, before the variable, when
/// `cancel` says so, at an index outside the list (101) or at a null entry (102).
///
/// A stop by `cancel` is an OK status here: `cancel` remembers it, and the caller asks it again.
QVStatus WalkVariables(const QVXML_940::QVVarList & variables, const std::vector<int> & indices,
                       QVMath_940::QVCancelInfo & cancel,
                       const std::function<void(const QVXML_940::IQVVariable &)> & write);

/// Every position of `variables` in order, null entries included.
std::vector<int> AllPositions(const QVXML_940::QVVarList & variables);

/// The variable as a categorical one (measure levels 2 and 3); null for any other.
const QVXML_940::QVCatVar * AsCategorical(const QVXML_940::IQVVariable & variable);

/// "dataType" of the dictionary and "storage" of the data model.
const std::string & DataTypeOf(QVXML_940::IQVVariable::VariableStorage storage);
const std::string & StorageNameOf(QVXML_940::IQVVariable::VariableStorage storage);

}  // namespace QVCommon_940
