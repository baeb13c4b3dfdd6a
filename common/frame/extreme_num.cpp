#include <cmath>

#include "QVExtremeNum.h"

namespace QVMath_940 {
namespace QVExtremeNum {
namespace {

/// sqrt(larger^2 - smaller^2) for 0 <= smaller < larger.
double RootOfDifference(double larger, double smaller) {
  const double ratio = smaller / larger;
  return std::sqrt(1.0 - ratio * ratio) * larger;
}

/// sqrt(larger^2 + smaller^2) for 0 <= smaller < larger.
double RootOfSum(double larger, double smaller) {
  const double ratio = smaller / larger;
  return std::sqrt(ratio * ratio + 1.0) * larger;
}

}  // namespace

bool SumSqRoot(double a, double b, double c, double d, double & result) {
  const bool subtractsP = b < 0.0;
  const bool subtractsQ = d < 0.0;
  const double p = std::fabs(a) * std::sqrt(std::fabs(b));
  const double q = std::fabs(c) * std::sqrt(std::fabs(d));
  if ((subtractsP && subtractsQ) || std::isnan(p) || std::isnan(q)) {
    return false;
  }
  if (subtractsP || subtractsQ) {
    const double added = subtractsP ? q : p;
    const double subtracted = subtractsP ? p : q;
    if (subtracted > added) {
      return false;
    }
    result = subtracted == added ? 0.0 : RootOfDifference(added, subtracted);
    return true;
  }
  if (p > q) {
    result = RootOfSum(p, q);
  } else if (q > p) {
    result = RootOfSum(q, p);
  } else {
    result = std::sqrt(2.0) * p;
  }
  return true;
}

}  // namespace QVExtremeNum
}  // namespace QVMath_940
