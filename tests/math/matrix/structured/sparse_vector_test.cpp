// The view of a sparse vector: validity, cells, products with dense vectors and matrices, display.
#include <gtest/gtest.h>

#include "QVSparseVector.h"
#include "math/matrix/display_capture.h"
#include "math/matrix/reference.h"

namespace {

using QVMath_940::QVRectMatrix;
using QVMath_940::QVSparseVector;
using QVMath_940::QVSymMatrix;
using reference::At;
using reference::RandomSym;
using I = std::vector<int>;
using V = std::vector<double>;

const I kPlaces = {0, 2, 3};
const V kValues = {2.0, -1.0, 0.5};
const V kDense = {2.0, 0.0, -1.0, 0.5};

TEST(SparseVector, ValidityIsTheFormOfTheLists) {
  EXPECT_TRUE(QVSparseVector(kPlaces, kValues).IsValid());
  const I none;
  const V noValues;
  EXPECT_FALSE(QVSparseVector(none, noValues).IsValid());
  EXPECT_FALSE(QVSparseVector(kPlaces, noValues).IsValid());
  const V two = {1, 2};
  EXPECT_FALSE(QVSparseVector(kPlaces, two).IsValid());
  const I negative = {-1, 2};
  const I equal = {1, 1};
  const I falling = {2, 1};
  const I zero = {0, 1};
  EXPECT_FALSE(QVSparseVector(negative, two).IsValid());
  EXPECT_FALSE(QVSparseVector(equal, two).IsValid());
  EXPECT_FALSE(QVSparseVector(falling, two).IsValid());
  EXPECT_TRUE(QVSparseVector(zero, two).IsValid());
}

TEST(SparseVector, Cells) {
  const QVSparseVector v(kPlaces, kValues);
  EXPECT_EQ(v.GetSize(), 3);
  EXPECT_EQ(v.GetMinVecSize(), 4);
  EXPECT_EQ(v.GetIndex(1), 2);
  EXPECT_EQ(v.GetIndex(-1), -1);
  EXPECT_EQ(v.GetIndex(3), -1);
  EXPECT_EQ(v.GetValue(2), 0.5);
  EXPECT_EQ(v.GetValue(-1), 0.0);
  EXPECT_EQ(v.GetValue(3), 0.0);
  const I none;
  const V noValues;
  EXPECT_EQ(QVSparseVector(none, noValues).GetMinVecSize(), 0);
  EXPECT_EQ(QVSparseVector(kPlaces, noValues).GetValue(0), 0.0);
}

TEST(SparseVector, SeesLaterChangesOfItsLists) {
  V values = kValues;
  const QVSparseVector v(kPlaces, values);
  values[1] = 7.0;
  EXPECT_EQ(v.GetValue(1), 7.0);
}

TEST(SparseVector, ConvertToRegularVector) {
  const QVSparseVector v(kPlaces, kValues);
  V dense{9.0};
  EXPECT_TRUE(v.ConvertToRegularVector(dense));
  EXPECT_EQ(dense, kDense);
  V longer(6, 9.0);
  EXPECT_TRUE(v.ConvertToRegularVector(longer));
  EXPECT_EQ(longer, (V{2.0, 0.0, -1.0, 0.5, 0.0, 0.0}));
  const I bad = {1, 0, 2};
  EXPECT_FALSE(QVSparseVector(bad, kValues).ConvertToRegularVector(longer));
  EXPECT_EQ(longer, (V{2.0, 0.0, -1.0, 0.5, 0.0, 0.0}));
}

TEST(SparseVector, PartsOfDenseVectors) {
  const QVSparseVector v(kPlaces, kValues);
  V sums(6, 1.0);
  EXPECT_TRUE(v.IncrementPart(sums, 2, 2.0));
  EXPECT_EQ(sums, (V{1.0, 1.0, 5.0, 1.0, -1.0, 2.0}));
  const V before = sums;
  EXPECT_FALSE(v.IncrementPart(sums, 3, 2.0));
  EXPECT_FALSE(v.IncrementPart(sums, -1, 2.0));
  EXPECT_EQ(sums, before);
  EXPECT_EQ(v.InnerProductWithPart({1, 2, 3, 4, 5, 6}, 2), 2.0 * 3 - 5 + 0.5 * 6);
  EXPECT_EQ(v.InnerProductWithPart({1, 2, 3, 4}, 0), 2.0 - 3 + 2);
  EXPECT_EQ(v.InnerProductWithPart({1, 2, 3, 4}, 1), 0.0);
  EXPECT_EQ(v.InnerProductWithPart({1, 2, 3, 4}, -1), 0.0);
  EXPECT_EQ(v.InnerProductWithPart({1, 2, 3}, 0), 0.0);
  const I bad = {1, 0, 2};
  EXPECT_EQ(QVSparseVector(bad, kValues).InnerProductWithPart({1, 2, 3, 4}, 0), 0.0);
  EXPECT_FALSE(QVSparseVector(bad, kValues).IncrementPart(sums, 0, 1.0));
}

TEST(SparseVector, InnerProductOverCommonIndices) {
  const QVSparseVector a(kPlaces, kValues);
  const I places = {1, 2, 3, 9};
  const V values = {5.0, 6.0, 7.0, 8.0};
  const QVSparseVector b(places, values);
  EXPECT_EQ(QVSparseVector::InnerProduct(a, b), -6.0 + 3.5);
  EXPECT_EQ(QVSparseVector::InnerProduct(b, a), -6.0 + 3.5);
  EXPECT_EQ(QVSparseVector::InnerProduct(a, a), 4.0 + 1.0 + 0.25);
  const I apart = {1, 4, 5};
  EXPECT_EQ(QVSparseVector::InnerProduct(a, QVSparseVector(apart, kValues)), 0.0);
  const I bad = {1, 0, 2};
  EXPECT_EQ(QVSparseVector::InnerProduct(a, QVSparseVector(bad, kValues)), 0.0);
}

TEST(SparseVector, OuterProducts) {
  const QVSparseVector v(kPlaces, kValues);
  QVSymMatrix s(2, true);
  EXPECT_TRUE(v.QuadraticOuterProduct(3.0, s));
  ASSERT_EQ(s.GetNRows(), 4);
  for (int i = 0; i < 4; ++i)
    for (int j = 0; j < 4; ++j)
      EXPECT_EQ(s.GetElem(i, j), 3.0 * kDense[At(i)] * kDense[At(j)]);

  QVSymMatrix larger = RandomSym(6, 1);
  EXPECT_TRUE(v.QuadraticOuterProduct(3.0, larger));
  ASSERT_EQ(larger.GetNRows(), 6);
  EXPECT_EQ(larger.GetElem(5, 5), 0.0);
  EXPECT_EQ(larger.GetElem(3, 2), -1.5);

  const QVSymMatrix start = RandomSym(5, 2);
  s = start;
  EXPECT_TRUE(v.QuadraticOuterProductIncr(-2.0, s));
  for (int i = 0; i < 5; ++i)
    for (int j = 0; j <= i; ++j) {
      const double xi = i < 4 ? kDense[At(i)] : 0.0;
      const double xj = j < 4 ? kDense[At(j)] : 0.0;
      EXPECT_EQ(s.GetElem(i, j), start.GetElem(i, j) + -2.0 * xi * xj);
    }
  QVSymMatrix small(3, true);
  EXPECT_FALSE(v.QuadraticOuterProductIncr(1.0, small));
  EXPECT_EQ(small.AsVector(), V(6, 0.0));
  const I bad = {1, 0, 2};
  EXPECT_FALSE(QVSparseVector(bad, kValues).QuadraticOuterProduct(1.0, small));
  EXPECT_FALSE(QVSparseVector(bad, kValues).QuadraticOuterProductIncr(1.0, larger));
}

TEST(SparseVector, OuterProductOnABlock) {
  const QVSparseVector v(kPlaces, kValues);
  const QVSymMatrix start = RandomSym(9, 3);
  for (const auto & [row, col] : {std::pair{4, 0}, std::pair{0, 4}, std::pair{5, 5}}) {
    QVSymMatrix s = start;
    EXPECT_TRUE(v.QuadraticOuterProductPartIncr(2.0, row, col, s));
    reference::Full wanted = reference::FromSym(start);
    for (int p = 0; p < 4; ++p)
      for (int q = 0; q < 4; ++q) {
        const long double term = 2.0L * kDense[At(p)] * kDense[At(q)];
        wanted(row + p, col + q) += term;
        if (row != col) wanted(col + q, row + p) += term;
      }
    EXPECT_LT(reference::MaxDifference(reference::FromSym(s), wanted), 1e-15);
  }
  QVSymMatrix s = start;
  EXPECT_FALSE(v.QuadraticOuterProductPartIncr(2.0, 6, 0, s));
  EXPECT_FALSE(v.QuadraticOuterProductPartIncr(2.0, 0, 6, s));
  EXPECT_FALSE(v.QuadraticOuterProductPartIncr(2.0, -1, 0, s));
  EXPECT_FALSE(v.QuadraticOuterProductPartIncr(2.0, 0, -1, s));
  EXPECT_EQ(s.AsVector(), start.AsVector());
}

TEST(SparseVector, RowOfARectangularMatrix) {
  const QVSparseVector v(kPlaces, kValues);
  QVRectMatrix r(2, 5, true);
  EXPECT_TRUE(v.IncrementRowPart(r, 1, 1, 2.0));
  EXPECT_EQ(r.AsVector(), (V{0, 0, 0, 0, 0, 0, 4, 0, -2, 1}));
  EXPECT_FALSE(v.IncrementRowPart(r, 1, 2, 2.0));
  EXPECT_FALSE(v.IncrementRowPart(r, 1, -1, 2.0));
  EXPECT_FALSE(v.IncrementRowPart(r, 2, 0, 2.0));
  EXPECT_FALSE(v.IncrementRowPart(r, -1, 0, 2.0));
  EXPECT_EQ(r.AsVector(), (V{0, 0, 0, 0, 0, 0, 4, 0, -2, 1}));
}

TEST(SparseVector, Display) {
  const DisplayCapture capture;
  QVSparseVector(kPlaces, kValues).Display();
  EXPECT_EQ(capture.Text(),
            "\nQVSparseVector display start"
            "\nSize = 3"
            "\nIndices (size = 3)\n 0 2 3"
            "\nValues (size = 3)\n 2 -1 0.5"
            "\nValid = true"
            "\nQVSparseVector display end");
}

}  // namespace
