/// Binomial variates from an object-style generator of uniform numbers.
///
///     QVMath_940::QVRNGBinomial successes(1000.0, 0.3);
///     double count = successes.GetNext();  // a whole number, 0 to 1000
///
/// The generator of uniform numbers is owned, shared and copied as QVRNGNormal.h says. Not safe for
/// use from two threads at a time.
///
/// Method: D. A. Relles, "A simple algorithm for generating binomial random variables when N is
/// large", Journal of the American Statistical Association 67 (1972) 612-613: while 100 trials or
/// more are left, the median of their uniform numbers, a beta variate, tells on which side of it
/// half of them lie. Below 100 each trial costs one uniform number.
///
/// Beware of p = 1 with n of 200 and more: the probability that remains after two or more halvings
/// may round to a number above 1, and the trials that are left are then not counted.
#pragma once

#include "QVRNGenerator.h"

namespace QVMath_940 {

class QVCOMMON_API QVRNGBinomial : public QVRNGenerator {
 public:
  /// n trials, each a success with probability p. n that is negative, not whole or above 2^53
  /// (where doubles no longer count), and p outside 0 to 1, set (0, 0).
  explicit QVRNGBinomial(double n = 0.0, double p = 0.0);
  ~QVRNGBinomial() override;
  QVRNGBinomial(const QVRNGBinomial & other);
  QVRNGBinomial & operator=(const QVRNGBinomial & other);

  /// Takes the parameters over, with the test of the constructor.
  void SetParameters(double n, double p);

  /// Draws from this generator from now on; an own one is deleted.
  void SetURNGenerator(QVRNGenerator & generator);

  /// Seeds the generator in use, the caller's too.
  void SetSeed(double seed) override;

  /// One variate.
  double GetNext() override;

  /// One variate with these parameters; 0.0 for parameters that the constructor would not take. The
  /// stored ones stay as they are.
  double GetNext(double n, double p);

 private:
  struct Record;
  Record * fRecord;
};

}  // namespace QVMath_940
