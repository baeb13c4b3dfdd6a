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

const std::vector<std::pair<int, int>> kShapes = {{1, 1},  {1, 4},   {4, 1},    {2, 2},   {3, 2},
                                                  {2, 3},  {7, 7},   {7, 3},    {3, 7},   {33, 7},
                                                  {7, 33}, {33, 33}, {129, 33}, {33, 129}};

struct Decomposition {
  Matrix x;
  std::vector<double> qraux;
  std::vector<int> jpvt;
};

Decomposition Decompose(const Matrix & x) {
  Decomposition qr{x, std::vector<double>(Count(x.Cols())), {}};
  Linpack::Dqrdc(qr.x.Data(), qr.x.Lead(), x.Rows(), x.Cols(), qr.qraux.data(), nullptr, nullptr,
                 0);
  return qr;
}

Decomposition DecomposeWithPivoting(const Matrix & x, const std::vector<int> & entries) {
  Decomposition qr{x, std::vector<double>(Count(x.Cols())), entries};
  std::vector<double> work(Count(x.Cols()));
  Linpack::Dqrdc(qr.x.Data(), qr.x.Lead(), x.Rows(), x.Cols(), qr.qraux.data(), qr.jpvt.data(),
                 work.data(), 1);
  return qr;
}

/// The matrix Q, by applying it to the unit vectors; `job` 10000 for Q, 1000 for its transpose.
Matrix Orthogonal(const Decomposition & qr, int job) {
  const int n = qr.x.Rows();
  Matrix q = Identity(n);
  for (int j = 0; j < n; ++j) {
    std::vector<double> unit(Count(n), 0.0);
    unit[Count(j)] = 1.0;
    double * const column = q.Data() + static_cast<std::ptrdiff_t>(j) * n;
    EXPECT_EQ(Linpack::Dqrsl(qr.x.Data(), qr.x.Lead(), n, std::min(n, qr.x.Cols()), qr.qraux.data(),
                             unit.data(), column, column, nullptr, nullptr, nullptr, job),
              0);
  }
  return q;
}

Matrix PermuteColumns(const Matrix & x, const std::vector<int> & jpvt) {
  Matrix permuted(x.Rows(), x.Cols());
  for (int j = 0; j < x.Cols(); ++j) {
    for (int i = 0; i < x.Rows(); ++i)
      permuted(i, j) = x(i, jpvt[Count(j)] - 1);
  }
  return permuted;
}

Matrix Leading(const Matrix & q, int columns) {
  Matrix part(q.Rows(), columns);
  for (int j = 0; j < columns; ++j) {
    for (int i = 0; i < q.Rows(); ++i)
      part(i, j) = q(i, j);
  }
  return part;
}

TEST(LinpackQr, QTimesRIsTheMatrix) {
  Source source(1);
  for (const auto & [n, p] : kShapes) {
    const Matrix x = source.General(n, p);
    const Decomposition qr = Decompose(x);
    const Matrix q = Orthogonal(qr, 10000);
    EXPECT_LT(OrthogonalityResidual(q), kThreshold) << n << ' ' << p;
    EXPECT_LT(Distance(Transpose(q), Orthogonal(qr, 1000)), kThreshold);
    const Matrix r = UpperTriangle(qr.x);
    EXPECT_LT(Distance(x, Multiply(Leading(q, r.Rows()), r)), kThreshold) << n << ' ' << p;
  }
}

TEST(LinpackQr, WithPivotingTheDiagonalDescends) {
  Source source(2);
  for (const auto & [n, p] : kShapes) {
    const Matrix x = source.General(n, p);
    const Decomposition qr = DecomposeWithPivoting(x, std::vector<int>(Count(p), 0));
    const Matrix q = Orthogonal(qr, 10000);
    const Matrix r = UpperTriangle(qr.x);
    EXPECT_LT(Distance(PermuteColumns(x, qr.jpvt), Multiply(Leading(q, r.Rows()), r)), kThreshold);
    for (int k = 1; k < r.Rows(); ++k) {
      EXPECT_LE(std::fabs(r(k, k)), std::fabs(r(k - 1, k - 1)) * (1.0 + 1e-10)) << n << ' ' << p;
    }
    // No later column has a larger reduced norm than the one that was chosen.
    for (int k = 0; k < r.Rows(); ++k) {
      for (int j = k; j < p; ++j) {
        double square = 0.0;
        for (int i = k; i <= std::min(j, r.Rows() - 1); ++i)
          square += r(i, j) * r(i, j);
        EXPECT_LE(std::sqrt(square), std::fabs(r(k, k)) * (1.0 + 1e-10));
      }
    }
  }
}

