/// The state of one MT19937 generator, shared by the two classes that draw from it.
#pragma once

#include <cstdint>

namespace QVMath_940 {

/// 624 words and the index of the next one. The words of a block are tempered all at once when the
/// block is made, which the compiler does several at a time.
struct TwisterBlock {
  static constexpr int kWords = 624;
  static constexpr int kNotSeeded = kWords + 1;

  std::uint32_t state[kWords];
  std::int32_t index = kNotSeeded;
  std::uint32_t tempered[kWords];

  /// init_genrand.
  void Initialize(std::uint32_t seed);

  /// init_by_array.
  void InitByArray(const std::uint32_t * key, std::uint32_t length);

  /// The next tempered word; a block that was never seeded is seeded with 5489 first.
  std::uint32_t NextWord() {
    if (index >= kWords) Regenerate();
    return tempered[index++];
  }

  /// Uniform on (0, 1) from one word.
  double NextOpen() { return (static_cast<double>(NextWord()) + 0.5) * kTwoToMinus32; }

  /// Uniform on [0, 1) from two words.
  double NextRes53() {
    const std::uint32_t a = NextWord() >> 5;
    const std::uint32_t b = NextWord() >> 6;
    return (a * 67108864.0 + b) * 1.1102230246251565e-16;  // 2^26, 2^-53
  }

  static constexpr double kTwoToMinus32 = 2.3283064365386963e-10;

 private:
  void Regenerate();
  void Temper();
};

}  // namespace QVMath_940
