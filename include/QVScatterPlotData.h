/// The data of a scatter plot of two continuous variables: point by point, or in rectangular bins.
///
///     QVMath_940::QVScatterPlotData plot(30, 30, 0.0, 50.0, 0.0, 50.0, true);
///     for (const Case & c : cases) plot.UpdateData(c.frequency, c.weight, c.predicted,
///     c.observed); plot.GetQVVariateData("y", "predicted", "", "y", "observed",
///     "").GetBivariateDataElem();
///
/// Binned, a cell is shown at the means of its own cases. Bins take every value: those outside the
/// limits count in the outermost bins, and a value on a boundary counts in the upper bin.
///
/// Weights: each case has a frequency weight f and a regression weight r; the means of a cell are
/// weighted by f r. They are not tested: pass positive ones. BEWARE: point by point, the regression
/// weight is ignored.
///
/// Threads: one object from one thread at a time. The object owns the data that it returns.
#pragma once

#include <string>
#include <vector>

#include "QVExport.h"
#include "QVVariateData.h"

namespace QVMath_940 {

class QVCOMMON_API QVScatterPlotData {
 public:
  /// One bin each way with limits -1 and 1, not binned: every case is kept as a point.
  QVScatterPlotData();

  /// `binned` false keeps every case as a point. `binned` true gathers them in `nBinsX` x `nBinsY`
  /// cells between the limits; an axis with a count below 2 or a maximum not above the minimum gets
  /// one bin.
  QVScatterPlotData(int nBinsX, int nBinsY, double minX, double maxX, double minY, double maxY,
                    bool binned);

  QVScatterPlotData(const QVScatterPlotData &) = default;
  QVScatterPlotData & operator=(const QVScatterPlotData &) = default;
  QVScatterPlotData(QVScatterPlotData &&) = default;
  QVScatterPlotData & operator=(QVScatterPlotData &&) = default;
  virtual ~QVScatterPlotData();

  /// Adds the case (x, y); always true.
  bool UpdateData(double freqWeight, double regWeight, double x, double y);

  /// Names the two variables and returns the chart: one count (the total frequency) and three lists
  /// of coordinates: x, y and the frequency of each point, or of each cell with a positive
  /// frequency, the bins of x in the outer order.
  ///
  /// The cells are written at the first call with a total frequency other than 0; later cases do
  /// not reach the chart then, while points always do, and the names can be set again. The data
  /// stay the object's.
  QVXML_940::QVVariateData & GetQVVariateData(
      const std::string & xField, const std::string & xFeature, const std::string & xStatistic,
      const std::string & yField, const std::string & yFeature, const std::string & yStatistic);

  /// The chart as it stands: without cells until they have been written.
  const QVXML_940::QVVariateData & GetQVVariateData() const;

  /// The three lists of the chart as it stands.
  const std::vector<double> & GetXCoordinates() const;
  const std::vector<double> & GetYCoordinates() const;
  const std::vector<double> & GetFrequencies() const;

  /// Sum of the frequency weights.
  double GetTotalWeight() const;

  void Display() const;

 private:
  using Table = std::vector<std::vector<double>>;  // by bin of x, then by bin of y

  void PrepareCoordinates();

  int fNBinsX = 1;
  int fNBinsY = 1;
  double fBinLengthX = 0.0;
  double fBinLengthY = 0.0;
  double fMinX = -1.0;
  double fMaxX = 1.0;
  double fMinY = -1.0;
  double fMaxY = 1.0;
  bool fBinned = false;
  Table fMeansX;
  Table fMeansY;
  Table fCellFreqs;              // sums of f
  Table fCellWeights;            // sums of f r
  double fSumWeights = 0.0;      // of f r
  double fSumFreqWeights = 0.0;  // of f
  double fNCases = 0.0;          // unweighted, of a binned plot
  QVXML_940::QVVariateData fData;
};

}  // namespace QVMath_940
