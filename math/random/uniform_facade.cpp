// QVURandom: the choice among the uniform generators, and its two persistent forms.
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <memory>

#include "QVURandom.h"
#include "XMLObj.h"
#include "XMLPersistence.h"
#include "common/display/display_frame.h"
#include "math/random/congruential.h"

namespace QVCommon_940 {

QVRandom::~QVRandom() = default;

}  // namespace QVCommon_940

namespace QVMath_940 {

namespace {

constexpr unsigned long kDefaultSeed = 34567;
constexpr unsigned long kSeedMask = 0xffffffffUL;
constexpr const char * kClassName = "QVURandom";

// Binary form: offsets and sizes in bytes.
constexpr char kMagic[] = {'Q', 'V', 'U', 'R'};
constexpr int kSeedAt = 4;
constexpr int kUsePortableAt = 12;
constexpr int kUseTwisterAt = 16;
constexpr int kBinarySize = 20;
constexpr int kLinesXML = 5;

QVRandomTwister * MakeTwister(unsigned long seed) {
  auto twister = std::make_unique<QVRandomTwister>();
  twister->Initialize(seed);
  return twister.release();
}

void PutLittleEndian(std::uint64_t value, int size, char * out) {
  for (int i = 0; i < size; ++i) {
    out[i] = static_cast<char>(static_cast<unsigned char>(value >> (8 * i)));
  }
}

std::uint64_t GetLittleEndian(const char * in, int size) {
  std::uint64_t value = 0;
  for (int i = 0; i < size; ++i) {
    value |= static_cast<std::uint64_t>(static_cast<unsigned char>(in[i])) << (8 * i);
  }
  return value;
}

// A seed that was written is a whole number of 32 bits; anything else is brought into that range.
unsigned long SeedFromDouble(double seed) {
  if (!(seed > 0.0)) return 0;
  return seed < static_cast<double>(kSeedMask) ? static_cast<unsigned long>(seed) : kSeedMask;
}

}  // namespace

QVURandom::QVURandom() : QVURandom(kDefaultSeed, true, true, nullptr) {
}

QVURandom::QVURandom(unsigned long seed, bool usePortable, bool useTwister,
                     QVCommon_940::QVRandom * user)
    : fSeed(seed & kSeedMask),
      fUsePortable(usePortable),
      fUseTwister(usePortable && useTwister && user == nullptr),
      fTwister(fUseTwister ? MakeTwister(fSeed) : nullptr),
      fUserRNG(user) {
}

QVURandom::QVURandom(const QVURandom & other)
    : fSeed(other.fSeed),
      fUsePortable(other.fUsePortable),
      fUseTwister(other.fUseTwister),
      fTwister(fUseTwister ? MakeTwister(fSeed) : nullptr),
      fUserRNG(other.fUserRNG) {
}

QVURandom & QVURandom::operator=(const QVURandom & other) {
  if (this == &other) return *this;
  QVRandomTwister * const twister = other.fUseTwister ? MakeTwister(other.fSeed) : nullptr;
  delete fTwister;
  fSeed = other.fSeed;
  fUsePortable = other.fUsePortable;
  fUseTwister = other.fUseTwister;
  fTwister = twister;
  fUserRNG = other.fUserRNG;
  return *this;
}

QVURandom::~QVURandom() {
  delete fTwister;
}

void QVURandom::SetSeed(unsigned long seed) {
  fSeed = seed & kSeedMask;
  if (!fUsePortable) {
    std::srand(static_cast<unsigned>(fSeed));
  } else if (fUseTwister) {
    fTwister->Initialize(fSeed);
  }
}

void QVURandom::SetUsePortable(bool usePortable) {
  fUsePortable = usePortable;
  if (!usePortable && fUseTwister) {
    fUseTwister = false;
    delete fTwister;
    fTwister = nullptr;
  }
}

// Every source but the twister.
double QVURandom::GetRandomElsewhere() {
  if (fUserRNG != nullptr) return fUserRNG->GetRandom();
  if (!fUsePortable) {
    constexpr int kFifteenBits = 32767;
    return (std::rand() & kFifteenBits) / 32767.0;
  }
  auto state = static_cast<std::uint32_t>(fSeed);
  const double value = NextCongruential(state);
  fSeed = state;
  return value;
}

int QVURandom::WriteObject(std::basic_fstream<char> & stream) const {
  if (!stream.good()) return 0;
  char bytes[kBinarySize];
  std::memcpy(bytes, kMagic, sizeof kMagic);
  const double seed = static_cast<double>(fSeed);
  std::uint64_t bits;
  std::memcpy(&bits, &seed, sizeof bits);
  PutLittleEndian(bits, 8, bytes + kSeedAt);
  PutLittleEndian(fUsePortable, 4, bytes + kUsePortableAt);
  PutLittleEndian(fUseTwister, 4, bytes + kUseTwisterAt);
  stream.write(bytes, kBinarySize);
  return kBinarySize;
}

int QVURandom::ReadObject(std::basic_fstream<char> & stream) {
  char bytes[kBinarySize];
  if (!stream.read(bytes, kBinarySize)) return 0;
  if (std::memcmp(bytes, kMagic, sizeof kMagic) != 0) return 0;
  const std::uint64_t bits = GetLittleEndian(bytes + kSeedAt, 8);
  double seed;
  std::memcpy(&seed, &bits, sizeof seed);
  TakeWhatWasRead(seed, GetLittleEndian(bytes + kUsePortableAt, 4) == 1,
                  GetLittleEndian(bytes + kUseTwisterAt, 4) == 1);
  return kBinarySize;
}

void QVURandom::TakeWhatWasRead(double seed, bool usePortable, bool useTwister) {
  const unsigned long newSeed = SeedFromDouble(seed);
  if (useTwister && fTwister == nullptr) fTwister = MakeTwister(newSeed);
  fSeed = newSeed;
  fUsePortable = usePortable;
  fUseTwister = useTwister;
}

int QVURandom::WriteObjectXML(std::basic_ostream<char> & stream, int nTabs) const {
  if (!stream.good()) return 0;
  const QVXML_940::XMLObj frame(kClassName, nTabs);
  frame.StartObj(stream);
  frame.WriteSubElement(stream, static_cast<double>(fSeed));
  frame.WriteSubElement(stream, fUsePortable ? 1 : 0);
  frame.WriteSubElement(stream, fUseTwister ? 1 : 0);
  frame.EndObj(stream);
  return kLinesXML;
}

int QVURandom::ReadObjectXML(std::basic_ifstream<char> & stream) {
  double seed = 0.0;
  int usePortable = 0;
  int useTwister = 0;
  if (!QVXML_940::ParseStartObj(stream, kClassName) || !QVXML_940::ParseValue(stream, seed) ||
      !QVXML_940::ParseValue(stream, usePortable) || !QVXML_940::ParseValue(stream, useTwister) ||
      !QVXML_940::ParseEndObj(stream)) {
    std::cerr << "Failure reading QVURandom!\n";
    return 0;
  }
  TakeWhatWasRead(seed, usePortable == 1, useTwister == 1);
  return kLinesXML;
}

void QVURandom::Display() const {
  using namespace QVDisplay_940;
  const DisplayFrame frame(kClassName);
  DisplayD("The seed", static_cast<double>(fSeed));
  DisplayB("Portable RNG indicator", fUsePortable);
  DisplayB("Mersenne Twister RNG indicator", fUseTwister);
}

}  // namespace QVMath_940
