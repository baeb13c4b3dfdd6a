/// A stopwatch of processor time, for a computation that reports where its time went.
///
///     QVMath_940::QVTimeUtil watch("sweep");
///     watch.Reset();
///     for (...) { watch.Start(); Sweep(...); watch.Accumulate(); }
///     watch.Display();
///
/// It reads the standard `clock()`, in whole milliseconds, as 32-bit integers that wrap around
/// after 24.8 days. Two things to know: the constructors leave the count of calls without a defined
/// value, so call `Reset` first if you read it; and `Accumulate` does not move the start, so that
/// two calls after one `Start` count the first span twice (`Decrement` corrects the sum).
///
/// Threads: one object from one thread at a time; the clock is that of the whole process.
#pragma once

#include <string>

#include "QVExport.h"

namespace QVMath_940 {

class QVCOMMON_API QVTimeUtil {
 public:
  /// Starts now, with nothing accumulated, without a label or with `label` for `Display`.
  QVTimeUtil();
  explicit QVTimeUtil(const std::string & label);

  QVTimeUtil(const QVTimeUtil &) = default;
  QVTimeUtil & operator=(const QVTimeUtil &) = default;
  virtual ~QVTimeUtil();

  /// Starts now; nothing accumulated, no calls. Returns the clock's reading.
  int Reset();

  /// Starts a span now. Returns the clock's reading.
  int Start();

  /// Adds the span since the last start to the accumulated time and counts a call. Returns the
  /// accumulated time. The start stays where it is.
  int Accumulate();

  /// Takes `ticks` off the accumulated time and returns what is left. The calls are not changed.
  int Decrement(int ticks);

  /// The accumulated time in milliseconds and in seconds, and the number of calls.
  void GetTime(int & ticks, double & seconds, int & calls) const;

  /// Writes the accumulated time and the calls to the display stream.
  void Display() const;

 private:
  std::string fLabel;
  int fStartTick;
  int fAccumulatedTime;
  int fCalls;
};

}  // namespace QVMath_940
