// QVDiagMatrix: its own operations, and every way in which it differs from the dense class.
#include <cmath>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

#include "QVDiagMatrix.h"
#include "QVMV.h"
#include "QVRectMatrix.h"
#include "QVSymBlockDiagMatrix.h"
#include "math/matrix/allocation_limit.h"
#include "math/matrix/display_capture.h"
#include "math/matrix/reference.h"

namespace {

using QVCommon_940::QVMV;
using QVMath_940::QVBitSet;
using QVMath_940::QVDiagMatrix;
using QVMath_940::QVRectMatrix;
using QVMath_940::QVSymBlockDiagMatrix;
using QVMath_940::QVSymMatrix;
using reference::FromSym;
using reference::MaxDifference;
using reference::Sym;
using V = std::vector<double>;

constexpr double kLowest = std::numeric_limits<double>::lowest();

QVSymMatrix Dense(const V & diagonal) {
  QVSymMatrix s(static_cast<int>(diagonal.size()), true);
  for (int i = 0; i < s.GetNRows(); ++i)
    s.SetElem(i, i, diagonal[reference::At(i)]);
  return s;
}

TEST(DiagMatrix, Construction) {
  EXPECT_EQ(QVDiagMatrix().GetNRows(), 0);
  EXPECT_TRUE(QVDiagMatrix().IsValidMatrix());
  const QVDiagMatrix negative(-1, true);
  EXPECT_EQ(negative.GetNRows(), 0);
  EXPECT_TRUE(negative.IsValidMatrix());
  EXPECT_EQ(QVDiagMatrix(3, true).AsVector(), V(3, 0.0));
  const QVDiagMatrix d(V{3, 4});
  EXPECT_EQ(d.GetType(), QVMath_940::SymMatrixDiagonal);
  EXPECT_EQ(d.AsVector(), (V{3, 4}));
  QVDiagMatrix copy(d);
  copy.SetElem(0, 9.0);
  EXPECT_EQ(d.GetElem(0), 3.0);
  copy = d;
  EXPECT_EQ(copy.AsVector(), d.AsVector());
}

TEST(DiagMatrix, ValidOnlyWhileTheVectorHasItsSize) {
  QVDiagMatrix d(V{1, 2});
  d.AsVector().push_back(3.0);
  EXPECT_FALSE(d.IsValidMatrix());
  EXPECT_TRUE(d.Resize(3));
  EXPECT_TRUE(d.IsValidMatrix());
  EXPECT_EQ(d.GetElem(2), 3.0);
}

TEST(DiagMatrix, IndexIsADiagonalPlaceNotAPackedOne) {
  const QVDiagMatrix d(V{3, 4});
  EXPECT_EQ(d.GetElem(1), 4.0);
  EXPECT_EQ(Dense({3, 4}).GetElem(1), 0.0);  // packed element (1, 0)
  EXPECT_EQ(d.GetElem(1, 1), 4.0);
  EXPECT_EQ(d.GetElem(0, 1), 0.0);
}

TEST(DiagMatrix, StoresOnTheDiagonalAlone) {
  QVDiagMatrix d(V{3, 4});
  EXPECT_FALSE(d.SetElem(0, 1, 5.0));
  EXPECT_FALSE(d.SetElem(0, 1, 0.0));
  EXPECT_EQ(d.AsVector(), (V{3, 4}));
  EXPECT_TRUE(d.SetElem(1, 1, 5.0));
  EXPECT_TRUE(d.SetElem(0, 6.0));
  EXPECT_EQ(d.AsVector(), (V{6, 5}));
  EXPECT_FALSE(d.PutRow(0, {1, 2}));
  EXPECT_EQ(d.AsVector(), (V{6, 5}));
  EXPECT_TRUE(d.PutRow(0, {1, 0, 7}));  // what stands behind the row is not looked at
  EXPECT_FALSE(d.PutRow(0, {1}));
  EXPECT_FALSE(d.PutRow(2, {1, 0}));
  EXPECT_EQ(d.AsVector(), (V{1, 5}));
  EXPECT_TRUE(d.SetRowColToConst(1, 8.0));
  EXPECT_EQ(d.AsVector(), (V{1, 8}));
  EXPECT_FALSE(d.SetRowColToConst(-1, 8.0));
  EXPECT_FALSE(d.SetRowColToConst(2, 8.0));
}

TEST(DiagMatrix, ReplaceDiagonal) {
  QVDiagMatrix d(V{1});
  EXPECT_TRUE(d.ReplaceDiagonal({4, 5, 6}));
  EXPECT_EQ(d.GetNRows(), 3);
  EXPECT_EQ(d.AsVector(), (V{4, 5, 6}));
  EXPECT_TRUE(d.ReplaceDiagonal(d.AsVector()));
  EXPECT_EQ(d.AsVector(), (V{4, 5, 6}));

  // The size goes through the virtual operation of a derived class.
  class Counting : public QVDiagMatrix {
   public:
    bool Resize(int n) override {
      ++calls;
      return QVDiagMatrix::Resize(n);
    }
    int calls = 0;
  };
  Counting counting;
  EXPECT_TRUE(counting.ReplaceDiagonal({1, 2}));
  EXPECT_EQ(counting.calls, 1);
}

TEST(DiagMatrix, CheckDiagonalUsesItsNumbers) {
  const QVDiagMatrix d(V{1, -2});
  V diagonal;
  d.GetNCheckDiagonal(diagonal, 0.0, 9.0);
  EXPECT_EQ(diagonal, (V{1, 9}));
  Dense({1, -2}).GetNCheckDiagonal(diagonal, 0.0, 9.0);
  EXPECT_EQ(diagonal, (V{1, 1}));
}

TEST(DiagMatrix, OffDiagonalExtremesAreNotWritten) {
  double maxD = 0, minD = 0, maxO = 5, minO = 6;
  QVDiagMatrix(V{3, -4, 1}).MaxMinDiagOffDiag(maxD, minD, maxO, minO);
  EXPECT_EQ(maxD, 3.0);
  EXPECT_EQ(minD, -4.0);
  EXPECT_EQ(maxO, 5.0);
  EXPECT_EQ(minO, 6.0);
  Dense({3, -4, 1}).MaxMinDiagOffDiag(maxD, minD, maxO, minO);
  EXPECT_EQ(maxO, 0.0);
}

TEST(DiagMatrix, PartsGoToADiagonalTarget) {
  const QVDiagMatrix d(V{1, 2, 3});
  QVSymMatrix dense(2, true);
  dense.SetElem(0, 0, 7.0);
  d.ExtractFirstNRows(dense);
  EXPECT_EQ(dense.GetElem(0, 0), 7.0);
  EXPECT_FALSE(d.ExtractSubmatrix({0, 2}, dense));
  QVDiagMatrix out;
  d.ExtractFirstNRows(out);
  EXPECT_EQ(out.AsVector(), (V{1, 2}));
  EXPECT_TRUE(d.ExtractSubmatrix({0, 2}, out));
  EXPECT_EQ(out.AsVector(), (V{1, 3}));
  EXPECT_FALSE(Dense({1, 2, 3}).ExtractSubmatrix({0}, out));
  QVDiagMatrix(V{5}).ExtractFirstNRows(out);
  EXPECT_EQ(out.GetNRows(), 0);
}

TEST(DiagMatrix, FactorRefusesASmallElement) {
  QVDiagMatrix d(V{4, 0.25});
  QVBitSet accepted;
  EXPECT_EQ(d.LTChol({1, 1}, 0.5, accepted, true), 1);
  EXPECT_EQ(d.AsVector(), (V{2, 0}));
  EXPECT_TRUE(accepted.IsIn(0));
  EXPECT_FALSE(accepted.IsIn(1));
  QVDiagMatrix bound(V{0.5, 0.5000001});
  EXPECT_EQ(bound.LTChol({1, 1}, 0.5, true), 1);  // the bound itself is refused
  EXPECT_EQ(bound.GetElem(0), 0.0);
  EXPECT_GT(bound.GetElem(1), 0.7);
}

TEST(DiagMatrix, FactorJudgesEachElementAgainstItself) {
  // The dense class compares 1e-9 with the largest element, 1.
  const V diagonal = {1.0, 1e-9};
  double minDiag = 0.0;
  QVDiagMatrix d(diagonal);
  EXPECT_EQ(d.LTChol(1e-10, minDiag, true), 0);
  EXPECT_EQ(minDiag, std::sqrt(1e-9));
  QVSymMatrix dense = Dense(diagonal);
  EXPECT_EQ(dense.LTChol(1e-8, minDiag, true), 1);
  QVDiagMatrix below(diagonal);
  EXPECT_EQ(below.LTChol(1e-8, minDiag, true), 1);  // below tol its reference is 1.0
  EXPECT_EQ(minDiag, 0.0);
  QVDiagMatrix empty;
  EXPECT_EQ(empty.LTChol(0.1, minDiag, true), 0);
  EXPECT_EQ(minDiag, kLowest);
}

TEST(DiagMatrix, InverseHasNoSecondStep) {
  QVDiagMatrix d(V{2, 0, -4});
  EXPECT_TRUE(d.LTInverse());
  EXPECT_EQ(d.AsVector(), (V{0.5, 0, -0.25}));
  QVSymMatrix dense = Dense({2, 4});
  dense.LTInverse();
  EXPECT_EQ(dense.GetElem(0, 0), 0.25);  // inverse of L L-transpose
}

TEST(DiagMatrix, SquaresAreOneOperation) {
  QVDiagMatrix a(V{2, -3});
  QVDiagMatrix b(V{2, -3});
  a.LTLLTrans();
  b.LTLTransL();
  EXPECT_EQ(a.AsVector(), (V{4, 9}));
  EXPECT_EQ(b.AsVector(), (V{4, 9}));
}

TEST(DiagMatrix, SolveNeitherFactorsNorChanges) {
  QVDiagMatrix d(V{4, 0.25});
  V x;
  EXPECT_EQ(d.LTSolve({2, 3}, 0.5, x), 1);
  EXPECT_EQ(x, (V{0.5, 0.25}));  // what is too small stands as it is
  EXPECT_EQ(d.AsVector(), (V{4, 0.25}));
  QVDiagMatrix negative(V{-1, 1});
  EXPECT_EQ(negative.LTSolve({2, 3}, 0.5, x), -1);
  QVDiagMatrix later(V{2, -1});
  EXPECT_EQ(later.LTSolve({2, 3}, 0.5, x), -1);
  EXPECT_EQ(x[0], 1.0);
  EXPECT_EQ(d.LTSolve({2, 3}, 0.0, x), -1);
  EXPECT_EQ(d.LTSolve({2}, 0.5, x), -1);
  QVDiagMatrix bound(V{0.5});
  EXPECT_EQ(bound.LTSolve({2}, 0.5, x), 1);
}

TEST(DiagMatrix, CholInverseTakesAnAbsoluteBoundAndAnyTarget) {
  const QVDiagMatrix d(V{4, 0.25, -1});
  const V nothing;  // ref is not read
  QVSymMatrix dense(5, true);
  EXPECT_EQ(d.CholInverse(nothing, 0.5, dense), 1);
  EXPECT_EQ(dense.GetNRows(), 3);
  EXPECT_EQ(MaxDifference(FromSym(dense), FromSym(Dense({0.25, 0, 0}))), 0.0);
  QVDiagMatrix out(V{9, 9, 9});
  QVBitSet accepted;
  EXPECT_EQ(d.CholInverse(nothing, 0.1, out, accepted), 2);
  EXPECT_EQ(out.AsVector(), (V{0.25, 4, 0}));
  EXPECT_EQ(accepted.Size(), 3);
  EXPECT_EQ(accepted.InSet(), 2);
  EXPECT_FALSE(accepted.IsIn(2));
  double minDiag = 0.0;
  EXPECT_EQ(d.CholInverse(nothing, 0.1, out, minDiag), 2);
  EXPECT_EQ(minDiag, 0.0);
  EXPECT_EQ(QVDiagMatrix(V{4, 0.25}).CholInverse(nothing, 0.1, out, minDiag), 2);
  EXPECT_EQ(minDiag, 0.5);
  EXPECT_EQ(QVDiagMatrix().CholInverse(nothing, 0.1, out, minDiag), 0);
  EXPECT_EQ(minDiag, kLowest);
  QVSymBlockDiagMatrix blocks(std::vector<int>{2, 1}, QVBitSet(2));
  EXPECT_EQ(d.CholInverse(nothing, 0.1, blocks), 2);
  EXPECT_EQ(blocks.GetElem(1, 1), 4.0);
  EXPECT_EQ(blocks.GetNBlocks(), 2);
  QVDiagMatrix own(V{4, 0.25});
  EXPECT_EQ(own.CholInverse(nothing, 0.1, own), 2);
  EXPECT_EQ(own.AsVector(), (V{0.25, 4}));
}

TEST(DiagMatrix, DeterminantOfTheElementsAsTheyStand) {
  double det[2] = {0, 0};
  EXPECT_TRUE(QVDiagMatrix(V{2, 5}).ComputeDeterminant(1e9, det));  // tol is not used
  EXPECT_EQ(det[0], 1.0);
  EXPECT_EQ(det[1], 1.0);
  EXPECT_TRUE(QVDiagMatrix(V{-0.2, 5}).ComputeDeterminant(0.0, det));
  EXPECT_EQ(det[0], -1.0);
  EXPECT_EQ(det[1], 0.0);
  EXPECT_TRUE(QVDiagMatrix(V{2000, 0, 5}).ComputeDeterminant(0.0, det));
  EXPECT_EQ(det[0], 0.0);
  EXPECT_EQ(det[1], 0.0);
  EXPECT_FALSE(QVDiagMatrix().ComputeDeterminant(0.0, det));
  const double inf = std::numeric_limits<double>::infinity();
  EXPECT_TRUE(QVDiagMatrix(V{inf, 5}).ComputeDeterminant(0.0, det));  // ends
  EXPECT_EQ(det[0], inf);
}

TEST(DiagMatrix, BadIndexesGiveTheMissingValue) {
  const QVDiagMatrix d(V{2, 3});
  const V v = {1, 10, 100};
  EXPECT_EQ(d.ComputeRVD(1, v, 2), 300.0);
  EXPECT_EQ(d.ComputeRVD(1, v.data(), 2), 300.0);
  EXPECT_TRUE(QVMV::IsMissing(d.ComputeRVD(-1, v, 1)));
  EXPECT_TRUE(QVMV::IsMissing(d.ComputeRVD(2, v, 1)));
  EXPECT_TRUE(QVMV::IsMissing(d.ComputeRVD(2, v.data(), 1)));
  EXPECT_TRUE(QVMV::IsMissing(d.ComputeRVD(1, v, 3)));  // the vector ends before
  EXPECT_EQ(d.ComputeDotProduct2Rows(1, 1), 9.0);
  EXPECT_EQ(d.ComputeDotProduct2Rows(0, 1), 0.0);
  EXPECT_TRUE(QVMV::IsMissing(d.ComputeDotProduct2Rows(0, 2)));
  EXPECT_TRUE(QVMV::IsMissing(d.ComputeDotProduct2Rows(-1, 0)));
  const QVSymMatrix s = Sym({{1}, {2, 3}});
  EXPECT_EQ(d.ComputeRowDotProductS(1, s, 0), 6.0);
  EXPECT_EQ(d.ComputeRowDotProductS(0, s.AsVector(), 1), 4.0);
  EXPECT_TRUE(QVMV::IsMissing(d.ComputeRowDotProductS(2, s, 0)));
  EXPECT_TRUE(QVMV::IsMissing(d.ComputeRowDotProductS(0, s, -1)));
  EXPECT_TRUE(QVMV::IsMissing(d.ComputeRowDotProductS(0, V{1, 2}, 0)));
  EXPECT_TRUE(QVMV::IsMissing(d.ComputeRowDotProductS(0, QVSymMatrix(3, true), 0)));
}

TEST(DiagMatrix, RowsAndColumnsOfARectangularMatrix) {
  const QVDiagMatrix d(V{2, 3});
  const QVRectMatrix r = reference::Rect({{1, 2, 3}, {4, 5, 6}, {7, 8, 9}});
  EXPECT_EQ(d.ComputeRVD(1, r, 2, 0), 3.0 * 8.0);
  EXPECT_EQ(d.ComputeRVD(1, r, 2, 1), 3.0 * 9.0);
  EXPECT_EQ(d.ComputeRTransVD(1, r, 2, 0), 3.0 * 6.0);
  EXPECT_EQ(d.ComputeRTransVD(0, r, 2, 2), 2.0 * 9.0);
  EXPECT_TRUE(QVMV::IsMissing(d.ComputeRVD(2, r, 0, 0)));
  EXPECT_TRUE(QVMV::IsMissing(d.ComputeRVD(0, r, 3, 0)));
  EXPECT_TRUE(QVMV::IsMissing(d.ComputeRVD(0, r, 0, -1)));
  EXPECT_TRUE(QVMV::IsMissing(d.ComputeRVD(1, r, 0, 2)));
  EXPECT_TRUE(QVMV::IsMissing(d.ComputeRTransVD(0, r, -1, 0)));
  EXPECT_TRUE(QVMV::IsMissing(d.ComputeRTransVD(1, r, 0, 2)));
}

TEST(DiagMatrix, ComputeLTransRRepeatsTheDiagonal) {
  const QVDiagMatrix d(V{2, 3});
  const QVRectMatrix r = reference::Rect({{1, 2}, {3, 4}, {5, 6}, {7, 8}});
  QVRectMatrix out;
  ASSERT_TRUE(d.ComputeLTransR(r, out, 2));
  const auto wanted = reference::FromRect(reference::Rect({{2, 4}, {9, 12}, {10, 12}, {21, 24}}));
  EXPECT_EQ(MaxDifference(reference::FromRect(out), wanted), 0.0);
  QVRectMatrix own = r;
  ASSERT_TRUE(d.ComputeLTransR(own, own, 2));
  EXPECT_EQ(MaxDifference(reference::FromRect(own), wanted), 0.0);
  EXPECT_FALSE(d.ComputeLTransR(r, out, 1));
  EXPECT_FALSE(d.ComputeLTransR(r, out, 0));
  EXPECT_FALSE(d.ComputeLTransR(r, out, 3));
}

TEST(DiagMatrix, ProductsWithStructuredMatrices) {
  const QVDiagMatrix d(V{2, 3});
  const QVDiagMatrix g(V{5, 7});
  QVDiagMatrix out;
  ASSERT_TRUE(d.ComputeGSG(g, out));
  EXPECT_EQ(out.AsVector(), (V{50, 147}));
  ASSERT_TRUE(d.ComputeLSLTrans(g, out));
  EXPECT_EQ(out.AsVector(), (V{50, 147}));
  ASSERT_TRUE(d.ComputeLTransSL(g, out, 1));
  EXPECT_EQ(out.AsVector(), (V{50, 147}));
  ASSERT_TRUE(d.ComputeLTransSL(QVDiagMatrix(V{10}), out, 2));
  EXPECT_EQ(out.AsVector(), (V{200, 300}));
  ASSERT_TRUE(d.ComputeMGN(g, d, out));
  EXPECT_EQ(out.AsVector(), (V{40, 126}));
  V work;
  ASSERT_TRUE(d.ComputeGMGNG(g, d, out, work));
  EXPECT_EQ(out.AsVector(), (V{160, 1134}));
  EXPECT_EQ(work, (V{40, 0, 126}));
  QVDiagMatrix own(V{2, 3});
  ASSERT_TRUE(own.ComputeGSG(g, own));
  EXPECT_EQ(own.AsVector(), (V{50, 147}));
  own = d;
  ASSERT_TRUE(own.ComputeMGN(own, own, own));
  EXPECT_EQ(own.AsVector(), (V{16, 54}));
  QVSymMatrix dense;
  ASSERT_TRUE(d.ComputeGSG(g, dense));
  EXPECT_EQ(dense.AsVector(), (V{50, 0, 147}));
  EXPECT_FALSE(d.ComputeGSG(Sym({{1}, {2, 3}}), out));  // a full result
  EXPECT_FALSE(d.ComputeLSLTrans(Sym({{1}, {2, 3}}), out));
  EXPECT_FALSE(d.ComputeMGN(Sym({{1}, {2, 3}}), Sym({{1}, {2, 3}}), out));
  EXPECT_EQ(out.AsVector(), (V{160, 1134}));
  QVRectMatrix rect;
  ASSERT_TRUE(d.ComputeSS(g, rect));
  EXPECT_EQ(rect.AsVector(), (V{10, 0, 0, 21}));
  EXPECT_EQ(d.TraceOfProduct(g), 31.0);
  EXPECT_EQ(d.TraceOfProductOfThree(g, d), 83.0);
  d.ComputeSTransS(out);
  EXPECT_EQ(out.AsVector(), (V{4, 9}));
  // Blocks: the result takes their structure.
  QVSymBlockDiagMatrix blocks;
  blocks.AddBlock(Sym({{1}, {4, 2}}));
  QVSymBlockDiagMatrix result;
  ASSERT_TRUE(d.ComputeGSG(blocks, result));
  EXPECT_TRUE(result.IsSameStructure(blocks));
  EXPECT_EQ(result.GetElem(0, 0), 2.0 + 48.0);
  EXPECT_EQ(result.GetElem(1, 0), 8.0 + 24.0);
}

TEST(DiagMatrix, SumNeedsAZeroTriangle) {
  QVDiagMatrix d(V{1, 2});
  EXPECT_TRUE(d.ComputeAXpY(2.0, Dense({3, 4})));
  EXPECT_EQ(d.AsVector(), (V{7, 10}));
  EXPECT_FALSE(d.ComputeAXpY(2.0, Sym({{1}, {2, 3}})));
  EXPECT_FALSE(d.ComputeAXpY(2.0, Dense({1})));
  EXPECT_EQ(d.AsVector(), (V{7, 10}));
}

TEST(DiagMatrix, FailedStorage) {
  {
    const AllocationLimit limit(1000);
    QVDiagMatrix d(1000, true);
    EXPECT_EQ(d.GetNRows(), -1);
    EXPECT_FALSE(d.IsValidMatrix());
    EXPECT_EQ(d.Trace(), 0.0);
    V v;
    EXPECT_FALSE(d.ComputeSV(V(), v));
    EXPECT_TRUE(d.Resize(3));
    EXPECT_TRUE(d.IsValidMatrix());
  }
  const QVDiagMatrix large(1000, true);
  const AllocationLimit limit(1000);
  const QVDiagMatrix copy(large);
  EXPECT_EQ(copy.GetNRows(), -1);
  QVDiagMatrix assigned;
  assigned = large;
  EXPECT_FALSE(assigned.IsValidMatrix());
}

TEST(DiagMatrix, Display) {
  const DisplayCapture capture;
  const QVDiagMatrix d(V{1.5, 2});
  d.Display();
  d.DisplayF();
  const std::string once =
      "\nQVDiagMatrix display start"
      "\nNumber of rows = 2"
      "\nNumber of columns = 2"
      "\nrow  0:  1.5 0"
      "\nrow  1:  0 2"
      "\nQVDiagMatrix display end";
  EXPECT_EQ(capture.Text(), once + once);
}

}  // namespace
