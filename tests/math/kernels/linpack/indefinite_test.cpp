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

/// Random matrices, some with a zero diagonal, which forces pivots of order 2.
std::vector<Matrix> Matrices() {
  Source source(1);
  std::vector<Matrix> matrices;
  for (const int n : kOrders) {
    matrices.push_back(source.Symmetric(n));
    if (n < 2) continue;
    Matrix hollow = source.Symmetric(n);
    for (int i = 0; i < n; ++i)
      hollow(i, i) = 0.0;
    if (n != 3) matrices.push_back(hollow);
    Matrix graded = source.Symmetric(n);
    for (int j = 0; j < n; ++j) {
      for (int i = 0; i < n; ++i)
        graded(i, j) *= std::pow(10.0, -3.0 * (i + j) / n);
    }
    matrices.push_back(graded);
  }
  return matrices;
}

TEST(LinpackIndefinite, Solves) {
  Source source(2);
  for (const Matrix & a : Matrices()) {
    const int n = a.Rows();
    Matrix factor = UpperWithNaN(a);
    std::vector<int> kpvt(Count(n));
    EXPECT_EQ(Linpack::Dsifa(factor.Data(), n, n, kpvt.data()), 0);
    const std::vector<double> b = source.Vector(n);
    std::vector<double> x = b;
    Linpack::Dsisl(factor.Data(), n, n, kpvt.data(), x.data());
    EXPECT_LT(SolveResidual(a, x, b), kThreshold) << n;
  }
}

TEST(LinpackIndefinite, InverseAndDeterminant) {
  for (const Matrix & a : Matrices()) {
    const int n = a.Rows();
    Matrix factor = UpperWithNaN(a);
    std::vector<int> kpvt(Count(n));
    std::vector<double> work(Count(n));
    Linpack::Dsifa(factor.Data(), n, n, kpvt.data());
    double det[2];
    Matrix inverse = factor;
    Linpack::Dsidi(inverse.Data(), n, n, kpvt.data(), det, nullptr, nullptr, 10);
    EXPECT_TRUE(IsDeterminant(det, a)) << n;
    EXPECT_EQ(UpperTriangle(inverse), UpperTriangle(factor));
    Linpack::Dsidi(inverse.Data(), n, n, kpvt.data(), nullptr, nullptr, work.data(), 1);
    EXPECT_LT(InverseResidual(a, FromUpper(inverse)), kThreshold) << n;
    for (int j = 0; j < n; ++j) {
      for (int i = j + 1; i < n; ++i)
        ASSERT_TRUE(std::isnan(inverse(i, j)));
    }
    double both[2];
    int inert[3];
    Linpack::Dsidi(factor.Data(), n, n, kpvt.data(), both, inert, work.data(), 111);
    EXPECT_EQ(UpperTriangle(factor), UpperTriangle(inverse));
    EXPECT_EQ(both[0], det[0]);
    EXPECT_EQ(both[1], det[1]);
    EXPECT_EQ(inert[0] + inert[1], n);
    EXPECT_EQ(inert[2], 0);
    // The sign of the determinant is that of the negative eigenvalues together.
    EXPECT_EQ(det[0] < 0.0, inert[1] % 2 == 1);
  }
}

TEST(LinpackIndefinite, InertiaFollowsSylvestersLaw) {
  // S-transpose D S has as many eigenvalues of each sign as the diagonal matrix D.
  Source source(3);
  for (const int n : {1, 2, 3, 7, 33}) {
    for (const int negative : {0, n / 3, n / 2, n}) {
      const Matrix s = source.General(n, n);
      Matrix d(n, n);
      for (int i = 0; i < n; ++i)
        d(i, i) = i < negative ? -1.0 : 1.0;
      const Matrix a = FromUpper(Multiply(Transpose(s), Multiply(d, s)));
      Matrix factor = a;
      std::vector<int> kpvt(Count(n));
      int inert[3] = {-1, -1, -1};
      Linpack::Dsifa(factor.Data(), n, n, kpvt.data());
      Linpack::Dsidi(factor.Data(), n, n, kpvt.data(), nullptr, inert, nullptr, 100);
      EXPECT_THAT(inert, testing::ElementsAre(n - negative, negative, 0)) << n;
    }
  }
}

TEST(LinpackIndefinite, AHollowPairIsOneBlock) {
  double a[] = {0.0, kNaN, 2.0, 0.0};
  int kpvt[2] = {};
  EXPECT_EQ(Linpack::Dsifa(a, 2, 2, kpvt), 0);
  EXPECT_THAT(kpvt, testing::ElementsAre(-1, -1));
  double b[] = {4.0, 6.0};
  Linpack::Dsisl(a, 2, 2, kpvt, b);
  EXPECT_EQ(b[0], 3.0);
  EXPECT_EQ(b[1], 2.0);
  int inert[3];
  double det[2];
  Linpack::Dsidi(a, 2, 2, kpvt, det, inert, nullptr, 110);
  EXPECT_THAT(inert, testing::ElementsAre(1, 1, 0));
  EXPECT_THAT(det, testing::ElementsAre(-4.0, 0.0));
}

