// Histogram, bar chart and scatter plot data against naive two-pass references.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "QVBarChartData.h"
#include "QVHistogramData.h"
#include "QVMV.h"
#include "QVScatterPlotData.h"
#include "common/display/captured_display.h"

using QVCommon_940::QVMV;
using QVMath_940::QVBarChartData;
using QVMath_940::QVHistogramData;
using QVMath_940::QVScatterPlotData;
using QVXML_940::QVVariateData;
using testing::DoubleNear;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pointwise;

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

struct Case {
  double f, r, x, y;
};

std::vector<Case> RandomCases(int n, unsigned seed) {
  std::mt19937 generator(seed);
  std::normal_distribution<double> normal(10.0, 3.0);
  std::uniform_real_distribution<double> weight(0.25, 2.0);
  std::vector<Case> cases;
  for (int k = 0; k < n; ++k) {
    const double x = normal(generator), y = x + normal(generator);
    cases.push_back({std::floor(1.0 + 3.0 * weight(generator)), weight(generator), x, y});
  }
  return cases;
}

/// The bin by comparison with the boundaries, not by division.
int BinByBoundaries(double x, double min, double length, int nBins) {
  int bin = 0;
  while (bin + 1 < nBins && x >= min + length * (bin + 1))
    ++bin;
  return bin;
}

// The frequency that each of the values puts into the only bin it reaches, by the chart.
std::vector<double> ObservedMeans(QVHistogramData histogram) {
  return histogram.GenerateQVVariateData("").fCoordinates.at(0).fRealValues;
}
std::vector<double> Frequencies(QVHistogramData histogram) {
  return histogram.GenerateQVVariateData("").fCoordinates.at(1).fRealValues;
}

template <typename Chart>
std::string Displayed(const Chart & chart) {
  CapturedDisplay display;
  chart.Display();
  return display.Text();
}

// === Histogram: bins =============================================================================

TEST(HistogramBins, BoundaryOutsideAndMaximum) {
  QVHistogramData histogram(4, 0, 8, false);
  EXPECT_TRUE(histogram.UpdateData(1, 1, 2));    // on a boundary: the upper bin, 1
  EXPECT_TRUE(histogram.UpdateData(2, 1, 8));    // the maximum: the last bin, 3
  EXPECT_TRUE(histogram.UpdateData(4, 1, -1));   // below: the first bin, 0
  EXPECT_TRUE(histogram.UpdateData(8, 1, 100));  // above: the last bin, 3
  EXPECT_THAT(Frequencies(histogram), ElementsAre(4, 1, 10));
  EXPECT_THAT(ObservedMeans(histogram), ElementsAre(-1, 2, testing::DoubleEq(81.6)));
  EXPECT_THAT(Displayed(histogram),
              testing::HasSubstr("frequency weight only (size = 4)\n 4 1 0 10"));
}

TEST(HistogramBins, ValueBetweenMinusOneAndZeroBinsBelowTheMinimumIsInTheFirst) {
  QVHistogramData histogram(4, 0, 8, false);
  histogram.UpdateData(1, 1, -0.5);
  histogram.UpdateData(1, 1, 0.5);
  EXPECT_THAT(Frequencies(histogram), ElementsAre(2));
}

TEST(HistogramBins, HugeValuesAreClampedBeforeTheyBecomeIntegers) {
  QVHistogramData histogram(3, 0, 3, false);
  histogram.UpdateData(1, 1, 1e300);
  histogram.UpdateData(2, 1, -1e300);
  histogram.UpdateData(4, 1, 1.5);
  EXPECT_THAT(Frequencies(histogram), ElementsAre(2, 4, 1));
}

TEST(HistogramBins, InfinitiesAndNaNFallIntoABin) {
  for (const auto & [x, text] :
       {std::pair{kInfinity, " 0 0 1"}, {-kInfinity, " 1 0 0"}, {kNaN, " 1 0 0"}}) {
    QVHistogramData histogram(3, 0, 3, false);
    histogram.UpdateData(1, 1, x);
    EXPECT_THAT(Displayed(histogram), testing::HasSubstr(text)) << x;
  }
}

