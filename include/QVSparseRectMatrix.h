/// The sparse rectangular matrix of a design: every row has the same number of stored cells.
///
/// One-hot coded factors give such rows. Each row keeps exactly `GetNNZRowElements` (NNZ) column
/// indices, ascending, and as many values:
///
///     values   row 0: v v v | row 1: v v v | ...     row r begins at r x NNZ
///     columns  row 0: 0 4 7 | row 1: 1 4 9 | ...
///
///     QVMath_940::QVSparseRectMatrix design(1000, 10, 3);   // room for 1000 rows, 10 columns, NNZ
///     3 const std::vector<int> columns = {0, 4, 7}; const std::vector<double> ones =
///     {1.0, 1.0, 1.0}; design.AddRow(QVMath_940::QVSparseVector(columns, ones));  // 1, the number
///     of rows design.GetElem(0, 4);                                      // 1.0 design.SetElem(0,
///     5, 2.0);                                 // false: no cell there
///
/// It is an `IQVRectMatrix`, and its operations do what those of `QVRectMatrix` do, at a cost in
/// proportion to the cells. What is particular to this storage:
///
/// - No operation inserts a cell into a row. One that would leave a row with more than NNZ non-zero
///   elements, here or in a sparse target, answers false or -1 and changes nothing. A row that
///   needs fewer gets cells of value 0.0 in its first free columns.
/// - A target may be dense or sparse. A sparse one takes the shape of the result and keeps its own
///   NNZ, which must not be above the number of columns.
/// - A row that `AddRow()` or `Resize` brought into use may have no columns yet (index -1): it is a
///   row of zeros until `SetRow` fills it.
///
/// Guarantees. Errors are results: false, -1, 0.0, or the missing value for a norm. Storage that
/// cannot be obtained at construction or for a copy makes the matrix invalid, its number of rows
/// being -1; later it leaves the matrix as it was. The matrix owns its cells; copies are deep. A
/// target may be an operand. One object may be used from one thread at a time.
#pragma once

#include <cstddef>
#include <vector>

#include "IQVRectMatrix.h"
#include "QVBitSet.h"
#include "QVExport.h"

namespace QVMath_940 {

class QVCOMMON_API QVSparseRectMatrix : public IQVRectMatrix {
 public:
  // === Construction and shape ===================================================================

  /// No rows yet, room for `rowCapacity` of them, with `nnz` cells each in `columns` columns. The
  /// matrix is valid when all three are at least 1 and nnz is not above columns.
  QVSparseRectMatrix(int rowCapacity, int columns, int nnz);

  QVSparseRectMatrix(const QVSparseRectMatrix & other);
  QVSparseRectMatrix & operator=(const QVSparseRectMatrix & other);
  ~QVSparseRectMatrix() override;

  /// `RectMatrixSparse`.
  RectMatrixType GetMatrixType() const override;

  /// True when the number of rows lies between 0 and the capacity, the capacity and the number of
  /// columns are at least 1, and NNZ lies between 1 and the number of columns.
  bool IsValidMatrix() const override;

  /// Number of rows in use, and of columns.
  int GetNRows() const override;
  int GetNCols() const override;

  /// Rows for which there is storage.
  int GetRowCapacity() const { return fCapacity; }

  /// NNZ, the number of cells of each row.
  int GetNNZRowElements() const { return fNNZ; }

  /// Changes the shape; a negative count counts as 0. The first rows keep their cells, rows that
  /// come into use are rows of zeros. False, and nothing changed, when NNZ is above `columns`, when
  /// a row that stays has a non-zero cell behind the last column, and when the storage could not be
  /// obtained.
  bool Resize(int rows, int columns) override;

  /// As `Resize`; with `zero` true all rows become rows of zeros, and cells do not matter.
  bool SetNRowsCols(int rows, int columns, bool zero) override;

  /// Takes one more row into use, whose cells hold what they held before. The result is the new
  /// number of rows; -1 for a matrix that holds no rows (NNZ not in 1 .. columns) and when storage
  /// could not be obtained. Storage grows by half, or to 10 rows from 6 or fewer.
  int AddRow() override;

  /// Appends the sparse row. -1, and nothing changed, also when it is not valid, does not have
  /// exactly NNZ cells, or reaches behind the last column.
  int AddRow(const QVSparseVector & row) override;

  // === Elements and rows ========================================================================

  /// The stored value, 0.0 for a cell that is not stored (and outside the matrix).
  double GetElem(int row, int col) const override;

  /// Overwrites a stored cell. For a cell that is not stored nothing changes, and the result is
  /// true only for the value 0.0.
  bool SetElem(int row, int col, double value) override;

