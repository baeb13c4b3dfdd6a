/// Normal variates from an object-style generator of uniform numbers.
///
///     QVMath_940::QVRNGUTwister uniform;
///     uniform.SetSeed(2024);
///     QVMath_940::QVRNGNormal normal(100.0, 15.0);
///     normal.SetURNGenerator(uniform);
///     double x = normal.GetNext();
///
/// Without `SetURNGenerator` the object makes a portable congruential generator with state 1 at its
/// first need and owns it. A generator that was given stays the caller's and must outlive its use.
/// A copy takes over an own generator with its state, so that both go on with the same stream, and
/// shares one that was given. Bad parameters are replaced, without a word, by those of the standard
/// normal distribution. Not safe for use from two threads at a time.
///
/// Method: A. J. Kinderman, J. G. Ramage, "Computer generation of normal random variables", Journal
/// of the American Statistical Association 71 (1976) 893-896.
#pragma once

#include "QVRNGenerator.h"

namespace QVMath_940 {

class QVCOMMON_API QVRNGNormal : public QVRNGenerator {
 public:
  /// sd is the standard deviation, 0 included; a negative one sets (0, 1).
  explicit QVRNGNormal(double mean = 0.0, double sd = 1.0);
  ~QVRNGNormal() override;
  QVRNGNormal(const QVRNGNormal & other);
  QVRNGNormal & operator=(const QVRNGNormal & other);

  /// Takes the parameters over, with the test of the constructor.
  void SetParameters(double mean, double sd);

  /// Draws from this generator from now on; an own one is deleted.
  void SetURNGenerator(QVRNGenerator & generator);

  /// Seeds the generator in use, the caller's too.
  void SetSeed(double seed) override;

  /// One variate.
  double GetNext() override;

  /// One variate with these parameters, which are tested like those of the constructor; the stored
  /// ones stay as they are.
  double GetNext(double mean, double sd);

 private:
  struct Record;
  Record * fRecord;
};

}  // namespace QVMath_940
