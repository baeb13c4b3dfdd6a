/// Adaptive integration of a function of one variable over a finite interval, by a five-point
/// Lobatto rule. The leftmost panel is halved until it agrees with its halves, and so from left to
/// right.
///
///     Bell bell;                                    // an IIntegrand
///     QVMath_940::LobattoQuad quad(&bell);
///     quad.SetTolerance(1e-10);
///     double integral = quad.Integrate(-40.0, 40.0);
///     if (!quad.GetWarnings().GetWarnings(true).empty()) ...
///
/// Before it begins, the ends of the range are pulled in to where the function is still negligible
/// beside its value at the pivot. BEWARE: the pivot is 1.0 unless set, whatever the range.
///
/// BEWARE: when at most the closeness ratio (0.01) of the range is left, that rest is DROPPED
/// without a warning, although the last panel may hold a good part of the integral. Set the
/// closeness to 1e-300 to have everything.
///
/// Failure: the missing value with warning 902, when the function gives it anywhere, or a bound or
/// the sum is a NaN. Warning 901 says that the iterations ran out with a part of the range left,
/// which then entered as one panel. Warnings stay in the object; a new `Integrate` does not clear
/// them. An infinite sum ends the integration and is returned.
///
/// Every call ends: a panel that cannot be halved any more is taken as it stands.
///
/// The function stays the caller's and must outlive its use. Threads: one object from one thread.
#pragma once

#include <iosfwd>

#include "INumIntegration.h"
#include "QVExport.h"
#include "QVWarnings.h"

namespace QVMath_940 {

class IIntegrand;

class QVCOMMON_API LobattoQuad : public INumIntegration {
 public:
  /// `integrand` may be null: the integral is 0 then.
  explicit LobattoQuad(IIntegrand * integrand);
  ~LobattoQuad() override;

  /// Replaces the function; null is allowed.
  void SetIntegrand(IIntegrand * integrand);

  /// Difference between a panel and its halves at which it is accepted, relative to the larger of
  /// the two unless `SetAbsConvergence`. 1e-6 unless set. Only a value above 0 is taken.
  void SetTolerance(double tolerance);

  /// True takes the difference as it is. False unless set.
  void SetAbsConvergence(bool absConvergence);

  /// Most panels that are accepted, 2000 unless set. Only a value above 0 is taken.
  void SetMaxIter(int maxIter);

  /// Halvings of a panel before it is accepted as it stands: one more than this number, which is
  /// 100 unless set. Only a value above 0 is taken.
  void SetMaxSplits(int maxSplits);

  /// The fraction of the range that may be left out at its right end, 0.01 unless set. Only a value
  /// above 0 is taken; 1 and more leave out everything.
  void SetCloseness(double closeness);

  /// Whether the right and the left end are pulled in. True unless set.
  void SetAdjustRight(bool adjust);
  void SetAdjustLeft(bool adjust);

  /// The function counts as negligible where it is below the coefficient times its size at the
  /// pivot: 1e-12 and 1.0 unless set. Any value is taken.
  void SetBoundaryAdjustmentCoef(double coef);
  void SetBoundaryAdjustmentPivot(double pivot);

  /// The warnings so far, 901 and 902 in both lists.
  const QVCommon_940::QVWarnings & GetWarnings() const;

  /// Panels that the last `Integrate` accepted.
  int GetNIterations() const;

  /// Shows the settings on `stream`, which the process-wide display stream does not become.
  void Display(std::basic_ostream<char> & stream) const;

  /// The rule on [left, right]: five values from left to right. 0.0 for left >= right and without a
  /// function; the missing value as soon as the function gives it.
  double SumUp(double left, double right) override;

  /// The integral from `left` to `right`. 0.0 without a function and for an empty range, which the
  /// trimming may have made. Never the negative of the reversed range.
  double Integrate(double left, double right) override;

 private:
  /// Pulls the end of the range in, by halving its distance from the pivot while the function is
  /// negligible. False when the function gives the missing value.
  bool TrimEnd(double & end);

  bool StopOuterLoop(int listSize, double left, double right, double width) const;
  bool StopInnerLoop(int split, double i0, double i1) const;

  /// Enters warning 902 and gives the missing value.
  double Failed();

  static const double gC1;
  static const double gC2;
  static const double gC3;
  static const double gC4;
  static const double gC5;
  static const double gW1;
  static const double gW2;
  static const double gW3;
  static const double gW4;
  static const double gW5;

  IIntegrand * fIntegrand;
  double fTolerance = 1e-6;
  bool fAbsConvergence = false;
  int fMaxIter = 2000;
  int fMaxSplits = 100;
  int fNIterations = 0;
  QVCommon_940::QVWarnings fWarnings;
  double fCloseness = 0.01;
  bool fAdjustRight = true;
  bool fAdjustLeft = true;
  double fBoundaryCoef = 1e-12;
  double fBoundaryPivot = 1.0;
};

}  // namespace QVMath_940
