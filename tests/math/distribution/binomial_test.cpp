#include <cmath>

#include "QVDistFun.h"
#include "expectations.h"

using QVMath_940::QVDistFun;

namespace {

// P(X = k) for small n, by Pascal's triangle.
double Term(int k, int n, double p) {
  double choose = 1.0;
  for (int i = 1; i <= k; ++i)
    choose = choose * (n - k + i) / i;
  return choose * std::pow(p, k) * std::pow(1.0 - p, n - k);
}

double Sum(int k, int n, double p) {
  double sum = 0.0;
  for (int i = 0; i <= k; ++i)
    sum += Term(i, n, p);
  return sum;
}

}  // namespace

TEST(Binomial, SmallCasesOnBothSidesOfTheMode) {
  for (int n : {1, 2, 5, 20}) {
    for (double p : {0.05, 0.3, 0.5, 0.97}) {
      for (int k = 0; k < n; ++k) {
        long status = 9;
        EXPECT_CLOSE(QVDistFun::CdfBin(k, n, p, status), Sum(k, n, p), 4e-14)
            << k << " " << n << " " << p;
        EXPECT_EQ(status, 0);
      }
    }
  }
}

TEST(Binomial, FloorsX) {
  long status = 0;
  EXPECT_EQ(QVDistFun::CdfBin(2.7, 5.0, 0.3, status), QVDistFun::CdfBin(2.0, 5.0, 0.3, status));
  EXPECT_EQ(QVDistFun::CdfBin(-0.5, 5.0, 0.3, status), 0.0);
  EXPECT_EQ(QVDistFun::CdfBin(4.999, 5.0, 0.3, status), QVDistFun::CdfBin(4.0, 5.0, 0.3, status));
}

TEST(Binomial, RefusesInOrder) {
  long status = 0;
  EXPECT_MISSING(QVDistFun::CdfBin(1.0, 5.5, 0.3, status));
  EXPECT_EQ(status, 3);
  EXPECT_MISSING(QVDistFun::CdfBin(1.0, 5.5, -0.3, status));
  EXPECT_EQ(status, 3) << "a fractional n is found before a bad p";
  for (double n : {kNaN, kInfinity, -kInfinity}) {
    EXPECT_MISSING(QVDistFun::CdfBin(1.0, n, 0.3, status));
    EXPECT_EQ(status, 3);
  }
  for (double n : {0.0, -3.0, QVCommon_940::QVMV::Missing()}) {
    EXPECT_MISSING(QVDistFun::CdfBin(1.0, n, 0.3, status));
    EXPECT_EQ(status, 1);
  }
  for (double p : {-1e-300, 1.0 + kEpsilon, kNaN, kInfinity}) {
    EXPECT_MISSING(QVDistFun::CdfBin(1.0, 5.0, p, status));
    EXPECT_EQ(status, 1);
  }
  EXPECT_MISSING(QVDistFun::CdfBin(kNaN, 5.0, 0.3, status));
  EXPECT_EQ(status, 1);
}

TEST(Binomial, Edges) {
  long status = 9;
  EXPECT_EQ(QVDistFun::CdfBin(-1.0, 5.0, 0.0, status), 0.0);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(QVDistFun::CdfBin(0.0, 5.0, 0.0, status), 1.0);
  EXPECT_EQ(QVDistFun::CdfBin(4.0, 5.0, 1.0, status), 0.0);
  EXPECT_EQ(QVDistFun::CdfBin(5.0, 5.0, 1.0, status), 1.0);
  EXPECT_EQ(QVDistFun::CdfBin(5.0, 5.0, 0.4, status), 1.0);
  EXPECT_EQ(QVDistFun::CdfBin(kInfinity, 5.0, 0.4, status), 1.0);
  EXPECT_EQ(QVDistFun::CdfBin(-kInfinity, 5.0, 0.4, status), 0.0);
  EXPECT_EQ(QVDistFun::CdfBin(0.0, 5.0, 0.4, status), std::exp(5.0 * std::log(0.6)));
  EXPECT_EQ(QVDistFun::CdfBin(0.0, 1e6, 0.4, status), 0.0);
}