TEST(HistogramBins, OneBinForACountBelowOneOrAMaximumBelowTheMinimum) {
  for (QVHistogramData histogram :
       {QVHistogramData(0, 1, 2, false), QVHistogramData(-7, 1, 2, false),
        QVHistogramData(5, 2, 1, false), QVHistogramData(1, 1, 2, false), QVHistogramData()}) {
    EXPECT_THAT(Displayed(histogram), testing::HasSubstr("\nThe number of bins = 1"
                                                         "\nThe length of a bin = 0"));
    for (const double x : {-50.0, 1.2, 50.0})
      histogram.UpdateData(1, 1, x);
    EXPECT_THAT(Frequencies(histogram), ElementsAre(3));
  }
}

TEST(HistogramBins, EqualLimitsKeepTheBinsButUseTheFirst) {
  QVHistogramData histogram(5, 2, 2, false);
  EXPECT_THAT(Displayed(histogram),
              testing::HasSubstr("\nThe number of bins = 5\nThe length of a bin = 0"));
  for (const double x : {-50.0, 2.0, 50.0})
    histogram.UpdateData(1, 1, x);
  EXPECT_THAT(Frequencies(histogram), ElementsAre(3));
}

TEST(HistogramBins, DefaultLimits) {
  EXPECT_THAT(Displayed(QVHistogramData()),
              testing::HasSubstr("\nMinimum value from constructor = -1"
                                 "\nMaximum value from constructor = 1"));
}

// === Histogram: moments ==========================================================================

TEST(HistogramMoments, AgreeWithTwoPasses) {
  const std::vector<Case> cases = RandomCases(2000, 11);
  for (const int nBins : {1, 2, 7, 20}) {
    const double min = 4.0, max = 16.0;
    QVHistogramData histogram(nBins, min, max, true);
    std::vector<double> freqs(nBins), weights(nBins), sums(nBins);
    double sumF = 0, sumW = 0, sum = 0, ssq = 0;
    for (const Case & c : cases) {
      EXPECT_TRUE(histogram.UpdateData(c.f, c.r, c.x));
      const int bin = BinByBoundaries(c.x, min, (max - min) / nBins, nBins);
      freqs[bin] += c.f;
      weights[bin] += c.f * c.r;
      sums[bin] += c.f * c.r * c.x;
      sumF += c.f;
      sumW += c.f * c.r;
      sum += c.f * c.r * c.x;
    }
    for (const Case & c : cases)
      ssq += c.f * c.r * (c.x - sum / sumW) * (c.x - sum / sumW);
    std::vector<double> means(nBins);
    for (int b = 0; b < nBins; ++b)
      means[b] = sums[b] / weights[b];

    EXPECT_EQ(histogram.GetTotalWeight(), sumF);
    EXPECT_NEAR(histogram.GetMean(), sum / sumW, 1e-12);
    EXPECT_NEAR(histogram.GetStdDev(), std::sqrt(ssq / (sumW - 1.0)), 1e-11);
    EXPECT_THAT(Frequencies(histogram), Pointwise(DoubleNear(1e-12), freqs));
    EXPECT_THAT(ObservedMeans(histogram), Pointwise(DoubleNear(1e-10), means));
  }
}

TEST(HistogramMoments, TotalWeightIsOfFrequenciesOnly) {
  QVHistogramData histogram(2, 0, 2, false);
  histogram.UpdateData(3, 0.5, 1);
  EXPECT_EQ(histogram.GetTotalWeight(), 3.0);
  EXPECT_THAT(Displayed(histogram),
              testing::HasSubstr("\nWeighted number of cases including both weights = 1.5"
                                 "\nTotal frequency weight = 3"
                                 "\nThe total unweighted number of cases = 1"));
}

