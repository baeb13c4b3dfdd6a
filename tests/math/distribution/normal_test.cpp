#include "QVDistFun.h"
#include "expectations.h"

using QVMath_940::QVDistFun;

// Reference values: mpmath, 40 digits.

TEST(StandardNormal, KnownValues) {
  EXPECT_CLOSE(QVDistFun::CdfStdNorm(-1.0), 0.15865525393145705141, 1e-15);
  EXPECT_CLOSE(QVDistFun::CdfStdNorm(1.0), 0.84134474606854294859, 1e-15);
  EXPECT_CLOSE(QVDistFun::CdfStdNorm(2.5), 0.99379033467422386483, 1e-15);
}

TEST(StandardNormal, IsExactlyHalfAtZero) {
  EXPECT_EQ(QVDistFun::CdfStdNorm(0.0), 0.5);
  EXPECT_EQ(QVDistFun::CdfStdNorm(-0.0), 0.5);
  EXPECT_NEAR(QVDistFun::CdfStdNorm(kTiny), 0.5, 0.0);
  EXPECT_NEAR(QVDistFun::CdfStdNorm(-kTiny), 0.5, 0.0);
}

TEST(StandardNormal, LowerTailKeepsItsRelativeAccuracy) {
  EXPECT_CLOSE(QVDistFun::CdfStdNorm(-10.0), 7.619853024160526066e-24, 2e-14);
  EXPECT_CLOSE(QVDistFun::CdfStdNorm(-37.0), 5.7255712225245768227e-300, 4e-13);
  EXPECT_CLOSE(QVDistFun::CdfStdNorm(-37.5), 4.6053530095819548438e-308, 4e-13);
}

TEST(StandardNormal, LowerTailEndsWhereTheExponentialDoes) {
  // erfc counts as 0 below exp(-708), which is 2e-308 in the result.
  EXPECT_GT(QVDistFun::CdfStdNorm(-37.51), 0.0);
  EXPECT_EQ(QVDistFun::CdfStdNorm(-37.53), 0.0);
  EXPECT_EQ(QVDistFun::CdfStdNorm(-1e300), 0.0);
  EXPECT_EQ(QVDistFun::CdfStdNorm(-kInfinity), 0.0);
}

TEST(StandardNormal, UpperTailIsANumberNearOne) {
  EXPECT_LT(QVDistFun::CdfStdNorm(8.0), 1.0);
  EXPECT_EQ(QVDistFun::CdfStdNorm(8.4), 1.0);
  EXPECT_EQ(QVDistFun::CdfStdNorm(9.8), 1.0);
  EXPECT_EQ(QVDistFun::CdfStdNorm(kInfinity), 1.0);
  for (double z = 0.01; z < 8.0; z += 0.01)
    EXPECT_NEAR(QVDistFun::CdfStdNorm(z) + QVDistFun::CdfStdNorm(-z), 1.0, 4e-16) << z;
}

TEST(StandardNormal, NaNIsMissing) {
  EXPECT_MISSING(QVDistFun::CdfStdNorm(kNaN));
}

TEST(Normal, StandardisesItsArgument) {
  EXPECT_EQ(QVDistFun::CdfNorm(13.0, 10.0, 2.0), QVDistFun::CdfStdNorm(1.5));
  EXPECT_EQ(QVDistFun::CdfNorm(7.0, 10.0, 2.0), QVDistFun::CdfStdNorm(-1.5));
  EXPECT_EQ(QVDistFun::CdfNorm(10.0, 10.0, 2.0), 0.5);
}

TEST(Normal, WantsAPositiveDeviation) {
  EXPECT_MISSING(QVDistFun::CdfNorm(1.0, 0.0, 0.0));
  EXPECT_MISSING(QVDistFun::CdfNorm(1.0, 0.0, -0.0));
  EXPECT_MISSING(QVDistFun::CdfNorm(1.0, 0.0, -1.0));
  EXPECT_MISSING(QVDistFun::CdfNorm(1.0, 0.0, kNaN));
  EXPECT_MISSING(QVDistFun::CdfNorm(kNaN, 0.0, 1.0));
  EXPECT_MISSING(QVDistFun::CdfNorm(1.0, kNaN, 1.0));
}

TEST(Normal, Infinities) {
  EXPECT_EQ(QVDistFun::CdfNorm(kInfinity, 0.0, 1.0), 1.0);
  EXPECT_EQ(QVDistFun::CdfNorm(-kInfinity, 0.0, 1.0), 0.0);
  EXPECT_EQ(QVDistFun::CdfNorm(5.0, 0.0, kInfinity), 0.5);
  EXPECT_MISSING(QVDistFun::CdfNorm(kInfinity, kInfinity, 1.0));
  EXPECT_MISSING(QVDistFun::CdfNorm(kInfinity, 0.0, kInfinity));
}

TEST(NormalDensity, FollowsItsFormula) {
  EXPECT_EQ(QVDistFun::PdfNormalStandard(0.0), 0.3989422804014327);
  EXPECT_EQ(QVDistFun::PdfNormalStandard(1.5), std::exp(-0.5 * 1.5 * 1.5) * 0.3989422804014327);
  EXPECT_EQ(QVDistFun::PdfNormal(13.0, 10.0, 2.0), QVDistFun::PdfNormalStandard(1.5) / 2.0);
  EXPECT_EQ(QVDistFun::PdfNormalStandard(50.0), 0.0);
  EXPECT_EQ(QVDistFun::PdfNormalStandard(kInfinity), 0.0);
  EXPECT_EQ(QVDistFun::PdfNormal(-kInfinity, 0.0, 1.0), 0.0);
}

TEST(NormalDensity, ANegativeDeviationGivesANegativeDensity) {
  EXPECT_EQ(QVDistFun::PdfNormal(13.0, 10.0, -2.0), -QVDistFun::PdfNormal(13.0, 10.0, 2.0));
  EXPECT_LT(QVDistFun::PdfNormal(13.0, 10.0, -2.0), 0.0);
}

TEST(NormalDensity, RefusesWhatHasNoDensity) {
  EXPECT_MISSING(QVDistFun::PdfNormal(1.0, 0.0, 0.0));
  EXPECT_MISSING(QVDistFun::PdfNormal(1.0, 0.0, -0.0));
  EXPECT_MISSING(QVDistFun::PdfNormal(kNaN, 0.0, 1.0));
  EXPECT_MISSING(QVDistFun::PdfNormal(1.0, kNaN, 1.0));
  EXPECT_MISSING(QVDistFun::PdfNormal(1.0, 0.0, kNaN));
  EXPECT_MISSING(QVDistFun::PdfNormal(0.0, 0.0, kTiny));  // beyond the largest double
  EXPECT_MISSING(QVDistFun::PdfNormalStandard(kNaN));
}
