#include "QVExtremeNum.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

namespace {

constexpr double kUntouched = -77.0;

/// The result, or `kUntouched` after a refusal (which must not have stored anything).
double Root(double a, double b, double c, double d) {
  double result = kUntouched;
  const bool answered = QVExtremeNum::SumSqRoot(a, b, c, d, result);
  EXPECT_TRUE(answered || result == kUntouched);
  return answered ? result : kUntouched;
}

}  // namespace

TEST(SumSqRoot, IsAFunctionOfBothNames) {
  double one = 0.0;
  double other = 0.0;
  EXPECT_TRUE(QVExtremeNum::SumSqRoot(3.0, 1.0, 4.0, 1.0, one));
  EXPECT_TRUE(QVMath_940::QVExtremeNum::SumSqRoot(3.0, 1.0, 4.0, 1.0, other));
  EXPECT_EQ(one, other);
}

TEST(SumSqRoot, BothNegativeIsRefusedWhateverTheOthersAre) {
  EXPECT_EQ(Root(1.0, -1.0, 1.0, -1.0), kUntouched);
  EXPECT_EQ(Root(0.0, -1.0, 0.0, -1.0), kUntouched);
  EXPECT_EQ(Root(1e300, -1.0, 0.0, -1e-300), kUntouched);
}

TEST(SumSqRoot, FirstNegative) {
  EXPECT_EQ(Root(5.0, -1.0, 3.0, 1.0), kUntouched);  // p greater
  EXPECT_DOUBLE_EQ(Root(3.0, -1.0, 5.0, 1.0), 4.0);  // q greater
  EXPECT_EQ(Root(3.0, -1.0, -3.0, 1.0), 0.0);        // equal
  EXPECT_EQ(Root(3.0, -4.0, 6.0, 1.0), 0.0);         // equal by the square roots
  EXPECT_EQ(Root(1.0, -1.0, 0.0, 0.0), kUntouched);  // d = 0 is not negative
  EXPECT_EQ(Root(0.0, -1.0, 0.0, 0.0), 0.0);
}

TEST(SumSqRoot, SecondNegative) {
  EXPECT_DOUBLE_EQ(Root(-5.0, 1.0, 3.0, -1.0), 4.0);  // p greater
  EXPECT_EQ(Root(3.0, 1.0, 5.0, -1.0), kUntouched);   // q greater
  EXPECT_EQ(Root(3.0, 1.0, -3.0, -1.0), 0.0);         // equal
}

TEST(SumSqRoot, NoneNegative) {
  EXPECT_DOUBLE_EQ(Root(4.0, 1.0, -3.0, 1.0), 5.0);  // p greater
  EXPECT_DOUBLE_EQ(Root(3.0, 1.0, 4.0, 1.0), 5.0);   // q greater
  EXPECT_EQ(Root(3.0, 1.0, -3.0, 1.0), std::sqrt(2.0) * 3.0);
  EXPECT_DOUBLE_EQ(Root(2.0, 3.0, 5.0, 7.0), std::sqrt(4.0 * 3.0 + 25.0 * 7.0));
  EXPECT_EQ(Root(1.0, 0.0, 1.0, 0.0), 0.0);
  EXPECT_EQ(Root(1.0, -0.0, 1.0, -0.0), 0.0);  // minus zero is not below zero
}

TEST(SumSqRoot, NeitherOverflowsNorUnderflows) {
  EXPECT_EQ(Root(1e200, 1.0, 1e200, 1.0), std::sqrt(2.0) * 1e200);
  EXPECT_DOUBLE_EQ(Root(3e200, 1.0, 4e200, 1.0), 5e200);
  EXPECT_DOUBLE_EQ(Root(3e-200, 1.0, 4e-200, 1.0), 5e-200);
  EXPECT_DOUBLE_EQ(Root(5e200, 1.0, 4e200, -1.0), 3e200);
}

TEST(SumSqRoot, InfinityIsALargeNumber) {
  const double infinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(Root(infinity, 1.0, 1.0, 1.0), infinity);
  EXPECT_EQ(Root(infinity, 1.0, 1.0, -1.0), infinity);
}

TEST(SumSqRoot, NanIsRefused) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(Root(nan, 1.0, 1.0, 1.0), kUntouched);
  EXPECT_EQ(Root(1.0, nan, 1.0, -1.0), kUntouched);
  EXPECT_EQ(Root(1.0, -1.0, nan, 1.0), kUntouched);
  EXPECT_EQ(Root(1.0, 1.0, 1.0, nan), kUntouched);
}
