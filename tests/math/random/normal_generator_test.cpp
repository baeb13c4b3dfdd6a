#include "QVRNGNormal.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "QVMV.h"
#include "QVRNGUCongruential.h"
#include "QVRNGUTwister.h"
#include "math/random/golden.h"
#include "math/random/recorded_uniform.h"

namespace {

using namespace QVMath_940;

constexpr double kXi = 2.216035867166471;

double NormalFrom(std::vector<double> uniforms) {
  const std::size_t count = uniforms.size();
  ScriptedGenerator script(std::move(uniforms));
  QVRNGNormal normal;
  normal.SetURNGenerator(script);
  const double value = normal.GetNext();
  EXPECT_EQ(script.drawn, count);
  return value;
}

double Gap(double t) {
  return std::max(0.0, std::exp(-t * t / 2) * 0.3989422804014327 -
                           std::max(0.0, kXi - std::fabs(t)) * 0.180025191068563);
}

TEST(RNGNormal, GoldenSequences) {
  QVRNGNormal normal(10.0, 2.0);
  ExpectGolden("rng_normal_10_2", [&] { return normal.GetNext(); });
  QVRNGUTwister twister;
  twister.SetSeed(11.0);
  QVRNGNormal standard;
  standard.SetURNGenerator(twister);
  ExpectGolden("rng_normal_twister", [&] { return standard.GetNext(); });
}

TEST(RNGNormal, TriangleTakesTwoUniforms) {
  EXPECT_EQ(NormalFrom({0.5, 0.25}), (0.25 + 0.5 * 1.13113163544418) * kXi - kXi);
}

TEST(RNGNormal, FirstPiece) {
  const double inner = 0.479727404222441;
  const double k = 0.59550713801594;
  // The larger one decides at once; the sign is that of a >= b.
  EXPECT_EQ(NormalFrom({0.9, 0.2, 0.3}), inner - 0.2 * k);
  EXPECT_EQ(NormalFrom({0.9, 0.3, 0.2}), -(inner - 0.2 * k));
  EXPECT_EQ(NormalFrom({0.884070402298758, 0.2, 0.2}), -(inner - 0.2 * k));
  // t below 0: again, however small the gap.
  EXPECT_EQ(NormalFrom({0.9, 0.9, 0.9, 0.2, 0.3}), inner - 0.2 * k);
  // A wide gap fails f(t), a narrow one passes.
  const double t = inner - 0.7 * k;
  ASSERT_LE(0.12 * 0.053377549506886, Gap(t));
  EXPECT_EQ(NormalFrom({0.9, 0.7, 0.82}), t);
  const double far = inner - 0.01 * k;
  ASSERT_GT(0.98 * 0.053377549506886, Gap(far));
  EXPECT_EQ(NormalFrom({0.9, 0.01, 0.99, 0.2, 0.3}), inner - 0.2 * k);
}

TEST(RNGNormal, SecondPiece) {
  EXPECT_EQ(NormalFrom({0.911312780288703, 0.2, 0.3}), 0.2 * 1.10547366102207 + 0.479727404222441);
  const double far = 0.01 * 1.10547366102207 + 0.479727404222441;
  ASSERT_GT(0.98 * 0.049264496373128, Gap(far));
  EXPECT_EQ(NormalFrom({0.93, 0.01, 0.99, 0.3, 0.2}),
            -(0.2 * 1.10547366102207 + 0.479727404222441));
}

TEST(RNGNormal, ThirdPiece) {
  EXPECT_EQ(NormalFrom({0.958720824790463, 0.2, 0.3}), kXi - 0.2 * 0.63083480192196);
  const double far = kXi - 0.01 * 0.63083480192196;
  ASSERT_GT(0.989 * 0.034240503750111, Gap(far));
  EXPECT_EQ(NormalFrom({0.96, 0.01, 0.999, 0.3, 0.2}), -(kXi - 0.2 * 0.63083480192196));
}

TEST(RNGNormal, Tail) {
  const double x = 2.455407482284127 - std::log(0.5);
  EXPECT_EQ(NormalFrom({0.98, 0.1, 0.5}), std::sqrt(2 * x));
  EXPECT_EQ(NormalFrom({0.973310954173898, 0.1, 0.5}), std::sqrt(2 * x));
  EXPECT_EQ(NormalFrom({0.986655477086949, 0.1, 0.5}), -std::sqrt(2 * x));
  EXPECT_EQ(NormalFrom({0.98, 0.99, 0.001, 0.1, 0.5}), std::sqrt(2 * x));  // rejected once
}

TEST(RNGNormal, ScaleAndLocation) {
  const double z = NormalFrom({0.5, 0.25});
  ScriptedGenerator script({0.5, 0.25});
  QVRNGNormal normal(3.0, 2.0);
  normal.SetURNGenerator(script);
  EXPECT_EQ(normal.GetNext(), z * 2.0 + 3.0);
  normal.SetParameters(-1.0, 0.0);  // sd 0 is allowed, and draws
  script.drawn = 0;
  EXPECT_EQ(normal.GetNext(), -1.0);
  EXPECT_EQ(script.drawn, 2u);
}

TEST(RNGNormal, NegativeSdMeansStandard) {
  const double z = NormalFrom({0.5, 0.25});
  ScriptedGenerator script({0.5, 0.25});
  QVRNGNormal normal(3.0, -1e-300);
  normal.SetURNGenerator(script);
  EXPECT_EQ(normal.GetNext(), z);
  normal.SetParameters(5.0, 4.0);
  EXPECT_EQ(normal.GetNext(7.0, -2.0), z);
  EXPECT_EQ(normal.GetNext(7.0, 2.0), z * 2.0 + 7.0);
  EXPECT_EQ(normal.GetNext(), z * 4.0 + 5.0);  // the stored ones stay
  normal.SetParameters(5.0, -4.0);
  EXPECT_EQ(normal.GetNext(), z);
}

TEST(RNGNormal, MakesAnOwnCongruentialWithState1) {
  QVRNGUCongruential uniform;
  QVRNGNormal given;
  given.SetURNGenerator(uniform);
  QVRNGNormal own;
  for (int i = 0; i < 100; ++i)
    EXPECT_EQ(own.GetNext(), given.GetNext());
  uniform.SetSeed(77.0);
  QVRNGNormal seeded;  // SetSeed makes the generator too
  seeded.SetSeed(77.0);
  for (int i = 0; i < 100; ++i)
    EXPECT_EQ(seeded.GetNext(), given.GetNext());
}

TEST(RNGNormal, SeedGoesToTheCallersGenerator) {
  ScriptedGenerator script({0.5});
  QVRNGNormal normal;
  normal.SetURNGenerator(script);
  normal.SetSeed(4.5);
  EXPECT_EQ(script.seed, 4.5);
}

TEST(RNGNormal, TheCallersGeneratorIsNeverDeleted) {
  int deletions = 0;
  {
    ScriptedGenerator first({0.5, 0.25}, &deletions);
    ScriptedGenerator second({0.5, 0.25}, &deletions);
    {
      QVRNGNormal normal;
      normal.GetNext();  // an own one, which goes with the next line
      normal.SetURNGenerator(first);
      QVRNGNormal copy(normal);
      QVRNGNormal assigned;
      assigned.GetNext();
      assigned = normal;
      normal.SetURNGenerator(second);
      copy.GetNext();
      assigned.GetNext();
      EXPECT_EQ(first.drawn, 4u);  // shared by both
      EXPECT_EQ(second.drawn, 0u);
    }
    EXPECT_EQ(deletions, 0);
  }
  EXPECT_EQ(deletions, 2);
}

TEST(RNGNormal, ACopyTakesAnOwnGeneratorWithItsState) {
  QVRNGNormal normal(1.0, 3.0);
  for (int i = 0; i < 10; ++i)
    normal.GetNext();
  QVRNGNormal copy(normal);
  QVRNGNormal assigned(9.0, 9.0);
  assigned = normal;
  assigned = *&assigned;
  for (int i = 0; i < 100; ++i) {
    const double wanted = normal.GetNext();
    EXPECT_EQ(copy.GetNext(), wanted);
    EXPECT_EQ(assigned.GetNext(), wanted);
  }
}

TEST(RNGNormal, ASourceThatIsNotRandomEndsInTheMissingValue) {
  for (const double u : {0.9, 1.0, std::nan("")}) {
    ScriptedGenerator script({u});
    QVRNGNormal normal;
    normal.SetURNGenerator(script);
    const double value = normal.GetNext();
    EXPECT_TRUE(QVCommon_940::QVMV::IsMissing(value) || std::isfinite(value)) << u;
  }
}

}  // namespace
