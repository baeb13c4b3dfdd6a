/// LINPACK on plain pointers, as a class of static functions: factor, solve, condition, inverse.
///
///     double a[] = {2, 1,   1, 3};                  // two columns of two
///     double b[] = {3, 5};
///     double z[2];
///     int ipvt[2];
///     if (Linpack::Dgeco(a, 2, 2, ipvt, z) > 1e-10) Linpack::Dgesl(a, 2, 2, ipvt, b, 0);
///                                                   // b is now the solution (0.8, 1.4)
///
/// The published routines in double precision (Dongarra, Bunch, Moler and Stewart, 1979, LINPACK
/// Users' Guide, SIAM). The first letters name the matrix form (ge general, gb its band form, po
/// positive definite, pp packed, pb band, si symmetric indefinite, sp packed, tr triangular), the
/// last ones the job: `co` factor and estimate the condition, `fa` factor, `sl` solve, `di`
/// determinant and inverse.
///
/// Calling convention.
/// - Arguments come in the published order, less info, rcond or the function's value, which are
///   results: `int` info, `double` rcond.
/// - A matrix is a pointer and a leading dimension, column by column: element (i, j), counted from
///   0, stands at a[i + j lda], lda at least the number of rows. Matrices told as packed hold the
///   upper triangle column by column: (i, j), i <= j, at ap[i + j(j+1)/2]. That is the same memory
///   as a lower triangle packed by rows, the storage of `QVSymMatrix`.
/// - Band forms hold each diagonal as a row; see there.
/// - Positions in pivot lists and in results count FROM 1.
/// - The caller owns every array. What is only read is a pointer to const. Arrays that are not used
///   by the chosen job may be null.
/// - Nothing tests dimensions: lda, the band widths and the lengths told here are up to the caller.
///   Orders below 1 do nothing; a result is 0.
///
/// The reciprocal condition rcond estimates 1 / (|A| |A inverse|) in the 1-norm. It lies between
/// the true value and, but for contrived matrices, some 10 times it. When 1.0 + rcond == 1.0 the
/// matrix is singular to working precision; an exactly singular one gives 0 or close to it.
///
/// A determinant comes as two numbers, det[0] times 10 to the power det[1], with 1 <= |det[0]| < 10
/// or det[0] = 0. (A determinant that is infinite or NaN is left as it is.)
///
/// Singular matrices are told by info alone: nothing throws, and a solve that divides by a zero
/// pivot gives infinities or NaN. All sums run in the published order through `Blas1`; a result
/// does not depend on the CPU. Thread-safe: every routine works on its arguments alone, and those
/// that solve with a factor leave it untouched at all times.
#pragma once

#include "QVExport.h"

namespace QVMath_940 {

class QVCOMMON_API Linpack {
 public:
  // ---- General matrices: A = L U with partial pivoting ----

  /// Factors the n x n matrix a and estimates its reciprocal condition, which is the result.
  ///
  /// On return a and ipvt are those of `Dgefa`. `z` is work space of n; if the matrix is close to
  /// singular it holds an approximate null vector: |A z| = rcond |A| |z|.
  static double Dgeco(double * a, int lda, int n, int * ipvt, double * z);

  /// Factors the n x n matrix a by Gaussian elimination.
  ///
  /// On return the upper triangle of a is U, below it stand the multipliers that made it, with
  /// their signs changed; ipvt[k] is the row, counted from 1, that was exchanged with row k + 1.
  /// Result: 0, or the position k of a zero pivot U(k, k), the last one: the factor is there, but
  /// `Dgesl` and the inverse would divide by zero.
  static int Dgefa(double * a, int lda, int n, int * ipvt);

  /// Solves A x = b (job 0) or A-transpose x = b (any other job) with the factor of `Dgeco` or
  /// `Dgefa`; x replaces b.
  static void Dgesl(const double * a, int lda, int n, const int * ipvt, double * b, int job);

  /// Determinant and inverse from the factor of `Dgeco` or `Dgefa`.
  ///
  /// job 11 both, 10 the determinant alone in det[0] and det[1], 1 the inverse alone, which
  /// replaces the factor. `work` has n places.
  static void Dgedi(double * a, int lda, int n, const int * ipvt, double * det, double * work,
                    int job);

