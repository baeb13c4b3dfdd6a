// QVRandomValues: the draws.
#include <cmath>
#include <utility>

#include "QVMV.h"
#include "QVPower.h"
#include "QVRandomValues.h"
#include "QVURandom.h"
#include "math/random/standard_normal.h"

namespace QVMath_940 {

using QVCommon_940::QVMV;

// --- One number ---------------------------------------------------------------------------------

double QVRandomValues::RVUni(double low, double high) {
  if (!(high >= low)) return QVMV::Missing();
  return fURNG->GetRandom() * (high - low) + low;
}

double QVRandomValues::RVAuxF(double t) {
  return NormalAboveTriangle(t);
}

double QVRandomValues::RVSNor() {
  const auto uniform = [this] { return fURNG->GetRandom(); };
  return StandardNormal(uniform);
}

double QVRandomValues::RVNor(double mean, double sd) {
  if (sd == 0.0) return mean;
  if (sd < 0.0) return QVMV::Missing();
  return RVSNor() * sd + mean;
}

double QVRandomValues::RVExp(double rate) {
  if (!(rate > 0.0)) return QVMV::Missing();
  const double u = fURNG->GetRandom();
  return u < 1.0 ? -std::log(1.0 - u) / rate : QVMV::Missing();
}

// Fishman (1976): exponential numbers with mean `shape`, accepted where they are gamma.
double QVRandomValues::GammaShapeAboveOne(double shape) {
  // ln(x) + 1 - x is at most -(1-x)^2/2 below 1 and -(x-1)^2/(2x) above it. Where that, times a1,
  // is below any logarithm of 1 - u, x cannot be accepted: outside (lowU, highU) a large shape,
  // which rejects most numbers, spares the logarithms.
  constexpr double kLowestLog = -38.0;  // 1 - u is 2^-53 or more
  constexpr double kLargeShape = 100.0;
  constexpr double kMargin = 1e-12;
  const double a1 = shape - 1.0;
  double lowU = 0.0;
  double highU = 1.0;
  if (shape > kLargeShape) {
    const double k = -kLowestLog / a1;
    const double low = 1.0 - std::sqrt(2.0 * k);
    const double high = 1.0 + k + std::sqrt(k * (k + 2.0));
    if (low > 0.0) lowU = -std::expm1(-low) * (1.0 - kMargin);
    highU = -std::expm1(-high) * (1.0 + kMargin);
  }
  // A shape of 1e13 needs some four million rounds.
  constexpr int kMostGammaRounds = 20000000;
  for (int round = 0; round < kMostGammaRounds; ++round) {
    const double u = fURNG->GetRandom();
    const double u2 = fURNG->GetRandom();
    if ((u < lowU || u > highU) && u2 < 1.0) continue;
    const double x = -std::log(1.0 - u);
    const double v = std::log(1.0 - u2);
    if ((std::log(x) + 1.0 - x) * a1 >= v) return x * shape;
  }
  return QVMV::Missing();
}

// Ahrens and Dieter's algorithm GS.
double QVRandomValues::GammaShapeBelowOne(double shape) {
  constexpr double kE = 2.718281828459045;
  const double c = (shape + kE) / kE;
  for (int round = 0; round < kMostRounds; ++round) {
    const double u = fURNG->GetRandom();
    if (u == 0.0) continue;
    const double p = c * u;
    if (p <= 1.0) {
      double x = 0.0;
      QVPower::Exponent(std::log(p) / shape, x);  // 0 on underflow, missing on overflow
      if (std::exp(-x) >= fURNG->GetRandom()) return x;
    } else {
      const double y = -std::log((c - p) / shape);
      if (y > 0.0 && std::log(y) * (shape - 1.0) >= std::log(1.0 - fURNG->GetRandom())) return y;
    }
  }
  return QVMV::Missing();
}

double QVRandomValues::RVGam(double shape, double rate) {
  if (!(shape > 0.0 && rate > 0.0)) return QVMV::Missing();
  // A missing value is divided by the rate like any other number.
  if (shape == 1.0) return RVExp(1.0) / rate;
  return (shape > 1.0 ? GammaShapeAboveOne(shape) : GammaShapeBelowOne(shape)) / rate;
}

double QVRandomValues::RVChi(double df) {
  return df > 0.0 ? RVGam(df / 2.0, 0.5) : QVMV::Missing();
}

double QVRandomValues::GetRandom() {
  if (!fUnivariate) return QVMV::Missing();
  switch (fDistribution) {
    case kUniform:
      return RVUni(fUniformLow, fUniformHigh);
    case kNormal:
      return RVNor(fNormalMean, fNormalSigma);
    case kChiSquare:
      return RVChi(fChiDf);
    case kGamma:
      return RVGam(fGammaShape, fGammaRate);
    case kWishart:
      break;
  }
  return QVMV::Missing();
}

// --- One vector ---------------------------------------------------------------------------------

bool QVRandomValues::GetRandom(std::vector<double> & out) {
  if (fUnivariate || (fDistribution != kUniform && fDistribution != kNormal)) return false;
  const auto n = static_cast<std::size_t>(fNVariates);
  std::vector<double> draw(n);
  if (fDistribution == kUniform) {
    for (std::size_t i = 0; i < n; ++i)
      draw[i] = RVUni(fvUniformLow[i], fvUniformHigh[i]);
  } else {
    for (double & z : draw)
      z = RVSNor();
    if (!fStandard) {
      std::vector<double> y;
      if (!fmNormalChol.ComputeLV(draw, y)) return false;
      for (std::size_t i = 0; i < n; ++i)
        draw[i] = y[i] * fNormalSigma + fvNormalMean[i];
    }
  }
  out = std::move(draw);
  return true;
}

// --- One matrix ---------------------------------------------------------------------------------

// A triangle B in the manner of Bartlett (1933), with the same degrees of freedom in every row; the
// matrix is B B', or C B B' C' with C the factor of the scale.
bool QVRandomValues::GetRandom(QVSymMatrix & out) {
  if (fUnivariate || fDistribution != kWishart) return false;
  const double d = fWishartM - fWishartP;
  if (!(d > 0.0)) return false;
  QVSymMatrix b(fWishartP, true);
  if (!b.IsValidMatrix()) return false;
  for (int i = 0; i < fWishartP; ++i) {
    const double x = RVGam(d / 2.0, 0.5);
    if (QVMV::IsMissing(x) || x < 0.0) return false;
    b.SetElem(i, i, std::sqrt(x));
    for (int j = 0; j < i; ++j)
      b.SetElem(i, j, RVSNor());
  }
  b.LTLLTrans();
  if (fStandard) {
    out = std::move(b);
    return true;
  }
  return b.ComputeLSLTrans(fmWishartChol, out);
}

}  // namespace QVMath_940
