#include <cstdint>
#include <limits>
#include <map>
#include <random>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "QVHashKey.h"
#include "QVPackedInt.h"
#include "common/display/captured_display.h"

namespace {

using QVMath_940::QVHashKey;
using QVMath_940::QVPackedInt;

QVHashKey Key(const std::vector<int> & elements) {
  QVHashKey key(static_cast<int>(elements.size()));
  for (std::size_t i = 0; i < elements.size(); ++i) {
    key[static_cast<int>(i)] = elements[i];
  }
  key.UpdateHashCode();
  return key;
}

/// Puts the shared offset back.
class WithOffset {
 public:
  explicit WithOffset(int offset) { QVHashKey::SetElementOffset(offset); }
  ~WithOffset() { QVHashKey::SetElementOffset(0); }
};

bool IsPrime(int n) {
  for (int d = 2; d * d <= n; ++d) {
    if (n % d == 0) return false;
  }
  return true;
}

/// The hash by its definition, the primes found anew.
int Hash(const std::vector<int> & elements, int offset) {
  std::vector<std::uint32_t> primes;
  for (int n = 3; primes.size() < 49; n += 2) {
    if (IsPrime(n)) primes.push_back(static_cast<std::uint32_t>(n));
  }
  std::uint32_t code = 0;
  for (std::size_t i = 0; i < elements.size(); ++i) {
    code ^= primes[i % 49] *
            (static_cast<std::uint32_t>(elements[i]) + static_cast<std::uint32_t>(offset));
  }
  return static_cast<int>(code);
}

TEST(HashKey, EmptyKeysHaveHashZero) {
  EXPECT_EQ(QVHashKey().GetLength(), 0);
  EXPECT_EQ(QVHashKey().GetHashcode(), 0);
  EXPECT_EQ(QVHashKey(-4).GetLength(), 0);
  EXPECT_TRUE(QVHashKey() == QVHashKey(0));
}

TEST(HashKey, NewElementsAreZero) {
  const WithOffset offset(5);
  const QVHashKey key(3);
  EXPECT_EQ(key.GetLength(), 3);
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(key[i], 0);
  }
  EXPECT_EQ(key.GetHashcode(), Hash({0, 0, 0}, 5));
}

TEST(HashKey, HashIsThePublishedSum) {
  std::mt19937 engine(3);
  for (const int offset : {0, 7, -100, std::numeric_limits<int>::max()}) {
    const WithOffset set(offset);
    for (const std::size_t length : {1u, 2u, 49u, 50u, 120u}) {
      std::vector<int> elements(length);
      for (int & e : elements) {
        e = static_cast<int>(engine());
      }
      EXPECT_EQ(Key(elements).GetHashcode(), Hash(elements, offset));
    }
  }
}

TEST(HashKey, PrimesCycleAfterFortyNinePositions) {
  std::vector<int> first(60, 0);
  std::vector<int> second(60, 0);
  first[10] = 1234;   // element 11, counted from 1
  second[59] = 1234;  // element 60
  EXPECT_EQ(Key(first).GetHashcode(), Key(second).GetHashcode());
  second[59] = 0;
  second[58] = 1234;
  EXPECT_NE(Key(first).GetHashcode(), Key(second).GetHashcode());
}

TEST(HashKey, StaleHashMakesEqualElementsUnequal) {
  QVHashKey stale(2);
  stale[0] = 1;
  stale[1] = 2;
  EXPECT_EQ(stale.GetHashcode(), 0);
  EXPECT_FALSE(stale == Key({1, 2}));
  stale.UpdateHashCode();
  EXPECT_TRUE(stale == Key({1, 2}));
}

TEST(HashKey, EqualHashesAreNotEnough) {
  EXPECT_FALSE(Key({0}) == Key({0, 0}));  // both hash to 0
  EXPECT_FALSE(Key({5, 0}) == Key({0, 3}));
  EXPECT_EQ(Key({5, 0}).GetHashcode(), Key({0, 3}).GetHashcode());
}

TEST(HashKey, CopiesAreDeepAndKeepTheHashAsItStands) {
  static_assert(
      std::is_void_v<decltype(std::declval<QVHashKey &>() = std::declval<QVHashKey &>())>);
  QVHashKey stale = Key({1, 2, 3});
  stale[0] = 9;
  QVHashKey copy(stale);
  EXPECT_EQ(copy.GetHashcode(), Key({1, 2, 3}).GetHashcode());
  copy[1] = 7;
  EXPECT_EQ(stale[1], 2);
  QVHashKey target(3);
  target = stale;
  EXPECT_EQ(target[0], 9);
  target = Key({4});
  EXPECT_EQ(target.GetLength(), 1);
  target = QVHashKey();
  EXPECT_EQ(target.GetLength(), 0);
  QVHashKey & self = stale;
  stale = self;
  EXPECT_EQ(stale[2], 3);
}

