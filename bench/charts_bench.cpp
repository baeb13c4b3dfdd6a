// Charts: gains against a sort of the same records plus one walk; the cases of a histogram against
// Boost.Histogram with a mean in each bin and against the counts of GSL.

#include <gsl/gsl_histogram.h>

#include <boost/histogram/accumulators/weighted_mean.hpp>
#include <boost/histogram/axis/regular.hpp>
#include <boost/histogram/make_histogram.hpp>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <random>
#include <string>
#include <vector>

#include "ClassGainsChart.h"
#include "QVHistogramData.h"
#include "RegGainsChart.h"
#include "contender.h"

namespace {

using QVMath_940::ClassDataInfo;
using QVMath_940::ClassGainsChart;
using QVMath_940::LiftInfo;
using QVMath_940::QVHistogramData;
using QVMath_940::RegDataInfo;
using QVMath_940::RegGainsChart;

constexpr unsigned kSeed = 20240229;
constexpr int kScoredCases = 1000000;
constexpr int kHistogramCases = 100000;
constexpr double kMin = 0.0, kMax = 20.0;

bool Agree(double a, double b) {
  return std::fabs(a - b) <= 1e-9 * (1.0 + std::fabs(b));
}

// --- Gains ---------------------------------------------------------------------------------------

std::vector<RegDataInfo> RegCases() {
  std::mt19937_64 generator(kSeed);
  std::normal_distribution<double> normal;
  std::vector<RegDataInfo> cases(kScoredCases);
  for (RegDataInfo & each : cases) {
    each.score = normal(generator);
    each.actual = each.score + normal(generator);
    each.weight = 1.0 + static_cast<double>(generator() % 3);
  }
  return cases;
}

std::vector<ClassDataInfo> ClassCases() {
  std::vector<ClassDataInfo> cases;
  for (const RegDataInfo & each : RegCases())
    cases.push_back({each.score, each.actual > 0.0, each.weight});
  return cases;
}

/// What the walk by hand sums up over all cases.
struct Walk {
  double count = 0.0, score = 0.0, response = 0.0;
};

double Response(const RegDataInfo & each) {
  return each.actual * each.weight;
}
double Response(const ClassDataInfo & each) {
  return each.hit ? each.weight : 0.0;
}

template <typename Case>
Walk SortAndWalk(std::vector<Case> & cases) {
  std::sort(cases.begin(), cases.end());
  Walk walk;
  for (const Case & each : cases) {
    walk.count += each.weight;
    walk.score += each.score * each.weight;
    walk.response += Response(each);
  }
  return walk;
}

/// Both contenders sort fresh copies; the copying is timed in both.
template <typename Case, typename Calculate>
void RegisterGains(const std::string & work, std::vector<Case> (*make)(), Calculate calculate) {
  AddContender(work, "qv", [=](benchmark::State & state) {
    const std::vector<Case> cases = make();
    std::vector<LiftInfo> rows;
    for (auto _ : state) {
      std::vector<Case> copy = cases;
      rows = calculate(copy);
      benchmark::DoNotOptimize(rows.data());
    }
    std::vector<Case> copy = cases;
    const Walk walk = SortAndWalk(copy);
    double response = 0.0;
    for (const LiftInfo & row : rows)
      response += row.response;
    if (rows.back().cumulativeCount != walk.count || !Agree(response, walk.response))
      state.SkipWithError("the contenders do not agree");
  })->Unit(benchmark::kMillisecond);
  AddContender(work, "std::sort", [=](benchmark::State & state) {
    const std::vector<Case> cases = make();
    for (auto _ : state) {
      std::vector<Case> copy = cases;
      Walk walk = SortAndWalk(copy);
      benchmark::DoNotOptimize(walk);
    }
  })->Unit(benchmark::kMillisecond);
}

// --- Histogram -----------------------------------------------------------------------------------

std::vector<double> Values() {
  std::mt19937_64 generator(kSeed);
  std::normal_distribution<double> normal(10.0, 3.0);
  std::vector<double> values(kHistogramCases);
  for (double & x : values)
    x = normal(generator);
  return values;
}

auto BoostHistogram(int nBins) {
  namespace bh = boost::histogram;
  return bh::make_histogram_with(std::vector<bh::accumulators::weighted_mean<double>>(),
                                 bh::axis::regular<>(static_cast<unsigned>(nBins), kMin, kMax));
}

void RegisterHistogram(int nBins) {
  namespace bh = boost::histogram;
  const std::string work = "HistogramUpdate/" + std::to_string(nBins);
  AddContender(work, "qv", [nBins](benchmark::State & state) {
    const std::vector<double> values = Values();
    QVHistogramData histogram(nBins, kMin, kMax, false);
    for (auto _ : state) {
      for (const double x : values)
        histogram.UpdateData(1.0, 1.0, x);
      benchmark::ClobberMemory();
    }
    // Outliers stand in the outermost bins here and in bins of their own there.
    QVHistogramData once(nBins, kMin, kMax, false);
    auto peer = BoostHistogram(nBins);
    for (const double x : values) {
      once.UpdateData(1.0, 1.0, x);
      peer(bh::weight(1.0), bh::sample(x), x);
    }
    const auto & data = once.GenerateQVVariateData("x");
    const std::vector<double> & means = data.fCoordinates[0].fRealValues;
    for (int b = 1; b + 1 < nBins; ++b) {
      if (!Agree(means[static_cast<std::size_t>(b)], peer.at(b).value()))
        state.SkipWithError("the contenders do not agree");
    }
  });
  AddContender(work, "boost", [nBins](benchmark::State & state) {
    const std::vector<double> values = Values();
    auto histogram = BoostHistogram(nBins);
    for (auto _ : state) {
      for (const double x : values)
        histogram(bh::weight(1.0), bh::sample(x), x);
      benchmark::ClobberMemory();
    }
  });
  AddContender(work, "gsl counts only", [nBins](benchmark::State & state) {
    const std::vector<double> values = Values();
    gsl_histogram * histogram = gsl_histogram_alloc(static_cast<std::size_t>(nBins));
    gsl_histogram_set_ranges_uniform(histogram, kMin, kMax);
    for (auto _ : state) {
      for (const double x : values)
        gsl_histogram_accumulate(histogram, x, 1.0);
      benchmark::ClobberMemory();
    }
    gsl_histogram_free(histogram);
  });
}

}  // namespace

void RegisterBenchmarks() {
  RegisterGains<RegDataInfo>(
      "RegGainsChart/1000000", RegCases,
      [](std::vector<RegDataInfo> & cases) { return RegGainsChart().CalculateGains(cases); });
  RegisterGains<ClassDataInfo>("ClassGainsChart/1000000", ClassCases,
                               [](std::vector<ClassDataInfo> & cases) {
                                 std::vector<std::vector<ClassDataInfo>> lists(1);
                                 lists[0].swap(cases);
                                 return ClassGainsChart().CalculateGains(lists)[0];
                               });
  RegisterHistogram(20);
}
