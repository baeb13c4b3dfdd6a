// Solving with symmetric matrices that may be indefinite and singular.
#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "QVBitSet.h"
#include "QVSymMatrix.h"
#include "math/matrix/reference.h"
#include "math/matrix/symmetric/factor_examples.h"

namespace {

using QVMath_940::QVBitSet;
using QVMath_940::QVSymMatrix;
using namespace reference;
using I = std::vector<int>;
using V = std::vector<double>;

constexpr double kTolerance = 1e-12;

/// Indefinite, small whole numbers; row and column k, for each k in `dependent`, is the sum of the
/// two before it.
QVSymMatrix IndefiniteWithDependentRows(int n, const I & dependent) {
  Random random(static_cast<std::uint64_t>(n) + 5);
  Full t = Identity(n);  // S = T-transpose D T
  Full d(n, n);
  for (int i = 0; i < n; ++i)
    for (int j = 0; j <= i; ++j)
      d(i, j) = d(j, i) = std::floor(8.0 * random.Next());
  for (const int k : dependent)
    for (int i = 0; i < n; ++i)
      t(i, k) = (k > 0 ? t(i, k - 1) : 0.0L) + (k > 1 ? t(i, k - 2) : 0.0L);
  return ToSym(Multiply(Multiply(Transpose(t), d), t));
}

V Times(const QVSymMatrix & s, const V & x) {
  const Full product = Multiply(FromSym(s), FromVector(x));
  V result;
  for (int i = 0; i < product.Rows(); ++i)
    result.push_back(static_cast<double>(product(i, 0)));
  return result;
}

TEST(SolveIndefinite, RegularMatrices) {
  for (const int n : {1, 2, 3, 7, 33, 70}) {
    const QVSymMatrix s = RandomSym(n, 1);
    const V b = RandomVector(n, 2);
    V x;
    ASSERT_TRUE(s.SolveIndefinite(kTolerance, b, x)) << n;
    EXPECT_LT(SolutionResidual(s, x, b), kResidualBound);
    EXPECT_EQ(s.AsVector(), RandomSym(n, 1).AsVector());
  }
}

TEST(SolveIndefinite, PivotsOfOrderTwo) {
  V x;
  ASSERT_TRUE(Sym({{0}, {1, 0}}).SolveIndefinite(kTolerance, {3, 4}, x));
  EXPECT_EQ(x, (V{4, 3}));
  const QVSymMatrix s = Sym({{0}, {2, 0}, {1, 1, 0}, {0, 3, 1, 0}});
  ASSERT_TRUE(s.SolveIndefinite(kTolerance, {1, 2, 3, 4}, x));
  EXPECT_LT(SolutionResidual(s, x, {1, 2, 3, 4}), kResidualBound);
}

TEST(SolveIndefinite, DependentRowsGetZero) {
  for (const int n : {7, 33, 70})
    for (const I & planted : PlantedPlaces(n)) {
      const QVSymMatrix s = IndefiniteWithDependentRows(n, planted);
      const V b = Times(s, RandomVector(n, 3));
      V x;
      ASSERT_TRUE(s.SolveIndefinite(kTolerance, b, x)) << n << ' ' << planted.front();
      ASSERT_EQ(x.size(), At(n));
      for (const int k : planted)
        EXPECT_EQ(x[At(k)], 0.0);
      EXPECT_LT(SolutionResidual(s, x, b), kResidualBound * 100);
    }
}

TEST(SolveIndefinite, SecondSearchOnTheRowsKept) {
  // Rows 0 and 1 are independent in the whole matrix, but not as a matrix of their own.
  const QVSymMatrix s = Sym({{0}, {0, 0}, {1, 0, 0}, {0, 1, 0, 0}});
  V x;
  ASSERT_TRUE(s.SolveIndefinite(QVBitSet({true, true, true, false}), {5, 6, 7, 8}, x));
  EXPECT_EQ(x, (V{7, 0, 5, 0}));  // row 1 of the three is zero
}

TEST(SolveIndefinite, GivenRows) {
  const int n = 9;
  const QVSymMatrix s = RandomSym(n, 4);
  const V b = RandomVector(n, 5);
  QVBitSet rows(n);
  const I chosen = {0, 3, 4, 8};
  rows.SetSubset(chosen, true);
  V x;
  ASSERT_TRUE(s.SolveIndefinite(rows, b, x));
  QVSymMatrix part;
  ASSERT_TRUE(s.ExtractSubmatrix(chosen, part));
  V partB, partX;
  ASSERT_TRUE(part.SolveIndefinite(kTolerance, {b[0], b[3], b[4], b[8]}, partX));
  std::size_t k = 0;
  for (int i = 0; i < n; ++i)
    EXPECT_EQ(x[At(i)], rows.IsIn(i) ? partX[k++] : 0.0);
  rows.Resize(n + 4, true);  // all, in a longer set
  ASSERT_TRUE(s.SolveIndefinite(rows, b, x));
  EXPECT_LT(SolutionResidual(s, x, b), kResidualBound);
}

TEST(SolveIndefinite, Refusals) {
  const QVSymMatrix s = Sym({{0}, {1, 0}});
  V x{9};
  EXPECT_FALSE(QVSymMatrix().SolveIndefinite(kTolerance, {}, x));
  EXPECT_FALSE(s.SolveIndefinite(-1e-9, {1, 2}, x));
  EXPECT_FALSE(s.SolveIndefinite(kTolerance, {1}, x));
  EXPECT_FALSE(QVSymMatrix(3, true).SolveIndefinite(kTolerance, {1, 2, 3}, x));
  EXPECT_FALSE(s.SolveIndefinite(QVBitSet(2), {1, 2}, x));
  EXPECT_FALSE(s.SolveIndefinite(QVBitSet({true}), {1, 2}, x));
  EXPECT_FALSE(s.SolveIndefinite(QVBitSet(), {1, 2}, x));
  EXPECT_FALSE(s.SolveIndefinite(QVBitSet({true, true}), {1}, x));
  EXPECT_FALSE(QVSymMatrix().SolveIndefinite(QVBitSet(), {}, x));
  EXPECT_FALSE(s.SolveIndefinite(QVBitSet({true, false}), {1, 2}, x));  // the part is zero
  EXPECT_EQ(x, V{9});
}

TEST(SolveIndefinite, SingularMatrixAsAWholeIsRefused) {
  V x{9};
  EXPECT_FALSE(Sym({{1}, {1, 1}}).SolveIndefinite(QVBitSet({true, true}), {1, 1}, x));
  EXPECT_FALSE(Sym({{0}, {0, 0}}).SolveIndefinite(QVBitSet({true, true}), {1, 1}, x));
  EXPECT_FALSE(
      Sym({{0}, {0, 0}, {0, 0, 1}}).SolveIndefinite(QVBitSet({true, true, true}), {1, 1, 1}, x));
  EXPECT_EQ(x, V{9});
}

TEST(SolveIndefinite, LongerRightSideAndTheSameVector) {
  V same{3, 4, 99};
  ASSERT_TRUE(Sym({{0}, {1, 0}}).SolveIndefinite(kTolerance, same, same));
  EXPECT_EQ(same, (V{4, 3}));
}

TEST(SolveIndefiniteGI, RegularAndDependent) {
  for (const int n : {1, 3, 7, 33, 70}) {
    const QVSymMatrix s = RandomPositive(n, 6);
    const V b = RandomVector(n, 7);
    V x;
    ASSERT_TRUE(s.SolveIndefiniteGI(kTolerance, b, x));
    // The square of the condition enters: a loose bound.
    EXPECT_LT(SolutionResidual(s, x, b), 1e4);
  }
  const QVSymMatrix s = IndefiniteWithDependentRows(7, {3});
  const V b = Times(s, RandomVector(7, 8));
  V x;
  ASSERT_TRUE(s.SolveIndefiniteGI(kTolerance, b, x));
  EXPECT_EQ(x[3], 0.0);
  EXPECT_LT(SolutionResidual(s, x, b), 1e6);
}

TEST(SolveIndefiniteGI, LeastSquaresWhereNoSolutionExists) {
  // Both equations want x + y; the mean of their right-hand sides is the nearest.
  V x;
  ASSERT_TRUE(Sym({{1}, {1, 1}}).SolveIndefiniteGI(kTolerance, {2, 4}, x));
  EXPECT_DOUBLE_EQ(x[0], 3.0);
  EXPECT_EQ(x[1], 0.0);
}

TEST(SolveIndefiniteGI, Refusals) {
  const QVSymMatrix s = Sym({{0}, {1, 0}});
  V x{9};
  EXPECT_FALSE(QVSymMatrix().SolveIndefiniteGI(kTolerance, {}, x));
  EXPECT_FALSE(s.SolveIndefiniteGI(-1e-9, {1, 2}, x));
  EXPECT_FALSE(s.SolveIndefiniteGI(kTolerance, {1}, x));
  EXPECT_FALSE(s.SolveIndefiniteGI(0.0, {1, 2}, x));  // LTSolve wants a tolerance above 0.0
  EXPECT_EQ(x, V{9});
  EXPECT_FALSE(QVSymMatrix(2, true).SolveIndefiniteGI(kTolerance, {1, 2}, x));  // nothing stays in
}

}  // namespace
