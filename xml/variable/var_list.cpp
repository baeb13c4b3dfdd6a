// The list of variables: adding, removing, looking up, roles. What it keeps in a file and shows
// stands in var_list_persistence.cpp.
#include "QVVarList.h"

#include <algorithm>
#include <limits>

#include "QVCatVar.h"
#include "QVContVar.h"
#include "XMLElement.h"
#include "xml/variable/owned.h"

namespace QVXML_940 {

namespace {

constexpr int kNone = -1;

// Counts come from files too: their sums stop at the ends of the range.
int ClampedSum(int a, int b) {
  const long long sum = static_cast<long long>(a) + b;
  return static_cast<int>(
      std::clamp<long long>(sum, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

// A copy of a variable as the class its level tells; null when it is not of that class.
template <class Variable>
std::unique_ptr<Variable> CopyAs(IQVVariable const * variable) {
  auto const * const typed = dynamic_cast<Variable const *>(variable);
  return typed ? std::make_unique<Variable>(*typed) : nullptr;
}

}  // namespace

QVVarList::QVVarList() = default;
QVVarList::~QVVarList() = default;
QVVarList::QVVarList(QVVarList &&) noexcept = default;
QVVarList & QVVarList::operator=(QVVarList &&) noexcept = default;

QVVarList::QVVarList(QVVarList const & other)
    : fNumberOfContinuous(other.fNumberOfContinuous),
      fNumberOfCategorical(other.fNumberOfCategorical),
      fTargetIndex(other.fTargetIndex),
      fTargetRespIndex(other.fTargetRespIndex),
      fFreqWeightIndex(other.fFreqWeightIndex),
      fListwiseDeletion(other.fListwiseDeletion),
      fUnWeightedCount(other.fUnWeightedCount),
      fWeightedCount(other.fWeightedCount),
      fDroppedCount(other.fDroppedCount),
      fBadWeightCount(other.fBadWeightCount),
      fWeightedDroppedCount(other.fWeightedDroppedCount),
      fResponseVariables(other.fResponseVariables),
      fFieldFormats(CloneOf(other.fFieldFormats)) {
  fVariables.reserve(other.fVariables.size());
  for (auto const & variable : other.fVariables)
    fVariables.push_back(CloneOf(variable));
}

QVVarList & QVVarList::operator=(QVVarList const & other) {
  if (this != &other) *this = QVVarList(other);
  return *this;
}

// --- Adding -----------------------------------------------------------------------------------

bool QVVarList::IsNameFree(std::string const & name) const {
  return !name.empty() && FindVariable(name) == kNone;
}

int QVVarList::Append(std::unique_ptr<IQVVariable> variable) {
  fVariables.push_back(std::move(variable));
  return Size() - 1;
}

int QVVarList::AddCont(std::unique_ptr<IQVVariable> variable) {
  const int index = Append(std::move(variable));
  fNumberOfContinuous = ClampedSum(fNumberOfContinuous, 1);
  ApplyRole(index);
  return index;
}

int QVVarList::AddCat(std::unique_ptr<IQVVariable> variable) {
  const int index = Append(std::move(variable));
  fNumberOfCategorical = ClampedSum(fNumberOfCategorical, 1);
  ApplyRole(index);
  return index;
}

void QVVarList::ApplyRole(int index) {
  const VariableRole role = GetVariableRole(index);
  if (role == VariableRoleTarget) fTargetIndex = index;
  if (role == VariableRoleTargetResponse) AddResponseVariable(index);
}

int QVVarList::AddContVar(std::string const & name, std::string const & label, VariableRole role) {
  if (!IsNameFree(name)) return kNone;
  return AddCont(std::make_unique<QVContVar>(name, label, role));
}

int QVVarList::AddContVar(std::string const & name, std::string const & label, double min,
                          double max, VariableRole role, bool useBins, int nBins) {
  if (!IsNameFree(name)) return kNone;
  return AddCont(std::make_unique<QVContVar>(name, label, min, max, role, useBins, nBins));
}

int QVVarList::AddContVar(std::string const & name, std::string const & label,
                          std::vector<double> const & cuts, bool useBins, VariableRole role) {
  if (!IsNameFree(name)) return kNone;
  return AddCont(std::make_unique<QVContVar>(name, label, cuts, useBins, role));
}

int QVVarList::AddContVar(std::string const & name, std::string const & label, double min,
                          double max, std::vector<double> const & cuts, bool useBins,
                          VariableRole role) {
  if (!IsNameFree(name)) return kNone;
  return AddCont(std::make_unique<QVContVar>(name, label, min, max, cuts, useBins, role));
}

int QVVarList::AddCatVar(std::string const & name, std::string const & label, int nCategories,
                         MeasureLevel level, VariableRole role) {
  if (!IsNameFree(name)) return kNone;
  return AddCat(std::make_unique<QVCatVar>(name, label, nCategories, level, role, false));
}

template <class T>
int QVVarList::AddCoded(std::string const & name, std::string const & label, MeasureLevel level,
                        std::vector<T> const & values, std::vector<double> const & sumFreqWts,
                        VariableRole role) {
  if (!IsNameFree(name)) return kNone;
  const int nCategories = static_cast<int>(values.size());
  auto variable =
      std::make_unique<QVCatVar>(name, label, sumFreqWts, nCategories, level, role, false);
  for (T const & value : values)
    variable->GetEncoder()->Encode(value);
  return AddCat(std::move(variable));
}

int QVVarList::LabelValues(int index, std::vector<std::string> const & labels) {
  if (IQVEncoder * const encoder = GetEncoderAt(index)) encoder->SetValueLabels(labels);
  return index;
}

int QVVarList::AddCatVar(std::string const & name, std::string const & label,
                         std::vector<double> const & values, VariableRole role) {
  return AddCoded(name, label, MeasureLevelNumericCategorical, values, {}, role);
}

int QVVarList::AddCatVar(std::string const & name, std::string const & label,
                         std::vector<double> const & values,
                         std::vector<std::string> const & labels, VariableRole role) {
  return LabelValues(AddCatVar(name, label, values, role), labels);
}

int QVVarList::AddCatVar(std::string const & name, std::string const & label,
                         std::vector<double> const & values, std::vector<double> const & sumFreqWts,
                         VariableRole role) {
  return AddCoded(name, label, MeasureLevelNumericCategorical, values, sumFreqWts, role);
}

int QVVarList::AddCatVar(std::string const & name, std::string const & label,
                         std::vector<double> const & values, std::vector<double> const & sumFreqWts,
                         std::vector<std::string> const & labels, VariableRole role) {
  return LabelValues(AddCatVar(name, label, values, sumFreqWts, role), labels);
}

int QVVarList::AddCatVar(std::string const & name, std::string const & label,
                         std::vector<std::string> const & values, VariableRole role) {
  return AddCoded(name, label, MeasureLevelStringCategorical, values, {}, role);
}

int QVVarList::AddCatVar(std::string const & name, std::string const & label,
                         std::vector<std::string> const & values,
                         std::vector<std::string> const & labels, VariableRole role) {
  return LabelValues(AddCatVar(name, label, values, role), labels);
}

int QVVarList::AddCatVar(std::string const & name, std::string const & label,
                         std::vector<std::string> const & values,
                         std::vector<double> const & sumFreqWts, VariableRole role) {
  return AddCoded(name, label, MeasureLevelStringCategorical, values, sumFreqWts, role);
}

int QVVarList::AddCatVar(std::string const & name, std::string const & label,
                         std::vector<std::string> const & values,
                         std::vector<double> const & sumFreqWts,
                         std::vector<std::string> const & labels, VariableRole role) {
  return LabelValues(AddCatVar(name, label, values, sumFreqWts, role), labels);
}

int QVVarList::PutWeight(std::unique_ptr<QVWeightVar> weight) {
  if (GetFreqWeightVariable()) {
    fVariables[static_cast<std::size_t>(fFreqWeightIndex)] = std::move(weight);
  } else {
    fFreqWeightIndex = Append(std::move(weight));
  }
  return fFreqWeightIndex;
}

int QVVarList::SetWeightVar(std::string const & name, std::string const & label,
                            IQVVariable::WRoundingOption option) {
  return PutWeight(std::make_unique<QVWeightVar>(name, label, option));
}

int QVVarList::AddNewVar(IQVVariable const * variable) {
  if (!variable || !IsNameFree(variable->GetVariableName())) return kNone;
  switch (variable->GetMeasureLevel()) {
    case MeasureLevelContinuous:
      if (auto copy = CopyAs<QVContVar>(variable)) return AddCont(std::move(copy));
      return kNone;
    case MeasureLevelNumericCategorical:
    case MeasureLevelStringCategorical:
      if (auto copy = CopyAs<QVCatVar>(variable)) return AddCat(std::move(copy));
      return kNone;
    case MeasureLevelFrequencyWeight:
      if (auto copy = CopyAs<QVWeightVar>(variable)) return PutWeight(std::move(copy));
      return kNone;
    default:
      return kNone;
  }
}

// --- Removing ---------------------------------------------------------------------------------

bool QVVarList::RemoveVar(int index) {
  if (!Contains(index)) return false;
  const std::unique_ptr<IQVVariable> removed =
      std::move(fVariables[static_cast<std::size_t>(index)]);
  fVariables.erase(fVariables.begin() + index);

  const bool isTarget = removed && removed->GetVariableRole() == VariableRoleTarget;
  if (removed && removed->GetMeasureLevel() == MeasureLevelContinuous) {
    fNumberOfContinuous = ClampedSum(fNumberOfContinuous, -1);
  } else if (removed && index != fFreqWeightIndex && !isTarget) {
    fNumberOfCategorical = ClampedSum(fNumberOfCategorical, -1);
  }

  if (isTarget) {
    fTargetIndex = kNone;
  } else if (fTargetIndex > index) {
    --fTargetIndex;
  }
  RemoveResponseVariable(index);
  if (fFreqWeightIndex == index) {
    fFreqWeightIndex = kNone;
  } else if (fFreqWeightIndex > index) {
    --fFreqWeightIndex;
  }
  return true;
}

bool QVVarList::RemoveVar(std::string name) {
  return RemoveVar(FindVariable(name));
}

// --- Looking up -------------------------------------------------------------------------------

int QVVarList::Size() const {
  return static_cast<int>(fVariables.size());
}

bool QVVarList::Contains(int index) const {
  return index >= 0 && index < Size();
}

IQVVariable * QVVarList::At(int index) const {
  return Contains(index) ? fVariables[static_cast<std::size_t>(index)].get() : nullptr;
}

QVWeightVar * QVVarList::WeightAt(int index) const {
  return dynamic_cast<QVWeightVar *>(At(index));
}

IQVVariable * QVVarList::GetVarAt(int index) {
  return At(index);
}
IQVVariable const * QVVarList::GetVarAt(int index) const {
  return At(index);
}

IQVVariable * QVVarList::GetVariable(std::string const & name) {
  return At(FindVariable(name));
}

IQVVariable const * QVVarList::GetVariable(std::string const & name) const {
  return At(FindVariable(name));
}

IQVEncoder * QVVarList::GetEncoderAt(int index) {
  IQVVariable * const variable = At(index);
  return variable ? variable->GetEncoder() : nullptr;
}

IQVEncoder const * QVVarList::GetEncoderAt(int index) const {
  IQVVariable const * const variable = At(index);
  return variable ? variable->GetEncoder() : nullptr;
}

int QVVarList::FindVariable(std::string const & name) const {
  const auto found = std::find_if(fVariables.begin(), fVariables.end(), [&](auto const & variable) {
    return variable && variable->GetVariableName() == name;
  });
  return found != fVariables.end() ? static_cast<int>(found - fVariables.begin()) : kNone;
}

QVVarList::VariableRole QVVarList::GetVariableRole(int index) const {
  IQVVariable const * const variable = At(index);
  return variable ? variable->GetVariableRole() : VariableRoleUndefined;
}

int QVVarList::GetTargetIndex() const {
  return fTargetIndex;
}
int QVVarList::GetTargetRespIndex() const {
  return fTargetRespIndex;
}
int QVVarList::GetFreqWeightIndex() const {
  return fFreqWeightIndex;
}

IQVVariable * QVVarList::GetTargetVariable() {
  return At(fTargetIndex);
}
IQVVariable const * QVVarList::GetTargetVariable() const {
  return At(fTargetIndex);
}
IQVVariable * QVVarList::GetTargetRespVariable() {
  return At(fTargetRespIndex);
}
IQVVariable const * QVVarList::GetTargetRespVariable() const {
  return At(fTargetRespIndex);
}
QVWeightVar * QVVarList::GetFreqWeightVariable() {
  return WeightAt(fFreqWeightIndex);
}
QVWeightVar const * QVVarList::GetFreqWeightVariable() const {
  return WeightAt(fFreqWeightIndex);
}

std::vector<int> const & QVVarList::GetMutipleResponseVariables() const {
  return fResponseVariables;
}

int QVVarList::GetNTargetCats() const {
  IQVVariable const * const target = GetTargetVariable();
  return target ? target->GetNumberOfCategories() : 0;
}

int QVVarList::GetNOutputCats() const {
  IQVVariable const * const response = GetTargetRespVariable();
  return response ? response->GetNumberOfCategories() : 0;
}

int QVVarList::GetNumContVar() const {
  return fNumberOfContinuous;
}
int QVVarList::GetNumCatVar() const {
  return fNumberOfCategorical;
}

int QVVarList::CountRole(VariableRole role) const {
  return static_cast<int>(std::count_if(
      fVariables.begin(), fVariables.end(),
      [&](auto const & variable) { return variable && variable->GetVariableRole() == role; }));
}

int QVVarList::GetNumInputVars() const {
  return CountRole(VariableRoleInput);
}
int QVVarList::GetNumPossibleInputVars() const {
  return CountRole(VariableRolePossibleInput);
}

std::vector<int> QVVarList::GetNInputCats() const {
  std::vector<int> categories;
  for (auto const & variable : fVariables) {
    if (variable && variable->GetVariableRole() == VariableRoleInput) {
      categories.push_back(variable->GetNumberOfCategories());
    }
  }
  return categories;
}

void QVVarList::GetVarNames(std::vector<std::string> & inputs,
                            std::vector<std::string> & responses) const {
  for (auto const & variable : fVariables) {
    if (!variable) continue;
    const VariableRole role = variable->GetVariableRole();
    if (role == VariableRoleInput) inputs.push_back(variable->GetVariableName());
    if (role == VariableRoleTargetResponse) responses.push_back(variable->GetVariableName());
  }
}

// --- Roles ------------------------------------------------------------------------------------

bool QVVarList::SetVariableRole(int index, VariableRole role) {
  IQVVariable * const variable = At(index);
  if (!variable) return false;
  if (role == VariableRoleTarget) {
    if (fTargetIndex == kNone) fTargetIndex = index;
  } else if (role == VariableRoleTargetResponse) {
    ChangeVariableRole(true, index);
  } else if (variable->GetVariableRole() == VariableRoleTarget) {
    fTargetIndex = kNone;
  }
  variable->SetVariableRole(role);
  return true;
}

bool QVVarList::AddResponseVariable(int index) {
  if (!Contains(index)) return false;
  if (fTargetRespIndex == kNone && fResponseVariables.empty()) fTargetRespIndex = index;
  fResponseVariables.push_back(index);
  return true;
}

bool QVVarList::RemoveResponseVariable(int index) {
  if (fVariables.empty()) {
    fResponseVariables.clear();
    fTargetRespIndex = kNone;
    return false;
  }
  if (index < 0 || index > Size()) return false;
  if (fTargetRespIndex == kNone || fResponseVariables.empty()) return true;
  std::vector<int> & responses = fResponseVariables;
  responses.erase(std::remove(responses.begin(), responses.end(), index), responses.end());
  for (int & response : responses) {
    if (response > index) --response;
  }
  fTargetRespIndex = responses.empty() ? kNone : responses.front();
  return true;
}

bool QVVarList::ChangeVariableRole(bool add, int index) {
  std::vector<int> & responses = fResponseVariables;
  const auto entry = std::find(responses.begin(), responses.end(), index);
  if (add && entry == responses.end()) responses.push_back(index);
  if (!add && entry != responses.end()) responses.erase(entry);
  if (responses.empty()) {
    fTargetRespIndex = kNone;
  } else if (fTargetRespIndex == kNone) {
    fTargetRespIndex = responses.front();
  }
  return false;
}

// --- Changing ---------------------------------------------------------------------------------

bool QVVarList::SetMissingValueReplacement(int index, std::string const & text) {
  IQVVariable * const variable = At(index);
  if (!variable) return false;
  variable->SetMissingValueReplacement(text);
  return true;
}

int QVVarList::UpdateNumbersOfCategories() {
  int sum = 0;
  for (auto const & variable : fVariables) {
    if (variable) sum = ClampedSum(sum, variable->UpdateNumberOfCategories());
  }
  return sum;
}

bool QVVarList::ChangeTargetEncoder(IQVEncoder * encoder) {
  auto * const target = dynamic_cast<QVCatVar *>(GetTargetVariable());
  if (!target) return false;
  target->ChangeEncoder(encoder);
  if (!encoder) return false;
  const IQVEncoder::EncoderType type = encoder->GetEncoderType();
  const bool hasCategories = type == IQVEncoder::CatNumEncoder || type == IQVEncoder::StringEncoder;
  return hasCategories && encoder->GetNumberOfCategories() >= 1;
}

void QVVarList::SetUnWeightedCount(double count) {
  fUnWeightedCount = count;
}
void QVVarList::SetWeightedCount(double count) {
  fWeightedCount = count;
}
void QVVarList::SetDroppedCount(double count) {
  fDroppedCount = count;
}
void QVVarList::SetBadWeightCount(double count) {
  fBadWeightCount = count;
}
void QVVarList::SetWeightedDroppedCount(double count) {
  fWeightedDroppedCount = count;
}
double QVVarList::GetUnWeightedCount() const {
  return fUnWeightedCount;
}
double QVVarList::GetWeightedCount() const {
  return fWeightedCount;
}
double QVVarList::GetDroppedCount() const {
  return fDroppedCount;
}
double QVVarList::GetBadWeightCount() const {
  return fBadWeightCount;
}
double QVVarList::GetWeightedDroppedCount() const {
  return fWeightedDroppedCount;
}

void QVVarList::SetListwiseDeletion(bool listwise) {
  fListwiseDeletion = listwise;
}
bool QVVarList::GetListwiseDeletion() const {
  return fListwiseDeletion;
}

void QVVarList::SetFieldFormatsElement(XMLElement * element) {
  TakeOver(fFieldFormats, element);
}
XMLElement * QVVarList::GetFieldFormatsElement() {
  return fFieldFormats.get();
}
XMLElement const * QVVarList::GetFieldFormatsElement() const {
  return fFieldFormats.get();
}

}  // namespace QVXML_940
