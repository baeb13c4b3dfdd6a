#include <cmath>
#include <limits>
#include <random>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "QVCatStats.h"
#include "QVContStats.h"
#include "QVMV.h"
#include "common/display/captured_display.h"

using QVCommon_940::QVMV;
using QVMath_940::QVCatStats;
using QVMath_940::QVContStats;

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

QVCatStats Counts(const std::vector<double> & counts) {
  QVCatStats stats;
  for (std::size_t k = 0; k < counts.size(); ++k) {
    // A weight of 0 counts as 1: a zero cell arises where the vector grows over it.
    if (counts[k] != 0.0) stats.Update(static_cast<double>(k), counts[k]);
  }
  return stats;
}

}  // namespace

// --- Categories ----------------------------------------------------------------------------------

TEST(CatStats, StartsEmpty) {
  const QVCatStats stats;
  EXPECT_EQ(stats.GetNCategories(true), 0u);
  EXPECT_EQ(stats.GetNCategories(false), 0u);
  EXPECT_EQ(stats.GetSumCounts(), 0.0);
  EXPECT_EQ(stats.GetCatCount(0), 0.0);
  EXPECT_TRUE(stats.GetCatCounts().empty());
}

TEST(CatStats, CountsTruncatedCodes) {
  QVCatStats stats;
  EXPECT_TRUE(stats.Update(2.9, 0.0));
  EXPECT_EQ(stats.GetCatCounts(), (std::vector<double>{0.0, 0.0, 1.0}));
  EXPECT_TRUE(stats.Update(0.0, 0.25));
  EXPECT_TRUE(stats.Update(-0.0, 0.25));
  EXPECT_TRUE(stats.Update(2.0, 3.5));
  EXPECT_EQ(stats.GetCatCounts(), (std::vector<double>{0.5, 0.0, 4.5}));
  EXPECT_EQ(stats.GetSumCounts(), 5.0);
}

TEST(CatStats, WeightNotAboveZeroCountsAsOne) {
  QVCatStats stats;
  EXPECT_TRUE(stats.Update(0.0, 0.0));
  EXPECT_TRUE(stats.Update(0.0, -5.0));
  EXPECT_EQ(stats.GetCatCount(0), 2.0);
}

TEST(CatStats, RefusesWithoutChange) {
  QVCatStats stats;
  stats.Update(1.0, 2.0);
  const auto before = stats.GetCatCounts();
  EXPECT_FALSE(stats.Update(-1.0, 1.0));
  EXPECT_FALSE(stats.Update(-0.5, 1.0));
  EXPECT_FALSE(stats.Update(QVMV::Missing(), 1.0));
  EXPECT_FALSE(stats.Update(5.0, QVMV::Missing()));
  for (const double code : {kNaN, kInfinity, -kInfinity, 2147483648.0, 1e300}) {
    EXPECT_FALSE(stats.Update(code, 1.0)) << code;
  }
  EXPECT_EQ(stats.GetCatCounts(), before);
}

TEST(CatStats, CountOfACategory) {
  const QVCatStats stats = Counts({1.0, 0.0, 3.0});
  EXPECT_EQ(stats.GetCatCount(0), 1.0);
  EXPECT_EQ(stats.GetCatCount(1), 0.0);
  EXPECT_EQ(stats.GetCatCount(2), 3.0);
  EXPECT_EQ(stats.GetCatCount(3), 0.0);
  EXPECT_EQ(stats.GetCatCount(std::numeric_limits<unsigned int>::max()), 0.0);
}

TEST(CatStats, NumberOfCategories) {
  const QVCatStats stats = Counts({1.0, 0.0, 3.0, 2.0});
  EXPECT_EQ(stats.GetNCategories(true), 4u);
  EXPECT_EQ(stats.GetNCategories(false), 3u);
}

