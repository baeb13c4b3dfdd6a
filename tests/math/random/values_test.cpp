#include "QVRandomValues.h"

#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

#include "QVMV.h"
#include "QVSymMatrix.h"
#include "QVURandom.h"
#include "common/display/captured_display.h"
#include "math/random/golden.h"
#include "math/random/recorded_uniform.h"

// Memory that is lost on purpose, not to be reported where the leak sanitizer is linked in.
extern "C" void __lsan_disable() __attribute__((weak));
extern "C" void __lsan_enable() __attribute__((weak));

namespace {

using namespace QVMath_940;
using QVCommon_940::QVMV;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

QVSymMatrix Packed(int n, const std::vector<double> & elements) {
  QVSymMatrix matrix(n, true);
  matrix.AsVector() = elements;
  return matrix;
}

// --- Golden sequences ---------------------------------------------------------------------------

TEST(RandomValuesGolden, Numbers) {
  const auto expect = [](const char * name, auto choose) {
    QVRandomValues values;
    ASSERT_TRUE(choose(values));
    ExpectGolden(name, [&] { return values.GetRandom(); });
  };
  expect("urandom_twister_34567", [](QVRandomValues &) { return true; });
  expect("values_uniform_-1_3", [](QVRandomValues & v) { return v.SetParamUniform(-1.0, 3.0); });
  expect("values_normal_3_4", [](QVRandomValues & v) { return v.SetParamNormal(3.0, 4.0); });
  expect("values_chi_0.5", [](QVRandomValues & v) { return v.SetParamChi(0.5); });
  expect("values_chi_1", [](QVRandomValues & v) { return v.SetParamChi(1.0); });
  expect("values_chi_2", [](QVRandomValues & v) { return v.SetParamChi(2.0); });
  expect("values_chi_7", [](QVRandomValues & v) { return v.SetParamChi(7.0); });
  expect("values_gamma_0.3_2", [](QVRandomValues & v) { return v.SetParamGamma(0.3, 2.0); });
  expect("values_gamma_1_2", [](QVRandomValues & v) { return v.SetParamGamma(1.0, 2.0); });
  expect("values_gamma_2.5_0.1", [](QVRandomValues & v) { return v.SetParamGamma(2.5, 0.1); });
  expect("values_gamma_40_3", [](QVRandomValues & v) { return v.SetParamGamma(40.0, 3.0); });
  expect("values_gamma_1000_5", [](QVRandomValues & v) { return v.SetParamGamma(1000.0, 5.0); });
  expect("values_gamma_250000_1",
         [](QVRandomValues & v) { return v.SetParamGamma(250000.0, 1.0); });
}

TEST(RandomValuesGolden, Vectors) {
  QVRandomValues uniform;
  ASSERT_TRUE(uniform.SetParamUniform({0.0, -2.0}, {1.0, 1.0}));
  std::vector<double> out;
  for (const auto & row : GoldenRows("values_uniform_vector")) {
    ASSERT_TRUE(uniform.GetRandom(out));
    ASSERT_EQ(out, row);
  }
  QVRandomValues standard;
  ASSERT_TRUE(standard.SetParamNormal(4));
  for (const auto & row : GoldenRows("values_normal_vector_standard")) {
    ASSERT_TRUE(standard.GetRandom(out));
    ASSERT_EQ(out, row);
  }
}

// --- Source -------------------------------------------------------------------------------------

TEST(RandomValues, SeedStartsTheTwister) {
  QVRandomValues values;
  values.SetSeed(99);
  QVURandom twister(99, true, true, nullptr);
  for (int i = 0; i < 100; ++i)
    EXPECT_EQ(values.GetRandom(), twister.GetRandom());
  values.SetSeed(99ul + (1ul << 32));  // 32 bits count
  twister.SetSeed(99);
  EXPECT_EQ(values.GetRandom(), twister.GetRandom());
}

TEST(RandomValues, ToleranceIsAboveZero) {
  QVRandomValues values;
  EXPECT_FALSE(values.SetTolerance(0.0));
  EXPECT_FALSE(values.SetTolerance(-1.0));
  EXPECT_FALSE(values.SetTolerance(std::nan("")));
  EXPECT_TRUE(values.SetTolerance(1e-300));
}

TEST(RandomValues, CallersSourceCountsOnce) {
  ScriptedUser firstUser({0.125});
  ScriptedUser secondUser({0.75});
  QVURandom first(1, true, false, &firstUser);
  QVURandom second(1, true, false, &secondUser);
  {
    QVRandomValues values;
    EXPECT_FALSE(values.SetURNGPtr(nullptr));
    EXPECT_TRUE(values.SetURNGPtr(&first));
    EXPECT_EQ(values.GetRandom(), 0.125);
    EXPECT_TRUE(values.SetURNGPtr(&second));  // ignored
    EXPECT_EQ(values.GetRandom(), 0.125);
    EXPECT_FALSE(values.SetURNGPtr(nullptr));
  }
  EXPECT_EQ(firstUser.drawn, 2u);
  EXPECT_EQ(secondUser.drawn, 0u);
  EXPECT_EQ(first.GetRandom(), 0.125);  // still there
}

TEST(RandomValues, SeedDeletesTheCallersSourceAndStaysUnowned) {
  auto * const callers = new QVURandom(5, true, true, nullptr);
  QVURandom other(6, true, true, nullptr);
  QVRandomValues values;
  ASSERT_TRUE(values.SetURNGPtr(callers));
  if (__lsan_disable != nullptr) __lsan_disable();
  values.SetSeed(7);  // deletes `callers`, as the sanitizer's silence about it confirms
  if (__lsan_enable != nullptr) __lsan_enable();
  EXPECT_TRUE(values.SetURNGPtr(&other));  // not owned, so ignored
  EXPECT_EQ(values.GetRandom(), QVURandom(7, true, true, nullptr).GetRandom());
}

TEST(RandomValues, CopiesCloneAnOwnSourceFromItsSeed) {
  QVRandomValues values;
  values.SetSeed(12);
  values.SetParamNormal(5.0, 4.0);
  const double first = values.GetRandom();
  values.GetRandom();
  QVRandomValues copy(values);
  EXPECT_EQ(copy.GetRandom(), first);
  QVRandomValues assigned;
  assigned = values;
  assigned = *&assigned;
  EXPECT_EQ(assigned.GetRandom(), first);
}

TEST(RandomValues, CopiesShareTheCallersSource) {
  QVURandom source(1, true, true, nullptr);
  QVURandom same(1, true, true, nullptr);
  QVRandomValues values;
  values.SetURNGPtr(&source);
  QVRandomValues copy(values);
  QVRandomValues assigned;
  assigned = values;
  EXPECT_EQ(values.GetRandom(), same.GetRandom());
  EXPECT_EQ(copy.GetRandom(), same.GetRandom());
  EXPECT_EQ(assigned.GetRandom(), same.GetRandom());
}

// --- Distribution -------------------------------------------------------------------------------

TEST(RandomValues, RefusalsLeaveTheChoice) {
  const double nan = std::nan("");
  QVRandomValues values;
  values.SetParamUniform(5.0, 6.0);
  EXPECT_FALSE(values.SetParamUniform(2.0, 2.0));
  EXPECT_FALSE(values.SetParamUniform(2.0, 1.0));
  EXPECT_FALSE(values.SetParamUniform(nan, 1.0));
  EXPECT_FALSE(values.SetParamUniform(0));
  EXPECT_FALSE(values.SetParamUniform(-3));
  EXPECT_FALSE(values.SetParamUniform(std::vector<double>{}, std::vector<double>{}));
  EXPECT_FALSE(values.SetParamUniform({0.0, 0.0}, {1.0}));
  EXPECT_FALSE(values.SetParamUniform({0.0, 1.0}, {1.0, 1.0}));
  EXPECT_FALSE(values.SetParamNormal(0.0, 0.0));
  EXPECT_FALSE(values.SetParamNormal(0.0, nan));
  EXPECT_FALSE(values.SetParamNormal(0));
  EXPECT_FALSE(values.SetParamNormal({}, 1.0, QVSymMatrix(0, true)));
  EXPECT_FALSE(values.SetParamNormal({0.0, 0.0}, 1.0, QVSymMatrix(3, true)));
  EXPECT_FALSE(values.SetParamNormal({0.0, 0.0}, 0.0, Packed(2, {1.0, 0.0, 1.0})));
  EXPECT_FALSE(values.SetParamNormal({0.0, 0.0}, 1.0, QVSymMatrix(2, true)));  // no row stays in
  EXPECT_FALSE(values.SetParamChi(0.0));
  EXPECT_FALSE(values.SetParamChi(nan));
  EXPECT_FALSE(values.SetParamGamma(0.0, 1.0));
  EXPECT_FALSE(values.SetParamGamma(1.0, 0.0));
  EXPECT_FALSE(values.SetParamWishart(0, 3.0));
  EXPECT_FALSE(values.SetParamWishart(3, 2.999));
  EXPECT_FALSE(values.SetParamWishart(3, nan));
  EXPECT_FALSE(values.SetParamWishart(2, 3.0, QVSymMatrix(3, true)));
  EXPECT_FALSE(values.SetParamWishart(2, 3.0, QVSymMatrix(2, true)));
  const double value = values.GetRandom();
  EXPECT_GT(value, 5.0);
  EXPECT_LT(value, 6.0);
}

TEST(RandomValues, SizeOneIsTheSingleNumber) {
  QVURandom same;
  QVRandomValues values;
  EXPECT_TRUE(values.SetParamUniform(4.0, 8.0));
  EXPECT_TRUE(values.SetParamUniform(1));
  EXPECT_EQ(values.GetRandom(), same.GetRandom());
  EXPECT_TRUE(values.SetParamUniform({2.0}, {4.0}));
  EXPECT_EQ(values.GetRandom(), same.GetRandom() * 2.0 + 2.0);
  EXPECT_TRUE(values.SetParamNormal(7.0, 4.0));
  QVRandomValues other(values);
  EXPECT_TRUE(values.SetParamNormal(1));  // mean 0
  values.SetSeed(34567);
  EXPECT_EQ(other.GetRandom(), values.GetRandom() * 2.0 + 7.0);
  // The variance is sigma2 whatever cov says; no factorisation.
  EXPECT_TRUE(values.SetParamNormal({7.0}, 4.0, QVSymMatrix(1, true)));
  values.SetSeed(34567);
  other.SetSeed(34567);
  EXPECT_EQ(values.GetRandom(), other.GetRandom());
}

TEST(RandomValues, StandardNormalVectorIgnoresItsMeansOfOne) {
  QVRandomValues values;
  values.SetParamNormal(3);
  CapturedDisplay display;
  values.Display();
  EXPECT_NE(display.Text().find("\nNormal means (size = 3)\n 1 1 1"), std::string::npos);
  QVRandomValues single;
  single.SetParamNormal();
  std::vector<double> out;
  EXPECT_TRUE(values.GetRandom(out));
  for (const double value : out)
    EXPECT_EQ(value, single.GetRandom());
}

TEST(RandomValues, WrongFormCostsNoDraw) {
  QVURandom same;
  QVRandomValues values;
  std::vector<double> vector{1.0, 2.0};
  QVSymMatrix matrix = Packed(1, {3.0});
  EXPECT_FALSE(values.GetRandom(vector));
  EXPECT_FALSE(values.GetRandom(matrix));
  values.SetParamUniform(2);
  EXPECT_TRUE(QVMV::IsMissing(values.GetRandom()));
  EXPECT_FALSE(values.GetRandom(matrix));
  values.SetParamWishart(2, 4.0);
  EXPECT_TRUE(QVMV::IsMissing(values.GetRandom()));
  EXPECT_FALSE(values.GetRandom(vector));
  values.SetParamChi(2.0);
  EXPECT_FALSE(values.GetRandom(vector));
  EXPECT_FALSE(values.GetRandom(matrix));
  values.SetParamGamma(2.0, 1.0);
  EXPECT_FALSE(values.GetRandom(vector));
  EXPECT_EQ(vector, (std::vector<double>{1.0, 2.0}));
  EXPECT_EQ(matrix.AsVector(), std::vector<double>{3.0});
  values.SetParamUniform();
  EXPECT_EQ(values.GetRandom(), same.GetRandom());
}

// --- Gamma by its branches ----------------------------------------------------------------------

double GammaFrom(double shape, double rate, std::vector<double> uniforms) {
  const std::size_t count = uniforms.size();
  ScriptedUser user(std::move(uniforms));
  QVURandom source(1, true, false, &user);
  QVRandomValues values;
  values.SetURNGPtr(&source);
  EXPECT_TRUE(values.SetParamGamma(shape, rate));
  const double value = values.GetRandom();
  EXPECT_EQ(user.drawn, count);
  return value;
}

TEST(RandomValues, GammaOfShapeOneIsExponential) {
  EXPECT_EQ(GammaFrom(1.0, 2.0, {0.75}), -std::log(0.25) / 2.0);
}

TEST(RandomValues, GammaOfShapeOneDividesTheMissingValueByTheRate) {
  EXPECT_EQ(GammaFrom(1.0, 2.0, {1.0}), QVMV::Missing() / 2.0);
  EXPECT_EQ(GammaFrom(1.0, 0.5, {1.0}), -kInfinity);
}

TEST(RandomValues, GammaAboveOneAcceptsByItsSecondUniform) {
  const double x = -std::log(1.0 - 0.5);
  EXPECT_EQ(GammaFrom(3.0, 1.0, {0.5, 0.5}), x * 3.0);
  const double far = -std::log(1.0 - 0.999);  // rejected: 2 (ln x + 1 - x) is about -8
  EXPECT_EQ(GammaFrom(3.0, 1.0, {0.999, 0.5, 0.5, 0.5}), x * 3.0);
  EXPECT_EQ(GammaFrom(3.0, 1.0, {0.999, 0.99999}), far * 3.0);
}

// The shortcut of large shapes takes the decisions of the two logarithms.
TEST(RandomValues, LargeShapesRejectWhatTheLogarithmsReject) {
  for (const double shape : {101.0, 150.0, 1000.0, 1e6}) {
    const auto accepted = [&](double u, double u2) {
      const double x = -std::log(1.0 - u);
      return (std::log(x) + 1.0 - x) * (shape - 1.0) >= std::log(1.0 - u2);
    };
    for (const double u2 : {0.5, 1.0 - 0x1p-32, 1.0 - 0x1p-53, 1.0}) {
      for (int i = 1; i < 2000; ++i) {
        const double u = i / 2000.0;
        ScriptedUser user({u, u2, 1.0 - std::exp(-1.0), 0.5});  // then x = 1, accepted
        QVURandom source(1, true, false, &user);
        QVRandomValues values;
        values.SetURNGPtr(&source);
        values.SetParamGamma(shape, 1.0);
        values.GetRandom();
        ASSERT_EQ(user.drawn, accepted(u, u2) ? 2u : 4u) << shape << ' ' << u << ' ' << u2;
      }
    }
  }
}

TEST(RandomValues, GammaBelowOneByItsTwoPieces) {
  const double a = 0.5;
  const double e = 2.718281828459045;
  const double c = (a + e) / e;
  const double low = std::exp(std::log(c * 0.25) / a);
  EXPECT_EQ(GammaFrom(a, 2.0, {0.25, 0.5}), low / 2.0);
  EXPECT_EQ(GammaFrom(a, 2.0, {0.0, 0.25, 0.5}), low / 2.0);  // a zero uniform is drawn again
  EXPECT_EQ(GammaFrom(a, 1.0, {0.8, 0.99, 0.25, 0.5}), low);  // exp(-x) < 0.99
  const double high = -std::log((c - c * 0.99) / a);
  EXPECT_EQ(GammaFrom(a, 1.0, {0.99, 0.9}), high);
  EXPECT_EQ(GammaFrom(a, 1.0, {0.99, 0.1, 0.25, 0.5}), low);
  // The exponent below -708.39 gives 0.
  EXPECT_EQ(GammaFrom(1e-3, 1.0, {0.25, 0.5}), 0.0);
}

TEST(RandomValues, HostileShapesEnd) {
  QVRandomValues values;
  for (const double shape : {5e-324, 1e-300, 1.0 + 1e-15, 1e10, 1e300, kInfinity}) {
    for (const double rate : {5e-324, 1.0, kInfinity}) {
      ASSERT_TRUE(values.SetParamGamma(shape, rate));
      const double value = values.GetRandom();
      EXPECT_FALSE(value > 0.0 && value < 0.0);
    }
    if (shape > 1e15) break;  // one round of those will do
  }
  ASSERT_TRUE(values.SetParamGamma(kInfinity, 1.0));
  EXPECT_TRUE(QVMV::IsMissing(values.GetRandom()));
}

// --- Uniform ------------------------------------------------------------------------------------

TEST(RandomValues, UniformVectorsTakeTheirOwnLimits) {
  QVURandom same;
  QVRandomValues values;
  ASSERT_TRUE(values.SetParamUniform({0.0, 10.0, -3.0}, {1.0, 12.0, -1.0}));
  std::vector<double> out;
  ASSERT_TRUE(values.GetRandom(out));
  ASSERT_EQ(out.size(), 3u);
  EXPECT_EQ(out[0], same.GetRandom());
  EXPECT_EQ(out[1], same.GetRandom() * 2.0 + 10.0);
  EXPECT_EQ(out[2], same.GetRandom() * 2.0 - 3.0);
}

// --- Wishart ------------------------------------------------------------------------------------

TEST(RandomValues, WishartWithMEqualToPDrawsNothing) {
  QVRandomValues values;
  EXPECT_TRUE(values.SetParamWishart(3, 3.0));
  QVSymMatrix out = Packed(1, {5.0});
  EXPECT_FALSE(values.GetRandom(out));
  EXPECT_EQ(out.AsVector(), std::vector<double>{5.0});
}

TEST(RandomValues, WishartOfOneRowIsNotUnivariate) {
  QVRandomValues values;
  EXPECT_TRUE(values.SetParamWishart(1, 4.0));
  EXPECT_TRUE(QVMV::IsMissing(values.GetRandom()));
  QVSymMatrix out;
  EXPECT_TRUE(values.GetRandom(out));
  EXPECT_EQ(out.GetNRows(), 1);
}

// Every row of the triangle has d = M - P: the expected diagonal is d + i, not M.
TEST(RandomValues, WishartTakesTheSameDegreesOfFreedomInEachRow) {
  QVRandomValues values;
  ASSERT_TRUE(values.SetParamWishart(3, 9.0));
  QVSymMatrix out;
  std::vector<double> mean(3);
  constexpr int kDraws = 20000;
  for (int i = 0; i < kDraws; ++i) {
    ASSERT_TRUE(values.GetRandom(out));
    for (int k = 0; k < 3; ++k)
      mean[static_cast<std::size_t>(k)] += out.GetElem(k, k) / kDraws;
  }
  EXPECT_NEAR(mean[0], 6.0, 0.12);
  EXPECT_NEAR(mean[1], 7.0, 0.12);
  EXPECT_NEAR(mean[2], 8.0, 0.12);
}

TEST(RandomValues, WishartDrawsRowByRowDiagonalFirst) {
  QVURandom source(3, true, true, nullptr);
  QVURandom sameSource(3, true, true, nullptr);
  QVRandomValues values;
  QVRandomValues chi;
  QVRandomValues normal;
  values.SetURNGPtr(&source);
  chi.SetURNGPtr(&sameSource);
  normal.SetURNGPtr(&sameSource);
  ASSERT_TRUE(values.SetParamWishart(2, 7.0));
  chi.SetParamChi(5.0);
  normal.SetParamNormal();
  const double b00 = std::sqrt(chi.GetRandom());
  const double b11 = std::sqrt(chi.GetRandom());
  const double b10 = normal.GetRandom();
  QVSymMatrix out;
  ASSERT_TRUE(values.GetRandom(out));
  EXPECT_DOUBLE_EQ(out.GetElem(0, 0), b00 * b00);
  EXPECT_DOUBLE_EQ(out.GetElem(1, 0), b10 * b00);
  EXPECT_DOUBLE_EQ(out.GetElem(1, 1), b10 * b10 + b11 * b11);
}

// --- Display ------------------------------------------------------------------------------------

std::string Head(const char * distribution, const char * form, int n, const char * standard) {
  return std::string(
             "\nQVRandomValues display start\nCurrent seed = 34567"
             "\nComputational tolerance = 1e-12"
             "\nStandard uniform random number generator is defined"
             "\nDistribution type:\n") +
         distribution + "\nDistribution is " + form +
         "\nNumber of variates = " + std::to_string(n) + "\nDistribution is " + standard;
}

TEST(RandomValuesDisplay, Numbers) {
  CapturedDisplay display;
  QVRandomValues values;
  values.Display();
  EXPECT_EQ(display.Text(), Head("Uniform", "univariate", 0, "standard") +
                                "\nUniform low boundary = 0\nUniform upper boundary = 1"
                                "\nUniform low boundaries (size = 0)"
                                "\nUniform upper boundaries (size = 0)"
                                "\nQVRandomValues display end");
  values.SetParamChi(3.5);
  values.Display();
  EXPECT_EQ(display.Text(), Head("Chi-square", "univariate", 1, "not standard") +
                                "\nChi-square number of degrees of freedom = 3.5"
                                "\nChi-square numbers of degrees of freedom (size = 0)"
                                "\nQVRandomValues display end");
  values.SetParamGamma(2.0, 0.25);
  values.Display();
  EXPECT_EQ(display.Text(), Head("Gamma", "univariate", 1, "not standard") +
                                "\nGamma shape parameter = 2\nGamma scale parameter = 0.25"
                                "\nQVRandomValues display end");
}

TEST(RandomValuesDisplay, StandardMeansWithoutScaleOrLocation) {
  CapturedDisplay display;
  QVRandomValues values;
  const auto says = [&](const char * line) {
    values.Display();
    return display.Text().find(line) != std::string::npos;
  };
  values.SetParamUniform(0.0, 1.0);
  EXPECT_TRUE(says("\nDistribution is standard"));
  values.SetParamUniform(0.0, 2.0);
  EXPECT_TRUE(says("\nDistribution is not standard"));
  values.SetParamUniform({0.0, 0.0}, {1.0, 1.0});
  EXPECT_TRUE(says("\nDistribution is standard"));
  values.SetParamUniform({0.0, 0.0}, {1.0, 2.0});
  EXPECT_TRUE(says("\nDistribution is not standard"));
  values.SetParamNormal(0.0, 1.0);
  EXPECT_TRUE(says("\nDistribution is not standard"));
  values.SetParamNormal();
  EXPECT_TRUE(says("\nDistribution is standard"));
}

TEST(RandomValuesDisplay, Matrices) {
  const auto matrix = [](const char * values, int n) {
    const std::string size = std::to_string(n);
    return "\nQVSymMatrix display start\nThe number of rows = " + size +
           "\nThe number of blocks = 1\nThe block size = " + size +
           "\nLower triangular (number of elements = " + std::to_string(n * (n + 1) / 2) +
           ", number of rows = " + size + ")" + values + "\nQVSymMatrix display end";
  };
  CapturedDisplay display;
  QVRandomValues values;
  values.SetParamNormal({1.0, 2.0}, 4.0, Packed(2, {4.0, 2.0, 2.0}));
  values.Display();
  EXPECT_EQ(display.Text(),
            Head("Normal", "multivariate", 2, "not standard") +
                "\nNormal mean = 1\nNormal sigma squared = 4\nNormal sigma = 2"
                "\nNormal means (size = 2)\n 1 2"
                "\nMultivariate normal proportional covariance matrix:" +
                matrix("\nrow  0:  4\nrow  1:  2 2", 2) + "\nMultivariate normal Cholesky factor:" +
                matrix("\nrow  0:  2\nrow  1:  1 1", 2) + "\nQVRandomValues display end");
  values.SetParamWishart(2, 5.5, Packed(2, {4.0, 2.0, 2.0}));
  values.Display();
  EXPECT_EQ(display.Text(),
            Head("Wishart", "multivariate", 2, "not standard") +
                "\nWishart parameter P = 2\nWishart parameter M = 5.5"
                "\nWishart scale matrix:" +
                matrix("\nrow  0:  4\nrow  1:  2 2", 2) + "\nCholesky factor fmWishartChol:" +
                matrix("\nrow  0:  2\nrow  1:  1 1", 2) + "\nQVRandomValues display end");
}

}  // namespace
