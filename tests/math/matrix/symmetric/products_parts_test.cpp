// Traces, products on parts and with block-diagonal matrices, dot products of parts of rows and
// columns, updates of a corner, spreading and copying: against naive full matrices, and their
// refusals.
#include <cmath>
#include <limits>
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
using QVCommon_940::QVMV;
using QVMath_940::QVBitSet;
using QVMath_940::QVRectMatrix;
using QVMath_940::QVSymMatrix;
using Vector = std::vector<double>;

std::vector<int> Range(int start, int count) {
  std::vector<int> range;
  for (int i = 0; i < count; ++i)
    range.push_back(start + i);
  return range;
}

double Dot(const Vector & a, const Vector & b) {
  long double sum = 0.0L;
  for (std::size_t i = 0; i < a.size() && i < b.size(); ++i)
    sum += static_cast<long double>(a[i]) * b[i];
  return static_cast<double>(sum);
}

class PartProducts : public ::testing::TestWithParam<int> {
 protected:
  const int n = GetParam();
  const QVSymMatrix s = RandomSym(n, 1);
  const Full full = FromSym(s);
  // A part in the middle, of a third of the order, and another one.
  const int size = n / 3;
  const int start = n / 4;
  const int otherSize = n / 2;
  const int otherStart = n - n / 2;
  const QVSymMatrix l = RandomSym(size, 2);
  const Full lower = FromLower(l);
  const Full block = Part(full, Range(start, size), Range(start, size));

  void ExpectNumber(double got, double wanted) { EXPECT_NEAR(got, wanted, (1.0 + n) * 1e-13); }
  static void ExpectClose(const Full & got, const Full & wanted) {
    EXPECT_LT(ScaledResidual(got, wanted), kResidualBound);
  }
  static double TraceOf(const Full & a) {
    long double trace = 0.0L;
    for (int i = 0; i < a.Rows(); ++i)
      trace += a(i, i);
    return static_cast<double>(trace);
  }
};

// --- Traces -------------------------------------------------------------------------------------

TEST_P(PartProducts, Traces) {
  const QVSymMatrix a = RandomSym(n, 3);
  const QVSymMatrix b = RandomSym(n, 4);
  const double bound = (1.0 + n * std::sqrt(n)) * 1e-12;
  EXPECT_NEAR(s.TraceOfProduct(a), TraceOf(Multiply(full, FromSym(a))), bound);
  EXPECT_NEAR(s.TraceOfProductOfThree(a, b),
              TraceOf(Multiply(Multiply(full, FromSym(a)), FromSym(b))), bound * std::sqrt(n + 1));
  EXPECT_NEAR(s.TraceOfProductSubSym(l, start), TraceOf(Multiply(block, FromSym(l))), bound);
  const QVRectMatrix r = RandomRect(n + 2, n + 3, 5);
  EXPECT_NEAR(s.TraceOfProductSubMatSym(r, 2, 1),
              TraceOf(Multiply(Part(FromRect(r), Range(2, n), Range(1, n)), full)), bound);
}

// --- Products on parts --------------------------------------------------------------------------

TEST_P(PartProducts, PartsTimesVectors) {
  const Vector v = RandomVector(size, 5);
  const Vector w = RandomVector(otherSize, 6);
  Vector out = {1.0};
  ASSERT_TRUE(s.SubSymSV(start, size, v, out));
  ExpectClose(FromVector(out), Multiply(block, FromVector(v)));
  const Full part = Part(full, Range(otherStart, otherSize), Range(start, size));
  ASSERT_TRUE(s.SubSymRectV(otherStart, otherSize, start, size, v, out));
  ExpectClose(FromVector(out), Multiply(part, FromVector(v)));
  Vector own = v;
  ASSERT_TRUE(s.SubSymRectV(otherStart, otherSize, start, size, own, own));
  EXPECT_TRUE(SameBits(own, out));
  ASSERT_TRUE(s.SubSymRectTV(otherStart, otherSize, start, size, w, out));
  ExpectClose(FromVector(out), Multiply(Transpose(part), FromVector(w)));
}

