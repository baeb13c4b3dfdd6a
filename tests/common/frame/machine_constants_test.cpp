#include "Blas1.h"

#include <cfloat>
#include <cmath>

#include <unistd.h>

#include <gtest/gtest.h>

using QVMath_940::Blas1;

TEST(MachineConstants, SpacingAtOne) {
  const double epsilon = Blas1::DMach(1);
  EXPECT_EQ(epsilon, DBL_EPSILON);
  EXPECT_EQ(1.0 + epsilon * 0.5, 1.0);
  EXPECT_GT(1.0 + epsilon, 1.0);
}

TEST(MachineConstants, SmallAndLarge) {
  EXPECT_EQ(Blas1::DMach(2), 100.0 * std::ldexp(1.0, -1020));
  EXPECT_EQ(Blas1::DMach(2), 8.900295434028806e-306);
  EXPECT_EQ(Blas1::DMach(3), 1.1235582092889475e+305);
  EXPECT_NEAR(Blas1::DMach(2) * Blas1::DMach(3), 1.0, DBL_EPSILON);
}

// The report goes to the standard output; a death test sees the standard error, so the statement
// joins the two.
#define TO_STANDARD_ERROR(statement) \
  {                                  \
    dup2(2, 1);                      \
    statement;                       \
  }

TEST(MachineConstantsDeathTest, AnyOtherJobEndsTheProcess) {
  const char report[] =
      "^\nXERBLA - Fatal error!\n  On entry to routine DMACH\n"
      "  input parameter number 1 had an illegal value.\n$";
  EXPECT_EXIT(TO_STANDARD_ERROR(Blas1::DMach(4)), testing::ExitedWithCode(1), report);
  EXPECT_EXIT(TO_STANDARD_ERROR(Blas1::DMach(0)), testing::ExitedWithCode(1), report);
  EXPECT_EXIT(TO_STANDARD_ERROR(Blas1::DMach(-1)), testing::ExitedWithCode(1), report);
}

TEST(MachineConstantsDeathTest, TheReportNamesRoutineAndArgument) {
  EXPECT_EXIT(TO_STANDARD_ERROR(Blas1::XErBla("DGEMV", 11)), testing::ExitedWithCode(1),
              "On entry to routine DGEMV\n  input parameter number 11 had");
  EXPECT_EXIT(TO_STANDARD_ERROR(Blas1::XErBla(nullptr, 2)), testing::ExitedWithCode(1),
              "On entry to routine \n  input parameter number 2 had");
}
