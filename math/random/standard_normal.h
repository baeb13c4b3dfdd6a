/// The standard normal variate of both families.
///
/// A. J. Kinderman, J. G. Ramage, "Computer generation of normal random variables", Journal of the
/// American Statistical Association 71 (1976) 893-896. The density is a triangle on (-xi, xi), from
/// which most numbers come by two uniforms, three small pieces above it and the tail beyond xi.
#pragma once

#include <algorithm>
#include <cmath>
#include <limits>

namespace QVMath_940 {

/// Where the triangle ends and the tail begins.
inline constexpr double kNormalXi = 2.216035867166471;

/// Rounds after which a rejection gives up: only a source that is not random gets there.
inline constexpr int kMostRounds = 1000000;

/// The density above the triangle at t, whose tip at 0 touches it.
inline double NormalAboveTriangle(double t) {
  constexpr double kOneBySqrtTwoPi = 0.3989422804014327;
  constexpr double kSlope = 0.180025191068563;
  if (t == 0.0) return 0.0;
  const double density = std::exp(-t * t / 2) * kOneBySqrtTwoPi;
  return std::max(0.0, density - std::max(0.0, kNormalXi - std::fabs(t)) * kSlope);
}

/// The steps beyond the triangle, for a first uniform u of 0.884... and more.
template <typename Uniform>
[[gnu::noinline]] double NormalOutsideTriangle(double u, Uniform & next) {
  constexpr double kGivenUp = std::numeric_limits<double>::lowest();
  constexpr double kFirstPiece = 0.911312780288703;
  constexpr double kSecondPiece = 0.958720824790463;
  constexpr double kThirdPiece = 0.973310954173898;
  constexpr double kLowerTail = 0.986655477086949;
  constexpr double kHalfXiSquared = 2.455407482284127;
  constexpr double kInner = 0.479727404222441;

  if (!(u < kThirdPiece)) {
    for (int round = 0; round < kMostRounds; ++round) {
      const double c = next();
      const double x = kHalfXiSquared - std::log(next());
      if (c * c * x <= kHalfXiSquared) {
        const double t = std::sqrt(2 * x);
        return u >= kLowerTail ? -t : t;
      }
    }
    return kGivenUp;
  }
  for (int round = 0; round < kMostRounds; ++round) {
    const double a = next();
    const double b = next();
    const double smaller = std::min(a, b);
    const double larger = std::max(a, b);
    const double gap = std::fabs(a - b);
    double t;
    bool accepted;
    if (u < kFirstPiece) {
      t = kInner - smaller * 0.59550713801594;
      accepted = larger <= 0.805577924423817 ||
                 (t >= 0 && gap * 0.053377549506886 <= NormalAboveTriangle(t));
    } else if (u < kSecondPiece) {
      t = smaller * 1.10547366102207 + kInner;
      accepted = larger <= 0.87283497667179 || gap * 0.049264496373128 <= NormalAboveTriangle(t);
    } else {
      t = kNormalXi - smaller * 0.63083480192196;
      accepted = larger <= 0.755591531667601 || gap * 0.034240503750111 <= NormalAboveTriangle(t);
    }
    if (accepted) return a >= b ? -t : t;
  }
  return kGivenUp;
}

/// One variate; `next()` gives the next uniform number. The missing value from a source with which
/// the rejections never end.
template <typename Uniform>
double StandardNormal(Uniform & next) {
  constexpr double kTriangle = 0.884070402298758;
  const double u = next();
  if (u < kTriangle) return (next() + u * 1.13113163544418) * kNormalXi - kNormalXi;
  return NormalOutsideTriangle(u, next);
}

}  // namespace QVMath_940
