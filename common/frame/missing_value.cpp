#include "QVMV.h"

namespace QVCommon_940 {

const double QVMV::gMissingValue = -1.7976931348623157e308;

double QVMV::Missing() {
  return gMissingValue;
}

bool QVMV::IsMissing(double value) {
  return value == gMissingValue;
}

}  // namespace QVCommon_940
