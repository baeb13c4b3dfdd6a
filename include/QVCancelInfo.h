/// A cancel query and its memory: once the answer was to stop, it stays so.
///
///     QVMath_940::QVCancelInfo cancel(&query);
///     for (...) if (cancel.IsCancel()) return;
///
/// The query object stays the caller's and must outlive its use here; without one the answer is
/// false. Nothing leaves the cancelled state but assignment from another object.
/// Threads: the query is called on the thread that asks; a caller who cancels from another thread
/// makes its own query safe for that.
#pragma once

#include "QVExport.h"
#include "QVQueryCancel.h"

namespace QVMath_940 {

class QVCOMMON_API QVCancelInfo {
 public:
  /// No query object, not cancelled.
  QVCancelInfo() = default;

  /// Asks `query`, which may be null; not cancelled.
  explicit QVCancelInfo(QVCommon_940::QVQueryCancel * query);

  /// Copies share the query object; each has its own memory from then on.
  QVCancelInfo(const QVCancelInfo &) = default;
  QVCancelInfo & operator=(const QVCancelInfo &) = default;

  /// Cancels for good, whatever the query object says.
  void SetCancel();

  /// The query object. A new one does not clear the cancelled state.
  void SetCancelPtr(QVCommon_940::QVQueryCancel * query);
  QVCommon_940::QVQueryCancel * GetCancelPtr() const;

  /// True when cancelled, without asking. Otherwise the answer of the query object's `IsCancel`,
  /// which is remembered; false without one.
  bool IsCancel();

  /// True when cancelled. Otherwise the answer of the query object's `WillCancel`, which is NOT
  /// remembered; false without one.
  bool WillCancel() const;

 private:
  QVCommon_940::QVQueryCancel * fQuery = nullptr;
  bool fCancelled = false;
};

}  // namespace QVMath_940