TEST_P(PartProducts, PartsTimesAFactor) {
  QVRectMatrix out(1, 1, true);
  ASSERT_TRUE(s.SubSymSBlockL(start, l, out));
  ExpectClose(FromRect(out), Multiply(block, lower));
  const Full part = Part(full, Range(start, size), Range(otherStart, otherSize));
  ASSERT_TRUE(s.SubSymRectTBlockL(start, otherStart, otherSize, OneBlock(l), out));
  ExpectClose(FromRect(out), Multiply(Transpose(part), lower));
  for (int i = 0; i < n; i += 1 + n / 5) {
    Vector row;
    ASSERT_TRUE(s.SubSymVectBlockL(i, start, l, row));
    ExpectClose(Transpose(FromVector(row)), Multiply(Part(full, {i}, Range(start, size)), lower));
  }
  QVSymMatrix both;
  ASSERT_TRUE(s.SubSymBlockLTSBlockL(start, l, both));
  ExpectClose(FromSym(both), Multiply(Multiply(Transpose(lower), block), lower));
}

TEST_P(PartProducts, BorderedProductWithAFactor) {
  Full m = Identity(n);
  for (int i = 0; i < size; ++i)
    for (int j = 0; j <= i; ++j)
      m(i, j) = lower(i, j);
  QVSymMatrix out;
  ASSERT_TRUE(s.AugmentUsingBlockDiagL(l, out));
  ExpectClose(FromSym(out), Multiply(Multiply(Transpose(m), full), m));
  QVSymMatrix own = s;
  ASSERT_TRUE(own.AugmentUsingBlockDiagL(l, own));
  EXPECT_TRUE(SameBits(own.AsVector(), out.AsVector()));
}

TEST_P(PartProducts, RowsAroundABlockDiagonalMatrix) {
  const QVSymMatrix whole = RandomSym(n, 3);
  const Full wanted = Multiply(Multiply(full, FromSym(whole)), full);
  const Full part = Part(full, Range(0, n), Range(start, size));
  const Full wantedPart = Multiply(Multiply(part, FromSym(l)), Transpose(part));
  const Vector w = RandomVector(size, 4);
  for (int i = 0; i < n; i += 1 + n / 4)
    for (int j = 0; j < n; j += 1 + n / 3) {
      ExpectNumber(s.ComputeVBW(i, whole, j), static_cast<double>(wanted(i, j)));
      ExpectNumber(s.ComputeVBW(i, start, l, j), static_cast<double>(wantedPart(i, j)));
      const Full form =
          Multiply(Multiply(Part(part, {i}, Range(0, size)), FromSym(l)), FromVector(w));
      ExpectNumber(s.ComputeVBW(i, start, l, w), size > 0 ? static_cast<double>(form(0, 0)) : 0.0);
    }
  QVSymMatrix out;
  ASSERT_TRUE(s.ComputeSSubBSSub(start, OneBlock(l), out));
  ExpectClose(FromSym(out), Multiply(Multiply(block, FromSym(l)), block));
  ASSERT_TRUE(s.ComputeSSubBSSub(otherStart, otherSize, start, l, out));
  const Full rect = Part(full, Range(otherStart, otherSize), Range(start, size));
  ExpectClose(FromSym(out), Multiply(Multiply(rect, FromSym(l)), Transpose(rect)));
}

// --- Dot products of parts ----------------------------------------------------------------------

