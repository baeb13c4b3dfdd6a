/// The diagonal matrix: an `IQVSymMatrix` on n doubles.
///
/// It stands where a `QVSymMatrix` could stand and gives the same results on the same matrix, at
/// the cost of n elements instead of n(n+1)/2. Where it differs its comment says so.
///
///     const QVMath_940::QVDiagMatrix weights(std::vector<double>{2.0, 0.5, 1.0});
///     QVMath_940::QVSymMatrix information;
///     weights.ComputeRTransSR(design, information);  // R-transpose diag(2, 0.5, 1) R
///
/// Guarantees.
/// Errors are results, as in `QVSymMatrix`: false, -1, 0.0 or the missing value, and nothing
/// changes. Storage that cannot be obtained makes the matrix invalid: `GetNRows` gives -1 and every
/// operation finds no rows. Missing values are numbers like every other.
/// The matrix owns its elements; copies are deep. A target may be this matrix or an operand.
/// Different objects may be used from different threads, one object from one thread at a time.
///
/// Beware of what differs from the dense class:
///     GetElem(i)              element i of the diagonal, not a packed position
///     GetNCheckDiagonal       uses its two numbers, so that LTChol(tol, minDiag, check) judges
///     each
///                             element against tol x itself
///     MaxMinDiagOffDiag       does not write the off-diagonal pair
///     LTInverse               has no second step: 1 / element, whatever the matrix holds
///     LTSolve                 neither factors nor changes the matrix; tol is an absolute bound
///     CholInverse             tol is an absolute bound and ref is not read
///     ComputeDeterminant      takes the elements as they stand; tol is not used
///     ComputeRVD, ComputeRowDotProductS, ComputeDotProduct2Rows
///                             give the missing value for a bad index
///     ExtractFirstNRows, ExtractSubmatrix
///                             take a QVDiagMatrix as their target
#pragma once

#include <cstddef>
#include <vector>

#include "IQVSymMatrix.h"
#include "QVBitSet.h"
#include "QVExport.h"

namespace QVMath_940 {

class QVRectMatrix;

class QVCOMMON_API QVDiagMatrix : public IQVSymMatrix {
 public:
  // === Construction and order ===================================================================

  /// 0 rows.
  QVDiagMatrix();

  /// n rows, all elements 0.0; a negative n counts as 0. (`zero` false promises nothing about the
  /// elements.)
  QVDiagMatrix(int n, bool zero);

  /// The vector is the diagonal.
  QVDiagMatrix(const std::vector<double> & diagonal);

  /// Deep copies; a copy whose storage cannot be obtained is invalid.
  QVDiagMatrix(const QVDiagMatrix & other);
  QVDiagMatrix & operator=(const QVDiagMatrix & other);

  ~QVDiagMatrix() override;

  /// `SymMatrixDiagonal`.
  SymMatrixType GetType() const override;

  /// The order n; -1 for an invalid matrix.
  int GetNRows() const override;

  /// True when the number of rows is not negative and equals the size of the diagonal vector: a
  /// stronger test than that of the dense class, since `AsVector` lets the caller resize it.
  bool IsValidMatrix() const override;

  /// Gives the matrix n rows (a negative n counts as 0); the leading elements keep their values,
  /// new ones are 0.0. False when the storage could not be obtained: the matrix is invalid then.
  bool Resize(int n) override;

  /// As `Resize`; with `zero` true all elements become 0.0.
  bool SetNRows(int n, bool zero) override;

  /// Takes over the size and the elements of the vector. False when the storage could not be
  /// obtained.
  bool ReplaceDiagonal(const std::vector<double> & diagonal);

  // === Elements =================================================================================
  // (`GetElem(int i)` and `SetElem(int i, double)` stand with the virtual operations below.)

  /// The diagonal itself, for direct access. It belongs to the matrix; a changed size makes the
  /// matrix invalid until `Resize`.
  std::vector<double> & AsVector() { return fDiagonal; }
  const std::vector<double> & AsVector() const { return fDiagonal; }

  /// Element i for i = j, 0.0 otherwise. No bounds test.
  double GetElem(int i, int j) const override;

  /// Stores element i for i = j; false otherwise, with nothing stored. No bounds test.
  bool SetElem(int i, int j, double value) override;

  /// Copies the diagonal, which takes n elements.
  void GetDiagonal(std::vector<double> & diagonal) const override;

