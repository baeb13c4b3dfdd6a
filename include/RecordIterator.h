/// A walk over rows of doubles that a caller implements on its data source.
///
///     while (rows.HasMore()) {
///       const QVCommon_940::Record * row = rows.Next();
///       if (row == nullptr) break;       // rows.GetFailReason() says why
///       ...
///     }
///
/// The row that `Next` gives stays the iterator's own; the next call may overwrite it.
#pragma once

#include "QVExport.h"
#include "Record.h"

namespace QVCommon_940 {

class QVCOMMON_API RecordIterator {
 public:
  virtual ~RecordIterator();

  /// A row remains.
  virtual bool HasMore() const = 0;

  /// The next row; null when there is none.
  virtual const Record * Next() = 0;

  /// Why `Next` gave null, by numbers of the data source.
  virtual int GetFailReason() const = 0;
};

}  // namespace QVCommon_940
