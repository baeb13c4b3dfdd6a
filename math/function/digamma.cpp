#include <cmath>

#include "QVMV.h"
#include "QVMathFun.h"

namespace QVMath_940 {

using QVCommon_940::QVMV;

namespace {

/// At or below this argument both functions count as undefined.
constexpr double kSmallestArgument = 1e-16;

/// Steps of the recurrence that carry the argument to where the asymptotic series converges.
constexpr int kShift = 10;

}  // namespace

double QVMathFun::Digamma(double x) {
  constexpr double kMinusEuler = -0.5772156649015329;
  constexpr double kSmall = 1e-5;
  if (!(x > kSmallestArgument)) return QVMV::Missing();
  if (x < kSmall) return kMinusEuler - 1.0 / x;

  const double y = x + kShift;
  const double r = 1.0 / y / y;
  // Abramowitz and Stegun 6.3.18: the terms B(2k) / (2k y^(2k)), k = 6 .. 1.
  const double series =
      (((((r * 0.021092796092796094 - 0.007575757575757576) * r + 0.004166666666666667) * r -
         0.003968253968253968) *
            r +
        0.008333333333333333) *
           r -
       0.08333333333333333) *
      r;
  double shifted = 0.0;
  for (int k = 1; k <= kShift; ++k)
    shifted += 1.0 / (y - k);
  return std::log(y) - 0.5 / y + series - shifted;
}

double QVMathFun::Trigamma(double x) {
  constexpr double kSmall = 0.0001;
  if (!(x > kSmallestArgument)) return QVMV::Missing();
  if (x < kSmall) return 1.0 / x / x;

  const double y = x + kShift;
  const double r = 1.0 / y / y;
  double shifted = 0.0;
  for (int k = 1; k <= kShift; ++k) {
    const double inverse = 1.0 / (y - k);
    shifted += inverse * inverse;
  }
  // Abramowitz and Stegun 6.4.12: the terms B(2k) / y^(2k+1), k = 6 .. 1, and 1 / y.
  const double series =
      ((((((0.07575757575757576 - r * 0.2531135531135531) * r - 0.03333333333333333) * r +
          0.023809523809523808) *
             r -
         0.03333333333333333) *
            r +
        0.16666666666666666) *
           r +
       1.0) /
      y;
  return shifted + r * 0.5 + series;
}

}  // namespace QVMath_940
