/// A walk over rows that lie in arrays of the caller: a leading number, the columns of a block and,
/// if wanted, a trailing number. What they mean (a response, its predictors, a weight) is the
/// caller's.
///
///     const double y[] = {1, 2}, x[] = {10, 11, 20, 21}, w[] = {0.5, 1.5};
///     QVCommon_940::MemoryRecordIterator rows(2, 2, y, x, w);
///     while (rows.HasMore()) {
///       const QVCommon_940::Record & row = *rows.Next();   // 1 10 11 0.5, then 2 20 21 1.5
///     }
///
/// Beware: `GetFailReason` is 1 after the last row, which is no failure, and `NewPass` does not
/// look at the number of records: on an iterator without any, `HasMore` is true after it and `Next`
/// reads a row that the caller must have.
///
/// The arrays are borrowed and must outlive the iterator. A copy walks the same arrays from the
/// same position, into a row of its own. Threads: different iterators may be used from different
/// threads, on the same arrays too.
#pragma once

#include "MultiPassRecordIter.h"
#include "QVExport.h"
#include "Record.h"

namespace QVCommon_940 {

class QVCOMMON_API MemoryRecordIterator : public MultiPassRecordIter {
 public:
  /// `leading` has nRecords numbers, `block` nRecords rows of nColumns each (a negative nColumns
  /// counts as 0), `trailing` nRecords numbers or is null. With nRecords below 1 the walk is at its
  /// end.
  MemoryRecordIterator(int nRecords, int nColumns, const double * leading, const double * block,
                       const double * trailing);

  ~MemoryRecordIterator() override;

  bool HasMore() const override;

  /// The next row, of nColumns + 1 cells or, with a trailing array, nColumns + 2; null at the end,
  /// and when there was no memory for a row. The row is the iterator's own: the next call
  /// overwrites it.
  const Record * Next() override;

  /// 0 while rows remain, 1 at the end.
  int GetFailReason() const override;

  /// Goes back to the first row. 0.
  int NewPass() override;

 private:
  int fNRecords;
  int fNColumns;
  const double * fLeading;
  const double * fBlock;
  const double * fTrailing;
  Record fRow;
  int fEndState;
  int fPosition = 0;
};

}  // namespace QVCommon_940
