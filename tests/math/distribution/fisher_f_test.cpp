#include <cmath>

#include "QVDistFun.h"
#include "expectations.h"

using QVMath_940::QVDistFun;

TEST(FisherF, ClosedFormForTwoDegreesInBothBranches) {
  for (double df2 : {2.0, 3.0, 10.0}) {
    for (double x : {0.01, 0.5, 0.999, 1.0, 1.5, 30.0}) {
      const double upper = std::pow(df2 / (df2 + 2.0 * x), df2 / 2.0);
      EXPECT_CLOSE(QVDistFun::SigF(x, 2.0, df2), upper, 4e-15) << x << " " << df2;
      EXPECT_CLOSE(QVDistFun::CdfF(x, 2.0, df2), -std::expm1(std::log(upper)), 1e-13)
          << x << " " << df2;
    }
  }
}

TEST(FisherF, OneDegreeGoesThroughStudentsT) {
  for (double x : {1e-6, 0.4, 1.0, 3.0, 200.0}) {
    EXPECT_EQ(QVDistFun::CdfF(x, 1.0, 9.0), 2.0 * QVDistFun::CdfT(std::sqrt(x), 9.0) - 1.0);
  }
  // The upper tail has no such branch and keeps its digits.
  EXPECT_CLOSE(QVDistFun::SigF(1e4, 1.0, 9.0), 2.0 * QVDistFun::SigT(100.0, 9.0), 1e-13);
}

TEST(FisherF, TheTwoTailsAreOne) {
  for (double x : {0.2, 1.0, 4.0}) {
    for (double df1 : {0.6, 1.0, 5.0, 60.0})
      EXPECT_NEAR(QVDistFun::CdfF(x, df1, 8.0) + QVDistFun::SigF(x, df1, 8.0), 1.0, 1e-14);
  }
}

TEST(FisherF, Edges) {
  EXPECT_EQ(QVDistFun::CdfF(0.0, 3.0, 4.0), 0.0);
  EXPECT_EQ(QVDistFun::CdfF(-2.0, 3.0, 4.0), 0.0);
  EXPECT_EQ(QVDistFun::CdfF(-2.0, 1.0, 4.0), 0.0);
  EXPECT_EQ(QVDistFun::SigF(0.0, 3.0, 4.0), 1.0);
  EXPECT_EQ(QVDistFun::SigF(-2.0, 3.0, 4.0), 1.0);
  EXPECT_EQ(QVDistFun::CdfF(kInfinity, 3.0, 4.0), 1.0);
  EXPECT_EQ(QVDistFun::CdfF(kInfinity, 1.0, 4.0), 1.0);
  EXPECT_EQ(QVDistFun::SigF(kInfinity, 3.0, 4.0), 0.0);
}

TEST(FisherF, WantsPositiveDegrees) {
  for (double bad : {0.0, -1.0, kNaN, -kInfinity}) {
    EXPECT_MISSING(QVDistFun::CdfF(1.0, bad, 3.0));
    EXPECT_MISSING(QVDistFun::CdfF(1.0, 3.0, bad));
    EXPECT_MISSING(QVDistFun::SigF(1.0, bad, 3.0));
    EXPECT_MISSING(QVDistFun::SigF(1.0, 3.0, bad));
    EXPECT_MISSING(QVDistFun::SigF(-1.0, 3.0, bad)) << "degrees are tested before x";
    EXPECT_MISSING(QVDistFun::CdfF(-1.0, 3.0, bad));
  }
  EXPECT_MISSING(QVDistFun::CdfF(kNaN, 3.0, 3.0));
  EXPECT_MISSING(QVDistFun::SigF(kNaN, 3.0, 3.0));
  EXPECT_MISSING(QVDistFun::CdfF(2.0, 1.0, kNaN));
}
