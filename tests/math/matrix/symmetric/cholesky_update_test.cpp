// A case comes into a factor and goes out again: against the factor of the changed matrix, and bit
// by bit against the published loops.
#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "Blas1.h"
#include "QVMathFun.h"
#include "QVSymMatrix.h"
#include "math/matrix/reference.h"
#include "math/matrix/symmetric/factor_examples.h"

namespace {

using QVMath_940::Blas1;
using QVMath_940::QVMathFun;
using QVMath_940::QVSymMatrix;
using namespace reference;
using V = std::vector<double>;

const std::vector<int> kOrders = {1, 2, 3, 7, 8, 33, 63, 64, 65, 71, 72, 129, 300};

QVSymMatrix Factor(QVSymMatrix a) {
  const V ref = Diagonal(a);
  a.LTChol(ref, 1e-12, false);
  return a;
}

/// A + factor x x-transpose.
QVSymMatrix Plus(const QVSymMatrix & a, const V & x, double factor) {
  QVSymMatrix sum = a;
  for (int i = 0; i < a.GetNRows(); ++i)
    for (int j = 0; j <= i; ++j)
      sum.SetElem(i, j, a.GetElem(i, j) + factor * x[At(i)] * x[At(j)]);
  return sum;
}

/// L L-transpose as a symmetric matrix.
Full Square(const QVSymMatrix & l) {
  return Multiply(FromLower(l), Transpose(FromLower(l)));
}

/// a b + c d by the rule of the order: the first product fused to the sum from order 64 on.
double Combine(int n, double a, double b, double cd) {
  return n >= 64 ? std::fma(a, b, cd) : a * b + cd;
}

// --- Update -------------------------------------------------------------------------------------

TEST(LTCholUpdateR1, FactorOfTheUpdatedMatrix) {
  for (const int n : kOrders) {
    const QVSymMatrix a = RandomPositive(n, 1);
    const V x = RandomVector(n, 2);
    QVSymMatrix l = Factor(a);
    V c(At(n)), s(At(n));
    ASSERT_TRUE(l.LTCholUpdateR1(x, c, s));
    EXPECT_LT(ScaledResidual(Square(l), FromSym(Plus(a, x, 1.0))), kResidualBound) << n;
    for (int i = 0; i < n; ++i)
      EXPECT_NEAR(c[At(i)] * c[At(i)] + s[At(i)] * s[At(i)], 1.0, 1e-15);
  }
}

TEST(LTCholUpdateR1, PublishedLoopsBitByBit) {
  for (const int n : kOrders) {
    const V x = RandomVector(n, 3);
    QVSymMatrix l = Factor(RandomPositive(n, 4));
    QVSymMatrix wanted = l;
    V c(At(n)), s(At(n)), wantedC(At(n)), wantedS(At(n));
    for (int i = 0; i < n; ++i) {
      double xi = x[At(i)];
      for (int j = 0; j < i; ++j) {
        const double lij = wanted.GetElem(i, j), cj = wantedC[At(j)], sj = wantedS[At(j)];
        wanted.SetElem(i, j, Combine(n, cj, lij, sj * xi));
        xi = Combine(n, cj, xi, -(sj * lij));
      }
      double lii = wanted.GetElem(i, i);
      Blas1::DRotG(&lii, &xi, &wantedC[At(i)], &wantedS[At(i)]);
      wanted.SetElem(i, i, lii);
    }
    ASSERT_TRUE(l.LTCholUpdateR1(x, c, s));
    EXPECT_TRUE(SameBits(l.AsVector(), wanted.AsVector())) << n;
    EXPECT_TRUE(SameBits(c, wantedC));
    EXPECT_TRUE(SameBits(s, wantedS));
  }
}

TEST(LTCholUpdateR1, SignIsThatOfTheLarger) {
  QVSymMatrix l = Sym({{3}});
  V c(1), s(1);
  EXPECT_TRUE(l.LTCholUpdateR1({-4}, c, s));
  EXPECT_DOUBLE_EQ(l.GetElem(0, 0), -5.0);
  EXPECT_DOUBLE_EQ(c[0], -0.6);
  EXPECT_DOUBLE_EQ(s[0], 0.8);
}

TEST(LTCholUpdateR1, NeedsTheExactSizes) {
  QVSymMatrix l = Sym({{2}, {1, 3}});
  V two(2), three(3), one(1);
  EXPECT_FALSE(l.LTCholUpdateR1(one, two, two));
  EXPECT_FALSE(l.LTCholUpdateR1(three, two, two));
  EXPECT_FALSE(l.LTCholUpdateR1({1, 1}, one, two));
  EXPECT_FALSE(l.LTCholUpdateR1({1, 1}, two, three));
  EXPECT_EQ(l.AsVector(), (V{2, 1, 3}));
  V c, s;
  EXPECT_TRUE(QVSymMatrix().LTCholUpdateR1({}, c, s));
}

TEST(LTCholUpdateR1, FactorWithZeroPivots) {
  for (const int n : {7, 70}) {
    const QVSymMatrix a = WithDependentRows(n, {1, n / 2});
    QVSymMatrix l = Factor(a);
    V x(At(n), 0.0), c(At(n)), s(At(n));
    x[0] = 1.0;
    // The rows that dropped out have elements left of the diagonal: L L-transpose is what changes.
    const Full before = Square(l);
    ASSERT_TRUE(l.LTCholUpdateR1(x, c, s));
    Full wanted = before;
    wanted(0, 0) += 1.0L;
    EXPECT_LT(ScaledResidual(Square(l), wanted), kResidualBound);
  }
}

// --- Downdate -----------------------------------------------------------------------------------

TEST(LTCholDowndate, TakesAnUpdateBack) {
  for (const int n : kOrders) {
    const QVSymMatrix a = RandomPositive(n, 5);
    const V x = RandomVector(n, 6);
    const QVSymMatrix larger = Plus(a, x, 1.0);
    QVSymMatrix l = Factor(larger);
    V c(At(n)), s(At(n));
    ASSERT_TRUE(l.LTCholDowndate(x, c, s, false));
    EXPECT_LT(ScaledResidual(Square(l), FromSym(a)), kResidualBound * 10) << n;
    for (int i = 0; i < n; ++i)
      EXPECT_GT(l.GetElem(i, i), 0.0);
  }
}

TEST(LTCholDowndate, PublishedLoopsBitByBit) {
  for (const int n : kOrders) {
    V x = RandomVector(n, 7);
    QVSymMatrix l = Factor(Plus(RandomPositive(n, 8), x, 1.0));
    QVSymMatrix wanted = l;
    V c(At(n)), s(At(n)), wantedC(At(n)), wantedS;
    ASSERT_TRUE(wanted.TSolveSubst(x, wantedS, false));
    const double norm = QVMathFun::DNrm2(n, wantedS, 0, 1);
    double alpha = std::sqrt(1.0 - norm * norm);
    for (int i = n - 1; i >= 0; --i) {
      const double scale = alpha + std::abs(wantedS[At(i)]);
      const double a = alpha / scale, b = wantedS[At(i)] / scale;
      const double r = std::sqrt(a * a + b * b);
      wantedC[At(i)] = a / r;
      wantedS[At(i)] = b / r;
      alpha = scale * r;
    }
    for (int i = 0; i < n; ++i) {
      double xx = 0.0;
      for (int j = i; j >= 0; --j) {
        const double lij = wanted.GetElem(i, j), cj = wantedC[At(j)], sj = wantedS[At(j)];
        wanted.SetElem(i, j, Combine(n, cj, lij, -(sj * xx)));
        xx = Combine(n, cj, xx, sj * lij);
      }
    }
    ASSERT_TRUE(l.LTCholDowndate(x, c, s, false));
    EXPECT_TRUE(SameBits(l.AsVector(), wanted.AsVector())) << n;
    EXPECT_TRUE(SameBits(c, wantedC));
    EXPECT_TRUE(SameBits(s, wantedS));
  }
}

TEST(LTCholDowndate, Refusals) {
  QVSymMatrix l = Sym({{2}, {1, 3}});
  V two(2), three(3), one(1);
  EXPECT_FALSE(l.LTCholDowndate(one, two, two, true));
  EXPECT_FALSE(l.LTCholDowndate({1, 1}, three, two, true));
  EXPECT_FALSE(l.LTCholDowndate({1, 1}, two, one, true));
  EXPECT_EQ(l.AsVector(), (V{2, 1, 3}));
  for (const double first : {0.0, -1.0, std::nan("")}) {
    QVSymMatrix bad = Sym({{first}, {1, -3}});
    EXPECT_FALSE(bad.LTCholDowndate({1, 1}, two, two, true));
    EXPECT_EQ(bad.GetElem(1, 1), -3.0);  // refused before the repair
  }
  V c, s;
  EXPECT_FALSE(QVSymMatrix().LTCholDowndate({}, c, s, true));
}

TEST(LTCholDowndate, RepairsDiagonalElementsThatAreNotPositive) {
  QVSymMatrix l = Sym({{2}, {0, 0}, {0, 0, 5}, {0, 0, 0, -1}});
  V c(4), s(4);
  EXPECT_TRUE(l.LTCholDowndate({0, 0, 0, 0}, c, s, false));
  EXPECT_EQ(l.AsVector(), (V{2, 0, 0.5, 0, 0, 5, 0, 0, 0, 0.5}));
}

TEST(LTCholDowndate, RepairStaysWhenTheResultIsFalse) {
  QVSymMatrix l = Sym({{2}, {0, 0}});
  V c(2), s(2);
  EXPECT_FALSE(l.LTCholDowndate({2, 0}, c, s, false));  // p has norm 1.0
  EXPECT_EQ(l.AsVector(), (V{2, 0, 0.2}));
}

TEST(LTCholDowndate, RescalesWhenAsked) {
  for (const int n : {3, 70}) {
    const QVSymMatrix a = RandomPositive(n, 9);
    QVSymMatrix l = Factor(a);
    V x = RandomVector(n, 10);
    for (double & element : x)
      element *= 50.0;
    V p;
    ASSERT_TRUE(l.TSolveSubst(x, p, false));
    const double norm = QVMathFun::DNrm2(n, p, 0, 1);
    ASSERT_GT(norm, 1.0);
    const QVSymMatrix before = l;
    V c(At(n)), s(At(n));
    EXPECT_FALSE(l.LTCholDowndate(x, c, s, false));
    EXPECT_EQ(l.AsVector(), before.AsVector());
    ASSERT_TRUE(l.LTCholDowndate(x, c, s, true));
    // The matrix that was factored, times (norm / 0.9) squared, less x x-transpose.
    QVSymMatrix scaled = a;
    scaled.MultiplyByNumber(norm / 0.9 * (norm / 0.9));
    EXPECT_LT(ScaledResidual(Square(l), FromSym(Plus(scaled, x, -1.0))), kResidualBound * 10);
  }
}

TEST(LTCholDowndate, VectorOfZerosChangesNothing) {
  for (const int n : {5, 70}) {
    const QVSymMatrix l = Factor(RandomPositive(n, 11));
    QVSymMatrix same = l;
    V c(At(n)), s(At(n));
    EXPECT_TRUE(same.LTCholDowndate(V(At(n), 0.0), c, s, false));
    EXPECT_EQ(same.AsVector(), l.AsVector());
    EXPECT_EQ(c, V(At(n), 1.0));
    EXPECT_EQ(s, V(At(n), 0.0));
  }
}

}  // namespace
