// The same products on parts of the dense symmetric matrix, and with a block-diagonal matrix, or a
// block-diagonal factor, at their side. The other matrix may be of any class, and only the blocks of
// a structured one are read, of a factor the lower triangle.
#include <algorithm>
#include <vector>

#include "QVRectMatrix.h"
#include "QVSymMatrix.h"
#include "math/matrix/rectangular/dense_operand.h"
#include "math/matrix/structured/block_rect_products.h"
#include "math/matrix/structured/block_sym_products.h"
#include "math/matrix/structured/class_casts.h"
#include "math/matrix/symmetric/packed_rows.h"
#include "math/matrix/symmetric/product_target.h"
#include "math/matrix/symmetric/tiled_product.h"

namespace QVMath_940 {

namespace {

std::size_t At(int i) {
  return static_cast<std::size_t>(i);
}

// A dense L or B, with the fusing of the matrix that it multiplies.
PackedView ViewWith(const QVSymMatrix & l, bool isFused) {
  return {l.AsVector().data(), l.GetNRows(), isFused};
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

/// out = (columns start .. start + order of L - 1 of the symmetric row i) L.
void QVSymMatrix::MultiplyRowByL(int i, int start, const IQVSymMatrix & l, double * out) const {
  if (const QVSymBlockDiagMatrix * blocks = AsBlockDiagonal(l)) {
    blocks->ComputeSymRowByL(*this, i, start, out);
    return;
  }
  const PackedView s = ViewOf(*this);
  const std::vector<double> row = CopyPart(s, i, 1, start, l.GetNRows());
  if (const QVSymMatrix * lower = AsDense(l)) {
    MultiplyLowerTransposed(ViewWith(*lower, s.isFused), row.data(), out);
  } else {
    MultiplyLTransV(DiagonalBlocks(l)[0], row.data(), out);
  }
}

bool QVSymMatrix::SubSymVectBlockL(int i, int start, const IQVSymMatrix & l,
                                   std::vector<double> & out) const {
  const int order = l.GetNRows();
  if (!IsRow(i) || order < 0 || !IsPart(start, order)) return false;
  out.resize(At(order));
  MultiplyRowByL(i, start, l, out.data());
  return true;
}

bool QVSymMatrix::SubSymSBlockL(int start, const IQVSymMatrix & l, QVRectMatrix & out) const {
  return SubSymRectTBlockL(start, start, std::max(l.GetNRows(), 0), l, out);
}

bool QVSymMatrix::SubSymRectTBlockL(int startRow, int startCol, int cols, const IQVSymMatrix & l,
                                    QVRectMatrix & out) const {
  const int order = l.GetNRows();
  if (order < 0 || !IsPart(startRow, order) || !IsPart(startCol, cols)) return false;
  DenseTarget target(out, {});
  if (!target.Shape(cols, order)) return false;
  for (int j = 0; j < cols; ++j) {
    MultiplyRowByL(startCol + j, startRow, l, target.Data() + At(j) * At(order));
  }
  return target.Deliver();
}

/// out = L-transpose (the diagonal block from row `start` on) L, packed and 0.0 on entry.
void QVSymMatrix::MultiplyBlockByL(int start, const IQVSymMatrix & l, double * out) const {
  const PackedView block = ViewOf(*this).Block(start, l.GetNRows());
  if (const QVSymMatrix * lower = AsDense(l)) {
    MultiplyBothSides(BlockLowerTransposedFactor(ViewWith(*lower, block.isFused)), block.n, block,
                      out);
  } else {
    MultiplyLTransWL(DiagonalBlocks(l), block, out);
  }
}

bool QVSymMatrix::SubSymBlockLTSBlockL(int start, const IQVSymMatrix & l,
                                       IQVSymMatrix & out) const {
  QVSymMatrix * const dense = AsDense(out);
  const int order = l.GetNRows();
  if (dense == nullptr || order < 0 || !IsPart(start, order)) return false;
  TriangleTarget target(*dense, order, dense == this || dense == &l);
  if (!target.IsReady()) return false;
  MultiplyBlockByL(start, l, target.Elements());
  return target.Finish();
}

bool QVSymMatrix::AugmentUsingBlockDiagL(const IQVSymMatrix & l, IQVSymMatrix & out) const {
  QVSymMatrix * const dense = AsDense(out);
  const int order = l.GetNRows();
  if (dense == nullptr || order < 0 || !IsPart(0, order)) return false;
  const PackedView s = ViewOf(*this);
  TriangleTarget target(*dense, fNRows, dense == this || dense == &l);
  if (!target.IsReady()) return false;
  double * const elements = target.Elements();
  MultiplyBlockByL(0, l, elements);
  for (int i = order; i < fNRows; ++i) {
    double * const row = elements + RowStart(i);
    MultiplyRowByL(i, 0, l, row);
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
  const DiagonalBlocks blocks(b);
  std::vector<double> row;
  double sum = 0.0;
  for (int k = 0; k < order && b.GetRow(k, row); ++k) {
    const DiagonalBlock block = blocks.OfRow(k);
    const int first = block.FirstInRow(k);
    const double inner =
        DotRow(s, i, start + first, start + block.EndOfRow(k), Along(row.data() + first));
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
  const bool isOperand = dense == this || dense == &b;
  const std::vector<double> part = CopyPart(s, startRow, rows, startCol, order);
  TriangleTarget target(*dense, rows, isOperand);
  if (!target.IsReady()) return false;
  if (const QVSymMatrix * middle = AsDense(b)) {
    const RowsFactor outer(part.data(), order, order);
    MultiplyBothSides(outer, outer, rows, ViewWith(*middle, s.isFused), target.Elements());
  } else {
    MultiplyRSRTrans(DiagonalBlocks(b), part.data(), rows, target.Elements());
  }
  return target.Finish();
}

}  // namespace QVMath_940
