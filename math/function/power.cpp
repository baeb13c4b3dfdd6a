#include <algorithm>
#include <cmath>
#include <limits>

#include "QVMV.h"
#include "QVPower.h"

namespace QVMath_940 {

using QVCommon_940::QVMV;

namespace {

bool IsWholeNumber(double x) {
  return std::floor(x) == x;
}

/// True when v, which is half of a reciprocal or that plus 0.5, is a whole number to k epsilons.
bool IsNearlyWhole(double v, double k) {
  return QVPower::AlmostEqual(v, std::floor(v + 0.5), k);
}

bool HasUsableReciprocal(double x) {
  return x != 0.0 && 1.0 / x <= QVPower::MaxInt();
}

/// |a| to the power b for a != 0.
QVPower::PowerStatus PowerOfPositive(double a, double b, double & out) {
  return QVPower::Exponent(b * std::log(std::fabs(a)), out);
}

}  // namespace

double QVPower::MaxExp() {
  return 709.0;
}

double QVPower::MinExp() {
  return -708.39;
}

bool QVPower::ExpOverflow(double x) {
  return x > 709.0;
}

bool QVPower::ExpUnderflow(double x) {
  return x < -708.39;
}

int QVPower::MaxInt() {
  return std::numeric_limits<int>::max();
}

double QVPower::MEpsilon() {
  return std::numeric_limits<double>::epsilon();
}

bool QVPower::IsInteger(double x) {
  return x <= MaxInt() && IsWholeNumber(x);
}

bool QVPower::IsEvenInteger(double x) {
  return x <= MaxInt() && IsWholeNumber(x / 2.0);
}

bool QVPower::IsOddInteger(double x) {
  return x <= MaxInt() && IsWholeNumber(x / 2.0 + 0.5);
}

bool QVPower::AlmostEqual(double a, double b, double k) {
  if (a == 0.0) return b == 0.0;
  if (b == 0.0 || (a < 0.0) != (b < 0.0)) return false;
  const double larger = std::max(std::fabs(a), std::fabs(b));
  return std::fabs(std::fabs(a) - std::fabs(b)) / larger <= k * MEpsilon();
}

bool QVPower::IsOneOverEvenInteger(double x, double k) {
  return HasUsableReciprocal(x) && IsNearlyWhole((1.0 / x) * 0.5, k);
}

bool QVPower::IsOneOverOddInteger(double x, double k) {
  return HasUsableReciprocal(x) && IsNearlyWhole((1.0 / x) * 0.5 + 0.5, k);
}

QVPower::PowerStatus QVPower::Exponent(double x, double & out) {
  out = QVMV::Missing();
  if (ExpOverflow(x)) return PowerOverflow;
  if (ExpUnderflow(x)) {
    out = 0.0;
    return PowerUnderflow;
  }
  if (std::isnan(x)) return PowerUndefined;
  out = std::exp(x);
  return PowerSuccess;
}

QVPower::PowerStatus QVPower::Power(double a, double b, double & out) {
  // Odd roots are recognised in exponents that were themselves computed, such as 1.0 / 3.0.
  constexpr double kReciprocalTolerance = 32.0;

  out = QVMV::Missing();
  if (std::isnan(a) || std::isnan(b)) return PowerUndefined;
  if (b == 0.0) {
    out = 1.0;
    if (a == 0.0) return PowerZeroToZero;
    return a < 0.0 ? PowerNegativeToZero : PowerSuccess;
  }
  if (a == 0.0) {
    if (b < 0.0) return PowerZeroToNegative;
    out = 0.0;
    return PowerSuccess;
  }
  if (a > 0.0 || IsEvenInteger(b)) return PowerOfPositive(a, b, out);
  if (!IsOddInteger(b) && !IsOneOverOddInteger(b, kReciprocalTolerance)) return PowerUndefined;
  const PowerStatus status = PowerOfPositive(a, b, out);
  if (!QVMV::IsMissing(out)) out = -out;
  return status == PowerOverflow && b > 0.0 ? PowerNegativeOverflow : status;
}

double QVPower::Multiply(double a, double b) {
  if (a == 0.0 || b == 0.0) return 0.0;
  double product = 0.0;
  Exponent(std::log(std::fabs(a)) + std::log(std::fabs(b)), product);
  const bool negative = (a < 0.0) != (b < 0.0);
  return negative && !QVMV::IsMissing(product) ? -product : product;
}

}  // namespace QVMath_940
