// Products of the rectangular matrix with matrices, and traces: against full matrices in long
// double, and bit by bit against the rule of the sums.
#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "QVMV.h"
#include "QVRectMatrix.h"
#include "QVSymMatrix.h"
#include "math/matrix/allocation_limit.h"
#include "math/matrix/rectangular/not_dense.h"
#include "math/matrix/reference.h"
#include "math/matrix/symmetric/factor_examples.h"

namespace {

using QVMath_940::QVRectMatrix;
using QVMath_940::QVSymMatrix;
using reference::At;
using reference::FromRect;
using reference::FromSym;
using reference::kResidualBound;
using reference::Multiply;
using reference::RandomRect;
using reference::RandomSym;
using reference::RandomVector;
using reference::Rect;
using reference::ScaledResidual;
using reference::Transpose;
using I = std::vector<int>;
using V = std::vector<double>;

/// The product as the library promises it: from 0.0 in index order, fused from a length of 64 on.
QVRectMatrix Product(const QVRectMatrix & a, const QVRectMatrix & b) {
  QVRectMatrix c(a.GetNRows(), b.GetNCols(), true);
  const bool isFused = a.GetNCols() >= 64;
  for (int i = 0; i < c.GetNRows(); ++i)
    for (int j = 0; j < c.GetNCols(); ++j) {
      double sum = 0.0;
      for (int k = 0; k < a.GetNCols(); ++k)
        sum = isFused ? std::fma(a.GetElem(i, k), b.GetElem(k, j), sum)
                      : sum + a.GetElem(i, k) * b.GetElem(k, j);
      c.SetElem(i, j, sum);
    }
  return c;
}

QVRectMatrix Transposed(QVRectMatrix r) {
  r.Transpose();
  return r;
}

QVRectMatrix Square(const QVSymMatrix & s) {
  return reference::ToRect(FromSym(s));
}

void ExpectEqual(const QVRectMatrix & got, const QVRectMatrix & wanted) {
  EXPECT_EQ(got.GetNRows(), wanted.GetNRows());
  EXPECT_EQ(got.GetNCols(), wanted.GetNCols());
  EXPECT_TRUE(reference::SameBits(got.AsVector(), wanted.AsVector()));
}

struct Shape {
  int rows, inner, cols;
};
const std::vector<Shape> kShapes = {{0, 3, 2},   {3, 0, 2},    {3, 2, 0},    {1, 1, 1},
                                    {2, 3, 7},   {7, 33, 3},   {8, 63, 24},  {9, 64, 25},
                                    {33, 65, 1}, {1, 129, 48}, {65, 70, 71}, {129, 10, 129}};

TEST(RectMatrixProducts, OfTwoRectangular) {
  for (const Shape & shape : kShapes) {
    const QVRectMatrix a = RandomRect(shape.rows, shape.inner, 1);
    const QVRectMatrix b = RandomRect(shape.inner, shape.cols, 2);
    QVRectMatrix out(4, 4, true);
    EXPECT_TRUE(a.ComputeMatrixProduct(b, out));
    ExpectEqual(out, Product(a, b));
    EXPECT_LT(ScaledResidual(FromRect(out), Multiply(FromRect(a), FromRect(b))), kResidualBound);
    QVRectMatrix byTranspose;
    EXPECT_TRUE(a.ComputeProductMatrixTrans(Transposed(b), byTranspose));
    ExpectEqual(byTranspose, out);
  }
}

TEST(RectMatrixProducts, RefuseShapesThatDoNotFit) {
  const QVRectMatrix a = RandomRect(2, 3, 1);
  QVRectMatrix out = Rect({{5}});
  EXPECT_FALSE(a.ComputeMatrixProduct(RandomRect(2, 3, 2), out));
  EXPECT_FALSE(a.ComputeProductMatrixTrans(RandomRect(3, 2, 2), out));
  EXPECT_FALSE(a.ComputeMatrixProduct(RandomSym(2, 2), out));
  EXPECT_FALSE(a.ComputeDiagR({1, 2, 3}, out));
  EXPECT_FALSE(a.ComputeDiagR({1}, out));
  EXPECT_FALSE(a.ComputeBlockDiagSR(RandomSym(2, 1), out, 0));
  EXPECT_FALSE(a.ComputeBlockDiagSR(RandomSym(2, 1), out, 2));
  EXPECT_FALSE(a.ComputeBlockDiagSR(RandomSym(3, 1), out, 1));
  EXPECT_FALSE(a.ComputeR1TransSR2(RandomSym(3, 1), a, out));
  EXPECT_FALSE(a.ComputeR1TransSR2(RandomSym(2, 1), RandomRect(3, 3, 1), out));
  constexpr int kHuge = std::numeric_limits<int>::max();
  const QVRectMatrix broken(kHuge, kHuge, true);
  EXPECT_FALSE(broken.ComputeMatrixProduct(broken, out));
  EXPECT_FALSE(broken.ComputeProductMatrixTrans(broken, out));
  EXPECT_FALSE(QVRectMatrix().ComputeMatrixProduct(broken, out));
  EXPECT_FALSE(broken.ComputeDiagR({}, out));
  ExpectEqual(out, Rect({{5}}));
}

TEST(RectMatrixProducts, TargetMayBeAnOperand) {
  for (const int n : {5, 70}) {
    const QVRectMatrix a = RandomRect(n, n, 1);
    const QVRectMatrix b = RandomRect(n, n, 2);
    const QVSymMatrix s = RandomSym(n, 3);
    const V d = RandomVector(n, 4);
    const auto expect = [&](auto && operation, const QVRectMatrix & wanted, bool onB) {
      QVRectMatrix left = a, right = b;
      QVRectMatrix & out = onB ? right : left;
      EXPECT_TRUE(operation(left, right, out));
      ExpectEqual(out, wanted);
    };
    for (const bool onB : {false, true}) {
      expect([](auto & l, auto & r, auto & out) { return l.ComputeMatrixProduct(r, out); },
             Product(a, b), onB);
      expect([](auto & l, auto & r, auto & out) { return l.ComputeProductMatrixTrans(r, out); },
             Product(a, Transposed(b)), onB);
      expect([&](auto & l, auto & r, auto & out) { return l.ComputeR1TransSR2(s, r, out); },
             Product(Transposed(a), Product(Square(s), b)), onB);
    }
    QVRectMatrix r = a;
    EXPECT_TRUE(r.ComputeMatrixProduct(s, r));
    ExpectEqual(r, Product(a, Square(s)));
    r = a;
    EXPECT_TRUE(r.ComputeBlockDiagSR(s, r, 1));
    ExpectEqual(r, Product(Square(s), a));
    r = a;
    EXPECT_TRUE(r.ComputeDiagR(d, r));
    EXPECT_EQ(r.GetElem(n - 1, 1), d[At(n - 1)] * a.GetElem(n - 1, 1));
  }
}

TEST(RectMatrixProducts, WithSymmetric) {
  for (const Shape & shape : kShapes) {
    const QVRectMatrix r = RandomRect(shape.rows, shape.inner, 1);
    const QVSymMatrix s = RandomSym(shape.inner, 2);
    QVRectMatrix out;
    EXPECT_TRUE(r.ComputeMatrixProduct(s, out));
    ExpectEqual(out, Product(r, Square(s)));

    const QVRectMatrix b = RandomRect(shape.inner, shape.cols, 3);
    EXPECT_TRUE(b.ComputeBlockDiagSR(s, out, 1));
    ExpectEqual(out, Product(Square(s), b));

    const QVRectMatrix r1 = Transposed(r);
    EXPECT_TRUE(r1.ComputeR1TransSR2(s, b, out));
    ExpectEqual(out, Product(r, Product(Square(s), b)));
  }
}

TEST(RectMatrixProducts, TargetsMustBeDense) {
  const QVRectMatrix a = RandomRect(3, 3, 1);
  const QVSymMatrix s = RandomSym(3, 3);
  reference::SaysSparse out(2, 2, true);
  EXPECT_FALSE(a.ComputeMatrixProduct(a, out));
  EXPECT_FALSE(a.ComputeMatrixProduct(s, out));
  EXPECT_FALSE(a.ComputeDiagR({1, 2, 3}, out));
  EXPECT_FALSE(a.ComputeBlockDiagSR(s, out, 1));
  EXPECT_FALSE(a.ComputeR1TransSR2(s, a, out));
  ExpectEqual(out, QVRectMatrix(2, 2, true));
}

TEST(RectMatrixTraces, NeedADenseMatrix) {
  const reference::NotDense s(3, true);
  const QVRectMatrix r = RandomRect(3, 3, 1);
  EXPECT_TRUE(QVCommon_940::QVMV::IsMissing(r.TraceOfProductSqS(s)));
  EXPECT_TRUE(QVCommon_940::QVMV::IsMissing(r.TraceOfProductSubMatSym(0, 0, s)));
}

TEST(RectMatrixProducts, BlockDiagonalCopies) {
  const QVSymMatrix s = reference::Sym({{2}, {1, 3}});
  QVRectMatrix out;
  EXPECT_TRUE(Rect({{1, 0}, {0, 1}, {1, 1}, {2, 0}}).ComputeBlockDiagSR(s, out, 2));
  ExpectEqual(out, Rect({{2, 1}, {1, 3}, {4, 2}, {7, 1}}));
}

TEST(RectMatrixProducts, Diagonal) {
  QVRectMatrix out;
  EXPECT_TRUE(Rect({{1, 2}, {3, 4}, {5, 6}}).ComputeDiagR({2, 0, -1}, out));
  ExpectEqual(out, Rect({{2, 4}, {0, 0}, {-5, -6}}));
}

TEST(RectMatrixProducts, AXpYAndSubtraction) {
  QVRectMatrix r = Rect({{1, 2, 3}, {4, 5, 6}});
  EXPECT_TRUE(r.ComputeAXpY(2.0, Rect({{1, 1, 1}, {0, 0, -3}})));
  ExpectEqual(r, Rect({{3, 4, 5}, {4, 5, 0}}));
  EXPECT_TRUE(r.ComputeAXpY(1.0, r));
  ExpectEqual(r, Rect({{6, 8, 10}, {8, 10, 0}}));
  EXPECT_FALSE(r.ComputeAXpY(2.0, RandomRect(3, 2, 1)));
  EXPECT_FALSE(r.ComputeAXpY(2.0, RandomRect(2, 2, 1)));
  EXPECT_FALSE(r.ComputeAXpY(2.0, RandomSym(2, 1)));
  EXPECT_FALSE(r.SubtractSymMatrix(RandomSym(2, 1)));
  ExpectEqual(r, Rect({{6, 8, 10}, {8, 10, 0}}));

  const QVSymMatrix s = reference::Sym({{2}, {1, 3}});
  QVRectMatrix square = Rect({{1, 2}, {3, 4}});
  EXPECT_TRUE(square.ComputeAXpY(2.0, s));
  ExpectEqual(square, Rect({{5, 4}, {5, 10}}));
  EXPECT_TRUE(square.SubtractSymMatrix(s));
  ExpectEqual(square, Rect({{3, 3}, {4, 7}}));
  EXPECT_FALSE(square.ComputeAXpY(2.0, RandomSym(3, 1)));
  EXPECT_FALSE(square.SubtractSymMatrix(RandomSym(3, 1)));
}

TEST(RectMatrixTraces, OfTheProductWithASymmetricMatrix) {
  for (const int n : {1, 3, 33, 70}) {
    const QVRectMatrix r = RandomRect(n, n, 1);
    const QVSymMatrix s = RandomSym(n, 2);
    const reference::Full product = Multiply(FromRect(r), FromSym(s));
    long double wanted = 0.0L;
    for (int i = 0; i < n; ++i)
      wanted += product(i, i);
    EXPECT_NEAR(r.TraceOfProductSqS(s), static_cast<double>(wanted), 1e-15 * n * n);

    const QVRectMatrix larger = RandomRect(n + 4, n + 3, 3);
    I rows, cols;
    for (int i = 0; i < n; ++i) {
      rows.push_back(4 + i);
      cols.push_back(1 + i);
    }
    const reference::Full part =
        Multiply(reference::Part(FromRect(larger), rows, cols), FromSym(s));
    wanted = 0.0L;
    for (int i = 0; i < n; ++i)
      wanted += part(i, i);
    EXPECT_NEAR(larger.TraceOfProductSubMatSym(4, 1, s), static_cast<double>(wanted),
                1e-15 * n * n);
  }
}

TEST(RectMatrixTraces, BadSizesGiveZero) {
  const QVRectMatrix r = RandomRect(3, 4, 1);
  const QVSymMatrix s = RandomSym(3, 1);
  EXPECT_EQ(r.TraceOfProductSqS(s), 0.0);
  EXPECT_EQ(QVRectMatrix().TraceOfProductSqS(QVSymMatrix()), 0.0);
  EXPECT_NE(r.TraceOfProductSubMatSym(0, 1, s), 0.0);
  EXPECT_EQ(r.TraceOfProductSubMatSym(0, 2, s), 0.0);
  EXPECT_EQ(r.TraceOfProductSubMatSym(1, 0, s), 0.0);
  EXPECT_EQ(r.TraceOfProductSubMatSym(-1, 0, s), 0.0);
  EXPECT_EQ(r.TraceOfProductSubMatSym(0, -1, s), 0.0);
  EXPECT_EQ(r.TraceOfProductSubMatSym(0, 0, QVSymMatrix()), 0.0);
}

TEST(RectMatrixProducts, FailedAllocationMakesTheTargetInvalid) {
  const QVRectMatrix a = RandomRect(60, 1, 1);
  const QVRectMatrix b = RandomRect(1, 60, 2);
  QVRectMatrix out;
  {
    const AllocationLimit limit(20000);
    EXPECT_FALSE(a.ComputeMatrixProduct(b, out));
  }
  EXPECT_FALSE(out.IsValidMatrix());
  EXPECT_TRUE(a.ComputeMatrixProduct(b, out));
  ExpectEqual(out, Product(a, b));
}

}  // namespace
