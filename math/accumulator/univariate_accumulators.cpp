// QVCatStats and QVContStats: category counts and moments of one variable.

#include <algorithm>
#include <limits>
#include <new>
#include <stdexcept>

#include "QVCatStats.h"
#include "QVContStats.h"
#include "QVDisplay.h"
#include "QVMV.h"

namespace QVMath_940 {

using QVCommon_940::QVMV;

// === Category counts =============================================================================

bool QVCatStats::Update(double category, double weight) {
  if (QVMV::IsMissing(category) || QVMV::IsMissing(weight)) return false;
  // The largest category is the largest int; this test refuses NaN as well.
  constexpr double kBound = std::numeric_limits<int>::max() + 1.0;
  if (!(category >= 0.0 && category < kBound)) return false;
  const std::size_t k = static_cast<std::size_t>(category);
  if (k >= fCounts.size()) {
    try {
      fCounts.resize(k + 1, 0.0);
    } catch (const std::bad_alloc &) {
      return false;
    } catch (const std::length_error &) {
      return false;
    }
  }
  fCounts[k] += weight <= 0.0 ? 1.0 : weight;
  return true;
}

void QVCatStats::Pool(const QVCatStats & other) {
  if (fCounts.size() < other.fCounts.size()) fCounts.resize(other.fCounts.size(), 0.0);
  for (std::size_t k = 0; k < other.fCounts.size(); ++k) {
    fCounts[k] += other.fCounts[k];
  }
}

unsigned int QVCatStats::GetNCategories(bool all) const {
  std::size_t count = fCounts.size();
  if (!all) {
    for (std::size_t k = 0; k < count; ++k) {
      if (fCounts[k] == 0.0) --count;
    }
  }
  return static_cast<unsigned int>(count);
}

double QVCatStats::GetSumCounts() const {
  double sum = 0.0;
  for (const double count : fCounts) {
    sum += count;
  }
  return sum;
}

double QVCatStats::GetCatCount(unsigned int category) const {
  return category < fCounts.size() ? fCounts[category] : 0.0;
}

const std::vector<double> & QVCatStats::GetCatCounts() const {
  return fCounts;
}

void QVCatStats::Display() const {
  QVDisplay_940::DisplayText(1, "QVCatStats");
  QVDisplay_940::DisplayDV("Category counts", fCounts, false);
}

// === Moments =====================================================================================

bool QVContStats::Update(double x, double freqWeight, double regWeight) {
  if (QVMV::IsMissing(x) || QVMV::IsMissing(freqWeight) || QVMV::IsMissing(regWeight)) return false;
  const double f = freqWeight <= 0.0 ? 1.0 : freqWeight;
  const double r = regWeight <= 0.0 ? 1.0 : regWeight;
  AddCase(x, f, f * r);
  return true;
}

bool QVContStats::Update(double x) {
  if (QVMV::IsMissing(x)) return false;
  AddCase(x, 1.0, 1.0);
  return true;
}

/// The step of West, D. H. D. (1979), "Updating mean and variance estimates: an improved method",
/// Communications of the ACM 22, 532-535.
void QVContStats::AddCase(double x, double freqWeight, double weight) {
  UpdateExtrema(x, x);
  fSumFreqWeights += freqWeight;
  const double deviation = x - fMean;
  const double newSumWeights = fSumWeights + weight;
  fMean += deviation * weight / newSumWeights;
  fSsq += (fSumWeights * weight / newSumWeights) * deviation * deviation;
  fSumWeights = newSumWeights;
}

void QVContStats::UpdateExtrema(double low, double high) {
  if (QVMV::IsMissing(fMinimum) || low < fMinimum) fMinimum = low;
  if (QVMV::IsMissing(fMaximum) || high > fMaximum) fMaximum = high;
}

/// The pairwise form of Chan, T. F., Golub, G. H. and LeVeque, R. J. (1983), "Algorithms for
/// computing the sample variance", The American Statistician 37, 242-247.
void QVContStats::Pool(const QVContStats & other) {
  if (other.fSumFreqWeights == 0.0) return;
  if (fSumFreqWeights == 0.0) {
    *this = other;
    return;
  }
  UpdateExtrema(other.fMinimum, other.fMaximum);
  const double difference = other.fMean - fMean;
  const double sumWeights = fSumWeights + other.fSumWeights;
  fSsq = fSsq + other.fSsq + fSumWeights * other.fSumWeights * difference * difference / sumWeights;
  fMean += difference * other.fSumWeights / sumWeights;
  fSumFreqWeights += other.fSumFreqWeights;
  fSumWeights = sumWeights;
}

std::pair<double, double> QVContStats::GetExtrema() const {
  return {fMinimum, fMaximum};
}

double QVContStats::GetMean() const {
  return fSumFreqWeights == 0.0 ? QVMV::Missing() : fMean;
}

double QVContStats::GetVariance() const {
  return fSumFreqWeights > 1.0 ? fSsq / (fSumFreqWeights - 1.0) : QVMV::Missing();
}

double QVContStats::GetSumFreqWeights() const {
  return fSumFreqWeights;
}

void QVContStats::Display() const {
  const double extrema[] = {fMinimum, fMaximum};
  const double sums[] = {fSumFreqWeights, fSumWeights};
  QVDisplay_940::DisplayText(1, "QVContStats");
  QVDisplay_940::DisplayDA("Min & max", extrema, 2, false);
  QVDisplay_940::DisplayDA("Sum of freq. wgts, composite wgts", sums, 2, false);
  QVDisplay_940::DisplayD("Mean", fMean);
  QVDisplay_940::DisplayD("SSQ", fSsq);
}

}  // namespace QVMath_940
