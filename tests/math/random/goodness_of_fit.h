/// Tests of fit at a fixed seed: 20,000 draws against the distribution function.
#pragma once

#include <algorithm>
#include <cmath>
#include <vector>

#include <gtest/gtest.h>

/// Kolmogorov-Smirnov and chi-square (100 classes of equal probability) at the level 0.001.
template <typename Draw, typename Cdf>
void ExpectFit(Draw draw, Cdf cdf) {
  constexpr int kDraws = 20000;
  constexpr int kClasses = 100;
  constexpr double kKolmogorov = 1.9495;   // 0.999 quantile of sqrt(n) D
  constexpr double kChiSquare99 = 148.23;  // 0.999 quantile of chi-square with 99 df
  std::vector<double> p(kDraws);
  std::vector<double> count(kClasses);
  for (double & value : p) {
    value = cdf(draw());
    ASSERT_GE(value, 0.0);
    ASSERT_LE(value, 1.0);
    count[static_cast<std::size_t>(std::min(value * kClasses, kClasses - 1.0))] += 1.0;
  }
  std::sort(p.begin(), p.end());
  double d = 0.0;
  for (int i = 0; i < kDraws; ++i) {
    const double at = p[static_cast<std::size_t>(i)];
    d = std::max({d, at - i / static_cast<double>(kDraws), (i + 1.0) / kDraws - at});
  }
  EXPECT_LT(d * std::sqrt(kDraws), kKolmogorov);
  double chiSquare = 0.0;
  const double expected = static_cast<double>(kDraws) / kClasses;
  for (const double observed : count)
    chiSquare += (observed - expected) * (observed - expected) / expected;
  EXPECT_LT(chiSquare, kChiSquare99);
}

/// Chi-square for whole numbers 0 .. n, classes of expected count 20 and more. `quantile` is the
/// 0.999 quantile for the classes that result, by Wilson and Hilferty's approximation.
template <typename Draw, typename Probability>
void ExpectDiscreteFit(Draw draw, int n, Probability probability) {
  constexpr int kDraws = 20000;
  constexpr double kLeast = 20.0;
  constexpr double kZ = 3.0902;
  std::vector<double> count(static_cast<std::size_t>(n) + 1);
  for (int i = 0; i < kDraws; ++i) {
    const double x = draw();
    ASSERT_EQ(x, std::floor(x));
    ASSERT_GE(x, 0.0);
    ASSERT_LE(x, n);
    count[static_cast<std::size_t>(x)] += 1.0;
  }
  double chiSquare = 0.0;
  double observed = 0.0;
  double expected = 0.0;
  double restExpected = kDraws;
  int classes = 0;
  for (int k = 0; k <= n; ++k) {
    observed += count[static_cast<std::size_t>(k)];
    expected += kDraws * probability(k);
    if ((expected >= kLeast && restExpected - expected >= kLeast) || k == n) {
      chiSquare += (observed - expected) * (observed - expected) / expected;
      restExpected -= expected;
      observed = expected = 0.0;
      ++classes;
    }
  }
  ASSERT_GT(classes, 3);
  const double df = classes - 1.0;
  const double root = 1.0 - 2.0 / (9.0 * df) + kZ * std::sqrt(2.0 / (9.0 * df));
  EXPECT_LT(chiSquare, df * root * root * root);
}
