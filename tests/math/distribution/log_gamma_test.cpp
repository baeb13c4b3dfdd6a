#include <cmath>

#include "QVDistFun.h"
#include "expectations.h"

using QVMath_940::QVDistFun;

TEST(LogGamma, IsExactAtOneAndTwo) {
  EXPECT_EQ(QVDistFun::zelvdnlgam(1.0), 0.0);
  EXPECT_EQ(QVDistFun::zelvdnlgam(2.0), 0.0);
}

TEST(LogGamma, EveryRangeAgreesWithTheStandardLibrary) {
  for (double x = 0.001; x < 40.0; x += 0.001) {
    const double expected = std::lgamma(x);
    EXPECT_NEAR(QVDistFun::zelvdnlgam(x), expected, 6e-16 * std::max(1.0, std::fabs(expected)))
        << x;
  }
  for (double x : {1e-300, kTiny, 0.25, 0.5, 3.5, 8.0, 1e5, 1e15, 1e300})
    EXPECT_CLOSE(QVDistFun::zelvdnlgam(x), std::lgamma(x), 4e-16) << x;
}

TEST(LogGamma, RangesMeet) {
  for (double x : {0.25, 0.5, 3.5, 8.0}) {
    const double below = QVDistFun::zelvdnlgam(std::nextafter(x, 0.0));
    const double above = QVDistFun::zelvdnlgam(std::nextafter(x, 10.0));
    EXPECT_NEAR(below, above, 6e-15) << x;  // the slope at 8 is 2
    EXPECT_NEAR(QVDistFun::zelvdnlgam(x), below, 4e-15) << x;
  }
  EXPECT_EQ(QVDistFun::zelvdnlgam(0.5), std::log(M_PI) * 0.5);
}

TEST(LogGamma, RefusesWhatHasNoLogarithm) {
  for (double x : {0.0, -0.0, -kTiny, -0.5, -1.5, -1e300, kNaN, kInfinity, -kInfinity, 2.6e305})
    EXPECT_MISSING(QVDistFun::zelvdnlgam(x));
  EXPECT_MISSING(QVDistFun::zelvdnlgam(QVCommon_940::QVMV::Missing()));
  EXPECT_GT(QVDistFun::zelvdnlgam(2.5e305), 1e308);
}
