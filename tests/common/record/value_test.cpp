#include "Value.h"

#include <cstdint>
#include <cstring>
#include <limits>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "QVException.h"
#include "QVMV.h"

using QVCommon_940::QVException;
using QVCommon_940::Value;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr __int64 kLowest = std::numeric_limits<__int64>::min();

std::uint64_t Bits(double value) {
  std::uint64_t bits = 0;
  std::memcpy(&bits, &value, sizeof bits);
  return bits;
}

double RealOfBits(std::uint64_t bits) {
  double value = 0.0;
  std::memcpy(&value, &bits, sizeof value);
  return value;
}

// The action throws a QVException of this code and message.
template <typename Action>
void ExpectThrow(int code, const char * message, Action action) {
  try {
    action();
    ADD_FAILURE() << "nothing thrown";
  } catch (const QVException & exception) {
    EXPECT_EQ(exception.GetCode(), code);
    EXPECT_EQ(exception.GetMessage(), message);
  }
}

template <typename Action>
void ExpectWrongType(Action action) {
  ExpectThrow(13, "Value type wrong!", action);
}

template <typename Action>
void ExpectNotAnArray(Action action) {
  ExpectThrow(13, "This value is not an array!", action);
}

Value Array(std::initializer_list<Value> items) {
  Value array;
  array.Resize(0);
  for (const Value & item : items)
    array[array.Size()] = item;
  return array;
}

Value Map(std::initializer_list<std::pair<const char *, Value>> entries) {
  Value map;
  map["x"];
  map = Value();
  for (const auto & [key, value] : entries)
    map[key] = value;
  return map;
}

// One value of each kind but null.
std::vector<Value> AllKinds() {
  return {Value(true), Value(7), Value(2.5), Value("text"), Array({1, 2}), Map({{"k", 1}})};
}

}  // namespace

// --- Representation and constants ----------------------------------------------------------------

TEST(Value, IsATagAndEightBytes) {
  EXPECT_EQ(sizeof(Value), 16u);
  EXPECT_FALSE(std::is_polymorphic_v<Value>);
  EXPECT_TRUE(std::is_nothrow_move_constructible_v<Value>);
  EXPECT_TRUE(std::is_nothrow_move_assignable_v<Value>);
  EXPECT_TRUE((std::is_same_v<decltype(Value().GetType()), unsigned short>));
}

TEST(Value, Constants) {
  EXPECT_EQ(Bits(Value::SYSMISVALUE), 0xFFEFFFFFFFFFFFFFu);
  EXPECT_EQ(Value::SYSMISVALUE, QVCommon_940::QVMV::Missing());
  EXPECT_EQ(Bits(Value::QVVALUE_INFINITY), 0x7FF0000000000000u);
  EXPECT_EQ(Bits(Value::EPSILON), 0x3CB00001DD9DC7D3u);
  EXPECT_NE(Value::EPSILON, std::numeric_limits<double>::epsilon());
  EXPECT_EQ(Value::GetSysmisValue(), Value::SYSMISVALUE);
  EXPECT_EQ(Value::GetInfinity(), Value::QVVALUE_INFINITY);
  EXPECT_EQ(Value::NULL_VALUE.GetType(), 0);
  EXPECT_EQ(Value::BOOL_VALUE.GetType(), 1);
  EXPECT_FALSE(Value::BOOL_VALUE.GetBool());
  EXPECT_EQ(Value::INTEGER_VALUE.GetType(), 2);
  EXPECT_EQ(Value::INTEGER_VALUE.GetInteger(), 0);
  EXPECT_EQ(Value::REAL_VALUE.GetType(), 3);
  EXPECT_EQ(Value::REAL_VALUE.GetReal(), Value::SYSMISVALUE);
  EXPECT_EQ(Value::STRING_VALUE.GetType(), 4);
  EXPECT_EQ(Value::STRING_VALUE.GetStringRef(), "");
}