  /// `row` takes n elements, all 0.0 but element k; false for a bad k.
  bool GetRow(int k, std::vector<double> & row) const override;

  /// Stores element k. False for a bad k, for a row shorter than n, and when one of its first n
  /// elements outside position k is not 0.0, which a diagonal matrix cannot store.
  bool PutRow(int k, const std::vector<double> & row) override;

  /// Sets element k alone; false for a bad k.
  bool SetRowColToConst(int k, double value) override;

  /// Sets element k to 0.0; false for a bad k.
  bool ZeroOut(int k) override;

  /// As in the dense class: every element (k, j) with j in `columns`, below m = min(n, its size),
  /// is 0.0. False for a bad k and for m below 1.
  bool IsZeroRow(int k, const QVBitSet & columns) const override;

  /// As in the dense class: v[start + k] += w x element k when k is below `len`.
  bool IncrVecByRow(int k, std::vector<double> & v, int start, int len, double w,
                    bool check) const override;

  // === The whole matrix =========================================================================

  void Clear() override;
  void ChangeSign() override;
  void MultiplyByNumber(double value) override;
  void AddToDiagonal(double value) override;

  /// Sum of the elements; 0.0 without rows.
  double Trace() const override;

  /// Largest and smallest element; without rows the outputs stay as they were.
  void MaxMinDiag(double & max, double & min) const override;

  /// `MaxMinDiag` for the first two outputs. Beware: the off-diagonal pair is not written at all.
  void MaxMinDiagOffDiag(double & maxDiag, double & minDiag, double & maxOff,
                         double & minOff) const override;

  /// The diagonal with each element below `threshold` replaced by `replacement`: what
  /// `QVSymMatrix::GetNCheckDiagonalOld` does.
  void GetNCheckDiagonal(std::vector<double> & diagonal, double threshold,
                         double replacement) const override;

  /// Does nothing: nothing stands off the diagonal.
  void ZeroOutNonDiag(double fraction) override;

  // === Parts of the matrix ======================================================================

  /// `out` = all rows but the last; with n below 2 it gets 0 rows. Does nothing unless `out` is a
  /// `QVDiagMatrix`.
  void ExtractFirstNRows(IQVSymMatrix & out) const override;

  /// `out` = the listed elements. False when there are more than n, when they are not strictly
  /// ascending within 0 .. n - 1, or when `out` is not a `QVDiagMatrix`.
  bool ExtractSubmatrix(const std::vector<int> & rows, IQVSymMatrix & out) const override;

  // === Cholesky =================================================================================
  // The matrix holds its own factor: the root of each element.

  /// Each element d becomes its root when d is strictly above tol x ref[i], else 0.0. The result is
  /// the number of the latter; with `check` true -1, and nothing changed, when tol or one of the
  /// first n values of ref is negative or ref is shorter than n.
  int LTChol(const std::vector<double> & ref, double tol, bool check) override;

  /// The same; `accepted` marks the accepted elements. It is cleared before anything is tested, and
  /// takes n bits when it is smaller.
  int LTChol(const std::vector<double> & ref, double tol, QVBitSet & accepted, bool check) override;

  /// The same with `GetNCheckDiagonal(d, tol, 1.0)` as the reference. minDiag becomes the smallest
  /// element of the factor; it is the lowest finite double after a refusal and without rows.
  int LTChol(double tol, double & minDiag, bool check) override;

  /// The job code of LINPACK's DTRDI, as in the dense class, with the elements as the factor's: the
  /// inverse of d is 1 / d, and a zero stays a zero. The result is the number of zeros.
  int LTDetInverse(double * const det, int job) override;

  /// Each d that is not 0.0 becomes 1 / d; true. Beware: unlike in the dense class this is no step
  /// from a factor to the inverse of the factored matrix.
  bool LTInverse() override;

  /// Each d becomes d squared; both are one operation.
  void LTLLTrans() override;
  void LTLTransL() override;

  /// x_i = b_i / d_i where d_i is above tol, an absolute bound; otherwise x_i = d_i as it stands,
  /// and the result, a count, goes up. Beware: nothing is factored and the matrix does not change.
  /// -1 when tol is not above 0.0 or b is shorter than n (x stays as it was), and -1 at once at the
  /// first negative d_i (x holds what was found before it). x takes n elements and may be b.
  int LTSolve(const std::vector<double> & b, double tol, std::vector<double> & x) override;

