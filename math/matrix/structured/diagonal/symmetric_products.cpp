// Products of the diagonal matrix with symmetric ones, and traces.
//
// The result of an operand of diagonal blocks has those blocks, so that one body serves every
// class: it walks the operand's blocks and stores through the interface.
#include <algorithm>
#include <vector>

#include "QVDiagMatrix.h"
#include "QVMV.h"
#include "QVRectMatrix.h"
#include "math/matrix/rectangular/dense_operand.h"
#include "math/matrix/structured/block_sym_products.h"
#include "math/matrix/structured/class_casts.h"
#include "math/matrix/symmetric/product_target.h"

namespace QVMath_940 {

using QVCommon_940::QVMV;

namespace {

std::size_t At(int i) {
  return static_cast<std::size_t>(i);
}

// Makes `out` ready for a result with the blocks of `operand`, all 0.0: dense, or of its class.
bool ShapeTarget(const IQVSymMatrix & operand, IQVSymMatrix & out) {
  switch (out.GetType()) {
    case SymMatrixDense:
    case SymMatrixDiagonal:
      if (out.GetType() == SymMatrixDiagonal && operand.GetType() != SymMatrixDiagonal)
        return false;
      if (out.GetNRows() != operand.GetNRows()) return out.SetNRows(operand.GetNRows(), true);
      out.Clear();
      return true;
    case SymMatrixBlockDiagonal:
      break;
  }
  const QVSymBlockDiagMatrix * const blocks = AsBlockDiagonal(operand);
  return blocks != nullptr && blocks->CopyStructure(*AsBlockDiagonal(out));
}

// Calls store(i, j, block) for each element (i, j), j at or before i, that the blocks store.
template <class Store>
void ForEachStored(const DiagonalBlocks & blocks, Store store) {
  for (int b = 0; b < blocks.Count(); ++b) {
    const DiagonalBlock block = blocks[b];
    for (int i = block.start; i < block.End(); ++i)
      for (int j = block.isDiagonal ? i : block.start; j <= i; ++j)
        store(i, j, block);
  }
}

}  // namespace

// --- Rows ---------------------------------------------------------------------------------------

double QVDiagMatrix::ComputeDotProduct2Rows(int i, int j) const {
  if (!IsRow(i) || !IsRow(j)) return QVMV::Missing();
  return i == j ? fDiagonal[At(i)] * fDiagonal[At(i)] : 0.0;
}

double QVDiagMatrix::ComputeRowDotProductS(int i, const std::vector<double> & s, int j) const {
  if (!IsRow(i) || !IsRow(j) || s.size() != QVSymMatrix::RowStart(fNRows)) return QVMV::Missing();
  return fDiagonal[At(i)] * s[QVSymMatrix::PackedPosition(i, j)];
}

double QVDiagMatrix::ComputeRowDotProductS(int i, const IQVSymMatrix & s, int j) const {
  if (!IsRow(i) || !IsRow(j) || s.GetNRows() != fNRows) return QVMV::Missing();
  return fDiagonal[At(i)] * s.GetElem(i, j);
}

// --- S S, S T, sums -----------------------------------------------------------------------------

void QVDiagMatrix::ComputeSTransS(IQVSymMatrix & out) const {
  if (fNRows < 0 || out.GetType() == SymMatrixBlockDiagonal) return;
  const std::vector<double> diagonal = fDiagonal;  // `out` may be this matrix
  if (out.GetNRows() != fNRows) {
    if (!out.SetNRows(fNRows, true)) return;
  } else {
    out.Clear();
  }
  for (int i = 0; i < static_cast<int>(diagonal.size()); ++i)
    out.SetElem(i, i, diagonal[At(i)] * diagonal[At(i)]);
}

bool QVDiagMatrix::ComputeSS(const IQVSymMatrix & t, IQVRectMatrix & out) const {
  if (fNRows < 0 || t.GetNRows() != fNRows) return false;
  DenseTarget target(out, {});
  if (!target.Shape(fNRows, fNRows)) return false;
  double * const elements = target.Data();
  ForEachStored(DiagonalBlocks(t), [&](int i, int j, const DiagonalBlock & block) {
    const double element = block.Elem(i, j);
    elements[At(i) * Size() + At(j)] = fDiagonal[At(i)] * element;
    elements[At(j) * Size() + At(i)] = fDiagonal[At(j)] * element;
  });
  return target.Deliver();
}

bool QVDiagMatrix::ComputeAXpY(double a, const IQVSymMatrix & x) {
  if (fNRows < 0 || x.GetNRows() != fNRows) return false;
  bool isDiagonal = true;
  const DiagonalBlocks blocks(x);
  ForEachStored(blocks, [&](int i, int j, const DiagonalBlock & block) {
    isDiagonal = isDiagonal && (i == j || block.Elem(i, j) == 0.0);
  });
  if (!isDiagonal) return false;
  for (int i = 0; i < fNRows; ++i)
    fDiagonal[At(i)] += a * x.GetElem(i, i);
  return true;
}

// --- G S G and its kin --------------------------------------------------------------------------

bool QVDiagMatrix::ComputeGMG(const std::vector<double> & g, QVSymMatrix & out) const {
  if (fNRows < 0 || g.size() != QVSymMatrix::RowStart(fNRows)) return false;
  TriangleTarget target(out, fNRows, &out.AsVector() == &g);
  if (!target.IsReady()) return false;
  MultiplyGSG(DiagonalBlocks(*this), {g.data(), fNRows, fNRows >= kernels::kFusedOrder},
              target.Elements());
  return target.Finish();
}

bool QVDiagMatrix::ComputeGSG(const IQVSymMatrix & g, IQVSymMatrix & out) const {
  if (fNRows < 0 || g.GetNRows() != fNRows) return false;
  if (&out == &g)
    return WithCopyOf(g, [&](const IQVSymMatrix & copy) { return ComputeGSG(copy, out); });
  if (&out == this)
    return WithCopyOf(*this, [&](const IQVSymMatrix & copy) { return copy.ComputeGSG(g, out); });
  if (!ShapeTarget(g, out)) return false;
  if (const QVSymMatrix * dense = AsDense(g)) {
    MultiplyGSG(DiagonalBlocks(*this), ViewOf(*dense), AsDense(out)->AsVector().data());
    return true;
  }
  ForEachStored(DiagonalBlocks(g), [&](int i, int j, const DiagonalBlock & block) {
    double sum = 0.0;
    for (int k = block.isDiagonal ? i : block.start; k < (block.isDiagonal ? i + 1 : block.End());
         ++k)
      sum += block.Elem(i, k) * fDiagonal[At(k)] * block.Elem(k, j);
    out.SetElem(i, j, sum);
  });
  return true;
}

bool QVDiagMatrix::ComputeLSLTrans(const IQVSymMatrix & l, IQVSymMatrix & out) const {
  if (fNRows < 0 || l.GetNRows() != fNRows) return false;
  if (&out == &l)
    return WithCopyOf(l, [&](const IQVSymMatrix & copy) { return ComputeLSLTrans(copy, out); });
  if (&out == this)
    return WithCopyOf(*this,
                      [&](const IQVSymMatrix & copy) { return copy.ComputeLSLTrans(l, out); });
  if (!ShapeTarget(l, out)) return false;
  ForEachStored(DiagonalBlocks(l), [&](int i, int j, const DiagonalBlock & block) {
    double sum = 0.0;
    for (int k = block.isDiagonal ? i : block.start; k <= j; ++k)
      sum += block.Elem(i, k) * fDiagonal[At(k)] * block.Elem(j, k);
    out.SetElem(i, j, sum);
  });
  return true;
}

bool QVDiagMatrix::ComputeLTransSL(const IQVSymMatrix & l, IQVSymMatrix & out, int copies) const {
  const int order = l.GetNRows();
  if (copies < 1 || order < 0 || fNRows != static_cast<long long>(copies) * order) return false;
  if (&out == &l)
    return WithCopyOf(
        l, [&](const IQVSymMatrix & copy) { return ComputeLTransSL(copy, out, copies); });
  if (&out == this)
    return WithCopyOf(
        *this, [&](const IQVSymMatrix & copy) { return copy.ComputeLTransSL(l, out, copies); });
  if (out.GetType() == SymMatrixBlockDiagonal ||
      (out.GetType() == SymMatrixDiagonal && l.GetType() != SymMatrixDiagonal))
    return false;
  if (!ShapeTarget(*this, out)) return false;
  const DiagonalBlocks blocks(l);
  for (int start = 0; start < fNRows; start += order) {
    const double * const d = fDiagonal.data() + start;
    ForEachStored(blocks, [&](int i, int j, const DiagonalBlock & block) {
      double sum = 0.0;
      for (int k = i; k < (block.isDiagonal ? i + 1 : block.End()); ++k)
        sum += block.Elem(k, i) * d[k] * block.Elem(k, j);
      out.SetElem(start + i, start + j, sum);
    });
  }
  return true;
}

bool QVDiagMatrix::ComputeMGN(const IQVSymMatrix & m, const IQVSymMatrix & n,
                              IQVSymMatrix & out) const {
  if (fNRows < 0 || m.GetNRows() != fNRows || n.GetNRows() != fNRows) return false;
  if (m.GetType() != n.GetType() || m.GetType() == SymMatrixBlockDiagonal) return false;
  if (&out == &m || &out == &n) {
    return WithCopyOf(out, [&](const IQVSymMatrix & copy) {
      return ComputeMGN(&out == &m ? copy : m, &out == &n ? copy : n, out);
    });
  }
  if (&out == this)
    return WithCopyOf(*this, [&](const IQVSymMatrix & copy) { return copy.ComputeMGN(m, n, out); });
  if (!ShapeTarget(m, out)) return false;
  if (const QVSymMatrix * dense = AsDense(m)) {
    MultiplyMSN(DiagonalBlocks(*this), ViewOf(*dense), ViewOf(*AsDense(n)),
                AsDense(out)->AsVector().data());
    return true;
  }
  const std::vector<double> & dm = AsDiagonal(m)->fDiagonal;
  const std::vector<double> & dn = AsDiagonal(n)->fDiagonal;
  for (int i = 0; i < fNRows; ++i)
    out.SetElem(i, i, fDiagonal[At(i)] * (dm[At(i)] * dn[At(i)] + dn[At(i)] * dm[At(i)]));
  return true;
}

bool QVDiagMatrix::ComputeGMGNG(const IQVSymMatrix & m, const IQVSymMatrix & n, IQVSymMatrix & out,
                                std::vector<double> & work) const {
  const bool isTarget = out.GetType() == SymMatrixDense ||
                        (out.GetType() == SymMatrixDiagonal && m.GetType() == SymMatrixDiagonal);
  QVSymMatrix inner;
  if (!isTarget || !ComputeMGN(m, n, inner)) return false;
  const std::vector<double> & sum = inner.AsVector();
  const QVDiagMatrix outer(*this);  // `out` may be this matrix
  if (out.GetNRows() != outer.fNRows) {
    if (!out.SetNRows(outer.fNRows, true)) return false;
  } else {
    out.Clear();
  }
  const bool isDiagonal = out.GetType() == SymMatrixDiagonal;
  for (int i = 0; i < outer.fNRows; ++i)
    for (int j = isDiagonal ? i : 0; j <= i; ++j)
      out.SetElem(
          i, j,
          outer.fDiagonal[At(i)] * sum[QVSymMatrix::PackedPosition(i, j)] * outer.fDiagonal[At(j)]);
  if (work.size() < sum.size()) work.resize(sum.size());
  std::copy(sum.begin(), sum.end(), work.begin());
  return true;
}

// --- Traces -------------------------------------------------------------------------------------

double QVDiagMatrix::TraceOfProduct(const IQVSymMatrix & t) const {
  if (fNRows < 1 || t.GetNRows() != fNRows) return 0.0;
  double trace = 0.0;
  for (int i = 0; i < fNRows; ++i)
    trace += fDiagonal[At(i)] * t.GetElem(i, i);
  return trace;
}

double QVDiagMatrix::TraceOfProductOfThree(const IQVSymMatrix & a, const IQVSymMatrix & b) const {
  return TraceOfBlocks(DiagonalBlocks(*this), DiagonalBlocks(a), DiagonalBlocks(b));
}

}  // namespace QVMath_940