TEST(HashKey, ShorterKeysComeFirstThenElementsDecide) {
  EXPECT_TRUE(Key({9}) < Key({0, 0}));
  EXPECT_FALSE(Key({0, 0}) < Key({9}));
  EXPECT_TRUE(Key({1, -5}) < Key({1, 4}));  // signed
  EXPECT_FALSE(Key({1, 4}) < Key({1, -5}));
  EXPECT_FALSE(Key({1, 4}) < Key({1, 4}));
  EXPECT_FALSE(QVHashKey() < QVHashKey());
  std::map<QVHashKey, int> counts;
  counts[Key({2, 1})] += 1;
  counts[Key({2, 1})] += 1;
  EXPECT_EQ(counts.size(), 1u);
}

TEST(HashKey, MismatchCountsTheLeadingEqualElements) {
  EXPECT_EQ(Key({1, 2, 3}).Mismatch(Key({1, 2, 4})), 2);
  EXPECT_EQ(Key({1, 2, 3}).Mismatch(Key({1, 2})), 2);
  EXPECT_EQ(Key({1}).Mismatch(Key({2})), 0);
  EXPECT_EQ(QVHashKey().Mismatch(Key({2})), 0);
}

TEST(HashKey, OffsetIsSharedAndLowersTheBound) {
  EXPECT_EQ(QVHashKey::GetElementOffset(), 0);
  EXPECT_EQ(QVHashKey::GetElementUpperBound(), 9377657);
  const WithOffset offset(657);
  EXPECT_EQ(QVHashKey::GetElementOffset(), 657);
  EXPECT_EQ(QVHashKey::GetElementUpperBound(), 9377000);
}

TEST(HashKey, Display) {
  CapturedDisplay display;
  Key({4, -17}).Display();
  EXPECT_EQ(display.Text(), "\n\t Key:   4  -17");
}

TEST(PackedInt, TheWorkedExample) {
  const QVPackedInt codec(3, 1, {3, 4, 5});
  EXPECT_EQ(codec.GetSeqSize(), 3);
  EXPECT_EQ(codec.GetLowerBound(), 1);
  std::vector<int> packed;
  EXPECT_TRUE(codec.Pack({2, 3, 4}, packed, true));
  EXPECT_EQ(packed, std::vector<int>{43});
  std::vector<int> sequence;
  EXPECT_TRUE(codec.Unpack(sequence, packed));
  EXPECT_EQ(sequence, (std::vector<int>{2, 3, 4}));
  CapturedDisplay display;
  codec.Display();
  EXPECT_EQ(display.Text(),
            "\nQVPackedInt display start\nThe sequence size = 3\nThe lower bound = 1"
            "\nThe vector of numbers of different values (size = 3)\n 3 4 5"
            "\nThe number of packed storage units = 1"
            "\nThe vector of packed storage unit indices (size = 3)\n 0 0 0"
            "\nThe vector of products (size = 3)\n 3 12 60\nQVPackedInt display end");
}

TEST(PackedInt, ProductsAboveTheBoundOpenAUnit) {
  const QVPackedInt codec(2, 0, {10000, 10000});
  std::vector<int> packed;
  EXPECT_TRUE(codec.Pack({123, 9999}, packed, true));
  EXPECT_EQ(packed, (std::vector<int>{123, 9999}));
  CapturedDisplay display;
  codec.Display();
  EXPECT_NE(display.Text().find("products (size = 2)\n 10000 10000\n"), std::string::npos);
}

TEST(PackedInt, PositionZeroIsAlwaysInUnitZero) {
  const QVPackedInt codec(2, 0, {20000000, 3});
  std::vector<int> packed;
  EXPECT_TRUE(codec.Pack({19999999, 2}, packed, true));
  EXPECT_EQ(packed, (std::vector<int>{19999999, 2}));
  std::vector<int> sequence;
  EXPECT_TRUE(codec.Unpack(sequence, packed));
  EXPECT_EQ(sequence, (std::vector<int>{19999999, 2}));
}

