/// The interface of every symmetric matrix of the library: dense, diagonal, block-diagonal.
///
/// A procedure that takes an `IQVSymMatrix &` works on all of them; `GetType` tells which one it
/// has got. The names are a small algebra: S is this matrix, R a rectangular matrix, L the lower
/// triangular factor that a symmetric matrix object may hold, G, M and N symmetric matrices, V and
/// W vectors, Trans a transpose, so that `ComputeRTransSR` is R-transpose S R.
///
///     double LogDeterminant(const QVMath_940::IQVSymMatrix & s) {
///       double det[2];  // the determinant is det[0] times 10 to the power det[1]
///       if (!s.ComputeDeterminant(1e-12, det)) return QVCommon_940::QVMV::Missing();
///       return std::log(det[0]) + det[1] * std::log(10.0);
///     }
///
/// Rows and columns count from 0. The order of the virtual operations is part of the binary
/// interface: add nothing between them. What each operation does, refuses and gives back is told in
/// `QVSymMatrix.h`; the other classes tell where they differ.
///
/// Errors are results, never exceptions: false, -1, 0.0 or the missing value. Threads: different
/// objects may be used from different threads, one object from one thread at a time.
#pragma once

#include <vector>

#include "QVExport.h"

namespace QVMath_940 {

class IQVRectMatrix;
class QVBitSet;
class QVSymMatrix;

/// Which class stands behind an `IQVSymMatrix`.
enum SymMatrixType : int {
  SymMatrixDense = 0,         ///< `QVSymMatrix`
  SymMatrixDiagonal = 1,      ///< `QVDiagMatrix`
  SymMatrixBlockDiagonal = 2  ///< `QVSymBlockDiagMatrix`
};

class QVCOMMON_API IQVSymMatrix {
 public:
  virtual ~IQVSymMatrix();

  // --- Kind, order, elements --------------------------------------------------------------------

  /// The class behind the interface.
  virtual SymMatrixType GetType() const = 0;
  /// The order n; -1 for a matrix whose storage could not be obtained.
  virtual int GetNRows() const = 0;
  /// False for a matrix whose storage could not be obtained.
  virtual bool IsValidMatrix() const = 0;
  /// Element (i, j); (j, i) is the same one. No bounds test.
  virtual double GetElem(int i, int j) const = 0;
  /// Copies the diagonal to `diagonal`, which takes n elements.
  virtual void GetDiagonal(std::vector<double> & diagonal) const = 0;
  /// Copies the full symmetric row k to `row`, which takes n elements; false for a bad k.
  virtual bool GetRow(int k, std::vector<double> & row) const = 0;
  /// Adds `value` to every diagonal element.
  virtual void AddToDiagonal(double value) = 0;
  /// Turns the sign of every element.
  virtual void ChangeSign() = 0;

  // --- Inverse by Cholesky, see LTChol below ----------------------------------------------------

  /// `out` = generalised inverse; gives the rank and the smallest diagonal element of the factor.
  virtual int CholInverse(const std::vector<double> & ref, double tol, IQVSymMatrix & out,
                          double & minDiag) const = 0;
  /// The same; `accepted` marks the rows that stayed in.
  virtual int CholInverse(const std::vector<double> & ref, double tol, IQVSymMatrix & out,
                          QVBitSet & accepted) const = 0;
  /// The same with the rank alone; -1 for bad arguments.
  virtual int CholInverse(const std::vector<double> & ref, double tol,
                          IQVSymMatrix & out) const = 0;

  /// Sets all elements to 0.0.
  virtual void Clear() = 0;

  // --- Products, quadratic forms ----------------------------------------------------------------

