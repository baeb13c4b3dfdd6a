/// One setting: a name, a free text that types it, and an owned value.
///
/// Beware: settings are equal when names, type texts and values are, but ordered by their values
/// alone. `SetValue` destroys the value before, with every pointer to it. Copies are deep.
#pragma once

#include <string>

#include "IQVSettingValue.h"

namespace QVXML_940 {

class QVSettings;

class QVCOMMON_API QVSetting {
 public:
  /// A number (kept as a double), a text, a copy of a bag or a copy of any value; the type text is
  /// empty.
  QVSetting(const std::string & name, double value);
  QVSetting(const std::string & name, const std::string & value);
  QVSetting(const std::string & name, const QVSettings & value);
  QVSetting(const std::string & name, const IQVSettingValue & value);

  QVSetting(const QVSetting & other);
  QVSetting & operator=(const QVSetting & other);
  ~QVSetting();

  /// Replaces the value.
  void SetValue(double value);
  void SetValue(const std::string & value);
  void SetValue(const QVSettings & value);

  /// The value, which stays the setting's.
  IQVSettingValue * GetValue() const { return fValue; }

  const std::string & GetName() const { return fName; }
  void SetName(const std::string & name) { fName = name; }

  /// The type text.
  const std::string & GetType() const { return fType; }
  void SetType(std::string type);

  /// True for a vector and for a bag.
  bool IsList() const;
  bool HasChild() const;

  /// A deep copy, owned by the caller.
  QVSetting * Clone() const;

  bool operator==(const QVSetting & other) const;
  bool operator<(const QVSetting & other) const;

  void Display() const;

 private:
  void TakeValue(IQVSettingValue * value);

  std::string fName;
  std::string fType;
  IQVSettingValue * fValue;
};

}  // namespace QVXML_940
