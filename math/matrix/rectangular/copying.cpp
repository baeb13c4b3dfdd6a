// Rows, columns and whole matrices copied to and from the dense rectangular matrix.
#include <algorithm>
#include <cstdlib>
#include <limits>

#include "QVRectMatrix.h"
#include "QVSparseVector.h"
#include "math/matrix/rectangular/dense_operand.h"

namespace QVMath_940 {

namespace {

bool IsPart(int start, int count, int size) {
  return start >= 0 && count >= 0 && count <= size && start <= size - count;
}

bool AreIndexes(const std::vector<int> & indexes, int size) {
  return std::all_of(indexes.begin(), indexes.end(),
                     [size](int index) { return index >= 0 && index < size; });
}

void StoreCells(const QVSparseVector & cells, double * row) {
  for (int i = 0; i < cells.GetSize(); ++i)
    row[cells.GetIndex(i)] = cells.GetValue(i);
}

}  // namespace

// --- Sparse rows --------------------------------------------------------------------------------

int QVRectMatrix::AddRow(const QVSparseVector & row) {
  if (!row.IsValid() || row.GetMinVecSize() > fNCols) return -1;
  const int rows = QVRectMatrix::AddRow();
  if (rows > 0) StoreCells(row, GetRowPtr(rows - 1));
  return rows;
}

bool QVRectMatrix::SetRow(int i, const QVSparseVector & row) {
  if (!IsRow(i) || !row.IsValid() || row.GetMinVecSize() > fNCols) return false;
  std::fill_n(GetRowPtr(i), fNCols, 0.0);
  StoreCells(row, GetRowPtr(i));
  return true;
}

// --- Copying ------------------------------------------------------------------------------------

bool QVRectMatrix::CopyRows(const IQVRectMatrix & source, int start, int count) {
  if (!IsPart(start, count, source.GetNRows()) || count > fNRows || source.GetNCols() != fNCols)
    return false;
  std::vector<double> row;
  for (int i = 0; i < count && fNCols > 0; ++i) {
    source.GetRow(start + i, row);
    std::copy(row.begin(), row.end(), GetRowPtr(i));
  }
  return true;
}

bool QVRectMatrix::CopyColumns(const QVRectMatrix & source, int start, int count) {
  if (!IsPart(start, count, source.fNCols) || count > fNCols || source.fNRows != fNRows)
    return false;
  for (int i = 0; i < fNRows && count > 0; ++i) {
    const double * const from = source.GetRowPtr(i) + start;
    double * const to = GetRowPtr(i);  // in this matrix, never behind `from`
    for (int j = 0; j < count; ++j)
      to[j] = from[j];
  }
  return true;
}

bool QVRectMatrix::CreateBlockDiagonal(int copies, IQVRectMatrix & target) const {
  if (!IsValidMatrix() || copies < 1) return false;
  const int most = std::max(1, std::max(fNRows, fNCols));
  if (copies > std::numeric_limits<int>::max() / most) return false;
  DenseTarget out(target, {this});
  if (!out.Shape(copies * fNRows, copies * fNCols)) return false;
  for (int copy = 0; copy < copies; ++copy)
    for (int i = 0; i < fNRows && fNCols > 0; ++i)
      std::copy_n(GetRowPtr(i), fNCols, out.Row(copy * fNRows + i) + copy * fNCols);
  return out.Deliver();
}

// --- Extracting ---------------------------------------------------------------------------------

int QVRectMatrix::ExtractColumns(const std::vector<int> & columns, IQVRectMatrix & out) const {
  if (!IsValidMatrix() || !AreIndexes(columns, fNCols)) return -1;
  const int count = static_cast<int>(columns.size());
  DenseTarget target(out, {this});
  if (!target.Shape(fNRows, count)) return -1;
  for (int i = 0; i < fNRows && count > 0; ++i) {
    double * to = target.Row(i);
    for (const int j : columns)
      *to++ = fElements[Position(i, j)];
  }
  return target.Deliver() ? count : -1;
}

int QVRectMatrix::ExtractRows(const std::vector<int> & rows, IQVRectMatrix & out) const {
  if (!IsValidMatrix() || !AreIndexes(rows, fNRows)) return -1;
  const int count = static_cast<int>(rows.size());
  DenseTarget target(out, {this});
  if (!target.Shape(count, fNCols)) return -1;
  for (int i = 0; i < count && fNCols > 0; ++i)
    std::copy_n(GetRowPtr(rows[static_cast<std::size_t>(i)]), fNCols, target.Row(i));
  return target.Deliver() ? count : -1;
}

// --- Shifting -----------------------------------------------------------------------------------

bool QVRectMatrix::ShiftColumns(int count, IQVRectMatrix & target) const {
  if (!IsValidMatrix() || count > fNCols || count < -fNCols) return false;
  DenseTarget out(target, {this});
  if (!out.Shape(fNRows, fNCols)) return false;
  const int width = fNCols - std::abs(count);
  for (int i = 0; i < fNRows && width > 0; ++i)
    std::copy_n(GetRowPtr(i) + std::max(-count, 0), width, out.Row(i) + std::max(count, 0));
  return out.Deliver();
}

bool QVRectMatrix::ShiftRows(int count, IQVRectMatrix & target) const {
  if (!IsValidMatrix() || count > fNRows || count < -fNRows) return false;
  DenseTarget out(target, {this});
  if (!out.Shape(fNRows, fNCols)) return false;
  for (int i = std::max(-count, 0); i < fNRows - std::max(count, 0) && fNCols > 0; ++i)
    std::copy_n(GetRowPtr(i), fNCols, out.Row(i + count));
  return out.Deliver();
}

}  // namespace QVMath_940
