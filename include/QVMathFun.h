/// Small numeric helpers: loops over strided parts of vectors, sorted search, digamma and trigamma.
///
///     std::vector<double> t = {1, 2, 3, 4, 5, 6};          // packed lower triangle of 3 rows
///     QVMathFun::DDot(2, t, 3, 1, t, 1, 1);                // (4, 5) . (2, 3) = 23
///     QVMathFun::IIScal(2, 10.0, t, 2, 2);                 // column 1 from (1, 1): 30 and 50
///
/// Conventions. `n` counts elements, an offset `off` is the index of the first one, a stride `inc`
/// the step from each to the next. BEWARE that offset and stride do not come in the same order
/// everywhere. n below 1 does nothing, with the result 0. Sums run in index order, every product
/// and sum rounded by itself. A walk that would leave its vector does nothing either, with the
/// result 0; `DASum` alone skips just the terms outside. No argument tests for the missing value or
/// for NaN, unless told.
///
/// The routines whose names begin with `II` walk down a column of a packed lower triangle, where
/// element (i, j), j <= i, stands at i(i+1)/2 + j: their stride grows by 1 at each step, and the
/// argument `inc` is the first one. From (i, j) down column j the first stride is i + 1.
///
/// Thread-safe: there is no state.
#pragma once

#include <vector>

#include "QVExport.h"

namespace QVMath_940 {

class QVCOMMON_API QVMathFun {
 public:
  // ---- Sorted search ----

  /// The place in lo .. hi at which x would be inserted into the ascending vector v; among places
  /// that are equal to x one is hit by bisection, and `after` chooses the place behind it.
  ///
  /// -2 for a negative lo, for hi past the last element, and for lo > hi. -1 when x lies outside:
  /// above v[hi], or equal to it with `after`; or, for lo > 0, below v[lo - 1], or equal to it
  /// without `after`. lo = hi gives lo. BEWARE: with several equal elements the place hit is not
  /// always the first or the last of them.
  static int BinSearch(const std::vector<double> & v, int lo, int hi, double x, bool after);

  /// The same on integers; x need not be whole.
  static int BinSearch(const std::vector<int> & v, int lo, int hi, double x, bool after);

  // ---- Vectors with a constant stride ----

  /// Sum of absolute values. BEWARE: the stride comes before the offset. A negative stride starts
  /// at off - (n - 1) inc, as in the level 1 BLAS, and ends at off. A stride of 0 counts one
  /// element n times. Terms outside the vector are skipped.
  static double DASum(int n, const std::vector<double> & v, int inc, int off);

  /// y = y + a x, in index order. A negative stride walks down from its offset. When x and y are
  /// one vector and the walks overlap, later steps see the earlier ones.
  static void Daxpy(int n, double a, const std::vector<double> & x, int offX, int incX,
                    std::vector<double> & y, int offY, int incY);

  /// Sum of the products x y. A negative stride walks down from its offset.
  static double DDot(int n, const std::vector<double> & x, int offX, int incX,
                     const std::vector<double> & y, int offY, int incY);

  /// Sets n elements to a. With n above 1 a stride below 1 does nothing.
  static void DLoad(int n, double a, std::vector<double> & v, int off, int inc);

  /// Euclidean norm, scaled by the largest element so far, so that it overflows or underflows only
  /// where the norm itself does. With n above 1 a stride below 1 gives 0.
  static double DNrm2(int n, const std::vector<double> & v, int off, int inc);

  /// v = a v. With n above 1 a stride below 1 does nothing.
  static void DScal(int n, double a, std::vector<double> & v, int off, int inc);

  /// Plain sum from the first element on. A stride of 0 gives 0.
  static double DSum(int n, const std::vector<double> & v, int inc);

  // ---- Columns of packed triangles: the stride grows by 1 at each step ----

  /// y = y + a x; `incX` and `incY` are the first strides.
  static void IIAxpy(int n, double a, const std::vector<double> & x, int offX, int incX,
                     std::vector<double> & y, int offY, int incY);

  /// Sum of the products x y; `incX` and `incY` are the first strides.
  static double IIDot(int n, const std::vector<double> & x, int offX, int incX,
                      const std::vector<double> & y, int offY, int incY);

