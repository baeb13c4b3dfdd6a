/// The hypergeometric distribution.
///
/// After R. Lund, "Algorithm AS 152: Cumulative Hypergeometric Probabilities", Applied Statistics
/// 29 (1980), 221-223, in the form of B. L. Shea, "Remark AS R77", Applied Statistics 38 (1989),
/// 199-204.

#include <algorithm>
#include <cmath>

#include "QVDistFun.h"
#include "QVPower.h"
#include "math/distribution/special_functions.h"

namespace QVMath_940 {

namespace {

constexpr double kLargestInt = 2147483647.0;
constexpr double kScale = 1e35;  // keeps the products of a tail away from underflow

bool IsInt(double value) {
  return value >= -kLargestInt - 1.0 && value <= kLargestInt && std::trunc(value) == value;
}

/// The counts of AS 152, each one above the number it counts, after the exchanges that shorten the
/// sums: P(X <= l1 - 1) when `direct` holds, otherwise the complement.
struct Counts {
  double m;
  double k1;
  double n1;
  double l1;
  bool direct;
};

Counts ShortestSums(double l, double population, double k, double n) {
  const bool fewMarked = std::min(k, population - k) <= std::min(n, population - n);
  Counts counts{population + 1.0, (fewMarked ? k : n) + 1.0, (fewMarked ? n : k) + 1.0, l + 1.0,
                true};
  if (counts.m - counts.k1 < counts.k1 - 1.0) {
    counts.direct = false;
    counts.l1 = counts.n1 - counts.l1 + 1.0;
    counts.k1 = counts.m - counts.k1 + 1.0;
  }
  return counts;
}

/// P(X = l1 - 1) by a product of ratios.
double PointProbability(const Counts & counts) {
  const auto [m, k1, n1, l1, direct] = counts;
  double probability = 1.0;
  for (double i = 1.0; i <= l1 - 1.0; i += 1.0)
    probability = probability * (k1 - i) * (n1 - i) / ((m - i) * (l1 - i));
  if (l1 != k1) {
    const double j = m - n1 + l1;
    for (double i = l1; i <= k1 - 1.0; i += 1.0)
      probability = probability * (j - i) / (m - i);
  }
  return probability;
}

/// The shorter tail next to the point probability, times `kScale`. Turns `direct` round when it
/// sums the terms above l.
double ScaledTail(Counts & counts, double population, double probability) {
  const auto [m, k1, n1, l1, direct] = counts;
  const double kl = k1 - l1;
  const double nl = n1 - l1;
  const double mnkl = m - n1 - kl + 1.0;
  double term = probability * kScale;
  double tail = 0.0;
  if ((n1 - 1.0) * (k1 - 1.0) / population > l1 - 1.0) {
    for (double i = 1.0; i <= l1 - 1.0; i += 1.0) {
      term = term * (l1 - i) * (mnkl - i) / ((nl + i) * (kl + i));
      if (!(term > 0.0)) break;
      tail += term;
    }
  } else {
    counts.direct = !direct;
    for (double j = 0.0; j <= kl - 1.0; j += 1.0) {
      term = term * (nl - j) * (kl - j) / ((l1 + j) * (mnkl + j));
      if (!(term > 0.0)) break;
      tail += term;
    }
  }
  return tail;
}

}  // namespace

double QVDistFun::CDFHyper(double x, double population, double k, double n, int & status) {
  constexpr double kLargestExact = 1000.0;
  constexpr double kLargestSmall = 10000.0;
  constexpr double kNormalFrom = 16.0;

  status = 0;
  if (AnyNaN(x) || !IsInt(population) || !IsInt(k) || !IsInt(n) || std::min(k, n) < 1.0 ||
      std::max(k, n) > population) {
    status = 1;
    return kFailed;
  }
  const double l = std::trunc(x);
  if (l < std::max(k - population + n, 0.0)) return 0.0;
  if (l >= std::min(k, n)) return 1.0;

  const double r = n / (population - n);
  if (population > kLargestSmall &&
      std::min(k, population - k) > kNormalFrom * std::max(r, 1.0 / r)) {
    const double mean = k / population * n;
    const double variance =
        ((population - k) / (population - 1.0)) * ((population - n) / population) * mean;
    return prbnrm((l - mean + 0.5) / std::sqrt(variance));
  }

  // A population above 1000 that the normal approximation does not take gets no point probability:
  // its logarithm would have to reach the highest exponent, and it never exceeds 0.
  Counts counts = ShortestSums(l, population, k, n);
  const double probability = population > kLargestExact ? 0.0 : PointProbability(counts);
  if (probability == 0.0) {  // a step at the mode
    return l * (population + 2.0) > (k + 1.0) + n + k * n ? 1.0 : 0.0;
  }
  const double tail = ScaledTail(counts, population, probability) / kScale;
  return counts.direct ? probability + tail : 1.0 - tail;
}

double QVDistFun::PdfHyper(long x, long population, long n, long k) {
  if (n < 1 || n > population || k < 1 || k > population) return kFailed;
  if (x < std::max(n - population + k, 0L) || x > std::min(n, k)) return kFailed;
  const auto real = [](long value) { return static_cast<double>(value); };
  long status = 0;
  const double outside = dnlbnc(real(population - k), real(n - x), status);
  const double inside = dnlbnc(real(k), real(x), status);
  const double all = dnlbnc(real(population), real(n), status);
  if (IsFailed(outside) || IsFailed(inside) || IsFailed(all)) return kFailed;
  const double e = outside + inside - all;
  if (QVPower::ExpUnderflow(e)) return 0.0;
  return QVPower::ExpOverflow(e) ? kFailed : std::exp(e);
}

}  // namespace QVMath_940
