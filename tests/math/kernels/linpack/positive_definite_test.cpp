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

/// The strict lower triangle is NaN: no routine may read it.
Matrix UpperWithNaN(const Matrix & a) {
  Matrix upper = a;
  for (int j = 0; j < a.Cols(); ++j) {
    for (int i = j + 1; i < a.Rows(); ++i)
      upper(i, j) = kNaN;
  }
  return upper;
}

bool LowerIsNaN(const Matrix & a) {
  for (int j = 0; j < a.Cols(); ++j) {
    for (int i = j + 1; i < a.Rows(); ++i) {
      if (!std::isnan(a(i, j))) return false;
    }
  }
  return true;
}

TEST(LinpackPositiveDefinite, FactorReassembles) {
  Source source(1);
  for (const int n : kOrders) {
    const Matrix a = PositiveDefinite(source, n);
    Matrix factor = UpperWithNaN(a);
    EXPECT_EQ(Linpack::Dpofa(factor.Data(), n, n), 0);
    EXPECT_TRUE(LowerIsNaN(factor));
    const Matrix r = UpperTriangle(factor);
    EXPECT_LT(Distance(a, Multiply(Transpose(r), r)), kThreshold) << n;
    for (int i = 0; i < n; ++i)
      EXPECT_GT(r(i, i), 0.0);
  }
}

TEST(LinpackPositiveDefinite, SolvesInvertsAndGivesTheDeterminant) {
  Source source(2);
  for (const int n : kOrders) {
    const Matrix a = PositiveDefinite(source, n);
    Matrix factor = UpperWithNaN(a);
    Linpack::Dpofa(factor.Data(), n, n);
    const std::vector<double> b = source.Vector(n);
    std::vector<double> x = b;
    Linpack::Dposl(factor.Data(), n, n, x.data());
    EXPECT_LT(SolveResidual(a, x, b), kThreshold) << n;

    double det[2];
    Matrix inverse = factor;
    Linpack::Dpodi(inverse.Data(), n, n, det, 10);
    EXPECT_TRUE(IsDeterminant(det, a)) << n;
    EXPECT_EQ(UpperTriangle(inverse), UpperTriangle(factor));
    Linpack::Dpodi(inverse.Data(), n, n, nullptr, 1);
    EXPECT_LT(InverseResidual(a, FromUpper(inverse)), kThreshold) << n;
    EXPECT_TRUE(LowerIsNaN(inverse));
    double both[2];
    Linpack::Dpodi(factor.Data(), n, n, both, 11);
    EXPECT_EQ(UpperTriangle(factor), UpperTriangle(inverse));
    EXPECT_EQ(both[0], det[0]);
    EXPECT_EQ(both[1], det[1]);
  }
}

TEST(LinpackPositiveDefinite, EstimateLiesAboveTheTrueReciprocalCondition) {
  Source source(3);
  for (const int n : {1, 2, 3, 7, 33, 65}) {
    for (int trial = 0; trial < 4; ++trial) {
      Matrix a = PositiveDefinite(source, n);
      if (trial == 3) {
        a = n <= 7 ? Hilbert(n) : a;
        for (int j = 0; j < n && n > 7; ++j) {
          for (int i = 0; i < n; ++i)
            a(i, j) *= std::pow(10.0, -4.0 * (i + j) / n);
        }
      }
      const double truth = TrueReciprocalCondition(a);
      Matrix factor = UpperWithNaN(a);
      std::vector<double> z(Count(n));
      int info = -7;
      const double estimate = Linpack::Dpoco(factor.Data(), n, n, z.data(), &info);
      EXPECT_EQ(info, 0);
      EXPECT_GE(estimate, truth * (1.0 - 1e-6)) << n << ' ' << trial;
      EXPECT_LE(estimate, truth * kEstimateFactor) << n << ' ' << trial;
      EXPECT_NEAR(Norm1(Multiply(a, z)) / (estimate * Norm1(a) * Norm1(z)), 1.0,
                  1e-10 + 10 * n * kEpsilon / estimate);
    }
  }
}

TEST(LinpackPositiveDefinite, EstimateChoosesTheRightHandSideThatGrows) {
  Source source(42);
  for (const int n : {7, 11, 15}) {
    for (int trial = 0; trial < 10; ++trial) {
      const Matrix r = Growing(source, n);
      Matrix a = Multiply(Transpose(r), r);
      const double truth = TrueReciprocalCondition(a);
      std::vector<double> z(Count(n));
      const double estimate = Linpack::Dpoco(a.Data(), n, n, z.data());
      EXPECT_GE(estimate, truth * (1.0 - 1e-4)) << n << ' ' << trial;
      EXPECT_LE(estimate, truth * 4.0) << n << ' ' << trial;
    }
  }
}

