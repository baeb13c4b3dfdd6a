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

/// An upper triangular factor, NaN below the diagonal.
Matrix Factor(Source & source, int p) {
  Matrix r(p, p);
  for (int j = 0; j < p; ++j) {
    for (int i = 0; i < p; ++i) {
      r(i, j) = i > j ? kNaN : i == j ? 1.5 + std::fabs(source.Next()) : source.Next();
    }
  }
  return r;
}

Matrix Gram(const Matrix & r) {
  const Matrix upper = UpperTriangle(r);
  return Multiply(Transpose(upper), upper);
}

Matrix AddOuter(const Matrix & a, const std::vector<double> & x, const std::vector<double> & y,
                double sign) {
  Matrix sum = a;
  for (int j = 0; j < a.Cols(); ++j) {
    for (int i = 0; i < a.Rows(); ++i)
      sum(i, j) += sign * x[Count(i)] * y[Count(j)];
  }
  return sum;
}

bool LowerIsNaN(const Matrix & r) {
  for (int j = 0; j < r.Cols(); ++j) {
    for (int i = j + 1; i < r.Rows(); ++i) {
      if (!std::isnan(r(i, j))) return false;
    }
  }
  return true;
}

/// z-transpose z plus rho squared: the squared length of each right-hand side.
double SquaredLength(const Matrix & z, int j, double rho) {
  double sum = rho * rho;
  for (int i = 0; i < z.Rows(); ++i)
    sum += z(i, j) * z(i, j);
  return sum;
}

constexpr int kRightHandSides = 3;

TEST(LinpackCholeskyUpdate, AddsARow) {
  Source source(1);
  for (const int p : kOrders) {
    const Matrix r = Factor(source, p);
    const Matrix z = source.General(p, kRightHandSides);
    const std::vector<double> x = source.Vector(p);
    const std::vector<double> y = source.Vector(kRightHandSides);
    const std::vector<double> rho = {0.0, 2.0, -4.0};
    std::vector<double> newRho = rho;
    Matrix newR = r;
    Matrix newZ = z;
    std::vector<double> c(Count(p));
    std::vector<double> s(Count(p));
    Linpack::Dchud(newR.Data(), p, p, x.data(), newZ.Data(), p, kRightHandSides, y.data(),
                   newRho.data(), c.data(), s.data());
    EXPECT_TRUE(LowerIsNaN(newR));
    EXPECT_LT(Distance(AddOuter(Gram(r), x, x, 1.0), Gram(newR)), kThreshold) << p;
    const Matrix product = Multiply(Transpose(UpperTriangle(r)), z);
    const Matrix newProduct = Multiply(Transpose(UpperTriangle(newR)), newZ);
    EXPECT_LT(Distance(AddOuter(product, x, y, 1.0), newProduct), kThreshold) << p;
    for (int j = 0; j < 2; ++j) {
      const double y2 = y[Count(j)] * y[Count(j)];
      EXPECT_NEAR(SquaredLength(newZ, j, newRho[Count(j)]), SquaredLength(z, j, rho[Count(j)]) + y2,
                  1e-13 * p);
    }
    EXPECT_EQ(newRho[2], -4.0);  // negative norms are left alone
    for (int i = 0; i < p; ++i) {
      EXPECT_NEAR(c[Count(i)] * c[Count(i)] + s[Count(i)] * s[Count(i)], 1.0, 1e-14);
    }
  }
}

TEST(LinpackCholeskyUpdate, AnUpdatedDiagonalMayTurnNegative) {
  double r[] = {1.0};
  const double x[] = {-5.0};
  double c[1];
  double s[1];
  Linpack::Dchud(r, 1, 1, x, nullptr, 1, 0, nullptr, nullptr, c, s);
  EXPECT_LT(r[0], 0.0);
  EXPECT_NEAR(r[0] * r[0], 26.0, 1e-13);
}

TEST(LinpackCholeskyUpdate, TakesARowOut) {
  Source source(2);
  for (const int p : kOrders) {
    const Matrix r = Factor(source, p);
    const Matrix z = source.General(p, kRightHandSides);
    const std::vector<double> x = source.Vector(p);
    const std::vector<double> y = source.Vector(kRightHandSides);
    std::vector<double> rho = {1.0, 2.0, 3.0};
    Matrix newR = r;
    Matrix newZ = z;
    std::vector<double> c(Count(p));
    std::vector<double> s(Count(p));
    // Up and down again: the Gram matrix comes back.
    Linpack::Dchud(newR.Data(), p, p, x.data(), newZ.Data(), p, kRightHandSides, y.data(),
                   rho.data(), c.data(), s.data());
    EXPECT_EQ(Linpack::Dchdd(newR.Data(), p, p, x.data(), newZ.Data(), p, kRightHandSides, y.data(),
                             rho.data(), c.data(), s.data()),
              0);
    EXPECT_TRUE(LowerIsNaN(newR));
    EXPECT_LT(Distance(Gram(r), Gram(newR)), kThreshold) << p;
    EXPECT_LT(Distance(Multiply(Transpose(UpperTriangle(r)), z),
                       Multiply(Transpose(UpperTriangle(newR)), newZ)),
              kThreshold * 10)
        << p;
    for (int j = 0; j < kRightHandSides; ++j)
      EXPECT_NEAR(rho[Count(j)], j + 1.0, 1e-10);
  }
}