  // ---- General band matrices ----
  //
  // ml diagonals below the main one, mu above it, 0 <= ml, mu < n. Column j of the matrix is column
  // j of abd, the diagonals are its rows: element (i, j) stands at abd[ml + mu + i - j + j lda],
  // with lda at least 2 ml + mu + 1. The first ml rows are for the fill-in of the elimination and
  // need not be set. For n = 5, ml = 1, mu = 2:
  //
  //      *   *   *   +   +        + fill-in, * not used
  //      *   *  02  13  24
  //      *  01  12  23  34
  //     00  11  22  33  44
  //     10  21  32  43   *

  /// Factors and estimates the reciprocal condition, which is the result; `z` as in `Dgeco`.
  static double Dgbco(double * abd, int lda, int n, int ml, int mu, int * ipvt, double * z);

  /// Factors by elimination. On return abd holds U, now with ml + mu diagonals above the main one,
  /// and the multipliers; ipvt and the result are those of `Dgefa`.
  static int Dgbfa(double * abd, int lda, int n, int ml, int mu, int * ipvt);

  /// Solves A x = b (job 0) or A-transpose x = b (any other job); x replaces b.
  static void Dgbsl(const double * abd, int lda, int n, int ml, int mu, const int * ipvt,
                    double * b, int job);

  /// The determinant, from the factor. (For the inverse solve n times.)
  static void Dgbdi(const double * abd, int lda, int n, int ml, int mu, const int * ipvt,
                    double * det);

  // ---- Positive definite matrices: A = R-transpose R, R upper triangular ----

  /// Factors the symmetric matrix a and estimates its reciprocal condition, which is the result.
  ///
  /// Only the diagonal and the upper triangle of a are used; on return they hold R. info is that of
  /// `Dpofa`; when it is not 0 the result is 0 and `z` has no meaning. Otherwise `z`, work space of
  /// n, is as in `Dgeco`. A null `info`, or the shorter form, drops it.
  static double Dpoco(double * a, int lda, int n, double * z, int * info);
  static double Dpoco(double * a, int lda, int n, double * z);

  /// Factors the symmetric matrix a; on return its upper triangle is R, the strict lower one
  /// unchanged.
  ///
  /// Result: 0, or the order k of the first leading part that is not positive definite; the columns
  /// of R before k are complete then.
  static int Dpofa(double * a, int lda, int n);

  /// Solves A x = b with the factor of `Dpoco` or `Dpofa`; x replaces b.
  static void Dposl(const double * a, int lda, int n, double * b);

  /// Determinant and inverse from R, given by `Dpoco` or `Dpofa`, or by `Dqrdc` or `Dchdc` (of
  /// X-transpose X or of A then).
  ///
  /// job 11 both, 10 the determinant alone, 1 the inverse alone, whose upper triangle replaces R.
  static void Dpodi(double * a, int lda, int n, double * det, int job);

  // ---- Positive definite matrices, packed ----
  //
  // As above, the upper triangle packed by columns in n(n+1)/2 places.

  /// Factors and estimates the reciprocal condition; see `Dpoco`.
  static double Dppco(double * ap, int n, double * z, int * info);
  static double Dppco(double * ap, int n, double * z);

  /// Factors; see `Dpofa`.
  static int Dppfa(double * ap, int n);

  /// Solves A x = b; x replaces b.
  static void Dppsl(const double * ap, int n, double * b);

  /// Determinant and inverse; see `Dpodi`.
  static void Dppdi(double * ap, int n, double * det, int job);

  // ---- Positive definite band matrices ----
  //
  // m diagonals above the main one, 0 <= m < n. Element (i, j), j - m <= i <= j, stands at
  // abd[m + i - j + j lda], with lda at least m + 1. For n = 5, m = 2:
  //
  //      *   *  02  13  24
  //      *  01  12  23  34
  //     00  11  22  33  44

  /// Factors and estimates the reciprocal condition; see `Dpoco`.
  static double Dpbco(double * abd, int lda, int n, int m, double * z, int * info);
  static double Dpbco(double * abd, int lda, int n, int m, double * z);

  /// Factors; R replaces the matrix in the same band form. See `Dpofa`.
  static int Dpbfa(double * abd, int lda, int n, int m);

  /// Solves A x = b; x replaces b.
  static void Dpbsl(const double * abd, int lda, int n, int m, double * b);

  /// The determinant, from the factor. (For the inverse solve n times.)
  static void Dpbdi(const double * abd, int lda, int n, int m, double * det);

  // ---- Symmetric indefinite matrices: A = U D U-transpose ----
  //
  // Diagonal pivoting after Bunch and Kaufman (1977): D has blocks of order 1 and 2, U is a product
  // of permutations and unit upper triangular matrices.

