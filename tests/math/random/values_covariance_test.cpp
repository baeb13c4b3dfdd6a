// Vectors and matrices with a covariance: the draws go through the Cholesky factor.
#include <algorithm>
#include <cmath>
#include <vector>

#include <gtest/gtest.h>

#include "QVRandomValues.h"
#include "QVSymMatrix.h"
#include "math/random/golden.h"

namespace {

using namespace QVMath_940;

QVSymMatrix Packed(int n, const std::vector<double> & elements) {
  QVSymMatrix matrix(n, true);
  matrix.AsVector() = elements;
  return matrix;
}

const std::vector<double> kCov{4.0, 1.0, 2.0, -0.5, 0.25, 1.0};

// The order of the sums in a product of matrices is the product's own affair.
void ExpectNear(const std::vector<double> & found, const std::vector<double> & wanted) {
  ASSERT_EQ(found.size(), wanted.size());
  double largest = 1.0;
  for (const double value : wanted)
    largest = std::max(largest, std::fabs(value));
  for (std::size_t i = 0; i < wanted.size(); ++i)
    ASSERT_NEAR(found[i], wanted[i], 1e-14 * largest);
}

TEST(RandomValuesCovariance, GoldenNormalVectors) {
  QVRandomValues values;
  ASSERT_TRUE(values.SetParamNormal({1.0, -2.0, 0.5}, 2.25, Packed(3, kCov)));
  std::vector<double> out;
  for (const auto & row : GoldenRows("values_normal_vector")) {
    ASSERT_TRUE(values.GetRandom(out));
    ExpectNear(out, row);
  }
}

TEST(RandomValuesCovariance, GoldenWishartMatrices) {
  QVRandomValues values;
  ASSERT_TRUE(values.SetParamWishart(2, 5.0));
  QVSymMatrix out;
  for (const auto & row : GoldenRows("values_wishart_2_5")) {
    ASSERT_TRUE(values.GetRandom(out));
    ASSERT_EQ(out.GetNRows(), 2);
    ExpectNear(out.AsVector(), row);
  }
  QVRandomValues scaled;
  ASSERT_TRUE(scaled.SetParamWishart(3, 7.5, Packed(3, kCov)));
  for (const auto & row : GoldenRows("values_wishart_3_7.5_scaled")) {
    ASSERT_TRUE(scaled.GetRandom(out));
    ASSERT_EQ(out.GetNRows(), 3);
    ExpectNear(out.AsVector(), row);
  }
}

TEST(RandomValuesCovariance, ToleranceServesTheFactorisation) {
  // Dependent rows for a tolerance of 1e-3, not for 1e-12.
  const QVSymMatrix cov = Packed(2, {1.0, 1.0, 1.0 + 1e-6});
  QVRandomValues strict;
  QVRandomValues loose;
  EXPECT_TRUE(loose.SetTolerance(1e-3));
  EXPECT_TRUE(strict.SetParamNormal({0.0, 0.0}, 1.0, cov));
  EXPECT_TRUE(loose.SetParamNormal({0.0, 0.0}, 1.0, cov));
  std::vector<double> a;
  std::vector<double> b;
  ASSERT_TRUE(strict.GetRandom(a));
  ASSERT_TRUE(loose.GetRandom(b));
  EXPECT_NE(a[1], a[0]);
  EXPECT_EQ(b[1], b[0]);  // the second row has dropped out
}

}  // namespace
