// The sweep operator: single sweeps against a literal copy of the definition and against the block
// formulas, the tolerance tests at their bounds, and the three list forms.
#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "QVSymMatrix.h"
#include "math/matrix/allocation_limit.h"
#include "math/matrix/reference.h"

namespace {

using QVMath_940::QVBitSet;
using QVMath_940::QVSymMatrix;
using reference::At;
using reference::FromSym;
using reference::Full;
using reference::RandomPositive;
using reference::RandomSym;
using reference::SameBits;
using reference::Sym;
using V = std::vector<double>;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kTol = 1e-8;

std::vector<int> RowsIn(const QVBitSet & set, int n, bool value) {
  std::vector<int> rows;
  for (int i = 0; i < n; ++i)
    if (set.IsIn(i) == value) rows.push_back(i);
  return rows;
}

// The definition, on a full square of doubles: no packing, no order of rows that matters.
V SweepByDefinition(const QVSymMatrix & s, int k) {
  const int n = s.GetNRows();
  std::vector<V> a(At(n), V(At(n)));
  for (int i = 0; i < n; ++i)
    for (int j = 0; j < n; ++j)
      a[At(i)][At(j)] = s.GetElem(i, j);
  const double p = -1.0 / a[At(k)][At(k)];
  V old(At(n)), scaled(At(n));
  for (int i = 0; i < n; ++i) {
    old[At(i)] = a[At(i)][At(k)];
    scaled[At(i)] = std::abs(p) * old[At(i)];
  }
  V packed;
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j <= i; ++j) {
      const double b = p < 0.0 ? -old[At(i)] : old[At(i)];
      if (i == k && j == k) {
        packed.push_back(p);
      } else if (i == k || j == k) {
        packed.push_back(scaled[At(i == k ? j : i)]);
      } else {
        packed.push_back(a[At(i)][At(j)] + b * scaled[At(j)]);
      }
    }
  }
  return packed;
}

// The three blocks that sweeping the rows of `swept` must leave.
Full SweptByFormula(const Full & a, const QVBitSet & swept) {
  const int n = a.Rows();
  const std::vector<int> k = RowsIn(swept, n, true);
  const std::vector<int> j = RowsIn(swept, n, false);
  const Full inverse = reference::Inverse(reference::Part(a, k, k));
  const Full coefficients = Multiply(inverse, reference::Part(a, k, j));
  const Full residual = reference::Add(reference::Part(a, j, j),
                                       Multiply(reference::Part(a, j, k), coefficients), -1.0L);
  Full result(n, n);
  for (int p = 0; p < inverse.Rows(); ++p) {
    for (int q = 0; q < inverse.Rows(); ++q)
      result(k[At(p)], k[At(q)]) = -inverse(p, q);
    for (int q = 0; q < residual.Rows(); ++q)
      result(k[At(p)], j[At(q)]) = result(j[At(q)], k[At(p)]) = coefficients(p, q);
  }
  for (int p = 0; p < residual.Rows(); ++p)
    for (int q = 0; q < residual.Rows(); ++q)
      result(j[At(p)], j[At(q)]) = residual(p, q);
  return result;
}

// --- The single sweep ---------------------------------------------------------------------------

TEST(Sweep, WorkedExample) {
  QVSymMatrix s = Sym({{4}, {2, 3}});
  QVBitSet swept(2);
  const V ref{4, 3};
  EXPECT_TRUE(s.Sweep(0, kTol, ref, swept, true));
  EXPECT_EQ(s.AsVector(), (V{-0.25, 0.5, 2.0}));
  EXPECT_TRUE(swept.IsIn(0));
  EXPECT_FALSE(swept.IsIn(1));
  EXPECT_TRUE(s.Sweep(0, kTol, ref, swept, true));
  EXPECT_EQ(s.AsVector(), (V{4, 2, 3}));
  EXPECT_EQ(swept.InSet(), 0);
}

