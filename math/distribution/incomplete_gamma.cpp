/// The regularised incomplete gamma function.
///
/// B. L. Shea, "Algorithm AS 239: Chi-squared and Incomplete Gamma Integral", Applied Statistics 37
/// (1988), 466-473, with tolerance 1e-14 and with the approximations of D. B. Peizer and J. W.
/// Pratt (J. Amer. Statist. Assoc. 63, 1968, 1416-1456) and of E. B. Wilson and M. M. Hilferty
/// (1931) where the sums would not end.

#include <algorithm>
#include <cmath>

#include "math/distribution/special_functions.h"

namespace QVMath_940 {

namespace {

constexpr double kTolerance = 1e-14;

/// Pearson's series for the lower tail: true with the logarithm of the tail, false when the
/// approximations have to stand in.
bool SumSeries(double x, double a, double & logTail) {
  constexpr double kMostEstimatedTerms = 2147483647.0;
  constexpr double kSurelyShort = 0.999999;  // the estimate is far below the limit up to here

  const double ratio = x / (a + 1.0);
  if (ratio > kSurelyShort) {
    const double logRatio = std::log10(ratio);
    if (logRatio == 0.0) return false;
    double terms = std::log10(kTolerance) / logRatio;
    if (terms > 0.0) {
      const double root = 2.0 * std::sqrt(terms) + 10.0;
      if (root * root >= kMostEstimatedTerms) return false;
    }
  }
  const double logGamma = dnlgam(a + 1.0);
  if (IsFailed(logGamma)) return false;
  const double factor = a * std::log(x) - (x + logGamma);

  // The sum lies between 1 and kMostTerms + 1, so that a factor out of these bounds decides alone.
  constexpr double kLargestLogSum = 16.0;
  if (factor > 0.0) return false;
  if (factor < kLowestExponent - kLargestLogSum) {
    logTail = factor;
    return true;
  }

  double denominator = a;
  double term = 1.0;
  double sum = 1.0;
  long left = kMostTerms;
  do {
    if (left-- == 0) return false;
    denominator += 1.0;
    term = term * x / denominator;
    sum += term;
  } while (!(term < kTolerance));
  logTail = factor + std::log(sum);
  return !(logTail > 0.0);
}

/// The continued fraction for the upper tail by its four-term recurrence; the result as above.
bool SumContinuedFraction(double x, double a, double & logTail) {
  constexpr double kRescaleLimit = 1.34e154;

  const double logX = std::log(x);
  const double logGamma = dnlgam(a);
  if (IsFailed(logGamma) || 4.0 * logX >= kHighestExponent) return false;
  const double factor = a * logX - (x + logGamma);

  // The fraction lies between 1 / (x + 1) and 1, and x is below 1e77 here.
  constexpr double kLargestLogReciprocal = 180.0;
  if (factor > kLargestLogReciprocal) return false;
  if (factor < kLowestExponent - 1.0) {
    logTail = factor;
    return true;
  }

  double shape = 1.0 - a;
  double b = shape + x + 1.0;
  double term = 0.0;
  double pn1 = 1.0;
  double pn2 = x;
  double pn3 = x + 1.0;
  double pn4 = x * b;
  double fraction = pn3 / pn4;
  for (long left = kMostTerms; left > 0; --left) {
    shape += 1.0;
    b += 2.0;
    term += 1.0;
    const double an = shape * term;
    const double pn5 = b * pn3 - an * pn1;
    const double pn6 = b * pn4 - an * pn2;
    if (std::fabs(pn6) > 0.0) {
      const double rn = pn5 / pn6;
      if (std::fabs(fraction - rn) <= std::min(kTolerance, kTolerance * rn)) {
        logTail = factor + std::log(rn);
        return !(logTail > 0.0);
      }
      fraction = rn;
    }
    pn1 = pn3;
    pn2 = pn4;
    pn3 = pn5;
    pn4 = pn6;
    if (std::fabs(pn5) >= kRescaleLimit) {
      pn1 /= kRescaleLimit;
      pn2 /= kRescaleLimit;
      pn3 /= kRescaleLimit;
      pn4 /= kRescaleLimit;
    }
  }
  return false;
}

/// Peizer and Pratt's normal approximation to the upper tail.
double PeizerPrattUpperTail(double x, double a) {
  const double v = (a - 0.5) / x;
  double h = 0.0;
  if (v == 0.0) {
    h = std::sqrt(2.0 / x);
  } else if (v == 1.0) {
    h = std::sqrt(1.0 / x);
  } else {
    // Next to v = 1 rounding may push w, whose least value is 0, below it.
    const double w = std::max(v * std::log(v) + 1.0 - v, 0.0);
    h = std::sqrt(2.0 * w / x) / std::fabs(1.0 - v);
  }
  return prbnrm((0.022 / a + a - x - 1.0 / 3.0) * h);
}

/// Wilson and Hilferty's cube-root approximation.
double WilsonHilferty(double x, double a, bool lower) {
  double z = 0.0;
  if (x == a) {
    z = 1.0 / (3.0 * std::sqrt(a));
  } else {
    const double c = std::log(x / a) / 3.0;
    const double root = c < kLowestExponent ? 0.0 : std::exp(c);
    z = (1.0 / (9.0 * a) + root - 1.0) * 3.0 * std::sqrt(a);
  }
  return prbnrm(lower ? z : -z);
}

}  // namespace

double gammad(const double & x, const double & a, const bool & lower, long & status) {
  status = 0;
  if (AnyNaN(x, a) || a <= 0.0) return Fail(status, 1);
  if (x <= 0.0) return lower ? 0.0 : 1.0;
  if (a == 1.0) {
    const double upperTail = -x < kLowestExponent ? 0.0 : std::exp(-x);
    return lower ? 1.0 - upperTail : upperTail;
  }
  if (std::isinf(x) || std::isinf(a)) {  // the limits, where there is one
    if (std::isinf(x) && std::isinf(a)) return Fail(status, 1);
    return std::isinf(x) == lower ? 1.0 : 0.0;
  }

  const bool series = x <= 1.0 || a >= x;
  double logTail = 0.0;
  if (series ? SumSeries(x, a, logTail) : SumContinuedFraction(x, a, logTail)) {
    const double tail = logTail < kLowestExponent ? 0.0 : std::exp(logTail);
    return series == lower ? tail : 1.0 - tail;
  }
  const double approximation =
      !lower && a >= 0.5 ? PeizerPrattUpperTail(x, a) : WilsonHilferty(x, a, lower);
  if (IsFailed(approximation)) status = 2;
  return approximation;
}

}  // namespace QVMath_940
