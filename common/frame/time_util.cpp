#include <cstdint>
#include <ctime>

#include "QVDisplay.h"
#include "QVTimeUtil.h"
#include "common/display/display_frame.h"

namespace QVMath_940 {
namespace {

constexpr int kMillisecondsPerSecond = 1000;

// The reading and the sums wrap around at 32 bits, where signed arithmetic would have no meaning.
int Wrapped(std::int64_t milliseconds) {
  return static_cast<int>(static_cast<std::uint32_t>(milliseconds));
}

/// Processor time in milliseconds.
int ClockReading() {
  constexpr std::int64_t kTicksPerMillisecond = CLOCKS_PER_SEC / kMillisecondsPerSecond;
  return Wrapped(static_cast<std::int64_t>(std::clock()) / kTicksPerMillisecond);
}

int WrappedDifference(int a, int b) {
  return Wrapped(static_cast<std::int64_t>(a) - b);
}

int WrappedSum(int a, int b) {
  return Wrapped(static_cast<std::int64_t>(a) + b);
}

}  // namespace

QVTimeUtil::QVTimeUtil() : QVTimeUtil(std::string()) {
}

QVTimeUtil::QVTimeUtil(const std::string & label)
    : fLabel(label), fStartTick(ClockReading()), fAccumulatedTime(0), fCalls(0) {
}

QVTimeUtil::~QVTimeUtil() = default;

int QVTimeUtil::Reset() {
  fAccumulatedTime = 0;
  fCalls = 0;
  return Start();
}

int QVTimeUtil::Start() {
  fStartTick = ClockReading();
  return fStartTick;
}

int QVTimeUtil::Accumulate() {
  fAccumulatedTime = WrappedSum(fAccumulatedTime, WrappedDifference(ClockReading(), fStartTick));
  fCalls = WrappedSum(fCalls, 1);
  return fAccumulatedTime;
}

int QVTimeUtil::Decrement(int ticks) {
  fAccumulatedTime = WrappedDifference(fAccumulatedTime, ticks);
  return fAccumulatedTime;
}

void QVTimeUtil::GetTime(int & ticks, double & seconds, int & calls) const {
  ticks = fAccumulatedTime;
  seconds = fAccumulatedTime / static_cast<double>(kMillisecondsPerSecond);
  calls = fCalls;
}

void QVTimeUtil::Display() const {
  const QVDisplay_940::DisplayFrame frame("QVTimeUtil display start " + fLabel,
                                          "QVTimeUtil display end");
  QVDisplay_940::DisplayI("Accumulated int milliseconds", fAccumulatedTime);
  QVDisplay_940::DisplayI("Number of calls", fCalls);
}

}  // namespace QVMath_940
