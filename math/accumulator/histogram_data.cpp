// QVHistogramData: bins of one continuous variable.

#include "QVHistogramData.h"

#include <cmath>
#include <cstddef>
#include <limits>

#include "QVDisplay.h"
#include "QVMV.h"
#include "common/display/display_frame.h"
#include "math/accumulator/chart_bins.h"

namespace QVMath_940 {

using QVCommon_940::QVMV;
using QVXML_940::QVVariateData;

namespace {

/// Out of line, so that the compiler keeps the branch around it.
[[gnu::noinline, gnu::cold]] void SetToZero(double & value) {
  value = 0.0;
}

}  // namespace

QVHistogramData::QVHistogramData() : QVHistogramData(1, -1.0, 1.0, false) {
}

QVHistogramData::QVHistogramData(int nBins, double min, double max, bool computeMoment)
    : fNBins(nBins < 1 || max < min ? 1 : nBins),
      fMin(min),
      fMax(max),
      fComputeMoment(computeMoment) {
  if (max > min && fNBins > 1) fBinLength = (max - min) / fNBins;
  const std::size_t count = static_cast<std::size_t>(fNBins);
  fBinMeans.assign(count, QVMV::Missing());
  fBinFreqs.assign(count, 0.0);
  fBinWeights.assign(count, 0.0);
}

QVHistogramData::~QVHistogramData() = default;

/// The step of West, D. H. D. (1979), "Updating mean and variance estimates: an improved method",
/// Communications of the ACM 22, 532-535, here with the moment divided by W.
bool QVHistogramData::UpdateData(double freqWeight, double regWeight, double x) {
  const std::size_t bin = static_cast<std::size_t>(BinNumber(x, fMin, fBinLength, fNBins));
  const double weight = freqWeight * regWeight;
  const double formerSum = fSumWeights;
  const double sum = formerSum + weight;

  const double step = (weight / sum) * (x - fMean);
  const double mean = fMean + step;
  // What is left of the mean after such a cancellation is rounding error.
  constexpr double kNoise = 2.0 * std::numeric_limits<double>::epsilon();
  // A branch, not a selection: the next case waits for this mean alone, not for the test of it.
  const bool isNoise = std::fabs(fMean) * kNoise > std::fabs(mean);
  fMean = mean;
  if (isNoise) [[unlikely]]
    SetToZero(fMean);
  fSumFreqWeights += freqWeight;
  fNCases += 1.0;
  fSumWeights = sum;

  if (fComputeMoment) {
    const double former = QVMV::IsMissing(fSecondMoment) ? 0.0 : fSecondMoment;
    fSecondMoment = (formerSum / weight) * step * step + (formerSum / sum) * former;
  }

  constexpr double kMissing = std::numeric_limits<double>::lowest();  // QVMV::Missing(), inline
  double & binMean = fBinMeans[bin];
  if (binMean == kMissing) binMean = 0.0;
  fBinWeights[bin] += weight;
  fBinFreqs[bin] += freqWeight;
  binMean += (weight / fBinWeights[bin]) * (x - binMean);
  return true;
}

double QVHistogramData::GetTotalWeight() const {
  return fSumFreqWeights;
}

double QVHistogramData::GetMean() const {
  return fMean;
}

double QVHistogramData::GetStdDev() const {
  if (!fComputeMoment || !(fSumWeights > 1.0)) return 0.0;
  return std::sqrt(fSumWeights * fSecondMoment / (fSumWeights - 1.0));
}

QVVariateData & QVHistogramData::GenerateQVVariateData(const std::string & name) {
  if (!fData.fCounts.empty()) return fData;
  fData.fCounts.resize(1);
  fData.fCounts[0].fTotalFreq = fSumFreqWeights;

  fData.fCoordinates.resize(2);
  QVXML_940::QVXMLCoordinates & observed = fData.fCoordinates[0];
  QVXML_940::QVXMLCoordinates & frequency = fData.fCoordinates[1];
  if (!name.empty()) {
    observed.fFeature = "observed";
    observed.fField = name;
  }
  frequency.fFeature = "frequency";
  observed.fValueType = frequency.fValueType = QVXML_940::kRealValues;
  for (std::size_t bin = 0; bin < fBinFreqs.size(); ++bin) {
    if (!(fBinFreqs[bin] > 0.0)) continue;
    observed.fRealValues.push_back(fBinMeans[bin]);
    frequency.fRealValues.push_back(fBinFreqs[bin]);
  }

  fData.fUseStringStatistics = false;
  fData.fStatisticNames.push_back("mean");
  fData.fNumericStatistics.push_back(fMean);
  if (fComputeMoment) {
    fData.fStatisticNames.push_back("stdDeviation");
    fData.fNumericStatistics.push_back(GetStdDev());
  }
  return fData;
}

void QVHistogramData::Display() const {
  using namespace QVDisplay_940;
  DisplayFrame frame("QVHistogramData");
  DisplayI("The number of bins", fNBins);
  DisplayD("The length of a bin", fBinLength);
  DisplayDV("The means of each bin", fBinMeans, false);
  DisplayDV("N cases of each bin considering frequency weight only", fBinFreqs, false);
  DisplayDV("The weighted (both frequency and regression weight) N cases", fBinWeights, false);
  DisplayD("Minimum value from constructor", fMin);
  DisplayD("Maximum value from constructor", fMax);
  DisplayD("Weighted number of cases including both weights", fSumWeights);
  DisplayD("Total frequency weight", fSumFreqWeights);
  DisplayD("The total unweighted number of cases", fNCases);
  DisplayD("The mean of all cases", fMean);
}

}  // namespace QVMath_940
