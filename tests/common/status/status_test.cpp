#include "QVStatus.h"

#include <limits>
#include <utility>

#include <gtest/gtest.h>

#include "QVMV.h"

using QVCommon_940::QVStatus;

TEST(Status, DefaultIsOK) {
  const QVStatus status;
  EXPECT_EQ(status.GetErrorCode(), 0);
  EXPECT_TRUE(status.IsOK());
  EXPECT_FALSE(status.IsError());
  EXPECT_FALSE(status.IsWarning());
}

TEST(Status, FlagFalseIsAnErrorAndFlagTrueAWarning) {
  const QVStatus error(7, false);
  EXPECT_EQ(error.GetErrorCode(), 7);
  EXPECT_TRUE(error.IsError());
  EXPECT_FALSE(error.IsOK());
  EXPECT_FALSE(error.IsWarning());
  const QVStatus warning(7, true);
  EXPECT_EQ(warning.GetErrorCode(), 7);
  EXPECT_TRUE(warning.IsWarning());
  EXPECT_FALSE(warning.IsOK());
  EXPECT_FALSE(warning.IsError());
}

TEST(Status, BuiltFromCodeZeroIsNeverOK) {
  EXPECT_TRUE(QVStatus(0, false).IsError());
  EXPECT_TRUE(QVStatus(0, true).IsWarning());
}

TEST(Status, DataAreZeroUntilTheyAreSet) {
  QVStatus status(1, true);
  for (unsigned i = 0; i < 3; ++i) {
    EXPECT_EQ(status.GetDiscreteDatum(i), 0);
    EXPECT_EQ(status.GetScaleDatum(i), 0.0);
  }
  for (unsigned i = 0; i < 3; ++i) {
    status.SetDiscreteDatum(i, 10L + i);
    status.SetScaleDatum(i, 0.5 + i);
  }
  for (unsigned i = 0; i < 3; ++i) {
    EXPECT_EQ(status.GetDiscreteDatum(i), 10L + i);
    EXPECT_EQ(status.GetScaleDatum(i), 0.5 + i);
  }
}

TEST(Status, CopiesAndMovesAllFields) {
  QVStatus status(-2147483647L, true);
  status.SetDiscreteDatum(2, 5);
  status.SetScaleDatum(0, 2.5);
  QVStatus copy;
  copy = status;
  EXPECT_TRUE(copy == status);
  QVStatus moved;
  moved = std::move(copy);
  EXPECT_TRUE(moved == status);
  EXPECT_EQ(moved.GetErrorCode(), -2147483647L);
  EXPECT_EQ(moved.GetDiscreteDatum(2), 5);
  EXPECT_EQ(moved.GetScaleDatum(0), 2.5);
}

TEST(Status, EqualityLooksAtEveryField) {
  const QVStatus base(5, true);
  EXPECT_TRUE(base == QVStatus(5, true));
  EXPECT_FALSE(base == QVStatus(6, true));
  EXPECT_FALSE(base == QVStatus(5, false));
  for (unsigned i = 0; i < 3; ++i) {
    QVStatus other(5, true);
    other.SetDiscreteDatum(i, 1);
    EXPECT_FALSE(base == other) << i;
    other = base;
    other.SetScaleDatum(i, 1.0);
    EXPECT_FALSE(base == other) << i;
  }
}

TEST(Status, WithANanIsNotEvenEqualToItself) {
  for (unsigned i = 0; i < 3; ++i) {
    QVStatus status(5, true);
    status.SetScaleDatum(i, std::numeric_limits<double>::quiet_NaN());
    EXPECT_FALSE(status == status) << i;
  }
}

TEST(Status, MissingIsAnOrdinaryNumberInIt) {
  QVStatus status(5, true);
  status.SetScaleDatum(1, QVCommon_940::QVMV::Missing());
  EXPECT_TRUE(status == status);
}
