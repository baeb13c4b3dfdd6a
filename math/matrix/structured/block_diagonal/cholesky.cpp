// The Cholesky family of the block-diagonal symmetric matrix: each block by itself.
#include <algorithm>
#include <cmath>
#include <limits>

#include "QVSymBlockDiagMatrix.h"
#include "math/matrix/structured/class_casts.h"
#include "math/matrix/symmetric/determinant.h"
#include "math/matrix/symmetric/packed_cholesky.h"

namespace QVMath_940 {

namespace {

// Before any diagonal element is looked at.
constexpr double kNoDiagonal = std::numeric_limits<double>::lowest();

// LTDetInverse's job: the inverse alone.
constexpr int kInverseAlone = 10;

std::size_t At(int i) {
  return static_cast<std::size_t>(i);
}

}  // namespace

// --- Factor -------------------------------------------------------------------------------------

bool QVSymBlockDiagMatrix::AreCholeskyArguments(const std::vector<double> & ref, double tol) const {
  if (tol < 0.0 || ref.size() < Size()) return false;
  return std::none_of(ref.begin(), ref.begin() + static_cast<std::ptrdiff_t>(Size()),
                      [](double value) { return value < 0.0; });
}

int QVSymBlockDiagMatrix::FactorBlocks(const std::vector<double> & ref, double tol,
                                       QVBitSet * accepted) {
  int deficiency = 0;
  std::vector<char> isAccepted(accepted == nullptr ? 0 : Size());
  for (int b = 0; b < fNBlocks; ++b) {
    const std::size_t place = At(fBlockIndices[At(b)]);
    const int start = fStartIndices[At(b)];
    const PivotThresholds thresholds{ref.data() + start, tol};
    char * const marks = accepted == nullptr ? nullptr : isAccepted.data() + start;
    if (!fIsDiagonal.IsIn(b)) {
      deficiency += FactorPacked(fDenseBlocks[place].AsVector().data(), fBlockSizes[At(b)],
                                 thresholds, marks);
      continue;
    }
    std::vector<double> & block = fDiagBlocks[place];
    for (int i = 0; i < fBlockSizes[At(b)]; ++i) {
      const bool isPivot = block[At(i)] > thresholds.Bound(i);
      block[At(i)] = isPivot ? std::sqrt(block[At(i)]) : 0.0;
      deficiency += !isPivot;
      if (marks != nullptr) marks[i] = isPivot;
    }
  }
  for (int i = 0; i < static_cast<int>(isAccepted.size()); ++i)
    if (isAccepted[At(i)] != 0) accepted->Set(i, true);
  return deficiency;
}

int QVSymBlockDiagMatrix::LTChol(const std::vector<double> & ref, double tol, bool check) {
  if (check && !AreCholeskyArguments(ref, tol)) return -1;
  return FactorBlocks(ref, tol, nullptr);
}

int QVSymBlockDiagMatrix::LTChol(const std::vector<double> & ref, double tol, QVBitSet & accepted,
                                 bool check) {
  if (accepted.Size() < fNRows) {
    accepted.Resize(fNRows, false);
  } else {
    accepted.Clear();
  }
  if (check && !AreCholeskyArguments(ref, tol)) return -1;
  return FactorBlocks(ref, tol, &accepted);
}

int QVSymBlockDiagMatrix::LTChol(double tol, double & minDiag, bool check) {
  minDiag = kNoDiagonal;
  std::vector<double> ref;
  GetNCheckDiagonal(ref, tol, 1.0);
  const int deficiency = LTChol(ref, tol, check);
  if (deficiency >= 0) minDiag = SmallestDiagonal();
  return deficiency;
}

/// The smallest diagonal element; the lowest finite double without rows.
double QVSymBlockDiagMatrix::SmallestDiagonal() const {
  if (fNRows < 1) return kNoDiagonal;
  double smallest = GetElem(0, 0);
  for (int i = 1; i < fNRows; ++i)
    smallest = std::min(smallest, GetElem(i, i));
  return smallest;
}

// --- Determinant, inverse -----------------------------------------------------------------------

int QVSymBlockDiagMatrix::LTDetInverse(double * const det, int job) {
  int zeros = 0;
  for (int i = 0; i < fNRows; ++i)
    zeros += GetElem(i, i) == 0.0;
  if (job % 10 != 0) {
    det[0] = zeros > 0 ? 0.0 : 1.0;
    det[1] = 0.0;
    for (int i = 0; i < fNRows && zeros == 0; ++i) {
      det[0] *= GetElem(i, i);
      NormaliseDeterminant(det);
    }
  }
  if (job / 10 == 0) return zeros;
  for (QVSymMatrix & block : fDenseBlocks)
    block.LTDetInverse(nullptr, kInverseAlone);
  for (std::vector<double> & block : fDiagBlocks)
    for (double & d : block)
      if (d != 0.0) d = 1.0 / d;
  return zeros;
}

bool QVSymBlockDiagMatrix::LTInverse() {
  for (QVSymMatrix & block : fDenseBlocks)
    block.LTInverse();
  for (std::vector<double> & block : fDiagBlocks)
    for (double & d : block)
      if (d != 0.0) d = 1.0 / d;
  return true;
}

void QVSymBlockDiagMatrix::LTLLTrans() {
  for (QVSymMatrix & block : fDenseBlocks)
    block.LTLLTrans();
  for (std::vector<double> & block : fDiagBlocks)
    for (double & d : block)
      d *= d;
}

void QVSymBlockDiagMatrix::LTLTransL() {
  for (QVSymMatrix & block : fDenseBlocks)
    block.LTLTransL();
  for (std::vector<double> & block : fDiagBlocks)
    for (double & d : block)
      d *= d;
}

int QVSymBlockDiagMatrix::CholInverse(const std::vector<double> & ref, double tol,
                                      IQVSymMatrix & out) const {
  return InvertByCholesky(ref, tol, out, nullptr, nullptr);
}

int QVSymBlockDiagMatrix::CholInverse(const std::vector<double> & ref, double tol,
                                      IQVSymMatrix & out, QVBitSet & accepted) const {
  return InvertByCholesky(ref, tol, out, &accepted, nullptr);
}

int QVSymBlockDiagMatrix::CholInverse(const std::vector<double> & ref, double tol,
                                      IQVSymMatrix & out, double & minDiag) const {
  return InvertByCholesky(ref, tol, out, nullptr, &minDiag);
}

int QVSymBlockDiagMatrix::InvertByCholesky(const std::vector<double> & ref, double tol,
                                           IQVSymMatrix & out, QVBitSet * accepted,
                                           double * minDiag) const {
  if (minDiag != nullptr) *minDiag = kNoDiagonal;
  if (out.GetType() == SymMatrixDiagonal || !IsValidMatrix()) return -1;
  if (out.GetType() == SymMatrixDense) {
    QVSymBlockDiagMatrix inverse;
    const int rank = InvertByCholesky(ref, tol, inverse, accepted, minDiag);
    const bool isFilled = rank >= 0 && inverse.FillDenseMatrix(static_cast<QVSymMatrix &>(out));
    return isFilled ? rank : -1;
  }
  const std::vector<std::vector<double>> diagonals = fDiagBlocks;  // `out` may be this matrix
  QVSymBlockDiagMatrix & inverse = static_cast<QVSymBlockDiagMatrix &>(out);
  inverse = *this;
  if (!inverse.IsValidMatrix()) return -1;
  const int deficiency = accepted == nullptr ? inverse.LTChol(ref, tol, false)
                                             : inverse.LTChol(ref, tol, *accepted, false);
  if (minDiag != nullptr) *minDiag = inverse.SmallestDiagonal();
  inverse.LTInverse();
  // 1 over the root so far: its square would round more often than 1 over the element itself.
  for (std::size_t b = 0; b < diagonals.size(); ++b)
    for (std::size_t i = 0; i < diagonals[b].size(); ++i)
      if (inverse.fDiagBlocks[b][i] != 0.0) inverse.fDiagBlocks[b][i] = 1.0 / diagonals[b][i];
  return inverse.GetNRows() - deficiency;
}

int QVSymBlockDiagMatrix::LTSolve(const std::vector<double> & b, double tol,
                                  std::vector<double> & x) {
  if (!(tol > 0.0) || b.size() < Size()) return -1;
  std::vector<double> ref;
  GetDiagonal(ref);
  std::vector<double> solution(b.begin(), b.begin() + static_cast<std::ptrdiff_t>(Size()));
  const int deficiency = FactorBlocks(ref, tol, nullptr);
  std::vector<double> part;
  for (int block = 0; block < fNBlocks; ++block) {
    const std::size_t place = At(fBlockIndices[At(block)]);
    const auto first = solution.begin() + fStartIndices[At(block)];
    const int size = fBlockSizes[At(block)];
    if (fIsDiagonal.IsIn(block)) {
      for (int i = 0; i < size; ++i) {
        const double root = fDiagBlocks[place][At(i)];
        first[i] = root != 0.0 ? first[i] / root / root : 0.0;
      }
    } else {
      part.assign(first, first + size);
      fDenseBlocks[place].LTSubstitute(part, part);
      std::copy(part.begin(), part.end(), first);
    }
  }
  x = std::move(solution);
  return deficiency;
}

bool QVSymBlockDiagMatrix::ComputeDeterminant(double tol, double * const det) const {
  if (fNRows < 1) return false;
  QVSymBlockDiagMatrix factor(*this);
  if (!factor.IsValidMatrix()) return false;
  double minDiag;
  if (factor.LTChol(tol, minDiag, true) < 0) return false;
  if (minDiag == 0.0) {
    det[0] = 0.0;
    det[1] = 0.0;
    return true;
  }
  factor.LTDetInverse(det, 1);
  det[0] *= det[0];
  det[1] *= 2.0;
  NormaliseDeterminant(det);
  return true;
}

}  // namespace QVMath_940
