#include <limits>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "QVMV.h"
#include "QVUniStats.h"

using QVXML_940::QVUniStats;
using SummStats = QVUniStats::SummStats;

namespace {

const double kMissing = QVCommon_940::QVMV::Missing();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

bool IsValidContinuous(double nCases, const SummStats & summStats,
                       const std::vector<double> & cutPoints = {},
                       const std::vector<double> & frequencies = {}) {
  return QVUniStats("y", nCases, summStats, cutPoints, frequencies).IsValid();
}

bool AreValidCuts(const std::vector<double> & cutPoints, const std::vector<double> & frequencies) {
  return IsValidContinuous(3.0, SummStats(), cutPoints, frequencies);
}

}  // namespace

TEST(UniStats, Default) {
  const QVUniStats stats;
  EXPECT_EQ(stats.GetVarName(), "x");
  EXPECT_TRUE(stats.IsCategorical());
  EXPECT_EQ(stats.GetNumberOfCases(), 0.0);
  EXPECT_TRUE(stats.GetFrequencies().empty());
  EXPECT_TRUE(stats.AreIntervalsOpenLeft());
  EXPECT_TRUE(stats.GetCutPoints().empty());
  EXPECT_TRUE(stats.IsValid());
}

TEST(UniStats, SummStatsIsAPlainStructOfFourDoubles) {
  static_assert(std::is_aggregate_v<SummStats>);
  static_assert(std::is_standard_layout_v<SummStats>);
  static_assert(sizeof(SummStats) == 4 * sizeof(double));
  const SummStats missing;
  EXPECT_EQ(missing.fMinimum, kMissing);
  EXPECT_EQ(missing.fMaximum, kMissing);
  EXPECT_EQ(missing.fMean, kMissing);
  EXPECT_EQ(missing.fStdDev, kMissing);
  const SummStats inOrder{1.0, 2.0, 3.0, 4.0};
  EXPECT_EQ(inOrder.fMinimum, 1.0);
  EXPECT_EQ(inOrder.fMaximum, 2.0);
  EXPECT_EQ(inOrder.fMean, 3.0);
  EXPECT_EQ(inOrder.fStdDev, 4.0);
}

TEST(UniStats, Categorical) {
  const QVUniStats stats("colour", 7.0, {3.0, 4.0});
  EXPECT_EQ(stats.GetVarName(), "colour");
  EXPECT_TRUE(stats.IsCategorical());
  EXPECT_EQ(stats.GetNumberOfCases(), 7.0);
  EXPECT_EQ(stats.GetFrequencies(), (std::vector<double>{3.0, 4.0}));
  EXPECT_TRUE(stats.GetCutPoints().empty());
  EXPECT_EQ(stats.GetSummStats().fMean, kMissing);
  EXPECT_TRUE(stats.IsValid());
}

TEST(UniStats, Continuous) {
  QVUniStats stats("y", 3.0, {1.0, 5.0, 2.0, 0.5}, {0.0, 3.0, 6.0}, {1.0, 2.0});
  EXPECT_FALSE(stats.IsCategorical());
  EXPECT_EQ(stats.GetNumberOfCases(), 3.0);
  EXPECT_EQ(stats.GetSummStats().fMinimum, 1.0);
  EXPECT_EQ(stats.GetSummStats().fMaximum, 5.0);
  EXPECT_EQ(stats.GetSummStats().fMean, 2.0);
  EXPECT_EQ(stats.GetSummStats().fStdDev, 0.5);
  EXPECT_EQ(stats.GetCutPoints(), (std::vector<double>{0.0, 3.0, 6.0}));
  EXPECT_EQ(stats.GetFrequencies(), (std::vector<double>{1.0, 2.0}));
  EXPECT_TRUE(stats.AreIntervalsOpenLeft());
  stats.SetIntervalsOpenLeft(false);
  EXPECT_FALSE(stats.AreIntervalsOpenLeft());
  EXPECT_TRUE(stats.IsValid());
  const QVUniStats copy(stats);
  EXPECT_FALSE(copy.AreIntervalsOpenLeft());
  const QVUniStats moved(std::move(stats));
  EXPECT_EQ(moved.GetVarName(), "y");
}

TEST(UniStatsValid, NameAndNumberOfCases) {
  EXPECT_FALSE(QVUniStats("", 1.0, {1.0}).IsValid());
  EXPECT_FALSE(QVUniStats("a", -1.0, {1.0}).IsValid());
  EXPECT_FALSE(QVUniStats("a", kMissing, {1.0}).IsValid());
  EXPECT_TRUE(QVUniStats("a", 0.0, {}).IsValid());
  EXPECT_FALSE(QVUniStats("", 1.0, SummStats(), {}, {}).IsValid());
  EXPECT_FALSE(IsValidContinuous(-1.0, SummStats()));
}

