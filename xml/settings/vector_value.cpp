// The seven vectors that can be the value of a setting.
#include <algorithm>

#include "QVDisplay.h"
#include "QVMV.h"
#include "QVSettings.h"

namespace QVXML_940 {

namespace {

using SubType = IQVSettingValue::ValueSubType;
template <typename T>
constexpr SubType kSubType = IQVSettingValue::ValueSubTypeNone;
template <>
constexpr SubType kSubType<int> = IQVSettingValue::ValueSubTypeInt;
template <>
constexpr SubType kSubType<double> = IQVSettingValue::ValueSubTypeDouble;
template <>
constexpr SubType kSubType<std::string> = IQVSettingValue::ValueSubTypeString;
template <>
constexpr SubType kSubType<std::pair<std::string, int>> = IQVSettingValue::ValueSubTypeStringInt;
template <>
constexpr SubType kSubType<std::pair<std::string, double>> =
    IQVSettingValue::ValueSubTypeStringDouble;
template <>
constexpr SubType kSubType<std::pair<std::string, std::string>> =
    IQVSettingValue::ValueSubTypeStringString;
template <>
constexpr SubType kSubType<QVSettings> = IQVSettingValue::ValueSubTypeSettings;

}  // namespace

template <typename T>
QVVecValue<T>::QVVecValue() : fSubType(kSubType<T>) {
}

template <typename T>
QVVecValue<T>::QVVecValue(const std::vector<T> & values) : fValues(values), fSubType(kSubType<T>) {
}

template <typename T>
QVVecValue<T>::QVVecValue(const QVVecValue & other) = default;

template <typename T>
QVVecValue<T> & QVVecValue<T>::operator=(const QVVecValue & other) = default;

template <typename T>
QVVecValue<T>::~QVVecValue() = default;

template <typename T>
IQVSettingValue * QVVecValue<T>::Clone() const {
  return new QVVecValue(*this);
}

template <typename T>
int QVVecValue<T>::Compare(const std::vector<T> & other) const {
  const std::size_t common = std::min(fValues.size(), other.size());
  for (std::size_t i = 0; i < common; ++i) {
    if (fValues[i] < other[i]) return -1;
    if (other[i] < fValues[i]) return 1;
  }
  if (fValues.size() == other.size()) return 0;
  return fValues.size() < other.size() ? -1 : 1;
}

template <typename T>
bool QVVecValue<T>::operator==(const IQVSettingValue & other) const {
  const auto * const vector = dynamic_cast<const QVVecValue *>(&other);
  return vector != nullptr && Compare(vector->fValues) == 0;
}

template <typename T>
bool QVVecValue<T>::operator<(const IQVSettingValue & other) const {
  const auto * const vector = dynamic_cast<const QVVecValue *>(&other);
  return vector != nullptr && Compare(vector->fValues) < 0;
}

template <typename T>
int QVVecValue<T>::GetInt() const {
  return static_cast<int>(fValues.size());
}

template <typename T>
__int64 QVVecValue<T>::GetLongLong() const {
  return static_cast<__int64>(fValues.size());
}

template <typename T>
double QVVecValue<T>::GetDouble() const {
  return QVCommon_940::QVMV::Missing();
}

template <typename T>
std::string QVVecValue<T>::GetString() const {
  return std::string("Vector Value: Length of vector = ").append(std::to_string(fValues.size()));
}

template <typename T>
bool QVVecValue<T>::GetBool() const {
  return !fValues.empty();
}

template <typename T>
IQVSettingValue::ValueType QVVecValue<T>::GetType() const {
  return ValueTypeVector;
}

template <typename T>
IQVSettingValue::ValueSubType QVVecValue<T>::GetSubType() const {
  return static_cast<ValueSubType>(fSubType);
}

template <typename T>
void QVVecValue<T>::Display() const {
  QVDisplay_940::DisplayS("Setting Value Type", "Vector");
  QVDisplay_940::DisplayI("Total number of setting value", GetInt());
}

template class QVVecValue<int>;
template class QVVecValue<double>;
template class QVVecValue<std::string>;
template class QVVecValue<std::pair<std::string, int>>;
template class QVVecValue<std::pair<std::string, double>>;
template class QVVecValue<std::pair<std::string, std::string>>;
template class QVVecValue<QVSettings>;

}  // namespace QVXML_940
