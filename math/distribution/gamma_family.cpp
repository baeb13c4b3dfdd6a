/// The gamma distribution and its children: chi-square and exponential.

#include <cmath>

#include "QVDistFun.h"
#include "QVPower.h"
#include "math/distribution/special_functions.h"

namespace QVMath_940 {

double QVDistFun::CdfChi(double x, double df) {
  if (AnyNaN(x, df) || df <= 0.0) return kFailed;
  if (x <= 0.0) return 0.0;
  long status = 0;
  return gammad(x / 2.0, df / 2.0, true, status);
}

double QVDistFun::SigChi(double x, double df) {
  if (AnyNaN(x, df) || df <= 0.0) return kFailed;
  if (x <= 0.0) return 1.0;
  long status = 0;
  return gammad(x / 2.0, df / 2.0, false, status);
}

double cdfexp(const double & x, const double & rate, long & status) {
  status = 0;
  if (AnyNaN(x, rate) || rate <= 0.0) return Fail(status, 1);
  if (x <= 0.0) return 0.0;
  const double e = -x * rate;
  return QVPower::ExpUnderflow(e) ? 1.0 : 1.0 - std::exp(e);
}

double QVDistFun::CdfGam(double x, double shape, double rate) {
  if (AnyNaN(x, shape, rate) || shape <= 0.0 || rate <= 0.0) return kFailed;
  if (x <= 0.0) return 0.0;
  long status = 0;
  if (shape == 1.0) return cdfexp(x, rate, status);
  return gammad(x * rate, shape, true, status);
}

double QVDistFun::PdfGamma(double x, double shape, double rate) {
  if (AnyNaN(x, shape, rate) || !(shape > 0.0) || !(rate > 0.0)) return kFailed;
  if (x < 0.0) return 0.0;
  if (x == 0.0) {
    if (shape == 1.0) return std::isfinite(rate) ? rate : kFailed;
    return shape < 1.0 ? kFailed : 0.0;
  }
  const double scaled = x * rate;
  double e = std::log(rate) - scaled;
  if (shape != 1.0) {
    const double logGamma = dnlgam(shape);
    if (IsFailed(logGamma)) return kFailed;
    if (std::isinf(scaled)) return 0.0;  // the exponential beats every power of x
    e = (shape - 1.0) * std::log(scaled) + std::log(rate) - scaled - logGamma;
  }
  if (QVPower::ExpUnderflow(e)) return 0.0;
  return e <= QVPower::MaxExp() ? std::exp(e) : kFailed;
}

}  // namespace QVMath_940
