// What is particular to the sparse rectangular matrix: its storage, and the rows that it cannot
// hold.
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "QVMV.h"
#include "math/matrix/allocation_limit.h"
#include "math/matrix/display_capture.h"
#include "math/matrix/structured/structured_matrices.h"

namespace {

using QVMath_940::IQVRectMatrix;
using QVMath_940::QVBitSet;
using QVMath_940::QVRectMatrix;
using QVMath_940::QVSparseRectMatrix;
using QVMath_940::QVSparseVector;
using reference::FromRect;
using reference::MaxDifference;
using I = std::vector<int>;
using V = std::vector<double>;

// Two cells a row in four columns:  1 2 0 0
//                                   0 0 3 4
//                                   5 0 0 6
QVSparseRectMatrix Example() {
  QVSparseRectMatrix r(3, 4, 2);
  const std::vector<I> columns = {{0, 1}, {2, 3}, {0, 3}};
  const std::vector<V> values = {{1, 2}, {3, 4}, {5, 6}};
  for (std::size_t i = 0; i < columns.size(); ++i)
    r.AddRow(QVSparseVector(columns[i], values[i]));
  return r;
}

int Add(QVSparseRectMatrix & r, const I & columns, const V & values) {
  return r.AddRow(QVSparseVector(columns, values));
}

TEST(SparseRectMatrix, IsValidByItsFourNumbers) {
  EXPECT_TRUE(QVSparseRectMatrix(1, 1, 1).IsValidMatrix());
  EXPECT_TRUE(QVSparseRectMatrix(5, 4, 4).IsValidMatrix());
  EXPECT_FALSE(QVSparseRectMatrix(0, 4, 2).IsValidMatrix());
  EXPECT_FALSE(QVSparseRectMatrix(-1, 4, 2).IsValidMatrix());
  EXPECT_FALSE(QVSparseRectMatrix(1, 0, 1).IsValidMatrix());
  EXPECT_FALSE(QVSparseRectMatrix(1, 4, 0).IsValidMatrix());
  EXPECT_FALSE(QVSparseRectMatrix(1, 4, 5).IsValidMatrix());
  EXPECT_FALSE(QVSparseRectMatrix(1, -4, -5).IsValidMatrix());
  const QVSparseRectMatrix r(7, 4, 2);
  EXPECT_EQ(r.GetNRows(), 0);
  EXPECT_EQ(r.GetNCols(), 4);
  EXPECT_EQ(r.GetNNZRowElements(), 2);
  EXPECT_EQ(r.GetRowCapacity(), 7);
  EXPECT_EQ(r.GetMatrixType(), QVMath_940::RectMatrixSparse);
}

TEST(SparseRectMatrix, CellIsNeverInserted) {
  QVSparseRectMatrix r = Example();
  EXPECT_TRUE(r.SetElem(0, 1, 9.0));
  EXPECT_EQ(r.GetElem(0, 1), 9.0);
  EXPECT_TRUE(r.SetElem(0, 1, 0.0));  // the cell stays
  EXPECT_TRUE(r.SetElem(0, 1, 2.0));
  EXPECT_TRUE(r.SetElem(0, 2, 0.0));  // nothing there, and nothing wanted
  EXPECT_FALSE(r.SetElem(0, 2, 1.0));
  EXPECT_FALSE(r.SetElem(0, 4, 1.0));
  EXPECT_FALSE(r.SetElem(3, 0, 1.0));
  EXPECT_FALSE(r.SetElem(0, -1, 1.0));
  EXPECT_EQ(MaxDifference(FromRect(r), FromRect(Example())), 0.0);
}

TEST(SparseRectMatrix, RowsAsTheyAreStored) {
  const QVSparseRectMatrix r = Example();
  const int * indices = nullptr;
  const double * values = nullptr;
  ASSERT_TRUE(r.GetRow(2, indices, values));
  EXPECT_EQ(indices[0], 0);
  EXPECT_EQ(indices[1], 3);
  EXPECT_EQ(values[0], 5.0);
  EXPECT_EQ(values[1], 6.0);
  EXPECT_FALSE(r.GetRow(-1, indices, values));
  EXPECT_FALSE(r.GetRow(3, indices, values));
}

TEST(SparseRectMatrix, SparseRowMustHaveExactlyItsCells) {
  QVSparseRectMatrix r = Example();
  EXPECT_EQ(Add(r, {1}, {1.0}), -1);
  EXPECT_EQ(Add(r, {0, 1, 2}, {1.0, 1.0, 1.0}), -1);
  EXPECT_EQ(Add(r, {1, 4}, {1.0, 1.0}), -1);
  EXPECT_EQ(Add(r, {2, 1}, {1.0, 1.0}), -1);  // not ascending
  EXPECT_EQ(Add(r, {-1, 1}, {1.0, 1.0}), -1);
  const I columns = {1};
  const V values = {1.0};
  EXPECT_FALSE(r.SetRow(0, QVSparseVector(columns, values)));
  EXPECT_EQ(MaxDifference(FromRect(r), FromRect(Example())), 0.0);
  EXPECT_EQ(Add(r, {1, 3}, {7.0, 8.0}), 4);
}

TEST(SparseRectMatrix, CapacityGrowsByHalfFromSevenOn) {
  QVSparseRectMatrix r(1, 3, 1);
  const auto fillTo = [&r](int rows) {
    while (r.GetNRows() < rows)
      Add(r, {1}, {2.0});
  };
  fillTo(1);
  EXPECT_EQ(r.GetRowCapacity(), 1);
  fillTo(2);
  EXPECT_EQ(r.GetRowCapacity(), 10);
  fillTo(11);
  EXPECT_EQ(r.GetRowCapacity(), 15);
  fillTo(16);
  EXPECT_EQ(r.GetRowCapacity(), 22);
  QVSparseRectMatrix six(6, 3, 1);
  QVSparseRectMatrix seven(7, 3, 1);
  for (int i = 0; i < 7; ++i)
    six.AddRow();
  for (int i = 0; i < 8; ++i)
    seven.AddRow();
  EXPECT_EQ(six.GetRowCapacity(), 10);
  EXPECT_EQ(seven.GetRowCapacity(), 10);  // 7 + 7 / 2
  QVSparseRectMatrix none(0, 3, 1);
  EXPECT_EQ(none.AddRow(), 1);
  EXPECT_EQ(none.GetRowCapacity(), 10);
  EXPECT_TRUE(none.IsValidMatrix());
  for (int i = 0; i < 16; ++i)
    EXPECT_EQ(r.GetElem(i, 1), 2.0);
}

TEST(SparseRectMatrix, AddedRowHoldsWhatItsCellsHeldBefore) {
  QVSparseRectMatrix r = Example();
  ASSERT_TRUE(r.Resize(1, 4));
  EXPECT_EQ(r.AddRow(), 2);
  EXPECT_EQ(r.GetElem(1, 2), 3.0);
  EXPECT_EQ(r.GetElem(1, 3), 4.0);
  // A row that was never filled has no columns and is a row of zeros everywhere.
  QVSparseRectMatrix fresh(2, 4, 2);
  EXPECT_EQ(fresh.AddRow(), 1);
  const int * indices = nullptr;
  const double * values = nullptr;
  fresh.GetRow(0, indices, values);
  EXPECT_EQ(indices[0], -1);
  V v;
  ASSERT_TRUE(fresh.ComputeRV({1, 1, 1, 1}, v));
  EXPECT_EQ(v, V{0.0});
  ASSERT_TRUE(fresh.ComputeVR({1}, v));
  EXPECT_EQ(v, V(4, 0.0));
  EXPECT_EQ(fresh.RowNorm(0), 0.0);
  EXPECT_TRUE(fresh.IsRowZero(0));
  EXPECT_EQ(fresh.DotProductRows(0, 0), 0.0);
  ASSERT_TRUE(fresh.GetRow(0, v));
  EXPECT_EQ(v, V(4, 0.0));
  EXPECT_FALSE(fresh.SetElem(0, 0, 1.0));
}

TEST(SparseRectMatrix, ResizeKeepsTheFirstRows) {
  QVSparseRectMatrix r = Example();
  ASSERT_TRUE(r.Resize(5, 6));
  EXPECT_EQ(r.GetNRows(), 5);
  EXPECT_EQ(r.GetNCols(), 6);
  EXPECT_EQ(r.GetElem(2, 3), 6.0);
  EXPECT_TRUE(r.IsRowZero(3));
  EXPECT_TRUE(r.IsRowZero(4));
  EXPECT_FALSE(r.Resize(3, 3));  // row 1 has a cell in column 3
  EXPECT_EQ(r.GetNRows(), 5);
  EXPECT_TRUE(r.Resize(1, 2));  // row 0 has cells in columns 0 and 1 alone
  EXPECT_EQ(r.GetElem(0, 1), 2.0);
  EXPECT_FALSE(r.Resize(1, 1));  // fewer columns than cells
  ASSERT_TRUE(r.Resize(-2, 2));
  EXPECT_EQ(r.GetNRows(), 0);
  QVSparseRectMatrix zero = Example();
  zero.SetElem(1, 3, 0.0);
  zero.SetElem(2, 3, 0.0);
  ASSERT_TRUE(zero.Resize(3, 3));  // a cell of 0.0 gives way
  EXPECT_EQ(zero.GetElem(1, 2), 3.0);
  EXPECT_EQ(zero.GetElem(2, 0), 5.0);
  ASSERT_TRUE(zero.SetNRowsCols(4, 9, true));
  for (int i = 0; i < 4; ++i)
    EXPECT_TRUE(zero.IsRowZero(i));
  EXPECT_FALSE(zero.SetNRowsCols(4, 1, true));
  EXPECT_EQ(zero.GetNCols(), 9);
}

TEST(SparseRectMatrix, RowOfTooManyCellsIsRefused) {
  const QVSparseRectMatrix r = Example();
  const auto before = FromRect(r);
  QVSparseRectMatrix narrow(2, 4, 1);
  Add(narrow, {2}, {8.0});
  const auto narrowBefore = FromRect(narrow);
  const auto expectUnchanged = [&](const char * what) {
    EXPECT_EQ(MaxDifference(FromRect(narrow), narrowBefore), 0.0) << what;
    EXPECT_EQ(narrow.GetNRows(), 1) << what;
  };
  EXPECT_EQ(r.ExtractRows({0, 1}, narrow), -1);
  expectUnchanged("ExtractRows");
  EXPECT_EQ(r.ExtractColumns({0, 1, 2}, narrow), -1);
  expectUnchanged("ExtractColumns");
  EXPECT_FALSE(r.ShiftColumns(0, narrow));
  expectUnchanged("ShiftColumns");
  EXPECT_FALSE(r.ShiftRows(1, narrow));
  expectUnchanged("ShiftRows");
  EXPECT_FALSE(r.CreateBlockDiagonal(2, narrow));
  expectUnchanged("CreateBlockDiagonal");
  EXPECT_FALSE(narrow.CopyRows(r, 0, 1));
  expectUnchanged("CopyRows");
  EXPECT_FALSE(r.CopyRowToRow(0, 0, narrow));
  expectUnchanged("CopyRowToRow");
  EXPECT_FALSE(r.ExtractSubSparseRectMat({0}, {0, 1}, narrow));
  expectUnchanged("ExtractSubSparseRectMat");
  QVSparseRectMatrix identity(4, 4, 1);
  for (int i = 0; i < 4; ++i)
    Add(identity, {i}, {1.0});
  EXPECT_FALSE(r.ComputeMatrixProduct(identity, narrow));
  expectUnchanged("ComputeMatrixProduct");
  EXPECT_FALSE(QVRectMatrix(structured::DenseOf(r)).ShiftRows(0, narrow));  // dense to sparse
  expectUnchanged("dense ShiftRows");
  // A row repeated by its column list can need more cells than there are.
  QVSparseRectMatrix own = r;
  EXPECT_EQ(own.ExtractColumns({0, 0, 1}, own), -1);
  EXPECT_EQ(MaxDifference(FromRect(own), before), 0.0);
  // Rows with one cell that is not 0.0 fit where one cell is.
  QVSparseRectMatrix single = Example();
  single.SetElem(0, 0, 0.0);
  EXPECT_EQ(single.ExtractRows({0}, narrow), 1);
  EXPECT_EQ(narrow.GetElem(0, 1), 2.0);
}

TEST(SparseRectMatrix, RowOfTooFewCellsGetsZeros) {
  const QVSparseRectMatrix r = Example();
  QVSparseRectMatrix wide(1, 4, 3);
  ASSERT_EQ(r.ExtractRows({1}, wide), 1);
  const int * indices = nullptr;
  const double * values = nullptr;
  ASSERT_TRUE(wide.GetRow(0, indices, values));
  EXPECT_EQ(I(indices, indices + 3), (I{0, 2, 3}));
  EXPECT_EQ(V(values, values + 3), (V{0, 3, 4}));
  ASSERT_TRUE(r.ShiftColumns(2, wide));
  ASSERT_TRUE(wide.GetRow(1, indices, values));  // everything has left the columns
  EXPECT_EQ(I(indices, indices + 3), (I{0, 1, 2}));
  EXPECT_EQ(V(values, values + 3), (V{0, 0, 0}));
}

TEST(SparseRectMatrix, ExpandSquareSpreadsRowsAndColumns) {
  QVSparseRectMatrix r(2, 2, 1);
  Add(r, {1}, {3.0});
  Add(r, {0}, {4.0});
  QVBitSet places(4);
  places.Set(1, true);
  places.Set(3, true);
  QVRectMatrix dense;
  ASSERT_TRUE(r.ExpandSquare(places, dense));
  EXPECT_EQ(
      MaxDifference(
          FromRect(dense),
          FromRect(reference::Rect({{0, 0, 0, 0}, {0, 0, 0, 3}, {0, 0, 0, 0}, {0, 4, 0, 0}}))),
      0.0);
  QVSparseRectMatrix sparse(1, 1, 1);
  ASSERT_TRUE(r.ExpandSquare(places, sparse));
  EXPECT_EQ(MaxDifference(FromRect(sparse), FromRect(dense)), 0.0);
  places.Set(0, true);
  EXPECT_FALSE(r.ExpandSquare(places, dense));          // three places for two rows
  EXPECT_FALSE(Example().ExpandSquare(places, dense));  // not square
}

TEST(SparseRectMatrix, CopiesAreDeep) {
  QVSparseRectMatrix r = Example();
  QVSparseRectMatrix copy = r;
  copy.SetElem(0, 0, 50.0);
  EXPECT_EQ(r.GetElem(0, 0), 1.0);
  r = copy;
  EXPECT_EQ(r.GetElem(0, 0), 50.0);
  copy.Clear();
  EXPECT_EQ(r.GetElem(0, 0), 50.0);
}

TEST(SparseRectMatrix, FailedStorage) {
  {
    const AllocationLimit limit(1000);
    EXPECT_FALSE(QVSparseRectMatrix(1000, 10, 5).IsValidMatrix());
    EXPECT_EQ(QVSparseRectMatrix(1000, 10, 5).GetNRows(), -1);
  }
  QVSparseRectMatrix r(10, 10, 5);
  const I columns = {0, 1, 2, 3, 4};
  const V values = {1, 2, 3, 4, 5};
  for (int i = 0; i < 10; ++i)
    Add(r, columns, values);
  {
    const AllocationLimit limit(300);
    EXPECT_EQ(Add(r, columns, values), -1);
    EXPECT_EQ(r.GetNRows(), 10);
    EXPECT_EQ(r.GetElem(9, 4), 5.0);
    EXPECT_FALSE(r.Resize(1000, 10));
    const QVSparseRectMatrix copy(r);
    EXPECT_FALSE(copy.IsValidMatrix());
  }
  EXPECT_EQ(Add(r, columns, values), 11);
}

TEST(SparseRectMatrix, OperationsOnAnInvalidMatrixFindNothing) {
  QVSparseRectMatrix r(1, 4, 5);
  V v;
  QVRectMatrix out;
  EXPECT_EQ(r.AddRow(), -1);
  EXPECT_FALSE(r.ComputeRV(V(4, 1.0), v));
  EXPECT_FALSE(r.ComputeVR({}, v));
  EXPECT_FALSE(r.ComputeMatrixProduct(QVRectMatrix(4, 1, true), out));
  EXPECT_EQ(r.ExtractRows({}, out), -1);
  EXPECT_FALSE(r.ShiftRows(0, out));
  EXPECT_EQ(r.GetElem(0, 0), 0.0);
}

TEST(SparseRectMatrix, Display) {
  const DisplayCapture capture;
  const QVSparseRectMatrix r = Example();
  r.Display();
  r.DisplayF();
  EXPECT_EQ(capture.Text(),
            "\nQVSparseRectMatrix display start"
            "\nNumber of rows = 3"
            "\nNumber of columns = 4"
            "\nrow  0:  1 2 0 0"
            "\nrow  1:  0 0 3 4"
            "\nrow  2:  5 0 0 6"
            "\nQVSparseRectMatrix display end"
            "\nQVSparseRectMatrix full matrix display start"
            "\nNumber of rows = 3"
            "\nNumber of columns = 4"
            "\nrow 0:  1 2 0 0"
            "\nrow 1:  0 0 3 4"
            "\nrow 2:  5 0 0 6"
            "\nQVSparseRectMatrix display end");
}

}  // namespace
