#include <algorithm>
#include <utility>

#include "QVWarnings.h"

namespace QVCommon_940 {
namespace {

int ParameterKey(const QVStatus & status) {
  return static_cast<int>(status.GetErrorCode());
}

void AppendNew(std::vector<QVStatus> & list, const QVStatus & status) {
  if (std::find(list.begin(), list.end(), status) == list.end()) {
    list.push_back(status);
  }
}

}  // namespace

// --- QVParameterValue -------------------------------------------------------------------------

QVWarnings::QVParameterValue::ValueType QVWarnings::QVParameterValue::GetType() const {
  return fType;
}

int QVWarnings::QVParameterValue::ToInteger() const {
  return fInteger;
}

double QVWarnings::QVParameterValue::ToDouble() const {
  return fDouble;
}

std::string QVWarnings::QVParameterValue::ToString() const {
  return fString;
}

void QVWarnings::QVParameterValue::SetValue(int value) {
  fType = IntegerParameter;
  fInteger = value;
}

void QVWarnings::QVParameterValue::SetValue(double value) {
  fType = DoubleParameter;
  fDouble = value;
}

void QVWarnings::QVParameterValue::SetValue(std::string value) {
  fType = StringParameter;
  fString = std::move(value);
}

// --- The lists --------------------------------------------------------------------------------

QVWarnings::~QVWarnings() = default;

void QVWarnings::AddWarning(const QVStatus & status, Destination destination) {
  if (!status.IsWarning()) {
    return;
  }
  if (destination != DestinationSecond) {
    AppendNew(fFirstWarnings, status);
  }
  if (destination != DestinationFirst) {
    AppendNew(fSecondWarnings, status);
  }
}

void QVWarnings::AddWarnings(const std::vector<QVStatus> & statuses) {
  // By index and up to the size at the start: `statuses` may be this collector's own list, which
  // grows when it holds a NaN.
  const std::size_t count = statuses.size();
  for (std::size_t i = 0; i < count; ++i) {
    const QVStatus status = statuses[i];
    AddWarning(status, DestinationFirst);
  }
}

void QVWarnings::AddWarnings(QVWarnings other) {
  for (const QVStatus & status : other.fFirstWarnings) {
    AppendNew(fFirstWarnings, status);
  }
  for (const QVStatus & status : other.fSecondWarnings) {
    AppendNew(fSecondWarnings, status);
  }
  for (const auto & [code, place] : other.fParameterIndex) {
    if (fParameterIndex.count(code) == 0) {
      fParameterPool.push_back(other.fParameterPool[static_cast<std::size_t>(place)]);
      fParameterIndex[code] = static_cast<int>(fParameterPool.size()) - 1;
    }
  }
}

const std::vector<QVStatus> & QVWarnings::GetWarnings(bool first) const {
  return first ? fFirstWarnings : fSecondWarnings;
}

void QVWarnings::ClearWarnings() {
  fFirstWarnings.clear();
}

// --- The parameters ---------------------------------------------------------------------------

std::vector<QVWarnings::QVParameterValue> & QVWarnings::ParameterList(const QVStatus & status) {
  const int key = ParameterKey(status);
  const auto entry = fParameterIndex.find(key);
  if (entry != fParameterIndex.end()) {
    return fParameterPool[static_cast<std::size_t>(entry->second)];
  }
  fParameterPool.emplace_back();
  fParameterIndex[key] = static_cast<int>(fParameterPool.size()) - 1;
  return fParameterPool.back();
}

bool QVWarnings::AddParameter(const QVStatus & status, int value) {
  QVParameterValue parameter;
  parameter.SetValue(value);
  ParameterList(status).push_back(parameter);
  return true;
}

bool QVWarnings::AddParameter(const QVStatus & status, double value) {
  QVParameterValue parameter;
  parameter.SetValue(value);
  ParameterList(status).push_back(parameter);
  return true;
}

bool QVWarnings::AddParameter(const QVStatus & status, std::string value) {
  QVParameterValue parameter;
  parameter.SetValue(std::move(value));
  ParameterList(status).push_back(std::move(parameter));
  return true;
}

bool QVWarnings::HasParameter(const QVStatus & status) const {
  const auto entry = fParameterIndex.find(ParameterKey(status));
  return entry != fParameterIndex.end() &&
         !fParameterPool[static_cast<std::size_t>(entry->second)].empty();
}

const std::vector<QVWarnings::QVParameterValue> & QVWarnings::GetParameters(
    const QVStatus & status) {
  fParameterResult.clear();
  const auto entry = fParameterIndex.find(ParameterKey(status));
  if (entry != fParameterIndex.end()) {
    fParameterResult = fParameterPool[static_cast<std::size_t>(entry->second)];
  }
  return fParameterResult;
}

}  // namespace QVCommon_940
