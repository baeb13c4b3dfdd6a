#include "QVPower.h"

#include <cmath>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

#include "QVMV.h"

using QVCommon_940::QVMV;
using QVMath_940::QVPower;

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kEpsilon = std::numeric_limits<double>::epsilon();

struct Outcome {
  double value = 12345.0;
  int status = 99;
};

Outcome Power(double a, double b) {
  Outcome outcome;
  outcome.status = QVPower::Power(a, b, outcome.value);
  return outcome;
}

void ExpectPower(double a, double b, double value, int status) {
  const Outcome outcome = Power(a, b);
  EXPECT_EQ(outcome.value, value) << a << " to the power " << b;
  EXPECT_EQ(std::signbit(outcome.value), std::signbit(value)) << a << " to the power " << b;
  EXPECT_EQ(outcome.status, status) << a << " to the power " << b;
}

}  // namespace

TEST(PowerLimits, AreTheHouseConstants) {
  EXPECT_EQ(QVPower::MaxExp(), 709.0);
  EXPECT_EQ(QVPower::MinExp(), -708.39);
  EXPECT_EQ(QVPower::MaxInt(), 2147483647);
  EXPECT_EQ(QVPower::MEpsilon(), 2.220446049250313e-16);
}

TEST(PowerLimits, AreStrict) {
  EXPECT_FALSE(QVPower::ExpOverflow(709.0));
  EXPECT_TRUE(QVPower::ExpOverflow(std::nextafter(709.0, 710.0)));
  EXPECT_FALSE(QVPower::ExpUnderflow(-708.39));
  EXPECT_TRUE(QVPower::ExpUnderflow(std::nextafter(-708.39, -709.0)));
  EXPECT_TRUE(QVPower::ExpOverflow(kInfinity));
  EXPECT_TRUE(QVPower::ExpUnderflow(-kInfinity));
  EXPECT_FALSE(QVPower::ExpOverflow(kNaN));
  EXPECT_FALSE(QVPower::ExpUnderflow(kNaN));
}

TEST(PowerIntegers, WholeNumbers) {
  for (double x : {0.0, 1.0, -1.0, 2147483647.0, -2147483649.0, -1e300, -kInfinity})
    EXPECT_TRUE(QVPower::IsInteger(x)) << x;
  for (double x : {0.5, -0.5, 2147483648.0, 1e300, kInfinity, kNaN, 1e-300})
    EXPECT_FALSE(QVPower::IsInteger(x)) << x;
}

TEST(PowerIntegers, EvenAndOdd) {
  for (double x : {0.0, 2.0, -4.0, 2147483646.0, -1e300})
    EXPECT_TRUE(QVPower::IsEvenInteger(x)) << x;
  for (double x : {1.0, -3.0, 0.5, 2147483648.0, kInfinity, kNaN})
    EXPECT_FALSE(QVPower::IsEvenInteger(x)) << x;
  for (double x : {1.0, -1.0, -3.0, 2147483647.0})
    EXPECT_TRUE(QVPower::IsOddInteger(x)) << x;
  for (double x : {0.0, 2.0, 0.5, 2147483649.0, kInfinity, kNaN})
    EXPECT_FALSE(QVPower::IsOddInteger(x)) << x;
  EXPECT_TRUE(QVPower::IsOddInteger(-1e300)) << "adding 0.5 changes nothing there";
}

TEST(PowerAlmostEqual, Cases) {
  EXPECT_TRUE(QVPower::AlmostEqual(0.0, 0.0, 8.0));
  EXPECT_TRUE(QVPower::AlmostEqual(0.0, -0.0, 8.0));
  EXPECT_FALSE(QVPower::AlmostEqual(0.0, 1e-300, 8.0));
  EXPECT_FALSE(QVPower::AlmostEqual(1e-300, 0.0, 8.0));
  EXPECT_FALSE(QVPower::AlmostEqual(1.0, -1.0, 8.0));
  EXPECT_TRUE(QVPower::AlmostEqual(2.0, 2.0, 0.0));
  EXPECT_TRUE(QVPower::AlmostEqual(-2.0, -2.0 * (1.0 + 7.0 * kEpsilon), 8.0));
  EXPECT_FALSE(QVPower::AlmostEqual(2.0, 2.0 * (1.0 + 9.0 * kEpsilon), 8.0));
  EXPECT_FALSE(QVPower::AlmostEqual(kNaN, kNaN, 8.0));
  EXPECT_FALSE(QVPower::AlmostEqual(1.0, kNaN, 8.0));
  EXPECT_FALSE(QVPower::AlmostEqual(kInfinity, kInfinity, 8.0));
}

