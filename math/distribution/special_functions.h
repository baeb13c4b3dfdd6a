/// The special functions that the distribution functions stand on.
///
/// Internal: procedures use the class `QVDistFun`. The conventions are the same throughout. A
/// failed function gives the missing value, never a NaN, and sets a status above 0 where it has
/// one: 1 for an argument out of its domain (a NaN is always one), 2 for a failure further in. The
/// status is set to 0 on entry. Everything is re-entrant.
///
/// The names are the ones under which these routines have long been known in statistical software.
#pragma once

#include <cmath>
#include <cstddef>
#include <limits>

namespace QVMath_940 {

// --- Bounds -------------------------------------------------------------------------------------

/// Below this exponent the exponential counts as exactly 0 in the incomplete gamma and beta
/// functions, the error function, the binomial family and the density of t. The other functions use
/// the lower limit of `QVPower`, -708.39; the two are not interchangeable.
inline constexpr double kLowestExponent = -708.0;

/// Above this exponent the exponential counts as overflow.
inline constexpr double kHighestExponent = 709.0;

/// The longest sum that a single call adds up before it takes a normal approximation instead. Only
/// parameters beyond some 1e11 reach it; there the approximations are the more accurate way anyway,
/// since the logarithm of the leading factor has lost its digits.
inline constexpr long kMostTerms = 5000000;

// --- Failure ------------------------------------------------------------------------------------

/// The missing value, and the exact test for it that counts as the test for failure.
inline constexpr double kFailed = std::numeric_limits<double>::lowest();

inline bool IsFailed(double value) {
  return value == kFailed;
}

/// Sets the status and gives the missing value.
inline double Fail(long & status, long code) {
  status = code;
  return kFailed;
}

/// The value, or the missing value in place of an infinity or a NaN.
inline double FiniteOrFailed(double value) {
  return std::isfinite(value) ? value : kFailed;
}

/// The same with status 2.
inline double FiniteOrFail(double value, long & status) {
  return std::isfinite(value) ? value : Fail(status, 2);
}

/// True when any of the arguments is a NaN.
template <typename... Doubles>
inline bool AnyNaN(Doubles... values) {
  return ((values != values) || ...);
}

// --- Polynomials --------------------------------------------------------------------------------

/// Horner's scheme, highest power first.
template <std::size_t count>
inline double Horner(const double (&coefficients)[count], double x) {
  double sum = coefficients[0];
#pragma GCC unroll 32
  for (std::size_t i = 1; i < count; ++i)
    sum = sum * x + coefficients[i];
  return sum;
}

// --- Error function -----------------------------------------------------------------------------

/// The error function. Any number x; |x| of 6.9 and more gives 1 with the sign of x.
double derf(const double & x);

/// The complement of the error function, with its relative accuracy kept in the upper tail: 0 only
/// beyond the range of `kLowestExponent`, that is from about x = 26.5 on.
double derfc(const double & x);

/// Standard normal cdf. The upper half goes through `derf` and the lower through `derfc`, so that a
/// tiny lower tail keeps its relative accuracy. A NaN gives the missing value.
double prbnrm(const double & z);

// --- Logarithms of factorials -------------------------------------------------------------------

/// ln Gamma(x). x > 0; the missing value for 0, a negative number, a NaN, and where the result
/// would overflow (x above about 2.5e305).
double dnlgam(const double & x);

/// ln of the binomial coefficient "n over k". 0 <= k <= n, whole numbers or not; otherwise status
/// 1. Status 2 where `dnlgam` overflows. Never below 0.
double dnlbnc(const double & n, const double & k, long & status);

// --- Incomplete gamma and beta functions --------------------------------------------------------

/// Regularised incomplete gamma function: the lower tail P(a, x) or the upper tail Q(a, x).
/// a > 0, otherwise status 1; x <= 0 counts as 0.
double gammad(const double & x, const double & a, const bool & lower, long & status);

/// Regularised incomplete beta function I_x(a, b). a > 0 and b > 0, otherwise status 1; x <= 0
/// gives 0 and 1 - x <= 0 gives 1. Status 2 where a + b leaves the range of `dnlgam`.
double cdfbet(const double & x, const double & a, const double & b, long & status);

/// The auxiliary function g of Peizer and Pratt's approximation to the beta distribution,
/// (1 - x*x + 2x ln x) / (1 - x)^2: 1 at 0, 0 at 1, -1 where x*x would overflow, the missing value
/// below 0.
double cbtaux(const double & x);

// --- Distributions whose core is shared ---------------------------------------------------------

/// Exponential cdf. rate > 0, otherwise status 1; 0 for x <= 0.
double cdfexp(const double & x, const double & rate, long & status);

/// Student t cdf. df > 0, otherwise status 1; above 1e8 it is the normal cdf.
double zelvcdft(const double & x, const double & df, long & status);

/// F cdf. df1 > 0 and df2 > 0, otherwise status 1; 0 for x <= 0.
double zelvcdff(const double & x, const double & df1, const double & df2, long & status);

// --- Quantiles ----------------------------------------------------------------------------------

/// Standard normal quantile. 0 < p < 1, otherwise the missing value.
double probit(const double & p);

/// Beta quantile. BEWARE: its failure value is -1, NOT the missing value. p = 0 gives 0 and p = 1
/// gives 1 whatever the shapes; otherwise a > 0, b > 0 and 0 < p < 1, or -1.
///
/// `acu` bounds the square of a step that counts as the last, `delta` the distance from 0 and 1 and
/// the smallest step: the absolute error of the quantile is some times delta, and no quantile
/// within delta of 0 or 1 is told from delta and 1 - delta.
double betinv(const double & p, const double & a, const double & b, const double & acu,
              const double & delta);

/// Chi-square quantile. 0 <= p < 1 and df > 0, otherwise status 1; 0 for p = 0. Status 2 where the
/// start value is beyond exp(141.8) or no method settles.
double zelvidfchi(const double & p, const double & df, long & status);

/// Chi-square quantile by bisection between half of `start` and twice of it (four times where the
/// distribution asks for it). start > 0, otherwise status 1; status 2 when the quantile lies
/// outside. Relative error 1e-8.
double idfchb(const double & p, const double & df, const double & start, long & status);

/// Student t quantile. 0 < p < 1 and df > 0, otherwise status 1; normal from df = 1e8 on. Status 2
/// where `betinv` fails or the quantile overflows. `acu` and `delta` are those of `betinv`.
double zelvidft(const double & p, const double & df, long & status, const double & acu,
                const double & delta);

/// F quantile. 0 <= p < 1, df1 > 0 and df2 > 0, otherwise status 1; 0 for p = 0. Status 2 where
/// `betinv` fails or gives 1.
double zelvidff(const double & p, const double & df1, const double & df2, long & status);

// --- Non-central functions ----------------------------------------------------------------------

/// Standard deviations below the mean of the Poisson weights at which their sums start.
inline constexpr double kPoissonStart = 7.0344838253011;

/// Rounds after which a sum with Poisson weights counts as failed.
inline constexpr int kMostPoissonRounds = 60000;

/// Lower limit of the exponents in the non-central functions.
inline constexpr double kLowestNonCentralExponent = -708.39;

/// Non-central beta cdf with non-centrality nc, to the absolute error tol. a > 0, b > 0 and nc >=
/// 0, otherwise status 1; x <= 0 gives 0 and x >= 1 gives 1. Status 2 where the central function
/// fails or 60000 rounds are not enough (nc above some 3e7).
double ncdbet(const double & x, const double & a, const double & b, const double & nc,
              long & status, double tol);

}  // namespace QVMath_940