TEST(CatStats, NumberOfCategoriesMayPassOverZerosNearTheEnd) {
  // Cells 0, 0, 0, 0, 1: the walk has shrunk to 3 when it has found three zeros, and ends before
  // the fourth. One category is in use; it says 2.
  EXPECT_EQ(Counts({0.0, 0.0, 0.0, 0.0, 1.0}).GetNCategories(false), 2u);
  // Cells 0, 1, 0, 1: the zero at 2 is still reached; 0, 0, 1, 0, 1: the one at 3 is not.
  EXPECT_EQ(Counts({0.0, 1.0, 0.0, 1.0}).GetNCategories(false), 2u);
  EXPECT_EQ(Counts({0.0, 0.0, 1.0, 0.0, 1.0}).GetNCategories(false), 3u);
}

TEST(CatStats, PoolGrowsAndAdds) {
  QVCatStats stats = Counts({1.0, 2.0});
  stats.Pool(Counts({0.0, 1.5, 0.0, 4.0}));
  EXPECT_EQ(stats.GetCatCounts(), (std::vector<double>{1.0, 3.5, 0.0, 4.0}));
  stats.Pool(Counts({1.0}));
  EXPECT_EQ(stats.GetCatCounts(), (std::vector<double>{2.0, 3.5, 0.0, 4.0}));
  stats.Pool(QVCatStats());
  EXPECT_EQ(stats.GetCatCounts(), (std::vector<double>{2.0, 3.5, 0.0, 4.0}));
  stats.Pool(stats);
  EXPECT_EQ(stats.GetCatCounts(), (std::vector<double>{4.0, 7.0, 0.0, 8.0}));
}

TEST(CatStats, CopiesAndMoves) {
  static_assert(std::is_nothrow_move_constructible_v<QVCatStats>);
  QVCatStats stats = Counts({1.0, 2.0});
  QVCatStats copy(stats);
  copy.Update(0.0, 1.0);
  EXPECT_EQ(stats.GetCatCount(0), 1.0);
  const QVCatStats moved(std::move(copy));
  EXPECT_EQ(moved.GetCatCounts(), (std::vector<double>{2.0, 2.0}));
}

TEST(CatStats, DisplayText) {
  CapturedDisplay display;
  Counts({1.0, 2.5}).Display();
  EXPECT_EQ(display.Text(), "\nQVCatStats\nCategory counts (size = 2)\n 1 2.5");
}

// --- Moments -------------------------------------------------------------------------------------

TEST(ContStats, StartsEmpty) {
  const QVContStats stats;
  EXPECT_EQ(stats.GetExtrema(), std::make_pair(QVMV::Missing(), QVMV::Missing()));
  EXPECT_EQ(stats.GetMean(), QVMV::Missing());
  EXPECT_EQ(stats.GetVariance(), QVMV::Missing());
  EXPECT_EQ(stats.GetSumFreqWeights(), 0.0);
}

TEST(ContStats, OneCaseHasAMeanAndNoVariance) {
  QVContStats stats;
  EXPECT_TRUE(stats.Update(5.0, 1.0, 1.0));
  EXPECT_EQ(stats.GetMean(), 5.0);
  EXPECT_EQ(stats.GetVariance(), QVMV::Missing());
  EXPECT_EQ(stats.GetExtrema(), std::make_pair(5.0, 5.0));
}

TEST(ContStats, WeightNotAboveZeroCountsAsOne) {
  QVContStats stats, plain;
  EXPECT_TRUE(stats.Update(5.0, 0.0, 0.0));
  EXPECT_TRUE(stats.Update(8.0, -2.0, -1.0));
  EXPECT_TRUE(plain.Update(5.0));
  EXPECT_TRUE(plain.Update(8.0));
  EXPECT_EQ(stats.GetSumFreqWeights(), 2.0);
  EXPECT_EQ(stats.GetMean(), plain.GetMean());
  EXPECT_EQ(stats.GetVariance(), plain.GetVariance());
}

TEST(ContStats, RefusesMissingArguments) {
  QVContStats stats;
  stats.Update(5.0);
  EXPECT_FALSE(stats.Update(QVMV::Missing(), 1.0, 1.0));
  EXPECT_FALSE(stats.Update(1.0, QVMV::Missing(), 1.0));
  EXPECT_FALSE(stats.Update(1.0, 1.0, QVMV::Missing()));
  EXPECT_FALSE(stats.Update(QVMV::Missing()));
  EXPECT_EQ(stats.GetSumFreqWeights(), 1.0);
  EXPECT_EQ(stats.GetExtrema(), std::make_pair(5.0, 5.0));
}

