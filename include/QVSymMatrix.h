/// The dense symmetric matrix: the lower triangle in one packed vector of doubles.
///
/// It holds cross-products, covariances and correlations, is swept for regression (`Sweep`),
/// factored by Cholesky, multiplied and taken apart, all in place on the packed storage:
///
///     position   0      1      2      3      4      5     ...   element (i, j), i >= j,
///     element  (0,0)  (1,0)  (1,1)  (2,0)  (2,1)  (2,2)   ...   stands at i(i+1)/2 + j
///
/// (i, j) and (j, i) are one and the same double. Rows and columns count from 0.
///
///     QVMath_940::QVSymMatrix xprod(3, true);       // 3 x 3, all 0.0
///     xprod.UpdateXX({1.0, 2.0, 5.0}, 1.0);         // += x x-transpose, once for each case
///     QVMath_940::QVBitSet swept;
///     double logDet;
///     xprod.SweepOnMany(2, 1e-12, true, swept, logDet, true, nullptr);  // regress 2 on 0 and 1
///     std::vector<double> b;
///     xprod.GetRegCoeffs(b, swept);
///
/// Guarantees.
/// Errors are results: false (or nothing done where the result is void), and the matrix stays as it
/// was unless the operation says otherwise. Storage that cannot be obtained makes the matrix
/// invalid: `GetNRows` gives -1, `IsValidMatrix` false, and every operation finds no rows. Test
/// `IsValidMatrix` after building or resizing a large matrix. Only local scratch, where an
/// operation needs some, can throw std::bad_alloc.
/// Missing values are not known here: -1.8e308 is a number like every other.
/// The matrix owns its elements; copies are deep. Different objects may be used from different
/// threads, one object from one thread at a time.
///
/// Blocks are a view of the rows and change nothing in the storage: a matrix of `GetNBlocks` blocks
/// of `GetBlockSize` rows lets the four-index `GetElem` address element (i, j) of block (p, q).
#pragma once

#include <cstddef>
#include <vector>

#include "IQVSymMatrix.h"
#include "QVBitSet.h"
#include "QVExport.h"

namespace QVMath_940 {

class QVRectMatrix;
struct LogPivots;
struct PivotList;

class QVCOMMON_API QVSymMatrix : public IQVSymMatrix {
 public:
  // === Construction, order, blocks ==============================================================

  /// 0 rows, 0 blocks, block size 0.
  QVSymMatrix();

  /// n rows, 1 block of size n, all elements 0.0; a negative n counts as 0. (`zero` false promises
  /// nothing about the elements.)
  QVSymMatrix(int n, bool zero);

  /// `blocks` x `blockSize` rows; either argument below 1 gives 0 rows, 0 blocks and block size 0.
  QVSymMatrix(int blocks, int blockSize, bool zero);

  /// Deep copies; a copy whose storage cannot be obtained is invalid.
  QVSymMatrix(const QVSymMatrix & other);
  QVSymMatrix & operator=(const QVSymMatrix & other);

  /// Take the storage over and leave `other` with 0 rows.
  QVSymMatrix(QVSymMatrix && other) noexcept;
  QVSymMatrix & operator=(QVSymMatrix && other) noexcept;

  ~QVSymMatrix() override;

  /// `SymMatrixDense`.
  SymMatrixType GetType() const override;

  /// The order n; -1 for an invalid matrix.
  int GetNRows() const override;

  /// Number of blocks: 1 unless set, 0 for a matrix built from a block shape below 1.
  int GetNBlocks() const;

  /// Rows in each block.
  int GetBlockSize() const;

  /// True when the number of rows is not negative.
  bool IsValidMatrix() const override;

  /// Divides the rows into b blocks of n / b rows. False when b or n is below 1 or b does not
  /// divide n; nothing changes then.
  bool SetNBlocks(int b);

  /// Gives the matrix n rows (a negative n counts as 0) in 1 block. Rows are packed in order, so
  /// the leading rows keep their values; new elements are 0.0. False when the storage could not be
  /// obtained: the matrix is invalid then.
  bool Resize(int n) override;

  /// As `Resize`, but a negative n leaves 0 blocks; with `zero` true all elements become 0.0.
  bool SetNRows(int n, bool zero) override;

  /// Takes the rows, the blocks and all elements of `other`; false (and an invalid matrix) when the
  /// storage could not be obtained.
  bool SetData(const QVSymMatrix & other);

  /// Removes row and column k; the rows behind it move up. The block size becomes n - 1; the number
  /// of blocks is not touched, so that set blocks no longer fit: call `SetNBlocks` again. False for
  /// a bad k.
  bool DeleteOneRow(int k);

  /// Shapes `elements` for n rows when n is above 0, else empties it. A failed allocation empties
  /// it and sets n to -1. The result is true when n is not negative.
  static bool ResizeNRows(std::vector<double> & elements, int & n);

  /// elements = source; false when the storage could not be obtained (`elements` stays as it was).
  static bool ResizeNCopy(std::vector<double> & elements, const std::vector<double> & source);

  /// The place of element (i, j) in the packed storage. Takes the indexes in either order.
  static std::size_t PackedPosition(int i, int j) {
    return i < j ? RowStart(j) + static_cast<std::size_t>(i)
                 : RowStart(i) + static_cast<std::size_t>(j);
  }

  /// The place of element (i, 0): i(i+1)/2, which is also the number of elements of a matrix of
  /// order i.
  static std::size_t RowStart(int i) {
    return static_cast<std::size_t>(i) * (static_cast<std::size_t>(i) + 1) / 2;
  }

  // === Elements and rows ========================================================================
  // (`double GetElem(int p) const` and `AdjustOffDiagCorr` stand with the virtual operations
  // below.)

  /// Element (i, j) or, the same, (j, i). No bounds test.
  double GetElem(int i, int j) const override;

  /// Element (i, j) of block (p, q): element (p x block size + i, q x block size + j) of the whole
  /// matrix. No bounds test.
  double GetElem(int p, int q, int i, int j) const;

  /// Stores element (i, j). No bounds test; always true.
  bool SetElem(int i, int j, double value) override;

  /// Stores at position p of the packed storage; false for p outside 0 .. n(n+1)/2 - 1.
  bool SetElem(int p, double value);

  /// The packed elements, row after row, for inner loops. They belong to the matrix; do not change
  /// the vector's size.
  std::vector<double> & AsVector() { return fElements; }
  const std::vector<double> & AsVector() const { return fElements; }