TEST(Sweep, EveryRowAtEveryOrderByDefinition) {
  for (int n : {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 33, 64, 65, 129}) {
    const QVSymMatrix original = RandomPositive(n, 1);
    const V ref(At(n), 1.0);
    for (int k = 0; k < n; k += n < 20 ? 1 : 7) {
      QVSymMatrix fast = original;
      QVSymMatrix plain = original;
      QVBitSet fastSet(n), plainSet(n);
      ASSERT_TRUE(fast.Sweep(k, kTol, ref, fastSet, true));
      ASSERT_TRUE(plain.SweepOrig(k, kTol, ref, plainSet, true));
      if (n < 64) {
        EXPECT_TRUE(SameBits(plain.AsVector(), SweepByDefinition(original, k))) << n << " " << k;
      }
      EXPECT_TRUE(SameBits(fast.AsVector(), plain.AsVector())) << n << " " << k;
      EXPECT_TRUE(fastSet == plainSet);

      const QVSymMatrix forward = fast;  // and back
      ASSERT_TRUE(fast.Sweep(k, kTol, ref, fastSet, true));
      ASSERT_TRUE(plain.SweepOrig(k, kTol, ref, plainSet, true));
      if (n < 64) {
        EXPECT_TRUE(SameBits(plain.AsVector(), SweepByDefinition(forward, k))) << n << " " << k;
      }
      EXPECT_TRUE(SameBits(fast.AsVector(), plain.AsVector())) << n << " " << k;
      EXPECT_TRUE(fastSet == plainSet);
      EXPECT_FALSE(fastSet.IsIn(k));
      EXPECT_LT(reference::ScaledResidual(FromSym(fast), FromSym(original)),
                reference::kResidualBound);
    }
  }
}

TEST(Sweep, ThreeBlocksOfASweptMatrix) {
  for (int n : reference::Orders()) {
    const QVSymMatrix original = RandomPositive(n, 2);
    V ref;
    original.GetDiagonal(ref);
    QVSymMatrix s = original;
    QVBitSet swept(n);
    for (int k = n - 1; k >= 0; k -= 3)
      EXPECT_TRUE(s.Sweep(k, kTol, ref, swept, true));
    for (int k = 0; k < n; k += 3)
      if (!swept.IsIn(k)) {
        EXPECT_TRUE(s.Sweep(k, kTol, ref, swept, true));
      }
    EXPECT_LT(reference::ScaledResidual(FromSym(s), SweptByFormula(FromSym(original), swept)),
              reference::kResidualBound)
        << n;
  }
}

TEST(Sweep, OrderOfRowsDoesNotMatter) {
  const int n = 12;
  const QVSymMatrix original = RandomPositive(n, 3);
  const V ref(At(n), 1.0);
  QVSymMatrix up = original, down = original;
  QVBitSet upSet(n), downSet(n);
  for (int k = 0; k < 8; ++k)
    up.Sweep(k, kTol, ref, upSet, true);
  for (int k = 7; k >= 0; --k)
    down.Sweep(k, kTol, ref, downSet, true);
  EXPECT_LT(reference::ScaledResidual(FromSym(up), FromSym(down)), reference::kResidualBound);
}

TEST(Sweep, RegressionCoefficients) {
  // y = 2 + 3 x exactly, over x = 0, 1, 2, 5; columns: intercept, x, y.
  QVSymMatrix s(3, true);
  for (double x : {0.0, 1.0, 2.0, 5.0})
    s.UpdateXX({1.0, x, 2.0 + 3.0 * x}, 1.0);
  QVBitSet swept;
  double logDet = 0.0;
  ASSERT_TRUE(s.SweepOnMany(2, 1e-12, true, swept, logDet, true, nullptr));
  V b;
  ASSERT_TRUE(s.GetRegCoeffs(b, swept));
  ASSERT_EQ(b.size(), 2u);
  EXPECT_NEAR(b[0], 2.0, 1e-13);
  EXPECT_NEAR(b[1], 3.0, 1e-13);
  EXPECT_NEAR(s.GetElem(2, 2), 0.0, 1e-11);  // no residual
  EXPECT_NEAR(logDet, std::log(4.0 * 30.0 - 8.0 * 8.0), 1e-13);
}

TEST(Sweep, WorksWithoutAllocation) {
  QVSymMatrix s = RandomPositive(33, 4);
  const V ref(33, 1.0);
  QVBitSet swept(33);
  bool done = true;
  {
    const AllocationLimit limit(0);
    for (int k = 0; k < 33; ++k)
      done = done && s.Sweep(k, kTol, ref.data(), swept, true);
  }
  EXPECT_TRUE(done);
  EXPECT_EQ(swept.InSet(), 33);
}

// --- Arguments ----------------------------------------------------------------------------------

