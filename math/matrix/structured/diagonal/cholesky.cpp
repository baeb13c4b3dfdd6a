// The Cholesky family of the diagonal matrix, where a factor is the root of each element.
#include <algorithm>
#include <cmath>
#include <limits>

#include "QVDiagMatrix.h"
#include "math/matrix/symmetric/determinant.h"

namespace QVMath_940 {

namespace {

// Before any element of the factor is looked at.
constexpr double kNoDiagonal = std::numeric_limits<double>::lowest();

std::size_t At(int i) {
  return static_cast<std::size_t>(i);
}

void ClearBits(QVBitSet & set, int n) {
  if (set.Size() < n) {
    set.Resize(n, false);
  } else {
    set.Clear();
  }
}

}  // namespace

bool QVDiagMatrix::AreCholeskyArguments(const std::vector<double> & ref, double tol) const {
  if (tol < 0.0 || ref.size() < Size()) return false;
  return std::none_of(ref.begin(), ref.begin() + static_cast<std::ptrdiff_t>(Size()),
                      [](double value) { return value < 0.0; });
}

int QVDiagMatrix::LTChol(const std::vector<double> & ref, double tol, bool check) {
  if (check && !AreCholeskyArguments(ref, tol)) return -1;
  int deficiency = 0;
  for (int i = 0; i < fNRows; ++i) {
    double & d = fDiagonal[At(i)];
    const bool isAccepted = d > tol * ref[At(i)];
    d = isAccepted ? std::sqrt(d) : 0.0;
    deficiency += !isAccepted;
  }
  return deficiency;
}

int QVDiagMatrix::LTChol(const std::vector<double> & ref, double tol, QVBitSet & accepted,
                         bool check) {
  ClearBits(accepted, fNRows);
  if (check && !AreCholeskyArguments(ref, tol)) return -1;
  for (int i = 0; i < fNRows; ++i)
    if (fDiagonal[At(i)] > tol * ref[At(i)]) accepted.Set(i, true);
  return LTChol(ref, tol, false);
}

int QVDiagMatrix::LTChol(double tol, double & minDiag, bool check) {
  minDiag = kNoDiagonal;
  std::vector<double> ref;
  GetNCheckDiagonal(ref, tol, 1.0);
  const int deficiency = LTChol(ref, tol, check);
  if (deficiency >= 0 && fNRows > 0)
    minDiag = *std::min_element(fDiagonal.begin(), fDiagonal.end());
  return deficiency;
}

int QVDiagMatrix::LTDetInverse(double * const det, int job) {
  const int zeros = static_cast<int>(std::count(fDiagonal.begin(), fDiagonal.end(), 0.0));
  if (job % 10 != 0) {
    det[0] = zeros > 0 ? 0.0 : 1.0;
    det[1] = 0.0;
    for (int i = 0; i < fNRows && zeros == 0; ++i) {
      det[0] *= fDiagonal[At(i)];
      NormaliseDeterminant(det);
    }
  }
  if (job / 10 != 0) QVDiagMatrix::LTInverse();
  return zeros;
}

bool QVDiagMatrix::LTInverse() {
  for (double & d : fDiagonal)
    if (d != 0.0) d = 1.0 / d;
  return true;
}

void QVDiagMatrix::LTLLTrans() {
  for (double & d : fDiagonal)
    d *= d;
}

void QVDiagMatrix::LTLTransL() {
  QVDiagMatrix::LTLLTrans();
}

int QVDiagMatrix::LTSolve(const std::vector<double> & b, double tol, std::vector<double> & x) {
  if (!(tol > 0.0) || b.size() < Size()) return -1;
  if (&b != &x) x.resize(Size());
  int count = 0;
  for (int i = 0; i < fNRows; ++i) {
    const double d = fDiagonal[At(i)];
    if (d < 0.0) return -1;
    if (d > tol) {
      x[At(i)] = b[At(i)] / d;
    } else {
      x[At(i)] = d;
      ++count;
    }
  }
  x.resize(Size());
  return count;
}

int QVDiagMatrix::InvertElements(double tol, IQVSymMatrix & out, QVBitSet * accepted,
                                 double * minDiag) const {
  if (accepted != nullptr) ClearBits(*accepted, fNRows);
  if (minDiag != nullptr) *minDiag = kNoDiagonal;
  const std::vector<double> diagonal = fDiagonal;  // `out` may be this matrix
  const int n = static_cast<int>(Size());
  if (out.GetNRows() != n) {
    if (!out.SetNRows(n, true)) return -1;
  } else {
    out.Clear();
  }
  int inverted = 0;
  for (int i = 0; i < n; ++i) {
    const double d = diagonal[At(i)];
    const bool isInverted = d > tol;
    if (isInverted) {
      out.SetElem(i, i, 1.0 / d);
      ++inverted;
      if (accepted != nullptr) accepted->Set(i, true);
    }
    if (minDiag != nullptr) {
      const double factor = isInverted ? std::sqrt(d) : 0.0;
      *minDiag = i == 0 ? factor : std::min(*minDiag, factor);
    }
  }
  return inverted;
}

int QVDiagMatrix::CholInverse(const std::vector<double> &, double tol, IQVSymMatrix & out) const {
  return InvertElements(tol, out, nullptr, nullptr);
}

int QVDiagMatrix::CholInverse(const std::vector<double> &, double tol, IQVSymMatrix & out,
                              QVBitSet & accepted) const {
  return InvertElements(tol, out, &accepted, nullptr);
}

int QVDiagMatrix::CholInverse(const std::vector<double> &, double tol, IQVSymMatrix & out,
                              double & minDiag) const {
  return InvertElements(tol, out, nullptr, &minDiag);
}

bool QVDiagMatrix::ComputeDeterminant(double, double * const det) const {
  if (fNRows < 1) return false;
  det[0] = 1.0;
  det[1] = 0.0;
  for (const double d : fDiagonal) {
    det[0] *= d;
    if (det[0] == 0.0) {
      det[1] = 0.0;
      break;
    }
    NormaliseDeterminant(det);
  }
  return true;
}

}  // namespace QVMath_940