TEST_P(PartProducts, DotProductsOfRowsAndColumns) {
  const Vector packed = RandomVector(n * (n + 1) / 2, 7);
  QVSymMatrix other(n, true);
  other.AsVector() = packed;
  double result = 0.0;
  for (int j = 0; j < n; j += 1 + n / 4)
    for (int i = j; i < n; i += 1 + n / 3) {
      const int count = i - j + 1;
      const Vector v = RandomVector(count, 8);
      Vector rowOfL, columnOfL, rowOfS, column;
      for (int k = j; k <= i; ++k) {
        rowOfL.push_back(s.GetElem(i, k));
        columnOfL.push_back(s.GetElem(k, j));
        rowOfS.push_back(other.GetElem(i, k));
        column.push_back(other.GetElem(k, j));
      }
      ASSERT_TRUE(s.ComputeDotLRowVecPart(i, j, count, v, result));
      ExpectNumber(result, Dot(rowOfL, v));
      ASSERT_TRUE(s.ComputeDotLColVecPart(j, j, count, v, result));
      ExpectNumber(result, Dot(columnOfL, v));
      ASSERT_TRUE(s.DotLColRowPart(j, i, j, count, result));
      ExpectNumber(result, Dot(columnOfL, rowOfL));
      ASSERT_TRUE(s.DotProductLColRowPart(j, other, i, j, count, result));
      ExpectNumber(result, Dot(columnOfL, rowOfS));
      // Down column j of a packed triangle the first step from row j is j + 1.
      const double * const top = packed.data() + QVSymMatrix::PackedPosition(j, j);
      ASSERT_TRUE(s.ComputeDotLColVecIIncrPart(j, j, count, top, j + 1, result));
      ExpectNumber(result, Dot(columnOfL, column));
      ASSERT_TRUE(s.ComputeDotColVecIIncrPart(j, j, count, top, j + 1, result));
      ExpectNumber(result, Dot(columnOfL, column));
    }
}

TEST_P(PartProducts, DotProductsWithWholeSymmetricRows) {
  const QVSymMatrix other = RandomSym(n, 9);
  double result = 0.0;
  for (int i = 0; i < n; i += 1 + n / 6) {
    const double * const row = other.AsVector().data() + QVSymMatrix::RowStart(i);
    for (int j = 0; j < n; j += 1 + n / 5) {
      ASSERT_TRUE(s.DotRowVecDelayedIIncrPart(j, 0, n, row, i, i + 1, result));
      ExpectNumber(result, s.ComputeRowDotProductS(j, other, i));
      Vector part, column;
      for (int k = j; k < n; ++k) {
        part.push_back(other.GetElem(i, k));
        column.push_back(s.GetElem(k, j));
      }
      // From column j on: the row goes on singly up to its diagonal element.
      const int delay = std::max(i - j, 0);
      const int stride = std::max(i, j) + 1;
      const double * const from = other.AsVector().data() + QVSymMatrix::PackedPosition(i, j);
      ASSERT_TRUE(s.DotLColVecDelayedIIncrPart(j, j, n - j, from, delay, stride, result));
      ExpectNumber(result, Dot(part, column));
    }
    Vector below;
    for (int k = i; k < n; ++k)
      below.push_back(s.GetElem(k, i));
    Vector otherBelow;
    ASSERT_TRUE(other.GetPCol(i, otherBelow));
    ASSERT_TRUE(s.ComputeDotLColVecIIncrDiag(
        i, other.AsVector().data() + QVSymMatrix::PackedPosition(i, i), i + 1, result));
    ExpectNumber(result, Dot(below, otherBelow));
  }
}

TEST_P(PartProducts, ColumnsOfABlockFactorByRows) {
  double result = 0.0;
  for (int i = 0; i < n; i += 1 + n / 5) {
    for (int j = 0; j < size; j += 1 + size / 3) {
      const Full wanted = Multiply(Part(full, {i}, Range(start, size)), lower);
      ASSERT_TRUE(s.DotProductLBlockColRow(l, j, i, start, result));
      ExpectNumber(result, static_cast<double>(wanted(0, j)));
    }
    for (int order : {1, 3, n}) {
      if (order < 1 || n % order != 0) continue;
      const QVSymMatrix repeated = RandomSym(order, 4);
      for (int j = 0; j < n; j += 1 + n / 3) {
        long double wanted = 0.0L;
        for (int k = j; k < j - j % order + order; ++k)
          wanted +=
              static_cast<long double>(repeated.GetElem(k % order, j % order)) * s.GetElem(i, k);
        ASSERT_TRUE(s.DotProductLBlockDiagColRow(repeated, j, i, result));
        ExpectNumber(result, static_cast<double>(wanted));
      }
    }
  }
}

