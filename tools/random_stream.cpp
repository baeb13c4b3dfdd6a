// Writes the stream of one generator as 32-bit words, for the test batteries that read it.
//
//     random_stream GENERATOR [SEED] | dieharder -g 200 -a
//
// GENERATOR: urandom_twister, urandom_portable, rng_congruential, rng_twister, or rng_normal (a
// variate, brought back to uniform by its distribution function). A double u becomes the word
// floor(u 2^32); the congruential generators, whose numbers have 31 bits, give the upper 16 bits of
// two numbers for a word. The program ends when nobody reads any more.

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <vector>

#include "QVDistFun.h"
#include "QVRNGNormal.h"
#include "QVRNGUCongruential.h"
#include "QVRNGUTwister.h"
#include "QVURandom.h"

namespace {

using namespace QVMath_940;

constexpr unsigned long kDefaultSeed = 34567;

// The upper bits of one number.
std::uint32_t Bits(const std::function<double()> & uniform, int bits) {
  const double limit = std::ldexp(1.0, bits);
  const double scaled = std::floor(uniform() * limit);
  return static_cast<std::uint32_t>(scaled < limit ? scaled : limit - 1.0);
}

void WriteWords(const std::function<double()> & uniform, bool inHalves = false) {
  std::vector<std::uint32_t> words(1 << 14);
  do {
    for (std::uint32_t & word : words) {
      word = inHalves ? Bits(uniform, 16) : Bits(uniform, 32);
      if (inHalves) word = word << 16 | Bits(uniform, 16);
    }
  } while (std::fwrite(words.data(), sizeof words[0], words.size(), stdout) == words.size());
}

}  // namespace

int main(int argc, char ** argv) {
  const char * const name = argc > 1 ? argv[1] : "";
  const unsigned long seed = argc > 2 ? std::strtoul(argv[2], nullptr, 10) : kDefaultSeed;
  const auto is = [&](const char * wanted) { return std::strcmp(name, wanted) == 0; };

  if (is("urandom_twister") || is("urandom_portable")) {
    QVURandom random(seed, true, is("urandom_twister"), nullptr);
    WriteWords([&] { return random.GetRandom(); }, is("urandom_portable"));
  } else if (is("rng_congruential")) {
    QVRNGUCongruential random;
    random.SetSeed(static_cast<double>(seed));
    WriteWords([&] { return random.GetNext(); }, true);
  } else if (is("rng_twister")) {
    QVRNGUTwister random;
    random.SetSeed(static_cast<double>(seed));
    WriteWords([&] { return random.GetNext(); });
  } else if (is("rng_normal")) {
    QVRNGUTwister uniform;
    uniform.SetSeed(static_cast<double>(seed));
    QVRNGNormal random;
    random.SetURNGenerator(uniform);
    WriteWords([&] { return QVDistFun::CdfNorm(random.GetNext(), 0.0, 1.0); });
  } else {
    std::fprintf(stderr, "random_stream: see the first lines of tools/random_stream.cpp\n");
    return 2;
  }
  return 0;
}
