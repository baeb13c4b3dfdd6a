/// A function of one variable, to be integrated. Derive from it and write `Evaluate`.
///
///     class Bell : public QVMath_940::IIntegrand {
///      public:
///       double Evaluate(double x) override { return std::exp(-x * x); }
///     };
///
/// The integrators never own a function, and call it on the thread of the integration.
#pragma once

#include "QVExport.h"

namespace QVMath_940 {

class QVCOMMON_API IIntegrand {
 public:
  virtual ~IIntegrand();

  /// A copy that the caller owns, or null, which is the answer unless it is overridden. The library
  /// does not call it.
  virtual IIntegrand * Clone() const;

  /// The function's value at x, or the missing value (`QVMV`) where it has none.
  virtual double Evaluate(double x) = 0;
};

}  // namespace QVMath_940
