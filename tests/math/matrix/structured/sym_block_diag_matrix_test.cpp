// QVSymBlockDiagMatrix: its structure, and every way in which it differs from the dense class.
#include <cmath>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

#include "QVDiagMatrix.h"
#include "QVRectMatrix.h"
#include "QVSymBlockDiagMatrix.h"
#include "math/matrix/allocation_limit.h"
#include "math/matrix/display_capture.h"
#include "math/matrix/structured/structured_matrices.h"

namespace {

using QVMath_940::IQVSymMatrix;
using QVMath_940::QVBitSet;
using QVMath_940::QVDiagMatrix;
using QVMath_940::QVRectMatrix;
using QVMath_940::QVSymBlockDiagMatrix;
using QVMath_940::QVSymMatrix;
using reference::FromSym;
using reference::MaxDifference;
using reference::Sym;
using I = std::vector<int>;
using V = std::vector<double>;

// Rows 0 and 1 dense, 2 and 3 diagonal, 4 dense.
QVSymBlockDiagMatrix Example() {
  QVSymBlockDiagMatrix s;
  s.AddBlock(Sym({{4}, {2, 5}}));
  s.AddBlock(V{9, 16});
  s.AddBlock(Sym({{25}}));
  return s;
}

QVBitSet Bits(const std::vector<bool> & bits) {
  return QVBitSet(bits);
}

// --- Structure ----------------------------------------------------------------------------------

TEST(SymBlockDiagMatrix, WithoutBlocks) {
  const QVSymBlockDiagMatrix s;
  EXPECT_EQ(s.GetType(), QVMath_940::SymMatrixBlockDiagonal);
  EXPECT_EQ(s.GetNRows(), 0);
  EXPECT_EQ(s.GetNBlocks(), 0);
  EXPECT_TRUE(s.IsValidMatrix());
  EXPECT_TRUE(s.GetBlockSizes().empty());
  EXPECT_TRUE(s.GetBlockIndexForRow().empty());
}

TEST(SymBlockDiagMatrix, BlocksFollowOneAnother) {
  const QVSymBlockDiagMatrix s = Example();
  EXPECT_EQ(s.GetNRows(), 5);
  EXPECT_EQ(s.GetNBlocks(), 3);
  EXPECT_EQ(s.GetNDenseBlocks(), 2);
  EXPECT_EQ(s.GetNDiagBlocks(), 1);
  EXPECT_EQ(s.GetBlockSizes(), (I{2, 2, 1}));
  EXPECT_EQ(s.GetBlockIndexForRow(), (I{0, 0, 1, 1, 2}));
  EXPECT_EQ(s.GetBlockSize(1), 2);
  EXPECT_EQ(s.GetBlockStartIndex(2), 4);
  EXPECT_TRUE(s.GetIsBlockDiagonal(1));
  EXPECT_FALSE(s.GetIsBlockDiagonal(2));
  for (const int bad : {-1, 3}) {
    EXPECT_EQ(s.GetBlockSize(bad), -1);
    EXPECT_EQ(s.GetBlockStartIndex(bad), -1);
    EXPECT_FALSE(s.GetIsBlockDiagonal(bad));
  }
  EXPECT_EQ(MaxDifference(FromSym(s),
                          FromSym(Sym({{4}, {2, 5}, {0, 0, 9}, {0, 0, 0, 16}, {0, 0, 0, 0, 25}}))),
            0.0);
}

TEST(SymBlockDiagMatrix, PointersToBlocks) {
  QVSymBlockDiagMatrix s = Example();
  QVSymMatrix * dense = nullptr;
  V * diagonal = nullptr;
  ASSERT_TRUE(s.GetDenseBlock(2, dense));
  dense->SetElem(0, 0, 7.0);
  EXPECT_EQ(s.GetElem(4, 4), 7.0);
  ASSERT_TRUE(s.GetDiagonalBlock(1, diagonal));
  (*diagonal)[1] = 8.0;
  EXPECT_EQ(s.GetElem(3, 3), 8.0);
  EXPECT_FALSE(s.GetDenseBlock(1, dense));
  EXPECT_FALSE(s.GetDiagonalBlock(0, diagonal));
  EXPECT_FALSE(s.GetDenseBlock(3, dense));
  EXPECT_FALSE(s.GetDenseBlock(-1, dense));
  EXPECT_FALSE(s.GetDiagonalBlock(3, diagonal));
}

TEST(SymBlockDiagMatrix, SetStructureMakesZeroBlocks) {
  QVSymBlockDiagMatrix s = Example();
  EXPECT_TRUE(s.SetStructure({3, 1, 2}, Bits({true, false, true})));
  EXPECT_EQ(s.GetNRows(), 6);
  EXPECT_EQ(s.GetNDenseBlocks(), 1);
  EXPECT_EQ(s.GetBlockStartIndex(2), 4);
  for (int i = 0; i < 6; ++i)
    EXPECT_EQ(s.GetElem(i, i), 0.0);
  EXPECT_TRUE(s.SetStructure({2, 2}, Bits({true, true})));
  EXPECT_EQ(s.GetNDenseBlocks(), 0);
  EXPECT_EQ(s.GetNDiagBlocks(), 2);
  EXPECT_TRUE(s.SetStructure({2, 2, 9}, Bits({true, false})));  // the bits tell how many
  EXPECT_EQ(s.GetNBlocks(), 2);
  EXPECT_EQ(s.GetNRows(), 4);
  EXPECT_TRUE(s.SetStructure({2, -2, 1}, Bits({true, true, false})));
  EXPECT_EQ(s.GetBlockSizes(), (I{2, 0, 1}));
  EXPECT_EQ(s.GetBlockIndexForRow(), (I{0, 0, 2}));
  EXPECT_FALSE(s.SetStructure({2}, Bits({true, false})));
  EXPECT_EQ(s.GetNRows(), -1);
  EXPECT_EQ(s.GetNBlocks(), -1);
  EXPECT_FALSE(s.IsValidMatrix());
  EXPECT_EQ(s.AddBlock(V{1}), -1);
  EXPECT_TRUE(s.SetStructure({}, QVBitSet()));
  EXPECT_TRUE(s.IsValidMatrix());
  EXPECT_EQ(QVSymBlockDiagMatrix(I{2, 3}, Bits({false, true})).GetNRows(), 5);
}

TEST(SymBlockDiagMatrix, CopyAndCompareStructure) {
  const QVSymBlockDiagMatrix s = Example();
  QVSymBlockDiagMatrix t;
  EXPECT_FALSE(s.IsSameStructure(t));
  ASSERT_TRUE(s.CopyStructure(t));
  EXPECT_TRUE(s.IsSameStructure(t));
  EXPECT_EQ(t.Trace(), 0.0);
  EXPECT_FALSE(s.IsSameStructure(QVSymMatrix(5, true)));
  EXPECT_FALSE(s.IsSameStructure(QVSymBlockDiagMatrix(I{2, 2, 1}, Bits({false, true, true}))));
  EXPECT_FALSE(s.IsSameStructure(QVSymBlockDiagMatrix(I{2, 1, 2}, Bits({false, true, false}))));
  QVSymBlockDiagMatrix own = s;
  ASSERT_TRUE(own.CopyStructure(own));
  EXPECT_TRUE(own.IsSameStructure(s));
  EXPECT_EQ(own.Trace(), 0.0);
}

TEST(SymBlockDiagMatrix, AddBlockByItsClass) {
  QVSymBlockDiagMatrix s;
  EXPECT_EQ(s.AddBlock(V{}), -1);
  EXPECT_EQ(s.AddBlock(QVSymMatrix()), -1);
  EXPECT_EQ(s.AddBlock(QVDiagMatrix()), -1);
  EXPECT_EQ(s.AddBlock(QVSymBlockDiagMatrix()), -1);
  EXPECT_EQ(s.AddBlock(QVDiagMatrix(V{1, 2})), 1);
  EXPECT_TRUE(s.GetIsBlockDiagonal(0));
  EXPECT_EQ(s.AddBlock(Example()), 4);
  EXPECT_EQ(s.GetBlockSizes(), (I{2, 2, 2, 1}));
  EXPECT_EQ(s.AddBlock(s), 8);  // itself
  EXPECT_EQ(s.GetNRows(), 14);
  EXPECT_EQ(s.GetElem(13, 13), 25.0);
  QVSymMatrix * own = nullptr;
  ASSERT_TRUE(s.GetDenseBlock(1, own));
  EXPECT_EQ(s.AddBlock(*own), 9);  // one of its own blocks
  EXPECT_EQ(s.GetElem(15, 14), 2.0);
}

TEST(SymBlockDiagMatrix, ListOfBlocksIsFlattened) {
  QVSymMatrix dense = Sym({{1}, {2, 3}});
  QVDiagMatrix diagonal(V{4, 5, 6});
  QVSymBlockDiagMatrix blocks = Example();
  QVSymMatrix empty;
  const std::vector<IQVSymMatrix *> list = {&dense, nullptr, &blocks, &empty, &diagonal};
  const QVSymBlockDiagMatrix s(list);
  EXPECT_EQ(s.GetBlockSizes(), (I{2, 2, 2, 1, 3}));
  EXPECT_EQ(s.GetNDenseBlocks(), 3);
  dense.SetElem(0, 0, 100.0);  // a copy was taken
  EXPECT_EQ(s.GetElem(0, 0), 1.0);
  EXPECT_EQ(s.GetElem(9, 9), 6.0);
}

TEST(SymBlockDiagMatrix, ReplaceBlockOfTheSameKindAndSize) {
  QVSymBlockDiagMatrix s = Example();
  EXPECT_TRUE(s.ReplaceBlock(0, Sym({{7}, {8, 9}})));
  EXPECT_EQ(s.GetElem(1, 0), 8.0);
  EXPECT_TRUE(s.ReplaceBlock(1, V{1, 2}));
  EXPECT_TRUE(s.ReplaceBlock(1, QVDiagMatrix(V{3, 4})));
  EXPECT_EQ(s.GetElem(3, 3), 4.0);
  const auto before = FromSym(s);
  EXPECT_FALSE(s.ReplaceBlock(1, Sym({{7}, {8, 9}})));  // dense over diagonal
  EXPECT_FALSE(s.ReplaceBlock(0, V{1, 2}));
  EXPECT_FALSE(s.ReplaceBlock(0, QVDiagMatrix(V{3, 4})));
  EXPECT_FALSE(s.ReplaceBlock(0, Sym({{7}})));
  EXPECT_FALSE(s.ReplaceBlock(1, V{1}));
  EXPECT_FALSE(s.ReplaceBlock(1, V{}));
  EXPECT_FALSE(s.ReplaceBlock(0, QVSymMatrix()));
  EXPECT_FALSE(s.ReplaceBlock(-1, V{1, 2}));
  EXPECT_FALSE(s.ReplaceBlock(3, V{1, 2}));
  EXPECT_FALSE(s.ReplaceBlock(0, Example()));
  EXPECT_EQ(MaxDifference(FromSym(s), before), 0.0);
}

TEST(SymBlockDiagMatrix, ClearKeepsTheStructureAndClearAllDropsIt) {
  QVSymBlockDiagMatrix s = Example();
  s.Clear();
  EXPECT_TRUE(s.IsSameStructure(Example()));
  EXPECT_EQ(s.Trace(), 0.0);
  s.ClearAll();
  EXPECT_EQ(s.GetNRows(), 0);
  EXPECT_EQ(s.GetNBlocks(), 0);
  EXPECT_TRUE(s.IsValidMatrix());
  EXPECT_EQ(s.AddBlock(V{1, 2}), 1);
}

TEST(SymBlockDiagMatrix, ResizeGivesOneDenseBlock) {
  QVSymBlockDiagMatrix s = Example();
  ASSERT_TRUE(s.Resize(5));
  EXPECT_EQ(s.GetNBlocks(), 1);
  EXPECT_FALSE(s.GetIsBlockDiagonal(0));
  EXPECT_EQ(MaxDifference(FromSym(s), FromSym(Example())), 0.0);
  EXPECT_TRUE(s.SetElem(4, 0, 1.0));
  s = Example();
  ASSERT_TRUE(s.SetNRows(3, true));
  EXPECT_EQ(s.GetBlockSizes(), (I{3}));
  EXPECT_EQ(s.Trace(), 0.0);
  ASSERT_TRUE(s.SetNRows(0, false));
  EXPECT_EQ(s.GetNBlocks(), 0);
}

TEST(SymBlockDiagMatrix, FillDenseMatrix) {
  QVSymMatrix out(2, true);
  ASSERT_TRUE(Example().FillDenseMatrix(out));
  EXPECT_EQ(MaxDifference(FromSym(out), FromSym(Example())), 0.0);
  QVSymBlockDiagMatrix failed(I{}, Bits({true}));
  EXPECT_FALSE(failed.FillDenseMatrix(out));
}

// --- Elements -----------------------------------------------------------------------------------

TEST(SymBlockDiagMatrix, StructuralZeros) {
  QVSymBlockDiagMatrix s = Example();
  EXPECT_EQ(s.GetElem(0, 4), 0.0);
  EXPECT_EQ(s.GetElem(4, 0), 0.0);
  EXPECT_EQ(s.GetElem(2, 3), 0.0);
  EXPECT_FALSE(s.SetElem(0, 4, 1.0));
  EXPECT_FALSE(s.SetElem(4, 0, 0.0));  // whatever the value
  EXPECT_FALSE(s.SetElem(3, 2, 1.0));
  EXPECT_TRUE(s.SetElem(0, 1, 3.0));
  EXPECT_EQ(s.GetElem(1, 0), 3.0);
}

TEST(SymBlockDiagMatrix, RowsTouchTheStoredPartAlone) {
  QVSymBlockDiagMatrix s = Example();
  EXPECT_TRUE(s.PutRow(1, {1, 2, 3, 4, 5}));
  EXPECT_EQ(s.GetElem(1, 0), 1.0);
  EXPECT_EQ(s.GetElem(1, 1), 2.0);
  EXPECT_EQ(s.GetElem(1, 2), 0.0);
  EXPECT_TRUE(s.PutRow(2, {1, 2, 3, 4, 5}));
  EXPECT_EQ(s.GetElem(2, 2), 3.0);
  EXPECT_EQ(s.GetElem(2, 3), 0.0);
  EXPECT_TRUE(s.SetRowColToConst(0, 6.0));
  V row;
  s.GetRow(0, row);
  EXPECT_EQ(row, (V{6, 6, 0, 0, 0}));
  EXPECT_FALSE(s.SetRowColToConst(5, 6.0));
}

TEST(SymBlockDiagMatrix, OffDiagonalExtremesLookInsideTheBlocks) {
  double maxD = 0, minD = 0, maxO = 0, minO = 0;
  QVSymBlockDiagMatrix s;
  s.AddBlock(Sym({{4}, {2, 5}}));
  s.AddBlock(Sym({{7}, {3, 8}}));
  s.MaxMinDiagOffDiag(maxD, minD, maxO, minO);
  EXPECT_EQ(maxD, 8.0);
  EXPECT_EQ(minD, 4.0);
  EXPECT_EQ(maxO, 3.0);
  EXPECT_EQ(minO, 2.0);  // the zeros between the blocks do not count
  s.AddBlock(V{5, 5});
  s.MaxMinDiagOffDiag(maxD, minD, maxO, minO);
  EXPECT_EQ(minO, 0.0);  // those of a diagonal block do
  QVSymBlockDiagMatrix single;
  single.AddBlock(V{5});
  single.MaxMinDiagOffDiag(maxD, minD, maxO, minO);
  EXPECT_EQ(maxO, std::numeric_limits<double>::lowest());
  EXPECT_EQ(minO, std::numeric_limits<double>::max());
}

TEST(SymBlockDiagMatrix, CheckDiagonalByEachBlocksRule) {
  QVSymBlockDiagMatrix s;
  s.AddBlock(Sym({{1}, {0, 5}}));
  s.AddBlock(V{1, -2});
  V diagonal;
  s.GetNCheckDiagonal(diagonal, 0.0, 9.0);
  EXPECT_EQ(diagonal, (V{5, 5, 1, 9}));
}

TEST(SymBlockDiagMatrix, PartsByTheClassOfTheTarget) {
  const QVSymBlockDiagMatrix s = Example();
  QVSymMatrix dense;
  ASSERT_TRUE(s.ExtractSubmatrix({0, 1, 3}, dense));
  EXPECT_EQ(dense.AsVector(), (V{4, 2, 5, 0, 0, 16}));
  QVSymBlockDiagMatrix blocks;
  ASSERT_TRUE(s.ExtractSubmatrix({1, 2, 3}, blocks));
  EXPECT_EQ(blocks.GetBlockSizes(), (I{1, 2}));
  EXPECT_FALSE(blocks.GetIsBlockDiagonal(0));
  EXPECT_TRUE(blocks.GetIsBlockDiagonal(1));
  EXPECT_EQ(blocks.GetElem(0, 0), 5.0);
  s.ExtractFirstNRows(blocks);
  EXPECT_EQ(blocks.GetBlockSizes(), (I{2, 2}));
  s.ExtractFirstNRows(dense);
  EXPECT_EQ(dense.GetNRows(), 4);
  QVDiagMatrix diagonal(V{7});
  EXPECT_FALSE(s.ExtractSubmatrix({1}, diagonal));
  s.ExtractFirstNRows(diagonal);
  EXPECT_EQ(diagonal.AsVector(), V{7});
}

// --- Cholesky -----------------------------------------------------------------------------------

TEST(SymBlockDiagMatrix, FactorBlockByBlock) {
  QVSymBlockDiagMatrix s = Example();
  QVBitSet accepted;
  EXPECT_EQ(s.LTChol(V(5, 1.0), 10.0, accepted, true), 3);  // 4 and 5 - 1 and 9 are below 10
  EXPECT_EQ(s.GetElem(0, 0), 0.0);
  EXPECT_EQ(s.GetElem(3, 3), 4.0);
  EXPECT_EQ(s.GetElem(4, 4), 5.0);
  EXPECT_FALSE(accepted.IsIn(0));
  EXPECT_FALSE(accepted.IsIn(2));
  EXPECT_TRUE(accepted.IsIn(3));
  s = Example();
  double minDiag = 0.0;
  EXPECT_EQ(s.LTChol(1e-12, minDiag, true), 0);
  EXPECT_EQ(minDiag, 2.0);
  EXPECT_EQ(s.GetElem(1, 0), 1.0);
  EXPECT_EQ(s.GetElem(2, 2), 3.0);
  QVSymBlockDiagMatrix empty;
  EXPECT_EQ(empty.LTChol(1e-12, minDiag, true), 0);
  EXPECT_EQ(minDiag, std::numeric_limits<double>::lowest());
}

TEST(SymBlockDiagMatrix, ReferenceDiagonalIsTheWholeMatrixs) {
  // A small element in a diagonal block is judged against itself, in a dense one against its block.
  QVSymBlockDiagMatrix s;
  s.AddBlock(V{1.0, 1e-4});
  s.AddBlock(Sym({{1.0}, {0.0, 1e-4}}));
  double minDiag = 0.0;
  QVSymBlockDiagMatrix factor = s;
  EXPECT_EQ(factor.LTChol(1e-3, minDiag, true), 2);  // below tol the reference becomes 1.0
  factor = s;
  EXPECT_EQ(factor.LTChol(5e-5, minDiag, true), 0);
  factor.SetStructure({2}, Bits({false}));
}

TEST(SymBlockDiagMatrix, InverseOfADiagonalBlockHasNoSecondStep) {
  QVSymBlockDiagMatrix s = Example();
  double minDiag = 0.0;
  s.LTChol(1e-12, minDiag, true);
  EXPECT_TRUE(s.LTInverse());
  EXPECT_NEAR(s.GetElem(0, 0), 5.0 / 16.0, 1e-15);  // the inverse of (4 2; 2 5)
  EXPECT_NEAR(s.GetElem(1, 0), -2.0 / 16.0, 1e-15);
  EXPECT_EQ(s.GetElem(2, 2), 1.0 / 3.0);  // 1 over the factor's element
  EXPECT_NEAR(s.GetElem(4, 4), 1.0 / 25.0, 1e-17);
  QVSymBlockDiagMatrix zero;
  zero.AddBlock(V{0.0, 2.0});
  EXPECT_TRUE(zero.LTInverse());
  EXPECT_EQ(zero.GetElem(0, 0), 0.0);
  EXPECT_EQ(zero.LTDetInverse(nullptr, 10), 1);
}

TEST(SymBlockDiagMatrix, CholInverseIsTheInverseOfTheMatrix) {
  const QVSymBlockDiagMatrix s = Example();
  const V ref(5, 1.0);
  QVSymBlockDiagMatrix out;
  EXPECT_EQ(s.CholInverse(ref, 1e-12, out), 5);
  EXPECT_TRUE(out.IsSameStructure(s));
  EXPECT_EQ(out.GetElem(2, 2), 1.0 / 9.0);
  EXPECT_EQ(out.GetElem(3, 3), 1.0 / 16.0);
  QVSymMatrix dense(1, true);
  EXPECT_EQ(s.CholInverse(ref, 1e-12, dense), 5);
  EXPECT_EQ(MaxDifference(FromSym(dense), FromSym(out)), 0.0);
  QVDiagMatrix diagonal(V{7});
  EXPECT_EQ(s.CholInverse(ref, 1e-12, diagonal), -1);
  EXPECT_EQ(diagonal.AsVector(), V{7});
  QVBitSet accepted;
  EXPECT_EQ(s.CholInverse(ref, 10.0, out, accepted), 2);
  EXPECT_EQ(accepted.InSet(), 2);
  EXPECT_EQ(out.GetElem(2, 2), 0.0);
  EXPECT_EQ(out.GetElem(3, 3), 1.0 / 16.0);
  double minDiag = 1.0;
  EXPECT_EQ(s.CholInverse(ref, 10.0, out, minDiag), 2);
  EXPECT_EQ(minDiag, 0.0);
}

TEST(SymBlockDiagMatrix, DeterminantOverAllBlocks) {
  QVSymBlockDiagMatrix s = Example();  // 16 x 144 x 25
  double det[2];
  ASSERT_TRUE(s.ComputeDeterminant(1e-12, det));
  EXPECT_NEAR(det[0], 5.76, 1e-14);
  EXPECT_EQ(det[1], 4.0);
  EXPECT_FALSE(QVSymBlockDiagMatrix().ComputeDeterminant(1e-12, det));
  EXPECT_FALSE(s.ComputeDeterminant(-1.0, det));
  double minDiag = 0.0;
  s.LTChol(1e-12, minDiag, true);
  EXPECT_EQ(s.LTDetInverse(det, 1), 0);  // of the factor: 4 x 12 x 5
  EXPECT_NEAR(det[0], 2.4, 1e-15);
  EXPECT_EQ(det[1], 2.0);
}

TEST(SymBlockDiagMatrix, SolveLeavesTheFactor) {
  QVSymBlockDiagMatrix s = Example();
  V x;
  EXPECT_EQ(s.LTSolve({8, 10, 9, 32, 50}, 1e-12, x), 0);
  for (int i = 0; i < 5; ++i)
    EXPECT_NEAR(x[reference::At(i)], (V{1.25, 1.5, 1, 2, 2})[reference::At(i)], 1e-15);
  EXPECT_EQ(s.GetElem(2, 2), 3.0);
  QVSymBlockDiagMatrix zero;
  zero.AddBlock(V{0.0, 4.0});
  EXPECT_EQ(zero.LTSolve({5, 8}, 1e-12, x), 1);
  EXPECT_EQ(x, (V{0, 2}));
}

// --- Products -----------------------------------------------------------------------------------

// The pairs of classes that G S G and its kin take.
TEST(SymBlockDiagMatrix, PairsOfClassesOfTheSandwiches) {
  const QVSymBlockDiagMatrix s = Example();
  const QVSymMatrix dense = reference::RandomSym(5, 1);
  const QVDiagMatrix diagonal(V{1, 2, 3, 4, 5});
  QVSymBlockDiagMatrix blocks = Example();
  blocks.MultiplyByNumber(0.5);
  const QVSymBlockDiagMatrix other(I{5}, Bits({false}));
  QVSymMatrix denseOut;
  QVSymBlockDiagMatrix blocksOut;
  QVDiagMatrix diagonalOut(5, true);
  const auto each = [&](const IQVSymMatrix & g, IQVSymMatrix & out) {
    const bool isMade = s.ComputeGSG(g, out);
    EXPECT_EQ(s.ComputeLSLTrans(g, out), isMade);
    EXPECT_EQ(s.ComputeLTransSL(g, out, 1), isMade);
    EXPECT_FALSE(s.ComputeLTransSL(g, out, 2));
    EXPECT_FALSE(s.ComputeLTransSL(g, out, 0));
    return isMade;
  };
  EXPECT_TRUE(each(dense, denseOut));
  EXPECT_TRUE(each(diagonal, blocksOut));
  EXPECT_TRUE(each(blocks, blocksOut));
  EXPECT_FALSE(each(dense, blocksOut));
  EXPECT_FALSE(each(diagonal, denseOut));
  EXPECT_FALSE(each(blocks, denseOut));
  EXPECT_FALSE(each(other, blocksOut));
  EXPECT_FALSE(each(diagonal, diagonalOut));
  EXPECT_FALSE(each(QVDiagMatrix(4, true), blocksOut));
}

TEST(SymBlockDiagMatrix, SandwichesOfBlocks) {
  for (const int n : {1, 7, 33}) {
    const auto made = structured::Make(structured::Kind::MixedBlocks, n, 3);
    const auto & s = static_cast<const QVSymBlockDiagMatrix &>(*made);
    QVSymBlockDiagMatrix g = s;
    reference::Random random(5);
    for (int i = 0; i < n; ++i)
      for (int j = 0; j <= i; ++j)
        g.SetElem(i, j, random.Next());
    const auto full = FromSym(s);
    const auto fullG = FromSym(g);
    const auto lower = reference::FromLower(g);
    const auto close = [](const IQVSymMatrix & got, const reference::Full & wanted) {
      EXPECT_LT(structured::Residual(FromSym(got), wanted), reference::kResidualBound);
    };
    QVSymBlockDiagMatrix out;
    ASSERT_TRUE(s.ComputeGSG(g, out));
    EXPECT_TRUE(out.IsSameStructure(s));
    close(out, structured::Product(fullG, full, fullG));
    ASSERT_TRUE(s.ComputeLSLTrans(g, out));
    close(out, structured::Product(lower, full, reference::Transpose(lower)));
    ASSERT_TRUE(s.ComputeLTransSL(g, out, 1));
    close(out, structured::Product(reference::Transpose(lower), full, lower));
    s.ComputeSTransS(out);
    close(out, structured::Product(full, full));
    const QVDiagMatrix d(reference::RandomVector(n, 6));
    const auto fullD = FromSym(d);
    ASSERT_TRUE(s.ComputeGSG(d, out));
    close(out, structured::Product(fullD, full, fullD));
    // Sums of both orders, with blocks and with diagonals, into blocks and into a dense matrix.
    const auto half = structured::Product(fullG, full, full);
    const auto sum = reference::Add(half, reference::Transpose(half));
    ASSERT_TRUE(s.ComputeMGN(g, s, out));
    close(out, sum);
    V work;
    ASSERT_TRUE(s.ComputeGMGNG(g, s, out, work));
    close(out, structured::Product(full, sum, full));
    ASSERT_EQ(work.size(), QVSymMatrix::RowStart(n));
    for (int i = 0; i < n; ++i)
      for (int j = 0; j <= i; ++j)
        EXPECT_NEAR(work[QVSymMatrix::PackedPosition(i, j)], static_cast<double>(sum(i, j)), 1e-12);
    QVSymMatrix dense;
    ASSERT_TRUE(s.ComputeMGN(g, s, dense));
    close(dense, sum);
    ASSERT_TRUE(s.ComputeMGN(d, d, out));
    const auto diagonalSum = structured::Product(fullD, full, fullD);
    close(out, reference::Add(diagonalSum, diagonalSum));
    QVRectMatrix rect;
    ASSERT_TRUE(s.ComputeSS(g, rect));
    EXPECT_LT(structured::Residual(reference::FromRect(rect), structured::Product(full, fullG)),
              reference::kResidualBound);
    // Into an operand.
    QVSymBlockDiagMatrix own = s;
    ASSERT_TRUE(own.ComputeGSG(g, own));
    close(own, structured::Product(fullG, full, fullG));
    own = g;
    ASSERT_TRUE(s.ComputeLSLTrans(own, own));
    close(own, structured::Product(lower, full, reference::Transpose(lower)));
    own = s;
    ASSERT_TRUE(own.ComputeMGN(g, own, own));
    close(own, sum);
    // Traces and rows with operands of any class.
    long double two = 0.0L, three = 0.0L;
    const auto product = structured::Product(full, fullG);
    const auto triple = structured::Product(product, fullD);
    for (int i = 0; i < n; ++i) {
      two += product(i, i);
      three += triple(i, i);
    }
    EXPECT_NEAR(s.TraceOfProduct(g), static_cast<double>(two), 1e-12);
    EXPECT_NEAR(s.TraceOfProductOfThree(g, d), static_cast<double>(three), 1e-12);
    EXPECT_NEAR(s.ComputeRowDotProductS(n / 2, g, n - 1),
                static_cast<double>(product(n / 2, n - 1)), 1e-13);
  }
}

TEST(SymBlockDiagMatrix, SumNeedsTheSameStructure) {
  QVSymBlockDiagMatrix s = Example();
  EXPECT_FALSE(s.ComputeAXpY(1.0, QVSymMatrix(5, true)));
  EXPECT_FALSE(s.ComputeAXpY(1.0, QVDiagMatrix(5, true)));
  EXPECT_FALSE(s.ComputeAXpY(1.0, QVSymBlockDiagMatrix(I{5}, Bits({false}))));
  EXPECT_TRUE(s.ComputeAXpY(2.0, Example()));
  EXPECT_EQ(s.GetElem(1, 0), 6.0);
  EXPECT_EQ(s.GetElem(3, 3), 48.0);
}

TEST(SymBlockDiagMatrix, BadIndexesOfRows) {
  const QVSymBlockDiagMatrix s = Example();
  EXPECT_EQ(s.ComputeDotProduct2Rows(0, 5), 0.0);
  EXPECT_EQ(s.ComputeDotProduct2Rows(-1, 0), 0.0);
  EXPECT_EQ(s.ComputeRVD(5, V(5, 1.0), 1), 0.0);
  EXPECT_EQ(s.ComputeRVD(0, V(4, 1.0), 1), 0.0);
  EXPECT_EQ(s.ComputeRowDotProductS(0, V(3, 1.0), 0), 0.0);
  EXPECT_EQ(s.ComputeRowDotProductS(0, QVSymMatrix(4, true), 0), 0.0);
}

// --- Storage ------------------------------------------------------------------------------------

TEST(SymBlockDiagMatrix, CopiesAreDeep) {
  QVSymBlockDiagMatrix s = Example();
  QVSymBlockDiagMatrix copy = s;
  copy.SetElem(0, 0, 100.0);
  copy.SetElem(2, 2, 100.0);
  EXPECT_EQ(MaxDifference(FromSym(s), FromSym(Example())), 0.0);
  s = copy;
  EXPECT_EQ(s.GetElem(0, 0), 100.0);
}

TEST(SymBlockDiagMatrix, FailedStorage) {
  const QVSymBlockDiagMatrix large(I{100, 100}, Bits({false, true}));
  QVSymMatrix dense(100, true);
  const AllocationLimit limit(5000);
  QVSymBlockDiagMatrix s = Example();
  EXPECT_EQ(s.AddBlock(dense), -1);
  EXPECT_EQ(s.AddBlock(large), -1);
  EXPECT_EQ(s.GetNBlocks(), 3);
  EXPECT_EQ(s.GetNRows(), 5);
  EXPECT_EQ(MaxDifference(FromSym(s), FromSym(Example())), 0.0);
  EXPECT_EQ(s.AddBlock(V{1}), 4);
  const QVSymBlockDiagMatrix copy(large);
  EXPECT_FALSE(copy.IsValidMatrix());
  EXPECT_EQ(copy.GetNBlocks(), -1);
  EXPECT_FALSE(s.SetStructure({100}, Bits({false})));
  EXPECT_EQ(s.GetNRows(), -1);
  EXPECT_FALSE(s.Resize(1000));
  EXPECT_TRUE(s.SetStructure({2}, Bits({false})));
  EXPECT_TRUE(s.IsValidMatrix());
}

TEST(SymBlockDiagMatrix, OrderBeyondAnInt) {
  QVSymBlockDiagMatrix s;
  const int huge = std::numeric_limits<int>::max();
  const AllocationLimit limit(1000000);
  EXPECT_FALSE(s.SetStructure({huge, huge}, Bits({true, true})));
  EXPECT_FALSE(s.IsValidMatrix());
}

TEST(SymBlockDiagMatrix, InvalidMatrixFindsNoRows) {
  QVSymBlockDiagMatrix s(I{}, Bits({true}));
  EXPECT_FALSE(s.IsValidMatrix());
  V v;
  QVSymMatrix out;
  EXPECT_FALSE(s.ComputeSV(V(), v));
  EXPECT_FALSE(s.GetRow(0, v));
  EXPECT_EQ(s.Trace(), 0.0);
  EXPECT_FALSE(s.ComputeGSG(out, out));
  EXPECT_EQ(s.CholInverse(v, 0.1, out), -1);
  EXPECT_EQ(s.TraceOfProduct(out), 0.0);
  s.Clear();
  s.AddToDiagonal(1.0);
}

TEST(SymBlockDiagMatrix, Display) {
  const DisplayCapture capture;
  const QVSymBlockDiagMatrix s = Example();
  s.Display();
  EXPECT_EQ(capture.Text(),
            "\nQVSymBlockDiagMatrix display start"
            "\nThe number of rows = 5"
            "\nThe number of blocks = 3"
            "\nBlock number = 0"
            "\nStart index = 0"
            "\nThe block size = 2"
            "\nLower triangular (number of elements = 3, number of rows = 2)"
            "\nrow  0:  4"
            "\nrow  1:  2 5"
            "\nBlock number = 1"
            "\nStart index = 2"
            "\nThe block size = 2"
            "\nDiagonal (size = 2)"
            "\n 9 16"
            "\nBlock number = 2"
            "\nStart index = 4"
            "\nThe block size = 1"
            "\nLower triangular (number of elements = 1, number of rows = 1)"
            "\nrow  0:  25"
            "\nQVSymBlockDiagMatrix display end");
}

TEST(SymBlockDiagMatrix, DisplayFull) {
  const DisplayCapture capture;
  QVSymBlockDiagMatrix s;
  s.AddBlock(Sym({{4}, {2, 5}}));
  s.AddBlock(V{9});
  s.DisplayF();
  EXPECT_EQ(capture.Text(),
            "\nQVSymBlockDiagMatrix full matrix display start"
            "\nNumber of rows = 3"
            "\nrow 0:  4 2 0"
            "\nrow 1:  2 5 0"
            "\nrow 2:  0 0 9"
            "\nQVSymBlockDiagMatrix display end");
}

}  // namespace