TEST(LinpackIndefinite, PivotListNamesItsBlocks) {
  for (const Matrix & a : Matrices()) {
    const int n = a.Rows();
    Matrix factor = a;
    std::vector<int> kpvt(Count(n));
    Linpack::Dsifa(factor.Data(), n, n, kpvt.data());
    int k = 0;
    while (k < n) {
      ASSERT_NE(kpvt[Count(k)], 0);
      if (kpvt[Count(k)] > 0) {
        EXPECT_LE(kpvt[Count(k)], k + 1);
        ++k;
      } else {
        ASSERT_LT(k + 1, n);
        EXPECT_EQ(kpvt[Count(k)], kpvt[Count(k + 1)]);
        EXPECT_LE(-kpvt[Count(k)], k + 1);
        k += 2;
      }
    }
  }
}

TEST(LinpackIndefinite, EstimateLiesAboveTheTrueReciprocalCondition) {
  for (const Matrix & a : Matrices()) {
    const int n = a.Rows();
    if (n > 33) continue;
    const double truth = TrueReciprocalCondition(a);
    Matrix factor = UpperWithNaN(a);
    std::vector<int> kpvt(Count(n));
    std::vector<double> z(Count(n));
    const double estimate = Linpack::Dsico(factor.Data(), n, n, kpvt.data(), z.data());
    EXPECT_GE(estimate, truth * (1.0 - 1e-6)) << n;
    EXPECT_LE(estimate, truth * kEstimateFactor) << n;
    EXPECT_NEAR(Norm1(Multiply(a, z)) / (estimate * Norm1(a) * Norm1(z)), 1.0,
                1e-9 + 10 * n * kEpsilon / estimate)
        << n;
  }
}

TEST(LinpackIndefinite, EstimateHoldsForGrowingAndForTinyPivots) {
  Source source(43);
  for (const int n : {7, 11, 15}) {
    for (int trial = 0; trial < 10; ++trial) {
      const Matrix r = Growing(source, n);
      Matrix d(n, n);
      for (int i = 0; i < n; ++i)
        d(i, i) = source.Next() < 0.0 ? -1.0 : 1.0;
      if (trial >= 5) d(trial - 4, trial - 4) = 1e-6;
      const Matrix a = FromUpper(Multiply(Transpose(r), Multiply(d, r)));
      const double truth = TrueReciprocalCondition(a);
      Matrix factor = a;
      std::vector<int> kpvt(Count(n));
      std::vector<double> z(Count(n));
      const double estimate = Linpack::Dsico(factor.Data(), n, n, kpvt.data(), z.data());
      EXPECT_GE(estimate, truth * (1.0 - 1e-4)) << n << ' ' << trial;
      EXPECT_LE(estimate, truth * kEstimateFactor) << n << ' ' << trial;
    }
  }
}

TEST(LinpackIndefinite, ThePivotIsChosenByItsFourTests) {
  // The last column has its largest element, 1, in row 1; the largest of that row is 10.
  const double alpha = (1.0 + std::sqrt(17.0)) / 8.0;
  const auto pivots = [](double first, double last) {
    std::vector<double> ap = {first, 10.0, 0.0, 1.0, 0.0, last};
    std::vector<int> kpvt(3);
    Linpack::Dspfa(ap.data(), 3, kpvt.data());
    return kpvt;
  };
  EXPECT_EQ(pivots(0.0, alpha)[2], 3);               // large enough by itself
  EXPECT_EQ(pivots(8.0, 0.5)[2], 1);                 // the other diagonal is
  EXPECT_EQ(pivots(0.0, 0.5)[2], 3);                 // large enough for so large a row
  EXPECT_EQ(pivots(0.0, 0.9 * alpha * 0.1)[2], -1);  // none is: a block of order 2
  EXPECT_EQ(pivots(0.0, 0.9 * alpha * 0.1)[1], -1);
}

TEST(LinpackIndefinite, SingularMatricesTellTheZeroBlock) {
  Source source(4);
  for (const int n : {1, 2, 3, 7, 33}) {
    for (const int zero : {0, n / 2, n - 1}) {
      Matrix a = source.Symmetric(n);
      for (int i = 0; i < n; ++i)
        a(i, zero) = a(zero, i) = 0.0;
      std::vector<int> kpvt(Count(n));
      std::vector<double> z(Count(n));
      Matrix factor = a;
      const int info = Linpack::Dsifa(factor.Data(), n, n, kpvt.data());
      EXPECT_GE(info, 1) << n << ' ' << zero;
      EXPECT_EQ(factor(info - 1, info - 1), 0.0);
      EXPECT_TRUE(zero != n - 1 || info == n);
      int inert[3];
      double det[2];
      Linpack::Dsidi(factor.Data(), n, n, kpvt.data(), det, inert, nullptr, 110);
      EXPECT_EQ(inert[2], 1);
      EXPECT_EQ(det[0], 0.0);
      EXPECT_EQ(1.0 + Linpack::Dsico(a.Data(), n, n, kpvt.data(), z.data()), 1.0);
    }
  }
  double zero[] = {0.0, 0.0, 0.0, 0.0};
  int kpvt[2];
  double z[2];
  EXPECT_EQ(Linpack::Dsifa(zero, 2, 2, kpvt), 1);  // the last found, from the end
  EXPECT_EQ(Linpack::Dsico(zero, 2, 2, kpvt, z), 0.0);
}

