// The uniform members of the object-style generators.
#include <algorithm>
#include <cmath>
#include <limits>

#include "QVRNGUCongruential.h"
#include "QVRNGUTwister.h"
#include "QVRNGenerator.h"
#include "math/random/congruential.h"
#include "math/random/twister_block.h"

namespace QVMath_940 {

namespace {

constexpr double kLargestWholeSeed = 2147483647.0;

// init_by_array's key for a double: its sign and exponent, then its 53 digits in two words.
void SeedByDigits(double seed, TwisterBlock & block) {
  double a = std::abs(seed);
  const bool isLarge = a >= 1.0;
  std::uint32_t steps = 0;
  while (a != 0.0 && !(a >= 0.5 && a < 1.0)) {
    a *= isLarge ? 0.5 : 2.0;
    ++steps;
  }
  a *= 67108864.0;  // 2^26
  std::uint32_t key[3];
  key[1] = static_cast<std::uint32_t>(a);
  key[2] = static_cast<std::uint32_t>((a - key[1]) * 134217728.0);  // 2^27
  key[0] = ((seed < 0.0 ? 1u : 0u) + 2u * (2u * steps + (isLarge ? 1u : 0u))) * 2u +
           (seed == 0.0 ? 1u : 0u);
  block.InitByArray(key, 3);
}

}  // namespace

QVRNGenerator::~QVRNGenerator() = default;

QVRNGUCongruential::QVRNGUCongruential() = default;
QVRNGUCongruential::~QVRNGUCongruential() = default;
QVRNGUCongruential::QVRNGUCongruential(const QVRNGUCongruential & other) = default;
QVRNGUCongruential & QVRNGUCongruential::operator=(const QVRNGUCongruential & other) = default;

void QVRNGUCongruential::SetSeed(double seed) {
  fState = CongruentialState(seed);
}

double QVRNGUCongruential::GetNext() {
  return NextCongruential(fState);
}

QVRNGUTwister::QVRNGUTwister() : fWords(new TwisterBlock) {
}

QVRNGUTwister::QVRNGUTwister(const QVRNGUTwister & other)
    : QVRNGenerator(other), fWords(new TwisterBlock(BlockOf(other.fWords))) {
}

QVRNGUTwister & QVRNGUTwister::operator=(const QVRNGUTwister & other) {
  BlockOf(fWords) = BlockOf(other.fWords);
  return *this;
}

QVRNGUTwister::~QVRNGUTwister() {
  delete &BlockOf(fWords);
}

void QVRNGUTwister::SetSeed(double seed) {
  constexpr double kLargest = std::numeric_limits<double>::max();
  if (std::isnan(seed)) seed = 0.0;
  seed = std::clamp(seed, -kLargest, kLargest);
  if (seed >= 0.0 && seed <= kLargestWholeSeed && seed == std::floor(seed)) {
    BlockOf(fWords).Initialize(static_cast<std::uint32_t>(seed));
  } else {
    SeedByDigits(seed, BlockOf(fWords));
  }
}

double QVRNGUTwister::GetNext() {
  return BlockOf(fWords).NextRes53();
}

}  // namespace QVMath_940
