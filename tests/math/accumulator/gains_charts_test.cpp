// Gains charts against a literal restatement of their rules; the classification matrix.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <type_traits>
#include <vector>

#include "ClassGainsChart.h"
#include "QVClassificationMatrix.h"
#include "QVMV.h"
#include "RegGainsChart.h"

using namespace QVMath_940;
using QVCommon_940::QVMV;

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr int kLargestInt = std::numeric_limits<int>::max();

/// The cases' positions of each row, by the rules word by word, from each row's start.
std::vector<std::vector<int>> RowsByTheRules(int n, int nSegments) {
  int p = n / nSegments;
  const double t = n * 0.01;
  const int f = t > 0.5 ? static_cast<int>(std::trunc(t)) + 1 : 0;
  int nRows;
  if (p == 0) {
    p = 1;
    nRows = n;
  } else {
    nRows = nSegments + (f >= 1 ? 1 : 0);
  }
  const int z = f == 0 ? p : f;
  std::vector<std::vector<int>> rows;
  for (int r = 0; r < nRows; ++r) {
    const int start = r == 0 ? 0 : (r - 1) * p + z;
    const int size = r == nRows - 1 ? n : r == 0 ? z : p;
    std::vector<int> row;
    for (int k = start; k < start + size; ++k) {
      if (k < n) row.push_back(k);
    }
    rows.push_back(row);
  }
  return rows;
}

std::vector<RegDataInfo> RegCases(int n, unsigned seed) {
  std::mt19937 generator(seed);
  std::uniform_real_distribution<double> score(-5.0, 5.0), weight(0.0, 3.0);
  std::vector<RegDataInfo> cases;
  for (int k = 0; k < n; ++k) {
    const double s = score(generator);
    cases.push_back({s, s + score(generator), weight(generator)});
  }
  return cases;
}

std::vector<ClassDataInfo> ClassCases(int n, unsigned seed) {
  std::vector<ClassDataInfo> cases;
  for (const RegDataInfo & each : RegCases(n, seed))
    cases.push_back({each.score, each.actual > 0.0, each.weight});
  return cases;
}

bool SameNumber(double a, double b) {
  return a == b || (std::isnan(a) && std::isnan(b)) ||
         std::fabs(a - b) <= 1e-9 * (1.0 + std::fabs(b));
}

std::vector<int> Sizes(int n, int nSegments) {
  std::vector<RegDataInfo> cases(n, RegDataInfo{1.0, 1.0, 1.0});
  RegGainsChart chart;
  chart.SetCountOfSegment(nSegments);
  std::vector<int> sizes;
  int former = 0;
  for (const LiftInfo & row : chart.CalculateGains(cases)) {
    sizes.push_back(row.cumulativeCount - former);
    former = row.cumulativeCount;
  }
  return sizes;
}

const std::vector<int> kSegmentCounts = {1, 2, 3, 7, 10, 20, 50, 51, 99, 100, 101, 300, 1000};

// === The records =================================================================================

TEST(GainsRecords, Defaults) {
  const ClassDataInfo classCase{};
  EXPECT_TRUE(QVMV::IsMissing(classCase.score));
  EXPECT_FALSE(classCase.hit);
  EXPECT_EQ(classCase.weight, 1.0);
  const RegDataInfo regCase{};
  EXPECT_TRUE(QVMV::IsMissing(regCase.score) && QVMV::IsMissing(regCase.actual));
  EXPECT_EQ(regCase.weight, 1.0);
  const LiftInfo row{};
  EXPECT_EQ(row.cumulativeCount, 0);
  EXPECT_EQ(row.response, 0.0);
  EXPECT_TRUE(QVMV::IsMissing(row.minScore) && QVMV::IsMissing(row.meanScore));
}

TEST(GainsRecords, FieldsStandInOrder) {
  const ClassDataInfo classCase{0.5, true, 2.0};
  EXPECT_TRUE(classCase.score == 0.5 && classCase.hit && classCase.weight == 2.0);
  const RegDataInfo regCase{0.5, 3.0, 2.0};
  EXPECT_TRUE(regCase.score == 0.5 && regCase.actual == 3.0 && regCase.weight == 2.0);
  const LiftInfo row{4, 1.0, 2.0, 3.0};
  EXPECT_TRUE(row.cumulativeCount == 4 && row.response == 1.0);
  EXPECT_TRUE(row.minScore == 2.0 && row.meanScore == 3.0);
  EXPECT_TRUE(std::is_aggregate_v<ClassDataInfo> && std::is_aggregate_v<RegDataInfo>);
  EXPECT_TRUE(std::is_aggregate_v<LiftInfo>);
}