  /// Copies the diagonal to `diagonal`, which takes size n.
  void GetDiagonal(std::vector<double> & diagonal) const override;

  /// Copies the full symmetric row k to `row`, which takes size n; false for a bad k.
  bool GetRow(int k, std::vector<double> & row) const override;

  /// Stores row and column k from the full row; false for a bad k or a row shorter than n.
  bool PutRow(int k, const std::vector<double> & row) override;

  /// Sets row and column k to `value`, the diagonal element included; false for a bad k.
  bool SetRowColToConst(int k, double value) override;

  /// Sets row and column k to 0.0; false for a bad k.
  bool ZeroOut(int k) override;

  /// `ZeroOut` on each row that is not in `kept`; false when `kept` has fewer than n bits.
  bool ZeroOutRedundant(const QVBitSet & kept);

  /// True when element (k, j) is 0.0 for every column j of `columns` below m = min(n, its size).
  /// False for a bad k and for m below 1.
  bool IsZeroRow(int k, const QVBitSet & columns) const override;

  /// v[start + j] += w x element j of row k, for j from 0 to len - 1. With `check` true: false for
  /// a bad k, for len below 1 or above n, for start negative or start + len above the size of v.
  bool IncrVecByRow(int k, std::vector<double> & v, int start, int len, double w,
                    bool check) const override;

  // === The whole matrix and its diagonal ========================================================

  /// Sets all elements to 0.0.
  void Clear() override;

  /// Multiplies every element by -1.0.
  void ChangeSign() override;

  /// Multiplies every element by `value`.
  void MultiplyByNumber(double value) override;

  /// Adds `value` to every diagonal element.
  void AddToDiagonal(double value) override;

  /// Adds `value` to the diagonal elements start .. start + count - 1. False unless start and count
  /// are not negative and start + count is strictly below n. Beware: a range that ends on the last
  /// row is refused.
  bool AddToDiagonalPart(int start, int count, double value);

  /// Sum of the diagonal, in row order; 0.0 without rows.
  double Trace() const override;

  /// Largest and smallest diagonal element; without rows the outputs stay as they were.
  void MaxMinDiag(double & max, double & min) const override;

  /// The same, and the largest and smallest element below the diagonal. With one row the latter
  /// pair is the lowest and the largest double: the values the search starts from.
  void MaxMinDiagOffDiag(double & maxDiag, double & minDiag, double & maxOff,
                         double & minOff) const override;

  /// A reference diagonal for tolerance tests. Beware: both numbers are ignored; every element
  /// becomes the largest diagonal element, floored at 0.0. `GetNCheckDiagonalOld` does what the
  /// arguments promise.
  void GetNCheckDiagonal(std::vector<double> & diagonal, double threshold,
                         double replacement) const override;

  /// The diagonal with each element below `threshold` replaced by `replacement`.
  void GetNCheckDiagonalOld(std::vector<double> & diagonal, double threshold,
                            double replacement) const;

  // === Cleaning =================================================================================

  /// With m the largest diagonal element: each diagonal element d becomes m when d is not above 0.0
  /// or d / m is not above t. False, and nothing done, for a negative t or when m is not above 0.0.
  bool ReplaceDiagZeroes(double t);

  /// For each k where this matrix or `other` has a diagonal element that is not above 0.0:
  /// `ZeroOut(k)` on both. False when the orders differ.
  bool SetCovarZeros(QVSymMatrix & other);

  /// Clears every element, the diagonal included, whose absolute value is below `fraction` x (the
  /// largest absolute diagonal element). Does nothing unless that bound is above 0.0.
  void ZeroOutAllSmall(double fraction);

  /// Clears each element (i, j) below the diagonal whose absolute value is not above `fraction` x
  /// sqrt(|a_ii| |a_jj|): small as a correlation. The bound itself is cleared. Does nothing unless
  /// `fraction` is above 0.0.
  void ZeroOutNonDiag(double fraction) override;

  /// `ZeroOut` on each row whose |a_kk| is below `fraction` x the largest |a_ii| so far (i up to
  /// k), or for which that maximum is still 0.0. Beware: the maximum runs, so that a large diagonal
  /// element does not reach back to earlier rows. Does nothing unless `fraction` is above 0.0.
  void ZeroOutRowsForSmallDiag(double fraction);

  // === Updates by vectors =======================================================================

  /// This matrix becomes x x-transpose, in 1 block; false when the storage could not be obtained.
  bool SetToVV(const std::vector<double> & x);

  /// This matrix becomes x y-transpose + y x-transpose (with no factor of one half), in 1 block;
  /// false when the sizes differ or the storage could not be obtained.
  bool SetToVW(const std::vector<double> & x, const std::vector<double> & y);

  /// a_ij += (w x_i) x_j; x holds at least n values.
  void IncrementByVV(const double * x, double w);

  /// a_ij += (x_i w) x_j; rows with x_i = 0.0 are skipped, whatever stands in the others. False
  /// when the size of x is not n or w is not above 0.0.
  bool UpdateXX(const std::vector<double> & x, double w);

  /// `UpdateXX` with any w: negative (which takes a case out again) and 0.0 included.
  bool UpdateXXPosNegW(const std::vector<double> & x, double w);

  /// `UpdateXXPosNegW` on the rows and columns that are in `rows` alone; false when the size of x
  /// is not n.
  bool UpdateXXNonRedun(const std::vector<double> & x, const QVBitSet & rows, double w);

  /// `UpdateXX` by a sparse x: x[p] stands at row rows[p], for p below `count`. For each pair p, q
  /// with rows[p] >= rows[q]: a(rows[p], rows[q]) += (w x[p]) x[q]. False when a vector is shorter
  /// than `count`, when w is not above 0.0, or on the first row out of range: beware, part of the
  /// update may be done then.
  bool UpdateXXSparse(int count, const std::vector<int> & rows, const std::vector<double> & x,
                      double w);

  /// The update by the vector (x, z), z standing in the last row: the leading n - 1 rows as in
  /// `UpdateXX`, then a(n-1, j) += (z w) x_j and a(n-1, n-1) += (z w) z. x holds n - 1 values.
  /// Nothing is tested; always true.
  bool UpdateZZ(const std::vector<double> & x, double z, double w);

  // === Parts of the matrix ======================================================================

  /// Copies the leading k rows of m over those of this matrix; false for k below 1 or above either
  /// order.
  bool ReplaceFirstRows(const QVSymMatrix & m, int k);

  /// `out` = all rows but the last: the N of the name is n - 1. With n below 2 `out` gets 0 rows.
  /// Does nothing unless `out` is a `QVSymMatrix`.
  void ExtractFirstNRows(IQVSymMatrix & out) const override;

