#include "QVRandomTwister.h"

#include <cmath>
#include <random>
#include <vector>

#include <gtest/gtest.h>

namespace {

using QVMath_940::QVRandomTwister;

// The first lines of the output that Matsumoto and Nishimura publish with their program
// (mt19937ar.out), made by init_by_array with this key.
unsigned long kPublishedKey[] = {0x123, 0x234, 0x345, 0x456};
const std::vector<unsigned long> kPublishedWords{1067595299, 955945823,  477289528,  4107218783,
                                                 4228976476, 3344332714, 3355579695, 227628506,
                                                 810200273,  2591290167};
// After 1,000 words the program prints genrand_real2, eight digits each.
const std::vector<double> kPublishedReals{0.76275443, 0.99000644, 0.98670464, 0.10143112,
                                          0.27933125};

TEST(Twister, PublishedWordsAndReals) {
  QVRandomTwister twister;
  twister.InitByArray(kPublishedKey, 4);
  for (const unsigned long wanted : kPublishedWords) {
    EXPECT_EQ(twister.GetInteger32(), wanted);
  }
  for (int skipped = 10; skipped < 1000; ++skipped) {
    twister.GetInteger32();
  }
  for (const double wanted : kPublishedReals) {
    EXPECT_NEAR(twister.GetRealClosedOpen(), wanted, 0.5e-8);
  }
}

TEST(Twister, SeededStreamsAreThoseOfTheStandardEngine) {
  for (const unsigned long seed : {0ul, 1ul, 5489ul, 34567ul, 4294967295ul}) {
    QVRandomTwister twister;
    twister.Initialize(seed);
    std::mt19937 engine(static_cast<std::mt19937::result_type>(seed));
    for (int i = 0; i < 2000; ++i) {
      ASSERT_EQ(twister.GetInteger32(), engine());
    }
  }
}

TEST(Twister, NeverSeededMeansSeed5489) {
  QVRandomTwister twister;
  std::mt19937 engine;  // 5489 is its default
  for (int i = 1; i < 10000; ++i) {
    ASSERT_EQ(twister.GetInteger32(), engine());
  }
  EXPECT_EQ(twister.GetInteger32(), 4123659995ul);  // the 10,000th, as the C++ standard has it
}

TEST(Twister, OnlyThirtyTwoBitsOfASeedCount) {
  QVRandomTwister narrow;
  QVRandomTwister wide;
  narrow.Initialize(7);
  wide.Initialize(7ul + (1ul << 32));
  EXPECT_EQ(narrow.GetInteger32(), wide.GetInteger32());
  unsigned long wideKey[] = {0x123 + (5ul << 32), 0x234, 0x345, 0x456};
  wide.InitByArray(wideKey, 4);
  EXPECT_EQ(wide.GetInteger32(), kPublishedWords[0]);
}

TEST(Twister, FormsOfOneWord) {
  QVRandomTwister words;
  words.Initialize(77);
  QVRandomTwister other(words);
  for (int i = 0; i < 700; ++i) {
    const double word = static_cast<double>(words.GetInteger32());
    switch (i % 4) {
      case 0:
        EXPECT_EQ(other.GetInteger31(), static_cast<long>(word / 2.0));
        break;
      case 1:
        EXPECT_EQ(other.GetRealClosed(), word / 4294967295.0);
        break;
      case 2:
        EXPECT_EQ(other.GetRealClosedOpen(), std::ldexp(word, -32));
        break;
      default:
        EXPECT_EQ(other.GetRealOpen(), std::ldexp(word + 0.5, -32));
    }
  }
}

TEST(Twister, FiftyThreeBitsFromTwoWords) {
  QVRandomTwister words;
  words.Initialize(9);
  QVRandomTwister other(words);
  for (int i = 0; i < 700; ++i) {
    const unsigned long a = words.GetInteger32() >> 5;
    const unsigned long b = words.GetInteger32() >> 6;
    EXPECT_EQ(other.GetRealRes53(), std::ldexp(static_cast<double>((a << 26) + b), -53));
  }
}

TEST(Twister, CopiesGoOnWithTheSameStream) {
  QVRandomTwister twister;
  twister.Initialize(3);
  for (int i = 0; i < 100; ++i) {
    twister.GetInteger32();
  }
  QVRandomTwister copy(twister);
  QVRandomTwister assigned;
  assigned = twister;
  for (int i = 0; i < 1000; ++i) {
    const unsigned long word = twister.GetInteger32();
    ASSERT_EQ(copy.GetInteger32(), word);
    ASSERT_EQ(assigned.GetInteger32(), word);
  }
}

}  // namespace