TEST(UniStatsValid, FrequenciesAreNotNegative) {
  EXPECT_TRUE(QVUniStats("a", 1.0, {0.0, 1.0}).IsValid());
  EXPECT_FALSE(QVUniStats("a", 1.0, {1.0, -0.5}).IsValid());
  EXPECT_FALSE(QVUniStats("a", 1.0, {1.0, kMissing}).IsValid());
  EXPECT_TRUE(AreValidCuts({0.0, 1.0}, {0.0}));
  EXPECT_FALSE(AreValidCuts({0.0, 1.0}, {-1.0}));
}

TEST(UniStatsValid, CategoricalNeedsNoMore) {
  // 1 case, no cut points: nothing of the continuous rules applies.
  EXPECT_TRUE(QVUniStats("a", 1.0, {5.0, 6.0, 7.0}).IsValid());
}

TEST(UniStatsValid, CutPoints) {
  EXPECT_TRUE(AreValidCuts({kMissing, 3.0, kMissing}, {1.0, 2.0}));
  EXPECT_FALSE(AreValidCuts({3.0, 3.0, 4.0}, {1.0, 2.0}));
  EXPECT_TRUE(AreValidCuts({2.0, 3.0, 4.0}, {1.0, 2.0}));
  EXPECT_FALSE(AreValidCuts({4.0, 3.0, 5.0}, {1.0, 2.0}));
  EXPECT_TRUE(AreValidCuts({kMissing, 3.0, 4.0}, {1.0, 2.0}));
  EXPECT_TRUE(AreValidCuts({2.0, 3.0, kMissing}, {1.0, 2.0}));
  EXPECT_FALSE(AreValidCuts({2.0, kMissing, 4.0}, {1.0, 2.0}));
  EXPECT_FALSE(AreValidCuts({kMissing, kMissing, 4.0}, {1.0, 2.0}));
  EXPECT_FALSE(AreValidCuts({2.0, kMissing, kMissing}, {1.0, 2.0}));
  EXPECT_TRUE(AreValidCuts({kMissing, 4.0}, {1.0}));
  EXPECT_TRUE(AreValidCuts({4.0, kMissing}, {1.0}));
  EXPECT_FALSE(AreValidCuts({kMissing, kMissing}, {1.0}));
  EXPECT_FALSE(AreValidCuts({kMissing, kMissing, kMissing}, {1.0, 2.0}));
  EXPECT_FALSE(AreValidCuts({1.0, kNaN, 3.0}, {1.0, 2.0}));
}

TEST(UniStatsValid, NumberOfCutPoints) {
  EXPECT_FALSE(AreValidCuts({}, {1.0}));
  EXPECT_FALSE(AreValidCuts({1.0}, {1.0}));
  EXPECT_FALSE(AreValidCuts({1.0, 2.0, 3.0}, {1.0}));
  EXPECT_TRUE(AreValidCuts({}, {}));
  EXPECT_FALSE(AreValidCuts({1.0}, {}));
  EXPECT_FALSE(AreValidCuts({1.0, 2.0}, {}));
}

TEST(UniStatsValid, FewCasesHaveFewStatistics) {
  EXPECT_TRUE(IsValidContinuous(2.0, {1.0, 2.0, 1.5, 0.5}));
  EXPECT_FALSE(IsValidContinuous(1.9, {1.0, 2.0, 1.5, 0.5}));
  EXPECT_TRUE(IsValidContinuous(1.9, {1.0, 2.0, 1.5, kMissing}));
  EXPECT_TRUE(IsValidContinuous(0.5, {1.0, 2.0, 1.5, kMissing}));
  EXPECT_TRUE(IsValidContinuous(0.0, SummStats()));
  EXPECT_FALSE(IsValidContinuous(0.0, {1.0, kMissing, kMissing, kMissing}));
  EXPECT_FALSE(IsValidContinuous(0.0, {kMissing, 1.0, kMissing, kMissing}));
  EXPECT_FALSE(IsValidContinuous(0.0, {kMissing, kMissing, 1.0, kMissing}));
  EXPECT_FALSE(IsValidContinuous(0.0, {kMissing, kMissing, kMissing, 1.0}));
}

TEST(UniStatsValid, StandardDeviationIsNotNegative) {
  EXPECT_TRUE(IsValidContinuous(2.0, {1.0, 1.0, 1.0, 0.0}));
  EXPECT_FALSE(IsValidContinuous(2.0, {1.0, 1.0, 1.0, -0.1}));
  EXPECT_TRUE(IsValidContinuous(2.0, {1.0, 1.0, 1.0, kMissing}));
}

TEST(UniStatsValid, MinimumIsNotAboveMaximum) {
  EXPECT_FALSE(IsValidContinuous(2.0, {2.0, 1.0, 1.5, 0.5}));
  EXPECT_TRUE(IsValidContinuous(2.0, {1.0, 1.0, 1.0, 0.0}));
  EXPECT_TRUE(IsValidContinuous(2.0, {2.0, kMissing, 1.5, 0.5}));
  EXPECT_TRUE(IsValidContinuous(2.0, {kMissing, 1.0, 1.5, 0.5}));
}
