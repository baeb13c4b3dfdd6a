// A reduced matrix spread back to marked places.
#include <gtest/gtest.h>

#include "QVBitSet.h"
#include "QVRectMatrix.h"
#include "math/matrix/reference.h"

namespace {

using QVMath_940::QVBitSet;
using QVMath_940::QVRectMatrix;
using reference::Rect;

QVBitSet Marks(const std::vector<bool> & bits) {
  return QVBitSet(bits);
}

void ExpectEqual(const QVRectMatrix & got, const QVRectMatrix & wanted) {
  EXPECT_EQ(got.GetNRows(), wanted.GetNRows());
  EXPECT_EQ(got.GetNCols(), wanted.GetNCols());
  EXPECT_EQ(got.AsVector(), wanted.AsVector());
}

const QVRectMatrix & Sample() {
  static const QVRectMatrix sample = Rect({{1, 2}, {3, 4}});
  return sample;
}

TEST(RectMatrixExpansion, RowsOrColumns) {
  QVRectMatrix out;
  EXPECT_TRUE(Sample().Expand(Marks({false, true, false, true}), true, out));
  ExpectEqual(out, Rect({{0, 0}, {1, 2}, {0, 0}, {3, 4}}));
  EXPECT_TRUE(Sample().Expand(Marks({true, false, true}), false, out));
  ExpectEqual(out, Rect({{1, 0, 2}, {3, 0, 4}}));
  EXPECT_TRUE(Sample().Expand(Marks({true, true}), false, out));
  ExpectEqual(out, Sample());
}

TEST(RectMatrixExpansion, RectangularAndSquare) {
  QVRectMatrix out;
  EXPECT_TRUE(Sample().ExpandRectangular(Marks({true, true, false}),
                                         Marks({false, true, true, false}), out));
  ExpectEqual(out, Rect({{0, 1, 2, 0}, {0, 3, 4, 0}, {0, 0, 0, 0}}));
  EXPECT_TRUE(Sample().ExpandSquare(Marks({true, false, true}), out));
  ExpectEqual(out, Rect({{1, 0, 2}, {0, 0, 0}, {3, 0, 4}}));
}

TEST(RectMatrixExpansion, IntoItself) {
  QVRectMatrix r = Sample();
  EXPECT_TRUE(r.ExpandSquare(Marks({false, true, true}), r));
  ExpectEqual(r, Rect({{0, 0, 0}, {0, 1, 2}, {0, 3, 4}}));
}

TEST(RectMatrixExpansion, RefusesAnotherNumberOfMarks) {
  QVRectMatrix out = Sample();
  EXPECT_FALSE(Sample().Expand(Marks({true, false, false}), true, out));
  EXPECT_FALSE(Sample().Expand(Marks({true, true, true}), false, out));
  EXPECT_FALSE(Sample().ExpandRectangular(Marks({true, true}), Marks({true}), out));
  EXPECT_FALSE(Sample().ExpandRectangular(Marks({true}), Marks({true, true}), out));
  EXPECT_FALSE(Sample().ExpandSquare(QVBitSet(), out));
  EXPECT_FALSE(Rect({{1, 2, 3}}).ExpandSquare(Marks({true, true, true}), out));
  ExpectEqual(out, Sample());
}

TEST(RectMatrixExpansion, NothingToPlace) {
  QVRectMatrix out;
  EXPECT_TRUE(QVRectMatrix(0, 2, true).Expand(Marks({false, false, false}), true, out));
  ExpectEqual(out, QVRectMatrix(3, 2, true));
  EXPECT_TRUE(QVRectMatrix().ExpandSquare(QVBitSet(), out));
  ExpectEqual(out, QVRectMatrix());
}

}  // namespace
