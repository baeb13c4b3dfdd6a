#include "QVDistFun.h"
#include "expectations.h"

using QVMath_940::QVDistFun;

TEST(Beta, EndsAndClosedForms) {
  EXPECT_EQ(QVDistFun::CdfBeta(0.0, 2.0, 3.0), 0.0);
  EXPECT_EQ(QVDistFun::CdfBeta(-1.0, 2.0, 3.0), 0.0);
  EXPECT_EQ(QVDistFun::CdfBeta(1.0, 2.0, 3.0), 1.0);
  EXPECT_EQ(QVDistFun::CdfBeta(7.0, 2.0, 3.0), 1.0);
  EXPECT_EQ(QVDistFun::CdfBeta(-kInfinity, 2.0, 3.0), 0.0);
  EXPECT_EQ(QVDistFun::CdfBeta(kInfinity, 2.0, 3.0), 1.0);
  EXPECT_EQ(QVDistFun::CdfBeta(0.3, 1.0, 1.0), 0.3);
  EXPECT_EQ(QVDistFun::CdfBeta(0.3, 1.0, 4.0), 1.0 - std::exp(4.0 * std::log(0.7)));
  EXPECT_EQ(QVDistFun::CdfBeta(0.3, 4.0, 1.0), std::exp(4.0 * std::log(0.3)));
}

TEST(Beta, PolynomialsOfWholeShapes) {
  for (double x = 0.05; x < 1.0; x += 0.05) {
    const double y = 1.0 - x;
    EXPECT_CLOSE(QVDistFun::CdfBeta(x, 2.0, 2.0), x * x * (3.0 - 2.0 * x), 1e-14) << x;
    EXPECT_CLOSE(QVDistFun::CdfBeta(x, 3.0, 2.0), x * x * x * (4.0 - 3.0 * x), 1e-14) << x;
    EXPECT_CLOSE(QVDistFun::CdfBeta(x, 2.0, 3.0), 1.0 - y * y * y * (4.0 - 3.0 * y), 2e-14) << x;
    EXPECT_CLOSE(QVDistFun::CdfBeta(x, 0.5, 0.5), std::asin(std::sqrt(x)) * M_2_PI, 1e-13) << x;
  }
}

TEST(Beta, WantsPositiveShapes) {
  EXPECT_MISSING(QVDistFun::CdfBeta(0.5, 0.0, 2.0));
  EXPECT_MISSING(QVDistFun::CdfBeta(0.5, 2.0, 0.0));
  EXPECT_MISSING(QVDistFun::CdfBeta(0.5, -1.0, 2.0));
  EXPECT_MISSING(QVDistFun::CdfBeta(0.5, 2.0, -1.0));
  EXPECT_MISSING(QVDistFun::CdfBeta(0.0, -1.0, 2.0)) << "shapes are tested before the ends";
  EXPECT_MISSING(QVDistFun::CdfBeta(kNaN, 2.0, 2.0));
  EXPECT_MISSING(QVDistFun::CdfBeta(0.5, kNaN, 2.0));
  EXPECT_MISSING(QVDistFun::CdfBeta(0.5, 2.0, kNaN));
}
