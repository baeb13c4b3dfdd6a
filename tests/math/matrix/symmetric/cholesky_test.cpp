// The Cholesky factor: arguments, deficiency, thresholds, and what is built on it without the
// inverse or a solution.
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
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

// --- LTChol: arguments --------------------------------------------------------------------------

TEST(LTChol, RefusesNegativeTolerancesAndReferences) {
  const QVSymMatrix a = Sym({{4}, {2, 3}});
  QVSymMatrix s = a;
  EXPECT_EQ(s.LTChol({1, 1}, -1e-9, true), -1);
  EXPECT_EQ(s.LTChol({1, -1e-9}, 1e-9, true), -1);
  EXPECT_EQ(s.LTChol({1}, 1e-9, true), -1);
  EXPECT_EQ(s.AsVector(), a.AsVector());
  EXPECT_EQ(s.LTChol({1, 1, -5}, 1e-9, true), 0);  // what stands behind the n values is not read
  s = a;
  EXPECT_EQ(s.LTChol({0, 0}, 0.0, true), 0);  // zeros are accepted
  s = a;
  EXPECT_EQ(s.LTChol({1, 1}, -1e-9, false), 0);
}

TEST(LTChol, EmptyMatrix) {
  QVSymMatrix s;
  EXPECT_EQ(s.LTChol({}, 1e-9, true), 0);
  EXPECT_EQ(s.LTChol({}, -1e-9, true), -1);
  double minDiag = 7.0;
  EXPECT_EQ(s.LTChol(1e-9, minDiag, true), 0);
  EXPECT_EQ(minDiag, kLowest);
}

TEST(LTChol, SetIsClearedBeforeTheArgumentsAreTested) {
  QVSymMatrix s = Sym({{4}, {2, 3}});
  QVBitSet accepted(1);
  accepted.Set(0, true);
  EXPECT_EQ(s.LTChol({1, 1}, -1.0, accepted, true), -1);
  EXPECT_EQ(accepted.Size(), 2);
  EXPECT_EQ(accepted.InSet(), 0);
  accepted = QVBitSet({true, true, true, true});
  EXPECT_EQ(s.LTChol({1, -1}, 1.0, accepted, true), -1);
  EXPECT_EQ(accepted.Size(), 4);  // a larger set keeps its size
  EXPECT_EQ(accepted.InSet(), 0);
  EXPECT_EQ(s.LTChol({1, 1}, 1e-9, accepted, true), 0);
  EXPECT_TRUE(accepted == QVBitSet({true, true, false, false}));
}

// --- LTChol: factor and deficiency --------------------------------------------------------------

TEST(LTChol, FactorGivesTheMatrixBack) {
  for (const int n : OrdersWithBlocks()) {
    const QVSymMatrix a = RandomPositive(n, 1);
    QVSymMatrix l = a;
    EXPECT_EQ(l.LTChol(Diagonal(a), 1e-10, true), 0);
    EXPECT_LT(FactorResidual(l, a), kResidualBound) << n;
    QVBitSet accepted;
    QVSymMatrix again = a;
    EXPECT_EQ(again.LTChol(Diagonal(a), 1e-10, accepted, true), 0);
    EXPECT_EQ(accepted.Size(), n);
    EXPECT_EQ(accepted.InSet(), n);
    EXPECT_EQ(again.AsVector(), l.AsVector());
  }
}

TEST(LTChol, MatrixOfOnes) {
  QVSymMatrix s = Sym({{1}, {1, 1}});
  EXPECT_EQ(s.LTChol({1, 1}, 1e-10, true), 1);
  EXPECT_EQ(s.AsVector(), (V{1, 1, 0}));
}

TEST(LTChol, RowBehindAZeroedRowKeepsItsOtherElements) {
  QVSymMatrix s = Sym({{4}, {4, 4}, {2, 2, 5}});
  QVBitSet accepted;
  EXPECT_EQ(s.LTChol({4, 4, 5}, 1e-10, accepted, true), 1);
  EXPECT_EQ(s.AsVector(), (V{2, 2, 0, 1, 0, 2}));
  EXPECT_TRUE(accepted == QVBitSet({true, false, true}));
}