  /// Factors the symmetric matrix a and estimates its reciprocal condition, which is the result.
  ///
  /// Only the diagonal and the upper triangle of a are used; on return they and kpvt are those of
  /// `Dsifa`. `z`, work space of n, is as in `Dgeco`.
  static double Dsico(double * a, int lda, int n, int * kpvt, double * z);

  /// Factors the symmetric matrix a.
  ///
  /// On return the upper triangle holds D and the multipliers of U. A positive kpvt[k] marks a
  /// block of order 1, and is the row, counted from 1, that was exchanged with row k + 1. Equal
  /// negative kpvt[k - 1] and kpvt[k] mark a block of order 2 on rows k and k + 1 (from 1); their
  /// magnitude is the row that was exchanged with row k. Result: 0, or the position k of a zero
  /// block, the last one found, going from the end of the matrix to its front: solving and
  /// inverting would divide by zero.
  static int Dsifa(double * a, int lda, int n, int * kpvt);

  /// Solves A x = b with the factor of `Dsico` or `Dsifa`; x replaces b.
  static void Dsisl(const double * a, int lda, int n, const int * kpvt, double * b);

  /// Determinant, inertia and inverse from the factor of `Dsico` or `Dsifa`.
  ///
  /// `job` has three decimal digits, each asking when it is not 0: hundreds, the inertia (inert[0]
  /// positive, inert[1] negative, inert[2] zero eigenvalues); tens, the determinant; ones, the
  /// inverse, whose upper triangle replaces the factor. `work` has n places.
  static void Dsidi(double * a, int lda, int n, const int * kpvt, double * det, int * inert,
                    double * work, int job);

  // ---- Symmetric indefinite matrices, packed ----
  //
  // As above, the upper triangle packed by columns in n(n+1)/2 places.

  /// Factors and estimates the reciprocal condition; see `Dsico`.
  static double Dspco(double * ap, int n, int * kpvt, double * z);

  /// Factors; see `Dsifa`.
  static int Dspfa(double * ap, int n, int * kpvt);

  /// Solves A x = b; x replaces b.
  static void Dspsl(const double * ap, int n, const int * kpvt, double * b);

  /// Determinant, inertia and inverse; see `Dsidi`.
  static void Dspdi(double * ap, int n, const int * kpvt, double * det, int * inert, double * work,
                    int job);

  // ---- Triangular matrices ----

  /// Estimates the reciprocal condition of the n x n triangular matrix t, which is the result.
  ///
  /// job 0: t is lower triangular; any other: upper. The other triangle is not read. `z`, work
  /// space of n, is as in `Dgeco`.
  static double Dtrco(const double * t, int ldt, int n, double * z, int job);

  /// Solves a triangular system; x replaces b.
  ///
  /// job 0: T x = b, T lower; 1: T x = b, T upper; 10: T-transpose x = b, T lower; 11: T-transpose
  /// x = b, T upper. Result: 0, or the position of the first zero on the diagonal, with b
  /// unchanged.
  static int Dtrsl(const double * t, int ldt, int n, double * b, int job);

  /// Determinant and inverse of a triangular matrix.
  ///
  /// `job` has three decimal digits: hundreds, the determinant in det; tens, the inverse, which
  /// replaces t; ones, 0 for lower and 1 for upper triangular. Result: 0, or the position of a zero
  /// on the diagonal at which the inversion stopped (0 when no inverse is asked for).
  static int Dtrdi(double * t, int ldt, int n, double * det, int job);

  // ---- Tridiagonal matrices ----

  /// Solves a general tridiagonal system, with partial pivoting; x replaces b.
  ///
  /// `c` has the subdiagonal in c[1] .. c[n - 1], `d` the diagonal, `e` the superdiagonal in e[0]
  /// .. e[n - 2]; each has n places, all of which are destroyed. Result: 0, or the position k of a
  /// pivot that is exactly 0, at which the elimination stopped.
  static int Dgtsl(int n, double * c, double * d, double * e, double * b);

  /// Solves a positive definite tridiagonal system, eliminating from both ends towards the middle;
  /// x replaces b. `d` is the diagonal, destroyed; e[0] .. e[n - 2] the off-diagonal, unchanged.
  static void Dptsl(int n, double * d, const double * e, double * b);

  // ---- Cholesky with pivoting, and updates of a factor ----