TEST(PackedInt, SetupRefusals) {
  QVPackedInt codec;
  EXPECT_TRUE(codec.SetForSequence(2, 0, {2, 2, 5}));  // more numbers than positions
  EXPECT_EQ(codec.GetNDiffVal(1), 2);
  EXPECT_FALSE(codec.SetForSequence(0, 0, {2}));
  EXPECT_FALSE(codec.SetForSequence(-1, 0, {2}));
  EXPECT_FALSE(codec.SetForSequence(2, 0, {2}));
  EXPECT_FALSE(codec.SetForSequence(2, 0, {2, 2, 0}));  // all given numbers count
  EXPECT_FALSE(codec.SetForSequence(2, 0, {2, 0}));
  EXPECT_EQ(codec.GetSeqSize(), 0);
  EXPECT_EQ(codec.GetNDiffVal(0), -1);
  EXPECT_EQ(QVPackedInt(2, 0, {0, 1}).GetSeqSize(), 0);
}

TEST(PackedInt, AnEmptyObjectPacksNothing) {
  std::vector<int> packed{1, 2};
  EXPECT_TRUE(QVPackedInt().Pack({5}, packed, true));
  EXPECT_TRUE(packed.empty());
  std::vector<int> sequence{7};
  EXPECT_TRUE(QVPackedInt().Unpack(sequence, {}));
  EXPECT_EQ(sequence, std::vector<int>{7});
}

TEST(PackedInt, CheckRefusesWhatDoesNotFit) {
  const QVPackedInt codec(2, -1, {3, 2});
  std::vector<int> packed{99};
  EXPECT_FALSE(codec.Pack({0}, packed, true));
  EXPECT_FALSE(codec.Pack({-2, 0}, packed, true));
  EXPECT_FALSE(codec.Pack({2, 0}, packed, true));
  EXPECT_FALSE(codec.Pack({1, 1}, packed, true));
  EXPECT_EQ(packed, std::vector<int>{99});
  EXPECT_TRUE(codec.Pack({1, 0, 55}, packed, true));  // more elements than the sequence has
  EXPECT_EQ(packed, std::vector<int>{2 + 1 * 3});
  std::vector<int> sequence{0, 0, 4};
  EXPECT_FALSE(codec.Unpack(sequence, {}));
  EXPECT_TRUE(codec.Unpack(sequence, {5, 6}));
  EXPECT_EQ(sequence, (std::vector<int>{1, 0, 4}));
}

TEST(PackedInt, NumbersOfDifferentValues) {
  const QVPackedInt codec(2, 0, {3, 4});
  EXPECT_EQ(codec.GetNDiffVal(0), 3);
  EXPECT_EQ(codec.GetNDiffVal(1), 4);
  EXPECT_EQ(codec.GetNDiffVal(2), -1);
  EXPECT_EQ(codec.GetNDiffVal(-1), -1);
}

TEST(PackedInt, AMillionRandomSequencesComeBack) {
  std::mt19937 engine(11);
  int done = 0;
  while (done < 1000000) {
    const int size = 1 + static_cast<int>(engine() % 12);
    const int lower = static_cast<int>(engine() % 2001) - 1000;
    std::vector<int> numbers(static_cast<std::size_t>(size));
    for (int & number : numbers) {
      number = 1 + static_cast<int>(engine() % (engine() % 4 == 0 ? 3000000u : 40u));
    }
    const QVPackedInt codec(size, lower, numbers);
    std::vector<int> sequence(numbers.size());
    std::vector<int> packed;
    std::vector<int> back;
    for (int repeat = 0; repeat < 1000; ++repeat, ++done) {
      for (std::size_t i = 0; i < numbers.size(); ++i) {
        sequence[i] = lower + static_cast<int>(engine() % static_cast<unsigned>(numbers[i]));
      }
      ASSERT_TRUE(codec.Pack(sequence, packed, true));
      ASSERT_TRUE(codec.Unpack(back, packed));
      ASSERT_EQ(back, sequence);
      for (const int unit : packed) {
        ASSERT_GE(unit, 0);
        ASSERT_LT(unit, QVHashKey::GetElementUpperBound());
      }
    }
  }
}

TEST(PackedInt, ExtremeOffsetsAndBoundsNeverOverflow) {
  for (const int offset : {std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
    const WithOffset set(offset);
    const int most = std::numeric_limits<int>::max();
    const QVPackedInt codec(4, std::numeric_limits<int>::min(), {most, most, 2, 2});
    const int low = std::numeric_limits<int>::min();
    std::vector<int> packed;
    std::vector<int> back;
    EXPECT_TRUE(codec.Pack({-2, low, low + 1, low}, packed, true));
    EXPECT_TRUE(codec.Unpack(back, packed));
    EXPECT_EQ(back, (std::vector<int>{-2, low, low + 1, low}));
  }
}

}  // namespace