TEST(LTChol, ElementsOfAZeroedRowStay) {
  QVSymMatrix s = Sym({{4}, {6, 9}});
  EXPECT_EQ(s.LTChol({4, 9}, 1e-10, true), 1);
  EXPECT_EQ(s.AsVector(), (V{2, 3, 0}));
}

TEST(LTChol, ThresholdIsStrict) {
  QVSymMatrix zero = Sym({{0}});
  EXPECT_EQ(zero.LTChol({1}, 0.0, true), 1);  // 0.0 is not above 0.0
  QVSymMatrix s = Sym({{1}});
  EXPECT_EQ(s.LTChol({4}, 0.25, true), 1);  // 1.0 is not above 0.25 x 4.0
  s = Sym({{1}});
  EXPECT_EQ(s.LTChol({4}, 0.2499999999999999, true), 0);
}

TEST(LTChol, NegativeAndNaNPivotsAreZeroed) {
  QVSymMatrix s = Sym({{-4}, {2, 9}});
  EXPECT_EQ(s.LTChol({1, 1}, 0.0, true), 1);
  EXPECT_EQ(s.AsVector(), (V{0, 0, 3}));
  QVSymMatrix nan = Sym({{kNaN}, {2, 9}});
  EXPECT_EQ(nan.LTChol({1, 1}, 0.0, true), 1);
  EXPECT_EQ(nan.AsVector(), (V{0, 0, 3}));
}

TEST(LTChol, FindsPlantedDependentRows) {
  for (const int n : {7, 33, 65, 129})
    for (const I & planted : PlantedPlaces(n)) {
      const QVSymMatrix a = WithDependentRows(n, planted);
      QVSymMatrix l = a;
      QVBitSet accepted;
      EXPECT_EQ(l.LTChol(Diagonal(a), 1e-10, accepted, true), static_cast<int>(planted.size()));
      QVBitSet wanted(n);
      wanted.Negate();
      wanted.SetSubset(planted, false);
      EXPECT_TRUE(accepted == wanted) << n << ' ' << planted.front();
      EXPECT_LT(FactorResidual(l, a), kResidualBound);
      for (const int k : planted)
        EXPECT_EQ(l.GetElem(k, k), 0.0);
    }
}

TEST(LTChol, ToleranceDecidesOnNearlyDependentRows) {
  const int n = 33;
  for (const int place : {1, n / 2, n - 1}) {
    const QVSymMatrix a = WithDependentRows(n, {place}, 1e-4);  // a pivot square near 1e-8 a_kk
    QVSymMatrix l = a;
    EXPECT_EQ(l.LTChol(Diagonal(a), 1e-6, true), 1);
    l = a;
    EXPECT_EQ(l.LTChol(Diagonal(a), 1e-11, true), 0);
    EXPECT_LT(FactorResidual(l, a), kResidualBound);
  }
}

TEST(LTChol, HilbertAndGraded) {
  for (const int n : {3, 7, 12}) {
    const QVSymMatrix a = Hilbert(n);
    QVSymMatrix l = a;
    EXPECT_EQ(l.LTChol(Diagonal(a), 0.0, true), 0);
    EXPECT_LT(FactorResidual(l, a), kResidualBound);
  }
  QVSymMatrix singular = Hilbert(20);
  EXPECT_GT(singular.LTChol(Diagonal(singular), 1e-15, true), 0);
  for (const int n : {7, 33, 70}) {
    const QVSymMatrix a = Graded(n, 3);
    QVSymMatrix l = a;
    EXPECT_EQ(l.LTChol(Diagonal(a), 1e-10, true), 0);  // relative to each row's own diagonal
    EXPECT_LT(FactorResidual(l, a), kResidualBound);
  }
}

