#include "RawRecord.h"

#include <cstdint>
#include <cstring>
#include <new>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "QVVariableEnums.h"
#include "RawData.h"
#include "math/matrix/allocation_limit.h"

using QVCommon_940::RawData;
using QVCommon_940::RawRecord;

namespace {

__int64 Bits(double value) {
  __int64 bits = 0;
  std::memcpy(&bits, &value, sizeof bits);
  return bits;
}

const char * const kLongText = "a text too long to stand in the object itself";

RawRecord Example() {
  RawRecord record(3);
  record[0].SetInteger(41, false);
  record[1].SetReal(2.5, true);
  record[2].SetString(kLongText, false);
  return record;
}

void ExpectExample(const RawRecord & record) {
  ASSERT_EQ(record.Size(), 3);
  EXPECT_EQ(record[0].GetInteger(), 41);
  EXPECT_FALSE(record[0].IsNull());
  EXPECT_EQ(record[1].GetReal(), 2.5);
  EXPECT_TRUE(record[1].IsNull());
  EXPECT_EQ(record[1].GetStorgeType(), QVXML_940::VariableStorageReal);
  EXPECT_EQ(record[2].GetString(), kLongText);
}

}  // namespace

TEST(RawData, DefaultIsUndefinedAndNull) {
  const RawData field;
  EXPECT_EQ(field.GetStorgeType(), QVXML_940::VariableStorageUndefined);
  EXPECT_TRUE(field.IsNull());
  EXPECT_EQ(field.GetString(), "");
}

TEST(RawData, EachSetterStoresTypeValueAndFlag) {
  for (const bool isNull : {false, true}) {
    RawData field;
    field.SetInteger(-7, isNull);
    EXPECT_EQ(field.GetStorgeType(), 1);
    EXPECT_EQ(field.GetInteger(), -7);
    EXPECT_EQ(field.IsNull(), isNull);
    field.SetReal(2.5, isNull);
    EXPECT_EQ(field.GetStorgeType(), 2);
    EXPECT_EQ(field.GetReal(), 2.5);
    EXPECT_EQ(field.IsNull(), isNull);
    field.SetString(std::string("a\0b", 3), isNull);
    EXPECT_EQ(field.GetStorgeType(), 3);
    EXPECT_EQ(field.GetString(), std::string("a\0b", 3));
    EXPECT_EQ(field.IsNull(), isNull);
    field.SetString("text", isNull);
    EXPECT_EQ(field.GetStorgeType(), 3);
    EXPECT_EQ(field.GetString(), "text");
    field.SetDate(1.0, isNull);
    EXPECT_EQ(field.GetStorgeType(), 4);
    EXPECT_EQ(field.GetDate(), 1.0);
    field.SetTime(2.0, isNull);
    EXPECT_EQ(field.GetStorgeType(), 5);
    EXPECT_EQ(field.GetTime(), 2.0);
    field.SetTimestamp(3.0, isNull);
    EXPECT_EQ(field.GetStorgeType(), 6);
    EXPECT_EQ(field.GetTimestamp(), 3.0);
    EXPECT_EQ(field.IsNull(), isNull);
  }
}

TEST(RawData, AcceptsEveryWidthOfInteger) {
  RawData field;
  field.SetInteger(5L, false);
  EXPECT_EQ(field.GetInteger(), 5);
  field.SetInteger(std::int64_t{1} << 40, false);
  EXPECT_EQ(field.GetInteger(), 1LL << 40);
  field.SetInteger(6LL, false);
  EXPECT_EQ(field.GetInteger(), 6);
}

TEST(RawData, SetIsNullChangesTheFlagAlone) {
  RawData field;
  field.SetReal(2.5, false);
  field.SetIsNull(true);
  EXPECT_TRUE(field.IsNull());
  EXPECT_EQ(field.GetReal(), 2.5);
  EXPECT_EQ(field.GetStorgeType(), 2);
  field.SetIsNull(false);
  EXPECT_FALSE(field.IsNull());
}

// Getters do not look at the storage type: all of them read the same 8 bytes.
TEST(RawData, GettersReadTheSameBytes) {
  RawData field;
  field.SetDate(2.5, false);
  EXPECT_EQ(field.GetReal(), 2.5);
  EXPECT_EQ(field.GetTime(), 2.5);
  EXPECT_EQ(field.GetTimestamp(), 2.5);
  EXPECT_EQ(field.GetInteger(), Bits(2.5));
  field.SetInteger(Bits(0.75), false);
  EXPECT_EQ(field.GetDate(), 0.75);
}

