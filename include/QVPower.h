/// Guarded exponentials and powers: results that cannot overflow silently.
///
/// Where the standard functions give an infinity, a NaN or a 0 without a word, these give a number
/// that can be calculated with and a status that tells what happened.
///
///     double value = 0.0;
///     if (QVPower::Power(-8.0, 1.0 / 3.0, value) == QVPower::PowerSuccess) ...  // -2
///
/// Overflow and undefined results are the missing value (`QVMV`), underflow is 0. The exponential
/// is taken for exponents from -708.39 to 709.0 only. Whether a double is "an integer" or "even" is
/// asked with an upper bound, the largest `int`, but without a lower one.
///
/// Thread-safe: there is no state.
#pragma once

#include "QVExport.h"

namespace QVMath_940 {

class QVCOMMON_API QVPower {
 public:
  /// What became of an `Exponent` or a `Power`.
  enum PowerStatus : int {
    PowerSuccess = 0,
    PowerUnderflow = 1,         ///< the result is 0
    PowerOverflow = 2,          ///< the result is the missing value
    PowerNegativeOverflow = 3,  ///< overflow of an odd power of a negative base: missing
    PowerUndefined = 4,         ///< no real result, or a NaN argument: missing
    PowerNegativeToZero = 5,    ///< a negative base to the power 0: 1
    PowerZeroToNegative = 6,    ///< 0 to a negative power: missing
    PowerZeroToZero = 7         ///< 0 to the power 0: 1
  };

  /// The largest exponent of the exponential, 709.0.
  static double MaxExp();

  /// The smallest exponent of the exponential, -708.39.
  static double MinExp();

  /// x > 709.0. False for a NaN.
  static bool ExpOverflow(double x);

  /// x < -708.39. False for a NaN.
  static bool ExpUnderflow(double x);

  /// The largest `int`, 2147483647.
  static int MaxInt();

  /// The distance from 1 to the next double, 2.220446049250313e-16.
  static double MEpsilon();

  /// True for a whole number up to `MaxInt()`; false for a NaN. Beware: there is no lower bound,
  /// and minus infinity counts as whole.
  static bool IsInteger(double x);

  /// True when x is at most `MaxInt()` and x / 2 is whole; false for a NaN.
  static bool IsEvenInteger(double x);

  /// True when x is at most `MaxInt()` and x / 2 + 0.5 is whole; false for a NaN. Beware: below
  /// -2^53, where adding 0.5 changes nothing, even numbers count as odd as well.
  static bool IsOddInteger(double x);

  /// True when a and b agree to k machine epsilons of the larger of them. 0 agrees with 0 alone;
  /// opposite signs never agree, nor do a NaN or an infinity with anything.
  static bool AlmostEqual(double a, double b, double k);

  /// True when 1 / x is an even integer to k machine epsilons. False for 0 and where 1 / x is above
  /// `MaxInt()`.
  static bool IsOneOverEvenInteger(double x, double k);

  /// True when 1 / x is an odd integer to k machine epsilons. False as above.
  static bool IsOneOverOddInteger(double x, double k);

  /// e to the power x in `out`: 0 with PowerUnderflow below -708.39, the missing value with
  /// PowerOverflow above 709.0. A NaN gives the missing value with PowerUndefined.
  static PowerStatus Exponent(double x, double & out);

  /// a to the power b in `out`, through exp(b ln|a|).
  ///
  ///     a = 0   b = 0: 1, PowerZeroToZero. b > 0: 0. b < 0: missing, PowerZeroToNegative.
  ///     a < 0   b = 0: 1, PowerNegativeToZero. b even: as |a|. b odd, or the reciprocal of an odd
  ///             integer: the negative of |a|'s power; -0.0 with PowerUnderflow; missing with
  ///             PowerNegativeOverflow for b > 0 and PowerOverflow for b < 0. Any other b: missing,
  ///             PowerUndefined.
  ///     a > 0   b = 0: 1. Otherwise the power; 0 with PowerUnderflow, missing with PowerOverflow.
  ///
  /// Where a NaN is an argument or b ln|a| is one (1 to an infinite power): missing,
  /// PowerUndefined.
  static PowerStatus Power(double a, double b, double & out);

  /// The product a b through logarithms: 0 when either is 0; a 0 with the product's sign on
  /// underflow; the missing value on overflow (of either sign) and for a NaN.
  static double Multiply(double a, double b);
};

}  // namespace QVMath_940
