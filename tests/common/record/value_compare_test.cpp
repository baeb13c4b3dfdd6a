#include <initializer_list>
#include <limits>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "Value.h"

using QVCommon_940::Value;

namespace {

const double kNaN = std::numeric_limits<double>::quiet_NaN();

Value Array(std::initializer_list<Value> items) {
  Value array;
  array.Resize(0);
  for (const Value & item : items)
    array[array.Size()] = item;
  return array;
}

Value Map(std::initializer_list<std::pair<const char *, Value>> entries) {
  Value map;
  for (const auto & [key, value] : entries)
    map[key] = value;
  return map;
}

void ExpectLess(const Value & a, const Value & b) {
  EXPECT_TRUE(a < b) << a << " " << b;
  EXPECT_FALSE(b < a) << a << " " << b;
  EXPECT_TRUE(b > a) << a << " " << b;
  EXPECT_FALSE(a > b) << a << " " << b;
  EXPECT_TRUE(a <= b) << a << " " << b;
  EXPECT_TRUE(b >= a) << a << " " << b;
}

void ExpectUnordered(const Value & a, const Value & b) {
  EXPECT_FALSE(a < b) << a << " " << b;
  EXPECT_FALSE(b < a) << a << " " << b;
  EXPECT_FALSE(a > b) << a << " " << b;
  EXPECT_FALSE(b > a) << a << " " << b;
}

}  // namespace

// --- IsZeroDiff ----------------------------------------------------------------------------------

TEST(ValueIsZeroDiff, Rule) {
  EXPECT_TRUE(Value::IsZeroDiff(0.0, -0.0, 100.0));
  EXPECT_TRUE(Value::IsZeroDiff(3.0, 3.0, 0.0));
  EXPECT_FALSE(Value::IsZeroDiff(0.0, 1e-300, 100.0));  // a zero has no tolerance
  EXPECT_FALSE(Value::IsZeroDiff(1e-300, 0.0, 1e300));
  EXPECT_TRUE(Value::IsZeroDiff(1.0, 1.0 + 1e-15, 100.0));
  EXPECT_FALSE(Value::IsZeroDiff(1.0, 1.0 + 1e-13, 100.0));
  EXPECT_FALSE(Value::IsZeroDiff(1.0, -1.0, 100.0));
  EXPECT_TRUE(Value::IsZeroDiff(-1e300, -1e300 * (1.0 + 1e-15), 100.0));
}

TEST(ValueIsZeroDiff, TheBoundItselfIsWithin) {
  // 1 - 2^-50 and 1 differ by 2^-50; k EPSILON is made that very number or the next below.
  const double gap = 0x1p-50, k = gap / Value::EPSILON;
  double above = k, below = k;
  while (above * Value::EPSILON < gap)
    above *= 1.0 + 0x1p-52;
  while (below * Value::EPSILON >= gap)
    below *= 1.0 - 0x1p-52;
  ASSERT_EQ(above * Value::EPSILON, gap);
  EXPECT_TRUE(Value::IsZeroDiff(1.0 - gap, 1.0, above));
  EXPECT_FALSE(Value::IsZeroDiff(1.0 - gap, 1.0, below));
}

TEST(ValueIsZeroDiff, InfinitiesAreNearToNothing) {
  const double infinity = Value::QVVALUE_INFINITY;
  EXPECT_FALSE(Value::IsZeroDiff(infinity, infinity, 100.0));
  EXPECT_FALSE(Value::IsZeroDiff(kNaN, kNaN, 100.0));
  EXPECT_TRUE(Value::IsZeroDiff(infinity, 1.0, 100.0));  // inf >= inf, by the same formula
}

// --- Equality ------------------------------------------------------------------------------------

TEST(ValueEqual, NullIsUnequalToNull) {
  EXPECT_FALSE(Value() == Value());
  EXPECT_TRUE(Value() != Value());
  const Value null;
  EXPECT_FALSE(null == null);
  EXPECT_FALSE(null == Value(0));
}

TEST(ValueEqual, DifferentKindsAreNeverEqual) {
  const std::vector<Value> ones = {Value(),    Value(true),  Value(1),         Value(1.0),
                                   Value("1"), Array({"1"}), Map({{"1", "1"}})};
  for (std::size_t i = 0; i < ones.size(); ++i) {
    for (std::size_t j = 0; j < ones.size(); ++j) {
      EXPECT_EQ(ones[i] == ones[j], i == j && i != 0) << i << " " << j;
      EXPECT_EQ(ones[i] != ones[j], !(i == j && i != 0)) << i << " " << j;
    }
  }
  EXPECT_FALSE(Value(1) == Value(1.0));
  EXPECT_EQ(Value(1).GetReal(), 1.0);
}

TEST(ValueEqual, Scalars) {
  EXPECT_TRUE(Value(true) == Value(true));
  EXPECT_FALSE(Value(true) == Value(false));
  EXPECT_TRUE(Value(-4) == Value(-4L));
  EXPECT_FALSE(Value(4) == Value(5));
  EXPECT_TRUE(Value("ab") == Value("ab"));
  EXPECT_FALSE(Value("ab") == Value("abc"));
  EXPECT_FALSE(Value(std::string("a\0b", 3)) == Value(std::string("a\0c", 3)));
}