TEST(LinpackQr, NormsThatCancelAreCalculatedAfresh) {
  // Columns that differ in their ninth digit: after the first step nothing is left of a norm that
  // was only reduced, and the choice of the next columns would be left to rounding.
  Source source(20);
  for (int trial = 0; trial < 20; ++trial) {
    Matrix x = source.General(9, 6);
    for (int j = 0; j < 6; ++j) {
      const double size = 1e-9 * std::pow(3.0, (j * 5) % 6);
      for (int i = 0; i < 9; ++i)
        x(i, j) = x(i, j) * size + (1.0 + 0.1 * i) * (1.0 + 0.01 * j);
    }
    const Decomposition qr = DecomposeWithPivoting(x, std::vector<int>(6, 0));
    const Matrix r = UpperTriangle(qr.x);
    for (int k = 0; k < 6; ++k) {
      for (int j = k; j < 6; ++j) {
        double square = 0.0;
        for (int i = k; i <= j; ++i)
          square += r(i, j) * r(i, j);
        EXPECT_LE(std::sqrt(square), std::fabs(r(k, k)) * 1.001) << trial << ' ' << k;
      }
    }
  }
}

TEST(LinpackQr, EntriesMoveColumnsToTheFrontAndTheEnd) {
  Source source(3);
  const std::vector<std::vector<int>> lists = {
      {0, 0, 0, 0, 0, 0, 0},   {1, 1, 1, 1, 1, 1, 1},   {-1, -1, -1, -1, -1, -1, -1},
      {0, 5, 0, -2, 0, 1, 0},  {-1, 0, 0, 3, 0, 0, -1}, {0, -1, 1, -1, 1, -1, 1},
      {-1, 1, -1, 1, 0, 0, 0}, {0, 0, 0, 0, -1, 1, 1}};
  for (const std::vector<int> & entries : lists) {
    const Matrix x = source.General(9, 7);
    const Decomposition qr = DecomposeWithPivoting(x, entries);
    const Matrix q = Orthogonal(qr, 10000);
    EXPECT_LT(Distance(PermuteColumns(x, qr.jpvt), Multiply(Leading(q, 7), UpperTriangle(qr.x))),
              kThreshold);
    const auto front = std::count_if(entries.begin(), entries.end(), [](int e) { return e > 0; });
    const auto end = std::count_if(entries.begin(), entries.end(), [](int e) { return e < 0; });
    for (int k = 0; k < 7; ++k) {
      const int entry = entries[Count(qr.jpvt[Count(k)] - 1)];
      EXPECT_EQ(entry > 0, k < front);
      EXPECT_EQ(entry < 0, k >= 7 - end);
    }
  }
}

TEST(LinpackQr, WithoutAJobThePivotListIsNotTouched) {
  Source source(4);
  const Matrix x = source.General(5, 3);
  Decomposition qr = Decompose(x);
  int jpvt[] = {7, -8, 9};
  double work[] = {1.0, 2.0, 3.0};
  Matrix again = x;
  double qraux[3];
  Linpack::Dqrdc(again.Data(), 5, 5, 3, qraux, jpvt, work, 0);
  EXPECT_THAT(jpvt, testing::ElementsAre(7, -8, 9));
  EXPECT_THAT(work, testing::ElementsAre(1.0, 2.0, 3.0));
  EXPECT_EQ(again, qr.x);
}

TEST(LinpackQr, ADependentColumnShowsAsASmallDiagonal) {
  Source source(5);
  for (const int dependent : {0, 3, 6}) {
    Matrix x = source.General(20, 7);
    for (int i = 0; i < 20; ++i) {
      double sum = 0.0;
      for (int j = 0; j < 7; ++j) {
        if (j != dependent) sum += x(i, j);
      }
      x(i, dependent) = sum;
    }
    const Decomposition qr = DecomposeWithPivoting(x, std::vector<int>(7, 0));
    EXPECT_LT(std::fabs(qr.x(6, 6)), 1e-13);
    EXPECT_GT(std::fabs(qr.x(5, 5)), 0.1);
  }
}

