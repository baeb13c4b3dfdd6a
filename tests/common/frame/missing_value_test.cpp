#include "QVMV.h"

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

#include <gtest/gtest.h>

using QVCommon_940::QVMV;

TEST(MissingValue, IsTheLowestFiniteDouble) {
  const double missing = QVMV::Missing();
  std::uint64_t bits = 0;
  std::memcpy(&bits, &missing, sizeof bits);
  EXPECT_EQ(bits, 0xFFEFFFFFFFFFFFFFu);
  EXPECT_TRUE(QVMV::IsMissing(missing));
}

TEST(MissingValue, NothingElseIsMissing) {
  EXPECT_FALSE(QVMV::IsMissing(std::nextafter(QVMV::Missing(), 0.0)));
  EXPECT_FALSE(QVMV::IsMissing(std::numeric_limits<double>::quiet_NaN()));
  EXPECT_FALSE(QVMV::IsMissing(-std::numeric_limits<double>::infinity()));
  EXPECT_FALSE(QVMV::IsMissing(0.0));
}
