#include "math/distribution/special_functions.h"

#include <cmath>

#include "QVDistFun.h"
#include "expectations.h"

using namespace QVMath_940;

// The error function is compared with the standard library's, which is another algorithm.

TEST(ErrorFunction, EveryPieceAgreesWithTheStandardLibrary) {
  for (double x = 0.0005; x < 7.5; x += 0.0005)
    EXPECT_CLOSE(derf(x), std::erf(x), 4e-16) << x;
}

TEST(ErrorFunction, IsOdd) {
  for (double x : {1e-300, 0.3, 1.4, 2.19, 2.2, 4.5, 6.89, 6.9, 100.0})
    EXPECT_EQ(derf(-x), -derf(x));
  EXPECT_EQ(derf(0.0), 0.0);
  EXPECT_EQ(derf(-0.0), 0.0);
}

TEST(ErrorFunction, EndsAtOne) {
  EXPECT_EQ(derf(6.9), 1.0);
  EXPECT_EQ(derf(-6.9), -1.0);
  EXPECT_EQ(derf(kInfinity), 1.0);
  EXPECT_EQ(derf(-kInfinity), -1.0);
}

TEST(ErrorFunction, ComplementKeepsItsRelativeAccuracy) {
  for (double x = 0.001; x < 26.5; x += 0.001)
    EXPECT_CLOSE(derfc(x), std::erfc(x), 1e-15 + 3e-16 * x * x) << x;
}

TEST(ErrorFunction, ComplementOfANegativeArgument) {
  EXPECT_EQ(derfc(-1.0), 2.0 - derfc(1.0));
  EXPECT_EQ(derfc(-30.0), 2.0);
  EXPECT_EQ(derfc(0.0), 1.0);
  EXPECT_EQ(derfc(-0.0), 1.0);
  EXPECT_EQ(derfc(kInfinity), 0.0);
  EXPECT_EQ(derfc(-kInfinity), 2.0);
}

TEST(ErrorFunction, ComplementEndsAtItsBoundOfTheExponential) {
  // exp(-708) is 3.3e-308; the smallest normal double is 2.2e-308.
  double x = 26.0;
  while (derfc(x) > 0.0)
    x += 1e-4;
  EXPECT_GT(derfc(x - 1e-4), 3.3e-308);
  EXPECT_GT(std::erfc(x), 3.2e-308);
}

TEST(NormalCdf, TakesTheTwoHalvesFromTwoFunctions) {
  const double root = std::sqrt(2.0);
  for (double z : {0.1, 1.0, 3.0, 8.0}) {
    EXPECT_EQ(prbnrm(z), (derf(z / root) + 1.0) * 0.5);
    EXPECT_EQ(prbnrm(-z), derfc(z / root) * 0.5);
  }
  EXPECT_EQ(prbnrm(0.0), 0.5);
  EXPECT_MISSING(prbnrm(kNaN));
}

TEST(LogBinomialCoefficient, SmallOnesAreExactProducts) {
  long status = 9;
  EXPECT_EQ(dnlbnc(5.0, 2.0, status), std::log((5.0 / 2.0) * (4.0 / 1.0)));
  EXPECT_EQ(status, 0);
  EXPECT_EQ(dnlbnc(5.0, 3.0, status), dnlbnc(5.0, 2.0, status)) << "the shorter product";
  EXPECT_CLOSE(dnlbnc(33.0, 16.0, status), std::log(1166803110.0), 1e-15);
  EXPECT_EQ(dnlbnc(33.0, 1.0, status), std::log(33.0));
}

TEST(LogBinomialCoefficient, OthersThroughLogGamma) {
  long status = 9;
  EXPECT_CLOSE(dnlbnc(34.0, 17.0, status), std::log(2333606220.0), 1e-14);
  EXPECT_EQ(dnlbnc(34.0, 17.0, status), dnlgam(35.0) - (dnlgam(18.0) + dnlgam(18.0)));
  EXPECT_EQ(dnlbnc(5.5, 2.0, status), dnlgam(6.5) - (dnlgam(3.0) + dnlgam(4.5)));
  EXPECT_EQ(dnlbnc(5.0, 2.5, status), dnlgam(6.0) - (dnlgam(3.5) + dnlgam(3.5)));
  EXPECT_EQ(status, 0);
}

