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

/// A well-conditioned triangle, with zeroes on the other side.
Matrix Triangle(Source & source, int n, bool upper) {
  Matrix t(n, n);
  for (int j = 0; j < n; ++j) {
    for (int i = 0; i < n; ++i) {
      if (i == j) t(i, j) = source.Next() < 0.0 ? -1.5 : 2.0;
      if (upper ? i < j : i > j) t(i, j) = source.Next() / std::sqrt(n);
    }
  }
  return t;
}

/// The same with NaN on the other side, which no routine may read.
Matrix WithNaN(const Matrix & t, bool upper) {
  Matrix marked = t;
  for (int j = 0; j < t.Cols(); ++j) {
    for (int i = 0; i < t.Rows(); ++i) {
      if (upper ? i > j : i < j) marked(i, j) = kNaN;
    }
  }
  return marked;
}

Matrix WithoutNaN(const Matrix & t, bool upper) {
  Matrix clean = t;
  for (int j = 0; j < t.Cols(); ++j) {
    for (int i = 0; i < t.Rows(); ++i) {
      if (upper ? i <= j : i >= j) continue;
      EXPECT_TRUE(std::isnan(t(i, j)));
      clean(i, j) = 0.0;
    }
  }
  return clean;
}

TEST(LinpackTriangular, SolvesAllFourSystems) {
  Source source(1);
  for (const int n : kOrders) {
    for (const bool upper : {false, true}) {
      const Matrix t = Triangle(source, n, upper);
      const Matrix marked = WithNaN(t, upper);
      const std::vector<double> b = source.Vector(n);
      for (const bool transposed : {false, true}) {
        std::vector<double> x = b;
        const int job = (transposed ? 10 : 0) + (upper ? 1 : 0);
        EXPECT_EQ(Linpack::Dtrsl(marked.Data(), n, n, x.data(), job), 0);
        EXPECT_LT(SolveResidual(transposed ? Transpose(t) : t, x, b), kThreshold) << n << job;
      }
    }
  }
}

TEST(LinpackTriangular, SolveTellsTheFirstZeroAndLeavesB) {
  Source source(2);
  Matrix t = Triangle(source, 7, true);
  t(3, 3) = 0.0;
  t(5, 5) = 0.0;
  for (const int job : {0, 1, 10, 11}) {
    std::vector<double> b = {1, 2, 3, 4, 5, 6, 7};
    EXPECT_EQ(Linpack::Dtrsl(t.Data(), 7, 7, b.data(), job), 4);
    EXPECT_THAT(b, testing::ElementsAre(1, 2, 3, 4, 5, 6, 7));
  }
}

TEST(LinpackTriangular, InverseAndDeterminant) {
  Source source(3);
  for (const int n : kOrders) {
    for (const bool upper : {false, true}) {
      const Matrix t = Triangle(source, n, upper);
      const int kind = upper ? 1 : 0;
      Matrix inverse = WithNaN(t, upper);
      double det[2];
      EXPECT_EQ(Linpack::Dtrdi(inverse.Data(), n, n, det, 100 + kind), 0);
      EXPECT_TRUE(IsDeterminant(det, t)) << n;
      EXPECT_EQ(WithoutNaN(inverse, upper), t);
      EXPECT_EQ(Linpack::Dtrdi(inverse.Data(), n, n, nullptr, 10 + kind), 0);
      EXPECT_LT(InverseResidual(t, WithoutNaN(inverse, upper)), kThreshold) << n;
      Matrix again = WithNaN(t, upper);
      double both[2];
      EXPECT_EQ(Linpack::Dtrdi(again.Data(), n, n, both, 110 + kind), 0);
      EXPECT_EQ(WithoutNaN(again, upper), WithoutNaN(inverse, upper));
      EXPECT_EQ(both[0], det[0]);
      EXPECT_EQ(both[1], det[1]);
    }
  }
}

TEST(LinpackTriangular, InverseStopsAtAZero) {
  Matrix t = Identity(5);
  t(1, 1) = 0.0;
  t(3, 3) = 0.0;
  double det[2];
  Matrix upper = t;
  Matrix lower = t;
  EXPECT_EQ(Linpack::Dtrdi(upper.Data(), 5, 5, det, 111), 2);  // from the front
  EXPECT_EQ(det[0], 0.0);
  EXPECT_EQ(Linpack::Dtrdi(lower.Data(), 5, 5, det, 110), 4);  // from the end
  EXPECT_EQ(Linpack::Dtrdi(t.Data(), 5, 5, det, 101), 0);      // no inverse, no complaint
}

TEST(LinpackTriangular, EstimateLiesAboveTheTrueReciprocalCondition) {
  Source source(4);
  for (const int n : {1, 2, 3, 7, 33, 65}) {
    for (const bool upper : {false, true}) {
      for (const double scale : {1.0, 1e-3}) {
        Matrix t = Triangle(source, n, upper);
        t(n / 2, n / 2) *= scale;
        const double truth = TrueReciprocalCondition(t);
        const Matrix marked = WithNaN(t, upper);
        std::vector<double> z(Count(n));
        const double estimate = Linpack::Dtrco(marked.Data(), n, n, z.data(), upper ? 1 : 0);
        EXPECT_GE(estimate, truth * (1.0 - 1e-6)) << n;
        EXPECT_LE(estimate, truth * kEstimateFactor) << n;
        EXPECT_NEAR(Norm1(Multiply(t, z)) / (estimate * Norm1(t) * Norm1(z)), 1.0, 1e-9);
      }
    }
  }
}

