#include <vector>

#include "QVDistFun.h"
#include "expectations.h"

using QVMath_940::QVDistFun;

namespace {

using Numbers = std::vector<double>;

struct Percentile {
  double result;
  long status;
};

Percentile GPTile(double pct, const Numbers & values, const Numbers & freqs, const Numbers & bounds,
                  long nBounds) {
  Percentile p{9.0, 9};
  QVDistFun::GPTile(static_cast<long>(values.size()), pct, values, freqs, bounds, nBounds, p.result,
                    p.status);
  return p;
}

const Numbers kValues{1.0, 2.0, 4.0};
const Numbers kFreqs{2.0, 4.0, 4.0};

}  // namespace

TEST(GroupedPercentile, FewerThanTwoGroups) {
  for (long n : {1L, 0L, -1L}) {
    double result = 9.0;
    long status = 9;
    QVDistFun::GPTile(n, 50.0, kValues, kFreqs, {}, 0, result, status);
    EXPECT_MISSING(result);
    EXPECT_EQ(status, -1);
  }
}

TEST(GroupedPercentile, VectorsThatAreTooShort) {
  double result = 9.0;
  long status = 9;
  QVDistFun::GPTile(4, 50.0, kValues, kFreqs, {}, 0, result, status);
  EXPECT_MISSING(result);
  EXPECT_EQ(status, -1);
  QVDistFun::GPTile(3, 50.0, kValues, kFreqs, {1.0}, 2, result, status);
  EXPECT_EQ(status, -1);
}

// Middles of the counts: 1, 4, 8.
TEST(GroupedPercentile, OfPoints) {
  EXPECT_EQ(GPTile(10.0, kValues, kFreqs, {}, 0).result, 1.0);
  EXPECT_DOUBLE_EQ(GPTile(25.0, kValues, kFreqs, {}, 0).result, 1.5);
  EXPECT_EQ(GPTile(40.0, kValues, kFreqs, {}, -1).result, 2.0);
  EXPECT_DOUBLE_EQ(GPTile(50.0, kValues, kFreqs, {}, 0).result, 2.5);
  EXPECT_EQ(GPTile(80.0, kValues, kFreqs, {}, 0).result, 4.0);
  EXPECT_EQ(GPTile(80.0, kValues, kFreqs, {}, 0).status, 0);
  const Percentile low = GPTile(9.0, kValues, kFreqs, {}, 0);
  EXPECT_MISSING(low.result);
  EXPECT_EQ(low.status, 1);
  const Percentile high = GPTile(81.0, kValues, kFreqs, {}, 0);
  EXPECT_MISSING(high.result);
  EXPECT_EQ(high.status, 2);
}

TEST(GroupedPercentile, OfPointsOnAnEmptyStretch) {
  // Middles 1, 2, 2, 3: the target 2 is met first at the end of the stretch from 1 to 2.
  EXPECT_EQ(GPTile(50.0, {1.0, 2.0, 3.0, 4.0}, {2.0, 0.0, 0.0, 2.0}, {}, 0).result, 2.0);
  EXPECT_MISSING(GPTile(0.0, {1.0, 2.0}, {0.0, 2.0}, {}, 0).result);
}

// Groups 0.5-1.5, 1.5-2.5, 3.5-4.5 with counts up to 2, 6, 10.
TEST(GroupedPercentile, OfEqualGroups) {
  const Numbers width{1.0};
  EXPECT_EQ(GPTile(0.0, kValues, kFreqs, width, 1).result, 0.5);
  EXPECT_DOUBLE_EQ(GPTile(10.0, kValues, kFreqs, width, 1).result, 1.0);
  EXPECT_EQ(GPTile(20.0, kValues, kFreqs, width, 1).result, 1.5);
  EXPECT_DOUBLE_EQ(GPTile(40.0, kValues, kFreqs, width, 1).result, 2.0);
  EXPECT_DOUBLE_EQ(GPTile(80.0, kValues, kFreqs, width, 1).result, 4.0);
  EXPECT_EQ(GPTile(100.0, kValues, kFreqs, width, 1).result, 4.5);
  EXPECT_MISSING(GPTile(101.0, kValues, kFreqs, width, 1).result);
  // The empty second group: the end of the one before.
  EXPECT_EQ(GPTile(50.0, {1.0, 2.0, 3.0}, {2.0, 0.0, 2.0}, width, 1).result, 1.5);
  EXPECT_MISSING(GPTile(0.0, {1.0, 2.0}, {0.0, 2.0}, width, 1).result);
}

