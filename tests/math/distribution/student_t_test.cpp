#include <cmath>

#include "QVDistFun.h"
#include "expectations.h"

using QVMath_940::QVDistFun;

namespace {

// Closed form for two degrees of freedom.
double CdfOfTwo(double t) {
  return 0.5 + t / (2.0 * std::sqrt(2.0 + t * t));
}

}  // namespace

TEST(StudentT, IsExactlyHalfAtZero) {
  EXPECT_EQ(QVDistFun::CdfT(0.0, 7.0), 0.5);
  EXPECT_EQ(QVDistFun::CdfT(-0.0, 7.0), 0.5);
  EXPECT_EQ(QVDistFun::SigT(0.0, 7.0), 0.5);
}

TEST(StudentT, OneDegreeIsTheCauchyDistribution) {
  for (double t : {-1e9, -20.0, -1.0, -0.3, 0.3, 1.0, 2.0, 20.0, 1e9}) {
    EXPECT_EQ(QVDistFun::CdfT(t, 1.0), std::atan(t) / M_PI + 0.5);
    EXPECT_EQ(QVDistFun::SigT(t, 1.0), 0.5 - std::atan(t) / M_PI);
  }
}

TEST(StudentT, TwoDegreesInEveryBranch) {
  for (double t : {-50.0, -1.5, -1.0, -0.7, -1e-3, 1e-3, 0.7, 1.0, 1.5, 50.0}) {
    EXPECT_CLOSE(QVDistFun::CdfT(t, 2.0), CdfOfTwo(t), t < -10.0 ? 1e-12 : 2e-15) << t;
    EXPECT_CLOSE(QVDistFun::SigT(t, 2.0), CdfOfTwo(-t), t > 10.0 ? 1e-12 : 2e-15) << t;
  }
}

TEST(StudentT, TheTailsMirrorEachOther) {
  for (double df : {0.3, 1.5, 10.0, 300.0}) {
    for (double t : {0.2, 1.0, 1.2, 3.0, 40.0}) {
      EXPECT_EQ(QVDistFun::SigT(t, df), QVDistFun::CdfT(-t, df)) << t << " " << df;
      EXPECT_NEAR(QVDistFun::SigT(-t, df), QVDistFun::CdfT(t, df), kEpsilon) << t << " " << df;
    }
  }
}

TEST(StudentT, AboveAHundredMillionDegreesItIsNormal) {
  EXPECT_EQ(QVDistFun::CdfT(-1.7, 1e9), QVDistFun::CdfStdNorm(-1.7));
  EXPECT_EQ(QVDistFun::CdfT(1.7, std::nextafter(1e8, 2e8)), QVDistFun::CdfStdNorm(1.7));
  EXPECT_EQ(QVDistFun::CdfT(1.7, kInfinity), QVDistFun::CdfStdNorm(1.7));
  EXPECT_EQ(QVDistFun::CdfT(0.0, 1e9), 0.5);
  EXPECT_NE(QVDistFun::CdfT(-1.7, 1e8), QVDistFun::CdfStdNorm(-1.7));
  EXPECT_CLOSE(QVDistFun::CdfT(-1.7, 1e8), QVDistFun::CdfStdNorm(-1.7), 4e-7);
  // The upper tail has no such branch.
  EXPECT_NE(QVDistFun::SigT(1.7, 1e9), QVDistFun::CdfStdNorm(-1.7));
  EXPECT_CLOSE(QVDistFun::SigT(1.7, 1e9), QVDistFun::CdfStdNorm(-1.7), 1e-5);
}

TEST(StudentT, Infinities) {
  EXPECT_EQ(QVDistFun::CdfT(kInfinity, 5.0), 1.0);
  EXPECT_EQ(QVDistFun::CdfT(-kInfinity, 5.0), 0.0);
  EXPECT_EQ(QVDistFun::SigT(kInfinity, 5.0), 0.0);
  EXPECT_EQ(QVDistFun::SigT(-kInfinity, 5.0), 1.0);
  EXPECT_MISSING(QVDistFun::SigT(1.0, kInfinity));
}

TEST(StudentT, WantsPositiveDegrees) {
  for (double df : {0.0, -0.0, -1.0, -kInfinity, kNaN}) {
    EXPECT_MISSING(QVDistFun::CdfT(1.0, df));
    EXPECT_MISSING(QVDistFun::SigT(1.0, df));
    EXPECT_MISSING(QVDistFun::SigT(0.0, df));
    long status = 0;
    EXPECT_MISSING(QVDistFun::PdfT(1.0, df, status));
    EXPECT_EQ(status, 1);
  }
  EXPECT_MISSING(QVDistFun::CdfT(kNaN, 3.0));
  EXPECT_MISSING(QVDistFun::SigT(kNaN, 3.0));
}

TEST(StudentTDensity, ClosedForms) {
  long status = 9;
  for (double t : {-30.0, -1.0, 0.0, 0.4, 3.0}) {
    EXPECT_CLOSE(QVDistFun::PdfT(t, 1.0, status), 1.0 / (M_PI * (1.0 + t * t)), 4e-15);
    EXPECT_EQ(status, 0);
    EXPECT_CLOSE(QVDistFun::PdfT(t, 2.0, status), std::pow(2.0 + t * t, -1.5), 4e-15);
  }
}

TEST(StudentTDensity, Ends) {
  long status = 9;
  EXPECT_EQ(QVDistFun::PdfT(1e200, 2.0, status), 0.0);  // below exp(-708)
  EXPECT_EQ(status, 0);
  EXPECT_EQ(QVDistFun::PdfT(kInfinity, 2.0, status), 0.0);
  EXPECT_MISSING(QVDistFun::PdfT(kNaN, 2.0, status));
  EXPECT_EQ(status, 1);
  EXPECT_MISSING(QVDistFun::PdfT(1.0, 1e307, status));  // the gamma function overflows
  EXPECT_EQ(status, 2);
  EXPECT_MISSING(QVDistFun::PdfT(1.0, kTiny, status));  // df / 2 is 0
  EXPECT_EQ(status, 2);
}
