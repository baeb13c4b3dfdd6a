// QVRandomValues: its source of uniform numbers, the choice of the distribution, the display.
#include <cmath>
#include <memory>
#include <utility>

#include "QVDisplay.h"
#include "QVRandomValues.h"
#include "QVURandom.h"
#include "common/display/display_frame.h"

namespace QVMath_940 {

namespace {

QVURandom * MakeSource(unsigned long seed) {
  return new QVURandom(seed, true, true, nullptr);
}

QVSymMatrix Identity(int n) {
  QVSymMatrix matrix(n, true);
  matrix.AddToDiagonal(1.0);
  return matrix;
}

}  // namespace

QVRandomValues::QVRandomValues()
    : fURNG(nullptr),
      fmNormalCov(Identity(1)),
      fmWishartScale(Identity(1)),
      fmNormalChol(Identity(1)),
      fmWishartChol(Identity(1)) {
  fURNG = MakeSource(fSeed);
}

QVRandomValues::QVRandomValues(const QVRandomValues & other) : QVRandomValues() {
  *this = other;
}

QVRandomValues & QVRandomValues::operator=(const QVRandomValues & other) {
  if (this == &other) return *this;
  QVURandom * const source = other.fOwnsURNG ? new QVURandom(*other.fURNG) : other.fURNG;
  if (fOwnsURNG) delete fURNG;
  fURNG = source;
  fOwnsURNG = other.fOwnsURNG;
  fSeed = other.fSeed;
  fTolerance = other.fTolerance;
  fDistribution = other.fDistribution;
  fUnivariate = other.fUnivariate;
  fNVariates = other.fNVariates;
  fStandard = other.fStandard;
  fUniformLow = other.fUniformLow;
  fUniformHigh = other.fUniformHigh;
  fvUniformLow = other.fvUniformLow;
  fvUniformHigh = other.fvUniformHigh;
  fNormalMean = other.fNormalMean;
  fvNormalMean = other.fvNormalMean;
  fNormalSigma2 = other.fNormalSigma2;
  fmNormalCov = other.fmNormalCov;
  fChiDf = other.fChiDf;
  fvChiDf = other.fvChiDf;
  fGammaShape = other.fGammaShape;
  fGammaRate = other.fGammaRate;
  fWishartP = other.fWishartP;
  fWishartM = other.fWishartM;
  fmWishartScale = other.fmWishartScale;
  fNormalSigma = other.fNormalSigma;
  fmNormalChol = other.fmNormalChol;
  fmWishartChol = other.fmWishartChol;
  return *this;
}

QVRandomValues::~QVRandomValues() {
  if (fOwnsURNG) delete fURNG;
}

// --- Source -------------------------------------------------------------------------------------

void QVRandomValues::SetSeed(unsigned long seed) {
  constexpr unsigned long kSeedMask = 0xffffffffUL;
  fSeed = seed & kSeedMask;
  QVURandom * const source = MakeSource(fSeed);
  delete fURNG;
  fURNG = source;
}

bool QVRandomValues::SetTolerance(double t) {
  if (!(t > 0.0)) return false;
  fTolerance = t;
  return true;
}

bool QVRandomValues::SetURNGPtr(QVURandom * source) {
  if (source == nullptr) return false;
  if (!fOwnsURNG) return true;
  delete fURNG;
  fURNG = source;
  fOwnsURNG = false;
  return true;
}

// --- Distribution -------------------------------------------------------------------------------

void QVRandomValues::Choose(Distribution distribution, bool standard, int nVariates,
                            bool univariate) {
  fDistribution = distribution;
  fStandard = standard;
  fNVariates = nVariates;
  fUnivariate = univariate;
}

// The Cholesky factor of `matrix`, which may be singular but not through and through.
bool QVRandomValues::Factor(const QVSymMatrix & matrix, QVSymMatrix & factor) const {
  double minDiag = 0.0;
  factor = matrix;
  if (!factor.IsValidMatrix()) return false;
  const int deficiency = factor.LTChol(fTolerance, minDiag, true);
  return deficiency != -1 && deficiency < matrix.GetNRows();
}

bool QVRandomValues::SetParamUniform() {
  return SetParamUniform(0.0, 1.0);
}

bool QVRandomValues::SetParamUniform(double low, double high) {
  if (!(high > low)) return false;
  Choose(kUniform, low == 0.0 && high == 1.0, 1, true);
  fUniformLow = low;
  fUniformHigh = high;
  return true;
}

bool QVRandomValues::SetParamUniform(int n) {
  if (n < 1) return false;
  const auto size = static_cast<std::size_t>(n);
  return SetParamUniform(std::vector<double>(size, 0.0), std::vector<double>(size, 1.0));
}

bool QVRandomValues::SetParamUniform(const std::vector<double> & low,
                                     const std::vector<double> & high) {
  if (low.empty() || low.size() != high.size()) return false;
  bool standard = true;
  for (std::size_t i = 0; i < low.size(); ++i) {
    if (!(low[i] < high[i])) return false;
    standard = standard && low[i] == 0.0 && high[i] == 1.0;
  }
  if (low.size() == 1) return SetParamUniform(low[0], high[0]);
  fvUniformLow = low;
  fvUniformHigh = high;
  Choose(kUniform, standard, static_cast<int>(low.size()), false);
  return true;
}

bool QVRandomValues::SetParamNormal() {
  Choose(kNormal, true, 1, true);
  fNormalMean = 0.0;
  fNormalSigma2 = 1.0;
  fNormalSigma = 1.0;
  return true;
}

bool QVRandomValues::SetParamNormal(double mean, double sigma2) {
  if (!(sigma2 > 0.0)) return false;
  Choose(kNormal, false, 1, true);
  fNormalMean = mean;
  fNormalSigma2 = sigma2;
  fNormalSigma = std::sqrt(sigma2);
  return true;
}

bool QVRandomValues::SetParamNormal(int n) {
  if (n < 1) return false;
  QVSymMatrix identity = Identity(n);
  if (!identity.IsValidMatrix()) return false;
  SetParamNormal();
  Choose(kNormal, true, n, n == 1);
  fvNormalMean.assign(static_cast<std::size_t>(n), 1.0);
  fmNormalChol = identity;
  fmNormalCov = std::move(identity);
  return true;
}

bool QVRandomValues::SetParamNormal(const std::vector<double> & means, double sigma2,
                                    const QVSymMatrix & cov) {
  const int n = static_cast<int>(means.size());
  if (n < 1 || cov.GetNRows() != n || !(sigma2 > 0.0)) return false;
  if (n > 1) {
    QVSymMatrix factor;
    if (!Factor(cov, factor)) return false;
    fmNormalChol = std::move(factor);
  }
  SetParamNormal(means[0], sigma2);
  Choose(kNormal, false, n, n == 1);
  fvNormalMean = means;
  fmNormalCov = cov;
  return true;
}

bool QVRandomValues::SetParamChi(double df) {
  if (!(df > 0.0)) return false;
  Choose(kChiSquare, false, 1, true);
  fChiDf = df;
  return true;
}

bool QVRandomValues::SetParamGamma(double shape, double rate) {
  if (!(shape > 0.0 && rate > 0.0)) return false;
  Choose(kGamma, false, 1, true);
  fGammaShape = shape;
  fGammaRate = rate;
  return true;
}

bool QVRandomValues::SetParamWishart(int p, double m) {
  if (p < 1 || !(m >= p)) return false;
  QVSymMatrix identity = Identity(p);
  if (!identity.IsValidMatrix()) return false;
  Choose(kWishart, true, p, false);
  fWishartP = p;
  fWishartM = m;
  fmWishartChol = identity;
  fmWishartScale = std::move(identity);
  return true;
}

bool QVRandomValues::SetParamWishart(int p, double m, const QVSymMatrix & scale) {
  if (p < 1 || !(m >= p) || scale.GetNRows() != p) return false;
  QVSymMatrix factor;
  if (!Factor(scale, factor)) return false;
  Choose(kWishart, false, p, false);
  fWishartP = p;
  fWishartM = m;
  fmWishartChol = std::move(factor);
  fmWishartScale = scale;
  return true;
}

// --- Display ------------------------------------------------------------------------------------

void QVRandomValues::Display() const {
  using namespace QVDisplay_940;
  constexpr const char * kNames[] = {"Uniform", "Normal", "Chi-square", "Gamma", "Wishart"};
  const DisplayFrame frame("QVRandomValues");
  DisplayD("Current seed", static_cast<double>(fSeed));
  DisplayD("Computational tolerance", fTolerance);
  DisplayText(1, fURNG != nullptr ? "Standard uniform random number generator is defined"
                                  : "Standard uniform random number generator undefined");
  DisplayText(1, "Distribution type:");
  DisplayText(1, kNames[fDistribution]);
  DisplayText(1, fUnivariate ? "Distribution is univariate" : "Distribution is multivariate");
  DisplayI("Number of variates", fNVariates);
  DisplayText(1, fStandard ? "Distribution is standard" : "Distribution is not standard");
  switch (fDistribution) {
    case kUniform:
      DisplayD("Uniform low boundary", fUniformLow);
      DisplayD("Uniform upper boundary", fUniformHigh);
      DisplayDV("Uniform low boundaries", fvUniformLow, false);
      DisplayDV("Uniform upper boundaries", fvUniformHigh, false);
      break;
    case kNormal:
      DisplayD("Normal mean", fNormalMean);
      DisplayD("Normal sigma squared", fNormalSigma2);
      DisplayD("Normal sigma", fNormalSigma);
      DisplayDV("Normal means", fvNormalMean, false);
      DisplayText(1, "Multivariate normal proportional covariance matrix:");
      fmNormalCov.Display();
      DisplayText(1, "Multivariate normal Cholesky factor:");
      fmNormalChol.Display();
      break;
    case kChiSquare:
      DisplayD("Chi-square number of degrees of freedom", fChiDf);
      DisplayDV("Chi-square numbers of degrees of freedom", fvChiDf, false);
      break;
    case kGamma:
      DisplayD("Gamma shape parameter", fGammaShape);
      DisplayD("Gamma scale parameter", fGammaRate);
      break;
    case kWishart:
      DisplayI("Wishart parameter P", fWishartP);
      DisplayD("Wishart parameter M", fWishartM);
      DisplayText(1, "Wishart scale matrix:");
      fmWishartScale.Display();
      DisplayText(1, "Cholesky factor fmWishartChol:");
      fmWishartChol.Display();
      break;
  }
}

}  // namespace QVMath_940
