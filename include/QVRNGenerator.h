/// The base of the object-style random generators: a seed goes in, the next number comes out.
#pragma once

#include "QVExport.h"

namespace QVMath_940 {

class QVCOMMON_API QVRNGenerator {
 public:
  virtual ~QVRNGenerator();

  /// Starts the stream anew.
  virtual void SetSeed(double seed) = 0;

  /// The next number.
  virtual double GetNext() = 0;
};

}  // namespace QVMath_940
