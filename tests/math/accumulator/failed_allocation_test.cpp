// Storage that cannot be had leaves an accumulator without variables, never one that writes beyond
// what it has.

#include <vector>

#include <gtest/gtest.h>

#include "QVAccumXProdPair.h"
#include "QVCatStats.h"
#include "QVMeansXProducts.h"
#include "QVProvMeans.h"
#include "common/display/captured_display.h"
#include "math/matrix/allocation_limit.h"

using namespace QVMath_940;

namespace {

constexpr int kNVars = 50;            // 400 bytes of means, 10,200 bytes of cross-products
constexpr std::size_t kLimit = 1000;  // bytes

QVProvMeans Filled() {
  QVProvMeans stats(kNVars, true);
  stats.Update(std::vector<double>(kNVars, 1.0), 1.0);
  stats.Update(std::vector<double>(kNVars, 3.0), 1.0);
  return stats;
}

void ExpectNoVariables(QVMeansXProdData & state) {
  EXPECT_EQ(state.GetNVars(), 0);
  EXPECT_EQ(state.GetNCases(), 0.0);
  EXPECT_TRUE(state.GetMeans().empty());
  EXPECT_FALSE(state.GetXProds().IsValidMatrix());
  state.AddCase(std::vector<double>(kNVars, 1.0), 1.0);
  const CapturedDisplay display;
  state.Display();
  // With memory again the object is as good as new.
  EXPECT_TRUE(state.SetNVars(3));
  EXPECT_TRUE(state.GetXProds().IsValidMatrix());
}

}  // namespace

TEST(AccumulatorAllocation, FailedConstructionHasNoVariables) {
  const auto make = [] {
    const AllocationLimit limit(kLimit);
    return QVProvMeans(kNVars, true);
  };
  QVProvMeans stats = make();
  ExpectNoVariables(stats);
}

TEST(AccumulatorAllocation, FailedSetNVarsHasNoVariables) {
  QVProvMeans stats(2, true);
  {
    const AllocationLimit limit(kLimit);
    EXPECT_FALSE(stats.SetNVars(kNVars));
  }
  ExpectNoVariables(stats);
}

TEST(AccumulatorAllocation, FailedCopyHasNoVariables) {
  const QVProvMeans original = Filled();
  const auto copied = [&original] {
    const AllocationLimit limit(kLimit);
    return QVProvMeans(original);
  };
  QVProvMeans copy = copied();
  ExpectNoVariables(copy);
  QVProvMeans assigned(2, true);
  {
    const AllocationLimit limit(kLimit);
    assigned = original;
  }
  ExpectNoVariables(assigned);
  EXPECT_EQ(original.GetNVars(), kNVars);
}

TEST(AccumulatorAllocation, MergeThatCannotTakeTheShapeIsFalse) {
  const QVProvMeans original = Filled();
  QVMeansXProdData state;
  {
    const AllocationLimit limit(kLimit);
    EXPECT_FALSE(state.Merge(original));
  }
  EXPECT_TRUE(state.Merge(original));
  EXPECT_EQ(state.GetNVars(), kNVars);
}

TEST(AccumulatorAllocation, UpdateWithoutRoomForTheFormerStateChangesNothing) {
  QVMeansXProducts stats(kNVars, true, false, false);
  stats.AddCase(std::vector<double>(kNVars, 1.0), 2.0);
  const QVRectMatrix data(1, kNVars, true);
  {
    const AllocationLimit limit(kLimit);
    EXPECT_FALSE(stats.Update(data, 0));
  }
  EXPECT_EQ(stats.GetNCases(), 2.0);
  EXPECT_EQ(stats.GetMeans()[kNVars - 1], 1.0);
}

TEST(AccumulatorAllocation, OnePassWithoutRoomForItsProductsIsFalse) {
  QVMeansXProducts stats(kNVars, true, false, false);
  const QVRectMatrix data(1, kNVars, true);
  {
    const AllocationLimit limit(kLimit);
    EXPECT_FALSE(stats.UpdateOnePass(data, 0));
  }
  stats.FinishUpdateOnePass();
  EXPECT_EQ(stats.GetNCases(), 0.0);
  EXPECT_TRUE(stats.UpdateOnePass(data, 0));
}

TEST(AccumulatorAllocation, PairsWithoutStorageHaveNoVariables) {
  QVAccumXProdPair original(kNVars, 3);
  original.Update(0, 1.0, 2.0, 1.0);
  const auto copied = [&original] {
    const AllocationLimit limit(kLimit);
    return QVAccumXProdPair(original);
  };
  const auto made = [] {
    const AllocationLimit limit(kLimit);
    return QVAccumXProdPair(kNVars, 3);
  };
  QVAccumXProdPair assigned(2, 3);
  {
    const AllocationLimit limit(kLimit);
    assigned = original;
  }
  for (QVAccumXProdPair pairs : {copied(), made(), assigned}) {
    EXPECT_EQ(pairs.GetNVars(), 0);
    EXPECT_FALSE(pairs.Update(0, 1.0, 2.0, 1.0));
    EXPECT_TRUE(pairs.Finish());
    EXPECT_EQ(pairs.GetCorr().GetNRows(), 0);
    EXPECT_TRUE(pairs.Merge(original));
    EXPECT_EQ(pairs.GetNVars(), kNVars);
  }
}

TEST(AccumulatorAllocation, CategoryBeyondMemoryIsRefused) {
  QVCatStats stats;
  stats.Update(1.0, 2.0);
  {
    const AllocationLimit limit(kLimit);
    EXPECT_FALSE(stats.Update(1e6, 1.0));
  }
  EXPECT_EQ(stats.GetCatCounts(), (std::vector<double>{0.0, 2.0}));
}