TEST(RawData, NumberAndTextAreKeptApart) {
  RawData field;
  field.SetReal(2.5, false);
  field.SetString("text", false);
  EXPECT_EQ(field.GetReal(), 2.5);
  field.SetInteger(1, false);
  EXPECT_EQ(field.GetString(), "text");
}

TEST(RawData, NullPointerIsTheEmptyText) {
  RawData field;
  field.SetString("text", false);
  const char * none = nullptr;
  field.SetString(none, false);
  EXPECT_EQ(field.GetString(), "");
  EXPECT_EQ(field.GetStorgeType(), 3);
}

TEST(RawData, CopiesAreIndependent) {
  RawData field;
  field.SetString(kLongText, false);
  const RawData copy(field);
  RawData assigned;
  assigned = field;
  field.SetString("changed", true);
  for (const RawData * other : {&copy, &std::as_const(assigned)}) {
    EXPECT_EQ(other->GetString(), kLongText);
    EXPECT_FALSE(other->IsNull());
    EXPECT_EQ(other->GetStorgeType(), 3);
  }
}

TEST(RawData, AfterAMoveTheSourcesTextIsEmpty) {
  for (const char * text : {"short", kLongText}) {
    RawData source;
    source.SetReal(2.5, false);
    source.SetString(text, false);
    RawData target(std::move(source));
    EXPECT_EQ(source.GetString(), "");
    EXPECT_EQ(target.GetString(), text);
    EXPECT_EQ(target.GetReal(), 2.5);
    EXPECT_FALSE(target.IsNull());
    EXPECT_EQ(target.GetStorgeType(), 3);
    RawData assigned;
    assigned.SetString("an old text that is longer than the object itself", true);
    assigned = std::move(target);
    EXPECT_EQ(target.GetString(), "");
    EXPECT_EQ(assigned.GetString(), text);
    RawData & same = assigned;
    assigned = std::move(same);
    EXPECT_EQ(assigned.GetString(), text);
  }
}

TEST(RawRecord, SizesAndFieldsOfNewRecords) {
  EXPECT_EQ(RawRecord().Size(), 2);
  EXPECT_EQ(RawRecord(-5).Size(), 1);
  EXPECT_EQ(RawRecord(0).Size(), 0);
  const RawRecord record(4);
  ASSERT_EQ(record.Size(), 4);
  for (int i = 0; i < 4; ++i) {
    EXPECT_TRUE(record[i].IsNull());
    EXPECT_EQ(record[i].GetStorgeType(), 0);
  }
}

TEST(RawRecord, FieldsAndTheArrayAreTheSame) {
  RawRecord record(2);
  record.GetAll()[1].SetReal(1.5, false);
  const RawRecord & view = record;
  EXPECT_EQ(view[1].GetReal(), 1.5);
  EXPECT_EQ(view.GetAll(), record.GetAll());
}

TEST(RawRecord, CopiesAndAssignments) {
  RawRecord record = Example();
  const RawRecord copy(record);
  RawRecord larger(5), same(3);
  larger = record;
  EXPECT_EQ(&(same = record), &same);
  record[2].SetString("changed", true);
  ExpectExample(copy);
  ExpectExample(larger);
  ExpectExample(same);
  same = *&same;
  ExpectExample(same);
  same = RawRecord(0);
  EXPECT_EQ(same.Size(), 0);
  const RawRecord copyOfNone(same);
  EXPECT_EQ(copyOfNone.Size(), 0);
  EXPECT_EQ(copyOfNone.GetAll(), nullptr);
}

TEST(RawRecord, ResizeKeepsNothingButAtTheSameSize) {
  RawRecord record = Example();
  EXPECT_TRUE(record.Resize(3));
  ExpectExample(record);
  EXPECT_TRUE(record.Resize(4));
  ASSERT_EQ(record.Size(), 4);
  for (int i = 0; i < 4; ++i)
    EXPECT_TRUE(record[i].IsNull());
  EXPECT_TRUE(record.Resize(-1));
  EXPECT_EQ(record.Size(), 0);
}

TEST(RawRecord, WithoutMemory) {
  constexpr int kMany = 1000;
  RawRecord record = Example(), longText = Example();
  const RawRecord source(kMany);
  longText[0].SetString(std::string(2000, 'x'), false);
  const AllocationLimit limit(1000);
  EXPECT_EQ(RawRecord(kMany).Size(), 0);
  EXPECT_EQ(RawRecord(source).Size(), 0);
  EXPECT_EQ(RawRecord(longText).Size(), 0);
  EXPECT_EQ(RawRecord(longText).GetAll(), nullptr);
  EXPECT_FALSE(record.Resize(kMany));
  ExpectExample(record);
  EXPECT_THROW(record = source, std::bad_alloc);
  ExpectExample(record);
}
