// Dependent rows and columns, full-rank parts, estimability.
#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "QVBitSet.h"
#include "QVRectMatrix.h"
#include "QVSymMatrix.h"
#include "math/matrix/reference.h"

namespace {

using QVMath_940::QVBitSet;
using QVMath_940::QVRectMatrix;
using reference::At;
using reference::RandomRect;
using reference::Rect;
using I = std::vector<int>;
using V = std::vector<double>;

constexpr double kTolerance = 1e-6;

/// The third column is the sum of the first two.
const QVRectMatrix & Dependent() {
  static const QVRectMatrix matrix =
      Rect({{1, 0, 1, 2}, {1, 1, 2, 0}, {1, 2, 3, 1}, {1, 0, 1, 5}, {1, 1, 2, 3}});
  return matrix;
}

QVRectMatrix Transposed(QVRectMatrix r) {
  r.Transpose();
  return r;
}

/// Random columns, of which each listed one is the sum of the two before it (the first of all 0).
QVRectMatrix WithDependentColumns(int rows, int cols, const I & dependent) {
  QVRectMatrix r = RandomRect(rows, cols, 3);
  for (const int k : dependent)
    for (int i = 0; i < rows; ++i)
      r.SetElem(i, k, (k > 0 ? r.GetElem(i, k - 1) : 0.0) + (k > 1 ? r.GetElem(i, k - 2) : 0.0));
  return r;
}

TEST(RectMatrixRank, FindRedundanciesMarksTheIndependent) {
  QVBitSet kept;
  EXPECT_EQ(Dependent().FindRedundancies(kTolerance, kept, false), 1);
  EXPECT_TRUE(kept == QVBitSet({true, true, false, true}));
  EXPECT_EQ(Transposed(Dependent()).FindRedundancies(kTolerance, kept, true), 1);
  EXPECT_TRUE(kept == QVBitSet({true, true, false, true}));
  EXPECT_EQ(Dependent().FindRedundancies(kTolerance, kept, true), 2);  // 5 rows of rank 3
}

TEST(RectMatrixRank, FindNonRedunIndicesListsThem) {
  I idx{99};
  EXPECT_EQ(Dependent().FindNonRedunIndices(kTolerance, idx, false), 3);
  EXPECT_EQ(idx, (I{0, 1, 3}));
  EXPECT_EQ(Transposed(Dependent()).FindNonRedunIndices(kTolerance, idx, true), 3);
  EXPECT_EQ(idx, (I{0, 1, 3}));
}

TEST(RectMatrixRank, PlantedAtTheFrontMiddleAndEnd) {
  for (const int cols : {7, 33, 70})
    for (const I & planted : {I{0}, I{1}, I{cols / 2}, I{cols - 1}, I{0, cols / 2, cols - 1}}) {
      const QVRectMatrix r = WithDependentColumns(cols + 9, cols, planted);
      QVBitSet wanted(cols), kept;
      wanted.Negate();
      wanted.SetSubset(planted, false);
      EXPECT_EQ(r.FindRedundancies(kTolerance, kept, false), static_cast<int>(planted.size()));
      EXPECT_TRUE(kept == wanted);
      I idx;
      EXPECT_EQ(r.FindNonRedunIndices(1e-12, idx, false), cols - static_cast<int>(planted.size()));
      for (const int k : idx)
        EXPECT_TRUE(wanted.IsIn(k));
    }
}

TEST(RectMatrixRank, ToleranceIsSquaredInOneAndNotInTheOther) {
  // The second column is the first plus a part of length 1e-3: its pivot square is 1e-6 of its own.
  const QVRectMatrix r = Rect({{1, 1}, {0, 1e-3}});
  QVBitSet kept;
  I idx;
  EXPECT_EQ(r.FindRedundancies(1e-4, kept, false), 0);
  EXPECT_EQ(r.FindRedundancies(1e-2, kept, false), 1);
  EXPECT_EQ(r.FindNonRedunIndices(1e-4, idx, false), 1);
  EXPECT_EQ(r.FindNonRedunIndices(1e-7, idx, false), 2);
}

TEST(RectMatrixRank, ExtractFullRank) {
  QVRectMatrix out;
  I idx;
  EXPECT_EQ(Dependent().ExtractFullRank(kTolerance, out, idx, false), 3);
  EXPECT_EQ(idx, (I{0, 1, 3}));
  EXPECT_EQ(out.AsVector(),
            Rect({{1, 0, 2}, {1, 1, 0}, {1, 2, 1}, {1, 0, 5}, {1, 1, 3}}).AsVector());
  QVRectMatrix self = Transposed(Dependent());
  EXPECT_EQ(self.ExtractFullRank(kTolerance, self, idx, true), 3);
  EXPECT_EQ(self.AsVector(), Transposed(out).AsVector());
}

TEST(RectMatrixRank, NegativeToleranceIsRefused) {
  QVBitSet kept({true});
  I idx{9};
  QVRectMatrix out = Rect({{7}});
  EXPECT_EQ(Dependent().FindRedundancies(-1e-9, kept, false), -1);
  EXPECT_EQ(Dependent().FindNonRedunIndices(-1e-9, idx, true), -1);
  EXPECT_EQ(Dependent().ExtractFullRank(-1e-9, out, idx, true), -1);
  EXPECT_EQ(Dependent().CheckAddColRedundancies(Dependent(), -1e-9, kept), -1);
  EXPECT_EQ(kept.Size(), 1);
  EXPECT_EQ(idx, I{9});
  EXPECT_EQ(out.GetElem(0, 0), 7.0);
}

TEST(RectMatrixRank, NoColumns) {
  QVBitSet kept;
  I idx{9};
  EXPECT_EQ(QVRectMatrix(3, 0, true).FindRedundancies(kTolerance, kept, false), 0);
  EXPECT_EQ(QVRectMatrix(3, 0, true).FindNonRedunIndices(kTolerance, idx, false), 0);
  EXPECT_TRUE(idx.empty());
}

TEST(RectMatrixRank, CheckAddColRedundancies) {
  const QVRectMatrix base = Rect({{1, 0}, {1, 1}, {1, 2}, {1, 5}});
  const QVRectMatrix added = Rect({{1, 0, 2}, {3, 1, 2}, {5, 0, 2}, {11, 0, 2}});  // 2b + 1, new, 2
  QVBitSet kept;
  EXPECT_EQ(base.CheckAddColRedundancies(added, kTolerance, kept), 2);
  EXPECT_TRUE(kept == QVBitSet({false, true, false}));
  EXPECT_EQ(base.GetNCols(), 2);
  EXPECT_EQ(base.CheckAddColRedundancies(QVRectMatrix(4, 0, true), kTolerance, kept), 0);
  EXPECT_EQ(kept.Size(), 0);
  EXPECT_EQ(QVRectMatrix(4, 0, true).CheckAddColRedundancies(added, kTolerance, kept), 0);
  EXPECT_EQ(base.CheckAddColRedundancies(QVRectMatrix(3, 1, true), kTolerance, kept), -1);
}

// --- Estimability -------------------------------------------------------------------------------

TEST(RectMatrixEstimability, RowsThatHLeavesAlone) {
  // H projects on the first two coordinates and takes the third to their sum.
  const QVRectMatrix h = Rect({{1, 0, 0}, {0, 1, 0}, {1, 1, 0}});
  const QVBitSet all({true, true, true});
  EXPECT_TRUE(Rect({{1, 2, 3}}).IsEstimable(h, all, kTolerance));
  EXPECT_FALSE(Rect({{1, 2, 0}}).IsEstimable(h, all, kTolerance));
  EXPECT_FALSE(Rect({{1, 2, 3}, {1, 2, 0}}).IsEstimable(h, all, kTolerance));
  EXPECT_TRUE(Rect({{0, 0, 0}, {1, 2, 3}}).IsEstimable(h, all, kTolerance));  // length 0 passes
}

TEST(RectMatrixEstimability, OnlyMarkedColumnsEnterTheProduct) {
  const QVRectMatrix h = Rect({{1, 0, 9}, {0, 1, 9}, {1, 1, 9}});
  EXPECT_TRUE(Rect({{1, 2, 3}}).IsEstimable(h, QVBitSet({true, true, false}), kTolerance));
  EXPECT_FALSE(Rect({{1, 2, 3}}).IsEstimable(h, QVBitSet({true, true, true}), kTolerance));
}

TEST(RectMatrixEstimability, BoundIsRelativeAndSquared) {
  // A row of length 10 whose image is off by 10 x 1e-3.
  const QVRectMatrix h = Rect({{1, 0}, {1e-3, 1}});
  const QVBitSet both({true, true});
  EXPECT_TRUE(Rect({{10, 0}}).IsEstimable(h, both, 1.001e-3));
  EXPECT_FALSE(Rect({{10, 0}}).IsEstimable(h, both, 0.999e-3));
}

TEST(RectMatrixEstimability, Refusals) {
  const QVRectMatrix h = Rect({{1, 0}, {0, 1}});
  const QVRectMatrix e = Rect({{1, 2}});
  const QVBitSet both({true, true});
  EXPECT_TRUE(e.IsEstimable(h, both, kTolerance));
  EXPECT_FALSE(QVRectMatrix(0, 2, true).IsEstimable(h, both, kTolerance));
  EXPECT_FALSE(QVRectMatrix(2, 0, true).IsEstimable(h, both, kTolerance));
  EXPECT_FALSE(e.IsEstimable(h, both, 0.0));
  EXPECT_FALSE(e.IsEstimable(h, both, -1.0));
  EXPECT_FALSE(e.IsEstimable(h, QVBitSet({true}), kTolerance));
  EXPECT_FALSE(e.IsEstimable(Rect({{1, 0}, {0, 1}, {0, 0}}), both, kTolerance));
  EXPECT_FALSE(e.IsEstimable(Rect({{1}, {0}}), both, kTolerance));
}

TEST(RectMatrixEstimability, EquationsThatAreMultiples) {
  const QVRectMatrix r = Rect({{2, 4, 0}, {1, 2, 0}, {0, 0, 0}, {1, 3, 0}, {0, 0, 5}});
  double ratio = 9.0;
  EXPECT_TRUE(r.IsERowMultipleOfAnother(0, 1, 6, 3, ratio));
  EXPECT_EQ(ratio, 2.0);
  EXPECT_TRUE(r.IsERowMultipleOfAnother(1, 0, 3, 6, ratio));
  EXPECT_EQ(ratio, 0.5);
  EXPECT_FALSE(r.IsERowMultipleOfAnother(0, 1, 6, 4, ratio));  // the right-hand sides differ
  EXPECT_FALSE(r.IsERowMultipleOfAnother(0, 3, 6, 3, ratio));
  EXPECT_FALSE(r.IsERowMultipleOfAnother(0, 4, 6, 3, ratio));  // only one is not zero there
  EXPECT_EQ(ratio, 0.5);
}

TEST(RectMatrixEstimability, EquationsWithoutCoefficients) {
  const QVRectMatrix r = Rect({{0, 0}, {0, 0}, {1, 0}});
  double ratio = 9.0;
  EXPECT_TRUE(r.IsERowMultipleOfAnother(0, 1, 6, 2, ratio));
  EXPECT_EQ(ratio, 3.0);
  EXPECT_FALSE(r.IsERowMultipleOfAnother(0, 1, 0, 2, ratio));  // an equation of zeros
  EXPECT_FALSE(r.IsERowMultipleOfAnother(0, 1, 2, 0, ratio));
  EXPECT_FALSE(r.IsERowMultipleOfAnother(0, 2, 2, 2, ratio));
  EXPECT_EQ(ratio, 3.0);
}

TEST(RectMatrixEstimability, MultiplesToTheMachineEpsilonOfTheFirst) {
  const double epsilon = std::numeric_limits<double>::epsilon();
  double ratio;
  EXPECT_TRUE(Rect({{1, 1 - epsilon}, {1, 1}}).IsERowMultipleOfAnother(0, 1, 0, 0, ratio));
  EXPECT_FALSE(Rect({{1, 1 - 2 * epsilon}, {1, 1}}).IsERowMultipleOfAnother(0, 1, 0, 0, ratio));
  // Scaled by the first equation alone: a huge right-hand side there forgives everything.
  EXPECT_TRUE(Rect({{1, 0.5}, {1, 1}}).IsERowMultipleOfAnother(0, 1, 1e17, 1e17, ratio));
}

TEST(RectMatrixEstimability, BadEquationsAreRefused) {
  const QVRectMatrix r = Rect({{2, 4}, {1, 2}});
  double ratio = 9.0;
  EXPECT_FALSE(r.IsERowMultipleOfAnother(-1, 1, 6, 3, ratio));
  EXPECT_FALSE(r.IsERowMultipleOfAnother(0, 2, 6, 3, ratio));
  EXPECT_FALSE(r.IsERowMultipleOfAnother(2, 0, 6, 3, ratio));
  EXPECT_FALSE(QVRectMatrix(2, 0, true).IsERowMultipleOfAnother(0, 1, 6, 3, ratio));
  EXPECT_EQ(ratio, 9.0);
}

}  // namespace
