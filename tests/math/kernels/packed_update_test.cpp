// The updates by cases against their formulas, to the last bit, on the kernels of this process. The
// test list runs this file once more for each path that QVCOMMON_KERNELS names.
#include "math/kernels/packed_update.h"

#include <cmath>
#include <iterator>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "math/kernels/kernel_table.h"

using namespace QVMath_940::kernels;

namespace {

const std::size_t kOrders[] = {0, 1, 2, 3, 7, 11, 12, 19, 20, 23, 24, 25, 33, 48, 63, 64, 65, 129};
const int kNumbersOfRows[] = {0, 1, 2, 3, 4, 5, 7, 8, 64, 67};

std::vector<double> RandomValues(std::size_t count, unsigned seed) {
  std::mt19937 generator(seed);
  std::normal_distribution<double> normal;
  std::vector<double> values(count);
  for (double & value : values)
    value = normal(generator);
  return values;
}

CaseRows RowsOf(const std::vector<double> & values, std::size_t stride) {
  return {values.data(), static_cast<std::ptrdiff_t>(stride)};
}

bool IsFused(std::size_t n) {
  return n >= static_cast<std::size_t>(kFusedOrder);
}

double MultiplyAdd(std::size_t n, double x, double y, double sum) {
  return IsFused(n) ? std::fma(x, y, sum) : sum + x * y;
}

// Calls update(i, j, element) for the elements of a packed triangle.
template <typename Update>
void ForEach(std::size_t n, std::vector<double> & a, Update update) {
  for (std::size_t i = 0; i < n; ++i) {
    for (std::size_t j = 0; j <= i; ++j)
      update(i, j, a[i * (i + 1) / 2 + j]);
  }
}

}  // namespace

TEST(PackedRank1Update, FollowsTheFormula) {
  std::vector<std::size_t> orders(std::begin(kOrders), std::end(kOrders));
  orders.insert(orders.end(), {511, 512, 513, 600});
  for (const std::size_t n : orders) {
    const auto x = RandomValues(n, 1);
    auto a = RandomValues(n * (n + 1) / 2, 2);
    auto want = a;
    PackedRank1Update(static_cast<int>(n), 1.7, x.data(), a.data());
    ForEach(n, want, [&](std::size_t i, std::size_t j, double & element) {
      element = MultiplyAdd(n, x[i] * 1.7, x[j], element);
    });
    EXPECT_EQ(a, want) << "order " << n;
  }
}

TEST(PackedRankKUpdate, FollowsTheFormulaInTheOrderOfTheCases) {
  for (const std::size_t n : kOrders) {
    for (const int rows : kNumbersOfRows) {
      const std::size_t count = static_cast<std::size_t>(rows);
      const std::size_t leftStride = n + 3, rightStride = n;
      const auto left = RandomValues(count * leftStride, 3);
      const auto right = RandomValues(count * rightStride, 4);
      auto a = RandomValues(n * (n + 1) / 2, 6);
      auto want = a;
      PackedRankKUpdate(static_cast<int>(n), rows, RowsOf(left, leftStride),
                        RowsOf(right, rightStride), a.data());
      ForEach(n, want, [&](std::size_t i, std::size_t j, double & element) {
        for (std::size_t r = 0; r < count; ++r) {
          element = MultiplyAdd(n, left[r * leftStride + i], right[r * rightStride + j], element);
        }
      });
      EXPECT_EQ(a, want) << "order " << n << ", rows " << rows;
    }
  }
}

TEST(PackedRankKUpdate, TakesTheSameRowsOnBothSides) {
  for (const std::size_t n : kOrders) {
    const auto x = RandomValues(9 * n, 3);
    const auto copy = x;
    auto a = RandomValues(n * (n + 1) / 2, 6);
    auto want = a;
    PackedRankKUpdate(static_cast<int>(n), 9, RowsOf(x, n), RowsOf(x, n), a.data());
    PackedRankKUpdate(static_cast<int>(n), 9, RowsOf(x, n), RowsOf(copy, n), want.data());
    EXPECT_EQ(a, want) << "order " << n;
  }
}

TEST(PackedWeightedRankKUpdate, FollowsTheFormulaInTheOrderOfTheCases) {
  for (const std::size_t n : kOrders) {
    for (const int rows : kNumbersOfRows) {
      const std::size_t count = static_cast<std::size_t>(rows);
      const std::size_t stride = n + 2;
      const auto x = RandomValues(count * stride, 3);
      const auto w = RandomValues(count, 5);
      auto a = RandomValues(n * (n + 1) / 2, 6);
      auto want = a;
      PackedWeightedRankKUpdate(static_cast<int>(n), rows, RowsOf(x, stride), w.data(), a.data());
      ForEach(n, want, [&](std::size_t i, std::size_t j, double & element) {
        for (std::size_t r = 0; r < count; ++r) {
          const double xi = x[r * stride + i], xj = x[r * stride + j];
          element = IsFused(n) ? std::fma(xi * w[r], xj, element) : element + xi * xj * w[r];
        }
      });
      EXPECT_EQ(a, want) << "order " << n << ", rows " << rows;
    }
  }
}

TEST(PackedRankKUpdate, GroupingOfCasesDoesNotMatter) {
  for (const std::size_t n : kOrders) {
    const auto x = RandomValues(11 * n, 7);
    const auto w = RandomValues(11, 8);
    std::vector<double> together(n * (n + 1) / 2, 0.0);
    auto apart = together, weightedTogether = together, weightedApart = together;
    const int order = static_cast<int>(n);
    PackedRankKUpdate(order, 11, RowsOf(x, n), RowsOf(x, n), together.data());
    PackedWeightedRankKUpdate(order, 11, RowsOf(x, n), w.data(), weightedTogether.data());
    int done = 0;
    for (const int count : {1, 5, 3, 2}) {
      const CaseRows part{x.data() + done * order, order};
      PackedRankKUpdate(order, count, part, part, apart.data());
      PackedWeightedRankKUpdate(order, count, part, w.data() + done, weightedApart.data());
      done += count;
    }
    EXPECT_EQ(together, apart) << "order " << n;
    EXPECT_EQ(weightedTogether, weightedApart) << "order " << n;
  }
}

// Nothing beside the triangle is touched, and nothing beside the rows is read (sanitizers see it).
TEST(PackedRankKUpdate, StaysInsideTheTriangle) {
  for (const std::size_t n : kOrders) {
    const std::size_t size = n * (n + 1) / 2;
    const auto x = RandomValues(5 * n, 9);
    std::vector<double> a(size + 64, 7.0);
    PackedRankKUpdate(static_cast<int>(n), 5, RowsOf(x, n), RowsOf(x, n), a.data() + 32);
    PackedRank1Update(static_cast<int>(n), 2.0, x.data(), a.data() + 32);
    for (std::size_t k = 0; k < 32; ++k) {
      EXPECT_EQ(a[k], 7.0) << "order " << n;
      EXPECT_EQ(a[32 + size + k], 7.0) << "order " << n;
    }
  }
}
