/// Uniform numbers on [0, 1) with 53 bits from the Mersenne Twister (see QVRandomTwister.h).
///
/// Every double is a seed of its own: fractions, signs and sizes all count. An object that was
/// never seeded seeds itself with 5489. Copies take over the whole state. Not safe for use from two
/// threads at a time.
#pragma once

#include "QVRNGenerator.h"

namespace QVMath_940 {

struct TwisterWords;

class QVCOMMON_API QVRNGUTwister : public QVRNGenerator {
 public:
  QVRNGUTwister();
  ~QVRNGUTwister() override;
  QVRNGUTwister(const QVRNGUTwister & other);
  QVRNGUTwister & operator=(const QVRNGUTwister & other);

  /// A whole number from 0 to 2147483647 seeds by init_genrand, every other double by init_by_array
  /// from its sign, exponent and digits. An infinity seeds as the largest finite double of its
  /// sign, a NaN as 0.
  void SetSeed(double seed) override;

  double GetNext() override;

 private:
  TwisterWords * fWords;
};

}  // namespace QVMath_940
