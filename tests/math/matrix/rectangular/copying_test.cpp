// Sparse rows, copying, extracting, shifting and block-diagonal copies of the rectangular matrix.
#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "QVRectMatrix.h"
#include "QVSparseVector.h"
#include "math/matrix/allocation_limit.h"
#include "math/matrix/rectangular/not_dense.h"
#include "math/matrix/reference.h"

namespace {

using QVMath_940::QVRectMatrix;
using QVMath_940::QVSparseVector;
using reference::RandomRect;
using reference::Rect;
using I = std::vector<int>;
using V = std::vector<double>;

const QVRectMatrix & Sample() {
  static const QVRectMatrix sample = Rect({{1, 2, 3}, {4, 5, 6}});
  return sample;
}

void ExpectEqual(const QVRectMatrix & got, const QVRectMatrix & wanted) {
  EXPECT_EQ(got.GetNRows(), wanted.GetNRows());
  EXPECT_EQ(got.GetNCols(), wanted.GetNCols());
  EXPECT_EQ(got.AsVector(), wanted.AsVector());
}

TEST(RectMatrixSparseRows, AddRow) {
  QVRectMatrix r = Sample();
  const I places = {0, 2};
  const V values = {7.0, 9.0};
  EXPECT_EQ(r.AddRow(QVSparseVector(places, values)), 3);
  ExpectEqual(r, Rect({{1, 2, 3}, {4, 5, 6}, {7, 0, 9}}));
  const I tooFar = {0, 3};
  const I falling = {2, 0};
  EXPECT_EQ(r.AddRow(QVSparseVector(tooFar, values)), -1);
  EXPECT_EQ(r.AddRow(QVSparseVector(falling, values)), -1);
  EXPECT_EQ(r.GetNRows(), 3);
  QVRectMatrix empty(0, 3, true);
  EXPECT_EQ(empty.AddRow(QVSparseVector(places, values)), 1);
  ExpectEqual(empty, Rect({{7, 0, 9}}));
}

TEST(RectMatrixSparseRows, SetRow) {
  QVRectMatrix r = Sample();
  const I places = {1};
  const V values = {8.0};
  EXPECT_TRUE(r.SetRow(0, QVSparseVector(places, values)));
  ExpectEqual(r, Rect({{0, 8, 0}, {4, 5, 6}}));
  const I tooFar = {3};
  const I negative = {-1};
  EXPECT_FALSE(r.SetRow(0, QVSparseVector(tooFar, values)));
  EXPECT_FALSE(r.SetRow(0, QVSparseVector(negative, values)));
  EXPECT_FALSE(r.SetRow(2, QVSparseVector(places, values)));
  EXPECT_FALSE(r.SetRow(-1, QVSparseVector(places, values)));
  ExpectEqual(r, Rect({{0, 8, 0}, {4, 5, 6}}));
}

TEST(RectMatrixCopying, CopyRows) {
  QVRectMatrix r(3, 3, true);
  EXPECT_TRUE(r.CopyRows(Sample(), 1, 1));
  ExpectEqual(r, Rect({{4, 5, 6}, {0, 0, 0}, {0, 0, 0}}));
  EXPECT_TRUE(r.CopyRows(Sample(), 0, 2));
  ExpectEqual(r, Rect({{1, 2, 3}, {4, 5, 6}, {0, 0, 0}}));
  EXPECT_TRUE(r.CopyRows(Sample(), 2, 0));
  EXPECT_TRUE(r.CopyRows(r, 1, 2));
  ExpectEqual(r, Rect({{4, 5, 6}, {0, 0, 0}, {0, 0, 0}}));
  const QVRectMatrix before = r;
  EXPECT_FALSE(r.CopyRows(Sample(), -1, 1));
  EXPECT_FALSE(r.CopyRows(Sample(), 0, -1));
  EXPECT_FALSE(r.CopyRows(Sample(), 1, 2));
  EXPECT_FALSE(r.CopyRows(Sample(), 1, std::numeric_limits<int>::max()));
  EXPECT_FALSE(r.CopyRows(QVRectMatrix(5, 3, true), 0, 4));
  EXPECT_FALSE(r.CopyRows(QVRectMatrix(2, 2, true), 0, 1));
  ExpectEqual(r, before);
}

TEST(RectMatrixCopying, CopyColumns) {
  QVRectMatrix r(2, 4, true);
  EXPECT_TRUE(r.CopyColumns(Sample(), 1, 2));
  ExpectEqual(r, Rect({{2, 3, 0, 0}, {5, 6, 0, 0}}));
  EXPECT_TRUE(r.CopyColumns(r, 1, 3));
  ExpectEqual(r, Rect({{3, 0, 0, 0}, {6, 0, 0, 0}}));
  const QVRectMatrix before = r;
  EXPECT_FALSE(r.CopyColumns(Sample(), -1, 1));
  EXPECT_FALSE(r.CopyColumns(Sample(), 0, -1));
  EXPECT_FALSE(r.CopyColumns(Sample(), 2, 2));
  EXPECT_FALSE(r.CopyColumns(QVRectMatrix(2, 6, true), 0, 5));
  EXPECT_FALSE(r.CopyColumns(QVRectMatrix(3, 4, true), 0, 1));
  ExpectEqual(r, before);
}

TEST(RectMatrixCopying, CreateBlockDiagonal) {
  QVRectMatrix out(1, 9, true);
  EXPECT_TRUE(Sample().CreateBlockDiagonal(2, out));
  ExpectEqual(
      out, Rect({{1, 2, 3, 0, 0, 0}, {4, 5, 6, 0, 0, 0}, {0, 0, 0, 1, 2, 3}, {0, 0, 0, 4, 5, 6}}));
  QVRectMatrix self = Sample();
  EXPECT_TRUE(self.CreateBlockDiagonal(2, self));
  ExpectEqual(self, out);
  EXPECT_FALSE(Sample().CreateBlockDiagonal(0, out));
  EXPECT_FALSE(Sample().CreateBlockDiagonal(-1, out));
  EXPECT_FALSE(Sample().CreateBlockDiagonal(std::numeric_limits<int>::max(), out));
  ExpectEqual(self, out);
  EXPECT_TRUE(QVRectMatrix(2, 0, true).CreateBlockDiagonal(3, out));
  EXPECT_EQ(out.GetNRows(), 6);
  EXPECT_EQ(out.GetNCols(), 0);
}

TEST(RectMatrixExtracting, Rows) {
  QVRectMatrix out(9, 9, true);
  EXPECT_EQ(Sample().ExtractRows({1, 0, 1}, out), 3);
  ExpectEqual(out, Rect({{4, 5, 6}, {1, 2, 3}, {4, 5, 6}}));
  EXPECT_EQ(Sample().ExtractRows({2}, out), -1);
  EXPECT_EQ(Sample().ExtractRows({0, -1}, out), -1);
  EXPECT_EQ(out.GetNRows(), 3);
  EXPECT_EQ(out.ExtractRows({2, 1}, out), 2);
  ExpectEqual(out, Rect({{4, 5, 6}, {1, 2, 3}}));
  EXPECT_EQ(Sample().ExtractRows({}, out), 0);
  EXPECT_EQ(out.GetNRows(), 0);
  EXPECT_EQ(out.GetNCols(), 3);
}

TEST(RectMatrixExtracting, Columns) {
  QVRectMatrix out;
  EXPECT_EQ(Sample().ExtractColumns({2, 0}, out), 2);
  ExpectEqual(out, Rect({{3, 1}, {6, 4}}));
  EXPECT_EQ(Sample().ExtractColumns({3}, out), -1);
  EXPECT_EQ(Sample().ExtractColumns({-1, 0}, out), -1);
  ExpectEqual(out, Rect({{3, 1}, {6, 4}}));
  EXPECT_EQ(out.ExtractColumns({1, 1, 0}, out), 3);
  ExpectEqual(out, Rect({{1, 1, 3}, {4, 4, 6}}));
  EXPECT_EQ(Sample().ExtractColumns({}, out), 0);
  EXPECT_EQ(out.GetNRows(), 2);
  EXPECT_EQ(out.GetNCols(), 0);
}

TEST(RectMatrixShifting, Columns) {
  QVRectMatrix out(7, 7, true);
  EXPECT_TRUE(Sample().ShiftColumns(1, out));
  ExpectEqual(out, Rect({{0, 1, 2}, {0, 4, 5}}));
  EXPECT_TRUE(Sample().ShiftColumns(-2, out));
  ExpectEqual(out, Rect({{3, 0, 0}, {6, 0, 0}}));
  EXPECT_TRUE(Sample().ShiftColumns(0, out));
  ExpectEqual(out, Sample());
  EXPECT_FALSE(Sample().ShiftColumns(4, out));
  EXPECT_FALSE(Sample().ShiftColumns(-4, out));
  EXPECT_FALSE(Sample().ShiftColumns(std::numeric_limits<int>::min(), out));
  ExpectEqual(out, Sample());
  EXPECT_TRUE(out.ShiftColumns(2, out));
  ExpectEqual(out, Rect({{0, 0, 1}, {0, 0, 4}}));
  EXPECT_TRUE(out.ShiftColumns(3, out));
  ExpectEqual(out, QVRectMatrix(2, 3, true));
}

TEST(RectMatrixShifting, Rows) {
  const QVRectMatrix r = Rect({{1, 2}, {3, 4}, {5, 6}});
  QVRectMatrix out;
  EXPECT_TRUE(r.ShiftRows(1, out));
  ExpectEqual(out, Rect({{0, 0}, {1, 2}, {3, 4}}));
  EXPECT_TRUE(r.ShiftRows(-1, out));
  ExpectEqual(out, Rect({{3, 4}, {5, 6}, {0, 0}}));
  EXPECT_FALSE(r.ShiftRows(4, out));
  EXPECT_FALSE(r.ShiftRows(-4, out));
  ExpectEqual(out, Rect({{3, 4}, {5, 6}, {0, 0}}));
  EXPECT_TRUE(out.ShiftRows(-1, out));
  ExpectEqual(out, Rect({{5, 6}, {0, 0}, {0, 0}}));
  EXPECT_TRUE(r.ShiftRows(3, out));
  ExpectEqual(out, QVRectMatrix(3, 2, true));
}

TEST(RectMatrixCopying, InvalidMatrixIsRefused) {
  constexpr int kHuge = std::numeric_limits<int>::max();
  const QVRectMatrix broken(kHuge, kHuge, true);
  QVRectMatrix out = Sample();
  EXPECT_FALSE(broken.CreateBlockDiagonal(1, out));
  EXPECT_EQ(broken.ExtractRows({}, out), -1);
  EXPECT_EQ(broken.ExtractColumns({}, out), -1);
  EXPECT_FALSE(broken.ShiftColumns(0, out));
  EXPECT_FALSE(broken.ShiftRows(0, out));
  EXPECT_FALSE(out.CopyRows(broken, 0, 0));
  EXPECT_FALSE(out.CopyColumns(broken, 0, 0));
  ExpectEqual(out, Sample());
}

TEST(RectMatrixCopying, TargetsMustBeDense) {
  reference::SaysSparse target(2, 2, true);
  EXPECT_FALSE(Sample().CreateBlockDiagonal(1, target));
  EXPECT_EQ(Sample().ExtractRows({0}, target), -1);
  EXPECT_EQ(Sample().ExtractColumns({0}, target), -1);
  EXPECT_FALSE(Sample().ShiftColumns(0, target));
  EXPECT_FALSE(Sample().ShiftRows(0, target));
  ExpectEqual(target, QVRectMatrix(2, 2, true));
  QVRectMatrix r(2, 3, true);
  EXPECT_TRUE(r.CopyRows(reference::SaysSparse(Sample()), 1, 1));
  ExpectEqual(r, Rect({{4, 5, 6}, {0, 0, 0}}));
}

TEST(RectMatrixCopying, FailedAllocationMakesTheTargetInvalid) {
  const QVRectMatrix r = RandomRect(10, 10, 1);
  QVRectMatrix blocks, rows, columns, shifted;
  {
    const AllocationLimit limit(700);
    EXPECT_FALSE(r.CreateBlockDiagonal(2, blocks));
    EXPECT_EQ(r.ExtractRows({0, 1, 2, 3, 4, 5, 6, 7, 8, 9}, rows), -1);
    EXPECT_EQ(r.ExtractColumns({0, 1, 2, 3, 4, 5, 6, 7, 8, 9}, columns), -1);
    EXPECT_FALSE(r.ShiftRows(1, shifted));
  }
  for (const QVRectMatrix * target : {&blocks, &rows, &columns, &shifted})
    EXPECT_FALSE(target->IsValidMatrix());
}

}  // namespace
