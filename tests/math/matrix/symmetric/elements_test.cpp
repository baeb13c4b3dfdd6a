// Elements, rows and the diagonal of the dense symmetric matrix, and the cleaning operations.
#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "QVSymMatrix.h"
#include "math/matrix/reference.h"

namespace {

using QVMath_940::QVBitSet;
using QVMath_940::QVSymMatrix;
using reference::FromSym;
using reference::Full;
using reference::MaxDifference;
using reference::RandomSym;
using reference::Sym;
using V = std::vector<double>;

constexpr double kLargest = 1.7976931348623157e308;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

QVSymMatrix WithDiagonal(const V & diagonal) {
  QVSymMatrix s(static_cast<int>(diagonal.size()), true);
  for (int i = 0; i < s.GetNRows(); ++i)
    s.SetElem(i, i, diagonal[reference::At(i)]);
  return s;
}

QVBitSet Bits(const std::vector<bool> & bits) {
  return QVBitSet(bits);
}

// --- Elements -----------------------------------------------------------------------------------

TEST(SymMatrixElements, BothIndexOrdersAddressTheSameElement) {
  QVSymMatrix s(4, true);
  EXPECT_TRUE(s.SetElem(1, 3, 5.0));
  EXPECT_EQ(s.GetElem(3, 1), 5.0);
  EXPECT_EQ(s.GetElem(1, 3), 5.0);
  EXPECT_EQ(s.GetElem(7), 5.0);  // 3 x 4 / 2 + 1
}

TEST(SymMatrixElements, PackedPosition) {
  QVSymMatrix s(3, true);
  for (int p = 0; p < 6; ++p)
    EXPECT_TRUE(s.SetElem(p, p + 1.0));
  EXPECT_FALSE(s.SetElem(6, 1.0));
  EXPECT_FALSE(s.SetElem(-1, 1.0));
  EXPECT_EQ(s.AsVector(), (V{1, 2, 3, 4, 5, 6}));
  for (int p = 0; p < 6; ++p)
    EXPECT_EQ(s.GetElem(p), p + 1.0);
}

TEST(SymMatrixElements, BlockAddressing) {
  QVSymMatrix s(3, 4, true);
  s.SetElem(4, 11, 9.0);
  EXPECT_EQ(s.GetElem(1, 2, 0, 3), 9.0);
  EXPECT_EQ(s.GetElem(2, 1, 3, 0), 9.0);
}

TEST(SymMatrixElements, BlockAddressingGoesThroughTheVirtualCall) {
  class Shifted : public QVSymMatrix {
   public:
    Shifted() : QVSymMatrix(2, 1, true) {}
    using QVSymMatrix::GetElem;
    double GetElem(int i, int j) const override { return 10.0 * i + j; }
  };
  EXPECT_EQ(Shifted().GetElem(1, 0, 0, 0), 10.0);
}

TEST(SymMatrixElements, ElementsThroughTheInterface) {
  QVSymMatrix s = Sym({{1}, {2, 3}});
  const QVMath_940::IQVSymMatrix & view = s;
  EXPECT_EQ(view.GetElem(0, 1), 2.0);
  EXPECT_EQ(view.GetNRows(), 2);
  EXPECT_EQ(view.GetType(), QVMath_940::SymMatrixDense);
}

// --- Rows ---------------------------------------------------------------------------------------

TEST(SymMatrixRows, GetRowGivesTheFullRow) {
  for (int n : reference::Orders()) {
    const QVSymMatrix s = RandomSym(n, 2);
    V row(3, 99.0);
    for (int k = 0; k < n; ++k) {
      EXPECT_TRUE(s.GetRow(k, row));
      ASSERT_EQ(row.size(), reference::At(n));
      for (int j = 0; j < n; ++j)
        EXPECT_EQ(row[reference::At(j)], s.GetElem(k, j));
    }
    const V before = row;
    EXPECT_FALSE(s.GetRow(-1, row));
    EXPECT_FALSE(s.GetRow(n, row));
    EXPECT_EQ(row, before);
  }
}

TEST(SymMatrixRows, PutRowStoresRowAndColumn) {
  for (int n : reference::Orders()) {
    for (int k = 0; k < n; k += 5) {
      QVSymMatrix s = RandomSym(n, 2);
      Full wanted = FromSym(s);
      const V row = reference::RandomVector(n + 2, 3);  // a longer row is fine
      EXPECT_TRUE(s.PutRow(k, row));
      for (int j = 0; j < n; ++j)
        wanted(k, j) = wanted(j, k) = row[reference::At(j)];
      EXPECT_EQ(MaxDifference(FromSym(s), wanted), 0.0);
    }
  }
  QVSymMatrix s = Sym({{1}, {2, 3}});
  EXPECT_FALSE(s.PutRow(-1, {1, 1}));
  EXPECT_FALSE(s.PutRow(2, {1, 1}));
  EXPECT_FALSE(s.PutRow(0, {1}));
  EXPECT_EQ(s.AsVector(), (V{1, 2, 3}));
}

TEST(SymMatrixRows, SetRowColToConstAndZeroOut) {
  for (int n : reference::Orders()) {
    for (int k = 0; k < n; k += 5) {
      QVSymMatrix s = RandomSym(n, 4);
      Full wanted = FromSym(s);
      EXPECT_TRUE(s.SetRowColToConst(k, 2.5));
      for (int j = 0; j < n; ++j)
        wanted(k, j) = wanted(j, k) = 2.5L;
      EXPECT_EQ(MaxDifference(FromSym(s), wanted), 0.0);
      EXPECT_TRUE(s.ZeroOut(k));
      for (int j = 0; j < n; ++j)
        wanted(k, j) = wanted(j, k) = 0.0L;
      EXPECT_EQ(MaxDifference(FromSym(s), wanted), 0.0);
    }
  }
  QVSymMatrix s = Sym({{1}, {2, 3}});
  for (int k : {-1, 2}) {
    EXPECT_FALSE(s.SetRowColToConst(k, 1.0));
    EXPECT_FALSE(s.ZeroOut(k));
  }
  EXPECT_EQ(s.AsVector(), (V{1, 2, 3}));
}

TEST(SymMatrixRows, ZeroOutRedundant) {
  QVSymMatrix s = Sym({{1}, {2, 3}, {4, 5, 6}});
  EXPECT_FALSE(s.ZeroOutRedundant(Bits({true, true})));
  EXPECT_EQ(s.AsVector(), (V{1, 2, 3, 4, 5, 6}));
  EXPECT_TRUE(s.ZeroOutRedundant(Bits({true, false, true, false})));
  EXPECT_EQ(s.AsVector(), (V{1, 0, 0, 4, 0, 6}));
}

TEST(SymMatrixRows, IsZeroRow) {
  const QVSymMatrix s = Sym({{0}, {2, 0}, {0, 5, 0}});
  EXPECT_TRUE(s.IsZeroRow(0, Bits({true, false, true})));
  EXPECT_FALSE(s.IsZeroRow(0, Bits({true, true, true})));
  EXPECT_FALSE(s.IsZeroRow(2, Bits({false, true})));
  EXPECT_TRUE(s.IsZeroRow(2, Bits({true})));                 // only the first column is asked
  EXPECT_TRUE(s.IsZeroRow(1, Bits({false, false, false})));  // no column is asked
  EXPECT_TRUE(s.IsZeroRow(0, Bits({true, false, true, true, true})));
  EXPECT_FALSE(s.IsZeroRow(0, QVBitSet()));
  EXPECT_FALSE(s.IsZeroRow(-1, Bits({true, false, true})));
  EXPECT_FALSE(s.IsZeroRow(3, Bits({true, false, true})));
  EXPECT_FALSE(QVSymMatrix(0, true).IsZeroRow(0, Bits({true})));
  EXPECT_FALSE(Sym({{kNaN}}).IsZeroRow(0, Bits({true})));
}

TEST(SymMatrixRows, IncrVecByRow) {
  for (int n : {1, 2, 3, 7, 33}) {
    const QVSymMatrix s = RandomSym(n, 6);
    for (int k = 0; k < n; ++k) {
      for (int len : {1, (n + 1) / 2, n}) {
        V v = reference::RandomVector(n + 3, 7);
        V wanted = v;
        for (int j = 0; j < len; ++j)
          wanted[reference::At(2 + j)] += 0.5 * s.GetElem(k, j);
        EXPECT_TRUE(s.IncrVecByRow(k, v, 2, len, 0.5, true));
        EXPECT_EQ(v, wanted);
        V unchecked = reference::RandomVector(n + 3, 7);
        EXPECT_TRUE(s.IncrVecByRow(k, unchecked, 2, len, 0.5, false));
        EXPECT_EQ(unchecked, wanted);
      }
    }
  }
}

TEST(SymMatrixRows, IncrVecByRowTestsItsArguments) {
  const QVSymMatrix s = Sym({{1}, {2, 3}, {4, 5, 6}});
  V v(4, 1.0);
  EXPECT_FALSE(s.IncrVecByRow(-1, v, 0, 1, 1.0, true));
  EXPECT_FALSE(s.IncrVecByRow(3, v, 0, 1, 1.0, true));
  EXPECT_FALSE(s.IncrVecByRow(0, v, 0, 0, 1.0, true));
  EXPECT_FALSE(s.IncrVecByRow(0, v, 0, 4, 1.0, true));
  EXPECT_FALSE(s.IncrVecByRow(0, v, -1, 2, 1.0, true));
  EXPECT_FALSE(s.IncrVecByRow(0, v, 2, 3, 1.0, true));
  EXPECT_FALSE(s.IncrVecByRow(0, v, std::numeric_limits<int>::max(), 3, 1.0, true));
  EXPECT_EQ(v, V(4, 1.0));
  EXPECT_TRUE(s.IncrVecByRow(0, v, 1, 3, 1.0, true));
  EXPECT_EQ(v, (V{1, 2, 3, 5}));
}

// --- The whole matrix and its diagonal ----------------------------------------------------------

TEST(SymMatrixWhole, ClearChangeSignMultiply) {
  QVSymMatrix s = Sym({{1}, {-2, 0}});
  s.ChangeSign();
  EXPECT_EQ(s.AsVector(), (V{-1, 2, 0}));
  EXPECT_TRUE(std::signbit(s.GetElem(1, 1)));  // multiplied by -1.0
  s.MultiplyByNumber(0.5);
  EXPECT_EQ(s.AsVector(), (V{-0.5, 1, 0}));
  s.Clear();
  EXPECT_EQ(s.AsVector(), (V{0, 0, 0}));
}

TEST(SymMatrixWhole, DiagonalAtAllOrders) {
  for (int n : reference::Orders()) {
    QVSymMatrix s = RandomSym(n, 8);
    V diagonal(2, 5.0);
    s.GetDiagonal(diagonal);
    ASSERT_EQ(diagonal.size(), reference::At(n));
    double trace = 0.0;
    for (int i = 0; i < n; ++i) {
      EXPECT_EQ(diagonal[reference::At(i)], s.GetElem(i, i));
      trace += s.GetElem(i, i);
    }
    EXPECT_EQ(s.Trace(), trace);
    Full wanted = FromSym(s);
    for (int i = 0; i < n; ++i)
      wanted(i, i) = s.GetElem(i, i) + 2.0;
    s.AddToDiagonal(2.0);
    EXPECT_EQ(MaxDifference(FromSym(s), wanted), 0.0);
  }
}

TEST(SymMatrixWhole, AddToDiagonalPart) {
  QVSymMatrix s(4, true);
  EXPECT_TRUE(s.AddToDiagonalPart(1, 2, 1.5));
  EXPECT_EQ(s.AsVector(), (V{0, 0, 1.5, 0, 0, 1.5, 0, 0, 0, 0}));
  s.Clear();
  EXPECT_FALSE(s.AddToDiagonalPart(0, 4, 1.0));  // a range that ends on the last row is refused
  EXPECT_FALSE(s.AddToDiagonalPart(3, 1, 1.0));
  EXPECT_FALSE(s.AddToDiagonalPart(-1, 2, 1.0));
  EXPECT_FALSE(s.AddToDiagonalPart(1, -1, 1.0));
  EXPECT_FALSE(s.AddToDiagonalPart(std::numeric_limits<int>::max(), 3, 1.0));
  EXPECT_EQ(s.AsVector(), V(10, 0.0));
  EXPECT_TRUE(s.AddToDiagonalPart(3, 0, 1.0));
  EXPECT_TRUE(s.AddToDiagonalPart(0, 3, 1.0));
  EXPECT_EQ(s.Trace(), 3.0);
}

TEST(SymMatrixWhole, MaxMin) {
  const QVSymMatrix s = Sym({{-3}, {7, 2}, {-9, 0, 1}});
  double max = 0, min = 0, maxOff = 0, minOff = 0;
  s.MaxMinDiag(max, min);
  EXPECT_EQ(max, 2.0);
  EXPECT_EQ(min, -3.0);
  s.MaxMinDiagOffDiag(max, min, maxOff, minOff);
  EXPECT_EQ(max, 2.0);
  EXPECT_EQ(min, -3.0);
  EXPECT_EQ(maxOff, 7.0);
  EXPECT_EQ(minOff, -9.0);
}

TEST(SymMatrixWhole, MaxMinOfSmallMatrices) {
  double max = 5, min = 6, maxOff = 7, minOff = 8;
  const QVSymMatrix empty(0, true);
  empty.MaxMinDiag(max, min);
  empty.MaxMinDiagOffDiag(max, min, maxOff, minOff);
  EXPECT_EQ(max, 5.0);
  EXPECT_EQ(min, 6.0);
  EXPECT_EQ(maxOff, 7.0);
  EXPECT_EQ(minOff, 8.0);
  Sym({{4}}).MaxMinDiagOffDiag(max, min, maxOff, minOff);
  EXPECT_EQ(max, 4.0);
  EXPECT_EQ(min, 4.0);
  EXPECT_EQ(maxOff, -kLargest);
  EXPECT_EQ(minOff, kLargest);
}

TEST(SymMatrixWhole, GetNCheckDiagonalIgnoresItsNumbers) {
  V d;
  WithDiagonal({1, 5, 3}).GetNCheckDiagonal(d, 2.0, 9.0);
  EXPECT_EQ(d, (V{5, 5, 5}));
  WithDiagonal({-2, -1}).GetNCheckDiagonal(d, 2.0, 9.0);
  EXPECT_EQ(d, (V{0, 0}));
  QVSymMatrix().GetNCheckDiagonal(d, 2.0, 9.0);
  EXPECT_TRUE(d.empty());
}

TEST(SymMatrixWhole, GetNCheckDiagonalOldUsesThem) {
  V d;
  WithDiagonal({1, -2, 0.5}).GetNCheckDiagonalOld(d, 0.5, 9.0);
  EXPECT_EQ(d, (V{1, 9, 0.5}));  // the threshold itself stays
}

// --- Cleaning -----------------------------------------------------------------------------------

TEST(SymMatrixCleaning, ReplaceDiagZeroes) {
  QVSymMatrix s = WithDiagonal({4, 0, -1, 2, 1});
  s.SetElem(1, 0, 0.25);
  EXPECT_TRUE(s.ReplaceDiagZeroes(0.25));
  V d;
  s.GetDiagonal(d);
  EXPECT_EQ(d, (V{4, 4, 4, 2, 4}));  // 1 / 4 is the bound itself, which does not pass
  EXPECT_EQ(s.GetElem(1, 0), 0.25);
  EXPECT_FALSE(s.ReplaceDiagZeroes(-0.1));
  QVSymMatrix negative = WithDiagonal({-1, 0});
  EXPECT_FALSE(negative.ReplaceDiagZeroes(0.0));
  EXPECT_EQ(negative.AsVector(), (V{-1, 0, 0}));
  QVSymMatrix zeroOnly = WithDiagonal({1e-300, 1, 0});
  EXPECT_TRUE(zeroOnly.ReplaceDiagZeroes(0.0));
  zeroOnly.GetDiagonal(d);
  EXPECT_EQ(d, (V{1e-300, 1, 1}));
}

TEST(SymMatrixCleaning, SetCovarZeros) {
  QVSymMatrix a = Sym({{1}, {2, 0}, {3, 4, 5}});
  QVSymMatrix b = Sym({{1}, {2, 3}, {4, 5, -6}});
  EXPECT_TRUE(a.SetCovarZeros(b));
  EXPECT_EQ(a.AsVector(), (V{1, 0, 0, 0, 0, 0}));
  EXPECT_EQ(b.AsVector(), (V{1, 0, 0, 0, 0, 0}));
  QVSymMatrix other(2, true);
  EXPECT_FALSE(a.SetCovarZeros(other));
}

TEST(SymMatrixCleaning, ZeroOutAllSmall) {
  const QVSymMatrix original = Sym({{1}, {0.5, -10}, {0.99, -2, 0.2}});
  QVSymMatrix s = original;
  s.ZeroOutAllSmall(0.1);  // below 1.0
  EXPECT_EQ(s.AsVector(), (V{1, 0, -10, 0, -2, 0}));
  s = original;
  for (double f : {0.0, -1.0, kNaN})
    s.ZeroOutAllSmall(f);
  EXPECT_EQ(s.AsVector(), original.AsVector());
  QVSymMatrix noDiagonal = Sym({{0}, {3, 0}});
  noDiagonal.ZeroOutAllSmall(0.5);
  EXPECT_EQ(noDiagonal.AsVector(), (V{0, 3, 0}));
}

TEST(SymMatrixCleaning, ZeroOutNonDiag) {
  const QVSymMatrix original = Sym({{4}, {3, 9}, {1.01, -1, -1}});
  QVSymMatrix s = original;
  s.ZeroOutNonDiag(0.5);                               // bounds: (1,0) 3, (2,0) 1, (2,1) 1.5
  EXPECT_EQ(s.AsVector(), (V{4, 0, 9, 1.01, 0, -1}));  // the bound itself is cleared
  s = original;
  for (double f : {0.0, -1.0, kNaN})
    s.ZeroOutNonDiag(f);
  EXPECT_EQ(s.AsVector(), original.AsVector());
}

TEST(SymMatrixCleaning, ZeroOutRowsForSmallDiagLooksBackOnly) {
  QVSymMatrix s = Sym({{1}, {2, 100}, {3, 4, 1}});
  s.ZeroOutRowsForSmallDiag(0.5);
  EXPECT_EQ(s.AsVector(), (V{1, 2, 100, 0, 0, 0}));
  QVSymMatrix leadingZero = Sym({{0}, {2, -4}, {3, 5, 2}});
  leadingZero.ZeroOutRowsForSmallDiag(0.5);  // 2 / 4 is the bound itself, which stays
  EXPECT_EQ(leadingZero.AsVector(), (V{0, 0, -4, 0, 5, 2}));
  QVSymMatrix untouched = Sym({{0}, {2, 0}});
  for (double f : {0.0, -1.0, kNaN})
    untouched.ZeroOutRowsForSmallDiag(f);
  EXPECT_EQ(untouched.AsVector(), (V{0, 2, 0}));
}

TEST(SymMatrixCleaning, AdjustOffDiagCorr) {
  QVSymMatrix s = Sym({{1}, {1.5, 1}, {-1, 0.999, 2}});
  EXPECT_FALSE(s.AdjustOffDiagCorr(1.0));
  EXPECT_FALSE(s.AdjustOffDiagCorr(-0.1));
  EXPECT_FALSE(s.AdjustOffDiagCorr(kNaN));
  EXPECT_EQ(s.AsVector(), (V{1, 1.5, 1, -1, 0.999, 2}));
  EXPECT_TRUE(s.AdjustOffDiagCorr(0.25));
  EXPECT_EQ(s.AsVector(), (V{1, 0.75, 1, -0.75, 0.999, 2}));
  QVSymMatrix exact = Sym({{1}, {1, 1}});
  EXPECT_TRUE(exact.AdjustOffDiagCorr(0.0));
  EXPECT_EQ(exact.GetElem(1, 0), 1.0);
}

}  // namespace