TEST(Value, EachArgumentSetsItsTag) {
  EXPECT_EQ(Value().GetType(), 0);
  EXPECT_EQ(Value(true).GetType(), 1);
  EXPECT_EQ(Value(-3).GetType(), 2);
  EXPECT_EQ(Value(-3).GetInteger(), -3);  // sign-extended
  EXPECT_EQ(Value(__int64{1} << 40).GetInteger(), 1099511627776);
  EXPECT_EQ(Value(3L).GetType(), 2);
  EXPECT_EQ(Value(3LL).GetType(), 2);
  EXPECT_EQ(Value(std::int64_t{3}).GetType(), 2);
  EXPECT_EQ(Value(1.5).GetType(), 3);
  EXPECT_EQ(Value("x").GetType(), 4);
  EXPECT_EQ(Value(std::string("x\0y", 3)).GetStringRef(), std::string("x\0y", 3));
  EXPECT_EQ(Array({1}).GetType(), 5);
  EXPECT_EQ(Map({{"k", 1}}).GetType(), 6);
  const char * none = nullptr;
  EXPECT_EQ(Value(none).GetType(), 4);
  EXPECT_EQ(Value(none).Size(), 0);
}

TEST(Value, AssignmentTakesTheArgumentsKindWhateverItHeld) {
  for (const Value & before : AllKinds()) {
    Value value = before;
    EXPECT_EQ((value = true).GetType(), 1);
    value = before;
    EXPECT_EQ((value = 3).GetType(), 2);
    value = before;
    EXPECT_EQ((value = 3L).GetInteger(), 3);
    value = before;
    EXPECT_EQ((value = 3LL).GetInteger(), 3);
    value = before;
    EXPECT_EQ((value = 2.25).GetReal(), 2.25);
    EXPECT_EQ(value.GetType(), 3);
    value = before;
    EXPECT_EQ((value = "abc").GetStringRef(), "abc");
    value = before;
    EXPECT_EQ((value = std::string("def")).GetStringRef(), "def");
    value = Value();
    EXPECT_TRUE(value.IsNull());
  }
}

TEST(Value, CopiesAreDeep) {
  Value map = Map({{"list", Array({1, "two"})}, {"real", 2.5}});
  Value copy(map);
  Value assigned;
  assigned = map;
  const std::unique_ptr<Value> clone(map.Clone());
  map["list"][1] = "changed";
  map["more"] = 1;
  for (const Value * other : {&copy, &assigned, clone.get()}) {
    EXPECT_EQ(other->GetString(), "[list:{1,two},real:2.5]");
  }
  EXPECT_EQ(map.GetString(), "[list:{1,changed},more:1,real:2.5]");
}

TEST(Value, SelfAssignmentDoesNothing) {
  for (Value value : AllKinds()) {
    const std::string text = value.GetString();
    const Value & self = value;
    value = self;
    EXPECT_EQ(value.GetString(), text);
    Value & same = value;
    value = std::move(same);
    EXPECT_EQ(value.GetString(), text);
  }
}

TEST(Value, AssignmentFromAPartOfItself) {
  Value value = Array({Array({1, "inner"}), 2});
  value = value[0];
  EXPECT_EQ(value.GetString(), "{1,inner}");
  value = std::move(value[1]);
  EXPECT_EQ(value.GetString(), "inner");
  Value map = Map({{"k", Map({{"text", "deep"}})}});
  map = map["k"]["text"].GetStringRef();
  EXPECT_EQ(map.GetString(), "deep");
}

TEST(Value, MovesLeaveANull) {
  for (Value source : AllKinds()) {
    const std::string text = source.GetString();
    Value target(std::move(source));
    EXPECT_TRUE(source.IsNull());
    EXPECT_EQ(target.GetString(), text);
    Value assigned("old");
    assigned = std::move(target);
    EXPECT_TRUE(target.IsNull());
    EXPECT_EQ(assigned.GetString(), text);
  }
}

TEST(Value, ClearGivesNull) {
  for (Value value : AllKinds()) {
    value.Clear();
    EXPECT_TRUE(value.IsNull());
    EXPECT_EQ(value.GetType(), 0);
  }
}

// --- SetValue ------------------------------------------------------------------------------------

