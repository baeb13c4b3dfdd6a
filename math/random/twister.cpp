// QVRandomTwister; the draws stand in the header.
#include <vector>

#include "QVRandomTwister.h"
#include "math/random/twister_block.h"

namespace QVMath_940 {

QVRandomTwister::QVRandomTwister() : fWords(new TwisterBlock) {
}

QVRandomTwister::QVRandomTwister(const QVRandomTwister & other)
    : fWords(new TwisterBlock(BlockOf(other.fWords))) {
}

QVRandomTwister & QVRandomTwister::operator=(const QVRandomTwister & other) {
  BlockOf(fWords) = BlockOf(other.fWords);
  return *this;
}

QVRandomTwister::~QVRandomTwister() {
  delete &BlockOf(fWords);
}

void QVRandomTwister::Initialize(unsigned long seed) {
  BlockOf(fWords).Initialize(static_cast<std::uint32_t>(seed));
}

void QVRandomTwister::InitByArray(const unsigned long * key, unsigned long length) {
  std::vector<std::uint32_t> words(key, key + length);
  BlockOf(fWords).InitByArray(words.data(), static_cast<std::uint32_t>(words.size()));
}

double QVRandomTwister::GetRealRes53() {
  return BlockOf(fWords).NextRes53();
}

}  // namespace QVMath_940
