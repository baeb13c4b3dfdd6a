#include "math/random/golden.h"

#include "QVRNGUCongruential.h"
#include "QVRNGUTwister.h"
#include "QVRandomTwister.h"
#include "QVURandom.h"

namespace {

using namespace QVMath_940;

TEST(UniformGolden, TwisterWords) {
  QVRandomTwister twister;
  twister.Initialize(34567);
  ExpectGolden("twister_words_seed_34567",
               [&] { return static_cast<double>(twister.GetInteger32()); });
  const unsigned long key[] = {0x123, 0x234, 0x345, 0x456};
  twister.InitByArray(key, 4);
  ExpectGolden("twister_words_by_array",
               [&] { return static_cast<double>(twister.GetInteger32()); });
}

TEST(UniformGolden, Facade) {
  QVURandom twister;
  ExpectGolden("urandom_twister_34567", [&] { return twister.GetRandom(); });
  QVURandom portable(34567, true, false, nullptr);
  ExpectGolden("urandom_portable_34567", [&] { return portable.GetRandom(); });
}

TEST(UniformGolden, ObjectStyle) {
  QVRNGUCongruential congruential;
  ExpectGolden("rng_congruential_state_1", [&] { return congruential.GetNext(); });
  congruential.SetSeed(5.0);
  ExpectGolden("rng_congruential_seed_5", [&] { return congruential.GetNext(); });
  QVRNGUTwister twister;
  ExpectGolden("rng_twister_seed_5489", [&] { return twister.GetNext(); });  // never seeded
  twister.SetSeed(7.0);
  ExpectGolden("rng_twister_seed_7", [&] { return twister.GetNext(); });
  twister.SetSeed(1.5);
  ExpectGolden("rng_twister_seed_1.5", [&] { return twister.GetNext(); });
  twister.SetSeed(-1.5);
  ExpectGolden("rng_twister_seed_-1.5", [&] { return twister.GetNext(); });
}

}  // namespace
