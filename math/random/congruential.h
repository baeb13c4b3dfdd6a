/// The portable multiplicative congruential generator.
///
/// G. S. Fishman, L. R. Moore, "An exhaustive analysis of multiplicative congruential random number
/// generators with modulus 2^31 - 1", SIAM Journal on Scientific and Statistical Computing 7 (1986)
/// 24-45: multiplier 397204094.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace QVMath_940 {

/// 2^31 - 1.
inline constexpr std::uint32_t kCongruentialModulus = 2147483647;

/// The state that a seed means: floor(|seed|), at most the modulus; 1 for 0 and for a NaN.
inline std::uint32_t CongruentialState(double seed) {
  constexpr double kLargest = kCongruentialModulus;
  const double v = std::floor(std::fabs(seed));
  return v >= 1.0 ? static_cast<std::uint32_t>(std::min(v, kLargest)) : 1u;
}

/// Brings the state one step on and gives the uniform number; a state of 0 becomes 1.
inline double NextCongruential(std::uint32_t & state) {
  constexpr std::uint64_t kMultiplier = 397204094;
  constexpr double kTwoToMinus31 = 4.656612873077393e-10;
  // 2^31 is 1 modulo 2^31 - 1: the upper bits of the product are added to the lower ones. The sum
  // is below twice the modulus for any 32 bits of state.
  const std::uint64_t product = state * kMultiplier;
  std::uint64_t rest = (product & kCongruentialModulus) + (product >> 31);
  if (rest >= kCongruentialModulus) rest -= kCongruentialModulus;
  state = rest == 0 ? 1u : static_cast<std::uint32_t>(rest);
  return state * kTwoToMinus31;
}

}  // namespace QVMath_940
