/// Student's t distribution.

#include <cmath>

#include "QVDistFun.h"
#include "math/distribution/special_functions.h"

namespace QVMath_940 {

namespace {

constexpr double kPi = 3.141592653589793;

/// P(|T| > w) for w > 1 and P(|T| <= w) otherwise, so that the smaller of the two is never the
/// difference of two numbers near 1.
double CentralOrTails(double w, double df, long & status) {
  const double v = df / w;
  return w > 1.0 ? cdfbet(v / (v + w), df / 2.0, 0.5, status)
                 : cdfbet(w / (v + w), 0.5, df / 2.0, status);
}

}  // namespace

double zelvcdft(const double & x, const double & df, long & status) {
  constexpr double kNormalFrom = 1e8;

  status = 0;
  if (AnyNaN(x, df) || df <= 0.0) return Fail(status, 1);
  if (df > kNormalFrom) return prbnrm(x);
  if (x == 0.0) return 0.5;
  if (df == 1.0) return std::atan(x) / kPi + 0.5;
  const double w = std::fabs(x);
  const double c = CentralOrTails(w, df, status);
  if (IsFailed(c)) return c;
  if (w > 1.0) return x > 1.0 ? 1.0 - c / 2.0 : c / 2.0;
  return (x < 0.0 ? -c : c) / 2.0 + 0.5;
}

double QVDistFun::CdfT(double x, double df) {
  long status = 0;
  const double result = zelvcdft(x, df, status);
  return status == 0 ? result : kFailed;
}

double QVDistFun::SigT(double x, double df) {
  if (AnyNaN(x) || !(df > 0.0) || std::isinf(df)) return kFailed;
  if (x == 0.0) return 0.5;
  if (df == 1.0) return 0.5 - std::atan(x) / kPi;
  const double w = std::fabs(x);
  long status = 0;
  const double c = CentralOrTails(w, df, status);
  if (IsFailed(c)) return c;
  if (w > 1.0) return x < -1.0 ? 0.5 - c / 2.0 + 0.5 : c / 2.0;
  return (x > 0.0 ? -c : c) / 2.0 + 0.5;
}

double QVDistFun::PdfT(double x, double df, long & status) {
  constexpr double kHalfLogPi = 0.5723649429247001;

  status = 0;
  if (AnyNaN(x) || !(df > 0.0)) return Fail(status, 1);
  const double upper = dnlgam(df / 2.0 + 0.5);
  const double lower = dnlgam(df / 2.0);
  if (IsFailed(upper) || IsFailed(lower)) return Fail(status, 2);
  double e = upper - 0.5 * std::log(df) - lower - kHalfLogPi;
  if (x != 0.0) e -= 0.5 * (df + 1.0) * std::log(x * x / df + 1.0);
  if (e < kLowestExponent) return 0.0;
  return e <= kHighestExponent ? std::exp(e) : Fail(status, 2);
}

}  // namespace QVMath_940
