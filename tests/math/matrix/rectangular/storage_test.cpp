// Construction and shape of the dense rectangular matrix, and what a failed allocation does.
#include <limits>
#include <utility>

#include <gtest/gtest.h>

#include "QVRectMatrix.h"
#include "math/matrix/allocation_limit.h"
#include "math/matrix/reference.h"

namespace {

using QVMath_940::QVRectMatrix;
using reference::At;
using reference::FromRect;
using reference::MaxDifference;
using reference::RandomRect;
using reference::Rect;
using V = std::vector<double>;

constexpr int kHuge = std::numeric_limits<int>::max();

void ExpectShape(const QVRectMatrix & r, int rows, int cols) {
  EXPECT_EQ(r.GetNRows(), rows);
  EXPECT_EQ(r.GetNCols(), cols);
  EXPECT_EQ(r.IsValidMatrix(), rows >= 0 && cols >= 0);
  EXPECT_EQ(r.AsVector().size(), rows > 0 && cols > 0 ? At(rows) * At(cols) : 0u);
}

TEST(RectMatrixStorage, Construction) {
  ExpectShape(QVRectMatrix(), 0, 0);
  EXPECT_EQ(QVRectMatrix().GetMatrixType(), QVMath_940::RectMatrixDense);
  const QVRectMatrix r(2, 3, true);
  ExpectShape(r, 2, 3);
  EXPECT_EQ(r.AsVector(), V(6, 0.0));
  ExpectShape(QVRectMatrix(2, 3, false), 2, 3);
  ExpectShape(QVRectMatrix(3, -1, true), 3, 0);
  ExpectShape(QVRectMatrix(-2, 4, true), 0, 4);
  ExpectShape(QVRectMatrix(-2, -2, true), 0, 0);
}

TEST(RectMatrixStorage, CopiesAreDeep) {
  QVRectMatrix r = Rect({{1, 2}, {3, 4}});
  const QVRectMatrix copy(r);
  QVRectMatrix assigned(5, 5, true);
  assigned = r;
  r.SetElem(0, 0, 9.0);
  EXPECT_EQ(copy.AsVector(), (V{1, 2, 3, 4}));
  EXPECT_EQ(assigned.AsVector(), (V{1, 2, 3, 4}));
  ExpectShape(assigned, 2, 2);
  assigned = *&assigned;
  EXPECT_EQ(assigned.AsVector(), (V{1, 2, 3, 4}));
}

TEST(RectMatrixStorage, MovesTakeTheStorage) {
  QVRectMatrix r = Rect({{1, 2}, {3, 4}});
  const double * elements = r.AsVector().data();
  QVRectMatrix moved(std::move(r));
  EXPECT_EQ(moved.AsVector().data(), elements);
  ExpectShape(r, 0, 0);
  r = std::move(moved);
  EXPECT_EQ(r.AsVector().data(), elements);
  ExpectShape(moved, 0, 0);
}

TEST(RectMatrixStorage, ResizeKeepsPositionsNotRows) {
  QVRectMatrix r = Rect({{1, 2}, {3, 4}});
  EXPECT_TRUE(r.Resize(2, 3));
  ExpectShape(r, 2, 3);
  EXPECT_EQ(r.AsVector(), (V{1, 2, 3, 4, 0, 0}));
  EXPECT_TRUE(r.Resize(3, -1));
  ExpectShape(r, 3, 0);
}

TEST(RectMatrixStorage, SetNRowsCols) {
  QVRectMatrix r = Rect({{1, 2}, {3, 4}});
  EXPECT_TRUE(r.SetNRowsCols(1, 3, false));
  EXPECT_EQ(r.AsVector(), (V{1, 2, 3}));
  EXPECT_TRUE(r.SetNRowsCols(2, 2, true));
  EXPECT_EQ(r.AsVector(), V(4, 0.0));
  EXPECT_TRUE(r.SetNRowsCols(-2, 3, true));
  ExpectShape(r, 0, 3);
}

TEST(RectMatrixStorage, AddRow) {
  QVRectMatrix r = Rect({{1, 2}});
  EXPECT_EQ(r.AddRow(), 2);
  ExpectShape(r, 2, 2);
  EXPECT_EQ(r.AsVector(), (V{1, 2, 0, 0}));
  QVRectMatrix noColumns(2, 0, true);
  EXPECT_EQ(noColumns.AddRow(), 3);
  ExpectShape(noColumns, 3, 0);
}

TEST(RectMatrixStorage, AddColumn) {
  QVRectMatrix r = Rect({{1, 2}, {3, 4}, {5, 6}});
  EXPECT_EQ(r.AddColumn(), 3);
  ExpectShape(r, 3, 3);
  EXPECT_EQ(r.AsVector(), (V{1, 2, 0, 3, 4, 0, 5, 6, 0}));
  QVRectMatrix noColumns(2, 0, true);
  EXPECT_EQ(noColumns.AddColumn(), 1);
  EXPECT_EQ(noColumns.AsVector(), (V{0, 0}));
  QVRectMatrix noRows(0, 2, true);
  EXPECT_EQ(noRows.AddColumn(), 3);
  ExpectShape(noRows, 0, 3);
}

TEST(RectMatrixStorage, DeleteOneRow) {
  for (int k = 0; k < 4; ++k) {
    const QVRectMatrix original = RandomRect(4, 3, 1);
    QVRectMatrix r = original;
    std::vector<int> rest;
    for (int i = 0; i < 4; ++i)
      if (i != k) rest.push_back(i);
    EXPECT_TRUE(r.DeleteOneRow(k));
    EXPECT_EQ(MaxDifference(FromRect(r), reference::Part(FromRect(original), rest, {0, 1, 2})),
              0.0);
  }
  QVRectMatrix r(2, 3, true);
  EXPECT_FALSE(r.DeleteOneRow(-1));
  EXPECT_FALSE(r.DeleteOneRow(2));
  ExpectShape(r, 2, 3);
  QVRectMatrix noColumns(2, 0, true);
  EXPECT_TRUE(noColumns.DeleteOneRow(0));
  ExpectShape(noColumns, 1, 0);
}

TEST(RectMatrixStorage, DeleteOneCol) {
  for (int k = 0; k < 3; ++k) {
    const QVRectMatrix original = RandomRect(4, 3, 2);
    QVRectMatrix r = original;
    std::vector<int> rest;
    for (int j = 0; j < 3; ++j)
      if (j != k) rest.push_back(j);
    EXPECT_TRUE(r.DeleteOneCol(k));
    EXPECT_EQ(MaxDifference(FromRect(r), reference::Part(FromRect(original), {0, 1, 2, 3}, rest)),
              0.0);
  }
  QVRectMatrix r(2, 1, true);
  EXPECT_FALSE(r.DeleteOneCol(-1));
  EXPECT_FALSE(r.DeleteOneCol(1));
  EXPECT_TRUE(r.DeleteOneCol(0));
  ExpectShape(r, 2, 0);
}

TEST(RectMatrixStorage, Transpose) {
  for (int rows : {0, 1, 2, 7, 33}) {
    for (int cols : {0, 1, 3, 33}) {
      const QVRectMatrix original = RandomRect(rows, cols, 3);
      QVRectMatrix r = original;
      EXPECT_TRUE(r.Transpose());
      ExpectShape(r, cols, rows);
      EXPECT_EQ(MaxDifference(FromRect(r), reference::Transpose(FromRect(original))), 0.0);
    }
  }
}

TEST(RectMatrixStorage, ResizeHelper) {
  V elements{1, 2};
  int rows = 2, cols = 2;
  EXPECT_TRUE(QVRectMatrix::ResizeNRowsCols(elements, rows, cols));
  EXPECT_EQ(elements, (V{1, 2, 0, 0}));
  cols = 0;
  EXPECT_TRUE(QVRectMatrix::ResizeNRowsCols(elements, rows, cols));
  EXPECT_TRUE(elements.empty());
  rows = -2;
  EXPECT_FALSE(QVRectMatrix::ResizeNRowsCols(elements, rows, cols));
  EXPECT_EQ(rows, -2);
  rows = cols = kHuge;
  EXPECT_FALSE(QVRectMatrix::ResizeNRowsCols(elements, rows, cols));
  EXPECT_EQ(rows, -1);
  EXPECT_EQ(cols, -1);
}

TEST(RectMatrixAllocation, FailureMakesBothCountsNegative) {
  ExpectShape(QVRectMatrix(kHuge, kHuge, true), -1, -1);
  const QVRectMatrix source(20, 20, true);
  QVRectMatrix resized(2, 2, true), cleared(2, 2, true), assigned(2, 2, true);
  QVRectMatrix grown(100, 1, true), widened(100, 1, true), turned(25, 5, true);
  {
    const AllocationLimit limit(900);
    ExpectShape(QVRectMatrix(20, 20, true), -1, -1);
    ExpectShape(QVRectMatrix(source), -1, -1);
    EXPECT_FALSE(resized.Resize(20, 20));
    EXPECT_FALSE(cleared.SetNRowsCols(20, 20, true));
    assigned = source;
    while (grown.IsValidMatrix() && grown.GetNRows() < 200)
      grown.AddRow();
    EXPECT_EQ(widened.AddColumn(), -1);
    EXPECT_FALSE(turned.Transpose());
  }
  for (const QVRectMatrix * r : {&resized, &cleared, &assigned, &grown, &widened, &turned})
    ExpectShape(*r, -1, -1);
  EXPECT_TRUE(resized.SetNRowsCols(20, 20, true));
  ExpectShape(resized, 20, 20);
}

TEST(RectMatrixAllocation, InvalidMatrixFindsNoRows) {
  QVRectMatrix r(kHuge, kHuge, true);
  V v{1.0};
  r.Clear();
  r.AddToDiagonal(1.0);
  EXPECT_EQ(r.AddRow(), -1);
  EXPECT_EQ(r.AddColumn(), -1);
  EXPECT_FALSE(r.Transpose());
  EXPECT_FALSE(r.DeleteOneRow(0));
  EXPECT_FALSE(r.DeleteOneCol(0));
  EXPECT_EQ(r.GetRowPtr(0), nullptr);
  EXPECT_EQ(r.GetColPtr(0), nullptr);
  EXPECT_FALSE(r.GetRow(0, v));
  EXPECT_FALSE(r.GetCol(0, v));
  EXPECT_FALSE(r.IsRowZero(0));
  EXPECT_FALSE(r.IsColZero(0));
  ExpectShape(r, -1, -1);
}

}  // namespace
