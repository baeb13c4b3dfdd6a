/// The data of a bar chart: frequencies of the categories of one variable, filled case by case.
///
///     QVMath_940::QVBarChartData bars(3, false);
///     for (const Penguin & p : penguins) bars.UpdateData(1.0, p.islandCode);
///     bars.GenerateQVVariateData("island", {"Biscoe", "Dream", "Torgersen"});
///
/// Categories are codes from 0 on. Threads: one object from one thread at a time. The object owns
/// the generated data.
#pragma once

#include <string>
#include <vector>

#include "QVExport.h"
#include "QVVariateData.h"

namespace QVMath_940 {

class QVCOMMON_API QVBarChartData {
 public:
  /// `nCategories` categories (a negative number counts as 0). `relative` shows shares of the total
  /// in place of frequencies.
  QVBarChartData(int nCategories, bool relative);

  QVBarChartData(const QVBarChartData &) = default;
  QVBarChartData & operator=(const QVBarChartData &) = default;
  QVBarChartData(QVBarChartData &&) = default;
  QVBarChartData & operator=(QVBarChartData &&) = default;
  virtual ~QVBarChartData();

  /// Adds the frequency to the category, whose code is cut to a whole number: 2.9 is category 2.
  /// False, and nothing changed, for a code below 0 (-0.5 too), from the number of categories on,
  /// or NaN. The frequency is not tested.
  bool UpdateData(double freqWeight, double category);

  /// The chart: one count (the total frequency, also of a relative chart) and two lists of
  /// coordinates, the labels and the frequencies or shares of the categories whose frequency is
  /// positive. A name that is not empty becomes the field of the first list, with the feature
  /// "observed". A category past the end of `labels` has an empty label.
  ///
  /// The first call fixes the result, as in QVHistogramData; it also turns the frequencies of a
  /// relative chart into shares for good.
  QVXML_940::QVVariateData & GenerateQVVariateData(const std::string & name,
                                                   const std::vector<std::string> & labels);

  /// Sum of the frequency weights.
  double GetTotalWeight() const;

  void Display() const;

 private:
  int fNCategories = 0;
  std::vector<double> fFreqs;
  bool fRelative = false;
  double fSumFreqWeights = 0.0;
  QVXML_940::QVVariateData fData;
};

}  // namespace QVMath_940