  /// This matrix += a X; false when the orders differ.
  virtual bool ComputeAXpY(double a, const IQVSymMatrix & x) = 0;
  /// det[0] times 10 to the power det[1] is the determinant.
  virtual bool ComputeDeterminant(double tol, double * const det) const = 0;
  /// Dot product of the symmetric rows i and j.
  virtual double ComputeDotProduct2Rows(int i, int j) const = 0;
  /// `out` = G S G with G packed.
  virtual bool ComputeGMG(const std::vector<double> & g, QVSymMatrix & out) const = 0;
  /// `out` = G (M G N + N G M) G with this matrix as G; `work` keeps the packed inner sum.
  virtual bool ComputeGMGNG(const IQVSymMatrix & m, const IQVSymMatrix & n, IQVSymMatrix & out,
                            std::vector<double> & work) const = 0;
  /// `out` = M G N + N G M with this matrix as G.
  virtual bool ComputeMGN(const IQVSymMatrix & m, const IQVSymMatrix & n,
                          IQVSymMatrix & out) const = 0;
  /// `out` = G S G.
  virtual bool ComputeGSG(const IQVSymMatrix & g, IQVSymMatrix & out) const = 0;
  /// `out` = L S L-transpose.
  virtual bool ComputeLSLTrans(const IQVSymMatrix & l, IQVSymMatrix & out) const = 0;
  /// `out` = B-transpose S B with B block-diagonal: `copies` times L.
  virtual bool ComputeLTransSL(const IQVSymMatrix & l, IQVSymMatrix & out, int copies) const = 0;
  /// `out` = L-transpose v with this matrix as L; v[p] stands at row rows[p], the rest is 0.0.
  virtual bool ComputeLTransV(const std::vector<int> & rows, const std::vector<double> & v,
                              std::vector<double> & out) const = 0;
  /// `out` = L-transpose v with this matrix as L.
  virtual bool ComputeLTransV(const std::vector<double> & v, std::vector<double> & out) const = 0;
  /// `out` = L v with this matrix as L; v[p] stands at row rows[p], the rest is 0.0.
  virtual bool ComputeLV(const std::vector<int> & rows, const std::vector<double> & v,
                         std::vector<double> & out) const = 0;
  /// `out` = L v with this matrix as L.
  virtual bool ComputeLV(const std::vector<double> & v, std::vector<double> & out) const = 0;
  /// Row i of this matrix by row j of the packed symmetric matrix s.
  virtual double ComputeRowDotProductS(int i, const std::vector<double> & s, int j) const = 0;
  /// Row i of this matrix by row j of s.
  virtual double ComputeRowDotProductS(int i, const IQVSymMatrix & s, int j) const = 0;
  /// `out` = R S.
  virtual bool ComputeRS(const IQVRectMatrix & r, IQVRectMatrix & out) const = 0;
  /// `out` = R S R-transpose.
  virtual bool ComputeRSRTrans(const IQVRectMatrix & r, IQVSymMatrix & out) const = 0;
  /// `out` = R-transpose S.
  virtual bool ComputeRTransS(const IQVRectMatrix & r, IQVRectMatrix & out) const = 0;
  /// `out` = R-transpose S R.
  virtual bool ComputeRTransSR(const IQVRectMatrix & r, IQVSymMatrix & out) const = 0;
  /// `out` = R-transpose S v.
  virtual bool ComputeRTransSV(const IQVRectMatrix & r, const std::vector<double> & v,
                               std::vector<double> & out) const = 0;
  /// Row i of S by the vector v[0], v[stride], v[2 stride] ...
  virtual double ComputeRVD(int i, const double * v, int stride) const = 0;
  virtual double ComputeRVD(int i, const std::vector<double> & v, int stride) const = 0;
  /// `out` = S T.
  virtual bool ComputeSS(const IQVSymMatrix & t, IQVRectMatrix & out) const = 0;
  /// `out` = S S.
  virtual void ComputeSTransS(IQVSymMatrix & out) const = 0;
  /// `out` = the leading k by k block of S times the first k elements of v.
  virtual bool ComputeSV(int k, const std::vector<double> & v, std::vector<double> & out) const = 0;
  /// `out` = S v.
  virtual bool ComputeSV(const std::vector<double> & v, std::vector<double> & out) const = 0;
  /// v-transpose S v with row k of r as v.
  virtual double ComputeVSV(const IQVRectMatrix & r, int k) const = 0;
  /// v-transpose S v.
  virtual double ComputeVSV(const std::vector<double> & v) const = 0;
  /// Element (r, c) of S V S over the leading order m, with V packed in v.
  virtual double ComputeVSW(const std::vector<double> & v, int m, int r, int c) const = 0;
  /// v-transpose S w with element strides.
  virtual double ComputeVSW(const double * v, int strideV, const double * w, int strideW) const = 0;
  /// v-transpose S w.
  virtual double ComputeVSW(const std::vector<double> & v, const std::vector<double> & w) const = 0;
  /// w-transpose (leading nw by nv rectangle of S) v.
  virtual double ComputeVSWParts(const double * v, int nv, const double * w, int nw) const = 0;
  virtual double ComputeVSWParts(const std::vector<double> & v, int nv,
                                 const std::vector<double> & w, int nw) const = 0;

