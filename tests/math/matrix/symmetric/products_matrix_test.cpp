// Products of matrices against naive full ones; refusals; targets that are operands.
#include <cmath>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "../reference.h"
#include "QVBitSet.h"
#include "QVMV.h"
#include "QVRectMatrix.h"
#include "QVSymMatrix.h"
#include "other_classes.h"

namespace {

using namespace reference;
using other_classes::DiagonalMatrix;
using other_classes::FullCells;
using other_classes::OneBlock;
using QVMath_940::QVBitSet;
using QVMath_940::QVRectMatrix;
using QVMath_940::QVSymMatrix;
using Vector = std::vector<double>;

Full Multiply(const Full & a, const Full & b, const Full & c) {
  return reference::Multiply(reference::Multiply(a, b), c);
}
using reference::Multiply;

void ExpectClose(const QVSymMatrix & got, const Full & wanted) {
  EXPECT_LT(ScaledResidual(FromSym(got), wanted), kResidualBound);
}
void ExpectClose(const QVRectMatrix & got, const Full & wanted) {
  EXPECT_LT(ScaledResidual(FromRect(got), wanted), kResidualBound);
}

/// A target of another size, which has to be reshaped, holding something.
QVSymMatrix Used() {
  return RandomSym(5, 99);
}

class MatrixProducts : public ::testing::TestWithParam<int> {
 protected:
  const int n = GetParam();
  const QVSymMatrix s = RandomSym(n, 1);
  const QVSymMatrix g = RandomSym(n, 2);
  const QVSymMatrix m = RandomSym(n, 3);
  const Full fullS = FromSym(s);
  const Full fullG = FromSym(g);
  const Full fullM = FromSym(m);
};

TEST_P(MatrixProducts, DotProductsOfRows) {
  const Full ss = Multiply(fullS, fullS);
  const Full sg = Multiply(fullS, fullG);
  const Full sm = Multiply(fullS, fullM);
  for (int i = 0; i < n; i += 1 + n / 7)
    for (int j = 0; j < n; j += 1 + n / 5) {
      const double bound = 1e-13 * (1 + n);
      EXPECT_NEAR(s.ComputeDotProduct2Rows(i, j), static_cast<double>(ss(i, j)), bound);
      EXPECT_NEAR(s.ComputeRowDotProductS(i, g.AsVector(), j), static_cast<double>(sg(i, j)),
                  bound);
      EXPECT_EQ(s.ComputeRowDotProductS(i, g, j), s.ComputeRowDotProductS(i, g.AsVector(), j));
      double ra = 1.0, rb = 2.0;
      s.ComputeRowDotProductS(i, g, m, j, ra, rb);
      EXPECT_EQ(ra, s.ComputeRowDotProductS(i, g, j));
      EXPECT_NEAR(rb, static_cast<double>(sm(i, j)), bound);
      s.ComputeRowDotProductS(i, m.AsVector(), g.AsVector(), j, rb, ra);
      EXPECT_EQ(ra, s.ComputeRowDotProductS(i, g, j));
    }
}

TEST_P(MatrixProducts, SquareOfTheMatrix) {
  QVSymMatrix out = Used();
  s.ComputeSTransS(out);
  ExpectClose(out, Multiply(fullS, fullS));
  QVSymMatrix own = s;
  own.ComputeSTransS(own);
  EXPECT_TRUE(SameBits(own.AsVector(), out.AsVector()));
}

TEST_P(MatrixProducts, TwoSymmetricMatrices) {
  QVRectMatrix out(2, 3, true);
  ASSERT_TRUE(s.ComputeSS(g, out));
  ExpectClose(out, Multiply(fullS, fullG));
  ASSERT_TRUE(s.ComputeSS(s, out));  // right shape, holding something
  ExpectClose(out, Multiply(fullS, fullS));
}

TEST_P(MatrixProducts, SymmetricOnBothSides) {
  const Full wanted = Multiply(fullG, fullS, fullG);
  QVSymMatrix out = Used();
  ASSERT_TRUE(s.ComputeGMG(g.AsVector(), out));
  ExpectClose(out, wanted);
  QVSymMatrix again;
  ASSERT_TRUE(s.ComputeGSG(g, again));
  EXPECT_TRUE(SameBits(again.AsVector(), out.AsVector()));
  QVSymMatrix own = s;
  ASSERT_TRUE(own.ComputeGMG(g.AsVector(), own));
  EXPECT_TRUE(SameBits(own.AsVector(), out.AsVector()));
  own = g;
  ASSERT_TRUE(s.ComputeGMG(own.AsVector(), own));  // the target's own elements as G
  EXPECT_TRUE(SameBits(own.AsVector(), out.AsVector()));
  own = g;
  ASSERT_TRUE(s.ComputeGSG(own, own));
  EXPECT_TRUE(SameBits(own.AsVector(), out.AsVector()));
  // A block-diagonal G of one block.
  ASSERT_TRUE(s.ComputeGSG(OneBlock(g), again));
  EXPECT_TRUE(SameBits(again.AsVector(), out.AsVector()));
}

TEST_P(MatrixProducts, SymmetricSumOfThree) {
  const Full mgn = Multiply(fullM, fullG, fullS);
  const Full wanted = Add(mgn, Transpose(mgn));
  QVSymMatrix out = Used();
  ASSERT_TRUE(g.ComputeMGN(m, s, out));
  ExpectClose(out, wanted);
  for (int which = 0; which < 3; ++which) {
    QVSymMatrix a = m, b = g, c = s;
    ASSERT_TRUE(b.ComputeMGN(a, c, which == 0 ? a : which == 1 ? b : c));
    EXPECT_TRUE(SameBits((which == 0 ? a : which == 1 ? b : c).AsVector(), out.AsVector()));
  }
  Vector work(3, 1.0);
  QVSymMatrix outer = Used();
  ASSERT_TRUE(g.ComputeGMGNG(m, s, outer, work));
  ExpectClose(outer, Multiply(fullG, wanted, fullG));
  ASSERT_GE(work.size(), out.AsVector().size());  // grows
  EXPECT_TRUE(SameBits(
      Vector(work.begin(), work.begin() + static_cast<std::ptrdiff_t>(out.AsVector().size())),
      out.AsVector()));
  Vector longer(out.AsVector().size() + 4, 5.0);
  QVSymMatrix own = g;
  ASSERT_TRUE(own.ComputeGMGNG(m, s, own, longer));
  EXPECT_EQ(longer.size(), out.AsVector().size() + 4);  // is never shrunk
  EXPECT_EQ(longer.back(), 5.0);
  EXPECT_TRUE(SameBits(own.AsVector(), outer.AsVector()));
}

TEST_P(MatrixProducts, SymmetricSumOfThreeWithDiagonals) {
  const DiagonalMatrix a(RandomVector(n, 4));
  const DiagonalMatrix b(RandomVector(n, 5));
  const Full agb = Multiply(FromSym(a), fullG, FromSym(b));
  QVSymMatrix out = Used();
  ASSERT_TRUE(g.ComputeMGN(a, b, out));
  ExpectClose(out, Add(agb, Transpose(agb)));
  QVSymMatrix own = g;
  ASSERT_TRUE(own.ComputeMGN(a, b, own));
  EXPECT_TRUE(SameBits(own.AsVector(), out.AsVector()));
  if (n == 0) return;
  EXPECT_FALSE(g.ComputeMGN(a, s, out));
  EXPECT_FALSE(g.ComputeMGN(s, b, out));
}

TEST_P(MatrixProducts, FactorOnBothSides) {
  const Full l = FromLower(m);
  QVSymMatrix out = Used();
  ASSERT_TRUE(s.ComputeLSLTrans(m, out));
  ExpectClose(out, Multiply(l, fullS, Transpose(l)));
  QVSymMatrix own = s;
  ASSERT_TRUE(own.ComputeLSLTrans(m, own));
  EXPECT_TRUE(SameBits(own.AsVector(), out.AsVector()));
  own = m;
  ASSERT_TRUE(s.ComputeLSLTrans(own, own));
  EXPECT_TRUE(SameBits(own.AsVector(), out.AsVector()));
  ASSERT_TRUE(s.ComputeLSLTrans(OneBlock(m), own));
  EXPECT_TRUE(SameBits(own.AsVector(), out.AsVector()));
}

TEST_P(MatrixProducts, BlocksOfAFactorOnBothSides) {
  for (int copies : {1, 2, 3, 5, n}) {
    if (copies < 1 || n % copies != 0) continue;
    const int order = n / copies;
    const QVSymMatrix l = RandomSym(order, 6);
    Full b(n, n);
    for (int i = 0; i < n; ++i)
      for (int j = i - i % std::max(order, 1); j <= i; ++j)
        b(i, j) = l.GetElem(i % order, j % order);
    const Full wanted = Multiply(Transpose(b), fullS, b);
    QVSymMatrix out = Used();
    ASSERT_TRUE(s.ComputeLTransSL(l, out, copies));
    ExpectClose(out, wanted);
    QVSymMatrix own = l;
    ASSERT_TRUE(s.ComputeLTransSL(own, own, copies));  // a target of another order
    EXPECT_TRUE(SameBits(own.AsVector(), out.AsVector()));
    own = s;
    ASSERT_TRUE(own.ComputeLTransSL(l, own, copies));
    EXPECT_TRUE(SameBits(own.AsVector(), out.AsVector()));
  }
}

TEST_P(MatrixProducts, RectangularMatrices) {
  for (int rows : {0, 1, 5, 25, n}) {
    const QVRectMatrix r = RandomRect(rows, n, 7);
    const QVRectMatrix t = RandomRect(n, rows, 8);
    const Full fullR = FromRect(r);
    const Full fullT = FromRect(t);
    QVRectMatrix out(1, 2, true);
    ASSERT_TRUE(s.ComputeRS(r, out));
    ExpectClose(out, Multiply(fullR, fullS));
    QVRectMatrix own = r;
    ASSERT_TRUE(s.ComputeRS(own, own));
    EXPECT_TRUE(SameBits(own.AsVector(), out.AsVector()));

    ASSERT_TRUE(s.ComputeRTransS(t, out));
    ExpectClose(out, Multiply(Transpose(fullT), fullS));
    own = t;
    ASSERT_TRUE(s.ComputeRTransS(own, own));  // takes another shape
    EXPECT_EQ(own.GetNRows(), rows);
    EXPECT_EQ(own.GetNCols(), n);
    EXPECT_TRUE(SameBits(own.AsVector(), out.AsVector()));
    const FullCells sparseR(r);
    const FullCells sparseT(t);
    const bool areSparse = sparseR.IsValidMatrix() && sparseT.IsValidMatrix();
    if (areSparse) {
      ASSERT_TRUE(s.ComputeRTransS(sparseT, own));
      EXPECT_TRUE(SameBits(own.AsVector(), out.AsVector()));
    }

    QVSymMatrix both = Used();
    ASSERT_TRUE(s.ComputeRSRTrans(r, both));
    ExpectClose(both, Multiply(fullR, fullS, Transpose(fullR)));
    QVSymMatrix again = s;
    if (areSparse) {
      ASSERT_TRUE(again.ComputeRSRTrans(sparseR, again));
      EXPECT_TRUE(SameBits(again.AsVector(), both.AsVector()));
    }

    ASSERT_TRUE(s.ComputeRTransSR(t, both));
    ExpectClose(both, Multiply(Transpose(fullT), fullS, fullT));
    again = s;
    if (areSparse) {  // (S R) comes first there
      ASSERT_TRUE(again.ComputeRTransSR(sparseT, again));
      ExpectClose(again, Multiply(Transpose(fullT), fullS, fullT));
    }

    const Vector v = RandomVector(n, 9);
    Vector product = {1.0};
    ASSERT_TRUE(s.ComputeRTransSV(t, v, product));
    EXPECT_LT(ScaledResidual(FromVector(product), Multiply(Transpose(fullT), fullS, FromVector(v))),
              kResidualBound);
    Vector ownV = v;
    if (areSparse) {
      ASSERT_TRUE(s.ComputeRTransSV(sparseT, ownV, ownV));
      EXPECT_TRUE(SameBits(ownV, product));
    }

    const Vector d = RandomVector(n, 10);
    const Full rd = Multiply(fullR, FromSym(DiagonalMatrix(d)));
    ASSERT_TRUE(s.ComputeRDiagSRDiagTrans(r, d, both));
    ExpectClose(both, Multiply(rd, fullS, Transpose(rd)));
  }
}

TEST_P(MatrixProducts, RectangularMatricesAndADiagonalBlock) {
  const int size = n / 2;
  const int start = n / 3;
  std::vector<int> rows;
  for (int i = 0; i < size; ++i)
    rows.push_back(start + i);
  const Full block = Part(fullS, rows, rows);
  const QVRectMatrix r = RandomRect(9, size, 7);
  const QVRectMatrix t = RandomRect(size, 9, 8);
  QVSymMatrix out = Used();
  ASSERT_TRUE(s.ComputeRSRTrans2(r, start, size, out));
  ExpectClose(out, Multiply(FromRect(r), block, Transpose(FromRect(r))));
  ASSERT_TRUE(s.ComputeRTransSymR(t, start, size, out));
  ExpectClose(out, Multiply(Transpose(FromRect(t)), block, FromRect(t)));
  EXPECT_FALSE(s.ComputeRSRTrans2(r, n - size + 1, size, out));
  EXPECT_FALSE(s.ComputeRSRTrans2(r, -1, size, out));
  EXPECT_FALSE(s.ComputeRTransSymR(t, start, size + 1, out));
}

TEST_P(MatrixProducts, RepeatedBlocks) {
  const QVRectMatrix r = RandomRect(3 * n, 4, 7);
  Full b(3 * n, 3 * n);
  for (int copy = 0; copy < 3; ++copy)
    for (int i = 0; i < n; ++i)
      for (int j = 0; j < n; ++j)
        b(copy * n + i, copy * n + j) = fullS(i, j);
  QVSymMatrix out = Used();
  ASSERT_TRUE(s.ComputeRTransBlockDiagR(r, 3, out));
  ExpectClose(out, Multiply(Transpose(FromRect(r)), b, FromRect(r)));
  EXPECT_FALSE(s.ComputeRTransBlockDiagR(r, 0, out));
  if (n > 0) {
    EXPECT_FALSE(s.ComputeRTransBlockDiagR(r, 2, out));
  }
}

TEST_P(MatrixProducts, CrossProducts) {
  for (int other : {0, 1, 10, 200}) {
    const QVRectMatrix r = RandomRect(n, other, 7);
    QVSymMatrix out = Used();
    ASSERT_TRUE(out.ComputeRByRTrans(r));
    ExpectClose(out, Multiply(FromRect(r), Transpose(FromRect(r))));
    const QVRectMatrix t = RandomRect(other, n, 8);
    ASSERT_TRUE(out.ComputeRTransByR(t));
    ExpectClose(out, Multiply(Transpose(FromRect(t)), FromRect(t)));
  }
}

TEST_P(MatrixProducts, SumWithAMultiple) {
  QVSymMatrix out = s;
  ASSERT_TRUE(out.ComputeAXpY(0.7, g));
  for (std::size_t p = 0; p < out.AsVector().size(); ++p)
    EXPECT_EQ(out.AsVector()[p], s.AsVector()[p] + 0.7 * g.AsVector()[p]);
  QVSymMatrix again = s;
  ASSERT_TRUE(again.ComputeAXpY(0.7, OneBlock(g)));
  EXPECT_TRUE(SameBits(again.AsVector(), out.AsVector()));
  out = s;
  ASSERT_TRUE(out.ComputeAXpY(-1.0, out));
  EXPECT_TRUE(SameBits(out.AsVector(), Vector(out.AsVector().size(), 0.0)));
  const DiagonalMatrix d(RandomVector(n, 4));
  out = s;
  ASSERT_TRUE(out.ComputeAXpY(2.0, d));
  for (int i = 0; i < n; ++i) {
    EXPECT_EQ(out.GetElem(i, i), s.GetElem(i, i) + 2.0 * d.GetElem(i, i));
    if (i > 0) {
      EXPECT_EQ(out.GetElem(i, 0), s.GetElem(i, 0));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Orders, MatrixProducts, ::testing::ValuesIn(OrdersWithBlocks()));

// --- Refusals -----------------------------------------------------------------------------------

class MatrixRefusals : public ::testing::Test {
 protected:
  const QVSymMatrix s = RandomSym(3, 1);
  const QVSymMatrix larger = RandomSym(4, 2);
  const DiagonalMatrix diagonal{Vector{1.0, 2.0, 3.0}};
  QVSymMatrix out = RandomSym(3, 9);
  const QVSymMatrix before = out;
  QVRectMatrix rect = RandomRect(3, 3, 9);
  const QVRectMatrix rectBefore = rect;
  DiagonalMatrix diagonalOut{Vector{5.0, 6.0, 7.0}};

  void TearDown() override {
    EXPECT_TRUE(SameBits(out.AsVector(), before.AsVector()));
    EXPECT_TRUE(SameBits(rect.AsVector(), rectBefore.AsVector()));
    EXPECT_EQ(diagonalOut.GetElem(1, 1), 6.0);
  }
};

TEST_F(MatrixRefusals, DotProducts) {
  EXPECT_EQ(s.ComputeDotProduct2Rows(-1, 0), 0.0);
  EXPECT_EQ(s.ComputeDotProduct2Rows(0, 3), 0.0);
  EXPECT_EQ(s.ComputeRowDotProductS(0, Vector(7, 1.0), 0), 0.0);
  EXPECT_EQ(s.ComputeRowDotProductS(3, Vector(6, 1.0), 0), 0.0);
  EXPECT_EQ(s.ComputeRowDotProductS(0, Vector(6, 1.0), -1), 0.0);
  EXPECT_EQ(s.ComputeRowDotProductS(0, larger, 0), 0.0);
  EXPECT_TRUE(QVCommon_940::QVMV::IsMissing(s.ComputeRowDotProductS(0, diagonal, 0)));
  double ra = 1.0, rb = 1.0;
  s.ComputeRowDotProductS(0, diagonal, larger, 0, ra, rb);
  EXPECT_TRUE(QVCommon_940::QVMV::IsMissing(ra));
  EXPECT_EQ(rb, 0.0);
}

TEST_F(MatrixRefusals, SymmetricProducts) {
  s.ComputeSTransS(diagonalOut);
  EXPECT_FALSE(s.ComputeSS(larger, rect));
  EXPECT_FALSE(s.ComputeSS(diagonal, rect));
  EXPECT_FALSE(s.ComputeGMG(Vector(7, 1.0), out));
  EXPECT_FALSE(s.ComputeGMG(Vector(5, 1.0), out));
  EXPECT_FALSE(s.ComputeGSG(larger, out));
  EXPECT_FALSE(s.ComputeGSG(s, diagonalOut));
  EXPECT_FALSE(s.ComputeMGN(larger, s, out));
  EXPECT_FALSE(s.ComputeMGN(s, larger, out));
  EXPECT_FALSE(s.ComputeMGN(s, s, diagonalOut));
  EXPECT_FALSE(s.ComputeMGN(diagonal, s, out));
  Vector work(1, 4.0);
  EXPECT_FALSE(s.ComputeGMGNG(diagonal, s, out, work));
  EXPECT_FALSE(s.ComputeGMGNG(s, s, diagonalOut, work));
  EXPECT_FALSE(s.ComputeGMGNG(larger, s, out, work));
  EXPECT_TRUE(SameBits(work, Vector(1, 4.0)));
}

TEST_F(MatrixRefusals, Factors) {
  EXPECT_FALSE(s.ComputeLSLTrans(larger, out));
  EXPECT_FALSE(s.ComputeLSLTrans(diagonal, out));
  EXPECT_FALSE(s.ComputeLSLTrans(s, diagonalOut));
  EXPECT_FALSE(s.ComputeLTransSL(s, out, 0));
  EXPECT_FALSE(s.ComputeLTransSL(s, out, -1));
  EXPECT_FALSE(s.ComputeLTransSL(s, out, 2));
  EXPECT_FALSE(s.ComputeLTransSL(diagonal, out, 1));
  EXPECT_FALSE(s.ComputeLTransSL(s, diagonalOut, 1));
}

TEST_F(MatrixRefusals, RectangularProducts) {
  const QVRectMatrix wide = RandomRect(2, 4, 1);
  FullCells notDense(RandomRect(3, 3, 2));
  EXPECT_FALSE(s.ComputeRS(wide, rect));
  EXPECT_FALSE(s.ComputeRS(notDense, rect));
  EXPECT_FALSE(s.ComputeRS(rect, notDense));
  EXPECT_FALSE(s.ComputeRTransS(wide, rect));
  EXPECT_FALSE(s.ComputeRTransS(rect, notDense));
  EXPECT_FALSE(s.ComputeRSRTrans(wide, out));
  EXPECT_FALSE(s.ComputeRSRTrans(rect, diagonalOut));
  EXPECT_FALSE(s.ComputeRTransSR(wide, out));
  EXPECT_FALSE(s.ComputeRTransSR(rect, diagonalOut));
  Vector v = {1.0};
  EXPECT_FALSE(s.ComputeRTransSV(wide, Vector(3, 1.0), v));
  EXPECT_FALSE(s.ComputeRTransSV(rect, Vector(2, 1.0), v));
  EXPECT_TRUE(SameBits(v, Vector(1, 1.0)));
  EXPECT_FALSE(s.ComputeRDiagSRDiagTrans(rect, Vector(2, 1.0), out));
  EXPECT_FALSE(s.ComputeRDiagSRDiagTrans(wide, Vector(3, 1.0), out));
}

TEST_F(MatrixRefusals, Sum) {
  EXPECT_FALSE(out.ComputeAXpY(1.0, larger));
}

// --- Other ways of going wrong ------------------------------------------------------------------

TEST(MatrixProductTargets, KeepTheirBlocksWhenTheOrderFits) {
  const QVSymMatrix s = RandomSym(6, 1);
  QVSymMatrix out(3, 2, true);
  s.ComputeSTransS(out);
  EXPECT_EQ(out.GetNBlocks(), 3);
  QVSymMatrix own = s;
  ASSERT_TRUE(own.SetNBlocks(2));
  own.ComputeSTransS(own);
  EXPECT_EQ(own.GetNBlocks(), 2);
  QVSymMatrix other(2, 2, true);
  s.ComputeSTransS(other);
  EXPECT_EQ(other.GetNBlocks(), 1);
}

TEST(MatrixProductZeros, SkippedLeftFactorsHideInfinities) {
  const double infinity = std::numeric_limits<double>::infinity();
  for (int n : {4, 70}) {
    QVSymMatrix identity(n, true);
    for (int i = 0; i < n; ++i)
      identity.SetElem(i, i, 1.0);
    QVSymMatrix withInfinity = identity;
    withInfinity.SetElem(2, 2, infinity);
    QVSymMatrix out;
    // M = the identity without row 2: (M G)(i, 2) is 0.0 for every i, and row 2 of N is left out.
    QVSymMatrix m = identity;
    m.ZeroOut(2);
    ASSERT_TRUE(identity.ComputeMGN(m, withInfinity, out));
    EXPECT_EQ(out.GetElem(0, 0), 2.0);
    EXPECT_EQ(out.GetElem(1, 0), 0.0);
    EXPECT_EQ(out.GetElem(n - 1, 1), 0.0);
  }
}

TEST(MatrixProductZeros, TheOtherTriangleOfAFactorTakesNoPart) {
  for (int n : {4, 70}) {
    // Infinities in the last row of S reach the last row of L S L-transpose alone.
    QVSymMatrix s(n, true), l(n, true);
    for (int i = 0; i < n; ++i) {
      s.SetElem(n - 1, i, std::numeric_limits<double>::infinity());
      l.SetElem(i, i, 1.0);
    }
    QVSymMatrix out;
    ASSERT_TRUE(s.ComputeLSLTrans(l, out));
    for (int i = 0; i < n - 1; ++i)
      for (int j = 0; j <= i; ++j)
        EXPECT_EQ(out.GetElem(i, j), 0.0) << i << " " << j;
  }
}

TEST(CheckGMG, DropsRowsAndCounts) {
  const QVSymMatrix s = RandomSym(4, 1);
  QVSymMatrix g(4, true);
  g.SetElem(0, 0, -1.0);  // in: dropped, marked
  g.SetElem(1, 1, 1.0);   // in, m positive: stays
  g.SetElem(2, 2, 1.0);   // in, m 0.0: dropped, not marked
  g.SetElem(3, 3, -1.0);  // not in: stays
  QVBitSet in(4);
  in.SetRange(0, 2, true);
  QVSymMatrix m(4, true);
  m.SetRowColToConst(0, 2.0);
  m.SetElem(1, 1, 3.0);
  m.SetElem(3, 3, -4.0);
  QVBitSet neg(9);
  neg.SetRange(0, 8, true);
  bool all = true;
  int count = -7;
  ASSERT_TRUE(s.CheckGMG(g.AsVector(), in, m, neg, all, count));
  EXPECT_EQ(count, 2);
  EXPECT_FALSE(all);
  EXPECT_EQ(neg.Size(), 4);
  EXPECT_EQ(neg.InSet(), 1);
  EXPECT_TRUE(neg.IsIn(0));
  EXPECT_EQ(m.GetElem(0, 0), 0.0);
  EXPECT_EQ(m.GetElem(3, 0), 0.0);
  EXPECT_EQ(m.GetElem(1, 1), 3.0);
  EXPECT_EQ(m.GetElem(3, 3), -4.0);
}

TEST(CheckGMG, AllRowsDropped) {
  const QVSymMatrix s = RandomSym(2, 1);
  QVBitSet in(2);
  in.Set(1, true);
  QVSymMatrix m(2, true);
  QVBitSet neg(2);
  neg.Set(0, true);
  bool all = false;
  int count = 0;
  ASSERT_TRUE(s.CheckGMG(Vector{1.0, 0.0, 1.0}, in, m, neg, all, count));
  EXPECT_EQ(count, 1);
  EXPECT_TRUE(all);
  EXPECT_EQ(neg.InSet(), 0);  // cleared
  // No row in the set: nothing was dropped, so that not all were.
  ASSERT_TRUE(s.CheckGMG(Vector{1.0, 0.0, 1.0}, QVBitSet(2), m, neg, all, count));
  EXPECT_EQ(count, 0);
  EXPECT_FALSE(all);
}

TEST(CheckGMG, Refusals) {
  const QVSymMatrix s = RandomSym(2, 1);
  QVSymMatrix m = RandomSym(2, 2);
  QVBitSet neg(1);
  bool all = true;
  int count = 5;
  EXPECT_FALSE(s.CheckGMG(Vector(4, 1.0), QVBitSet(2), m, neg, all, count));
  EXPECT_FALSE(s.CheckGMG(Vector(3, 1.0), QVBitSet(1), m, neg, all, count));
  QVSymMatrix smaller = RandomSym(1, 2);
  EXPECT_FALSE(s.CheckGMG(Vector(3, 1.0), QVBitSet(2), smaller, neg, all, count));
  EXPECT_EQ(count, 5);
  EXPECT_TRUE(all);
  EXPECT_EQ(neg.Size(), 1);
  const QVSymMatrix empty;
  EXPECT_TRUE(empty.CheckGMG(Vector{}, QVBitSet(), m, neg, all, count));
  EXPECT_EQ(count, 0);
  EXPECT_FALSE(all);
}

}  // namespace
