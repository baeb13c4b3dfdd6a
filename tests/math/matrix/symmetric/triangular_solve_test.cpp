// Solving with a factor, and by way of one.
#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "QVSymMatrix.h"
#include "math/matrix/reference.h"
#include "math/matrix/symmetric/factor_examples.h"

namespace {

using QVMath_940::QVSymMatrix;
using namespace reference;
using I = std::vector<int>;
using V = std::vector<double>;

QVSymMatrix Factor(QVSymMatrix a) {
  const V ref = Diagonal(a);
  a.LTChol(ref, 1e-10, false);
  return a;
}

// --- LTSolve ------------------------------------------------------------------------------------

TEST(LTSolve, SolvesAndLeavesTheFactor) {
  for (const int n : OrdersWithBlocks()) {
    const QVSymMatrix a = RandomPositive(n, 1);
    const V b = RandomVector(n, 2);
    QVSymMatrix s = a;
    V x(3, 9.0);
    EXPECT_EQ(s.LTSolve(b, 1e-12, x), 0);
    ASSERT_EQ(x.size(), At(n));
    EXPECT_LT(SolutionResidual(a, x, b), kResidualBound) << n;
    EXPECT_EQ(s.AsVector(), Factor(a).AsVector());
  }
}

TEST(LTSolve, HilbertAndGraded) {
  for (const QVSymMatrix & a : {Hilbert(10), Graded(33, 1)}) {
    const V b = RandomVector(a.GetNRows(), 3);
    QVSymMatrix s = a;
    V x;
    EXPECT_EQ(s.LTSolve(b, 1e-17, x), 0);
    EXPECT_LT(SolutionResidual(a, x, b), kResidualBound);
  }
}

TEST(LTSolve, DependentVariablesDropOut) {
  for (const int n : {7, 33, 70})
    for (const I & planted : PlantedPlaces(n)) {
      const QVSymMatrix a = WithDependentRows(n, planted);
      V beta = RandomVector(n, 4), b, x;
      for (int i = 0; i < n; ++i) {  // b lies in the space of the columns
        long double sum = 0.0L;
        for (int j = 0; j < n; ++j)
          sum += static_cast<long double>(a.GetElem(i, j)) * beta[At(j)];
        b.push_back(static_cast<double>(sum));
      }
      QVSymMatrix s = a;
      EXPECT_EQ(s.LTSolve(b, 1e-10, x), static_cast<int>(planted.size()));
      for (const int k : planted)
        EXPECT_EQ(x[At(k)], 0.0);
      EXPECT_LT(SolutionResidual(a, x, b), kResidualBound * 100);
    }
}

TEST(LTSolve, Refusals) {
  const QVSymMatrix a = Sym({{4}, {2, 3}});
  QVSymMatrix s = a;
  V x{9.0};
  EXPECT_EQ(s.LTSolve({1, 2}, 0.0, x), -1);
  EXPECT_EQ(s.LTSolve({1, 2}, -1.0, x), -1);
  EXPECT_EQ(s.LTSolve({1}, 1e-10, x), -1);
  EXPECT_EQ(s.AsVector(), a.AsVector());
  EXPECT_EQ(x, V{9.0});
}

TEST(LTSolve, LongerRightSideAndTheSameVector) {
  QVSymMatrix s = Sym({{4}, {2, 3}});
  V x;
  EXPECT_EQ(s.LTSolve({8, 7, 99}, 1e-10, x), 0);
  ASSERT_EQ(x.size(), 2u);
  EXPECT_DOUBLE_EQ(x[0], 1.25);
  EXPECT_DOUBLE_EQ(x[1], 1.5);
  QVSymMatrix again = Sym({{4}, {2, 3}});
  V same{8, 7, 99};
  EXPECT_EQ(again.LTSolve(same, 1e-10, same), 0);
  EXPECT_EQ(same, x);
}

// --- LTSubstitute and TSolveSubst ---------------------------------------------------------------

TEST(LTSubstitute, SolvesWithAFactor) {
  for (const int n : OrdersWithBlocks()) {
    const QVSymMatrix a = RandomPositive(n, 5);
    const V b = RandomVector(n, 6);
    V x;
    EXPECT_EQ(Factor(a).LTSubstitute(b, x), 0);
    ASSERT_EQ(x.size(), At(n));
    EXPECT_LT(SolutionResidual(a, x, b), kResidualBound) << n;
  }
}

TEST(LTSubstitute, ShortAndLongRightSides) {
  const QVSymMatrix l = Factor(Sym({{4}, {2, 3}}));
  V x{9.0};
  EXPECT_EQ(l.LTSubstitute({1}, x), -1);
  EXPECT_EQ(x, V{9.0});
  EXPECT_EQ(l.LTSubstitute({8, 7, 99}, x), 0);
  EXPECT_EQ(x.size(), 2u);
  V same{8, 7, 99};
  EXPECT_EQ(l.LTSubstitute(same, same), 0);
  EXPECT_EQ(same, x);
}

TEST(TSolveSubst, BothTriangles) {
  for (const int n : OrdersWithBlocks()) {
    const QVSymMatrix l = Factor(RandomPositive(n, 7));
    const V b = RandomVector(n, 8);
    for (const bool transposed : {false, true}) {
      V x;
      ASSERT_TRUE(l.TSolveSubst(b, x, transposed));
      ASSERT_EQ(x.size(), At(n));
      const Full lower = FromLower(l);
      const Full product = Multiply(transposed ? Transpose(lower) : lower, FromVector(x));
      EXPECT_LT(ScaledResidual(product, FromVector(b)),
                kResidualBound * (1.0 + Norm(lower) * Norm(FromVector(x))))
          << n;
    }
  }
}

TEST(TSolveSubst, ZeroPivotsGiveZero) {
  const QVSymMatrix l = Sym({{2}, {1, 0}, {4, 7, 5}});
  V x;
  EXPECT_TRUE(l.TSolveSubst({2, 5, 14}, x, false));
  EXPECT_EQ(x, (V{1, 0, 2}));
  EXPECT_TRUE(l.TSolveSubst({10, 5, 10}, x, true));
  EXPECT_EQ(x, (V{1, 0, 2}));
}

TEST(TSolveSubst, NeedsTheExactSize) {
  const QVSymMatrix l = Sym({{2}, {1, 1}});
  V x{9.0};
  EXPECT_FALSE(l.TSolveSubst({1}, x, false));
  EXPECT_FALSE(l.TSolveSubst({1, 2, 3}, x, true));
  EXPECT_EQ(x, V{9.0});
  V same{2, 2};
  EXPECT_TRUE(l.TSolveSubst(same, same, false));
  EXPECT_EQ(same, (V{1, 1}));
}

// --- Parts of rows and columns ------------------------------------------------------------------

TEST(DotProducts, OfPartsOfAFactor) {
  const QVSymMatrix l = Sym({{2}, {1, 3}, {4, 7, 5}});
  double result = 9.0;
  EXPECT_TRUE(l.DotProdRowBeforeDiagFrontVec(2, {10, 100}, result));
  EXPECT_EQ(result, 740.0);
  EXPECT_TRUE(l.DotProdRowBeforeDiagFrontVec(0, {}, result));
  EXPECT_EQ(result, 0.0);
  EXPECT_TRUE(l.DotProdColBelowDiagBackVec(0, {1, 10, 100}, result));
  EXPECT_EQ(result, 410.0);
  EXPECT_TRUE(l.DotProdColBelowDiagBackVec(2, {1, 10, 100}, result));
  EXPECT_EQ(result, 0.0);
  EXPECT_FALSE(l.DotProdRowBeforeDiagFrontVec(3, {1, 1, 1}, result));
  EXPECT_FALSE(l.DotProdRowBeforeDiagFrontVec(-1, {1, 1, 1}, result));
  EXPECT_FALSE(l.DotProdRowBeforeDiagFrontVec(2, {1}, result));
  EXPECT_FALSE(l.DotProdColBelowDiagBackVec(3, {1, 1, 1}, result));
  EXPECT_FALSE(l.DotProdColBelowDiagBackVec(-1, {1, 1, 1}, result));
  EXPECT_FALSE(l.DotProdColBelowDiagBackVec(0, {1, 1}, result));
}

}  // namespace
