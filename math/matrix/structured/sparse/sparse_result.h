/// Where an operation on sparse rows puts its result: a dense target, or a sparse one that must be
/// able to hold every row.
///
///     SparseResult result(out, rows, columns);
///     for (...)
///       if (!result.AddRow(count, columnsOfRow, values)) return false;   // `out` is as it was
///     return result.Deliver();
///
/// The result is made aside, so that `out` may be an operand and stays as it was on refusal.
#pragma once

#include <algorithm>
#include <utility>
#include <vector>

#include "QVRectMatrix.h"
#include "QVSparseRectMatrix.h"
#include "math/matrix/structured/sparse_rows.h"

namespace QVMath_940 {

class SparseResult {
 public:
  SparseResult(IQVRectMatrix & out, int rows, int columns)
      : fOut(out),
        fSparseOut(AsSparse(out)),
        fSparse(fSparseOut == nullptr ? 1 : std::max(rows, 1), columns,
                fSparseOut == nullptr ? 1 : fSparseOut->GetNNZRowElements()) {
    if (fSparseOut != nullptr) {
      fIsReady = fSparse.IsValidMatrix();
    } else {
      fIsReady = fDense.SetNRowsCols(rows, columns, true);
    }
  }
  SparseResult(const SparseResult &) = delete;
  SparseResult & operator=(const SparseResult &) = delete;

  /// False when the target cannot take the shape.
  bool IsReady() const { return fIsReady; }

  /// The next row, from cells in ascending order of their columns.
  bool AddRow(int count, const int * columns, const double * values) {
    if (fSparseOut == nullptr) {
      double * const row = fDense.GetRowPtr(fRows++);
      for (int p = 0; p < count; ++p)
        row[columns[p]] = values[p];
      return true;
    }
    if (!fSparse.FitCells(count, columns, values) || fSparse.AddRow() < 0) return false;
    fSparse.StoreWork(fSparse.GetNRows() - 1);
    return true;
  }
  bool AddRow(const RowCells & cells) { return AddRow(cells.count, cells.columns, cells.values); }
  bool AddRow(const std::vector<int> & columns, const std::vector<double> & values) {
    return AddRow(static_cast<int>(columns.size()), columns.data(), values.data());
  }

  bool Deliver() {
    if (fSparseOut != nullptr) {
      fSparseOut->Swap(fSparse);
    } else {
      static_cast<QVRectMatrix &>(fOut) = std::move(fDense);
    }
    return true;
  }

 private:
  IQVRectMatrix & fOut;
  QVSparseRectMatrix * fSparseOut;
  QVSparseRectMatrix fSparse;
  QVRectMatrix fDense;
  int fRows = 0;
  bool fIsReady = false;
};

}  // namespace QVMath_940