TEST(LTChol, OwnReferenceIsTheLargestDiagonalElement) {
  const QVSymMatrix a = Sym({{100}, {0, 1}, {0, 0, 25}});
  QVSymMatrix s = a;
  double minDiag;
  EXPECT_EQ(s.LTChol(0.02, minDiag, true), 1);  // 1.0 is below 0.02 x 100
  EXPECT_EQ(minDiag, 0.0);
  s = a;
  EXPECT_EQ(s.LTChol(0.001, minDiag, true), 0);
  EXPECT_EQ(minDiag, 1.0);
  s = a;
  EXPECT_EQ(s.LTChol(-1.0, minDiag, true), -1);
  EXPECT_EQ(minDiag, kLowest);
  EXPECT_EQ(s.AsVector(), a.AsVector());
}

// --- CholIndNonRed ------------------------------------------------------------------------------

TEST(CholIndNonRed, ListsTheIndependentRows) {
  for (const int n : {7, 33, 70})
    for (const I & planted : PlantedPlaces(n)) {
      const QVSymMatrix a = WithDependentRows(n, planted);
      I wanted;
      for (int i = 0; i < n; ++i)
        if (std::find(planted.begin(), planted.end(), i) == planted.end()) wanted.push_back(i);
      I rows{99};
      EXPECT_EQ(a.CholIndNonRed(0, 1e-10, rows), static_cast<int>(wanted.size()));
      EXPECT_EQ(rows, wanted);
      EXPECT_EQ(a.AsVector(), WithDependentRows(n, planted).AsVector());
    }
}

TEST(CholIndNonRed, StopsAtTheWantedNumber) {
  for (const int n : {7, 70}) {
    const QVSymMatrix a = WithDependentRows(n, {1});
    I rows;
    EXPECT_EQ(a.CholIndNonRed(3, 1e-10, rows), 3);
    EXPECT_EQ(rows, (I{0, 2, 3}));
    for (const int all : {0, -1, n, n + 1}) {
      EXPECT_EQ(a.CholIndNonRed(all, 1e-10, rows), n - 1);
      EXPECT_EQ(static_cast<int>(rows.size()), n - 1);
    }
  }
}

TEST(CholIndNonRed, NegativeToleranceAndEmptyMatrixGiveNone) {
  I rows{1, 2};
  EXPECT_EQ(Sym({{4}, {2, 3}}).CholIndNonRed(0, -1.0, rows), 0);
  EXPECT_TRUE(rows.empty());
  rows = {1, 2};
  EXPECT_EQ(QVSymMatrix().CholIndNonRed(0, 1e-10, rows), 0);
  EXPECT_TRUE(rows.empty());
}

// --- ComputeDeterminant -------------------------------------------------------------------------

double Value(const double * det) {
  return det[0] * std::pow(10.0, det[1]);
}

TEST(ComputeDeterminant, SmallMatrices) {
  double det[2];
  const QVSymMatrix a = Sym({{4}, {2, 3}});
  EXPECT_TRUE(a.ComputeDeterminant(1e-12, det));
  EXPECT_NEAR(Value(det), 8.0, 1e-14);
  EXPECT_EQ(det[1], 0.0);
  EXPECT_EQ(a.AsVector(), (V{4, 2, 3}));
  EXPECT_TRUE(Sym({{1e200}, {0, 1e150}}).ComputeDeterminant(1e-60, det));
  EXPECT_NEAR(det[0], 1.0, 1e-13);
  EXPECT_EQ(det[1], 350.0);  // past the range of a double
  EXPECT_TRUE(Sym({{2e-200}, {0, 3e-200}}).ComputeDeterminant(1e-60, det));
  EXPECT_NEAR(det[0], 6.0, 1e-13);
  EXPECT_EQ(det[1], -400.0);
}

TEST(ComputeDeterminant, AgainstEliminationInLongDouble) {
  for (const int n : {3, 7, 33, 65}) {
    const QVSymMatrix a = RandomPositive(n, 2);
    Full u = FromSym(a);
    long double log10 = 0.0L;
    for (int k = 0; k < n; ++k) {
      log10 += std::log10(u(k, k));
      for (int i = k + 1; i < n; ++i)
        for (int j = k + 1; j < n; ++j)
          u(i, j) -= u(i, k) / u(k, k) * u(k, j);
    }
    double det[2];
    ASSERT_TRUE(a.ComputeDeterminant(1e-12, det));
    EXPECT_NEAR(std::log10(det[0]) + det[1], static_cast<double>(log10), 1e-13 * n);
    EXPECT_GE(det[0], 1.0);
    EXPECT_LT(det[0], 10.0);
  }
}

