/// The binomial and the negative binomial distribution.

#include <algorithm>
#include <cmath>

#include "QVDistFun.h"
#include "math/distribution/special_functions.h"

namespace QVMath_940 {

namespace {

bool IsProbability(double p) {
  return p >= 0.0 && p <= 1.0;
}

/// Whole in the sense of the two densities. From 2^52 on, where x + 0.5 is rounded, odd numbers are
/// not.
bool IsWhole(double x) {
  return std::floor(x + 0.5) == x;
}

/// ln P(X = j) of the binomial distribution, j < n.
double LogTerm(double j, double n, double p, double q) {
  if (j == 0.0) return n * std::log(q);
  const double coefficient = dnlgam(n + 1.0) - dnlgam(j + 1.0) - dnlgam(n + 1.0 - j);
  if (p == 0.5) return coefficient + n * std::log(0.5);
  return coefficient + j * std::log(p) + (n - j) * std::log(q);
}

/// P(X <= k) summed outward from the term at j, which is the mode m or k below it, until the sum
/// stops growing; false when it grows for too long.
bool SumFromMode(double firstTerm, double k, double m, double n, double p, double q, double & sum) {
  const double j = std::min(k, m);
  long left = kMostTerms;
  sum = firstTerm;

  const double down = q / p;
  double term = firstTerm;
  for (double i = j - 1.0; i >= 0.0; i -= 1.0) {
    if (left-- == 0) return false;
    term = term * ((i + 1.0) / (n - i)) * down;
    const double next = sum + term;
    if (!(next > sum)) break;
    sum = next;
  }
  if (!(k > m)) return true;
  const double up = p / q;
  term = firstTerm;
  for (double i = m + 1.0; i <= k; i += 1.0) {
    if (left-- == 0) return false;
    term = term * ((n + 1.0 - i) / i) * up;
    const double next = sum + term;
    if (!(next > sum)) break;
    sum = next;
  }
  return true;
}

/// Peizer and Pratt's normal approximation (J. Amer. Statist. Assoc. 63, 1968, 1416-1456).
double PeizerPratt(double k, double n, double p, double q, long & status) {
  const double excess = k / n - p;
  const double d = 0.5 / n + excess + 1.0 - 1.0;  // the detour over 1 rounds d
  if (d == 0.0) return 0.5;
  const double g = d + p;
  const double w = (1.0 - g) * std::log((1.0 - g) / q) + g * std::log(g / p);
  if (w <= 0.0) return 0.5;
  const double v = 2.0 * w;
  const double h = ((q / (k + 1.0) - p / (n - k) + (0.5 - p) / (n + 1.0)) / (50.0 * n) +
                    (2.0 - p) / (3.0 * n) + excess) /
                   std::fabs(d);
  const double z = h * std::sqrt(v) * (n / std::sqrt(n + 1.0 / 6.0));
  const double result = prbnrm(z);
  if (IsFailed(result)) status = 2;
  return result;
}

}  // namespace

double QVDistFun::CdfBin(double x, double n, double p, long & status) {
  status = 0;
  if (!(std::floor(n) == n) || std::isinf(n)) return Fail(status, 3);
  if (AnyNaN(x) || n < 1.0 || !IsProbability(p)) return Fail(status, 1);
  const double k = std::floor(x);
  const double q = 1.0 - p;
  if (p == 0.0) return k < 0.0 ? 0.0 : 1.0;
  if (p == 1.0) return k < n ? 0.0 : 1.0;
  if (k < 0.0) return 0.0;
  if (k == 0.0) {
    const double e = n * std::log(q);
    return e < kLowestExponent ? 0.0 : std::exp(e);
  }
  if (k >= n) return 1.0;

  const double m = std::trunc(p * (n + 1.0));
  const double j = std::min(k, m);
  if (IsFailed(dnlgam(n + 1.0))) return Fail(status, 2);
  const double e = LogTerm(j, n, p, q);
  if (e >= 0.0) return 1.0;  // the sum starts at 1 or above
  double sum = 0.0;
  if (!(e < kLowestExponent) && SumFromMode(std::exp(e), k, m, n, p, q, sum))
    return std::min(sum, 1.0);
  return PeizerPratt(k, n, p, q, status);
}

double QVDistFun::PdfBin(double x, double n, double p, long & status) {
  status = 0;
  if (AnyNaN(x) || !(n >= 1.0) || !IsProbability(p)) return Fail(status, 1);
  if (!IsWhole(x) || x < 0.0 || x > n) return 0.0;
  if (p == 0.0) return x == 0.0 ? 1.0 : 0.0;
  if (p == 1.0) return x == n ? 1.0 : 0.0;
  if (x == n) return std::pow(p, n);
  if (x == 0.0) return std::pow(1.0 - p, n);
  const double coefficient = dnlbnc(n, x, status);
  if (IsFailed(coefficient)) return Fail(status, 2);
  const double e = coefficient + x * std::log(p) + (n - x) * std::log(1.0 - p);
  if (e < kLowestExponent) return 0.0;
  return e <= kHighestExponent ? std::exp(e) : Fail(status, 2);
}

double QVDistFun::PdfNegBin(double x, double r, double p, long & status) {
  status = 0;
  if (AnyNaN(x) || !(p > 0.0 && p <= 1.0) || !(r >= 0.0)) return Fail(status, 1);
  if (!IsWhole(x) || x < 0.0) return 0.0;
  if (p == 1.0) return x == 0.0 ? 1.0 : 0.0;
  if (x == 1.0 && r == 1.0) return (1.0 - p) * p;
  if (x == 1.0 && std::isinf(r)) return Fail(status, 2);
  if (x == 1.0) return std::pow(p, r) * (1.0 - p) * r;
  if (r == 1.0) return std::pow(1.0 - p, x) * p;
  if (x == 0.0) return std::pow(p, r);
  const double coefficient = dnlbnc(x + r - 1.0, x, status);
  if (IsFailed(coefficient)) return Fail(status, 2);
  const double e = coefficient + r * std::log(p) + x * std::log(1.0 - p);
  if (e < kLowestExponent) return 0.0;
  return e <= kHighestExponent ? std::exp(e) : Fail(status, 2);
}

}  // namespace QVMath_940
