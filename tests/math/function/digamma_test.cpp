#include <algorithm>
#include <cmath>
#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "QVMV.h"
#include "QVMathFun.h"

using QVCommon_940::QVMV;
using QVMath_940::QVMathFun;

namespace {

/// Half a unit in the last place of a number just above 10: how far the argument may be rounded on
/// its way up and down the recurrence.
constexpr double kShiftRounding = 8.9e-16;

struct Figure {
  double x;
  double digamma;
  double trigamma;
};

// mpmath 1.3.0 at 40 digits: digamma(x) and psi(1, x) of the double nearest to each x.
const Figure kFigures[] = {
    {1.0000000000000002e-16, -9999999999999998.321047469, 9.999999999999995487663608e+31},
    {1e-12, -1000000000000.577235778252, 1.000000000000000040226706e+24},
    {3e-7, -3333333.910548504905593952, 11111111111112.75705005424},
    {9.99e-6, -100100.6772993322380880126, 10020030041.69497168542982},
    {1e-5, -100000.577199215672888681, 10000000001.64490838997378},
    {2e-5, -50000.57718276669691984622, 2500000001.644885576855585},
    {9.9e-5, -10101.58715383831084294775, 102030406.7054041947015478},
    {1e-4, -10000.57705118351385563264, 100000001.6446936783487971},
    {2e-4, -5000.576886726161542805896, 25000001.64445337153649029},
    {0.001, -1000.575571931810279654757, 1000001.64253319582734467},
    {0.03, -33.86225442061876507034979, 1112.68673602647960061251},
    {0.25, -4.22745353337626540808953, 17.19732915450711073927132},
    {0.5, -1.963510026021423479440976, 4.934802200544679309417245},
    {1, -0.5772156649015328606065121, 1.644934066848226436472415},
    {1.4616321449683622, -9.241265521729427516792351e-17, 0.9676722454476212549951696},
    {1.5, 0.03648997397857652055902367, 0.9348022005446793094172455},
    {2, 0.4227843350984671393934879, 0.6449340668482264364724152},
    {3.7, 1.167153539361511440947651, 0.3100378576700383021582484},
    {10, 2.251752589066721107647456, 0.105166335681685746122201},
    {12.25, 2.464154655185368955751334, 0.08505514298816320807927088},
    {50, 3.90198967342789219695396, 0.02020133322669712580597065},
    {1000, 6.907255195648812052050006, 0.001000500166666633333357143},
    {123456.75, 11.72364212127904445605189, 8.100035437610752409531203e-6},
    {1e10, 23.02585092989045684017908, 1.000000000050000000001667e-10},
    {1e100, 230.258509299404568417702, 9.999999999999999840971089e-101},
};

TEST(Digamma, AgreesWithReferenceFigures) {
  for (const Figure & figure : kFigures) {
    const double error = std::fabs(QVMathFun::Digamma(figure.x) - figure.digamma);
    const double bound = figure.x < 1e-5 ? 2e-10 * std::fabs(figure.digamma)
                                         : 4e-15 * std::max(1.0, std::fabs(figure.digamma)) +
                                               kShiftRounding * figure.trigamma;
    EXPECT_LE(error, bound) << figure.x;
  }
}

TEST(Trigamma, AgreesWithReferenceFigures) {
  for (const Figure & figure : kFigures) {
    const double error = std::fabs(QVMathFun::Trigamma(figure.x) - figure.trigamma);
    const double bound =
        figure.x < 1e-4 ? 2e-8 : 4e-15 + 2.0 * kShiftRounding / std::min(figure.x, 1.0);
    EXPECT_LE(error, bound * figure.trigamma) << figure.x;
  }
}

TEST(Digamma, SmallArgumentsTakeTwoTermsAlone) {
  const double x = std::nextafter(1e-5, 0.0);
  EXPECT_EQ(QVMathFun::Digamma(x), -0.5772156649015329 - 1.0 / x);
  EXPECT_GT(QVMathFun::Digamma(1e-5) - QVMathFun::Digamma(x), 1e-5);  // the step at the border
}

TEST(Trigamma, SmallArgumentsTakeOneTermAlone) {
  const double x = std::nextafter(0.0001, 0.0);
  EXPECT_EQ(QVMathFun::Trigamma(x), 1.0 / x / x);
  EXPECT_GT(QVMathFun::Trigamma(0.0001), 1.0 / 0.0001 / 0.0001);
}

TEST(Digamma, IsMissingOutsideItsDomain) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  for (const double x : {1e-16, 0.0, -0.5, -3.0, QVMV::Missing(), nan}) {
    EXPECT_TRUE(QVMV::IsMissing(QVMathFun::Digamma(x))) << x;
    EXPECT_TRUE(QVMV::IsMissing(QVMathFun::Trigamma(x))) << x;
  }
}

TEST(Digamma, SatisfiesItsRecurrence) {
  for (double x = 0.01; x < 40.0; x *= 1.37) {
    const double digamma = QVMathFun::Digamma(x);
    const double trigamma = QVMathFun::Trigamma(x);
    EXPECT_NEAR(QVMathFun::Digamma(x + 1.0), digamma + 1.0 / x,
                1e-14 + 2.0 * kShiftRounding * trigamma);
    EXPECT_NEAR(QVMathFun::Trigamma(x + 1.0), trigamma - 1.0 / (x * x),
                1e-14 + 4.0 * kShiftRounding * trigamma / std::min(x, 1.0));
  }
}

}  // namespace
