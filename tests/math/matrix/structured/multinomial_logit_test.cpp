// Probabilities of a multinomial logit model against its formula in long double, and at the edges
// of exp.
#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "QVSparseVector.h"
#include "math/matrix/reference.h"

namespace {

using QVMath_940::QVSparseVector;
using reference::At;
using I = std::vector<int>;
using V = std::vector<double>;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// The probabilities for the given linear predictors: one cell with value 1 and width 1, so that
/// beta is the list of them.
struct Logit {
  explicit Logit(const V & eta) {
    const I place = {0};
    const V one = {1.0};
    ok = QVSparseVector(place, one)
             .ComputeProbabilities(eta, static_cast<int>(eta.size()) + 1, 1, probs, logLast);
  }
  V probs;
  double logLast = 99.0;
  bool ok;
};

TEST(MultinomialLogit, AgreesWithTheFormula) {
  for (const V & eta :
       {V{0.5}, V{-1.0, 2.0}, V{3.0, 3.0, 3.0}, V{-700.0, 1.0}, V{700.0, -700.0, 0.0},
        V{30.0, -30.0}, V{0.0, 0.0}, V{-5.0, -6.0, -7.0, -8.0}}) {
    const Logit got(eta);
    ASSERT_TRUE(got.ok);
    long double total = 1.0L;
    for (double e : eta)
      total += std::exp(static_cast<long double>(e));
    ASSERT_EQ(got.probs.size(), eta.size() + 1);
    for (std::size_t c = 0; c < eta.size(); ++c) {
      const double wanted = static_cast<double>(std::exp(static_cast<long double>(eta[c])) / total);
      // exp takes an error of its argument over as a relative one; below exp(-708.39) stands 0.
      if (wanted < 2e-308) {
        EXPECT_EQ(got.probs[c], 0.0);
      } else {
        EXPECT_NEAR(got.probs[c], wanted, wanted * 4e-13) << eta[c];
      }
    }
    const double wanted = static_cast<double>(1.0L / total);
    EXPECT_NEAR(got.probs.back(), wanted, wanted * 4e-13);
    EXPECT_NEAR(got.logLast, static_cast<double>(-std::log(total)), 2e-13);
  }
}

TEST(MultinomialLogit, LinearPredictorsComeFromTheCells) {
  const I places = {0, 2};
  const V values = {1.0, 2.0};
  const V beta = {0.1, 99.0, 0.2, /**/ -0.3, 99.0, 0.4};
  V probs(5, 9.0);
  double logLast;
  EXPECT_TRUE(QVSparseVector(places, values).ComputeProbabilities(beta, 3, 3, probs, logLast));
  const Logit direct({0.1 + 2.0 * 0.2, -0.3 + 2.0 * 0.4});
  EXPECT_EQ((V{probs[0], probs[1], probs[2]}), direct.probs);
  EXPECT_EQ(logLast, direct.logLast);
  EXPECT_EQ((V{probs[3], probs[4]}), (V{9.0, 9.0}));  // a longer vector keeps its size
}

TEST(MultinomialLogit, OneCategory) {
  const Logit got({});
  EXPECT_TRUE(got.ok);
  EXPECT_EQ(got.probs, V{1.0});
  EXPECT_EQ(got.logLast, 0.0);
}

TEST(MultinomialLogit, Refusals) {
  const I places = {0, 2};
  const V values = {1.0, 2.0};
  const QVSparseVector x(places, values);
  const V beta(6, 0.5);
  V probs{7.0};
  double logLast = 7.0;
  EXPECT_FALSE(x.ComputeProbabilities(beta, 0, 3, probs, logLast));
  EXPECT_FALSE(x.ComputeProbabilities(beta, 3, 0, probs, logLast));
  EXPECT_FALSE(x.ComputeProbabilities(beta, 4, 3, probs, logLast));
  EXPECT_FALSE(x.ComputeProbabilities(beta, 3, 2, probs, logLast));
  const I bad = {2, 0};
  EXPECT_FALSE(QVSparseVector(bad, values).ComputeProbabilities(beta, 3, 3, probs, logLast));
  EXPECT_EQ(probs, V{7.0});
  EXPECT_EQ(logLast, 7.0);
  EXPECT_TRUE(x.ComputeProbabilities(beta, 3, 3, probs, logLast));
  EXPECT_EQ(probs.size(), 3u);
}

TEST(MultinomialLogit, EqualPredictorsBeyondTheRangeOfExp) {
  const Logit high({800.0, 800.0});
  EXPECT_EQ(high.probs, (V{0.5, 0.5, 0.0}));
  EXPECT_EQ(high.logLast, -800.0 - std::log(2.0));
  const Logit low({-800.0, -800.0});
  EXPECT_EQ(low.probs, (V{0.0, 0.0, 1.0}));
  EXPECT_EQ(low.logLast, 0.0);
  const Logit edge({709.0, 709.0});
  const double e = std::exp(709.0);
  EXPECT_EQ(edge.probs, (V{e / (2 * e + 1), e / (2 * e + 1), 1 / (2 * e + 1)}));
}

TEST(MultinomialLogit, DifferentPredictorsBeyondTheRangeOfExp) {
  const Logit high({800.0, 799.0});
  EXPECT_NEAR(high.probs[0], 1.0 / (1.0 + std::exp(-1.0)), 1e-12);
  EXPECT_NEAR(high.probs[1], 1.0 / (1.0 + std::exp(1.0)), 1e-12);
  EXPECT_EQ(high.probs[2], 0.0);
  EXPECT_NEAR(high.logLast, -800.0 - std::log1p(std::exp(-1.0)), 1e-12);
  const Logit wide({0.0, -800.0});
  EXPECT_NEAR(wide.probs[0], 0.5, 1e-13);
  EXPECT_EQ(wide.probs[1], 0.0);
  EXPECT_NEAR(wide.probs[2], 0.5, 1e-13);
}

TEST(MultinomialLogit, AllPredictorsFarBelowZeroLeaveTheLastCategory) {
  for (const double hi : {-708.4, -708.9, -709.0, -709.1, -1000.0, -1e300}) {
    const Logit got({hi, hi * 1.001});
    EXPECT_TRUE(got.ok);
    EXPECT_EQ(got.probs[0], 0.0) << hi;
    EXPECT_EQ(got.probs[1], 0.0) << hi;
    EXPECT_NEAR(got.probs[2], 1.0, 1e-15) << hi;
    EXPECT_NEAR(got.logLast, 0.0, 1e-12) << hi;
  }
}

TEST(MultinomialLogit, EqualPredictorsWhoseSumOverflows) {
  const Logit got({709.0, 709.0, 709.0, 709.0});
  for (int c = 0; c < 4; ++c)
    EXPECT_EQ(got.probs[static_cast<std::size_t>(c)], 0.25);
  EXPECT_NEAR(got.probs[4] / std::exp(-709.0), 0.25, 1e-14);
  EXPECT_EQ(got.logLast, -709.0 - std::log(4.0));
}

TEST(MultinomialLogit, OverflownPredictorsShareEverything) {
  const Logit got({kInfinity, 1e308, kInfinity, -kInfinity});
  EXPECT_EQ(got.probs, (V{0.5, 0.0, 0.5, 0.0, 0.0}));
  EXPECT_EQ(got.logLast, -kInfinity);
}

TEST(MultinomialLogit, ProbabilitiesSumToOne) {
  const V sizes = {0.0, 1e-300, 1.0, 30.0, 700.0, 708.0, 709.0, 710.0, 1400.0, 1e5, 1e300};
  for (const double a : sizes)
    for (const double b : sizes)
      for (const double c : sizes)
        for (const double signs : {1.0, -1.0}) {
          const Logit got({signs * a, -b, c * (a > b ? signs : 1.0)});
          double sum = 0.0;
          for (const double p : got.probs) {
            EXPECT_GE(p, 0.0);
            sum += p;
          }
          // The logarithms lose the digits that their own size takes.
          EXPECT_NEAR(sum, 1.0, 1e-12) << signs * a << ' ' << -b << ' ' << c;
        }
}

TEST(MultinomialLogit, NaNLeavesTheOtherEntries) {
  const I place = {0};
  const V one = {1.0};
  V probs(3, 9.0);
  double logLast = 9.0;
  EXPECT_TRUE(
      QVSparseVector(place, one).ComputeProbabilities({std::nan(""), 1.0}, 3, 1, probs, logLast));
  EXPECT_EQ(probs, (V{1.0, 9.0, 9.0}));
  EXPECT_EQ(logLast, 0.0);
}

}  // namespace
