/// The portable multiplicative congruential generator.
///
/// G. S. Fishman, L. R. Moore, "An exhaustive analysis of multiplicative congruential random number
/// generators with modulus 2^31 - 1", SIAM Journal on Scientific and Statistical Computing 7 (1986)
/// 24-45: multiplier 397204094.
#pragma once

#include <cstdint>

namespace QVMath_940 {

/// Brings the state one step on and gives the uniform number; a state of 0 becomes 1.
inline double NextCongruential(std::uint32_t & state) {
  constexpr std::uint64_t kMultiplier = 397204094;
  constexpr std::uint64_t kModulus = 2147483647;
  constexpr double kTwoToMinus31 = 4.656612873077393e-10;
  state = static_cast<std::uint32_t>(state * kMultiplier % kModulus);
  if (state == 0) state = 1;
  return state * kTwoToMinus31;
}

}  // namespace QVMath_940