TEST_P(PartProducts, VectorsTimesABlockOfL) {
  const Vector v = RandomVector(size, 5);
  const Full ownLower = [&] {
    Full part = block;
    for (int i = 0; i < size; ++i)
      for (int j = i + 1; j < size; ++j)
        part(i, j) = 0.0L;
    return part;
  }();
  Vector out;
  ASSERT_TRUE(s.ComputeVecPartByL(v, start, size, out));
  ExpectClose(FromVector(out), Multiply(Transpose(ownLower), FromVector(v)));
  Vector walk(At(size * (size + 5) / 2 + 1), 0.0);
  for (int i = 0, place = 0; i < size; place += 2 + i, ++i)
    walk[At(place)] = v[At(i)];
  Vector again;
  ASSERT_TRUE(s.ComputeVecIIncPartByL(walk.data(), 2, start, size, again));
  EXPECT_TRUE(SameBits(again, out));
}

// --- Updates of a part --------------------------------------------------------------------------

TEST_P(PartProducts, UpdatesOfACorner) {
  const Vector x = RandomVector(size, 5);
  const auto expectUpdated = [&](const QVSymMatrix & got, int first, const Vector & left,
                                 const Vector & right) {
    Full wanted = full;
    for (std::size_t i = 0; i < left.size(); ++i)
      for (std::size_t j = 0; j <= i; ++j) {
        const int row = first + static_cast<int>(i);
        const int col = first + static_cast<int>(j);
        wanted(row, col) += 0.7L * left[i] * right[j];
        wanted(col, row) = wanted(row, col);
      }
    ExpectClose(FromSym(got), wanted);
  };
  QVSymMatrix got = s;
  ASSERT_TRUE(got.UpdateXXCornerBlock(x, 0.7));
  expectUpdated(got, 0, x, x);
  got = s;
  ASSERT_TRUE(got.UpdateXXCornerBlock(start, x, 0.7));
  expectUpdated(got, start, x, x);
  got = s;
  std::vector<int> rows;
  Vector values, whole(At(size), 0.0);
  for (int i = size - 1; i >= 0; i -= 2) {
    rows.push_back(i);
    values.push_back(x[At(i)]);
    whole[At(i)] = x[At(i)];
  }
  ASSERT_TRUE(got.UpdateXXCornerSparse(size, rows, values, 0.7));
  expectUpdated(got, 0, whole, whole);
  // Two matrices of one row each, then of two rows.
  const QVRectMatrix a = RandomRect(1, size, 6);
  const QVRectMatrix b = RandomRect(1, size, 7);
  Vector rowA, rowB;
  a.GetRow(0, rowA);
  b.GetRow(0, rowB);
  got = s;
  ASSERT_TRUE(got.UpdateXXMat2(a, b, 0.7));
  expectUpdated(got, 0, rowA, rowB);
  const QVRectMatrix twice = RandomRect(2, size, 8);
  got = s;
  ASSERT_TRUE(got.UpdateXXMat2(twice, twice, 0.7));
  QVSymMatrix byCases = s;
  for (int r : {0, 1}) {
    twice.GetRow(r, rowA);
    ASSERT_TRUE(byCases.UpdateXXCornerBlock(rowA, 0.7));
  }
  EXPECT_TRUE(SameBits(got.AsVector(), byCases.AsVector()));
}

// --- Spreading and copying ----------------------------------------------------------------------