TEST(ValueEqual, RealsWithinTheTolerance) {
  EXPECT_TRUE(Value(1.0) == Value(1.0 + 1e-15));
  EXPECT_FALSE(Value(1.0) == Value(1.0 + 1e-13));
  EXPECT_TRUE(Value(0.0) == Value(-0.0));
  EXPECT_FALSE(Value(0.0) == Value(1e-300));
  EXPECT_FALSE(Value(1e-300) == Value(0.0));
}

TEST(ValueEqual, MissingRealsAreEqualToEachOtherAlone) {
  const double missing = Value::SYSMISVALUE;
  EXPECT_TRUE(Value(missing) == Value(missing));
  // Within the tolerance of the missing value, but not missing.
  EXPECT_FALSE(Value(missing) == Value(missing * (1.0 - 1e-15)));
  EXPECT_FALSE(Value(missing * (1.0 - 1e-15)) == Value(missing));
  EXPECT_FALSE(Value(missing) == Value());
}

TEST(ValueEqual, InfinityIsUnequalToItself) {
  EXPECT_FALSE(Value(Value::QVVALUE_INFINITY) == Value(Value::QVVALUE_INFINITY));
  EXPECT_FALSE(Value(kNaN) == Value(kNaN));
}

TEST(ValueEqual, ArraysByCountAndPairsInOrder) {
  EXPECT_TRUE(Array({}) == Array({}));
  EXPECT_TRUE(Array({1, "a", true}) == Array({1, "a", true}));
  EXPECT_FALSE(Array({1, 2}) == Array({2, 1}));
  EXPECT_FALSE(Array({1, 2}) == Array({1, 2, 3}));
  EXPECT_FALSE(Array({1}) == Array({1.0}));
  EXPECT_TRUE(Array({1, Array({2, Array({3})})}) == Array({1, Array({2, Array({3})})}));
  EXPECT_FALSE(Array({1, Array({2, Array({3})})}) == Array({1, Array({2, Array({4})})}));
  EXPECT_FALSE(Array({Array({1}), Array({2})}) == Array({Array({0}), Array({2})}));
  EXPECT_TRUE(Array({1.0}) == Array({1.0 + 1e-15}));
}

TEST(ValueEqual, ArraysAndMapsWithANullAreUnequalToThemselves) {
  const Value array = Array({1, Value()}), map = Map({{"k", Value()}});
  EXPECT_FALSE(array == array);
  EXPECT_FALSE(map == map);
}

TEST(ValueEqual, MapsByCountKeysAndValues) {
  EXPECT_TRUE(Map({{"a", 1}, {"b", 2}}) == Map({{"b", 2}, {"a", 1}}));
  EXPECT_FALSE(Map({{"a", 1}}) == Map({{"a", 2}}));
  EXPECT_FALSE(Map({{"a", 1}}) == Map({{"b", 1}}));
  EXPECT_FALSE(Map({{"a", 1}}) == Map({{"a", 1}, {"b", 1}}));
  EXPECT_TRUE(Map({{"a", Map({{"b", 1}})}}) == Map({{"a", Map({{"b", 1}})}}));
  EXPECT_FALSE(Map({{"a", Map({{"b", 1}})}}) == Map({{"a", Map({{"c", 1}})}}));
}

// --- Order ---------------------------------------------------------------------------------------

TEST(ValueOrder, DifferentKindsByTheirTexts) {
  ExpectLess(Value(10), Value(9.5));  // "10" and "9.5"
  ExpectLess(Value("10"), Value(9));
  ExpectLess(Value(), Value(1));  // "" and "1"
  ExpectLess(Value(true), Value(10));
  ExpectLess(Value("abc"), Array({1}));             // '{' is behind the letters
  ExpectLess(Map({{"k", 1}}), Array({1}));          // '[' and '{'
  ExpectLess(Value(Value::SYSMISVALUE), Value(0));  // "-1.79769e+308" and "0"
  ExpectUnordered(Value(1), Value("1"));
  ExpectUnordered(Value(1), Value(true));
  EXPECT_FALSE(Value(1) <= Value("1"));
  EXPECT_FALSE(Value(1) >= Value("1"));
}

TEST(ValueOrder, NullsAreUnordered) {
  ExpectUnordered(Value(), Value());
  EXPECT_FALSE(Value() <= Value());
  EXPECT_FALSE(Value() >= Value());
}

// Required: `>` asks the same as `<`.
TEST(ValueOrder, FalseIsGreaterThanTrueAndTrueIsNotGreaterThanFalse) {
  EXPECT_TRUE(Value(false) < Value(true));
  EXPECT_FALSE(Value(true) < Value(false));
  EXPECT_TRUE(Value(false) > Value(true));
  EXPECT_FALSE(Value(true) > Value(false));
  EXPECT_FALSE(Value(true) > Value(true));
  EXPECT_FALSE(Value(false) < Value(false));
  EXPECT_TRUE(Value(false) >= Value(true));
  EXPECT_FALSE(Value(true) >= Value(false));
  EXPECT_TRUE(Value(false) <= Value(true));
  EXPECT_TRUE(Value(true) >= Value(true));
}