TEST(LinpackTriangular, EstimateChoosesTheRightHandSideThatGrows) {
  Source source(41);
  for (const int n : {7, 15, 25}) {
    for (int trial = 0; trial < 10; ++trial) {
      const bool upper = trial % 2 == 0;
      const Matrix t = upper ? Growing(source, n) : Transpose(Growing(source, n));
      const double truth = TrueReciprocalCondition(t);
      std::vector<double> z(Count(n));
      const double estimate = Linpack::Dtrco(t.Data(), n, n, z.data(), upper ? 1 : 0);
      EXPECT_GE(estimate, truth * (1.0 - 1e-6)) << n << ' ' << trial;
      EXPECT_LE(estimate, truth * 4.0) << n << ' ' << trial;
    }
  }
}

TEST(LinpackTriangular, ConditionOfASingularTriangle) {
  Matrix t = Identity(4);
  double z[4];
  for (int zero = 0; zero < 4; ++zero) {
    t = Identity(4);
    t(zero, zero) = 0.0;
    EXPECT_EQ(1.0 + Linpack::Dtrco(t.Data(), 4, 4, z, 0), 1.0);
    EXPECT_EQ(1.0 + Linpack::Dtrco(t.Data(), 4, 4, z, 1), 1.0);
  }
  double none[4] = {};
  EXPECT_EQ(Linpack::Dtrco(none, 2, 2, z, 0), 0.0);
}

TEST(LinpackTriangular, OrderZeroDoesNothing) {
  EXPECT_EQ(Linpack::Dtrsl(nullptr, 1, 0, nullptr, 0), 0);
  EXPECT_EQ(Linpack::Dtrco(nullptr, 1, 0, nullptr, 0), 0.0);
  EXPECT_EQ(Linpack::Dtrdi(nullptr, 1, 0, nullptr, 11), 0);
}

// ---- Tridiagonal systems ----

struct Tridiagonal {
  std::vector<double> c;
  std::vector<double> d;
  std::vector<double> e;
  Matrix Full() const {
    const int n = static_cast<int>(d.size());
    Matrix a(n, n);
    for (int i = 0; i < n; ++i) {
      a(i, i) = d[Count(i)];
      if (i > 0) a(i, i - 1) = c[Count(i)];
      if (i + 1 < n) a(i, i + 1) = e[Count(i)];
    }
    return a;
  }
};

TEST(LinpackTridiagonal, GeneralSystemsAreSolvedWithPivoting) {
  Source source(5);
  for (const int n : kOrders) {
    for (int trial = 0; trial < 3; ++trial) {
      Tridiagonal t{source.Vector(n), source.Vector(n), source.Vector(n)};
      if (trial == 1 && n % 2 == 0) std::fill(t.d.begin(), t.d.end(), 0.0);
      if (trial == 2) {
        for (double & d : t.d)
          d += 3.0;
      }
      const Matrix a = t.Full();
      const std::vector<double> b = source.Vector(n);
      std::vector<double> x = b;
      t.c[0] = kNaN;  // not used
      t.e[Count(n - 1)] = kNaN;
      EXPECT_EQ(Linpack::Dgtsl(n, t.c.data(), t.d.data(), t.e.data(), x.data()), 0) << n;
      EXPECT_LT(SolveResidual(a, x, b), kThreshold) << n << ' ' << trial;
    }
  }
}

TEST(LinpackTridiagonal, SingularSystemsTellTheZeroPivot) {
  for (const int n : {1, 2, 3, 7}) {
    for (int zero = 0; zero < n; ++zero) {
      std::vector<double> c(Count(n), 0.0);
      std::vector<double> d(Count(n), 2.0);
      std::vector<double> e(Count(n), 0.0);
      std::vector<double> b(Count(n), 1.0);
      d[Count(zero)] = 0.0;
      EXPECT_EQ(Linpack::Dgtsl(n, c.data(), d.data(), e.data(), b.data()), zero + 1);
    }
  }
}

TEST(LinpackTridiagonal, PositiveDefiniteSystemsAreSolvedFromBothEnds) {
  Source source(6);
  for (const int n : {1, 2, 3, 4, 5, 6, 7, 8, 33, 64, 129}) {
    Tridiagonal t;
    t.e = source.Vector(n);
    t.c = t.e;
    std::rotate(t.c.begin(), t.c.end() - 1, t.c.end());
    t.d = source.Vector(n);
    for (double & d : t.d)
      d = std::fabs(d) + 2.0;
    const Matrix a = t.Full();
    const std::vector<double> b = source.Vector(n);
    std::vector<double> x = b;
    const std::vector<double> e(t.e.begin(), t.e.end() - 1);  // n - 1 places are enough
    Linpack::Dptsl(n, t.d.data(), e.data(), x.data());
    EXPECT_LT(SolveResidual(a, x, b), kThreshold) << n;
  }
}

TEST(LinpackTridiagonal, OrderZeroDoesNothing) {
  EXPECT_EQ(Linpack::Dgtsl(0, nullptr, nullptr, nullptr, nullptr), 0);
  Linpack::Dptsl(0, nullptr, nullptr, nullptr);
}

}  // namespace
