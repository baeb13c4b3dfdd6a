// Elements, rows and the diagonal of the dense symmetric matrix.
#include <algorithm>
#include <cmath>
#include <limits>

#include "QVSymMatrix.h"

namespace QVMath_940 {

namespace {

constexpr double kLargest = std::numeric_limits<double>::max();

// Walks row k of a packed triangle as a full symmetric row: along the packed row up to the
// diagonal, then down the column. Calls visit(j, element) for j from 0 to count - 1.
template <class Elements, class Visit>
void WalkRow(Elements & elements, int k, int count, Visit visit) {
  std::size_t position = QVSymMatrix::RowStart(k);
  for (int j = 0; j < count; ++j) {
    visit(j, elements[position]);
    position += j < k ? 1 : static_cast<std::size_t>(j) + 1;
  }
}

// Walks the diagonal: visit(element) for each of n rows.
template <class Elements, class Visit>
void WalkDiagonal(Elements & elements, int n, Visit visit) {
  std::size_t position = 0;
  for (int i = 0; i < n; ++i) {
    visit(elements[position]);
    position += static_cast<std::size_t>(i) + 2;
  }
}

}  // namespace

// --- Elements -----------------------------------------------------------------------------------

double QVSymMatrix::GetElem(int i, int j) const {
  return fElements[PackedPosition(i, j)];
}

double QVSymMatrix::GetElem(int p) const {
  return fElements[static_cast<std::size_t>(p)];
}

double QVSymMatrix::GetElem(int p, int q, int i, int j) const {
  return GetElem(p * fBlockSize + i, q * fBlockSize + j);
}

bool QVSymMatrix::SetElem(int i, int j, double value) {
  fElements[PackedPosition(i, j)] = value;
  return true;
}

bool QVSymMatrix::SetElem(int p, double value) {
  if (p < 0 || static_cast<std::size_t>(p) >= fElements.size()) return false;
  fElements[static_cast<std::size_t>(p)] = value;
  return true;
}

// --- Rows ---------------------------------------------------------------------------------------

bool QVSymMatrix::GetRow(int k, std::vector<double> & row) const {
  if (!IsRow(k)) return false;
  row.resize(static_cast<std::size_t>(fNRows));
  WalkRow(fElements, k, fNRows, [&](int j, double a) { row[static_cast<std::size_t>(j)] = a; });
  return true;
}

bool QVSymMatrix::PutRow(int k, const std::vector<double> & row) {
  if (!IsRow(k) || row.size() < static_cast<std::size_t>(fNRows)) return false;
  WalkRow(fElements, k, fNRows, [&](int j, double & a) { a = row[static_cast<std::size_t>(j)]; });
  return true;
}

bool QVSymMatrix::SetRowColToConst(int k, double value) {
  if (!IsRow(k)) return false;
  WalkRow(fElements, k, fNRows, [&](int, double & a) { a = value; });
  return true;
}

bool QVSymMatrix::ZeroOut(int k) {
  return QVSymMatrix::SetRowColToConst(k, 0.0);
}

bool QVSymMatrix::ZeroOutRedundant(const QVBitSet & kept) {
  if (kept.Size() < fNRows) return false;
  for (int k = 0; k < fNRows; ++k)
    if (!kept.IsIn(k)) ZeroOut(k);
  return true;
}

bool QVSymMatrix::IsZeroRow(int k, const QVBitSet & columns) const {
  const int count = std::min(fNRows, columns.Size());
  if (count < 1 || !IsRow(k)) return false;
  bool isZero = true;
  WalkRow(fElements, k, count,
          [&](int j, double a) { isZero = isZero && (a == 0.0 || !columns.IsIn(j)); });
  return isZero;
}

bool QVSymMatrix::IncrVecByRow(int k, std::vector<double> & v, int start, int len, double w,
                               bool check) const {
  if (check) {
    if (!IsRow(k) || len < 1 || len > fNRows || start < 0) return false;
    if (static_cast<std::size_t>(start) + static_cast<std::size_t>(len) > v.size()) return false;
  }
  double * out = v.data() + start;
  WalkRow(fElements, k, len, [&](int j, double a) { out[j] += w * a; });
  return true;
}

// --- The whole matrix ---------------------------------------------------------------------------

void QVSymMatrix::Clear() {
  std::fill(fElements.begin(), fElements.end(), 0.0);
}

void QVSymMatrix::ChangeSign() {
  for (double & a : fElements)
    a *= -1.0;
}

void QVSymMatrix::MultiplyByNumber(double value) {
  for (double & a : fElements)
    a *= value;
}

// --- The diagonal -------------------------------------------------------------------------------

void QVSymMatrix::GetDiagonal(std::vector<double> & diagonal) const {
  diagonal.resize(static_cast<std::size_t>(std::max(fNRows, 0)));
  std::size_t i = 0;
  WalkDiagonal(fElements, fNRows, [&](double d) { diagonal[i++] = d; });
}

void QVSymMatrix::AddToDiagonal(double value) {
  WalkDiagonal(fElements, fNRows, [&](double & d) { d += value; });
}

bool QVSymMatrix::AddToDiagonalPart(int start, int count, double value) {
  if (start < 0 || count < 0 || static_cast<long long>(start) + count >= fNRows) return false;
  for (int i = start; i < start + count; ++i)
    fElements[PackedPosition(i, i)] += value;
  return true;
}

double QVSymMatrix::Trace() const {
  double trace = 0.0;
  WalkDiagonal(fElements, fNRows, [&](double d) { trace += d; });
  return trace;
}

void QVSymMatrix::MaxMinDiag(double & max, double & min) const {
  if (fNRows < 1) return;
  max = -kLargest;
  min = kLargest;
  WalkDiagonal(fElements, fNRows, [&](double d) {
    if (d > max) max = d;
    if (d < min) min = d;
  });
}

void QVSymMatrix::MaxMinDiagOffDiag(double & maxDiag, double & minDiag, double & maxOff,
                                    double & minOff) const {
  if (fNRows < 1) return;
  QVSymMatrix::MaxMinDiag(maxDiag, minDiag);
  maxOff = -kLargest;
  minOff = kLargest;
  for (int i = 1; i < fNRows; ++i) {
    const double * row = fElements.data() + RowStart(i);
    for (int j = 0; j < i; ++j) {
      if (row[j] > maxOff) maxOff = row[j];
      if (row[j] < minOff) minOff = row[j];
    }
  }
}

void QVSymMatrix::GetNCheckDiagonal(std::vector<double> & diagonal, double, double) const {
  QVSymMatrix::GetDiagonal(diagonal);
  double max = 0.0;
  for (double d : diagonal)
    if (d > max) max = d;
  for (double & d : diagonal)
    if (d < max) d = max;
}

void QVSymMatrix::GetNCheckDiagonalOld(std::vector<double> & diagonal, double threshold,
                                       double replacement) const {
  QVSymMatrix::GetDiagonal(diagonal);
  for (double & d : diagonal)
    if (d < threshold) d = replacement;
}

// --- Cleaning -----------------------------------------------------------------------------------

bool QVSymMatrix::ReplaceDiagZeroes(double t) {
  if (t < 0.0) return false;
  double max = 0.0;
  WalkDiagonal(fElements, fNRows, [&](double d) {
    if (d > max) max = d;
  });
  if (!(max > 0.0)) return false;
  WalkDiagonal(fElements, fNRows, [&](double & d) {
    if (!(d > 0.0) || !(d / max > t)) d = max;
  });
  return true;
}

bool QVSymMatrix::SetCovarZeros(QVSymMatrix & other) {
  if (fNRows != other.fNRows) return false;
  for (int k = 0; k < fNRows; ++k) {
    const std::size_t d = PackedPosition(k, k);
    if (fElements[d] > 0.0 && other.fElements[d] > 0.0) continue;
    ZeroOut(k);
    other.ZeroOut(k);
  }
  return true;
}

void QVSymMatrix::ZeroOutAllSmall(double fraction) {
  if (!(fraction > 0.0)) return;
  double max = 0.0;
  WalkDiagonal(fElements, fNRows, [&](double d) {
    if (std::abs(d) > max) max = std::abs(d);
  });
  const double bound = fraction * max;
  if (!(bound > 0.0)) return;
  for (double & a : fElements)
    if (std::abs(a) < bound) a = 0.0;
}

void QVSymMatrix::ZeroOutNonDiag(double fraction) {
  if (!(fraction > 0.0)) return;
  for (int i = 1; i < fNRows; ++i) {
    double * row = fElements.data() + RowStart(i);
    const double rowDiag = std::abs(row[i]);
    for (int j = 0; j < i; ++j) {
      const double columnDiag = std::abs(fElements[PackedPosition(j, j)]);
      if (!(std::abs(row[j]) > fraction * std::sqrt(rowDiag * columnDiag))) row[j] = 0.0;
    }
  }
}

void QVSymMatrix::ZeroOutRowsForSmallDiag(double fraction) {
  if (!(fraction > 0.0)) return;
  double max = 0.0;
  for (int k = 0; k < fNRows; ++k) {
    const double d = std::abs(fElements[PackedPosition(k, k)]);
    if (d > max) max = d;
    if (max == 0.0 || d / max < fraction) ZeroOut(k);
  }
}

bool QVSymMatrix::AdjustOffDiagCorr(double e) {
  if (e < 0.0 || !(e < 1.0)) return false;
  const double bound = 1.0 - e;
  for (int i = 1; i < fNRows; ++i) {
    double * row = fElements.data() + RowStart(i);
    for (int j = 0; j < i; ++j) {
      if (row[j] >= 1.0) {
        row[j] = bound;
      } else if (row[j] <= -1.0) {
        row[j] = -bound;
      }
    }
  }
  return true;
}

}  // namespace QVMath_940