TEST(HistogramMoments, NoStdDevUpToAWeightOfOneOrWithoutTheMoment) {
  QVHistogramData one(2, 0, 2, true);
  EXPECT_EQ(one.GetStdDev(), 0.0);
  EXPECT_EQ(one.GetMean(), 0.0);
  one.UpdateData(1, 1, 1);
  EXPECT_EQ(one.GetStdDev(), 0.0);
  one.UpdateData(1, 1, 3);
  EXPECT_DOUBLE_EQ(one.GetStdDev(), std::sqrt(2.0));
  QVHistogramData without(2, 0, 2, false);
  without.UpdateData(2, 2, 1);
  without.UpdateData(2, 2, 3);
  EXPECT_EQ(without.GetStdDev(), 0.0);
}

TEST(HistogramMoments, ATinyMeanIsTakenForZero) {
  QVHistogramData histogram(1, 0, 1, false);
  histogram.UpdateData(1, 1, 1.0);
  histogram.UpdateData(1, 1, -1.0 + 2.0 * std::numeric_limits<double>::epsilon());
  EXPECT_EQ(histogram.GetMean(), 0.0);  // epsilon, below 2 epsilon
  QVHistogramData kept(1, 0, 1, false);
  kept.UpdateData(1, 1, 1.0);
  kept.UpdateData(1, 1, -1.0 + 4.0 * std::numeric_limits<double>::epsilon());
  EXPECT_EQ(kept.GetMean(), 2.0 * std::numeric_limits<double>::epsilon());  // not below: kept
}

// === Histogram: the chart ========================================================================

TEST(HistogramChart, HoldsCountsCoordinatesAndStatistics) {
  QVHistogramData histogram(4, 0, 8, true);
  histogram.UpdateData(1, 1, 1);
  histogram.UpdateData(2, 1, 7);
  const QVVariateData & data = histogram.GenerateQVVariateData("height");
  ASSERT_EQ(data.fCounts.size(), 1u);
  EXPECT_EQ(data.fCounts[0].fTotalFreq, 3.0);
  EXPECT_TRUE(QVMV::IsMissing(data.fCounts[0].fMissingFreq));
  ASSERT_EQ(data.fCoordinates.size(), 2u);
  EXPECT_THAT(data.fCoordinatesGroups, IsEmpty());
  EXPECT_EQ(data.fCoordinates[0].fFeature, "observed");
  EXPECT_EQ(data.fCoordinates[0].fField, "height");
  EXPECT_EQ(data.fCoordinates[0].fStatistic, "");
  EXPECT_EQ(data.fCoordinates[0].fValueType, 1);
  EXPECT_THAT(data.fCoordinates[0].fRealValues, ElementsAre(1, 7));  // two of the four bins
  EXPECT_EQ(data.fCoordinates[1].fFeature, "frequency");
  EXPECT_EQ(data.fCoordinates[1].fField, "");
  EXPECT_EQ(data.fCoordinates[1].fValueType, 1);
  EXPECT_THAT(data.fCoordinates[1].fRealValues, ElementsAre(1, 2));
  EXPECT_FALSE(data.fUseStringStatistics);
  EXPECT_THAT(data.fStatisticNames, ElementsAre("mean", "stdDeviation"));
  EXPECT_THAT(data.fStringStatistics, IsEmpty());
  ASSERT_EQ(data.fNumericStatistics.size(), 2u);
  EXPECT_DOUBLE_EQ(data.fNumericStatistics[0], 5.0);
  EXPECT_DOUBLE_EQ(data.fNumericStatistics[1], std::sqrt(12.0));
}

