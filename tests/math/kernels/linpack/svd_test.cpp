#include <algorithm>
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

const std::vector<std::pair<int, int>> kShapes = {
    {1, 1}, {1, 2}, {2, 1}, {1, 7}, {7, 1},  {2, 2},  {3, 2},   {2, 3},    {3, 3},   {7, 7},
    {7, 6}, {6, 7}, {7, 3}, {3, 7}, {33, 7}, {7, 33}, {33, 33}, {129, 33}, {33, 129}};

struct Svd {
  Matrix u;
  std::vector<double> s;
  Matrix v;
  std::vector<double> e;
  int info = -1;
};

Svd Decompose(Matrix x, int job) {
  const int n = x.Rows();
  const int p = x.Cols();
  const int left = job / 10;
  Svd svd{Matrix(n, left == 0   ? 0
                    : left == 1 ? n
                                : std::min(n, p)),
          std::vector<double>(Count(std::min(n + 1, p))), Matrix(p, job % 10 != 0 ? p : 0),
          std::vector<double>(Count(p))};
  std::vector<double> work(Count(n));
  svd.info = Linpack::Dsvdc(x.Data(), x.Lead(), n, p, svd.s.data(), svd.e.data(),
                            left == 0 ? nullptr : svd.u.Data(), n,
                            job % 10 == 0 ? nullptr : svd.v.Data(), p, work.data(), job);
  return svd;
}

Matrix Reassemble(const Svd & svd, int p) {
  const int rank = std::min(svd.u.Rows(), p);
  Matrix us(svd.u.Rows(), rank);
  Matrix v(p, rank);
  for (int j = 0; j < rank; ++j) {
    for (int i = 0; i < us.Rows(); ++i)
      us(i, j) = svd.u(i, j) * svd.s[Count(j)];
    for (int i = 0; i < p; ++i)
      v(i, j) = svd.v(i, j);
  }
  return Multiply(us, Transpose(v));
}

void ExpectDescending(const std::vector<double> & s) {
  for (std::size_t i = 0; i < s.size(); ++i) {
    EXPECT_GE(s[i], 0.0);
    EXPECT_LE(s[i], s[i > 0 ? i - 1 : 0]);
  }
}

TEST(LinpackSvd, ReassemblesTheMatrix) {
  Source source(1);
  for (const auto & [n, p] : kShapes) {
    const Matrix x = source.General(n, p);
    for (const int job : {11, 21}) {
      const Svd svd = Decompose(x, job);
      EXPECT_EQ(svd.info, 0);
      ExpectDescending(svd.s);
      EXPECT_LT(OrthogonalityResidual(svd.u), kThreshold) << n << ' ' << p << ' ' << job;
      EXPECT_LT(OrthogonalityResidual(svd.v), kThreshold) << n << ' ' << p << ' ' << job;
      EXPECT_LT(Distance(x, Reassemble(svd, p)), kThreshold) << n << ' ' << p << ' ' << job;
      for (int j = 0; j < std::min(n + 1, p); ++j)
        EXPECT_EQ(svd.e[Count(j)], 0.0);
      if (n < p) {
        EXPECT_LT(svd.s.back(), kThreshold * p * kEpsilon * svd.s[0]);
      }
    }
  }
}

TEST(LinpackSvd, EveryJobGivesTheSameFigures) {
  Source source(2);
  for (const auto & [n, p] : kShapes) {
    const Matrix x = source.General(n, p);
    const Svd all = Decompose(x, 11);
    for (const int job : {0, 1, 10, 20, 21}) {
      const Svd svd = Decompose(x, job);
      EXPECT_EQ(svd.info, 0);
      EXPECT_EQ(svd.s, all.s) << n << ' ' << p << ' ' << job;
      EXPECT_EQ(svd.v, job % 10 != 0 ? all.v : Matrix(p, 0));
      for (int j = 0; j < svd.u.Cols(); ++j) {
        for (int i = 0; i < n; ++i)
          EXPECT_EQ(svd.u(i, j), all.u(i, j));
      }
    }
  }
}

TEST(LinpackSvd, FindsTheSingularValuesThatWereBuiltIn) {
  Source source(3);
  for (const int n : {2, 3, 7, 33}) {
    const Matrix q = Decompose(source.General(n, n), 10).u;
    const Matrix w = Decompose(source.General(n, n), 1).v;
    for (int kind = 0; kind < 4; ++kind) {
      std::vector<double> wanted(Count(n));
      for (int i = 0; i < n; ++i) {
        if (kind == 0) wanted[Count(i)] = n - i;
        if (kind == 1) wanted[Count(i)] = 2.0;                            // all equal
        if (kind == 2) wanted[Count(i)] = i < n / 2 ? 5.0 : 0.0;          // half the rank
        if (kind == 3) wanted[Count(i)] = std::pow(10.0, -12.0 * i / n);  // graded
      }
      Matrix scaled = q;
      for (int j = 0; j < n; ++j) {
        for (int i = 0; i < n; ++i)
          scaled(i, j) *= wanted[Count(j)];
      }
      const Svd svd = Decompose(Multiply(scaled, Transpose(w)), 11);
      EXPECT_EQ(svd.info, 0);
      const double size = *std::max_element(wanted.begin(), wanted.end());
      for (int i = 0; i < n; ++i) {
        EXPECT_NEAR(svd.s[Count(i)], wanted[Count(i)], kThreshold * n * kEpsilon * size) << kind;
      }
      EXPECT_LT(OrthogonalityResidual(svd.u), kThreshold);
      EXPECT_LT(OrthogonalityResidual(svd.v), kThreshold);
    }
  }
}