TEST(ValueSetValue, GivesANullTheArgumentsKind) {
  Value value;
  value.SetValue(true);
  EXPECT_EQ(value.GetType(), 1);
  EXPECT_TRUE(value.GetBool());
  (value = Value()).SetValue(-2);
  EXPECT_EQ(value.GetType(), 2);
  EXPECT_EQ(value.GetInteger(), -2);
  (value = Value()).SetValue(3L);
  EXPECT_EQ(value.GetInteger(), 3);
  (value = Value()).SetValue(__int64{4});
  EXPECT_EQ(value.GetInteger(), 4);
  (value = Value()).SetValue(2.5);
  EXPECT_EQ(value.GetType(), 3);
  EXPECT_EQ(value.GetReal(), 2.5);
  (value = Value()).SetValue("a");
  EXPECT_EQ(value.GetType(), 4);
}

// The asymmetry against assignment: the tag stays and the bytes are the argument's.
TEST(ValueSetValue, OfANumberKeepsTheTagAndTakesTheBytes) {
  Value integer(1);
  integer.SetValue(2.5);
  EXPECT_EQ(integer.GetType(), 2);
  EXPECT_EQ(static_cast<std::uint64_t>(integer.GetInteger()), Bits(2.5));
  EXPECT_EQ(integer.GetInteger(), 4612811918334230528);

  Value real(1.0);
  real.SetValue(7);
  EXPECT_EQ(real.GetType(), 3);
  EXPECT_EQ(real.GetReal(), RealOfBits(7));
  real.SetValue(-1);  // sign-extended: all bits
  EXPECT_EQ(Bits(real.GetReal()), ~std::uint64_t{0});

  Value boolean(false);
  boolean.SetValue(5);
  EXPECT_EQ(boolean.GetType(), 1);
  EXPECT_TRUE(boolean.GetBool());
  bool & reference = boolean;
  EXPECT_TRUE(reference);
  boolean.SetValue(0.0);
  EXPECT_FALSE(boolean.GetBool());
  boolean.SetValue(256);  // its first byte is 0
  EXPECT_FALSE(boolean.GetBool());
}

TEST(ValueSetValue, OfABoolIsOneByte) {
  Value integer(0x1234);
  integer.SetValue(true);
  EXPECT_EQ(integer.GetType(), 2);
  EXPECT_EQ(integer.GetInteger(), 0x1201);
  Value real(RealOfBits(0x3FF00000000000FF));
  real.SetValue(false);
  EXPECT_EQ(Bits(real.GetReal()), 0x3FF0000000000000u);
}

TEST(ValueSetValue, OfTheSameKindStores) {
  Value value(true);
  value.SetValue(false);
  EXPECT_FALSE(value.GetBool());
  value = 1;
  value.SetValue(2);
  EXPECT_EQ(value.GetInteger(), 2);
  value = 1.5;
  value.SetValue(2.5);
  EXPECT_EQ(value.GetReal(), 2.5);
}

TEST(ValueSetValue, OfANumberFreesTextArrayAndMapAndTakesItsKind) {
  for (const Value & before : {Value("a text too long to stand in the object itself"),
                               Array({1, "x"}), Map({{"k", "x"}})}) {
    Value value = before;
    value.SetValue(true);
    EXPECT_EQ(value.GetType(), 1);
    EXPECT_TRUE(value.GetBool());
    value = before;
    value.SetValue(3);
    EXPECT_EQ(value.GetType(), 2);
    EXPECT_EQ(value.GetInteger(), 3);
    value = before;
    value.SetValue(__int64{4});
    EXPECT_EQ(value.GetInteger(), 4);
    value = before;
    value.SetValue(2.5);
    EXPECT_EQ(value.GetType(), 3);
    EXPECT_EQ(value.GetReal(), 2.5);
  }
}

