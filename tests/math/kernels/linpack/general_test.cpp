#include <cmath>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Linpack.h"
#include "math/kernels/linpack/dense_reference.h"

using namespace linpack_test;
using QVMath_940::Linpack;

namespace {

/// The matrix that the multipliers, the exchanges and U were made from.
Matrix Reassemble(const Matrix & factor, const std::vector<int> & ipvt) {
  const int n = factor.Rows();
  Matrix a = UpperTriangle(factor);
  for (int k = n - 2; k >= 0; --k) {
    for (int j = 0; j < n; ++j) {
      for (int i = k + 1; i < n; ++i)
        a(i, j) -= factor(i, k) * a(k, j);
      std::swap(a(k, j), a(ipvt[Count(k)] - 1, j));
    }
  }
  return a;
}

TEST(LinpackGeneral, FactorReassembles) {
  Source source(1);
  for (const int n : kOrders) {
    const Matrix a = source.General(n, n);
    Matrix factor = a;
    std::vector<int> ipvt(Count(n));
    EXPECT_EQ(Linpack::Dgefa(factor.Data(), factor.Lead(), n, ipvt.data()), 0);
    EXPECT_LT(Distance(a, Reassemble(factor, ipvt)), kThreshold) << n;
    for (int k = 0; k < n; ++k) {
      EXPECT_GE(ipvt[Count(k)], k + 1);
      EXPECT_LE(ipvt[Count(k)], n);
      for (int i = k + 1; i < n; ++i)
        EXPECT_LE(std::fabs(factor(i, k)), 1.0);
    }
  }
}

TEST(LinpackGeneral, SmallFactorByHand) {
  // Row 2 comes to the front: U = (4 2; 0 2), multiplier -(2 / 4).
  double a[] = {2, 4, 3, 2};
  int ipvt[2] = {};
  EXPECT_EQ(Linpack::Dgefa(a, 2, 2, ipvt), 0);
  EXPECT_THAT(a, testing::ElementsAre(4, -0.5, 2, 2));
  EXPECT_THAT(ipvt, testing::ElementsAre(2, 2));
}

TEST(LinpackGeneral, SolvesWithAAndItsTranspose) {
  Source source(2);
  for (const int n : kOrders) {
    const Matrix a = source.General(n, n);
    const std::vector<double> b = source.Vector(n);
    Matrix factor = a;
    std::vector<int> ipvt(Count(n));
    Linpack::Dgefa(factor.Data(), n, n, ipvt.data());
    const Matrix kept = factor;
    for (const int job : {0, 1, 7, -1}) {
      std::vector<double> x = b;
      Linpack::Dgesl(factor.Data(), n, n, ipvt.data(), x.data(), job);
      EXPECT_LT(SolveResidual(job == 0 ? a : Transpose(a), x, b), kThreshold) << n;
    }
    EXPECT_EQ(factor, kept);
  }
}

TEST(LinpackGeneral, InverseAndDeterminant) {
  Source source(3);
  for (const int n : kOrders) {
    const Matrix a = source.General(n, n);
    Matrix factor = a;
    std::vector<int> ipvt(Count(n));
    std::vector<double> work(Count(n));
    Linpack::Dgefa(factor.Data(), n, n, ipvt.data());

    double det[2] = {};
    Matrix untouched = factor;
    Linpack::Dgedi(untouched.Data(), n, n, ipvt.data(), det, nullptr, 10);
    EXPECT_TRUE(IsDeterminant(det, a)) << n;
    EXPECT_EQ(untouched, factor);

    Matrix inverse = factor;
    Linpack::Dgedi(inverse.Data(), n, n, ipvt.data(), nullptr, work.data(), 1);
    EXPECT_LT(InverseResidual(a, inverse), kThreshold) << n;

    double both[2] = {};
    Linpack::Dgedi(factor.Data(), n, n, ipvt.data(), both, work.data(), 11);
    EXPECT_EQ(factor, inverse);
    EXPECT_EQ(both[0], det[0]);
    EXPECT_EQ(both[1], det[1]);
  }
}

TEST(LinpackGeneral, EstimateLiesAboveTheTrueReciprocalCondition) {
  Source source(4);
  for (const int n : {1, 2, 3, 7, 33, 65}) {
    for (int trial = 0; trial < 5; ++trial) {
      Matrix a = source.General(n, n);
      if (trial == 3 && n <= 7) a = Hilbert(n);
      if (trial == 4) {
        for (int j = 0; j < n; ++j) {
          for (int i = 0; i < n; ++i)
            a(i, j) *= std::pow(10.0, -10.0 * j / n);
        }
      }
      const double truth = TrueReciprocalCondition(a);
      Matrix factor = a;
      std::vector<int> ipvt(Count(n));
      std::vector<double> z(Count(n));
      const double estimate = Linpack::Dgeco(factor.Data(), n, n, ipvt.data(), z.data());
      EXPECT_GE(estimate, truth * (1.0 - 1e-6)) << n << ' ' << trial;
      EXPECT_LE(estimate, truth * kEstimateFactor) << n << ' ' << trial;
      // z is the vector that the estimate rests on: |A z| = rcond |A| |z|.
      EXPECT_NEAR(Norm1(Multiply(a, z)) / (estimate * Norm1(a) * Norm1(z)), 1.0,
                  1e-10 + 10 * n * kEpsilon / estimate);
    }
  }
}

TEST(LinpackGeneral, EstimateChoosesTheRightHandSideThatGrows) {
  Source source(40);
  for (const int n : {7, 15, 25}) {
    for (int trial = 0; trial < 10; ++trial) {
      Matrix a = Growing(source, n);
      if (trial % 2 == 1) a = Transpose(a);
      const double truth = TrueReciprocalCondition(a);
      std::vector<int> ipvt(Count(n));
      std::vector<double> z(Count(n));
      const double estimate = Linpack::Dgeco(a.Data(), n, n, ipvt.data(), z.data());
      EXPECT_GE(estimate, truth * (1.0 - 1e-6)) << n << ' ' << trial;
      EXPECT_LE(estimate, truth * 4.0) << n << ' ' << trial;
    }
  }
}

TEST(LinpackGeneral, SingularMatricesTellTheZeroPivot) {
  Source source(5);
  for (const int n : {1, 2, 3, 7, 33}) {
    for (const int zero : {0, n / 2, n - 1}) {
      Matrix a = source.General(n, n);
      for (int i = 0; i < n; ++i)
        a(i, zero) = 0.0;
      std::vector<int> ipvt(Count(n));
      std::vector<double> z(Count(n));
      Matrix factor = a;
      EXPECT_EQ(Linpack::Dgefa(factor.Data(), n, n, ipvt.data()), zero + 1);
      factor = a;
      const double rcond = Linpack::Dgeco(factor.Data(), n, n, ipvt.data(), z.data());
      EXPECT_EQ(1.0 + rcond, 1.0) << n << ' ' << zero;
      double det[2] = {};
      Linpack::Dgedi(factor.Data(), n, n, ipvt.data(), det, nullptr, 10);
      EXPECT_EQ(det[0], 0.0);
    }
  }
}

TEST(LinpackGeneral, TheLastOfSeveralZeroPivotsIsTold) {
  std::vector<double> a(9, 0.0);
  int ipvt[3] = {};
  double z[3] = {};
  EXPECT_EQ(Linpack::Dgefa(a.data(), 3, 3, ipvt), 3);
  EXPECT_THAT(ipvt, testing::ElementsAre(1, 2, 3));
  EXPECT_EQ(Linpack::Dgeco(a.data(), 3, 3, ipvt, z), 0.0);
}

TEST(LinpackGeneral, PaddingBelowTheColumnsIsLeftAlone) {
  Source source(6);
  constexpr int kOrder = 7;
  const Matrix tight = source.General(kOrder, kOrder);
  Matrix padded(kOrder, kOrder, 3);
  for (int j = 0; j < kOrder; ++j) {
    for (int i = 0; i < kOrder; ++i)
      padded(i, j) = tight(i, j);
    for (int i = kOrder; i < padded.Lead(); ++i)
      padded(i, j) = kNaN;
  }
  Matrix a = tight;
  int ipvt[kOrder];
  int paddedPivots[kOrder];
  double z[kOrder];
  double work[kOrder];
  double det[2];
  EXPECT_EQ(Linpack::Dgeco(padded.Data(), padded.Lead(), kOrder, paddedPivots, z),
            Linpack::Dgeco(a.Data(), kOrder, kOrder, ipvt, z));
  Linpack::Dgedi(padded.Data(), padded.Lead(), kOrder, paddedPivots, det, work, 11);
  Linpack::Dgedi(a.Data(), kOrder, kOrder, ipvt, det, work, 11);
  for (int j = 0; j < kOrder; ++j) {
    for (int i = 0; i < kOrder; ++i)
      EXPECT_EQ(padded(i, j), a(i, j));
    for (int i = kOrder; i < padded.Lead(); ++i)
      EXPECT_TRUE(std::isnan(padded(i, j)));
  }
}

TEST(LinpackGeneral, ALargeDeterminantKeepsItsExponentApart) {
  constexpr int kOrder = 4;
  double a[kOrder * kOrder] = {};
  int ipvt[kOrder];
  double det[2];
  for (const double size : {1e200, -1e-200, 20.0}) {
    for (int i = 0; i < kOrder * kOrder; ++i)
      a[i] = i % (kOrder + 1) == 0 ? size : 0.0;
    Linpack::Dgefa(a, kOrder, kOrder, ipvt);
    Linpack::Dgedi(a, kOrder, kOrder, ipvt, det, nullptr, 10);
    EXPECT_NEAR(std::log10(det[0]) + det[1], 4.0 * std::log10(std::fabs(size)), 1e-9);
    EXPECT_LT(det[0], 10.0);
    EXPECT_GE(det[0], 1.0 - 1e-9);
  }
}

TEST(LinpackGeneral, DeterminantsAreNormalisedToOneDigit) {
  const int ipvt[1] = {1};
  double det[2];
  const double values[][3] = {
      {10.0, 1.0, 1.0}, {1.0, 1.0, 0.0}, {-100.0, -1.0, 2.0}, {0.125, 1.25, -1.0}, {9.5, 9.5, 0.0}};
  for (const double * value : values) {
    double a = value[0];
    Linpack::Dgedi(&a, 1, 1, ipvt, det, nullptr, 10);
    EXPECT_EQ(det[0], value[1]);
    EXPECT_EQ(det[1], value[2]);
  }
}

TEST(LinpackGeneral, InfiniteAndUndefinedDeterminantsEnd) {
  double det[2];
  int ipvt[1] = {1};
  for (double value : {kNaN, std::numeric_limits<double>::infinity()}) {
    Linpack::Dgedi(&value, 1, 1, ipvt, det, nullptr, 10);
    EXPECT_FALSE(std::isfinite(det[0]));
  }
}

TEST(LinpackGeneral, OrderZeroDoesNothing) {
  EXPECT_EQ(Linpack::Dgefa(nullptr, 1, 0, nullptr), 0);
  EXPECT_EQ(Linpack::Dgeco(nullptr, 1, 0, nullptr, nullptr), 0.0);
  Linpack::Dgesl(nullptr, 1, 0, nullptr, nullptr, 0);
  Linpack::Dgesl(nullptr, 1, 0, nullptr, nullptr, 1);
  Linpack::Dgedi(nullptr, 1, 0, nullptr, nullptr, nullptr, 1);
}

}  // namespace