TEST(GainsRecords, OrderIsByDescendingScore) {
  EXPECT_TRUE((ClassDataInfo{2.0, false, 1.0} < ClassDataInfo{1.0, false, 1.0}));
  EXPECT_FALSE((ClassDataInfo{1.0, false, 1.0} < ClassDataInfo{2.0, false, 1.0}));
  EXPECT_FALSE((ClassDataInfo{1.0, false, 1.0} < ClassDataInfo{1.0, true, 2.0}));
  EXPECT_TRUE((RegDataInfo{2.0, 0.0, 1.0} < RegDataInfo{1.0, 0.0, 1.0}));
  EXPECT_FALSE((RegDataInfo{1.0, 0.0, 1.0} < RegDataInfo{1.0, 5.0, 2.0}));
}

// === Segments ====================================================================================

TEST(GainsSegments, HundredCasesHaveAFirstSegmentOfTwo) {
  std::vector<int> expected(21, 5);
  expected.front() = 2;
  expected.back() = 3;
  EXPECT_EQ(Sizes(100, 20), expected);
}

TEST(GainsSegments, FortyCasesHaveNoFirstSegment) {
  EXPECT_EQ(Sizes(40, 20), std::vector<int>(20, 2));
}

TEST(GainsSegments, FewerCasesThanSegmentsStandAlone) {
  EXPECT_EQ(Sizes(10, 20), std::vector<int>(10, 1));
}

TEST(GainsSegments, TheFirstSegmentBeginsAtFiftyOneCases) {
  EXPECT_EQ(Sizes(50, 10), std::vector<int>(10, 5));
  std::vector<int> expected(11, 5);
  expected.front() = 1;
  EXPECT_EQ(Sizes(51, 10), expected);
}

TEST(GainsSegments, TwentyIsTheDefault) {
  std::vector<RegDataInfo> cases = RegCases(40, 1);
  EXPECT_EQ(RegGainsChart().CalculateGains(cases).size(), 20u);
}

TEST(GainsSegments, NoCasesOrNoSegmentsGiveNoRows) {
  std::vector<RegDataInfo> none;
  EXPECT_TRUE(RegGainsChart().CalculateGains(none).empty());
  EXPECT_TRUE(Sizes(10, 0).empty());
  EXPECT_TRUE(Sizes(100, -3).empty());
  std::vector<std::vector<ClassDataInfo>> lists(2);
  lists[1] = ClassCases(3, 2);
  const auto rows = ClassGainsChart().CalculateGains(lists);
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_TRUE(rows[0].empty());
  EXPECT_EQ(rows[1].size(), 3u);
  lists.clear();
  EXPECT_TRUE(ClassGainsChart().CalculateGains(lists).empty());
}

TEST(GainsSegments, RegressionFollowsTheRulesForEverySize) {
  for (const int nSegments : kSegmentCounts) {
    RegGainsChart chart;
    chart.SetCountOfSegment(nSegments);
    for (int n = 0; n <= 300; ++n) {
      std::vector<RegDataInfo> cases = RegCases(n, n);
      const std::vector<LiftInfo> rows = chart.CalculateGains(cases);
      ASSERT_TRUE(std::is_sorted(cases.begin(), cases.end()));
      const std::vector<std::vector<int>> expected = RowsByTheRules(n, nSegments);
      ASSERT_EQ(rows.size(), expected.size()) << n << " cases, " << nSegments;
      int cumulative = 0;
      double lowest = QVMV::Missing();
      for (std::size_t r = 0; r < rows.size(); ++r) {
        int count = 0;
        double score = 0.0, response = 0.0;
        for (const int k : expected[r]) {
          count += static_cast<int>(cases[k].weight);
          score += cases[k].score * cases[k].weight;
          response += cases[k].actual * cases[k].weight;
        }
        if (!expected[r].empty()) lowest = cases[expected[r].back()].score;  // sorted
        cumulative += count;
        ASSERT_EQ(rows[r].cumulativeCount, cumulative) << n << ", " << nSegments << ", row " << r;
        ASSERT_TRUE(SameNumber(rows[r].response, response)) << n << ", " << nSegments << ", " << r;
        ASSERT_EQ(rows[r].minScore, lowest) << n << ", " << nSegments << ", row " << r;
        ASSERT_TRUE(SameNumber(rows[r].meanScore, score / count)) << n << ", " << nSegments;
      }
    }
  }
}

