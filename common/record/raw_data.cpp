#include "RawData.h"

#include <cstring>
#include <utility>

using QVXML_940::VariableStorage;

namespace QVCommon_940 {

RawData::RawData() = default;
RawData::RawData(const RawData & other) = default;
RawData & RawData::operator=(const RawData & other) = default;
RawData::~RawData() = default;

RawData::RawData(RawData && other) noexcept {
  *this = std::move(other);
}

RawData & RawData::operator=(RawData && other) noexcept {
  if (this == &other) return *this;
  fStorage = other.fStorage;
  fIsNull = other.fIsNull;
  std::memcpy(fNumber, other.fNumber, sizeof fNumber);
  fText = std::move(other.fText);
  other.fText.clear();  // moving alone would leave it unspecified
  return *this;
}

void RawData::SetInteger(const __int64 & value, bool isNull) {
  fStorage = QVXML_940::VariableStorageInteger;
  fIsNull = isNull;
  std::memcpy(fNumber, &value, sizeof value);
}

void RawData::SetNumber(VariableStorage storage, double value, bool isNull) {
  fStorage = storage;
  fIsNull = isNull;
  std::memcpy(fNumber, &value, sizeof value);
}

void RawData::SetReal(const double & value, bool isNull) {
  SetNumber(QVXML_940::VariableStorageReal, value, isNull);
}

void RawData::SetString(const std::string & value, bool isNull) {
  fText = value;
  fStorage = QVXML_940::VariableStorageString;
  fIsNull = isNull;
}

void RawData::SetString(const char * value, bool isNull) {
  SetString(value != nullptr ? std::string(value) : std::string(), isNull);
}

void RawData::SetDate(const double & value, bool isNull) {
  SetNumber(QVXML_940::VariableStorageDate, value, isNull);
}

void RawData::SetTime(const double & value, bool isNull) {
  SetNumber(QVXML_940::VariableStorageTime, value, isNull);
}

void RawData::SetTimestamp(const double & value, bool isNull) {
  SetNumber(QVXML_940::VariableStorageTimestamp, value, isNull);
}

void RawData::SetIsNull(bool isNull) {
  fIsNull = isNull;
}

bool RawData::IsNull() const {
  return fIsNull;
}

VariableStorage RawData::GetStorgeType() const {
  return fStorage;
}

__int64 RawData::GetInteger() const {
  __int64 value = 0;
  std::memcpy(&value, fNumber, sizeof value);
  return value;
}

double RawData::GetReal() const {
  double value = 0.0;
  std::memcpy(&value, fNumber, sizeof value);
  return value;
}

double RawData::GetDate() const {
  return GetReal();
}

double RawData::GetTime() const {
  return GetReal();
}

double RawData::GetTimestamp() const {
  return GetReal();
}

const std::string & RawData::GetString() const {
  return fText;
}

}  // namespace QVCommon_940