TEST(ValueSetValue, OfATextReplacesEveryKind) {
  for (Value value : AllKinds()) {
    Value other = value;
    value.SetValue("abc");
    EXPECT_EQ(value.GetType(), 4);
    EXPECT_EQ(value.GetStringRef(), "abc");
    other.SetValue(std::string("d\0e", 3));
    EXPECT_EQ(other.GetStringRef(), std::string("d\0e", 3));
  }
  Value value(1);
  const char * none = nullptr;
  value.SetValue(none);
  EXPECT_EQ(value.GetType(), 4);
  EXPECT_EQ(value.GetStringRef(), "");
}

TEST(ValueSetValue, OfATextIsInPlaceOnAText) {
  Value value("before");
  const std::string & text = value.GetStringRef();
  value.SetValue("after");
  EXPECT_EQ(&value.GetStringRef(), &text);
  value.SetValue(std::string("again"));
  EXPECT_EQ(&value.GetStringRef(), &text);
  EXPECT_EQ(text, "again");
}

TEST(ValueSetValue, OfAPartOfItself) {
  Value value("a text too long to stand in the object itself");
  value.SetValue(value.GetStringRef());
  EXPECT_EQ(value.Size(), 45);
  value.SetValue(value.GetStringRef().c_str() + 36);
  EXPECT_EQ(value.GetStringRef(), "ct itself");
  for (const bool asPointer : {false, true}) {
    Value array = Array({"first text, long enough for the heap", 2});
    const std::string & part = array[0].GetStringRef();
    if (asPointer) {
      array.SetValue(part.c_str());
    } else {
      array.SetValue(part);
    }
    EXPECT_EQ(array.GetStringRef(), "first text, long enough for the heap");
  }
}

// --- Access that asks for the kind ---------------------------------------------------------------

TEST(ValueAccess, ConstFormsGiveTheContentOfTheirKindAlone) {
  const std::vector<Value> kinds = AllKinds();
  for (const Value & value : kinds) {
    if (value.GetType() != 1) ExpectWrongType([&] { static_cast<void>(value.operator bool()); });
    if (value.GetType() != 2) ExpectWrongType([&] { static_cast<void>(value.operator __int64()); });
    if (value.GetType() != 3) ExpectWrongType([&] { static_cast<void>(value.operator double()); });
    if (value.GetType() != 4) {
      ExpectWrongType([&] { static_cast<void>(value.operator std::string()); });
    }
  }
  const bool boolean = kinds[0];
  const __int64 integer = kinds[1];
  const double real = kinds[2];
  const std::string text = kinds[3];
  EXPECT_EQ(boolean, true);
  EXPECT_EQ(integer, 7);
  EXPECT_EQ(real, 2.5);
  EXPECT_EQ(text, "text");
}

TEST(ValueAccess, ConstFormsRefuseANull) {
  const Value null;
  ExpectWrongType([&] { static_cast<void>(null.operator bool()); });
  ExpectWrongType([&] { static_cast<void>(null.operator __int64()); });
  ExpectWrongType([&] { static_cast<void>(null.operator double()); });
  ExpectWrongType([&] { static_cast<void>(null.operator std::string()); });
  EXPECT_TRUE(null.IsNull());
}

TEST(ValueAccess, ReferencesWriteThrough) {
  Value value(true);
  static_cast<bool &>(value) = false;
  EXPECT_FALSE(value.GetBool());
  value = 1;
  static_cast<__int64 &>(value) += 41;
  EXPECT_EQ(value.GetInteger(), 42);
  value = 1.0;
  static_cast<double &>(value) /= 4;
  EXPECT_EQ(value.GetReal(), 0.25);
  value = "a";
  static_cast<std::string &>(value) += "b";
  EXPECT_EQ(value.GetStringRef(), "ab");
}

TEST(ValueAccess, ReferencesGiveANullTheirKind) {
  Value boolean, integer, real, text;
  EXPECT_FALSE(static_cast<bool &>(boolean));
  EXPECT_EQ(static_cast<__int64 &>(integer), 0);
  EXPECT_EQ(static_cast<double &>(real), 0.0);
  EXPECT_EQ(static_cast<std::string &>(text), "");
  EXPECT_EQ(boolean.GetType(), 1);
  EXPECT_EQ(integer.GetType(), 2);
  EXPECT_EQ(real.GetType(), 3);
  EXPECT_EQ(text.GetType(), 4);
}

