/// Where an object-style variate generator takes its uniform numbers from.
#pragma once

#include <cstdint>

#include "QVRNGenerator.h"
#include "math/random/congruential.h"

namespace QVMath_940 {

/// A caller's generator, or an own one that is there until a caller's is given: the congruential
/// generator of `QVRNGUCongruential`, from state 1. A copy takes over the state of an own one and
/// shares the caller's.
class UniformSource {
 public:
  /// Takes the caller's generator in place of the own one.
  void Use(QVRNGenerator & generator) { fCallers = &generator; }

  void SetSeed(double seed) {
    if (fCallers != nullptr)
      fCallers->SetSeed(seed);
    else
      fOwnState = CongruentialState(seed);
  }

  /// The next uniform number.
  double operator()() {
    return fCallers == nullptr ? NextCongruential(fOwnState) : fCallers->GetNext();
  }

 private:
  QVRNGenerator * fCallers = nullptr;
  std::uint32_t fOwnState = 1;
};

}  // namespace QVMath_940
