/// The missing value: the one number by which data and results say "not known".
///
/// It is the most negative finite double, -1.7976931348623157e308 (bits 0xFFEFFFFFFFFFFFFF). There
/// is no second marker: NaN and the infinities are not missing. Test for it before you calculate
/// with a number that may be missing: arithmetic treats it as an ordinary double.
///
///     double mean = total > 0.0 ? sum / total : QVCommon_940::QVMV::Missing();
///     if (QVCommon_940::QVMV::IsMissing(mean)) ...
///
/// Thread-safe: there is no state.
#pragma once

#include "QVExport.h"

namespace QVCommon_940 {

class QVCOMMON_API QVMV {
 public:
  /// The missing value.
  static double Missing();

  /// True when `value` compares equal to the missing value; false for NaN and for minus infinity.
  static bool IsMissing(double value);

 private:
  static const double gMissingValue;
};

}  // namespace QVCommon_940
