/// The interface of every rectangular matrix of the library: dense and sparse.
///
/// A procedure that takes an `IQVRectMatrix &` works on both; `GetMatrixType` tells which one it
/// has got. Rows and columns count from 0.
///
///     double Total(const QVMath_940::IQVRectMatrix & r) {
///       double total = 0.0;
///       for (int i = 0; i < r.GetNRows(); ++i)
///         for (int j = 0; j < r.GetNCols(); ++j) total += r.GetElem(i, j);
///       return total;
///     }
///
/// The order of the virtual operations is part of the binary interface: add nothing between them.
/// What each operation does, refuses and gives back is told in `QVRectMatrix.h`; the sparse class
/// tells where it differs. Errors are results, never exceptions: false, -1, 0.0 or the missing
/// value. Threads: different objects may be used from different threads, one object from one
/// thread at a time.
#pragma once

#include <vector>

#include "QVExport.h"

namespace QVMath_940 {

class QVRectMatrix;
class QVSparseVector;

/// Which class stands behind an `IQVRectMatrix`.
enum RectMatrixType : int {
  RectMatrixDense = 0,  ///< `QVRectMatrix`
  RectMatrixSparse = 1  ///< `QVSparseRectMatrix`
};

class QVCOMMON_API IQVRectMatrix {
 public:
  virtual ~IQVRectMatrix();

  // --- Kind, shape, elements --------------------------------------------------------------------

  /// The class behind the interface.
  virtual RectMatrixType GetMatrixType() const = 0;
  /// False for a matrix whose storage could not be obtained.
  virtual bool IsValidMatrix() const = 0;
  /// Number of rows; -1 for a matrix whose storage could not be obtained.
  virtual int GetNRows() const = 0;
  /// Number of columns; -1 for a matrix whose storage could not be obtained.
  virtual int GetNCols() const = 0;
  /// Element (i, j). No bounds test.
  virtual double GetElem(int i, int j) const = 0;
  /// Copies row i to `row`, which takes as many elements as there are columns; false for a bad i.
  virtual bool GetRow(int i, std::vector<double> & row) const = 0;
  /// Copies column j to `column`, which takes as many elements as there are rows; false for a bad
  /// j.
  virtual bool GetCol(int j, std::vector<double> & column) const = 0;
  /// Appends a sparse row; gives the new number of rows, -1 for a row that does not fit.
  virtual int AddRow(const QVSparseVector & row) = 0;
  /// Appends a row; gives the new number of rows.
  virtual int AddRow() = 0;
  /// Sets all elements to 0.0.
  virtual void Clear() = 0;
  /// Euclidean norm of column j; the missing value for a bad j.
  virtual double ColNorm(int j) const = 0;

  // --- Products ---------------------------------------------------------------------------------

  /// `out` = R B.
  virtual bool ComputeMatrixProduct(const IQVRectMatrix & b, IQVRectMatrix & out) const = 0;
  /// `out` = R B-transpose.
  virtual bool ComputeProductMatrixTrans(const IQVRectMatrix & b, QVRectMatrix & out) const = 0;
  /// `out` = R v.
  virtual bool ComputeRV(const std::vector<double> & v, std::vector<double> & out) const = 0;
  /// `out` = v R.
  virtual bool ComputeVR(const std::vector<double> & v, std::vector<double> & out) const = 0;

  // --- Copying ----------------------------------------------------------------------------------

  /// Copies column j over the front of `v`.
  virtual bool CopyColToVec(int j, std::vector<double> & v) const = 0;
  /// Copies rows of `source` into this matrix.
  virtual bool CopyRows(const IQVRectMatrix & source, int start, int count) = 0;
  /// Copies row i of this matrix over row k of `target`.
  virtual bool CopyRowToRow(int i, int k, IQVRectMatrix & target) const = 0;
  /// `target` = block-diagonal matrix of `copies` times this one.
  virtual bool CreateBlockDiagonal(int copies, IQVRectMatrix & target) const = 0;

  // --- Dot products -----------------------------------------------------------------------------

  /// Column j by column k of this matrix.
  virtual double DotProductCol(int j, int k) const = 0;
  /// Row i by row k of this matrix.
  virtual double DotProductRows(int i, int k) const = 0;
  /// Row i of this matrix by column j of `other`.
  virtual double DotProductRowCol(int i, const IQVRectMatrix & other, int j) const = 0;
  /// Row i of this matrix by row k of `other`.
  virtual double DotProductRowRow(int i, const IQVRectMatrix & other, int k) const = 0;

  // --- Parts, rows, shape -----------------------------------------------------------------------

  /// `out` = the listed columns; gives their count, -1 for a bad index.
  virtual int ExtractColumns(const std::vector<int> & columns, IQVRectMatrix & out) const = 0;
  /// `out` = the listed rows; gives their count, -1 for a bad index.
  virtual int ExtractRows(const std::vector<int> & rows, IQVRectMatrix & out) const = 0;
  /// v[start + i] += w times element i of column j, for i below `len`.
  virtual bool IncrVecByColumn(int j, std::vector<double> & v, int start, int len, double w,
                               bool check) const = 0;
  /// True when all elements of row i are 0.0.
  virtual bool IsRowZero(int i) const = 0;
  /// Changes the shape.
  virtual bool Resize(int rows, int columns) = 0;
  /// Euclidean norm of row i; the missing value for a bad i.
  virtual double RowNorm(int i) const = 0;
  /// Stores element (i, j). No bounds test.
  virtual bool SetElem(int i, int j, double value) = 0;
  /// Changes the shape; with `zero` true all elements become 0.0.
  virtual bool SetNRowsCols(int rows, int columns, bool zero) = 0;
  /// Replaces row i by a sparse one.
  virtual bool SetRow(int i, const QVSparseVector & row) = 0;
  /// `target` = this matrix with its columns shifted.
  virtual bool ShiftColumns(int count, IQVRectMatrix & target) const = 0;
  /// `target` = this matrix with its rows shifted.
  virtual bool ShiftRows(int count, IQVRectMatrix & target) const = 0;
  /// Sets `count` elements of row i, from column `start` on, to 0.0.
  virtual bool ZeroOutRowPart(int i, int start, int count) = 0;

  /// Shows the matrix on the display stream.
  virtual void Display() const = 0;
  virtual void DisplayF() const = 0;

 protected:
  IQVRectMatrix() = default;
  IQVRectMatrix(const IQVRectMatrix &) = default;
  IQVRectMatrix & operator=(const IQVRectMatrix &) = default;
};

}  // namespace QVMath_940
