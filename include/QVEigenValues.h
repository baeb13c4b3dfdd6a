/// Eigenvalues and eigenvectors of a symmetric matrix H, or of the pencil H x = lambda E x with a
/// symmetric E that may be singular.
///
///     QVMath_940::QVEigenValues problem(covariance, 2.2e-16, 30);
///     std::vector<double> values;
///     QVMath_940::QVRectMatrix vectors;                      // one eigenvector in each row
///     int count = problem.GetSorted(values, vectors, true);  // the largest first
///
/// H is reduced to tridiagonal form by Householder reflections on packed storage, whose eigenvalues
/// come from implicit QL iterations. The pencil is first reduced to a plain problem V H
/// V-transpose, V being the (generalised) inverse of the Cholesky factor of E.
///
/// Guarantees.
/// Results are codes, never exceptions (but for failed allocation). All matrices and vectors are
/// owned; copies are deep. A result does not depend on the CPU; from order 64 on products and sums
/// of vectors are fused. Different objects may be used from different threads.
///
/// Beware of four things.
/// - `Compute` keeps the eigenvalues it has found first: a second `Compute` for a new H of the same
///   order gives the earlier values. Make a new object for each problem.
/// - What `SetEMatrix` derived from H stays when `SetHMatrix` brings a new H. Call `SetHMatrix`
///   first, then `SetEMatrix`; a reduced pencil of another order than H makes `Compute` give 0.
/// - Eigenvectors of a pencil stay in the coordinates of V H V-transpose.
/// - The tolerance decides when a subdiagonal element counts as zero; the default 1e-12 is wider
///   than the precision of a double. 2.2e-16 gives full precision.
#pragma once

#include <utility>
#include <vector>

#include "QVExport.h"
#include "QVRectMatrix.h"
#include "QVSymMatrix.h"

namespace QVMath_940 {

class QVCOMMON_API QVEigenValues {
 public:
  /// No matrices; tolerance 1e-12, 30 iterations an eigenvalue.
  QVEigenValues();

  /// A tolerance not above 0.0 stands for 1e-12, a maxIter not above 0 for 30.
  QVEigenValues(double tol, int maxIter);

  /// The same with `SetHMatrix`, and with `SetEMatrix` after it.
  QVEigenValues(const QVSymMatrix & h, double tol, int maxIter);
  QVEigenValues(const QVSymMatrix & h, const QVSymMatrix & e, double tol, int maxIter);

  QVEigenValues(const QVEigenValues & other);
  QVEigenValues & operator=(const QVEigenValues & other);
  ~QVEigenValues();

  // === Settings =================================================================================

  /// Relative size at which a subdiagonal element counts as zero; false, and no change, unless
  /// above 0.0.
  bool SetTolerance(double tol);
  double GetTolerance() const { return fTolerance; }

  /// QL iterations for one eigenvalue; false, and no change, for a number below 1.
  bool SetMaxIter(int maxIter);
  int GetMaxIter() const { return fMaxIter; }

  // === The problem ==============================================================================

  /// Copies H. An earlier E stays with what was derived from it: see above.
  void SetHMatrix(const QVSymMatrix & h);

  /// Copies E, of H's order, and reduces the pencil to the plain problem of order n. False, and no
  /// E any more, when E has another order, rank 0 (by its Cholesky factorisation at the tolerance
  /// of this object), or storage cannot be obtained.
  bool SetEMatrix(const QVSymMatrix & e);

  /// What the last `SetEMatrix` answered; false when there was none.
  bool IsValidEMatrix() const { return fIsValidE; }

  // === Solutions ================================================================================

  /// The eigenvalues, in no set order; `values` takes n elements. The result is the number
  /// computed: n, or fewer when an eigenvalue needed more than `GetMaxIter` iterations (the first
  /// ones stand, 0.0 in the rest); a value below 1 when nothing could be computed.
  int Compute(std::vector<double> & values);

  /// With the eigenvectors in the rows of `vectors`, n x n, untouched when the result is below 1.
  int Compute(std::vector<double> & values, QVRectMatrix & vectors);

  /// The eigenvalues found before, or by `Compute` now, sorted; equal ones in no set order. The
  /// result is their number.
  int GetSorted(std::vector<double> & values, bool descending);

  /// The same with the eigenvectors, row j belonging to values[j]; rows behind the result are 0.0.
  int GetSorted(std::vector<double> & values, QVRectMatrix & vectors, bool descending);

  /// isPD tells whether no eigenvalue of the problem is below eps (1e-6 for an eps not above 0.0).
  /// False when not all of them could be computed.
  bool IsPDHMatrix(double eps, bool & isPD);

  /// A positive definite matrix made from H by raising its eigenvalues to at least eps (1e-6 for an
  /// eps not above 0.0); H itself, and `changed` false, when they are so already. False, and `out`
  /// 0.0 throughout, when not all eigenvalues could be computed.
  bool GetPDHMatrix(double eps, QVSymMatrix & out, bool & changed);
  bool GetPDHMatrix(double eps, QVSymMatrix & out);

  void Display() const;

 private:
  void TriDiag();
  void Tred3();
  int EigenValuesTQLI();
  void BackTransVectors();

  bool IsFused() const;
  void RemoveEMatrix();
  void ReduceRow(int i);
  int FindSmallSubdiagonal(int l, const std::vector<double> & w) const;
  bool IterateQL(int l, std::vector<double> & w, std::vector<double> & cosines,
                 std::vector<double> & sines);
  void QLStep(int l, int m, std::vector<double> & w, std::vector<double> & cosines,
              std::vector<double> & sines);

  int fNRows = 0;
  double fTolerance;
  int fMaxIter;
  bool fComputeVectors = false;
  QVSymMatrix fmH;
  QVSymMatrix fmE;
  std::vector<double> fvEDiag;
  QVSymMatrix fmEChol;
  QVSymMatrix fmGenInvEChol;
  QVSymMatrix fmVHV;
  QVSymMatrix fmOrthInfo;  // reduced in place; the Householder vectors afterwards
  QVSymMatrix fmWork;
  int fRankE = 0;
  bool fIsValidE = false;
  std::vector<double> fvDiag3;
  std::vector<double> fvSubdiag3;
  std::vector<double> fvEigenVal;
  int fNComputed = 0;
  QVRectMatrix fmEigenVectors;
  std::vector<std::pair<double, int>> fvEigPairs;
};

}  // namespace QVMath_940
