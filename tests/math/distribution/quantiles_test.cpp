#include <array>
#include <cmath>
#include <utility>

#include "QVDistFun.h"
#include "expectations.h"
#include "math/distribution/special_functions.h"

using namespace QVMath_940;

namespace {

constexpr double kAcu = 1e-20;
constexpr double kDelta = 1e-12;

double IdfT(double p, double df) {
  return QVDistFun::IdfT(p, df, kAcu, kDelta);
}

}  // namespace

TEST(NormalQuantile, PublishedTestValues) {
  // AS 241 gives these four.
  EXPECT_NEAR(probit(0.25), -0.6744897501960817, 1e-15);
  EXPECT_NEAR(probit(0.001), -3.090232306167814, 4e-15);
  EXPECT_NEAR(probit(1e-20), -9.262340089798408, 1e-14);
  EXPECT_CLOSE(probit(5e-324), -38.46740561714435, 1e-15);
}

TEST(NormalQuantile, HalfIsExact) {
  EXPECT_EQ(QVDistFun::IdfStdNorm(0.5), 0.0);
  EXPECT_EQ(QVDistFun::IdfNorm(0.5, 3.7, 2.0), 3.7);
}

TEST(NormalQuantile, DomainIsOpen) {
  for (double p : {-1.0, 0.0, -0.0, 1.0, 2.0, kNaN, kInfinity, -kInfinity}) {
    EXPECT_MISSING(QVDistFun::IdfStdNorm(p)) << p;
    EXPECT_MISSING(QVDistFun::IdfNorm(p, 0.0, 1.0)) << p;
  }
  for (double sd : {0.0, -1.0, kNaN}) {
    EXPECT_MISSING(QVDistFun::IdfNorm(0.3, 0.0, sd)) << sd;
    EXPECT_MISSING(QVDistFun::IdfNorm(0.5, 1.0, sd)) << sd;
  }
  EXPECT_MISSING(QVDistFun::IdfNorm(0.3, kNaN, 1.0));
  EXPECT_MISSING(QVDistFun::IdfNorm(0.3, 0.0, kInfinity));
}

TEST(NormalQuantile, RoundTrip) {
  for (double p : {1e-300, 1e-100, 1e-20, 1e-5, 0.0749, 0.0751, 0.3, 0.7, 0.9249, 0.9251, 0.99999})
    EXPECT_CLOSE(QVDistFun::CdfStdNorm(QVDistFun::IdfStdNorm(p)), p, p < 1e-50 ? 1e-12 : 1e-13);
  EXPECT_CLOSE(QVDistFun::CdfNorm(QVDistFun::IdfNorm(0.1, 50.0, 7.0), 50.0, 7.0), 0.1, 1e-14);
}

TEST(BetaQuantile, ClosedForms) {
  EXPECT_EQ(QVDistFun::IdfBeta(0.3, 1.0, 1.0), 1.0 - std::exp(std::log(0.7)));
  EXPECT_EQ(QVDistFun::IdfBeta(0.5, 3.0, 3.0), 0.5);
  const double sine = std::sin(0.2 * 0.5 * 3.141592653589793);
  EXPECT_EQ(QVDistFun::IdfBeta(0.2, 0.5, 0.5), sine * sine);
  EXPECT_EQ(QVDistFun::IdfBeta(0.3, 1.0, 4.0), 1.0 - std::exp(std::log(0.7) / 4.0));
  EXPECT_EQ(QVDistFun::IdfBeta(0.3, 4.0, 1.0), std::exp(std::log(0.3) / 4.0));
  EXPECT_EQ(QVDistFun::IdfBeta(0.9, 1.0, 1e-5), 1.0);  // below exp(-708)
  EXPECT_EQ(QVDistFun::IdfBeta(0.3, 1e-5, 1.0), 0.0);
  EXPECT_EQ(QVDistFun::IdfBeta(0.3, 1e21, 2.0), 1.0);  // all the mass at 1
  EXPECT_EQ(QVDistFun::IdfBeta(0.3, 2e20, 2.0), 1.0);
}

