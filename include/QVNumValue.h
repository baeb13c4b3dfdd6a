/// A number as the value of a setting: an `int`, a `double` and a 64-bit integer kept in step, and
/// which of them was stored.
///
///     QVXML_940::QVNumValue value(2.9);
///     value.GetInt();   // 2: truncated; a number beyond the integers gives the lowest one
///     value.GetBool();  // true: above 0
///
/// A default-made value (also `SYSINI`) is not set: its double is the missing value and its text
/// "Undefined".
#pragma once

#include "IQVSettingValue.h"

namespace QVXML_940 {

class QVCOMMON_API QVNumValue : public IQVSettingValue {
 public:
  enum NumValueType : int { NumValueTypeInt = 0, NumValueTypeDouble = 1, NumValueTypeLongLong = 2 };

  /// A default-made value.
  static const QVNumValue SYSINI;

  /// Not set: a double that is missing, and the lowest `int` in both integers.
  QVNumValue();

  QVNumValue(int value);
  QVNumValue(double value);
  QVNumValue(__int64 value);
  QVNumValue(long value) : QVNumValue(static_cast<__int64>(value)) {}

  QVNumValue(const QVNumValue & other);
  QVNumValue & operator=(const QVNumValue & other);
  ~QVNumValue() override;

  /// Stores the number in all three forms and its kind. A double is truncated towards 0, a 64-bit
  /// integer keeps its low 32 bits in the `int`.
  void SetNumValue(int value);
  void SetNumValue(double value);
  void SetNumValue(__int64 value);
  void SetNumValue(long value) { SetNumValue(static_cast<__int64>(value)); }

  /// The form that the argument asks for.
  void GetNumValue(int & value) const;
  void GetNumValue(double & value) const;
  void GetNumValue(__int64 & value) const;
  void GetNumValue(long & value) const { value = static_cast<long>(fLongLong); }

  /// The kind that was stored.
  NumValueType GetNumValueType() const { return fKind; }

  IQVSettingValue * Clone() const override;

  /// Doubles are equal when they differ by less than 2.22045e-16 of the larger; a value that is not
  /// set equals only another one. Numbers of different kinds compare by their `int` forms.
  bool operator==(const IQVSettingValue & other) const override;
  bool operator==(const QVNumValue & other) const {
    return *this == static_cast<const IQVSettingValue &>(other);
  }

  /// Without tolerance.
  bool operator<(const IQVSettingValue & other) const override;

  int GetInt() const override;
  double GetDouble() const override;

  /// "Undefined" for a double at or below the missing value, else the stored kind with six digits.
  std::string GetString() const override;

  /// True for a stored number above 0.
  bool GetBool() const override;

  __int64 GetLongLong() const override;
  ValueType GetType() const override;
  ValueSubType GetSubType() const override;
  void Display() const override;

 private:
  static const double fEpsilon;
  static const double gInitalValue;
  static const double gInfinity;

  int fInt;
  double fDouble;
  __int64 fLongLong;
  NumValueType fKind;
};

}  // namespace QVXML_940
