/// Gains of a regression: what the cases with the highest predictions sum up to.
///
///     std::vector<QVMath_940::RegDataInfo> cases;   // score, actual value, weight
///     QVMath_940::RegGainsChart chart;
///     for (const QVMath_940::LiftInfo & row : chart.CalculateGains(cases)) ...
///
/// The rules stand at GainsChart.
#pragma once

#include <vector>

#include "GainsChart.h"
#include "LiftInfo.h"
#include "QVExport.h"
#include "RegDataInfo.h"

namespace QVMath_940 {

class QVCOMMON_API RegGainsChart : public GainsChart {
 public:
  ~RegGainsChart() override;

  /// Sorts the cases in place, the highest score first, and reports their segments; no rows without
  /// cases. A missing score is the lowest number. BEWARE: a row without cases repeats the minimum
  /// score of the row before.
  std::vector<LiftInfo> CalculateGains(std::vector<RegDataInfo> & cases);
};

}  // namespace QVMath_940