TEST(PowerReciprocals, OfEvenAndOddIntegers) {
  EXPECT_TRUE(QVPower::IsOneOverEvenInteger(0.5, 32.0));
  EXPECT_TRUE(QVPower::IsOneOverEvenInteger(-0.25, 32.0));
  EXPECT_TRUE(QVPower::IsOneOverEvenInteger(1.0 / 6.0, 32.0));
  EXPECT_FALSE(QVPower::IsOneOverEvenInteger(1.0 / 3.0, 32.0));
  EXPECT_FALSE(QVPower::IsOneOverEvenInteger(0.0, 32.0));
  EXPECT_TRUE(QVPower::IsOneOverOddInteger(1.0 / 3.0, 32.0));
  EXPECT_TRUE(QVPower::IsOneOverOddInteger(1.0 / -7.0, 32.0));
  EXPECT_TRUE(QVPower::IsOneOverOddInteger(1.0, 32.0));
  EXPECT_FALSE(QVPower::IsOneOverOddInteger(0.5, 32.0));
  EXPECT_FALSE(QVPower::IsOneOverOddInteger(0.3, 32.0));
  EXPECT_FALSE(QVPower::IsOneOverOddInteger(0.0, 32.0));
  EXPECT_FALSE(QVPower::IsOneOverOddInteger(1e-10, 32.0))
      << "the reciprocal is above the largest int";
  EXPECT_FALSE(QVPower::IsOneOverOddInteger(kNaN, 32.0));
  EXPECT_FALSE(QVPower::IsOneOverEvenInteger(kNaN, 32.0));
}

TEST(PowerExponent, Statuses) {
  double out = 1.0;
  EXPECT_EQ(QVPower::Exponent(1.5, out), 0);
  EXPECT_EQ(out, std::exp(1.5));
  EXPECT_EQ(QVPower::Exponent(709.0, out), 0);
  EXPECT_EQ(out, std::exp(709.0));
  EXPECT_EQ(QVPower::Exponent(709.1, out), 2);
  EXPECT_TRUE(QVMV::IsMissing(out));
  EXPECT_EQ(QVPower::Exponent(-708.4, out), 1);
  EXPECT_EQ(out, 0.0);
  EXPECT_EQ(QVPower::Exponent(-708.39, out), 0);
  EXPECT_GT(out, 0.0);
  EXPECT_EQ(QVPower::Exponent(kNaN, out), 4);
  EXPECT_TRUE(QVMV::IsMissing(out));
}

TEST(PowerPower, ZeroBase) {
  ExpectPower(0.0, 0.0, 1.0, 7);
  ExpectPower(-0.0, 0.0, 1.0, 7);
  ExpectPower(0.0, 2.5, 0.0, 0);
  ExpectPower(0.0, kInfinity, 0.0, 0);
  ExpectPower(0.0, -1.0, QVMV::Missing(), 6);
}

TEST(PowerPower, PositiveBase) {
  ExpectPower(3.0, 0.0, 1.0, 0);
  ExpectPower(3.0, 2.5, std::exp(2.5 * std::log(3.0)), 0);
  ExpectPower(1e300, -3.0, 0.0, 1);
  ExpectPower(1e300, 3.0, QVMV::Missing(), 2);
  ExpectPower(kInfinity, 1.0, QVMV::Missing(), 2);
  ExpectPower(kInfinity, -1.0, 0.0, 1);
  EXPECT_NEAR(Power(2.0, 10.0).value, 1024.0, 1e-11);
}