TEST(BetaQuantile, FailureIsMinusOneButTheEndsOfPAreNot) {
  EXPECT_EQ(QVDistFun::IdfBeta(0.5, -1.0, 2.0), -1.0);
  EXPECT_EQ(QVDistFun::IdfBeta(0.5, 2.0, 0.0), -1.0);
  EXPECT_EQ(QVDistFun::IdfBeta(-0.1, 2.0, 2.0), -1.0);
  EXPECT_EQ(QVDistFun::IdfBeta(1.1, 2.0, 2.0), -1.0);
  EXPECT_EQ(QVDistFun::IdfBeta(kNaN, 2.0, 2.0), -1.0);
  EXPECT_EQ(QVDistFun::IdfBeta(0.3, kNaN, 2.0), -1.0);
  EXPECT_EQ(QVDistFun::IdfBeta(0.0, -1.0, 2.0), 0.0);
  EXPECT_EQ(QVDistFun::IdfBeta(1.0, -1.0, 2.0), 1.0);
  EXPECT_EQ(QVDistFun::IdfBeta(0.0, 3.0, 2.0), 0.0);
  EXPECT_EQ(QVDistFun::IdfBeta(1.0, 3.0, 2.0), 1.0);
}

TEST(BetaQuantile, RoundTripInEveryStart) {
  // Both shapes above 1, one below, both below.
  for (auto [a, b] :
       {std::pair{2.0, 5.0}, {40.0, 3.0}, {300.0, 700.0}, {0.5, 3.0}, {3.0, 0.7}, {0.4, 0.8}}) {
    for (double p : {0.001, 0.05, 0.3, 0.5, 0.7, 0.95, 0.999}) {
      const double x = QVDistFun::IdfBeta(p, a, b);
      if (x > 1e-5 && x < 1.0 - 1e-5) {
        EXPECT_NEAR(QVDistFun::CdfBeta(x, a, b), p, 1e-9) << p << " " << a << " " << b;
      }
    }
  }
}

TEST(BetaQuantile, LooseBoundsEndEarly) {
  const double exact = betinv(0.2, 2.0, 5.0, kAcu, kDelta);
  const double loose = betinv(0.2, 2.0, 5.0, 1e-2, 1e-2);
  EXPECT_NE(exact, loose);
  EXPECT_NEAR(exact, loose, 0.1);
  // No bound at all must still come to an end.
  EXPECT_NEAR(betinv(0.2, 2.0, 5.0, 0.0, 0.0), exact, 1e-9);
  EXPECT_NEAR(betinv(0.2, 2.0, 5.0, -1.0, -1.0), exact, 1e-9);
}

TEST(ChiSquareQuantile, EndsAndDomain) {
  EXPECT_EQ(QVDistFun::IdfChi(0.0, 5.0), 0.0);
  for (auto [p, df] : {std::pair{1.0, 5.0},
                       {-0.1, 5.0},
                       {0.5, 0.0},
                       {0.5, -1.0},
                       {kNaN, 1.0},
                       {0.5, kNaN},
                       {0.5, kInfinity},
                       {0.5, 1e62}})
    EXPECT_MISSING(QVDistFun::IdfChi(p, df)) << p << " " << df;
  long status = 9;
  zelvidfchi(1.0, 5.0, status);
  EXPECT_EQ(status, 1);
  zelvidfchi(0.5, 1e62, status);
  EXPECT_EQ(status, 2);
}

TEST(ChiSquareQuantile, TwoDegreesAreExponential) {
  for (double p : {1e-3, 0.2, 0.5, 0.9, 0.999999})
    EXPECT_CLOSE(QVDistFun::IdfChi(p, 2.0), -2.0 * std::log1p(-p), 1e-11) << p;
}

TEST(ChiSquareQuantile, RoundTripInEveryStart) {
  for (double df : {0.05, 0.2, 0.31, 0.33, 1.0, 3.0, 10.0, 100.0, 1e4, 1e6}) {
    for (double p : {1e-8, 1e-3, 0.05, 0.3, 0.5, 0.8, 0.95, 0.999, 1.0 - 1e-9}) {
      const double x = QVDistFun::IdfChi(p, df);
      if (x > 5e-7) {
        EXPECT_NEAR(QVDistFun::CdfChi(x, df), p, (df < 1e5 ? 1e-10 : 1e-9) * p) << p << " " << df;
      }
    }
  }
}

