// Products of the rectangular matrix with vectors, dot products and norms: against full matrices in
// long double, and bit by bit against the rule of the sums.
#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "QVMV.h"
#include "QVRectMatrix.h"
#include "QVSparseVector.h"
#include "math/matrix/reference.h"

namespace {

using QVCommon_940::QVMV;
using QVMath_940::QVRectMatrix;
using QVMath_940::QVSparseVector;
using reference::At;
using reference::FromRect;
using reference::FromVector;
using reference::kResidualBound;
using reference::Multiply;
using reference::RandomRect;
using reference::RandomVector;
using reference::Rect;
using reference::SameBits;
using reference::ScaledResidual;
using reference::Transpose;
using I = std::vector<int>;
using V = std::vector<double>;

const I kSizes = {0, 1, 2, 3, 7, 33, 63, 64, 65, 129};

/// The sum of the products as the library promises it.
double Sum(const V & x, const V & y) {
  double sum = 0.0;
  for (std::size_t k = 0; k < x.size(); ++k)
    sum = x.size() >= 64 ? std::fma(x[k], y[k], sum) : sum + x[k] * y[k];
  return sum;
}

V Row(const QVRectMatrix & r, int i) {
  V row;
  r.GetRow(i, row);
  return row;
}
V Col(const QVRectMatrix & r, int j) {
  V column;
  r.GetCol(j, column);
  return column;
}

TEST(RectMatrixVectorProducts, RVAndVR) {
  for (const int rows : kSizes)
    for (const int cols : kSizes) {
      const QVRectMatrix r = RandomRect(rows, cols, 1);
      const V v = RandomVector(cols, 2);
      const V u = RandomVector(rows, 3);
      V rv(3, 9.0), vr;
      ASSERT_TRUE(r.ComputeRV(v, rv));
      ASSERT_TRUE(r.ComputeVR(u, vr));
      V wantedRV, wantedVR;
      for (int i = 0; i < rows; ++i)
        wantedRV.push_back(Sum(Row(r, i), v));
      for (int j = 0; j < cols; ++j)
        wantedVR.push_back(Sum(Col(r, j), u));
      EXPECT_TRUE(SameBits(rv, wantedRV)) << rows << 'x' << cols;
      EXPECT_TRUE(SameBits(vr, wantedVR)) << rows << 'x' << cols;
      EXPECT_LT(ScaledResidual(FromVector(rv), Multiply(FromRect(r), FromVector(v))),
                kResidualBound);
      EXPECT_LT(ScaledResidual(FromVector(vr), Multiply(Transpose(FromRect(r)), FromVector(u))),
                kResidualBound);
    }
}

TEST(RectMatrixVectorProducts, ResultMayBeTheOperand) {
  const QVRectMatrix r = Rect({{1, 2, 3}, {4, 5, 6}});
  V v{1, 0, 2};
  EXPECT_TRUE(r.ComputeRV(v, v));
  EXPECT_EQ(v, (V{7, 16}));
  EXPECT_TRUE(r.ComputeVR(v, v));
  EXPECT_EQ(v, (V{71, 94, 117}));
}

TEST(RectMatrixVectorProducts, WrongSizesAreRefused) {
  const QVRectMatrix r = Rect({{1, 2, 3}, {4, 5, 6}});
  V out{9.0};
  EXPECT_FALSE(r.ComputeRV({1, 2}, out));
  EXPECT_FALSE(r.ComputeRV({1, 2, 3, 4}, out));
  EXPECT_FALSE(r.ComputeVR({1}, out));
  EXPECT_FALSE(r.ComputeVR({1, 2, 3}, out));
  EXPECT_FALSE(r.ComputeRDiagV({1, 2}, {1, 2, 3}, out));
  EXPECT_FALSE(r.ComputeRDiagV({1, 2, 3}, {1, 2}, out));
  EXPECT_FALSE(QVRectMatrix(std::numeric_limits<int>::max(), std::numeric_limits<int>::max(), true)
                   .ComputeRV({}, out));
  EXPECT_EQ(out, V{9.0});
  EXPECT_EQ(r.ComputeVRW({1}, {1, 2, 3}), 0.0);
  EXPECT_EQ(r.ComputeVRW({1, 2}, {1, 2}), 0.0);
}

TEST(RectMatrixVectorProducts, SparseFormsAreTheDenseOnes) {
  for (const int size : {5, 70}) {
    const QVRectMatrix r = RandomRect(size, size, 4);
    const I places = {0, 3, 4};
    const V values = {1.25, -0.7, 3.1};
    V dense(At(size), 0.0);
    for (std::size_t p = 0; p < places.size(); ++p)
      dense[At(places[p])] = values[p];
    V sparse, wanted;
    EXPECT_TRUE(r.ComputeRV(places, values, sparse));
    EXPECT_TRUE(r.ComputeRV(dense, wanted));
    EXPECT_EQ(sparse, wanted);
    EXPECT_TRUE(r.ComputeVR(places, values, sparse));
    EXPECT_TRUE(r.ComputeVR(dense, wanted));
    EXPECT_EQ(sparse, wanted);
    const QVSparseVector cells(places, values);
    EXPECT_EQ(r.ComputeSpVRSpW(cells, cells), r.ComputeVRW(dense, dense));
  }
  const QVRectMatrix r = Rect({{1, 2, 3}, {4, 5, 6}});
  V out{9.0};
  EXPECT_FALSE(r.ComputeRV(I{3}, V{1.0}, out));
  EXPECT_FALSE(r.ComputeRV(I{-1}, V{1.0}, out));
  EXPECT_FALSE(r.ComputeRV(I{0, 1}, V{1.0}, out));
  EXPECT_FALSE(r.ComputeVR(I{2}, V{1.0}, out));
  EXPECT_FALSE(r.ComputeVR(I{-1}, V{1.0}, out));
  EXPECT_FALSE(r.ComputeVR(I{0}, V{}, out));
  EXPECT_EQ(out, V{9.0});
  const I one = {1}, two = {2}, falling = {1, 0};
  const V value = {2.0}, values = {1.0, 2.0};
  EXPECT_EQ(r.ComputeSpVRSpW(QVSparseVector(one, value), QVSparseVector(two, value)), 24.0);
  EXPECT_EQ(r.ComputeSpVRSpW(QVSparseVector(two, value), QVSparseVector(two, value)), 0.0);
  EXPECT_EQ(r.ComputeSpVRSpW(QVSparseVector(falling, values), QVSparseVector(two, value)), 0.0);
}

TEST(RectMatrixVectorProducts, DiagonalAndBilinear) {
  const QVRectMatrix r = RandomRect(7, 5, 5);
  const V d = RandomVector(5, 6), v = RandomVector(5, 7), u = RandomVector(7, 8);
  V dv, wanted, got;
  for (int j = 0; j < 5; ++j)
    dv.push_back(d[At(j)] * v[At(j)]);
  ASSERT_TRUE(r.ComputeRV(dv, wanted));
  ASSERT_TRUE(r.ComputeRDiagV(d, v, got));
  EXPECT_EQ(got, wanted);
  ASSERT_TRUE(r.ComputeRV(v, wanted));
  EXPECT_EQ(r.ComputeVRW(u, v), Sum(u, wanted));
}

TEST(RectMatrixVectorProducts, VecProduct) {
  QVRectMatrix r(5, 5, true);
  EXPECT_TRUE(r.ComputeVecProduct({1, -2}, {3, 4, 5}));
  EXPECT_EQ(r.GetNRows(), 2);
  EXPECT_EQ(r.AsVector(), (V{3, 4, 5, -6, -8, -10}));
  EXPECT_TRUE(r.ComputeVecProduct({1, -2}, {}));
  EXPECT_EQ(r.GetNRows(), 2);
  EXPECT_EQ(r.GetNCols(), 0);
}

TEST(RectMatrixDotProducts, FollowTheRule) {
  for (const int size : {1, 3, 63, 64, 100}) {
    const QVRectMatrix r = RandomRect(size, size, 9);
    const QVRectMatrix other = RandomRect(size, size, 10);
    const int a = size / 2, b = size - 1;
    EXPECT_EQ(r.DotProductCol(a, b), Sum(Col(r, a), Col(r, b)));
    EXPECT_EQ(r.DotProductRows(a, b), Sum(Row(r, a), Row(r, b)));
    EXPECT_EQ(r.DotProductRowCol(a, other, b), Sum(Row(r, a), Col(other, b)));
    EXPECT_EQ(r.DotProductRowRow(a, other, b), Sum(Row(r, a), Row(other, b)));
  }
}

TEST(RectMatrixDotProducts, BadIndexesAndLengthsGiveZero) {
  const QVRectMatrix r = Rect({{1, 2, 3}, {4, 5, 6}});
  const QVRectMatrix square = Rect({{1, 2, 3}, {4, 5, 6}, {7, 8, 9}});
  EXPECT_EQ(r.DotProductCol(-1, 0), 0.0);
  EXPECT_EQ(r.DotProductCol(0, 3), 0.0);
  EXPECT_EQ(r.DotProductRows(2, 0), 0.0);
  EXPECT_EQ(r.DotProductRows(0, -1), 0.0);
  EXPECT_EQ(r.DotProductRowCol(0, square, 0), 30.0);
  EXPECT_EQ(r.DotProductRowCol(0, square, 3), 0.0);
  EXPECT_EQ(r.DotProductRowCol(2, square, 0), 0.0);
  EXPECT_EQ(r.DotProductRowCol(0, r, 0), 0.0);  // 3 columns by 2 rows
  EXPECT_EQ(r.DotProductRowRow(0, square, 2), 50.0);
  EXPECT_EQ(r.DotProductRowRow(0, square, 3), 0.0);
  EXPECT_EQ(r.DotProductRowRow(-1, square, 0), 0.0);
  EXPECT_EQ(r.DotProductRowRow(0, QVRectMatrix(2, 2, true), 0), 0.0);
}

TEST(RectMatrixNorms, EuclideanLength) {
  const QVRectMatrix r = Rect({{3, 0, 1e300}, {4, 0, 1e300}});
  EXPECT_DOUBLE_EQ(r.ColNorm(0), 5.0);
  EXPECT_EQ(r.ColNorm(1), 0.0);
  EXPECT_DOUBLE_EQ(r.ColNorm(2), std::sqrt(2.0) * 1e300);  // its square would overflow
  EXPECT_DOUBLE_EQ(Rect({{0, -3, 4}}).RowNorm(0), 5.0);
  EXPECT_EQ(QVRectMatrix(1, 0, true).RowNorm(0), 0.0);
  EXPECT_EQ(QVRectMatrix(0, 1, true).ColNorm(0), 0.0);
}

TEST(RectMatrixNorms, BadIndexGivesTheMissingValue) {
  const QVRectMatrix r = Rect({{3, 0}, {4, 0}, {5, 5}});
  EXPECT_TRUE(QVMV::IsMissing(r.ColNorm(-1)));
  EXPECT_TRUE(QVMV::IsMissing(r.ColNorm(2)));
  EXPECT_TRUE(QVMV::IsMissing(r.RowNorm(-1)));
  EXPECT_TRUE(QVMV::IsMissing(r.RowNorm(3)));
}

}  // namespace