TEST(PowerPower, NegativeBase) {
  ExpectPower(-3.0, 0.0, 1.0, 5);
  ExpectPower(-3.0, 2.0, std::exp(2.0 * std::log(3.0)), 0);
  ExpectPower(-3.0, 3.0, -std::exp(3.0 * std::log(3.0)), 0);
  ExpectPower(-3.0, -3.0, -std::exp(-3.0 * std::log(3.0)), 0);
  ExpectPower(-8.0, 0.5, QVMV::Missing(), 4);
  ExpectPower(-8.0, 2.5, QVMV::Missing(), 4);
  const Outcome root = Power(-8.0, 1.0 / 3.0);
  EXPECT_NEAR(root.value, -2.0, 4e-16);
  EXPECT_EQ(root.status, 0);
}

TEST(PowerPower, NegativeBaseBeyondTheLimits) {
  ExpectPower(-1e300, 2.0, QVMV::Missing(), 2);
  ExpectPower(-1e300, -2.0, 0.0, 1);
  ExpectPower(-1e300, 3.0, QVMV::Missing(), 3);
  ExpectPower(-1e-300, -3.0, QVMV::Missing(), 2);
  ExpectPower(-1e300, -3.0, -0.0, 1);
  ExpectPower(-1e-300, 3.0, -0.0, 1);
}

TEST(PowerPower, Undefined) {
  ExpectPower(kNaN, 1.0, QVMV::Missing(), 4);
  ExpectPower(1.0, kNaN, QVMV::Missing(), 4);
  ExpectPower(kNaN, 0.0, QVMV::Missing(), 4);
  ExpectPower(1.0, kInfinity, QVMV::Missing(), 4);
  ExpectPower(-2.0, kInfinity, QVMV::Missing(), 4);
}

TEST(PowerMultiply, Cases) {
  EXPECT_EQ(QVPower::Multiply(0.0, 5.0), 0.0);
  EXPECT_EQ(QVPower::Multiply(5.0, 0.0), 0.0);
  EXPECT_EQ(QVPower::Multiply(0.0, kInfinity), 0.0);
  EXPECT_EQ(QVPower::Multiply(3.0, 7.0), std::exp(std::log(3.0) + std::log(7.0)));
  EXPECT_EQ(QVPower::Multiply(-3.0, 7.0), -std::exp(std::log(3.0) + std::log(7.0)));
  EXPECT_EQ(QVPower::Multiply(-3.0, -7.0), std::exp(std::log(3.0) + std::log(7.0)));
  EXPECT_EQ(QVPower::Multiply(1e-200, 1e-200), 0.0);
  EXPECT_TRUE(std::signbit(QVPower::Multiply(-1e-200, 1e-200)));
  EXPECT_FALSE(std::signbit(QVPower::Multiply(-1e-200, -1e-200)));
  EXPECT_TRUE(QVMV::IsMissing(QVPower::Multiply(1e200, 1e200)));
  EXPECT_TRUE(QVMV::IsMissing(QVPower::Multiply(-1e200, 1e200)));
  EXPECT_TRUE(QVMV::IsMissing(QVPower::Multiply(kNaN, 2.0)));
  EXPECT_TRUE(QVMV::IsMissing(QVPower::Multiply(kInfinity, 2.0)));
}

TEST(PowerHostileValues, NothingIsEverANaN) {
  const std::vector<double> values{kNaN,
                                   kInfinity,
                                   -kInfinity,
                                   0.0,
                                   -0.0,
                                   5e-324,
                                   -5e-324,
                                   1.0,
                                   -1.0,
                                   2.0,
                                   -2.0,
                                   1.0 / 3.0,
                                   0.5,
                                   1e300,
                                   -1e300,
                                   QVMV::Missing(),
                                   -QVMV::Missing(),
                                   2147483647.0,
                                   -2147483649.0};
  for (double a : values) {
    for (double b : values) {
      const Outcome power = Power(a, b);
      EXPECT_TRUE(std::isfinite(power.value)) << a << " " << b;
      EXPECT_GE(power.status, 0);
      EXPECT_LE(power.status, 7);
      EXPECT_TRUE(std::isfinite(QVPower::Multiply(a, b))) << a << " " << b;
      QVPower::AlmostEqual(a, b, 8.0);
    }
    double out = 0.0;
    QVPower::Exponent(a, out);
    EXPECT_TRUE(std::isfinite(out)) << a;
    QVPower::IsOneOverEvenInteger(a, 32.0);
    QVPower::IsOneOverOddInteger(a, 32.0);
  }
}
