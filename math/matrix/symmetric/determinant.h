/// A determinant as det[0] x 10 to the power det[1], with 1 <= |det[0]| < 10, as LINPACK gives it.
#pragma once

#include <cmath>

namespace QVMath_940 {

/// Brings det[0] into its range. Zero, infinity and NaN stay as they are.
inline void NormaliseDeterminant(double * det) {
  constexpr double kBase = 10.0;
  if (det[0] == 0.0 || !std::isfinite(det[0])) return;
  while (std::abs(det[0]) < 1.0) {
    det[0] *= kBase;
    det[1] -= 1.0;
  }
  while (std::abs(det[0]) >= kBase) {
    det[0] /= kBase;
    det[1] += 1.0;
  }
}

}  // namespace QVMath_940
