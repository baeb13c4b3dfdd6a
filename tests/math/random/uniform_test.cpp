#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <limits>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "QVRNGUCongruential.h"
#include "QVRNGUTwister.h"
#include "QVURandom.h"
#include "common/display/captured_display.h"

namespace {

using QVMath_940::QVRandomTwister;
using QVMath_940::QVRNGUCongruential;
using QVMath_940::QVRNGUTwister;
using QVMath_940::QVURandom;

constexpr double kTwoToMinus31 = 4.656612873077393e-10;

/// The portable generator in wide arithmetic.
double NextPortable(unsigned long & state) {
  const __uint128_t product = static_cast<__uint128_t>(state) * 397204094u;
  state = static_cast<unsigned long>(product % 2147483647u);
  if (state == 0) state = 1;
  return static_cast<double>(state) * kTwoToMinus31;
}

class Constant : public QVCommon_940::QVRandom {
 public:
  double GetRandom() override { return 0.125; }
};

std::string Path(const char * name) {
  return ::testing::TempDir() + "uniform_test_" + name;
}

// --- the facade ---------------------------------------------------------------------------------

TEST(URandom, DefaultIsTheTwisterWithItsSeed) {
  QVURandom facade;
  EXPECT_TRUE(facade.GetUseTwister());
  EXPECT_EQ(facade.GetUserRNG(), nullptr);
  QVRandomTwister twister;
  twister.Initialize(34567);
  for (int i = 0; i < 1000; ++i) {
    ASSERT_EQ(facade.GetRandom(), twister.GetRealOpen());
  }
}

TEST(URandom, PortableStream) {
  QVURandom facade(12345, true, false, nullptr);
  EXPECT_FALSE(facade.GetUseTwister());
  unsigned long state = 12345;
  for (int i = 0; i < 1000; ++i) {
    ASSERT_EQ(facade.GetRandom(), NextPortable(state));
  }
  facade.SetSeed(12345);
  state = 12345;
  EXPECT_EQ(facade.GetRandom(), NextPortable(state));
}

TEST(URandom, PortableSeedZeroBecomesOne) {
  QVURandom facade(0, true, false, nullptr);
  EXPECT_EQ(facade.GetRandom(), kTwoToMinus31);
  unsigned long state = 1;
  EXPECT_EQ(facade.GetRandom(), NextPortable(state));
}

TEST(URandom, UserGeneratorComesFirst) {
  Constant user;
  QVURandom facade(1, true, true, &user);
  EXPECT_FALSE(facade.GetUseTwister());
  EXPECT_EQ(facade.GetUserRNG(), &user);
  EXPECT_EQ(facade.GetRandom(), 0.125);
  QVURandom copy(facade);
  EXPECT_EQ(copy.GetUserRNG(), &user);
  EXPECT_EQ(copy.GetRandom(), 0.125);
}

TEST(URandom, WithoutPortableThereIsNoTwister) {
  QVURandom facade(99, false, true, nullptr);
  EXPECT_FALSE(facade.GetUseTwister());
  facade.SetSeed(99);
  std::vector<double> first;
  for (int i = 0; i < 100; ++i) {
    first.push_back(facade.GetRandom());
    EXPECT_GE(first.back(), 0.0);
    EXPECT_LE(first.back(), 1.0);
    EXPECT_EQ(first.back(), std::round(first.back() * 32767.0) / 32767.0);
  }
  facade.SetSeed(99);
  for (const double wanted : first) {
    EXPECT_EQ(facade.GetRandom(), wanted);
  }
}

TEST(URandom, PortableFalseDestroysTheTwisterForGood) {
  QVURandom facade(5, true, true, nullptr);
  facade.SetUsePortable(false);
  EXPECT_FALSE(facade.GetUseTwister());
  facade.SetUsePortable(true);
  EXPECT_FALSE(facade.GetUseTwister());
  unsigned long state = 5;
  EXPECT_EQ(facade.GetRandom(), NextPortable(state));
}

TEST(URandom, PortableTrueKeepsTheTwister) {
  QVURandom facade(5, true, true, nullptr);
  facade.SetUsePortable(true);
  EXPECT_TRUE(facade.GetUseTwister());
}

TEST(URandom, CopyInMidStreamStartsAgain) {
  QVURandom facade(5, true, true, nullptr);
  const double first = facade.GetRandom();
  facade.GetRandom();
  QVURandom copy(facade);
  EXPECT_EQ(copy.GetRandom(), first);
  QVURandom assigned(9, true, false, nullptr);
  assigned = facade;
  EXPECT_TRUE(assigned.GetUseTwister());
  EXPECT_EQ(assigned.GetRandom(), first);
  QVURandom withoutTwister(9, true, false, nullptr);
  QVURandom copyOfIt(withoutTwister);
  EXPECT_EQ(copyOfIt.GetRandom(), withoutTwister.GetRandom());
  assigned = withoutTwister;
  EXPECT_FALSE(assigned.GetUseTwister());
}

TEST(URandom, SeedTakesThirtyTwoBits) {
  QVURandom facade;
  QVURandom other;
  facade.SetSeed(8);
  other.SetSeed(8ul + (1ul << 32));
  EXPECT_EQ(facade.GetRandom(), other.GetRandom());
}

TEST(URandom, Display) {
  CapturedDisplay display;
  QVURandom(7, true, false, nullptr).Display();
  EXPECT_EQ(display.Text(),
            "\nQVURandom display start\nThe seed = 7\nPortable RNG indicator = true"
            "\nMersenne Twister RNG indicator = false\nQVURandom display end");
}

// --- binary form --------------------------------------------------------------------------------

std::string Binary(double seed, int portable, int twister) {
  std::string bytes = "QVUR";
  char part[8];
  std::memcpy(part, &seed, 8);  // the machine is little-endian, as the form is
  bytes.append(part, 8);
  std::memcpy(part, &portable, 4);
  bytes.append(part, 4);
  std::memcpy(part, &twister, 4);
  bytes.append(part, 4);
  return bytes;
}

int ReadBinary(const std::string & bytes, QVURandom & target) {
  const std::string path = Path("binary");
  std::ofstream(path, std::ios::binary) << bytes;
  std::fstream stream(path, std::ios::in | std::ios::binary);
  const int result = target.ReadObject(stream);
  std::remove(path.c_str());
  return result;
}

TEST(URandomBinary, TwentyBytes) {
  const std::string path = Path("written");
  {
    std::fstream stream(path, std::ios::out | std::ios::binary | std::ios::trunc);
    EXPECT_EQ(QVURandom(34567, true, true, nullptr).WriteObject(stream), 20);
    EXPECT_EQ(QVURandom(3, false, false, nullptr).WriteObject(stream), 20);
  }
  std::ifstream file(path, std::ios::binary);
  std::stringstream content;
  content << file.rdbuf();
  EXPECT_EQ(content.str(), Binary(34567.0, 1, 1) + Binary(3.0, 0, 0));
  std::remove(path.c_str());
}

TEST(URandomBinary, BadStreamWritesNothing) {
  std::fstream closed;
  closed.setstate(std::ios::failbit);
  EXPECT_EQ(QVURandom().WriteObject(closed), 0);
  EXPECT_EQ(QVURandom().ReadObject(closed), 0);
}

TEST(URandomBinary, ReadStoresAndDoesNotReseed) {
  QVURandom target(5, true, true, nullptr);
  QVURandom same(5, true, true, nullptr);
  EXPECT_EQ(ReadBinary(Binary(77.0, 1, 1), target), 20);
  EXPECT_EQ(target.GetRandom(), same.GetRandom());  // the stream of seed 5 goes on
  QVURandom copy(target);                           // and the stored seed is 77
  EXPECT_EQ(copy.GetRandom(), QVURandom(77, true, true, nullptr).GetRandom());
}

TEST(URandomBinary, ATwisterThatIsNotThereIsMadeFromTheSeed) {
  QVURandom target(5, true, false, nullptr);
  EXPECT_EQ(ReadBinary(Binary(77.0, 1, 1), target), 20);
  EXPECT_TRUE(target.GetUseTwister());
  EXPECT_EQ(target.GetRandom(), QVURandom(77, true, true, nullptr).GetRandom());
}

TEST(URandomBinary, FlagsAreTrueForExactlyOne) {
  QVURandom target(5, true, true, nullptr);
  EXPECT_EQ(ReadBinary(Binary(9.0, 1, 2), target), 20);
  EXPECT_FALSE(target.GetUseTwister());
  unsigned long state = 9;
  EXPECT_EQ(target.GetRandom(), NextPortable(state));
}

TEST(URandomBinary, AnotherMagicOrATruncatedFileChangesNothing) {
  for (std::size_t size = 0; size < 20; ++size) {
    QVURandom target(5, true, false, nullptr);
    EXPECT_EQ(ReadBinary(Binary(77.0, 1, 1).substr(0, size), target), 0);
    EXPECT_EQ(target.GetRandom(), QVURandom(5, true, false, nullptr).GetRandom());
  }
  std::string other = Binary(77.0, 1, 1);
  other[0] = 'X';
  QVURandom target(5, true, false, nullptr);
  EXPECT_EQ(ReadBinary(other, target), 0);
  EXPECT_EQ(target.GetRandom(), QVURandom(5, true, false, nullptr).GetRandom());
}

TEST(URandomBinary, SeedsThatNobodyWroteAreBroughtIntoRange) {
  for (const double seed : {std::nan(""), -4.0, -std::numeric_limits<double>::infinity()}) {
    QVURandom target(5, true, false, nullptr);
    EXPECT_EQ(ReadBinary(Binary(seed, 1, 0), target), 20);
    EXPECT_EQ(target.GetRandom(), kTwoToMinus31);  // seed 0
  }
  QVURandom target(5, true, false, nullptr);
  EXPECT_EQ(ReadBinary(Binary(1e300, 1, 0), target), 20);
  EXPECT_EQ(target.GetRandom(), QVURandom(4294967295ul, true, false, nullptr).GetRandom());
}

// --- XML form -----------------------------------------------------------------------------------

constexpr const char * kGolden =
    "\n\t<Obj name=\"QVURandom\">\n\t\t<Double value=\"34567\"/>\n\t\t<Int value=\"1\"/>"
    "\n\t\t<Int value=\"0\"/>\n\t</Obj>";

int ReadXML(const std::string & text, QVURandom & target, std::string & errors) {
  const std::string path = Path("xml");
  std::ofstream(path) << text;
  std::ifstream stream(path);
  std::ostringstream captured;
  std::streambuf * const before = std::cerr.rdbuf(captured.rdbuf());
  const int result = target.ReadObjectXML(stream);
  std::cerr.rdbuf(before);
  errors = captured.str();
  std::remove(path.c_str());
  return result;
}

TEST(URandomXML, FiveLines) {
  std::ostringstream out;
  EXPECT_EQ(QVURandom(34567, true, false, nullptr).WriteObjectXML(out, 1), 5);
  EXPECT_EQ(out.str(), kGolden);
  out.setstate(std::ios::failbit);
  EXPECT_EQ(QVURandom().WriteObjectXML(out, 1), 0);
}

TEST(URandomXML, ReadsWhatItWrote) {
  QVURandom target(5, true, true, nullptr);
  std::string errors;
  EXPECT_EQ(ReadXML(kGolden, target, errors), 5);
  EXPECT_EQ(errors, "");
  EXPECT_FALSE(target.GetUseTwister());
  unsigned long state = 34567;
  EXPECT_EQ(target.GetRandom(), NextPortable(state));
}

TEST(URandomXML, ATwisterThatIsNotThereIsMadeFromTheSeed) {
  std::string text = kGolden;
  text.replace(text.find("value=\"0\""), 9, "value=\"1\"");
  QVURandom target(5, true, false, nullptr);
  std::string errors;
  EXPECT_EQ(ReadXML(text, target, errors), 5);
  EXPECT_EQ(target.GetRandom(), QVURandom().GetRandom());
}

TEST(URandomXML, FailureIsALineAndZero) {
  const std::string golden = kGolden;
  for (std::size_t size = 0; size + 1 < golden.size(); ++size) {
    QVURandom target(5, true, false, nullptr);
    std::string errors;
    ASSERT_EQ(ReadXML(golden.substr(0, size), target, errors), 0) << size;
    EXPECT_EQ(errors, "Failure reading QVURandom!\n");
    EXPECT_EQ(target.GetRandom(), QVURandom(5, true, false, nullptr).GetRandom());
  }
}

// --- object-style generators --------------------------------------------------------------------

double FirstOfCongruential(double seed) {
  QVRNGUCongruential generator;
  generator.SetSeed(seed);
  return generator.GetNext();
}

TEST(RNGUCongruential, StreamAndStart) {
  QVRNGUCongruential generator;
  unsigned long state = 1;
  for (int i = 0; i < 1000; ++i) {
    ASSERT_EQ(generator.GetNext(), NextPortable(state));
  }
}

TEST(RNGUCongruential, SeedsAreFloorsOfMagnitudes) {
  EXPECT_EQ(FirstOfCongruential(-5.7), FirstOfCongruential(5.0));
  EXPECT_EQ(FirstOfCongruential(0.9), FirstOfCongruential(1.0));
  EXPECT_EQ(FirstOfCongruential(0.0), FirstOfCongruential(1.0));
  EXPECT_EQ(FirstOfCongruential(1e12), FirstOfCongruential(2147483647.0));
  EXPECT_EQ(FirstOfCongruential(2147483647.0), kTwoToMinus31);  // 0 modulo 2^31 - 1 becomes 1
  EXPECT_EQ(FirstOfCongruential(std::numeric_limits<double>::infinity()),
            FirstOfCongruential(2147483647.0));
  EXPECT_EQ(FirstOfCongruential(std::nan("")), FirstOfCongruential(1.0));
}

double FirstOfTwister(double seed) {
  QVRNGUTwister generator;
  generator.SetSeed(seed);
  return generator.GetNext();
}

double FirstByKey(std::vector<unsigned long> key) {
  QVRandomTwister twister;
  twister.InitByArray(key.data(), key.size());
  return twister.GetRealRes53();
}

TEST(RNGUTwister, WholeSeedsAreInitGenrand) {
  for (const double seed : {0.0, 1.0, 5489.0, 2147483647.0}) {
    QVRandomTwister twister;
    twister.Initialize(static_cast<unsigned long>(seed));
    EXPECT_EQ(FirstOfTwister(seed), twister.GetRealRes53());
  }
  EXPECT_EQ(FirstOfTwister(-0.0), FirstOfTwister(0.0));
}

TEST(RNGUTwister, NeverSeededMeans5489) {
  QVRNGUTwister generator;
  EXPECT_EQ(generator.GetNext(), FirstOfTwister(5489.0));
}

TEST(RNGUTwister, OtherSeedsAreTheirDigits) {
  // 1.5 = 0.75 x 2: one halving; 0.75 x 2^26 = 50331648, no rest; key[0] = (0 + 2 (2 + 1)) 2 = 12.
  EXPECT_EQ(FirstOfTwister(1.5), FirstByKey({12, 50331648, 0}));
  EXPECT_EQ(FirstOfTwister(-1.5), FirstByKey({14, 50331648, 0}));
  EXPECT_NE(FirstOfTwister(1.5), FirstOfTwister(-1.5));
  // 0.25: one doubling; 0.5 x 2^26; key[0] = (0 + 2 (2 + 0)) 2 = 8.
  EXPECT_EQ(FirstOfTwister(0.25), FirstByKey({8, 33554432, 0}));
  // 0.7 needs no step; its digits fill both words.
  const double scaled = 0.7 * 67108864.0;
  const double high = std::floor(scaled);
  EXPECT_EQ(FirstOfTwister(0.7),
            FirstByKey({0, static_cast<unsigned long>(high),
                        static_cast<unsigned long>((scaled - high) * 134217728.0)}));
  // -1 is whole but negative: one halving.
  EXPECT_EQ(FirstOfTwister(-1.0), FirstByKey({14, 33554432, 0}));
  // One above the whole seeds: 2^31 is 0.5 x 2^32.
  EXPECT_EQ(FirstOfTwister(2147483648.0), FirstByKey({(2 * (2 * 32 + 1)) * 2, 33554432, 0}));
}

TEST(RNGUTwister, EveryDoubleSeeds) {
  const double largest = std::numeric_limits<double>::max();
  const double infinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(FirstOfTwister(infinity), FirstOfTwister(largest));
  EXPECT_EQ(FirstOfTwister(-infinity), FirstOfTwister(-largest));
  EXPECT_EQ(FirstOfTwister(std::nan("")), FirstOfTwister(0.0));
  EXPECT_NE(FirstOfTwister(std::numeric_limits<double>::denorm_min()), FirstOfTwister(0.0));
}

TEST(RNGUTwister, CopiesGoOnWithTheSameStream) {
  QVRNGUTwister generator;
  generator.SetSeed(3.0);
  generator.GetNext();
  QVRNGUTwister copy(generator);
  QVRNGUTwister assigned;
  assigned = generator;
  const double next = generator.GetNext();
  EXPECT_EQ(copy.GetNext(), next);
  EXPECT_EQ(assigned.GetNext(), next);
}

}  // namespace