TEST(HistogramChart, WithoutANameTheFirstListHasNoFeature) {
  QVHistogramData histogram;
  const QVVariateData & data = histogram.GenerateQVVariateData("");
  EXPECT_EQ(data.fCoordinates.at(0).fFeature, "");
  EXPECT_EQ(data.fCoordinates.at(0).fField, "");
  EXPECT_THAT(data.fCoordinates.at(0).fRealValues, IsEmpty());
  EXPECT_THAT(data.fStatisticNames, ElementsAre("mean"));
  EXPECT_THAT(data.fNumericStatistics, ElementsAre(0.0));
  EXPECT_EQ(data.fCounts.at(0).fTotalFreq, 0.0);
}

TEST(HistogramChart, StdDeviationIsZeroUpToAWeightOfOne) {
  QVHistogramData histogram(1, 0, 1, true);
  histogram.UpdateData(1, 1, 5);
  EXPECT_THAT(histogram.GenerateQVVariateData("x").fNumericStatistics, ElementsAre(5.0, 0.0));
}

TEST(HistogramChart, TheFirstCallFixesIt) {
  QVHistogramData histogram(2, 0, 2, false);
  histogram.UpdateData(1, 1, 0.5);
  const QVVariateData & first = histogram.GenerateQVVariateData("a");
  histogram.UpdateData(5, 1, 1.5);
  const QVVariateData & second = histogram.GenerateQVVariateData("b");
  EXPECT_EQ(&first, &second);
  EXPECT_EQ(second.fCounts.at(0).fTotalFreq, 1.0);
  EXPECT_EQ(second.fCoordinates.at(0).fField, "a");
  EXPECT_THAT(second.fCoordinates.at(1).fRealValues, ElementsAre(1));
  EXPECT_EQ(histogram.GetTotalWeight(), 6.0);
}

TEST(HistogramChart, Display) {
  QVHistogramData histogram(2, 0, 3, true);
  histogram.UpdateData(2, 1.5, 1);
  EXPECT_EQ(Displayed(histogram),
            "\nQVHistogramData display start\nThe number of bins = 2\nThe length of a bin = 1.5"
            "\nThe means of each bin (size = 2)\n 1 miss"
            "\nN cases of each bin considering frequency weight only (size = 2)\n 2 0"
            "\nThe weighted (both frequency and regression weight) N cases (size = 2)\n 3 0"
            "\nMinimum value from constructor = 0\nMaximum value from constructor = 3"
            "\nWeighted number of cases including both weights = 3\nTotal frequency weight = 2"
            "\nThe total unweighted number of cases = 1\nThe mean of all cases = 1"
            "\nQVHistogramData display end");
}

// === Bar chart ===================================================================================

TEST(BarChart, RefusesWhatIsNoCategory) {
  QVBarChartData bars(3, false);
  for (const double c : {-0.5, -1.0, 3.0, 1e300, -1e300, kInfinity, kNaN, QVMV::Missing()}) {
    EXPECT_FALSE(bars.UpdateData(1.0, c)) << c;
  }
  EXPECT_EQ(bars.GetTotalWeight(), 0.0);
  EXPECT_TRUE(bars.UpdateData(1.5, 2.9));
  EXPECT_TRUE(bars.UpdateData(0.5, -0.0));
  EXPECT_EQ(bars.GetTotalWeight(), 2.0);
  const QVVariateData & data = bars.GenerateQVVariateData("c", {"a", "b", "c"});
  EXPECT_THAT(data.fCoordinates.at(0).fStringValues, ElementsAre("a", "c"));
  EXPECT_THAT(data.fCoordinates.at(1).fRealValues, ElementsAre(0.5, 1.5));
}

TEST(BarChart, WithoutCategoriesRefusesAll) {
  for (QVBarChartData bars : {QVBarChartData(0, true), QVBarChartData(-3, false)}) {
    EXPECT_FALSE(bars.UpdateData(1.0, 0.0));
    EXPECT_THAT(bars.GenerateQVVariateData("", {}).fCoordinates.at(0).fStringValues, IsEmpty());
  }
}