TEST(ValueAccess, ReferencesOfAnotherKindThrowAndChangeNothing) {
  for (Value value : AllKinds()) {
    const std::string before = value.GetString();
    const int type = value.GetType();
    if (type != 1) ExpectWrongType([&] { static_cast<void>(value.operator bool &()); });
    if (type != 2) ExpectWrongType([&] { static_cast<void>(value.operator __int64 &()); });
    if (type != 3) ExpectWrongType([&] { static_cast<void>(value.operator double &()); });
    if (type != 4) ExpectWrongType([&] { static_cast<void>(value.operator std::string &()); });
    EXPECT_EQ(value.GetType(), type);
    EXPECT_EQ(value.GetString(), before);
  }
}

TEST(ValueAccess, GetStringRefNeverThrows) {
  EXPECT_EQ(Value("x").GetStringRef(), "x");
  for (const Value & value :
       {Value(), Value(true), Value(1), Value(1.5), Array({1}), Map({{"k", 1}})}) {
    EXPECT_EQ(value.GetStringRef(), "");
  }
  const Value one(1), other(2.0);
  EXPECT_EQ(&one.GetStringRef(), &other.GetStringRef());
}

// --- Tests ---------------------------------------------------------------------------------------

TEST(ValueTests, NumericIsIntegerOrReal) {
  EXPECT_TRUE(Value(1).IsNumericValue());
  EXPECT_TRUE(Value(1.5).IsNumericValue());
  EXPECT_FALSE(Value().IsNumericValue());
  EXPECT_FALSE(Value(true).IsNumericValue());
  EXPECT_FALSE(Value("1").IsNumericValue());
  EXPECT_FALSE(Array({1}).IsNumericValue());
}

TEST(ValueTests, MissingIsNullOrTheMissingReal) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  for (const Value & value : {Value(), Value(Value::SYSMISVALUE)}) {
    EXPECT_TRUE(value.IsMissing());
    EXPECT_TRUE(value.IsSystemMissingValue());
  }
  for (const Value & value : {Value(false), Value(0), Value(kLowest), Value(0.0), Value(nan),
                              Value(-Value::QVVALUE_INFINITY), Value(""), Array({}), Map({})}) {
    if (value.IsNull()) continue;  // Map({}) is one
    EXPECT_FALSE(value.IsMissing());
    EXPECT_FALSE(value.IsSystemMissingValue());
  }
}

// --- Arrays --------------------------------------------------------------------------------------

TEST(ValueArray, IndexGrowsAndNeverShortens) {
  Value value;
  value[3];
  EXPECT_EQ(value.GetType(), 5);
  EXPECT_EQ(value.Size(), 4);
  for (int i = 0; i < 4; ++i)
    EXPECT_TRUE(value[i].IsNull());
  value[1] = 5;
  EXPECT_EQ(value.Size(), 4);
  value[5] = 6;
  EXPECT_EQ(value.GetString(), "{,5,,,,6}");
}

TEST(ValueArray, ResizeSetsTheSizeExactly) {
  Value value;
  value.Resize(2);
  EXPECT_EQ(value.GetString(), "{,}");
  value[0] = "kept";
  value[1] = "dropped";
  value.Resize(1);
  EXPECT_EQ(value.GetString(), "{kept}");
  value.Resize(2);
  EXPECT_TRUE(value[1].IsNull());
  value.Resize(0);
  EXPECT_EQ(value.Size(), 0);
  EXPECT_EQ(value.GetType(), 5);
  Value empty;
  empty.Resize(0);
  EXPECT_EQ(empty.GetType(), 5);
}

TEST(ValueArray, NullIndexedThenShortened) {
  Value v;
  v[3];
  EXPECT_EQ(v.Size(), 4);
  v.Resize(2);
  EXPECT_EQ(v.Size(), 2);
}