TEST(LinpackQr, ZeroColumnsNeedNoTransformation) {
  Matrix x(4, 3);
  x(0, 1) = 2.0;
  const Decomposition qr = Decompose(x);
  EXPECT_EQ(qr.qraux[0], 0.0);
  EXPECT_EQ(qr.x(0, 0), 0.0);
  const Matrix q = Orthogonal(qr, 10000);
  EXPECT_LT(Distance(x, Multiply(Leading(q, 3), UpperTriangle(qr.x))), kThreshold);
}

struct Applied {
  std::vector<double> qy, qty, b, rsd, xb;
  int info = -1;
};

Applied Apply(const Decomposition & qr, int k, const std::vector<double> & y, int job) {
  const std::size_t n = y.size();
  Applied out{std::vector<double>(n, -77.0), std::vector<double>(n, -77.0),
              std::vector<double>(Count(k), -77.0), std::vector<double>(n, -77.0),
              std::vector<double>(n, -77.0)};
  out.info = Linpack::Dqrsl(qr.x.Data(), qr.x.Lead(), static_cast<int>(n), k, qr.qraux.data(),
                            y.data(), out.qy.data(), out.qty.data(), out.b.data(), out.rsd.data(),
                            out.xb.data(), job);
  return out;
}

TEST(LinpackQr, LeastSquares) {
  Source source(6);
  for (const auto & [n, p] : kShapes) {
    const Matrix x = source.General(n, p);
    const Decomposition qr = Decompose(x);
    const std::vector<double> y = source.Vector(n);
    const int most = std::min(n, p);
    for (const int k : {1, most / 2 + 1, most}) {
      if (k > most) continue;
      const Applied out = Apply(qr, k, y, 11111);
      EXPECT_EQ(out.info, 0);
      const Matrix xk = Leading(x, k);
      const double scale = kThreshold * n * kEpsilon * Norm1(y);
      const std::vector<double> fitted = Multiply(xk, out.b);
      std::vector<double> sum = out.xb;
      for (std::size_t i = 0; i < y.size(); ++i) {
        EXPECT_NEAR(fitted[i], out.xb[i], scale * (1.0 + Norm1(xk) * Norm1(out.b)));
        EXPECT_NEAR(out.xb[i] + out.rsd[i], y[i], scale);
      }
      // The residual is orthogonal to every column.
      for (const double dot : Multiply(Transpose(xk), out.rsd)) {
        EXPECT_NEAR(dot, 0.0, scale * Norm1(xk)) << n << ' ' << p << ' ' << k;
      }
      const std::vector<double> again = Apply(qr, k, out.qty, 10000).qy;
      for (std::size_t i = 0; i < y.size(); ++i)
        EXPECT_NEAR(again[i], y[i], scale);
    }
  }
}

TEST(LinpackQr, EachDigitOfTheJobAsksForOneResult) {
  Source source(7);
  const Matrix x = source.General(6, 4);
  const Decomposition qr = Decompose(x);
  const std::vector<double> y = source.Vector(6);
  const Applied all = Apply(qr, 3, y, 11111);
  const auto untouched = [](const std::vector<double> & v) {
    return std::all_of(v.begin(), v.end(), [](double e) { return e == -77.0; });
  };
  for (int bits = 0; bits < 32; ++bits) {
    const bool qy = bits & 16, qty = bits & 8, b = bits & 4, rsd = bits & 2, xb = bits & 1;
    const int job =
        (qy ? 10000 : 0) + (qty ? 1000 : 0) + (b ? 100 : 0) + (rsd ? 10 : 0) + (xb ? 1 : 0);
    const Applied out = Apply(qr, 3, y, job);
    EXPECT_EQ(out.info, 0);
    EXPECT_TRUE(qy ? out.qy == all.qy : untouched(out.qy)) << job;
    EXPECT_TRUE(qty || b || rsd || xb ? out.qty == all.qty : untouched(out.qty)) << job;
    EXPECT_TRUE(b ? out.b == all.b : untouched(out.b)) << job;
    EXPECT_TRUE(rsd ? out.rsd == all.rsd : untouched(out.rsd)) << job;
    EXPECT_TRUE(xb ? out.xb == all.xb : untouched(out.xb)) << job;
  }
}

