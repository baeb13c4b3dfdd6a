/// The dense rectangular matrix, stored row after row.
///
/// Element (i, j) stands at position i x columns + j of one vector of doubles. Rows and columns
/// count from 0.
///
///     QVMath_940::QVRectMatrix data(2, 3, true);  // 2 rows, 3 columns, all 0.0
///     data.SetElem(0, 2, 1.5);
///     int rows = data.AddRow();                   // 3, the new row is all 0.0
///     double * second = data.GetRowPtr(1);        // second[0] .. second[2]
///
/// Guarantees.
/// Errors are results: false, -1, or the missing value for a norm; the matrix stays as it was then.
/// Storage that cannot be obtained makes the matrix invalid: both counts become -1 together,
/// `IsValidMatrix` answers false and every operation finds no rows and no columns. A matrix with a
/// count of 0 has empty storage and is valid.
/// The matrix owns its elements; copies are deep. A pointer into it lives until the shape changes.
/// Different objects may be used from different threads, one object from one thread at a time.
#pragma once

#include <cstddef>
#include <vector>

#include "IQVRectMatrix.h"
#include "QVBitSet.h"
#include "QVExport.h"

namespace QVMath_940 {

class QVCOMMON_API QVRectMatrix : public IQVRectMatrix {
 public:
  // === Construction and shape ===================================================================

  /// 0 rows, 0 columns.
  QVRectMatrix();

  /// `rows` x `columns`, all elements 0.0; a negative count counts as 0. (`zero` false promises
  /// nothing about the elements.)
  QVRectMatrix(int rows, int columns, bool zero);

  /// Deep copies; a copy whose storage cannot be obtained is invalid.
  QVRectMatrix(const QVRectMatrix & other);
  QVRectMatrix & operator=(const QVRectMatrix & other);

  /// Take the storage over and leave `other` with 0 rows and 0 columns.
  QVRectMatrix(QVRectMatrix && other) noexcept;
  QVRectMatrix & operator=(QVRectMatrix && other) noexcept;

  ~QVRectMatrix() override;

  /// `RectMatrixDense`.
  RectMatrixType GetMatrixType() const override;

  /// True when neither count is negative.
  bool IsValidMatrix() const override;

  /// Number of rows and of columns; -1 for an invalid matrix.
  int GetNRows() const override;
  int GetNCols() const override;

  /// Changes the shape; a negative count counts as 0. Beware: old elements stay at their positions
  /// in the storage, so that they do not follow their rows when the number of columns changes. New
  /// elements are 0.0. False when the storage could not be obtained: the matrix is invalid then.
  bool Resize(int rows, int columns) override;

  /// As `Resize`; with `zero` true all elements become 0.0.
  bool SetNRowsCols(int rows, int columns, bool zero) override;

  /// Appends a row of zeros; gives the new number of rows, -1 when the matrix is or becomes
  /// invalid.
  int AddRow() override;

  /// Appends the sparse row; gives the new number of rows, -1 for a row that does not fit.
  int AddRow(const QVSparseVector & row) override;

  /// Appends a column of zeros, every row moving to its new place; gives the new number of columns,
  /// -1 when the matrix is or becomes invalid.
  int AddColumn();

  /// Remove row i or column j; false for a bad index.
  bool DeleteOneRow(int i);
  bool DeleteOneCol(int j);

  /// Turns the matrix into its transpose, through one temporary copy of the elements. False when
  /// the matrix is invalid or becomes it.
  bool Transpose();

  /// Shapes `elements` for rows x columns when both counts are above 0, else empties it. A failed
  /// allocation empties it and sets both counts to -1. The result is true when neither count is
  /// negative.
  static bool ResizeNRowsCols(std::vector<double> & elements, int & rows, int & columns);

  // === Elements =================================================================================

  /// Element (i, j). No bounds test.
  double GetElem(int i, int j) const override;

  /// Stores element (i, j). No bounds test; always true.
  bool SetElem(int i, int j, double value) override;

  /// Pointer to the first element of row i, whose elements follow one another; null for a bad i.
  double * GetRowPtr(int i);
  const double * GetRowPtr(int i) const;

  /// Pointer to the first element of column j, whose elements lie `GetNCols` apart; null for a bad
  /// j.
  double * GetColPtr(int j);
  const double * GetColPtr(int j) const;

  /// The elements, row after row, for inner loops. They belong to the matrix; do not change the
  /// vector's size.
  std::vector<double> & AsVector() { return fElements; }
  const std::vector<double> & AsVector() const { return fElements; }

  /// Sets all elements to 0.0.
  void Clear() override;

  /// Adds `value` to the elements (i, i) as far as both counts reach.
  void AddToDiagonal(double value);

  // === Rows =====================================================================================