TEST_P(PartProducts, Spreading) {
  QVBitSet marked(2 * n + 1);
  for (int i = 0; i < n; ++i)
    marked.Set(2 * i + 1, true);
  QVRectMatrix index(2 * n + 1, n, true);
  for (int i = 0; i < n; ++i)
    index.SetElem(2 * i + 1, i, 1.0);
  const Full wanted = Multiply(Multiply(FromRect(index), full), Transpose(FromRect(index)));
  QVSymMatrix out = RandomSym(4, 3);
  ASSERT_TRUE(s.Expand(marked, out));
  EXPECT_EQ(MaxDifference(FromSym(out), wanted), 0.0);
  QVSymMatrix own = s;
  ASSERT_TRUE(own.Expand(marked, own));
  EXPECT_TRUE(SameBits(own.AsVector(), out.AsVector()));
  if (n > 0) {  // a sparse matrix has at least one column
    ASSERT_TRUE(s.ExpandSym(FullCells(index), own));
    EXPECT_TRUE(SameBits(own.AsVector(), out.AsVector()));
  }
  QVRectMatrix rect;
  ASSERT_TRUE(s.ExpandSymToRect(index, rect));
  EXPECT_EQ(MaxDifference(FromRect(rect), wanted), 0.0);
  // A row spread twice.
  if (n < 2) return;
  QVRectMatrix twice(3, n, true);
  for (int i : {0, 2})
    twice.SetElem(i, 1, 1.0);
  ASSERT_TRUE(s.ExpandSym(twice, out));
  EXPECT_EQ(out.GetElem(2, 0), s.GetElem(1, 1));
  EXPECT_EQ(out.GetElem(1, 0), 0.0);
}

TEST_P(PartProducts, PartsInRectangularTargets) {
  QVRectMatrix out(1, 1, true);
  ASSERT_TRUE(s.ExtractBlockInLowTriangular(otherStart, otherSize, 0, size, out));
  EXPECT_EQ(MaxDifference(FromRect(out), Part(full, Range(otherStart, otherSize), Range(0, size))),
            0.0);
  for (int i = 0; i < n; i += 1 + n / 3) {
    QVRectMatrix r(n, 3, true);
    ASSERT_TRUE(s.CopyRowToRColumn(i, 1, r));
    EXPECT_EQ(MaxDifference(Part(FromRect(r), Range(0, n), {1}), Part(full, Range(0, n), {i})),
              0.0);
    EXPECT_EQ(r.GetElem(n - 1, 2), 0.0);
    Vector column;
    ASSERT_TRUE(s.GetPCol(i, column));
    EXPECT_EQ(MaxDifference(FromVector(column), Part(full, Range(i, n - i), {i})), 0.0);
    ASSERT_TRUE(s.GetPCol(i, r));
    EXPECT_EQ(MaxDifference(FromRect(r), FromVector(column)), 0.0);
  }
}

INSTANTIATE_TEST_SUITE_P(Orders, PartProducts, ::testing::ValuesIn(OrdersWithBlocks()));

TEST(ExtractH, ReadsTheCoefficientsOfASweptMatrix) {
  // Variable 2 is variable 0 plus twice variable 1.
  QVSymMatrix s(4, true);
  for (const Vector & x :
       std::vector<Vector>{{1, 0, 1, 3}, {0, 1, 2, 1}, {1, 1, 3, 2}, {2, 1, 4, 5}})
    s.UpdateXX(x, 1.0);
  QVBitSet swept;
  double logDet;
  ASSERT_TRUE(s.SweepOnMany(3, 1e-10, true, swept, logDet, true, nullptr));
  swept = swept.GetSubset(0, 2);
  ASSERT_EQ(swept.InSet(), 2);
  QVRectMatrix h;
  ASSERT_TRUE(s.ExtractH(swept, h));
  const Full wanted = FromRect(Rect({{1, 0, 1}, {0, 1, 2}, {0, 0, 0}}));
  EXPECT_LT(MaxDifference(FromRect(h), wanted), 1e-12);
  EXPECT_FALSE(s.ExtractH(QVBitSet(5), h));
  EXPECT_EQ(h.GetNRows(), 3);
}

// --- Refusals -----------------------------------------------------------------------------------

