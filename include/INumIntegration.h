/// What a numerical integrator offers: a rule on one panel, and the integral over a range.
#pragma once

#include "QVExport.h"

namespace QVMath_940 {

class QVCOMMON_API INumIntegration {
 public:
  virtual ~INumIntegration();

  /// The rule's value on the single panel [left, right]; the missing value where the function
  /// fails.
  virtual double SumUp(double left, double right) = 0;

  /// The integral from `left` to `right`; the missing value where it cannot be given.
  virtual double Integrate(double left, double right) = 0;
};

}  // namespace QVMath_940
