/// Quantiles of the binomial distribution.

#include <algorithm>
#include <cmath>

#include "QVDistFun.h"
#include "math/distribution/special_functions.h"

namespace QVMath_940 {

namespace {

/// Binomial probabilities on the way from a start value: P(X = k) and P(X <= k).
struct Walk {
  double n;
  double q;
  double k;
  double term;
  double sum;
};

/// Down until the sum is at most p, or k is not above 0.
double WalkDown(Walk walk, double p, long & status) {
  for (long left = kMostTerms; left > 0; --left) {
    const double before = walk.sum;
    walk.sum -= walk.term;
    walk.k -= 1.0;
    if (walk.sum <= p || walk.k <= 0.0) return walk.k;
    const double ratio = ((1.0 - walk.q) / walk.q) * ((walk.k + 1.0) / (walk.n - walk.k));
    if (walk.sum == before && ratio <= 1.0) return 0.0;  // the terms do nothing any more
    walk.term *= ratio;
  }
  return Fail(status, 2);
}

/// Up until the next sum is above p, or k above n.
double WalkUp(Walk walk, double p, long & status) {
  for (long left = kMostTerms; left > 0; --left) {
    const double before = walk.sum;
    const double ratio = (walk.q / (1.0 - walk.q)) * ((walk.n - walk.k) / (walk.k + 1.0));
    walk.term *= ratio;
    walk.sum += walk.term;
    if (walk.sum > p || walk.k > walk.n) return walk.k;
    if (walk.sum == before && ratio <= 1.0) return walk.n + 1.0;  // nothing more comes
    walk.k += 1.0;
  }
  return Fail(status, 2);
}

}  // namespace

double QVDistFun::IdfBin(double p, double n, double q, long & status) {
  constexpr double kHit = 2.842170943040401e-14;  // 2^-45

  status = 0;
  if (!(std::floor(n) == n) || std::isinf(n)) return Fail(status, 1);
  if (n < 1.0 || !(q >= 0.0 && q <= 1.0) || !(p >= 0.0 && p <= 1.0)) return Fail(status, 2);
  if (p == 0.0) return q >= 1.0 ? n - 1.0 : -1.0;
  if (p == 1.0) return q > 0.0 ? n : 0.0;
  if (q == 1.0) return n - 1.0;

  const double start = std::floor(probit(p) * std::sqrt(n * q * (1.0 - q)) + n * q - 0.5);
  const double k = std::min(std::max(start, 0.0), n);
  const double sum = CdfBin(k, n, q, status);
  if (status != 0) return Fail(status, 2);
  if (std::fabs(sum - p) < kHit) return k;
  const double term = PdfBin(k, n, q, status);
  if (status != 0) return Fail(status, 2);
  const Walk walk{n, q, k, term, sum};
  return sum > p ? WalkDown(walk, p, status) : WalkUp(walk, p, status);
}

}  // namespace QVMath_940