class PartRefusals : public ::testing::Test {
 protected:
  const QVSymMatrix s = RandomSym(4, 1);
  const QVSymMatrix l = RandomSym(2, 2);
  const QVSymMatrix larger = RandomSym(5, 3);
  const DiagonalMatrix diagonal{Vector(4, 2.0)};
  const Vector two = {1.0, 2.0};
  QVSymMatrix out = RandomSym(4, 9);
  const QVSymMatrix before = out;
  QVRectMatrix rect = RandomRect(4, 3, 9);
  const QVRectMatrix rectBefore = rect;
  Vector v = {5.0};
  double result = 3.0;
  static constexpr int kMost = std::numeric_limits<int>::max();

  void TearDown() override {
    EXPECT_TRUE(SameBits(out.AsVector(), before.AsVector()));
    EXPECT_TRUE(SameBits(rect.AsVector(), rectBefore.AsVector()));
    EXPECT_TRUE(SameBits(v, Vector(1, 5.0)));
    EXPECT_EQ(result, 3.0);
  }
};

TEST_F(PartRefusals, Traces) {
  EXPECT_TRUE(QVMV::IsMissing(s.TraceOfProduct(diagonal)));
  EXPECT_EQ(s.TraceOfProduct(larger), 0.0);
  EXPECT_EQ(s.TraceOfProduct(DiagonalMatrix(Vector(3, 1.0))), 0.0);  // the sizes come first
  EXPECT_EQ(QVSymMatrix().TraceOfProduct(QVSymMatrix()), 0.0);
  EXPECT_TRUE(QVMV::IsMissing(s.TraceOfProductOfThree(diagonal, s)));
  EXPECT_TRUE(QVMV::IsMissing(s.TraceOfProductOfThree(s, diagonal)));
  EXPECT_EQ(s.TraceOfProductOfThree(larger, s), 0.0);
  EXPECT_EQ(s.TraceOfProductOfThree(s, larger), 0.0);
  EXPECT_EQ(s.TraceOfProductSubSym(l, 3), 0.0);
  EXPECT_EQ(s.TraceOfProductSubSym(l, -1), 0.0);
  EXPECT_EQ(s.TraceOfProductSubSym(larger, 0), 0.0);
  EXPECT_TRUE(QVMV::IsMissing(s.TraceOfProductSubSym(DiagonalMatrix(two), 0)));
  const QVRectMatrix r = RandomRect(5, 5, 1);
  EXPECT_EQ(s.TraceOfProductSubMatSym(r, 2, 0), 0.0);
  EXPECT_EQ(s.TraceOfProductSubMatSym(r, 0, 2), 0.0);
  EXPECT_EQ(s.TraceOfProductSubMatSym(r, -1, 0), 0.0);
  EXPECT_EQ(s.TraceOfProductSubMatSym(r, 0, -1), 0.0);
}

TEST_F(PartRefusals, Parts) {
  EXPECT_FALSE(s.SubSymSV(3, 2, two, v));
  EXPECT_FALSE(s.SubSymSV(-1, 2, two, v));
  EXPECT_FALSE(s.SubSymSV(kMost, 2, two, v));
  EXPECT_FALSE(s.SubSymSV(0, 3, two, v));
  EXPECT_FALSE(s.SubSymRectV(0, 5, 0, 2, two, v));
  EXPECT_FALSE(s.SubSymRectV(0, -1, 0, 2, two, v));
  EXPECT_FALSE(s.SubSymRectTV(0, 2, 3, 2, two, v));
  EXPECT_FALSE(s.SubSymRectTV(0, 3, 0, 2, two, v));
  EXPECT_FALSE(s.SubSymVectBlockL(4, 0, l, v));
  EXPECT_FALSE(s.SubSymVectBlockL(0, 3, l, v));
  EXPECT_FALSE(s.SubSymSBlockL(3, l, rect));
  EXPECT_FALSE(s.SubSymSBlockL(0, larger, rect));
  EXPECT_FALSE(s.SubSymRectTBlockL(0, 0, 5, l, rect));
  EXPECT_FALSE(s.SubSymBlockLTSBlockL(-1, l, out));
  DiagonalMatrix notDense(two);
  EXPECT_FALSE(s.SubSymBlockLTSBlockL(0, l, notDense));
  EXPECT_FALSE(s.AugmentUsingBlockDiagL(larger, out));
  EXPECT_FALSE(s.AugmentUsingBlockDiagL(l, notDense));
  EXPECT_EQ(s.ComputeVBW(0, l, 0), 0.0);
  EXPECT_EQ(s.ComputeVBW(4, s, 0), 0.0);
  EXPECT_EQ(s.ComputeVBW(0, s, -1), 0.0);
  EXPECT_EQ(s.ComputeVBW(0, 3, l, 0), 0.0);
  EXPECT_EQ(s.ComputeVBW(0, 0, l, Vector(3, 1.0)), 0.0);
  EXPECT_FALSE(s.ComputeSSubBSSub(3, l, out));
  EXPECT_FALSE(s.ComputeSSubBSSub(0, 5, 0, l, out));
  EXPECT_FALSE(s.ComputeSSubBSSub(0, l, notDense));
}

