// QVRNGBeta and the variate behind it.
#include <cmath>

#include "QVRNGBeta.h"
#include "math/distribution/special_functions.h"
#include "math/random/beta_variate.h"
#include "math/random/standard_normal.h"

namespace QVMath_940 {

namespace {

constexpr int kMostTries = 5000;

// Uniform numbers that are not above 0 are drawn again.
double PositiveUniform(UniformSource & uniform) {
  double v = uniform();
  for (int round = 0; v <= 0.0 && round < kMostRounds; ++round)
    v = uniform();
  return v;
}

// exp(exponent), 0 below the lowest exponent.
double LimitedExp(double exponent) {
  return exponent < kLowestExponent ? 0.0 : std::exp(exponent);
}

// Both shapes above 1: x = m + z h around the mode, accepted with the ratio of the densities.
bool DrawAroundMode(UniformSource & uniform, double a, double b, double & x) {
  // Shapes within 1e-9 of 1 spread the proposals so thinly that the inverse is the quicker way.
  constexpr int kMostProposals = 100000;
  const double a1 = a - 1;
  const double b1 = b - 1;
  const double s = a1 + b1;
  const double l = s * std::log(s);
  const double m = a1 / s;
  const double h = 0.5 / std::sqrt(s);
  int proposals = 0;
  for (int round = 0; round < kMostTries; ++round) {
    double z;
    do {
      if (++proposals > kMostProposals) return false;
      z = StandardNormal(uniform);
      x = z * h + m;
    } while (!(x >= 0 && x <= 1));
    const double w = b1 * std::log((1 - x) / b1) + a1 * std::log(x / a1) + l + 0.5 * z * z;
    if (w >= std::log(PositiveUniform(uniform))) return true;
  }
  return false;
}

// Johnk's method; the first power and its redraws come before the second.
bool DrawJohnk(UniformSource & uniform, double a, double b, double & x) {
  for (int round = 0; round < kMostTries; ++round) {
    const double first = LimitedExp(std::log(PositiveUniform(uniform)) / a);
    const double second = LimitedExp(std::log(PositiveUniform(uniform)) / b);
    const double s = first + second;
    if (s > 0 && s <= 1) {
      x = first / s;
      return true;
    }
  }
  return false;
}

}  // namespace

double BetaVariate(UniformSource & uniform, double a, double b) {
  if (a == 1 && b == 1) return uniform();
  if (b == 1) {
    const double v = uniform();
    return v <= 0 ? 0.0 : LimitedExp(std::log(v) / a);
  }
  if (a == 1) {
    const double v = uniform();
    return v <= 0 ? 1.0 : 1 - LimitedExp(std::log(v) / b);
  }
  double x = 0.0;
  const bool found =
      a > 1 && b > 1 ? DrawAroundMode(uniform, a, b, x) : DrawJohnk(uniform, a, b, x);
  return found ? x : betinv(uniform(), a, b, 1e-20, 1e-12);
}

struct QVRNGBeta::Record {
  UniformSource uniform;
  double a = 1.0;
  double b = 1.0;
};

QVRNGBeta::QVRNGBeta(double a, double b) : fRecord(new Record) {
  SetParameters(a, b);
}

QVRNGBeta::QVRNGBeta(const QVRNGBeta & other)
    : QVRNGenerator(other), fRecord(new Record(*other.fRecord)) {
}

QVRNGBeta & QVRNGBeta::operator=(const QVRNGBeta & other) {
  *fRecord = *other.fRecord;
  return *this;
}

QVRNGBeta::~QVRNGBeta() {
  delete fRecord;
}

void QVRNGBeta::SetParameters(double a, double b) {
  const bool good = a > 0.0 && b > 0.0;
  fRecord->a = good ? a : 1.0;
  fRecord->b = good ? b : 1.0;
}

void QVRNGBeta::SetURNGenerator(QVRNGenerator & generator) {
  fRecord->uniform.Use(generator);
}

void QVRNGBeta::SetSeed(double seed) {
  fRecord->uniform.SetSeed(seed);
}

double QVRNGBeta::GetNext() {
  return BetaVariate(fRecord->uniform, fRecord->a, fRecord->b);
}

double QVRNGBeta::GetNext(double a, double b) {
  constexpr double kBadShapes = -1.0;
  return a > 0.0 && b > 0.0 ? BetaVariate(fRecord->uniform, a, b) : kBadShapes;
}

}  // namespace QVMath_940
