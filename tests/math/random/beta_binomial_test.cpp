// The beta and the binomial generator.
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "QVDistFun.h"
#include "QVMathFun.h"
#include "QVRNGBeta.h"
#include "QVRNGBinomial.h"
#include "QVRNGUCongruential.h"
#include "QVRNGUTwister.h"
#include "math/random/golden.h"
#include "math/random/goodness_of_fit.h"
#include "math/random/recorded_uniform.h"

namespace {

using namespace QVMath_940;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

template <typename Generator>
double DrawFrom(double first, double second, std::vector<double> uniforms) {
  const std::size_t count = uniforms.size();
  ScriptedGenerator script(std::move(uniforms));
  Generator generator(first, second);
  generator.SetURNGenerator(script);
  const double value = generator.GetNext();
  EXPECT_EQ(script.drawn, count);
  return value;
}

double BetaFrom(double a, double b, std::vector<double> uniforms) {
  return DrawFrom<QVRNGBeta>(a, b, std::move(uniforms));
}

double BinomialFrom(double n, double p, std::vector<double> uniforms) {
  return DrawFrom<QVRNGBinomial>(n, p, std::move(uniforms));
}

// --- Beta ---------------------------------------------------------------------------------------

TEST(RNGBeta, GoldenSequences) {
  const auto expect = [](const char * name, double a, double b) {
    QVRNGBeta beta(a, b);
    ExpectGolden(name, [&] { return beta.GetNext(); });
  };
  expect("rng_beta_1_1", 1.0, 1.0);
  expect("rng_beta_2_1", 2.0, 1.0);
  expect("rng_beta_1_3", 1.0, 3.0);
  expect("rng_beta_0.5_0.7", 0.5, 0.7);
  expect("rng_beta_2.5_4", 2.5, 4.0);
  expect("rng_beta_30_20", 30.0, 20.0);
  expect("rng_beta_1.2_0.4", 1.2, 0.4);
  expect("rng_beta_0.02_3", 0.02, 3.0);
  QVRNGUTwister twister;
  twister.SetSeed(11.0);
  QVRNGBeta beta(2.5, 4.0);
  beta.SetURNGenerator(twister);
  ExpectGolden("rng_beta_twister_2.5_4", [&] { return beta.GetNext(); });
}

TEST(RNGBeta, Fits) {
  struct Shapes {
    double a;
    double b;
  };
  for (const Shapes s : {Shapes{1, 1}, Shapes{0.3, 1}, Shapes{1, 7}, Shapes{0.5, 0.5},
                         Shapes{0.4, 6}, Shapes{1.5, 1.2}, Shapes{80, 30}, Shapes{500, 500}}) {
    QVRNGBeta beta(s.a, s.b);
    beta.SetSeed(41.0);
    ExpectFit([&] { return beta.GetNext(); },
              [=](double x) { return QVDistFun::CdfBeta(x, s.a, s.b); });
  }
}

TEST(RNGBeta, AroundTheMode) {
  // a = 3, b = 2: s = 3, m = 2/3, h = 0.5 / sqrt(3). z comes from two uniforms, v is the third.
  const double z = (0.5 + 0.5 * 1.13113163544418) * 2.216035867166471 - 2.216035867166471;
  const double x = z * (0.5 / std::sqrt(3.0)) + 2.0 / 3.0;
  EXPECT_EQ(BetaFrom(3.0, 2.0, {0.5, 0.5, 0.5}), x);
  EXPECT_EQ(BetaFrom(3.0, 2.0, {0.5, 0.5, 0.0, 0.0, 0.5}), x);  // v = 0 is drawn again
  // x = 1.02 lies outside: z again, no v spent.
  EXPECT_EQ(BetaFrom(3.0, 2.0, {0.6, 0.875, 0.5, 0.5, 0.5}), x);
  // The acceptance: w = ln(1 - x) + 2 ln(x / 2) + 3 ln 3 + z z / 2 against ln v.
  const double far = (0.1 + 0.5 * 1.13113163544418) * 2.216035867166471 - 2.216035867166471;
  const double farX = far * (0.5 / std::sqrt(3.0)) + 2.0 / 3.0;
  const double w =
      std::log(1 - farX) + 2 * std::log(farX / 2) + 3 * std::log(3.0) + 0.5 * far * far;
  ASSERT_LT(w, -0.002);
  EXPECT_EQ(BetaFrom(3.0, 2.0, {0.5, 0.1, std::exp(w) * 0.999}), farX);
  EXPECT_EQ(BetaFrom(3.0, 2.0, {0.5, 0.1, std::exp(w) * 1.001, 0.5, 0.5, 0.5}), x);
}

TEST(RNGBeta, ShapesOfOne) {
  EXPECT_EQ(BetaFrom(1.0, 1.0, {0.3}), 0.3);
  EXPECT_EQ(BetaFrom(2.0, 1.0, {0.3}), std::exp(std::log(0.3) / 2.0));
  EXPECT_EQ(BetaFrom(2.0, 1.0, {0.0}), 0.0);
  EXPECT_EQ(BetaFrom(1e-3, 1.0, {0.3}), 0.0);  // the exponent is below -708
  EXPECT_EQ(BetaFrom(1.0, 2.0, {0.3}), 1.0 - std::exp(std::log(0.3) / 2.0));
  EXPECT_EQ(BetaFrom(1.0, 2.0, {0.0}), 1.0);
  EXPECT_EQ(BetaFrom(1.0, 1e-3, {0.3}), 1.0);
}

TEST(RNGBeta, Johnk) {
  const double x = std::exp(std::log(0.2) / 0.5);
  const double y = std::exp(std::log(0.3) / 0.25);
  EXPECT_EQ(BetaFrom(0.5, 0.25, {0.2, 0.3}), x / (x + y));
  EXPECT_EQ(BetaFrom(0.5, 0.25, {0.9, 0.9, 0.2, 0.3}), x / (x + y));  // sum above 1
  // The first and its redraws come before the second.
  EXPECT_EQ(BetaFrom(0.5, 0.25, {0.0, 0.2, 0.0, 0.0, 0.3}), x / (x + y));
  // An exponent below -708 gives 0.
  EXPECT_EQ(BetaFrom(1e-3, 0.25, {0.2, 0.3}), 0.0);
  EXPECT_EQ(BetaFrom(0.5, 1e-3, {0.2, 0.3}), 1.0);
  // Both 0: again.
  EXPECT_EQ(BetaFrom(1e-3, 1e-3, {0.2, 0.2, 1.0, 0.2}), 1.0);
}

TEST(RNGBeta, FiveThousandTriesThenTheInverse) {
  // Uniforms of 0.9 never meet Johnk's condition with these shapes.
  ScriptedGenerator script({0.9});
  QVRNGBeta beta(20.0, 0.5);
  beta.SetURNGenerator(script);
  EXPECT_EQ(beta.GetNext(), QVDistFun::IdfBeta(0.9, 20.0, 0.5));
  EXPECT_EQ(script.drawn, 2u * 5000u + 1u);
  // z of 0.5 and 0.1 with v of 1 is never accepted: three uniforms a try.
  std::vector<double> thrice;
  for (int i = 0; i < 5000; ++i)
    thrice.insert(thrice.end(), {0.5, 0.1, 1.0});
  thrice.push_back(0.25);
  EXPECT_EQ(BetaFrom(3.0, 2.0, thrice), QVDistFun::IdfBeta(0.25, 3.0, 2.0));
}

TEST(RNGBeta, BadShapes) {
  for (const double bad : {0.0, -1.0, std::nan("")}) {
    EXPECT_EQ(BetaFrom(bad, 2.0, {0.3}), 0.3);  // (1, 1)
    EXPECT_EQ(BetaFrom(2.0, bad, {0.3}), 0.3);
    ScriptedGenerator script({0.3});
    QVRNGBeta beta(2.0, 1.0);
    beta.SetURNGenerator(script);
    EXPECT_EQ(beta.GetNext(bad, 1.0), -1.0);
    EXPECT_EQ(beta.GetNext(1.0, bad), -1.0);
    EXPECT_EQ(script.drawn, 0u);
    EXPECT_EQ(beta.GetNext(1.0, 1.0), 0.3);
    EXPECT_EQ(beta.GetNext(), std::exp(std::log(0.3) / 2.0));  // the stored ones stay
    beta.SetParameters(bad, bad);
    EXPECT_EQ(beta.GetNext(), 0.3);
    beta.SetParameters(3.0, 1.0);
    EXPECT_EQ(beta.GetNext(), std::exp(std::log(0.3) / 3.0));
  }
}

TEST(RNGBeta, EveryShapeEnds) {
  const double nextToOne = std::nextafter(1.0, 2.0);
  for (const double a : {5e-324, 1e-300, 1e-5, nextToOne, 1.0 + 1e-9, 1e8, 1e300, kInfinity}) {
    for (const double b : {5e-324, 0.5, nextToOne, 1e8, 1e300, kInfinity}) {
      QVRNGBeta beta(a, b);
      const double x = beta.GetNext();
      EXPECT_TRUE((x >= 0.0 && x <= 1.0) || x == -1.0) << a << ' ' << b << ' ' << x;
    }
  }
}

// --- Binomial -----------------------------------------------------------------------------------

TEST(RNGBinomial, GoldenSequences) {
  const auto expect = [](const char * name, double n, double p) {
    QVRNGBinomial binomial(n, p);
    ExpectGolden(name, [&] { return binomial.GetNext(); });
  };
  expect("rng_binomial_10_1", 10.0, 1.0);
  expect("rng_binomial_99_0.3", 99.0, 0.3);
  expect("rng_binomial_100_0.5", 100.0, 0.5);
  expect("rng_binomial_200_0.3", 200.0, 0.3);
  expect("rng_binomial_5000_0.8", 5000.0, 0.8);
  expect("rng_binomial_1000000_0.01", 1000000.0, 0.01);
  QVRNGUTwister twister;
  twister.SetSeed(11.0);
  QVRNGBinomial binomial(200.0, 0.3);
  binomial.SetURNGenerator(twister);
  ExpectGolden("rng_binomial_twister_200_0.3", [&] { return binomial.GetNext(); });
}

TEST(RNGBinomial, Fits) {
  struct Parameters {
    int n;
    double p;
  };
  for (const Parameters s :
       {Parameters{5, 0.5}, Parameters{99, 0.1}, Parameters{100, 0.5}, Parameters{200, 0.3},
        Parameters{1001, 0.9}, Parameters{20000, 0.02}}) {
    QVRNGUTwister twister;
    twister.SetSeed(2.5);
    QVRNGBinomial binomial(s.n, s.p);
    binomial.SetURNGenerator(twister);
    ExpectDiscreteFit([&] { return binomial.GetNext(); }, s.n,
                      [=](int k) {
                        return std::exp(std::lgamma(s.n + 1.0) - std::lgamma(k + 1.0) -
                                        std::lgamma(s.n - k + 1.0) + k * std::log(s.p) +
                                        (s.n - k) * std::log1p(-s.p));
                      });
  }
}

TEST(RNGBinomial, TrialsBelowAHundred) {
  // A trial succeeds when p >= u.
  EXPECT_EQ(BinomialFrom(4.0, 0.3, {0.1, 0.3, 0.31, 0.9}), 2.0);
  ScriptedGenerator script({0.2});
  QVRNGBinomial binomial(99.0, 0.3);
  binomial.SetURNGenerator(script);
  EXPECT_EQ(binomial.GetNext(), 99.0);
  EXPECT_EQ(script.drawn, 99u);
}

TEST(RNGBinomial, ReductionFromAHundred) {
  // n = 101 is odd: i = 51, b = Beta(51, 51) from the uniforms 0.5, 0.5, 0.5 (accepted at once), 50
  // trials are left.
  const double z = (0.5 + 0.5 * 1.13113163544418) * 2.216035867166471 - 2.216035867166471;
  const double b = z * (0.5 / std::sqrt(100.0)) + 0.5;
  const auto count = [&](double n, double p, std::vector<double> first, double rest) {
    first.insert(first.end(), {0.5, 0.5, 0.5});
    first.insert(first.end(), 50, rest);
    return BinomialFrom(n, p, first);
  };
  ASSERT_GT(b, 0.5);
  const double above = (0.9 - b) / (1.0 - b);  // p above b: 51 are certain
  EXPECT_EQ(count(101.0, 0.9, {}, above * 0.999), 101.0);
  EXPECT_EQ(count(101.0, 0.9, {}, above * 1.001), 51.0);
  const double below = 0.3 / b;  // p below b: none is
  EXPECT_EQ(count(101.0, 0.3, {}, below * 0.999), 50.0);
  EXPECT_EQ(count(101.0, 0.3, {}, below * 1.001), 0.0);
  // Even n: one trial first.
  EXPECT_EQ(count(102.0, 0.3, {0.3}, below * 1.001), 1.0);
  EXPECT_EQ(count(102.0, 0.3, {0.31}, below * 1.001), 0.0);
}

TEST(RNGBinomial, CertaintyTakesNoTrials) {
  EXPECT_EQ(BinomialFrom(50.0, 1.0, {}), 50.0);
  EXPECT_EQ(BinomialFrom(50.0, 0.0, {}), 0.0);
  EXPECT_EQ(BinomialFrom(0.0, 0.5, {}), 0.0);
}

TEST(RNGBinomial, BadParameters) {
  const std::vector<std::pair<double, double>> bad{
      {-1.0, 0.3}, {5.5, 0.3}, {kInfinity, 0.3},    {1e300, 0.3}, {std::nan(""), 0.3},
      {5.0, -0.1}, {5.0, 1.1}, {5.0, std::nan("")}, {-0.5, 0.3},  {0x1p53 + 2, 1.0}};
  for (const auto & [n, p] : bad) {
    EXPECT_EQ(BinomialFrom(n, p, {}), 0.0);
    ScriptedGenerator script({0.2});
    QVRNGBinomial binomial(3.0, 0.3);
    binomial.SetURNGenerator(script);
    EXPECT_EQ(binomial.GetNext(n, p), 0.0);
    EXPECT_EQ(script.drawn, 0u);
    EXPECT_EQ(binomial.GetNext(2.0, 0.3), 2.0);
    EXPECT_EQ(binomial.GetNext(), 3.0);  // the stored ones stay
    binomial.SetParameters(n, p);
    EXPECT_EQ(binomial.GetNext(), 0.0);  // (0, 0)
    binomial.SetParameters(7.0, 0.3);
    EXPECT_EQ(binomial.GetNext(), 7.0);
  }
}

TEST(RNGBinomial, LargeCountsEnd) {
  for (const double n : {1e6, 2147483647.0, 2147483648.0, 1e15, 0x1p53}) {
    QVRNGBinomial binomial(n, 0.25);
    const double count = binomial.GetNext();
    EXPECT_NEAR(count, n * 0.25, 20.0 * std::sqrt(n) + 1e-9 * n);
    binomial.SetParameters(n, 1.0);
    EXPECT_LE(binomial.GetNext(), n);
  }
}

// --- What both share: the generator of uniform numbers ------------------------------------------

template <typename Generator>
class VariateSource : public ::testing::Test {};
using Generators = ::testing::Types<QVRNGBeta, QVRNGBinomial>;
TYPED_TEST_SUITE(VariateSource, Generators);

// Parameters for both: a beta of two shapes, and 1 trial.
template <typename Generator>
Generator Example();
template <>
QVRNGBeta Example() {
  return QVRNGBeta(2.5, 4.0);
}
template <>
QVRNGBinomial Example() {
  return QVRNGBinomial(200.0, 0.3);
}

TYPED_TEST(VariateSource, MakesAnOwnCongruentialWithState1) {
  QVRNGUCongruential uniform;
  TypeParam given = Example<TypeParam>();
  given.SetURNGenerator(uniform);
  TypeParam own = Example<TypeParam>();
  for (int i = 0; i < 50; ++i)
    EXPECT_EQ(own.GetNext(), given.GetNext());
  uniform.SetSeed(123.0);
  TypeParam seeded = Example<TypeParam>();
  seeded.SetSeed(123.0);
  for (int i = 0; i < 50; ++i)
    EXPECT_EQ(seeded.GetNext(), given.GetNext());
}

TYPED_TEST(VariateSource, SeedGoesToTheCallersGenerator) {
  ScriptedGenerator script({0.5});
  TypeParam generator = Example<TypeParam>();
  generator.SetURNGenerator(script);
  generator.SetSeed(4.5);
  EXPECT_EQ(script.seed, 4.5);
}

TYPED_TEST(VariateSource, TheCallersGeneratorIsSharedAndNeverDeleted) {
  int deletions = 0;
  {
    ScriptedGenerator first({0.5, 0.25, 0.3}, &deletions);
    ScriptedGenerator second({0.5, 0.25, 0.3}, &deletions);
    {
      TypeParam generator = Example<TypeParam>();
      generator.GetNext();
      generator.SetURNGenerator(first);
      TypeParam copy(generator);
      TypeParam assigned = Example<TypeParam>();
      assigned.GetNext();
      assigned = generator;
      generator.SetURNGenerator(second);
      copy.GetNext();
      const std::size_t drawn = first.drawn;
      EXPECT_GT(drawn, 0u);
      assigned.GetNext();
      EXPECT_GT(first.drawn, drawn);
      EXPECT_EQ(second.drawn, 0u);
      generator.GetNext();
      EXPECT_GT(second.drawn, 0u);
    }
    EXPECT_EQ(deletions, 0);
  }
  EXPECT_EQ(deletions, 2);
}

TYPED_TEST(VariateSource, ACopyTakesAnOwnGeneratorWithItsState) {
  TypeParam generator = Example<TypeParam>();
  for (int i = 0; i < 10; ++i)
    generator.GetNext();
  TypeParam copy(generator);
  TypeParam assigned;
  assigned = generator;
  assigned = *&assigned;
  for (int i = 0; i < 50; ++i) {
    const double wanted = generator.GetNext();
    EXPECT_EQ(copy.GetNext(), wanted);
    EXPECT_EQ(assigned.GetNext(), wanted);
  }
}

}  // namespace
