/// Density of the non-central t distribution.

#include <algorithm>
#include <cmath>

#include "QVDistFun.h"
#include "math/distribution/special_functions.h"

namespace QVMath_940 {

namespace {

constexpr double kLnPi = 1.1447298858494002;
constexpr double kHalfLnPi = 0.5723649429247001;
constexpr double kHalfLn2 = 0.34657359027997264;

/// The terms of the series as logarithms, carried from one index to the next. H(j) =
/// lnGamma((j + df + 1) / 2) goes by steps of two, so that the logarithms of two neighbours are
/// kept.
class LogTerms {
 public:
  LogTerms(double first, double df, double perStep)
      : fDf(df),
        fPerStep(perStep),
        fJ(first),
        fCurrent(dnlgam((first + df + 1.0) / 2.0)),
        fNeighbour(dnlgam((first + df + 2.0) / 2.0)),
        fFactorial(dnlgam(first + 1.0)) {}

  bool Failed() const { return IsFailed(fCurrent) || IsFailed(fNeighbour) || IsFailed(fFactorial); }

  double Index() const { return fJ; }
  double Logarithm() const { return fCurrent - fFactorial + fJ * fPerStep; }

  /// To the next higher index.
  void Up() {
    const double afterNext = fCurrent + std::log((fJ + fDf + 1.0) / 2.0);
    fJ += 1.0;
    fFactorial += std::log(fJ);
    fCurrent = fNeighbour;
    fNeighbour = afterNext;
  }

  /// To the next lower index; -1 is the end.
  void Down() {
    if (fJ == 0.0) {
      fJ = -1.0;
      return;
    }
    fFactorial -= std::log(fJ);
    fJ -= 1.0;
    const double below = fNeighbour - std::log((fJ + fDf + 1.0) / 2.0);
    fNeighbour = fCurrent;
    fCurrent = below;
  }

 private:
  double fDf;
  double fPerStep;
  double fJ;
  double fCurrent;
  double fNeighbour;
  double fFactorial;
};

/// exp(e), 0 at the lower limit and below, status 2 above the upper one and for a NaN.
double Term(double e, long & status) {
  if (!(e <= kHighestExponent)) {
    status = 2;
    return 0.0;
  }
  return e <= kLowestNonCentralExponent ? 0.0 : std::exp(e);
}

double DensityAtZero(double df, double delta, long & status) {
  const double upper = dnlgam(df / 2.0 + 0.5);
  const double lower = dnlgam(df / 2.0);
  if (IsFailed(upper) || IsFailed(lower)) return Fail(status, 2);
  const double e = upper - delta * delta / 2.0 - lower - kHalfLnPi - 0.5 * std::log(df);
  const double density = Term(e, status);
  return status != 0 ? kFailed : density;
}

}  // namespace

double QVDistFun::NonCentralPdfT(double t, double df, double delta, long & status) {
  constexpr double kReach = 10000.0;
  constexpr double kLargestIndex = 2147483647.0;
  constexpr int kMostRounds = 10000;
  constexpr double kSmall = 1e-10;

  status = 0;
  if (AnyNaN(t, delta) || !(df > 0.0)) return Fail(status, 1);
  if (delta == 0.0) {
    const double density = PdfT(t, df, status);
    return status != 0 ? kFailed : std::max(density, 0.0);
  }
  if (t == 0.0) return DensityAtZero(df, delta, status);
  if (std::isinf(df) || std::isinf(delta)) return Fail(status, 2);
  if (std::isinf(t)) return 0.0;

  const double square = t * t;
  const bool overflow = std::isinf(square);
  const double v = overflow ? delta * delta : delta * delta * square / (square + df);
  const double logSum = overflow ? 2.0 * std::log(std::fabs(t)) : std::log(square + df);
  const double m = (std::sqrt(std::max((v - 2.0 + 4.0 * df) * v + 1.0, 0.0)) + v - 3.0) / 2.0;
  if (!(m + kReach < kLargestIndex)) return Fail(status, 2);
  const double middle = std::floor(m) + 1.0;
  const double least = std::max(middle - kReach, 0.0);
  const double most = middle + kReach;

  const double lower = dnlgam(df / 2.0);
  const double perStep =
      std::log(std::fabs(delta)) + kHalfLn2 + std::log(std::fabs(t)) - 0.5 * logSum;
  const double constant =
      -lower - 0.5 * (kLnPi - df * std::log(df) + (df + 1.0) * logSum + delta * delta);
  LogTerms down(middle, df, perStep);
  if (IsFailed(lower) || down.Failed()) return Fail(status, 2);
  LogTerms up = down;
  up.Up();

  const bool alternates = (t < 0.0) != (delta < 0.0);
  const auto sign = [alternates](double j) {
    return alternates && std::fmod(j, 2.0) != 0.0 ? -1.0 : 1.0;
  };
  double sum = 0.0;
  for (int round = 0; round < kMostRounds && status == 0; ++round) {
    double lowerTerm = 0.0;
    if (down.Index() >= least) {
      lowerTerm = sign(down.Index()) * Term(constant + down.Logarithm(), status);
      sum += lowerTerm;
      down.Down();
    }
    double upperTerm = 0.0;
    if (up.Index() <= most) {
      upperTerm = sign(up.Index()) * Term(constant + up.Logarithm(), status);
      sum += upperTerm;
      up.Up();
    }
    if (!((std::fabs(upperTerm) + std::fabs(lowerTerm)) / std::fabs(sum) > kSmall)) break;
  }
  return status != 0 ? kFailed : std::max(sum, 0.0);
}

}  // namespace QVMath_940
