#include <type_traits>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "MemoryRecordIterator.h"
#include "MultiPassRecordIter.h"
#include "QVMeansXProdData.h"
#include "RecordIterator.h"
#include "common/virtual_slot.h"
#include "math/matrix/allocation_limit.h"

using QVCommon_940::MemoryRecordIterator;
using QVCommon_940::MultiPassRecordIter;
using QVCommon_940::Record;
using QVCommon_940::RecordIterator;
using testing::ElementsAre;

namespace {

const double kLeading[] = {1, 2};
const double kBlock[] = {10, 11, 12, 20, 21, 22};
const double kTrailing[] = {0.5, 1.5};

std::vector<double> Cells(const Record * row) {
  return std::vector<double>(row->GetAll(), row->GetAll() + row->Size());
}

}  // namespace

TEST(MemoryRecordIterator, ServesLeadingBlockAndTrailing) {
  MemoryRecordIterator rows(2, 3, kLeading, kBlock, kTrailing);
  for (int pass = 0; pass < 2; ++pass) {
    EXPECT_TRUE(rows.HasMore());
    EXPECT_EQ(rows.GetFailReason(), 0);
    EXPECT_THAT(Cells(rows.Next()), ElementsAre(1, 10, 11, 12, 0.5));
    EXPECT_TRUE(rows.HasMore());
    EXPECT_THAT(Cells(rows.Next()), ElementsAre(2, 20, 21, 22, 1.5));
    EXPECT_FALSE(rows.HasMore());
    EXPECT_EQ(rows.Next(), nullptr);
    EXPECT_EQ(rows.Next(), nullptr);
    EXPECT_EQ(rows.GetFailReason(), 1);  // though nothing failed
    EXPECT_EQ(rows.NewPass(), 0);
    EXPECT_EQ(rows.GetFailReason(), 0);
  }
}

TEST(MemoryRecordIterator, WithoutATrailingArrayARowIsOneCellShorter) {
  MemoryRecordIterator rows(2, 3, kLeading, kBlock, nullptr);
  EXPECT_THAT(Cells(rows.Next()), ElementsAre(1, 10, 11, 12));
  EXPECT_THAT(Cells(rows.Next()), ElementsAre(2, 20, 21, 22));
  EXPECT_EQ(rows.Next(), nullptr);
}

TEST(MemoryRecordIterator, WithoutColumns) {
  for (const int nColumns : {0, -4}) {
    MemoryRecordIterator rows(2, nColumns, kLeading, nullptr, kTrailing);
    EXPECT_THAT(Cells(rows.Next()), ElementsAre(1, 0.5));
    EXPECT_THAT(Cells(rows.Next()), ElementsAre(2, 1.5));
    EXPECT_FALSE(rows.HasMore());
  }
}

TEST(MemoryRecordIterator, TheRowIsItsOwnAndOverwritten) {
  MemoryRecordIterator rows(2, 3, kLeading, kBlock, kTrailing);
  const Record * const first = rows.Next();
  EXPECT_EQ(rows.Next(), first);
  EXPECT_EQ((*first)[0], 2.0);
}

TEST(MemoryRecordIterator, NewPassInTheMiddleBeginsAnew) {
  MemoryRecordIterator rows(2, 3, kLeading, kBlock, kTrailing);
  rows.Next();
  rows.NewPass();
  EXPECT_EQ((*rows.Next())[0], 1.0);
  EXPECT_EQ((*rows.Next())[0], 2.0);
  EXPECT_FALSE(rows.HasMore());
}

// The number of records is not asked again: it is the caller's duty to know it.
TEST(MemoryRecordIterator, WithoutRecordsItIsAtItsEndUntilANewPass) {
  for (const int nRecords : {0, -3}) {
    MemoryRecordIterator rows(nRecords, 3, kLeading, kBlock, kTrailing);
    EXPECT_FALSE(rows.HasMore());
    EXPECT_EQ(rows.GetFailReason(), 1);
    EXPECT_EQ(rows.Next(), nullptr);
    EXPECT_EQ(rows.NewPass(), 0);
    EXPECT_TRUE(rows.HasMore());
    EXPECT_EQ(rows.GetFailReason(), 0);
  }
}

TEST(MemoryRecordIterator, ACopyWalksFromTheSamePositionIntoItsOwnRow) {
  MemoryRecordIterator rows(2, 3, kLeading, kBlock, kTrailing);
  const Record * const row = rows.Next();
  MemoryRecordIterator copy(rows);
  const Record * const copied = copy.Next();
  EXPECT_NE(copied, row);
  EXPECT_EQ((*copied)[0], 2.0);
  EXPECT_EQ((*row)[0], 1.0);
  EXPECT_TRUE(rows.HasMore());
  EXPECT_FALSE(copy.HasMore());
  copy = rows;
  EXPECT_THAT(Cells(copy.Next()), ElementsAre(2, 20, 21, 22, 1.5));
}

TEST(MemoryRecordIterator, WithoutMemoryForTheRowItEnds) {
  const AllocationLimit limit(1000);
  MemoryRecordIterator rows(2, 1000, kLeading, kBlock, nullptr);
  EXPECT_EQ(rows.Next(), nullptr);
  EXPECT_FALSE(rows.HasMore());
}

TEST(MemoryRecordIterator, ReadsTheArraysAsTheyStandAtTheCall) {
  std::vector<double> leading = {1, 2};
  MemoryRecordIterator rows(2, 3, leading.data(), kBlock, nullptr);
  rows.Next();
  leading[1] = 7;
  EXPECT_EQ((*rows.Next())[0], 7.0);
}

TEST(MemoryRecordIterator, FeedsMeansAndCrossProducts) {
  MemoryRecordIterator rows(2, 3, kLeading, kBlock, kTrailing);
  QVMath_940::QVMeansXProdData sums(4, true);
  while (rows.HasMore()) {
    const Record & row = *rows.Next();
    sums.AddCase(std::vector<double>(row.GetAll(), row.GetAll() + 4), row[4]);
  }
  EXPECT_EQ(sums.GetNCases(), 2.0);
  EXPECT_THAT(sums.GetMeans(), ElementsAre(1.75, 17.5, 18.5, 19.5));
  EXPECT_EQ(sums.GetXProds().GetElem(1, 0), 0.5 * 0.75 * 7.5 + 1.5 * 0.25 * 2.5);
}

TEST(RecordIterators, OrderOfVirtualOperations) {
  EXPECT_EQ(VirtualSlot(&RecordIterator::HasMore), 2);
  EXPECT_EQ(VirtualSlot(&RecordIterator::Next), 3);
  EXPECT_EQ(VirtualSlot(&RecordIterator::GetFailReason), 4);
  EXPECT_EQ(VirtualSlot(&MultiPassRecordIter::HasMore), 2);
  EXPECT_EQ(VirtualSlot(&MultiPassRecordIter::NewPass), 5);
  EXPECT_EQ(VirtualSlot(&MemoryRecordIterator::NewPass), 5);
  EXPECT_TRUE(std::is_abstract_v<RecordIterator>);
  EXPECT_TRUE(std::is_abstract_v<MultiPassRecordIter>);
  EXPECT_TRUE(std::has_virtual_destructor_v<RecordIterator>);
  EXPECT_TRUE((std::is_base_of_v<MultiPassRecordIter, MemoryRecordIterator>));
}
