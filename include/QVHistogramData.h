/// The data of a histogram: bins of equal length over one continuous variable, filled case by case.
///
///     QVMath_940::QVHistogramData histogram(20, 1.4, 2.1, true);
///     for (const Person & p : people) histogram.UpdateData(p.frequency, 1.0, p.height);
///     XMLElement * chart = histogram.GenerateQVVariateData("height").GetUnivariateDataElem();
///
/// A bin is shown at the mean of its own cases, not at its middle. Bins take every value: those
/// below the minimum count in the first bin, those above the maximum in the last one, and a value
/// on a boundary counts in the upper bin.
///
/// Weights: each case has a frequency weight f, how many cases it stands for, and a regression
/// weight r; means and the second moment are weighted by f r. BEWARE: weights are not tested, and a
/// first case with f r = 0 makes the means not a number; pass positive weights. Missing values and
/// NaN are not tested either (NaN counts in the first bin).
///
/// Threads: one object from one thread at a time. The object owns the generated data.
#pragma once

#include <string>
#include <vector>

#include "QVExport.h"
#include "QVMV.h"
#include "QVVariateData.h"

namespace QVMath_940 {

class QVCOMMON_API QVHistogramData {
 public:
  /// One bin, minimum -1, maximum 1, without the second moment.
  QVHistogramData();

  /// `nBins` bins from `min` to `max`; one bin for a count below 1 or a maximum below the minimum.
  /// With one bin, or a maximum not above the minimum, the length of a bin is 0 and every case
  /// counts in the first one. `computeMoment` keeps the second moment, for the standard deviation.
  QVHistogramData(int nBins, double min, double max, bool computeMoment);

  QVHistogramData(const QVHistogramData &) = default;
  QVHistogramData & operator=(const QVHistogramData &) = default;
  QVHistogramData(QVHistogramData &&) = default;
  QVHistogramData & operator=(QVHistogramData &&) = default;
  virtual ~QVHistogramData();

  /// Adds the case x; always true. BEWARE: a new overall mean below 2 epsilon times the former one
  /// (in absolute value) is taken for a rounding error and becomes exactly 0.
  bool UpdateData(double freqWeight, double regWeight, double x);

  /// The chart: one count (the total frequency), two lists of coordinates (bin means and
  /// frequencies of the bins that hold a positive frequency, so that they may be shorter than the
  /// number of bins) and the statistics "mean" and, with the second moment, "stdDeviation". A name
  /// that is not empty becomes the field of the first list, with the feature "observed".
  ///
  /// The first call fixes the result: later calls return it as it is, whatever their name and
  /// whatever cases came since. The data stay the object's; their description is the caller's to
  /// fill in.
  QVXML_940::QVVariateData & GenerateQVVariateData(const std::string & name);

  /// Sum of the frequency weights.
  double GetTotalWeight() const;

  /// Mean of all cases, weighted by f r; 0 without cases.
  double GetMean() const;

  /// sqrt(W S / (W - 1)) with W the sum of f r and S the second central moment; 0 without the
  /// second moment and for W up to 1.
  double GetStdDev() const;

  void Display() const;

 private:
  int fNBins = 1;
  double fBinLength = 0.0;
  std::vector<double> fBinMeans;    // missing while a bin is empty
  std::vector<double> fBinFreqs;    // sums of f
  std::vector<double> fBinWeights;  // sums of f r
  double fMin = -1.0;
  double fMax = 1.0;
  bool fComputeMoment = false;
  double fSumWeights = 0.0;      // W, the sum of f r
  double fSumFreqWeights = 0.0;  // the sum of f
  double fNCases = 0.0;          // unweighted
  double fMean = 0.0;
  double fSecondMoment = QVCommon_940::QVMV::Missing();
  QVXML_940::QVVariateData fData;
};

}  // namespace QVMath_940