  /// out(i, i) = 1 / d_i where d_i is above tol, an absolute bound, 0.0 elsewhere; ref is not read.
  /// `out` may be of any class; it takes n rows when it has another number of them. The result is
  /// how many elements were inverted; -1 when the storage of `out` could not be obtained. The other
  /// two forms tell which they are, and the smallest diagonal element of the factor (0.0 where one
  /// was not inverted, the lowest finite double without rows).
  int CholInverse(const std::vector<double> & ref, double tol, IQVSymMatrix & out) const override;
  int CholInverse(const std::vector<double> & ref, double tol, IQVSymMatrix & out,
                  QVBitSet & accepted) const override;
  int CholInverse(const std::vector<double> & ref, double tol, IQVSymMatrix & out,
                  double & minDiag) const override;

  /// The product of the elements as det[0] x 10 to the power det[1]; both 0.0 as soon as the
  /// running product is 0.0. tol is not used. False without rows.
  bool ComputeDeterminant(double tol, double * const det) const override;

  // === Products with vectors ====================================================================
  // S = diag(d). Sizes, refusals and results as in the dense class, apart from the missing value
  // where a comment says so.

  /// out_i = d_i v_i; the second form for the leading k elements, as in the dense class.
  bool ComputeSV(const std::vector<double> & v, std::vector<double> & out) const override;
  bool ComputeSV(int k, const std::vector<double> & v, std::vector<double> & out) const override;

  /// L v and L-transpose v are one product here; v[p] stands at row rows[p] in the sparse form,
  /// which is refused for lists of different sizes and for a row out of range.
  bool ComputeLV(const std::vector<double> & v, std::vector<double> & out) const override;
  bool ComputeLV(const std::vector<int> & rows, const std::vector<double> & v,
                 std::vector<double> & out) const override;
  bool ComputeLTransV(const std::vector<double> & v, std::vector<double> & out) const override;
  bool ComputeLTransV(const std::vector<int> & rows, const std::vector<double> & v,
                      std::vector<double> & out) const override;

  /// d_i x v[i x stride]; the missing value for a bad i, where the dense class gives 0.0, and for a
  /// vector that ends before that place.
  double ComputeRVD(int i, const double * v, int stride) const override;
  double ComputeRVD(int i, const std::vector<double> & v, int stride) const override;

  // === Quadratic forms ==========================================================================

  /// The sum of d_i v_i v_i and of d_i v_i w_i, in row order; 0.0 for bad sizes.
  double ComputeVSV(const std::vector<double> & v) const override;
  double ComputeVSV(const IQVRectMatrix & r, int k) const override;
  double ComputeVSW(const std::vector<double> & v, const std::vector<double> & w) const override;
  double ComputeVSW(const double * v, int strideV, const double * w, int strideW) const override;

  /// Element (r, c) of S V S over the leading order m: d_c d_r V_cr, with V packed in v. 0.0 for a
  /// bad m, r or c and for a v shorter than m(m+1)/2.
  double ComputeVSW(const std::vector<double> & v, int m, int r, int c) const override;

  /// The sum of w_i d_i v_i for i below nv and nw; 0.0 for a count outside 0 .. n and for a vector
  /// shorter than its count.
  double ComputeVSWParts(const double * v, int nv, const double * w, int nw) const override;
  double ComputeVSWParts(const std::vector<double> & v, int nv, const std::vector<double> & w,
                         int nw) const override;

  // === Products with symmetric matrices =========================================================

  /// d_i squared for i = j, 0.0 for others, the missing value for a bad index.
  double ComputeDotProduct2Rows(int i, int j) const override;

  /// d_i x element (i, j) of s; the missing value for a bad index and for an s of another order.
  double ComputeRowDotProductS(int i, const std::vector<double> & s, int j) const override;
  double ComputeRowDotProductS(int i, const IQVSymMatrix & s, int j) const override;

  /// out = S S; `out` may be dense or diagonal, another one stays as it is.
  void ComputeSTransS(IQVSymMatrix & out) const override;

  /// out = S T; T may be of any class, `out` must be dense.
  bool ComputeSS(const IQVSymMatrix & t, IQVRectMatrix & out) const override;

  /// out = G S G with G packed in g, which has n(n+1)/2 elements.
  bool ComputeGMG(const std::vector<double> & g, QVSymMatrix & out) const override;

