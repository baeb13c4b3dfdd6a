/// The regularised incomplete beta function.
///
/// A power series when a shape is at most 1, otherwise the continued fraction by its even-odd
/// recurrence, and the normal approximation of D. B. Peizer and J. W. Pratt (J. Amer. Statist.
/// Assoc. 63, 1968, 1416-1456) where the fraction does not settle.

#include <algorithm>
#include <cmath>
#include <utility>

#include "math/distribution/special_functions.h"

namespace QVMath_940 {

namespace {

constexpr double kEpsilon = std::numeric_limits<double>::epsilon();
constexpr int kMostRounds = 10000;

/// The problem being worked on: I_y(p, q) with c = 1 - y, which is the result itself when `direct`
/// holds and 1 less the result when it does not.
struct WorkingCopy {
  double y;
  double c;
  double p;
  double q;
  bool direct;

  /// The quick side of the continued fractions is the one with y below their pivot.
  void TurnToQuickSide(double a, double b) {
    if (y >= (p + 1.0) / (a + b + 2.0)) Swap();
  }

  void Swap() {
    std::swap(y, c);
    std::swap(p, q);
    direct = !direct;
  }
};

/// From here on the power series may take above 50 terms: its sum is found in another way.
constexpr double kLongSeries = 0.5;

/// True when 10001 terms of the power series surely do not end it: the last of them is at least
/// y^10001 (a + b) / (p + 10001), which is far above 1e-15 then.
bool IsEndlessSeries(double y, double a, double b) {
  return y >= 0.998 && a + b >= 0.01;
}

/// Sum over i of the rising products (a + b)_i / (p + 1)_i y^i; false when 10001 terms do not end
/// it.
bool SumPowerSeries(const WorkingCopy & work, double a, double b, double & sum) {
  constexpr double kSmallestTerm = 1e-15;
  double term = 1.0;
  sum = 1.0;
  for (int i = 0; i <= kMostRounds; ++i) {
    term = term * ((i + a + b) / (i + work.p + 1.0)) * work.y;
    sum += term;
    if (std::fabs(term) < kSmallestTerm) return true;
  }
  return false;
}

/// True when two consecutive values of the fraction agree to the tolerance.
bool HasSettled(double value, double previous, double tolerance) {
  const double size = std::fabs(value);
  const double previousSize = std::fabs(previous);
  if (value == 0.0 && previous == 0.0) return true;
  if (value == 0.0 || previous == 0.0 || (value < 0.0) != (previous < 0.0)) return false;
  return std::fabs(size - previousSize) / std::max(size, previousSize) <= tolerance;
}

/// The continued fraction; false when 10000 rounds do not settle it.
bool SumContinuedFraction(const WorkingCopy & work, double a, double b, double & sum) {
  const double p = work.p;
  const double q = work.q;
  const double y = work.y;
  const double tolerance = 10.0 * std::max(1.0, a + b) * kEpsilon;

  double am = 1.0;
  double bm = 1.0;
  double az = 1.0;
  double bz = 1.0 - ((a + b) / (p + 1.0)) * y;
  sum = 1.0 / bz;
  for (int round = 1; round <= kMostRounds; ++round) {
    const double m = round;
    const double twice = p + 2.0 * m;
    const double even = ((q - m) / (twice - 1.0)) * (m / twice) * y;
    const double odd = -((p + q + m) / (twice + 1.0)) * ((p + m) / twice) * y;
    const double ap = az + even * am;
    const double bp = bz + even * bm;
    const double app = ap + odd * az;
    const double bpp = bp + odd * bz;
    if (bpp == 0.0) {  // nothing to divide by: go on without a normalisation
      am = ap;
      bm = bp;
      az = app;
      bz = bpp;
      sum = az;
      continue;
    }
    am = ap / bpp;
    bm = bp / bpp;
    az = app / bpp;
    bz = 1.0;
    const double previous = sum;
    sum = az;
    if (HasSettled(az, previous, tolerance)) return true;
  }
  return false;
}

/// What the power series would add up to, when it would take long: a continued fraction taken to
/// all its digits (the series itself stops one to three digits short). `work` is turned to the side
/// on which the fraction is quick. False when it needs many rounds all the same.
///
/// The fraction is equation (9) of A. R. DiDonato and A. H. Morris, "Algorithm 708: Significant
/// Digit Computation of the Incomplete Beta Function Ratios", ACM Trans. Math. Software 18 (1992),
/// 360-373.
bool SumLongSeries(const WorkingCopy & work, double & sum) {
  constexpr double kFewRounds = 100.0;
  constexpr double kTolerance = 1e-15;
  constexpr double kRescaleLimit = 1e150;

  const auto [y, c, p, q, direct] = work;
  const double slope = 1.0 + c;
  double linear = p * c - q * y + 1.0;  // lambda + 1 + n (1 + c)
  double reciprocal = 1.0 / (p + 1.0);  // of p + 2n - 1
  double lastA = 0.0;
  double lastB = 1.0;
  double a = 1.0;
  double b = p * reciprocal * linear;
  double ratio = 1.0 / b;
  for (double n = 1.0; n <= kFewRounds; n += 1.0) {
    linear += slope;
    const double product = n * (q - n) * y * reciprocal;
    const double alpha = (p + (n - 1.0)) * (p + q + (n - 1.0)) * y * reciprocal * product;
    reciprocal = 1.0 / (p + 2.0 * n + 1.0);
    const double beta = n + product + (p + n) * reciprocal * linear;
    const double nextA = beta * a + alpha * lastA;
    const double nextB = beta * b + alpha * lastB;
    const double lastRatio = ratio;
    ratio = nextA / nextB;
    if (std::fabs(ratio - lastRatio) <= kTolerance * ratio) {
      sum = p * ratio;
      return true;
    }
    lastA = a;
    lastB = b;
    a = nextA;
    b = nextB;
    if (b > kRescaleLimit) {
      lastA /= kRescaleLimit;
      lastB /= kRescaleLimit;
      a /= kRescaleLimit;
      b /= kRescaleLimit;
    }
  }
  return false;
}

/// Peizer and Pratt's normal approximation.
double PeizerPratt(const WorkingCopy & work, double a, double b, long & status) {
  const auto [y, c, p, q, direct] = work;
  const double n = a + b - 1.0;
  const double v =
      (1.0 + y * cbtaux((p - 0.5) / n) + c * cbtaux((q - 0.5) / n)) / ((n + 1.0 / 6.0) * y * c);
  if (AnyNaN(v)) return Fail(status, 2);
  double z = 0.0;
  if (v > 0.0) {
    z = std::sqrt(v) *
        ((y / q - c / p + (y - 0.5) / (a + b)) / 50.0 + (y - p / n) * n + (y + 1.0) / 3.0);
  }
  const double result = prbnrm(direct ? z : -z);
  if (IsFailed(result)) status = 2;
  return result;
}

}  // namespace

double cbtaux(const double & x) {
  constexpr double kSqrtLargest = 1.3407807929942596e154;
  if (x == 0.0) return 1.0;
  if (x < 0.0) return kFailed;
  if (x > kSqrtLargest) return -1.0;
  const double rest = 1.0 - x;
  if (rest == 0.0) return 0.0;
  return (2.0 * x * std::log(x) + 1.0 - x * x) / (rest * rest);
}

double cdfbet(const double & x, const double & a, const double & b, long & status) {
  status = 0;
  if (AnyNaN(x, a, b) || a <= 0.0 || b <= 0.0) return Fail(status, 1);
  if (x <= 0.0) return 0.0;
  if (1.0 - x <= 0.0) return 1.0;
  if (a == 1.0) {
    if (b == 1.0) return x;
    const double e = b * std::log(1.0 - x);
    if (AnyNaN(e)) return Fail(status, 2);  // an infinite shape against a logarithm of 0
    return e < kLowestExponent ? 1.0 : 1.0 - std::exp(e);
  }
  if (b == 1.0) {
    const double e = a * std::log(x);
    if (AnyNaN(e)) return Fail(status, 2);
    return e < kLowestExponent ? 0.0 : std::exp(e);
  }

  const double logGammaSum = dnlgam(a + b);
  if (IsFailed(logGammaSum)) return Fail(status, 2);
  // The result is exp(factor) times a sum. The factor comes first, so that its logarithms are
  // computed while the processor waits for the divisions of the sum.
  const auto logFactor = [logGammaSum](const WorkingCopy & w) {
    return logGammaSum - dnlgam(w.p + 1.0) - dnlgam(w.q) + w.q * std::log(w.c) +
           w.p * std::log(w.y);
  };
  const auto finish = [](const WorkingCopy & w, double factor, double sum) {
    double value = 0.0;
    if (sum > 0.0) {
      const double e = factor + std::log(sum);
      // With huge shapes the logarithms lose their digits and e may come out above 0.
      value = e < kLowestExponent ? 0.0 : std::exp(std::min(e, 0.0));
    }
    return w.direct ? value : 1.0 - value;
  };

  WorkingCopy work{x, 1.0 - x, a, b, true};
  if (a <= 1.0) work.Swap();
  double sum = 0.0;
  if ((a <= 1.0 || b <= 1.0) && !IsEndlessSeries(work.y, a, b)) {
    if (work.y > kLongSeries) {
      WorkingCopy turned = work;
      turned.TurnToQuickSide(a, b);
      const double factor = logFactor(turned);
      if (SumLongSeries(turned, sum)) return finish(turned, factor, sum);
    }
    const double factor = logFactor(work);
    if (SumPowerSeries(work, a, b, sum)) return finish(work, factor, sum);
  }
  work.TurnToQuickSide(a, b);
  const double factor = logFactor(work);
  if (SumContinuedFraction(work, a, b, sum)) return finish(work, factor, sum);
  return PeizerPratt(work, a, b, status);
}

}  // namespace QVMath_940