TEST(GainsSegments, ClassificationFollowsTheRulesForEverySize) {
  for (const int nSegments : kSegmentCounts) {
    ClassGainsChart chart;
    chart.SetCountOfSegment(nSegments);
    for (int n = 0; n <= 300; ++n) {
      std::vector<std::vector<ClassDataInfo>> lists = {ClassCases(n, n)};
      if (n % 7 == 3) lists[0][n / 2].score = QVMV::Missing();
      const std::vector<LiftInfo> rows = chart.CalculateGains(lists).at(0);
      const std::vector<ClassDataInfo> & cases = lists[0];
      const std::vector<std::vector<int>> expected = RowsByTheRules(n, nSegments);
      ASSERT_EQ(rows.size(), expected.size()) << n << " cases, " << nSegments;
      int cumulative = 0;
      for (std::size_t r = 0; r < rows.size(); ++r) {
        int count = 0, hits = 0;
        double score = 0.0, lowest = QVMV::Missing();
        bool anyMissing = false;
        for (const int k : expected[r]) {
          count += static_cast<int>(cases[k].weight);
          score += cases[k].score * cases[k].weight;
          if (cases[k].hit) hits += static_cast<int>(cases[k].weight);
          lowest = cases[k].score;  // sorted
          anyMissing = anyMissing || QVMV::IsMissing(cases[k].score);
        }
        cumulative += count;
        ASSERT_EQ(rows[r].cumulativeCount, cumulative) << n << ", " << nSegments << ", row " << r;
        ASSERT_EQ(rows[r].response, hits) << n << ", " << nSegments << ", row " << r;
        ASSERT_EQ(rows[r].minScore, lowest) << n << ", " << nSegments << ", row " << r;
        const double mean = anyMissing ? QVMV::Missing() : score / count;
        ASSERT_TRUE(SameNumber(rows[r].meanScore, mean)) << n << ", " << nSegments << ", " << r;
      }
    }
  }
}

TEST(GainsSegments, ARowWithoutCases) {
  // 51 cases in 51 segments: the first one takes one case, so that nothing is left for row 51.
  std::vector<RegDataInfo> cases(51, RegDataInfo{1.5, 1.0, 1.0});
  RegGainsChart regression;
  regression.SetCountOfSegment(51);
  const std::vector<LiftInfo> rows = regression.CalculateGains(cases);
  ASSERT_EQ(rows.size(), 52u);
  EXPECT_EQ(rows[51].cumulativeCount, 51);
  EXPECT_EQ(rows[51].response, 0.0);
  EXPECT_EQ(rows[51].minScore, 1.5);  // what the row before left
  EXPECT_TRUE(std::isnan(rows[51].meanScore));

  std::vector<std::vector<ClassDataInfo>> lists = {
      std::vector<ClassDataInfo>(51, ClassDataInfo{1.5, true, 1.0})};
  ClassGainsChart classification;
  classification.SetCountOfSegment(51);
  const LiftInfo last = classification.CalculateGains(lists).at(0).at(51);
  EXPECT_EQ(last.cumulativeCount, 51);
  EXPECT_TRUE(QVMV::IsMissing(last.minScore));
  EXPECT_TRUE(std::isnan(last.meanScore));
}

// === Weights and scores ==========================================================================

TEST(GainsWeights, AreCutInCountsAndHitsAlone) {
  std::vector<std::vector<ClassDataInfo>> lists = {{{2.0, true, 2.7}, {1.0, true, 0.5}}};
  ClassGainsChart chart;
  chart.SetCountOfSegment(1);
  const LiftInfo row = chart.CalculateGains(lists).at(0).at(0);
  EXPECT_EQ(row.cumulativeCount, 2);
  EXPECT_EQ(row.response, 2.0);
  EXPECT_DOUBLE_EQ(row.meanScore, (2.0 * 2.7 + 1.0 * 0.5) / 2);
  EXPECT_EQ(row.minScore, 1.0);

  std::vector<RegDataInfo> cases = {{2.0, 10.0, 2.7}, {1.0, 4.0, 0.5}};
  RegGainsChart regression;
  regression.SetCountOfSegment(1);
  const LiftInfo sum = regression.CalculateGains(cases).at(0);
  EXPECT_EQ(sum.cumulativeCount, 2);
  EXPECT_DOUBLE_EQ(sum.response, 29.0);
  EXPECT_DOUBLE_EQ(sum.meanScore, (2.0 * 2.7 + 1.0 * 0.5) / 2);
}

