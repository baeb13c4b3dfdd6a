#include <cmath>
#include <vector>

#include "QVDistFun.h"
#include "expectations.h"
#include "math/distribution/special_functions.h"

using namespace QVMath_940;

namespace {

constexpr double kTol = 1e-12;

// P(X <= x) for a non-central chi-square variable as the plain sum over all Poisson weights.
double PlainChi(double x, double df, double nc) {
  double sum = 0.0;
  for (int j = 0; j < 2000; ++j) {
    const double w = std::exp(-nc / 2.0 + j * std::log(nc / 2.0) - std::lgamma(j + 1.0));
    sum += w * QVDistFun::CdfChi(x, df + 2.0 * j);
  }
  return sum;
}

double PlainF(double x, double df1, double df2, double nc) {
  double sum = 0.0;
  const double y = x * df1 / (x * df1 + df2);
  for (int j = 0; j < 2000; ++j) {
    const double w = std::exp(-nc / 2.0 + j * std::log(nc / 2.0) - std::lgamma(j + 1.0));
    sum += w * QVDistFun::CdfBeta(y, df1 / 2.0 + j, df2 / 2.0);
  }
  return sum;
}

// P((Z + delta) / sqrt(chi2 / df) <= t) by the midpoint rule over s = sqrt(chi2 / df).
double PlainT(double t, double df, double delta) {
  const double logFactor = std::log(2.0) + df / 2.0 * std::log(df / 2.0) - std::lgamma(df / 2.0);
  const int count = 40000;
  const double top = 8.0;
  double sum = 0.0;
  for (int i = 0; i < count; ++i) {
    const double s = top * (i + 0.5) / count;
    const double density = std::exp(logFactor + (df - 1.0) * std::log(s) - df * s * s / 2.0);
    sum += density * QVDistFun::CdfStdNorm(t * s - delta);
  }
  return sum * top / count;
}

double Density(double t, double df, double delta) {
  long status = 9;
  const double result = QVDistFun::NonCentralPdfT(t, df, delta, status);
  EXPECT_EQ(status, 0);
  return result;
}

}  // namespace

TEST(NonCentralChi, EqualsThePlainSum) {
  for (double df : {0.5, 1.0, 4.0, 30.0}) {
    for (double nc : {0.1, 3.0, 50.0, 400.0}) {
      for (double factor : {0.3, 0.8, 1.0, 1.3}) {
        const double x = (df + nc) * factor;
        EXPECT_NEAR(QVDistFun::NonCentralCdfChi(x, df, nc), PlainChi(x, df, nc), 5e-12);
      }
    }
  }
}

TEST(NonCentralChi, WithoutNonCentralityItIsCentral) {
  for (double x : {0.1, 2.0, 9.0})
    EXPECT_NEAR(QVDistFun::NonCentralCdfChi(x, 3.0, 0.0), QVDistFun::CdfChi(x, 3.0), 1e-15);
}

TEST(NonCentralChi, Domain) {
  EXPECT_MISSING(QVDistFun::NonCentralCdfChi(1.0, 0.0, 1.0));
  EXPECT_MISSING(QVDistFun::NonCentralCdfChi(1.0, 2.0, -1.0));
  EXPECT_MISSING(QVDistFun::NonCentralCdfChi(-1.0, 2.0, -1.0));
  EXPECT_MISSING(QVDistFun::NonCentralCdfChi(kNaN, 2.0, 1.0));
  EXPECT_EQ(QVDistFun::NonCentralCdfChi(0.0, 2.0, 1.0), 0.0);
  EXPECT_EQ(QVDistFun::NonCentralCdfChi(-3.0, 2.0, 1.0), 0.0);
  EXPECT_EQ(QVDistFun::NonCentralCdfChi(kInfinity, 2.0, 1.0), 1.0);
  // The weights span more than 60000 terms.
  EXPECT_MISSING(QVDistFun::NonCentralCdfChi(1e8, 2.0, 1e8));
}