TEST(ChiSquareQuantile, Bisection) {
  long status = 9;
  const double exact = QVDistFun::IdfChi(0.3, 5.0);
  EXPECT_CLOSE(idfchb(0.3, 5.0, exact * 1.3, status), exact, 1e-8);
  EXPECT_EQ(status, 0);
  EXPECT_CLOSE(idfchb(0.3, 5.0, exact * 0.3, status), exact, 1e-8);
  EXPECT_EQ(status, 0);
  EXPECT_MISSING(idfchb(0.3, 5.0, exact * 2.1, status));
  EXPECT_EQ(status, 2);
  EXPECT_MISSING(idfchb(0.3, 5.0, exact * 0.24, status));
  EXPECT_EQ(status, 2);
  EXPECT_MISSING(idfchb(0.3, 5.0, 0.0, status));
  EXPECT_EQ(status, 1);
}

TEST(GammaQuantile, ScalesTheChiSquareQuantile) {
  EXPECT_EQ(QVDistFun::IdfGam(0.3, 2.5, 4.0), QVDistFun::IdfChi(0.3, 5.0) * 0.5 / 4.0);
  EXPECT_EQ(QVDistFun::IdfGam(0.0, 2.5, 4.0), 0.0);
  EXPECT_EQ(QVDistFun::IdfGam(0.0, 0.0, 4.0), 0.0);
  EXPECT_MISSING(QVDistFun::IdfGam(0.3, 0.0, 4.0));
  EXPECT_MISSING(QVDistFun::IdfGam(0.0, -1.0, 4.0));
  EXPECT_MISSING(QVDistFun::IdfGam(0.0, 1.0, 0.0));
  EXPECT_MISSING(QVDistFun::IdfGam(1.0, 1.0, 1.0));
  EXPECT_MISSING(QVDistFun::IdfGam(kNaN, 1.0, 1.0));
}

TEST(StudentQuantile, Values) {
  EXPECT_EQ(IdfT(0.5, 7.0), 0.0);
  EXPECT_EQ(IdfT(0.2, 1e8), probit(0.2));
  EXPECT_NE(IdfT(0.2, 99999999.0), probit(0.2));
  EXPECT_NEAR(IdfT(0.975, 10.0), 2.228138851964939, 1e-9);
  EXPECT_NEAR(IdfT(0.025, 10.0), -2.228138851964939, 1e-9);
  EXPECT_NEAR(IdfT(0.9, 1.0), std::tan(0.4 * M_PI), 1e-9);
  EXPECT_NEAR(IdfT(0.9, 2.0), 1.8856180831641267, 1e-12);
}

TEST(StudentQuantile, Domain) {
  for (double p : {0.0, 1.0, -0.5, 1.5, kNaN})
    EXPECT_MISSING(IdfT(p, 5.0)) << p;
  for (double df : {0.0, -1.0, kNaN}) {
    EXPECT_MISSING(IdfT(0.3, df)) << df;
    EXPECT_MISSING(IdfT(0.5, df)) << df;
  }
  EXPECT_MISSING(QVDistFun::IdfT(0.3, 5.0, kNaN, kDelta));
  EXPECT_MISSING(QVDistFun::IdfT(0.3, 5.0, kAcu, kNaN));
  long status = 9;
  zelvidft(1.0, 5.0, status, kAcu, kDelta);
  EXPECT_EQ(status, 1);
  zelvidft(1e-20, 2.0, status, kAcu, kDelta);  // the beta quantile rounds to 0
  EXPECT_EQ(status, 2);
}

TEST(FQuantile, Values) {
  EXPECT_EQ(QVDistFun::IdfF(0.0, 3.0, 4.0), 0.0);
  const double t = IdfT(0.975, 10.0);
  EXPECT_EQ(QVDistFun::IdfF(0.95, 1.0, 10.0), t * t);
  EXPECT_NEAR(QVDistFun::IdfF(0.95, 4.0, 10.0), 3.478049690765229, 1e-9);
  for (double p : {0.05, 0.3, 0.7, 0.95})
    EXPECT_NEAR(QVDistFun::CdfF(QVDistFun::IdfF(p, 3.0, 8.0), 3.0, 8.0), p, 1e-10);
}

