/// The non-centrality parameter at which a cumulative function takes a given value.
///
/// The functions fall as the parameter grows: a difference above 0 means that it is too small. A
/// missing value of the function ends a search with the missing value.

#include <algorithm>
#include <cmath>

#include "QVDistFun.h"
#include "QVPower.h"
#include "math/distribution/special_functions.h"

namespace QVMath_940 {

namespace {

/// The largest parameter that the searches for F and t go to.
constexpr double kLimit = 1073741608.7516353;

/// A trial: a parameter and the value of the function there less the one wanted.
struct Trial {
  double nc;
  double f;
};

double Difference(double cdf, double p) {
  return IsFailed(cdf) ? kFailed : cdf - p;
}

/// Bisection between two trials with f of different signs. `isNarrow` says whether the bracket is
/// narrow enough for a difference within tol to end the search.
template <typename Function, typename IsNarrow>
double Bisect(Trial lo, Trial hi, double tol, Function difference, IsNarrow isNarrow) {
  constexpr double kEpsilons = 8.0;
  if (lo.f == 0.0) return lo.nc;
  if (hi.f == 0.0) return hi.nc;
  for (;;) {
    const double mid = (lo.nc + hi.nc) / 2.0;
    const double f = difference(mid);
    if (IsFailed(f)) return kFailed;
    if (f == 0.0 || mid == lo.nc || mid == hi.nc) return mid;
    if (std::fabs(f) <= tol && isNarrow(lo.nc, hi.nc)) return mid;
    if (QVPower::AlmostEqual(lo.nc, hi.nc, kEpsilons)) return mid;
    ((f > 0.0) == (lo.f > 0.0) ? lo : hi) = {mid, f};
  }
}

bool IsProbability(double p) {
  return p >= 0.0 && p <= 1.0;
}

}  // namespace

double QVDistFun::FindNCParamChi(double x, double df, double p, double tol) {
  if (AnyNaN(x) || !(df > 0.0) || !IsProbability(p) || !(tol >= 0.0)) return kFailed;
  const auto difference = [=](double nc) { return Difference(NonCentralCdfChi(x, df, nc), p); };
  const double atZero = difference(0.0);
  if (IsFailed(atZero)) return kFailed;
  if (atZero <= 0.0) return 0.0;

  Trial trial{x, difference(x)};
  Trial previous = trial;
  const bool grows = trial.f > 0.0;
  while (!IsFailed(trial.f) && trial.f != 0.0 && (trial.f > 0.0) == grows) {
    previous = trial;
    trial.nc = grows ? trial.nc * 2.0 : trial.nc / 2.0;
    trial.f = difference(trial.nc);
  }
  if (IsFailed(trial.f)) return kFailed;
  return Bisect(previous, trial, tol, difference,
                [tol](double lo, double hi) { return std::fabs(hi - lo) <= tol; });
}

double QVDistFun::FindNCParamF(double x, double df1, double df2, double p, double tol) {
  if (AnyNaN(x) || !(df1 > 0.0 && df2 > 0.0) || !IsProbability(p) || !(tol >= 0.0)) return kFailed;
  const auto difference = [=](double nc) {
    return Difference(NonCentralCdfF(x, df1, df2, nc, tol), p);
  };
  const double atZero = difference(0.0);
  if (IsFailed(atZero)) return kFailed;
  if (atZero <= 0.0) return 0.0;

  Trial trial{x * df1, difference(x * df1)};
  Trial previous = trial;
  const bool grows = trial.f > 0.0;
  while (!IsFailed(trial.f) && trial.f != 0.0 && (trial.f > 0.0) == grows) {
    previous = trial;
    trial.nc = grows ? trial.nc * 2.0 : trial.nc / 2.0;
    if (trial.nc > kLimit || trial.nc == 0.0) return kFailed;
    trial.f = difference(trial.nc);
  }
  if (IsFailed(trial.f)) return kFailed;
  return Bisect(previous, trial, tol, difference, [tol](double lo, double hi) {
    return std::fabs(hi - lo) / std::max({std::fabs(hi), std::fabs(lo), 1.0}) <= tol;
  });
}

double QVDistFun::FindNCParamT(double t, double df, double p, double tol, double cdfTol) {
  if (AnyNaN(cdfTol) || !(t >= 0.0) || !IsProbability(p) || !(df > 0.0) || !(tol >= 0.0))
    return kFailed;
  const auto difference = [=](double delta) {
    return Difference(NonCentralCdfT(t, df, delta, cdfTol), p);
  };
  const double atZero = difference(0.0);
  if (IsFailed(atZero)) return kFailed;
  if (atZero == 0.0) return 0.0;

  // The first step from 0 in the direction of the root that leads past it. Since the function falls
  // throughout, this step is sought among all by doubling and halving their number.
  const double step = std::copysign(std::max(t, 1.0), atZero);
  const auto passes = [atZero](double f) { return atZero > 0.0 ? f <= 0.0 : f >= 0.0; };
  const auto trialAt = [=](double count) {
    const double delta = count * step;
    return Trial{delta, std::fabs(delta) > kLimit ? kFailed : difference(delta)};
  };
  double before = 0.0;
  double past = 1.0;
  Trial near{0.0, atZero};
  Trial far = trialAt(past);
  while (!IsFailed(far.f) && !passes(far.f)) {
    before = past;
    near = far;
    past *= 2.0;
    far = trialAt(past);
  }
  while (past - before > 1.0) {
    const double count = std::floor((before + past) / 2.0);
    const Trial trial = trialAt(count);
    if (IsFailed(trial.f) || passes(trial.f)) {
      past = count;
      far = trial;
    } else {
      before = count;
      near = trial;
    }
  }
  if (IsFailed(far.f)) return kFailed;
  return Bisect(near, far, tol, difference,
                [tol](double lo, double hi) { return std::fabs(hi - lo) <= tol; });
}

}  // namespace QVMath_940
