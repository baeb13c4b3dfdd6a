// Rows, columns and whole matrices copied to and from the sparse rectangular matrix.
#include <algorithm>
#include <limits>
#include <utility>
#include <vector>

#include "QVSparseRectMatrix.h"
#include "math/matrix/structured/sparse/sparse_result.h"

namespace QVMath_940 {

namespace {

std::size_t At(int i) {
  return static_cast<std::size_t>(i);
}

bool AreIndexes(const std::vector<int> & indexes, int size) {
  return std::all_of(indexes.begin(), indexes.end(),
                     [size](int index) { return index >= 0 && index < size; });
}

// The non-zero elements of row i of any matrix, or all cells of a sparse row.
void GatherCells(const IQVRectMatrix & r, int i, std::vector<int> & columns,
                 std::vector<double> & values) {
  columns.clear();
  values.clear();
  if (const QVSparseRectMatrix * sparse = AsSparse(r)) {
    const RowCells cells = CellsOf(*sparse, i);
    columns.assign(cells.columns, cells.columns + cells.count);
    values.assign(cells.values, cells.values + cells.count);
    return;
  }
  for (int j = 0; j < r.GetNCols(); ++j) {
    const double value = r.GetElem(i, j);
    if (value == 0.0) continue;
    columns.push_back(j);
    values.push_back(value);
  }
}

// For each column of a matrix the places it goes to, as pairs (column, place), sorted.
std::vector<std::pair<int, int>> PlacesOf(const std::vector<int> & columns) {
  std::vector<std::pair<int, int>> places;
  for (std::size_t p = 0; p < columns.size(); ++p)
    places.emplace_back(columns[p], static_cast<int>(p));
  std::sort(places.begin(), places.end());
  return places;
}

// Adds the row of `cells` to the result with each cell moved to its places.
bool AddPlacedRow(const RowCells & cells, const std::vector<std::pair<int, int>> & places,
                  SparseResult & result) {
  std::vector<std::pair<int, double>> moved;
  for (int p = 0; p < cells.count; ++p) {
    const std::pair<int, int> first(cells.columns[p], 0);
    for (auto place = std::lower_bound(places.begin(), places.end(), first);
         place != places.end() && place->first == cells.columns[p]; ++place)
      moved.emplace_back(place->second, cells.values[p]);
  }
  std::sort(moved.begin(), moved.end());
  std::vector<int> columns;
  std::vector<double> values;
  for (const auto & [column, value] : moved) {
    columns.push_back(column);
    values.push_back(value);
  }
  return result.AddRow(columns, values);
}

// Adds the row of `cells` with its columns moved by `shift`; what leaves the columns is lost.
bool AddShiftedRow(const RowCells & cells, int shift, int size, SparseResult & result) {
  std::vector<int> columns;
  std::vector<double> values;
  for (int p = 0; p < cells.count; ++p) {
    const int column = cells.columns[p] + shift;
    if (column < 0 || column >= size) continue;
    columns.push_back(column);
    values.push_back(cells.values[p]);
  }
  return result.AddRow(columns, values);
}

}  // namespace

// --- Copying ------------------------------------------------------------------------------------

bool QVSparseRectMatrix::CopyRows(const IQVRectMatrix & source, int start, int count) {
  if (start < 0 || count < 0 || count > source.GetNRows() - start || count > fNRows ||
      source.GetNCols() != fNCols)
    return false;
  if (count == 0) return true;
  QVSparseRectMatrix made(count, fNCols, fNNZ);
  if (!made.IsValidMatrix()) return false;
  std::vector<int> columns;
  std::vector<double> values;
  for (int i = 0; i < count; ++i) {
    GatherCells(source, start + i, columns, values);
    if (!made.FitCells(static_cast<int>(columns.size()), columns.data(), values.data()))
      return false;
    made.AddRow();
    made.StoreWork(i);
  }
  std::copy(made.fValues.begin(), made.fValues.end(), fValues.begin());
  std::copy(made.fColumns.begin(), made.fColumns.end(), fColumns.begin());
  return true;
}

bool QVSparseRectMatrix::CopyRowToRow(int row, int k, IQVRectMatrix & target) const {
  if (!IsRow(row) || k < 0 || k >= target.GetNRows() || target.GetNCols() != fNCols) return false;
  const RowCells cells = CellsOf(*this, row);
  if (QVSparseRectMatrix * sparse = AsSparse(target)) {
    if (!sparse->FitCells(cells.count, cells.columns, cells.values)) return false;
    sparse->StoreWork(k);
    return true;
  }
  double * const to = static_cast<QVRectMatrix &>(target).GetRowPtr(k);
  std::fill_n(to, fNCols, 0.0);
  for (int p = 0; p < cells.count; ++p)
    to[cells.columns[p]] = cells.values[p];
  return true;
}

bool QVSparseRectMatrix::CreateBlockDiagonal(int copies, IQVRectMatrix & target) const {
  if (!IsValidMatrix() || copies < 1) return false;
  if (copies > std::numeric_limits<int>::max() / std::max(fNRows, fNCols)) return false;
  const int columns = copies * fNCols;
  SparseResult result(target, copies * fNRows, columns);
  if (!result.IsReady()) return false;
  for (int copy = 0; copy < copies; ++copy)
    for (int i = 0; i < fNRows; ++i)
      if (!AddShiftedRow(CellsOf(*this, i), copy * fNCols, columns, result)) return false;
  return result.Deliver();
}

// --- Extracting ---------------------------------------------------------------------------------

int QVSparseRectMatrix::ExtractColumns(const std::vector<int> & columns,
                                       IQVRectMatrix & out) const {
  if (!IsValidMatrix() || !AreIndexes(columns, fNCols)) return -1;
  SparseResult result(out, fNRows, static_cast<int>(columns.size()));
  if (!result.IsReady()) return -1;
  const std::vector<std::pair<int, int>> places = PlacesOf(columns);
  for (int i = 0; i < fNRows; ++i)
    if (!AddPlacedRow(CellsOf(*this, i), places, result)) return -1;
  result.Deliver();
  return static_cast<int>(columns.size());
}

int QVSparseRectMatrix::ExtractRows(const std::vector<int> & rows, IQVRectMatrix & out) const {
  if (!IsValidMatrix() || !AreIndexes(rows, fNRows)) return -1;
  SparseResult result(out, static_cast<int>(rows.size()), fNCols);
  if (!result.IsReady()) return -1;
  for (const int i : rows)
    if (!result.AddRow(CellsOf(*this, i))) return -1;
  result.Deliver();
  return static_cast<int>(rows.size());
}

bool QVSparseRectMatrix::ExtractSubSparseRectMat(const std::vector<int> & rows,
                                                 const std::vector<int> & columns,
                                                 QVSparseRectMatrix & out) const {
  if (!IsValidMatrix() || !AreIndexes(rows, fNRows) || !AreIndexes(columns, fNCols)) return false;
  SparseResult result(out, static_cast<int>(rows.size()), static_cast<int>(columns.size()));
  if (!result.IsReady()) return false;
  const std::vector<std::pair<int, int>> places = PlacesOf(columns);
  for (const int i : rows)
    if (!AddPlacedRow(CellsOf(*this, i), places, result)) return false;
  return result.Deliver();
}

// --- Shifting, spreading ------------------------------------------------------------------------

bool QVSparseRectMatrix::ShiftColumns(int count, IQVRectMatrix & target) const {
  if (!IsValidMatrix() || count > fNCols || count < -fNCols) return false;
  SparseResult result(target, fNRows, fNCols);
  if (!result.IsReady()) return false;
  for (int i = 0; i < fNRows; ++i)
    if (!AddShiftedRow(CellsOf(*this, i), count, fNCols, result)) return false;
  return result.Deliver();
}

bool QVSparseRectMatrix::ShiftRows(int count, IQVRectMatrix & target) const {
  if (!IsValidMatrix() || count > fNRows || count < -fNRows) return false;
  SparseResult result(target, fNRows, fNCols);
  if (!result.IsReady()) return false;
  for (int i = 0; i < fNRows; ++i) {
    const int from = i - count;
    if (!result.AddRow(IsRow(from) ? CellsOf(*this, from) : RowCells())) return false;
  }
  return result.Deliver();
}

bool QVSparseRectMatrix::ExpandSquare(const QVBitSet & places, IQVRectMatrix & out) const {
  const int marked = places.InSet();
  if (!IsValidMatrix() || marked != fNRows || marked != fNCols) return false;
  std::vector<int> spread;
  for (int place = 0; place < places.Size(); ++place)
    if (places.IsIn(place)) spread.push_back(place);
  std::vector<std::pair<int, int>> columns;
  for (int j = 0; j < fNCols; ++j)
    columns.emplace_back(j, spread[At(j)]);
  SparseResult result(out, places.Size(), places.Size());
  if (!result.IsReady()) return false;
  for (int place = 0, i = 0; place < places.Size(); ++place) {
    const bool isStored = places.IsIn(place) ? AddPlacedRow(CellsOf(*this, i++), columns, result)
                                             : result.AddRow(RowCells());
    if (!isStored) return false;
  }
  return result.Deliver();
}

}  // namespace QVMath_940
