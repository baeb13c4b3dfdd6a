/// Gains of a classification: how many hits the cases with the highest scores hold, category by
/// category.
///
///     std::vector<std::vector<QVMath_940::ClassDataInfo>> cases(nCategories);  // score, hit,
///     weight QVMath_940::ClassGainsChart chart; std::vector<std::vector<QVMath_940::LiftInfo>>
///     rows = chart.CalculateGains(cases);
///
/// The rules stand at GainsChart.
#pragma once

#include <vector>

#include "ClassDataInfo.h"
#include "GainsChart.h"
#include "LiftInfo.h"
#include "QVExport.h"

namespace QVMath_940 {

class QVCOMMON_API ClassGainsChart : public GainsChart {
 public:
  ~ClassGainsChart() override;

  /// Sorts each list in place, the highest score first, and reports its segments, one list of rows
  /// for each list of cases, in order; no rows for a list without cases. A missing score in a
  /// segment makes its minimum and mean score missing; its counts stay right. A row without cases
  /// has a missing minimum score.
  std::vector<std::vector<LiftInfo>> CalculateGains(
      std::vector<std::vector<ClassDataInfo>> & cases);
};

}  // namespace QVMath_940