class SweepArguments : public testing::Test {
 protected:
  void ExpectRefused(int k, double tol, const V & ref, QVBitSet & set) {
    const QVBitSet before = set;
    EXPECT_FALSE(s.Sweep(k, tol, ref, set, true));
    EXPECT_FALSE(s.SweepOrig(k, tol, ref, set, true));
    EXPECT_EQ(s.AsVector(), (V{4, 2, 3}));
    EXPECT_TRUE(set == before);
  }
  QVSymMatrix s = Sym({{4}, {2, 3}});
  QVBitSet swept = QVBitSet(2);
};

TEST_F(SweepArguments, BadRow) {
  ExpectRefused(-1, kTol, {4, 3}, swept);
  ExpectRefused(2, kTol, {4, 3}, swept);
}

TEST_F(SweepArguments, ToleranceNotAboveZero) {
  ExpectRefused(0, 0.0, {4, 3}, swept);
  ExpectRefused(0, -1.0, {4, 3}, swept);
  ExpectRefused(0, kNaN, {4, 3}, swept);
}

TEST_F(SweepArguments, ShortSet) {
  QVBitSet one(1), none;
  ExpectRefused(0, kTol, {4, 3}, one);
  ExpectRefused(0, kTol, {4, 3}, none);
}

TEST_F(SweepArguments, OneNegativeReferenceWhicheverRowIsAsked) {
  ExpectRefused(0, kTol, {4, -1}, swept);
  ExpectRefused(1, kTol, {4, -1}, swept);
  ExpectRefused(1, kTol, {-1, 3}, swept);
}

TEST_F(SweepArguments, ShortOrNoReference) {
  ExpectRefused(0, kTol, {4}, swept);
  const double * none = nullptr;
  EXPECT_FALSE(s.Sweep(0, kTol, none, swept, true));
}

TEST_F(SweepArguments, EvenAReverseSweepTestsThem) {
  swept.Set(0, true);
  ExpectRefused(0, 0.0, {4, 3}, swept);
}

TEST_F(SweepArguments, LongerReferenceAndSetAreFine) {
  QVBitSet three(3);
  EXPECT_TRUE(s.Sweep(0, kTol, V{4, 3, -1}, three, true));
  EXPECT_EQ(three.InSet(), 1);
}

TEST_F(SweepArguments, UncheckedZeroToleranceTakesAPositivePivot) {
  EXPECT_TRUE(s.Sweep(0, 0.0, V{4, 3}, swept, false));
  EXPECT_EQ(s.AsVector(), (V{-0.25, 0.5, 2.0}));
}

TEST_F(SweepArguments, UncheckedRowOutsideTheSetIsSweptUnrecorded) {
  QVBitSet none;
  EXPECT_TRUE(s.Sweep(0, kTol, V{4, 3}, none, false));
  EXPECT_EQ(s.AsVector(), (V{-0.25, 0.5, 2.0}));
  EXPECT_EQ(none.Size(), 0);
}

// --- Tolerance ----------------------------------------------------------------------------------

TEST(SweepTolerance, BoundItselfIsRefused) {
  const V ref{8, 1};
  const double bound = 0.25 * 8;  // exactly 2
  for (bool plain : {false, true}) {
    for (double pivot : {bound, std::nextafter(bound, 0.0), 0.0, -1.0, kNaN}) {
      QVSymMatrix s = Sym({{pivot}, {1, 3}});
      const V before = s.AsVector();
      QVBitSet swept(2);
      EXPECT_FALSE(plain ? s.SweepOrig(0, 0.25, ref, swept, true)
                         : s.Sweep(0, 0.25, ref, swept, true));
      EXPECT_TRUE(SameBits(s.AsVector(), before));
      EXPECT_EQ(swept.InSet(), 0);
    }
    QVSymMatrix s = Sym({{std::nextafter(bound, 3.0)}, {1, 3}});
    QVBitSet swept(2);
    EXPECT_TRUE(plain ? s.SweepOrig(0, 0.25, ref, swept, true)
                      : s.Sweep(0, 0.25, ref, swept, true));
    EXPECT_TRUE(swept.IsIn(0));
  }
}

TEST(SweepTolerance, ZeroAndNegativePivotsAreRefusedAtEveryTolerance) {
  QVBitSet swept(1);
  for (double pivot : {0.0, -0.0, -5.0}) {
    QVSymMatrix s = Sym({{pivot}});
    EXPECT_FALSE(s.Sweep(0, 0.0, V{1}, swept, false));
    EXPECT_FALSE(s.Sweep(0, 1e-300, V{0}, swept, true));
  }
}

