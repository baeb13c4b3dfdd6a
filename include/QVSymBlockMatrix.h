/// A symmetric matrix of symmetric matrices: a square array of cells of one order, of which the
/// lower triangle is stored, and that is flattened to one large packed matrix.
///
///     QVMath_940::QVSymBlockMatrix hessian(2, 3);           // 2 x 2 cells of order 3, all 0.0
///     hessian.GetElemSSRef(1, 0).SetElem(2, 0, 0.5);
///     QVMath_940::QVSymMatrix flat;
///     hessian.CopyToSymMatrix(flat);                        // 6, the order of flat
///
/// Cell (i, j) with i >= j stands at i(i+1)/2 + j; (i, j) and (j, i) are one object. It is a plain
/// container, not an `IQVSymMatrix`. Beware: a cell off the diagonal is symmetric in its form too,
/// and fills a full square of the flat matrix.
///
/// Storage that cannot be obtained sets both counts to -1 and leaves no cells: `IsValid` is false
/// then. Copies are deep. One object may be used from one thread at a time.
#pragma once

#include <vector>

#include "QVExport.h"
#include "QVSymMatrix.h"

namespace QVMath_940 {

class QVCOMMON_API QVSymBlockMatrix {
 public:
  /// No cells.
  QVSymBlockMatrix();

  /// blockRows x blockRows cells of the order `rows`, all 0.0; a negative number counts as 0.
  QVSymBlockMatrix(int blockRows, int rows);

  QVSymBlockMatrix(const QVSymBlockMatrix & other);
  QVSymBlockMatrix & operator=(const QVSymBlockMatrix & other);
  ~QVSymBlockMatrix();

  /// Sets every cell to 0.0.
  void Clear();

  /// Changes the shape; a negative number counts as 0. With `clear` true all becomes 0.0. False
  /// when the storage could not be obtained.
  bool SetNRows(int blockRows, int rows, bool clear);

  /// Cell (i, j) or, the same, (j, i). No bounds test.
  QVSymMatrix & GetElemSSRef(int i, int j);
  const QVSymMatrix & GetElemSSRef(int i, int j) const;

  /// The cells in their packed order. They belong to this object; do not change their number or
  /// their order.
  std::vector<QVSymMatrix> & AsVectorSS() { return fCells; }
  const std::vector<QVSymMatrix> & AsVectorSS() const { return fCells; }

  /// The flat matrix: out(I rows + r, J rows + c) = cell (I, J)(r, c), a single cell being copied
  /// as it is, its blocks included. `out` takes blockRows x rows rows, which number is the result;
  /// -1 when its storage could not be obtained or this object is not valid. `out` may be a cell.
  int CopyToSymMatrix(QVSymMatrix & out) const;

  /// True when neither count is negative.
  bool IsValid() const;

  /// Shows the number of block rows and each cell under its place.
  void Display() const;

  /// Gives `cells` blockRows(blockRows + 1)/2 cells of `rows` rows each, whose leading rows keep
  /// their values; new elements are 0.0. A failed allocation empties it and sets both numbers to
  /// -1. The result is true when neither number is negative.
  static bool ResizeNRows(std::vector<QVSymMatrix> & cells, int & blockRows, int & rows);

 private:
  int fNBlockRows = 0;
  int fNRows = 0;
  std::vector<QVSymMatrix> fCells;
};

}  // namespace QVMath_940
