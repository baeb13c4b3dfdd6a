/// The cells of one row of a sparse rectangular matrix, in place.
#pragma once

#include "QVSparseRectMatrix.h"

namespace QVMath_940 {

struct RowCells {
  int count = 0;  // 0 for a row that was added and never filled
  const int * columns = nullptr;
  const double * values = nullptr;
};

inline RowCells CellsOf(const QVSparseRectMatrix & r, int i) {
  RowCells cells;
  if (r.GetRow(i, cells.columns, cells.values) && cells.columns[0] >= 0)
    cells.count = r.GetNNZRowElements();
  return cells;
}

/// The sparse matrix behind an interface; null when another class stands there.
inline const QVSparseRectMatrix * AsSparse(const IQVRectMatrix & r) {
  return r.GetMatrixType() == RectMatrixSparse ? static_cast<const QVSparseRectMatrix *>(&r)
                                               : nullptr;
}
inline QVSparseRectMatrix * AsSparse(IQVRectMatrix & r) {
  return r.GetMatrixType() == RectMatrixSparse ? static_cast<QVSparseRectMatrix *>(&r) : nullptr;
}

}  // namespace QVMath_940