TEST(Binomial, NormalApproximationWhereTheFirstTermUnderflows) {
  // ln P(X = 7364) is -708.27 for 20000 trials, ln P(X = 7365) is -707.73. Sums: mpmath, 60 digits.
  long status = 9;
  EXPECT_CLOSE(QVDistFun::CdfBin(7365.0, 20000.0, 0.5, status), 1.0376023570684503017e-307, 1e-10);
  const double approximate = QVDistFun::CdfBin(7364.0, 20000.0, 0.5, status);
  EXPECT_CLOSE(approximate, 6.0459405644365618873e-308, 1e-4);
  EXPECT_EQ(status, 0);

  const double k = 7364.0;
  const double n = 20000.0;
  const double p = 0.5;
  const double d = 0.5 / n + (k / n - p) + 1.0 - 1.0;
  const double g = d + p;
  const double w = (1.0 - g) * std::log((1.0 - g) / p) + g * std::log(g / p);
  const double h = ((p / (k + 1.0) - p / (n - k) + (0.5 - p) / (n + 1.0)) / (50.0 * n) +
                    (2.0 - p) / (3.0 * n) + (k / n - p)) /
                   std::fabs(d);
  const double z = h * std::sqrt(2.0 * w) * (n / std::sqrt(n + 1.0 / 6.0));
  EXPECT_EQ(approximate, QVDistFun::CdfStdNorm(z));

  EXPECT_EQ(QVDistFun::CdfBin(1000.0, 20000.0, 0.5, status), 0.0);
  EXPECT_EQ(QVDistFun::CdfBin(19000.0, 20000.0, 0.5, status), 1.0);
  EXPECT_EQ(status, 0);
}

TEST(Binomial, HugeCountsEndAndStayNearTheNormalDistribution) {
  for (double n : {1e9, 1e12, 1e14, 1e15, 1e17, 1e20, 1e100, 1e300}) {
    long status = 9;
    const double result = QVDistFun::CdfBin(n / 2.0, n, 0.5, status);
    EXPECT_EQ(status, 0) << n;
    EXPECT_GE(result, 0.0) << n;
    EXPECT_LE(result, 1.0) << n;
    if (n <= 1e12) {
      EXPECT_NEAR(result, 0.5, 0.01) << n;
    }
  }
  long status = 0;
  EXPECT_MISSING(QVDistFun::CdfBin(5e305, 1e306, 0.5, status));
  EXPECT_EQ(status, 2);
}

TEST(BinomialDensity, SmallCases) {
  for (int n : {1, 2, 5, 33, 34}) {
    for (double p : {0.05, 0.5, 0.97}) {
      for (int k = 0; k <= n; ++k) {
        long status = 9;
        EXPECT_CLOSE(QVDistFun::PdfBin(k, n, p, status), Term(k, n, p), 4e-14) << k << " " << n;
        EXPECT_EQ(status, 0);
      }
    }
  }
}

TEST(BinomialDensity, Edges) {
  long status = 9;
  EXPECT_EQ(QVDistFun::PdfBin(1.5, 5.0, 0.3, status), 0.0);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(QVDistFun::PdfBin(-1.0, 5.0, 0.3, status), 0.0);
  EXPECT_EQ(QVDistFun::PdfBin(6.0, 5.0, 0.3, status), 0.0);
  EXPECT_EQ(QVDistFun::PdfBin(kInfinity, 5.0, 0.3, status), 0.0);
  EXPECT_EQ(QVDistFun::PdfBin(0.0, 5.0, 0.0, status), 1.0);
  EXPECT_EQ(QVDistFun::PdfBin(1.0, 5.0, 0.0, status), 0.0);
  EXPECT_EQ(QVDistFun::PdfBin(5.0, 5.0, 1.0, status), 1.0);
  EXPECT_EQ(QVDistFun::PdfBin(4.0, 5.0, 1.0, status), 0.0);
  EXPECT_EQ(QVDistFun::PdfBin(5.0, 5.0, 0.3, status), std::pow(0.3, 5.0));
  EXPECT_EQ(QVDistFun::PdfBin(0.0, 5.0, 0.3, status), std::pow(0.7, 5.0));
  EXPECT_EQ(QVDistFun::PdfBin(1.0, 1e6, 0.5, status), 0.0) << "below exp(-708)";
  EXPECT_GT(QVDistFun::PdfBin(2.0, 5.5, 0.3, status), 0.0) << "n may be fractional";
  EXPECT_EQ(status, 0);
  // x + 0.5 is rounded to the even neighbour from 2^52 on: odd numbers do not count as whole.
  const double odd = 4503599627370497.0;
  EXPECT_EQ(QVDistFun::PdfBin(odd, odd, 0.9, status), 0.0);
  EXPECT_EQ(QVDistFun::PdfBin(odd - 1.0, odd - 1.0, 1.0, status), 1.0);
}

