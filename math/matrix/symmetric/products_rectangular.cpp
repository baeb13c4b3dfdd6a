// Products of the dense symmetric matrix with rectangular ones. The target may be an operand: the
// result is made aside then.
#include <algorithm>
#include <vector>

#include "QVRectMatrix.h"
#include "QVSymMatrix.h"
#include "math/kernels/kernel_table.h"
#include "math/kernels/packed_update.h"
#include "math/matrix/rectangular/dense_operand.h"
#include "math/matrix/structured/block_rect_products.h"
#include "math/matrix/symmetric/packed_rows.h"
#include "math/matrix/symmetric/product_target.h"
#include "math/matrix/symmetric/tiled_product.h"

namespace QVMath_940 {

namespace {

std::size_t At(int i) {
  return static_cast<std::size_t>(i);
}

RowsFactor ByRows(const QVRectMatrix & r) {
  return {r.AsVector().data(), r.GetNCols(), r.GetNCols()};
}

ColumnsFactor ByColumns(const QVRectMatrix & r) {
  return {r.AsVector().data(), r.GetNCols(), r.GetNRows()};
}

// out = R M R-transpose or R-transpose M R, whose order is that of the factor R or R-transpose.
template <typename Factor>
bool MultiplyBothSidesInto(const Factor & r, int order, const PackedView & middle,
                           QVSymMatrix & out, bool isOperand) {
  TriangleTarget target(out, order, isOperand);
  if (!target.IsReady()) return false;
  MultiplyBothSides(r, r, order, middle, target.Elements());
  return target.Finish();
}

// A matrix whose storage could not be obtained has -1 rows and columns.
bool IsShape(const IQVRectMatrix & r) {
  return r.GetNRows() >= 0 && r.GetNCols() >= 0;
}

// The products with a sparse matrix have a path of their own, over its cells.
bool IsSparse(const IQVRectMatrix & r) {
  return r.GetMatrixType() == RectMatrixSparse;
}

}  // namespace

// --- R S, R-transpose S -------------------------------------------------------------------------

bool QVSymMatrix::ComputeRS(const IQVRectMatrix & r, IQVRectMatrix & out) const {
  const QVRectMatrix * const left = AsDense(r);
  if (left == nullptr || fNRows < 0 || left->GetNCols() != fNRows) return false;
  const int rows = left->GetNRows();
  DenseTarget target(out, {left});
  if (!target.Shape(rows, fNRows)) return false;
  MultiplyToRows(ByRows(*left), rows, SymmetricFactor(ViewOf(*this)), fNRows, fNRows,
                 fNRows >= kernels::kFusedOrder, target.Data());
  return target.Deliver();
}

bool QVSymMatrix::ComputeRTransS(const IQVRectMatrix & r, IQVRectMatrix & out) const {
  if (fNRows < 0 || r.GetNRows() != fNRows || !IsShape(r)) return false;
  if (IsSparse(r)) return MultiplyRTransS(DiagonalBlocks(*this), r, out);
  const int rows = r.GetNCols();
  const DenseOperand left(r);
  DenseTarget target(out, {&r});
  if (!target.Shape(rows, fNRows)) return false;
  MultiplyToRows(ByColumns(*left), rows, SymmetricFactor(ViewOf(*this)), fNRows, fNRows,
                 fNRows >= kernels::kFusedOrder, target.Data());
  return target.Deliver();
}

bool QVSymMatrix::ComputeRTransSV(const IQVRectMatrix & r, const std::vector<double> & v,
                                  std::vector<double> & out) const {
  if (fNRows < 0 || r.GetNRows() != fNRows || !IsShape(r) || v.size() != At(fNRows)) return false;
  if (IsSparse(r)) return MultiplyRTransSV(DiagonalBlocks(*this), r, v, out);
  const PackedView s = ViewOf(*this);
  std::vector<double> sv(v.size());
  MultiplySymmetric(s, v.data(), sv.data());
  out.assign(At(r.GetNCols()), 0.0);
  if (const QVRectMatrix * dense = AsDense(r); dense != nullptr && s.isFused) {
    kernels::Kernels().combineFused(fNRows, sv.data(),
                                    {dense->AsVector().data(), dense->GetNCols(), 0}, out.size(),
                                    out.data());
    return true;
  }
  std::vector<double> row;
  for (int i = 0; i < fNRows && r.GetRow(i, row); ++i) {
    AddWalk(s.isFused, r.GetNCols(), sv[At(i)], Along(row.data()), out.data());
  }
  return true;
}

// --- R S R-transpose, R-transpose S R -----------------------------------------------------------

bool QVSymMatrix::ComputeRSRTrans(const IQVRectMatrix & r, IQVSymMatrix & out) const {
  if (IsSparse(r)) return MultiplyRSRTrans(DiagonalBlocks(*this), r, out, &out == this);
  return ComputeRSRTrans2(r, 0, fNRows, out);
}

bool QVSymMatrix::ComputeRSRTrans2(const IQVRectMatrix & r, int start, int size,
                                   IQVSymMatrix & out) const {
  QVSymMatrix * const dense = AsDense(out);
  if (dense == nullptr || !IsPart(start, size) || r.GetNCols() != size || !IsShape(r)) return false;
  const DenseOperand rows(r);
  return MultiplyBothSidesInto(ByRows(*rows), r.GetNRows(), ViewOf(*this).Block(start, size),
                               *dense, dense == this);
}

bool QVSymMatrix::ComputeRTransSR(const IQVRectMatrix & r, IQVSymMatrix & out) const {
  if (IsSparse(r)) return MultiplyRTransSR(DiagonalBlocks(*this), r, out, &out == this);
  return ComputeRTransSymR(r, 0, fNRows, out);
}

bool QVSymMatrix::ComputeRTransSymR(const IQVRectMatrix & r, int start, int size,
                                    IQVSymMatrix & out) const {
  QVSymMatrix * const dense = AsDense(out);
  if (dense == nullptr || !IsPart(start, size) || r.GetNRows() != size || !IsShape(r)) return false;
  const DenseOperand columns(r);
  return MultiplyBothSidesInto(ByColumns(*columns), r.GetNCols(), ViewOf(*this).Block(start, size),
                               *dense, dense == this);
}

bool QVSymMatrix::ComputeRDiagSRDiagTrans(const IQVRectMatrix & r, const std::vector<double> & d,
                                          IQVSymMatrix & out) const {
  QVSymMatrix * const dense = AsDense(out);
  if (dense == nullptr || fNRows < 0 || r.GetNCols() != fNRows || !IsShape(r)) return false;
  if (d.size() != At(fNRows)) return false;
  QVRectMatrix scaled(r.GetNRows(), fNRows, false);
  if (!scaled.IsValidMatrix()) return false;
  std::vector<double> row;
  double * element = scaled.AsVector().data();
  for (int i = 0; i < r.GetNRows() && r.GetRow(i, row); ++i) {
    for (std::size_t j = 0; j < d.size(); ++j) {
      *element++ = row[j] * d[j];
    }
  }
  return MultiplyBothSidesInto(ByRows(scaled), r.GetNRows(), ViewOf(*this), *dense, dense == this);
}

bool QVSymMatrix::ComputeRTransBlockDiagR(const IQVRectMatrix & r, int copies,
                                          IQVSymMatrix & out) const {
  QVSymMatrix * const dense = AsDense(out);
  if (dense == nullptr || fNRows < 0 || copies < 1 || !IsShape(r)) return false;
  if (r.GetNRows() != std::ptrdiff_t{copies} * fNRows) return false;
  if (IsSparse(r)) return MultiplyRTransSR(DiagonalBlocks(*this, copies), r, out, &out == this);
  const DenseOperand rows(r);
  const int cols = r.GetNCols();
  TriangleTarget target(*dense, cols, dense == this);
  if (!target.IsReady()) return false;
  // Block after block adds its product, so that each sum runs over all rows in their order.
  const PackedView s = ViewOf(*this);
  for (int block = 0; block < copies; ++block) {
    const double * const start = rows->AsVector().data() + At(block) * At(fNRows) * At(cols);
    const ColumnsFactor part(start, cols, fNRows);
    MultiplyBothSides(part, part, cols, s, target.Elements());
  }
  return target.Finish();
}

// --- R R-transpose, R-transpose R ---------------------------------------------------------------

bool QVSymMatrix::ComputeRByRTrans(const QVRectMatrix & r) {
  if (!IsShape(r)) return false;
  const int order = r.GetNRows();
  TriangleTarget target(*this, order, false);
  if (!target.IsReady()) return false;
  const RowsFactor rows = ByRows(r);
  MultiplyToTriangle(rows, rows, order, r.GetNCols(), order >= kernels::kFusedOrder,
                     target.Elements());
  return target.Finish();
}

bool QVSymMatrix::ComputeRTransByR(const QVRectMatrix & r) {
  if (!IsShape(r)) return false;
  const int order = r.GetNCols();
  TriangleTarget target(*this, order, false);
  if (!target.IsReady()) return false;
  if (order >= kernels::kFusedOrder) {
    const ColumnsFactor columns = ByColumns(r);
    MultiplyToTriangle(columns, columns, order, r.GetNRows(), true, target.Elements());
    return target.Finish();
  }
  // Row by row of R: each sum runs over the rows in their order, and those of a small matrix stay
  // in the cache.
  constexpr int kRowsAtATime = 64;
  const double * row = r.AsVector().data();
  for (int i = 0; i < r.GetNRows(); i += kRowsAtATime) {
    const int rows = std::min(kRowsAtATime, r.GetNRows() - i);
    kernels::PackedRankKUpdate(order, rows, {row, order}, {row, order}, target.Elements());
    row += std::ptrdiff_t{rows} * order;
  }
  return target.Finish();
}

}  // namespace QVMath_940