TEST(SweepTolerance, NaNReferenceIsRefused) {
  QVSymMatrix s = Sym({{1}});
  QVBitSet swept(1);
  EXPECT_FALSE(s.Sweep(0, kTol, V{kNaN}, swept, true));
  EXPECT_EQ(s.AsVector(), V{1});
}

TEST(SweepTolerance, InfinitePivotIsAccepted) {
  QVSymMatrix s = Sym({{kInfinity}});
  QVBitSet swept(1);
  EXPECT_TRUE(s.Sweep(0, kTol, V{1}, swept, true));
  EXPECT_EQ(s.GetElem(0), 0.0);
}

// Rows (1, 1), (1, 2): after row 0 the second sweep would take element (0, 0) from -1 to -2.
TEST(SweepTolerance, PivotThatSpoilsAnEarlierOneIsRefused) {
  const double tol = 0.25;
  for (bool plain : {false, true}) {
    QVSymMatrix s = Sym({{1}, {1, 2}});
    QVBitSet swept(2);
    ASSERT_TRUE(s.Sweep(0, tol, V{2, 1}, swept, true));
    const V before = s.AsVector();
    const V atBound{2, 1};  // -2 x 0.25 x 2 = -1: the bound is refused
    EXPECT_FALSE(plain ? s.SweepOrig(1, tol, atBound, swept, true)
                       : s.Sweep(1, tol, atBound, swept, true));
    EXPECT_TRUE(SameBits(s.AsVector(), before));
    EXPECT_EQ(swept.InSet(), 1);
    const V inside{std::nextafter(2.0, 0.0), 1};
    EXPECT_TRUE(plain ? s.SweepOrig(1, tol, inside, swept, true)
                      : s.Sweep(1, tol, inside, swept, true));
    EXPECT_EQ(s.AsVector(), (V{-2, 1, -1}));
  }
}

TEST(SweepTolerance, DifferenceIsMultipliedByToleranceThenReference) {
  QVSymMatrix s = Sym({{1e-300}, {0, 1}});
  QVBitSet swept(2);
  const V ref{0, 0};
  ASSERT_TRUE(s.Sweep(0, kTol, ref, swept, true));
  // -1e300 x 1e10 is -infinity, and that times 0.0 is no number above -1.0.
  EXPECT_FALSE(s.Sweep(1, 1e10, ref, swept, true));
  EXPECT_TRUE(s.Sweep(1, 1.0, ref, swept, true));
}

TEST(SweepTolerance, ReverseSweepIsNeverRefused) {
  QVSymMatrix s = Sym({{4}, {2, 3}});
  QVBitSet swept(2);
  ASSERT_TRUE(s.Sweep(0, kTol, V{4, 3}, swept, true));
  EXPECT_TRUE(s.Sweep(0, 1e6, V{4, 3}, swept, true));
  EXPECT_EQ(s.AsVector(), (V{4, 2, 3}));
}

TEST(SweepTolerance, ReverseSweepOfAZeroPivotStoresInfinities) {
  for (bool plain : {false, true}) {
    QVSymMatrix s = Sym({{0}, {3, 5}});
    QVBitSet swept(2);
    swept.Set(0, true);
    EXPECT_TRUE(plain ? s.SweepOrig(0, kTol, V{1, 1}, swept, true)
                      : s.Sweep(0, kTol, V{1, 1}, swept, true));
    EXPECT_EQ(s.AsVector(), (V{-kInfinity, kInfinity, -kInfinity}));
    EXPECT_FALSE(swept.IsIn(0));
  }
}

TEST(SweepTolerance, EveryElementIsUpdatedWithoutATestForZero) {
  QVSymMatrix s = Sym({{1}, {0, 1}, {kInfinity, 1, 1}});
  QVBitSet swept(3);
  EXPECT_TRUE(s.Sweep(0, kTol, V{1, 1, 1}, swept, true));
  EXPECT_TRUE(std::isnan(s.GetElem(2, 1)));  // 1 - infinity x 0
  EXPECT_EQ(s.GetElem(1, 1), 1.0);
}

// --- SweepOnAll ---------------------------------------------------------------------------------

// Cross-products of three columns, the third being the sum of the first two.
QVSymMatrix Deficient() {
  return Sym({{2}, {1, 3}, {3, 4, 7}});
}

