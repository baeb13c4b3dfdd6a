/// A double as an integer: truncated towards 0; NaN and what lies beyond the range give the lowest
/// value of the integer type, as the hardware does.
#pragma once

#include <limits>

namespace QVXML_940 {

template <typename Integer>
Integer DoubleToInteger(double value) {
  constexpr double kLowest = static_cast<double>(std::numeric_limits<Integer>::lowest());
  // -kLowest is a power of two, one above the largest value; for 64 bits kLowest - 1.0 is kLowest.
  const bool isInRange = value < -kLowest && (value >= kLowest || value > kLowest - 1.0);
  return isInRange ? static_cast<Integer>(value) : std::numeric_limits<Integer>::lowest();
}

}  // namespace QVXML_940
