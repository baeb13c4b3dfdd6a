#include "ValueRecord.h"

#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "common/virtual_slot.h"

using QVCommon_940::Value;
using QVCommon_940::ValueRecord;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

ValueRecord Bac() {
  ValueRecord record;
  record.Add("b", 1);
  record.Add("a", 2);
  record.Add("c", 3);
  return record;
}

std::string Text(const ValueRecord & record) {
  std::ostringstream stream;
  record.Display(stream);
  return stream.str();
}

}  // namespace

TEST(ValueRecord, NewRecordsAreEmpty) {
  for (const int n : {-3, 0, 1, 20}) {
    const ValueRecord record(n);
    EXPECT_EQ(record.Size(), 0);
    EXPECT_THAT(record.Names(true), IsEmpty());
    EXPECT_EQ(Text(record), "[]");
  }
  EXPECT_EQ(ValueRecord().Size(), 0);
}

TEST(ValueRecord, AddAppendsInFieldOrder) {
  ValueRecord record;
  EXPECT_EQ(record.Add("b", "x"), 0);
  EXPECT_EQ(record.Add("a", 1), 1);
  EXPECT_EQ(record.Size(), 2);
  EXPECT_EQ(record.Get(0).GetString(), "x");
  EXPECT_EQ(record.Get(1).GetInteger(), 1);
}

TEST(ValueRecord, ARepeatedAddOverwrites) {
  ValueRecord record;
  EXPECT_EQ(record.Add("a", 1), 0);
  EXPECT_EQ(record.Add("a", 2), 0);
  EXPECT_EQ(record.Size(), 1);
  EXPECT_EQ(record.Get("a").GetInteger(), 2);
  EXPECT_EQ(record.Add("a", "text"), 0);
  EXPECT_EQ(record.Get("a").GetType(), 4);
}

TEST(ValueRecord, AddOfAFieldOfItsOwn) {
  ValueRecord record;
  record.Add("a", "a text too long to stand in the object itself");
  for (int i = 0; i < 20; ++i)
    record.Add("copy" + std::to_string(i), record[0]);
  for (int i = 0; i <= 20; ++i)
    EXPECT_EQ(record[i].Size(), 45);
  EXPECT_EQ(record.Size(), 21);
}

TEST(ValueRecord, AddAllArrivesInNameOrder) {
  ValueRecord record;
  record.Add("c", 0);
  EXPECT_TRUE(record.AddAll(Bac()));
  EXPECT_THAT(record.Names(true), ElementsAre("c", "a", "b"));
  EXPECT_EQ(record.Get("c").GetInteger(), 3);
  EXPECT_EQ(record.Get("b").GetInteger(), 1);
  EXPECT_TRUE(record.AddAll(record));
  EXPECT_EQ(Text(record), "[a:2,b:1,c:3]");
}

TEST(ValueRecord, SetNeverMakesAField) {
  ValueRecord record = Bac();
  EXPECT_FALSE(record.Set("d", 1, false));
  EXPECT_FALSE(record.Set("d", 1, true));
  EXPECT_EQ(record.Size(), 3);
}

TEST(ValueRecord, StrictSetAsksForTheKind) {
  ValueRecord record;
  record.Add("a", 1);
  EXPECT_FALSE(record.Set("a", Value(1.5), true));
  EXPECT_EQ(record.Get("a").GetType(), 2);
  EXPECT_EQ(record.Get("a").GetInteger(), 1);
  EXPECT_TRUE(record.Set("a", Value(5), true));
  EXPECT_EQ(record.Get("a").GetInteger(), 5);
  EXPECT_FALSE(record.Set("a", Value(), true));  // null is another kind
  EXPECT_TRUE(record.Set("a", Value(), false));
  EXPECT_TRUE(record.Get("a").IsNull());
  EXPECT_TRUE(record.Set("a", Value(1.5), true));  // a null field takes any kind
  EXPECT_EQ(record.Get("a").GetReal(), 1.5);
  EXPECT_TRUE(record.Set("a", "text", false));
  EXPECT_EQ(record.Get("a").GetType(), 4);
}

TEST(ValueRecord, RemoveMovesLaterFieldsDown) {
  ValueRecord record = Bac();
  record.Remove("a");
  EXPECT_THAT(record.Names(true), ElementsAre("b", "c"));
  EXPECT_EQ(record.IndexOf("c"), 1);
  EXPECT_EQ(record.IndexOf("b"), 0);
  EXPECT_EQ(record.IndexOf("a"), -1);
  EXPECT_TRUE(record.Get(2).IsNull());
  EXPECT_EQ(record.Get(1).GetInteger(), 3);
  record.Remove("absent");
  EXPECT_EQ(record.Size(), 2);
  record.Remove("c");
  record.Remove("b");
  EXPECT_EQ(record.Size(), 0);
  EXPECT_EQ(record.Add("n", 1), 0);
}