// Classes 0-2 with count 2, 2-3 with count 4, 3-5 (mirrored about 4) with count 4.
TEST(GroupedPercentile, OfClasses) {
  const Numbers limits{0.0, 2.0, 3.0};
  EXPECT_EQ(GPTile(0.0, kValues, kFreqs, limits, 3).result, 0.0);
  EXPECT_DOUBLE_EQ(GPTile(10.0, kValues, kFreqs, limits, 3).result, 1.0);
  EXPECT_DOUBLE_EQ(GPTile(20.0, kValues, kFreqs, limits, 3).result, 2.0);
  EXPECT_DOUBLE_EQ(GPTile(40.0, kValues, kFreqs, limits, 3).result, 2.5);
  EXPECT_DOUBLE_EQ(GPTile(80.0, kValues, kFreqs, limits, 3).result, 4.0);
  EXPECT_EQ(GPTile(100.0, kValues, kFreqs, limits, 3).result, 5.0);
  EXPECT_EQ(GPTile(0.0, {1.0, 2.5}, {0.0, 4.0}, {0.0, 2.0}, 2).result, 0.0);
}

TEST(GroupedPercentile, OfALastClassWithoutValues) {
  const Percentile p = GPTile(100.0, kValues, kFreqs, {0.0, 2.0, 4.0}, 3);
  EXPECT_MISSING(p.result);
  EXPECT_EQ(p.status, 0);
}

TEST(MedianInterval, SmallTotals) {
  double lower = 9.0;
  double upper = 9.0;
  double actual = 9.0;
  QVDistFun::Mednci(2, {3.0, 5.0}, {1.0, 1.0}, 2.0, 95.0, false, lower, upper, actual);
  EXPECT_EQ(lower, 3.0);
  EXPECT_EQ(upper, 5.0);
  EXPECT_EQ(actual, 100.0);
  for (double total : {1.0, 0.0, -1.0, 1.5, 10.5, kNaN}) {
    QVDistFun::Mednci(2, {3.0, 5.0}, {1.0, 1.0}, total, 95.0, true, lower, upper, actual);
    EXPECT_MISSING(lower) << total;
    EXPECT_MISSING(upper);
    EXPECT_MISSING(actual);
  }
}

TEST(MedianInterval, TenDistinctValues) {
  const Numbers values{1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
  const Numbers freqs(10, 1.0);
  double lower = 9.0;
  double upper = 9.0;
  double actual = 9.0;
  // P(X <= 1) = 11/1024 for 10 trials at 1/2: the interval from the second to the ninth value.
  QVDistFun::Mednci(10, values, freqs, 10.0, 95.0, true, lower, upper, actual);
  EXPECT_EQ(lower, 2.0);
  EXPECT_EQ(upper, 9.0);
  EXPECT_CLOSE(actual, 100.0 * (1.0 - 22.0 / 1024.0), 1e-12);
  QVDistFun::Mednci(10, values, freqs, 10.0, 95.0, false, lower, upper, actual);
  EXPECT_MISSING(actual);
  // Too much is asked for: the whole range, or the order statistics next to it.
  QVDistFun::Mednci(10, values, freqs, 10.0, 100.0, false, lower, upper, actual);
  EXPECT_EQ(lower, 1.0);
  EXPECT_EQ(upper, 10.0);
  EXPECT_EQ(actual, 100.0);
  QVDistFun::Mednci(10, values, freqs, 10.0, 101.0, true, lower, upper, actual);
  EXPECT_MISSING(lower);
}

TEST(MedianInterval, CountsAddUp) {
  double lower = 9.0;
  double upper = 9.0;
  double actual = 9.0;
  QVDistFun::Mednci(3, {1.0, 2.0, 3.0}, {4.0, 3.0, 3.0}, 10.0, 95.0, true, lower, upper, actual);
  EXPECT_EQ(lower, 1.0);
  EXPECT_EQ(upper, 3.0);
  QVDistFun::Mednci(3, {1.0, 2.0, 3.0}, {1.0, 8.0, 1.0}, 10.0, 95.0, true, lower, upper, actual);
  EXPECT_EQ(lower, 2.0);
  EXPECT_EQ(upper, 2.0);
}