TEST(GainsWeights, ARowOfFractionsDividesByItsCountOfZero) {
  std::vector<RegDataInfo> cases = {{2.0, 10.0, 0.5}};
  const LiftInfo row = RegGainsChart().CalculateGains(cases).at(0);
  EXPECT_EQ(row.cumulativeCount, 0);
  EXPECT_EQ(row.meanScore, kInfinity);
  EXPECT_EQ(row.response, 5.0);
}

TEST(GainsWeights, CountsStayAtTheLargestInt) {
  for (const double weight : {2e9, 1e300, kInfinity, 2147483647.0, 2147483648.0}) {
    std::vector<std::vector<ClassDataInfo>> lists = {
        std::vector<ClassDataInfo>(6, ClassDataInfo{1.0, true, weight})};
    ClassGainsChart chart;
    chart.SetCountOfSegment(2);
    const std::vector<LiftInfo> rows = chart.CalculateGains(lists).at(0);
    for (const LiftInfo & row : rows) {
      EXPECT_EQ(row.cumulativeCount, kLargestInt) << weight;
      EXPECT_EQ(row.response, kLargestInt) << weight;
    }
  }
}

TEST(GainsWeights, NaNCountsNothingAndNegativeOnesStayInRange) {
  std::vector<RegDataInfo> cases = {{1.0, 1.0, kNaN}};
  EXPECT_EQ(RegGainsChart().CalculateGains(cases).at(0).cumulativeCount, 0);
  cases.assign(5, RegDataInfo{1.0, 1.0, -kInfinity});
  EXPECT_EQ(RegGainsChart().CalculateGains(cases).at(4).cumulativeCount,
            std::numeric_limits<int>::min());
}

TEST(GainsScores, AMissingScoreMarksItsRowOfAClassification) {
  std::vector<std::vector<ClassDataInfo>> lists = {ClassCases(40, 3)};
  for (ClassDataInfo & each : lists[0])
    each.weight = 1.0;
  lists[0][7].score = QVMV::Missing();
  const std::vector<LiftInfo> rows = ClassGainsChart().CalculateGains(lists).at(0);
  ASSERT_EQ(rows.size(), 20u);
  EXPECT_TRUE(QVMV::IsMissing(rows[19].minScore) && QVMV::IsMissing(rows[19].meanScore));
  EXPECT_EQ(rows[19].cumulativeCount, 40);
  EXPECT_FALSE(QVMV::IsMissing(rows[18].minScore) || QVMV::IsMissing(rows[18].meanScore));
}

TEST(GainsScores, AMissingScoreOfARegressionIsANumber) {
  std::vector<RegDataInfo> cases = {{1.0, 1.0, 1.0}, {QVMV::Missing(), 1.0, 1.0}};
  const std::vector<LiftInfo> rows = RegGainsChart().CalculateGains(cases);
  EXPECT_EQ(rows.at(1).minScore, QVMV::Missing());
  EXPECT_EQ(rows.at(1).meanScore, QVMV::Missing());
  EXPECT_EQ(rows.at(1).cumulativeCount, 2);
}

TEST(GainsScores, NaNComesLast) {
  std::vector<RegDataInfo> cases = RegCases(1000, 5);
  for (std::size_t k = 0; k < cases.size(); k += 3)
    cases[k].score = kNaN;
  cases[1].score = -kInfinity;
  RegGainsChart().CalculateGains(cases);
  EXPECT_TRUE(std::is_sorted(cases.begin(), cases.begin() + 666));
  EXPECT_EQ(cases[665].score, -kInfinity);
  EXPECT_TRUE(std::all_of(cases.begin() + 666, cases.end(),
                          [](const RegDataInfo & each) { return std::isnan(each.score); }));
}

