#include "Record.h"

#include <new>

#include <gtest/gtest.h>

#include "math/matrix/allocation_limit.h"

using QVCommon_940::Record;

namespace {

constexpr int kMany = 1000;
constexpr std::size_t kLimit = 1000;  // bytes, fewer than kMany cells take

Record Count(int n) {
  Record record(n);
  for (int i = 0; i < n; ++i)
    record[i] = i + 1.0;
  return record;
}

}  // namespace

TEST(Record, SizesOfNewRecords) {
  EXPECT_EQ(Record().Size(), 2);
  EXPECT_EQ(Record(-5).Size(), 1);
  EXPECT_EQ(Record(0).Size(), 0);
  EXPECT_EQ(Record(7).Size(), 7);
}

TEST(Record, NewCellsAreZero) {
  for (const int n : {1, 2, 3, 129}) {
    const Record record(n);
    for (int i = 0; i < n; ++i)
      EXPECT_EQ(record[i], 0.0);
  }
  EXPECT_EQ(Record()[0], 0.0);
  EXPECT_EQ(Record()[1], 0.0);
  EXPECT_EQ(Record(-5)[0], 0.0);
}

TEST(Record, CellsAndTheArrayAreTheSame) {
  Record record(3);
  record[1] = 2.5;
  record.GetAll()[2] = 3.5;
  const Record & view = record;
  EXPECT_EQ(view[1], 2.5);
  EXPECT_EQ(view[2], 3.5);
  EXPECT_EQ(view.GetAll(), record.GetAll());
  EXPECT_EQ(&record[0], record.GetAll());
}

TEST(Record, CopiesAreDeep) {
  Record record = Count(3);
  const Record copy(record);
  record[0] = 9.0;
  EXPECT_EQ(copy.Size(), 3);
  EXPECT_EQ(copy[0], 1.0);
  EXPECT_EQ(copy[2], 3.0);
  const Record none(Record(0));
  EXPECT_EQ(none.Size(), 0);
  const Record copyOfNone(none);
  EXPECT_EQ(copyOfNone.Size(), 0);
  EXPECT_EQ(copyOfNone.GetAll(), nullptr);
}

TEST(Record, AssignmentTakesSizeAndCells) {
  for (const int n : {0, 1, 3, 5}) {
    Record target = Count(3);
    const double * const cells = target.GetAll();
    Record source(n);
    for (int i = 0; i < n; ++i)
      source[i] = 10.0 * i;
    EXPECT_EQ(&(target = source), &target);
    ASSERT_EQ(target.Size(), n);
    for (int i = 0; i < n; ++i)
      EXPECT_EQ(target[i], 10.0 * i);
    EXPECT_EQ(target.GetAll() == cells, n == 3);  // no new array for the same size
    EXPECT_NE(target.GetAll(), source.GetAll());
  }
  Record record = Count(2);
  const Record & self = record;
  record = self;
  EXPECT_EQ(record[1], 2.0);
}

TEST(Record, ResizeToTheSameSizeKeepsTheCells) {
  Record record = Count(3);
  const double * const cells = record.GetAll();
  EXPECT_TRUE(record.Resize(3));
  EXPECT_EQ(record.GetAll(), cells);
  EXPECT_EQ(record[2], 3.0);
}

TEST(Record, ResizeToAnotherSizeTakesANewArray) {
  Record record = Count(3);
  EXPECT_TRUE(record.Resize(kMany));
  EXPECT_EQ(record.Size(), kMany);
  for (int i = 0; i < kMany; ++i)
    record[i] = i;
  EXPECT_EQ(record[kMany - 1], kMany - 1.0);
  EXPECT_TRUE(record.Resize(1));
  EXPECT_EQ(record.Size(), 1);
}

TEST(Record, ResizeBelowZeroStoresZero) {
  Record record = Count(3);
  EXPECT_TRUE(record.Resize(-4));
  EXPECT_EQ(record.Size(), 0);
  EXPECT_TRUE(record.Resize(-4));
  EXPECT_EQ(record.Size(), 0);
}

TEST(Record, WithoutMemoryANewRecordIsEmpty) {
  const Record source(kMany);
  const AllocationLimit limit(kLimit);
  const Record record(kMany), copy(source);
  EXPECT_EQ(record.Size(), 0);
  EXPECT_EQ(record.GetAll(), nullptr);
  EXPECT_EQ(copy.Size(), 0);
  EXPECT_EQ(copy.GetAll(), nullptr);
}

TEST(Record, WithoutMemoryResizeIsFalseAndChangesNothing) {
  Record record = Count(3);
  const Record source(kMany);
  const AllocationLimit limit(kLimit);
  EXPECT_FALSE(record.Resize(kMany));
  EXPECT_EQ(record.Size(), 3);
  EXPECT_EQ(record[2], 3.0);
  EXPECT_THROW(record = source, std::bad_alloc);
  EXPECT_EQ(record.Size(), 3);
  EXPECT_EQ(record[2], 3.0);
}