TEST(SweepOnAll, GivesMinusTheInverse) {
  for (int n : reference::Orders()) {
    const QVSymMatrix original = RandomPositive(n, 5);
    for (bool changeSign : {false, true}) {
      QVSymMatrix s = original;
      QVBitSet swept(3);
      EXPECT_TRUE(s.SweepOnAll(kTol, swept, true, true, changeSign, nullptr));
      EXPECT_EQ(swept.Size(), n);
      EXPECT_EQ(swept.InSet(), n);
      Full wanted = reference::Inverse(FromSym(original));
      if (!changeSign) wanted = reference::Add(Full(n, n), wanted, -1.0L);
      EXPECT_LT(reference::ScaledResidual(FromSym(s), wanted), reference::kResidualBound) << n;
    }
  }
}

TEST(SweepOnAll, EqualsSingleSweeps) {
  for (int n : {1, 2, 3, 7, 33, 65}) {
    QVSymMatrix one = RandomSym(n, 6);  // indefinite: about half of the pivots are refused
    QVSymMatrix all = one;
    V ref(At(n), 1.0);
    QVBitSet oneSet(n), allSet;
    for (int k = 0; k < n; ++k)
      one.Sweep(k, 0.05, ref, oneSet, false);
    EXPECT_TRUE(all.SweepOnAll(0.05, allSet, true, false, false, ref.data()));
    EXPECT_TRUE(SameBits(all.AsVector(), one.AsVector()));
    EXPECT_TRUE(allSet == oneSet);
  }
}

TEST(SweepOnAll, RedundantRowStaysOut) {
  QVSymMatrix s = Deficient();
  QVBitSet swept;
  EXPECT_TRUE(s.SweepOnAll(kTol, swept, true, false, false, nullptr));
  EXPECT_EQ(swept.Size(), 3);
  EXPECT_EQ(swept.InSet(), 2);
  EXPECT_FALSE(swept.IsIn(2));
  EXPECT_NEAR(s.GetElem(2, 0), 1.0, 1e-14);  // column 2 is 1 x column 0 + 1 x column 1
  EXPECT_NEAR(s.GetElem(2, 1), 1.0, 1e-14);
}

TEST(SweepOnAll, GeneralisedInverse) {
  QVSymMatrix s = Deficient();
  QVBitSet swept;
  EXPECT_TRUE(s.SweepOnAll(kTol, swept, true, true, true, nullptr));
  for (int j = 0; j < 3; ++j)
    EXPECT_EQ(s.GetElem(2, j), 0.0);
  const Full a = FromSym(Deficient());
  const Full g = FromSym(s);
  EXPECT_LT(reference::ScaledResidual(Multiply(Multiply(a, g), a), a), reference::kResidualBound);
  EXPECT_LT(reference::ScaledResidual(Multiply(Multiply(g, a), g), g), reference::kResidualBound);
}

TEST(SweepOnAll, StartsFromAnUnsweptMatrix) {
  QVSymMatrix fresh = Sym({{4}, {2, 3}});
  QVSymMatrix again = fresh;
  QVBitSet clear(2), set(2);
  set.SetRange(0, 1, true);
  EXPECT_TRUE(fresh.SweepOnAll(kTol, clear, true, false, false, nullptr));
  EXPECT_TRUE(again.SweepOnAll(kTol, set, true, false, false, nullptr));
  EXPECT_EQ(again.AsVector(), fresh.AsVector());
  EXPECT_TRUE(set == clear);
  QVBitSet longer(5);
  longer.SetRange(0, 4, true);
  again = Sym({{4}, {2, 3}});
  EXPECT_TRUE(again.SweepOnAll(kTol, longer, true, false, false, nullptr));
  EXPECT_TRUE(longer == clear);  // exactly n bits
}

TEST(SweepOnAll, ReferenceBelowOneIsRaisedInPlace) {
  QVSymMatrix s = Sym({{4}, {2, 3}});
  QVBitSet swept;
  double ref[] = {0.25, 2.0};
  EXPECT_TRUE(s.SweepOnAll(kTol, swept, false, false, false, ref));
  EXPECT_EQ(ref[0], 0.25);  // unchecked: as it was
  s = Sym({{4}, {2, 3}});
  EXPECT_TRUE(s.SweepOnAll(kTol, swept, true, false, false, ref));
  EXPECT_EQ(ref[0], 1.0);
  EXPECT_EQ(ref[1], 2.0);
}