  // --- Parts of the matrix ----------------------------------------------------------------------

  /// `out` = the leading n - 1 rows: all but the last.
  virtual void ExtractFirstNRows(IQVSymMatrix & out) const = 0;
  /// `out` = the rows and columns listed, in ascending order.
  virtual bool ExtractSubmatrix(const std::vector<int> & rows, IQVSymMatrix & out) const = 0;
  /// A reference diagonal for the tolerance tests.
  virtual void GetNCheckDiagonal(std::vector<double> & diagonal, double threshold,
                                 double replacement) const = 0;
  /// v[start + j] += w times element j of row k, for j below `len`.
  virtual bool IncrVecByRow(int k, std::vector<double> & v, int start, int len, double w,
                            bool check) const = 0;
  /// True when row k is 0.0 in all the columns of `columns`.
  virtual bool IsZeroRow(int k, const QVBitSet & columns) const = 0;

  // --- Cholesky factor: the matrix is replaced by L with L L-transpose = S
  // ------------------------

  /// Factors with a reference diagonal made from the matrix; gives the rank deficiency.
  virtual int LTChol(double tol, double & minDiag, bool check) = 0;
  /// Factors; `accepted` marks the rows that stayed in.
  virtual int LTChol(const std::vector<double> & ref, double tol, QVBitSet & accepted,
                     bool check) = 0;
  /// Factors; gives the rank deficiency, -1 for bad arguments.
  virtual int LTChol(const std::vector<double> & ref, double tol, bool check) = 0;
  /// Determinant and inverse of L, by LINPACK's job code.
  virtual int LTDetInverse(double * const det, int job) = 0;
  /// From L to the inverse of L L-transpose.
  virtual bool LTInverse() = 0;
  /// From L to L L-transpose.
  virtual void LTLLTrans() = 0;
  /// From L to L-transpose L.
  virtual void LTLTransL() = 0;
  /// Factors this matrix and solves S x = b.
  virtual int LTSolve(const std::vector<double> & b, double tol, std::vector<double> & x) = 0;

  // --- Whole matrix, rows -----------------------------------------------------------------------

  /// Largest and smallest diagonal element.
  virtual void MaxMinDiag(double & max, double & min) const = 0;
  /// The same, and the largest and smallest element below the diagonal.
  virtual void MaxMinDiagOffDiag(double & maxDiag, double & minDiag, double & maxOff,
                                 double & minOff) const = 0;
  /// Multiplies every element by `value`.
  virtual void MultiplyByNumber(double value) = 0;
  /// Stores row and column k from a full row.
  virtual bool PutRow(int k, const std::vector<double> & row) = 0;
  /// Changes the order; the leading rows keep their values.
  virtual bool Resize(int n) = 0;
  /// Stores element (i, j). No bounds test.
  virtual bool SetElem(int i, int j, double value) = 0;
  /// Changes the order; with `zero` true all elements become 0.0.
  virtual bool SetNRows(int n, bool zero) = 0;
  /// Sets row and column k to `value`.
  virtual bool SetRowColToConst(int k, double value) = 0;
  /// Sum of the diagonal.
  virtual double Trace() const = 0;
  /// Trace of S T.
  virtual double TraceOfProduct(const IQVSymMatrix & t) const = 0;
  /// Trace of S A B.
  virtual double TraceOfProductOfThree(const IQVSymMatrix & a, const IQVSymMatrix & b) const = 0;
  /// Sets row and column k to 0.0.
  virtual bool ZeroOut(int k) = 0;
  /// Clears the elements below the diagonal that are small as correlations.
  virtual void ZeroOutNonDiag(double fraction) = 0;

  /// Shows the matrix on the display stream.
  virtual void Display() const = 0;
  /// The same with all rows in full.
  virtual void DisplayF() const = 0;

 protected:
  IQVSymMatrix() = default;
  IQVSymMatrix(const IQVSymMatrix &) = default;
  IQVSymMatrix & operator=(const IQVSymMatrix &) = default;
};

}  // namespace QVMath_940