TEST(NonCentralF, EqualsThePlainSum) {
  for (double df1 : {1.0, 4.0, 30.0}) {
    for (double df2 : {2.0, 25.0}) {
      for (double nc : {0.1, 3.0, 50.0, 400.0}) {
        for (double factor : {0.3, 1.0, 2.0}) {
          const double x = (1.0 + nc / df1) * factor;
          EXPECT_NEAR(QVDistFun::NonCentralCdfF(x, df1, df2, nc, kTol), PlainF(x, df1, df2, nc),
                      1e-11);
        }
      }
    }
  }
}

TEST(NonCentralF, Domain) {
  EXPECT_MISSING(QVDistFun::NonCentralCdfF(1.0, 0.0, 3.0, 1.0, kTol));
  EXPECT_MISSING(QVDistFun::NonCentralCdfF(1.0, 3.0, 0.0, 1.0, kTol));
  EXPECT_MISSING(QVDistFun::NonCentralCdfF(0.0, 3.0, 3.0, -1.0, kTol));
  EXPECT_MISSING(QVDistFun::NonCentralCdfF(1.0, 3.0, 3.0, 1.0, kNaN));
  EXPECT_EQ(QVDistFun::NonCentralCdfF(0.0, 3.0, 3.0, 1.0, kTol), 0.0);
  EXPECT_NEAR(QVDistFun::NonCentralCdfF(2.0, 3.0, 8.0, 0.0, kTol), QVDistFun::CdfF(2.0, 3.0, 8.0),
              1e-14);
}

TEST(NonCentralBeta, EndsAndStatus) {
  long status = 9;
  EXPECT_EQ(ncdbet(0.0, 2.0, 3.0, 1.0, status, kTol), 0.0);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(ncdbet(1.0, 2.0, 3.0, 1.0, status, kTol), 1.0);
  EXPECT_EQ(ncdbet(0.4, 2.0, 3.0, 0.0, status, kTol), cdfbet(0.4, 2.0, 3.0, status));
  EXPECT_MISSING(ncdbet(0.0, 0.0, 3.0, 1.0, status, kTol));
  EXPECT_EQ(status, 1);
  EXPECT_MISSING(ncdbet(0.4, 2.0, 3.0, -1.0, status, kTol));
  EXPECT_EQ(status, 1);
  // A bound of 1 is met by the first term alone.
  EXPECT_CLOSE(ncdbet(0.4, 2.0, 3.0, 2.0, status, 1.0),
               std::exp(-1.0) * cdfbet(0.4, 2.0, 3.0, status), 1e-15);
  EXPECT_MISSING(ncdbet(0.4, 2.0, 3.0, 1.0, status, -1.0));  // never met
  EXPECT_EQ(status, 2);
}

TEST(NonCentralT, EqualsTheIntegral) {
  for (double df : {3.0, 10.0, 40.0}) {
    for (double delta : {-4.0, -0.5, 0.3, 2.0, 8.0}) {
      for (double t : {-6.0, -1.0, 0.4, 2.0, 9.0}) {
        EXPECT_NEAR(QVDistFun::NonCentralCdfT(t, df, delta, kTol), PlainT(t, df, delta), 1e-7)
            << t << " " << df << " " << delta;
      }
    }
  }
}

