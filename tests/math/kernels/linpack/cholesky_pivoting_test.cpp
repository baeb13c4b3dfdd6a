#include <algorithm>
#include <cmath>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Linpack.h"
#include "math/kernels/linpack/dense_reference.h"

using namespace linpack_test;
using QVMath_940::Linpack;

namespace {

Matrix UpperWithNaN(const Matrix & a) {
  Matrix upper = a;
  for (int j = 0; j < a.Cols(); ++j) {
    for (int i = j + 1; i < a.Rows(); ++i)
      upper(i, j) = kNaN;
  }
  return upper;
}

/// Row and column k of the result are row and column jpvt[k] of a.
Matrix Permute(const Matrix & a, const std::vector<int> & jpvt) {
  Matrix permuted(a.Rows(), a.Cols());
  for (int j = 0; j < a.Cols(); ++j) {
    for (int i = 0; i < a.Rows(); ++i) {
      permuted(i, j) = a(jpvt[Count(i)] - 1, jpvt[Count(j)] - 1);
    }
  }
  return permuted;
}

TEST(LinpackCholeskyPivoting, WithoutPivotingItIsTheCholeskyFactor) {
  Source source(1);
  for (const int n : kOrders) {
    const Matrix a = PositiveDefinite(source, n);
    Matrix r = UpperWithNaN(a);
    std::vector<double> work(Count(n));
    EXPECT_EQ(Linpack::Dchdc(r.Data(), n, n, work.data(), nullptr, 0), n);
    const Matrix upper = UpperTriangle(r);
    EXPECT_LT(Distance(a, Multiply(Transpose(upper), upper)), kThreshold) << n;
    for (int j = 0; j < n; ++j) {
      for (int i = j + 1; i < n; ++i)
        ASSERT_TRUE(std::isnan(r(i, j)));
    }
  }
}

TEST(LinpackCholeskyPivoting, TheLargestFreeDiagonalComesNext) {
  Source source(2);
  for (const int n : kOrders) {
    const Matrix a = PositiveDefinite(source, n);
    Matrix r = UpperWithNaN(a);
    std::vector<double> work(Count(n));
    std::vector<int> jpvt(Count(n), 0);
    EXPECT_EQ(Linpack::Dchdc(r.Data(), n, n, work.data(), jpvt.data(), 1), n);
    const Matrix upper = UpperTriangle(r);
    EXPECT_LT(Distance(Permute(a, jpvt), Multiply(Transpose(upper), upper)), kThreshold) << n;
    for (int k = 1; k < n; ++k)
      EXPECT_LE(r(k, k), r(k - 1, k - 1) * (1.0 + 1e-12));
    std::vector<int> sorted = jpvt;
    std::sort(sorted.begin(), sorted.end());
    for (int k = 0; k < n; ++k)
      EXPECT_EQ(sorted[Count(k)], k + 1);
  }
}

TEST(LinpackCholeskyPivoting, EntriesMoveDiagonalsToTheFrontAndTheEnd) {
  Source source(3);
  const std::vector<std::vector<int>> lists = {
      {0, 0, 0, 0, 0, 0, 0},   {1, 1, 1, 1, 1, 1, 1},   {-1, -1, -1, -1, -1, -1, -1},
      {0, 5, 0, -2, 0, 1, 0},  {-1, 0, 0, 3, 0, 0, -1}, {0, -1, 1, -1, 1, -1, 1},
      {-1, 1, -1, 1, 0, 0, 0}, {0, 0, 0, 0, -1, 1, 1}};
  for (const std::vector<int> & entries : lists) {
    const Matrix a = PositiveDefinite(source, 7);
    Matrix r = UpperWithNaN(a);
    double work[7];
    std::vector<int> jpvt = entries;
    EXPECT_EQ(Linpack::Dchdc(r.Data(), 7, 7, work, jpvt.data(), 1), 7);
    const Matrix upper = UpperTriangle(r);
    EXPECT_LT(Distance(Permute(a, jpvt), Multiply(Transpose(upper), upper)), kThreshold);
    const auto front = std::count_if(entries.begin(), entries.end(), [](int x) { return x > 0; });
    const auto end = std::count_if(entries.begin(), entries.end(), [](int x) { return x < 0; });
    for (int k = 0; k < 7; ++k) {
      const int entry = entries[Count(jpvt[Count(k)] - 1)];
      EXPECT_EQ(entry > 0, k < front);
      EXPECT_EQ(entry < 0, k >= 7 - end);
    }
    for (int k = static_cast<int>(front) + 1; k < 7 - end; ++k) {
      EXPECT_LE(r(k, k), r(k - 1, k - 1) * (1.0 + 1e-12));
    }
  }
}

TEST(LinpackCholeskyPivoting, ASemidefiniteMatrixTellsItsRank) {
  // Whole numbers, so that nothing is rounded: X-transpose X of rank 2.
  double a[] = {1, kNaN, kNaN, 2, 4, kNaN, 0, 0, 9};
  double work[3];
  int jpvt[3] = {};
  EXPECT_EQ(Linpack::Dchdc(a, 3, 3, work, jpvt, 1), 2);
  EXPECT_THAT(jpvt, testing::ElementsAre(3, 2, 1));
  EXPECT_EQ(a[0], 3.0);
  EXPECT_EQ(a[4], 2.0);
  EXPECT_EQ(a[7], 1.0);

  double unpivoted[] = {1, kNaN, kNaN, 2, 4, kNaN, 0, 0, 9};
  EXPECT_EQ(Linpack::Dchdc(unpivoted, 3, 3, work, nullptr, 0), 1);
}

TEST(LinpackCholeskyPivoting, AMatrixWithoutPositiveDiagonalHasOrderZero) {
  double a[] = {0.0, 0.0, 0.0, -1.0};
  double work[2];
  int jpvt[2] = {};
  EXPECT_EQ(Linpack::Dchdc(a, 2, 2, work, jpvt, 1), 0);
  EXPECT_EQ(Linpack::Dchdc(a, 2, 2, work, nullptr, 0), 0);
  EXPECT_EQ(Linpack::Dchdc(nullptr, 1, 0, nullptr, nullptr, 1), 0);
}

}  // namespace
