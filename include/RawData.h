/// One typed field of a raw row: an integer, a real, a text, a date, a time or a timestamp.
///
///     QVCommon_940::RawData field;       // undefined and null
///     field.SetReal(2.5, false);
///     field.SetIsNull(true);             // the 2.5 stays and can be read
///
/// Beware: getters look neither at the storage type nor at the null flag. The number and the text
/// are kept apart; the number is 8 bytes that all numeric getters read, so that `GetInteger` after
/// `SetReal` gives the bits of the real. Dates, times and timestamps are doubles as the caller
/// gives them, without an epoch or a unit.
///
/// Threads: different fields may be used from different threads.
#pragma once

#include <string>

#include "QVExport.h"
#include "QVTypes.h"
#include "QVVariableEnums.h"

namespace QVCommon_940 {

class QVCOMMON_API RawData {
 public:
  /// Storage undefined, null, an empty text; the number is undefined until a setter writes it.
  RawData();

  RawData(const RawData & other);
  RawData & operator=(const RawData & other);

  /// Takes everything; the text of `other` is empty afterwards, the rest of it stays.
  RawData(RawData && other) noexcept;
  RawData & operator=(RawData && other) noexcept;

  ~RawData();

  /// Each stores the value and the flag, the value also when the flag says null, and sets the
  /// storage type. Numeric setters leave the text as it is, `SetString` the number. A null pointer
  /// counts as the empty text.
  void SetInteger(const __int64 & value, bool isNull);
  void SetReal(const double & value, bool isNull);
  void SetString(const std::string & value, bool isNull);
  void SetString(const char * value, bool isNull);
  void SetDate(const double & value, bool isNull);
  void SetTime(const double & value, bool isNull);
  void SetTimestamp(const double & value, bool isNull);

  /// Changes the flag alone.
  void SetIsNull(bool isNull);

  /// True until a setter says otherwise.
  bool IsNull() const;

  /// The storage type that the last setter gave. The name is spelled so.
  QVXML_940::VariableStorage GetStorgeType() const;

  /// The 8 bytes of the number as an integer.
  __int64 GetInteger() const;

  /// The 8 bytes of the number as a double: all four are the same.
  double GetReal() const;
  double GetDate() const;
  double GetTime() const;
  double GetTimestamp() const;

  /// The text, which stays the field's own.
  const std::string & GetString() const;

 private:
  void SetNumber(QVXML_940::VariableStorage storage, double value, bool isNull);

  QVXML_940::VariableStorage fStorage = QVXML_940::VariableStorageUndefined;
  bool fIsNull = true;
  alignas(8) unsigned char fNumber[8] = {};  // an __int64 or a double, written and read by copying
  std::string fText;
};

}  // namespace QVCommon_940
