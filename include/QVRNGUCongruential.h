/// Uniform numbers of the portable multiplicative congruential generator: state x 397204094 modulo
/// 2^31 - 1, scaled by 2^-31. Fast and small; the Mersenne Twister is the better generator.
///
/// A plain value: copies go on with the same stream. Not safe for use from two threads at a time.
#pragma once

#include <cstdint>

#include "QVRNGenerator.h"

namespace QVMath_940 {

class QVCOMMON_API QVRNGUCongruential : public QVRNGenerator {
 public:
  /// State 1.
  QVRNGUCongruential();
  ~QVRNGUCongruential() override;
  QVRNGUCongruential(const QVRNGUCongruential & other);
  QVRNGUCongruential & operator=(const QVRNGUCongruential & other);

  /// The state becomes floor(|seed|), at most 2147483647; 0, and a NaN, give state 1. A state of
  /// 2147483647 is 0 modulo the modulus: its first number comes from state 1.
  void SetSeed(double seed) override;

  double GetNext() override;

 private:
  std::uint32_t fState = 1;
};

}  // namespace QVMath_940
