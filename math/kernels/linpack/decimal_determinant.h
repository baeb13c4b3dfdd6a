/// A determinant as det[0] times 10 to the power det[1].
#pragma once

#include <cmath>

namespace QVMath_940::linpack {

inline void StartDeterminant(double * det) {
  det[0] = 1.0;
  det[1] = 0.0;
}

/// Multiplies the determinant by `factor` and brings det[0] back to 1 <= |det[0]| < 10. False when
/// it has become zero, infinite or NaN, which it then stays.
inline bool MultiplyDeterminant(double * det, double factor) {
  constexpr double kTen = 10.0;
  det[0] *= factor;
  if (det[0] == 0.0 || !std::isfinite(det[0])) return false;
  while (std::fabs(det[0]) < 1.0) {
    det[0] *= kTen;
    det[1] -= 1.0;
  }
  while (std::fabs(det[0]) >= kTen) {
    det[0] /= kTen;
    det[1] += 1.0;
  }
  return true;
}

}  // namespace QVMath_940::linpack