TEST(SweepOnAll, RaisedReferenceJudgesSmallVariablesByOne) {
  for (bool check : {true, false}) {
    QVSymMatrix s = Sym({{1e-9}});
    QVBitSet swept;
    EXPECT_TRUE(s.SweepOnAll(kTol, swept, check, false, false, nullptr));
    EXPECT_EQ(swept.IsIn(0), !check);  // 1e-9 is below 1e-8 x 1, not below 1e-8 x 1e-9
  }
}

TEST(SweepOnAll, RefusedArgumentsStillRunTheLastTwoSteps) {
  for (double tol : {0.0, -1.0, kNaN, kTol}) {
    double ref[] = {0.25, tol == kTol ? -1.0 : 1.0};
    QVBitSet swept(2);
    swept.Set(0, true);
    QVSymMatrix s = Sym({{4}, {2, 3}});
    EXPECT_FALSE(s.SweepOnAll(tol, swept, true, false, false, ref));
    EXPECT_EQ(s.AsVector(), (V{4, 2, 3}));
    EXPECT_EQ(swept.InSet(), 0);  // cleared all the same
    EXPECT_FALSE(s.SweepOnAll(tol, swept, true, false, true, ref));
    EXPECT_EQ(s.AsVector(), (V{-4, -2, -3}));
    EXPECT_FALSE(s.SweepOnAll(tol, swept, true, true, false, ref));
    EXPECT_EQ(s.AsVector(), (V{0, 0, 0}));
    EXPECT_EQ(ref[0], 0.25);
  }
}

TEST(SweepOnAll, EmptyMatrix) {
  QVSymMatrix s(0, true);
  QVBitSet swept(4);
  EXPECT_TRUE(s.SweepOnAll(kTol, swept, true, true, true, nullptr));
  EXPECT_EQ(swept.Size(), 0);
}

// --- SweepOnMany --------------------------------------------------------------------------------

TEST(SweepOnMany, LogDeterminant) {
  double logDet = 99.0;
  QVBitSet swept;
  QVSymMatrix identity = Sym({{1}, {0, 1}});
  EXPECT_TRUE(identity.SweepOnMany(2, kTol, true, swept, logDet, true, nullptr));
  EXPECT_EQ(logDet, 0.0);
  for (bool useOldPivot : {true, false}) {
    QVSymMatrix two = Sym({{2}, {0, 2}, {0, 0, 2}});
    QVBitSet set;
    EXPECT_TRUE(two.SweepOnMany(3, kTol, useOldPivot, set, logDet, true, nullptr));
    EXPECT_NEAR(logDet, (useOldPivot ? 3.0 : -3.0) * std::log(2.0), 1e-15);
  }
}

TEST(SweepOnMany, LogDeterminantOfTheLeadingBlock) {
  const int n = 7, count = 4;
  const QVSymMatrix original = RandomPositive(n, 7);
  double logDet[2];
  for (bool useOldPivot : {true, false}) {
    QVSymMatrix s = original;
    QVBitSet swept;
    EXPECT_TRUE(s.SweepOnMany(count, kTol, useOldPivot, swept, logDet[useOldPivot], true, nullptr));
    EXPECT_EQ(swept.Size(), n);
    EXPECT_EQ(swept.InSet(), count);
    EXPECT_LT(reference::ScaledResidual(FromSym(s), SweptByFormula(FromSym(original), swept)),
              reference::kResidualBound);
  }
  // The determinant of the leading block by elimination.
  Full a = FromSym(original);
  long double det = 1.0L;
  for (int k = 0; k < count; ++k) {
    det *= a(k, k);
    for (int i = k + 1; i < count; ++i)
      for (int j = count - 1; j >= k; --j)
        a(i, j) -= a(i, k) / a(k, k) * a(k, j);
  }
  EXPECT_NEAR(logDet[true], static_cast<double>(std::log(det)), 1e-13);
  EXPECT_NEAR(logDet[false], -static_cast<double>(std::log(det)), 1e-13);
}

TEST(SweepOnMany, RefusedPivotIsNotAnErrorAndDoesNotCount) {
  QVSymMatrix s = Deficient();
  QVBitSet swept;
  double logDet = 0.0;
  EXPECT_TRUE(s.SweepOnMany(3, kTol, true, swept, logDet, true, nullptr));
  EXPECT_EQ(swept.InSet(), 2);
  EXPECT_NEAR(logDet, std::log(5.0), 1e-14);
}

