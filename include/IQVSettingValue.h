/// The value of a setting: the interface of `QVNumValue`, `QVStrValue`, `QVVecValue<T>` and
/// `QVSettingListValue`. Every value answers every question; what a kind does not have it answers
/// with a fixed stand-in, and nothing throws.
#pragma once

#include <string>

#include "QVExport.h"
#include "QVTypes.h"

namespace QVXML_940 {

class QVCOMMON_API IQVSettingValue {
 public:
  enum ValueType : int {
    ValueTypeNumber = 0,
    ValueTypeString = 1,
    ValueTypeVector = 2,
    ValueTypeSettings = 3
  };

  /// What a vector holds; `ValueSubTypeNone` for everything that is not a vector.
  enum ValueSubType : int {
    ValueSubTypeNone = 0,
    ValueSubTypeInt = 1,
    ValueSubTypeDouble = 2,
    ValueSubTypeString = 3,
    ValueSubTypeStringInt = 4,
    ValueSubTypeStringDouble = 5,
    ValueSubTypeStringString = 6,
    ValueSubTypeSettings = 7
  };

  virtual ~IQVSettingValue();

  /// A deep copy, owned by the caller.
  virtual IQVSettingValue * Clone() const = 0;

  /// Values of different types are neither equal nor ordered.
  virtual bool operator==(const IQVSettingValue & other) const = 0;
  virtual bool operator<(const IQVSettingValue & other) const = 0;

  virtual int GetInt() const = 0;
  virtual double GetDouble() const = 0;
  virtual std::string GetString() const = 0;
  virtual bool GetBool() const = 0;
  virtual __int64 GetLongLong() const = 0;

  virtual ValueType GetType() const = 0;
  virtual ValueSubType GetSubType() const = 0;

  virtual void Display() const = 0;
};

}  // namespace QVXML_940
