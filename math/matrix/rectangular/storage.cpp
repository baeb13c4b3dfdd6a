// The storage of the dense rectangular matrix: construction and shape.
#include <algorithm>
#include <limits>
#include <new>
#include <stdexcept>
#include <utility>

#include "QVRectMatrix.h"

namespace QVMath_940 {

IQVRectMatrix::~IQVRectMatrix() = default;

QVRectMatrix::QVRectMatrix() = default;

QVRectMatrix::QVRectMatrix(int rows, int columns, bool zero)
    : fNRows(std::max(rows, 0)), fNCols(std::max(columns, 0)) {
  if (ResizeNRowsCols(fElements, fNRows, fNCols) && zero)
    std::fill(fElements.begin(), fElements.end(), 0.0);
}

QVRectMatrix::QVRectMatrix(const QVRectMatrix & other) : IQVRectMatrix(other) {
  *this = other;
}

QVRectMatrix & QVRectMatrix::operator=(const QVRectMatrix & other) {
  if (this == &other) return *this;
  fNRows = other.fNRows;
  fNCols = other.fNCols;
  if (!ResizeNRowsCols(fElements, fNRows, fNCols)) return *this;
  std::copy(other.fElements.begin(), other.fElements.end(), fElements.begin());
  return *this;
}

QVRectMatrix::QVRectMatrix(QVRectMatrix && other) noexcept
    : fNRows(std::exchange(other.fNRows, 0)),
      fNCols(std::exchange(other.fNCols, 0)),
      fElements(std::move(other.fElements)) {
  other.fElements.clear();
}

QVRectMatrix & QVRectMatrix::operator=(QVRectMatrix && other) noexcept {
  if (this == &other) return *this;
  fNRows = std::exchange(other.fNRows, 0);
  fNCols = std::exchange(other.fNCols, 0);
  fElements = std::move(other.fElements);
  other.fElements.clear();
  return *this;
}

QVRectMatrix::~QVRectMatrix() = default;

RectMatrixType QVRectMatrix::GetMatrixType() const {
  return RectMatrixDense;
}

bool QVRectMatrix::IsValidMatrix() const {
  return fNRows >= 0 && fNCols >= 0;
}

int QVRectMatrix::GetNRows() const {
  return fNRows;
}

int QVRectMatrix::GetNCols() const {
  return fNCols;
}

bool QVRectMatrix::Resize(int rows, int columns) {
  fNRows = std::max(rows, 0);
  fNCols = std::max(columns, 0);
  return ResizeNRowsCols(fElements, fNRows, fNCols);
}

bool QVRectMatrix::SetNRowsCols(int rows, int columns, bool zero) {
  if (!QVRectMatrix::Resize(rows, columns)) return false;
  if (zero) Clear();
  return true;
}

int QVRectMatrix::AddRow() {
  if (!IsValidMatrix() || fNRows == std::numeric_limits<int>::max()) return -1;
  ++fNRows;
  ResizeNRowsCols(fElements, fNRows, fNCols);
  return fNRows;
}

int QVRectMatrix::AddColumn() {
  if (!IsValidMatrix() || fNCols == std::numeric_limits<int>::max()) return -1;
  const int oldCols = fNCols++;
  if (!ResizeNRowsCols(fElements, fNRows, fNCols)) return -1;
  // From the last row up, so that no row is overwritten before it has moved.
  double * a = fElements.data();
  for (int i = fNRows - 1; i >= 0; --i) {
    const double * from = a + static_cast<std::size_t>(i) * static_cast<std::size_t>(oldCols);
    double * to = a + Position(i, 0);
    std::copy_backward(from, from + oldCols, to + oldCols);
    to[oldCols] = 0.0;
  }
  return fNCols;
}

bool QVRectMatrix::DeleteOneRow(int i) {
  if (!IsRow(i)) return false;
  double * a = fElements.data();
  std::copy(a + Position(i + 1, 0), a + fElements.size(), a + Position(i, 0));
  --fNRows;
  return ResizeNRowsCols(fElements, fNRows, fNCols);
}

bool QVRectMatrix::DeleteOneCol(int j) {
  if (!IsCol(j)) return false;
  double * to = fElements.data();
  for (int i = 0; i < fNRows; ++i) {
    const double * row = fElements.data() + Position(i, 0);
    for (int c = 0; c < fNCols; ++c)
      if (c != j) *to++ = row[c];
  }
  --fNCols;
  return ResizeNRowsCols(fElements, fNRows, fNCols);
}

bool QVRectMatrix::Transpose() {
  if (!IsValidMatrix()) return false;
  const QVRectMatrix source(*this);
  if (!source.IsValidMatrix()) {
    *this = source;
    return false;
  }
  std::swap(fNRows, fNCols);
  for (int i = 0; i < fNRows; ++i)
    for (int j = 0; j < fNCols; ++j)
      fElements[Position(i, j)] = source.fElements[source.Position(j, i)];
  return true;
}

bool QVRectMatrix::ResizeNRowsCols(std::vector<double> & elements, int & rows, int & columns) {
  if (rows < 1 || columns < 1) {
    elements.clear();
    return rows >= 0 && columns >= 0;
  }
  try {
    elements.resize(static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns));
    return true;
  } catch (const std::bad_alloc &) {
    rows = columns = -1;
  } catch (const std::length_error &) {  // more elements than any vector can hold
    rows = columns = -1;
  }
  std::vector<double>().swap(elements);
  return false;
}

}  // namespace QVMath_940