TEST(ContStats, ExtremesFollow) {
  QVContStats stats;
  for (const double x : {3.0, -1.0, 7.0, 2.0})
    stats.Update(x);
  EXPECT_EQ(stats.GetExtrema(), std::make_pair(-1.0, 7.0));
}

TEST(ContStats, VarianceDividesBySumOfFrequencyWeights) {
  // x 1, 3 with frequencies 1, 2 and regression weights 2, 4: composite 2, 8.
  QVContStats stats;
  EXPECT_TRUE(stats.Update(1.0, 1.0, 2.0));
  EXPECT_TRUE(stats.Update(3.0, 2.0, 4.0));
  EXPECT_EQ(stats.GetSumFreqWeights(), 3.0);
  EXPECT_DOUBLE_EQ(stats.GetMean(), 2.6);
  EXPECT_DOUBLE_EQ(stats.GetVariance(), (2.0 * 1.6 * 1.6 + 8.0 * 0.4 * 0.4) / 2.0);
}

TEST(ContStats, VarianceNeedsMoreThanOneCase) {
  QVContStats stats;
  stats.Update(1.0, 0.5, 1.0);
  stats.Update(2.0, 0.5, 9.0);
  EXPECT_EQ(stats.GetSumFreqWeights(), 1.0);
  EXPECT_EQ(stats.GetVariance(), QVMV::Missing());
  stats.Update(2.0, 0.25, 1.0);
  EXPECT_NE(stats.GetVariance(), QVMV::Missing());
}

namespace {

struct WeightedValue {
  double x, f, r;
};

std::vector<WeightedValue> RandomValues(int n, double location, unsigned seed) {
  std::mt19937 generator(seed);
  std::normal_distribution<double> normal(location, 1.0);
  std::uniform_real_distribution<double> weight(0.1, 3.0);
  std::vector<WeightedValue> values;
  for (int k = 0; k < n; ++k) {
    const double x = normal(generator);
    const double f = weight(generator);
    values.push_back({x, f, weight(generator)});
  }
  return values;
}

QVContStats Accumulate(const std::vector<WeightedValue> & values, std::size_t from,
                       std::size_t to) {
  QVContStats stats;
  for (std::size_t k = from; k < to; ++k) {
    EXPECT_TRUE(stats.Update(values[k].x, values[k].f, values[k].r));
  }
  return stats;
}

void ExpectTwoPasses(const QVContStats & stats, const std::vector<WeightedValue> & values) {
  long double f = 0.0L, w = 0.0L, mean = 0.0L, ssq = 0.0L;
  double low = kInfinity, high = -kInfinity;
  for (const WeightedValue & v : values) {
    f += v.f;
    w += static_cast<long double>(v.f) * v.r;
    mean += static_cast<long double>(v.f) * v.r * v.x;
    low = std::min(low, v.x);
    high = std::max(high, v.x);
  }
  mean /= w;
  for (const WeightedValue & v : values) {
    ssq += static_cast<long double>(v.f) * v.r * (v.x - mean) * (v.x - mean);
  }
  const double variance = static_cast<double>(ssq / (f - 1.0L));
  const double condition = std::sqrt(1.0 + static_cast<double>(w * mean * mean / ssq));
  const double unit = 4.0 * 2.3e-16 * std::sqrt(static_cast<double>(values.size()));
  EXPECT_EQ(stats.GetExtrema(), std::make_pair(low, high));
  EXPECT_NEAR(stats.GetSumFreqWeights(), static_cast<double>(f), unit * static_cast<double>(f));
  EXPECT_NEAR(stats.GetMean(), static_cast<double>(mean),
              unit * (1.0 + std::fabs(static_cast<double>(mean))));
  EXPECT_NEAR(stats.GetVariance(), variance, unit * condition * variance);
}

}  // namespace