TEST(BarChart, HoldsLabelsAndFrequencies) {
  QVBarChartData bars(3, false);
  bars.UpdateData(1, 0);
  bars.UpdateData(3, 2);
  const QVVariateData & data = bars.GenerateQVVariateData("island", {"a", "b", "c"});
  EXPECT_EQ(data.fCounts.at(0).fTotalFreq, 4.0);
  ASSERT_EQ(data.fCoordinates.size(), 2u);
  EXPECT_EQ(data.fCoordinates[0].fFeature, "observed");
  EXPECT_EQ(data.fCoordinates[0].fField, "island");
  EXPECT_EQ(data.fCoordinates[0].fValueType, 2);
  EXPECT_EQ(data.fCoordinates[1].fFeature, "frequency");
  EXPECT_EQ(data.fCoordinates[1].fField, "");
  EXPECT_EQ(data.fCoordinates[1].fValueType, 1);
  EXPECT_THAT(data.fCoordinatesGroups, IsEmpty());
  EXPECT_THAT(data.fStatisticNames, IsEmpty());
  QVBarChartData unnamed(1, false);
  EXPECT_EQ(unnamed.GenerateQVVariateData("", {"a"}).fCoordinates.at(0).fFeature, "");
}

TEST(BarChart, RelativeSharesStayAndTheChartIsFixed) {
  QVBarChartData bars(2, true);
  bars.UpdateData(1, 0);
  bars.UpdateData(3, 1);
  const QVVariateData & first = bars.GenerateQVVariateData("x", {"a", "b"});
  EXPECT_THAT(first.fCoordinates.at(1).fRealValues, ElementsAre(0.25, 0.75));
  EXPECT_EQ(first.fCounts.at(0).fTotalFreq, 4.0);
  EXPECT_THAT(Displayed(bars), testing::HasSubstr("frequency weight (size = 2)\n 0.25 0.75"));
  bars.UpdateData(4, 0);
  const QVVariateData & second = bars.GenerateQVVariateData("y", {"c", "d"});
  EXPECT_EQ(&first, &second);
  EXPECT_THAT(second.fCoordinates.at(0).fStringValues, ElementsAre("a", "b"));
  EXPECT_THAT(second.fCoordinates.at(1).fRealValues, ElementsAre(0.25, 0.75));
  EXPECT_EQ(second.fCounts.at(0).fTotalFreq, 4.0);
  EXPECT_EQ(bars.GetTotalWeight(), 8.0);
}

TEST(BarChart, RelativeWithoutCasesHasNoBars) {
  QVBarChartData bars(2, true);
  const QVVariateData & data = bars.GenerateQVVariateData("x", {"a", "b"});
  EXPECT_THAT(data.fCoordinates.at(1).fRealValues, IsEmpty());
  EXPECT_EQ(data.fCounts.at(0).fTotalFreq, 0.0);
}

TEST(BarChart, ACategoryWithoutALabelHasAnEmptyOne) {
  QVBarChartData bars(3, false);
  for (const double c : {0.0, 1.0, 2.0})
    bars.UpdateData(1, c);
  EXPECT_THAT(bars.GenerateQVVariateData("x", {"a"}).fCoordinates.at(0).fStringValues,
              ElementsAre("a", "", ""));
}

TEST(BarChart, Display) {
  QVBarChartData bars(2, false);
  bars.UpdateData(1.5, 1);
  EXPECT_EQ(Displayed(bars),
            "\nQVBarChartData display start\nThe number of categories = 2"
            "\nN cases of each category considering frequency weight (size = 2)\n 0 1.5"
            "\nTotal frequency weight = 1.5\nQVBarChartData display end");
}

// === Scatter plot ================================================================================

