/// The beta distribution.

#include "QVDistFun.h"
#include "math/distribution/special_functions.h"

namespace QVMath_940 {

double QVDistFun::CdfBeta(double x, double a, double b) {
  long status = 0;
  const double result = cdfbet(x, a, b, status);
  return status == 0 ? result : kFailed;
}

}  // namespace QVMath_940
