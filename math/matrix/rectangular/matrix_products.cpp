// Products of the rectangular matrix with rectangular, symmetric and diagonal matrices.
#include <algorithm>
#include <vector>

#include "QVMV.h"
#include "QVRectMatrix.h"
#include "QVSymMatrix.h"
#include "math/matrix/rectangular/dense_operand.h"
#include "math/matrix/rectangular/dense_product.h"
#include "math/matrix/structured/block_rect_products.h"
#include "math/matrix/structured/sparse_rows.h"

namespace QVMath_940 {

namespace {

using kernels::kTileCols;
using kernels::kTileRows;

std::size_t At(int i) {
  return static_cast<std::size_t>(i);
}

// The factors of `MultiplyDense`: a matrix as the left one, row by row.
auto RowsOf(const QVRectMatrix & matrix) {
  return [&matrix](int first, int count, const double ** row) {
    for (int r = 0; r < count; ++r)
      row[r] = matrix.GetRowPtr(first + r);
  };
}

// Rows `first` .. of a symmetric matrix as the left one; a few full rows at a time.
class SymmetricRows {
 public:
  explicit SymmetricRows(const IQVSymMatrix & matrix) : fMatrix(matrix), fRows(kTileRows) {}

  void operator()(int first, int count, const double ** row) {
    for (int r = 0; r < count; ++r) {
      std::vector<double> & full = fRows[At(r)];
      fMatrix.GetRow(first + r, full);
      row[r] = full.data();
    }
  }

