/// Extremes, mean and variance of one variable.
///
///     QVMath_940::QVContStats stats;
///     stats.Update(1.0);
///     stats.Update(4.0, 2.0, 1.0);   // frequency weight 2, regression weight 1
///     stats.GetMean();               // 3.0
///
/// Each case has a frequency weight, which says how many cases it stands for, and a regression
/// weight; mean and squared deviations are weighted by their product. The missing value is refused
/// as value and as weight. Threads: give each thread its own object and `Pool` at the end.
#pragma once

#include <utility>

#include "QVExport.h"
#include "QVMV.h"

namespace QVMath_940 {

class QVCOMMON_API QVContStats {
 public:
  /// Adds a case. Beware: a weight of 0 or below counts as 1. False, and nothing changed, when an
  /// argument is missing.
  bool Update(double x, double freqWeight, double regWeight);

  /// Adds a case of weight 1; false for a missing x.
  bool Update(double x);

  /// Adds the cases of `other`.
  void Pool(const QVContStats & other);

  /// Minimum and maximum; missing without cases.
  std::pair<double, double> GetExtrema() const;

  /// The weighted mean; missing without cases.
  double GetMean() const;

  /// Sum of squared deviations / (sum of frequency weights - 1); missing unless that sum is
  /// above 1. Beware: the squared deviations carry both weights, the divisor the frequency weights
  /// alone.
  double GetVariance() const;

  /// Sum of the frequency weights.
  double GetSumFreqWeights() const;

  void Display() const;

 private:
  void UpdateExtrema(double low, double high);
  void AddCase(double x, double freqWeight, double weight);

  double fMinimum = QVCommon_940::QVMV::Missing();
  double fMaximum = QVCommon_940::QVMV::Missing();
  double fSumFreqWeights = 0.0;
  double fSumWeights = 0.0;  // of composite weights: frequency weight x regression weight
  double fMean = 0.0;
  double fSsq = 0.0;  // weighted sum of squared deviations from the mean
};

}  // namespace QVMath_940
