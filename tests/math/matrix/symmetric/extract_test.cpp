// Parts of the dense symmetric matrix.
#include <limits>

#include <gtest/gtest.h>

#include "QVSymMatrix.h"
#include "math/matrix/reference.h"

namespace {

using QVMath_940::QVBitSet;
using QVMath_940::QVSymMatrix;
using reference::At;
using reference::FromSym;
using reference::MaxDifference;
using reference::RandomSym;
using reference::Sym;
using V = std::vector<double>;

constexpr int kLargestInt = std::numeric_limits<int>::max();

// A symmetric matrix of another kind, as far as `GetType` goes.
class OtherKind : public QVSymMatrix {
 public:
  explicit OtherKind(int n) : QVSymMatrix(n, true) {}
  QVMath_940::SymMatrixType GetType() const override { return QVMath_940::SymMatrixDiagonal; }
};

std::vector<int> Range(int start, int count) {
  std::vector<int> range;
  for (int i = 0; i < count; ++i)
    range.push_back(start + i);
  return range;
}

TEST(SymMatrixExtract, ReplaceFirstRows) {
  for (int n : {1, 3, 33}) {
    const QVSymMatrix m = RandomSym(n + 2, 1);
    for (int k = 1; k <= n; ++k) {
      QVSymMatrix s = RandomSym(n, 2);
      reference::Full wanted = FromSym(s);
      for (int i = 0; i < k; ++i)
        for (int j = 0; j < k; ++j)
          wanted(i, j) = m.GetElem(i, j);
      EXPECT_TRUE(s.ReplaceFirstRows(m, k));
      EXPECT_EQ(MaxDifference(FromSym(s), wanted), 0.0);
    }
  }
  QVSymMatrix s(2, true);
  EXPECT_FALSE(s.ReplaceFirstRows(Sym({{1}, {1, 1}}), 0));
  EXPECT_FALSE(s.ReplaceFirstRows(Sym({{1}}), 2));
  EXPECT_FALSE(s.ReplaceFirstRows(Sym({{1}, {1, 1}, {1, 1, 1}}), 3));
  EXPECT_EQ(s.AsVector(), V(3, 0.0));
  EXPECT_TRUE(s.ReplaceFirstRows(s, 2));
}

TEST(SymMatrixExtract, FirstNRowsAreAllButTheLast) {
  for (int n : {2, 3, 7, 33}) {
    const QVSymMatrix s = RandomSym(n, 3);
    for (int before : {0, n - 1, n + 5}) {
      QVSymMatrix out = RandomSym(before, 4);
      s.ExtractFirstNRows(out);
      EXPECT_EQ(MaxDifference(FromSym(out),
                              reference::Part(FromSym(s), Range(0, n - 1), Range(0, n - 1))),
                0.0);
    }
  }
}

TEST(SymMatrixExtract, FirstNRowsOfSmallMatrices) {
  for (int n : {0, 1}) {
    QVSymMatrix out(3, true);
    QVSymMatrix(n, true).ExtractFirstNRows(out);
    EXPECT_EQ(out.GetNRows(), 0);
    EXPECT_TRUE(out.IsValidMatrix());
  }
}

TEST(SymMatrixExtract, FirstNRowsWantADenseTarget) {
  OtherKind out(5);
  RandomSym(3, 1).ExtractFirstNRows(out);
  EXPECT_EQ(out.GetNRows(), 5);
}

TEST(SymMatrixExtract, FirstNRowsIntoItself) {
  QVSymMatrix s = Sym({{1}, {2, 3}, {4, 5, 6}});
  s.ExtractFirstNRows(s);
  EXPECT_EQ(s.AsVector(), (V{1, 2, 3}));
}

TEST(SymMatrixExtract, Submatrix) {
  for (int n : reference::Orders()) {
    const QVSymMatrix s = RandomSym(n, 5);
    std::vector<int> odd;
    for (int i = 1; i < n; i += 2)
      odd.push_back(i);
    for (const std::vector<int> & rows : {odd, Range(0, n), std::vector<int>()}) {
      QVSymMatrix out = RandomSym(4, 6);
      EXPECT_TRUE(s.ExtractSubmatrix(rows, out));
      EXPECT_EQ(MaxDifference(FromSym(out), reference::Part(FromSym(s), rows, rows)), 0.0);
      QVSymMatrix self = s;
      EXPECT_TRUE(self.ExtractSubmatrix(rows, self));
      EXPECT_EQ(self.AsVector(), out.AsVector());
    }
  }
}

TEST(SymMatrixExtract, SubmatrixTestsItsArguments) {
  const QVSymMatrix s = Sym({{1}, {2, 3}, {4, 5, 6}});
  QVSymMatrix out = Sym({{9}});
  EXPECT_FALSE(s.ExtractSubmatrix({0, 1, 2, 3}, out));
  EXPECT_FALSE(s.ExtractSubmatrix({-1, 1}, out));
  EXPECT_FALSE(s.ExtractSubmatrix({1, 3}, out));
  EXPECT_FALSE(s.ExtractSubmatrix({1, 1}, out));
  EXPECT_FALSE(s.ExtractSubmatrix({2, 1}, out));
  EXPECT_FALSE(s.ExtractSubmatrix({0, 2, 1}, out));
  EXPECT_FALSE(s.ExtractSubmatrix({0, 5, 1}, out));
  EXPECT_EQ(out.AsVector(), V{9});
  OtherKind other(5);
  EXPECT_FALSE(s.ExtractSubmatrix({0, 1}, other));
  EXPECT_EQ(other.GetNRows(), 5);
}

TEST(SymMatrixExtract, DiagBlockIsAdded) {
  const QVSymMatrix s = Sym({{1}, {2, 3}, {4, 5, 6}});
  QVSymMatrix out(2, true);
  EXPECT_TRUE(s.ExtractDiagBlock(1, 2, out));
  EXPECT_EQ(out.AsVector(), (V{3, 5, 6}));
  EXPECT_TRUE(s.ExtractDiagBlock(1, 2, out));
  EXPECT_EQ(out.AsVector(), (V{6, 10, 12}));  // twice the block
  EXPECT_FALSE(s.ExtractDiagBlock(-1, 2, out));
  EXPECT_FALSE(s.ExtractDiagBlock(2, 2, out));
  EXPECT_FALSE(s.ExtractDiagBlock(0, 3, out));
  EXPECT_FALSE(s.ExtractDiagBlock(kLargestInt, 2, out));
  EXPECT_EQ(out.AsVector(), (V{6, 10, 12}));
}

TEST(SymMatrixExtract, BlockAndLastRow) {
  const QVSymMatrix s = Sym({{1}, {2, 3}, {4, 5, 6}, {7, 8, 9, 10}});
  QVSymMatrix out = Sym({{100}, {100, 100}, {100, 100, 100}});
  EXPECT_TRUE(s.ExtractBlockAndLastRow(1, 2, out));
  EXPECT_EQ(out.AsVector(), (V{103, 105, 106, 108, 109, 110}));
  QVSymMatrix last(1, true);
  EXPECT_TRUE(s.ExtractBlockAndLastRow(0, 0, last));
  EXPECT_EQ(last.AsVector(), V{10});
  const V before = out.AsVector();
  EXPECT_FALSE(s.ExtractBlockAndLastRow(-1, 2, out));
  EXPECT_FALSE(s.ExtractBlockAndLastRow(2, 2, out));  // reaches the last row
  EXPECT_FALSE(s.ExtractBlockAndLastRow(0, 3, out));  // out has not 4 rows
  EXPECT_FALSE(s.ExtractBlockAndLastRow(0, 1, out));
  EXPECT_FALSE(s.ExtractBlockAndLastRow(kLargestInt, 2, out));
  QVSymMatrix empty(0, true);
  EXPECT_FALSE(s.ExtractBlockAndLastRow(0, -1, empty));
  EXPECT_EQ(out.AsVector(), before);
}

TEST(SymMatrixExtract, PartOfLastRow) {
  const QVSymMatrix s = Sym({{1}, {2, 3}, {4, 5, 6}});
  V v;
  EXPECT_TRUE(s.ExtractPartOfLastRow(1, 2, v));
  EXPECT_EQ(v, (V{5, 6}));
  v = {9, 9, 9, 9};
  EXPECT_TRUE(s.ExtractPartOfLastRow(0, 2, v));
  EXPECT_EQ(v, (V{4, 5, 9, 9}));  // a longer vector keeps its tail
  EXPECT_FALSE(s.ExtractPartOfLastRow(-1, 2, v));
  EXPECT_FALSE(s.ExtractPartOfLastRow(0, 0, v));
  EXPECT_FALSE(s.ExtractPartOfLastRow(2, 2, v));
  EXPECT_FALSE(s.ExtractPartOfLastRow(kLargestInt, 2, v));
  EXPECT_EQ(v, (V{4, 5, 9, 9}));
}

TEST(SymMatrixExtract, GetRegCoeffs) {
  const QVSymMatrix s = Sym({{1}, {2, 3}, {4, 5, 6}});
  V b{9, 9, 9, 9};
  EXPECT_TRUE(s.GetRegCoeffs(b, QVBitSet(std::vector<bool>{true, false})));
  EXPECT_EQ(b, (V{4, 0}));
  EXPECT_TRUE(s.GetRegCoeffs(b, QVBitSet(std::vector<bool>{false, true, true})));
  EXPECT_EQ(b, (V{0, 5}));
  EXPECT_FALSE(s.GetRegCoeffs(b, QVBitSet(1)));
  EXPECT_EQ(b, (V{0, 5}));
  EXPECT_TRUE(Sym({{1}}).GetRegCoeffs(b, QVBitSet()));
  EXPECT_TRUE(b.empty());
}

}  // namespace