 private:
  const IQVSymMatrix & fMatrix;
  std::vector<std::vector<double>> fRows;
};

// A matrix as the right factor, from row `start` on.
auto PanelOf(const QVRectMatrix & matrix, int start, int inner) {
  return [&matrix, start, inner](int first, int width, double * panel) {
    for (int k = 0; k < inner; ++k)
      std::copy_n(matrix.GetRowPtr(start + k) + first, width, panel + At(k) * At(kTileCols));
  };
}

// The transpose of a matrix as the right factor.
auto PanelOfTranspose(const QVRectMatrix & matrix) {
  return [&matrix](int first, int width, double * panel) {
    for (int m = 0; m < width; ++m) {
      const double * const row = matrix.GetRowPtr(first + m);
      for (int k = 0; k < matrix.GetNCols(); ++k)
        panel[At(k) * At(kTileCols) + At(m)] = row[k];
    }
  };
}

// out += factor x a sparse row.
void AddCells(bool isFused, double factor, const RowCells & cells, double * out) {
  for (int p = 0; p < cells.count; ++p)
    out[cells.columns[p]] = AddProduct(isFused, factor, cells.values[p], out[cells.columns[p]]);
}

// A sparse row by a dense one.
double DotCells(bool isFused, const RowCells & cells, const double * row) {
  double sum = 0.0;
  for (int p = 0; p < cells.count; ++p)
    sum = AddProduct(isFused, row[cells.columns[p]], cells.values[p], sum);
  return sum;
}

// True when a product of these shapes has no sums to build: all of it is 0.0 already.
bool IsEmpty(int rows, int inner, int cols) {
  return rows < 1 || inner < 1 || cols < 1;
}

}  // namespace

// --- Rectangular by rectangular -----------------------------------------------------------------

bool QVRectMatrix::ComputeMatrixProduct(const IQVRectMatrix & b, IQVRectMatrix & out) const {
  if (!IsValidMatrix() || !b.IsValidMatrix() || b.GetNRows() != fNCols) return false;
  DenseTarget target(out, {this, &b});
  if (const QVSparseRectMatrix * sparse = AsSparse(b)) {
    if (!target.Shape(fNRows, b.GetNCols())) return false;
    for (int i = 0; i < fNRows; ++i)
      for (int k = 0; k < fNCols; ++k)
        AddCells(IsFusedSum(fNCols), fElements[Position(i, k)], CellsOf(*sparse, k),
                 target.Row(i));
    return target.Deliver();
  }
  const DenseOperand right(b);
  if (!right->IsValidMatrix() || !target.Shape(fNRows, right->fNCols)) return false;
  if (!IsEmpty(fNRows, fNCols, right->fNCols))
    MultiplyDense(fNRows, fNCols, right->fNCols, RowsOf(*this), PanelOf(*right, 0, fNCols),
                  target.Data());
  return target.Deliver();
}

bool QVRectMatrix::ComputeProductMatrixTrans(const IQVRectMatrix & b, QVRectMatrix & out) const {
  if (!IsValidMatrix() || !b.IsValidMatrix() || b.GetNCols() != fNCols) return false;
  DenseTarget target(out, {this, &b});
  if (const QVSparseRectMatrix * sparse = AsSparse(b)) {
    if (!target.Shape(fNRows, b.GetNRows())) return false;
    for (int i = 0; i < fNRows; ++i)
      for (int j = 0; j < b.GetNRows(); ++j)
        target.Row(i)[j] = DotCells(IsFusedSum(fNCols), CellsOf(*sparse, j), GetRowPtr(i));
    return target.Deliver();
  }
  const DenseOperand right(b);
  if (!right->IsValidMatrix() || !target.Shape(fNRows, right->fNRows)) return false;
  if (!IsEmpty(fNRows, fNCols, right->fNRows))
    MultiplyDense(fNRows, fNCols, right->fNRows, RowsOf(*this), PanelOfTranspose(*right),
                  target.Data());
  return target.Deliver();
}

// --- With symmetric and diagonal matrices -------------------------------------------------------

bool QVRectMatrix::ComputeMatrixProduct(const IQVSymMatrix & s, IQVRectMatrix & out) const {
  if (!IsValidMatrix() || s.GetNRows() != fNCols) return false;
  if (s.GetType() != SymMatrixDense) return MultiplyRS(DiagonalBlocks(s), *this, out);
  DenseTarget target(out, {this});
  if (!target.Shape(fNRows, fNCols)) return false;
  // S is symmetric: its columns are read as its full rows.
  const auto panel = [&s](int first, int width, double * to) {
    std::vector<double> row;
    for (int m = 0; m < width; ++m) {
      s.GetRow(first + m, row);
      for (std::size_t k = 0; k < row.size(); ++k)
        to[k * At(kTileCols) + At(m)] = row[k];
    }
  };
  if (!IsEmpty(fNRows, fNCols, fNCols))
    MultiplyDense(fNRows, fNCols, fNCols, RowsOf(*this), panel, target.Data());
  return target.Deliver();
}

bool QVRectMatrix::ComputeDiagR(const std::vector<double> & diagonal, IQVRectMatrix & out) const {
  if (!IsValidMatrix() || diagonal.size() != At(fNRows)) return false;
  DenseTarget target(out, {this});
  if (!target.Shape(fNRows, fNCols)) return false;
  for (int i = 0; i < fNRows && fNCols > 0; ++i) {
    double * const to = target.Row(i);
    for (int j = 0; j < fNCols; ++j)
      to[j] = diagonal[At(i)] * fElements[Position(i, j)];
  }
  return target.Deliver();
}

bool QVRectMatrix::ComputeBlockDiagSR(const IQVSymMatrix & s, IQVRectMatrix & out,
                                      int copies) const {
  const int order = s.GetNRows();
  if (!IsValidMatrix() || copies < 1 || order < 0) return false;
  if (static_cast<long long>(copies) * order != fNRows) return false;
  if (s.GetType() != SymMatrixDense) return MultiplySR(DiagonalBlocks(s, copies), *this, out);
  DenseTarget target(out, {this});
  if (!target.Shape(fNRows, fNCols)) return false;
  for (int start = 0; start < fNRows && fNCols > 0; start += order)
    MultiplyDense(order, order, fNCols, SymmetricRows(s), PanelOf(*this, start, order),
                  target.Row(start));
  return target.Deliver();
}

bool QVRectMatrix::ComputeR1TransSR2(const IQVSymMatrix & s, const IQVRectMatrix & r2,
                                     IQVRectMatrix & out) const {
  if (!IsValidMatrix() || !r2.IsValidMatrix()) return false;
  if (s.GetNRows() != fNRows || r2.GetNRows() != fNRows) return false;
  if (out.GetMatrixType() != RectMatrixDense) return false;
  if (const QVSparseRectMatrix * sparse = AsSparse(r2)) {
    QVRectMatrix left;  // S R1, whose transpose stands on the left
    if (!ComputeBlockDiagSR(s, left, 1)) return false;
    DenseTarget target(out, {});
    if (!target.Shape(fNCols, r2.GetNCols())) return false;
    for (int i = 0; i < fNRows; ++i)
      for (int j = 0; j < fNCols; ++j)
        AddCells(IsFusedSum(fNRows), left.fElements[left.Position(i, j)], CellsOf(*sparse, i),
                 target.Row(j));
    return target.Deliver();
  }
  const DenseOperand right(r2);
  QVRectMatrix product;
  if (!right->ComputeBlockDiagSR(s, product, 1)) return false;
  QVRectMatrix left(*this);
  return left.Transpose() && left.QVRectMatrix::ComputeMatrixProduct(product, out);
}

bool QVRectMatrix::ComputeAXpY(double a, const QVRectMatrix & x) {
  if (!IsValidMatrix() || x.fNRows != fNRows || x.fNCols != fNCols) return false;
  kernels::Kernels().axpyPlain(fElements.size(), a, x.fElements.data(), fElements.data());
  return true;
}

bool QVRectMatrix::ComputeAXpY(double a, const QVSymMatrix & x) {
  if (!IsValidMatrix() || fNRows != fNCols || x.GetNRows() != fNRows) return false;
  for (int i = 0; i < fNRows; ++i)
    for (int j = 0; j < fNCols; ++j)
      fElements[Position(i, j)] += a * x.GetElem(i, j);
  return true;
}

bool QVRectMatrix::SubtractSymMatrix(const IQVSymMatrix & s) {
  if (!IsValidMatrix() || fNRows != fNCols || s.GetNRows() != fNRows) return false;
  for (int i = 0; i < fNRows; ++i)
    for (int j = 0; j < fNCols; ++j)
      fElements[Position(i, j)] -= s.GetElem(i, j);
  return true;
}

// --- Traces -------------------------------------------------------------------------------------

double QVRectMatrix::TraceOfProductSqS(const IQVSymMatrix & s) const {
  if (s.GetType() != SymMatrixDense) return QVCommon_940::QVMV::Missing();
  return fNRows == s.GetNRows() && fNCols == s.GetNRows() ? TraceOfProductSubMatSym(0, 0, s) : 0.0;
}

double QVRectMatrix::TraceOfProductSubMatSym(int row, int column, const IQVSymMatrix & s) const {
  if (s.GetType() != SymMatrixDense) return QVCommon_940::QVMV::Missing();
  const int n = s.GetNRows();
  if (n < 1 || row < 0 || column < 0 || row > fNRows - n || column > fNCols - n) return 0.0;
  double trace = 0.0;
  std::vector<double> full;
  for (int i = 0; i < n; ++i) {
    s.GetRow(i, full);
    trace += SumOfProducts(n, GetRowPtr(row + i) + column, full.data());
  }
  return trace;
}

}  // namespace QVMath_940
