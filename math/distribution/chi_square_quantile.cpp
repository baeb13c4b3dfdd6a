/// Quantiles of the chi-square and the gamma distribution.

#include <cmath>

#include "QVDistFun.h"
#include "math/distribution/special_functions.h"

namespace QVMath_940 {

namespace {

constexpr double kLn2 = 0.6931471805599453;

/// Above this exponent the search is given up.
constexpr double kCeiling = 141.8;

/// Relative change that ends the Taylor rounds, and the start value that is good as it is.
constexpr double kSettled = 5e-7;

/// What the steps of AS 91 share; the names are the paper's.
struct Problem {
  double p;
  double df;
  double xx;  // df / 2
  double c;   // xx - 1
  double g;   // ln Gamma(xx)
};

/// The start value for few degrees of freedom and a large p, by Newton's method on an approximation
/// to the upper tail. False when it fails.
bool StartFromUpperTail(const Problem & problem, double & ch) {
  // Single-precision constants of the published routine, widened.
  constexpr double kStart = 0.4000000059604645;
  constexpr double kC7 = 4.670000076293945;
  constexpr double kC9 = 6.659999847412109;
  constexpr double kC8 = 6.730000019073486;
  constexpr double kC10 = 13.319999694824219;
  constexpr double kClose = 0.009999999776482582;
  constexpr int kMostRounds = 1000;  // some ten are needed

  ch = kStart;
  const double a = std::log(1.0 - problem.p);
  for (int round = 0; round < kMostRounds; ++round) {
    const double q = ch;
    const double p1 = ch * (ch + kC7) + 1.0;
    const double p2 = ch * (ch * (ch + kC9) + kC8);
    const double t = (2.0 * ch + kC7) / p1 - 0.5 - (ch * (3.0 * ch + kC10) + kC8) / p2;
    const double e = std::log(p2) + 0.5 * ch + a + problem.g + problem.c * kLn2 - std::log(p1);
    if (e > kCeiling || e != e) return false;
    ch -= (1.0 - (e < kLowestExponent ? 0.0 : std::exp(e))) / t;
    if (std::fabs(q / ch - 1.0) <= kClose) return true;
  }
  return false;
}

/// The start value of Wilson and Hilferty, mended in the far upper tail. False when it fails.
bool WilsonHilferty(const Problem & problem, double & ch) {
  constexpr double kTwoNinths = 0.2222220003604889;  // single precision, widened
  constexpr double kFar = 2.200000047683716;

  const double z = probit(problem.p);
  if (IsFailed(z)) return false;
  const double f = kTwoNinths / problem.df;
  const double w = std::sqrt(f) * z + 1.0 - f;
  ch = 0.0;
  if (w != 0.0) {
    const double e = 3.0 * std::log(std::fabs(w)) + std::log(problem.df);
    if (!(e <= kCeiling)) return false;
    if (e >= kLowestExponent) ch = w < 0.0 ? -std::exp(e) : std::exp(e);
  }
  if (ch > kFar * problem.df + 6.0)
    ch = -2.0 * (std::log(1.0 - problem.p) - problem.c * std::log(ch / 2.0) + problem.g);
  return true;
}

/// Rounds of the seven-term Taylor series about ch. True when they settle; ch is then the quantile.
bool TaylorRounds(const Problem & problem, double & ch) {
  constexpr int kMostRounds = 20;
  const double c = problem.c;
  for (int round = 0; round < kMostRounds && ch > 0.0; ++round) {
    long status = 0;
    const double lower = gammad(ch / 2.0, problem.xx, true, status);
    if (status > 0) return false;
    const double e = problem.xx * kLn2 + problem.g + ch / 2.0 - c * std::log(ch);
    if (!(e <= kCeiling)) return false;
    const double t = e < kLowestExponent ? 0.0 : std::exp(e) * (problem.p - lower);
    const double b = t / ch;
    const double a = t / 2.0 - b * c;
    const double s1 =
        (((((60.0 * a + 70.0) * a + 84.0) * a + 105.0) * a + 140.0) * a + 210.0) / 420.0;
    const double s2 = ((((1278.0 * a + 1141.0) * a + 966.0) * a + 735.0) * a + 420.0) / 2520.0;
    const double s3 = (((932.0 * a + 707.0) * a + 462.0) * a + 210.0) / 2520.0;
    const double s4 =
        (((1740.0 * a + 889.0) * a + 294.0) * c + ((1182.0 * a + 672.0) * a + 252.0)) / 5040.0;
    const double s5 = ((606.0 * a + 1175.0) * c + (2264.0 * a + 84.0)) / 2520.0;
    const double s6 = ((127.0 * c + 346.0) * c + 120.0) / 5040.0;
    const double previous = ch;
    ch += t *
          (1.0 + 0.5 * t * s1 - b * c * (s1 - b * (s2 - b * (s3 - b * (s4 - b * (s5 - b * s6))))));
    if (std::fabs(previous - ch) <= kSettled * ch) return true;
  }
  return false;
}

}  // namespace

double idfchb(const double & p, const double & df, const double & start, long & status) {
  constexpr int kMostRounds = 40;
  constexpr double kWidth = 1e-8;

  status = 0;
  if (AnyNaN(p, df) || !(start > 0.0)) return Fail(status, 1);
  const double shape = df / 2.0;
  double lo = start / 4.0;
  double hi = start;
  long inner = 0;
  double lower = gammad(lo, shape, true, inner);
  if (inner > 0 || p < lower) return Fail(status, 2);
  lower = gammad(hi, shape, true, inner);
  if (lower < p) {
    hi = 2.0 * start;
    lower = gammad(hi, shape, true, inner);
    if (p > lower) return Fail(status, 2);
  }
  double mid = (hi + lo) / 2.0;
  for (int round = 0; round < kMostRounds && hi - lo > mid * kWidth; ++round) {
    lower = gammad(mid, shape, true, inner);
    (lower > p ? hi : lo) = mid;
    mid = (hi + lo) / 2.0;
  }
  return FiniteOrFail(2.0 * mid, status);
}

// D. J. Best and D. E. Roberts, The percentage points of the chi-square distribution, Appl.
// Statist. 24 (1975) 385-388, algorithm AS 91.
double zelvidfchi(const double & p, const double & df, long & status) {
  constexpr double kSmallDf = 1.2400000095367432;  // single precision, widened
  constexpr double kFewDf = 0.3199999928474426;

  status = 0;
  if (!(p >= 0.0 && p < 1.0 && df > 0.0)) return Fail(status, 1);
  if (p == 0.0) return 0.0;
  const double xx = df / 2.0;
  const double g = dnlgam(xx);
  if (IsFailed(g)) return Fail(status, 2);
  const Problem problem{p, df, xx, xx - 1.0, g};

  double ch = 0.0;
  if (df < -kSmallDf * std::log(p)) {
    const double e = (std::log(xx) + std::log(p) + g + xx * kLn2) / xx;
    if (e < kLowestExponent) return 0.0;
    if (!(e <= kCeiling)) return Fail(status, 2);
    ch = std::exp(e);
    if (ch < kSettled) return ch;
  } else if (df <= kFewDf ? !StartFromUpperTail(problem, ch) : !WilsonHilferty(problem, ch)) {
    return Fail(status, 2);
  }
  const double start = ch;
  return TaylorRounds(problem, ch) ? FiniteOrFail(ch, status) : idfchb(p, df, start, status);
}

double QVDistFun::IdfChi(double p, double df) {
  long status = 0;
  const double result = zelvidfchi(p, df, status);
  return status == 0 ? result : kFailed;
}

double QVDistFun::IdfGam(const double & p, const double & shape, const double & rate) {
  if (!(p >= 0.0 && p < 1.0 && shape >= 0.0 && rate > 0.0)) return kFailed;
  if (p == 0.0) return 0.0;
  long status = 0;
  const double result = zelvidfchi(p, 2.0 * shape, status);
  return status == 0 ? FiniteOrFailed(result * 0.5 / rate) : kFailed;
}

}  // namespace QVMath_940
