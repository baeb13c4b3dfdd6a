/// Where an object-style variate generator takes its uniform numbers from.
#pragma once

#include <memory>

#include "QVRNGUCongruential.h"
#include "QVRNGenerator.h"

namespace QVMath_940 {

/// A caller's generator, or an own one that is made when it is first needed. A copy takes over the
/// state of an own one and shares the caller's.
class UniformSource {
 public:
  UniformSource() = default;
  UniformSource(const UniformSource & other) { *this = other; }

  UniformSource & operator=(const UniformSource & other) {
    if (this == &other) return *this;
    std::unique_ptr<QVRNGUCongruential> own;
    if (other.fOwn != nullptr) own = std::make_unique<QVRNGUCongruential>(*other.fOwn);
    fOwn = std::move(own);
    fGenerator = fOwn != nullptr ? fOwn.get() : other.fGenerator;
    return *this;
  }

  /// Takes the caller's generator and deletes an own one.
  void Use(QVRNGenerator & generator) {
    fGenerator = &generator;
    fOwn.reset();
  }

  void SetSeed(double seed) { Generator().SetSeed(seed); }

  /// The next uniform number.
  double operator()() { return Generator().GetNext(); }

 private:
  QVRNGenerator & Generator() {
    if (fGenerator == nullptr) {
      fOwn = std::make_unique<QVRNGUCongruential>();
      fGenerator = fOwn.get();
    }
    return *fGenerator;
  }

  std::unique_ptr<QVRNGUCongruential> fOwn;
  QVRNGenerator * fGenerator = nullptr;
};

}  // namespace QVMath_940
