// Means and cross-products: a case at a time against the same update by BLAS, and whole matrices
// against the covariance of Armadillo on OpenBLAS.

#include <cblas.h>
#include <armadillo>

#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "QVMeansXProducts.h"
#include "QVProvMeans.h"
#include "contender.h"

using QVMath_940::QVMeansXProducts;
using QVMath_940::QVProvMeans;
using QVMath_940::QVRectMatrix;

namespace {

constexpr unsigned kSeed = 20240229;
constexpr int kStreamCases = 256;  // enough to vary, few enough to stay in the cache
constexpr int kMatrixCases = 100000;

using Rows = std::vector<std::vector<double>>;

Rows RandomCases(int nCases, int nVars) {
  std::mt19937_64 generator(kSeed);
  std::normal_distribution<double> normal(10.0, 2.0);
  Rows rows(nCases, std::vector<double>(nVars));
  for (std::vector<double> & row : rows) {
    for (double & x : row)
      x = normal(generator);
  }
  return rows;
}

QVRectMatrix RandomMatrix(int nCases, int nVars) {
  QVRectMatrix data(nCases, nVars, false);
  const Rows rows = RandomCases(nCases, nVars);
  for (int r = 0; r < nCases; ++r) {
    for (int j = 0; j < nVars; ++j)
      data.SetElem(r, j, rows[r][j]);
  }
  return data;
}

bool Agree(double a, double b) {
  return std::fabs(a - b) <= 1e-9 * (1.0 + std::fabs(b));
}

// --- One case ------------------------------------------------------------------------------------

// The update of QVProvMeans written by hand: dspr for the products, a loop for the means.
struct BlasMeans {
  explicit BlasMeans(int nVars)
      : n(nVars), means(nVars, 0.0), deviations(nVars), xProds(nVars * (nVars + 1) / 2, 0.0) {}

  void Update(const std::vector<double> & x, double w) {
    const double newNCases = nCases + w;
    for (int i = 0; i < n; ++i)
      deviations[i] = x[i] - means[i];
    // The lower triangle by rows is the upper one by columns.
    cblas_dspr(CblasColMajor, CblasUpper, n, nCases * w / newNCases, deviations.data(), 1,
               xProds.data());
    const double share = w / newNCases;
    for (int i = 0; i < n; ++i)
      means[i] += deviations[i] * share;
    nCases = newNCases;
  }

  int n;
  double nCases = 0.0;
  std::vector<double> means, deviations, xProds;
};

void RegisterOneCase(int nVars) {
  const std::string work = "ProvMeansUpdate/" + std::to_string(nVars);
  AddContender(work, "qv", [nVars](benchmark::State & state) {
    const Rows rows = RandomCases(kStreamCases, nVars);
    QVProvMeans stats(nVars, true);
    BlasMeans check(nVars);
    for (const auto & row : rows) {
      stats.Update(row, 1.0);
      check.Update(row, 1.0);
    }
    for (int k = 0; k < nVars * (nVars + 1) / 2; ++k) {
      if (!Agree(stats.GetXProds().GetElem(k), check.xProds[k])) {
        state.SkipWithError("differs from dspr");
      }
    }
    std::size_t r = 0;
    for (auto _ : state) {
      benchmark::DoNotOptimize(stats.Update(rows[r], 1.0));
      r = (r + 1) % kStreamCases;
    }
  });
  AddContender(work, "openblas_dspr", [nVars](benchmark::State & state) {
    const Rows rows = RandomCases(kStreamCases, nVars);
    BlasMeans stats(nVars);
    for (const auto & row : rows)
      stats.Update(row, 1.0);
    std::size_t r = 0;
    for (auto _ : state) {
      stats.Update(rows[r], 1.0);
      benchmark::ClobberMemory();
      r = (r + 1) % kStreamCases;
    }
  });
}

// --- A matrix of cases ---------------------------------------------------------------------------

arma::mat AsArmadillo(const QVRectMatrix & data) {
  arma::mat m(data.GetNRows(), data.GetNCols());
  for (int r = 0; r < data.GetNRows(); ++r) {
    for (int j = 0; j < data.GetNCols(); ++j)
      m(r, j) = data.GetElem(r, j);
  }
  return m;
}

bool AgreesWithArmadillo(const QVMeansXProducts & stats, const QVRectMatrix & data) {
  const arma::mat covariances = arma::cov(AsArmadillo(data));
  const double divisor = data.GetNRows() - 1.0;
  for (int i = 0; i < data.GetNCols(); ++i) {
    for (int j = 0; j <= i; ++j) {
      if (!Agree(stats.GetXProds().GetElem(i, j) / divisor, covariances(i, j))) return false;
    }
  }
  return true;
}

// The peer gives the covariances alone; its means are a second call, as a caller would make it.
void AddArmadillo(const std::string & work, int nVars) {
  AddContender(work, "armadillo", [nVars](benchmark::State & state) {
    const arma::mat m = AsArmadillo(RandomMatrix(kMatrixCases, nVars));
    for (auto _ : state) {
      arma::mat covariances = arma::cov(m);
      benchmark::DoNotOptimize(covariances.memptr());
    }
  })->Unit(benchmark::kMillisecond);
}

void RegisterMatrix(int nVars) {
  const std::string size = std::to_string(kMatrixCases) + "x" + std::to_string(nVars);
  AddContender("MeansXProductsCompute/" + size, "qv", [nVars](benchmark::State & state) {
    const QVRectMatrix data = RandomMatrix(kMatrixCases, nVars);
    QVMeansXProducts stats(nVars, true, false, false);
    stats.Compute(data, 0);
    if (!AgreesWithArmadillo(stats, data)) state.SkipWithError("differs from Armadillo");
    for (auto _ : state)
      benchmark::DoNotOptimize(stats.Compute(data, 0));
  })->Unit(benchmark::kMillisecond);
  AddArmadillo("MeansXProductsCompute/" + size, nVars);
  AddContender("MeansXProductsUpdateOnePass/" + size, "qv", [nVars](benchmark::State & state) {
    const QVRectMatrix data = RandomMatrix(kMatrixCases, nVars);
    QVMeansXProducts stats(nVars, true, false, false);
    stats.UpdateOnePass(data, 0);
    stats.FinishUpdateOnePass();
    if (!AgreesWithArmadillo(stats, data)) state.SkipWithError("differs from Armadillo");
    for (auto _ : state) {
      stats.StartUpdateOnePass();
      benchmark::DoNotOptimize(stats.UpdateOnePass(data, 0));
      stats.FinishUpdateOnePass();
    }
  })->Unit(benchmark::kMillisecond);
  AddArmadillo("MeansXProductsUpdateOnePass/" + size, nVars);
}

}  // namespace

void RegisterBenchmarks() {
  for (const int nVars : {10, 50, 200})
    RegisterOneCase(nVars);
  for (const int nVars : {50, 200})
    RegisterMatrix(nVars);
}