  /// `out` = the rows and columns listed; no rows listed give 0 rows. False when there are more
  /// than n, when they are not strictly ascending within 0 .. n - 1, when `out` is not a
  /// `QVSymMatrix` or its storage could not be obtained.
  bool ExtractSubmatrix(const std::vector<int> & rows, IQVSymMatrix & out) const override;

  /// Adds the diagonal block of rows start .. start + size - 1 to what `out` holds: clear it first
  /// to get a copy. False when start is negative, start + size is above n, or `out` does not have
  /// `size` rows.
  bool ExtractDiagBlock(int start, int size, QVSymMatrix & out) const;

  /// Adds that diagonal block to the leading rows of `out`, elements start .. start + size - 1 of
  /// the last row to its last row, and the last diagonal element to its last one. False when start
  /// or size is negative, start + size is not below n, or `out` does not have size + 1 rows.
  bool ExtractBlockAndLastRow(int start, int size, QVSymMatrix & out) const;

  /// Copies elements start .. start + size - 1 of the last row to the front of v, which grows to
  /// `size` when it is smaller. False for a negative start, for size below 1 and for start + size
  /// above n.
  bool ExtractPartOfLastRow(int start, int size, std::vector<double> & v) const;

  /// The coefficients of a regression: the last row without its diagonal element, b[j] being 0.0
  /// for each j that is not in `swept`; b takes size n - 1. For a matrix swept on the predictors
  /// whose last row is the response. False when `swept` has fewer than n - 1 bits.
  bool GetRegCoeffs(std::vector<double> & b, const QVBitSet & swept) const;

  // === Sweep ====================================================================================
  // With K the swept rows and J the others, the matrix A has become
  //     K with K: minus the inverse of A_KK      J with K: A_JK times the inverse of A_KK
  //     J with J: A_JJ minus the part explained by K
  // `swept` is the only record of which rows are in K: keep it with the matrix. `ref` holds n
  // reference values, normally the diagonal before any sweep: a pivot must be above tol x ref[k].

  /// Sweeps row k, or, when bit k is set, sweeps it back. In place, with no allocation.
  ///
  /// Going forward the row is refused (false, nothing changed) when tol x ref[k] is not below
  /// the pivot, or when the sweep would take the pivot of a row swept earlier below its tolerance:
  /// with d = element (j, j) of that row after the sweep, d tol ref[j] must be above -1.0. A NaN is
  /// refused. A reverse sweep is never refused; over a pivot of 0.0 it stores infinities.
  ///
  /// With `check` true also false when k is out of range, tol is not above 0.0, `swept` has fewer
  /// than n bits, or any of the n values of ref is negative. With `check` false a bad k is the
  /// caller's fault.
  bool Sweep(int k, double tol, const double * ref, QVBitSet & swept, bool check);

  /// The same; with `check` true also false when ref has fewer than n values.
  bool Sweep(int k, double tol, const std::vector<double> & ref, QVBitSet & swept, bool check);

  /// `Sweep` in its plain form, element by element: the same tests and, to the last bit, the same
  /// results.
  bool SweepOrig(int k, double tol, const std::vector<double> & ref, QVBitSet & swept, bool check);

  /// Sweeps every row in order, from an unswept matrix: `swept` takes n bits, all cleared first. A
  /// refused row stays unswept and its bit clear. Then `zeroRedundant` clears the rows and columns
  /// that stayed unswept, and `changeSign` turns all signs, so that both together leave a
  /// generalised inverse (g2) of the matrix.
  ///
  /// A null `ref` stands for the diagonal. With `check` true the result is false when tol is not
  /// above 0.0 or a value of ref is negative: no row is swept then, but beware, the two last steps
  /// still run. Otherwise each ref[i] below 1.0 becomes 1.0, in the caller's array. The result says
  /// that the arguments passed; read `swept` for the rows.
  bool SweepOnAll(double tol, QVBitSet & swept, bool check, bool zeroRedundant, bool changeSign,
                  double * ref);

  /// Sweeps the first `count` rows in order. Their bits are cleared first; the bits of the others
  /// stay as they are (a set of size 0 takes n bits). logDet becomes the sum of log(d) over the
  /// swept rows with d above 0.0: d is the pivot with `useOldPivot` true, which makes logDet the
  /// log determinant of the leading block, and its reciprocal with false, which turns the sign.
  ///
  /// A null `ref` stands for the diagonal. With `check` true false, and nothing swept, when count
  /// is not in 1 .. n, tol is not above 0.0, a value of ref is negative or `swept` has fewer than
  /// `count` bits: logDet keeps its value. Otherwise each ref[i] below 1.0 becomes 1.0, in the
  /// caller's array. A refused pivot does not change the result.
  bool SweepOnMany(int count, double tol, bool useOldPivot, QVBitSet & swept, double & logDet,
                   bool check, double * ref);

  /// Sweeps the listed rows in list order; a row that stands swept is swept back. No bit is cleared
  /// first, so that this continues an earlier sweep (a set of size 0 takes n bits).
  ///
  /// A null `ref` stands for the diagonal as it is now. Beware: where rows stand swept it holds
  /// negative values, which `check` refuses; give the diagonal from before the first sweep instead.
  /// With `check` true false, and nothing swept, when a value of ref is negative, `swept` has fewer
  /// than n bits or a listed row is out of range; tol is not tested. Otherwise each ref[i]
  /// below 1.0 becomes 1.0, in the caller's array.
  bool SweepOnSelected(const std::vector<int> & rows, double tol, QVBitSet & swept, bool check,
                       double * ref);

  // === Cholesky =================================================================================
  // L is lower triangular with L L-transpose = the matrix, and takes the matrix's place in the
  // packed storage: the class does not remember which of the two it holds. Nothing pivots and
  // nothing fails on a singular matrix: a row that depends on the rows before it gets a zero on the
  // diagonal of L, is counted in the deficiency, and counts for every later step as a variable that
  // has dropped out. Row i is accepted when its pivot square is strictly above tol x ref[i].

  /// Factors in place. On exit row i holds L_ij = (a_ij - sum over k < j of L_ik L_jk) / L_jj for
  /// j < i (0.0 where L_jj is 0.0) and on the diagonal the root of the pivot square, or 0.0 for a
  /// row that was not accepted (its other elements stay as computed).
  ///
  /// The result is the deficiency, the number of zeroed rows; 0 for an empty matrix. With `check`
  /// true -1, and nothing changed, when tol or one of the first n values of ref is negative (0.0 is
  /// accepted) or ref is shorter than n.
  int LTChol(const std::vector<double> & ref, double tol, bool check) override;

