// The symmetric matrix of symmetric matrices.
#include <algorithm>
#include <limits>
#include <new>
#include <stdexcept>

#include "QVDisplay.h"
#include "QVSymBlockMatrix.h"
#include "common/display/display_frame.h"

namespace QVMath_940 {

QVSymBlockMatrix::QVSymBlockMatrix() = default;

QVSymBlockMatrix::QVSymBlockMatrix(int blockRows, int rows) {
  SetNRows(blockRows, rows, true);
}

QVSymBlockMatrix::QVSymBlockMatrix(const QVSymBlockMatrix & other) {
  *this = other;
}

QVSymBlockMatrix & QVSymBlockMatrix::operator=(const QVSymBlockMatrix & other) {
  if (this == &other) return *this;
  fNBlockRows = other.fNBlockRows;
  fNRows = other.fNRows;
  bool isCopied = true;
  try {
    fCells = other.fCells;
    for (std::size_t cell = 0; cell < fCells.size(); ++cell)
      isCopied = isCopied && fCells[cell].IsValidMatrix() == other.fCells[cell].IsValidMatrix();
  } catch (const std::bad_alloc &) {
    isCopied = false;
  }
  if (!isCopied) {
    std::vector<QVSymMatrix>().swap(fCells);
    fNBlockRows = fNRows = -1;
  }
  return *this;
}

QVSymBlockMatrix::~QVSymBlockMatrix() = default;

void QVSymBlockMatrix::Clear() {
  for (QVSymMatrix & cell : fCells)
    cell.Clear();
}

bool QVSymBlockMatrix::SetNRows(int blockRows, int rows, bool clear) {
  fNBlockRows = std::max(blockRows, 0);
  fNRows = std::max(rows, 0);
  if (!ResizeNRows(fCells, fNBlockRows, fNRows)) return false;
  if (clear) Clear();
  return true;
}

QVSymMatrix & QVSymBlockMatrix::GetElemSSRef(int i, int j) {
  return fCells[QVSymMatrix::PackedPosition(i, j)];
}

const QVSymMatrix & QVSymBlockMatrix::GetElemSSRef(int i, int j) const {
  return fCells[QVSymMatrix::PackedPosition(i, j)];
}

int QVSymBlockMatrix::CopyToSymMatrix(QVSymMatrix & out) const {
  if (!IsValid()) return -1;
  const long long rows = static_cast<long long>(fNBlockRows) * fNRows;
  if (rows > std::numeric_limits<int>::max()) return -1;
  const int total = static_cast<int>(rows);
  for (const QVSymMatrix & cell : fCells) {
    if (&cell != &out || fNBlockRows == 1) continue;
    QVSymMatrix flat;
    if (CopyToSymMatrix(flat) < 0) return -1;
    out = std::move(flat);
    return total;
  }
  if (out.GetNRows() != total && !out.SetNRows(total, false)) return -1;
  if (fNBlockRows == 1) {
    out = fCells.front();
    return out.IsValidMatrix() ? total : -1;
  }
  double * element = out.AsVector().data();
  for (int i = 0; i < total; ++i)
    for (int j = 0; j <= i; ++j)
      *element++ = GetElemSSRef(i / fNRows, j / fNRows).GetElem(i % fNRows, j % fNRows);
  return total;
}

bool QVSymBlockMatrix::IsValid() const {
  return fNBlockRows >= 0 && fNRows >= 0;
}

void QVSymBlockMatrix::Display() const {
  const QVDisplay_940::DisplayFrame frame("QVSymBlockMatrix");
  QVDisplay_940::DisplayI("The number of rows in the QVSymBlockMatrix", fNBlockRows);
  for (int i = 0; i < fNBlockRows; ++i) {
    for (int j = 0; j <= i; ++j) {
      QVDisplay_940::DisplayI("Row number in the QVSymBlockMatrix", i);
      QVDisplay_940::DisplayI("Column number in the QVSymBlockMatrix", j);
      QVDisplay_940::DisplayText(1, "QVMATH_NAMESPACE::QVSymMatrix matrix:");
      GetElemSSRef(i, j).Display();
    }
  }
}

bool QVSymBlockMatrix::ResizeNRows(std::vector<QVSymMatrix> & cells, int & blockRows, int & rows) {
  if (blockRows < 0 || rows < 0) return false;
  try {
    cells.resize(QVSymMatrix::RowStart(blockRows));
    const int order = rows;
    const bool isSized = std::all_of(cells.begin(), cells.end(), [order](QVSymMatrix & cell) {
      return cell.GetNRows() == order || cell.Resize(order);
    });
    if (isSized) return true;
  } catch (const std::bad_alloc &) {
  } catch (const std::length_error &) {  // more cells than any vector can hold
  }
  std::vector<QVSymMatrix>().swap(cells);
  blockRows = rows = -1;
  return false;
}

}  // namespace QVMath_940
