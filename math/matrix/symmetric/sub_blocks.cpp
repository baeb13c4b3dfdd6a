// The same products on parts of the dense symmetric matrix, and with a block-diagonal matrix, or a
// block-diagonal factor, at their side. These read the other matrix through the interface, so that
// every class may stand there; only the lower triangle of a factor is read.
#include <algorithm>
#include <vector>

#include "QVRectMatrix.h"
#include "QVSymMatrix.h"
#include "math/matrix/rectangular/dense_operand.h"
#include "math/matrix/symmetric/packed_rows.h"
#include "math/matrix/symmetric/product_target.h"
#include "math/matrix/symmetric/tiled_product.h"

namespace QVMath_940 {

namespace {

std::size_t At(int i) {
  return static_cast<std::size_t>(i);
}

// Packed elements of a matrix of any class.
std::vector<double> Pack(const IQVSymMatrix & s) {
  const int n = s.GetNRows();
  std::vector<double> packed(QVSymMatrix::RowStart(n));
  double * element = packed.data();
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j <= i; ++j) {
      *element++ = s.GetElem(i, j);
    }
  }
  return packed;
}

// out = the rows and columns of a rectangle of S, row after row.
std::vector<double> CopyPart(const PackedView & s, int startRow, int rows, int startCol, int cols) {
  std::vector<double> part(At(rows) * At(cols));
  double * element = part.data();
  for (int i = 0; i < rows; ++i) {
    for (int j = 0; j < cols; ++j) {
      *element++ = s.Elem(startRow + i, startCol + j);
    }
  }
  return part;
}

}  // namespace

// --- Parts of S times a vector ------------------------------------------------------------------

bool QVSymMatrix::SubSymSV(int start, int size, const std::vector<double> & v,
                           std::vector<double> & out) const {
  return SubSymRectV(start, size, start, size, v, out);
}

bool QVSymMatrix::SubSymRectV(int startRow, int rows, int startCol, int cols,
                              const std::vector<double> & v, std::vector<double> & out) const {
  if (!IsPart(startRow, rows) || !IsPart(startCol, cols) || v.size() != At(cols)) return false;
  const PackedView s = ViewOf(*this);
  std::vector<double> product(At(rows));
  for (int i = 0; i < rows; ++i) {
    product[At(i)] = DotRow(s, startRow + i, startCol, startCol + cols, Along(v.data()));
  }
  out.swap(product);
  return true;
}

bool QVSymMatrix::SubSymRectTV(int startRow, int rows, int startCol, int cols,
                               const std::vector<double> & v, std::vector<double> & out) const {
  return SubSymRectV(startCol, cols, startRow, rows, v, out);
}

// --- Parts of S times a factor ------------------------------------------------------------------

bool QVSymMatrix::SubSymVectBlockL(int i, int start, const IQVSymMatrix & l,
                                   std::vector<double> & out) const {
  const int order = l.GetNRows();
  if (!IsRow(i) || order < 0 || !IsPart(start, order)) return false;
  const PackedView s = ViewOf(*this);
  const std::vector<double> packed = Pack(l);
  const std::vector<double> row = CopyPart(s, i, 1, start, order);
  out.resize(At(order));
  MultiplyLowerTransposed({packed.data(), order, s.isFused}, row.data(), out.data());
  return true;
}

bool QVSymMatrix::SubSymSBlockL(int start, const IQVSymMatrix & l, QVRectMatrix & out) const {
  return SubSymRectTBlockL(start, start, std::max(l.GetNRows(), 0), l, out);
}

bool QVSymMatrix::SubSymRectTBlockL(int startRow, int startCol, int cols, const IQVSymMatrix & l,
                                    QVRectMatrix & out) const {
  const int order = l.GetNRows();
  if (order < 0 || !IsPart(startRow, order) || !IsPart(startCol, cols)) return false;
  const PackedView s = ViewOf(*this);
  const std::vector<double> packed = Pack(l);
  DenseTarget target(out, {});
  if (!target.Shape(cols, order)) return false;
  std::vector<double> row(At(order));
  for (int j = 0; j < cols; ++j) {
    for (int i = 0; i < order; ++i) {
      row[At(i)] = s.Elem(startRow + i, startCol + j);
    }
    MultiplyLowerTransposed({packed.data(), order, s.isFused}, row.data(),
                            target.Data() + At(j) * At(order));
  }
  return target.Deliver();
}