TEST(ComputeDeterminant, SingularIsNoFailure) {
  double det[2] = {7, 7};
  EXPECT_TRUE(Sym({{1}, {1, 1}}).ComputeDeterminant(1e-12, det));
  EXPECT_EQ(det[0], 0.0);
  EXPECT_EQ(det[1], 0.0);
}

TEST(ComputeDeterminant, EmptyMatrixAndNegativeToleranceAreRefused) {
  double det[2] = {7, 7};
  EXPECT_FALSE(QVSymMatrix().ComputeDeterminant(1e-12, det));
  EXPECT_FALSE(Sym({{1}}).ComputeDeterminant(-1e-12, det));
  EXPECT_EQ(det[0], 7.0);
  EXPECT_EQ(det[1], 7.0);
}

// --- TransformToPositiveDefinite ----------------------------------------------------------------

TEST(TransformToPositiveDefinite, LeavesAPositiveDefiniteMatrix) {
  const QVSymMatrix a = RandomPositive(5, 1);
  QVSymMatrix s = a;
  bool changed = true;
  double shift = 7.0;
  EXPECT_EQ(s.TransformToPositiveDefinite(1e-6, changed, shift), 1);
  EXPECT_FALSE(changed);
  EXPECT_EQ(shift, 0.0);
  EXPECT_EQ(s.AsVector(), a.AsVector());
}

TEST(TransformToPositiveDefinite, BadArguments) {
  bool changed = true;
  double shift = 7.0;
  QVSymMatrix one = Sym({{-1}});
  EXPECT_EQ(one.TransformToPositiveDefinite(1e-6, changed, shift), -1);
  EXPECT_FALSE(changed);
  EXPECT_EQ(shift, 0.0);
  EXPECT_EQ(one.TransformToPositiveDefinite(-1.0, changed, shift), -1);  // the order comes first
  QVSymMatrix two = Sym({{1}, {2, 1}});
  EXPECT_EQ(two.TransformToPositiveDefinite(0.0, changed, shift), -2);
  EXPECT_EQ(two.TransformToPositiveDefinite(-1.0, changed, shift), -2);
  EXPECT_EQ(two.AsVector(), (V{1, 2, 1}));
}

/// The shift that lets A + shift I factor, by the same trials on full matrices.
double FindShift(const QVSymMatrix & a, double tol, int & trials) {
  const int n = a.GetNRows();
  double ref = 0.0, largest = 0.0;
  for (int i = 0; i < n; ++i) {
    ref = std::max(ref, a.GetElem(i, i));
    for (int j = 0; j <= i; ++j)
      largest = std::max(largest, std::abs(a.GetElem(i, j)));
  }
  trials = 1;
  const auto isPositive = [&](double shift) {
    Full l = FromSym(a);
    ++trials;
    for (int i = 0; i < n; ++i) {
      l(i, i) += shift;
      for (int j = 0; j <= i; ++j) {
        for (int k = 0; k < j; ++k)
          l(i, j) -= l(i, k) * l(j, k);
        if (j < i) l(i, j) /= l(j, j);
      }
      if (!(l(i, i) > tol * ref)) return false;
      l(i, i) = std::sqrt(l(i, i));
    }
    return true;
  };
  const double step = std::max(largest, n == 2 ? 1.0 : n - 2.0);
  double low = 0.0, high = step;
  while (!isPositive(high))
    high += step;
  while (true) {
    const double mid = (high + low) * 0.5;
    double width = high - low;
    if (mid > 1.0) width /= mid;
    if (!(width / 2 > tol)) return high;
    (isPositive(mid) ? high : low) = mid;
  }
}

