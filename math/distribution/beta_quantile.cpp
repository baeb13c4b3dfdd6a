/// Quantiles of the beta distribution and of the two that are made of it: Student's t and F.

#include <algorithm>
#include <cmath>

#include "QVDistFun.h"
#include "math/distribution/special_functions.h"

namespace QVMath_940 {

namespace {

/// What `betinv` gives when it fails; not the missing value.
constexpr double kNoQuantile = -1.0;

/// The problem with its tail chosen so that alpha <= 0.5.
struct Tail {
  double alpha;
  double pp;
  double qq;
  double y;     // the normal deviate above which a normal variable lies with probability alpha
  double beta;  // ln B(pp, qq)
};

/// Sets x to the start value of AS 109; false when the answer is taken to be the mean.
bool StartValue(const Tail & tail, double & x) {
  const auto [alpha, pp, qq, y, beta] = tail;
  if (pp > 1.0 && qq > 1.0) {
    const double r = (y * y - 3.0) / 6.0;
    const double s = 1.0 / (2.0 * pp - 1.0);
    const double t = 1.0 / (2.0 * qq - 1.0);
    const double h = 2.0 / (s + t);
    const double w =
        y * std::sqrt(h + r) / h - (r + 0.8333333333333334 - 2.0 / (3.0 * h)) * (t - s);
    x = pp / (pp + qq * std::exp(2.0 * w));
    return true;
  }
  const double t = 1.0 / (9.0 * qq);
  const double c = 1.0 - t + y * std::sqrt(t);
  const double v = 2.0 * qq * c * c * c;
  if (v > 0.0) {
    const double u = (4.0 * pp + 2.0 * qq - 2.0) / v;
    if (u > 1.0) {
      x = 1.0 - 2.0 / (u + 1.0);
      return true;
    }
    // The paper divides by pp here. Callers know the results that follow from alpha, and only the
    // number of rounds depends on it.
    const double e = (std::log(alpha * pp) + beta) / alpha;
    if (e > kHighestExponent) return false;
    x = e < kLowestExponent ? 0.0 : std::exp(e);
    return true;
  }
  const double e = (std::log((1.0 - alpha) * qq) + beta) / qq;
  if (e > kHighestExponent) return false;
  x = e < kLowestExponent ? 1.0 : 1.0 - std::exp(e);
  return true;
}

/// Newton's method with a damped step: at most 50 rounds from x. The quantile, the mean where the
/// density overflows, or `kNoQuantile`.
double ImproveQuantile(const Tail & tail, double x, double mean, double acu, double delta,
                       bool & atMean) {
  constexpr int kMostRounds = 50;
  const auto [alpha, pp, qq, y, beta] = tail;
  atMean = false;
  double previousStep = 0.0;
  double prev = 1.0;
  double sq = 1.0;
  for (int round = 0; round < kMostRounds; ++round) {
    long status = 0;
    const double c = cdfbet(x, pp, qq, status);
    if (status > 0) return kNoQuantile;
    const double e = (1.0 - qq) * std::log(1.0 - x) + (1.0 - pp) * std::log(x) + beta;
    if (e > kHighestExponent) {
      atMean = true;
      return mean;
    }
    const double step = e < kLowestExponent ? 0.0 : std::exp(e) * (c - alpha);
    if (step * previousStep <= 0.0) prev = sq;
    double tx = x;
    for (double g = 1.0;; g /= 3.0) {
      const double adj = g * step;
      sq = adj * adj;
      tx = x - adj;
      const bool moves = tx != x;
      if (sq < prev) {
        if (std::fabs(tx) < delta) tx = delta;
        if (std::fabs(tx - 1.0) < delta) tx = 1.0 - delta;
        if (tx > 0.0 && tx < 1.0) break;
      }
      if (!moves) {  // no fraction of the step does anything any more
        tx = x;
        break;
      }
    }
    if (prev <= acu || step * step <= acu || std::fabs(tx - x) < delta) break;
    x = tx;
    previousStep = step;
  }
  return x;
}

}  // namespace

// K. L. Majumder and G. P. Bhattacharjee, Appl. Statist. 22 (1973) 411-414, algorithm AS 109; G. W.
// Cran, K. J. Martin and G. E. Thomas, Appl. Statist. 26 (1977) 111-114, remark AS R19 and
// algorithm AS 109; K. J. Berry, P. W. Mielke and G. W. Cran, Appl. Statist. 39 (1990) 309-310,
// remark AS R83.
double betinv(const double & p, const double & a, const double & b, const double & acu,
              const double & delta) {
  constexpr double kDwarfed = 1e-20;  // b against a below which all the mass is at 1
  constexpr double kLeastStart = 1e-8;
  constexpr double kGreatestStart = 0.9999999;
  constexpr double kPi = 3.141592653589793;

  if (p == 0.0 || p == 1.0) return p == 0.0 ? 0.0 : 1.0;
  if (AnyNaN(acu, delta) || !(a > 0.0 && b > 0.0 && p > 0.0 && p < 1.0)) return kNoQuantile;
  if (a == b) {
    if (p == 0.5) return 0.5;
    if (a == 0.5) {
      const double sine = std::sin(p * 0.5 * kPi);
      return sine * sine;
    }
  }
  if (a == 1.0) {
    const double c = 1.0 - p;
    if (!(c > 0.0)) return 1.0;
    const double e = std::log(c) / b;
    return e < kLowestExponent ? 1.0 : 1.0 - std::exp(e);
  }
  if (b == 1.0) {
    const double e = std::log(p) / a;
    return e < kLowestExponent ? 0.0 : std::exp(e);
  }
  if (a * kDwarfed >= b) return 1.0;

  const bool lower = p <= 0.5;
  Tail tail{};
  tail.alpha = lower ? p : 1.0 - p;
  tail.pp = lower ? a : b;
  tail.qq = lower ? b : a;
  const double deviate = probit(p);
  if (IsFailed(deviate)) return kNoQuantile;
  tail.y = lower ? -deviate : deviate;
  const double gammaQ = dnlgam(tail.qq);
  const double gammaP = dnlgam(tail.pp);
  const double gammaSum = dnlgam(tail.pp + tail.qq);
  if (IsFailed(gammaQ) || IsFailed(gammaP) || IsFailed(gammaSum)) return kNoQuantile;
  tail.beta = gammaQ + gammaP - gammaSum;

  const double mean = a / (a + b);
  double x = 0.0;
  if (!StartValue(tail, x)) return mean;
  x = x >= kLeastStart ? std::min(x, kGreatestStart) : kLeastStart;
  bool atMean = false;
  x = ImproveQuantile(tail, x, mean, acu, delta, atMean);
  if (atMean || x == kNoQuantile) return x;
  return lower ? x : 1.0 - x;
}

namespace {

/// The two bounds of the beta quantile that the quantiles without bounds of their own use.
constexpr double kUsualAcu = 1e-20;
constexpr double kUsualDelta = 1e-12;

}  // namespace

double zelvidft(const double & p, const double & df, long & status, const double & acu,
                const double & delta) {
  constexpr double kNormalFrom = 1e8;

  status = 0;
  if (AnyNaN(acu, delta) || !(p > 0.0 && p < 1.0 && df > 0.0)) return Fail(status, 1);
  if (p == 0.5) return 0.0;
  if (df >= kNormalFrom) return probit(p);
  const double w = p < 0.5 ? 2.0 * p : 2.0 - 2.0 * p;
  const double b = betinv(w, df / 2.0, 0.5, acu, delta);
  if (b == kNoQuantile) return Fail(status, 2);
  const double v = (1.0 / b - 1.0) * df;
  if (!(v >= 0.0) || std::isinf(v)) return Fail(status, 2);
  return p < 0.5 ? -std::sqrt(v) : std::sqrt(v);
}

double zelvidff(const double & p, const double & df1, const double & df2, long & status) {
  status = 0;
  if (!(p >= 0.0 && p < 1.0 && df1 > 0.0 && df2 > 0.0)) return Fail(status, 1);
  if (p == 0.0) return 0.0;
  if (df1 == 1.0) {
    const double t = zelvidft(p / 2.0 + 0.5, df2, status, kUsualAcu, kUsualDelta);
    return IsFailed(t) ? Fail(status, 2) : FiniteOrFail(t * t, status);
  }
  const double b = betinv(p, df1 / 2.0, df2 / 2.0, kUsualAcu, kUsualDelta);
  if (!(b >= 0.0 && b < 1.0)) return Fail(status, 2);
  return FiniteOrFail((b / (1.0 - b)) * (df2 / df1), status);
}

double QVDistFun::IdfBeta(const double & p, const double & a, const double & b) {
  return betinv(p, a, b, kUsualAcu, kUsualDelta);
}

double QVDistFun::IdfT(double p, double df, double acu, double delta) {
  long status = 0;
  const double result = zelvidft(p, df, status, acu, delta);
  return status == 0 ? result : kFailed;
}

double QVDistFun::IdfF(double p, double df1, double df2) {
  long status = 0;
  const double result = zelvidff(p, df1, df2, status);
  return status == 0 ? result : kFailed;
}

}  // namespace QVMath_940
