// Rounding noise and pivot rows taken out of the rectangular matrix.
#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "QVRectMatrix.h"
#include "math/matrix/reference.h"

namespace {

using QVMath_940::QVRectMatrix;
using reference::Rect;
using V = std::vector<double>;

constexpr double kEpsilon = std::numeric_limits<double>::epsilon();

TEST(RectMatrixCleaning, CheckForOnes) {
  QVRectMatrix r = Rect({{0.999999999, 0.5, -1.000000001, 1.0 + 1e-8, std::nan("")}});
  r.CheckForOnes(1e-8);
  EXPECT_EQ(r.GetElem(0, 0), 1.0);
  EXPECT_EQ(r.GetElem(0, 1), 0.5);
  EXPECT_EQ(r.GetElem(0, 2), -1.0);
  EXPECT_TRUE(std::isnan(r.GetElem(0, 4)));
  QVRectMatrix exact = Rect({{1.25, 0.75}});  // a distance of exactly t is left alone
  exact.CheckForOnes(0.25);
  EXPECT_EQ(exact.AsVector(), (V{1.25, 0.75}));
  QVRectMatrix wide = Rect({{0.0, -0.25}});
  wide.CheckForOnes(2.0);
  EXPECT_EQ(wide.AsVector(), (V{-1.0, -1.0}));
}

TEST(RectMatrixCleaning, CheckForOnesNeedsAPositiveBound) {
  QVRectMatrix r = Rect({{0.999999999}});
  r.CheckForOnes(0.0);
  r.CheckForOnes(-1.0);
  r.CheckForOnes(std::nan(""));
  EXPECT_EQ(r.GetElem(0, 0), 0.999999999);
}

TEST(RectMatrixCleaning, ColCleanClearsNoise) {
  const double bound = 10000.0 * kEpsilon;
  QVRectMatrix r = Rect({{3, 7}, {4, 7}, {bound * 4.9, 7}, {bound * 5.1, 7}});
  EXPECT_TRUE(r.ColClean(0, 1.0));
  EXPECT_EQ(r.GetElem(2, 0), 0.0);
  EXPECT_NE(r.GetElem(3, 0), 0.0);
  const V second = {r.GetElem(0, 1), r.GetElem(1, 1), r.GetElem(2, 1), r.GetElem(3, 1)};
  EXPECT_EQ(second, V(4, 7.0));
}

TEST(RectMatrixCleaning, ColCleanClearsAShortColumn) {
  const double bound = 10000.0 * kEpsilon;
  QVRectMatrix r = Rect({{bound / 2, bound * 2}, {0, 0}});
  EXPECT_TRUE(r.ColClean(0, 1.0));
  EXPECT_TRUE(r.ColClean(1, 1.0));
  EXPECT_EQ(r.GetElem(0, 0), 0.0);
  EXPECT_NE(r.GetElem(0, 1), 0.0);
}

TEST(RectMatrixCleaning, ColCleanKeepsTheRoundingOfItsRoundTrip) {
  const V column = {0.1, 0.7, -0.3, 11.0, 1.0 / 3.0};
  for (const double v : {1.0, 0.0, -1.0}) {
    QVRectMatrix r = Rect({{0.1}, {0.7}, {-0.3}, {11.0}, {1.0 / 3.0}});
    const double norm = r.ColNorm(0);
    const double inverse = 1.0 / norm;
    EXPECT_TRUE(r.ColClean(0, v));
    for (int i = 0; i < 5; ++i)
      EXPECT_EQ(r.GetElem(i, 0), column[reference::At(i)] * inverse * norm);
  }
}

TEST(RectMatrixCleaning, ColCleanLeavesZerosAndRefusesBadColumns) {
  QVRectMatrix r = Rect({{0, 1}, {0, 2}});
  EXPECT_TRUE(r.ColClean(0, 1.0));
  EXPECT_TRUE(r.ColClean(0, 0.0));
  EXPECT_EQ(r.AsVector(), (V{0, 1, 0, 2}));
  EXPECT_FALSE(r.ColClean(-1, 1.0));
  EXPECT_FALSE(r.ColClean(2, 1.0));
}

TEST(RectMatrixCleaning, FindFirstNonZeroInRow) {
  const QVRectMatrix r = Rect({{0, 0.25, -0.5, 3}, {0, 0, 0, 0}});
  EXPECT_EQ(r.FindFirstNonZeroInRow(0, 0.1), 1);
  EXPECT_EQ(r.FindFirstNonZeroInRow(0, 0.25), 2);  // strictly above
  EXPECT_EQ(r.FindFirstNonZeroInRow(0, 3.0), -1);
  EXPECT_EQ(r.FindFirstNonZeroInRow(1, 0.1), -1);
  EXPECT_EQ(r.FindFirstNonZeroInRow(-1, 0.1), -1);
  EXPECT_EQ(r.FindFirstNonZeroInRow(2, 0.1), -1);
  EXPECT_EQ(r.FindFirstNonZeroInRow(0, 0.0), -1);
  EXPECT_EQ(r.FindFirstNonZeroInRow(0, -1.0), -1);
}

TEST(RectMatrixCleaning, ZeroOutPivotRow) {
  QVRectMatrix r = Rect({{0, -1, 2, 3}, {1, 1, 1, 1}, {0, 5, 0, 2}});
  int pivot = 9;
  EXPECT_TRUE(r.ZeroOutPivotRow(0, 0.5, pivot));
  EXPECT_EQ(pivot, 1);
  EXPECT_EQ(r.AsVector(), (V{0, 0, 0, 0, 1, 0, 3, 4, 0, 0, 10, 17}));
  EXPECT_FALSE(r.ZeroOutPivotRow(0, 0.5, pivot));
  EXPECT_EQ(pivot, -1);
}

TEST(RectMatrixCleaning, ZeroOutPivotRowAddsWhateverThePivotIs) {
  QVRectMatrix r = Rect({{2, 3}});
  int pivot;
  EXPECT_TRUE(r.ZeroOutPivotRow(0, 0.5, pivot));
  EXPECT_EQ(r.AsVector(), (V{0, 9}));  // 3 + 3 x 2: a pivot of 2.0 does not clear the row
}

TEST(RectMatrixCleaning, ZeroOutPivotRowRefusals) {
  QVRectMatrix r = Rect({{2, 3}});
  for (const auto & [row, bound] : {std::pair{-1, 0.5}, {1, 0.5}, {0, 0.0}, {0, -1.0}, {0, 5.0}}) {
    int pivot = 9;
    EXPECT_FALSE(r.ZeroOutPivotRow(row, bound, pivot));
    EXPECT_EQ(pivot, -1);
  }
  EXPECT_EQ(r.AsVector(), (V{2, 3}));
}

}  // namespace
