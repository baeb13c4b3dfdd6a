/// A caller's own source of uniform random numbers.
///
/// Derive from it and give the object to a `QVURandom`, which calls it and never owns it.
#pragma once

#include "QVExport.h"

namespace QVCommon_940 {

class QVCOMMON_API QVRandom {
 public:
  virtual ~QVRandom();

  /// The next uniform number.
  virtual double GetRandom() = 0;
};

}  // namespace QVCommon_940