TEST(LogBinomialCoefficient, IsNeverNegative) {
  for (double n = 0.0; n < 0.001; n += 1e-5) {
    for (double k = 0.0; k <= n; k += 1e-5) {
      long status = 9;
      EXPECT_GE(dnlbnc(n, k, status), 0.0);
      EXPECT_EQ(status, 0);
    }
  }
  // Rounding alone would make this one negative.
  const double n = 0.0013366070064459268;
  const double k = 9.1614235804297523e-15;
  long status = 9;
  EXPECT_LT(dnlgam(n + 1.0) - (dnlgam(k + 1.0) + dnlgam(n - k + 1.0)), 0.0);
  EXPECT_EQ(dnlbnc(n, k, status), 0.0);
  EXPECT_EQ(status, 0);
}

TEST(LogBinomialCoefficient, EdgesAndRefusals) {
  long status = 9;
  EXPECT_EQ(dnlbnc(7.0, 0.0, status), 0.0);
  EXPECT_EQ(dnlbnc(7.0, 7.0, status), 0.0);
  EXPECT_EQ(dnlbnc(0.0, 0.0, status), 0.0);
  EXPECT_EQ(dnlbnc(kInfinity, kInfinity, status), 0.0);
  EXPECT_EQ(status, 0);
  for (auto [n, k] : {std::pair(-1.0, 0.0), {3.0, -1.0}, {3.0, 4.0}, {kNaN, 1.0}, {3.0, kNaN}}) {
    EXPECT_MISSING(dnlbnc(n, k, status));
    EXPECT_EQ(status, 1);
  }
  EXPECT_MISSING(dnlbnc(1e306, 5.0, status));
  EXPECT_EQ(status, 2);
  EXPECT_MISSING(dnlbnc(kInfinity, 5.0, status));
  EXPECT_EQ(status, 2);
}

TEST(PeizerPrattAuxiliary, ItsRanges) {
  EXPECT_EQ(cbtaux(0.0), 1.0);
  EXPECT_EQ(cbtaux(1.0), 0.0);
  EXPECT_MISSING(cbtaux(-1e-300));
  EXPECT_EQ(cbtaux(1.35e154), -1.0);
  EXPECT_EQ(cbtaux(kInfinity), -1.0);
  const double x = 0.3;
  EXPECT_EQ(cbtaux(x), (2.0 * x * std::log(x) + 1.0 - x * x) / ((1.0 - x) * (1.0 - x)));
  EXPECT_CLOSE(cbtaux(4.0), -cbtaux(0.25), 1e-14);  // g(1/x) = -g(x)
}

TEST(Exponential, Cdf) {
  long status = 9;
  EXPECT_EQ(cdfexp(2.0, 0.7, status), 1.0 - std::exp(-1.4));
  EXPECT_EQ(status, 0);
  EXPECT_EQ(cdfexp(0.0, 0.7, status), 0.0);
  EXPECT_EQ(cdfexp(-2.0, 0.7, status), 0.0);
  EXPECT_EQ(cdfexp(1e6, 0.7, status), 1.0);
  EXPECT_EQ(cdfexp(kInfinity, 0.7, status), 1.0);
  for (double rate : {0.0, -1.0, kNaN}) {
    EXPECT_MISSING(cdfexp(2.0, rate, status));
    EXPECT_EQ(status, 1);
  }
  EXPECT_MISSING(cdfexp(kNaN, 1.0, status));
  EXPECT_EQ(status, 1);
}

TEST(CoresOfTAndF, ReportTheirStatus) {
  long status = 9;
  EXPECT_EQ(zelvcdft(1.5, 1e9, status), prbnrm(1.5));
  EXPECT_EQ(status, 0);
  EXPECT_EQ(zelvcdft(1.5, 1.0, status), std::atan(1.5) / M_PI + 0.5);
  EXPECT_MISSING(zelvcdft(1.5, 0.0, status));
  EXPECT_EQ(status, 1);
  status = 9;
  EXPECT_EQ(zelvcdff(0.0, 2.0, 3.0, status), 0.0);
  EXPECT_EQ(status, 0);
  EXPECT_MISSING(zelvcdff(1.0, -2.0, 3.0, status));
  EXPECT_EQ(status, 1);
  EXPECT_MISSING(zelvcdff(1.0, 2.0, kInfinity, status));
  EXPECT_NE(status, 0);
}
