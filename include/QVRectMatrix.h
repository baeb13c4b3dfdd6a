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

class IQVSymMatrix;
class QVSymMatrix;

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

  /// Appends the sparse row; gives the new number of rows, -1 for a row that is not valid or
  /// reaches behind the last column, and when the matrix is or becomes invalid.
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

  /// Replaces row i by the sparse one, 0.0 where it has no cell; false for a bad i, a row that is
  /// not valid and one that reaches behind the last column.
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

  /// Euclidean norm of row i by `QVMathFun::DNrm2`; the missing value for a bad i.
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

  /// Euclidean norm of column j by `QVMathFun::DNrm2`; the missing value for a bad j.
  double ColNorm(int j) const override;

  // === Copying and extracting ===================================================================
  // A target behind the interface must be dense: the operations refuse another one. It is reshaped
  // where its shape does not fit, and may be this matrix.

  /// Copies rows start .. start + count - 1 of `source` over the leading `count` rows of this
  /// matrix. False for a negative start or count, a range that ends behind the rows of `source`, a
  /// count above the rows of this matrix, and different numbers of columns.
  bool CopyRows(const IQVRectMatrix & source, int start, int count) override;

  /// The same with columns: columns start .. start + count - 1 of `source` over the leading `count`
  /// columns.
  bool CopyColumns(const QVRectMatrix & source, int start, int count);

  /// `target` = the block-diagonal matrix of `copies` times this one, with copies x rows and copies
  /// x columns. False for copies below 1 and an invalid matrix.
  bool CreateBlockDiagonal(int copies, IQVRectMatrix & target) const override;

  /// `out` = the listed columns or rows, in the order of the list, which may repeat one. The result
  /// is their number; -1, and nothing changed, for an index out of range or an `out` that is not
  /// dense; -1 also when its storage could not be obtained.
  int ExtractColumns(const std::vector<int> & columns, IQVRectMatrix & out) const override;
  int ExtractRows(const std::vector<int> & rows, IQVRectMatrix & out) const override;

  /// `target` = this matrix with every column moved `count` places to the right, or -count to the
  /// left: column j of this matrix becomes column j + count. Columns that leave the shape are lost,
  /// those that nothing moves to are 0.0. False when |count| is above the number of columns.
  bool ShiftColumns(int count, IQVRectMatrix & target) const override;

  /// The same with rows, downwards for a positive `count`.
  bool ShiftRows(int count, IQVRectMatrix & target) const override;

  // === Expansion ================================================================================
  // A matrix that was reduced to the rows or columns that a set marks goes back to its full size:
  // row or column k of this matrix to the k-th marked place, 0.0 elsewhere. The set has one bit for
  // each place. False, and nothing changed, unless exactly as many bits are set as there are rows
  // or columns to place. `out` may be this matrix.

  /// Spreads the rows (`rows` true) or the columns (`rows` false).
  bool Expand(const QVBitSet & places, bool rows, QVRectMatrix & out) const;

  /// Spreads rows and columns, each by its own set.
  bool ExpandRectangular(const QVBitSet & rows, const QVBitSet & columns, QVRectMatrix & out) const;

  /// Spreads the rows and columns of a square matrix by the same set.
  bool ExpandSquare(const QVBitSet & places, QVRectMatrix & out) const;

  // === Products with vectors ====================================================================
  // R is this matrix. Sums start from 0.0 and run in index order; from a length of 64 on each of
  // their additions is a fused multiply-add. A vector must have exactly the size that the product
  // needs: otherwise false or 0.0, and nothing changes. A result takes its size and may be an
  // operand.

  /// out = R v; v has as many elements as there are columns.
  bool ComputeRV(const std::vector<double> & v, std::vector<double> & out) const override;

  /// The same for a sparse vector with value v[p] in column columns[p]. False when the two sizes
  /// differ or an index is out of range.
  bool ComputeRV(const std::vector<int> & columns, const std::vector<double> & v,
                 std::vector<double> & out) const;

  /// out = v R; v has as many elements as there are rows.
  bool ComputeVR(const std::vector<double> & v, std::vector<double> & out) const override;

  /// The same for a sparse vector with value v[p] in row rows[p].
  bool ComputeVR(const std::vector<int> & rows, const std::vector<double> & v,
                 std::vector<double> & out) const;

  /// out = R D v, D being diagonal: R times the vector of the products diagonal[j] x v[j].
  bool ComputeRDiagV(const std::vector<double> & diagonal, const std::vector<double> & v,
                     std::vector<double> & out) const;

  /// v-transpose R w: the sum over the rows i of v_i times the sum over j of R_ij w_j.
  double ComputeVRW(const std::vector<double> & v, const std::vector<double> & w) const;

  /// The same for sparse vectors; 0.0 also when one is invalid or reaches outside.
  double ComputeSpVRSpW(const QVSparseVector & v, const QVSparseVector & w) const;

  /// This matrix becomes v w-transpose. False when the storage could not be obtained.
  bool ComputeVecProduct(const std::vector<double> & v, const std::vector<double> & w);

  /// Column j by column k, row i by row k; 0.0 for a bad index.
  double DotProductCol(int j, int k) const override;
  double DotProductRows(int i, int k) const override;

  /// Row i of this matrix by column j or by row k of `other`; 0.0 for a bad index and for different
  /// lengths.
  double DotProductRowCol(int i, const IQVRectMatrix & other, int j) const override;
  double DotProductRowRow(int i, const IQVRectMatrix & other, int k) const override;

  // === Products with matrices ===================================================================
  // Sums as above. Operands behind the interface may be of any class, a target must be dense; it
  // takes its shape and may be an operand. False, and nothing changed, for shapes that do not fit
  // and for an invalid operand; false also when storage could not be obtained.

  /// out = R B.
  bool ComputeMatrixProduct(const IQVRectMatrix & b, IQVRectMatrix & out) const override;

  /// out = R S.
  bool ComputeMatrixProduct(const IQVSymMatrix & s, IQVRectMatrix & out) const;

  /// out = R B-transpose.
  bool ComputeProductMatrixTrans(const IQVRectMatrix & b, QVRectMatrix & out) const override;

  /// out = D R, D being diagonal: row i times diagonal[i].
  bool ComputeDiagR(const std::vector<double> & diagonal, IQVRectMatrix & out) const;

  /// out = B R, B being block-diagonal with `copies` times S: the rows of R are `copies` groups of
  /// as many rows as S has.
  bool ComputeBlockDiagSR(const IQVSymMatrix & s, IQVRectMatrix & out, int copies) const;

  /// out = R-transpose S R2: S has as many rows as this matrix and as r2.
  bool ComputeR1TransSR2(const IQVSymMatrix & s, const IQVRectMatrix & r2,
                         IQVRectMatrix & out) const;

  /// This matrix += a X, element by element, each product rounded by itself.
  bool ComputeAXpY(double a, const QVRectMatrix & x);

  /// The same with a symmetric X; this matrix must be square.
  bool ComputeAXpY(double a, const QVSymMatrix & x);

  /// This matrix -= S; it must be square.
  bool SubtractSymMatrix(const IQVSymMatrix & s);

  /// The trace of R S for a square R: the sum over i of row i of R by row i of S. The missing value
  /// when S is not dense; 0.0 for orders that differ or are below 1.
  double TraceOfProductSqS(const IQVSymMatrix & s) const;

  /// The same with the square block of R that begins at element (row, column) and has the order of
  /// S. 0.0 also when the block reaches outside.
  double TraceOfProductSubMatSym(int row, int column, const IQVSymMatrix & s) const;

  // === Rank and estimability ====================================================================
  // Dependent rows or columns are found by the Cholesky factor of the cross-products R-transpose R
  // (columns) or R R-transpose (rows): in order, each one is accepted unless it depends on those
  // accepted before it. Beware: the tolerance is not used alike; each comment tells.

  /// The independent rows (`rows` true) or columns go to idx, ascending; the result is their
  /// number. The tolerance applies to squared lengths: one is accepted when the square of what is
  /// left of it is above tol x the square of its length. -1 for a negative tol.
  int FindNonRedunIndices(double tol, std::vector<int> & idx, bool rows) const;

  /// The result is the number of dependent rows or columns; `kept` marks the others (it is cleared,
  /// and grows where it is too small). The tolerance applies to lengths: tol x tol stands where
  /// `FindNonRedunIndices` has tol. -1, and nothing changed, for a negative tol.
  int FindRedundancies(double tol, QVBitSet & kept, bool rows) const;

  /// `out` = the rows or columns that `FindNonRedunIndices` gives, whose result this is. `out` may
  /// be this matrix.
  int ExtractFullRank(double tol, QVRectMatrix & out, std::vector<int> & idx, bool rows) const;

  /// How many columns of `added` would be dependent if they were appended behind the columns of
  /// this matrix; `kept` takes one bit for each of them and marks the others. The tolerance applies
  /// to lengths, as in `FindRedundancies`. Neither matrix changes. -1, and nothing changed, for a
  /// negative tol, an invalid matrix and different numbers of rows.
  int CheckAddColRedundancies(const QVRectMatrix & added, double tol, QVBitSet & kept) const;

  /// What is left of v after its orthogonal projection on the columns of this matrix:
  /// resid = v - R (R-transpose R)^- R-transpose v, by the normal equations with `LTSolve` and tol.
  /// The result is the number of dependent columns; -1, and nothing changed, unless both counts and
  /// tol are above 0 and v has exactly as many elements as there are rows. resid may be v.
  int ResidOfOrthProjection(const std::vector<double> & v, double tol,
                            std::vector<double> & resid) const;

  /// True when every row r of this matrix is estimable: unchanged by the square matrix H, which is
  /// normally (X-transpose X)^- X-transpose X. For a row of length l > 0 the sum over i of
  /// ((row i of H by r, over the columns in `bits` alone) / l - r_i / l) squared must not be above
  /// tol x tol; a row of length 0 passes. False also without rows or columns, for a tol that is not
  /// above 0.0, for fewer bits than columns, and when H has not as many rows, or fewer columns,
  /// than this matrix has columns.
  bool IsEstimable(const QVRectMatrix & h, const QVBitSet & bits, double tol) const;

  /// True when the equation (row r1, rhs1) is a multiple of the equation (row r2, rhs2), and
  /// `ratio` is the factor then. The factor comes from the first column where one of the rows is
  /// not 0.0, or from the right-hand sides where there is none. Beware: differences are held
  /// against the machine epsilon times the largest magnitude of the first equation alone. False for
  /// an equation of zeros, a bad index and a matrix without columns.
  bool IsERowMultipleOfAnother(int r1, int r2, double rhs1, double rhs2, double & ratio) const;

  // === Solving and QR ===========================================================================

  /// Solves R x = b for a square R by LINPACK's DGECO and DGESL. False, and x as it was, when the
  /// estimated reciprocal condition is not above tol, unless the matrix is square with at least 1
  /// row, for a negative tol and a b shorter than n (of a longer one the first n are taken). x
  /// takes size n and may be b.
  bool SolveLinearSquare(const std::vector<double> & b, std::vector<double> & x, double tol) const;

  /// Solves R x = b: a square R by `SolveLinearSquare`, and where that refuses, or for another
  /// shape, the normal equations by `LTSolve` with tol: the least-squares solution, with 0.0 for
  /// dependent columns. The result is the number of those, 0 for a unique solution; -1, and x as
  /// it was, unless both counts and tol are above 0 and b has an element for each row.
  int EstimateLinearGI(const std::vector<double> & b, std::vector<double> & x, double tol) const;

  /// Householder QR with explicit reflectors. With m the smaller and M the larger of the two
  /// counts: A = this matrix is M x m, or its transpose when it has fewer rows than columns
  /// (beware: nothing else tells so). On exit A = q times the upper triangle of r, where q is M x M
  /// and orthogonal and r has m rows; element (i, j) of the upper triangle is r's element (i, j).
  ///
  /// Where A has become zero at and below the diagonal of a column the step is skipped, and that
  /// diagonal element of r is 0.0. Every reflector is multiplied out as a full matrix, which is
  /// made for small model matrices. q may be this matrix. False unless both counts are above 0;
  /// false also when storage could not be obtained.
  bool QRDecompositionH(QVSymMatrix & r, QVRectMatrix & q) const;

  // === Cleaning =================================================================================

  /// Every element with |(|a| - 1)| strictly below t becomes 1.0, or -1.0 when it is not above 0.0.
  /// Does nothing unless t is above 0.0.
  void CheckForOnes(double t);

  /// Clears rounding noise from column j. With t = 10000 v x 2.220446049250313e-16: a column
  /// shorter than t becomes 0.0; otherwise each element below t beside the column's length becomes
  /// 0.0. Beware: the others are multiplied by 1 / length and by the length again, whose rounding
  /// stays in them. With v not above 0.0 this rounding is all that happens. A column of zeros stays
  /// as it is. False for a bad j.
  bool ColClean(int j, double v);

  /// The first column of row i with |element| strictly above t; -1 when there is none, for a bad i
  /// and for a t not above 0.0.
  int FindFirstNonZeroInRow(int i, double t) const;

  /// Takes the pivot column out: pivot = `FindFirstNonZeroInRow(i, t)`, every other column c +=
  /// element (i, c) x the pivot column, then the pivot column becomes 0.0. Beware of the sign: row
  /// i becomes zero where the pivot element is -1.0. False with pivot -1 for a bad i, for a t not
  /// above 0.0 and when nothing is found.
  bool ZeroOutPivotRow(int i, double t, int & pivot);

  // === Display ==================================================================================

  /// Shows the two counts and every row.
  void Display() const override;

  /// The same under another first line.
  void DisplayF() const override;

 private:
  bool ComputeCrossProducts(bool rows, QVSymMatrix & products) const;
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