TEST(NonCentralT, SpecialArguments) {
  EXPECT_EQ(QVDistFun::NonCentralCdfT(0.0, 10.0, 1.5, kTol), QVDistFun::CdfStdNorm(-1.5));
  EXPECT_EQ(QVDistFun::NonCentralCdfT(1.3, 10.0, 0.0, kTol), QVDistFun::CdfT(1.3, 10.0));
  EXPECT_EQ(QVDistFun::NonCentralCdfT(1e160, 10.0, 1.5, kTol), 1.0);
  EXPECT_EQ(QVDistFun::NonCentralCdfT(-1e160, 10.0, 1.5, kTol), 0.0);
  EXPECT_EQ(QVDistFun::NonCentralCdfT(kInfinity, 10.0, 1.5, kTol), 1.0);
  EXPECT_MISSING(QVDistFun::NonCentralCdfT(1e-170, 10.0, 1.5, kTol));  // t*t is 0
  EXPECT_MISSING(QVDistFun::NonCentralCdfT(1.0, 0.0, 1.5, kTol));
  EXPECT_MISSING(QVDistFun::NonCentralCdfT(1.0, kNaN, 1.5, kTol));
  EXPECT_MISSING(QVDistFun::NonCentralCdfT(1.0, 3.0, 1.5, kNaN));
  EXPECT_MISSING(QVDistFun::NonCentralCdfT(1.0, 3.0, 1.5, -1.0));  // never met
  EXPECT_MISSING(QVDistFun::NonCentralCdfT(5e4, 3.0, 5e4, kTol));  // too many terms
}

TEST(NonCentralT, SignsMirror) {
  for (double t : {0.5, 2.0, 7.0}) {
    EXPECT_NEAR(QVDistFun::NonCentralCdfT(t, 6.0, 1.2, kTol),
                1.0 - QVDistFun::NonCentralCdfT(-t, 6.0, -1.2, kTol), 1e-14);
  }
}

TEST(NonCentralTDensity, IsTheSlopeOfTheCumulativeFunction) {
  const double h = 1e-4;
  for (double df : {2.0, 10.0, 60.0}) {
    for (double delta : {-3.0, -0.4, 1.0, 5.0}) {
      for (double t : {-4.0, -0.7, 0.3, 2.0, 6.0}) {
        const double slope = (QVDistFun::NonCentralCdfT(t + h, df, delta, 1e-15) -
                              QVDistFun::NonCentralCdfT(t - h, df, delta, 1e-15)) /
                             (2.0 * h);
        EXPECT_NEAR(Density(t, df, delta), slope, 3e-8) << t << " " << df << " " << delta;
      }
    }
  }
}

TEST(NonCentralTDensity, SpecialArguments) {
  long s = 9;
  EXPECT_EQ(Density(1.3, 7.0, 0.0), QVDistFun::PdfT(1.3, 7.0, s));
  EXPECT_NEAR(Density(0.0, 7.0, 1.5), Density(1e-9, 7.0, 1.5), 1e-8);
  EXPECT_EQ(Density(0.0, 7.0, 50.0), 0.0);  // below exp(-708)
  EXPECT_EQ(Density(kInfinity, 7.0, 1.0), 0.0);
  EXPECT_MISSING(QVDistFun::NonCentralPdfT(1.0, 0.0, 1.0, s));
  EXPECT_EQ(s, 1);
  EXPECT_MISSING(QVDistFun::NonCentralPdfT(kNaN, 3.0, 1.0, s));
  EXPECT_EQ(s, 1);
  EXPECT_MISSING(QVDistFun::NonCentralPdfT(1e9, 3.0, 1e9, s));  // the largest term's index
  EXPECT_EQ(s, 2);
}

TEST(NonCentralityParameter, OfChiGivesBackItsP) {
  for (double x : {0.5, 10.0, 80.0}) {
    for (double df : {1.0, 4.0}) {
      for (double p : {0.01, 0.2, 0.6}) {
        const double nc = QVDistFun::FindNCParamChi(x, df, p, 1e-10);
        ASSERT_GE(nc, 0.0);
        if (nc > 0.0) {
          EXPECT_NEAR(QVDistFun::NonCentralCdfChi(x, df, nc), p, 1e-10);
        } else {
          EXPECT_LE(QVDistFun::CdfChi(x, df), p);
        }
      }
    }
  }
}

