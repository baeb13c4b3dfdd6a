// QVBarChartData: frequencies of categories.

#include "QVBarChartData.h"

#include <cstddef>

#include "QVDisplay.h"
#include "common/display/display_frame.h"

namespace QVMath_940 {

using QVXML_940::QVVariateData;

QVBarChartData::QVBarChartData(int nCategories, bool relative)
    : fNCategories(nCategories < 0 ? 0 : nCategories),
      fFreqs(static_cast<std::size_t>(fNCategories), 0.0),
      fRelative(relative) {
}

QVBarChartData::~QVBarChartData() = default;

bool QVBarChartData::UpdateData(double freqWeight, double category) {
  if (!(category >= 0.0 && category < fNCategories)) return false;
  fFreqs[static_cast<std::size_t>(category)] += freqWeight;
  fSumFreqWeights += freqWeight;
  return true;
}

double QVBarChartData::GetTotalWeight() const {
  return fSumFreqWeights;
}

QVVariateData & QVBarChartData::GenerateQVVariateData(const std::string & name,
                                                      const std::vector<std::string> & labels) {
  if (!fData.fCounts.empty()) return fData;
  if (fRelative) {
    for (double & frequency : fFreqs) {
      frequency /= fSumFreqWeights;
    }
  }
  fData.fCounts.resize(1);
  fData.fCounts[0].fTotalFreq = fSumFreqWeights;

  fData.fCoordinates.resize(2);
  QVXML_940::QVXMLCoordinates & observed = fData.fCoordinates[0];
  QVXML_940::QVXMLCoordinates & frequency = fData.fCoordinates[1];
  if (!name.empty()) {
    observed.fFeature = "observed";
    observed.fField = name;
  }
  observed.fValueType = QVXML_940::kStringValues;
  frequency.fFeature = "frequency";
  frequency.fValueType = QVXML_940::kRealValues;
  for (std::size_t category = 0; category < fFreqs.size(); ++category) {
    if (!(fFreqs[category] > 0.0)) continue;
    observed.fStringValues.push_back(category < labels.size() ? labels[category] : std::string());
    frequency.fRealValues.push_back(fFreqs[category]);
  }
  return fData;
}

void QVBarChartData::Display() const {
  using namespace QVDisplay_940;
  DisplayFrame frame("QVBarChartData");
  DisplayI("The number of categories", fNCategories);
  DisplayDV("N cases of each category considering frequency weight", fFreqs, false);
  DisplayD("Total frequency weight", fSumFreqWeights);
}

}  // namespace QVMath_940
