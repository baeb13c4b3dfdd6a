// Updates of the dense symmetric matrix by vectors.
#include <limits>

#include <gtest/gtest.h>

#include "QVSymMatrix.h"
#include "math/matrix/reference.h"

namespace {

using QVMath_940::QVBitSet;
using QVMath_940::QVSymMatrix;
using reference::At;
using reference::RandomSym;
using reference::RandomVector;
using V = std::vector<double>;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

// `s` with term(i, j) added to each element of the lower triangle.
template <class Term>
V Updated(const QVSymMatrix & s, Term term) {
  V wanted;
  for (int i = 0; i < s.GetNRows(); ++i)
    for (int j = 0; j <= i; ++j)
      wanted.push_back(s.GetElem(i, j) + term(At(i), At(j)));
  return wanted;
}

TEST(SymMatrixUpdates, SetToVV) {
  for (int n : reference::Orders()) {
    const V x = RandomVector(n, 1);
    QVSymMatrix s(3, 4, true);
    EXPECT_TRUE(s.SetToVV(x));
    EXPECT_EQ(s.GetNRows(), n);
    EXPECT_EQ(s.GetNBlocks(), 1);
    EXPECT_EQ(s.AsVector(),
              Updated(QVSymMatrix(n, true), [&](auto i, auto j) { return x[i] * x[j]; }));
  }
}

TEST(SymMatrixUpdates, SetToVWHasNoHalf) {
  for (int n : reference::Orders()) {
    const V x = RandomVector(n, 1);
    const V y = RandomVector(n, 2);
    QVSymMatrix s(3, 4, true);
    EXPECT_TRUE(s.SetToVW(x, y));
    EXPECT_EQ(s.GetNRows(), n);
    EXPECT_EQ(s.GetNBlocks(), 1);
    EXPECT_EQ(s.AsVector(), Updated(QVSymMatrix(n, true),
                                    [&](auto i, auto j) { return x[i] * y[j] + y[i] * x[j]; }));
  }
  QVSymMatrix s = reference::Sym({{5}});
  EXPECT_FALSE(s.SetToVW({1, 2}, {1}));
  EXPECT_EQ(s.AsVector(), V{5});
  EXPECT_TRUE(s.SetToVW({3}, {2}));
  EXPECT_EQ(s.AsVector(), V{12});
}

TEST(SymMatrixUpdates, IncrementByVV) {
  for (int n : reference::Orders()) {
    const V x = RandomVector(n, 3);
    QVSymMatrix s = RandomSym(n, 4);
    const V wanted = Updated(s, [&](auto i, auto j) { return (0.3 * x[i]) * x[j]; });
    s.IncrementByVV(x.data(), 0.3);
    EXPECT_EQ(s.AsVector(), wanted);
  }
}

TEST(SymMatrixUpdates, UpdateXX) {
  for (int n : reference::Orders()) {
    const V x = RandomVector(n, 5);
    QVSymMatrix s = RandomSym(n, 6);
    const V wanted = Updated(s, [&](auto i, auto j) { return (x[i] * 0.7) * x[j]; });
    EXPECT_TRUE(s.UpdateXX(x, 0.7));
    EXPECT_EQ(s.AsVector(), wanted);
  }
}

TEST(SymMatrixUpdates, UpdateXXTestsItsArguments) {
  QVSymMatrix s(2, true);
  EXPECT_FALSE(s.UpdateXX({1}, 1.0));
  EXPECT_FALSE(s.UpdateXX({1, 2, 3}, 1.0));
  EXPECT_FALSE(s.UpdateXX({1, 2}, 0.0));
  EXPECT_FALSE(s.UpdateXX({1, 2}, -1.0));
  EXPECT_FALSE(s.UpdateXX({1, 2}, kNaN));
  EXPECT_EQ(s.AsVector(), V(3, 0.0));
}

TEST(SymMatrixUpdates, UpdateXXSkipsTheRowsOfZeros) {
  QVSymMatrix s(3, true);
  EXPECT_TRUE(s.UpdateXX({kInfinity, 0.0, 1.0}, 1.0));  // row 1 is not touched: no 0 x infinity
  EXPECT_EQ(s.AsVector(), (V{kInfinity, 0, 0, kInfinity, 0, 1}));
}

TEST(SymMatrixUpdates, UpdateXXPosNegWTakesEveryWeight) {
  for (int n : reference::Orders()) {
    const V x = RandomVector(n, 5);
    for (double w : {-0.7, 0.0, 0.7}) {
      QVSymMatrix s = RandomSym(n, 6);
      const V wanted = Updated(s, [&](auto i, auto j) { return (x[i] * w) * x[j]; });
      EXPECT_TRUE(s.UpdateXXPosNegW(x, w));
      EXPECT_EQ(s.AsVector(), wanted);
    }
  }
  QVSymMatrix s(2, true);
  EXPECT_FALSE(s.UpdateXXPosNegW({1}, 1.0));
}

TEST(SymMatrixUpdates, UpdateXXNonRedun) {
  for (int n : reference::Orders()) {
    const V x = RandomVector(n, 7);
    std::vector<bool> bits;
    for (int i = 0; i < n; ++i)
      bits.push_back(i % 3 != 1);
    for (double w : {-2.0, 0.0, 2.0}) {
      QVSymMatrix s = RandomSym(n, 8);
      const V wanted =
          Updated(s, [&](auto i, auto j) { return bits[i] && bits[j] ? (x[i] * w) * x[j] : 0.0; });
      EXPECT_TRUE(s.UpdateXXNonRedun(x, QVBitSet(bits), w));
      EXPECT_EQ(s.AsVector(), wanted);
    }
  }
  QVSymMatrix s(2, true);
  EXPECT_FALSE(s.UpdateXXNonRedun({1}, QVBitSet(2), 1.0));
  EXPECT_TRUE(s.UpdateXXNonRedun({1, 2}, QVBitSet(), 1.0));  // rows outside the set do not change
  EXPECT_EQ(s.AsVector(), V(3, 0.0));
}

TEST(SymMatrixUpdates, UpdateXXSparseEqualsTheDenseUpdate) {
  const int n = 33;
  const std::vector<int> rows{0, 4, 5, 20, 32};
  const V x = RandomVector(5, 9);
  V dense(At(n), 0.0);
  for (std::size_t p = 0; p < rows.size(); ++p)
    dense[At(rows[p])] = x[p];
  QVSymMatrix s = RandomSym(n, 10);
  const V wanted = Updated(s, [&](auto i, auto j) { return (1.5 * dense[i]) * dense[j]; });
  EXPECT_TRUE(s.UpdateXXSparse(5, rows, x, 1.5));
  EXPECT_EQ(s.AsVector(), wanted);
}

TEST(SymMatrixUpdates, UpdateXXSparseTakesRowsInAnyOrder) {
  QVSymMatrix s(3, true);
  EXPECT_TRUE(s.UpdateXXSparse(2, {2, 0, 1}, {3, 5, 7}, 1.0));  // the third pair stays out
  EXPECT_EQ(s.AsVector(), (V{25, 0, 0, 15, 0, 9}));
  QVSymMatrix twice(1, true);
  EXPECT_TRUE(twice.UpdateXXSparse(2, {0, 0}, {2, 3}, 1.0));  // each of the four pairs counts
  EXPECT_EQ(twice.AsVector(), V{25});
}

TEST(SymMatrixUpdates, UpdateXXSparseTestsItsArguments) {
  QVSymMatrix s(2, true);
  EXPECT_FALSE(s.UpdateXXSparse(2, {0}, {1, 2}, 1.0));
  EXPECT_FALSE(s.UpdateXXSparse(2, {0, 1}, {1}, 1.0));
  EXPECT_FALSE(s.UpdateXXSparse(2, {0, 1}, {1, 2}, 0.0));
  EXPECT_FALSE(s.UpdateXXSparse(1, {-1}, {1}, 1.0));
  EXPECT_FALSE(s.UpdateXXSparse(1, {2}, {1}, 1.0));
  EXPECT_EQ(s.AsVector(), V(3, 0.0));
  EXPECT_TRUE(s.UpdateXXSparse(0, {}, {}, 1.0));
  EXPECT_TRUE(s.UpdateXXSparse(-1, {}, {}, 1.0));
  EXPECT_EQ(s.AsVector(), V(3, 0.0));
}

TEST(SymMatrixUpdates, UpdateXXSparseMayStopHalfWay) {
  QVSymMatrix s(2, true);
  EXPECT_FALSE(s.UpdateXXSparse(2, {0, 2}, {3, 1}, 1.0));
  EXPECT_EQ(s.AsVector(), (V{9, 0, 0}));
}

TEST(SymMatrixUpdates, UpdateZZ) {
  for (int n : reference::Orders()) {
    if (n == 0) continue;
    const V x = RandomVector(n - 1, 11);
    const double z = -0.8;
    const double w = 0.6;
    QVSymMatrix s = RandomSym(n, 12);
    const std::size_t last = At(n - 1);
    const V wanted = Updated(s, [&](auto i, auto j) {
      if (i < last) return (x[i] * w) * x[j];
      return (z * w) * (j < last ? x[j] : z);
    });
    EXPECT_TRUE(s.UpdateZZ(x, z, w));
    EXPECT_EQ(s.AsVector(), wanted);
  }
  QVSymMatrix empty(0, true);
  EXPECT_TRUE(empty.UpdateZZ({}, 1.0, 1.0));
}

TEST(SymMatrixUpdates, UpdateZZTakesEveryWeight) {
  QVSymMatrix s(2, true);
  EXPECT_TRUE(s.UpdateZZ({3}, 5.0, -1.0));
  EXPECT_EQ(s.AsVector(), (V{-9, -15, -25}));
}

}  // namespace
