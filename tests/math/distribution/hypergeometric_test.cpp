#include <algorithm>
#include <climits>
#include <cmath>

#include "QVDistFun.h"
#include "expectations.h"

using QVMath_940::QVDistFun;

namespace {

double SumOfPoints(int x, int population, int k, int n) {
  double sum = 0.0;
  for (int i = std::max(0, n - population + k); i <= x; ++i)
    sum += QVDistFun::PdfHyper(i, population, n, k);
  return sum;
}

}  // namespace

TEST(Hypergeometric, SmallPopulationsAreExact) {
  int status = 9;
  // 10 objects, 4 marked, 3 drawn: P(X = 0) = 20/120, P(X = 1) = 60/120
  EXPECT_CLOSE(QVDistFun::CDFHyper(0.0, 10.0, 4.0, 3.0, status), 20.0 / 120.0, 1e-15);
  EXPECT_EQ(status, 0);
  EXPECT_CLOSE(QVDistFun::CDFHyper(1.0, 10.0, 4.0, 3.0, status), 80.0 / 120.0, 1e-15);
  EXPECT_CLOSE(QVDistFun::CDFHyper(2.0, 10.0, 4.0, 3.0, status), 116.0 / 120.0, 1e-15);
  EXPECT_EQ(QVDistFun::CDFHyper(3.0, 10.0, 4.0, 3.0, status), 1.0);
}

TEST(Hypergeometric, EverySmallCaseIsTheSumOfItsPoints) {
  for (int population : {1, 2, 3, 7, 12, 31}) {
    for (int k = 1; k <= population; ++k) {
      for (int n = 1; n <= population; ++n) {
        for (int x = -1; x <= std::min(k, n); ++x) {
          int status = 9;
          const double expected = x == std::min(k, n) ? 1.0 : SumOfPoints(x, population, k, n);
          EXPECT_NEAR(QVDistFun::CDFHyper(x, population, k, n, status), expected, 2e-14)
              << x << " " << population << " " << k << " " << n;
          EXPECT_EQ(status, 0);
        }
      }
    }
  }
}

TEST(Hypergeometric, TheLargestExactPopulation) {
  int status = 9;
  EXPECT_CLOSE(QVDistFun::CDFHyper(240.0, 1000.0, 500.0, 500.0, status),
               SumOfPoints(240, 1000, 500, 500), 1e-11);
  EXPECT_CLOSE(QVDistFun::CDFHyper(2.0, 1000.0, 30.0, 40.0, status), SumOfPoints(2, 1000, 30, 40),
               1e-11);
}

TEST(Hypergeometric, BetweenAThousandAndTenThousandItIsAStep) {
  // The step lies where l (M + 2) passes K + 1 + N + K N: 1 * 2002 against 1271.
  int status = 9;
  EXPECT_EQ(QVDistFun::CDFHyper(0.0, 2000.0, 30.0, 40.0, status), 0.0);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(QVDistFun::CDFHyper(1.0, 2000.0, 30.0, 40.0, status), 1.0);
  EXPECT_EQ(status, 0);
  EXPECT_GT(SumOfPoints(0, 2000, 30, 40), 0.5) << "what a sum would say";
  // The population decides, not the result's size.
  EXPECT_EQ(QVDistFun::CDFHyper(251.0, 1001.0, 500.0, 500.0, status), 1.0);
  EXPECT_EQ(QVDistFun::CDFHyper(250.0, 1001.0, 500.0, 500.0, status), 0.0);
}

TEST(Hypergeometric, LargePopulationsGoThroughTheNormalDistribution) {
  int status = 9;
  const double population = 20000.0;
  const double k = 4000.0;
  const double n = 5000.0;
  const double mean = k / population * n;
  const double variance =
      ((population - k) / (population - 1.0)) * ((population - n) / population) * mean;
  EXPECT_EQ(QVDistFun::CDFHyper(980.0, population, k, n, status),
            QVDistFun::CdfStdNorm((980.0 - mean + 0.5) / std::sqrt(variance)));
  EXPECT_EQ(status, 0);
  // Exactly 10000 does not: a step again.
  EXPECT_EQ(QVDistFun::CDFHyper(500.0, 10000.0, 2000.0, 2500.0, status), 0.0);
  // Few marked against the share drawn does not either: r = 1 / 3, 16 / r = 48.
  EXPECT_EQ(QVDistFun::CDFHyper(3.0, 20000.0, 48.0, 5000.0, status), 0.0);
  EXPECT_EQ(QVDistFun::CDFHyper(20.0, 20000.0, 48.0, 5000.0, status), 1.0);
  const double some = QVDistFun::CDFHyper(12.0, 20000.0, 49.0, 5000.0, status);
  EXPECT_GT(some, 0.3);
  EXPECT_LT(some, 0.7);
  // All drawn leaves r infinite.
  EXPECT_EQ(QVDistFun::CDFHyper(3999.0, 20000.0, 4000.0, 20000.0, status), 0.0);
  EXPECT_EQ(QVDistFun::CDFHyper(4000.0, 20000.0, 4000.0, 20000.0, status), 1.0);
}

