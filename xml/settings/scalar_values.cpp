// Numbers and texts as values of settings.
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <iostream>
#include <limits>
#include <locale>
#include <sstream>
#include <string>

#include "IQVSettingValue.h"
#include "QVDisplay.h"
#include "QVMV.h"
#include "QVNumValue.h"
#include "QVStrValue.h"
#include "xml/settings/double_to_integer.h"

namespace QVXML_940 {

namespace {

constexpr int kLowestInt = std::numeric_limits<int>::lowest();

template <typename T>
std::string StreamText(T value) {
  std::ostringstream stream;
  stream.imbue(std::locale::classic());
  stream << value;
  return stream.str();
}

}  // namespace

IQVSettingValue::~IQVSettingValue() = default;

const double QVNumValue::fEpsilon = 2.22045e-16;
const double QVNumValue::gInitalValue = -1.7976931348623157e308;
const double QVNumValue::gInfinity = std::numeric_limits<double>::infinity();
const QVNumValue QVNumValue::SYSINI;

QVNumValue::QVNumValue()
    : fInt(kLowestInt),
      fDouble(QVCommon_940::QVMV::Missing()),
      fLongLong(kLowestInt),
      fKind(NumValueTypeDouble) {
}

QVNumValue::QVNumValue(int value) {
  SetNumValue(value);
}

QVNumValue::QVNumValue(double value) {
  SetNumValue(value);
}

QVNumValue::QVNumValue(__int64 value) {
  SetNumValue(value);
}

QVNumValue::QVNumValue(const QVNumValue & other) = default;
QVNumValue & QVNumValue::operator=(const QVNumValue & other) = default;
QVNumValue::~QVNumValue() = default;

void QVNumValue::SetNumValue(int value) {
  fInt = value;
  fDouble = value;
  fLongLong = value;
  fKind = NumValueTypeInt;
}

void QVNumValue::SetNumValue(double value) {
  fInt = DoubleToInteger<int>(value);
  fDouble = value;
  fLongLong = DoubleToInteger<__int64>(value);
  fKind = NumValueTypeDouble;
}

void QVNumValue::SetNumValue(__int64 value) {
  fInt = static_cast<int>(static_cast<unsigned>(value));
  fDouble = static_cast<double>(value);
  fLongLong = value;
  fKind = NumValueTypeLongLong;
}

void QVNumValue::GetNumValue(int & value) const {
  value = fInt;
}

void QVNumValue::GetNumValue(double & value) const {
  value = fDouble;
}

void QVNumValue::GetNumValue(__int64 & value) const {
  value = fLongLong;
}

IQVSettingValue * QVNumValue::Clone() const {
  return new QVNumValue(*this);
}

bool QVNumValue::operator==(const IQVSettingValue & other) const {
  const auto * const number = dynamic_cast<const QVNumValue *>(&other);
  if (number == nullptr) return false;
  if (fKind != number->fKind || fKind == NumValueTypeInt) return fInt == number->fInt;
  if (fKind == NumValueTypeLongLong) return fLongLong == number->fLongLong;
  const double a = fDouble;
  const double b = number->fDouble;
  if (a == 0.0 && b == 0.0) return true;
  if (a == gInitalValue || b == gInitalValue) return a == b;
  return std::max(std::abs(a), std::abs(b)) * fEpsilon > std::abs(a - b);
}

bool QVNumValue::operator<(const IQVSettingValue & other) const {
  const auto * const number = dynamic_cast<const QVNumValue *>(&other);
  if (number == nullptr) return false;
  if (fKind != number->fKind || fKind == NumValueTypeInt) return fInt < number->fInt;
  return fKind == NumValueTypeLongLong ? fLongLong < number->fLongLong : fDouble < number->fDouble;
}

int QVNumValue::GetInt() const {
  return fInt;
}

double QVNumValue::GetDouble() const {
  return fDouble;
}

std::string QVNumValue::GetString() const {
  if (fDouble <= gInitalValue) return "Undefined";
  switch (fKind) {
    case NumValueTypeInt:
      return StreamText(fInt);
    case NumValueTypeLongLong:
      return StreamText(fLongLong);
    case NumValueTypeDouble:
      break;
  }
  return StreamText(fDouble);
}

bool QVNumValue::GetBool() const {
  switch (fKind) {
    case NumValueTypeInt:
      return fInt > 0;
    case NumValueTypeLongLong:
      return fLongLong > 0;
    case NumValueTypeDouble:
      break;
  }
  return fDouble > 0.0;
}

__int64 QVNumValue::GetLongLong() const {
  return fLongLong;
}

IQVSettingValue::ValueType QVNumValue::GetType() const {
  return ValueTypeNumber;
}

IQVSettingValue::ValueSubType QVNumValue::GetSubType() const {
  return ValueSubTypeNone;
}

void QVNumValue::Display() const {
  QVDisplay_940::DisplayS("Setting Value Type", "Numeric");
  if (fKind == NumValueTypeDouble) {
    QVDisplay_940::DisplayD("Setting Value", fDouble);
  } else {
    QVDisplay_940::DisplayS("Setting Value", GetString());
  }
}

QVStrValue::QVStrValue() = default;
QVStrValue::QVStrValue(const std::string & text) : fText(text) {
}
QVStrValue::QVStrValue(const QVStrValue & other) = default;
QVStrValue & QVStrValue::operator=(const QVStrValue & other) = default;
QVStrValue::~QVStrValue() = default;

IQVSettingValue * QVStrValue::Clone() const {
  return new QVStrValue(*this);
}

bool QVStrValue::operator==(const IQVSettingValue & other) const {
  return other.GetType() == ValueTypeString && fText == other.GetString();
}

bool QVStrValue::operator<(const IQVSettingValue & other) const {
  return other.GetType() == ValueTypeString && fText < other.GetString();
}

int QVStrValue::GetInt() const {
  const __int64 value = GetLongLong();
  return static_cast<int>(std::clamp<__int64>(value, kLowestInt, std::numeric_limits<int>::max()));
}

__int64 QVStrValue::GetLongLong() const {
  return std::strtoll(fText.c_str(), nullptr, 10);
}

double QVStrValue::GetDouble() const {
  if (fText.empty()) return QVCommon_940::QVMV::Missing();
  const std::locale locale = std::cout.getloc();
  std::string text = fText;
  const std::size_t point = text.find('.');
  if (point != std::string::npos) {
    text[point] = std::use_facet<std::numpunct<char>>(locale).decimal_point();
  }
  std::istringstream stream(text);
  stream.imbue(locale);
  double value = 0.0;
  stream >> value;
  return value;
}

std::string QVStrValue::GetString() const {
  return fText;
}

bool QVStrValue::GetBool() const {
  return fText == "true";
}

IQVSettingValue::ValueType QVStrValue::GetType() const {
  return ValueTypeString;
}

IQVSettingValue::ValueSubType QVStrValue::GetSubType() const {
  return ValueSubTypeNone;
}

void QVStrValue::Display() const {
  QVDisplay_940::DisplayS("Setting Value Type", "String");
  QVDisplay_940::DisplayS("Setting Value", fText);
}

}  // namespace QVXML_940