TEST(ValueOrder, BooleansWithinArraysAreOrderedBothWays) {
  EXPECT_TRUE(Array({true}) > Array({false}));
  EXPECT_FALSE(Array({false}) > Array({true}));
}

TEST(ValueOrder, Integers) {
  ExpectLess(Value(-1), Value(0));
  ExpectLess(Value(9), Value(10));
  ExpectLess(Value(std::numeric_limits<__int64>::min()),
             Value(std::numeric_limits<__int64>::max()));
  ExpectUnordered(Value(3), Value(3));
  EXPECT_TRUE(Value(3) <= Value(3));
  EXPECT_TRUE(Value(3) >= Value(3));
}

TEST(ValueOrder, RealsWithoutATolerance) {
  ExpectLess(Value(1.0), Value(1.0 + 1e-15));
  EXPECT_TRUE(Value(1.0 + 1e-15) <= Value(1.0));  // by equality
  ExpectLess(Value(-Value::QVVALUE_INFINITY), Value(0.0));
  ExpectUnordered(Value(kNaN), Value(1.0));
  ExpectUnordered(Value(0.0), Value(-0.0));
}

TEST(ValueOrder, MissingRealsAreNeitherLessNorGreater) {
  const Value missing(Value::SYSMISVALUE);
  ExpectUnordered(missing, Value(1.0));
  ExpectUnordered(missing, missing);
  EXPECT_TRUE(missing <= missing);
  EXPECT_TRUE(missing >= missing);
  EXPECT_FALSE(missing <= Value(1.0));
}

TEST(ValueOrder, TextsByBytes) {
  ExpectLess(Value("B"), Value("a"));
  ExpectLess(Value("a"), Value("ab"));
  ExpectLess(Value("z"), Value("\xC3\xA4"));
  ExpectLess(Value(""), Value(std::string(1, '\0')));
  ExpectUnordered(Value("a"), Value("a"));
}

TEST(ValueOrder, ArraysByTheFirstDifferenceThenTheLength) {
  ExpectLess(Array({1, 2}), Array({1, 3}));
  ExpectLess(Array({1, 9, 9}), Array({2}));
  ExpectLess(Array({1}), Array({1, 0}));
  ExpectLess(Array({}), Array({1}));
  ExpectLess(Array({Array({1, 2}), 9}), Array({Array({1, 3}), 0}));
  ExpectLess(Array({10}), Array({9.5}));  // elements of different kinds by their texts
  ExpectUnordered(Array({1, 2}), Array({1, 2}));
  // Positions that are neither way less do not decide.
  ExpectLess(Array({Value(), Value::SYSMISVALUE, 1}), Array({Value(), 5.0, 2}));
  ExpectUnordered(Array({Value()}), Array({Value()}));
}

TEST(ValueOrder, MapsByKeyThenValueThenTheCount) {
  ExpectLess(Map({{"a", 2}}), Map({{"b", 1}}));
  ExpectLess(Map({{"a", 1}}), Map({{"a", 2}}));
  ExpectLess(Map({{"a", 1}, {"b", 9}}), Map({{"a", 1}, {"c", 0}}));
  ExpectLess(Map({{"a", 9}, {"b", 0}}), Map({{"b", 0}}));
  ExpectLess(Map({{"a", 1}}), Map({{"a", 1}, {"b", 0}}));
  ExpectLess(Map({{"a", Map({{"x", 1}})}}), Map({{"a", Map({{"x", 2}})}}));
  ExpectUnordered(Map({{"a", 1}}), Map({{"a", 1}}));
}

// Against the order of std::vector and std::map of plain integers.
TEST(ValueOrder, AgreesWithTheStandardContainers) {
  std::vector<std::vector<int>> lists;
  for (int code = 0; code < 64; ++code) {
    std::vector<int> list;
    for (int digits = code; digits != 0; digits /= 4)
      list.push_back(digits % 4);
    lists.push_back(list);
  }
  for (const auto & x : lists) {
    for (const auto & y : lists) {
      Value a = Array({}), b = Array({}), mapA = Map({{"k", 0}}), mapB = mapA;
      for (const int i : x) {
        a[a.Size()] = i;
        mapA[std::to_string(i)] = mapA.Size();
      }
      for (const int i : y) {
        b[b.Size()] = i;
        mapB[std::to_string(i)] = mapB.Size();
      }
      EXPECT_EQ(a < b, x < y);
      EXPECT_EQ(a > b, x > y);
      EXPECT_EQ(a == b, x == y);
      std::map<std::string, int> shownA, shownB;
      for (const std::string & name : mapA.Names())
        shownA[name] = static_cast<int>(mapA[name].GetInteger());
      for (const std::string & name : mapB.Names())
        shownB[name] = static_cast<int>(mapB[name].GetInteger());
      EXPECT_EQ(mapA < mapB, shownA < shownB);
      EXPECT_EQ(mapA > mapB, shownA > shownB);
      EXPECT_EQ(mapA == mapB, shownA == shownB);
    }
  }
}
