#include "math/random/twister_block.h"

#include <algorithm>

namespace QVMath_940 {

namespace {

constexpr int kMiddle = 397;
constexpr std::uint32_t kMatrixWord = 0x9908b0dfu;
constexpr std::uint32_t kUpperMask = 0x80000000u;
constexpr std::uint32_t kLowerMask = 0x7fffffffu;
constexpr std::uint32_t kDefaultSeed = 5489u;

/// The twist of two neighbouring words.
std::uint32_t Twist(std::uint32_t upper, std::uint32_t lower) {
  const std::uint32_t y = (upper & kUpperMask) | (lower & kLowerMask);
  return (y >> 1) ^ ((0u - (lower & 1u)) & kMatrixWord);
}

}  // namespace

void TwisterBlock::Initialize(std::uint32_t seed) {
  constexpr std::uint32_t kMultiplier = 1812433253u;
  state[0] = seed;
  for (int i = 1; i < kWords; ++i) {
    const std::uint32_t before = state[i - 1];
    state[i] = kMultiplier * (before ^ (before >> 30)) + static_cast<std::uint32_t>(i);
  }
  index = kWords;
}

void TwisterBlock::InitByArray(const std::uint32_t * key, std::uint32_t length) {
  constexpr std::uint32_t kFirstSeed = 19650218u;
  constexpr std::uint32_t kFirstMultiplier = 1664525u;
  constexpr std::uint32_t kSecondMultiplier = 1566083941u;

  Initialize(kFirstSeed);
  int i = 1;
  const auto next = [&] {
    if (++i >= kWords) {
      state[0] = state[kWords - 1];
      i = 1;
    }
  };
  const auto mixed = [&](std::uint32_t multiplier) {
    const std::uint32_t before = state[i - 1];
    return state[i] ^ ((before ^ (before >> 30)) * multiplier);
  };
  if (length > 0) {
    std::uint32_t j = 0;
    for (std::uint32_t k = std::max<std::uint32_t>(kWords, length); k > 0; --k) {
      state[i] = mixed(kFirstMultiplier) + key[j] + j;
      next();
      if (++j >= length) j = 0;
    }
    for (int k = kWords - 1; k > 0; --k) {
      state[i] = mixed(kSecondMultiplier) - static_cast<std::uint32_t>(i);
      next();
    }
  }
  state[0] = 0x80000000u;
  index = kWords;
}

// The three published stretches: 227, 396 and 1 words.
void TwisterBlock::Regenerate() {
  if (index == kNotSeeded) Initialize(kDefaultSeed);
  constexpr int kFirstStretch = kWords - kMiddle;
  int k = 0;
  for (; k < kFirstStretch; ++k) {
    state[k] = state[k + kMiddle] ^ Twist(state[k], state[k + 1]);
  }
  for (; k < kWords - 1; ++k) {
    state[k] = state[k - kFirstStretch] ^ Twist(state[k], state[k + 1]);
  }
  state[kWords - 1] = state[kMiddle - 1] ^ Twist(state[kWords - 1], state[0]);
  Temper();
  index = 0;
}

void TwisterWords::Refill() {
  BlockOf(this).Regenerate();
}

void TwisterBlock::Temper() {
  for (int k = 0; k < kWords; ++k) {
    std::uint32_t y = state[k];
    y ^= y >> 11;
    y ^= (y << 7) & 0x9d2c5680u;
    y ^= (y << 15) & 0xefc60000u;
    y ^= y >> 18;
    tempered[k] = y;
  }
}

}  // namespace QVMath_940