TEST(ValueRecord, ClearDropsAll) {
  ValueRecord record = Bac();
  record.Clear();
  EXPECT_EQ(record.Size(), 0);
  EXPECT_TRUE(record.Get(0).IsNull());
  EXPECT_EQ(record.Add("z", 1), 0);
}

TEST(ValueRecord, ClearValuesKeepsNamesAndShapes) {
  ValueRecord record = Bac();
  Value array;
  array[0] = 1;
  array[1]["k"] = "text";
  record.Add("list", array);
  record.Add("text", "x");
  record.ClearValues();
  EXPECT_EQ(Text(record), "[a:,b:,c:,list:{,[k:]},text:]");
  EXPECT_TRUE(record.Get("text").IsNull());
}

TEST(ValueRecord, SetMissingValueMakesNull) {
  ValueRecord record = Bac();
  record.SetMissingValue(1);
  EXPECT_TRUE(record.Get("a").IsNull());
  EXPECT_EQ(record.Size(), 3);
}

TEST(ValueRecord, GetGivesCopiesAndNullsOutOfBounds) {
  ValueRecord record = Bac();
  Value copy = record.Get("a");
  copy = 9;
  EXPECT_EQ(record.Get("a").GetInteger(), 2);
  EXPECT_TRUE(record.Get(-1).IsNull());
  EXPECT_TRUE(record.Get(3).IsNull());
  EXPECT_TRUE(record.Get("absent").IsNull());
  EXPECT_EQ(record.Size(), 3);
}

TEST(ValueRecord, NamesInBothOrders) {
  ValueRecord record;
  record.Add("b", 1);
  record.Add("a", 2);
  record.Add("B", 3);
  EXPECT_THAT(record.Names(false), ElementsAre("B", "a", "b"));
  EXPECT_THAT(record.Names(true), ElementsAre("b", "a", "B"));
  EXPECT_EQ(record.GetName(0), "b");
  EXPECT_EQ(record.GetName(2), "B");
  EXPECT_EQ(record.GetName(3), "");
  EXPECT_EQ(record.GetName(-1), "");
  EXPECT_TRUE(record.Contains("a"));
  EXPECT_FALSE(record.Contains("A"));
}

TEST(ValueRecord, SubscriptByNameAddsANull) {
  ValueRecord record = Bac();
  record["b"] = "changed";
  EXPECT_EQ(record.Get(0).GetString(), "changed");
  EXPECT_TRUE(record["new"].IsNull());
  EXPECT_EQ(record.IndexOf("new"), 3);
  record[3] = 4;
  const ValueRecord & view = record;
  EXPECT_EQ(view[3].GetInteger(), 4);
}

// Unlike Value::SetValue, which keeps the tag of a number.
TEST(ValueRecord, SetValueGivesTheFieldTheNewKind) {
  ValueRecord record;
  record.Add("a", 1);
  EXPECT_TRUE(record.SetValue(0, 2.5));
  EXPECT_EQ(record[0].GetType(), 3);
  EXPECT_EQ(record[0].GetReal(), 2.5);
  EXPECT_TRUE(record.SetValue(0, true));
  EXPECT_EQ(record[0].GetType(), 1);
  EXPECT_TRUE(record.SetValue(0, 7));
  EXPECT_EQ(record[0].GetType(), 2);
  EXPECT_TRUE(record.SetValue(0, 8L));
  EXPECT_TRUE(record.SetValue(0, std::int64_t{1} << 40));
  EXPECT_TRUE(record.SetValue(0, __int64{9}));
  EXPECT_EQ(record[0].GetInteger(), 9);
  EXPECT_TRUE(record.SetValue(0, "text"));
  EXPECT_EQ(record[0].GetType(), 4);
  EXPECT_TRUE(record.SetValue(0, std::string("more")));
  EXPECT_EQ(record[0].GetString(), "more");
}

TEST(ValueRecord, CopiesAreDeep) {
  ValueRecord record = Bac();
  const ValueRecord copy(record);
  ValueRecord assigned;
  assigned.Add("old", 1);
  EXPECT_EQ(&(assigned = record), &assigned);
  record["a"] = "changed";
  record.Remove("b");
  EXPECT_EQ(Text(copy), "[a:2,b:1,c:3]");
  EXPECT_EQ(Text(assigned), "[a:2,b:1,c:3]");
  assigned = *&assigned;
  EXPECT_EQ(Text(assigned), "[a:2,b:1,c:3]");
}

