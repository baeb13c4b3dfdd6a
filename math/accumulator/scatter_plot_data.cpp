// QVScatterPlotData: points or rectangular bins of two continuous variables.

#include "QVScatterPlotData.h"

#include <cstddef>

#include "QVDisplay.h"
#include "common/display/display_frame.h"
#include "math/accumulator/chart_bins.h"

namespace QVMath_940 {

using QVXML_940::QVVariateData;

namespace {

/// The lists of the chart, in order.
enum List : std::size_t { kX, kY, kFrequency, kNLists };

/// Sets the bins of one axis: their length, or one bin where they have none.
void SetAxis(double min, double max, int & nBins, double & length) {
  if (nBins > 1 && max > min) {
    length = (max - min) / nBins;
  } else {
    nBins = 1;
  }
}

}  // namespace

QVScatterPlotData::QVScatterPlotData() {
  PrepareCoordinates();
}

QVScatterPlotData::QVScatterPlotData(int nBinsX, int nBinsY, double minX, double maxX, double minY,
                                     double maxY, bool binned)
    : fNBinsX(nBinsX),
      fNBinsY(nBinsY),
      fMinX(minX),
      fMaxX(maxX),
      fMinY(minY),
      fMaxY(maxY),
      fBinned(binned) {
  PrepareCoordinates();
  if (!binned) return;
  SetAxis(minX, maxX, fNBinsX, fBinLengthX);
  SetAxis(minY, maxY, fNBinsY, fBinLengthY);
  const std::vector<double> column(static_cast<std::size_t>(fNBinsY), 0.0);
  fMeansX.assign(static_cast<std::size_t>(fNBinsX), column);
  fMeansY = fCellFreqs = fCellWeights = fMeansX;
}

QVScatterPlotData::~QVScatterPlotData() = default;

void QVScatterPlotData::PrepareCoordinates() {
  fData.fCounts.resize(1);
  fData.fCounts[0].fTotalFreq = 0.0;
  fData.fCoordinates.resize(kNLists);
  for (QVXML_940::QVXMLCoordinates & coordinates : fData.fCoordinates) {
    coordinates.fValueType = QVXML_940::kRealValues;
  }
  fData.fCoordinates[kFrequency].fFeature = "frequency";
}

bool QVScatterPlotData::UpdateData(double freqWeight, double regWeight, double x, double y) {
  fSumFreqWeights += freqWeight;
  if (!fBinned) {
    fData.fCoordinates[kX].fRealValues.push_back(x);
    fData.fCoordinates[kY].fRealValues.push_back(y);
    fData.fCoordinates[kFrequency].fRealValues.push_back(freqWeight);
    fData.fCounts[0].fTotalFreq += freqWeight;
    return true;
  }
  const std::size_t i = static_cast<std::size_t>(BinNumber(x, fMinX, fBinLengthX, fNBinsX));
  const std::size_t j = static_cast<std::size_t>(BinNumber(y, fMinY, fBinLengthY, fNBinsY));
  const double weight = freqWeight * regWeight;
  fNCases += 1.0;
  fSumWeights += weight;
  fCellWeights[i][j] += weight;
  fCellFreqs[i][j] += freqWeight;
  const double share = weight / fCellWeights[i][j];
  fMeansX[i][j] += (x - fMeansX[i][j]) * share;
  fMeansY[i][j] += (y - fMeansY[i][j]) * share;
  return true;
}

QVVariateData & QVScatterPlotData::GetQVVariateData(
    const std::string & xField, const std::string & xFeature, const std::string & xStatistic,
    const std::string & yField, const std::string & yFeature, const std::string & yStatistic) {
  QVXML_940::QVXMLCoordinates & xs = fData.fCoordinates[kX];
  QVXML_940::QVXMLCoordinates & ys = fData.fCoordinates[kY];
  xs.fFeature = xFeature;
  xs.fField = xField;
  xs.fStatistic = xStatistic;
  ys.fFeature = yFeature;
  ys.fField = yField;
  ys.fStatistic = yStatistic;

  double & totalFreq = fData.fCounts[0].fTotalFreq;
  if (!fBinned || totalFreq != 0.0) return fData;
  totalFreq = fSumFreqWeights;
  for (std::size_t i = 0; i < fCellFreqs.size(); ++i) {
    for (std::size_t j = 0; j < fCellFreqs[i].size(); ++j) {
      if (!(fCellFreqs[i][j] > 0.0)) continue;
      xs.fRealValues.push_back(fMeansX[i][j]);
      ys.fRealValues.push_back(fMeansY[i][j]);
      fData.fCoordinates[kFrequency].fRealValues.push_back(fCellFreqs[i][j]);
    }
  }
  return fData;
}

const QVVariateData & QVScatterPlotData::GetQVVariateData() const {
  return fData;
}

const std::vector<double> & QVScatterPlotData::GetXCoordinates() const {
  return fData.fCoordinates[kX].fRealValues;
}

const std::vector<double> & QVScatterPlotData::GetYCoordinates() const {
  return fData.fCoordinates[kY].fRealValues;
}

const std::vector<double> & QVScatterPlotData::GetFrequencies() const {
  return fData.fCoordinates[kFrequency].fRealValues;
}

double QVScatterPlotData::GetTotalWeight() const {
  return fSumFreqWeights;
}

void QVScatterPlotData::Display() const {
  using namespace QVDisplay_940;
  DisplayFrame frame("QVScatterPlotData");
  DisplayI("The number of bins for X", fNBinsX);
  DisplayI("The number of bins for Y", fNBinsY);
  DisplayD("The length of a bin for X", fBinLengthX);
  DisplayD("The length of a bin for Y", fBinLengthY);
  DisplayDVV("The means for X in each bin ", fMeansX, false);
  DisplayDVV("The means for Y in each bin ", fMeansY, false);
  DisplayDVV("N cases of each bin considering frequency weight only", fCellFreqs, false);
  DisplayDVV("The weighted (frequency and regression weight) N cases", fCellWeights, false);
  DisplayD("Minimum X value from constructor", fMinX);
  DisplayD("Maximum X value from constructor", fMaxX);
  DisplayD("Minimum Y value from constructor", fMinY);
  DisplayD("Maximum Y value from constructor", fMaxY);
}

}  // namespace QVMath_940