TEST(TransformToPositiveDefinite, ShiftsAndScales) {
  for (const int n : {2, 3, 7, 33}) {
    const QVSymMatrix a = RandomSym(n, 4);
    int wantedTrials;
    const double added = FindShift(a, 1e-6, wantedTrials);
    QVSymMatrix s = a;
    bool changed = false;
    double shift = 0.0;
    EXPECT_EQ(s.TransformToPositiveDefinite(1e-6, changed, shift), wantedTrials);
    EXPECT_TRUE(changed);
    double maxDiag = 0.0, ref = 0.0;
    for (int i = 0; i < n; ++i) {
      ref = std::max(ref, a.GetElem(i, i));
      maxDiag = std::max(maxDiag, a.GetElem(i, i) + added);
    }
    const double wantedShift = added + 0.01 * maxDiag;
    EXPECT_NEAR(shift, wantedShift, 1e-14 * wantedShift);
    for (int i = 0; i < n; ++i)
      for (int j = 0; j <= i; ++j)
        EXPECT_NEAR(s.GetElem(i, j),
                    (a.GetElem(i, j) + (i == j ? wantedShift : 0.0)) / (wantedShift + ref), 1e-14);
    QVSymMatrix l = s;
    EXPECT_EQ(l.LTChol(Diagonal(s), 1e-6, true), 0);
  }
}

TEST(TransformToPositiveDefinite, EndsForInputThatIsNoNumber) {
  for (const double bad : {kNaN, kInfinity, -kInfinity}) {
    QVSymMatrix s = Sym({{1}, {2, bad}, {0, 1, 1}});
    bool changed;
    double shift;
    const int trials = s.TransformToPositiveDefinite(1e-6, changed, shift);
    EXPECT_GT(trials, 0);
    EXPECT_LE(trials, 2001);
  }
}

// --- CheckMDependent ----------------------------------------------------------------------------

TEST(CheckMDependent, CountsTheDependentRowsOfASelection) {
  const V packed = WithDependentRows(7, {3}).AsVector();  // row 3 = row 2 + row 1
  QVSymMatrix s;
  QVBitSet rows(7);
  rows.Negate();
  EXPECT_EQ(s.CheckMDependent(7, packed, rows, 1e-10), 1);
  EXPECT_EQ(s.GetNRows(), 7);
  rows.Set(1, false);
  EXPECT_EQ(s.CheckMDependent(7, packed, rows, 1e-10), 0);
  EXPECT_EQ(s.GetNRows(), 6);
  rows.Clear();
  EXPECT_EQ(s.CheckMDependent(7, packed, rows, 1e-10), 0);
  EXPECT_EQ(s.GetNRows(), 0);
}

TEST(CheckMDependent, MatrixHoldsTheFactorOfTheSelection) {
  const QVSymMatrix a = RandomPositive(5, 3);
  QVSymMatrix s;
  EXPECT_EQ(s.CheckMDependent(5, a.AsVector(), QVBitSet({true, false, true, true, false}), 1e-10),
            0);
  QVSymMatrix wanted;
  ASSERT_TRUE(a.ExtractSubmatrix({0, 2, 3}, wanted));
  double minDiag;
  wanted.LTChol(1e-10, minDiag, false);
  EXPECT_EQ(s.AsVector(), wanted.AsVector());
}

TEST(CheckMDependent, Refusals) {
  QVSymMatrix s = Sym({{9}});
  const V packed = {1, 0, 1};
  QVBitSet rows(2);
  rows.Negate();
  EXPECT_EQ(s.CheckMDependent(-1, packed, rows, 1e-10), -1);
  EXPECT_EQ(s.CheckMDependent(2, V{1, 0}, rows, 1e-10), -1);
  EXPECT_EQ(s.CheckMDependent(2, packed, QVBitSet(1), 1e-10), -1);
  EXPECT_EQ(s.CheckMDependent(0, V{}, QVBitSet(), 1e-10), 0);
  EXPECT_EQ(s.AsVector(), V{9});
}

TEST(CheckMDependent, StorageThatCannotBeHad) {
  const V packed = RandomPositive(40, 1).AsVector();
  QVBitSet rows(40);
  rows.Negate();
  QVSymMatrix s;
  {
    const AllocationLimit limit(3000);
    EXPECT_EQ(s.CheckMDependent(40, packed, rows, 1e-10), -2);
  }
  EXPECT_FALSE(s.IsValidMatrix());
}

}  // namespace