TEST(FQuantile, Domain) {
  EXPECT_MISSING(QVDistFun::IdfF(1.0, 3.0, 4.0));
  EXPECT_MISSING(QVDistFun::IdfF(-0.1, 3.0, 4.0));
  EXPECT_MISSING(QVDistFun::IdfF(0.0, 0.0, 4.0));
  EXPECT_MISSING(QVDistFun::IdfF(0.5, 3.0, 0.0));
  EXPECT_MISSING(QVDistFun::IdfF(kNaN, 3.0, 4.0));
  long status = 9;
  zelvidff(0.5, 0.0, 4.0, status);
  EXPECT_EQ(status, 1);
  zelvidff(0.5, 1e23, 4.0, status);  // the beta quantile is 1
  EXPECT_EQ(status, 2);
}

TEST(BinomialQuantile, Ends) {
  long s = 9;
  EXPECT_EQ(QVDistFun::IdfBin(0.0, 10.0, 0.3, s), -1.0);
  EXPECT_EQ(s, 0);
  EXPECT_EQ(QVDistFun::IdfBin(0.0, 10.0, 1.0, s), 9.0);
  EXPECT_EQ(QVDistFun::IdfBin(1.0, 10.0, 0.3, s), 10.0);
  EXPECT_EQ(QVDistFun::IdfBin(1.0, 10.0, 0.0, s), 0.0);
  EXPECT_EQ(QVDistFun::IdfBin(0.4, 10.0, 1.0, s), 9.0);
  EXPECT_EQ(QVDistFun::IdfBin(0.4, 10.0, 0.0, s), -1.0);
}

TEST(BinomialQuantile, StatusTellsAFractionFromTheRest) {
  long s = 9;
  EXPECT_MISSING(QVDistFun::IdfBin(2.0, 10.5, 2.0, s));
  EXPECT_EQ(s, 1);
  EXPECT_MISSING(QVDistFun::IdfBin(0.5, kNaN, 0.5, s));
  EXPECT_EQ(s, 1);
  EXPECT_MISSING(QVDistFun::IdfBin(0.5, kInfinity, 0.5, s));
  EXPECT_EQ(s, 1);
  for (auto [p, n, q] : {std::array{0.5, 0.0, 0.5},
                         {0.5, 10.0, -0.1},
                         {0.5, 10.0, 1.1},
                         {-0.1, 10.0, 0.5},
                         {1.1, 10.0, 0.5},
                         {kNaN, 10.0, 0.5},
                         {0.5, 10.0, kNaN}}) {
    EXPECT_MISSING(QVDistFun::IdfBin(p, n, q, s));
    EXPECT_EQ(s, 2);
  }
}

TEST(BinomialQuantile, LargestCountThatDoesNotExceedP) {
  for (double n : {1.0, 5.0, 30.0, 200.0}) {
    for (double q : {0.01, 0.3, 0.5, 0.9}) {
      for (double p : {0.001, 0.1, 0.37, 0.5, 0.8, 0.99}) {
        long s = 9;
        const double k = QVDistFun::IdfBin(p, n, q, s);
        ASSERT_EQ(s, 0);
        const double below = k < 0.0 ? 0.0 : QVDistFun::CdfBin(k, n, q, s);
        // From a start above 0 the walk down ends at 0.
        if (k != 0.0) {
          EXPECT_LE(below, p + 1e-12) << n << " " << q << " " << p;
        }
        EXPECT_GT(QVDistFun::CdfBin(k + 1.0, n, q, s), p - 1e-12) << n << " " << q << " " << p;
      }
    }
  }
}

TEST(BinomialQuantile, BelowTheFirstProbabilityTheStartDecides) {
  long s = 9;
  EXPECT_EQ(QVDistFun::IdfBin(0.1, 2.0, 0.3, s), -1.0);     // start 0, P(X <= 0) = 0.49
  EXPECT_EQ(QVDistFun::IdfBin(0.026, 10.0, 0.3, s), -1.0);  // start 0, P(X <= 0) = 0.028
  EXPECT_EQ(QVDistFun::IdfBin(0.36, 100.0, 0.01, s), -1.0);
}
