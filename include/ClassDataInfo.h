/// One scored case of a classification, for ClassGainsChart.
#pragma once

#include "QVExport.h"
#include "QVMV.h"

namespace QVMath_940 {

struct QVCOMMON_API ClassDataInfo {
  double score = QVCommon_940::QVMV::Missing();  ///< the model's score for the category
  bool hit = false;                              ///< the case is of the category
  double weight = 1.0;

  /// Descending order: a < b when a has the greater score.
  bool operator<(const ClassDataInfo & other) const { return score > other.score; }
};

}  // namespace QVMath_940