TEST(LinpackPositiveDefinite, TellsTheOrderOfTheFirstPartThatFails) {
  Source source(4);
  for (const int n : {1, 2, 3, 7, 33}) {
    for (const int bad : {0, n / 2, n - 1}) {
      Matrix a = PositiveDefinite(source, n);
      a(bad, bad) = -1.0;
      std::vector<double> packed = PackUpper(a);
      Matrix copy = a;
      EXPECT_EQ(Linpack::Dpofa(copy.Data(), n, n), bad + 1);
      EXPECT_EQ(Linpack::Dppfa(packed.data(), n), bad + 1);
    }
  }
  double zero[] = {0.0};
  EXPECT_EQ(Linpack::Dpofa(zero, 1, 1), 1);  // zero is not positive
}

TEST(LinpackPositiveDefinite, ConditionOfAnyOtherMatrixIsZero) {
  const Matrix a = [] {
    Matrix m = Identity(3);
    m(1, 1) = 0.0;
    return m;
  }();
  double z[3];
  int info = 0;
  Matrix full = a;
  EXPECT_EQ(Linpack::Dpoco(full.Data(), 3, 3, z, &info), 0.0);
  EXPECT_EQ(info, 2);
  std::vector<double> packed = PackUpper(a);
  EXPECT_EQ(Linpack::Dppco(packed.data(), 3, z, &info), 0.0);
  EXPECT_EQ(info, 2);
  double band[] = {1.0, 0.0, 1.0};
  info = 0;
  EXPECT_EQ(Linpack::Dpbco(band, 1, 3, 0, z, &info), 0.0);
  EXPECT_EQ(info, 2);
}

TEST(LinpackPositiveDefinite, TheShorterFormsDropInfo) {
  Source source(5);
  const Matrix a = PositiveDefinite(source, 7);
  double z[7];
  int info = 0;
  Matrix first = a;
  Matrix second = a;
  EXPECT_EQ(Linpack::Dpoco(first.Data(), 7, 7, z), Linpack::Dpoco(second.Data(), 7, 7, z, &info));
  EXPECT_EQ(first, second);
  std::vector<double> packed = PackUpper(a);
  std::vector<double> packedToo = packed;
  EXPECT_EQ(Linpack::Dppco(packed.data(), 7, z), Linpack::Dppco(packedToo.data(), 7, z, &info));
  EXPECT_EQ(Linpack::Dppco(PackUpper(a).data(), 7, z, nullptr),
            Linpack::Dppco(PackUpper(a).data(), 7, z));
  double band[] = {4.0, 9.0};
  double bandToo[] = {4.0, 9.0};
  EXPECT_EQ(Linpack::Dpbco(band, 1, 2, 0, z), Linpack::Dpbco(bandToo, 1, 2, 0, z, &info));
}

TEST(LinpackPositiveDefinitePacked, IsTheFullFormBitForBit) {
  Source source(6);
  for (const int n : kOrders) {
    const Matrix a = PositiveDefinite(source, n);
    Matrix full = a;
    std::vector<double> packed = PackUpper(a);
    std::vector<double> z(Count(n));
    std::vector<double> packedZ(Count(n));
    int info = -1;
    EXPECT_EQ(Linpack::Dppco(packed.data(), n, packedZ.data(), &info),
              Linpack::Dpoco(full.Data(), n, n, z.data()));
    EXPECT_EQ(info, 0);
    EXPECT_EQ(packedZ, z);
    EXPECT_EQ(packed, PackUpper(full));

    std::vector<double> onlyFactored = PackUpper(a);
    EXPECT_EQ(Linpack::Dppfa(onlyFactored.data(), n), 0);
    EXPECT_EQ(onlyFactored, packed);

    std::vector<double> x = source.Vector(n);
    std::vector<double> y = x;
    Linpack::Dposl(full.Data(), n, n, x.data());
    Linpack::Dppsl(packed.data(), n, y.data());
    EXPECT_EQ(x, y);

    for (const int job : {10, 1}) {
      double det[2] = {};
      double packedDet[2] = {};
      Linpack::Dpodi(full.Data(), n, n, det, job);
      Linpack::Dppdi(packed.data(), n, packedDet, job);
      EXPECT_EQ(packed, PackUpper(full));
      EXPECT_EQ(packedDet[0], det[0]);
      EXPECT_EQ(packedDet[1], det[1]);
    }
  }
}

struct BandPair {
  int n;
  int m;
  Matrix full;
  Matrix band;
};

std::vector<BandPair> Bands() {
  Source source(7);
  std::vector<BandPair> bands;
  for (const int n : kOrders) {
    for (const int m : {0, 1, 2, 5, n - 1}) {
      if (m >= n) continue;
      BandPair pair{n, m, Matrix(n, n), Matrix(m + 1, n, 1)};
      for (int j = 0; j < n; ++j) {
        for (int i = 0; i < pair.band.Lead(); ++i)
          pair.band(i, j) = kNaN;
        for (int i = std::max(0, j - m); i <= j; ++i) {
          pair.full(i, j) = pair.full(j, i) = source.Next() + (i == j ? 0.75 * m + 1.5 : 0.0);
          pair.band(m + i - j, j) = pair.full(i, j);
        }
      }
      bands.push_back(pair);
    }
  }
  return bands;
}