  /// The same; `accepted` marks the rows that stayed in. It is cleared before anything is tested,
  /// and takes n bits when it is smaller (a larger one keeps its size).
  int LTChol(const std::vector<double> & ref, double tol, QVBitSet & accepted, bool check) override;

  /// The same with the largest diagonal element, floored at 0.0, as the reference of every row.
  /// minDiag becomes the smallest diagonal element of L; it is the lowest finite double after a
  /// refusal and for an empty matrix.
  int LTChol(double tol, double & minDiag, bool check) override;

  /// The independent rows, in order, as `LTChol` with the diagonal as reference accepts them; the
  /// walk ends when maxCount of them are found (a maxCount below 1 or above n means n). Works on a
  /// copy. The result is their number; a negative tol gives 0 and no rows.
  int CholIndNonRed(int maxCount, double tol, std::vector<int> & rows) const;

  /// Into `out` goes the inverse of this matrix, or, with the dependent rows zeroed, a generalised
  /// inverse. `out` must be a `QVSymMatrix` (it may be this one) and takes the same shape; ref and
  /// tol are those of `LTChol` and are not tested. The result is the rank; -1 for another type of
  /// `out`, which stays as it is, and for storage that cannot be obtained, which makes `out`
  /// invalid. The other two forms tell the accepted rows or the smallest diagonal element of L.
  int CholInverse(const std::vector<double> & ref, double tol, IQVSymMatrix & out) const override;
  int CholInverse(const std::vector<double> & ref, double tol, IQVSymMatrix & out,
                  QVBitSet & accepted) const override;
  int CholInverse(const std::vector<double> & ref, double tol, IQVSymMatrix & out,
                  double & minDiag) const override;

  /// Determinant and inverse of a triangular matrix, the job being that of LINPACK's DTRDI.
  ///
  /// On entry the storage holds L. With job mod 10 not 0 the determinant of L (not its square) is
  /// det[0] x 10 to the power det[1], 1 <= |det[0]| < 10, both 0.0 where a diagonal element is 0.0;
  /// otherwise det is not touched and may be null. With job / 10 not 0 the inverse of L replaces L;
  /// rows and columns with a zero pivot become 0.0. The result is the number of zeros on the
  /// diagonal of L.
  int LTDetInverse(double * const det, int job) override;

  /// On entry L, on exit the inverse of L L-transpose, generalised where L has zero pivots. True.
  bool LTInverse() override;

  /// On entry L, on exit L L-transpose. Needs a second storage of the same size while it runs.
  void LTLLTrans() override;

  /// On entry L, on exit L-transpose L. In place.
  void LTLTransL() override;

  /// Solves S x = b; on exit this matrix holds the factor of S and x, of size n, the solution with
  /// 0.0 for the variables that dropped out. The diagonal is the reference. The result is the
  /// deficiency; -1, and nothing changed, when tol is not above 0.0 or b is shorter than n.
  int LTSolve(const std::vector<double> & b, double tol, std::vector<double> & x) override;

  /// Solves L L-transpose x = b with the factor at hand: 0; -1 when b is shorter than n. x takes
  /// size n and may be b.
  int LTSubstitute(const std::vector<double> & b, std::vector<double> & x) const;

  /// One triangular solve: L x = b, or L-transpose x = b with `transposed` true. Where L_ii is 0.0
  /// x_i is 0.0. False unless b has exactly n elements. x takes size n and may be b.
  bool TSolveSubst(const std::vector<double> & b, std::vector<double> & x, bool transposed) const;

  /// The sum over j < i of L_ij v_j: false for a bad i or a v shorter than i.
  bool DotProdRowBeforeDiagFrontVec(int i, const std::vector<double> & v, double & result) const;

  /// The sum over j > i of L_ji v_j, from the last row up: false for a bad i or a v shorter than n.
  bool DotProdColBelowDiagBackVec(int i, const std::vector<double> & v, double & result) const;

  /// The determinant of the matrix, as `LTDetInverse` gives it, from a copy factored by the third
  /// form of `LTChol`; both numbers 0.0 for a singular matrix, which is no failure. False for an
  /// empty matrix and a negative tol.
  bool ComputeDeterminant(double tol, double * const det) const override;

  /// On entry L, on exit the factor of L L-transpose + x x-transpose (LINPACK's DCHUD). c and s
  /// receive the cosines and sines of the n rotations, whose sign is the published one: a
  /// negative diagonal element afterwards is right. False, and nothing changed, unless x, c and s
  /// have exactly n elements.
  bool LTCholUpdateR1(const std::vector<double> & x, std::vector<double> & c,
                      std::vector<double> & s);

  /// On entry L, on exit the factor of L L-transpose - x x-transpose (LINPACK's DCHDD), with the
  /// rotations in c and s. False, and nothing changed, unless x, c and s have exactly n elements, n
  /// is at least 1 and L_00 is above 0.0.
  ///
  /// Beware of two things that the published routine does not do. When a later diagonal element is
  /// not above 0.0, each such element becomes one tenth of the largest, so that a factor with
  /// deleted rows becomes usable again; this repair stays even when the result is false. And
  /// when the downdate is not possible (the solution of L p = x has norm 1.0 or above) the result
  /// is false with `rescale` false; with `rescale` true all of L is first multiplied by norm / 0.9,
  /// which makes it possible and leaves the caller's matrix scaled.
  bool LTCholDowndate(const std::vector<double> & x, std::vector<double> & c,
                      std::vector<double> & s, bool rescale);

  /// Solves S x = b for an S that may be indefinite and singular: S itself by LINPACK's DSPCO and
  /// DSPSL where its rows are independent, otherwise the rows and columns that are, with 0.0 in x
  /// for the others. Which rows are independent is found twice on S-transpose S, of all rows and of
  /// those found first, by `CholIndNonRed` with 2 tol. x takes size n and may be b.
  ///
  /// False, and x as it was, for n below 1, a negative tol, a b shorter than n, when no row is
  /// independent, when the estimated reciprocal condition is not above 0.0 and when a pivot block
  /// is exactly singular.
  bool SolveIndefinite(double tol, const std::vector<double> & b, std::vector<double> & x) const;

  /// The same with the given rows in place of the first search, and tolerance 0.0 in the second
  /// one. False also for a set of fewer than n bits, or with no row.
  bool SolveIndefinite(const QVBitSet & rows, const std::vector<double> & b,
                       std::vector<double> & x) const;

