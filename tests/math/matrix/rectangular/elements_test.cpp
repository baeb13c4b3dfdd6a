// Elements, rows and columns of the dense rectangular matrix.
#include <limits>

#include <gtest/gtest.h>

#include "QVRectMatrix.h"
#include "math/matrix/reference.h"

namespace {

using QVMath_940::QVBitSet;
using QVMath_940::QVRectMatrix;
using reference::At;
using reference::RandomRect;
using reference::Rect;
using V = std::vector<double>;

const QVRectMatrix & Sample() {
  static const QVRectMatrix sample = Rect({{1, 2, 3}, {4, 5, 6}});
  return sample;
}

TEST(RectMatrixElements, RowMajorOrder) {
  EXPECT_EQ(Sample().AsVector(), (V{1, 2, 3, 4, 5, 6}));
  EXPECT_EQ(Sample().GetElem(1, 0), 4.0);
  QVRectMatrix r(2, 3, true);
  EXPECT_TRUE(r.SetElem(1, 2, 7.0));
  EXPECT_EQ(r.AsVector(), (V{0, 0, 0, 0, 0, 7}));
}

TEST(RectMatrixElements, RowAndColumnPointers) {
  QVRectMatrix r = Sample();
  EXPECT_EQ(r.GetRowPtr(1)[2], 6.0);
  EXPECT_EQ(r.GetColPtr(2)[1 * r.GetNCols()], 6.0);
  r.GetRowPtr(0)[1] = 9.0;
  EXPECT_EQ(r.GetElem(0, 1), 9.0);
  EXPECT_EQ(r.GetRowPtr(2), nullptr);
  EXPECT_EQ(r.GetRowPtr(-1), nullptr);
  EXPECT_EQ(r.GetColPtr(3), nullptr);
  EXPECT_EQ(r.GetColPtr(-1), nullptr);
  EXPECT_EQ(Sample().GetRowPtr(1), Sample().AsVector().data() + 3);
  EXPECT_EQ(Sample().GetColPtr(1), Sample().AsVector().data() + 1);
}

TEST(RectMatrixElements, ClearAndDiagonal) {
  QVRectMatrix r = Sample();
  r.AddToDiagonal(10.0);
  EXPECT_EQ(r.AsVector(), (V{11, 2, 3, 4, 15, 6}));
  r.Clear();
  EXPECT_EQ(r.AsVector(), V(6, 0.0));
}

TEST(RectMatrixElements, GetRowAndGetCol) {
  V v(9, 9.0);
  EXPECT_TRUE(Sample().GetRow(1, v));
  EXPECT_EQ(v, (V{4, 5, 6}));
  EXPECT_TRUE(Sample().GetCol(2, v));
  EXPECT_EQ(v, (V{3, 6}));
  EXPECT_FALSE(Sample().GetRow(-1, v));
  EXPECT_FALSE(Sample().GetRow(2, v));
  EXPECT_FALSE(Sample().GetCol(-1, v));
  EXPECT_FALSE(Sample().GetCol(3, v));
  EXPECT_EQ(v, (V{3, 6}));
  EXPECT_TRUE(QVRectMatrix(2, 0, true).GetRow(1, v));
  EXPECT_TRUE(v.empty());
}

TEST(RectMatrixElements, CopyColToVecKeepsALongerVector) {
  V v{9, 9, 9};
  EXPECT_TRUE(Sample().CopyColToVec(0, v));
  EXPECT_EQ(v, (V{1, 4, 9}));
  V grown;
  EXPECT_TRUE(Sample().CopyColToVec(1, grown));
  EXPECT_EQ(grown, (V{2, 5}));
  EXPECT_FALSE(Sample().CopyColToVec(3, v));
  EXPECT_FALSE(Sample().CopyColToVec(-1, v));
}

TEST(RectMatrixElements, CopyRowToRow) {
  QVRectMatrix target(3, 3, true);
  EXPECT_TRUE(Sample().CopyRowToRow(1, 2, target));
  EXPECT_EQ(target.AsVector(), (V{0, 0, 0, 0, 0, 0, 4, 5, 6}));
  EXPECT_FALSE(Sample().CopyRowToRow(2, 0, target));
  EXPECT_FALSE(Sample().CopyRowToRow(-1, 0, target));
  EXPECT_FALSE(Sample().CopyRowToRow(0, 3, target));
  EXPECT_FALSE(Sample().CopyRowToRow(0, -1, target));
  QVRectMatrix narrow(3, 2, true);
  EXPECT_FALSE(Sample().CopyRowToRow(0, 0, narrow));
  QVRectMatrix self = Sample();
  EXPECT_TRUE(self.CopyRowToRow(0, 1, self));
  EXPECT_EQ(self.AsVector(), (V{1, 2, 3, 1, 2, 3}));
}

TEST(RectMatrixElements, CopyColToColAndToRow) {
  QVRectMatrix target(2, 2, true);
  EXPECT_TRUE(Sample().CopyColToCol(2, 0, target));
  EXPECT_EQ(target.AsVector(), (V{3, 0, 6, 0}));
  EXPECT_FALSE(Sample().CopyColToCol(3, 0, target));
  EXPECT_FALSE(Sample().CopyColToCol(0, 2, target));
  QVRectMatrix tall(3, 2, true);
  EXPECT_FALSE(Sample().CopyColToCol(0, 0, tall));

  EXPECT_TRUE(Sample().CopyColToRow(1, 2, tall));
  EXPECT_EQ(tall.AsVector(), (V{0, 0, 0, 0, 2, 5}));
  EXPECT_FALSE(Sample().CopyColToRow(-1, 0, tall));
  EXPECT_FALSE(Sample().CopyColToRow(0, 3, tall));
  QVRectMatrix wide(2, 3, true);
  EXPECT_FALSE(Sample().CopyColToRow(0, 0, wide));

  QVRectMatrix square = Rect({{1, 2}, {3, 4}});
  EXPECT_TRUE(square.CopyColToRow(1, 0, square));
  EXPECT_EQ(square.AsVector(), (V{2, 4, 3, 4}));
}

TEST(RectMatrixElements, AddToColumn) {
  QVRectMatrix r = Sample();
  EXPECT_TRUE(r.AddToColumn(0, Rect({{1}, {2}}), 0, 10.0));
  EXPECT_EQ(r.AsVector(), (V{11, 2, 3, 24, 5, 6}));
  EXPECT_TRUE(r.AddToColumn(1, r, 1, 1.0));  // itself
  EXPECT_EQ(r.AsVector(), (V{11, 4, 3, 24, 10, 6}));
  EXPECT_FALSE(r.AddToColumn(3, r, 0, 1.0));
  EXPECT_FALSE(r.AddToColumn(0, r, -1, 1.0));
  EXPECT_FALSE(r.AddToColumn(0, Rect({{1}}), 0, 1.0));
  EXPECT_EQ(r.AsVector(), (V{11, 4, 3, 24, 10, 6}));
}

TEST(RectMatrixElements, ColScaleAndZeroOutCol) {
  QVRectMatrix r = Sample();
  EXPECT_TRUE(r.ColScale(1, -2.0));
  EXPECT_EQ(r.AsVector(), (V{1, -4, 3, 4, -10, 6}));
  EXPECT_TRUE(r.ZeroOutCol(2));
  EXPECT_EQ(r.AsVector(), (V{1, -4, 0, 4, -10, 0}));
  for (int j : {-1, 3}) {
    EXPECT_FALSE(r.ColScale(j, 2.0));
    EXPECT_FALSE(r.ZeroOutCol(j));
  }
}

TEST(RectMatrixElements, ZeroOutRowPart) {
  QVRectMatrix r = Sample();
  EXPECT_TRUE(r.ZeroOutRowPart(1, 1, 2));
  EXPECT_EQ(r.AsVector(), (V{1, 2, 3, 4, 0, 0}));
  EXPECT_TRUE(r.ZeroOutRowPart(0, 3, 0));
  EXPECT_FALSE(r.ZeroOutRowPart(2, 0, 1));
  EXPECT_FALSE(r.ZeroOutRowPart(-1, 0, 1));
  EXPECT_FALSE(r.ZeroOutRowPart(0, -1, 1));
  EXPECT_FALSE(r.ZeroOutRowPart(0, 0, -1));
  EXPECT_FALSE(r.ZeroOutRowPart(0, 2, 2));
  EXPECT_FALSE(r.ZeroOutRowPart(0, std::numeric_limits<int>::max(), 2));
  EXPECT_EQ(r.AsVector(), (V{1, 2, 3, 4, 0, 0}));
}

TEST(RectMatrixElements, ZeroRowsAndColumns) {
  const QVRectMatrix r = Rect({{0, 0, 0}, {0, 7, 0}, {0, 1, 2}});
  EXPECT_TRUE(r.IsRowZero(0));
  EXPECT_FALSE(r.IsRowZero(1));
  EXPECT_TRUE(r.IsColZero(0));
  EXPECT_FALSE(r.IsColZero(2));
  for (int bad : {-1, 3}) {
    EXPECT_FALSE(r.IsRowZero(bad));
    EXPECT_FALSE(r.IsColZero(bad));
  }
}

TEST(RectMatrixElements, IsRowZeroButOne) {
  const QVRectMatrix r = Rect({{0, 0, 0}, {0, 7, 0}, {0, 1, 2}});
  const QVBitSet all(std::vector<bool>{true, true, true});
  const QVBitSet last(std::vector<bool>{false, false, true});
  int column = 5;
  EXPECT_FALSE(r.IsRowZeroButOne(0, all, column));
  EXPECT_EQ(column, -1);
  EXPECT_TRUE(r.IsRowZeroButOne(1, all, column));
  EXPECT_EQ(column, 1);
  EXPECT_FALSE(r.IsRowZeroButOne(2, all, column));
  EXPECT_EQ(column, -1);
  EXPECT_TRUE(r.IsRowZeroButOne(2, last, column));
  EXPECT_EQ(column, 2);
  EXPECT_FALSE(r.IsRowZeroButOne(3, all, column));
  EXPECT_EQ(column, -1);
}

TEST(RectMatrixElements, IncrVecByColumn) {
  const QVRectMatrix r = RandomRect(7, 3, 1);
  for (int j = 0; j < 3; ++j) {
    for (int len : {1, 4, 7}) {
      V v = reference::RandomVector(9, 2);
      V wanted = v;
      for (int i = 0; i < len; ++i)
        wanted[At(2 + i)] += -1.5 * r.GetElem(i, j);
      EXPECT_TRUE(r.IncrVecByColumn(j, v, 2, len, -1.5, true));
      EXPECT_EQ(v, wanted);
    }
  }
  V v(4, 1.0);
  EXPECT_FALSE(Sample().IncrVecByColumn(-1, v, 0, 1, 1.0, true));
  EXPECT_FALSE(Sample().IncrVecByColumn(3, v, 0, 1, 1.0, true));
  EXPECT_FALSE(Sample().IncrVecByColumn(0, v, 0, 0, 1.0, true));
  EXPECT_FALSE(Sample().IncrVecByColumn(0, v, 0, 3, 1.0, true));
  EXPECT_FALSE(Sample().IncrVecByColumn(0, v, -1, 2, 1.0, true));
  EXPECT_FALSE(Sample().IncrVecByColumn(0, v, 3, 2, 1.0, true));
  EXPECT_EQ(v, V(4, 1.0));
}

}  // namespace
