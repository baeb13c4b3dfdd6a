#include "math/random/goodness_of_fit.h"

#include <gtest/gtest.h>

#include "QVDistFun.h"
#include "QVRNGNormal.h"
#include "QVRNGUCongruential.h"
#include "QVRNGUTwister.h"
#include "QVRandomValues.h"
#include "QVURandom.h"

namespace {

using namespace QVMath_940;

double Same(double u) {
  return u;
}

TEST(GoodnessOfFit, Uniform) {
  QVURandom twister(20240517, true, true, nullptr);
  ExpectFit([&] { return twister.GetRandom(); }, Same);
  QVURandom portable(20240517, true, false, nullptr);
  ExpectFit([&] { return portable.GetRandom(); }, Same);
  QVRNGUCongruential congruential;
  congruential.SetSeed(99.0);
  ExpectFit([&] { return congruential.GetNext(); }, Same);
  QVRNGUTwister object;
  object.SetSeed(0.125);
  ExpectFit([&] { return object.GetNext(); }, Same);
}

TEST(GoodnessOfFit, Normal) {
  QVRNGNormal normal(-3.0, 0.5);
  normal.SetSeed(31.0);
  ExpectFit([&] { return normal.GetNext(); },
            [](double x) { return QVDistFun::CdfNorm(x, -3.0, 0.5); });
  QVRandomValues values;
  values.SetParamNormal(2.0, 9.0);
  ExpectFit([&] { return values.GetRandom(); },
            [](double x) { return QVDistFun::CdfNorm(x, 2.0, 3.0); });
}

TEST(GoodnessOfFit, ValuesUniform) {
  QVRandomValues values;
  values.SetParamUniform(-1.0, 3.0);
  ExpectFit([&] { return values.GetRandom(); }, [](double x) { return (x + 1.0) / 4.0; });
}

TEST(GoodnessOfFit, ChiSquare) {
  QVRandomValues values;
  for (const double df : {0.5, 1.0, 2.0, 3.0, 30.0}) {
    values.SetParamChi(df);
    ExpectFit([&] { return values.GetRandom(); },
              [=](double x) { return QVDistFun::CdfChi(x, df); });
  }
}

TEST(GoodnessOfFit, Gamma) {
  QVRandomValues values;
  for (const double shape : {0.1, 0.9, 1.0, 1.1, 4.0, 50.0, 300.0, 10000.0}) {
    const double rate = 2.5;
    values.SetParamGamma(shape, rate);
    // A gamma number times twice its rate is chi-square.
    ExpectFit([&] { return values.GetRandom(); },
              [=](double x) { return QVDistFun::CdfChi(2.0 * rate * x, 2.0 * shape); });
  }
}

}  // namespace
