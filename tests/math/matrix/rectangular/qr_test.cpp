// Householder QR: the factors give the matrix back, q is orthogonal, zero columns are skipped.
#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "QVRectMatrix.h"
#include "QVSymMatrix.h"
#include "math/matrix/reference.h"

namespace {

using QVMath_940::QVRectMatrix;
using QVMath_940::QVSymMatrix;
using reference::FromRect;
using reference::Full;
using reference::Identity;
using reference::kResidualBound;
using reference::Multiply;
using reference::RandomRect;
using reference::Rect;
using reference::ScaledResidual;
using reference::Transpose;

/// The upper triangle of r as a matrix of `rows` rows.
Full Upper(const QVSymMatrix & r, int rows) {
  Full upper(rows, r.GetNRows());
  for (int i = 0; i < r.GetNRows(); ++i)
    for (int j = i; j < r.GetNRows(); ++j)
      upper(i, j) = r.GetElem(i, j);
  return upper;
}

void ExpectFactors(const QVRectMatrix & matrix) {
  QVSymMatrix r(2, true);
  QVRectMatrix q;
  ASSERT_TRUE(matrix.QRDecompositionH(r, q));
  Full a = FromRect(matrix);
  if (a.Rows() < a.Cols()) a = Transpose(a);
  ASSERT_EQ(r.GetNRows(), a.Cols());
  EXPECT_EQ(r.GetNBlocks(), 1);
  ASSERT_EQ(q.GetNRows(), a.Rows());
  ASSERT_EQ(q.GetNCols(), a.Rows());
  EXPECT_LT(ScaledResidual(Multiply(FromRect(q), Upper(r, a.Rows())), a), kResidualBound);
  EXPECT_LT(ScaledResidual(Multiply(Transpose(FromRect(q)), FromRect(q)), Identity(a.Rows())),
            kResidualBound);
}

TEST(RectMatrixQR, FactorsGiveTheMatrixBack) {
  for (const int rows : {1, 2, 3, 7, 33, 80})
    for (const int cols : {1, 2, 3, 7, 33, 70})
      ExpectFactors(RandomRect(rows, cols, 1));
}

TEST(RectMatrixQR, ShapesOfTallAndWide) {
  QVSymMatrix r;
  QVRectMatrix q;
  ASSERT_TRUE(RandomRect(3, 2, 1).QRDecompositionH(r, q));
  EXPECT_EQ(r.GetNRows(), 2);
  EXPECT_EQ(q.GetNRows(), 3);
  EXPECT_EQ(q.GetNCols(), 3);
  // A wide matrix gives the factors of its transpose.
  QVSymMatrix wideR;
  QVRectMatrix wideQ;
  QVRectMatrix wide = RandomRect(3, 2, 1);
  wide.Transpose();
  ASSERT_TRUE(wide.QRDecompositionH(wideR, wideQ));
  EXPECT_EQ(wideR.AsVector(), r.AsVector());
  EXPECT_EQ(wideQ.AsVector(), q.AsVector());
}

TEST(RectMatrixQR, DiagonalHasTheSignAgainstTheColumn) {
  QVSymMatrix r;
  QVRectMatrix q;
  ASSERT_TRUE(Rect({{3}, {4}}).QRDecompositionH(r, q));
  EXPECT_DOUBLE_EQ(r.GetElem(0, 0), -5.0);
  ASSERT_TRUE(Rect({{-3}, {4}}).QRDecompositionH(r, q));
  EXPECT_DOUBLE_EQ(r.GetElem(0, 0), 5.0);
  ASSERT_TRUE(Rect({{0}, {4}}).QRDecompositionH(r, q));
  EXPECT_DOUBLE_EQ(r.GetElem(0, 0), 4.0);
}

TEST(RectMatrixQR, ZeroColumnIsSkipped) {
  const QVRectMatrix a = Rect({{1, 0, 2, 1}, {1, 0, -1, 3}, {2, 0, 0, 5}, {4, 0, 1, 1}});
  ExpectFactors(a);
  QVSymMatrix r;
  QVRectMatrix q;
  ASSERT_TRUE(a.QRDecompositionH(r, q));
  EXPECT_EQ(r.GetElem(1, 1), 0.0);
  EXPECT_NE(r.GetElem(1, 2), 0.0);  // row 1 of the work matrix goes into r as it is
  ExpectFactors(QVRectMatrix(4, 3, true));
  ExpectFactors(Rect({{0, 1, 2}, {0, 3, 4}, {0, 5, 6}}));
  ExpectFactors(Rect({{1, 2, 0}, {3, 4, 0}, {5, 7, 0}}));
}

TEST(RectMatrixQR, TargetMayBeTheMatrix) {
  const QVRectMatrix a = RandomRect(5, 3, 2);
  QVSymMatrix r;
  QVRectMatrix q;
  ASSERT_TRUE(a.QRDecompositionH(r, q));
  QVRectMatrix self = a;
  ASSERT_TRUE(self.QRDecompositionH(r, self));
  EXPECT_EQ(self.AsVector(), q.AsVector());
}

TEST(RectMatrixQR, RefusesAnEmptyMatrix) {
  QVSymMatrix r(2, true);
  QVRectMatrix q = Rect({{7}});
  EXPECT_FALSE(QVRectMatrix(0, 3, true).QRDecompositionH(r, q));
  EXPECT_FALSE(QVRectMatrix(3, 0, true).QRDecompositionH(r, q));
  constexpr int kHuge = std::numeric_limits<int>::max();
  EXPECT_FALSE(QVRectMatrix(kHuge, kHuge, true).QRDecompositionH(r, q));
  EXPECT_EQ(r.GetNRows(), 2);
  EXPECT_EQ(q.GetElem(0, 0), 7.0);
}

}  // namespace
