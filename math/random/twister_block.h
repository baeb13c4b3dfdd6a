/// The state of one MT19937 generator, shared by the two classes that draw from it.
#pragma once

#include <cstdint>

#include "TwisterWords.h"

namespace QVMath_940 {

/// The 624 words of the recurrence. The words of a block are tempered all at once when the block is
/// made, which the compiler does several at a time.
struct TwisterBlock : TwisterWords {
  std::uint32_t state[kWords];

  /// init_genrand.
  void Initialize(std::uint32_t seed);

  /// init_by_array.
  void InitByArray(const std::uint32_t * key, std::uint32_t length);

  /// The next block of words.
  void Regenerate();

  /// Uniform on [0, 1) from two words.
  double NextRes53() {
    const std::uint32_t a = NextWord() >> 5;
    const std::uint32_t b = NextWord() >> 6;
    return (a * 67108864.0 + b) * 1.1102230246251565e-16;  // 2^26, 2^-53
  }

 private:
  void Temper();
};

/// The block behind the words that a generator holds.
inline TwisterBlock & BlockOf(TwisterWords * words) {
  return *static_cast<TwisterBlock *>(words);
}

}  // namespace QVMath_940
