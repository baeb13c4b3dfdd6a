/// One scored case of a regression, for RegGainsChart.
#pragma once

#include "QVExport.h"
#include "QVMV.h"

namespace QVMath_940 {

struct QVCOMMON_API RegDataInfo {
  double score = QVCommon_940::QVMV::Missing();   ///< the model's prediction
  double actual = QVCommon_940::QVMV::Missing();  ///< the value observed
  double weight = 1.0;

  /// Descending order: a < b when a has the greater score.
  bool operator<(const RegDataInfo & other) const { return score > other.score; }
};

}  // namespace QVMath_940