TEST(GainsScores, ListsAreIndependent) {
  std::vector<std::vector<ClassDataInfo>> both = {ClassCases(120, 6), ClassCases(30, 7)};
  std::vector<std::vector<ClassDataInfo>> first = {both[0]}, second = {both[1]};
  ClassGainsChart chart;
  const auto rows = chart.CalculateGains(both);
  const auto firstRows = chart.CalculateGains(first), secondRows = chart.CalculateGains(second);
  const auto expectSame = [](const std::vector<LiftInfo> & a, const std::vector<LiftInfo> & b) {
    ASSERT_EQ(a.size(), b.size());
    for (std::size_t r = 0; r < a.size(); ++r) {
      EXPECT_EQ(a[r].cumulativeCount, b[r].cumulativeCount);
      EXPECT_EQ(a[r].response, b[r].response);
      EXPECT_TRUE(SameNumber(a[r].minScore, b[r].minScore));
      EXPECT_TRUE(SameNumber(a[r].meanScore, b[r].meanScore));
    }
  };
  ASSERT_EQ(rows.size(), 2u);
  expectSame(rows[0], firstRows.at(0));
  expectSame(rows[1], secondRows.at(0));
  EXPECT_EQ(rows[0].size(), 21u);
  EXPECT_EQ(rows[1].size(), 20u);
}

TEST(GainsScores, AMillionCases) {
  constexpr int kCases = 1000000;
  std::vector<RegDataInfo> cases = RegCases(kCases, 8);
  for (RegDataInfo & each : cases)
    each.weight = 1.0;
  double total = 0.0;
  for (const RegDataInfo & each : cases)
    total += each.actual;
  const std::vector<LiftInfo> rows = RegGainsChart().CalculateGains(cases);
  ASSERT_TRUE(std::is_sorted(cases.begin(), cases.end()));
  ASSERT_EQ(rows.size(), 21u);
  EXPECT_EQ(rows.front().cumulativeCount, 10001);
  EXPECT_EQ(rows.back().cumulativeCount, kCases);
  double sum = 0.0;
  for (std::size_t r = 0; r < rows.size(); ++r) {
    sum += rows[r].response;
    EXPECT_EQ(rows[r].minScore, cases[rows[r].cumulativeCount - 1].score);
  }
  EXPECT_NEAR(sum, total, 1e-6 * kCases);
}

TEST(GainsChartBase, IsPolymorphic) {
  EXPECT_TRUE(std::has_virtual_destructor_v<GainsChart>);
  struct Fixed : RegGainsChart {
    void SetCountOfSegment(int) override { RegGainsChart::SetCountOfSegment(2); }
  } chart;
  GainsChart & base = chart;
  base.SetCountOfSegment(9);
  std::vector<RegDataInfo> cases = RegCases(10, 9);
  EXPECT_EQ(chart.CalculateGains(cases).size(), 2u);
}

// === Classification matrix =======================================================================

TEST(ClassificationMatrix, StartsAtZeroAndAddsWeights) {
  QVClassificationMatrix matrix(2);
  EXPECT_EQ(matrix.GetMatrix().GetNRows(), 2);
  EXPECT_EQ(matrix.GetMatrix().GetNCols(), 2);
  EXPECT_EQ(matrix.GetMatrix().GetElem(1, 0), 0.0);
  EXPECT_TRUE(matrix.UpdateData(1.5, 1, 0));
  EXPECT_TRUE(matrix.UpdateData(0.25, 1, 0));
  EXPECT_EQ(matrix.GetMatrix().GetElem(1, 0), 1.75);  // (actual, predicted)
  EXPECT_EQ(matrix.GetMatrix().GetElem(0, 1), 0.0);
}

TEST(ClassificationMatrix, RefusesBadCasesAndStaysAsItWas) {
  QVClassificationMatrix matrix(2);
  EXPECT_FALSE(matrix.UpdateData(0.0, 1, 1));
  EXPECT_FALSE(matrix.UpdateData(-1.0, 1, 1));
  EXPECT_FALSE(matrix.UpdateData(kNaN, 1, 1));
  EXPECT_FALSE(matrix.UpdateData(QVMV::Missing(), 1, 1));
  EXPECT_FALSE(matrix.UpdateData(1.0, 2, 0));
  EXPECT_FALSE(matrix.UpdateData(1.0, -1, 0));
  EXPECT_FALSE(matrix.UpdateData(1.0, 0, 2));
  EXPECT_FALSE(matrix.UpdateData(1.0, 0, -1));
  for (int i = 0; i < 2; ++i) {
    for (int j = 0; j < 2; ++j)
      EXPECT_EQ(matrix.GetMatrix().GetElem(i, j), 0.0);
  }
}

TEST(ClassificationMatrix, WithoutCategoriesRefusesAll) {
  for (const int n : {0, -4}) {
    QVClassificationMatrix matrix(n);
    EXPECT_EQ(matrix.GetMatrix().GetNRows(), 0);
    EXPECT_FALSE(matrix.UpdateData(1.0, 0, 0));
  }
}

}  // namespace
