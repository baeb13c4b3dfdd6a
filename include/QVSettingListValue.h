/// A bag of settings as the value of a setting.
#pragma once

#include "IQVSettingValue.h"

namespace QVXML_940 {

class QVSettings;

class QVCOMMON_API QVSettingListValue : public IQVSettingValue {
 public:
  /// A new empty bag.
  QVSettingListValue();

  /// A deep copy of the bag.
  QVSettingListValue(const QVSettings & settings);

  QVSettingListValue(const QVSettingListValue & other);
  QVSettingListValue & operator=(const QVSettingListValue & other);
  ~QVSettingListValue() override;

  /// The bag, which stays this value's.
  QVSettings * GetListValue() const { return fSettings; }

  IQVSettingValue * Clone() const override;

  /// As the bags compare; false for a value that holds no bag.
  bool operator==(const IQVSettingValue & other) const override;
  bool operator==(const QVSettingListValue & other) const {
    return *this == static_cast<const IQVSettingValue &>(other);
  }
  bool operator<(const IQVSettingValue & other) const override;

  /// The lowest integers, the smallest normal double, an empty text, true.
  int GetInt() const override;
  double GetDouble() const override;
  std::string GetString() const override;
  bool GetBool() const override;
  __int64 GetLongLong() const override;

  ValueType GetType() const override;
  ValueSubType GetSubType() const override;
  void Display() const override;

 private:
  QVSettings * fSettings;
};

}  // namespace QVXML_940
