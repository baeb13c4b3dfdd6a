// Products of the dense symmetric matrix with other symmetric ones. The target may be an operand:
// the result is made aside then.
#include <algorithm>
#include <vector>

#include "QVBitSet.h"
#include "QVMV.h"
#include "QVRectMatrix.h"
#include "QVSymMatrix.h"
#include "math/kernels/kernel_table.h"
#include "math/matrix/rectangular/dense_operand.h"
#include "math/matrix/structured/block_sym_products.h"
#include "math/matrix/symmetric/packed_rows.h"
#include "math/matrix/symmetric/product_target.h"
#include "math/matrix/symmetric/tiled_product.h"

namespace QVMath_940 {

namespace {

std::size_t At(int i) {
  return static_cast<std::size_t>(i);
}

// M and N are both dense or both diagonal, and of the order n.
bool AreMAndN(const IQVSymMatrix & m, const IQVSymMatrix & n, int order) {
  if (order < 0 || m.GetNRows() != order || n.GetNRows() != order) return false;
  const SymMatrixType type = m.GetType();
  return type == n.GetType() && (type == SymMatrixDense || type == SymMatrixDiagonal);
}

// M G N + N G M, into elements that are 0.0.
void AddMGN(const IQVSymMatrix & m, const PackedView & g, const IQVSymMatrix & n, double * out) {
  if (m.GetType() == SymMatrixDense) {
    MultiplyBetween(ViewOf(*AsDense(m)), g, ViewOf(*AsDense(n)), out);
    return;
  }
  std::vector<double> dm;
  std::vector<double> dn;
  m.GetDiagonal(dm);
  n.GetDiagonal(dn);
  for (int i = 0; i < g.n; ++i) {
    for (int j = 0; j <= i; ++j) {
      *out++ = g.Elem(i, j) * (dm[At(i)] * dn[At(j)] + dn[At(i)] * dm[At(j)]);
    }
  }
}

}  // namespace

// --- Dot products of rows -----------------------------------------------------------------------

double QVSymMatrix::ComputeDotProduct2Rows(int i, int j) const {
  if (!IsRow(i) || !IsRow(j)) return 0.0;
  return DotTwoRows(ViewOf(*this), i, ViewOf(*this), j, 0, fNRows);
}

double QVSymMatrix::ComputeRowDotProductS(int i, const std::vector<double> & s, int j) const {
  if (!IsRow(i) || !IsRow(j) || s.size() != RowStart(fNRows)) return 0.0;
  const PackedView view = ViewOf(*this);
  return DotTwoRows(view, i, {s.data(), fNRows, view.isFused}, j, 0, fNRows);
}

double QVSymMatrix::ComputeRowDotProductS(int i, const IQVSymMatrix & s, int j) const {
  const QVSymMatrix * const dense = AsDense(s);
  return dense != nullptr ? ComputeRowDotProductS(i, dense->AsVector(), j)
                          : QVCommon_940::QVMV::Missing();
}

void QVSymMatrix::ComputeRowDotProductS(int i, const std::vector<double> & a,
                                        const std::vector<double> & b, int j, double & ra,
                                        double & rb) const {
  ra = ComputeRowDotProductS(i, a, j);
  rb = ComputeRowDotProductS(i, b, j);
}

void QVSymMatrix::ComputeRowDotProductS(int i, const IQVSymMatrix & a, const IQVSymMatrix & b,
                                        int j, double & ra, double & rb) const {
  ra = ComputeRowDotProductS(i, a, j);
  rb = ComputeRowDotProductS(i, b, j);
}

// --- S S, S T -----------------------------------------------------------------------------------

void QVSymMatrix::ComputeSTransS(IQVSymMatrix & out) const {
  QVSymMatrix * const dense = AsDense(out);
  if (dense == nullptr || fNRows < 0) return;
  TriangleTarget target(*dense, fNRows, dense == this);
  if (!target.IsReady()) return;
  const SymmetricFactor s(ViewOf(*this));
  MultiplyToTriangle(s, s, fNRows, fNRows, fNRows >= kernels::kFusedOrder, target.Elements());
  target.Finish();
}

bool QVSymMatrix::ComputeSS(const IQVSymMatrix & t, IQVRectMatrix & out) const {
  const QVSymMatrix * const other = AsDense(t);
  if (other == nullptr || fNRows < 0 || other->fNRows != fNRows) return false;
  DenseTarget target(out, {});
  if (!target.Shape(fNRows, fNRows)) return false;
  MultiplyToRows(SymmetricFactor(ViewOf(*this)), fNRows, SymmetricFactor(ViewOf(*other)), fNRows,
                 fNRows, fNRows >= kernels::kFusedOrder, target.Data());
  return target.Deliver();
}

// --- G S G and its kin --------------------------------------------------------------------------

bool QVSymMatrix::ComputeGMG(const std::vector<double> & g, QVSymMatrix & out) const {
  if (fNRows < 0 || g.size() != RowStart(fNRows)) return false;
  TriangleTarget target(out, fNRows, &out == this || &out.fElements == &g);
  if (!target.IsReady()) return false;
  const PackedView s = ViewOf(*this);
  const SymmetricFactor outer({g.data(), fNRows, s.isFused});
  MultiplyBothSides(outer, outer, fNRows, s, target.Elements());
  return target.Finish();
}

bool QVSymMatrix::ComputeGSG(const IQVSymMatrix & g, IQVSymMatrix & out) const {
  QVSymMatrix * const dense = AsDense(out);
  if (dense == nullptr || fNRows < 0 || g.GetNRows() != fNRows) return false;
  if (const QVSymMatrix * outer = AsDense(g)) return ComputeGMG(outer->fElements, *dense);
  TriangleTarget target(*dense, fNRows, dense == this);
  if (!target.IsReady()) return false;
  MultiplySWS(DiagonalBlocks(g), ViewOf(*this), target.Elements());
  return target.Finish();
}

bool QVSymMatrix::ComputeMGN(const IQVSymMatrix & m, const IQVSymMatrix & n,
                             IQVSymMatrix & out) const {
  QVSymMatrix * const dense = AsDense(out);
  if (dense == nullptr || !AreMAndN(m, n, fNRows)) return false;
  TriangleTarget target(*dense, fNRows, dense == this || dense == &m || dense == &n);
  if (!target.IsReady()) return false;
  AddMGN(m, ViewOf(*this), n, target.Elements());
  return target.Finish();
}

bool QVSymMatrix::ComputeGMGNG(const IQVSymMatrix & m, const IQVSymMatrix & n, IQVSymMatrix & out,
                               std::vector<double> & work) const {
  QVSymMatrix * const dense = AsDense(out);
  if (dense == nullptr || !AreMAndN(m, n, fNRows)) return false;
  const PackedView g = ViewOf(*this);
  const std::size_t size = RowStart(fNRows);
  if (work.size() < size) work.resize(size);
  std::fill_n(work.begin(), size, 0.0);
  AddMGN(m, g, n, work.data());
  TriangleTarget target(*dense, fNRows, dense == this);
  if (!target.IsReady()) return false;
  const SymmetricFactor outer(g);
  MultiplyBothSides(outer, outer, fNRows, {work.data(), fNRows, g.isFused}, target.Elements());
  return target.Finish();
}

bool QVSymMatrix::ComputeLSLTrans(const IQVSymMatrix & l, IQVSymMatrix & out) const {
  QVSymMatrix * const dense = AsDense(out);
  if (dense == nullptr || fNRows < 0 || l.GetNRows() != fNRows) return false;
  if (l.GetType() != SymMatrixDense && l.GetType() != SymMatrixBlockDiagonal) return false;
  TriangleTarget target(*dense, fNRows, dense == this || dense == &l);
  if (!target.IsReady()) return false;
  if (const QVSymMatrix * lower = AsDense(l)) {
    MultiplyBothSides(LowerFactor(ViewOf(*lower)), fNRows, ViewOf(*this), target.Elements());
  } else {
    MultiplyLWLTrans(DiagonalBlocks(l), ViewOf(*this), target.Elements());
  }
  return target.Finish();
}

bool QVSymMatrix::ComputeLTransSL(const IQVSymMatrix & l, IQVSymMatrix & out, int copies) const {
  QVSymMatrix * const dense = AsDense(out);
  const int order = l.GetNRows();
  if (dense == nullptr || copies < 1 || order < 0 || fNRows != std::ptrdiff_t{copies} * order) {
    return false;
  }
  if (l.GetType() != SymMatrixDense && l.GetType() != SymMatrixBlockDiagonal) return false;
  TriangleTarget target(*dense, fNRows, dense == this || dense == &l);
  if (!target.IsReady()) return false;
  if (const QVSymMatrix * lower = AsDense(l)) {
    MultiplyBothSides(BlockLowerTransposedFactor(ViewOf(*lower)), fNRows, ViewOf(*this),
                      target.Elements());
  } else {
    MultiplyLTransWL(DiagonalBlocks(l, copies), ViewOf(*this), target.Elements());
  }
  return target.Finish();
}

// --- Sum, check ---------------------------------------------------------------------------------

bool QVSymMatrix::ComputeAXpY(double a, const IQVSymMatrix & x) {
  if (fNRows < 0 || x.GetNRows() != fNRows) return false;
  if (const QVSymMatrix * dense = AsDense(x)) {
    kernels::Kernels().axpyPlain(fElements.size(), a, dense->fElements.data(), fElements.data());
    return true;
  }
  // Another class stores some of its elements only: the others add nothing.
  const DiagonalBlocks blocks(x);
  for (int b = 0; b < blocks.Count(); ++b) {
    const DiagonalBlock block = blocks[b];
    for (int i = block.start; i < block.End(); ++i) {
      double * const row = fElements.data() + RowStart(i);
      for (int j = block.FirstInRow(i); j <= i; ++j) {
        row[j] += a * block.Elem(i, j);
      }
    }
  }
  return true;
}

bool QVSymMatrix::CheckGMG(const std::vector<double> & g, const QVBitSet & in, IQVSymMatrix & m,
                           QVBitSet & neg, bool & all, int & count) const {
  if (fNRows < 0 || g.size() != RowStart(fNRows) || in.Size() < fNRows || m.GetNRows() < fNRows) {
    return false;
  }
  count = 0;
  all = false;
  if (fNRows < 1) return true;
  const QVBitSet rows = in;  // `neg` may be the same set
  if (neg.Size() != fNRows) neg.Resize(fNRows, false);
  neg.Clear();
  std::vector<double> d(At(fNRows), 0.0);
  for (int i = 0; i < fNRows; ++i) {
    if (rows.IsIn(i) && g[PackedPosition(i, i)] < 0.0) {
      neg.Set(i, true);
      m.ZeroOut(i);
      ++count;
    } else {
      d[At(i)] = m.GetElem(i, i);
    }
  }
  for (int i = 0; i < fNRows; ++i) {
    if (rows.IsIn(i) && !(d[At(i)] > 0.0) && !neg.IsIn(i)) {
      m.ZeroOut(i);
      ++count;
    }
  }
  all = count > 0 && count == rows.InSet();
  return true;
}

}  // namespace QVMath_940