  /// The Cholesky decomposition of a positive (semi-)definite matrix of order p, with pivoting.
  ///
  /// Only the upper triangle of a is used; on return it holds R with R-transpose R =
  /// E-transpose A E. `work` has p places. With job 0 there is no pivoting and jpvt is not read.
  /// Otherwise jpvt[k] on entry places diagonal k: positive, it is moved to the front; negative, to
  /// the end; 0, it is free, and at each step the largest free one comes next. On return jpvt[k] is
  /// the number, from 1, of the diagonal that was moved to position k.
  /// Result: the order of the leading part that was factored; below p the next diagonal was not
  /// positive, and the rest of a is as the elimination left it.
  static int Dchdc(double * a, int lda, int p, double * work, int * jpvt, int job);

  /// Adds a row to a Cholesky or QR factor: R of order p becomes the factor of R-transpose R +
  /// x x-transpose.
  ///
  /// Together with it go nz right-hand sides: the columns of z (p x nz, leading dimension ldz),
  /// their new elements y, and the residual norms rho, of which negative ones are left alone. c and
  /// s, p places each, return the rotations. With nz = 0 z, y and rho are not used. BEWARE:
  /// diagonal elements of the new R may be negative.
  static void Dchud(double * r, int ldr, int p, const double * x, double * z, int ldz, int nz,
                    const double * y, double * rho, double * c, double * s);

  /// Takes a row out of a factor: R becomes the factor of R-transpose R - x x-transpose; the other
  /// arguments as in `Dchud`.
  ///
  /// Result: 0; -1 when the downdate is not possible, with nothing changed but s; 1 when only some
  /// rho could not be downdated, which are set to -1.
  static int Dchdd(double * r, int ldr, int p, const double * x, double * z, int ldz, int nz,
                   const double * y, double * rho, double * c, double * s);

  /// The factor after a permutation of the columns k .. l (from 1, 1 <= k < l <= p) of the factored
  /// matrix, with the columns of z (p x nz) turned alike.
  ///
  /// job 2: left circular shift, columns k + 1 .. l, k; any other job: right circular shift,
  /// columns l, k .. l - 1. c and s have p places; the first l - k return the rotations.
  static void Dchex(double * r, int ldr, int p, int k, int l, double * z, int ldz, int nz,
                    double * c, double * s, int job);

  // ---- QR ----

  /// Householder QR of the n x p matrix x, with column pivoting on demand.
  ///
  /// On return the upper triangle of x is R; below it and in qraux (p places) stand the Householder
  /// vectors. With job 0 there is no pivoting, and jpvt and `work` are not used. Otherwise jpvt[j]
  /// on entry places column j: positive, it is moved to the front; negative, to the end; 0, it is
  /// free, and at each step the free column with the largest reduced norm comes next. On return
  /// jpvt[j] is the number, from 1, of the column that was moved to position j. `work` has p
  /// places.
  static void Dqrdc(double * x, int ldx, int n, int p, double * qraux, int * jpvt, double * work,
                    int job);

  /// Applies the output of `Dqrdc` to y (n places); k <= min(n, p) leading columns Xk count.
  ///
  /// `job` has five decimal digits, each asking when it is not 0: Q y in qy (n places);
  /// Q-transpose y in qty (n); the least-squares solution of min |y - Xk b| in b (k); the residual
  /// y - Xk b in rsd (n); the fitted Xk b in xb (n). Asking for b, rsd or xb asks for qty as well.
  /// One array may stand for y, qty and one of b, rsd and xb; or one for y and qy, and another for
  /// qty and one of b, rsd and xb.
  /// Result: 0, or the position of a zero on the diagonal of R at which the solution for b stopped.
  static int Dqrsl(const double * x, int ldx, int n, int k, const double * qraux, const double * y,
                   double * qy, double * qty, double * b, double * rsd, double * xb, int job);

  // ---- Singular values ----

  /// The singular value decomposition of the n x p matrix x, X = U S V-transpose; x is destroyed.
  ///
  /// `s` (min(n + 1, p) places) returns the singular values, largest first, with a zero behind them
  /// when n < p; `e` has p places, of which the first min(n + 1, p) are zero on success. `job` has
  /// two decimal digits: tens 0, no left vectors; 1, all n in u (n x n); 2 or more, the first
  /// min(n, p) in u (n x min(n, p)). Ones 0, no right vectors; otherwise in v (p x p). u may be x
  /// when n <= p or the tens are 2 or more; v may be x when p <= n. `work` has n places.
  ///
  /// Result: 0; otherwise the singular values behind that position, s[info] on, and their vectors
  /// are right, and U-transpose X V is the bidiagonal matrix with s on its diagonal and e above it.
  static int Dsvdc(double * x, int ldx, int n, int p, double * s, double * e, double * u, int ldu,
                   double * v, int ldv, double * work, int job);
};

}  // namespace QVMath_940
