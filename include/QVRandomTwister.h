/// The Mersenne Twister MT19937.
///
/// M. Matsumoto, T. Nishimura, "Mersenne Twister: A 623-dimensionally equidistributed uniform
/// pseudo-random number generator", ACM Transactions on Modeling and Computer Simulation 8 (1998)
/// 3-30, with the initialisation of 2002.
///
///     QVMath_940::QVRandomTwister twister;
///     twister.Initialize(5489);
///     twister.GetInteger32();  // 3499211612
///
/// An object that was never seeded seeds itself with 5489 at its first draw. Copies take over the
/// whole state: both go on with the same stream. Not safe for use from two threads at a time.
#pragma once

#include "QVExport.h"
#include "TwisterWords.h"

namespace QVMath_940 {

class QVCOMMON_API QVRandomTwister {
 public:
  QVRandomTwister();
  QVRandomTwister(const QVRandomTwister & other);
  QVRandomTwister & operator=(const QVRandomTwister & other);
  ~QVRandomTwister();

  /// The published init_genrand; the low 32 bits of the seed count.
  void Initialize(unsigned long seed);

  /// The published init_by_array; the low 32 bits of each word count. A length of 0 leaves the
  /// state of `Initialize(19650218)` with the first word set.
  void InitByArray(const unsigned long * key, unsigned long length);

  /// The next tempered word, 0 to 4294967295.
  unsigned long GetInteger32() { return fWords->NextWord(); }

  /// The upper 31 bits of the next word.
  long GetInteger31() { return static_cast<long>(fWords->NextWord() >> 1); }

  /// Uniform on [0, 1], [0, 1) and (0, 1), 32 bits each; one word a draw.
  double GetRealClosed() { return fWords->NextWord() / 4294967295.0; }
  double GetRealClosedOpen() { return fWords->NextWord() * kTwoToMinus32; }
  double GetRealOpen() { return (fWords->NextWord() + 0.5) * kTwoToMinus32; }

  /// Uniform on [0, 1) with 53 bits; two words a draw.
  double GetRealRes53();

 private:
  static constexpr double kTwoToMinus32 = 2.3283064365386963e-10;

  TwisterWords * fWords;
};

}  // namespace QVMath_940