bool QVSymMatrix::SubSymBlockLTSBlockL(int start, const IQVSymMatrix & l,
                                       IQVSymMatrix & out) const {
  QVSymMatrix * const dense = AsDense(out);
  const int order = l.GetNRows();
  if (dense == nullptr || order < 0 || !IsPart(start, order)) return false;
  const PackedView s = ViewOf(*this);
  const std::vector<double> packed = Pack(l);
  TriangleTarget target(*dense, order, dense == this);
  if (!target.IsReady()) return false;
  const BlockLowerTransposedFactor factor({packed.data(), order, s.isFused});
  MultiplyBothSides(factor, order, s.Block(start, order), target.Elements());
  return target.Finish();
}

bool QVSymMatrix::AugmentUsingBlockDiagL(const IQVSymMatrix & l, IQVSymMatrix & out) const {
  QVSymMatrix * const dense = AsDense(out);
  const int order = l.GetNRows();
  if (dense == nullptr || order < 0 || !IsPart(0, order)) return false;
  const PackedView s = ViewOf(*this);
  const std::vector<double> packed = Pack(l);
  const PackedView lower{packed.data(), order, s.isFused};
  TriangleTarget target(*dense, fNRows, dense == this);
  if (!target.IsReady()) return false;
  double * const elements = target.Elements();
  MultiplyBothSides(BlockLowerTransposedFactor(lower), order, s.Leading(order), elements);
  for (int i = order; i < fNRows; ++i) {
    double * const row = elements + RowStart(i);
    MultiplyLowerTransposed(lower, s.Row(i), row);
    std::copy(s.Row(i) + order, s.Row(i) + i + 1, row + order);
  }
  return target.Finish();
}

// --- Rows of S around a block-diagonal matrix ---------------------------------------------------

double QVSymMatrix::ComputeVBW(int i, const IQVSymMatrix & b, int j) const {
  return b.GetNRows() == fNRows ? ComputeVBW(i, 0, b, j) : 0.0;
}

double QVSymMatrix::ComputeVBW(int i, int start, const IQVSymMatrix & b, int j) const {
  const int order = b.GetNRows();
  if (!IsRow(j) || order < 1 || !IsPart(start, order)) return 0.0;
  return ComputeVBW(i, start, b, CopyPart(ViewOf(*this), j, 1, start, order));
}

double QVSymMatrix::ComputeVBW(int i, int start, const IQVSymMatrix & b,
                               const std::vector<double> & w) const {
  const int order = b.GetNRows();
  if (!IsRow(i) || order < 1 || !IsPart(start, order) || w.size() != At(order)) return 0.0;
  const PackedView s = ViewOf(*this);
  std::vector<double> row;
  double sum = 0.0;
  for (int k = 0; k < order && b.GetRow(k, row); ++k) {
    const double inner = DotRow(s, i, start, start + order, Along(row.data()));
    sum = AddProduct(s.isFused, w[At(k)], inner, sum);
  }
  return sum;
}

bool QVSymMatrix::ComputeSSubBSSub(int start, const IQVSymMatrix & b, IQVSymMatrix & out) const {
  return ComputeSSubBSSub(start, std::max(b.GetNRows(), 0), start, b, out);
}

bool QVSymMatrix::ComputeSSubBSSub(int startRow, int rows, int startCol, const IQVSymMatrix & b,
                                   IQVSymMatrix & out) const {
  QVSymMatrix * const dense = AsDense(out);
  const int order = b.GetNRows();
  if (dense == nullptr || order < 0) return false;
  if (!IsPart(startRow, rows) || !IsPart(startCol, order)) return false;
  const PackedView s = ViewOf(*this);
  const std::vector<double> part = CopyPart(s, startRow, rows, startCol, order);
  const std::vector<double> packed = Pack(b);
  TriangleTarget target(*dense, rows, dense == this);
  if (!target.IsReady()) return false;
  const RowsFactor outer(part.data(), order, order);
  MultiplyBothSides(outer, outer, rows, {packed.data(), order, s.isFused}, target.Elements());
  return target.Finish();
}

}  // namespace QVMath_940
