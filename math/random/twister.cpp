#include <vector>

#include "QVRandomTwister.h"
#include "math/random/twister_block.h"

namespace QVMath_940 {

QVRandomTwister::QVRandomTwister() : fBlock(new TwisterBlock) {
}

QVRandomTwister::QVRandomTwister(const QVRandomTwister & other)
    : fBlock(new TwisterBlock(*other.fBlock)) {
}

QVRandomTwister & QVRandomTwister::operator=(const QVRandomTwister & other) {
  *fBlock = *other.fBlock;
  return *this;
}

QVRandomTwister::~QVRandomTwister() {
  delete fBlock;
}

void QVRandomTwister::Initialize(unsigned long seed) {
  fBlock->Initialize(static_cast<std::uint32_t>(seed));
}

void QVRandomTwister::InitByArray(const unsigned long * key, unsigned long length) {
  std::vector<std::uint32_t> words(key, key + length);
  fBlock->InitByArray(words.data(), static_cast<std::uint32_t>(words.size()));
}

unsigned long QVRandomTwister::GetInteger32() {
  return fBlock->NextWord();
}

long QVRandomTwister::GetInteger31() {
  return static_cast<long>(fBlock->NextWord() >> 1);
}

double QVRandomTwister::GetRealClosed() {
  return fBlock->NextWord() / 4294967295.0;
}

double QVRandomTwister::GetRealClosedOpen() {
  return fBlock->NextWord() * TwisterBlock::kTwoToMinus32;
}

double QVRandomTwister::GetRealOpen() {
  return fBlock->NextOpen();
}

double QVRandomTwister::GetRealRes53() {
  return fBlock->NextRes53();
}

}  // namespace QVMath_940
