#include "univariate.h"

#include <cmath>

#include "QVCatStats.h"
#include "QVCatVar.h"
#include "QVContStats.h"
#include "QVContVar.h"
#include "QVMV.h"
#include "interrupt.h"

namespace regression {

using QVCommon_940::QVMV;
using namespace QVMath_940;
using namespace QVXML_940;

namespace {

constexpr double kRegressionWeight = 1.0;

QVUniStats StatisticsOfCategories(const Cases & cases, int place) {
  QVCatStats stats;
  for (std::size_t i = 0; i < cases.Size(); ++i)
    stats.Update(cases.At(i)[place], cases.Weight(i));
  const IQVVariable & variable = *cases.variables.GetVarAt(place);
  return QVUniStats(variable.GetVariableName(), stats.GetSumCounts(), stats.GetCatCounts());
}

QVUniStats StatisticsOfNumbers(const Cases & cases, int place, QVContVar & variable) {
  QVContStats stats;
  for (std::size_t i = 0; i < cases.Size(); ++i) {
    stats.Update(cases.At(i)[place], cases.Weight(i), kRegressionWeight);
  }
  QVUniStats::SummStats summary;
  summary.fMinimum = stats.GetExtrema().first;
  summary.fMaximum = stats.GetExtrema().second;
  summary.fMean = stats.GetMean();
  // Less than two cases have no standard deviation; fractional weights can come to that as well.
  if (stats.GetSumFreqWeights() >= 2.0) summary.fStdDev = std::sqrt(stats.GetVariance());
  variable.SetMinMax(summary.fMinimum, summary.fMaximum);
  variable.SetMean(summary.fMean);
  variable.SetStdDev(summary.fStdDev);
  return QVUniStats(variable.GetVariableName(), stats.GetSumFreqWeights(), summary, {}, {});
}

}  // namespace

std::vector<QVUniStats> ComputeStatistics(Cases & cases, QVCancelInfo & cancel) {
  std::vector<QVUniStats> statistics;
  for (int place = 0; place < cases.variables.Size(); ++place) {
    StopIfAsked(cancel);
    if (place == cases.variables.GetFreqWeightIndex()) continue;
    auto * number = dynamic_cast<QVContVar *>(cases.variables.GetVarAt(place));
    statistics.push_back(number != nullptr ? StatisticsOfNumbers(cases, place, *number)
                                           : StatisticsOfCategories(cases, place));
  }
  return statistics;
}

}  // namespace regression