  /// The full row, zeros included; false for a bad row.
  bool GetRow(int row, std::vector<double> & v) const override;

  /// The row's cells, NNZ of them; false for a bad row. The pointers live until the shape changes.
  /// A row without columns yet has the indices -1.
  bool GetRow(int row, const int *& indices, const double *& values) const;

  /// Replaces row `row`; the tests of `AddRow`, and false for a bad row.
  bool SetRow(int row, const QVSparseVector & vector) override;

  /// Sets all values to 0.0; the cells stay where they are.
  void Clear() override;

  /// True when all cells of the row are 0.0; false for a bad row.
  bool IsRowZero(int row) const override;

  /// Sets the cells in columns start .. start + count - 1 to 0.0; refusals as in the dense class.
  bool ZeroOutRowPart(int row, int start, int count) override;

  double RowNorm(int row) const override;

  // === Columns ==================================================================================

  bool GetCol(int col, std::vector<double> & v) const override;
  bool CopyColToVec(int col, std::vector<double> & v) const override;
  bool IncrVecByColumn(int col, std::vector<double> & v, int start, int len, double w,
                       bool check) const override;
  double ColNorm(int col) const override;

  // === Copying and extracting ===================================================================
  // As in the dense class, with a dense or a sparse target.

  /// Copies rows start .. start + count - 1 of `source` over the leading `count` rows.
  bool CopyRows(const IQVRectMatrix & source, int start, int count) override;

  /// Copies row `row` over row k of `target`.
  bool CopyRowToRow(int row, int k, IQVRectMatrix & target) const override;

  bool CreateBlockDiagonal(int copies, IQVRectMatrix & target) const override;
  int ExtractColumns(const std::vector<int> & columns, IQVRectMatrix & out) const override;
  int ExtractRows(const std::vector<int> & rows, IQVRectMatrix & out) const override;
  bool ShiftColumns(int count, IQVRectMatrix & target) const override;
  bool ShiftRows(int count, IQVRectMatrix & target) const override;

  /// out = the listed rows and columns, in the order of the lists, which may repeat one. False for
  /// an index out of range and when a row does not fit `out`.
  bool ExtractSubSparseRectMat(const std::vector<int> & rows, const std::vector<int> & columns,
                               QVSparseRectMatrix & out) const;

  /// Spreads the rows and columns of this square matrix to the places that the set marks, with 0.0
  /// elsewhere. False unless exactly as many bits are set as there are rows and columns.
  bool ExpandSquare(const QVBitSet & places, IQVRectMatrix & out) const;

  // === Products =================================================================================
  // Operands of any class; refusals as in the dense class. Sums run over the cells in column order.

  /// out = R B.
  bool ComputeMatrixProduct(const IQVRectMatrix & b, IQVRectMatrix & out) const override;

  /// out = R B-transpose.
  bool ComputeProductMatrixTrans(const IQVRectMatrix & b, QVRectMatrix & out) const override;

  /// out = R v, out = v R.
  bool ComputeRV(const std::vector<double> & v, std::vector<double> & out) const override;
  bool ComputeVR(const std::vector<double> & v, std::vector<double> & out) const override;

  double DotProductCol(int j, int k) const override;
  double DotProductRows(int i, int k) const override;
  double DotProductRowCol(int i, const IQVRectMatrix & other, int j) const override;
  double DotProductRowRow(int i, const IQVRectMatrix & other, int k) const override;

  // === Display ==================================================================================

  /// Shows the two counts and every full row.
  void Display() const override;

  /// The same under another first line.
  void DisplayF() const override;

 private:
  friend class SparseResult;

  bool IsRow(int i) const { return i >= 0 && i < fNRows; }
  bool IsCol(int j) const { return j >= 0 && j < fNCols; }
  bool CanHoldRows() const { return fNRows >= 0 && fNNZ >= 1 && fNNZ <= fNCols; }
  std::size_t RowStart(int row) const {
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(fNNZ);
  }
  std::ptrdiff_t FindIndex(int row, int col) const;
  bool GrowTo(int capacity);
  bool IsFitting(const QVSparseVector & row) const;
  bool FitCells(int count, const int * columns, const double * values);
  void StoreWork(int row);
  void Empty(int row);
  void Swap(QVSparseRectMatrix & other) noexcept;

  int fNRows = 0;
  int fCapacity;
  int fNCols;
  int fNNZ;
  std::vector<double> fValues;
  std::vector<int> fColumns;
  std::vector<double> fWorkValues;
  std::vector<int> fWorkColumns;
};

}  // namespace QVMath_940