  /// Sets n elements to a; `inc` is the first stride.
  static void IIInit(int n, double a, std::vector<double> & v, int off, int inc);

  /// v = a v; `inc` is the first stride.
  static void IIScal(int n, double a, std::vector<double> & v, int off, int inc);

  // ---- Packed triangles ----

  /// Replaces a packed lower triangle L of n rows, in place, by the lower triangle of L-transpose
  /// L: element (i, j) is the sum over k >= i of L(k, i) L(k, j). Does nothing when t holds fewer
  /// than n(n+1)/2 elements.
  static void LTGltl(int n, std::vector<double> & t);

  /// Dot product of row `row` of a packed symmetric matrix of n rows, read as the row up to the
  /// diagonal and then the column below it, with d[0], d[inc], d[2 inc] ... The missing value for
  /// n below 1, a row outside 0 .. n - 1, or a vector that is too short.
  static double RVD(const std::vector<double> & t, int n, int row, const std::vector<double> & d,
                    int inc);

  /// The quadratic form v-transpose S v with a packed symmetric matrix S of n rows; 0 when a vector
  /// is too short.
  static double VSV(const std::vector<double> & v, int n, const std::vector<double> & s);

  // ---- Whole vectors ----

  /// The two largest elements, equal ones counted apart; NaN elements are passed over. What does
  /// not exist is the missing value: second with one element, both with none.
  static void FindTwoLargest(const std::vector<double> & v, double & first, double & second);

  /// The same over the elements that are not the missing value.
  static void FindTwoLargestNonMiss(const std::vector<double> & v, double & first, double & second);

  /// Sets v[from] .. v[to] to 0, `to` INCLUDED; places outside the vector are left out.
  static void LRZero(std::vector<double> & v, int from, int to);

  /// The largest |a_i - b_i| / (|b_i| + e) over the shorter length, with e = |eps|, or 1e-6 for an
  /// eps of 0. Pairs without an order (NaN) are passed over; 0 for empty vectors.
  static double VMaxRelDiff(const std::vector<double> & a, const std::vector<double> & b,
                            double eps);

  /// The sum of |a_i - b_i| over the shorter length.
  static double VNrm1Diff(const std::vector<double> & a, const std::vector<double> & b);

  // ---- Single numbers ----

  /// True for every finite number, THE MISSING VALUE INCLUDED; false for NaN and the infinities.
  static bool IsValidDouble(double x);

  /// True when x is negligible beside `scale`: scale > 0 and |x| < scale * 2.220446049250313e-16.
  static bool QLReps(double x, double scale);

  /// x, unless |x| < floor: then floor, or -floor for a negative x.
  static double ReplaceIfSmall(double x, double floor);

  /// Digamma, the logarithmic derivative of the gamma function.
  ///
  /// Domain: x > 1e-16; the missing value for any other x and for NaN.
  /// Largest error (digamma_test.cpp asserts it): relative 2e-10 below 1e-5, where two terms stand
  /// alone; from there on 4e-15 max(1, |psi(x)|) and 8.9e-16 trigamma(x), the price of carrying a
  /// small x up to x + 10 and back, which is 9e-12 at x = 0.01.
  /// Method: -0.5772156649015329 - 1/x below 1e-5; otherwise ten steps of the recurrence
  /// psi(x) = psi(x + 1) - 1/x and six terms of the asymptotic series at x + 10 (Abramowitz and
  /// Stegun, 1964, 6.3.5 and 6.3.18).
  static double Digamma(double x);

  /// Trigamma, the derivative of `Digamma`.
  ///
  /// Domain: x > 1e-16; the missing value for any other x and for NaN.
  /// Largest relative error (digamma_test.cpp asserts it): 2e-8 below 1e-4, where 1/x^2 stands
  /// alone; from there on 4e-15 + 1.8e-15 / min(x, 1).
  /// Method: the recurrence to x + 10 and the asymptotic series there (Abramowitz and Stegun, 1964,
  /// 6.4.6 and 6.4.12).
  static double Trigamma(double x);
};

}  // namespace QVMath_940
