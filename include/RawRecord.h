/// A row of typed fields.
///
///     QVCommon_940::RawRecord row(2);
///     row[0].SetInteger(41, false);
///     row[1].SetString("Ann", false);
///
/// A record owns its fields; copies are deep.
/// Threads: different records may be used from different threads.
#pragma once

#include "QVExport.h"
#include "RawData.h"

namespace QVCommon_940 {

class QVCOMMON_API RawRecord {
 public:
  /// 2 default fields.
  RawRecord();

  /// n default fields; a negative n counts as 1. Without memory for them: 0 fields and no array.
  explicit RawRecord(int n);

  /// A copy field by field; of a record without fields an empty one. Without memory for it: 0
  /// fields and no array.
  RawRecord(const RawRecord & other);

  /// A copy field by field. Throws std::bad_alloc when there is no memory, and leaves this record
  /// as it was when the number of fields differs.
  RawRecord & operator=(const RawRecord & other);

  ~RawRecord();

  /// Field i. No bounds test. The const form gives a copy.
  RawData operator[](int i) const { return fFields[i]; }
  RawData & operator[](int i) { return fFields[i]; }

  /// Number of fields.
  int Size() const { return fSize; }

  /// The fields as an array that stays the record's own; null when there is none.
  RawData * GetAll() { return fFields; }
  const RawData * GetAll() const { return fFields; }

  /// Takes n default fields, none for a negative n. Nothing happens when there are n already;
  /// otherwise the old fields are NOT carried over. False, and nothing changed, when there is no
  /// memory.
  bool Resize(int n);

 private:
  RawData * fFields = nullptr;
  int fSize = 0;
};

}  // namespace QVCommon_940
