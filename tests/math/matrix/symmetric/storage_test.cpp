// Construction, order and blocks of the dense symmetric matrix, and what a failed allocation does.
#include <limits>
#include <utility>

#include <gtest/gtest.h>

#include "QVSymMatrix.h"
#include "math/matrix/allocation_limit.h"
#include "math/matrix/reference.h"

namespace {

using QVMath_940::QVBitSet;
using QVMath_940::QVSymMatrix;
using reference::Sym;

constexpr int kHuge = std::numeric_limits<int>::max();

void ExpectShape(const QVSymMatrix & s, int rows, int blocks, int blockSize) {
  EXPECT_EQ(s.GetNRows(), rows);
  EXPECT_EQ(s.GetNBlocks(), blocks);
  EXPECT_EQ(s.GetBlockSize(), blockSize);
  EXPECT_EQ(s.IsValidMatrix(), rows >= 0);
  EXPECT_EQ(s.AsVector().size(), rows > 0 ? QVSymMatrix::RowStart(rows) : 0u);
}

TEST(SymMatrixStorage, DefaultIsEmpty) {
  ExpectShape(QVSymMatrix(), 0, 0, 0);
  EXPECT_EQ(QVSymMatrix().GetType(), QVMath_940::SymMatrixDense);
}

TEST(SymMatrixStorage, ConstructorWithOrder) {
  for (int n : reference::Orders()) {
    const QVSymMatrix s(n, true);
    ExpectShape(s, n, 1, n);
    for (double a : s.AsVector())
      EXPECT_EQ(a, 0.0);
    ExpectShape(QVSymMatrix(n, false), n, 1, n);
  }
  ExpectShape(QVSymMatrix(-3, true), 0, 1, 0);
}

TEST(SymMatrixStorage, ConstructorWithBlocks) {
  const QVSymMatrix s(3, 4, true);
  ExpectShape(s, 12, 3, 4);
  EXPECT_EQ(s.AsVector().size(), 78u);
  for (double a : s.AsVector())
    EXPECT_EQ(a, 0.0);
  ExpectShape(QVSymMatrix(0, 4, true), 0, 0, 0);
  ExpectShape(QVSymMatrix(3, 0, true), 0, 0, 0);
  ExpectShape(QVSymMatrix(-1, -4, true), 0, 0, 0);
}

TEST(SymMatrixStorage, BlockShapeBeyondAnyOrderIsInvalid) {
  const QVSymMatrix s(kHuge, 2, true);
  EXPECT_FALSE(s.IsValidMatrix());
  EXPECT_EQ(s.GetNRows(), -1);
}

TEST(SymMatrixStorage, SetNBlocks) {
  QVSymMatrix s(12, true);
  EXPECT_TRUE(s.SetNBlocks(3));
  ExpectShape(s, 12, 3, 4);
  EXPECT_FALSE(s.SetNBlocks(5));
  EXPECT_FALSE(s.SetNBlocks(0));
  EXPECT_FALSE(s.SetNBlocks(-3));
  EXPECT_FALSE(s.SetNBlocks(24));
  ExpectShape(s, 12, 3, 4);
  QVSymMatrix empty(0, true);
  EXPECT_FALSE(empty.SetNBlocks(1));
  ExpectShape(empty, 0, 1, 0);
}

TEST(SymMatrixStorage, BlocksChangeNothingInTheStorage) {
  QVSymMatrix s = reference::RandomSym(12, 1);
  const std::vector<double> before = s.AsVector();
  EXPECT_TRUE(s.SetNBlocks(4));
  EXPECT_TRUE(reference::SameBits(s.AsVector(), before));
}

TEST(SymMatrixStorage, ResizeKeepsTheLeadingRows) {
  QVSymMatrix s = Sym({{1}, {2, 3}, {4, 5, 6}});
  s.SetNBlocks(3);
  EXPECT_TRUE(s.Resize(4));
  ExpectShape(s, 4, 1, 4);
  EXPECT_EQ(s.AsVector(), (std::vector<double>{1, 2, 3, 4, 5, 6, 0, 0, 0, 0}));
  EXPECT_TRUE(s.Resize(2));
  EXPECT_EQ(s.AsVector(), (std::vector<double>{1, 2, 3}));
  EXPECT_TRUE(s.Resize(-3));
  ExpectShape(s, 0, 1, 0);
}

TEST(SymMatrixStorage, SetNRows) {
  QVSymMatrix s = Sym({{1}, {2, 3}});
  EXPECT_TRUE(s.SetNRows(3, false));
  ExpectShape(s, 3, 1, 3);
  EXPECT_EQ(s.AsVector(), (std::vector<double>{1, 2, 3, 0, 0, 0}));
  EXPECT_TRUE(s.SetNRows(2, true));
  EXPECT_EQ(s.AsVector(), (std::vector<double>{0, 0, 0}));
  EXPECT_TRUE(s.SetNRows(-3, false));
  ExpectShape(s, 0, 0, 0);
  EXPECT_TRUE(s.SetNRows(0, true));
  ExpectShape(s, 0, 1, 0);
}

TEST(SymMatrixStorage, SetNRowsClearsThroughTheVirtualCall) {
  class Counting : public QVSymMatrix {
   public:
    void Clear() override {
      ++cleared;
      QVSymMatrix::Clear();
    }
    int cleared = 0;
  };
  Counting s;
  EXPECT_TRUE(s.SetNRows(3, false));
  EXPECT_EQ(s.cleared, 0);
  EXPECT_TRUE(s.SetNRows(3, true));
  EXPECT_EQ(s.cleared, 1);
}

TEST(SymMatrixStorage, CopiesAreDeep) {
  QVSymMatrix s(3, 4, true);
  s.SetElem(4, 2, 7.0);
  QVSymMatrix copy(s);
  QVSymMatrix assigned;
  assigned = s;
  QVSymMatrix data(2, true);
  EXPECT_TRUE(data.SetData(s));
  s.SetElem(4, 2, -1.0);
  for (QVSymMatrix * m : {&copy, &assigned, &data}) {
    ExpectShape(*m, 12, 3, 4);
    EXPECT_EQ(m->GetElem(2, 4), 7.0);
  }
  copy = *&copy;
  EXPECT_EQ(copy.GetElem(2, 4), 7.0);
}

TEST(SymMatrixStorage, MovesTakeTheStorage) {
  QVSymMatrix s = Sym({{1}, {2, 3}});
  const double * elements = s.AsVector().data();
  QVSymMatrix moved(std::move(s));
  EXPECT_EQ(moved.AsVector().data(), elements);
  ExpectShape(moved, 2, 1, 2);
  ExpectShape(s, 0, 0, 0);
  s = std::move(moved);
  EXPECT_EQ(s.AsVector().data(), elements);
  ExpectShape(moved, 0, 0, 0);
}

TEST(SymMatrixStorage, DeleteOneRow) {
  for (int n : {1, 2, 3, 7, 33}) {
    const QVSymMatrix original = reference::RandomSym(n, 5);
    const reference::Full full = reference::FromSym(original);
    for (int k = 0; k < n; ++k) {
      std::vector<int> rest;
      for (int i = 0; i < n; ++i)
        if (i != k) rest.push_back(i);
      QVSymMatrix s = original;
      EXPECT_TRUE(s.DeleteOneRow(k));
      ExpectShape(s, n - 1, 1, n - 1);
      EXPECT_EQ(reference::MaxDifference(reference::FromSym(s), reference::Part(full, rest, rest)),
                0.0);
    }
  }
}

TEST(SymMatrixStorage, DeleteOneRowRefusesABadIndex) {
  QVSymMatrix s = Sym({{1}, {2, 3}});
  EXPECT_FALSE(s.DeleteOneRow(-1));
  EXPECT_FALSE(s.DeleteOneRow(2));
  EXPECT_EQ(s.AsVector(), (std::vector<double>{1, 2, 3}));
}

TEST(SymMatrixStorage, DeleteOneRowLeavesTheNumberOfBlocks) {
  QVSymMatrix s(3, 4, true);
  EXPECT_TRUE(s.DeleteOneRow(0));
  ExpectShape(s, 11, 3, 11);
}

// --- The static helpers -------------------------------------------------------------------------

TEST(SymMatrixStorage, ResizeNRowsHelper) {
  std::vector<double> elements{1, 2, 3};
  int n = 3;
  EXPECT_TRUE(QVSymMatrix::ResizeNRows(elements, n));
  EXPECT_EQ(n, 3);
  EXPECT_EQ(elements, (std::vector<double>{1, 2, 3, 0, 0, 0}));
  n = 0;
  EXPECT_TRUE(QVSymMatrix::ResizeNRows(elements, n));
  EXPECT_EQ(n, 0);
  EXPECT_TRUE(elements.empty());
  elements = {1};
  n = -4;
  EXPECT_FALSE(QVSymMatrix::ResizeNRows(elements, n));
  EXPECT_EQ(n, -4);
  EXPECT_TRUE(elements.empty());
}

TEST(SymMatrixStorage, ResizeNCopyHelper) {
  std::vector<double> target{1};
  EXPECT_TRUE(QVSymMatrix::ResizeNCopy(target, {4, 5}));
  EXPECT_EQ(target, (std::vector<double>{4, 5}));
  const std::vector<double> large(1000, 1.0);
  const AllocationLimit limit(1000);
  EXPECT_FALSE(QVSymMatrix::ResizeNCopy(target, large));
  EXPECT_EQ(target, (std::vector<double>{4, 5}));
}

TEST(SymMatrixStorage, PositionsAreCountedIn64Bits) {
  // 46,340 is the largest n whose n(n+1) fits an int.
  EXPECT_EQ(QVSymMatrix::RowStart(46340), 1073720970u);
  EXPECT_EQ(QVSymMatrix::RowStart(46341), 1073767311u);
  EXPECT_EQ(QVSymMatrix::RowStart(65535), 2147450880u);
  EXPECT_EQ(QVSymMatrix::RowStart(65536), 2147516416u);
  EXPECT_EQ(QVSymMatrix::RowStart(100000), 5000050000u);
  EXPECT_EQ(QVSymMatrix::PackedPosition(100000, 99999), 5000149999u);
  EXPECT_EQ(QVSymMatrix::PackedPosition(99999, 100000), 5000149999u);
  EXPECT_EQ(QVSymMatrix::PackedPosition(kHuge, kHuge), (1ull << 61) + (1ull << 30) - 1);
}

TEST(SymMatrixStorage, PositionsFollowOneAnother) {
  std::size_t expected = 0;
  for (int i = 0; i < 130; ++i) {
    EXPECT_EQ(QVSymMatrix::RowStart(i), expected);
    for (int j = 0; j <= i; ++j)
      EXPECT_EQ(QVSymMatrix::PackedPosition(i, j), expected++);
  }
}

// --- Failed allocation --------------------------------------------------------------------------

TEST(SymMatrixAllocation, OrderBeyondMemoryIsInvalid) {
  const QVSymMatrix s(kHuge, true);
  EXPECT_FALSE(s.IsValidMatrix());
  EXPECT_EQ(s.GetNRows(), -1);
  EXPECT_EQ(s.GetNBlocks(), 1);
  const QVSymMatrix blocks(2, kHuge / 2, true);
  EXPECT_FALSE(blocks.IsValidMatrix());
  EXPECT_EQ(blocks.GetNBlocks(), 2);
}

TEST(SymMatrixAllocation, FailedConstructionIsInvalid) {
  const AllocationLimit limit(1000);
  EXPECT_FALSE(QVSymMatrix(50, true).IsValidMatrix());
  EXPECT_FALSE(QVSymMatrix(5, 10, true).IsValidMatrix());
  EXPECT_TRUE(QVSymMatrix(5, true).IsValidMatrix());
}

TEST(SymMatrixAllocation, FailedResizeIsInvalidAndRecovers) {
  QVSymMatrix s(10, true);
  {
    const AllocationLimit limit(1000);
    EXPECT_FALSE(s.Resize(50));
    ExpectShape(s, -1, 1, 50);
    EXPECT_FALSE(s.SetNRows(50, true));
    EXPECT_EQ(s.GetNRows(), -1);
    EXPECT_TRUE(s.SetNRows(5, true));
    EXPECT_FALSE(s.SetToVV(std::vector<double>(100, 1.0)));
    EXPECT_FALSE(s.IsValidMatrix());
  }
  EXPECT_TRUE(s.SetNRows(50, true));
  ExpectShape(s, 50, 1, 50);
}

TEST(SymMatrixAllocation, FailedCopyIsInvalid) {
  const QVSymMatrix s(5, 10, true);
  QVSymMatrix assigned(2, true);
  QVSymMatrix data(2, true);
  const AllocationLimit limit(1000);
  const QVSymMatrix copy(s);
  assigned = s;
  EXPECT_FALSE(data.SetData(s));
  for (const QVSymMatrix * m : {&copy, static_cast<const QVSymMatrix *>(&assigned),
                                static_cast<const QVSymMatrix *>(&data)})
    ExpectShape(*m, -1, 5, 10);
}

TEST(SymMatrixAllocation, CopyOfAnInvalidMatrixIsInvalid) {
  const QVSymMatrix broken(kHuge, true);
  const QVSymMatrix copy(broken);
  EXPECT_FALSE(copy.IsValidMatrix());
}

TEST(SymMatrixAllocation, InvalidMatrixFindsNoRows) {
  QVSymMatrix s(kHuge, true);
  QVSymMatrix out(2, true);
  std::vector<double> v{1.0, 2.0};
  QVBitSet bits(3);
  s.Clear();
  s.ChangeSign();
  s.MultiplyByNumber(2.0);
  s.AddToDiagonal(1.0);
  s.ZeroOutAllSmall(1.0);
  s.ZeroOutNonDiag(1.0);
  s.ZeroOutRowsForSmallDiag(1.0);
  s.IncrementByVV(v.data(), 1.0);
  EXPECT_EQ(s.Trace(), 0.0);
  EXPECT_FALSE(s.SetNBlocks(1));
  EXPECT_FALSE(s.DeleteOneRow(0));
  EXPECT_FALSE(s.GetRow(0, v));
  EXPECT_FALSE(s.PutRow(0, v));
  EXPECT_FALSE(s.ZeroOut(0));
  EXPECT_FALSE(s.SetElem(0, 1.0));
  EXPECT_FALSE(s.AddToDiagonalPart(0, 0, 1.0));
  EXPECT_FALSE(s.ReplaceDiagZeroes(0.0));
  EXPECT_FALSE(s.IsZeroRow(0, bits));
  EXPECT_FALSE(s.IncrVecByRow(0, v, 0, 1, 1.0, true));
  EXPECT_FALSE(s.UpdateXX({}, 1.0));
  EXPECT_FALSE(s.UpdateXXNonRedun({}, bits, 1.0));
  EXPECT_FALSE(s.UpdateXXSparse(1, {0}, {1.0}, 1.0));
  EXPECT_FALSE(s.ReplaceFirstRows(out, 1));
  EXPECT_FALSE(s.ExtractSubmatrix({}, out));
  EXPECT_FALSE(s.ExtractDiagBlock(0, 2, out));
  EXPECT_FALSE(s.ExtractBlockAndLastRow(0, 1, out));
  EXPECT_FALSE(s.ExtractPartOfLastRow(0, 1, v));
  double max = 1.0, min = 2.0;
  s.MaxMinDiag(max, min);
  EXPECT_EQ(max, 1.0);
  EXPECT_EQ(min, 2.0);
  std::vector<double> diagonal{1.0};
  s.GetDiagonal(diagonal);
  EXPECT_TRUE(diagonal.empty());
  s.GetNCheckDiagonal(diagonal, 0.0, 1.0);
  EXPECT_TRUE(diagonal.empty());
  double ref[] = {1.0};
  EXPECT_FALSE(s.Sweep(0, 1e-8, ref, bits, true));
  EXPECT_TRUE(s.SweepOnAll(1e-8, bits, true, true, true, nullptr));
  EXPECT_EQ(bits.Size(), 0);
  s.ExtractFirstNRows(out);
  EXPECT_EQ(out.GetNRows(), 0);
  EXPECT_TRUE(s.UpdateZZ({}, 1.0, 1.0));
  EXPECT_EQ(s.GetNRows(), -1);
}

}  // namespace