  /// Solves the normal equations S-transpose S x = S-transpose b by `LTSolve` with tol, which gives
  /// a least-squares solution with 0.0 for the variables that drop out. True when one stays in.
  /// False, and x as it was, for n below 1, a negative tol and a b shorter than n; also for tol
  /// 0.0, which `LTSolve` does not take.
  bool SolveIndefiniteGI(double tol, const std::vector<double> & b, std::vector<double> & x) const;

  /// Makes the matrix positive definite: adds the smallest shift (to within tol, by bisection) that
  /// lets it factor without deficiency, then one hundredth of its largest diagonal element, and
  /// divides all by shift + largest original diagonal element. `changed` tells whether this was
  /// needed, `shift` what was added in all. The result is the number of factorisations tried (1 for
  /// a matrix that was positive definite and stays as it is, never above 2,001); -1 when n is below
  /// 2, -2 when tol is not above 0.0.
  int TransformToPositiveDefinite(double tol, bool & changed, double & shift);

  /// How many of the rows of a packed m x m matrix that are in `rows` depend on the ones before
  /// them, by `LTChol` with tol; this matrix takes their factor. 0 for m = 0, and nothing changed;
  /// -1, and nothing changed, when m is negative or `packed` or `rows` is too short for it; -2 when
  /// the storage cannot be obtained.
  int CheckMDependent(int m, const std::vector<double> & packed, const QVBitSet & rows, double tol);

  // === Products with vectors ====================================================================
  // S is this matrix; L is this matrix read as a factor: its lower triangle alone. Every sum runs
  // in ascending order of its index from 0.0 (a sparse form: in the order of its list). Below order
  // 64 each product and each sum is rounded by itself, from order 64 on each addition is fused
  // (std::fma), on every CPU and in every form alike; the order of this matrix decides.
  //
  // In all products: a vector must have exactly the size told; a target takes the shape of the
  // result and may be an operand, or this matrix. Refusals leave the targets as they were: false
  // for bool, 0.0 for double. A sparse vector is given as rows and values of the same number: v[p]
  // stands at row rows[p], all else is 0.0 and takes no part; a row out of range is refused.

  /// out = S v; v has n elements.
  bool ComputeSV(const std::vector<double> & v, std::vector<double> & out) const override;

  /// out[0 .. k - 1] = (the leading k x k block of S) times the first k elements of v. out grows to
  /// k elements and is not shrunk. False for k outside 0 .. n and for a v shorter than k.
  bool ComputeSV(int k, const std::vector<double> & v, std::vector<double> & out) const override;

  /// out = S v for a sparse v.
  bool ComputeSV(const std::vector<int> & rows, const std::vector<double> & v,
                 std::vector<double> & out) const;

  /// out = L v; v has n elements.
  bool ComputeLV(const std::vector<double> & v, std::vector<double> & out) const override;

  /// out = L v for a sparse v.
  bool ComputeLV(const std::vector<int> & rows, const std::vector<double> & v,
                 std::vector<double> & out) const override;

  /// out = L-transpose v; v has n elements.
  bool ComputeLTransV(const std::vector<double> & v, std::vector<double> & out) const override;

  /// out = L-transpose v for a sparse v.
  bool ComputeLTransV(const std::vector<int> & rows, const std::vector<double> & v,
                      std::vector<double> & out) const override;

  /// The symmetric row i by v[0], v[stride], v[2 stride] ... (n values); 0.0 for a bad i or a null
  /// v.
  double ComputeRVD(int i, const double * v, int stride) const override;

  /// The same; 0.0 also for a negative stride and a v that ends before the n values.
  double ComputeRVD(int i, const std::vector<double> & v, int stride) const override;

  /// The symmetric row i by `count` entries of a sparse vector; 0.0 for a bad i or a bad row.
  double ComputeRVD(int i, const int * rows, const double * v, int count) const;

  // === Quadratic forms ==========================================================================
  // Each is the sum over i of w_i times the inner sum over j of S_ij v_j. 0.0 for bad arguments and
  // for an empty matrix.

  /// v-transpose S v; v has n elements.
  double ComputeVSV(const std::vector<double> & v) const override;

  /// The same with row k of r, which has n columns, as v.
  double ComputeVSV(const IQVRectMatrix & r, int k) const override;

  /// The same for a sparse v.
  double ComputeVSV(const std::vector<int> & rows, const std::vector<double> & v) const;

  /// v-transpose S w; both have n elements.
  double ComputeVSW(const std::vector<double> & v, const std::vector<double> & w) const override;

  /// The same on n values each, strideV and strideW apart.
  double ComputeVSW(const double * v, int strideV, const double * w, int strideW) const override;

  /// Element (r, c) of S V S over the leading order m, V being the symmetric matrix packed in v:
  /// the sum over i of S_ic times the inner sum over k of S_rk V_ik. 0.0 for m outside 1 .. n, for
  /// r or c outside 0 .. m - 1 and for a v shorter than m(m+1)/2.
  double ComputeVSW(const std::vector<double> & v, int m, int r, int c) const override;

  /// v-transpose S w for two sparse vectors.
  double ComputeSpVSSpW(const std::vector<int> & rowsV, const std::vector<double> & v,
                        const std::vector<int> & rowsW, const std::vector<double> & w) const;

  /// v-transpose S w with one of the vectors down a column of a packed triangle: its first step is
  /// the stride, and each later step is longer by 1. `ii` stands behind that vector.
  double ComputeViiSW(const double * v, int strideV, const double * w, int strideW) const;
  double ComputeVSWii(const double * v, int strideV, const double * w, int strideW) const;

  /// The sum over i below nw and j below nv of w_i S_ij v_j: the leading rectangle of S. 0.0 for a
  /// count outside 0 .. n; in the second form also for a vector shorter than its count.
  double ComputeVSWParts(const double * v, int nv, const double * w, int nw) const override;
  double ComputeVSWParts(const std::vector<double> & v, int nv, const std::vector<double> & w,
                         int nw) const override;

  /// The same over i from startW to startW + nw - 1 and j from startV to startV + nv - 1. The
  /// vectors are whole ones: element j of v stands beside column j of S.
  double ComputeVSWParts(const double * v, int startV, int nv, const double * w, int startW,
                         int nw) const;

  /// The same for vectors that are parts: element j of v stands beside column startV + j of S,
  /// element i of w beside row startW + i. 0.0 when one reaches past S.
  double ComputeVSSubWParts(const std::vector<double> & v, int startV,
                            const std::vector<double> & w, int startW) const;

