// Linear equations and projections with the rectangular matrix.
#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "QVRectMatrix.h"
#include "math/matrix/reference.h"

namespace {

using QVMath_940::QVRectMatrix;
using reference::At;
using reference::FromRect;
using reference::FromVector;
using reference::Full;
using reference::kResidualBound;
using reference::Multiply;
using reference::Norm;
using reference::RandomRect;
using reference::RandomVector;
using reference::Rect;
using V = std::vector<double>;

constexpr double kTolerance = 1e-12;

double Residual(const QVRectMatrix & r, const V & x, const V & b) {
  const Full full = FromRect(r);
  const Full difference = Add(Multiply(full, FromVector(x)), FromVector(b), -1.0L);
  return Norm(difference) /
         (Norm(full) * Norm(FromVector(x)) * r.GetNRows() * std::numeric_limits<double>::epsilon());
}

TEST(RectMatrixSolve, SquareSystems) {
  for (const int n : {1, 2, 3, 7, 33, 129}) {
    const QVRectMatrix r = RandomRect(n, n, 1);
    const V b = RandomVector(n, 2);
    V x;
    ASSERT_TRUE(r.SolveLinearSquare(b, x, 0.0));
    ASSERT_EQ(x.size(), At(n));
    EXPECT_LT(Residual(r, x, b), kResidualBound);
  }
}

TEST(RectMatrixSolve, TheMatrixAndNotItsTranspose) {
  V x;
  ASSERT_TRUE(Rect({{1, 2}, {0, 1}}).SolveLinearSquare({5, 2}, x, kTolerance));
  EXPECT_DOUBLE_EQ(x[0], 1.0);
  EXPECT_DOUBLE_EQ(x[1], 2.0);
}

TEST(RectMatrixSolve, ConditionMustBeAboveTheTolerance) {
  const QVRectMatrix r = Rect({{1, 0}, {0, 1e-6}});
  V x{9};
  EXPECT_TRUE(r.SolveLinearSquare({1, 1}, x, 1e-7));
  x = {9};
  EXPECT_FALSE(r.SolveLinearSquare({1, 1}, x, 1e-5));
  EXPECT_FALSE(Rect({{1, 1}, {1, 1}}).SolveLinearSquare({1, 1}, x, 0.0));
  EXPECT_FALSE(Rect({{0}}).SolveLinearSquare({1}, x, 0.0));
  EXPECT_EQ(x, V{9});
}

TEST(RectMatrixSolve, SquareRefusals) {
  V x{9};
  EXPECT_FALSE(QVRectMatrix().SolveLinearSquare({}, x, 0.0));
  EXPECT_FALSE(RandomRect(2, 3, 1).SolveLinearSquare({1, 2, 3}, x, 0.0));
  EXPECT_FALSE(RandomRect(2, 2, 1).SolveLinearSquare({1, 2}, x, -1e-9));
  EXPECT_FALSE(RandomRect(2, 2, 1).SolveLinearSquare({1}, x, 0.0));
  EXPECT_EQ(x, V{9});
  V same{4, 3, 99};
  EXPECT_TRUE(Rect({{2, 0}, {0, 3}}).SolveLinearSquare(same, same, 0.0));
  EXPECT_EQ(same, (V{2, 1}));
}

TEST(RectMatrixSolve, EstimateLinearGIOnRegularSquares) {
  const QVRectMatrix r = RandomRect(7, 7, 3);
  const V b = RandomVector(7, 4);
  V x, direct;
  EXPECT_EQ(r.EstimateLinearGI(b, x, kTolerance), 0);
  ASSERT_TRUE(r.SolveLinearSquare(b, direct, kTolerance));
  EXPECT_EQ(x, direct);
}

TEST(RectMatrixSolve, EstimateLinearGIOnASingularSquare) {
  V x;
  EXPECT_EQ(Rect({{1, 2}, {2, 4}}).EstimateLinearGI({5, 10}, x, kTolerance), 1);
  ASSERT_EQ(x.size(), 2u);
  EXPECT_NEAR(x[0], 5.0, 1e-14);
  EXPECT_EQ(x[1], 0.0);
}

TEST(RectMatrixSolve, EstimateLinearGIGivesLeastSquares) {
  for (const int rows : {5, 80}) {
    const QVRectMatrix r = RandomRect(rows, 4, 5);
    const V b = RandomVector(rows, 6);
    V x;
    EXPECT_EQ(r.EstimateLinearGI(b, x, kTolerance), 0);
    // The residual stands at right angles to the columns.
    const Full residual = Add(Multiply(FromRect(r), FromVector(x)), FromVector(b), -1.0L);
    EXPECT_LT(Norm(Multiply(Transpose(FromRect(r)), residual)), 1e-13 * rows);
  }
  V x;
  EXPECT_EQ(RandomRect(2, 5, 7).EstimateLinearGI({1, 2}, x, 1e-9), 3);  // too few equations
  EXPECT_EQ(x.size(), 5u);
}

TEST(RectMatrixSolve, EstimateLinearGIRefusals) {
  V x{9};
  EXPECT_EQ(QVRectMatrix(0, 2, true).EstimateLinearGI({}, x, kTolerance), -1);
  EXPECT_EQ(QVRectMatrix(2, 0, true).EstimateLinearGI({1, 2}, x, kTolerance), -1);
  EXPECT_EQ(RandomRect(2, 2, 1).EstimateLinearGI({1, 2}, x, 0.0), -1);
  EXPECT_EQ(RandomRect(2, 2, 1).EstimateLinearGI({1, 2}, x, -1.0), -1);
  EXPECT_EQ(RandomRect(2, 2, 1).EstimateLinearGI({1}, x, kTolerance), -1);
  EXPECT_EQ(RandomRect(3, 2, 1).EstimateLinearGI({1, 2}, x, kTolerance), -1);
  EXPECT_EQ(x, V{9});
}

TEST(RectMatrixSolve, LongerRightSidesAreCut) {
  const QVRectMatrix r = RandomRect(5, 3, 8);
  V b = RandomVector(5, 9), x, longer;
  EXPECT_EQ(r.EstimateLinearGI(b, x, kTolerance), 0);
  b.push_back(99.0);
  EXPECT_EQ(r.EstimateLinearGI(b, longer, kTolerance), 0);
  EXPECT_EQ(longer, x);
}

TEST(RectMatrixSolve, ResidOfOrthProjection) {
  for (const int rows : {6, 80}) {
    QVRectMatrix r = RandomRect(rows, 3, 10);
    const V v = RandomVector(rows, 11);
    V resid;
    EXPECT_EQ(r.ResidOfOrthProjection(v, kTolerance, resid), 0);
    ASSERT_EQ(resid.size(), At(rows));
    V onColumns;
    ASSERT_TRUE(r.ComputeVR(resid, onColumns));
    for (const double product : onColumns)
      EXPECT_NEAR(product, 0.0, 1e-14 * rows);
    V again;
    EXPECT_EQ(r.ResidOfOrthProjection(resid, kTolerance, again), 0);  // nothing more to take
    for (int i = 0; i < rows; ++i)
      EXPECT_NEAR(again[At(i)], resid[At(i)], 1e-14);
    for (int i = 0; i < rows; ++i)
      r.SetElem(i, 2, r.GetElem(i, 0) - r.GetElem(i, 1));
    EXPECT_EQ(r.ResidOfOrthProjection(v, kTolerance, resid), 1);
    ASSERT_TRUE(r.ComputeVR(resid, onColumns));
    for (const double product : onColumns)
      EXPECT_NEAR(product, 0.0, 1e-14 * rows);
  }
}

TEST(RectMatrixSolve, ResidOfOrthProjectionOfAVectorInTheSpace) {
  V v{1, 2, 3};
  EXPECT_EQ(Rect({{1, 0}, {2, 0}, {3, 1}}).ResidOfOrthProjection(v, kTolerance, v), 0);
  for (const double left : v)
    EXPECT_NEAR(left, 0.0, 1e-15);
}

TEST(RectMatrixSolve, ResidOfOrthProjectionRefusals) {
  V resid{9};
  EXPECT_EQ(RandomRect(3, 2, 1).ResidOfOrthProjection({1, 2}, kTolerance, resid), -1);
  EXPECT_EQ(RandomRect(3, 2, 1).ResidOfOrthProjection({1, 2, 3, 4}, kTolerance, resid), -1);
  EXPECT_EQ(RandomRect(3, 2, 1).ResidOfOrthProjection({1, 2, 3}, 0.0, resid), -1);
  EXPECT_EQ(QVRectMatrix(0, 2, true).ResidOfOrthProjection({}, kTolerance, resid), -1);
  EXPECT_EQ(QVRectMatrix(2, 0, true).ResidOfOrthProjection({1, 2}, kTolerance, resid), -1);
  EXPECT_EQ(resid, V{9});
}

}  // namespace
