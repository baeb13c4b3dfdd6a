/// Level 1 BLAS on plain pointers, as a class of static functions.
///
///     double x[] = {3.0, 4.0};
///     Blas1::DNrm2(2, x, 1);                    // 5
///     Blas1::IDAMax(2, x, 1);                   // 2: positions count from 1
///
/// The published routines (Lawson, Hanson, Kincaid and Krogh, 1979, ACM Transactions on
/// Mathematical Software 5, 308-323, algorithm 539), in double precision and with the published
/// arguments. `n` counts elements; n below 1 does nothing, and a result is 0. Sums run in index
/// order, every product and sum rounded by itself.
///
/// Strides. The routines on two vectors take any stride: for a negative one the walk starts at the
/// far end, element (1 - n) inc, and a stride of 0 takes the same element n times. Those on one
/// vector (`DASum`, `DNrm2`, `DScal`, `IDAMax`) treat a stride below 1 as nothing to do.
///
/// A vector that is only read is a pointer to const; x and y may overlap where no routine says
/// otherwise, and then later steps see the earlier ones. Thread-safe: there is no state.
#pragma once

#include "QVExport.h"

namespace QVMath_940 {

class QVCOMMON_API Blas1 {
 public:
  /// The constants of the machine's double arithmetic, measured afresh at each call.
  ///
  /// Job 1 is the relative spacing e of numbers at 1: 1 + e/2 rounds to 1 (2.220446049250313e-16).
  /// Job 2 is a hundred times s/e, where s is the smallest power of sixteen that division by
  /// sixteen takes to zero (8.900295434028806e-306): small, with its digits well clear of
  /// underflow. Job 3 is its reciprocal (1.1235582092889475e+305). Any other job ends the process
  /// through `XErBla`.
  static double DMach(int job);

  /// Reports a fatal error of an argument on the standard output stream and ENDS THE PROCESS with
  /// exit code 1: the one place in the library that does so.
  ///
  /// `name` is the routine, `argument` the number of its illegal argument, counted from 1.
  [[noreturn]] static void XErBla(const char * name, int argument);

  /// Sum of the magnitudes of n elements.
  static double DASum(int n, const double * x, int incx);

  /// y = a x + y. Nothing is read or written when a is 0.
  static void Daxpy(int n, double a, const double * x, int incx, double * y, int incy);

  /// y = x.
  static void DCopy(int n, const double * x, int incx, double * y, int incy);

  /// The dot product of x and y.
  static double DDot(int n, const double * x, int incx, const double * y, int incy);

  /// The Euclidean norm, scaled by the largest element so far, so that it overflows or underflows
  /// only where the norm itself does.
  static double DNrm2(int n, const double * x, int incx);

  /// Turns the points (x, y): x becomes c x + s y, y becomes c y - s x. The vectors must not
  /// overlap.
  static void DRot(int n, double * x, int incx, double * y, int incy, double c, double s);

  /// Makes the rotation that takes (a, b) to (r, 0).
  ///
  /// On return a holds r, which has the sign of the larger of the two in magnitude (of b when they
  /// are equal), c = a / r and s = b / r of the old values (1 and 0 when both are 0), and b holds
  /// the number z from which the rotation can be rebuilt: 1 means c = 0, s = 1; |z| < 1 means s =
  /// z; |z| > 1 means c = 1 / z.
  static void DRotG(double * a, double * b, double * c, double * s);

  /// x = a x.
  static void DScal(int n, double a, double * x, int incx);

  /// Exchanges x and y.
  static void DSwap(int n, double * x, int incx, double * y, int incy);

  /// The position, COUNTED FROM 1, of the first element with the largest magnitude; 0 for n below 1
  /// or a stride below 1.
  static int IDAMax(int n, const double * x, int incx);

  /// True when a and b are the same character, the case of the letters A to Z aside.
  static bool LSame(char a, char b);

  /// |x|.
  static double D_Abs(double x);

  /// The larger of a and b.
  static double D_Max(double a, double b);

  /// The magnitude of a with the sign of b; a zero of either sign counts as positive.
  static double D_Sign(double a, double b);

  /// The larger of a and b.
  static int I_Max(int a, int b);

  /// The smaller of a and b.
  static int I_Min(int a, int b);
};

}  // namespace QVMath_940
