/// A text as the value of a setting. It is read as a number on request: "2.5" is 2.5 under every
/// locale, and what is no number reads as 0 without complaint.
#pragma once

#include <string>

#include "IQVSettingValue.h"

namespace QVXML_940 {

class QVCOMMON_API QVStrValue : public IQVSettingValue {
 public:
  /// Empty.
  QVStrValue();
  QVStrValue(const std::string & text);

  QVStrValue(const QVStrValue & other);
  QVStrValue & operator=(const QVStrValue & other);
  ~QVStrValue() override;

  void SetString(const std::string & text) { fText = text; }

  /// Bytes of the text.
  int GetLength() const { return static_cast<int>(fText.size()); }

  IQVSettingValue * Clone() const override;

  /// By bytes; false for a value that is no text.
  bool operator==(const IQVSettingValue & other) const override;
  bool operator==(const QVStrValue & other) const {
    return *this == static_cast<const IQVSettingValue &>(other);
  }
  bool operator<(const IQVSettingValue & other) const override;

  /// The number at the front of the text; beyond the range the nearest integer.
  int GetInt() const override;
  __int64 GetLongLong() const override;

  /// The missing value for an empty text, else what stream extraction makes of it.
  double GetDouble() const override;

  std::string GetString() const override;

  /// True for exactly "true".
  bool GetBool() const override;

  ValueType GetType() const override;
  ValueSubType GetSubType() const override;
  void Display() const override;

 private:
  std::string fText;
};

}  // namespace QVXML_940
