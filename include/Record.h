/// A row of doubles, the unit in which numeric cases are passed.
///
///     QVCommon_940::Record row(3);   // 0, 0, 0
///     row[0] = 1.5;
///     row.Resize(4);                 // beware: the old cells are gone, the new ones undefined
///
/// A record owns its cells; copies are deep. Missing values are numbers like any other here.
/// Threads: different records may be used from different threads.
#pragma once

#include "QVExport.h"

namespace QVCommon_940 {

class QVCOMMON_API Record {
 public:
  /// 2 cells, 0.0.
  Record();

  /// n cells, 0.0; a negative n counts as 1. Without memory for them: 0 cells and no array.
  explicit Record(int n);

  /// A deep copy; of a record without cells an empty one. Without memory: 0 cells and no array.
  Record(const Record & other);

  /// A deep copy. Throws std::bad_alloc, and leaves this record as it was, when the number of cells
  /// differs and there is no memory.
  Record & operator=(const Record & other);

  ~Record();

  /// Cell i. No bounds test.
  double operator[](int i) const { return fCells[i]; }
  double & operator[](int i) { return fCells[i]; }

  /// Number of cells.
  int Size() const { return fSize; }

  /// The cells as an array that stays the record's own; null when there is none.
  double * GetAll() { return fCells; }
  const double * GetAll() const { return fCells; }

  /// Takes n cells, none for a negative n. Nothing happens when there are n already. Otherwise the
  /// old cells are NOT carried over and the new ones are not cleared: write them before you read
  /// them. False, and nothing changed, when there is no memory.
  bool Resize(int n);

 private:
  double * fCells = nullptr;
  int fSize = 0;
};

}  // namespace QVCommon_940
