#include "QVTimeUtil.h"

#include <climits>
#include <ctime>
#include <string>
#include <type_traits>

#include <gtest/gtest.h>

#include "common/display/captured_display.h"

using QVMath_940::QVTimeUtil;

namespace {

struct Reading {
  int ticks;
  double seconds;
  int calls;
};

Reading Read(const QVTimeUtil & watch) {
  Reading reading;
  watch.GetTime(reading.ticks, reading.seconds, reading.calls);
  return reading;
}

/// Uses processor time until `milliseconds` of it have passed.
void Burn(int milliseconds) {
  const std::clock_t end = std::clock() + milliseconds * (CLOCKS_PER_SEC / 1000);
  while (std::clock() < end) {
  }
}

}  // namespace

TEST(TimeUtil, NothingIsAccumulatedAtFirst) {
  QVTimeUtil watch;
  EXPECT_EQ(Read(watch).ticks, 0);
  EXPECT_EQ(Read(watch).seconds, 0.0);
  EXPECT_TRUE(std::has_virtual_destructor_v<QVTimeUtil>);
}

TEST(TimeUtil, ConstructionAndResetStartASpan) {
  QVTimeUtil plain;
  QVTimeUtil labelled("fit");
  Burn(30);
  EXPECT_GE(plain.Accumulate(), 29);
  EXPECT_GE(labelled.Accumulate(), 29);
  plain.Reset();
  EXPECT_LT(plain.Accumulate(), 29);
}

TEST(TimeUtil, ReadsTheProcessorClockInMilliseconds) {
  QVTimeUtil watch;
  const auto clock = [] { return static_cast<int>(std::clock() / (CLOCKS_PER_SEC / 1000)); };
  const int before = clock();
  const int started = watch.Start();
  const int reset = watch.Reset();
  const int after = clock();
  EXPECT_GE(started, before);
  EXPECT_GE(reset, started);
  EXPECT_LE(reset, after);
}

TEST(TimeUtil, AccumulatesSpansAndCountsThem) {
  QVTimeUtil watch("fit");
  watch.Reset();
  EXPECT_EQ(Read(watch).calls, 0);
  watch.Start();
  Burn(30);
  const int first = watch.Accumulate();
  EXPECT_GE(first, 29);
  EXPECT_LT(first, 1000);
  EXPECT_EQ(Read(watch).ticks, first);
  EXPECT_EQ(Read(watch).seconds, first / 1000.0);
  EXPECT_EQ(Read(watch).calls, 1);
}

TEST(TimeUtil, TwoAccumulatesCountTheFirstSpanTwice) {
  QVTimeUtil watch;
  watch.Reset();
  watch.Start();
  Burn(30);
  const int first = watch.Accumulate();
  const int second = watch.Accumulate();
  EXPECT_GE(second, 2 * first);
  EXPECT_EQ(Read(watch).calls, 2);
}

TEST(TimeUtil, DecrementTakesOffAndCountsNoCall) {
  QVTimeUtil watch;
  watch.Reset();
  EXPECT_EQ(watch.Decrement(250), -250);
  EXPECT_EQ(watch.Decrement(-1000), 750);
  EXPECT_EQ(Read(watch).ticks, 750);
  EXPECT_EQ(Read(watch).seconds, 0.75);
  EXPECT_EQ(Read(watch).calls, 0);
}

TEST(TimeUtil, SumsWrapAround) {
  QVTimeUtil watch;
  watch.Reset();
  EXPECT_EQ(watch.Decrement(INT_MAX), -INT_MAX);
  EXPECT_EQ(watch.Decrement(2), INT_MAX);
}

TEST(TimeUtil, ResetClearsSumAndCalls) {
  QVTimeUtil watch;
  watch.Reset();
  watch.Accumulate();
  watch.Decrement(5);
  watch.Reset();
  EXPECT_EQ(Read(watch).ticks, 0);
  EXPECT_EQ(Read(watch).calls, 0);
}

TEST(TimeUtil, Display) {
  CapturedDisplay captured;
  QVTimeUtil watch("sweep");
  watch.Reset();
  watch.Decrement(-12);
  watch.Display();
  EXPECT_EQ(captured.Text(),
            "\nQVTimeUtil display start sweep"
            "\nAccumulated int milliseconds = 12"
            "\nNumber of calls = 0"
            "\nQVTimeUtil display end");
}

TEST(TimeUtil, DisplayWithoutLabel) {
  CapturedDisplay captured;
  QVTimeUtil watch;
  watch.Reset();
  watch.Display();
  const std::string start = "\nQVTimeUtil display start \nAccumulated";
  EXPECT_EQ(captured.Text().substr(0, start.size()), start);
}
