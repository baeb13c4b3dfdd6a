/// The user-missing values that a numeric encoder keeps: a list of numbers with labels and one
/// interval. A plain record; the encoders (`QVCatNumEncoder`, `QVContEncoder`, `QVRoundEncoder`)
/// hold one and give its content out through their own operations.
#pragma once

#include <string>
#include <vector>

#include "QVMV.h"

namespace QVXML_940 {

struct QVNumericMissing {
  std::vector<double> fValues;       ///< discrete user-missing values
  std::vector<std::string> fLabels;  ///< their labels, parallel to the values
  bool fHasInterval = false;
  double fLow = QVCommon_940::QVMV::Missing();   ///< ends of the interval, both included
  double fHigh = QVCommon_940::QVMV::Missing();  ///< missing until an interval is set
};

}  // namespace QVXML_940
