// Structured matrices: many small blocks against a loop over Eigen's factors, designs with a few
// cells a row against Eigen's sparse matrix, and the probabilities of a multinomial logit model.

#include <Eigen/Cholesky>
#include <Eigen/Dense>
#include <Eigen/Sparse>

#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "QVDiagMatrix.h"
#include "QVSparseRectMatrix.h"
#include "QVSparseVector.h"
#include "QVSymBlockDiagMatrix.h"
#include "contender.h"

using namespace QVMath_940;

namespace {

constexpr unsigned kSeed = 20240229;

bool Agree(double a, double b) {
  return std::fabs(a - b) <= 1e-9 * (1.0 + std::fabs(b));
}

// --- Blocks --------------------------------------------------------------------------------------

using Blocks = std::vector<Eigen::MatrixXd>;

// Positive definite blocks.
Blocks RandomBlocks(int count, int size) {
  std::mt19937_64 generator(kSeed);
  std::normal_distribution<double> normal;
  Blocks blocks;
  for (int b = 0; b < count; ++b) {
    Eigen::MatrixXd x(2 * size, size);
    for (int i = 0; i < x.rows(); ++i)
      for (int j = 0; j < size; ++j)
        x(i, j) = normal(generator);
    blocks.push_back(x.transpose() * x / size);
  }
  return blocks;
}

QVSymBlockDiagMatrix AsLibrary(const Blocks & blocks) {
  QVSymBlockDiagMatrix s;
  for (const Eigen::MatrixXd & block : blocks) {
    const int size = static_cast<int>(block.rows());
    QVSymMatrix dense(size, false);
    for (int i = 0; i < size; ++i)
      for (int j = 0; j <= i; ++j)
        dense.SetElem(i, j, block(i, j));
    s.AddBlock(dense);
  }
  return s;
}

std::vector<double> RandomVector(int n) {
  std::mt19937_64 generator(kSeed + 1);
  std::normal_distribution<double> normal;
  std::vector<double> v(static_cast<std::size_t>(n));
  for (double & x : v)
    x = normal(generator);
  return v;
}

void RegisterBlocks(int count, int size) {
  const std::string shape = std::to_string(count) + "x" + std::to_string(size);
  const int n = count * size;

  // Both contenders copy the matrix and factor the copy.
  AddContender("BlockDiagLTChol/" + shape, "qv", [=](benchmark::State & state) {
    const Blocks blocks = RandomBlocks(count, size);
    const QVSymBlockDiagMatrix s = AsLibrary(blocks);
    std::vector<double> ref;
    s.GetDiagonal(ref);
    QVSymBlockDiagMatrix factor;
    for (auto _ : state) {
      factor = s;
      benchmark::DoNotOptimize(factor.LTChol(ref, 1e-12, true));
    }
    const Eigen::MatrixXd last = Eigen::LLT<Eigen::MatrixXd>(blocks.back()).matrixL();
    if (!Agree(factor.GetElem(n - 1, n - 1), last(size - 1, size - 1)))
      state.SkipWithError("differs from Eigen");
  });
  AddContender("BlockDiagLTChol/" + shape, "eigen", [=](benchmark::State & state) {
    const Blocks blocks = RandomBlocks(count, size);
    std::vector<Eigen::LLT<Eigen::MatrixXd>> factors(blocks.size());
    for (auto _ : state) {
      for (std::size_t b = 0; b < blocks.size(); ++b)
        factors[b].compute(blocks[b]);
      benchmark::ClobberMemory();
    }
  });

  AddContender("BlockDiagComputeSV/" + shape, "qv", [=](benchmark::State & state) {
    const Blocks blocks = RandomBlocks(count, size);
    const QVSymBlockDiagMatrix s = AsLibrary(blocks);
    const std::vector<double> v = RandomVector(n);
    std::vector<double> out;
    for (auto _ : state)
      benchmark::DoNotOptimize(s.ComputeSV(v, out));
    const Eigen::Map<const Eigen::VectorXd> x(v.data(), n);
    if (!Agree(out.back(), blocks.back().row(size - 1).dot(x.tail(size))))
      state.SkipWithError("differs from Eigen");
  });
  AddContender("BlockDiagComputeSV/" + shape, "eigen", [=](benchmark::State & state) {
    const Blocks blocks = RandomBlocks(count, size);
    const std::vector<double> v = RandomVector(n);
    const Eigen::Map<const Eigen::VectorXd> x(v.data(), n);
    Eigen::VectorXd out(n);
    for (auto _ : state) {
      for (int b = 0; b < count; ++b)
        out.segment(b * size, size).noalias() =
            blocks[static_cast<std::size_t>(b)] * x.segment(b * size, size);
      benchmark::ClobberMemory();
    }
  });

  AddContender("BlockDiagCholInverse/" + shape, "qv", [=](benchmark::State & state) {
    const Blocks blocks = RandomBlocks(count, size);
    const QVSymBlockDiagMatrix s = AsLibrary(blocks);
    std::vector<double> ref;
    s.GetDiagonal(ref);
    QVSymBlockDiagMatrix inverse;
    for (auto _ : state)
      benchmark::DoNotOptimize(s.CholInverse(ref, 1e-12, inverse));
    const Eigen::MatrixXd last = blocks.back().inverse();
    if (!Agree(inverse.GetElem(n - 1, n - 2), last(size - 1, size - 2)))
      state.SkipWithError("differs from Eigen");
  });
  AddContender("BlockDiagCholInverse/" + shape, "eigen", [=](benchmark::State & state) {
    const Blocks blocks = RandomBlocks(count, size);
    const Eigen::MatrixXd identity = Eigen::MatrixXd::Identity(size, size);
    Blocks inverses(blocks.size());
    for (auto _ : state) {
      for (std::size_t b = 0; b < blocks.size(); ++b)
        inverses[b] = Eigen::LLT<Eigen::MatrixXd>(blocks[b]).solve(identity);
      benchmark::ClobberMemory();
    }
  });
}

// --- Sparse designs ------------------------------------------------------------------------------

struct Design {
  QVSparseRectMatrix library;
  Eigen::SparseMatrix<double, Eigen::RowMajor> eigen;
};

// One cell in each of `cells` groups of columns, as coded factors give them.
Design RandomDesign(int rows, int columns, int cells) {
  std::mt19937_64 generator(kSeed + 2);
  std::uniform_real_distribution<double> uniform(0.5, 1.5);
  const int width = columns / cells;
  std::uniform_int_distribution<int> place(0, width - 1);
  Design design{QVSparseRectMatrix(rows, columns, cells), {rows, columns}};
  std::vector<Eigen::Triplet<double>> triplets;
  std::vector<int> indices(static_cast<std::size_t>(cells));
  std::vector<double> values(indices.size());
  for (int i = 0; i < rows; ++i) {
    for (int p = 0; p < cells; ++p) {
      indices[static_cast<std::size_t>(p)] = p * width + place(generator);
      values[static_cast<std::size_t>(p)] = uniform(generator);
      triplets.emplace_back(i, indices[static_cast<std::size_t>(p)],
                            values[static_cast<std::size_t>(p)]);
    }
    design.library.AddRow(QVSparseVector(indices, values));
  }
  design.eigen.setFromTriplets(triplets.begin(), triplets.end());
  return design;
}

void RegisterDesign(int rows, int columns, int cells) {
  const std::string shape = std::to_string(rows) + "x" + std::to_string(columns);

  AddContender("SparseComputeRV/" + shape, "qv", [=](benchmark::State & state) {
    const Design design = RandomDesign(rows, columns, cells);
    const std::vector<double> v = RandomVector(columns);
    std::vector<double> out;
    for (auto _ : state)
      benchmark::DoNotOptimize(design.library.ComputeRV(v, out));
    const Eigen::VectorXd wanted =
        design.eigen * Eigen::Map<const Eigen::VectorXd>(v.data(), columns);
    if (!Agree(out.back(), wanted(rows - 1))) state.SkipWithError("differs from Eigen");
  })->Unit(benchmark::kMicrosecond);
  AddContender("SparseComputeRV/" + shape, "eigen", [=](benchmark::State & state) {
    const Design design = RandomDesign(rows, columns, cells);
    const std::vector<double> v = RandomVector(columns);
    const Eigen::Map<const Eigen::VectorXd> x(v.data(), columns);
    Eigen::VectorXd out(rows);
    for (auto _ : state) {
      out.noalias() = design.eigen * x;
      benchmark::ClobberMemory();
    }
  })->Unit(benchmark::kMicrosecond);

  AddContender("SparseRTransSR/" + shape, "qv", [=](benchmark::State & state) {
    const Design design = RandomDesign(rows, columns, cells);
    const QVDiagMatrix weights(RandomVector(rows));
    QVSymMatrix out;
    for (auto _ : state)
      benchmark::DoNotOptimize(weights.ComputeRTransSR(design.library, out));
    const Eigen::Map<const Eigen::VectorXd> d(weights.AsVector().data(), rows);
    const Eigen::SparseMatrix<double> wanted =
        Eigen::SparseMatrix<double>(design.eigen.transpose()) * d.asDiagonal() *
        Eigen::SparseMatrix<double>(design.eigen);
    if (!Agree(out.GetElem(columns - 1, 0), wanted.coeff(columns - 1, 0)))
      state.SkipWithError("differs from Eigen");
  })->Unit(benchmark::kMicrosecond);
  AddContender("SparseRTransSR/" + shape, "eigen", [=](benchmark::State & state) {
    const Design design = RandomDesign(rows, columns, cells);
    const std::vector<double> weights = RandomVector(rows);
    const Eigen::Map<const Eigen::VectorXd> d(weights.data(), rows);
    for (auto _ : state) {
      const Eigen::SparseMatrix<double, Eigen::RowMajor> scaled = d.asDiagonal() * design.eigen;
      const Eigen::SparseMatrix<double> product = design.eigen.transpose() * scaled;
      benchmark::DoNotOptimize(product.valuePtr());
    }
  })->Unit(benchmark::kMicrosecond);
}

// --- Probabilities -------------------------------------------------------------------------------

void RegisterProbabilities(int categories, int cells) {
  const std::string work =
      "ComputeProbabilities/" + std::to_string(categories) + "x" + std::to_string(cells);
  const int width = 4 * cells;
  std::vector<int> indices;
  for (int p = 0; p < cells; ++p)
    indices.push_back(4 * p + p % 4);
  const std::vector<double> values(indices.size(), 1.0);
  const std::vector<double> beta = RandomVector((categories - 1) * width);

  AddContender(work, "qv", [=](benchmark::State & state) {
    const QVSparseVector x(indices, values);
    std::vector<double> probs;
    double logLast = 0.0;
    for (auto _ : state) {
      benchmark::DoNotOptimize(x.ComputeProbabilities(beta, categories, width, probs, logLast));
      benchmark::ClobberMemory();
    }
  });
  // Plain loops without any guard.
  AddContender(work, "loops", [=](benchmark::State & state) {
    std::vector<double> probs(static_cast<std::size_t>(categories));
    for (auto _ : state) {
      double sum = 1.0;
      for (int c = 0; c + 1 < categories; ++c) {
        double eta = 0.0;
        for (std::size_t p = 0; p < indices.size(); ++p)
          eta += values[p] * beta[static_cast<std::size_t>(c * width + indices[p])];
        probs[static_cast<std::size_t>(c)] = std::exp(eta);
        sum += probs[static_cast<std::size_t>(c)];
      }
      probs.back() = 1.0;
      for (double & p : probs)
        p /= sum;
      double logLast = -std::log(sum);
      benchmark::DoNotOptimize(logLast);
      benchmark::ClobberMemory();
    }
  });
}

}  // namespace

void RegisterBenchmarks() {
  RegisterBlocks(1000, 10);
  RegisterBlocks(100, 50);
  RegisterDesign(100000, 200, 8);
  RegisterProbabilities(5, 10);
}
