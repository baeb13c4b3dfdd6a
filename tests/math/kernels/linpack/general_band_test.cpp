#include <algorithm>
#include <cmath>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Linpack.h"
#include "math/kernels/linpack/dense_reference.h"

using namespace linpack_test;
using QVMath_940::Linpack;

namespace {

/// A band matrix in full storage and in band storage; what the band form need not hold is NaN.
struct BandPair {
  int n;
  int ml;
  int mu;
  Matrix full;
  Matrix band;
};

BandPair MakeBand(Source & source, int n, int ml, int mu) {
  BandPair pair{n, ml, mu, Matrix(n, n), Matrix(2 * ml + mu + 1, n, 1)};
  for (int j = 0; j < n; ++j) {
    for (int i = 0; i < pair.band.Lead(); ++i)
      pair.band(i, j) = kNaN;
    for (int i = std::max(0, j - mu); i <= std::min(n - 1, j + ml); ++i) {
      pair.full(i, j) = source.Next();
      pair.band(ml + mu + i - j, j) = pair.full(i, j);
    }
  }
  return pair;
}

std::vector<BandPair> Bands() {
  Source source(1);
  std::vector<BandPair> bands;
  for (const int n : {1, 2, 3, 7}) {
    for (int ml = 0; ml < n; ++ml) {
      for (int mu = 0; mu < n; ++mu)
        bands.push_back(MakeBand(source, n, ml, mu));
    }
  }
  for (const int n : {33, 129}) {
    bands.push_back(MakeBand(source, n, 0, 0));
    bands.push_back(MakeBand(source, n, 1, 1));
    bands.push_back(MakeBand(source, n, 2, 5));
    bands.push_back(MakeBand(source, n, 9, 3));
    bands.push_back(MakeBand(source, n, n - 1, n - 1));
  }
  return bands;
}

TEST(LinpackGeneralBand, EliminatesAsTheFullForm) {
  for (BandPair & pair : Bands()) {
    const int n = pair.n;
    std::vector<int> ipvt(Count(n));
    std::vector<int> fullPivots(Count(n));
    EXPECT_EQ(Linpack::Dgbfa(pair.band.Data(), pair.band.Lead(), n, pair.ml, pair.mu, ipvt.data()),
              Linpack::Dgefa(pair.full.Data(), n, n, fullPivots.data()));
    EXPECT_EQ(ipvt, fullPivots);
    const int above = pair.ml + pair.mu;
    for (int j = 0; j < n; ++j) {
      for (int i = std::max(0, j - above); i <= std::min(n - 1, j + pair.ml); ++i) {
        ASSERT_EQ(pair.band(above + i - j, j), pair.full(i, j)) << n << ": " << i << ", " << j;
      }
      EXPECT_TRUE(std::isnan(pair.band(pair.band.Lead() - 1, j)));
    }
  }
}

TEST(LinpackGeneralBand, SolvesWithAAndItsTranspose) {
  Source source(2);
  for (BandPair & pair : Bands()) {
    const int n = pair.n;
    std::vector<int> ipvt(Count(n));
    std::vector<double> z(Count(n));
    Linpack::Dgbfa(pair.band.Data(), pair.band.Lead(), n, pair.ml, pair.mu, ipvt.data());
    const std::vector<double> b = source.Vector(n);
    for (const int job : {0, 1}) {
      std::vector<double> x = b;
      Linpack::Dgbsl(pair.band.Data(), pair.band.Lead(), n, pair.ml, pair.mu, ipvt.data(), x.data(),
                     job);
      EXPECT_LT(SolveResidual(job == 0 ? pair.full : Transpose(pair.full), x, b), kThreshold)
          << n << ' ' << pair.ml << ' ' << pair.mu;
    }
    double det[2];
    Linpack::Dgbdi(pair.band.Data(), pair.band.Lead(), n, pair.ml, pair.mu, ipvt.data(), det);
    EXPECT_TRUE(IsDeterminant(det, pair.full, 1e-6)) << n << ' ' << pair.ml << ' ' << pair.mu;
  }
}

TEST(LinpackGeneralBand, EstimateLiesAboveTheTrueReciprocalCondition) {
  for (BandPair & pair : Bands()) {
    if (pair.n > 33) continue;
    const int n = pair.n;
    std::vector<int> ipvt(Count(n));
    std::vector<double> z(Count(n));
    const double truth = TrueReciprocalCondition(pair.full);
    const double estimate = Linpack::Dgbco(pair.band.Data(), pair.band.Lead(), n, pair.ml, pair.mu,
                                           ipvt.data(), z.data());
    EXPECT_GE(estimate, truth * (1.0 - 1e-6)) << n << ' ' << pair.ml << ' ' << pair.mu;
    EXPECT_LE(estimate, truth * kEstimateFactor) << n << ' ' << pair.ml << ' ' << pair.mu;
    EXPECT_NEAR(Norm1(Multiply(pair.full, z)) / (estimate * Norm1(pair.full) * Norm1(z)), 1.0,
                1e-9 + 100 * n * kEpsilon / estimate);
  }
}

TEST(LinpackGeneralBand, SingularMatricesTellTheZeroPivot) {
  Source source(3);
  for (const int zero : {0, 3, 6}) {
    BandPair pair = MakeBand(source, 7, 2, 1);
    for (int i = 0; i < pair.band.Rows(); ++i)
      pair.band(i, zero) = 0.0;
    Matrix copy = pair.band;
    int ipvt[7];
    double z[7];
    EXPECT_EQ(Linpack::Dgbfa(pair.band.Data(), pair.band.Lead(), 7, 2, 1, ipvt), zero + 1);
    EXPECT_EQ(1.0 + Linpack::Dgbco(copy.Data(), copy.Lead(), 7, 2, 1, ipvt, z), 1.0);
    double det[2];
    Linpack::Dgbdi(copy.Data(), copy.Lead(), 7, 2, 1, ipvt, det);
    EXPECT_EQ(det[0], 0.0);
  }
}

TEST(LinpackGeneralBand, OrderZeroDoesNothing) {
  double det[2];
  EXPECT_EQ(Linpack::Dgbfa(nullptr, 1, 0, 0, 0, nullptr), 0);
  EXPECT_EQ(Linpack::Dgbco(nullptr, 1, 0, 0, 0, nullptr, nullptr), 0.0);
  Linpack::Dgbsl(nullptr, 1, 0, 0, 0, nullptr, nullptr, 0);
  Linpack::Dgbdi(nullptr, 1, 0, 0, 0, nullptr, det);
  EXPECT_EQ(det[0], 1.0);
  EXPECT_EQ(det[1], 0.0);
}

}  // namespace
