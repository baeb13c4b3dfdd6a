// RegGainsChart and ClassGainsChart: scored cases, sorted and cut into segments.

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>

#include "ClassGainsChart.h"
#include "QVMV.h"
#include "RegGainsChart.h"

namespace QVMath_940 {

using QVCommon_940::QVMV;

namespace {

constexpr double kFirstShare = 0.01;  // of the cases: the first segment
constexpr double kNoFirstUpTo = 0.5;  // of a case: up to here there is no first segment

int ClampToInt(std::int64_t value) {
  constexpr std::int64_t kLowest = std::numeric_limits<int>::min();
  constexpr std::int64_t kLargest = std::numeric_limits<int>::max();
  return static_cast<int>(std::clamp(value, kLowest, kLargest));
}

/// The weight cut to an integer; a weight outside the range of int gives its end, NaN gives 0.
int WholeWeight(double weight) {
  constexpr double kEnd = -static_cast<double>(std::numeric_limits<int>::min());  // exact
  if (weight > -kEnd && weight < kEnd) return static_cast<int>(weight);
  if (std::isnan(weight)) return 0;
  return weight > 0.0 ? std::numeric_limits<int>::max() : std::numeric_limits<int>::min();
}

/// Highest score first. Scores that are not a number have no place in an order and go to the end.
template <typename Case>
void SortByScore(std::vector<Case> & cases) {
  const auto isNumber = [](const Case & each) { return !std::isnan(each.score); };
  auto end = cases.end();
  if (!std::all_of(cases.begin(), end, isNumber))
    end = std::partition(cases.begin(), end, isNumber);
  std::sort(cases.begin(), end);
}

/// The cut of n cases into rows; see GainsChart.
class Segments {
 public:
  Segments(std::size_t nCases, int count) : fNCases(nCases) {
    if (nCases == 0 || count < 1) return;
    const double share = static_cast<double>(nCases) * kFirstShare;
    const std::size_t first = share > kNoFirstUpTo ? static_cast<std::size_t>(share) + 1 : 0;
    fLength = nCases / static_cast<std::size_t>(count);
    if (fLength == 0) {
      fLength = 1;
      fNRows = nCases;
    } else {
      fNRows = static_cast<std::size_t>(count) + (first >= 1 ? 1 : 0);
    }
    fFirstLength = first >= 1 ? first : fLength;
  }

  std::size_t NRows() const { return fNRows; }

  /// The row's cases are Begin(row) .. Begin(row + 1) - 1.
  std::size_t Begin(std::size_t row) const {
    if (row == 0) return 0;
    if (row >= fNRows) return fNCases;  // the last row takes the remainder
    return std::min(fNCases, (row - 1) * fLength + fFirstLength);
  }

 private:
  std::size_t fNCases;
  std::size_t fLength = 0;
  std::size_t fFirstLength = 0;
  std::size_t fNRows = 0;
};

/// What one row sums up, whatever the kind of case.
struct RowSums {
  std::int64_t count = 0;
  double score = 0.0;
};

/// Fills the fields that both charts have in common; `previous` is the row before, or null.
void FinishRow(const RowSums & sums, const LiftInfo * previous, LiftInfo & row) {
  const int count = ClampToInt(sums.count);
  const std::int64_t before = previous == nullptr ? 0 : previous->cumulativeCount;
  row.cumulativeCount = ClampToInt(before + count);
  row.meanScore = sums.score / count;
}

std::vector<LiftInfo> ClassRows(const std::vector<ClassDataInfo> & cases,
                                const Segments & segments) {
  std::vector<LiftInfo> rows(segments.NRows());
  for (std::size_t r = 0; r < rows.size(); ++r) {
    RowSums sums;
    std::int64_t hits = 0;
    bool anyMissing = false;
    const std::size_t begin = segments.Begin(r), end = segments.Begin(r + 1);
    if (begin < end) rows[r].minScore = cases[begin].score;
    for (std::size_t k = begin; k < end; ++k) {
      const ClassDataInfo & each = cases[k];
      const int whole = WholeWeight(each.weight);
      sums.count += whole;
      sums.score += each.score * each.weight;
      if (each.hit) hits += whole;
      if (each.score < rows[r].minScore) rows[r].minScore = each.score;
      anyMissing = anyMissing || QVMV::IsMissing(each.score);
    }
    rows[r].response = ClampToInt(hits);
    FinishRow(sums, r == 0 ? nullptr : &rows[r - 1], rows[r]);
    if (anyMissing) rows[r].minScore = rows[r].meanScore = QVMV::Missing();
  }
  return rows;
}

std::vector<LiftInfo> RegRows(const std::vector<RegDataInfo> & cases, const Segments & segments) {
  std::vector<LiftInfo> rows(segments.NRows());
  double minScore = QVMV::Missing();  // outlives its row: one without cases shows the former
  for (std::size_t r = 0; r < rows.size(); ++r) {
    RowSums sums;
    const std::size_t begin = segments.Begin(r), end = segments.Begin(r + 1);
    if (begin < end) minScore = cases[begin].score;
    for (std::size_t k = begin; k < end; ++k) {
      const RegDataInfo & each = cases[k];
      sums.count += WholeWeight(each.weight);
      sums.score += each.score * each.weight;
      rows[r].response += each.actual * each.weight;
      if (each.score < minScore) minScore = each.score;
    }
    rows[r].minScore = minScore;
    FinishRow(sums, r == 0 ? nullptr : &rows[r - 1], rows[r]);
  }
  return rows;
}

}  // namespace

GainsChart::~GainsChart() = default;
RegGainsChart::~RegGainsChart() = default;
ClassGainsChart::~ClassGainsChart() = default;

void GainsChart::SetCountOfSegment(int count) {
  fCountOfSegment = count;
}

std::vector<LiftInfo> RegGainsChart::CalculateGains(std::vector<RegDataInfo> & cases) {
  SortByScore(cases);
  return RegRows(cases, Segments(cases.size(), fCountOfSegment));
}

std::vector<std::vector<LiftInfo>> ClassGainsChart::CalculateGains(
    std::vector<std::vector<ClassDataInfo>> & cases) {
  std::vector<std::vector<LiftInfo>> rows;
  rows.reserve(cases.size());
  for (std::vector<ClassDataInfo> & list : cases) {
    SortByScore(list);
    rows.push_back(ClassRows(list, Segments(list.size(), fCountOfSegment)));
  }
  return rows;
}

}  // namespace QVMath_940
