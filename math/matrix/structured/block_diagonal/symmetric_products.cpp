// Products of the block-diagonal symmetric matrix with symmetric ones, and traces.
#include <algorithm>
#include <vector>

#include "QVMV.h"
#include "QVRectMatrix.h"
#include "QVSymBlockDiagMatrix.h"
#include "math/matrix/rectangular/dense_operand.h"
#include "math/matrix/structured/block_sym_products.h"
#include "math/matrix/structured/class_casts.h"
#include "math/matrix/symmetric/product_target.h"

namespace QVMath_940 {

namespace {

std::size_t At(int i) {
  return static_cast<std::size_t>(i);
}

bool AreBoth(SymMatrixType type, const IQVSymMatrix & a, const IQVSymMatrix & b) {
  return a.GetType() == type && b.GetType() == type;
}

// Copies the stored elements of the blocks to a packed triangle.
void StorePacked(const DiagonalBlocks & blocks, double * packed) {
  for (int b = 0; b < blocks.Count(); ++b) {
    const DiagonalBlock block = blocks[b];
    for (int i = block.start; i < block.End(); ++i)
      for (int j = block.isDiagonal ? i : block.start; j <= i; ++j)
        packed[QVSymMatrix::PackedPosition(i, j)] = block.Elem(i, j);
  }
}

}  // namespace

/// Gives `out` the structure of this matrix and fills block by block: ofDense(place, start, block)
/// and ofDiagonal(place, start, elements), `place` being the block's place among those of its kind.
/// Works aside, so that `out` may be an operand.
template <class DenseProduct, class DiagonalProduct>
bool QVSymBlockDiagMatrix::ComputeBlocks(QVSymBlockDiagMatrix & out, DenseProduct ofDense,
                                         DiagonalProduct ofDiagonal) const {
  QVSymBlockDiagMatrix made;
  if (!CopyStructure(made)) return false;
  for (int b = 0; b < fNBlocks; ++b) {
    const std::size_t place = At(fBlockIndices[At(b)]);
    const int start = fStartIndices[At(b)];
    if (fIsDiagonal.IsIn(b)) {
      ofDiagonal(place, start, made.fDiagBlocks[place]);
    } else if (!ofDense(place, start, made.fDenseBlocks[place])) {
      return false;
    }
  }
  out.Swap(made);
  return true;
}

// --- Rows ---------------------------------------------------------------------------------------

double QVSymBlockDiagMatrix::ComputeDotProduct2Rows(int i, int j) const {
  if (!IsRow(i) || !IsRow(j)) return 0.0;
  return DotRows(DiagonalBlocks(*this), i, DiagonalBlocks(*this), j);
}

double QVSymBlockDiagMatrix::ComputeRowDotProductS(int i, const std::vector<double> & s,
                                                   int j) const {
  if (!IsRow(i) || !IsRow(j) || s.size() != QVSymMatrix::RowStart(fNRows)) return 0.0;
  double sum = 0.0;
  for (int k = GetIndexFirstInRow(i); k < GetIndexEndOfRow(i); ++k)
    sum += GetElem(i, k) * s[QVSymMatrix::PackedPosition(j, k)];
  return sum;
}

double QVSymBlockDiagMatrix::ComputeRowDotProductS(int i, const IQVSymMatrix & s, int j) const {
  if (!IsRow(i) || !IsRow(j) || s.GetNRows() != fNRows) return 0.0;
  return DotRows(DiagonalBlocks(*this), i, DiagonalBlocks(s), j);
}

// --- S S, S T, sums -----------------------------------------------------------------------------

void QVSymBlockDiagMatrix::ComputeSTransS(IQVSymMatrix & out) const {
  if (!IsValidMatrix() || out.GetType() == SymMatrixDiagonal) return;
  QVSymBlockDiagMatrix square;
  const bool isMade = ComputeBlocks(
      square,
      [&](std::size_t place, int, QVSymMatrix & block) {
        fDenseBlocks[place].ComputeSTransS(block);
        return true;
      },
      [&](std::size_t place, int, std::vector<double> & block) {
        for (std::size_t i = 0; i < block.size(); ++i)
          block[i] = fDiagBlocks[place][i] * fDiagBlocks[place][i];
      });
  if (!isMade) return;
  if (QVSymBlockDiagMatrix * blocks = AsBlockDiagonal(out)) {
    blocks->Swap(square);
  } else {
    square.FillDenseMatrix(static_cast<QVSymMatrix &>(out));
  }
}

bool QVSymBlockDiagMatrix::ComputeSS(const IQVSymMatrix & t, IQVRectMatrix & out) const {
  if (fNRows < 0 || t.GetNRows() != fNRows) return false;
  DenseTarget target(out, {});
  if (!target.Shape(fNRows, fNRows)) return false;
  const DiagonalBlocks other(t);
  double * row = target.Data();
  for (int i = 0; i < fNRows; ++i, row += fNRows)
    for (int k = GetIndexFirstInRow(i); k < GetIndexEndOfRow(i); ++k)
      AddRowOf(other.OfRow(k), k, GetElem(i, k), row);
  return target.Deliver();
}

bool QVSymBlockDiagMatrix::ComputeAXpY(double a, const IQVSymMatrix & x) {
  if (!IsValidMatrix() || !IsSameStructure(x)) return false;
  const QVSymBlockDiagMatrix & other = *AsBlockDiagonal(x);
  for (std::size_t b = 0; b < fDenseBlocks.size(); ++b)
    fDenseBlocks[b].ComputeAXpY(a, other.fDenseBlocks[b]);
  for (std::size_t b = 0; b < fDiagBlocks.size(); ++b)
    for (std::size_t i = 0; i < fDiagBlocks[b].size(); ++i)
      fDiagBlocks[b][i] += a * other.fDiagBlocks[b][i];
  return true;
}

// --- G S G and its kin --------------------------------------------------------------------------

bool QVSymBlockDiagMatrix::ComputeGMG(const std::vector<double> & g, QVSymMatrix & out) const {
  if (fNRows < 0 || g.size() != QVSymMatrix::RowStart(fNRows)) return false;
  TriangleTarget target(out, fNRows, &out.AsVector() == &g);
  if (!target.IsReady()) return false;
  MultiplyGSG(DiagonalBlocks(*this), {g.data(), fNRows, fNRows >= kernels::kFusedOrder},
              target.Elements());
  return target.Finish();
}

bool QVSymBlockDiagMatrix::ComputeGSG(const IQVSymMatrix & g, IQVSymMatrix & out) const {
  if (!IsValidMatrix() || g.GetNRows() != fNRows) return false;
  if (AsDense(g) != nullptr && AsDense(out) != nullptr)
    return ComputeGMG(AsDense(g)->AsVector(), *AsDense(out));
  QVSymBlockDiagMatrix * const target = AsBlockDiagonal(out);
  if (target == nullptr) return false;
  if (const QVDiagMatrix * scale = AsDiagonal(g)) return ScaleBothSides(*scale, *target);
  if (!IsSameStructure(g)) return false;
  const QVSymBlockDiagMatrix & outer = *AsBlockDiagonal(g);
  return ComputeBlocks(
      *target,
      [&](std::size_t place, int, QVSymMatrix & block) {
        return fDenseBlocks[place].ComputeGSG(outer.fDenseBlocks[place], block);
      },
      [&](std::size_t place, int, std::vector<double> & block) {
        for (std::size_t i = 0; i < block.size(); ++i)
          block[i] =
              outer.fDiagBlocks[place][i] * fDiagBlocks[place][i] * outer.fDiagBlocks[place][i];
      });
}

/// out = D S D with D diagonal: what G S G, L S L-transpose and L-transpose S L are then.
bool QVSymBlockDiagMatrix::ScaleBothSides(const QVDiagMatrix & scale,
                                          QVSymBlockDiagMatrix & out) const {
  const double * const d = scale.AsVector().data();
  return ComputeBlocks(
      out,
      [&](std::size_t place, int start, QVSymMatrix & block) {
        for (int i = 0; i < block.GetNRows(); ++i)
          for (int j = 0; j <= i; ++j)
            block.SetElem(i, j, d[start + i] * fDenseBlocks[place].GetElem(i, j) * d[start + j]);
        return true;
      },
      [&](std::size_t place, int start, std::vector<double> & block) {
        for (std::size_t i = 0; i < block.size(); ++i)
          block[i] = d[At(start) + i] * fDiagBlocks[place][i] * d[At(start) + i];
      });
}

/// Block `block` of L S L-transpose, `place` being its place among the dense blocks.
bool QVSymBlockDiagMatrix::ComputeProductLAndSquare(std::size_t place,
                                                    const QVSymBlockDiagMatrix & l,
                                                    QVSymMatrix & block) const {
  return fDenseBlocks[place].ComputeLSLTrans(l.fDenseBlocks[place], block);
}

/// The same for a diagonal block: S times the square of L.
void QVSymBlockDiagMatrix::ComputeProductLAndSquare(std::size_t place,
                                                    const QVSymBlockDiagMatrix & l,
                                                    std::vector<double> & block) const {
  for (std::size_t i = 0; i < block.size(); ++i)
    block[i] = l.fDiagBlocks[place][i] * fDiagBlocks[place][i] * l.fDiagBlocks[place][i];
}

bool QVSymBlockDiagMatrix::ComputeLSLTrans(const IQVSymMatrix & l, IQVSymMatrix & out) const {
  if (!IsValidMatrix() || l.GetNRows() != fNRows) return false;
  if (AsDense(l) != nullptr && AsDense(out) != nullptr) {
    TriangleTarget target(*AsDense(out), fNRows, &l == &out);
    if (!target.IsReady()) return false;
    MultiplyLSLTrans(DiagonalBlocks(*this), ViewOf(*AsDense(l)), target.Elements());
    return target.Finish();
  }
  QVSymBlockDiagMatrix * const target = AsBlockDiagonal(out);
  if (target == nullptr) return false;
  if (const QVDiagMatrix * scale = AsDiagonal(l)) return ScaleBothSides(*scale, *target);
  if (!IsSameStructure(l)) return false;
  const QVSymBlockDiagMatrix & lower = *AsBlockDiagonal(l);
  return ComputeBlocks(
      *target,
      [&](std::size_t place, int, QVSymMatrix & block) {
        return ComputeProductLAndSquare(place, lower, block);
      },
      [&](std::size_t place, int, std::vector<double> & block) {
        ComputeProductLAndSquare(place, lower, block);
      });
}

bool QVSymBlockDiagMatrix::ComputeLTransSL(const IQVSymMatrix & l, IQVSymMatrix & out,
                                           int copies) const {
  if (!IsValidMatrix() || l.GetNRows() != fNRows || copies != 1) return false;
  if (AsDense(l) != nullptr && AsDense(out) != nullptr) {
    TriangleTarget target(*AsDense(out), fNRows, &l == &out);
    if (!target.IsReady()) return false;
    MultiplyLTransSL(DiagonalBlocks(*this), ViewOf(*AsDense(l)), target.Elements());
    return target.Finish();
  }
  QVSymBlockDiagMatrix * const target = AsBlockDiagonal(out);
  if (target == nullptr) return false;
  if (const QVDiagMatrix * scale = AsDiagonal(l)) return ScaleBothSides(*scale, *target);
  if (!IsSameStructure(l)) return false;
  const QVSymBlockDiagMatrix & lower = *AsBlockDiagonal(l);
  return ComputeBlocks(
      *target,
      [&](std::size_t place, int, QVSymMatrix & block) {
        return fDenseBlocks[place].ComputeLTransSL(lower.fDenseBlocks[place], block, 1);
      },
      [&](std::size_t place, int, std::vector<double> & block) {
        ComputeProductLAndSquare(place, lower, block);
      });
}

bool QVSymBlockDiagMatrix::ComputeMGN(const IQVSymMatrix & m, const IQVSymMatrix & n,
                                      IQVSymMatrix & out) const {
  if (!IsValidMatrix() || m.GetNRows() != fNRows || n.GetNRows() != fNRows) return false;
  if (AreBoth(SymMatrixDense, m, n)) {
    QVSymMatrix * const dense = AsDense(out);
    if (dense == nullptr) return false;
    TriangleTarget target(*dense, fNRows, &out == &m || &out == &n);
    if (!target.IsReady()) return false;
    MultiplyMSN(DiagonalBlocks(*this), ViewOf(*AsDense(m)), ViewOf(*AsDense(n)), target.Elements());
    return target.Finish();
  }
  if (out.GetType() == SymMatrixDiagonal) return false;
  const bool areDiagonal = AreBoth(SymMatrixDiagonal, m, n);
  if (!areDiagonal && !(IsSameStructure(m) && IsSameStructure(n))) return false;
  QVSymBlockDiagMatrix made;
  const DiagonalBlocks blocksM(m);
  const DiagonalBlocks blocksN(n);
  const bool isMade = ComputeBlocks(
      made,
      [&](std::size_t place, int start, QVSymMatrix & block) {
        const QVSymMatrix & g = fDenseBlocks[place];
        if (!areDiagonal)
          return g.ComputeMGN(AsBlockDiagonal(m)->fDenseBlocks[place],
                              AsBlockDiagonal(n)->fDenseBlocks[place], block);
        const double * const dm = blocksM[0].elements + start;
        const double * const dn = blocksN[0].elements + start;
        for (int i = 0; i < block.GetNRows(); ++i)
          for (int j = 0; j <= i; ++j)
            block.SetElem(i, j, g.GetElem(i, j) * (dm[i] * dn[j] + dn[i] * dm[j]));
        return true;
      },
      [&](std::size_t place, int start, std::vector<double> & block) {
        for (int i = 0; i < static_cast<int>(block.size()); ++i) {
          const double product = m.GetElem(start + i, start + i) * n.GetElem(start + i, start + i);
          block[At(i)] = fDiagBlocks[place][At(i)] * (product + product);
        }
      });
  if (!isMade) return false;
  if (QVSymBlockDiagMatrix * target = AsBlockDiagonal(out)) {
    target->Swap(made);
    return true;
  }
  return made.FillDenseMatrix(static_cast<QVSymMatrix &>(out));
}

bool QVSymBlockDiagMatrix::ComputeGMGNG(const IQVSymMatrix & m, const IQVSymMatrix & n,
                                        IQVSymMatrix & out, std::vector<double> & work) const {
  if (out.GetType() == SymMatrixDiagonal) return false;
  if (AreBoth(SymMatrixDense, m, n)) {
    QVSymMatrix * const dense = AsDense(out);
    QVSymMatrix inner;
    if (dense == nullptr || !ComputeMGN(m, n, inner)) return false;
    TriangleTarget target(*dense, fNRows, false);  // M and N are not read any more
    if (!target.IsReady()) return false;
    MultiplySWS(DiagonalBlocks(*this), ViewOf(inner), target.Elements());
    const std::vector<double> & sum = inner.AsVector();
    if (work.size() < sum.size()) work.resize(sum.size());
    std::copy(sum.begin(), sum.end(), work.begin());
    return target.Finish();
  }
  QVSymBlockDiagMatrix inner;
  QVSymBlockDiagMatrix made;
  if (!ComputeMGN(m, n, inner) || !inner.ComputeGSG(*this, made)) return false;
  const std::size_t size = QVSymMatrix::RowStart(fNRows);
  if (work.size() < size) work.resize(size);
  std::fill_n(work.begin(), size, 0.0);
  StorePacked(DiagonalBlocks(inner), work.data());
  if (QVSymBlockDiagMatrix * target = AsBlockDiagonal(out)) {
    target->Swap(made);
    return true;
  }
  return made.FillDenseMatrix(static_cast<QVSymMatrix &>(out));
}

// --- Traces -------------------------------------------------------------------------------------

double QVSymBlockDiagMatrix::TraceOfProduct(const IQVSymMatrix & t) const {
  return TraceOfBlocks(DiagonalBlocks(*this), DiagonalBlocks(t));
}

double QVSymBlockDiagMatrix::TraceOfProductOfThree(const IQVSymMatrix & a,
                                                   const IQVSymMatrix & b) const {
  return TraceOfBlocks(DiagonalBlocks(*this), DiagonalBlocks(a), DiagonalBlocks(b));
}

}  // namespace QVMath_940
