// Every operation of IQVRectMatrix that the sparse class shares with the dense one, on both,
// against naive full matrices and against each other.
#include <cmath>
#include <string>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include "QVMV.h"
#include "math/matrix/structured/structured_matrices.h"

namespace {

using QVMath_940::IQVRectMatrix;
using QVMath_940::QVBitSet;
using QVMath_940::QVRectMatrix;
using QVMath_940::QVSparseRectMatrix;
using QVMath_940::QVSparseVector;
using reference::At;
using reference::FromRect;
using reference::FromVector;
using reference::Full;
using reference::kResidualBound;
using reference::MaxDifference;
using reference::RandomVector;
using reference::Transpose;
using structured::Product;
using structured::RandomSparse;
using structured::Residual;
using I = std::vector<int>;
using V = std::vector<double>;

#define EXPECT_CLOSE(got, wanted) EXPECT_LT(Residual(got, wanted), kResidualBound)

using Shape = std::tuple<int, int, int>;  // rows, columns, cells a row

class RectOperations : public testing::TestWithParam<Shape> {
 protected:
  RectOperations()
      : rows(std::get<0>(GetParam())),
        cols(std::get<1>(GetParam())),
        nnz(std::get<2>(GetParam())),
        sparse(RandomSparse(rows, cols, nnz, static_cast<unsigned>(rows * 7 + cols))),
        dense(structured::DenseOf(sparse)),
        full(FromRect(sparse)) {}

  template <class Body>
  void OnBoth(Body body) {
    {
      SCOPED_TRACE("sparse");
      body(static_cast<IQVRectMatrix &>(sparse));
    }
    {
      SCOPED_TRACE("filled dense");
      body(static_cast<IQVRectMatrix &>(dense));
    }
  }
  // A sparse target with room for `cells` cells a row.
  static QVSparseRectMatrix Target(int cells) { return {1, std::max(cells, 1), cells}; }

