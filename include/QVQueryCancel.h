/// The caller's answer to "shall this work stop?". Derive from it and hand a pointer to the
/// library, which asks on the thread of the computation and never owns the object.
///
///     class StopFlag : public QVCommon_940::QVQueryCancel {
///      public:
///       bool IsCancel() override { return stop.load(); }
///       bool WillCancel() const override { return stop.load(); }
///       std::atomic<bool> stop{false};
///     };
#pragma once

#include "QVExport.h"

namespace QVCommon_940 {

class QVCOMMON_API QVQueryCancel {
 public:
  virtual ~QVQueryCancel();

  /// True when the work is to stop. A true answer is acted upon and remembered.
  virtual bool IsCancel() = 0;

  /// The same question without consequence: nothing remembers the answer.
  virtual bool WillCancel() const = 0;
};

}  // namespace QVCommon_940
