// One setting, and a bag of settings as its value.
#include <limits>
#include <memory>
#include <utility>

#include "QVDisplay.h"
#include "QVSettings.h"

namespace QVXML_940 {

QVSettingListValue::QVSettingListValue() : fSettings(new QVSettings) {
}

QVSettingListValue::QVSettingListValue(const QVSettings & settings)
    : fSettings(new QVSettings(settings)) {
}

QVSettingListValue::QVSettingListValue(const QVSettingListValue & other)
    : IQVSettingValue(other), fSettings(new QVSettings(*other.fSettings)) {
}

QVSettingListValue & QVSettingListValue::operator=(const QVSettingListValue & other) {
  *fSettings = *other.fSettings;
  return *this;
}

QVSettingListValue::~QVSettingListValue() {
  delete fSettings;
}

IQVSettingValue * QVSettingListValue::Clone() const {
  return new QVSettingListValue(*this);
}

bool QVSettingListValue::operator==(const IQVSettingValue & other) const {
  const auto * const list = dynamic_cast<const QVSettingListValue *>(&other);
  return list != nullptr && fSettings->Compare(*list->fSettings) == 0;
}

bool QVSettingListValue::operator<(const IQVSettingValue & other) const {
  const auto * const list = dynamic_cast<const QVSettingListValue *>(&other);
  return list != nullptr && fSettings->Compare(*list->fSettings) < 0;
}

int QVSettingListValue::GetInt() const {
  return std::numeric_limits<int>::lowest();
}

double QVSettingListValue::GetDouble() const {
  return std::numeric_limits<double>::min();
}

std::string QVSettingListValue::GetString() const {
  return {};
}

bool QVSettingListValue::GetBool() const {
  return true;
}

__int64 QVSettingListValue::GetLongLong() const {
  return std::numeric_limits<__int64>::lowest();
}

IQVSettingValue::ValueType QVSettingListValue::GetType() const {
  return ValueTypeSettings;
}

IQVSettingValue::ValueSubType QVSettingListValue::GetSubType() const {
  return ValueSubTypeNone;
}

void QVSettingListValue::Display() const {
  fSettings->Display();
}

QVSetting::QVSetting(const std::string & name, double value)
    : fName(name), fValue(new QVNumValue(value)) {
}

QVSetting::QVSetting(const std::string & name, const std::string & value)
    : fName(name), fValue(new QVStrValue(value)) {
}

QVSetting::QVSetting(const std::string & name, const QVSettings & value)
    : fName(name), fValue(new QVSettingListValue(value)) {
}

QVSetting::QVSetting(const std::string & name, const IQVSettingValue & value)
    : fName(name), fValue(value.Clone()) {
}

QVSetting::QVSetting(const QVSetting & other)
    : fName(other.fName), fType(other.fType), fValue(other.fValue->Clone()) {
}

QVSetting & QVSetting::operator=(const QVSetting & other) {
  if (this == &other) return *this;
  TakeValue(other.fValue->Clone());
  fName = other.fName;
  fType = other.fType;
  return *this;
}

QVSetting::~QVSetting() {
  delete fValue;
}

void QVSetting::TakeValue(IQVSettingValue * value) {
  delete fValue;
  fValue = value;
}

void QVSetting::SetValue(double value) {
  TakeValue(new QVNumValue(value));
}

void QVSetting::SetValue(const std::string & value) {
  TakeValue(new QVStrValue(value));
}

void QVSetting::SetValue(const QVSettings & value) {
  TakeValue(new QVSettingListValue(value));
}

void QVSetting::SetType(std::string type) {
  fType = std::move(type);
}

bool QVSetting::IsList() const {
  return fValue->GetType() == IQVSettingValue::ValueTypeVector;
}

bool QVSetting::HasChild() const {
  return fValue->GetType() == IQVSettingValue::ValueTypeSettings;
}

QVSetting * QVSetting::Clone() const {
  return new QVSetting(*this);
}

bool QVSetting::operator==(const QVSetting & other) const {
  return fName == other.fName && fType == other.fType && *fValue == *other.fValue;
}

bool QVSetting::operator<(const QVSetting & other) const {
  return *fValue < *other.fValue;
}

void QVSetting::Display() const {
  QVDisplay_940::DisplayS("Setting Name", fName);
  QVDisplay_940::DisplayS("Setting Type", fType);
  fValue->Display();
}

}  // namespace QVXML_940
