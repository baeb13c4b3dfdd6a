// Takes one header by its own name.

#include <QVMV.h>

bool OneHeaderIsEnough() {
  return !QVCommon_940::QVMV::IsMissing(0.0);
}
