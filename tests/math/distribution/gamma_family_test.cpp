#include <cmath>

#include "QVDistFun.h"
#include "expectations.h"

using QVMath_940::QVDistFun;

TEST(ChiSquare, ClosedFormForTwoAndFourDegrees) {
  for (double x : {1e-5, 0.3, 1.0, 2.0, 7.0, 60.0, 1400.0}) {
    EXPECT_EQ(QVDistFun::SigChi(x, 2.0), std::exp(-x / 2.0));
    EXPECT_EQ(QVDistFun::CdfChi(x, 2.0), 1.0 - std::exp(-x / 2.0));
    EXPECT_CLOSE(QVDistFun::SigChi(x, 4.0), std::exp(-x / 2.0) * (1.0 + x / 2.0), 1e-12) << x;
  }
}

TEST(ChiSquare, OneDegreeIsASquaredNormal) {
  for (double z : {0.01, 0.5, 1.0, 2.0, 6.0, 30.0})
    EXPECT_CLOSE(QVDistFun::SigChi(z * z, 1.0), 2.0 * QVDistFun::CdfStdNorm(-z), 1e-12) << z;
}

TEST(ChiSquare, Edges) {
  EXPECT_EQ(QVDistFun::CdfChi(0.0, 3.0), 0.0);
  EXPECT_EQ(QVDistFun::SigChi(0.0, 3.0), 1.0);
  EXPECT_EQ(QVDistFun::CdfChi(-4.0, 3.0), 0.0);
  EXPECT_EQ(QVDistFun::SigChi(-4.0, 3.0), 1.0);
  EXPECT_EQ(QVDistFun::CdfChi(kInfinity, 3.0), 1.0);
  EXPECT_EQ(QVDistFun::SigChi(kInfinity, 3.0), 0.0);
  EXPECT_EQ(QVDistFun::CdfChi(3.0, kInfinity), 0.0);
  EXPECT_EQ(QVDistFun::SigChi(3.0, kInfinity), 1.0);
  EXPECT_EQ(QVDistFun::SigChi(1420.0, 2.0), 0.0) << "below exp(-708)";
}

TEST(ChiSquare, WantsPositiveDegrees) {
  for (double df : {0.0, -1.0, kNaN, -kInfinity}) {
    EXPECT_MISSING(QVDistFun::CdfChi(1.0, df));
    EXPECT_MISSING(QVDistFun::SigChi(1.0, df));
    EXPECT_MISSING(QVDistFun::CdfChi(-1.0, df)) << "degrees are tested before x";
  }
  EXPECT_MISSING(QVDistFun::CdfChi(kNaN, 1.0));
  EXPECT_MISSING(QVDistFun::SigChi(kNaN, 1.0));
  EXPECT_MISSING(QVDistFun::CdfChi(kInfinity, kInfinity));
}

TEST(Gamma, IsChiSquareRescaled) {
  for (double x : {0.2, 1.0, 3.0, 20.0})
    EXPECT_EQ(QVDistFun::CdfGam(x, 2.5, 0.5), QVDistFun::CdfChi(x, 5.0));
}

TEST(Gamma, ShapeOneIsExponentialDownToItsOwnBound) {
  EXPECT_EQ(QVDistFun::CdfGam(2.0, 1.0, 0.7), 1.0 - std::exp(-2.0 * 0.7));
  EXPECT_EQ(QVDistFun::CdfGam(1e6, 1.0, 1.0), 1.0);
  EXPECT_EQ(QVDistFun::CdfGam(kInfinity, 1.0, 1.0), 1.0);
  EXPECT_EQ(QVDistFun::CdfGam(kTiny, 1.0, 1e-10), 0.0);
}

TEST(Gamma, Domain) {
  EXPECT_EQ(QVDistFun::CdfGam(0.0, 2.0, 1.0), 0.0);
  EXPECT_EQ(QVDistFun::CdfGam(-1.0, 2.0, 1.0), 0.0);
  for (double bad : {0.0, -1.0, kNaN, -kInfinity}) {
    EXPECT_MISSING(QVDistFun::CdfGam(1.0, bad, 1.0));
    EXPECT_MISSING(QVDistFun::CdfGam(1.0, 1.0, bad));
    EXPECT_MISSING(QVDistFun::CdfGam(-1.0, bad, 1.0));
    EXPECT_MISSING(QVDistFun::PdfGamma(1.0, bad, 1.0));
    EXPECT_MISSING(QVDistFun::PdfGamma(1.0, 1.0, bad));
    EXPECT_MISSING(QVDistFun::PdfGamma(-1.0, 1.0, bad));
  }
  EXPECT_MISSING(QVDistFun::CdfGam(kNaN, 1.0, 1.0));
  EXPECT_MISSING(QVDistFun::PdfGamma(kNaN, 1.0, 1.0));
}

TEST(GammaDensity, FollowsItsFormula) {
  // shape 3: rate^3 x^2 exp(-rate x) / 2
  for (double x : {1e-3, 0.5, 2.0, 30.0})
    EXPECT_CLOSE(QVDistFun::PdfGamma(x, 3.0, 2.0), 4.0 * x * x * std::exp(-2.0 * x), 4e-14) << x;
  EXPECT_EQ(QVDistFun::PdfGamma(2.0, 1.0, 3.0), std::exp(std::log(3.0) - 2.0 * 3.0));
}

TEST(GammaDensity, AtZeroAndBelow) {
  EXPECT_EQ(QVDistFun::PdfGamma(0.0, 1.0, 2.5), 2.5);
  EXPECT_MISSING(QVDistFun::PdfGamma(0.0, 0.5, 2.5));
  EXPECT_EQ(QVDistFun::PdfGamma(0.0, 2.0, 2.5), 0.0);
  EXPECT_EQ(QVDistFun::PdfGamma(-1.0, 0.5, 2.5), 0.0);
  EXPECT_EQ(QVDistFun::PdfGamma(-kInfinity, 0.5, 2.5), 0.0);
}

TEST(GammaDensity, BoundsOfTheExponential) {
  EXPECT_GT(QVDistFun::PdfGamma(708.38, 1.0, 1.0), 0.0);
  EXPECT_EQ(QVDistFun::PdfGamma(708.40, 1.0, 1.0), 0.0);
  EXPECT_EQ(QVDistFun::PdfGamma(kInfinity, 1.0, 1.0), 0.0);
  EXPECT_EQ(QVDistFun::PdfGamma(kInfinity, 3.0, 1.0), 0.0);
  EXPECT_EQ(QVDistFun::PdfGamma(kInfinity, 0.3, 1.0), 0.0);
  EXPECT_EQ(QVDistFun::PdfGamma(1e200, 3.0, 1e200), 0.0);
  EXPECT_GT(QVDistFun::PdfGamma(1e-308, 0.01, 1.0), 1e300);
  EXPECT_MISSING(QVDistFun::PdfGamma(1e-320, 0.001, 1e10));  // above exp(709)
}