TEST(ContStats, AgreesWithTwoPasses) {
  for (const int n : {2, 3, 100, 20000}) {
    for (const double location : {0.0, 1e4, -1e9}) {
      const auto values = RandomValues(n, location, 5);
      ExpectTwoPasses(Accumulate(values, 0, values.size()), values);
    }
  }
}

TEST(ContStats, PooledSplitsAgreeWithTwoPasses) {
  std::mt19937 generator(6);
  for (const double location : {0.0, 1e4, -1e9}) {
    const auto values = RandomValues(500, location, 7);
    for (int k = 0; k < 10; ++k) {
      const std::size_t first = generator() % 501;
      const std::size_t second = first + generator() % (501 - first);
      QVContStats stats = Accumulate(values, 0, first);
      stats.Pool(Accumulate(values, first, second));
      stats.Pool(Accumulate(values, second, 500));
      ExpectTwoPasses(stats, values);
    }
  }
}

TEST(ContStats, FollowsTheFormulasToTheLastBit) {
  const auto values = RandomValues(40, 3.0, 8);
  double w = 0.0, mean = 0.0, ssq = 0.0, f = 0.0;
  QVContStats stats;
  for (const WeightedValue & v : values) {
    const double c = v.f * v.r, d = v.x - mean, sum = w + c;
    f += v.f;
    mean += d * c / sum;
    ssq += (w * c / sum) * d * d;
    w = sum;
    EXPECT_TRUE(stats.Update(v.x, v.f, v.r));
  }
  EXPECT_EQ(stats.GetMean(), mean);
  EXPECT_EQ(stats.GetVariance(), ssq / (f - 1.0));
}

TEST(ContStats, PoolingAnEmptyObjectChangesNothing) {
  QVContStats stats;
  stats.Update(1.0, 2.0, 3.0);
  stats.Update(4.0, 1.0, 1.0);
  const double mean = stats.GetMean(), variance = stats.GetVariance();
  stats.Pool(QVContStats());
  EXPECT_EQ(stats.GetMean(), mean);
  EXPECT_EQ(stats.GetVariance(), variance);
  EXPECT_EQ(stats.GetSumFreqWeights(), 3.0);
  EXPECT_EQ(stats.GetExtrema(), std::make_pair(1.0, 4.0));
}

TEST(ContStats, PoolingIntoAnEmptyObjectCopies) {
  QVContStats full, stats, assigned;
  full.Update(1.0, 2.0, 3.0);
  full.Update(4.0, 1.0, 1.0);
  stats.Pool(full);
  assigned = full;
  for (const QVContStats * copy : {&stats, &assigned}) {
    EXPECT_EQ(copy->GetMean(), full.GetMean());
    EXPECT_EQ(copy->GetVariance(), full.GetVariance());
    EXPECT_EQ(copy->GetSumFreqWeights(), 3.0);
    EXPECT_EQ(copy->GetExtrema(), std::make_pair(1.0, 4.0));
  }
}

TEST(ContStats, PoolWithItselfDoubles) {
  QVContStats stats;
  stats.Update(1.0);
  stats.Update(3.0);
  stats.Pool(stats);
  EXPECT_EQ(stats.GetSumFreqWeights(), 4.0);
  EXPECT_EQ(stats.GetMean(), 2.0);
  EXPECT_DOUBLE_EQ(stats.GetVariance(), 4.0 / 3.0);
}

TEST(ContStats, DisplayText) {
  CapturedDisplay display;
  QVContStats stats;
  stats.Display();
  EXPECT_EQ(display.Text(),
            "\nQVContStats\nMin & max\n miss miss\nSum of freq. wgts, composite wgts\n 0 0"
            "\nMean = 0\nSSQ = 0");
  stats.Update(1.0, 1.0, 2.0);
  stats.Update(4.0, 2.0, 2.0);
  stats.Display();
  EXPECT_EQ(display.Text(),
            "\nQVContStats\nMin & max\n 1 4\nSum of freq. wgts, composite wgts\n 3 6"
            "\nMean = 3\nSSQ = 12");
}