TEST(LinpackQr, ArraysMayBeShared) {
  Source source(8);
  const Matrix x = source.General(6, 4);
  const Decomposition qr = Decompose(x);
  const std::vector<double> y = source.Vector(6);
  const Applied apart = Apply(qr, 4, y, 11111);
  const std::vector<double> b(apart.b);
  const auto call = [&qr](const double * in, double * qy, double * qty, double * solution,
                          double * rsd, double * xb, int job) {
    return Linpack::Dqrsl(qr.x.Data(), 6, 6, 4, qr.qraux.data(), in, qy, qty, solution, rsd, xb,
                          job);
  };
  std::vector<double> one = y, two(6), three(6), four(6);
  call(one.data(), four.data(), one.data(), one.data(), two.data(), three.data(), 11111);
  EXPECT_TRUE(std::equal(b.begin(), b.end(), one.begin()));  // (y, qty, b)
  EXPECT_EQ(two, apart.rsd);
  EXPECT_EQ(three, apart.xb);
  EXPECT_EQ(four, apart.qy);

  one = y;
  call(one.data(), four.data(), one.data(), two.data(), one.data(), three.data(), 11111);
  EXPECT_EQ(one, apart.rsd);  // (y, qty, rsd)
  EXPECT_TRUE(std::equal(b.begin(), b.end(), two.begin()));
  EXPECT_EQ(three, apart.xb);

  one = y;
  call(one.data(), four.data(), one.data(), two.data(), three.data(), one.data(), 11111);
  EXPECT_EQ(one, apart.xb);  // (y, qty, xb)
  EXPECT_EQ(three, apart.rsd);

  for (int shared = 0; shared < 3; ++shared) {  // (y, qy) and qty with b, rsd or xb
    std::vector<double> first = y, second(6);
    call(first.data(), first.data(), second.data(), shared == 0 ? second.data() : two.data(),
         shared == 1 ? second.data() : three.data(), shared == 2 ? second.data() : four.data(),
         11111);
    EXPECT_EQ(first, apart.qy);
    if (shared == 0) second.resize(4);
    EXPECT_EQ(second, shared == 0 ? apart.b : shared == 1 ? apart.rsd : apart.xb);
  }
}

TEST(LinpackQr, AZeroOnTheDiagonalStopsTheSolution) {
  Matrix x(4, 3);
  x(0, 0) = 1.0;
  x(2, 2) = 3.0;
  const Decomposition qr = Decompose(x);
  const Applied out = Apply(qr, 3, {1.0, 2.0, 3.0, 4.0}, 111);
  EXPECT_EQ(out.info, 2);
}

TEST(LinpackQr, OneRowIsSolvedByDivision) {
  const Matrix x = [] {
    Matrix m(1, 1);
    m(0, 0) = 4.0;
    return m;
  }();
  const Applied out = Apply(Decompose(x), 1, {6.0}, 11111);
  EXPECT_EQ(out.info, 0);
  EXPECT_EQ(out.qy[0], 6.0);
  EXPECT_EQ(out.qty[0], 6.0);
  EXPECT_EQ(out.b[0], 1.5);
  EXPECT_EQ(out.rsd[0], 0.0);
  EXPECT_EQ(out.xb[0], 6.0);
  EXPECT_EQ(Apply(Decompose(Matrix(1, 1)), 1, {6.0}, 100).info, 1);
}

TEST(LinpackQr, NoColumnsFitNothing) {
  Source source(9);
  const Decomposition qr = Decompose(source.General(3, 2));
  const std::vector<double> y = {1.0, 2.0, 3.0};
  const Applied out = Apply(qr, 0, y, 11011);
  EXPECT_EQ(out.rsd, y);
  EXPECT_THAT(out.xb, testing::ElementsAre(0.0, 0.0, 0.0));
}

TEST(LinpackQr, EmptyMatricesDoNothing) {
  Linpack::Dqrdc(nullptr, 1, 0, 3, nullptr, nullptr, nullptr, 0);
  Linpack::Dqrdc(nullptr, 1, 3, 0, nullptr, nullptr, nullptr, 0);
  EXPECT_EQ(Linpack::Dqrsl(nullptr, 1, 0, 0, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                           nullptr, 11111),
            0);
}

}  // namespace
