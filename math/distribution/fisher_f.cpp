/// The F distribution.

#include <cmath>

#include "QVDistFun.h"
#include "math/distribution/special_functions.h"

namespace QVMath_940 {

double zelvcdff(const double & x, const double & df1, const double & df2, long & status) {
  status = 0;
  if (AnyNaN(x, df1, df2) || df1 <= 0.0 || df2 <= 0.0) return Fail(status, 1);
  if (x <= 0.0) return 0.0;
  if (df1 == 1.0) {
    const double t = zelvcdft(std::sqrt(x), df2, status);
    return IsFailed(t) ? Fail(status, 2) : 2.0 * t - 1.0;
  }
  const double r = df2 / df1;
  if (x >= 1.0) {
    const double upperTail = cdfbet(r / (r + x), df2 / 2.0, df1 / 2.0, status);
    return IsFailed(upperTail) ? upperTail : 1.0 - upperTail;
  }
  return cdfbet(x / (r + x), df1 / 2.0, df2 / 2.0, status);
}

double QVDistFun::CdfF(double x, double df1, double df2) {
  long status = 0;
  const double result = zelvcdff(x, df1, df2, status);
  return status == 0 ? result : kFailed;
}

double QVDistFun::SigF(double x, double df1, double df2) {
  if (AnyNaN(x) || !(df1 > 0.0) || !(df2 > 0.0)) return kFailed;
  if (x <= 0.0) return 1.0;
  const double r = df2 / df1;
  long status = 0;
  if (x >= 1.0) return cdfbet(r / (r + x), df2 / 2.0, df1 / 2.0, status);
  const double lowerTail = cdfbet(x / (r + x), df1 / 2.0, df2 / 2.0, status);
  return IsFailed(lowerTail) ? lowerTail : 1.0 - lowerTail;
}

}  // namespace QVMath_940
