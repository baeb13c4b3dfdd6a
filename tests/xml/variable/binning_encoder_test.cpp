#include "QVBinningEncoder.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <random>

#include "QVMV.h"
#include "variable_test_tools.h"

namespace {

using QVCommon_940::QVMV;
using QVXML_940::QVBinningEncoder;
using Vector = std::vector<double>;

const double kMissing = QVMV::Missing();
const double kLargest = std::numeric_limits<double>::max();
const double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(BinningEncoder, DefaultHasNoCutsAndNoCategories) {
  const QVBinningEncoder bins;
  EXPECT_EQ(bins.GetNumberOfCategories(), 0);
  EXPECT_TRUE(bins.GetBinningCutpoints().empty());
}

TEST(BinningEncoder, CutsAreTakenAsGiven) {
  const QVBinningEncoder bins(Vector{1, 3, 3.5});
  EXPECT_EQ(bins.GetNumberOfCategories(), 4);
  EXPECT_EQ(bins.GetBinningCutpoints(), (Vector{1, 3, 3.5}));
  EXPECT_EQ(QVBinningEncoder(Vector()).GetNumberOfCategories(), 1);
}

TEST(BinningEncoder, EqualWidthCuts) {
  const QVBinningEncoder bins(0, 10, 5);
  EXPECT_EQ(bins.GetBinningCutpoints(), (Vector{2, 4, 6, 8}));
  EXPECT_EQ(bins.GetNumberOfCategories(), 5);
  EXPECT_EQ(bins.Encode(4), 1);
  EXPECT_EQ(bins.Encode(4.1), 2);
  EXPECT_EQ(bins.Encode(100), 4);
  EXPECT_EQ(bins.Encode(-1), 0);
}

TEST(BinningEncoder, EqualWidthCutsAreIndexTimesWidthPlusLow) {
  const QVBinningEncoder bins(0.1, 0.7, 7);
  const double width = (0.7 - 0.1) / 7;
  for (int i = 1; i < 7; ++i) {
    EXPECT_EQ(bins.GetBinningCutpoints()[static_cast<std::size_t>(i - 1)], i * width + 0.1);
  }
}

TEST(BinningEncoder, FewerThanTwoBinsHaveNoCutsAndKeepTheirCount) {
  for (int n : {1, 0, -3}) {
    const QVBinningEncoder bins(0, 10, n);
    EXPECT_TRUE(bins.GetBinningCutpoints().empty());
    EXPECT_EQ(bins.GetNumberOfCategories(), n);
  }
}

TEST(BinningEncoder, MissingIsNoBin) {
  EXPECT_EQ(QVBinningEncoder(0, 10, 5).Encode(kMissing), -1);
  EXPECT_EQ(QVBinningEncoder().Encode(kMissing), -1);
}

TEST(BinningEncoder, NaNLiesBehindEveryCut) {
  EXPECT_EQ(QVBinningEncoder(0, 10, 5).Encode(kNaN), 4);
}

TEST(BinningEncoder, WithoutCutsAnswersAsIfOneStoodAtZero) {
  const QVBinningEncoder none;
  const QVBinningEncoder empty{Vector()};
  const QVBinningEncoder one(0, 10, 1);
  for (const QVBinningEncoder * bins : {&none, &empty, &one}) {
    EXPECT_EQ(bins->Encode(-0.5), 0);
    EXPECT_EQ(bins->Encode(0.0), 1);
    EXPECT_EQ(bins->Encode(0.5), 1);
    EXPECT_EQ(bins->Encode(kNaN), 1);
  }
}

TEST(BinningEncoder, CodeIsTheNumberOfCutsStrictlyBelow) {
  std::mt19937 random(7);
  std::uniform_int_distribution<int> step(1, 3);
  for (int size = 1; size <= 40; ++size) {
    Vector cuts;
    double cut = -20;
    for (int i = 0; i < size; ++i)
      cuts.push_back(cut += step(random));
    const QVBinningEncoder bins(cuts);
    for (double x = -21; x <= cut + 1; x += 0.5) {
      int below = 0;
      for (double c : cuts)
        below += c < x ? 1 : 0;
      ASSERT_EQ(bins.Encode(x), below) << size << " cuts, " << x;
    }
    ASSERT_EQ(bins.Encode(std::numeric_limits<double>::infinity()), size);
    ASSERT_EQ(bins.Encode(-std::numeric_limits<double>::infinity()), 0);
  }
}

TEST(BinningEncoder, SetCutpointsRecountsTheCategories) {
  QVBinningEncoder bins;
  bins.SetBinningCutpoints({1, 2});
  EXPECT_EQ(bins.GetNumberOfCategories(), 3);
  EXPECT_EQ(bins.Encode(1.5), 1);
}

// The computed cells, seen through `CreateRebinned`.
Vector Rebinned(Vector const & cuts, Vector const & counts) {
  const std::unique_ptr<QVBinningEncoder> bins(QVBinningEncoder(cuts).CreateRebinned(counts));
  return bins->GetBinningCutpoints();
}

TEST(BinningEncoder, RebinnedCells) {
  EXPECT_EQ(Rebinned({1, 2, 3, 4}, {0, 3, 0, 2, 0}), (Vector{kMissing, 2.5, 2.5, kLargest}));
}

TEST(BinningEncoder, RebinnedLeadingRun) {
  EXPECT_EQ(Rebinned({1, 2, 3, 4}, {0, 0, 1, 1, 1}), (Vector{kMissing, kMissing, 3, 4}));
}

TEST(BinningEncoder, RebinnedTrailingRun) {
  EXPECT_EQ(Rebinned({1, 2, 3, 4}, {1, 1, 0, 0, 0}), (Vector{1, kLargest, kLargest, kLargest}));
  EXPECT_EQ(Rebinned({1, 2, 3, 4}, {1, 1, 1, 1, 0}), (Vector{1, 2, 3, kLargest}));
}

TEST(BinningEncoder, RebinnedInnerRuns) {
  EXPECT_EQ(Rebinned({1, 2, 3, 5}, {1, 0, 0, 1, 1}), (Vector{2, 2, 2, 5}));
  // Two gaps, the second reaching to the last bin.
  EXPECT_EQ(Rebinned({1, 2, 3, 5, 9}, {1, 0, 1, 0, 0, 1}), (Vector{1.5, 1.5, 6, 6, 6}));
  EXPECT_EQ(Rebinned({1, 2, 3, 5, 9}, {0, 2, 0, 3, 0, 1}), (Vector{kMissing, 2.5, 2.5, 7, 7}));
}

TEST(BinningEncoder, RebinnedNeedsAnEmptyBinAndTwoFilledOnes) {
  EXPECT_EQ(Rebinned({1, 2}, {1, 1, 1}), (Vector{1, 2}));
  EXPECT_EQ(Rebinned({1, 2}, {0, 1, 0}), (Vector{1, 2}));
  EXPECT_EQ(Rebinned({1, 2}, {0, 0, 0}), (Vector{1, 2}));
}

TEST(BinningEncoder, RebinnedNeedsACountForEachBin) {
  EXPECT_EQ(Rebinned({1, 2}, {1, 0, 0, 1}), (Vector{1, 2}));
  EXPECT_EQ(Rebinned({1, 2}, {1, 0}), (Vector{1, 2}));
  EXPECT_EQ(Rebinned({1, 2}, {}), (Vector{1, 2}));
  EXPECT_EQ(Rebinned({}, {}), Vector());
}

TEST(BinningEncoder, RebinnedCountsOneCategoryOnPurpose) {
  const QVBinningEncoder bins(Vector{1, 2, 3, 4});
  const std::unique_ptr<QVBinningEncoder> merged(bins.CreateRebinned({0, 3, 0, 2, 0}));
  EXPECT_EQ(merged->GetNumberOfCategories(), 1);
  EXPECT_EQ(merged->Encode(-1), 0);  // and searches no cut
  EXPECT_EQ(merged->Encode(2), 1);
  EXPECT_EQ(bins.GetBinningCutpoints(), (Vector{1, 2, 3, 4}));
  const std::unique_ptr<QVBinningEncoder> same(bins.CreateRebinned({1, 1, 1, 1, 1}));
  EXPECT_EQ(same->GetNumberOfCategories(), 5);
}

TEST(BinningEncoder, AdjustKeepsOneCellOfAnInnerGap) {
  QVBinningEncoder bins(Vector{1, 2, 3, 4});
  bins.AdjustBinning({0, 3, 0, 2, 0});
  EXPECT_EQ(bins.GetBinningCutpoints(), (Vector{kMissing, 2.5, kLargest}));
  EXPECT_EQ(bins.GetNumberOfCategories(), 4);
}

TEST(BinningEncoder, AdjustKeepsTheMissingFrontAndTheLargestTail) {
  QVBinningEncoder bins(Vector{1, 2, 3, 4, 5, 6, 7});
  bins.AdjustBinning({0, 0, 1, 0, 0, 1, 0, 0});
  EXPECT_EQ(bins.GetBinningCutpoints(), (Vector{kMissing, kMissing, 4, kLargest, kLargest}));
  EXPECT_EQ(bins.GetNumberOfCategories(), 6);
}

TEST(BinningEncoder, AdjustWithNothingToMergeChangesNothing) {
  QVBinningEncoder bins(Vector{1, 2});
  for (Vector const & counts : {Vector{1, 1, 1}, Vector{0, 1, 0}, Vector{1, 0}}) {
    bins.AdjustBinning(counts);
    EXPECT_EQ(bins.GetBinningCutpoints(), (Vector{1, 2}));
    EXPECT_EQ(bins.GetNumberOfCategories(), 3);
  }
}

TEST(BinningEncoder, AdjustedBinsHoldTheSameCases) {
  // Every case that shared a bin shares one afterwards, and no two filled bins fall together.
  const Vector cuts{1, 2, 3, 4, 5, 6};
  std::mt19937 random(11);
  for (int round = 0; round < 200; ++round) {
    Vector counts(cuts.size() + 1);
    for (double & count : counts)
      count = static_cast<double>(random() % 2);
    int filled = 0;
    for (double count : counts)
      filled += count > 0 ? 1 : 0;
    if (filled < 2 || filled == static_cast<int>(counts.size())) continue;
    QVBinningEncoder bins(cuts);
    bins.AdjustBinning(counts);
    int last = -1;
    for (std::size_t bin = 0; bin < counts.size(); ++bin) {
      if (!(counts[bin] > 0)) continue;
      const int low = bins.Encode(0.25 + static_cast<double>(bin));
      ASSERT_EQ(bins.Encode(1.0 + static_cast<double>(bin)), low);
      ASSERT_GT(low, last);
      last = low;
    }
  }
}

TEST(BinningEncoder, CloneIsIndependent) {
  QVBinningEncoder bins(0, 10, 5);
  const std::unique_ptr<QVBinningEncoder> clone(bins.Clone());
  bins.SetBinningCutpoints({1});
  EXPECT_EQ(clone->GetNumberOfCategories(), 5);
  EXPECT_EQ(clone->Encode(9), 4);
}

TEST(BinningEncoder, Display) {
  EXPECT_EQ(variable_test::Shown(QVBinningEncoder(0, 10, 5)),
            "\n\tQVBinningEncoder: number of bins = 5"
            "\n\t\tCutpoints (size = 4)\n 2 4 6 8");
}

}  // namespace