  int rows, cols, nnz;
  QVSparseRectMatrix sparse;
  QVRectMatrix dense;
  Full full;
};

TEST_P(RectOperations, ElementsRowsAndColumns) {
  OnBoth([&](const IQVRectMatrix & r) {
    EXPECT_TRUE(r.IsValidMatrix());
    EXPECT_EQ(r.GetNRows(), rows);
    EXPECT_EQ(r.GetNCols(), cols);
    V v;
    for (int i = 0; i < rows; ++i) {
      ASSERT_TRUE(r.GetRow(i, v));
      ASSERT_EQ(v.size(), At(cols));
      long double norm = 0.0L;
      for (int j = 0; j < cols; ++j) {
        EXPECT_EQ(v[At(j)], dense.GetElem(i, j));
        EXPECT_EQ(r.GetElem(i, j), dense.GetElem(i, j));
        norm += full(i, j) * full(i, j);
      }
      EXPECT_NEAR(r.RowNorm(i), static_cast<double>(std::sqrt(norm)), 1e-13);
      EXPECT_FALSE(r.IsRowZero(i));
    }
    for (int j = 0; j < cols; ++j) {
      ASSERT_TRUE(r.GetCol(j, v));
      ASSERT_EQ(v.size(), At(rows));
      long double norm = 0.0L;
      for (int i = 0; i < rows; ++i) {
        EXPECT_EQ(v[At(i)], dense.GetElem(i, j));
        norm += full(i, j) * full(i, j);
      }
      EXPECT_NEAR(r.ColNorm(j), static_cast<double>(std::sqrt(norm)), 1e-13);
      V longer(At(rows) + 2, 7.0);
      ASSERT_TRUE(r.CopyColToVec(j, longer));
      EXPECT_EQ(longer.size(), At(rows) + 2);
      EXPECT_EQ(longer.back(), 7.0);
      longer.resize(At(rows));
      EXPECT_EQ(longer, v);
      V sums(At(rows) + 1, 1.0);
      if (rows > 0) {
        ASSERT_TRUE(r.IncrVecByColumn(j, sums, 1, rows, 2.0, true));
        for (int i = 0; i < rows; ++i)
          EXPECT_EQ(sums[At(i) + 1], 1.0 + 2.0 * v[At(i)]);
      }
    }
    EXPECT_FALSE(r.GetRow(-1, v));
    EXPECT_FALSE(r.GetRow(rows, v));
    EXPECT_FALSE(r.GetCol(-1, v));
    EXPECT_FALSE(r.GetCol(cols, v));
    EXPECT_FALSE(r.CopyColToVec(cols, v));
    EXPECT_FALSE(r.IsRowZero(rows));
    EXPECT_TRUE(QVCommon_940::QVMV::IsMissing(r.RowNorm(rows)));
    EXPECT_TRUE(QVCommon_940::QVMV::IsMissing(r.ColNorm(-1)));
    EXPECT_FALSE(r.IncrVecByColumn(cols, v, 0, 1, 1.0, true));
    EXPECT_FALSE(r.IncrVecByColumn(0, v, 0, 0, 1.0, true));
    EXPECT_FALSE(r.IncrVecByColumn(0, v, 0, rows + 1, 1.0, true));
    EXPECT_FALSE(r.IncrVecByColumn(0, v, -1, 1, 1.0, true));
  });
}

TEST_P(RectOperations, ProductsWithVectors) {
  const V v = RandomVector(cols, 1);
  const V w = RandomVector(rows, 2);
  OnBoth([&](const IQVRectMatrix & r) {
    V out(1, 4.0);
    ASSERT_TRUE(r.ComputeRV(v, out));
    EXPECT_CLOSE(FromVector(out), Product(full, FromVector(v)));
    ASSERT_TRUE(r.ComputeVR(w, out));
    EXPECT_CLOSE(FromVector(out), Product(Transpose(full), FromVector(w)));
    out = v;
    ASSERT_TRUE(r.ComputeRV(out, out));
    EXPECT_CLOSE(FromVector(out), Product(full, FromVector(v)));
    out = w;
    ASSERT_TRUE(r.ComputeVR(out, out));
    EXPECT_CLOSE(FromVector(out), Product(Transpose(full), FromVector(w)));
    const V before = out;
    EXPECT_FALSE(r.ComputeRV(V(At(cols) + 1, 1.0), out));
    EXPECT_FALSE(r.ComputeVR(V(At(rows) + 1, 1.0), out));
    EXPECT_EQ(out, before);
  });
}

TEST_P(RectOperations, DotProducts) {
  const QVRectMatrix square = reference::RandomRect(cols, cols, 3);
  OnBoth([&](const IQVRectMatrix & r) {
    for (int i = 0; i < rows; i += 1 + rows / 5)
      for (int k = 0; k < rows; k += 1 + rows / 4) {
        long double sum = 0.0L;
        for (int j = 0; j < cols; ++j)
          sum += full(i, j) * full(k, j);
        EXPECT_NEAR(r.DotProductRows(i, k), static_cast<double>(sum), 1e-13);
        EXPECT_NEAR(r.DotProductRowRow(i, dense, k), static_cast<double>(sum), 1e-13);
        EXPECT_NEAR(r.DotProductRowRow(i, sparse, k), static_cast<double>(sum), 1e-13);
      }
    for (int j = 0; j < cols; j += 1 + cols / 5)
      for (int k = 0; k < cols; k += 1 + cols / 4) {
        long double sum = 0.0L;
        for (int i = 0; i < rows; ++i)
          sum += full(i, j) * full(i, k);
        EXPECT_NEAR(r.DotProductCol(j, k), static_cast<double>(sum), 1e-12);
        if (rows == 0) continue;
        long double mixed = 0.0L;
        for (int c = 0; c < cols; ++c)
          mixed += full(0, c) * square.GetElem(c, k);
        EXPECT_NEAR(r.DotProductRowCol(0, square, k), static_cast<double>(mixed), 1e-13);
      }
    EXPECT_EQ(r.DotProductRows(0, rows), 0.0);
    EXPECT_EQ(r.DotProductCol(-1, 0), 0.0);
    EXPECT_EQ(r.DotProductRowRow(0, square, cols), 0.0);
    EXPECT_EQ(r.DotProductRowCol(0, square, cols), 0.0);
    EXPECT_EQ(r.DotProductRowCol(0, QVRectMatrix(cols + 1, 2, true), 0), 0.0);
  });
}

TEST_P(RectOperations, ProductsWithMatrices) {
  for (const int inner : {1, 6, 65}) {
    const QVSparseRectMatrix b = RandomSparse(cols, inner, std::min(inner, 2), 5);
    const QVRectMatrix denseB = structured::DenseOf(b);
    const QVSparseRectMatrix bt = RandomSparse(inner, cols, nnz, 6);
    const QVRectMatrix denseBt = structured::DenseOf(bt);
    const Full product = Product(full, FromRect(b));
    const Full transposed = Product(full, Transpose(FromRect(bt)));
    OnBoth([&](const IQVRectMatrix & r) {
      QVRectMatrix out(1, 1, true);
      ASSERT_TRUE(r.ComputeMatrixProduct(b, out));
      EXPECT_CLOSE(FromRect(out), product);
      ASSERT_TRUE(r.ComputeMatrixProduct(denseB, out));
      EXPECT_CLOSE(FromRect(out), product);
      ASSERT_TRUE(r.ComputeProductMatrixTrans(bt, out));
      EXPECT_CLOSE(FromRect(out), transposed);
      ASSERT_TRUE(r.ComputeProductMatrixTrans(denseBt, out));
      EXPECT_CLOSE(FromRect(out), transposed);
      const Full before = FromRect(out);
      EXPECT_FALSE(r.ComputeMatrixProduct(QVRectMatrix(cols + 1, 2, true), out));
      EXPECT_FALSE(r.ComputeProductMatrixTrans(QVRectMatrix(2, cols + 1, true), out));
      EXPECT_EQ(MaxDifference(FromRect(out), before), 0.0);
      QVRectMatrix own = denseB;
      ASSERT_TRUE(r.ComputeMatrixProduct(own, own));
      EXPECT_CLOSE(FromRect(own), product);
      own = denseBt;
      ASSERT_TRUE(r.ComputeProductMatrixTrans(own, own));
      EXPECT_CLOSE(FromRect(own), transposed);
    });
    // A sparse target that can hold every row, and one that cannot.
    QVSparseRectMatrix wide = Target(inner);
    ASSERT_TRUE(sparse.ComputeMatrixProduct(b, wide));
    EXPECT_CLOSE(FromRect(wide), product);
    ASSERT_TRUE(sparse.ComputeMatrixProduct(denseB, wide));
    EXPECT_CLOSE(FromRect(wide), product);
  }
}

TEST_P(RectOperations, RowsAndColumnsExtracted) {
  I someRows, someCols;
  for (int i = rows - 1; i >= 0; i -= 3)
    someRows.push_back(i);
  if (rows > 0) someRows.push_back(0);  // once more
  for (int j = cols - 1; j >= 0; j -= 2)
    someCols.push_back(j);
  someCols.push_back(0);
  const int wantedRows = static_cast<int>(someRows.size());
  const int wantedCols = static_cast<int>(someCols.size());
  OnBoth([&](const IQVRectMatrix & r) {
    QVRectMatrix out;
    EXPECT_EQ(r.ExtractRows(someRows, out), wantedRows);
    ASSERT_EQ(out.GetNRows(), wantedRows);
    for (int i = 0; i < wantedRows; ++i)
      for (int j = 0; j < cols; ++j)
        EXPECT_EQ(out.GetElem(i, j), dense.GetElem(someRows[At(i)], j));
    EXPECT_EQ(r.ExtractColumns(someCols, out), wantedCols);
    ASSERT_EQ(out.GetNCols(), wantedCols);
    for (int i = 0; i < rows; ++i)
      for (int j = 0; j < wantedCols; ++j)
        EXPECT_EQ(out.GetElem(i, j), dense.GetElem(i, someCols[At(j)]));
    const Full before = FromRect(out);
    EXPECT_EQ(r.ExtractRows({rows}, out), -1);
    EXPECT_EQ(r.ExtractRows({-1}, out), -1);
    EXPECT_EQ(r.ExtractColumns({cols}, out), -1);
    EXPECT_EQ(r.ExtractColumns({-1}, out), -1);
    EXPECT_EQ(MaxDifference(FromRect(out), before), 0.0);
  });
  QVSparseRectMatrix out = Target(wantedCols);
  EXPECT_EQ(sparse.ExtractColumns(someCols, out), wantedCols);
  for (int i = 0; i < rows; ++i)
    for (int j = 0; j < wantedCols; ++j)
      EXPECT_EQ(out.GetElem(i, j), dense.GetElem(i, someCols[At(j)]));
  EXPECT_TRUE(sparse.ExtractSubSparseRectMat(someRows, someCols, out));
  for (int i = 0; i < wantedRows; ++i)
    for (int j = 0; j < wantedCols; ++j)
      EXPECT_EQ(out.GetElem(i, j), dense.GetElem(someRows[At(i)], someCols[At(j)]));
  QVSparseRectMatrix own = sparse;
  EXPECT_EQ(own.ExtractRows(someRows, own), wantedRows);
  for (int i = 0; i < wantedRows; ++i)
    for (int j = 0; j < cols; ++j)
      EXPECT_EQ(own.GetElem(i, j), dense.GetElem(someRows[At(i)], j));
}

TEST_P(RectOperations, ShiftsAndCopies) {
  OnBoth([&](const IQVRectMatrix & r) {
    for (const int shift : {0, 1, -1, cols, -cols, rows, -rows}) {
      QVRectMatrix out;
      if (std::abs(shift) <= cols) {
        ASSERT_TRUE(r.ShiftColumns(shift, out));
        for (int i = 0; i < rows; ++i)
          for (int j = 0; j < cols; ++j) {
            const int from = j - shift;
            EXPECT_EQ(out.GetElem(i, j), from >= 0 && from < cols ? dense.GetElem(i, from) : 0.0);
          }
      } else {
        EXPECT_FALSE(r.ShiftColumns(shift, out));
      }
      if (std::abs(shift) <= rows) {
        ASSERT_TRUE(r.ShiftRows(shift, out));
        for (int i = 0; i < rows; ++i) {
          const int from = i - shift;
          for (int j = 0; j < cols; ++j)
            EXPECT_EQ(out.GetElem(i, j), from >= 0 && from < rows ? dense.GetElem(from, j) : 0.0);
        }
      } else {
        EXPECT_FALSE(r.ShiftRows(shift, out));
      }
    }
    QVRectMatrix blocks;
    ASSERT_TRUE(r.CreateBlockDiagonal(3, blocks));
    ASSERT_EQ(blocks.GetNRows(), 3 * rows);
    ASSERT_EQ(blocks.GetNCols(), 3 * cols);
    for (int i = 0; i < 3 * rows; ++i)
      for (int j = 0; j < 3 * cols; ++j)
        EXPECT_EQ(blocks.GetElem(i, j),
                  i / rows == j / cols ? dense.GetElem(i % rows, j % cols) : 0.0);
    EXPECT_FALSE(r.CreateBlockDiagonal(0, blocks));
    QVRectMatrix copy(rows, cols, true);
    for (int i = 0; i < rows; ++i)
      ASSERT_TRUE(r.CopyRowToRow(i, rows - 1 - i, copy));
    for (int i = 0; i < rows; ++i)
      for (int j = 0; j < cols; ++j)
        EXPECT_EQ(copy.GetElem(rows - 1 - i, j), dense.GetElem(i, j));
    EXPECT_FALSE(r.CopyRowToRow(rows, 0, copy));
    EXPECT_FALSE(r.CopyRowToRow(0, rows, copy));
    QVRectMatrix narrow(rows, cols + 1, true);
    EXPECT_FALSE(r.CopyRowToRow(0, 0, narrow));
  });
  // The same into sparse targets.
  QVSparseRectMatrix out = Target(nnz);
  ASSERT_TRUE(sparse.ShiftColumns(1, out));
  for (int i = 0; i < rows; ++i)
    for (int j = 0; j < cols; ++j)
      EXPECT_EQ(out.GetElem(i, j), j > 0 ? dense.GetElem(i, j - 1) : 0.0);
  QVSparseRectMatrix own = sparse;
  if (rows > 0) {
    ASSERT_TRUE(own.ShiftRows(-1, own));
    for (int i = 0; i < rows; ++i)
      for (int j = 0; j < cols; ++j)
        EXPECT_EQ(own.GetElem(i, j), i + 1 < rows ? dense.GetElem(i + 1, j) : 0.0);
  }
  ASSERT_TRUE(sparse.CreateBlockDiagonal(2, out));
  for (int i = 0; i < 2 * rows; ++i)
    for (int j = 0; j < 2 * cols; ++j)
      EXPECT_EQ(out.GetElem(i, j), i / rows == j / cols ? dense.GetElem(i % rows, j % cols) : 0.0);
}

TEST_P(RectOperations, CopyRowsTakesRowsOfEitherClass) {
  if (rows < 1) return;
  const int count = (rows + 1) / 2;
  const QVSparseRectMatrix source = RandomSparse(rows, cols, nnz, 99);
  const QVRectMatrix denseSource = structured::DenseOf(source);
  for (const IQVRectMatrix * from : {static_cast<const IQVRectMatrix *>(&source),
                                     static_cast<const IQVRectMatrix *>(&denseSource)}) {
    QVSparseRectMatrix sparseCopy = sparse;
    QVRectMatrix denseCopy = dense;
    for (IQVRectMatrix * to :
         {static_cast<IQVRectMatrix *>(&sparseCopy), static_cast<IQVRectMatrix *>(&denseCopy)}) {
      ASSERT_TRUE(to->CopyRows(*from, rows - count, count));
      for (int i = 0; i < rows; ++i)
        for (int j = 0; j < cols; ++j)
          EXPECT_EQ(to->GetElem(i, j),
                    i < count ? source.GetElem(rows - count + i, j) : dense.GetElem(i, j));
      EXPECT_FALSE(to->CopyRows(*from, -1, 1));
      EXPECT_FALSE(to->CopyRows(*from, 0, -1));
      EXPECT_FALSE(to->CopyRows(*from, rows, 1));
      EXPECT_FALSE(to->CopyRows(QVRectMatrix(rows, cols + 1, true), 0, 1));
    }
  }
}

TEST_P(RectOperations, ClearAndZeroOutRowPart) {
  OnBoth([&](IQVRectMatrix & r) {
    for (int i = 0; i < rows; i += 2) {
      const int start = cols / 3;
      const int count = (cols + 1) / 2;
      ASSERT_TRUE(r.ZeroOutRowPart(i, start, count));
      for (int j = 0; j < cols; ++j)
        EXPECT_EQ(r.GetElem(i, j),
                  j >= start && j < start + count ? 0.0 : static_cast<double>(full(i, j)));
      ASSERT_TRUE(r.ZeroOutRowPart(i, 0, cols));
      EXPECT_TRUE(r.IsRowZero(i));
    }
    EXPECT_FALSE(r.ZeroOutRowPart(rows, 0, 1));
    EXPECT_FALSE(r.ZeroOutRowPart(0, -1, 1));
    EXPECT_FALSE(r.ZeroOutRowPart(0, 0, -1));
    EXPECT_FALSE(r.ZeroOutRowPart(0, 1, cols));
    r.Clear();
    for (int i = 0; i < rows; ++i)
      EXPECT_TRUE(r.IsRowZero(i));
    EXPECT_EQ(r.GetNRows(), rows);
  });
}

TEST_P(RectOperations, SparseRowsAddedAndReplaced) {
  I places;
  V values;
  for (int p = 0; p < nnz; ++p) {
    places.push_back(cols - nnz + p);
    values.push_back(10.0 + p);
  }
  const QVSparseVector cells(places, values);
  OnBoth([&](IQVRectMatrix & r) {
    EXPECT_EQ(r.AddRow(cells), rows + 1);
    EXPECT_EQ(r.GetNRows(), rows + 1);
    for (int j = 0; j < cols; ++j)
      EXPECT_EQ(r.GetElem(rows, j), j < cols - nnz ? 0.0 : 10.0 + (j - (cols - nnz)));
    EXPECT_TRUE(r.SetRow(0, cells));
    for (int j = 0; j < cols; ++j)
      EXPECT_EQ(r.GetElem(0, j), r.GetElem(rows, j));
    EXPECT_FALSE(r.SetRow(-1, cells));
    EXPECT_FALSE(r.SetRow(rows + 1, cells));
    const I behind = {cols};
    const V one = {1.0};
    EXPECT_EQ(r.AddRow(QVSparseVector(behind, one)), -1);
    EXPECT_FALSE(r.SetRow(0, QVSparseVector(behind, one)));
    const I none;
    const V nothing;
    EXPECT_EQ(r.AddRow(QVSparseVector(none, nothing)), -1);
    EXPECT_EQ(r.GetNRows(), rows + 1);
  });
}

std::string ShapeName(const testing::TestParamInfo<Shape> & info) {
  return std::to_string(std::get<0>(info.param)) + "x" + std::to_string(std::get<1>(info.param)) +
         "cells" + std::to_string(std::get<2>(info.param));
}

INSTANTIATE_TEST_SUITE_P(Shapes, RectOperations,
                         testing::Values(Shape{0, 1, 1}, Shape{1, 1, 1}, Shape{2, 3, 1},
                                         Shape{3, 2, 2}, Shape{7, 7, 3}, Shape{33, 12, 4},
                                         Shape{129, 33, 8}, Shape{12, 129, 5}),
                         ShapeName);

}  // namespace
