#include "math/matrix/structured/block_rect_products.h"

#include <algorithm>
#include <cstddef>

#include "QVRectMatrix.h"
#include "QVSparseRectMatrix.h"
#include "math/kernels/kernel_table.h"
#include "math/kernels/packed_update.h"
#include "math/matrix/rectangular/dense_operand.h"
#include "math/matrix/structured/sparse_rows.h"
#include "math/matrix/symmetric/product_target.h"

namespace QVMath_940 {

namespace {

/// Rows of a dense R that are taken at a time, so that what is made of them stays in the cache.
constexpr int kPanelRows = 64;

std::size_t At(int i) {
  return static_cast<std::size_t>(i);
}

// --- R S ----------------------------------------------------------------------------------------

void DenseRS(const DiagonalBlocks & s, const QVRectMatrix & r, double * out) {
  for (int i = 0; i < r.GetNRows(); ++i, out += s.NRows())
    MultiplySV(s, r.GetRowPtr(i), out);
}

void SparseRS(const DiagonalBlocks & s, const QVSparseRectMatrix & r, double * out) {
  for (int i = 0; i < r.GetNRows(); ++i, out += s.NRows()) {
    const RowCells cells = CellsOf(r, i);
    for (int p = 0; p < cells.count; ++p)
      AddRowOf(s.OfRow(cells.columns[p]), cells.columns[p], cells.values[p], out);
  }
}

// --- R-transpose S ------------------------------------------------------------------------------

void DenseRTransS(const DiagonalBlocks & s, const QVRectMatrix & r, double * out) {
  std::vector<double> column;
  for (int a = 0; a < r.GetNCols(); ++a, out += s.NRows()) {
    r.GetCol(a, column);
    MultiplySV(s, column.data(), out);
  }
}

void SparseRTransS(const DiagonalBlocks & s, const QVSparseRectMatrix & r, double * out) {
  for (int i = 0; i < r.GetNRows(); ++i) {
    const RowCells cells = CellsOf(r, i);
    const DiagonalBlock block = s.OfRow(i);
    for (int p = 0; p < cells.count; ++p)
      AddRowOf(block, i, cells.values[p], out + At(cells.columns[p]) * At(s.NRows()));
  }
}

// --- R S R-transpose ----------------------------------------------------------------------------
// Row by row: with y = S r_i, element (i, j) is the sum over k of r_jk y_k.

void SparseRSRTrans(const DiagonalBlocks & s, const QVSparseRectMatrix & r, double * out) {
  std::vector<double> y(At(s.NRows()), 0.0);
  for (int i = 0; i < r.GetNRows(); ++i) {
    const RowCells cells = CellsOf(r, i);
    for (int p = 0; p < cells.count; ++p)
      AddRowOf(s.OfRow(cells.columns[p]), cells.columns[p], cells.values[p], y.data());
    double * const row = out + QVSymMatrix::RowStart(i);
    for (int j = 0; j <= i; ++j) {
      const RowCells other = CellsOf(r, j);
      double sum = 0.0;
      for (int q = 0; q < other.count; ++q)
        sum = AddProduct(s.IsFused(), other.values[q], y[At(other.columns[q])], sum);
      row[j] = sum;
    }
    for (int p = 0; p < cells.count; ++p) {
      const DiagonalBlock block = s.OfRow(cells.columns[p]);
      std::fill(y.begin() + block.start, y.begin() + block.End(), 0.0);
    }
  }
}

// --- R-transpose S R ----------------------------------------------------------------------------
// The sum over the rows k of r_k p_k-transpose, with p_k = the sum over l in k's block of S_kl r_l.

void DenseRTransSR(const DiagonalBlocks & s, const QVRectMatrix & r, double * out) {
  const int cols = r.GetNCols();
  std::vector<double> panel;
  for (int b = 0; b < s.Count(); ++b) {
    const DiagonalBlock block = s[b];
    for (int first = block.start; first < block.End(); first += kPanelRows) {
      const int rows = std::min(kPanelRows, block.End() - first);
      const kernels::CaseRows left{r.GetRowPtr(first), cols};
      if (block.isDiagonal) {
        kernels::PackedWeightedRankKUpdate(cols, rows, left, block.elements + first - block.start,
                                           out);
        continue;
      }
      panel.assign(At(rows) * At(cols), 0.0);
      for (int k = 0; k < rows; ++k)
        for (int l = block.start; l < block.End(); ++l)
          kernels::Kernels().axpyPlain(At(cols), block.Elem(first + k, l), r.GetRowPtr(l),
                                       panel.data() + At(k) * At(cols));
      kernels::PackedRankKUpdate(cols, rows, left, {panel.data(), cols}, out);
    }
  }
}

// out += w (row of cells) (row of cells)-transpose.
void AddSquare(double w, const RowCells & cells, double * out) {
  for (int p = 0; p < cells.count; ++p) {
    const double factor = w * cells.values[p];
    double * const row = out + QVSymMatrix::RowStart(cells.columns[p]);
    for (int q = 0; q <= p; ++q)
      row[cells.columns[q]] += factor * cells.values[q];
  }
}

// out += w (x y-transpose + y x-transpose).
void AddBothProducts(double w, const RowCells & x, const RowCells & y, double * out) {
  for (int p = 0; p < x.count; ++p) {
    const double factor = w * x.values[p];
    for (int q = 0; q < y.count; ++q) {
      const double product = factor * y.values[q];
      out[QVSymMatrix::PackedPosition(x.columns[p], y.columns[q])] +=
          x.columns[p] == y.columns[q] ? 2.0 * product : product;
    }
  }
}

// A dense block whose rows are so few that pairs of cells cost less than whole rows of the result.
void AddPairsOfRows(const DiagonalBlock & block, const QVSparseRectMatrix & r, double * out) {
  for (int k = block.start; k < block.End(); ++k) {
    const RowCells cells = CellsOf(r, k);
    for (int l = block.start; l < k; ++l)
      AddBothProducts(block.Elem(k, l), cells, CellsOf(r, l), out);
    AddSquare(block.Elem(k, k), cells, out);
  }
}

void AddRowsOfProduct(const DiagonalBlock & block, const QVSparseRectMatrix & r, double * out) {
  std::vector<double> p(At(r.GetNCols()));
  for (int k = block.start; k < block.End(); ++k) {
    const RowCells cells = CellsOf(r, k);
    if (cells.count == 0) continue;
    std::fill(p.begin(), p.end(), 0.0);
    for (int l = block.start; l < block.End(); ++l) {
      const RowCells other = CellsOf(r, l);
      const double element = block.Elem(k, l);
      for (int q = 0; q < other.count; ++q)
        p[At(other.columns[q])] += element * other.values[q];
    }
    for (int q = 0; q < cells.count; ++q)
      kernels::Kernels().axpyPlain(At(cells.columns[q]) + 1, cells.values[q], p.data(),
                                   out + QVSymMatrix::RowStart(cells.columns[q]));
  }
}

void SparseRTransSR(const DiagonalBlocks & s, const QVSparseRectMatrix & r, double * out) {
  constexpr long long kPairCost = 8;  // a scattered addition against one of a row's
  for (int b = 0; b < s.Count(); ++b) {
    const DiagonalBlock block = s[b];
    if (block.isDiagonal) {
      for (int k = block.start; k < block.End(); ++k)
        AddSquare(block.elements[k - block.start], CellsOf(r, k), out);
    } else if (kPairCost * block.size * r.GetNNZRowElements() < r.GetNCols()) {
      AddPairsOfRows(block, r, out);
    } else {
      AddRowsOfProduct(block, r, out);
    }
  }
}

}  // namespace

bool MultiplyRS(const DiagonalBlocks & s, const IQVRectMatrix & r, IQVRectMatrix & out) {
  if (s.NRows() < 0 || !r.IsValidMatrix() || r.GetNCols() != s.NRows()) return false;
  DenseTarget target(out, {&r});
  if (!target.Shape(r.GetNRows(), s.NRows())) return false;
  if (const QVSparseRectMatrix * sparse = AsSparse(r)) {
    SparseRS(s, *sparse, target.Data());
  } else {
    DenseRS(s, static_cast<const QVRectMatrix &>(r), target.Data());
  }
  return target.Deliver();
}

bool MultiplyRTransS(const DiagonalBlocks & s, const IQVRectMatrix & r, IQVRectMatrix & out) {
  if (s.NRows() < 0 || !r.IsValidMatrix() || r.GetNRows() != s.NRows()) return false;
  DenseTarget target(out, {&r});
  if (!target.Shape(r.GetNCols(), s.NRows())) return false;
  if (const QVSparseRectMatrix * sparse = AsSparse(r)) {
    SparseRTransS(s, *sparse, target.Data());
  } else {
    DenseRTransS(s, static_cast<const QVRectMatrix &>(r), target.Data());
  }
  return target.Deliver();
}

bool MultiplySR(const DiagonalBlocks & s, const QVRectMatrix & r, IQVRectMatrix & out) {
  if (s.NRows() < 0 || !r.IsValidMatrix() || r.GetNRows() != s.NRows()) return false;
  DenseTarget target(out, {&r});
  if (!target.Shape(r.GetNRows(), r.GetNCols())) return false;
  for (int b = 0; b < s.Count() && r.GetNCols() > 0; ++b) {
    const DiagonalBlock block = s[b];
    for (int i = block.start; i < block.End(); ++i)
      for (int k = block.FirstInRow(i); k < block.EndOfRow(i); ++k)
        kernels::Kernels().axpyPlain(At(r.GetNCols()), block.Elem(i, k), r.GetRowPtr(k),
                                     target.Row(i));
  }
  return target.Deliver();
}

void MultiplyRSRTrans(const DiagonalBlocks & s, const double * r, int rows, double * out) {
  const std::ptrdiff_t n = s.NRows();
  if (n < 1) return;
  std::vector<double> y(At(s.NRows()));
  for (int i = 0; i < rows; ++i) {
    MultiplySV(s, r + i * n, y.data());
    double * const row = out + QVSymMatrix::RowStart(i);
    if (n >= kernels::kFusedOrder) {
      kernels::Kernels().dotRowsFused(i + 1, {r, n, 0}, y.data(), y.size(), row);
      continue;
    }
    for (int j = 0; j <= i; ++j)
      for (std::size_t k = 0; k < y.size(); ++k)
        row[j] += r[j * n + static_cast<std::ptrdiff_t>(k)] * y[k];
  }
}

bool MultiplyRSRTrans(const DiagonalBlocks & s, const IQVRectMatrix & r, IQVSymMatrix & out,
                      bool isOperand) {
  QVSymMatrix * const dense = AsDense(out);
  if (dense == nullptr || s.NRows() < 0 || !r.IsValidMatrix() || r.GetNCols() != s.NRows())
    return false;
  TriangleTarget target(*dense, r.GetNRows(), isOperand);
  if (!target.IsReady()) return false;
  if (const QVSparseRectMatrix * sparse = AsSparse(r)) {
    SparseRSRTrans(s, *sparse, target.Elements());
  } else {
    MultiplyRSRTrans(s, static_cast<const QVRectMatrix &>(r).AsVector().data(), r.GetNRows(),
                     target.Elements());
  }
  return target.Finish();
}

bool MultiplyRTransSR(const DiagonalBlocks & s, const IQVRectMatrix & r, IQVSymMatrix & out,
                      bool isOperand) {
  QVSymMatrix * const dense = AsDense(out);
  if (dense == nullptr || s.NRows() < 0 || !r.IsValidMatrix() || r.GetNRows() != s.NRows())
    return false;
  TriangleTarget target(*dense, r.GetNCols(), isOperand);
  if (!target.IsReady()) return false;
  if (const QVSparseRectMatrix * sparse = AsSparse(r)) {
    SparseRTransSR(s, *sparse, target.Elements());
  } else if (r.GetNCols() > 0) {
    DenseRTransSR(s, static_cast<const QVRectMatrix &>(r), target.Elements());
  }
  return target.Finish();
}

bool MultiplyRTransSV(const DiagonalBlocks & s, const IQVRectMatrix & r,
                      const std::vector<double> & v, std::vector<double> & out) {
  if (s.NRows() < 0 || !r.IsValidMatrix() || r.GetNRows() != s.NRows() || v.size() != At(s.NRows()))
    return false;
  std::vector<double> product(v.size());
  MultiplySV(s, v.data(), product.data());
  const QVSparseRectMatrix * const sparse = AsSparse(r);
  if (sparse == nullptr) return r.ComputeVR(product, out);
  out.assign(At(r.GetNCols()), 0.0);
  for (int i = 0; i < s.NRows(); ++i) {
    const RowCells cells = CellsOf(*sparse, i);
    for (int p = 0; p < cells.count; ++p) {
      double & sum = out[At(cells.columns[p])];
      sum = AddProduct(s.IsFused(), product[At(i)], cells.values[p], sum);
    }
  }
  return true;
}

double RowQuadraticForm(const DiagonalBlocks & s, const IQVRectMatrix & r, int k) {
  if (s.NRows() < 1 || r.GetNCols() != s.NRows() || k < 0 || k >= r.GetNRows()) return 0.0;
  double form = 0.0;
  if (const QVSparseRectMatrix * sparse = AsSparse(r)) {
    const RowCells cells = CellsOf(*sparse, k);
    for (int p = 0; p < cells.count; ++p) {
      const DiagonalBlock block = s.OfRow(cells.columns[p]);
      double sum = 0.0;
      for (int q = 0; q < cells.count; ++q) {
        const int column = cells.columns[q];
        if (column >= block.start && column < block.End())
          sum += block.Elem(cells.columns[p], column) * cells.values[q];
      }
      form += cells.values[p] * sum;
    }
    return form;
  }
  const double * const v = static_cast<const QVRectMatrix &>(r).GetRowPtr(k);
  std::vector<double> product(At(s.NRows()));
  MultiplySV(s, v, product.data());
  for (int i = 0; i < s.NRows(); ++i)
    form += v[i] * product[At(i)];
  return form;
}

}  // namespace QVMath_940