  /// Copies row i to `row`, which takes as many elements as there are columns; false for a bad i.
  bool GetRow(int i, std::vector<double> & row) const override;

  /// Replaces row i by the sparse one; false for a bad i or a row that does not fit.
  bool SetRow(int i, const QVSparseVector & row) override;

  /// Copies row i of this matrix over row k of `target`; false for a bad index, when the numbers of
  /// columns differ, or when `target` cannot store an element.
  bool CopyRowToRow(int i, int k, IQVRectMatrix & target) const override;

  /// True when all elements of row i are 0.0; false for a bad i.
  bool IsRowZero(int i) const override;

  /// True when exactly one of the elements of row i in the columns of `columns` is not 0.0;
  /// `column` tells which then, and is -1 otherwise. False for a bad i.
  bool IsRowZeroButOne(int i, const QVBitSet & columns, int & column) const;

  /// Sets elements start .. start + count - 1 of row i to 0.0; false for a bad i, a negative start
  /// or count, or start + count above the number of columns.
  bool ZeroOutRowPart(int i, int start, int count) override;

  /// Euclidean norm of row i; the missing value for a bad i.
  double RowNorm(int i) const override;

  // === Columns ==================================================================================

  /// Copies column j to `column`, which takes as many elements as there are rows; false for a bad
  /// j.
  bool GetCol(int j, std::vector<double> & column) const override;

  /// Copies column j to the front of v, which grows to the number of rows when it is smaller; false
  /// for a bad j.
  bool CopyColToVec(int j, std::vector<double> & v) const override;

  /// Copies column j of this matrix over column k of `target`; false for a bad index or when the
  /// numbers of rows differ.
  bool CopyColToCol(int j, int k, QVRectMatrix & target) const;

  /// Copies column j of this matrix over row k of `target`; false for a bad index or when `target`
  /// does not have as many columns as this matrix has rows.
  bool CopyColToRow(int j, int k, QVRectMatrix & target) const;

  /// Column `target` of this matrix += factor x column j of `source` (which may be this matrix);
  /// false for a bad index or when the numbers of rows differ.
  bool AddToColumn(int target, const QVRectMatrix & source, int j, double factor);

  /// Multiplies column j by `factor`; false for a bad j.
  bool ColScale(int j, double factor);

  /// Sets column j to 0.0; false for a bad j.
  bool ZeroOutCol(int j);

  /// True when all elements of column j are 0.0; false for a bad j.
  bool IsColZero(int j) const;

  /// v[start + i] += w x element i of column j, for i from 0 to len - 1. With `check` true: false
  /// for a bad j, for len below 1 or above the number of rows, for start negative or start + len
  /// above the size of v.
  bool IncrVecByColumn(int j, std::vector<double> & v, int start, int len, double w,
                       bool check) const override;

  /// Euclidean norm of column j; the missing value for a bad j.
  double ColNorm(int j) const override;

  // === Copying and extracting ===================================================================

  bool CopyRows(const IQVRectMatrix & source, int start, int count) override;
  bool CreateBlockDiagonal(int copies, IQVRectMatrix & target) const override;
  int ExtractColumns(const std::vector<int> & columns, IQVRectMatrix & out) const override;
  int ExtractRows(const std::vector<int> & rows, IQVRectMatrix & out) const override;
  bool ShiftColumns(int count, IQVRectMatrix & target) const override;
  bool ShiftRows(int count, IQVRectMatrix & target) const override;

  // === Products =================================================================================

  bool ComputeMatrixProduct(const IQVRectMatrix & b, IQVRectMatrix & out) const override;
  bool ComputeProductMatrixTrans(const IQVRectMatrix & b, QVRectMatrix & out) const override;
  bool ComputeRV(const std::vector<double> & v, std::vector<double> & out) const override;
  bool ComputeVR(const std::vector<double> & v, std::vector<double> & out) const override;
  double DotProductCol(int j, int k) const override;
  double DotProductRows(int i, int k) const override;
  double DotProductRowCol(int i, const IQVRectMatrix & other, int j) const override;
  double DotProductRowRow(int i, const IQVRectMatrix & other, int k) const override;

  // === Display ==================================================================================

  /// Shows the two counts and every row.
  void Display() const override;

  /// The same under another first line.
  void DisplayF() const override;

 private:
  bool IsRow(int i) const { return i >= 0 && i < fNRows; }
  bool IsCol(int j) const { return j >= 0 && j < fNCols; }
  std::size_t Position(int i, int j) const {
    return static_cast<std::size_t>(i) * static_cast<std::size_t>(fNCols) +
           static_cast<std::size_t>(j);
  }

  int fNRows = 0;
  int fNCols = 0;
  std::vector<double> fElements;
};

}  // namespace QVMath_940
