// Storage, elements and display of the diagonal matrix.
#include <algorithm>
#include <limits>
#include <new>
#include <stdexcept>

#include "QVDiagMatrix.h"
#include "QVDisplay.h"
#include "QVSymMatrix.h"
#include "common/display/display_frame.h"
#include "common/display/display_line.h"

namespace QVMath_940 {

namespace {

constexpr double kLargest = std::numeric_limits<double>::max();

std::size_t At(int i) {
  return static_cast<std::size_t>(i);
}

}  // namespace

// --- Construction and order ---------------------------------------------------------------------

QVDiagMatrix::QVDiagMatrix() = default;

QVDiagMatrix::QVDiagMatrix(int n, bool zero) {
  QVDiagMatrix::SetNRows(n, zero);
}

QVDiagMatrix::QVDiagMatrix(const std::vector<double> & diagonal) {
  QVDiagMatrix::Resize(static_cast<int>(diagonal.size()));
  if (fNRows > 0) std::copy(diagonal.begin(), diagonal.end(), fDiagonal.begin());
}

QVDiagMatrix::QVDiagMatrix(const QVDiagMatrix & other) : IQVSymMatrix(other) {
  *this = other;
}

QVDiagMatrix & QVDiagMatrix::operator=(const QVDiagMatrix & other) {
  if (this == &other) return *this;
  fNRows = other.fNRows;
  if (!QVSymMatrix::ResizeNCopy(fDiagonal, other.fDiagonal)) {
    fNRows = -1;
    std::vector<double>().swap(fDiagonal);
  }
  return *this;
}

QVDiagMatrix::~QVDiagMatrix() = default;

SymMatrixType QVDiagMatrix::GetType() const {
  return SymMatrixDiagonal;
}

int QVDiagMatrix::GetNRows() const {
  return fNRows;
}

bool QVDiagMatrix::IsValidMatrix() const {
  return fNRows >= 0 && fDiagonal.size() == Size();
}

bool QVDiagMatrix::Resize(int n) {
  fNRows = std::max(n, 0);
  try {
    fDiagonal.resize(Size());
    return true;
  } catch (const std::bad_alloc &) {
  } catch (const std::length_error &) {  // more elements than any vector can hold
  }
  fNRows = -1;
  std::vector<double>().swap(fDiagonal);
  return false;
}

bool QVDiagMatrix::SetNRows(int n, bool zero) {
  if (!QVDiagMatrix::Resize(n)) return false;
  if (zero) Clear();
  return true;
}

bool QVDiagMatrix::ReplaceDiagonal(const std::vector<double> & diagonal) {
  if (&diagonal == &fDiagonal) return Resize(static_cast<int>(diagonal.size()));
  if (!Resize(static_cast<int>(diagonal.size()))) return false;
  std::copy(diagonal.begin(), diagonal.end(), fDiagonal.begin());
  return true;
}

// --- Elements and rows --------------------------------------------------------------------------

double QVDiagMatrix::GetElem(int i, int j) const {
  return i == j ? fDiagonal[At(i)] : 0.0;
}

double QVDiagMatrix::GetElem(int i) const {
  return fDiagonal[At(i)];
}

bool QVDiagMatrix::SetElem(int i, int j, double value) {
  if (i != j) return false;
  fDiagonal[At(i)] = value;
  return true;
}

bool QVDiagMatrix::SetElem(int i, double value) {
  fDiagonal[At(i)] = value;
  return true;
}

void QVDiagMatrix::GetDiagonal(std::vector<double> & diagonal) const {
  if (&diagonal != &fDiagonal) diagonal = fDiagonal;
}

bool QVDiagMatrix::GetRow(int k, std::vector<double> & row) const {
  if (!IsRow(k)) return false;
  row.assign(Size(), 0.0);
  row[At(k)] = fDiagonal[At(k)];
  return true;
}

bool QVDiagMatrix::PutRow(int k, const std::vector<double> & row) {
  if (!IsRow(k) || row.size() < Size()) return false;
  for (int j = 0; j < fNRows; ++j)
    if (j != k && row[At(j)] != 0.0) return false;
  fDiagonal[At(k)] = row[At(k)];
  return true;
}

bool QVDiagMatrix::SetRowColToConst(int k, double value) {
  if (!IsRow(k)) return false;
  fDiagonal[At(k)] = value;
  return true;
}

bool QVDiagMatrix::ZeroOut(int k) {
  return QVDiagMatrix::SetRowColToConst(k, 0.0);
}

bool QVDiagMatrix::IsZeroRow(int k, const QVBitSet & columns) const {
  const int count = std::min(fNRows, columns.Size());
  if (count < 1 || !IsRow(k)) return false;
  return k >= count || !columns.IsIn(k) || fDiagonal[At(k)] == 0.0;
}

bool QVDiagMatrix::IncrVecByRow(int k, std::vector<double> & v, int start, int len, double w,
                                bool check) const {
  if (check) {
    if (!IsRow(k) || len < 1 || len > fNRows || start < 0) return false;
    if (At(start) + At(len) > v.size()) return false;
  }
  if (k < len) v[At(start) + At(k)] += w * fDiagonal[At(k)];
  return true;
}

// --- The whole matrix ---------------------------------------------------------------------------

void QVDiagMatrix::Clear() {
  std::fill(fDiagonal.begin(), fDiagonal.end(), 0.0);
}

void QVDiagMatrix::ChangeSign() {
  QVDiagMatrix::MultiplyByNumber(-1.0);
}

void QVDiagMatrix::MultiplyByNumber(double value) {
  for (double & d : fDiagonal)
    d *= value;
}

void QVDiagMatrix::AddToDiagonal(double value) {
  for (double & d : fDiagonal)
    d += value;
}

double QVDiagMatrix::Trace() const {
  double trace = 0.0;
  for (const double d : fDiagonal)
    trace += d;
  return trace;
}

void QVDiagMatrix::MaxMinDiag(double & max, double & min) const {
  if (fNRows < 1) return;
  max = -kLargest;
  min = kLargest;
  for (const double d : fDiagonal) {
    if (d > max) max = d;
    if (d < min) min = d;
  }
}

void QVDiagMatrix::MaxMinDiagOffDiag(double & maxDiag, double & minDiag, double &, double &) const {
  MaxMinDiag(maxDiag, minDiag);
}

void QVDiagMatrix::GetNCheckDiagonal(std::vector<double> & diagonal, double threshold,
                                     double replacement) const {
  QVDiagMatrix::GetDiagonal(diagonal);
  for (double & d : diagonal)
    if (d < threshold) d = replacement;
}

void QVDiagMatrix::ZeroOutNonDiag(double) {
}

// --- Parts of the matrix ------------------------------------------------------------------------

void QVDiagMatrix::ExtractFirstNRows(IQVSymMatrix & out) const {
  if (out.GetType() != SymMatrixDiagonal) return;
  QVDiagMatrix & target = static_cast<QVDiagMatrix &>(out);
  const int rows = std::max(fNRows - 1, 0);
  if (!target.Resize(rows) || &target == this) return;
  std::copy_n(fDiagonal.begin(), rows, target.fDiagonal.begin());
}

bool QVDiagMatrix::ExtractSubmatrix(const std::vector<int> & rows, IQVSymMatrix & out) const {
  if (static_cast<long long>(rows.size()) > fNRows || out.GetType() != SymMatrixDiagonal)
    return false;
  if (!rows.empty() && (rows.front() < 0 || rows.back() >= fNRows)) return false;
  const bool isAscending = std::adjacent_find(rows.begin(), rows.end(),
                                              [](int a, int b) { return a >= b; }) == rows.end();
  if (!isAscending) return false;
  QVDiagMatrix & target = static_cast<QVDiagMatrix &>(out);
  const int count = static_cast<int>(rows.size());
  if (&target != this && !target.SetNRows(count, true)) return false;
  // In this matrix itself an element never moves behind its own place.
  for (int i = 0; i < count; ++i)
    target.fDiagonal[At(i)] = fDiagonal[At(rows[At(i)])];
  return &target != this || target.Resize(count);
}

// --- Display ------------------------------------------------------------------------------------

void QVDiagMatrix::Display() const {
  const QVDisplay_940::DisplayFrame frame("QVDiagMatrix");
  QVDisplay_940::DisplayI("Number of rows", fNRows);
  QVDisplay_940::DisplayI("Number of columns", fNRows);
  std::vector<double> row;
  for (int i = 0; i < fNRows; ++i) {
    QVDiagMatrix::GetRow(i, row);
    QVDisplay_940::DisplayRow(i, row.data(), fNRows);
  }
}

void QVDiagMatrix::DisplayF() const {
  QVDiagMatrix::Display();
}

}  // namespace QVMath_940