TEST(ValueArray, OtherKindsThrowAndStay) {
  for (Value value : {Value(true), Value(1), Value(1.5), Value("s"), Map({{"k", 1}})}) {
    const std::string before = value.GetString();
    const Value & view = value;
    ExpectNotAnArray([&] { value[0]; });
    ExpectNotAnArray([&] { static_cast<void>(view[0]); });
    ExpectNotAnArray([&] { value.Resize(1); });
    ExpectNotAnArray([&] { value[-1]; });  // the kind is asked first
    ExpectNotAnArray([&] { value.Resize(-1); });
    EXPECT_EQ(value.GetString(), before);
  }
}

TEST(ValueArray, ConstIndexChecksKindAndBound) {
  const Value null;
  ExpectNotAnArray([&] { static_cast<void>(null[0]); });
  ExpectNotAnArray([&] { static_cast<void>(null[-1]); });
  const Value array = Array({1, 2});
  EXPECT_EQ(array[1].GetInteger(), 2);
  ExpectThrow(14, "Out of this array bounds!", [&] { static_cast<void>(array[2]); });
  ExpectThrow(14, "Out of this array bounds!",
              [&] { static_cast<void>(array[std::numeric_limits<int>::max()]); });
}

TEST(ValueArray, NegativeIndexThrowsOutOfRangeAndChangesNothing) {
  Value array = Array({1, 2});
  const Value & view = array;
  for (const int i : {-1, -2, std::numeric_limits<int>::min()}) {
    EXPECT_THROW(array[i], std::out_of_range);
    EXPECT_THROW(static_cast<void>(view[i]), std::out_of_range);
    Value null;
    EXPECT_THROW(null[i], std::out_of_range);
    EXPECT_TRUE(null.IsNull());
  }
  EXPECT_EQ(array.GetString(), "{1,2}");
}

TEST(ValueArray, NegativeResizeThrowsLengthErrorAndChangesNothing) {
  Value array = Array({1, 2});
  EXPECT_THROW(array.Resize(-1), std::length_error);
  EXPECT_EQ(array.GetString(), "{1,2}");
  Value null;
  EXPECT_THROW(null.Resize(-5), std::length_error);
  EXPECT_TRUE(null.IsNull());
}

// --- Maps ----------------------------------------------------------------------------------------

TEST(ValueMap, KeyInsertsANullAndFindsItAgain) {
  Value value;
  EXPECT_TRUE(value["b"].IsNull());
  EXPECT_EQ(value.GetType(), 6);
  value["b"] = 1;
  value[std::string("a")] = 2;
  EXPECT_EQ(value["b"].GetInteger(), 1);
  EXPECT_EQ(value.Size(), 2);
}

TEST(ValueMap, KeyOnAnotherKindDropsTheContentSilently) {
  for (Value value : {Value(true), Value(1), Value(1.5), Value("s"), Array({1, 2})}) {
    EXPECT_TRUE(value["k"].IsNull());
    EXPECT_EQ(value.GetType(), 6);
    EXPECT_THAT(value.Names(), ElementsAre("k"));
  }
}

TEST(ValueMap, KeyTurnsATextIntoAMapWhileAnIndexThrows) {
  Value value("text");
  ExpectNotAnArray([&] { value[0]; });
  value["k"];
  EXPECT_EQ(value.GetString(), "[k:]");
}

TEST(ValueMap, KeyMayBeAPartOfTheContentThatIsDropped) {
  Value text("a key too long to stand in the object itself");
  text[text.GetStringRef()] = 1;
  EXPECT_EQ(text.GetString(), "[a key too long to stand in the object itself:1]");
  const char * none = nullptr;
  Value value;
  value[none] = 1;
  EXPECT_THAT(value.Names(), ElementsAre(""));
}

TEST(ValueMap, NamesAreInByteOrder) {
  const Value map = Map({{"b", 1}, {"\xC3\xA4", 2}, {"B", 3}, {"", 4}, {"ba", 5}});
  EXPECT_THAT(map.Names(), ElementsAre("", "B", "b", "ba", "\xC3\xA4"));
  EXPECT_TRUE(map.Contains("ba"));
  EXPECT_TRUE(map.Contains(""));
  EXPECT_FALSE(map.Contains("c"));
  EXPECT_EQ(map.Size(), 5);
}

