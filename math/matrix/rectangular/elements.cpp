// Elements, rows and columns of the dense rectangular matrix.
#include <algorithm>

#include "QVRectMatrix.h"

namespace QVMath_940 {

// --- Elements -----------------------------------------------------------------------------------

double QVRectMatrix::GetElem(int i, int j) const {
  return fElements[Position(i, j)];
}

bool QVRectMatrix::SetElem(int i, int j, double value) {
  fElements[Position(i, j)] = value;
  return true;
}

double * QVRectMatrix::GetRowPtr(int i) {
  return IsRow(i) ? fElements.data() + Position(i, 0) : nullptr;
}

const double * QVRectMatrix::GetRowPtr(int i) const {
  return IsRow(i) ? fElements.data() + Position(i, 0) : nullptr;
}

double * QVRectMatrix::GetColPtr(int j) {
  return IsCol(j) && fNRows > 0 ? fElements.data() + j : nullptr;
}

const double * QVRectMatrix::GetColPtr(int j) const {
  return IsCol(j) && fNRows > 0 ? fElements.data() + j : nullptr;
}

void QVRectMatrix::Clear() {
  std::fill(fElements.begin(), fElements.end(), 0.0);
}

void QVRectMatrix::AddToDiagonal(double value) {
  const int count = std::min(fNRows, fNCols);
  for (int i = 0; i < count; ++i)
    fElements[Position(i, i)] += value;
}

// --- Rows ---------------------------------------------------------------------------------------

bool QVRectMatrix::GetRow(int i, std::vector<double> & row) const {
  if (!IsRow(i)) return false;
  const double * from = GetRowPtr(i);
  row.assign(from, from + fNCols);
  return true;
}

bool QVRectMatrix::CopyRowToRow(int i, int k, IQVRectMatrix & target) const {
  if (!IsRow(i) || k < 0 || k >= target.GetNRows() || target.GetNCols() != fNCols) return false;
  bool isStored = true;
  for (int j = 0; j < fNCols; ++j)
    isStored = target.SetElem(k, j, fElements[Position(i, j)]) && isStored;
  return isStored;
}

bool QVRectMatrix::IsRowZero(int i) const {
  if (!IsRow(i)) return false;
  const double * row = GetRowPtr(i);
  return std::all_of(row, row + fNCols, [](double a) { return a == 0.0; });
}

bool QVRectMatrix::IsRowZeroButOne(int i, const QVBitSet & columns, int & column) const {
  column = -1;
  if (!IsRow(i)) return false;
  int found = -1;
  for (int j = 0; j < fNCols; ++j) {
    if (!columns.IsIn(j) || fElements[Position(i, j)] == 0.0) continue;
    if (found >= 0) return false;
    found = j;
  }
  column = found;
  return found >= 0;
}

bool QVRectMatrix::ZeroOutRowPart(int i, int start, int count) {
  if (!IsRow(i) || start < 0 || count < 0) return false;
  if (static_cast<long long>(start) + count > fNCols) return false;
  std::fill_n(GetRowPtr(i) + start, count, 0.0);
  return true;
}

// --- Columns ------------------------------------------------------------------------------------

bool QVRectMatrix::GetCol(int j, std::vector<double> & column) const {
  if (!IsCol(j)) return false;
  column.resize(static_cast<std::size_t>(fNRows));
  return QVRectMatrix::CopyColToVec(j, column);
}

bool QVRectMatrix::CopyColToVec(int j, std::vector<double> & v) const {
  if (!IsCol(j)) return false;
  const std::size_t rows = static_cast<std::size_t>(fNRows);
  if (v.size() < rows) v.resize(rows);
  for (int i = 0; i < fNRows; ++i)
    v[static_cast<std::size_t>(i)] = fElements[Position(i, j)];
  return true;
}

bool QVRectMatrix::CopyColToCol(int j, int k, QVRectMatrix & target) const {
  if (!IsCol(j) || !target.IsCol(k) || target.fNRows != fNRows) return false;
  for (int i = 0; i < fNRows; ++i)
    target.fElements[target.Position(i, k)] = fElements[Position(i, j)];
  return true;
}

bool QVRectMatrix::CopyColToRow(int j, int k, QVRectMatrix & target) const {
  if (!IsCol(j) || !target.IsRow(k) || target.fNCols != fNRows) return false;
  if (&target == this) {  // row and column cross: copy the column first
    std::vector<double> column;
    GetCol(j, column);
    std::copy(column.begin(), column.end(), target.GetRowPtr(k));
    return true;
  }
  for (int i = 0; i < fNRows; ++i)
    target.fElements[target.Position(k, i)] = fElements[Position(i, j)];
  return true;
}

bool QVRectMatrix::AddToColumn(int target, const QVRectMatrix & source, int j, double factor) {
  if (!IsCol(target) || !source.IsCol(j) || source.fNRows != fNRows) return false;
  for (int i = 0; i < fNRows; ++i)
    fElements[Position(i, target)] += factor * source.fElements[source.Position(i, j)];
  return true;
}

bool QVRectMatrix::ColScale(int j, double factor) {
  if (!IsCol(j)) return false;
  for (int i = 0; i < fNRows; ++i)
    fElements[Position(i, j)] *= factor;
  return true;
}

bool QVRectMatrix::ZeroOutCol(int j) {
  if (!IsCol(j)) return false;
  for (int i = 0; i < fNRows; ++i)
    fElements[Position(i, j)] = 0.0;
  return true;
}

bool QVRectMatrix::IsColZero(int j) const {
  if (!IsCol(j)) return false;
  for (int i = 0; i < fNRows; ++i)
    if (fElements[Position(i, j)] != 0.0) return false;
  return true;
}

bool QVRectMatrix::IncrVecByColumn(int j, std::vector<double> & v, int start, int len, double w,
                                   bool check) const {
  if (check) {
    if (!IsCol(j) || len < 1 || len > fNRows || start < 0) return false;
    if (static_cast<std::size_t>(start) + static_cast<std::size_t>(len) > v.size()) return false;
  }
  double * out = v.data() + start;
  for (int i = 0; i < len; ++i)
    out[i] += w * fElements[Position(i, j)];
  return true;
}

}  // namespace QVMath_940
