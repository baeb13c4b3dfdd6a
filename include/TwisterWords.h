/// The words that a Mersenne Twister has ready. Only here so that a draw costs no call; callers use
/// QVRandomTwister.h.
#pragma once

#include <cstdint>

#include "QVExport.h"

namespace QVMath_940 {

/// The part of a generator's state that draws look at: one block of tempered words, made at once.
struct TwisterWords {
  static constexpr int kWords = 624;
  static constexpr int kNotSeeded = kWords + 1;

  std::uint32_t tempered[kWords];
  std::int32_t index = kNotSeeded;

  /// The next word.
  std::uint32_t NextWord() {
    if (index >= kWords) Refill();
    return tempered[index++];
  }

 private:
  /// Makes the next block; a generator that was never seeded is seeded with 5489 first.
  QVCOMMON_API void Refill();
};

}  // namespace QVMath_940