TEST(ValueMap, OnlyMapsContainAndName) {
  for (const Value & value :
       {Value(), Value(true), Value(1), Value(1.5), Value("k"), Array({"k"})}) {
    EXPECT_FALSE(value.Contains("k"));
    EXPECT_THAT(value.Names(), IsEmpty());
  }
}

// --- Size and ClearValue -------------------------------------------------------------------------

TEST(ValueSize, CountsTextArrayAndMapAlone) {
  EXPECT_EQ(Value().Size(), -1);
  EXPECT_EQ(Value(true).Size(), -1);
  EXPECT_EQ(Value(12).Size(), -1);
  EXPECT_EQ(Value(1.5).Size(), -1);
  EXPECT_EQ(Value("").Size(), 0);
  EXPECT_EQ(Value(std::string("a\0b", 3)).Size(), 3);
  EXPECT_EQ(Array({1, 2, 3}).Size(), 3);
  EXPECT_EQ(Map({{"k", 1}, {"l", 2}}).Size(), 2);
}

TEST(ValueClearValue, LeavesBecomeNullAndTheShapeStays) {
  for (Value value : {Value(), Value(true), Value(1), Value(1.5), Value("s")}) {
    value.ClearValue();
    EXPECT_TRUE(value.IsNull());
  }
  Value array = Array({1.0, 2.0, 3.0});
  array.ClearValue();
  EXPECT_EQ(array.Size(), 3);
  for (int i = 0; i < 3; ++i)
    EXPECT_TRUE(array[i].IsNull());
  Value map = Map({{"a", Array({1, Map({{"in", "text"}})})}, {"b", "text"}, {"c", true}});
  map.ClearValue();
  EXPECT_EQ(map.GetString(), "[a:{,[in:]},b:,c:]");
  EXPECT_TRUE(map["b"].IsNull());
  EXPECT_TRUE(map["a"][1]["in"].IsNull());
}

// --- What derived classes use --------------------------------------------------------------------

namespace {

class Derived : public Value {
 public:
  using Value::AssertArray;
  using Value::AssertMap;
  using Value::AssertTypeOrInvalid;
  using Value::Invalidate;
  using Value::operator=;
};

}  // namespace

TEST(ValueProtected, AssertTypeOrInvalidGivesANullItsKind) {
  const char * const texts[] = {"", "0", "0", "0", "", "{}", "[]"};
  for (unsigned short tag = 0; tag <= 6; ++tag) {
    Derived value;
    value.AssertTypeOrInvalid(tag);
    EXPECT_EQ(value.GetType(), tag);
    EXPECT_EQ(value.GetString(), texts[tag]);
    const Derived & view = value;
    view.AssertTypeOrInvalid(tag);
    const auto other = static_cast<unsigned short>(tag + 1);
    ExpectWrongType([&] { view.AssertTypeOrInvalid(other); });
    if (tag != 0) ExpectWrongType([&] { value.AssertTypeOrInvalid(other); });
    if (tag != 0) ExpectWrongType([&] { value.AssertTypeOrInvalid(0); });
    EXPECT_EQ(value.GetType(), tag);
    value.Invalidate();
    EXPECT_TRUE(value.IsNull());
  }
}

TEST(ValueProtected, ATagOutOfRangeIsInert) {
  Derived value;
  value.AssertTypeOrInvalid(7);
  EXPECT_EQ(value.GetType(), 7);
  const Value copy = value;
  EXPECT_FALSE(copy == value);
  EXPECT_FALSE(copy < value);
  EXPECT_EQ(copy.GetString(), "");
  EXPECT_EQ(copy.GetReal(), 0.0 + Value::SYSMISVALUE);
  EXPECT_EQ(copy.Size(), -1);
  value.ClearValue();
  EXPECT_TRUE(value.IsNull());
}