TEST(BinomialDensity, Refusals) {
  long status = 9;
  for (double n : {0.0, 0.5, -1.0, kNaN}) {
    EXPECT_MISSING(QVDistFun::PdfBin(1.0, n, 0.3, status));
    EXPECT_EQ(status, 1);
  }
  for (double p : {-0.1, 1.1, kNaN}) {
    EXPECT_MISSING(QVDistFun::PdfBin(1.0, 5.0, p, status));
    EXPECT_EQ(status, 1);
  }
  EXPECT_MISSING(QVDistFun::PdfBin(kNaN, 5.0, 0.3, status));
  EXPECT_EQ(status, 1);
  EXPECT_MISSING(QVDistFun::PdfBin(5.0, 1e307, 0.3, status));
  EXPECT_EQ(status, 2);
}

TEST(NegativeBinomial, FollowsItsFormulas) {
  long status = 9;
  const double p = 0.3;
  EXPECT_EQ(QVDistFun::PdfNegBin(1.0, 1.0, p, status), (1.0 - p) * p);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(QVDistFun::PdfNegBin(1.0, 2.5, p, status), std::pow(p, 2.5) * (1.0 - p) * 2.5);
  EXPECT_EQ(QVDistFun::PdfNegBin(7.0, 1.0, p, status), std::pow(1.0 - p, 7.0) * p);
  EXPECT_EQ(QVDistFun::PdfNegBin(0.0, 1.0, p, status), p);
  EXPECT_EQ(QVDistFun::PdfNegBin(0.0, 2.5, p, status), std::pow(p, 2.5));
  // C(x + r - 1, x) p^r (1 - p)^x with x = 4, r = 3
  EXPECT_CLOSE(QVDistFun::PdfNegBin(4.0, 3.0, p, status), 15.0 * p * p * p * std::pow(0.7, 4.0),
               1e-14);
  double sum = 0.0;
  for (int x = 0; x < 400; ++x)
    sum += QVDistFun::PdfNegBin(x, 6.25, p, status);
  EXPECT_NEAR(sum, 1.0, 1e-13);
}

TEST(NegativeBinomial, Edges) {
  long status = 9;
  EXPECT_EQ(QVDistFun::PdfNegBin(1.5, 3.0, 0.3, status), 0.0);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(QVDistFun::PdfNegBin(-1.0, 3.0, 0.3, status), 0.0);
  EXPECT_EQ(QVDistFun::PdfNegBin(0.0, 3.0, 1.0, status), 1.0);
  EXPECT_EQ(QVDistFun::PdfNegBin(2.0, 3.0, 1.0, status), 0.0);
  EXPECT_EQ(QVDistFun::PdfNegBin(kInfinity, 3.0, 0.3, status), 0.0);
  EXPECT_EQ(QVDistFun::PdfNegBin(5000.0, 3.0, 0.3, status), 0.0);
  EXPECT_EQ(status, 0);
}

TEST(NegativeBinomial, FewSuccessesHaveNoCoefficient) {
  long status = 9;
  EXPECT_EQ(QVDistFun::PdfNegBin(0.0, 0.5, 0.3, status), std::pow(0.3, 0.5));
  EXPECT_EQ(QVDistFun::PdfNegBin(1.0, 0.5, 0.3, status), std::pow(0.3, 0.5) * 0.7 * 0.5);
  EXPECT_EQ(status, 0);
  for (double r : {0.0, 0.5, 0.99}) {
    EXPECT_MISSING(QVDistFun::PdfNegBin(2.0, r, 0.3, status));
    EXPECT_EQ(status, 2);
  }
  EXPECT_EQ(QVDistFun::PdfNegBin(0.0, 0.0, 0.3, status), 1.0);
  EXPECT_EQ(QVDistFun::PdfNegBin(1.0, 0.0, 0.3, status), 0.0);
  EXPECT_EQ(status, 0);
}

TEST(NegativeBinomial, Refusals) {
  long status = 9;
  for (double p : {0.0, -0.1, 1.1, kNaN}) {
    EXPECT_MISSING(QVDistFun::PdfNegBin(1.0, 2.0, p, status));
    EXPECT_EQ(status, 1);
  }
  for (double r : {-1e-300, -1.0, kNaN}) {
    EXPECT_MISSING(QVDistFun::PdfNegBin(1.0, r, 0.3, status));
    EXPECT_EQ(status, 1);
  }
  EXPECT_MISSING(QVDistFun::PdfNegBin(kNaN, 2.0, 0.3, status));
  EXPECT_EQ(status, 1);
  EXPECT_MISSING(QVDistFun::PdfNegBin(3.0, 1e307, 0.3, status));
  EXPECT_EQ(status, 2);
}