TEST(LinpackPositiveDefiniteBand, IsTheFullFormBitForBit) {
  Source source(8);
  for (BandPair & pair : Bands()) {
    const int n = pair.n;
    const int lead = pair.band.Lead();
    const Matrix a = pair.full;
    const int info = Linpack::Dpofa(pair.full.Data(), n, n);
    EXPECT_EQ(Linpack::Dpbfa(pair.band.Data(), lead, n, pair.m), info);
    ASSERT_EQ(info, 0) << n << ' ' << pair.m;
    for (int j = 0; j < n; ++j) {
      for (int i = std::max(0, j - pair.m); i <= j; ++i) {
        ASSERT_EQ(pair.band(pair.m + i - j, j), pair.full(i, j)) << n << ' ' << pair.m;
      }
      EXPECT_TRUE(std::isnan(pair.band(lead - 1, j)));
    }
    const std::vector<double> b = source.Vector(n);
    std::vector<double> x = b;
    Linpack::Dpbsl(pair.band.Data(), lead, n, pair.m, x.data());
    EXPECT_LT(SolveResidual(a, x, b), kThreshold);
    double det[2];
    double fullDet[2];
    Linpack::Dpbdi(pair.band.Data(), lead, n, pair.m, det);
    Linpack::Dpodi(pair.full.Data(), n, n, fullDet, 10);
    EXPECT_EQ(det[0], fullDet[0]);
    EXPECT_EQ(det[1], fullDet[1]);
  }
}

TEST(LinpackPositiveDefiniteBand, EstimateLiesAboveTheTrueReciprocalCondition) {
  for (BandPair & pair : Bands()) {
    if (pair.n > 33) continue;
    std::vector<double> z(Count(pair.n));
    int info = -1;
    const double truth = TrueReciprocalCondition(pair.full);
    const double estimate =
        Linpack::Dpbco(pair.band.Data(), pair.band.Lead(), pair.n, pair.m, z.data(), &info);
    EXPECT_EQ(info, 0);
    EXPECT_GE(estimate, truth * (1.0 - 1e-6)) << pair.n << ' ' << pair.m;
    EXPECT_LE(estimate, truth * kEstimateFactor) << pair.n << ' ' << pair.m;
    EXPECT_NEAR(Norm1(Multiply(pair.full, z)) / (estimate * Norm1(pair.full) * Norm1(z)), 1.0,
                1e-10);
  }
}

TEST(LinpackPositiveDefiniteBand, TellsTheOrderOfTheFirstPartThatFails) {
  for (BandPair & pair : Bands()) {
    for (const int bad : {0, pair.n / 2, pair.n - 1}) {
      Matrix band = pair.band;
      band(pair.m, bad) = 0.0;
      EXPECT_EQ(Linpack::Dpbfa(band.Data(), band.Lead(), pair.n, pair.m), bad + 1);
    }
  }
}

TEST(LinpackPositiveDefinite, ExtremeDiagonalsKeepTheDeterminant) {
  // The square of 1e200 is no double.
  double r[] = {1e200, 0.0, 0.0, 1e-190};
  double det[2];
  Linpack::Dpodi(r, 2, 2, det, 10);
  EXPECT_NEAR(std::log10(det[0]) + det[1], 20.0, 1e-9);
}

TEST(LinpackPositiveDefinite, OrderZeroDoesNothing) {
  int info = 5;
  EXPECT_EQ(Linpack::Dpofa(nullptr, 1, 0), 0);
  EXPECT_EQ(Linpack::Dpoco(nullptr, 1, 0, nullptr, &info), 0.0);
  EXPECT_EQ(info, 0);
  EXPECT_EQ(Linpack::Dppfa(nullptr, 0), 0);
  EXPECT_EQ(Linpack::Dppco(nullptr, 0, nullptr), 0.0);
  EXPECT_EQ(Linpack::Dpbfa(nullptr, 1, 0, 0), 0);
  EXPECT_EQ(Linpack::Dpbco(nullptr, 1, 0, 0, nullptr), 0.0);
  Linpack::Dposl(nullptr, 1, 0, nullptr);
  Linpack::Dppsl(nullptr, 0, nullptr);
  Linpack::Dpbsl(nullptr, 1, 0, 0, nullptr);
  Linpack::Dpodi(nullptr, 1, 0, nullptr, 1);
  Linpack::Dppdi(nullptr, 0, nullptr, 1);
}

}  // namespace
