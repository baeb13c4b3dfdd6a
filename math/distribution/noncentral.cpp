/// Cumulative functions of the non-central chi-square, beta, F and t distributions.
///
/// All are central functions weighted by the terms of a Poisson distribution, summed upward from
/// `kPoissonStart` standard deviations below its mean; what lies below is less than 1e-12.

#include <algorithm>
#include <cmath>

#include "QVDistFun.h"
#include "math/distribution/special_functions.h"

namespace QVMath_940 {

namespace {

double Clamp(double value) {
  return value != value ? kFailed : std::min(std::max(value, 0.0), 1.0);
}

/// The first index of a sum with Poisson weights of mean lam.
double FirstIndex(double lam) {
  return std::floor(std::max(lam - kPoissonStart * std::sqrt(lam), 0.0));
}

/// ln of the Poisson weight at j.
double LogWeight(double lam, double j) {
  return j > 0.0 ? -lam + j * std::log(lam) - dnlgam(j + 1.0) : -lam;
}

/// exp(e), 0 below the lower limit, the missing value above the upper one and for a NaN.
double GuardedExp(double e) {
  if (!(e <= kHighestExponent)) return kFailed;
  return e < kLowestNonCentralExponent ? 0.0 : std::exp(e);
}

}  // namespace

double QVDistFun::NonCentralCdfChi(double x, double df, double nc) {
  constexpr double kBound = 1e-12;

  if (AnyNaN(x) || !(df > 0.0 && nc >= 0.0)) return kFailed;
  if (x <= 0.0) return 0.0;
  if (std::isinf(nc) || std::isinf(df)) return kFailed;
  if (std::isinf(x)) return 1.0;
  const double u = x / 2.0;
  const double lam = nc / 2.0;
  double j = FirstIndex(lam);
  const double h = df / 2.0;
  const double a = h + j;
  long status = 0;
  const double central = gammad(u, a, true, status);
  if (status != 0) return kFailed;
  if (central == 0.0) return 0.0;
  double term = GuardedExp(a * std::log(u) - dnlgam(a + 1.0) - u);
  if (IsFailed(term)) return kFailed;
  double next = central - term;
  const double w = LogWeight(lam, j);
  if (!(w <= kHighestExponent)) return kFailed;
  if (w < kLowestNonCentralExponent) return 0.0;
  double weight = std::exp(w);
  double rest = 1.0 - weight;
  double sum = weight * central;
  for (int round = 0; round < kMostPoissonRounds; ++round) {
    j += 1.0;
    term *= u / (j + h);
    weight *= lam / j;
    const double afterNext = next - term;
    rest -= weight;
    sum += weight * next;
    next = afterNext;
    if (rest * next <= kBound) return Clamp(sum);
  }
  return kFailed;
}

// R. V. Lenth, Computing noncentral beta probabilities, Appl. Statist. 36 (1987) 241-244, algorithm
// AS 226; H. Frick, Appl. Statist. 39 (1990) 311-312, remark AS R84, for the start.
double ncdbet(const double & x, const double & a, const double & b, const double & nc,
              long & status, double tol) {
  status = 0;
  if (AnyNaN(x, tol) || !(a > 0.0 && b > 0.0 && nc >= 0.0)) return Fail(status, 1);
  if (x <= 0.0) return 0.0;
  if (x >= 1.0) return 1.0;
  if (nc == 0.0) {
    const double result = cdfbet(x, a, b, status);
    return status != 0 ? Fail(status, 2) : result;
  }
  if (std::isinf(nc)) return Fail(status, 2);
  const double c = nc / 2.0;
  double j = FirstIndex(c);
  const double a0 = a + j;
  const double central = cdfbet(x, a0, b, status);
  if (status != 0) return Fail(status, 2);
  const double e = b * std::log(1.0 - x) + a0 * std::log(x) - dnlgam(a0) - dnlgam(b) +
                   dnlgam(a0 + b) - std::log(a0);
  if (e != e) return Fail(status, 2);
  if (e > kHighestExponent) return 0.0;
  double term = 0.0;
  if (e >= kLowestNonCentralExponent)
    term = std::exp(e);
  else if (central == 0.0)
    return 0.0;
  double next = central - term;
  const double w = LogWeight(c, a0 > a ? j : 0.0);
  if (!(w <= kHighestExponent) || w < kLowestNonCentralExponent) return 0.0;
  double weight = std::exp(w);
  double rest = 1.0 - weight;
  double sum = weight * central;
  if (tol >= 1.0) return Clamp(sum);
  for (int round = 0; round < kMostPoissonRounds; ++round) {
    j += 1.0;
    term *= (a + b + j - 1.0) * x / (a + j);
    weight *= c / j;
    const double afterNext = next - term;
    rest -= weight;
    sum += weight * next;
    next = afterNext;
    if (rest * next <= tol) return Clamp(sum);
  }
  return Fail(status, 2);
}

double QVDistFun::NonCentralCdfF(double x, double df1, double df2, double nc, double tol) {
  if (AnyNaN(x, tol) || !(df1 > 0.0 && df2 > 0.0 && nc >= 0.0)) return kFailed;
  if (x <= 0.0) return 0.0;
  const double scaled = x * df1;
  if (std::isinf(scaled)) return std::isinf(df2) ? kFailed : 1.0;
  long status = 0;
  const double result = ncdbet(scaled / (scaled + df2), df1 / 2.0, df2 / 2.0, nc, status, tol);
  return status == 0 ? result : kFailed;
}

// R. V. Lenth, Cumulative distribution function of the non-central t distribution, Appl. Statist.
// 38 (1989) 185-189, algorithm AS 243, with another start.
double QVDistFun::NonCentralCdfT(double t, double df, double delta, double tol) {
  constexpr double kSqrtLargest = 1.3407807929942596e154;
  constexpr double kLn2 = 0.6931471805599453;
  constexpr double kHalfLn2 = 0.34657359027997264;

  if (AnyNaN(t, delta, tol) || !(df > 0.0)) return kFailed;
  if (delta == 0.0) {
    long status = 0;
    const double result = zelvcdft(t, df, status);
    return status == 0 ? result : kFailed;
  }
  if (t == 0.0) return prbnrm(-delta);
  if (std::fabs(t) >= kSqrtLargest) return t >= delta ? 1.0 : 0.0;
  const double square = t * t;
  const double tt = delta >= 0.0 ? t : -t;
  const double x = square / (square + df);
  if (!(x > 0.0)) return kFailed;
  const double logX = std::log(x);
  const double ly = std::log(df) - std::log(square + df);
  const double lam = delta * delta / 2.0;
  if (std::isinf(lam)) return kFailed;
  double j = FirstIndex(lam);
  const double b = df / 2.0;
  double a = j + 0.5;

  const double l = (j > 0.0 ? std::log(lam) * j : 0.0) - (lam + kLn2);
  double p = GuardedExp(l - dnlgam(j + 1.0));
  double q = GuardedExp(std::log(std::fabs(delta)) + l - kHalfLn2 - dnlgam(j + 1.5));
  if (IsFailed(p) || IsFailed(q)) return kFailed;
  if (tt < 0.0) q = -q;
  double rest = 0.5 - p;

  long status = 0;
  double b1 = cdfbet(x, a, b, status);
  if (status != 0) return kFailed;
  double b2 = cdfbet(x, a + 0.5, b, status);
  if (status != 0) return kFailed;
  const double both = b * ly - dnlgam(b);
  double s1 = GuardedExp(dnlgam(a + b) + both - dnlgam(a + 1.0) + a * logX);
  double s2 = GuardedExp(dnlgam(a + 0.5 + b) + both - dnlgam(a + 1.5) + (a + 0.5) * logX);
  if (IsFailed(s1) || IsFailed(s2)) return kFailed;

  double sum = b2 * q + b1 * p;
  b1 -= s1;
  b2 -= s2;
  int round = 0;
  double bound = 0.0;
  do {
    if (round++ == kMostPoissonRounds) return kFailed;
    a += 1.0;
    j += 1.0;
    s1 *= (a + b - 1.0) * x / a;
    s2 *= (a + b - 0.5) * x / (a + 0.5);
    p *= lam / j;
    q *= lam / (j + 0.5);
    rest -= p;
    sum += b2 * q + b1 * p;
    b1 -= s1;
    b2 -= s2;
    bound = 2.0 * rest * b1;
  } while (!(bound <= tol));
  const double atZero = prbnrm(-std::fabs(delta));
  double result = tt >= 0.0 ? sum + atZero : atZero - sum;
  if (delta < 0.0) result = 1.0 - result;
  return Clamp(result);
}

}  // namespace QVMath_940
