/// Beta variates from an object-style generator of uniform numbers.
///
///     QVMath_940::QVRNGBeta beta(2.0, 5.0);
///     beta.SetSeed(2024);
///     double x = beta.GetNext();  // in [0, 1]
///
/// The generator of uniform numbers is owned, shared and copied as QVRNGNormal.h says. Bad
/// parameters are replaced, without a word, by those of the uniform distribution. Not safe for use
/// from two threads at a time.
///
/// Method: rejection from a normal distribution around the mode when both shapes are above 1, the
/// inverse when one of them is 1, otherwise M. D. Johnk's rejection (Metrika 8 (1964) 5-15). The
/// few shapes with which these find no variate in 5,000 tries are drawn by the inverse of the
/// distribution function.
#pragma once

#include "QVRNGenerator.h"

namespace QVMath_940 {

class QVCOMMON_API QVRNGBeta : public QVRNGenerator {
 public:
  /// The shapes; one that is not above 0 sets (1, 1).
  explicit QVRNGBeta(double a = 1.0, double b = 1.0);
  ~QVRNGBeta() override;
  QVRNGBeta(const QVRNGBeta & other);
  QVRNGBeta & operator=(const QVRNGBeta & other);

  /// Takes the shapes over, with the test of the constructor.
  void SetParameters(double a, double b);

  /// Draws from this generator from now on; an own one is deleted.
  void SetURNGenerator(QVRNGenerator & generator);

  /// Seeds the generator in use, the caller's too.
  void SetSeed(double seed) override;

  /// One variate. -1.0 where infinite shapes leave none.
  double GetNext() override;

  /// One variate with these shapes; -1.0 unless both are above 0. Beware: the stored shapes, which
  /// stay as they are, do not stand in for bad ones here.
  double GetNext(double a, double b);

 private:
  struct Record;
  Record * fRecord;
};

}  // namespace QVMath_940
