#include "math/kernels/packed_update.h"

#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include <gtest/gtest.h>

using QVMath_940::kernels::CaseRows;
using QVMath_940::kernels::PackedRank1Update;
using QVMath_940::kernels::PackedRankKUpdate;

namespace {

// Below this order every product and sum is rounded by itself; from it on a sum may be fused.
constexpr std::size_t kFusedOrder = 64;

std::vector<double> RandomValues(std::size_t count, unsigned seed) {
  std::mt19937 generator(seed);
  std::normal_distribution<double> normal;
  std::vector<double> values(count);
  for (double & value : values)
    value = normal(generator);
  return values;
}

// Compares to the last bit below the fused order, and to `terms` roundings from it on.
void ExpectTriangle(const std::vector<double> & got, const std::vector<double> & want,
                    std::size_t order, int terms) {
  ASSERT_EQ(got.size(), want.size());
  for (std::size_t k = 0; k < got.size(); ++k) {
    if (order < kFusedOrder) {
      EXPECT_EQ(got[k], want[k]) << "order " << order << ", position " << k;
    } else {
      const double unit = std::numeric_limits<double>::epsilon() * (terms + 1);
      EXPECT_NEAR(got[k], want[k], unit * (20.0 + std::fabs(want[k]))) << "order " << order;
    }
  }
}

}  // namespace

TEST(PackedRank1Update, AddsTheScaledSquareOfAVector) {
  for (const std::size_t n : {0u, 1u, 2u, 3u, 4u, 5u, 7u, 33u, 63u, 64u, 65u, 129u}) {
    const auto x = RandomValues(n, 1);
    auto a = RandomValues(n * (n + 1) / 2, 2);
    auto want = a;
    PackedRank1Update(static_cast<int>(n), 1.7, x.data(), a.data());
    for (std::size_t i = 0; i < n; ++i) {
      for (std::size_t j = 0; j <= i; ++j)
        want[i * (i + 1) / 2 + j] += (x[i] * 1.7) * x[j];
    }
    ExpectTriangle(a, want, n, 1);
  }
}

TEST(PackedRankKUpdate, AddsTheCasesInOrder) {
  for (const std::size_t n : {0u, 1u, 2u, 3u, 7u, 33u, 63u, 64u, 129u}) {
    for (const int rows : {0, 1, 2, 3, 4, 5, 7, 8, 64, 67}) {
      for (const bool weighted : {false, true}) {
        const std::size_t count = static_cast<std::size_t>(rows);
        const std::size_t leftStride = n + 3, rightStride = n;
        const auto left = RandomValues(count * leftStride, 3);
        const auto right = RandomValues(count * rightStride, 4);
        const auto weights = RandomValues(count, 5);
        auto a = RandomValues(n * (n + 1) / 2, 6);
        auto want = a;
        PackedRankKUpdate(static_cast<int>(n), rows,
                          CaseRows{left.data(), static_cast<std::ptrdiff_t>(leftStride)},
                          CaseRows{right.data(), static_cast<std::ptrdiff_t>(rightStride)},
                          weighted ? weights.data() : nullptr, a.data());
        for (std::size_t r = 0; r < count; ++r) {
          for (std::size_t i = 0; i < n; ++i) {
            for (std::size_t j = 0; j <= i; ++j) {
              const double product = left[r * leftStride + i] * right[r * rightStride + j];
              want[i * (i + 1) / 2 + j] += weighted ? product * weights[r] : product;
            }
          }
        }
        ExpectTriangle(a, want, n, rows);
      }
    }
  }
}

TEST(PackedRankKUpdate, GroupingOfCasesDoesNotMatter) {
  for (const std::size_t n : {1u, 7u, 33u, 64u, 129u}) {
    const auto rows = RandomValues(11 * n, 7);
    const std::ptrdiff_t stride = static_cast<std::ptrdiff_t>(n);
    std::vector<double> together(n * (n + 1) / 2, 0.0), apart = together;
    const CaseRows all{rows.data(), stride};
    PackedRankKUpdate(static_cast<int>(n), 11, all, all, nullptr, together.data());
    int done = 0;
    for (const int count : {1, 5, 3, 2}) {
      const CaseRows part{rows.data() + done * stride, stride};
      PackedRankKUpdate(static_cast<int>(n), count, part, part, nullptr, apart.data());
      done += count;
    }
    EXPECT_EQ(together, apart) << "order " << n;
  }
}
