/// The open panels of an adaptive integration, in ascending order. All work is done at the first.
///
///     BoundsList panels(&integrator);
///     panels.Initialize(0.0, 8.0);
///     panels.Split();                     // [0, 4] and [4, 8]
///     panels.ComputeI0andI1(i0, i1);      // [0, 4] whole and in halves
///     panels.Remove();                    // leaves [4, 8]
///
/// Every operation takes constant time but for the integrator's own. The integrator stays the
/// caller's. Threads: an ordinary value.
#pragma once

#include <iosfwd>
#include <list>

#include "QVExport.h"

namespace QVMath_940 {

class INumIntegration;

class QVCOMMON_API BoundsList {
 public:
  /// No panel. `integrator` may be null and must outlive its use here.
  explicit BoundsList(INumIntegration * integrator);
  BoundsList(const BoundsList &) = default;
  BoundsList & operator=(const BoundsList &) = default;
  virtual ~BoundsList();

  /// Exactly one panel, whatever was there. The bounds are not tested.
  void Initialize(double left, double right);

  /// The integrator's sum over the first panel as a whole, and over its two halves together. Both
  /// are 0 without an integrator or a panel. i1 is the missing value when either half is.
  void ComputeI0andI1(double & i0, double & i1) const;

  /// Takes the first panel off. Returns the number left, 0 for an empty list.
  int Remove();

  /// Halves the first panel. Returns the number of panels, 0 for an empty list.
  int Split();

  /// Left end of the first panel, 0.0 for an empty list.
  double GetFirstLeft() const;

  /// True when the middle of the first panel is a number between its ends; false for an empty list.
  bool CanSplit() const;

  /// Shows the panels on `stream`, which the process-wide display stream does not become.
  void Display(std::basic_ostream<char> & stream);

 private:
  double FirstMiddle() const;

  INumIntegration * fIntegrator;
  std::list<double> fLeft;
  std::list<double> fRight;
};

}  // namespace QVMath_940