  /// v-transpose (the diagonal block of S from row `start` on) w; v and w are of its size.
  double ComputeVSymSubW(const std::vector<double> & v, const std::vector<double> & w,
                         int start) const;

  /// v-transpose (block (p, q) of S) w. 0.0 for p or q outside 0 .. `GetNBlocks` - 1 and for a
  /// vector that does not have `GetBlockSize` elements.
  double ComputeBlockVSW(int p, int q, const std::vector<double> & v,
                         const std::vector<double> & w) const;

  /// `ComputeBlockVSW(p, q, v, v)`.
  double ComputeBlockVSV(int p, int q, const std::vector<double> & v) const;

  // === Products with symmetric matrices =========================================================
  // A symmetric target must be a `QVSymMatrix`, a rectangular one a `QVRectMatrix`, else the result
  // is false. No product makes a full square matrix: from order 64 on the scratch is one panel of
  // some tens of columns, and a target that is an operand takes one copy of itself.

  /// The symmetric rows i and j, multiplied; 0.0 for a bad index.
  double ComputeDotProduct2Rows(int i, int j) const override;

  /// Row i of this matrix by row j of the symmetric matrix packed in s, of the same order; 0.0 for
  /// bad arguments.
  double ComputeRowDotProductS(int i, const std::vector<double> & s, int j) const override;

  /// The same; the missing value when s is not a `QVSymMatrix`. (The forms for two matrices stand
  /// with the virtual operations below.)
  double ComputeRowDotProductS(int i, const IQVSymMatrix & s, int j) const override;

  /// out = S S: each element as `ComputeDotProduct2Rows` gives it. Does nothing unless `out` is a
  /// `QVSymMatrix`.
  void ComputeSTransS(IQVSymMatrix & out) const override;

  /// out = S T, a product that is not symmetric. t must be a `QVSymMatrix` of the same order.
  bool ComputeSS(const IQVSymMatrix & t, IQVRectMatrix & out) const override;

  /// out = (G S) G with G packed in g: exactly n(n+1)/2 elements.
  bool ComputeGMG(const std::vector<double> & g, QVSymMatrix & out) const override;

  /// The same for a g of any class, of the order n.
  bool ComputeGSG(const IQVSymMatrix & g, IQVSymMatrix & out) const override;

  /// out = M G N + N G M with this matrix as G. m and n are of its order, both dense or both
  /// diagonal; any other pair is refused. Dense: element (i, j) is the sum over k, in turn, of
  /// (M G)(i, k) N(k, j) and (N G)(i, k) M(k, j), left factors that are 0.0 being skipped.
  /// Diagonal: G(i, j) (M_i N_j + N_i M_j).
  bool ComputeMGN(const IQVSymMatrix & m, const IQVSymMatrix & n,
                  IQVSymMatrix & out) const override;

  /// out = G (M G N + N G M) G with this matrix as G and the refusals of `ComputeMGN`. The first
  /// n(n+1)/2 elements of `work`, which grows but is never shrunk, receive the packed inner sum.
  bool ComputeGMGNG(const IQVSymMatrix & m, const IQVSymMatrix & n, IQVSymMatrix & out,
                    std::vector<double> & work) const override;

  /// out = L S L-transpose with the lower triangle of l, which is dense or block-diagonal and of
  /// the order n. With T = L S element (i, j), j <= i, is the sum over k <= i of L_ik T_jk.
  bool ComputeLSLTrans(const IQVSymMatrix & l, IQVSymMatrix & out) const override;

  /// out = B-transpose S B, B being block-diagonal: `copies` times the lower triangle of l, which
  /// is dense or block-diagonal. False unless `copies` is at least 1 and n = copies x the order of
  /// l.
  bool ComputeLTransSL(const IQVSymMatrix & l, IQVSymMatrix & out, int copies) const override;

  /// This matrix += a X, product and sum rounded each by itself at every order. False when the
  /// orders differ. Elements that an x of another class does not store add nothing.
  bool ComputeAXpY(double a, const IQVSymMatrix & x) override;

  /// Which rows of m are to be dropped after a sweep made the generalised inverse g (packed,
  /// n(n+1)/2 elements). Row i of m is zeroed and counted when i is in `in` and either g_ii is
  /// negative (the row is then set in `neg`, which takes n bits) or m_ii is not above 0.0. `all`
  /// tells whether this dropped every row of `in` (and at least one). False, and nothing changed,
  /// for a g of another size, an `in` with fewer than n bits, an m with fewer than n rows. For n =
  /// 0: true, `all` false, count 0.
  bool CheckGMG(const std::vector<double> & g, const QVBitSet & in, IQVSymMatrix & m,
                QVBitSet & neg, bool & all, int & count) const;

  // === Products with rectangular matrices =======================================================
  // A sparse r is taken where the comment does not ask for a dense one.

  /// out = R S; r is dense and has n columns.
  bool ComputeRS(const IQVRectMatrix & r, IQVRectMatrix & out) const override;

  /// out = R-transpose S; r has n rows.
  bool ComputeRTransS(const IQVRectMatrix & r, IQVRectMatrix & out) const override;

  /// out = (R S) R-transpose; r has n columns.
  bool ComputeRSRTrans(const IQVRectMatrix & r, IQVSymMatrix & out) const override;

  /// out = (R-transpose S) R; r has n rows.
  bool ComputeRTransSR(const IQVRectMatrix & r, IQVSymMatrix & out) const override;

  /// out = R-transpose (S v); r has n rows, v n elements.
  bool ComputeRTransSV(const IQVRectMatrix & r, const std::vector<double> & v,
                       std::vector<double> & out) const override;

  /// `ComputeRSRTrans` and `ComputeRTransSR` with the diagonal block of rows start .. start + size
  /// - 1 in the place of S; R has `size` columns, or rows. False for a block that reaches past S.
  bool ComputeRSRTrans2(const IQVRectMatrix & r, int start, int size, IQVSymMatrix & out) const;
  bool ComputeRTransSymR(const IQVRectMatrix & r, int start, int size, IQVSymMatrix & out) const;

  /// out = (R D) S (R D)-transpose with D = diag(d), d having n elements. Takes a copy of R.
  bool ComputeRDiagSRDiagTrans(const IQVRectMatrix & r, const std::vector<double> & d,
                               IQVSymMatrix & out) const;