TEST(ValueProtected, AssertArrayGrowsOrSetsExactly) {
  Derived value;
  value.AssertArray(2, false);
  EXPECT_EQ(value.Size(), 2);
  value.AssertArray(1, false);
  EXPECT_EQ(value.Size(), 2);
  value.AssertArray(1, true);
  EXPECT_EQ(value.Size(), 1);
  const Derived & view = value;
  view.AssertArray(1);
  view.AssertArray(-1);
  ExpectThrow(14, "Out of this array bounds!", [&] { view.AssertArray(2); });
  const Derived null;
  ExpectNotAnArray([&] { null.AssertArray(0); });
}

TEST(ValueProtected, AssertMapDropsOtherKinds) {
  Derived value;
  value.AssertMap();
  EXPECT_EQ(value.GetType(), 6);
  value["k"] = 1;
  value.AssertMap();
  EXPECT_EQ(value.Size(), 1);
  value = "text";
  value.AssertMap();
  EXPECT_EQ(value.GetString(), "[]");
}

// --- Nesting -------------------------------------------------------------------------------------

namespace {

constexpr int kDepth = 100000;

// `leaf` within so many arrays and maps by turns. Every container holds a number before and a text
// behind.
Value Nest(Value leaf, int depth) {
  for (int level = 0; level < depth; ++level) {
    Value outer;
    if (level % 2 == 0) {
      outer[2] = "t";
      outer[0] = 1;
      outer[1] = std::move(leaf);
    } else {
      outer["a"] = 1;
      outer["m"] = std::move(leaf);
      outer["z"] = "t";
    }
    leaf = std::move(outer);
  }
  return leaf;
}

Value Arrays(Value leaf, int depth) {
  for (int level = 0; level < depth; ++level) {
    Value outer;
    outer[0] = std::move(leaf);
    leaf = std::move(outer);
  }
  return leaf;
}

}  // namespace

TEST(ValueNesting, HundredThousandLevelsAreCopiedComparedShownAndFreed) {
  for (const bool plain : {false, true}) {
    const Value value = plain ? Arrays(5, kDepth) : Nest(5, kDepth);
    Value copy(value);
    EXPECT_TRUE(copy == value);
    EXPECT_FALSE(copy != value);
    EXPECT_FALSE(copy < value);
    EXPECT_FALSE(copy > value);
    EXPECT_TRUE(copy <= value);
    const Value greater = plain ? Arrays(6, kDepth) : Nest(6, kDepth);
    EXPECT_FALSE(greater == value);
    EXPECT_TRUE(value < greater);
    EXPECT_FALSE(greater < value);
    EXPECT_TRUE(greater > value);
    const Value deeper = plain ? Arrays(5, kDepth + 1) : Nest(5, kDepth + 1);
    EXPECT_FALSE(deeper == value);
    const std::string text = value.GetString();
    EXPECT_GE(text.size(), 2u * kDepth);
    EXPECT_EQ(value.GetBool(), true);
    const std::unique_ptr<Value> clone(value.Clone());
    EXPECT_TRUE(*clone == value);
    copy.ClearValue();
    EXPECT_EQ(copy.GetType(), value.GetType());
    EXPECT_EQ(copy.Size(), value.Size());
    copy = clone->Size();
    clone->SetValue("text");
  }
}

TEST(ValueNesting, TextOfDeepArraysIsBracesAroundTheLeaf) {
  const std::string text = Arrays(5, 1000).GetString();
  EXPECT_EQ(text, std::string(1000, '{') + "5" + std::string(1000, '}'));
  EXPECT_EQ(Nest(5, 3).GetString(), "{1,[a:1,m:{1,5,t},z:t],t}");
}

TEST(ValueNesting, ClearingReachesTheDeepestLeaf) {
  Value value = Nest(5, kDepth);
  value.ClearValue();
  const Value * at = &value;
  for (int level = kDepth - 1; level >= 0; --level) {
    if (level % 2 == 0) {
      ASSERT_EQ(at->Size(), 3);
      EXPECT_TRUE((*at)[0].IsNull());
      at = &(*at)[1];
    } else {
      ASSERT_THAT(at->Names(), ElementsAre("a", "m", "z"));
      at = &(*const_cast<Value *>(at))["m"];
    }
  }
  EXPECT_TRUE(at->IsNull());
}
