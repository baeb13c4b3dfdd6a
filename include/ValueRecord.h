/// A row of named values in field order.
///
///     QVCommon_940::ValueRecord row;
///     row.Add("b", "x");                 // 0
///     row.Add("a", 1);                   // 1
///     row.Get("b").GetString();          // "x"
///     row.Names(true);                   // "b", "a": field order; Names(false) is name order
///     std::cout << row;                  // [a:1,b:x]: name order
///
/// Beware of these; each is meant so.
/// - `==` pairs the values of the two records in name order and does NOT compare the names: a
///   record a=1, b=2 equals a record x=1, y=2. A record with a null field is unequal to its copy,
///   as null is unequal to null; to itself it is equal.
/// - `AddAll` appends new fields in the other record's name order, not in its field order.
/// - `Set` never makes a field, `Add` and `[name]` do; a repeated `Add` overwrites.
/// - `SetValue`, unlike the operation of `Value` of that name, gives the field the new kind.
/// - `[index]`, `SetValue` and `SetMissingValue` have no bounds test; `Get` has.
/// - The default-made record reserves room for 2 values; it has no field.
///
/// Names are bytes, ordered by `<`. Copies are deep. Nothing throws but for want of memory.
/// Threads: different records may be used from different threads.
#pragma once

#include <iosfwd>
#include <map>
#include <string>
#include <vector>

#include "QVExport.h"
#include "QVTypes.h"
#include "Value.h"

namespace QVCommon_940 {

class QVCOMMON_API ValueRecord {
 public:
  /// No field; room for 2 values.
  ValueRecord();

  /// No field; room for n values (none for a negative n).
  explicit ValueRecord(int n);

  ValueRecord(const ValueRecord & other);
  ValueRecord & operator=(const ValueRecord & other);

  // The order of the virtual operations is part of the binary interface.

  virtual ~ValueRecord();

  /// The same object; or as many fields, and equal values (`Value::operator==`) when both records
  /// are walked in name order. Names are not compared.
  virtual bool operator==(const ValueRecord & other) const;

  /// Overwrites the field of that name, or appends one. The field's index.
  virtual int Add(const std::string & name, const Value & value);

  /// `Add` with each field of `other` in name order. True.
  virtual bool AddAll(const ValueRecord & other);

  /// Assigns to the field of that name. False, and nothing changed, when there is none; with
  /// `typeStrict` also when the field holds a non-null value of another kind.
  virtual bool Set(const std::string & name, const Value & value, bool typeStrict);

  /// Takes the field out; later ones move down one place. Nothing happens without such a field.
  virtual void Remove(const std::string & name);

  /// All fields go.
  virtual void Clear();

  /// `Value::ClearValue` on each field: scalars and texts become null, arrays and maps keep their
  /// shape. The names stay.
  virtual void ClearValues();

  /// Field i becomes null. No bounds test.
  virtual void SetMissingValue(int i);

  /// A copy of the field; a null for an index out of bounds or an absent name.
  virtual Value Get(int i) const;
  virtual Value Get(const std::string & name) const;

  /// The field's index, -1 for an absent name.
  virtual int IndexOf(const std::string & name) const;

  virtual bool Contains(const std::string & name);

  /// Number of names.
  virtual int Size() const;

  /// All names: in field order when `fieldOrder`, else in byte-wise order.
  virtual std::vector<std::string> Names(bool fieldOrder) const;

  /// The name of field i, empty when there is none. Looks through all names.
  virtual std::string GetName(int i) const;

  /// Field i takes the value and its kind. No bounds test. True.
  virtual bool SetValue(int i, const std::string & value);
  virtual bool SetValue(int i, const char * value);
  virtual bool SetValue(int i, double value);
  virtual bool SetValue(int i, __int64 value);
  virtual bool SetValue(int i, int value);
  virtual bool SetValue(int i, bool value);

  /// The record that a derived class sits on; null here.
  virtual void * GetRecord() const;

  bool SetValue(int i, long value) { return SetValue(i, static_cast<__int64>(value)); }

  /// The field of that name; a null is added under an absent name. The reference holds until a
  /// field is added or removed.
  Value & operator[](const std::string & name);

  /// Field i. No bounds test.
  Value & operator[](int i);
  const Value & operator[](int i) const;

  /// Writes [name:value,name:value] in name order, each value by `Value::Display`.
  void Display(std::ostream & stream) const;

 private:
  std::vector<Value> fValues;           // in field order
  std::map<std::string, int> fIndices;  // from name to place in fValues
};

/// `record.Display(stream)`.
QVCOMMON_API std::ostream & operator<<(std::ostream & stream, const ValueRecord & record);

}  // namespace QVCommon_940