TEST(LinpackSvd, ZeroAndDiagonalMatrices) {
  for (const auto & [n, p] : kShapes) {
    const Svd zero = Decompose(Matrix(n, p), 11);
    EXPECT_EQ(zero.info, 0);
    for (const double s : zero.s)
      EXPECT_EQ(s, 0.0);
    EXPECT_LT(OrthogonalityResidual(zero.u), kThreshold);
    EXPECT_LT(OrthogonalityResidual(zero.v), kThreshold);

    Matrix diagonal(n, p);
    for (int i = 0; i < std::min(n, p); ++i)
      diagonal(i, i) = i % 2 == 0 ? i : -i;
    const Svd svd = Decompose(diagonal, 11);
    EXPECT_EQ(svd.info, 0);
    for (int i = 0; i < std::min(n, p); ++i) {
      EXPECT_NEAR(svd.s[Count(i)], std::min(n, p) - 1 - i, 1e-13 * n);
    }
    EXPECT_TRUE(std::min(n, p) == 1 || Distance(diagonal, Reassemble(svd, p)) < kThreshold);
  }
}

TEST(LinpackSvd, AZeroColumnAnywhereIsDeflated) {
  Source source(4);
  for (const int zero : {0, 3, 6}) {
    Matrix x = source.General(9, 7);
    for (int i = 0; i < 9; ++i)
      x(i, zero) = 0.0;
    const Svd svd = Decompose(x, 11);
    EXPECT_EQ(svd.info, 0);
    EXPECT_LT(svd.s[6], 1e-14);
    EXPECT_GT(svd.s[5], 0.1);
    EXPECT_LT(Distance(x, Reassemble(svd, 7)), kThreshold);
  }
  // A zero on the diagonal of a bidiagonal matrix.
  for (int zero = 0; zero < 5; ++zero) {
    Matrix x(5, 5);
    for (int i = 0; i < 5; ++i) {
      x(i, i) = i == zero ? 0.0 : 1.0 + i;
      if (i < 4) x(i, i + 1) = 1.0;
    }
    const Svd svd = Decompose(x, 11);
    EXPECT_EQ(svd.info, 0);
    EXPECT_LT(svd.s[4], 1e-14);
    EXPECT_LT(Distance(x, Reassemble(svd, 5)), kThreshold);
  }
}

TEST(LinpackSvd, TheVectorsMayReplaceTheMatrix) {
  Source source(5);
  for (const auto & [n, p] : kShapes) {
    const Matrix x = source.General(n, p);
    const Svd apart = Decompose(x, 21);
    std::vector<double> s(apart.s.size());
    std::vector<double> e(Count(p));
    std::vector<double> work(Count(n));
    Matrix v(p, p);
    Matrix overwritten = x;
    EXPECT_EQ(Linpack::Dsvdc(overwritten.Data(), n, n, p, s.data(), e.data(), overwritten.Data(), n,
                             v.Data(), p, work.data(), 21),
              0);
    EXPECT_EQ(s, apart.s);
    EXPECT_EQ(v, apart.v);
    for (int j = 0; j < std::min(n, p); ++j) {
      for (int i = 0; i < n; ++i)
        EXPECT_EQ(overwritten(i, j), apart.u(i, j)) << n << ' ' << p;
    }
    if (p > n) continue;
    Matrix u(n, n);
    overwritten = x;
    EXPECT_EQ(Linpack::Dsvdc(overwritten.Data(), n, n, p, s.data(), e.data(), u.Data(), n,
                             overwritten.Data(), n, work.data(), 11),
              0);
    EXPECT_EQ(s, apart.s);
    for (int j = 0; j < p; ++j) {
      for (int i = 0; i < p; ++i)
        EXPECT_EQ(overwritten(i, j), apart.v(i, j)) << n << ' ' << p;
    }
  }
}

TEST(LinpackSvd, HilbertAgreesWithItsKnownExtremes) {
  // mpmath 1.3.0 at 60 digits, singular values of the Hilbert matrix of order 7.
  const Svd svd = Decompose(Hilbert(7), 0);
  EXPECT_EQ(svd.info, 0);
  EXPECT_NEAR(svd.s[0], 1.660885338926931, 1e-14);
  EXPECT_NEAR(svd.s[6], 3.493898605991199e-9, 1e-15);
}

TEST(LinpackSvd, UndefinedElementsEndTheIteration) {
  for (const auto & [n, p] : kShapes) {
    for (const double value : {kNaN, std::numeric_limits<double>::infinity()}) {
      for (const int bad : {0, n * p / 2, n * p - 1}) {
        Source source(6);
        Matrix x = source.General(n, p);
        x.Data()[bad] = value;
        const Svd svd = Decompose(x, 11);
        EXPECT_GE(svd.info, 0);
        EXPECT_LE(svd.info, std::min(n + 1, p));
      }
    }
  }
}

TEST(LinpackSvd, EmptyMatricesDoNothing) {
  EXPECT_EQ(Linpack::Dsvdc(nullptr, 1, 0, 3, nullptr, nullptr, nullptr, 1, nullptr, 1, nullptr, 11),
            0);
  EXPECT_EQ(Linpack::Dsvdc(nullptr, 1, 3, 0, nullptr, nullptr, nullptr, 1, nullptr, 1, nullptr, 11),
            0);
}

}  // namespace