TEST(SweepOnMany, EqualsSingleSweeps) {
  for (int n : {2, 3, 7, 33, 65}) {
    const int count = n / 2 + 1;
    QVSymMatrix one = RandomSym(n, 8);
    QVSymMatrix many = one;
    V ref(At(n), 1.0);
    QVBitSet oneSet(n), manySet;
    for (int k = 0; k < count; ++k)
      one.Sweep(k, 0.05, ref, oneSet, false);
    double logDet = 0.0;
    EXPECT_TRUE(many.SweepOnMany(count, 0.05, true, manySet, logDet, true, ref.data()));
    EXPECT_TRUE(SameBits(many.AsVector(), one.AsVector()));
    EXPECT_TRUE(manySet == oneSet);
  }
}

TEST(SweepOnMany, BitsAboveTheCountAreKept) {
  QVSymMatrix s = Sym({{1}, {1, 2}, {0, 0, 1}});
  const V ref{1, 1, 1};
  QVBitSet swept(3);
  ASSERT_TRUE(s.Sweep(1, 0.25, ref, swept, true));
  swept.Set(0, true);  // a bit below the count is cleared, not taken for a swept row
  double logDet = 0.0;
  double again[] = {1, 1, 1};
  EXPECT_TRUE(s.SweepOnMany(1, 0.25, true, swept, logDet, true, again));
  EXPECT_TRUE(swept.IsIn(0));
  EXPECT_TRUE(swept.IsIn(1));
  EXPECT_FALSE(swept.IsIn(2));
  EXPECT_NEAR(logDet, std::log(0.5), 1e-15);
}

TEST(SweepOnMany, AllReferenceValuesAreRaised) {
  QVSymMatrix s = Sym({{4}, {2, 3}});
  QVBitSet swept;
  double ref[] = {0.25, 0.5};
  double logDet = 0.0;
  EXPECT_TRUE(s.SweepOnMany(1, kTol, true, swept, logDet, true, ref));
  EXPECT_EQ(ref[0], 1.0);
  EXPECT_EQ(ref[1], 1.0);
}

TEST(SweepOnMany, TestsItsArguments) {
  QVSymMatrix s = Sym({{4}, {2, 3}});
  QVBitSet swept(2);
  swept.Set(0, true);
  const QVBitSet before = swept;
  double logDet = 99.0;
  double good[] = {0.5, 0.5};
  double negative[] = {0.5, -0.5};
  EXPECT_FALSE(s.SweepOnMany(0, kTol, true, swept, logDet, true, good));
  EXPECT_FALSE(s.SweepOnMany(-1, kTol, true, swept, logDet, true, good));
  EXPECT_FALSE(s.SweepOnMany(3, kTol, true, swept, logDet, true, good));
  EXPECT_FALSE(s.SweepOnMany(2, 0.0, true, swept, logDet, true, good));
  EXPECT_FALSE(s.SweepOnMany(1, kTol, true, swept, logDet, true, negative));
  QVBitSet one(1);
  EXPECT_FALSE(s.SweepOnMany(2, kTol, true, one, logDet, true, good));
  EXPECT_EQ(s.AsVector(), (V{4, 2, 3}));
  EXPECT_TRUE(swept == before);
  EXPECT_EQ(logDet, 99.0);  // left alone
  EXPECT_EQ(good[0], 0.5);
  EXPECT_EQ(negative[0], 0.5);
  EXPECT_TRUE(s.SweepOnMany(1, kTol, true, one, logDet, true, good));  // one bit is enough for one
  EXPECT_TRUE(one.IsIn(0));
}

TEST(SweepOnMany, EmptySetIsSizedBeforeTheTests) {
  QVSymMatrix s = Sym({{4}, {2, 3}});
  QVBitSet swept;
  double logDet = 0.0;
  EXPECT_FALSE(s.SweepOnMany(0, kTol, true, swept, logDet, true, nullptr));
  EXPECT_EQ(swept.Size(), 2);
}

TEST(SweepOnMany, UncheckedCountOfZeroGivesZero) {
  QVSymMatrix s = Sym({{4}});
  QVBitSet swept(1);
  swept.Set(0, true);
  double logDet = 99.0;
  EXPECT_TRUE(s.SweepOnMany(0, kTol, true, swept, logDet, false, nullptr));
  EXPECT_EQ(logDet, 0.0);
  EXPECT_TRUE(swept.IsIn(0));
}

// --- SweepOnSelected ----------------------------------------------------------------------------