TEST(NonCentralityParameter, OfFGivesBackItsP) {
  for (double x : {0.5, 3.0, 40.0}) {
    for (double p : {0.01, 0.1, 0.3}) {
      const double nc = QVDistFun::FindNCParamF(x, 3.0, 20.0, p, 1e-10);
      ASSERT_GE(nc, 0.0);
      if (nc > 0.0) {
        EXPECT_NEAR(QVDistFun::NonCentralCdfF(x, 3.0, 20.0, nc, 1e-10), p, 1e-9);
      }
    }
  }
}

TEST(NonCentralityParameter, OfTGivesBackItsPWithEitherSign) {
  for (double t : {0.0, 0.3, 2.0, 30.0}) {
    for (double p : {0.001, 0.1, 0.5, 0.9, 0.999}) {
      const double delta = QVDistFun::FindNCParamT(t, 12.0, p, 1e-10, 1e-12);
      EXPECT_NEAR(QVDistFun::NonCentralCdfT(t, 12.0, delta, 1e-12), p, 2e-10) << t << " " << p;
    }
  }
  EXPECT_LT(QVDistFun::FindNCParamT(1.0, 12.0, 0.99, 1e-9, 1e-12), 0.0);
}

TEST(NonCentralityParameter, ZeroWhenTheCentralFunctionIsThereAlready) {
  EXPECT_EQ(QVDistFun::FindNCParamChi(10.0, 4.0, 0.99, 1e-6), 0.0);
  EXPECT_EQ(QVDistFun::FindNCParamF(1.0, 4.0, 9.0, 0.99, 1e-6), 0.0);
  EXPECT_EQ(QVDistFun::FindNCParamT(0.0, 4.0, 0.5, 1e-6, 1e-12), 0.0);
  EXPECT_EQ(QVDistFun::FindNCParamChi(-1.0, 4.0, 0.0, 1e-6), 0.0);
}

TEST(NonCentralityParameter, Refusals) {
  for (double bad : {-0.1, 1.1, kNaN}) {
    EXPECT_MISSING(QVDistFun::FindNCParamChi(10.0, 4.0, bad, 1e-6));
    EXPECT_MISSING(QVDistFun::FindNCParamF(10.0, 4.0, 4.0, bad, 1e-6));
    EXPECT_MISSING(QVDistFun::FindNCParamT(1.0, 4.0, bad, 1e-6, 1e-12));
  }
  for (double bad : {0.0, -1.0, kNaN}) {
    EXPECT_MISSING(QVDistFun::FindNCParamChi(10.0, bad, 0.1, 1e-6));
    EXPECT_MISSING(QVDistFun::FindNCParamF(10.0, bad, 4.0, 0.1, 1e-6));
    EXPECT_MISSING(QVDistFun::FindNCParamF(10.0, 4.0, bad, 0.1, 1e-6));
    EXPECT_MISSING(QVDistFun::FindNCParamT(1.0, bad, 0.1, 1e-6, 1e-12));
  }
  EXPECT_MISSING(QVDistFun::FindNCParamChi(10.0, 4.0, 0.1, -1e-6));
  EXPECT_MISSING(QVDistFun::FindNCParamF(10.0, 4.0, 4.0, 0.1, -1e-6));
  EXPECT_MISSING(QVDistFun::FindNCParamT(1.0, 4.0, 0.1, -1e-6, 1e-12));
  EXPECT_MISSING(QVDistFun::FindNCParamT(-1.0, 4.0, 0.1, 1e-6, 1e-12));
}

TEST(NonCentralityParameter, AToleranceOfZeroEndsAtNeighbouringNumbers) {
  const double nc = QVDistFun::FindNCParamChi(10.0, 4.0, 0.2, 0.0);
  EXPECT_NEAR(QVDistFun::NonCentralCdfChi(10.0, 4.0, nc), 0.2, 1e-13);
  EXPECT_MISSING(QVDistFun::FindNCParamF(10.0, 4.0, 4.0, 0.2, 0.0));  // the cdf never meets it
}