  /// out = R-transpose B R, B being block-diagonal: `copies` times S. False unless `copies` is at
  /// least 1 and r has copies x n rows.
  bool ComputeRTransBlockDiagR(const IQVRectMatrix & r, int copies, IQVSymMatrix & out) const;

  /// This matrix = R R-transpose, or R-transpose R; the order of the result decides about fusing.
  /// False when r is invalid, or when the storage could not be obtained (this matrix is invalid
  /// then).
  bool ComputeRByRTrans(const QVRectMatrix & r);
  bool ComputeRTransByR(const QVRectMatrix & r);

  // === Traces of products =======================================================================
  // Sums of the product's diagonal in row order. 0.0 when the sizes do not fit or n is below 1, and
  // then the missing value when a symmetric operand is not a `QVSymMatrix`.

  /// The trace of S T: the sum over i of `ComputeRowDotProductS(i, t, i)`.
  double TraceOfProduct(const IQVSymMatrix & t) const override;

  /// The trace of S A B: the sum over i of the sums over k of (S A)_ik B_ki.
  double TraceOfProductOfThree(const IQVSymMatrix & a, const IQVSymMatrix & b) const override;

  /// The trace of (the diagonal block of S from row `start` on, of T's order) T.
  double TraceOfProductSubSym(const IQVSymMatrix & t, int start) const;

  /// The trace of (the n x n part of r from (startRow, startCol) on) S.
  double TraceOfProductSubMatSym(const IQVRectMatrix & r, int startRow, int startCol) const;

  // === Products on parts, and with block-diagonal matrices ======================================
  // b and l may be of any class, block-diagonal above all; of l the lower triangle is read. Parts
  // are told by their first row or column and their size, which b or l gives where there is no
  // argument. False (0.0) for an index out of range, a part that reaches past S, or a vector of
  // another size.

  /// out = (the diagonal block from row `start` on) v.
  bool SubSymSV(int start, int size, const std::vector<double> & v,
                std::vector<double> & out) const;

  /// With P the part of rows startRow .. startRow + rows - 1 and of columns startCol ..
  /// startCol + cols - 1: out = P v, and out = P-transpose v.
  bool SubSymRectV(int startRow, int rows, int startCol, int cols, const std::vector<double> & v,
                   std::vector<double> & out) const;
  bool SubSymRectTV(int startRow, int rows, int startCol, int cols, const std::vector<double> & v,
                    std::vector<double> & out) const;

  /// out_j = the sum over k >= j of S(i, start + k) L_kj: a piece of row i times L.
  bool SubSymVectBlockL(int i, int start, const IQVSymMatrix & l, std::vector<double> & out) const;

  /// out = (the diagonal block from row `start` on) L.
  bool SubSymSBlockL(int start, const IQVSymMatrix & l, QVRectMatrix & out) const;

  /// out = P-transpose L with P the part of as many rows as L has from startRow on and of columns
  /// startCol .. startCol + cols - 1.
  bool SubSymRectTBlockL(int startRow, int startCol, int cols, const IQVSymMatrix & l,
                         QVRectMatrix & out) const;

  /// out = L-transpose (the diagonal block from row `start` on) L.
  bool SubSymBlockLTSBlockL(int start, const IQVSymMatrix & l, IQVSymMatrix & out) const;

  /// out = M-transpose S M with M = diag(L, identity): the leading rows, as many as L has, are
  /// transformed by L, and the others border the result.
  bool AugmentUsingBlockDiagL(const IQVSymMatrix & l, IQVSymMatrix & out) const;

  /// Row i of S, B, row j of S multiplied; b is of the order n. The other forms take columns
  /// start .. start + (order of b) - 1 of the rows, and a vector w in the place of row j. 0.0 for
  /// bad arguments. The sum over k of w_k times the inner sum over q of B_kq S_iq.
  double ComputeVBW(int i, const IQVSymMatrix & b, int j) const;
  double ComputeVBW(int i, int start, const IQVSymMatrix & b, int j) const;
  double ComputeVBW(int i, int start, const IQVSymMatrix & b, const std::vector<double> & w) const;

  /// out = P B P-transpose, P being the diagonal block of S from row `start` on, or the part of
  /// `rows` rows from startRow on and of the columns from startCol on.
  bool ComputeSSubBSSub(int start, const IQVSymMatrix & b, IQVSymMatrix & out) const;
  bool ComputeSSubBSSub(int startRow, int rows, int startCol, const IQVSymMatrix & b,
                        IQVSymMatrix & out) const;

  // === Dot products of parts of a row or column =================================================
  // "Part" is the elements start .. start + count - 1. A vector of doubles holds at least `count`
  // values and stands beside the part from its first value on. A pointer with a stride (`IIncr`)
  // walks down a column of a packed triangle: the first step is the stride, and each later step is
  // longer by 1; `Delayed`: the walk goes on by single steps `delay` times before that. So do the
  // symmetric rows of a packed matrix a themselves: row i is a + i(i+1)/2 with delay i and stride
  // i + 1. False, and `result` untouched, for an index out of range or a part that is not stored.

  /// Sum of L(i, start + q) v_q.
  bool ComputeDotLRowVecPart(int i, int start, int count, const std::vector<double> & v,
                             double & result) const;

  /// Sum of L(start + q, j) v_q; start is not above the diagonal.
  bool ComputeDotLColVecPart(int j, int start, int count, const std::vector<double> & v,
                             double & result) const;
  bool ComputeDotLColVecIIncrPart(int j, int start, int count, const double * v, int stride,
                                  double & result) const;
  bool DotLColVecDelayedIIncrPart(int j, int start, int count, const double * v, int delay,
                                  int stride, double & result) const;

  /// The same for the whole of column j from its diagonal element down.
  bool ComputeDotLColVecIIncrDiag(int j, const double * v, int stride, double & result) const;

  /// Sum of L(start + q, j) L(i, start + q).
  bool DotLColRowPart(int j, int i, int start, int count, double & result) const;

  /// Sum of L(start + q, j) S(i, start + q) with a symmetric matrix s.
  bool DotProductLColRowPart(int j, const QVSymMatrix & s, int i, int start, int count,
                             double & result) const;

  /// Sum of S(start + q, j) v(q): column j of the symmetric matrix.
  bool ComputeDotColVecIIncrPart(int j, int start, int count, const double * v, int stride,
                                 double & result) const;

  /// Sum of S(i, start + q) v(q).
  bool DotRowVecDelayedIIncrPart(int i, int start, int count, const double * v, int delay,
                                 int stride, double & result) const;