TEST(SweepOnSelected, InListOrder) {
  for (int n : {3, 7, 33, 65}) {
    QVSymMatrix one = RandomSym(n, 9);
    QVSymMatrix selected = one;
    std::vector<int> rows;
    for (int k = n - 1; k >= 0; k -= 2)
      rows.push_back(k);
    rows.push_back(n - 1);  // back, if it was swept
    V ref(At(n), 1.0);
    QVBitSet oneSet(n), selectedSet;
    for (int k : rows)
      one.Sweep(k, 0.05, ref, oneSet, false);
    EXPECT_TRUE(selected.SweepOnSelected(rows, 0.05, selectedSet, true, ref.data()));
    EXPECT_TRUE(SameBits(selected.AsVector(), one.AsVector()));
    EXPECT_TRUE(selectedSet == oneSet);
  }
}

TEST(SweepOnSelected, SameRowTwice) {
  QVSymMatrix s = Sym({{4}, {2, 3}});
  QVBitSet swept;
  EXPECT_TRUE(s.SweepOnSelected({0, 0}, kTol, swept, true, nullptr));
  EXPECT_EQ(s.AsVector(), (V{4, 2, 3}));
  EXPECT_EQ(swept.Size(), 2);
  EXPECT_FALSE(swept.IsIn(0));
}

TEST(SweepOnSelected, ContinuesAnEarlierSweep) {
  QVSymMatrix s = Sym({{4}, {2, 3}});
  QVBitSet swept(2);
  ASSERT_TRUE(s.Sweep(0, kTol, V{4, 3}, swept, true));
  double ref[] = {4, 3};
  EXPECT_TRUE(s.SweepOnSelected({1}, kTol, swept, true, ref));
  EXPECT_EQ(swept.InSet(), 2);
  EXPECT_LT(
      reference::ScaledResidual(FromSym(s), SweptByFormula(FromSym(Sym({{4}, {2, 3}})), swept)),
      reference::kResidualBound);
}

TEST(SweepOnSelected, ToleranceIsNotTested) {
  QVSymMatrix s = Sym({{4}, {2, 3}});
  QVBitSet swept;
  EXPECT_TRUE(s.SweepOnSelected({0}, 0.0, swept, true, nullptr));
  EXPECT_TRUE(swept.IsIn(0));
  double ref[] = {4, 3};
  EXPECT_TRUE(s.SweepOnSelected({}, kNaN, swept, true, ref));
}

TEST(SweepOnSelected, NoReferenceOnASweptMatrixIsRefused) {
  QVSymMatrix s = Sym({{4}, {2, 3}});
  QVBitSet swept;
  ASSERT_TRUE(s.SweepOnSelected({0}, kTol, swept, true, nullptr));
  // The diagonal of a swept row is negative, and it would be the reference.
  EXPECT_FALSE(s.SweepOnSelected({1}, kTol, swept, true, nullptr));
  EXPECT_EQ(swept.InSet(), 1);
  EXPECT_TRUE(s.SweepOnSelected({1}, kTol, swept, false, nullptr));
  EXPECT_EQ(swept.InSet(), 2);
}

TEST(SweepOnSelected, TestsItsArguments) {
  QVSymMatrix s = Sym({{4}, {2, 3}});
  QVBitSet swept(2);
  double good[] = {0.5, 0.5};
  double negative[] = {0.5, -0.5};
  EXPECT_FALSE(s.SweepOnSelected({0, 2}, kTol, swept, true, good));
  EXPECT_FALSE(s.SweepOnSelected({0, -1}, kTol, swept, true, good));
  EXPECT_FALSE(s.SweepOnSelected({0}, kTol, swept, true, negative));
  QVBitSet one(1);
  EXPECT_FALSE(s.SweepOnSelected({0}, kTol, one, true, good));
  EXPECT_EQ(s.AsVector(), (V{4, 2, 3}));
  EXPECT_EQ(swept.InSet(), 0);
  EXPECT_EQ(good[0], 0.5);
  EXPECT_TRUE(s.SweepOnSelected({0}, kTol, swept, true, good));
  EXPECT_EQ(good[0], 1.0);
  EXPECT_EQ(good[1], 1.0);
}

TEST(SweepOnSelected, RefusedRowsAreNoError) {
  QVSymMatrix s = Deficient();
  QVBitSet swept;
  EXPECT_TRUE(s.SweepOnSelected({2, 1, 0}, kTol, swept, true, nullptr));
  EXPECT_TRUE(swept.IsIn(2));
  EXPECT_TRUE(swept.IsIn(1));
  EXPECT_FALSE(swept.IsIn(0));
}

}  // namespace