TEST(LinpackIndefinitePacked, IsTheFullFormBitForBit) {
  Source source(5);
  for (const Matrix & a : Matrices()) {
    const int n = a.Rows();
    Matrix full = a;
    std::vector<double> packed = PackUpper(a);
    std::vector<int> kpvt(Count(n));
    std::vector<int> packedPivots(Count(n));
    std::vector<double> z(Count(n));
    std::vector<double> packedZ(Count(n));
    EXPECT_EQ(Linpack::Dspco(packed.data(), n, packedPivots.data(), packedZ.data()),
              Linpack::Dsico(full.Data(), n, n, kpvt.data(), z.data()));
    EXPECT_EQ(packed, PackUpper(full));
    EXPECT_EQ(packedPivots, kpvt);
    EXPECT_EQ(packedZ, z);

    std::vector<double> onlyFactored = PackUpper(a);
    EXPECT_EQ(Linpack::Dspfa(onlyFactored.data(), n, packedPivots.data()), 0);
    EXPECT_EQ(onlyFactored, packed);
    EXPECT_EQ(packedPivots, kpvt);

    const std::vector<double> b = source.Vector(n);
    std::vector<double> x = b;
    std::vector<double> y = b;
    Linpack::Dsisl(full.Data(), n, n, kpvt.data(), x.data());
    Linpack::Dspsl(packed.data(), n, kpvt.data(), y.data());
    EXPECT_EQ(x, y);
    EXPECT_LT(SolveResidual(a, y, b), kThreshold);

    std::vector<double> work(Count(n));
    for (const int job : {110, 1}) {
      double det[2] = {};
      double packedDet[2] = {};
      int inert[3] = {};
      int packedInert[3] = {};
      Linpack::Dsidi(full.Data(), n, n, kpvt.data(), det, inert, work.data(), job);
      Linpack::Dspdi(packed.data(), n, kpvt.data(), packedDet, packedInert, work.data(), job);
      EXPECT_EQ(packed, PackUpper(full));
      for (int i = 0; i < 2; ++i)
        EXPECT_EQ(packedDet[i], det[i]);
      for (int i = 0; i < 3; ++i)
        EXPECT_EQ(packedInert[i], inert[i]);
    }
  }
}

TEST(LinpackIndefinitePacked, SingularMatrixTellsItsZeroBlock) {
  std::vector<double> ap = {1.0, 0.0, 0.0};  // diag(1, 0)
  int kpvt[2];
  double z[2];
  std::vector<double> copy = ap;
  EXPECT_EQ(Linpack::Dspfa(ap.data(), 2, kpvt), 2);
  EXPECT_EQ(Linpack::Dspco(copy.data(), 2, kpvt, z), 0.0);
  int inert[3];
  Linpack::Dspdi(ap.data(), 2, kpvt, nullptr, inert, nullptr, 100);
  EXPECT_THAT(inert, testing::ElementsAre(1, 0, 1));
}

TEST(LinpackIndefinite, UndefinedElementsStayWithinTheArrays) {
  Source source(6);
  for (int bad = 0; bad < 7; ++bad) {
    for (const double value : {kNaN, std::numeric_limits<double>::infinity()}) {
      Matrix a(7, 7);
      a(bad, bad) = value;
      std::vector<double> ap = PackUpper(a);
      int kpvt[7];
      double z[7];
      double det[2];
      int inert[3];
      double work[7];
      Linpack::Dspco(ap.data(), 7, kpvt, z);
      Linpack::Dspdi(ap.data(), 7, kpvt, det, inert, work, 111);
      EXPECT_EQ(inert[0] + inert[1] + inert[2], 7);
    }
  }
}

TEST(LinpackIndefinite, OrderZeroDoesNothing) {
  EXPECT_EQ(Linpack::Dsifa(nullptr, 1, 0, nullptr), 0);
  EXPECT_EQ(Linpack::Dsico(nullptr, 1, 0, nullptr, nullptr), 0.0);
  EXPECT_EQ(Linpack::Dspfa(nullptr, 0, nullptr), 0);
  EXPECT_EQ(Linpack::Dspco(nullptr, 0, nullptr, nullptr), 0.0);
  Linpack::Dsisl(nullptr, 1, 0, nullptr, nullptr);
  Linpack::Dspsl(nullptr, 0, nullptr, nullptr);
  int inert[3] = {4, 4, 4};
  Linpack::Dspdi(nullptr, 0, nullptr, nullptr, inert, nullptr, 101);
  EXPECT_THAT(inert, testing::ElementsAre(0, 0, 0));
}

}  // namespace