TEST(ScatterPlot, KeepsEveryPointAndIgnoresTheRegressionWeight) {
  QVScatterPlotData plot(5, 5, 0, 1, 0, 1, false);
  plot.UpdateData(2, 0.5, 1, 10);
  plot.UpdateData(3, kNaN, 1, 10);
  EXPECT_THAT(plot.GetXCoordinates(), ElementsAre(1, 1));
  EXPECT_THAT(plot.GetYCoordinates(), ElementsAre(10, 10));
  EXPECT_THAT(plot.GetFrequencies(), ElementsAre(2, 3));
  EXPECT_EQ(plot.GetTotalWeight(), 5.0);
  EXPECT_EQ(plot.GetQVVariateData("a", "", "", "b", "", "").fCounts.at(0).fTotalFreq, 5.0);
  plot.UpdateData(1, 1, 2, 20);  // points go on reaching the chart
  EXPECT_THAT(plot.GetQVVariateData().fCoordinates.at(2).fRealValues, ElementsAre(2, 3, 1));
  EXPECT_EQ(plot.GetQVVariateData().fCounts.at(0).fTotalFreq, 6.0);
}

TEST(ScatterPlot, StartsWithThreeListsAndATotalOfZero) {
  for (const QVScatterPlotData & plot :
       {QVScatterPlotData(), QVScatterPlotData(2, 2, 0, 1, 0, 1, true)}) {
    const QVVariateData & data = plot.GetQVVariateData();
    ASSERT_EQ(data.fCoordinates.size(), 3u);
    for (const auto & list : data.fCoordinates)
      EXPECT_EQ(list.fValueType, 1);
    EXPECT_EQ(data.fCoordinates[0].fFeature + data.fCoordinates[1].fFeature, "");
    EXPECT_EQ(data.fCoordinates[2].fFeature, "frequency");
    EXPECT_EQ(data.fCounts.at(0).fTotalFreq, 0.0);
    EXPECT_THAT(data.fCoordinatesGroups, IsEmpty());
    EXPECT_THAT(data.fStatisticNames, IsEmpty());
  }
}

TEST(ScatterPlot, TheSixNamesGoToTheFirstTwoLists) {
  QVScatterPlotData plot;
  const QVVariateData & data =
      plot.GetQVVariateData("xField", "xFeature", "xStat", "yField", "yFeature", "yStat");
  EXPECT_EQ(data.fCoordinates[0].fField, "xField");
  EXPECT_EQ(data.fCoordinates[0].fFeature, "xFeature");
  EXPECT_EQ(data.fCoordinates[0].fStatistic, "xStat");
  EXPECT_EQ(data.fCoordinates[1].fField, "yField");
  EXPECT_EQ(data.fCoordinates[1].fFeature, "yFeature");
  EXPECT_EQ(data.fCoordinates[1].fStatistic, "yStat");
  plot.GetQVVariateData("u", "", "", "v", "", "");
  EXPECT_EQ(data.fCoordinates[0].fField + data.fCoordinates[1].fField, "uv");
  EXPECT_EQ(data.fCoordinates[0].fFeature, "");
}

TEST(ScatterPlot, BinnedAgreesWithTwoPasses) {
  const std::vector<Case> cases = RandomCases(3000, 12);
  const int nx = 6, ny = 4;
  const double minX = 2, maxX = 18, minY = 10, maxY = 30;
  QVScatterPlotData plot(nx, ny, minX, maxX, minY, maxY, true);
  struct Cell {
    double f = 0, w = 0, x = 0, y = 0;
  };
  std::vector<Cell> cells(nx * ny);
  double total = 0;
  for (const Case & c : cases) {
    EXPECT_TRUE(plot.UpdateData(c.f, c.r, c.x, c.y));
    Cell & cell = cells[BinByBoundaries(c.x, minX, (maxX - minX) / nx, nx) * ny +
                        BinByBoundaries(c.y, minY, (maxY - minY) / ny, ny)];
    cell.f += c.f;
    cell.w += c.f * c.r;
    cell.x += c.f * c.r * c.x;
    cell.y += c.f * c.r * c.y;
    total += c.f;
  }
  std::vector<double> xs, ys, freqs;
  for (const Cell & cell : cells) {
    if (cell.f == 0.0) continue;
    xs.push_back(cell.x / cell.w);
    ys.push_back(cell.y / cell.w);
    freqs.push_back(cell.f);
  }
  ASSERT_LT(freqs.size(), cells.size());  // some cells are empty, and left out
  EXPECT_THAT(plot.GetFrequencies(), IsEmpty());
  const QVVariateData & data = plot.GetQVVariateData("x", "", "", "y", "", "");
  EXPECT_EQ(data.fCounts.at(0).fTotalFreq, total);
  EXPECT_EQ(plot.GetTotalWeight(), total);
  EXPECT_THAT(plot.GetXCoordinates(), Pointwise(DoubleNear(1e-11), xs));
  EXPECT_THAT(plot.GetYCoordinates(), Pointwise(DoubleNear(1e-11), ys));
  EXPECT_THAT(plot.GetFrequencies(), Pointwise(DoubleNear(1e-11), freqs));

  plot.UpdateData(1, 1, 10, 20);  // comes too late
  plot.GetQVVariateData("x", "", "", "y", "", "");
  EXPECT_EQ(plot.GetQVVariateData().fCounts.at(0).fTotalFreq, total);
  EXPECT_EQ(plot.GetFrequencies().size(), freqs.size());
}