// Required: only the values count, paired in the order of the names.
TEST(ValueRecord, EqualityPairsValuesInNameOrderAndIgnoresNames) {
  ValueRecord a, b, c;
  a.Add("a", 1);
  a.Add("b", 2);
  b.Add("y", 2);
  b.Add("x", 1);
  c.Add("x", 2);
  c.Add("y", 1);
  EXPECT_TRUE(a == b);
  EXPECT_FALSE(a == c);
  EXPECT_FALSE(b == c);
  b.Add("z", 3);
  EXPECT_FALSE(a == b);
  EXPECT_TRUE(ValueRecord() == ValueRecord());
}

TEST(ValueRecord, ANullFieldMakesARecordUnequalToItsCopyButNotToItself) {
  ValueRecord record = Bac();
  const ValueRecord copy(record);
  EXPECT_TRUE(record == copy);
  record.SetMissingValue(0);
  const ValueRecord other(record);
  EXPECT_FALSE(record == other);
  const ValueRecord & self = record;
  EXPECT_TRUE(record == self);
}

namespace {

// A record whose first field stands elsewhere.
class Shifted : public ValueRecord {
 public:
  Value Get(int i) const override { return ValueRecord::Get(i).GetInteger() + 1; }
};

}  // namespace

TEST(ValueRecord, EqualityReadsThroughGet) {
  Shifted shifted;
  shifted.Add("a", 1);
  ValueRecord one, two;
  one.Add("a", 1);
  two.Add("a", 2);
  EXPECT_FALSE(one == shifted);
  EXPECT_TRUE(two == shifted);
  EXPECT_TRUE(static_cast<ValueRecord &>(shifted) == two);
}

TEST(ValueRecord, DisplayIsInNameOrder) {
  ValueRecord record;
  record.Add("b", "x");
  record.Add("a", 1);
  EXPECT_EQ(Text(record), "[a:1,b:x]");
  std::ostringstream stream;
  EXPECT_EQ(&(stream << record), &stream);
  EXPECT_EQ(stream.str(), "[a:1,b:x]");
}

TEST(ValueRecord, BaseSitsOnNoRecord) {
  EXPECT_EQ(ValueRecord().GetRecord(), nullptr);
}

TEST(ValueRecord, OrderOfVirtualOperations) {
  using R = ValueRecord;
  using S = const std::string &;
  long slot = 2;  // behind the destructor's two
  EXPECT_EQ(VirtualSlot(&R::operator==), slot++);
  EXPECT_EQ(VirtualSlot(&R::Add), slot++);
  EXPECT_EQ(VirtualSlot(&R::AddAll), slot++);
  EXPECT_EQ(VirtualSlot(&R::Set), slot++);
  EXPECT_EQ(VirtualSlot(&R::Remove), slot++);
  EXPECT_EQ(VirtualSlot(&R::Clear), slot++);
  EXPECT_EQ(VirtualSlot(&R::ClearValues), slot++);
  EXPECT_EQ(VirtualSlot(&R::SetMissingValue), slot++);
  EXPECT_EQ(VirtualSlot(static_cast<Value (R::*)(int) const>(&R::Get)), slot++);
  EXPECT_EQ(VirtualSlot(static_cast<Value (R::*)(S) const>(&R::Get)), slot++);
  EXPECT_EQ(VirtualSlot(&R::IndexOf), slot++);
  EXPECT_EQ(VirtualSlot(&R::Contains), slot++);
  EXPECT_EQ(VirtualSlot(&R::Size), slot++);
  EXPECT_EQ(VirtualSlot(&R::Names), slot++);
  EXPECT_EQ(VirtualSlot(&R::GetName), slot++);
  EXPECT_EQ(VirtualSlot(static_cast<bool (R::*)(int, S)>(&R::SetValue)), slot++);
  EXPECT_EQ(VirtualSlot(static_cast<bool (R::*)(int, const char *)>(&R::SetValue)), slot++);
  EXPECT_EQ(VirtualSlot(static_cast<bool (R::*)(int, double)>(&R::SetValue)), slot++);
  EXPECT_EQ(VirtualSlot(static_cast<bool (R::*)(int, __int64)>(&R::SetValue)), slot++);
  EXPECT_EQ(VirtualSlot(static_cast<bool (R::*)(int, int)>(&R::SetValue)), slot++);
  EXPECT_EQ(VirtualSlot(static_cast<bool (R::*)(int, bool)>(&R::SetValue)), slot++);
  EXPECT_EQ(VirtualSlot(&R::GetRecord), slot++);
}
