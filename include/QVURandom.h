/// The source of uniform random numbers that statistical code holds: one object that chooses among
/// a caller's own generator, the Mersenne Twister, a portable congruential generator and the C
/// library's `rand`.
///
///     QVMath_940::QVURandom random(20241, true, true, nullptr);  // the twister
///     double u = random.GetRandom();                             // strictly inside (0, 1)
///
/// The twister and the portable generator give the same stream on every machine.
///
/// Beware: a copy of an object that runs on the twister starts its stream again from the stored
/// seed; the state is not copied. Reading a saved object stores the seed and the flags and does not
/// seed the twister that stands: call `SetSeed` to begin its stream. `rand` has one state for the
/// whole process, which `SetSeed` seeds for all its users.
///
/// The caller's generator stays the caller's. Not safe for use from two threads at a time.
#pragma once

#include <fstream>
#include <iosfwd>

#include "QVExport.h"
#include "QVRandom.h"
#include "QVRandomTwister.h"

namespace QVMath_940 {

class QVCOMMON_API QVURandom {
 public:
  /// The Mersenne Twister with seed 34567.
  QVURandom();

  /// `useTwister` counts only with `usePortable` true and no `user`. Without a user the object runs
  /// on the twister, the portable generator (usePortable alone) or `rand` (neither).
  QVURandom(unsigned long seed, bool usePortable, bool useTwister, QVCommon_940::QVRandom * user);

  /// Seed, flags and the pointer to the user's generator; the twister of the copy starts anew.
  QVURandom(const QVURandom & other);
  QVURandom & operator=(const QVURandom & other);

  ~QVURandom();

  /// Stores the seed (its low 32 bits) and starts the stream in use from it.
  void SetSeed(unsigned long seed);

  /// False switches to `rand` for good: the twister goes too. True does not bring it back.
  void SetUsePortable(bool usePortable);

  bool GetUseTwister() const { return fUseTwister; }
  QVCommon_940::QVRandom * GetUserRNG() { return fUserRNG; }

  /// The next uniform number: inside (0, 1) from the twister and the portable generator, in [0, 1]
  /// from `rand`, of which 15 bits are used, and what the user's generator gives.
  double GetRandom() {
    const bool onTwister = fUseTwister && fUserRNG == nullptr;
    return onTwister ? fTwister->GetRealOpen() : GetRandomElsewhere();
  }

  /// The binary form, 20 bytes little-endian: "QVUR", the seed as a double, the two flags as 32-bit
  /// integers. The result is 20, or 0 for a stream that is bad already.
  int WriteObject(std::basic_fstream<char> & stream) const;

  /// Reads it: 20, or 0, with nothing changed, for a bad or truncated stream or another magic. A
  /// flag is true only for exactly 1. A twister that is called for and not there is made from the
  /// seed; one that is there goes on with its stream.
  int ReadObject(std::basic_fstream<char> & stream);

  /// The lines of the persistence file: 5, or 0 for a stream that is bad.
  int WriteObjectXML(std::basic_ostream<char> & stream, int nTabs) const;

  /// Reads them, as `ReadObject` does: 5, or 0, with nothing changed, after a line on the standard
  /// error stream. It does not throw.
  int ReadObjectXML(std::basic_ifstream<char> & stream);

  void Display() const;

 private:
  double GetRandomElsewhere();
  void TakeWhatWasRead(double seed, bool usePortable, bool useTwister);

  unsigned long fSeed;
  bool fUsePortable;
  bool fUseTwister;
  QVRandomTwister * fTwister;
  QVCommon_940::QVRandom * fUserRNG;
};

}  // namespace QVMath_940
