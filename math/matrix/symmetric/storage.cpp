// The storage of the dense symmetric matrix: construction, order, blocks.
#include <algorithm>
#include <limits>
#include <new>
#include <stdexcept>
#include <utility>

#include "QVSymMatrix.h"

namespace QVMath_940 {

IQVSymMatrix::~IQVSymMatrix() = default;

QVSymMatrix::QVSymMatrix() = default;

QVSymMatrix::QVSymMatrix(int n, bool zero) {
  ResizeAndMarkBlocks(std::max(n, 0));
  if (zero && IsValidMatrix()) std::fill(fElements.begin(), fElements.end(), 0.0);
}

QVSymMatrix::QVSymMatrix(int blocks, int blockSize, bool zero) {
  if (blocks < 1 || blockSize < 1) return;
  fNBlocks = blocks;
  fBlockSize = blockSize;
  const long long rows = static_cast<long long>(blocks) * blockSize;
  if (rows > std::numeric_limits<int>::max()) {  // no storage holds that many rows
    fNRows = -1;
    return;
  }
  fNRows = static_cast<int>(rows);
  ResizeNRows(fElements, fNRows);
  if (zero && IsValidMatrix()) std::fill(fElements.begin(), fElements.end(), 0.0);
}

QVSymMatrix::QVSymMatrix(const QVSymMatrix & other) : IQVSymMatrix(other) {
  SetData(other);
}

QVSymMatrix & QVSymMatrix::operator=(const QVSymMatrix & other) {
  SetData(other);
  return *this;
}

QVSymMatrix::QVSymMatrix(QVSymMatrix && other) noexcept
    : fNRows(std::exchange(other.fNRows, 0)),
      fNBlocks(std::exchange(other.fNBlocks, 0)),
      fBlockSize(std::exchange(other.fBlockSize, 0)),
      fElements(std::move(other.fElements)) {
  other.fElements.clear();
}

QVSymMatrix & QVSymMatrix::operator=(QVSymMatrix && other) noexcept {
  if (this == &other) return *this;
  fNRows = std::exchange(other.fNRows, 0);
  fNBlocks = std::exchange(other.fNBlocks, 0);
  fBlockSize = std::exchange(other.fBlockSize, 0);
  fElements = std::move(other.fElements);
  other.fElements.clear();
  return *this;
}

QVSymMatrix::~QVSymMatrix() = default;

SymMatrixType QVSymMatrix::GetType() const {
  return SymMatrixDense;
}

int QVSymMatrix::GetNRows() const {
  return fNRows;
}

int QVSymMatrix::GetNBlocks() const {
  return fNBlocks;
}

int QVSymMatrix::GetBlockSize() const {
  return fBlockSize;
}

bool QVSymMatrix::IsValidMatrix() const {
  return fNRows >= 0;
}

bool QVSymMatrix::SetNBlocks(int b) {
  if (b < 1 || fNRows < 1 || fNRows % b != 0) return false;
  fNBlocks = b;
  fBlockSize = fNRows / b;
  return true;
}

void QVSymMatrix::ResizeAndMarkBlocks(int n) {
  fNRows = n;
  fNBlocks = 1;
  fBlockSize = n;
  ResizeNRows(fElements, fNRows);
}

bool QVSymMatrix::Resize(int n) {
  ResizeAndMarkBlocks(std::max(n, 0));
  return IsValidMatrix();
}

bool QVSymMatrix::SetNRows(int n, bool zero) {
  ResizeAndMarkBlocks(std::max(n, 0));
  if (n < 0) fNBlocks = 0;
  if (!IsValidMatrix()) return false;
  if (zero) Clear();
  return true;
}

bool QVSymMatrix::SetData(const QVSymMatrix & other) {
  if (this == &other) return true;
  fNRows = other.fNRows;
  fNBlocks = other.fNBlocks;
  fBlockSize = other.fBlockSize;
  if (ResizeNCopy(fElements, other.fElements)) return true;
  fNRows = -1;
  std::vector<double>().swap(fElements);
  return false;
}

bool QVSymMatrix::DeleteOneRow(int k) {
  if (!IsRow(k)) return false;
  // Row i behind k loses its element k: what stands before and behind it closes up.
  double * a = fElements.data();
  std::size_t to = RowStart(k);
  for (int i = k + 1; i < fNRows; ++i) {
    const std::size_t row = RowStart(i);
    for (int j = 0; j <= i; ++j)
      if (j != k) a[to++] = a[row + static_cast<std::size_t>(j)];
  }
  --fNRows;
  fBlockSize = fNRows;
  fElements.resize(RowStart(fNRows));
  return true;
}

bool QVSymMatrix::ResizeNRows(std::vector<double> & elements, int & n) {
  if (n < 1) {
    elements.clear();
    return n >= 0;
  }
  try {
    const std::size_t size = RowStart(n);
    elements.reserve(size);  // exactly: growth by doubling would waste half of a large matrix
    elements.resize(size);
    return true;
  } catch (const std::bad_alloc &) {
    n = -1;
  } catch (const std::length_error &) {  // more elements than any vector can hold
    n = -1;
  }
  std::vector<double>().swap(elements);
  return false;
}

bool QVSymMatrix::ResizeNCopy(std::vector<double> & elements, const std::vector<double> & source) {
  try {
    elements = source;
    return true;
  } catch (const std::bad_alloc &) {
    return false;
  } catch (const std::length_error &) {
    return false;
  }
}

}  // namespace QVMath_940
