#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <random>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "QVMV.h"
#include "QVMathFun.h"

using QVCommon_940::QVMV;
using QVMath_940::QVMathFun;
using testing::ElementsAre;
using Vector = std::vector<double>;

namespace {

const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kInfinity = std::numeric_limits<double>::infinity();

Vector RandomVector(std::size_t n, unsigned seed) {
  std::mt19937 engine(seed);
  std::uniform_real_distribution<double> uniform(-1.0, 1.0);
  Vector v(n);
  for (double & x : v)
    x = uniform(engine);
  return v;
}

std::size_t Packed(int i, int j) {
  return static_cast<std::size_t>(i) * static_cast<std::size_t>(i + 1) / 2 +
         static_cast<std::size_t>(j);
}

// ---- BinSearch ----

TEST(BinSearch, FindsThePlaceToInsertAt) {
  const Vector v = {1, 3, 5, 7};
  EXPECT_EQ(QVMathFun::BinSearch(v, 0, 3, 0.0, false), 0);
  EXPECT_EQ(QVMathFun::BinSearch(v, 0, 3, 1.0, false), 0);
  EXPECT_EQ(QVMathFun::BinSearch(v, 0, 3, 1.0, true), 1);
  EXPECT_EQ(QVMathFun::BinSearch(v, 0, 3, 2.0, false), 1);
  EXPECT_EQ(QVMathFun::BinSearch(v, 0, 3, 4.0, true), 2);
  EXPECT_EQ(QVMathFun::BinSearch(v, 0, 3, 6.0, false), 3);
  EXPECT_EQ(QVMathFun::BinSearch(v, 0, 3, 7.0, false), 3);
}

TEST(BinSearch, RefusesABadRange) {
  const Vector v = {1, 3, 5};
  EXPECT_EQ(QVMathFun::BinSearch(v, 0, 3, 2.0, false), -2);
  EXPECT_EQ(QVMathFun::BinSearch(v, 2, 1, 2.0, false), -2);
  EXPECT_EQ(QVMathFun::BinSearch(v, -1, 2, 2.0, false), -2);
  EXPECT_EQ(QVMathFun::BinSearch(v, -5, -4, 2.0, false), -2);
  EXPECT_EQ(QVMathFun::BinSearch(Vector(), 0, 0, 2.0, false), -2);
  EXPECT_EQ(QVMathFun::BinSearch(Vector(), 0, -1, 2.0, false), -2);
}

TEST(BinSearch, AnswersMinusOneOutsideTheRange) {
  const Vector v = {1, 3, 5, 7};
  EXPECT_EQ(QVMathFun::BinSearch(v, 0, 3, 8.0, false), -1);
  EXPECT_EQ(QVMathFun::BinSearch(v, 0, 3, 7.0, true), -1);
  EXPECT_EQ(QVMathFun::BinSearch(v, 0, 2, 6.0, false), -1);
  EXPECT_EQ(QVMathFun::BinSearch(v, 2, 3, 2.0, false), -1);
  EXPECT_EQ(QVMathFun::BinSearch(v, 2, 3, 3.0, false), -1);
  EXPECT_EQ(QVMathFun::BinSearch(v, 2, 3, 3.0, true), 2);
  EXPECT_EQ(QVMathFun::BinSearch(v, 2, 3, 4.0, false), 2);
}

TEST(BinSearch, OnePlaceIsTheAnswerForEverythingInside) {
  const Vector v = {1, 3, 5};
  EXPECT_EQ(QVMathFun::BinSearch(v, 0, 0, -9.0, true), 0);
  EXPECT_EQ(QVMathFun::BinSearch(v, 0, 0, 1.0, false), 0);
  EXPECT_EQ(QVMathFun::BinSearch(v, 1, 1, 2.0, true), 1);
}

TEST(BinSearch, HitsOneOfEqualElementsByBisection) {
  const Vector v = {2, 2, 2, 2, 9};
  EXPECT_EQ(QVMathFun::BinSearch(v, 0, 4, 2.0, false), 1);
  EXPECT_EQ(QVMathFun::BinSearch(v, 0, 4, 2.0, true), 2);
}

TEST(BinSearch, AgreesWithALinearSearch) {
  for (int n = 1; n <= 12; ++n) {
    Vector v;
    std::vector<int> whole;
    for (int i = 0; i < n; ++i) {
      v.push_back(2.0 * i);
      whole.push_back(2 * i);
    }
    for (int lo = 0; lo < n; ++lo) {
      for (int hi = lo; hi < n; ++hi) {
        for (int twice = -3; twice <= 4 * n; ++twice) {
          const double x = 0.5 * twice;
          for (const bool after : {false, true}) {
            int expected = 0;  // the number of elements that x comes behind
            while (expected < n && (v[static_cast<std::size_t>(expected)] < x ||
                                    (after && v[static_cast<std::size_t>(expected)] == x))) {
              ++expected;
            }
            if (expected < lo || expected > hi) expected = -1;
            if (expected == lo && lo > 0 && !after && v[static_cast<std::size_t>(lo - 1)] == x) {
              expected = -1;
            }
            EXPECT_EQ(QVMathFun::BinSearch(v, lo, hi, x, after), expected) << n << ' ' << x;
            EXPECT_EQ(QVMathFun::BinSearch(whole, lo, hi, x, after), expected) << n << ' ' << x;
          }
        }
      }
    }
  }
}

// ---- Strided vectors ----

TEST(StridedVectors, DASumTakesItsStrideBeforeItsOffset) {
  const Vector v = {1, -2, 3, -4, 5, -6};
  EXPECT_EQ(QVMathFun::DASum(3, v, 2, 1), 2.0 + 4.0 + 6.0);
  EXPECT_EQ(QVMathFun::DASum(2, v, 1, 2), 3.0 + 4.0);
}

TEST(StridedVectors, DASumWalksDownFromItsFarEnd) {
  const Vector v = {1, -2, 3, -4, 5, -6};
  EXPECT_EQ(QVMathFun::DASum(3, v, -2, 1), 6.0 + 4.0 + 2.0);
  EXPECT_EQ(QVMathFun::DASum(6, v, -1, 0), 21.0);
}

TEST(StridedVectors, DASumSkipsTermsOutside) {
  const Vector v = {1, -2, 3};
  EXPECT_EQ(QVMathFun::DASum(10, v, 1, 0), 6.0);
  EXPECT_EQ(QVMathFun::DASum(5, v, 1, -2), 6.0);
  EXPECT_EQ(QVMathFun::DASum(4, v, -1, 1), 5.0);
  EXPECT_EQ(QVMathFun::DASum(3, v, 1, 100), 0.0);
  EXPECT_EQ(QVMathFun::DASum(2147483647, Vector(), 1, 0), 0.0);
  EXPECT_EQ(QVMathFun::DASum(3, v, 2147483647, 1), 2.0);
  EXPECT_EQ(QVMathFun::DASum(4, v, 0, 1), 8.0);  // a stride of 0 stays where it is
}

TEST(StridedVectors, DaxpyFollowsBothWalks) {
  for (const int incX : {-3, -1, 0, 1, 2}) {
    for (const int incY : {-2, -1, 1, 3}) {
      for (const int n : {0, 1, 2, 7}) {
        const Vector x = RandomVector(40, 1);
        Vector y = RandomVector(40, 2);
        Vector expected = y;
        for (int k = 0; k < n; ++k) {
          expected[static_cast<std::size_t>(20 + k * incY)] +=
              0.75 * x[static_cast<std::size_t>(19 + k * incX)];
        }
        QVMathFun::Daxpy(n, 0.75, x, 19, incX, y, 20, incY);
        EXPECT_EQ(y, expected) << n << ' ' << incX << ' ' << incY;
      }
    }
  }
}

TEST(StridedVectors, DaxpyWithinOneVectorSeesItsOwnWrites) {
  Vector v = {1, 1, 1, 1};
  QVMathFun::Daxpy(3, 1.0, v, 0, 1, v, 1, 1);
  EXPECT_THAT(v, ElementsAre(1, 2, 3, 4));
}

TEST(StridedVectors, DDotAddsInIndexOrder) {
  // Any other order than ((1e16 + 1) - 1e16) + 1 gives another number than 1.
  EXPECT_EQ(QVMathFun::DDot(4, {1e16, 1, -1e16, 1}, 0, 1, {1, 1, 1, 1}, 0, 1), 1.0);
  EXPECT_EQ(QVMathFun::DSum(4, {1e16, 1, -1e16, 1}, 1), 1.0);
  EXPECT_EQ(QVMathFun::IIDot(2, {1e16, 1, 5, 1}, 0, 1, {1, 1, 5, 1}, 0, 1), 1e16 + 1.0);
}

TEST(StridedVectors, DDotFollowsBothWalks) {
  const Vector x = RandomVector(40, 3);
  const Vector y = RandomVector(40, 4);
  for (const int incX : {-3, 0, 1, 2}) {
    for (const int incY : {-2, 1, 3}) {
      double expected = 0.0;
      for (int k = 0; k < 6; ++k) {
        expected +=
            x[static_cast<std::size_t>(19 + k * incX)] * y[static_cast<std::size_t>(15 + k * incY)];
      }
      EXPECT_EQ(QVMathFun::DDot(6, x, 19, incX, y, 15, incY), expected);
    }
  }
  EXPECT_EQ(QVMathFun::DDot(0, x, 0, 1, y, 0, 1), 0.0);
  EXPECT_EQ(QVMathFun::DDot(-3, x, 0, 1, y, 0, 1), 0.0);
}

TEST(StridedVectors, DLoadSetsEachStep) {
  Vector v(7, 1.0);
  QVMathFun::DLoad(3, 9.0, v, 1, 2);
  EXPECT_THAT(v, ElementsAre(1, 9, 1, 9, 1, 9, 1));
  QVMathFun::DLoad(0, 5.0, v, 0, 1);
  EXPECT_EQ(v[0], 1.0);
}

TEST(StridedVectors, StridesBelowOneDoNothing) {
  Vector v = {1, 2, 3, 4};
  for (const int inc : {0, -1}) {
    QVMathFun::DLoad(3, 9.0, v, 3, inc);
    QVMathFun::DScal(3, 9.0, v, 3, inc);
    EXPECT_EQ(QVMathFun::DNrm2(3, v, 3, inc), 0.0);
    EXPECT_EQ(QVMathFun::DSum(3, v, inc), 0.0);
  }
  EXPECT_THAT(v, ElementsAre(1, 2, 3, 4));
}

TEST(StridedVectors, OneElementNeedsNoStride) {
  Vector v = {1, -2, 3, 4};
  for (const int inc : {0, -1, 5}) {
    EXPECT_EQ(QVMathFun::DNrm2(1, v, 1, inc), 2.0);
    QVMathFun::DLoad(1, 8.0, v, 2, inc);
    QVMathFun::DScal(1, 0.5, v, 2, inc);
    EXPECT_EQ(v[2], 4.0);
  }
  EXPECT_EQ(QVMathFun::DSum(1, v, 0), 0.0);  // a stride of 0 gives no terms even so
  EXPECT_EQ(QVMathFun::DSum(1, v, 3), 1.0);
}

TEST(StridedVectors, DNrm2NeitherOverflowsNorUnderflows) {
  EXPECT_DOUBLE_EQ(QVMathFun::DNrm2(2, {3e200, 4e200}, 0, 1), 5e200);
  EXPECT_DOUBLE_EQ(QVMathFun::DNrm2(2, {3e-200, 4e-200}, 0, 1), 5e-200);
  EXPECT_EQ(QVMathFun::DNrm2(3, {0, 0, 0}, 0, 1), 0.0);
  EXPECT_EQ(QVMathFun::DNrm2(3, {3, 7, 4}, 0, 2), 0.0);  // the third place lies outside
  EXPECT_EQ(QVMathFun::DNrm2(2, {3, 7, 4}, 0, 2), 5.0);
  EXPECT_EQ(QVMathFun::DNrm2(2, {0, 3, 4}, 1, 1), 5.0);
  EXPECT_EQ(QVMathFun::DNrm2(0, {3, 4}, 0, 1), 0.0);
  EXPECT_EQ(QVMathFun::DNrm2(2, {1, kInfinity}, 0, 1), kInfinity);
  EXPECT_TRUE(std::isnan(QVMathFun::DNrm2(2, {1, kNaN}, 0, 1)));
}

TEST(StridedVectors, DNrm2FollowsItsScaling) {
  const Vector v = RandomVector(33, 5);
  double scale = 0.0;
  double ssq = 1.0;
  for (const double x : v) {
    const double a = std::fabs(x);
    if (a > scale) {
      ssq = 1.0 + ssq * ((scale / a) * (scale / a));
      scale = a;
    } else {
      ssq += (a / scale) * (a / scale);
    }
  }
  EXPECT_EQ(QVMathFun::DNrm2(33, v, 0, 1), scale * std::sqrt(ssq));
}

TEST(StridedVectors, DScalByOneReturnsAtOnce) {
  Vector v = {1, 2, 3, 4, 5};
  QVMathFun::DScal(3, -2.0, v, 0, 2);
  EXPECT_THAT(v, ElementsAre(-2, 2, -6, 4, -10));
  QVMathFun::DScal(5, 1.0, v, 0, 1);
  EXPECT_THAT(v, ElementsAre(-2, 2, -6, 4, -10));
}

TEST(StridedVectors, WalksThatLeaveTheirVectorDoNothing) {
  const Vector x = {1, 2, 3};
  Vector y = {1, 1, 1};
  QVMathFun::Daxpy(4, 1.0, x, 0, 1, y, 0, 1);
  QVMathFun::Daxpy(2, 1.0, x, 0, -1, y, 0, 1);
  QVMathFun::Daxpy(1, 1.0, x, 3, 1, y, 0, 1);
  QVMathFun::DLoad(2, 7.0, y, 2, 1);
  QVMathFun::DScal(2, 7.0, y, -1, 1);
  QVMathFun::IIAxpy(3, 1.0, x, 0, 1, y, 0, 1);
  QVMathFun::IIInit(3, 7.0, y, 0, 1);
  QVMathFun::IIScal(3, 7.0, y, 0, 1);
  QVMathFun::IIInit(3, 7.0, y, 1, -2);
  QVMathFun::IIInit(6, 7.0, y, 1, -2);  // 1, -1, -2, -2, -1, 1: only its ends lie inside
  EXPECT_THAT(y, ElementsAre(1, 1, 1));
  EXPECT_EQ(QVMathFun::DDot(2147483647, x, 0, 2147483647, x, 0, 2147483647), 0.0);
  EXPECT_EQ(QVMathFun::IIDot(3, x, 0, 1, x, 0, 1), 0.0);
  EXPECT_EQ(QVMathFun::DSum(4, x, 1), 0.0);
}

// ---- Columns of packed triangles ----

TEST(PackedColumns, StrideGrowsByOneDownAColumn) {
  constexpr int kRows = 7;
  const Vector x = RandomVector(Packed(kRows, 0), 6);
  for (int col = 0; col < kRows; ++col) {
    for (int row = col; row < kRows; ++row) {
      const int n = kRows - row;
      const int off = static_cast<int>(Packed(row, col));
      const int other = static_cast<int>(Packed(row, row));
      Vector y = RandomVector(x.size(), 7);
      Vector expected = y;
      double dot = 0.0;
      for (int i = row; i < kRows; ++i) {
        dot += x[Packed(i, col)] * y[Packed(i, row)];
        expected[Packed(i, row)] += -0.5 * x[Packed(i, col)];
      }
      EXPECT_EQ(QVMathFun::IIDot(n, x, off, row + 1, y, other, row + 1), dot);
      QVMathFun::IIAxpy(n, -0.5, x, off, row + 1, y, other, row + 1);
      EXPECT_EQ(y, expected);

      for (int i = row; i < kRows; ++i)
        expected[Packed(i, col)] *= 3.0;
      QVMathFun::IIScal(n, 3.0, y, off, row + 1);
      EXPECT_EQ(y, expected);
      for (int i = row; i < kRows; ++i)
        expected[Packed(i, col)] = 4.0;
      QVMathFun::IIInit(n, 4.0, y, off, row + 1);
      EXPECT_EQ(y, expected);
    }
  }
}

TEST(PackedColumns, TwoWalksMayStartWithDifferentStrides) {
  const Vector x = {1, 2, 3, 4, 5, 6, 7};
  Vector y(7, 10.0);
  QVMathFun::IIAxpy(3, 1.0, x, 0, 2, y, 1, 0);  // x: 0, 2, 5; y: 1, 1, 2
  EXPECT_THAT(y, ElementsAre(10, 14, 16, 10, 10, 10, 10));
  EXPECT_EQ(QVMathFun::IIDot(3, x, 0, 2, x, 1, 0), 1 * 2 + 3 * 2 + 6 * 3);
}

TEST(PackedColumns, NegativeFirstStridesWalkUp) {
  // Column 0 of a triangle of four rows, upwards from its last row: 6, 3, 1, 0.
  Vector v(10, 0.0);
  QVMathFun::IIInit(4, 1.0, v, 6, -3);
  EXPECT_THAT(v, ElementsAre(1, 1, 0, 1, 0, 0, 1, 0, 0, 0));
}

TEST(PackedColumns, NothingHappensBelowOneElement) {
  Vector v = {1, 2, 3};
  for (const int n : {0, -1}) {
    QVMathFun::IIAxpy(n, 1.0, v, 0, 1, v, 0, 1);
    QVMathFun::IIInit(n, 1.0, v, 0, 1);
    QVMathFun::IIScal(n, 5.0, v, 0, 1);
    EXPECT_EQ(QVMathFun::IIDot(n, v, 0, 1, v, 0, 1), 0.0);
  }
  EXPECT_THAT(v, ElementsAre(1, 2, 3));
}

TEST(PackedTriangle, LTGltlIsTheLowerTriangleOfLTransposeL) {
  for (const int n : {0, 1, 2, 3, 7, 33, 129}) {
    const Vector lower = RandomVector(Packed(n, 0) + 2, 8);
    Vector t = lower;
    QVMathFun::LTGltl(n, t);
    for (int i = 0; i < n; ++i) {
      for (int j = 0; j <= i; ++j) {
        double sum = lower[Packed(i, i)] * lower[Packed(i, j)];
        for (int k = i + 1; k < n; ++k)
          sum += lower[Packed(k, i)] * lower[Packed(k, j)];
        ASSERT_EQ(t[Packed(i, j)], sum) << n << ": " << i << ", " << j;
      }
    }
    EXPECT_EQ(t[Packed(n, 0)], lower[Packed(n, 0)]);  // nothing behind the triangle changes
    EXPECT_EQ(t[Packed(n, 1)], lower[Packed(n, 1)]);
  }
}

TEST(PackedTriangle, LTGltlOfAShortVectorDoesNothing) {
  Vector t = {1, 2};
  QVMathFun::LTGltl(2, t);
  EXPECT_THAT(t, ElementsAre(1, 2));
}

TEST(PackedTriangle, RVDTakesTheFullSymmetricRow) {
  for (const int n : {1, 2, 3, 7, 33}) {
    const Vector t = RandomVector(Packed(n, 0), 9);
    const Vector d = RandomVector(static_cast<std::size_t>(2 * n), 10);
    for (const int inc : {0, 1, 2}) {
      for (int row = 0; row < n; ++row) {
        double sum = 0.0;
        for (int j = 0; j < n; ++j) {
          sum +=
              t[Packed(std::max(row, j), std::min(row, j))] * d[static_cast<std::size_t>(j * inc)];
        }
        EXPECT_EQ(QVMathFun::RVD(t, n, row, d, inc), sum);
      }
    }
  }
}

TEST(PackedTriangle, RVDIsMissingForABadRow) {
  const Vector t = {1, 2, 3};
  const Vector d = {1, 1};
  EXPECT_TRUE(QVMV::IsMissing(QVMathFun::RVD(t, 0, 0, d, 1)));
  EXPECT_TRUE(QVMV::IsMissing(QVMathFun::RVD(t, 2, -1, d, 1)));
  EXPECT_TRUE(QVMV::IsMissing(QVMathFun::RVD(t, 2, 2, d, 1)));
  EXPECT_TRUE(QVMV::IsMissing(QVMathFun::RVD(t, 3, 0, d, 1)));
  EXPECT_TRUE(QVMV::IsMissing(QVMathFun::RVD(t, 2, 0, d, 2)));
  EXPECT_TRUE(QVMV::IsMissing(QVMathFun::RVD(t, 2, 0, d, -1)));
  EXPECT_TRUE(QVMV::IsMissing(QVMathFun::RVD(t, 2, 0, Vector(), 0)));
  EXPECT_EQ(QVMathFun::RVD(t, 2, 0, d, 1), 3.0);
}

TEST(PackedTriangle, VSVIsTheQuadraticForm) {
  EXPECT_EQ(QVMathFun::VSV({1, 2}, 2, {3, 4, 5}), 3.0 + 2.0 * 8.0 + 20.0);
  for (const int n : {1, 3, 7, 33}) {
    const Vector v = RandomVector(static_cast<std::size_t>(n), 11);
    const Vector s = RandomVector(Packed(n, 0), 12);
    double sum = 0.0;
    for (int i = 0; i < n; ++i) {
      for (int j = 0; j < n; ++j) {
        sum += v[static_cast<std::size_t>(i)] * s[Packed(std::max(i, j), std::min(i, j))] *
               v[static_cast<std::size_t>(j)];
      }
    }
    EXPECT_NEAR(QVMathFun::VSV(v, n, s), sum, 1e-14 * n * n);
  }
  EXPECT_EQ(QVMathFun::VSV({1, 2}, 0, {3, 4, 5}), 0.0);
  EXPECT_EQ(QVMathFun::VSV({1}, 2, {3, 4, 5}), 0.0);
  EXPECT_EQ(QVMathFun::VSV({1, 2}, 2, {3, 4}), 0.0);
}

// ---- Whole vectors ----

struct TwoLargest {
  double first = 0.0;
  double second = 0.0;
};

TwoLargest Largest(const Vector & v) {
  TwoLargest found;
  QVMathFun::FindTwoLargest(v, found.first, found.second);
  return found;
}

TwoLargest LargestNonMiss(const Vector & v) {
  TwoLargest found;
  QVMathFun::FindTwoLargestNonMiss(v, found.first, found.second);
  return found;
}

TEST(TwoLargest, AreFoundWhereverTheyStand) {
  for (const Vector & v : {Vector{1, 2, 9, 7}, Vector{9, 7, 1}, Vector{7, 9}, Vector{7, -1, 9}}) {
    EXPECT_EQ(Largest(v).first, 9.0);
    EXPECT_EQ(Largest(v).second, 7.0);
    EXPECT_EQ(LargestNonMiss(v).second, 7.0);
  }
  EXPECT_EQ(Largest({5, 1, 5}).second, 5.0);  // equal ones count apart
  EXPECT_EQ(Largest({-kInfinity, -1e308}).second, -kInfinity);
  EXPECT_EQ(Largest({kNaN, 3, kNaN, 4}).second, 3.0);
}

TEST(TwoLargest, WhatIsNotThereIsMissing) {
  EXPECT_TRUE(QVMV::IsMissing(Largest({}).first));
  EXPECT_TRUE(QVMV::IsMissing(Largest({}).second));
  EXPECT_EQ(Largest({-4}).first, -4.0);
  EXPECT_TRUE(QVMV::IsMissing(Largest({-4}).second));
  EXPECT_TRUE(QVMV::IsMissing(Largest({QVMV::Missing(), 3}).second));
}

TEST(TwoLargest, NonMissSkipsTheMissingValue) {
  EXPECT_EQ(LargestNonMiss({QVMV::Missing(), -kInfinity}).first, -kInfinity);
  EXPECT_TRUE(QVMV::IsMissing(LargestNonMiss({QVMV::Missing(), -kInfinity}).second));
  EXPECT_TRUE(QVMV::IsMissing(LargestNonMiss({QVMV::Missing(), QVMV::Missing()}).first));
  EXPECT_EQ(LargestNonMiss({1, QVMV::Missing(), 2}).second, 1.0);
  // As a plain number the missing value is above minus infinity.
  EXPECT_TRUE(QVMV::IsMissing(Largest({QVMV::Missing(), -kInfinity}).first));
  EXPECT_EQ(Largest({QVMV::Missing(), -kInfinity}).second, -kInfinity);
}

TEST(WholeVectors, LRZeroIncludesItsEnd) {
  Vector v = {1, 2, 3, 4, 5};
  QVMathFun::LRZero(v, 1, 3);
  EXPECT_THAT(v, ElementsAre(1, 0, 0, 0, 5));
  QVMathFun::LRZero(v, 4, 4);
  EXPECT_THAT(v, ElementsAre(1, 0, 0, 0, 0));
  QVMathFun::LRZero(v, 0, -1);
  QVMathFun::LRZero(v, 5, 9);
  EXPECT_EQ(v[0], 1.0);
  QVMathFun::LRZero(v, -3, 2147483647);
  EXPECT_THAT(v, ElementsAre(0, 0, 0, 0, 0));
}

TEST(WholeVectors, VMaxRelDiffIsRelativeToTheSecond) {
  EXPECT_EQ(QVMathFun::VMaxRelDiff({1, 2}, {2, 4}, 1.0), 2.0 / 5.0);
  EXPECT_EQ(QVMathFun::VMaxRelDiff({1, 2}, {2, 4}, -1.0), 2.0 / 5.0);
  EXPECT_EQ(QVMathFun::VMaxRelDiff({1}, {0}, 0.0), 1.0 / 1e-6);
  EXPECT_EQ(QVMathFun::VMaxRelDiff({1, 100}, {1}, 0.0), 0.0);
  EXPECT_EQ(QVMathFun::VMaxRelDiff({}, {1}, 0.0), 0.0);
}

TEST(WholeVectors, VNrm1DiffIsTheSumOfDifferences) {
  EXPECT_EQ(QVMathFun::VNrm1Diff({1, -2, 3}, {4, 2}), 7.0);
  EXPECT_EQ(QVMathFun::VNrm1Diff({}, {4, 2}), 0.0);
}

// ---- Single numbers ----

TEST(SingleNumbers, IsValidDoubleTakesTheMissingValue) {
  EXPECT_TRUE(QVMathFun::IsValidDouble(QVMV::Missing()));
  EXPECT_TRUE(QVMathFun::IsValidDouble(std::numeric_limits<double>::max()));
  EXPECT_TRUE(QVMathFun::IsValidDouble(0.0));
  EXPECT_FALSE(QVMathFun::IsValidDouble(kNaN));
  EXPECT_FALSE(QVMathFun::IsValidDouble(kInfinity));
  EXPECT_FALSE(QVMathFun::IsValidDouble(-kInfinity));
}

TEST(SingleNumbers, QLRepsIsStrict) {
  const double epsilon = 2.220446049250313e-16;
  EXPECT_FALSE(QVMathFun::QLReps(epsilon, 1.0));
  EXPECT_TRUE(QVMathFun::QLReps(std::nextafter(epsilon, 0.0), 1.0));
  EXPECT_TRUE(QVMathFun::QLReps(-epsilon, 2.0));
  EXPECT_FALSE(QVMathFun::QLReps(0.0, 0.0));
  EXPECT_FALSE(QVMathFun::QLReps(0.0, -1.0));
  EXPECT_TRUE(QVMathFun::QLReps(0.0, 1e-300));
}

TEST(SingleNumbers, ReplaceIfSmallKeepsTheSign) {
  EXPECT_EQ(QVMathFun::ReplaceIfSmall(-1e-30, 1e-12), -1e-12);
  EXPECT_EQ(QVMathFun::ReplaceIfSmall(1e-30, 1e-12), 1e-12);
  EXPECT_EQ(QVMathFun::ReplaceIfSmall(0.0, 1e-12), 1e-12);
  EXPECT_EQ(QVMathFun::ReplaceIfSmall(1e-12, 1e-12), 1e-12);
  EXPECT_EQ(QVMathFun::ReplaceIfSmall(-3.0, 1e-12), -3.0);
  EXPECT_EQ(QVMathFun::ReplaceIfSmall(-3.0, -1.0), -3.0);
  EXPECT_TRUE(std::isnan(QVMathFun::ReplaceIfSmall(kNaN, 1.0)));
}

}  // namespace