  /// Column j of l, from its diagonal element down, by the piece of the symmetric row i that begins
  /// at column `start`: the sum over k >= j of L_kj S(i, start + k).
  bool DotProductLBlockColRow(const IQVSymMatrix & l, int j, int i, int start,
                              double & result) const;

  /// Column j of the block-diagonal matrix whose blocks are copies of l by the symmetric row i.
  /// False when the order of l does not divide n.
  bool DotProductLBlockDiagColRow(const IQVSymMatrix & l, int j, int i, double & result) const;

  /// out_j = the sum over q >= j of v_q L(start + q, start + j), for j below count: the vector
  /// times a diagonal block of L.
  bool ComputeVecPartByL(const std::vector<double> & v, int start, int count,
                         std::vector<double> & out) const;
  bool ComputeVecIIncPartByL(const double * v, int stride, int start, int count,
                             std::vector<double> & out) const;

  // === Updates of a part ========================================================================
  // As `UpdateXX` above: a_ij += (x_i w) x_j, rows with x_i = 0.0 being skipped; false, and nothing
  // changed, unless w is above 0.0.

  /// The leading block, or the diagonal block from row `start` on, of the size of x; false when it
  /// reaches past the matrix.
  bool UpdateXXCornerBlock(const std::vector<double> & x, double w);
  bool UpdateXXCornerBlock(int start, const std::vector<double> & x, double w);

  /// The leading `corner` rows by a sparse x, whose rows all lie in them.
  bool UpdateXXCornerSparse(int corner, const std::vector<int> & rows,
                            const std::vector<double> & x, double w);

  /// a_ij += (A_ri w) B_rj for every row r, j <= i: the lower triangle of w A-transpose B, in the
  /// leading rows, as many as A and B, which are of one shape, have columns. Where B is not a
  /// multiple of A the caller sees to it that the product is symmetric.
  bool UpdateXXMat2(const QVRectMatrix & a, const QVRectMatrix & b, double w);

  // === Spreading, parts in rectangular targets ==================================================

  /// Spreads the matrix to the rows that are in `rows`, with 0.0 in the others; `out` takes as many
  /// rows as the set has bits. False unless exactly n bits are set.
  bool Expand(const QVBitSet & rows, QVSymMatrix & out) const;

  /// The same by an index matrix E of n columns: row i of `out` is the row of this matrix in whose
  /// column row i of E has its 1.0, and 0.0 where E has none: E S E-transpose. A row may be spread
  /// several times. False when a row of E has an element other than 0.0 and one 1.0.
  bool ExpandSym(const IQVRectMatrix & index, QVSymMatrix & out) const;
  bool ExpandSymToRect(const IQVRectMatrix & index, QVRectMatrix & out) const;

  /// out = rows startRow .. startRow + rows - 1, columns startCol .. startCol + cols - 1 of the
  /// stored triangle. False unless all of it lies on or below the diagonal.
  bool ExtractBlockInLowTriangular(int startRow, int rows, int startCol, int cols,
                                   QVRectMatrix & out) const;

  /// The matrix H that leaves estimable functions unchanged, from a matrix swept on the rows of
  /// `swept`: row i of H is the unit vector with the coefficients of the rows that are not swept,
  /// for a swept i, and 0.0 otherwise. H takes the size of the set, which is n or less (a response
  /// behind the predictors is left out so); false for a larger set.
  bool ExtractH(const QVBitSet & swept, QVRectMatrix & h) const;

  /// Copies the symmetric row i to column j of r, which has n rows; false for a bad index.
  bool CopyRowToRColumn(int i, int j, QVRectMatrix & r) const;

  /// The stored part of column j: elements (j, j) to (n - 1, j), as a vector or as a matrix of one
  /// column. False for a bad j.
  bool GetPCol(int j, std::vector<double> & column) const;
  bool GetPCol(int j, QVRectMatrix & column) const;

  // === Display ==================================================================================

  /// Shows the number of rows, the blocks and the packed triangle.
  void Display() const override;

  /// Shows the number of rows and every full symmetric row.
  void DisplayF() const override;

  /// Shows the packed triangle alone.
  void DisplayS() const;

  // === Virtual operations of this class =========================================================
  // They stand behind those of the interface in exactly this order.

  /// In a matrix of correlations, pulls the elements below the diagonal back inside (-1, 1): one of
  /// 1.0 or above becomes 1 - e, one of -1.0 or below -(1 - e). Beware: with e = 0.0 they
  /// become 1.0 and -1.0. False for e below 0.0 or not below 1.0.
  virtual bool AdjustOffDiagCorr(double e);

  /// Both dot products at once: row i of this matrix by row j of the symmetric matrices a and b. ra
  /// and rb are what the forms for one matrix give, the results for bad arguments included.
  virtual void ComputeRowDotProductS(int i, const std::vector<double> & a,
                                     const std::vector<double> & b, int j, double & ra,
                                     double & rb) const;
  virtual void ComputeRowDotProductS(int i, const IQVSymMatrix & a, const IQVSymMatrix & b, int j,
                                     double & ra, double & rb) const;

  /// Position p of the packed storage. No bounds test.
  virtual double GetElem(int p) const;

 private:
  bool IsRow(int k) const { return k >= 0 && k < fNRows; }
  bool IsPart(int start, int count) const {
    return start >= 0 && count >= 0 && count <= fNRows && start <= fNRows - count;
  }
  bool IsPartOfColumn(int j, int start, int count) const;
  void MultiplyRowByL(int i, int start, const IQVSymMatrix & l, double * out) const;
  void MultiplyBlockByL(int start, const IQVSymMatrix & l, double * out) const;
  void ResizeAndMarkBlocks(int n);
  bool AreSweepArguments(int k, double tol, const double * ref, const QVBitSet & swept) const;
  bool AreCholeskyArguments(const std::vector<double> & ref, double tol) const;
  void GetSmallestDiagonal(double & minDiag) const;
  bool SolveIndependentRows(const std::vector<int> & rows, double tol,
                            const std::vector<double> & b, std::vector<double> & x) const;
  int InvertByCholesky(const std::vector<double> & ref, double tol, IQVSymMatrix & out,
                       QVBitSet * accepted, double * minDiag) const;
  void SweepInOrder(const PivotList & list, QVBitSet & swept, LogPivots * logPivots);
  bool IsPivotAccepted(int k, double tol, const double * ref, const QVBitSet & swept) const;

  int fNRows = 0;
  int fNBlocks = 0;
  int fBlockSize = 0;
  std::vector<double> fElements;
};

}  // namespace QVMath_940
