/// What the tests of the distribution functions have in common.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "QVMV.h"

inline constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
inline constexpr double kInfinity = std::numeric_limits<double>::infinity();
inline constexpr double kTiny = std::numeric_limits<double>::denorm_min();
inline constexpr double kEpsilon = std::numeric_limits<double>::epsilon();

#define EXPECT_MISSING(value) EXPECT_TRUE(QVCommon_940::QVMV::IsMissing(value))

/// `value` equals `expected` to the relative error `bound`.
inline ::testing::AssertionResult IsClose(double value, double expected, double bound) {
  if (std::fabs(value - expected) <= bound * std::fabs(expected))
    return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure()
         << ::testing::PrintToString(value) << " is not " << ::testing::PrintToString(expected)
         << ", relative error " << (value - expected) / expected;
}

#define EXPECT_CLOSE(value, expected, bound) EXPECT_TRUE(IsClose(value, expected, bound))
