// Probabilities of a multinomial logit model for one sparse row of predictors.
#include <algorithm>
#include <cmath>

#include "QVSparseVector.h"

namespace QVMath_940 {

namespace {

// Arguments of exp that neither overflow nor underflow.
constexpr double kMaxExp = 709.0;
constexpr double kMinExp = -708.39;

double ExpOrZero(double x) {
  return x < kMinExp ? 0.0 : std::exp(x);
}

// All linear predictors are x.
void EqualPredictors(double x, int others, double * probs, double & logLast) {
  double each;
  if (x > kMaxExp) {
    each = 1.0 / others;
    probs[others] = 0.0;
    logLast = -x - std::log(static_cast<double>(others));
  } else if (x < kMinExp) {
    each = 0.0;
    probs[others] = 1.0;
    logLast = 0.0;
  } else {
    const double e = std::exp(x);
    const double total = others * e + 1.0;
    each = e / total;
    probs[others] = 1.0 / total;
    logLast = -std::log(total);
    if (std::isinf(total)) {  // the same with both parts of the fractions divided by e
      const double scaled = others + std::exp(-x);
      each = 1.0 / scaled;
      probs[others] = std::exp(-x) / scaled;
      logLast = -x - std::log(scaled);
    }
  }
  std::fill_n(probs, others, each);
}

// The linear predictors eta lie between lo and hi, lo < hi. The whole number s shifts them into the
// range of exp.
void DifferentPredictors(const std::vector<double> & eta, double hi, double lo, double * probs,
                         double & logLast) {
  if (-hi > kMaxExp) {  // exp(-hi) overflows: beside the reference category nothing counts
    std::fill_n(probs, eta.size(), 0.0);
    probs[eta.size()] = 1.0;
    logLast = 0.0;
    return;
  }
  if (std::isinf(hi)) {  // an overflow of beta times x: those that overflowed share everything
    const double each = 1.0 / static_cast<double>(std::count(eta.begin(), eta.end(), hi));
    for (const double e : eta)
      *probs++ = e == hi ? each : 0.0;
    *probs = 0.0;
    logLast = -hi;
    return;
  }
  double s = 0.0;
  if (hi > kMaxExp) {
    s = std::trunc(hi - kMaxExp);
  } else if (lo < kMinExp) {
    s = std::max(std::trunc(hi - kMaxExp), std::trunc(lo - kMinExp));
  }
  double sum = ExpOrZero(-hi);  // the reference category, beside the largest
  for (const double e : eta)
    if (!(e - hi < kMinExp)) sum += std::exp(e - hi);
  const double t = std::log(sum) + (hi - s);
  for (const double e : eta)
    *probs++ = ExpOrZero(e - s - t);
  logLast = -s - t;
  *probs = ExpOrZero(logLast);
}

}  // namespace

bool QVSparseVector::ComputeProbabilities(const std::vector<double> & beta, int categories,
                                          int width, std::vector<double> & probs,
                                          double & logLast) const {
  if (!fIsValid || categories < 1 || width < 1) return false;
  const std::size_t others = static_cast<std::size_t>(categories) - 1;
  if (beta.size() < others * static_cast<std::size_t>(width) || !Fits(0, width)) return false;
  if (probs.size() <= others) probs.resize(others + 1);

  if (others == 0) {
    probs[0] = 1.0;
    logLast = 0.0;
    return true;
  }
  std::vector<double> eta(others);
  for (std::size_t c = 0; c < others; ++c)
    eta[c] = InnerProductWithPart(beta, static_cast<int>(c) * width);
  const auto [lo, hi] = std::minmax_element(eta.begin(), eta.end());
  if (std::any_of(eta.begin(), eta.end(), [](double e) { return std::isnan(e); })) {
    probs[0] = 1.0;
    logLast = 0.0;
  } else if (*hi > *lo) {
    DifferentPredictors(eta, *hi, *lo, probs.data(), logLast);
  } else {
    EqualPredictors(*hi, categories - 1, probs.data(), logLast);
  }
  return true;
}

}  // namespace QVMath_940