TEST_F(PartRefusals, DotProducts) {
  const double * const values = s.AsVector().data();
  EXPECT_FALSE(s.ComputeDotLRowVecPart(1, 0, 3, Vector(3, 1.0), result));  // past the diagonal
  EXPECT_FALSE(s.ComputeDotLRowVecPart(4, 0, 2, two, result));
  EXPECT_FALSE(s.ComputeDotLRowVecPart(3, 0, 3, two, result));
  EXPECT_FALSE(s.ComputeDotLRowVecPart(3, -1, 2, two, result));
  EXPECT_FALSE(s.ComputeDotLColVecPart(2, 1, 2, two, result));  // above the diagonal
  EXPECT_FALSE(s.ComputeDotLColVecPart(0, 3, 2, two, result));
  EXPECT_FALSE(s.ComputeDotLColVecPart(0, 0, 3, two, result));
  EXPECT_FALSE(s.ComputeDotLColVecPart(-1, 0, 2, two, result));
  EXPECT_FALSE(s.ComputeDotLColVecIIncrPart(2, 1, 1, values, 1, result));
  EXPECT_FALSE(s.ComputeDotLColVecIIncrPart(0, 0, 2, nullptr, 1, result));
  EXPECT_FALSE(s.ComputeDotLColVecIIncrDiag(4, values, 1, result));
  EXPECT_FALSE(s.DotLColVecDelayedIIncrPart(0, 0, 2, values, -1, 1, result));
  EXPECT_FALSE(s.DotLColVecDelayedIIncrPart(0, 0, 5, values, 0, 1, result));
  EXPECT_FALSE(s.DotLColRowPart(0, 1, 0, 3, result));
  EXPECT_FALSE(s.DotLColRowPart(0, 4, 0, 1, result));
  EXPECT_FALSE(s.DotProductLColRowPart(0, l, 2, 0, 2, result));
  EXPECT_FALSE(s.DotProductLColRowPart(0, l, 1, 1, 2, result));
  EXPECT_FALSE(s.ComputeDotColVecIIncrPart(4, 0, 1, values, 1, result));
  EXPECT_FALSE(s.ComputeDotColVecIIncrPart(0, 2, 3, values, 1, result));
  EXPECT_FALSE(s.DotRowVecDelayedIIncrPart(0, 0, 2, nullptr, 0, 1, result));
  EXPECT_FALSE(s.DotRowVecDelayedIIncrPart(-1, 0, 2, values, 0, 1, result));
  EXPECT_FALSE(s.DotProductLBlockColRow(l, 2, 0, 0, result));
  EXPECT_FALSE(s.DotProductLBlockColRow(l, 0, 4, 0, result));
  EXPECT_FALSE(s.DotProductLBlockColRow(l, 0, 0, 3, result));
  EXPECT_FALSE(s.DotProductLBlockDiagColRow(RandomSym(3, 1), 0, 0, result));
  EXPECT_FALSE(s.DotProductLBlockDiagColRow(l, 4, 0, result));
  EXPECT_FALSE(s.DotProductLBlockDiagColRow(QVSymMatrix(), 0, 0, result));
  EXPECT_FALSE(s.ComputeVecPartByL(two, 3, 2, v));
  EXPECT_FALSE(s.ComputeVecPartByL(two, 0, 3, v));
  EXPECT_FALSE(s.ComputeVecIIncPartByL(nullptr, 1, 0, 2, v));
  EXPECT_FALSE(s.ComputeVecIIncPartByL(values, 1, 0, -1, v));
}

