/// One segment of a gains chart.
///
/// Raw material: percentages and the lift itself are for the reader to form, from the cumulative
/// counts and the responses.
#pragma once

#include "QVExport.h"
#include "QVMV.h"

namespace QVMath_940 {

struct QVCOMMON_API LiftInfo {
  /// Cases up to and including this segment, each weight cut to an integer; at most the largest
  /// int.
  int cumulativeCount = 0;
  /// ClassGainsChart: weighted hits of the segment. RegGainsChart: weighted sum of actual values.
  double response = 0.0;
  /// Lowest score in the segment.
  double minScore = QVCommon_940::QVMV::Missing();
  /// Mean score of the segment: sum of score x weight over the count of the segment.
  double meanScore = QVCommon_940::QVMV::Missing();
};

}  // namespace QVMath_940
