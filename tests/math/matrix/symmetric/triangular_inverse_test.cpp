// Determinant and inverse of a factor, the products of a factor with its transpose, and the inverse
// by way of the factor.
#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "QVBitSet.h"
#include "QVSymMatrix.h"
#include "math/matrix/allocation_limit.h"
#include "math/matrix/reference.h"
#include "math/matrix/symmetric/factor_examples.h"

namespace {

using QVMath_940::QVBitSet;
using QVMath_940::QVSymMatrix;
using namespace reference;
using I = std::vector<int>;
using V = std::vector<double>;

constexpr double kLowest = std::numeric_limits<double>::lowest();

QVSymMatrix Factor(QVSymMatrix a) {
  const V ref = Diagonal(a);
  a.LTChol(ref, 1e-10, false);
  return a;
}

// --- LTDetInverse -------------------------------------------------------------------------------

TEST(LTDetInverse, DeterminantAlone) {
  QVSymMatrix l = Sym({{20}, {3, 0.5}});
  double det[2];
  EXPECT_EQ(l.LTDetInverse(det, 1), 0);
  EXPECT_EQ(det[0], 1.0);
  EXPECT_EQ(det[1], 1.0);
  EXPECT_EQ(l.AsVector(), (V{20, 3, 0.5}));
  QVSymMatrix negative = Sym({{-0.004}});
  EXPECT_EQ(negative.LTDetInverse(det, 1), 0);
  EXPECT_DOUBLE_EQ(det[0], -4.0);
  EXPECT_EQ(det[1], -3.0);
}

TEST(LTDetInverse, BothOrNeither) {
  QVSymMatrix l = Sym({{2}, {4, 5}});
  double det[2] = {7, 7};
  EXPECT_EQ(l.LTDetInverse(det, 0), 0);
  EXPECT_EQ(det[0], 7.0);
  EXPECT_EQ(l.AsVector(), (V{2, 4, 5}));
  EXPECT_EQ(l.LTDetInverse(nullptr, 0), 0);
  EXPECT_EQ(l.LTDetInverse(det, 11), 0);
  EXPECT_EQ(det[0], 1.0);
  EXPECT_EQ(det[1], 1.0);
  EXPECT_EQ(l.AsVector(), (V{0.5, -0.4, 0.2}));
  l = Sym({{2}, {4, 5}});
  EXPECT_EQ(l.LTDetInverse(nullptr, 10), 0);
  EXPECT_EQ(l.AsVector(), (V{0.5, -0.4, 0.2}));
}

TEST(LTDetInverse, ZeroPivots) {
  QVSymMatrix l = Sym({{2}, {1, 0}, {4, 0, 5}, {1, 1, 1, 0}});
  double det[2] = {7, 7};
  EXPECT_EQ(l.LTDetInverse(det, 11), 2);
  EXPECT_EQ(det[0], 0.0);
  EXPECT_EQ(det[1], 0.0);
  EXPECT_EQ(l.AsVector(), (V{0.5, 0, 0, -0.4, 0, 0.2, 0, 0, 0, 0}));
  EXPECT_EQ(l.LTDetInverse(nullptr, 0), 2);
}

TEST(LTDetInverse, EmptyMatrix) {
  double det[2] = {7, 7};
  EXPECT_EQ(QVSymMatrix().LTDetInverse(det, 11), 0);
  EXPECT_EQ(det[0], 1.0);
  EXPECT_EQ(det[1], 0.0);
}

TEST(LTDetInverse, InverseTimesFactorIsTheIdentity) {
  for (const int n : OrdersWithBlocks()) {
    const QVSymMatrix l = Factor(RandomPositive(n, 1));
    QVSymMatrix inverse = l;
    EXPECT_EQ(inverse.LTDetInverse(nullptr, 10), 0);
    const Full x = FromLower(inverse);
    const Full product = Multiply(x, FromLower(l));
    // As for LAPACK's triangular inverses: |X L - I| / (n |X| |L| epsilon).
    const double scale =
        std::max(1, n) * Norm(x) * Norm(FromLower(l)) * std::numeric_limits<double>::epsilon();
    if (n > 0) {
      EXPECT_LT(Norm(Add(product, Identity(n), -1.0L)) / scale, kResidualBound) << n;
    }
  }
}

// --- Products of a factor with its transpose ----------------------------------------------------

TEST(LTProducts, AgainstFullMatrices) {
  for (const int n : OrdersWithBlocks()) {
    const QVSymMatrix l = RandomSym(n, 2);
    const Full lower = FromLower(l);
    QVSymMatrix s = l;
    s.LTLLTrans();
    EXPECT_LT(ScaledResidual(FromSym(s), Multiply(lower, Transpose(lower))), kResidualBound);
    s = l;
    s.LTLTransL();
    EXPECT_LT(ScaledResidual(FromSym(s), Multiply(Transpose(lower), lower)), kResidualBound);
  }
}

TEST(LTProducts, FactorTimesItsTransposeIsTheMatrix) {
  for (const int n : {1, 3, 33, 65, 129}) {
    const QVSymMatrix a = RandomPositive(n, 3);
    QVSymMatrix s = Factor(a);
    s.LTLLTrans();
    EXPECT_LT(ScaledResidual(FromSym(s), FromSym(a)), kResidualBound);
  }
}

// --- LTInverse and CholInverse ------------------------------------------------------------------

TEST(LTInverse, OfADiagonalMatrix) {
  QVSymMatrix s = Factor(Sym({{4}, {0, 9}}));
  EXPECT_TRUE(s.LTInverse());
  EXPECT_DOUBLE_EQ(s.GetElem(0, 0), 0.25);
  EXPECT_EQ(s.GetElem(1, 0), 0.0);
  EXPECT_DOUBLE_EQ(s.GetElem(1, 1), 1.0 / 9.0);
  EXPECT_TRUE(QVSymMatrix().LTInverse());
}

TEST(CholInverse, InverseOfPositiveDefinite) {
  for (const int n : OrdersWithBlocks()) {
    const QVSymMatrix a = RandomPositive(n, 1);
    QVSymMatrix out(3, true);
    EXPECT_EQ(a.CholInverse(Diagonal(a), 1e-12, out), n);
    if (n == 0) continue;
    const Full product = Multiply(FromSym(a), FromSym(out));
    const double scale =
        n * Norm(FromSym(a)) * Norm(FromSym(out)) * std::numeric_limits<double>::epsilon();
    EXPECT_LT(Norm(Add(product, Identity(n), -1.0L)) / scale, kResidualBound) << n;
  }
}

TEST(CholInverse, GeneralisedWhereRowsDepend) {
  for (const int n : {7, 33, 70})
    for (const I & planted : PlantedPlaces(n)) {
      const QVSymMatrix a = WithDependentRows(n, planted);
      QVSymMatrix g;
      QVBitSet accepted;
      const int rank = n - static_cast<int>(planted.size());
      EXPECT_EQ(a.CholInverse(Diagonal(a), 1e-10, g, accepted), rank);
      EXPECT_EQ(accepted.InSet(), rank);
      for (const int k : planted)
        for (int j = 0; j < n; ++j)
          EXPECT_EQ(g.GetElem(k, j), 0.0);
      const Full full = FromSym(a);
      const Full aga = Multiply(Multiply(full, FromSym(g)), full);
      const double condition = Norm(full) * Norm(FromSym(g));
      EXPECT_LT(ScaledResidual(aga, full), kResidualBound * condition);
    }
}

TEST(CholInverse, SmallestDiagonalElementOfTheFactor) {
  QVSymMatrix out;
  double minDiag = 7.0;
  EXPECT_EQ(Sym({{16}, {0, 4}}).CholInverse({1, 1}, 1e-10, out, minDiag), 2);
  EXPECT_EQ(minDiag, 2.0);
  EXPECT_EQ(Sym({{1}, {1, 1}}).CholInverse({1, 1}, 1e-10, out, minDiag), 1);
  EXPECT_EQ(minDiag, 0.0);
  EXPECT_EQ(QVSymMatrix().CholInverse({}, 1e-10, out, minDiag), 0);
  EXPECT_EQ(minDiag, kLowest);
}

TEST(CholInverse, MatrixItselfMayBeTheTarget) {
  for (const int n : {4, 70}) {
    const QVSymMatrix a = RandomPositive(n, 5);
    QVSymMatrix out, self = a;
    EXPECT_EQ(a.CholInverse(Diagonal(a), 1e-12, out), n);
    EXPECT_EQ(self.CholInverse(Diagonal(a), 1e-12, self), n);
    EXPECT_EQ(self.AsVector(), out.AsVector());
  }
}

TEST(CholInverse, TakesTheThreeSizesAndLeavesItsOwnMatrix) {
  QVSymMatrix a(2, 2, true);
  a.AddToDiagonal(2.0);
  QVSymMatrix out;
  EXPECT_EQ(a.CholInverse(V(4, 1.0), 1e-10, out), 4);
  EXPECT_EQ(out.GetNBlocks(), 2);
  EXPECT_EQ(out.GetBlockSize(), 2);
  EXPECT_EQ(a.GetElem(3, 3), 2.0);
}

TEST(CholInverse, RefusesAnotherTypeOfTarget) {
  const QVSymMatrix a = Sym({{4}, {2, 3}});
  NotDense out(3, true);
  QVBitSet accepted({true, true, true});
  double minDiag = 7.0;
  EXPECT_EQ(a.CholInverse({1, 1}, 1e-10, out), -1);
  EXPECT_EQ(a.CholInverse({1, 1}, 1e-10, out, accepted), -1);
  EXPECT_EQ(a.CholInverse({1, 1}, 1e-10, out, minDiag), -1);
  EXPECT_EQ(out.GetNRows(), 3);
  EXPECT_EQ(accepted.InSet(), 3);
  EXPECT_EQ(minDiag, 7.0);
}

TEST(CholInverse, StorageThatCannotBeHad) {
  const QVSymMatrix a = RandomPositive(40, 1);
  const V ref = Diagonal(a);
  QVSymMatrix out;
  {
    const AllocationLimit limit(3000);
    EXPECT_EQ(a.CholInverse(ref, 1e-10, out), -1);
  }
  EXPECT_FALSE(out.IsValidMatrix());
}

}  // namespace
