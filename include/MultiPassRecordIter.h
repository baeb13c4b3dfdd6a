/// A walk over rows of doubles that can begin anew.
///
///     rows.NewPass();
///     while (rows.HasMore()) Use(*rows.Next());
#pragma once

#include "QVExport.h"
#include "RecordIterator.h"

namespace QVCommon_940 {

class QVCOMMON_API MultiPassRecordIter : public RecordIterator {
 public:
  ~MultiPassRecordIter() override;

  /// Goes back to the first row. 0, or a number of the data source that says why not.
  virtual int NewPass() = 0;
};

}  // namespace QVCommon_940