TEST_F(PartRefusals, Updates) {
  using Rows = std::vector<int>;
  EXPECT_FALSE(out.UpdateXXCornerBlock(Vector(5, 1.0), 1.0));
  EXPECT_FALSE(out.UpdateXXCornerBlock(two, 0.0));
  EXPECT_FALSE(out.UpdateXXCornerBlock(two, std::nan("")));
  EXPECT_FALSE(out.UpdateXXCornerBlock(3, two, 1.0));
  EXPECT_FALSE(out.UpdateXXCornerBlock(-1, two, 1.0));
  EXPECT_FALSE(out.UpdateXXCornerSparse(2, Rows{0, 2}, two, 1.0));
  EXPECT_FALSE(out.UpdateXXCornerSparse(5, Rows{0, 1}, two, 1.0));
  EXPECT_FALSE(out.UpdateXXCornerSparse(2, Rows{0}, two, 1.0));
  EXPECT_FALSE(out.UpdateXXCornerSparse(2, Rows{0, 1}, two, -1.0));
  EXPECT_FALSE(out.UpdateXXMat2(RandomRect(2, 3, 1), RandomRect(2, 4, 1), 1.0));
  EXPECT_FALSE(out.UpdateXXMat2(RandomRect(2, 3, 1), RandomRect(1, 3, 1), 1.0));
  EXPECT_FALSE(out.UpdateXXMat2(RandomRect(2, 5, 1), RandomRect(2, 5, 1), 1.0));
  EXPECT_FALSE(out.UpdateXXMat2(RandomRect(2, 3, 1), RandomRect(2, 3, 1), 0.0));
}

TEST_F(PartRefusals, Reshaping) {
  QVBitSet three(6);
  three.SetRange(0, 2, true);
  EXPECT_FALSE(s.Expand(three, out));
  EXPECT_FALSE(s.Expand(QVBitSet(3), out));
  EXPECT_FALSE(s.ExpandSym(RandomRect(2, 4, 1), out));  // neither 0.0 nor 1.0
  QVRectMatrix index(2, 4, true);
  index.SetElem(0, 1, 1.0);
  index.SetElem(0, 3, 1.0);
  EXPECT_FALSE(s.ExpandSym(index, out));  // two in a row
  EXPECT_FALSE(s.ExpandSymToRect(index, rect));
  EXPECT_FALSE(s.ExpandSym(QVRectMatrix(2, 3, true), out));
  EXPECT_FALSE(s.ExpandSymToRect(QVRectMatrix(2, 5, true), rect));
  EXPECT_FALSE(s.ExtractBlockInLowTriangular(1, 2, 0, 3, rect));  // reaches above the diagonal
  EXPECT_FALSE(s.ExtractBlockInLowTriangular(3, 2, 0, 1, rect));
  EXPECT_FALSE(s.ExtractBlockInLowTriangular(-1, 2, 0, 1, rect));
  EXPECT_FALSE(s.CopyRowToRColumn(4, 0, rect));
  EXPECT_FALSE(s.CopyRowToRColumn(0, 3, rect));
  QVRectMatrix shorter(3, 3, true);
  EXPECT_FALSE(s.CopyRowToRColumn(0, 0, shorter));
  EXPECT_FALSE(s.GetPCol(4, v));
  EXPECT_FALSE(s.GetPCol(-1, rect));
}

}  // namespace
