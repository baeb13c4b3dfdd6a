// QVRNGBinomial.
#include <cmath>
#include <cstdint>

#include "QVRNGBinomial.h"
#include "math/random/beta_variate.h"

namespace QVMath_940 {

namespace {

bool AreParameters(double n, double p) {
  constexpr double kLargestN = 9007199254740992.0;  // 2^53
  return n >= 0.0 && n <= kLargestN && n == std::floor(n) && p >= 0.0 && p <= 1.0;
}

// The successes among m trials with probability q.
double CountTrials(UniformSource & uniform, std::int64_t m, double q) {
  double count = 0.0;
  for (; m > 0; --m)
    count += q >= uniform() ? 1.0 : 0.0;
  return count;
}

// Relles's reduction. What is left are m trials whose uniform numbers lie in (lo, lo + w).
double BinomialVariate(UniformSource & uniform, double n, double p) {
  constexpr std::int64_t kFewTrials = 100;
  if (n <= 0.0 || p <= 0.0) return 0.0;
  auto m = static_cast<std::int64_t>(n);
  double count = 0.0;
  double lo = 0.0;
  double w = 1.0;
  double q = p;
  while (m >= kFewTrials) {
    if (m % 2 == 0) {
      --m;
      count += CountTrials(uniform, 1, q);
    }
    // The median of the m numbers is number i of them.
    const std::int64_t i = (m + 1) / 2;
    const double shape = static_cast<double>(i);
    const double t = BetaVariate(uniform, shape, shape) * w;
    const double s = t + lo;
    if (p >= s) {
      lo = s;
      w -= t;
      q = (p - s) / w;
      count += shape;
    } else {
      w = t;
      q = (p - lo) / t;
    }
    m = i - 1;
  }
  if (q > 0.0 && q < 1.0) return count + CountTrials(uniform, m, q);
  return q == 1.0 ? count + static_cast<double>(m) : count;
}

}  // namespace

struct QVRNGBinomial::Record {
  UniformSource uniform;
  double n = 0.0;
  double p = 0.0;
};

QVRNGBinomial::QVRNGBinomial(double n, double p) : fRecord(new Record) {
  SetParameters(n, p);
}

QVRNGBinomial::QVRNGBinomial(const QVRNGBinomial & other)
    : QVRNGenerator(other), fRecord(new Record(*other.fRecord)) {
}

QVRNGBinomial & QVRNGBinomial::operator=(const QVRNGBinomial & other) {
  *fRecord = *other.fRecord;
  return *this;
}

QVRNGBinomial::~QVRNGBinomial() {
  delete fRecord;
}

void QVRNGBinomial::SetParameters(double n, double p) {
  const bool good = AreParameters(n, p);
  fRecord->n = good ? n : 0.0;
  fRecord->p = good ? p : 0.0;
}

void QVRNGBinomial::SetURNGenerator(QVRNGenerator & generator) {
  fRecord->uniform.Use(generator);
}

void QVRNGBinomial::SetSeed(double seed) {
  fRecord->uniform.SetSeed(seed);
}

double QVRNGBinomial::GetNext() {
  return BinomialVariate(fRecord->uniform, fRecord->n, fRecord->p);
}

double QVRNGBinomial::GetNext(double n, double p) {
  return AreParameters(n, p) ? BinomialVariate(fRecord->uniform, n, p) : 0.0;
}

}  // namespace QVMath_940