TEST(Hypergeometric, TruncatesXAndBoundsIt) {
  int status = 9;
  EXPECT_EQ(QVDistFun::CDFHyper(1.9, 10.0, 4.0, 3.0, status),
            QVDistFun::CDFHyper(1.0, 10.0, 4.0, 3.0, status));
  EXPECT_EQ(QVDistFun::CDFHyper(-0.9, 10.0, 4.0, 3.0, status),
            QVDistFun::CDFHyper(0.0, 10.0, 4.0, 3.0, status))
      << "towards 0, not down";
  EXPECT_EQ(QVDistFun::CDFHyper(-1.0, 10.0, 4.0, 3.0, status), 0.0);
  EXPECT_EQ(QVDistFun::CDFHyper(4.0, 10.0, 8.0, 7.0, status), 0.0) << "at least five are marked";
  EXPECT_EQ(QVDistFun::CDFHyper(1e300, 10.0, 4.0, 3.0, status), 1.0);
  EXPECT_EQ(QVDistFun::CDFHyper(kInfinity, 10.0, 4.0, 3.0, status), 1.0);
  EXPECT_EQ(QVDistFun::CDFHyper(-kInfinity, 10.0, 4.0, 3.0, status), 0.0);
  EXPECT_EQ(status, 0);
}

TEST(Hypergeometric, Refusals) {
  const auto status = [](double x, double population, double k, double n) {
    int code = 9;
    EXPECT_MISSING(QVDistFun::CDFHyper(x, population, k, n, code));
    return code;
  };
  EXPECT_EQ(status(1.0, 10.5, 4.0, 3.0), 1);
  EXPECT_EQ(status(1.0, 10.0, 4.5, 3.0), 1);
  EXPECT_EQ(status(1.0, 10.0, 4.0, 3.5), 1);
  EXPECT_EQ(status(1.0, 10.0, 0.0, 3.0), 1);
  EXPECT_EQ(status(1.0, 10.0, 4.0, 0.0), 1);
  EXPECT_EQ(status(1.0, 10.0, -4.0, 3.0), 1);
  EXPECT_EQ(status(1.0, 10.0, 11.0, 3.0), 1);
  EXPECT_EQ(status(1.0, 10.0, 4.0, 11.0), 1);
  EXPECT_EQ(status(1.0, 2147483648.0, 4.0, 3.0), 1);
  EXPECT_EQ(status(1.0, kInfinity, 4.0, 3.0), 1);
  EXPECT_EQ(status(1.0, 10.0, kNaN, 3.0), 1);
  EXPECT_EQ(status(1.0, 10.0, 4.0, -1e300), 1);
  EXPECT_EQ(status(kNaN, 10.0, 4.0, 3.0), 1);
  int code = 9;
  EXPECT_EQ(QVDistFun::CDFHyper(1.0, 2147483647.0, 1.0, 3.0, code), 1.0)
      << "the largest population";
  EXPECT_EQ(code, 0);
}

TEST(HypergeometricDensity, SmallCases) {
  EXPECT_CLOSE(QVDistFun::PdfHyper(0, 10, 3, 4), 20.0 / 120.0, 4e-15);
  EXPECT_CLOSE(QVDistFun::PdfHyper(1, 10, 3, 4), 60.0 / 120.0, 4e-15);
  EXPECT_CLOSE(QVDistFun::PdfHyper(3, 10, 3, 4), 4.0 / 120.0, 4e-15);
  EXPECT_CLOSE(QVDistFun::PdfHyper(1, 2000, 40, 30), 0.33746919948666526, 1e-11);
  EXPECT_EQ(QVDistFun::PdfHyper(1, 1, 1, 1), 1.0);
}

TEST(HypergeometricDensity, OutsideItIsMissing) {
  EXPECT_MISSING(QVDistFun::PdfHyper(-1, 10, 3, 4));
  EXPECT_MISSING(QVDistFun::PdfHyper(4, 10, 3, 4));
  EXPECT_MISSING(QVDistFun::PdfHyper(4, 10, 7, 8)) << "at least five are marked";
  EXPECT_MISSING(QVDistFun::PdfHyper(0, 10, 0, 4));
  EXPECT_MISSING(QVDistFun::PdfHyper(0, 10, 3, 0));
  EXPECT_MISSING(QVDistFun::PdfHyper(0, 10, 11, 4));
  EXPECT_MISSING(QVDistFun::PdfHyper(0, 10, 3, 11));
  EXPECT_MISSING(QVDistFun::PdfHyper(0, LONG_MIN, LONG_MIN, LONG_MIN));
  EXPECT_EQ(QVDistFun::PdfHyper(0, 100000, 50000, 50000), 0.0) << "below exp(-708.39)";
}