  /// out = G S G and L S L-transpose, L being the lower triangle of l. g and l may be of any class;
  /// `out` dense, or of the same class as g and l, whose structure it takes.
  bool ComputeGSG(const IQVSymMatrix & g, IQVSymMatrix & out) const override;
  bool ComputeLSLTrans(const IQVSymMatrix & l, IQVSymMatrix & out) const override;

  /// out = B-transpose S B, B being block-diagonal with `copies` times L. False unless copies is at
  /// least 1 and n = copies x the order of l. `out` dense, or diagonal when l is.
  bool ComputeLTransSL(const IQVSymMatrix & l, IQVSymMatrix & out, int copies) const override;

  /// out = M G N + N G M with this matrix as G. M and N must be both dense or both diagonal; `out`
  /// dense, or diagonal when they are.
  bool ComputeMGN(const IQVSymMatrix & m, const IQVSymMatrix & n,
                  IQVSymMatrix & out) const override;

  /// out = G (M G N + N G M) G; `work` receives the packed inner sum, n(n+1)/2 elements, and grows
  /// when it is smaller. Classes as in `ComputeMGN`.
  bool ComputeGMGNG(const IQVSymMatrix & m, const IQVSymMatrix & n, IQVSymMatrix & out,
                    std::vector<double> & work) const override;

  /// This matrix += a X. X may be of any class; false when the orders differ and when an element of
  /// X off the diagonal is not 0.0, which a diagonal matrix cannot store.
  bool ComputeAXpY(double a, const IQVSymMatrix & x) override;

  // === Products with rectangular matrices =======================================================
  // Rows or columns of R are scaled by d. R may be dense or sparse; a sparse one costs in
  // proportion to its cells. Targets must be dense.

  /// out = R S and out = R-transpose S.
  bool ComputeRS(const IQVRectMatrix & r, IQVRectMatrix & out) const override;
  bool ComputeRTransS(const IQVRectMatrix & r, IQVRectMatrix & out) const override;

  /// out = R S R-transpose, out = R-transpose S R, out = R-transpose S v.
  bool ComputeRSRTrans(const IQVRectMatrix & r, IQVSymMatrix & out) const override;
  bool ComputeRTransSR(const IQVRectMatrix & r, IQVSymMatrix & out) const override;
  bool ComputeRTransSV(const IQVRectMatrix & r, const std::vector<double> & v,
                       std::vector<double> & out) const override;

  /// out = B R, B being diagonal with `copies` times this matrix: row i of R times d of i modulo n.
  /// False unless copies is at least 1 and R has copies x n rows. `out` may be R.
  bool ComputeLTransR(const QVRectMatrix & r, QVRectMatrix & out, int copies) const;

  // === Traces of products =======================================================================

  /// The sum of d_i t_ii, and of d_i times row i of A by row i of B; 0.0 when orders differ or n is
  /// below 1. The arguments may be of any class.
  double TraceOfProduct(const IQVSymMatrix & t) const override;
  double TraceOfProductOfThree(const IQVSymMatrix & a, const IQVSymMatrix & b) const override;

  // === Display ==================================================================================

  /// Both show the numbers of rows and columns and every full row.
  void Display() const override;
  void DisplayF() const override;

  // === Virtual operations of this class =========================================================
  // They stand behind those of the interface in exactly this order.

  /// Element i of the diagonal. No bounds test.
  virtual double GetElem(int i) const;

  /// d_i x r(k, offset + i): the vector is row k of r, its first element standing in column
  /// `offset`. The missing value for a bad i or k and a place outside the row.
  virtual double ComputeRVD(int i, const IQVRectMatrix & r, int k, int offset) const;

  /// d_i x r(offset + i, k): the same with column k of r.
  virtual double ComputeRTransVD(int i, const IQVRectMatrix & r, int k, int offset) const;

  /// Stores element i of the diagonal; true. No bounds test.
  virtual bool SetElem(int i, double value);

 private:
  bool IsRow(int k) const { return k >= 0 && k < fNRows; }
  std::size_t Size() const { return fNRows > 0 ? static_cast<std::size_t>(fNRows) : 0; }
  bool AreCholeskyArguments(const std::vector<double> & ref, double tol) const;
  int InvertElements(double tol, IQVSymMatrix & out, QVBitSet * accepted, double * minDiag) const;

  int fNRows = 0;
  std::vector<double> fDiagonal;
};

}  // namespace QVMath_940
