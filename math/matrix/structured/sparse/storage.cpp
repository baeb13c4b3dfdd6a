// The storage of the sparse rectangular matrix: shape, rows, elements, display.
#include <algorithm>
#include <limits>
#include <new>
#include <stdexcept>
#include <utility>

#include "QVDisplay.h"
#include "QVMV.h"
#include "QVMathFun.h"
#include "QVSparseRectMatrix.h"
#include "QVSparseVector.h"
#include "common/display/display_frame.h"
#include "common/display/display_line.h"
#include "math/matrix/structured/sparse_rows.h"

namespace QVMath_940 {

namespace {

constexpr int kNoColumn = -1;

// Growth: by half, or to the first capacity from a small one.
constexpr int kSmallCapacity = 6;
constexpr int kFirstCapacity = 10;

std::size_t At(int i) {
  return static_cast<std::size_t>(i);
}

}  // namespace

// --- Construction and shape ---------------------------------------------------------------------

QVSparseRectMatrix::QVSparseRectMatrix(int rowCapacity, int columns, int nnz)
    : fCapacity(rowCapacity), fNCols(columns), fNNZ(nnz) {
  if (nnz < 1) return;
  try {
    fWorkValues.resize(At(nnz));
    fWorkColumns.resize(At(nnz));
    if (GrowTo(std::max(rowCapacity, 0))) {
      fCapacity = rowCapacity;
      return;
    }
  } catch (const std::bad_alloc &) {
  } catch (const std::length_error &) {
  }
  fNRows = -1;
}

QVSparseRectMatrix::QVSparseRectMatrix(const QVSparseRectMatrix & other)
    : IQVRectMatrix(other), fCapacity(other.fCapacity), fNCols(other.fNCols), fNNZ(other.fNNZ) {
  *this = other;
}

QVSparseRectMatrix & QVSparseRectMatrix::operator=(const QVSparseRectMatrix & other) {
  if (this == &other) return *this;
  try {
    fValues = other.fValues;
    fColumns = other.fColumns;
    fWorkValues = other.fWorkValues;
    fWorkColumns = other.fWorkColumns;
    fNRows = other.fNRows;
  } catch (const std::bad_alloc &) {
    fValues.clear();
    fColumns.clear();
    fNRows = -1;
  }
  fCapacity = other.fCapacity;
  fNCols = other.fNCols;
  fNNZ = other.fNNZ;
  return *this;
}

QVSparseRectMatrix::~QVSparseRectMatrix() = default;

void QVSparseRectMatrix::Swap(QVSparseRectMatrix & other) noexcept {
  std::swap(fNRows, other.fNRows);
  std::swap(fCapacity, other.fCapacity);
  std::swap(fNCols, other.fNCols);
  std::swap(fNNZ, other.fNNZ);
  fValues.swap(other.fValues);
  fColumns.swap(other.fColumns);
  fWorkValues.swap(other.fWorkValues);
  fWorkColumns.swap(other.fWorkColumns);
}

RectMatrixType QVSparseRectMatrix::GetMatrixType() const {
  return RectMatrixSparse;
}

bool QVSparseRectMatrix::IsValidMatrix() const {
  return fNRows >= 0 && fNRows <= fCapacity && fCapacity >= 1 && fNCols >= 1 && fNNZ >= 1 &&
         fNNZ <= fNCols;
}

int QVSparseRectMatrix::GetNRows() const {
  return fNRows;
}

int QVSparseRectMatrix::GetNCols() const {
  return fNCols;
}

/// Storage for `capacity` rows; new cells hold 0.0 and no column. False when it cannot be had: the
/// capacity stays then.
bool QVSparseRectMatrix::GrowTo(int capacity) {
  try {
    const std::size_t cells = At(capacity) * At(fNNZ);
    fValues.resize(cells, 0.0);
    fColumns.resize(cells, kNoColumn);
  } catch (const std::bad_alloc &) {
    return false;
  } catch (const std::length_error &) {  // more cells than any vector can hold
    return false;
  }
  fCapacity = capacity;
  return true;
}

/// A row of zeros without columns.
void QVSparseRectMatrix::Empty(int row) {
  std::fill_n(fValues.data() + RowStart(row), fNNZ, 0.0);
  std::fill_n(fColumns.data() + RowStart(row), fNNZ, kNoColumn);
}

bool QVSparseRectMatrix::Resize(int rows, int columns) {
  rows = std::max(rows, 0);
  columns = std::max(columns, 0);
  if (fNRows < 0 || fNNZ < 1 || fNNZ > columns) return false;
  const int kept = std::min(rows, fNRows);
  std::vector<int> refitted;  // rows whose last cells lie behind the last column
  for (int i = 0; i < kept; ++i) {
    const RowCells cells = CellsOf(*this, i);
    if (cells.count == 0 || cells.columns[fNNZ - 1] < columns) continue;
    for (int p = 0; p < cells.count; ++p)
      if (cells.columns[p] >= columns && cells.values[p] != 0.0) return false;
    refitted.push_back(i);
  }
  if (rows > fCapacity && !GrowTo(rows)) return false;
  const int before = fNRows;
  fNRows = rows;
  fNCols = columns;
  for (const int i : refitted) {
    const RowCells cells = CellsOf(*this, i);
    const int * const end = cells.columns + cells.count;
    FitCells(static_cast<int>(std::lower_bound(cells.columns, end, columns) - cells.columns),
             cells.columns, cells.values);
    StoreWork(i);
  }
  for (int i = before; i < rows; ++i)
    Empty(i);
  return true;
}

bool QVSparseRectMatrix::SetNRowsCols(int rows, int columns, bool zero) {
  if (!zero) return Resize(rows, columns);
  rows = std::max(rows, 0);
  columns = std::max(columns, 0);
  if (fNRows < 0 || fNNZ < 1 || fNNZ > columns) return false;
  if (rows > fCapacity && !GrowTo(rows)) return false;
  fNRows = rows;
  fNCols = columns;
  for (int i = 0; i < rows; ++i)
    Empty(i);
  return true;
}

// --- Rows ---------------------------------------------------------------------------------------

int QVSparseRectMatrix::AddRow() {
  if (!CanHoldRows()) return -1;
  if (fNRows >= fCapacity) {
    const long long grown = static_cast<long long>(fCapacity) + fCapacity / 2;
    const int capacity =
        fCapacity > kSmallCapacity
            ? static_cast<int>(std::min<long long>(grown, std::numeric_limits<int>::max()))
            : kFirstCapacity;
    if (capacity <= fNRows || !GrowTo(capacity)) return -1;
  }
  return ++fNRows;
}

bool QVSparseRectMatrix::IsFitting(const QVSparseVector & row) const {
  return CanHoldRows() && row.IsValid() && row.GetSize() == fNNZ && row.GetMinVecSize() <= fNCols;
}

int QVSparseRectMatrix::AddRow(const QVSparseVector & row) {
  if (!IsFitting(row)) return -1;
  const int rows = QVSparseRectMatrix::AddRow();
  if (rows > 0) QVSparseRectMatrix::SetRow(rows - 1, row);
  return rows;
}

bool QVSparseRectMatrix::SetRow(int row, const QVSparseVector & vector) {
  if (!IsRow(row) || !IsFitting(vector)) return false;
  const std::size_t start = RowStart(row);
  for (int p = 0; p < fNNZ; ++p) {
    fColumns[start + At(p)] = vector.GetIndex(p);
    fValues[start + At(p)] = vector.GetValue(p);
  }
  return true;
}

/// Brings ascending cells to exactly NNZ of them, in the work vectors: cells of value 0.0 leave
/// when there are too many and enter, in the first free columns, when there are too few. False when
/// more than NNZ are not 0.0.
bool QVSparseRectMatrix::FitCells(int count, const int * columns, const double * values) {
  const bool dropsZeros = count > fNNZ;
  int kept = 0;
  for (int p = 0; p < count; ++p) {
    if (dropsZeros && values[p] == 0.0) continue;
    if (kept == fNNZ) return false;
    fWorkColumns[At(kept)] = columns[p];
    fWorkValues[At(kept)] = values[p];
    ++kept;
  }
  // From the back, so that the cells move to their places one by one: a free column enters before a
  // cell while there are more free columns in front of it than cells are missing.
  int missing = fNNZ - kept;
  if (missing == 0) return true;
  std::vector<int> free;
  for (int column = 0, p = 0; static_cast<int>(free.size()) < missing; ++column) {
    if (p < kept && fWorkColumns[At(p)] == column) {
      ++p;
    } else {
      free.push_back(column);
    }
  }
  int from = kept - 1;
  for (int to = fNNZ - 1; missing > 0; --to) {
    if (from >= 0 && fWorkColumns[At(from)] > free[At(missing - 1)]) {
      fWorkColumns[At(to)] = fWorkColumns[At(from)];
      fWorkValues[At(to)] = fWorkValues[At(from--)];
    } else {
      fWorkColumns[At(to)] = free[At(--missing)];
      fWorkValues[At(to)] = 0.0;
    }
  }
  return true;
}

/// Makes what `FitCells` has prepared row `row`.
void QVSparseRectMatrix::StoreWork(int row) {
  std::copy_n(fWorkValues.begin(), fNNZ, fValues.data() + RowStart(row));
  std::copy_n(fWorkColumns.begin(), fNNZ, fColumns.data() + RowStart(row));
}

bool QVSparseRectMatrix::GetRow(int row, const int *& indices, const double *& values) const {
  if (!IsRow(row)) return false;
  indices = fColumns.data() + RowStart(row);
  values = fValues.data() + RowStart(row);
  return true;
}

bool QVSparseRectMatrix::GetRow(int row, std::vector<double> & v) const {
  if (!IsRow(row)) return false;
  v.assign(At(fNCols), 0.0);
  const RowCells cells = CellsOf(*this, row);
  for (int p = 0; p < cells.count; ++p)
    v[At(cells.columns[p])] = cells.values[p];
  return true;
}

bool QVSparseRectMatrix::IsRowZero(int row) const {
  if (!IsRow(row)) return false;
  const double * const values = fValues.data() + RowStart(row);
  return std::all_of(values, values + fNNZ, [](double value) { return value == 0.0; });
}

bool QVSparseRectMatrix::ZeroOutRowPart(int row, int start, int count) {
  if (!IsRow(row) || start < 0 || count < 0 || count > fNCols - start) return false;
  const std::size_t first = RowStart(row);
  for (std::size_t p = first; p < first + At(fNNZ); ++p)
    if (fColumns[p] >= start && fColumns[p] < start + count) fValues[p] = 0.0;
  return true;
}

double QVSparseRectMatrix::RowNorm(int row) const {
  if (!IsRow(row)) return QVCommon_940::QVMV::Missing();
  const auto first = fValues.begin() + static_cast<std::ptrdiff_t>(RowStart(row));
  return QVMathFun::DNrm2(fNNZ, std::vector<double>(first, first + fNNZ), 0, 1);
}

// --- Elements -----------------------------------------------------------------------------------

/// The place of a stored cell among all values; -1 for a cell that is not stored.
std::ptrdiff_t QVSparseRectMatrix::FindIndex(int row, int col) const {
  if (!IsRow(row) || col < 0) return -1;
  const std::size_t start = RowStart(row);
  const int * const columns = fColumns.data() + start;
  const auto place = [start](int p) { return static_cast<std::ptrdiff_t>(start) + p; };
  if (fNNZ == 1) return columns[0] == col ? place(0) : -1;
  int low = 0;
  int high = fNNZ - 1;
  if (col < columns[low] || col > columns[high]) return -1;
  while (low <= high) {
    const int middle = (low + high) / 2;
    if (columns[middle] == col) return place(middle);
    if (columns[middle] < col) {
      low = middle + 1;
    } else {
      high = middle - 1;
    }
  }
  return -1;
}

double QVSparseRectMatrix::GetElem(int row, int col) const {
  const std::ptrdiff_t place = FindIndex(row, col);
  return place < 0 ? 0.0 : fValues[static_cast<std::size_t>(place)];
}

bool QVSparseRectMatrix::SetElem(int row, int col, double value) {
  const std::ptrdiff_t place = FindIndex(row, col);
  if (place < 0) return value == 0.0;
  fValues[static_cast<std::size_t>(place)] = value;
  return true;
}

void QVSparseRectMatrix::Clear() {
  std::fill(fValues.begin(), fValues.end(), 0.0);
}

// --- Columns ------------------------------------------------------------------------------------

bool QVSparseRectMatrix::GetCol(int col, std::vector<double> & v) const {
  if (!IsCol(col) || fNRows < 0) return false;
  v.resize(At(fNRows));
  return QVSparseRectMatrix::CopyColToVec(col, v);
}

bool QVSparseRectMatrix::CopyColToVec(int col, std::vector<double> & v) const {
  if (!IsCol(col) || fNRows < 0) return false;
  if (v.size() < At(fNRows)) v.resize(At(fNRows));
  for (int i = 0; i < fNRows; ++i)
    v[At(i)] = QVSparseRectMatrix::GetElem(i, col);
  return true;
}

bool QVSparseRectMatrix::IncrVecByColumn(int col, std::vector<double> & v, int start, int len,
                                         double w, bool check) const {
  if (check) {
    if (!IsCol(col) || len < 1 || len > fNRows || start < 0) return false;
    if (At(start) + At(len) > v.size()) return false;
  }
  for (int i = 0; i < len; ++i) {
    const std::ptrdiff_t place = FindIndex(i, col);
    if (place >= 0) v[At(start) + At(i)] += w * fValues[static_cast<std::size_t>(place)];
  }
  return true;
}

double QVSparseRectMatrix::ColNorm(int col) const {
  std::vector<double> column;
  if (!QVSparseRectMatrix::GetCol(col, column)) return QVCommon_940::QVMV::Missing();
  return QVMathFun::DNrm2(fNRows, column, 0, 1);
}

// --- Display ------------------------------------------------------------------------------------

void QVSparseRectMatrix::Display() const {
  const QVDisplay_940::DisplayFrame frame("QVSparseRectMatrix");
  QVDisplay_940::DisplayI("Number of rows", fNRows);
  QVDisplay_940::DisplayI("Number of columns", fNCols);
  std::vector<double> row;
  for (int i = 0; i < fNRows; ++i) {
    QVSparseRectMatrix::GetRow(i, row);
    QVDisplay_940::DisplayRow(i, row.data(), fNCols);
  }
}

void QVSparseRectMatrix::DisplayF() const {
  const QVDisplay_940::DisplayFrame frame("QVSparseRectMatrix full matrix display start",
                                          "QVSparseRectMatrix display end");
  QVDisplay_940::DisplayI("Number of rows", fNRows);
  QVDisplay_940::DisplayI("Number of columns", fNCols);
  std::vector<double> row;
  for (int i = 0; i < fNRows; ++i) {
    QVSparseRectMatrix::GetRow(i, row);
    QVDisplay_940::DisplayFullRow(i, row.data(), fNCols);
  }
}

}  // namespace QVMath_940