TEST(LinpackCholeskyUpdate, AnImpossibleDowndateChangesNothing) {
  Source source(3);
  for (const int p : {1, 2, 7}) {
    const Matrix r = Factor(source, p);
    Matrix newR = UpperTriangle(r);
    const Matrix before = newR;
    std::vector<double> x(Count(p), 0.0);
    x[0] = newR(0, 0);  // the norm of the solution is exactly 1
    std::vector<double> c(Count(p));
    std::vector<double> s(Count(p));
    double z[7] = {1, 2, 3, 4, 5, 6, 7};
    const double y[] = {1.0};
    double rho[] = {2.0};
    for (int i = 1; i < p; ++i)
      x[Count(i)] = newR(0, i);
    EXPECT_EQ(Linpack::Dchdd(newR.Data(), p, p, x.data(), z, 7, 1, y, rho, c.data(), s.data()), -1);
    EXPECT_EQ(newR, before);
    EXPECT_EQ(z[0], 1.0);
    EXPECT_EQ(rho[0], 2.0);
  }
}

TEST(LinpackCholeskyUpdate, AResidualNormThatIsTooSmallIsMarked) {
  double r[] = {2.0};
  const double x[] = {1.0};
  double z[] = {1.0, 1.0, 0.5};
  const double y[] = {10.0, 0.5, 0.5};
  double rho[] = {0.1, 5.0, 0.0};
  double c[1];
  double s[1];
  EXPECT_EQ(Linpack::Dchdd(r, 1, 1, x, z, 1, 2, y, rho, c, s), 1);
  EXPECT_EQ(rho[0], -1.0);
  EXPECT_GT(rho[1], 0.0);

  // A norm of 0 with nothing to take off stays 0.
  double one[] = {2.0};
  double zOne[] = {1.0};
  const double yOne[] = {0.0};
  const double xZero[] = {0.0};
  EXPECT_EQ(Linpack::Dchdd(one, 1, 1, xZero, zOne, 1, 1, yOne, rho + 2, c, s), 0);
  EXPECT_EQ(rho[2], 0.0);
}

/// The columns of r in a new order.
Matrix PermuteColumns(const Matrix & r, const std::vector<int> & order) {
  Matrix permuted(r.Rows(), r.Cols());
  for (int j = 0; j < r.Cols(); ++j) {
    for (int i = 0; i < r.Rows(); ++i)
      permuted(i, j) = r(i, order[Count(j)]);
  }
  return permuted;
}

TEST(LinpackCholeskyUpdate, ExchangesColumns) {
  Source source(4);
  for (const int p : {2, 3, 7, 33}) {
    const int step = p > 7 ? 8 : 1;
    for (int k = 1; k < p; k += step) {
      for (int l = k + 1; l <= p; l += step) {
        for (const int job : {1, 2}) {
          const Matrix r = Factor(source, p);
          const Matrix z = source.General(p, kRightHandSides);
          Matrix newR = r;
          Matrix newZ = z;
          std::vector<double> c(Count(p));
          std::vector<double> s(Count(p));
          Linpack::Dchex(newR.Data(), p, p, k, l, newZ.Data(), p, kRightHandSides, c.data(),
                         s.data(), job);
          std::vector<int> order(Count(p));
          for (int j = 0; j < p; ++j)
            order[Count(j)] = j;
          if (job == 1) {
            std::rotate(order.begin() + k - 1, order.begin() + l - 1, order.begin() + l);
          } else {
            std::rotate(order.begin() + k - 1, order.begin() + k, order.begin() + l);
          }
          const Matrix old = PermuteColumns(UpperTriangle(r), order);
          const Matrix now = UpperTriangle(newR);
          EXPECT_LT(Distance(Multiply(Transpose(old), old), Multiply(Transpose(now), now)),
                    kThreshold)
              << p << ' ' << k << ' ' << l << ' ' << job;
          EXPECT_LT(Distance(Multiply(Transpose(old), z), Multiply(Transpose(now), newZ)),
                    kThreshold);
          for (int j = 0; j < kRightHandSides; ++j) {
            EXPECT_NEAR(SquaredLength(newZ, j, 0.0), SquaredLength(z, j, 0.0), 1e-13 * p);
          }
          for (int i = 0; i < l - k; ++i) {
            EXPECT_NEAR(c[Count(i)] * c[Count(i)] + s[Count(i)] * s[Count(i)], 1.0, 1e-14);
          }
          // Rows that the permutation does not reach are only reordered.
          for (int i = 0; i < k - 1; ++i) {
            for (int j = i; j < p; ++j)
              EXPECT_EQ(newR(i, j), old(i, j));
          }
        }
      }
    }
  }
}

TEST(LinpackCholeskyUpdate, ExchangeBackRestoresTheFactor) {
  Source source(5);
  const Matrix r = Factor(source, 7);
  Matrix turned = r;
  double c[7];
  double s[7];
  Linpack::Dchex(turned.Data(), 7, 7, 2, 6, nullptr, 7, 0, c, s, 1);
  Linpack::Dchex(turned.Data(), 7, 7, 2, 6, nullptr, 7, 0, c, s, 2);
  for (int i = 0; i < 7; ++i) {
    const double sign = turned(i, i) * r(i, i) < 0.0 ? -1.0 : 1.0;
    for (int j = i; j < 7; ++j)
      EXPECT_NEAR(sign * turned(i, j), r(i, j), 1e-13);
  }
}

TEST(LinpackCholeskyUpdate, OrderZeroDoesNothing) {
  Linpack::Dchud(nullptr, 1, 0, nullptr, nullptr, 1, 0, nullptr, nullptr, nullptr, nullptr);
  EXPECT_EQ(
      Linpack::Dchdd(nullptr, 1, 0, nullptr, nullptr, 1, 0, nullptr, nullptr, nullptr, nullptr), 0);
}

}  // namespace