TEST(ScatterPlot, AxesWithoutALengthHaveOneBin) {
  QVScatterPlotData plot(4, 4, 1, 1, 2, 0, true);
  EXPECT_THAT(Displayed(plot), testing::HasSubstr("\nThe number of bins for X = 1"
                                                  "\nThe number of bins for Y = 1"
                                                  "\nThe length of a bin for X = 0"
                                                  "\nThe length of a bin for Y = 0"));
  QVScatterPlotData none(0, -1, 0, 1, 0, 1, true);
  for (const double x : {-5.0, 0.5, 1e300})
    none.UpdateData(1, 1, x, x);
  none.GetQVVariateData("x", "", "", "y", "", "");
  EXPECT_THAT(none.GetFrequencies(), ElementsAre(3));
}

TEST(ScatterPlot, ClampsHugeValuesAndBoundaries) {
  QVScatterPlotData plot(2, 2, 0, 2, 0, 2, true);
  plot.UpdateData(1, 1, 1e300, -1e300);
  plot.UpdateData(2, 1, 1.0, 1.0);
  plot.UpdateData(4, 1, -0.5, 2.0);
  plot.GetQVVariateData("x", "", "", "y", "", "");
  EXPECT_THAT(plot.GetFrequencies(), ElementsAre(4, 1, 2));  // cells (0, 1), (1, 0), (1, 1)
  EXPECT_THAT(plot.GetXCoordinates(), ElementsAre(-0.5, 1e300, 1.0));
}

TEST(ScatterPlot, Display) {
  QVScatterPlotData plot(2, 1, 0, 2, 0, 3, true);
  plot.UpdateData(2, 0.5, 1.5, 4);
  EXPECT_EQ(Displayed(plot),
            "\nQVScatterPlotData display start\nThe number of bins for X = 2"
            "\nThe number of bins for Y = 1\nThe length of a bin for X = 1"
            "\nThe length of a bin for Y = 0"
            "\nThe means for X in each bin \nvec[0] (size = 1)\n 0\nvec[1] (size = 1)\n 1.5"
            "\nThe means for Y in each bin \nvec[0] (size = 1)\n 0\nvec[1] (size = 1)\n 4"
            "\nN cases of each bin considering frequency weight only"
            "\nvec[0] (size = 1)\n 0\nvec[1] (size = 1)\n 2"
            "\nThe weighted (frequency and regression weight) N cases"
            "\nvec[0] (size = 1)\n 0\nvec[1] (size = 1)\n 1"
            "\nMinimum X value from constructor = 0\nMaximum X value from constructor = 2"
            "\nMinimum Y value from constructor = 0\nMaximum Y value from constructor = 3"
            "\nQVScatterPlotData display end");
}

}  // namespace
