/// Positive definite matrices in the storage of each contender, and the check that all contenders
/// have found the same.
#pragma once

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstddef>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "QVSymMatrix.h"

/// One example of order n: uniform elements in [-1, 1), n added to the diagonal.
struct Example {
  explicit Example(int order) : n(order), packed(order, true) {
    std::mt19937 engine(static_cast<unsigned>(order));
    std::uniform_real_distribution<double> uniform(-1.0, 1.0);
    for (double & element : packed.AsVector())
      element = uniform(engine);
    packed.AddToDiagonal(n);
    vector.resize(static_cast<std::size_t>(n));
    for (double & element : vector)
      element = uniform(engine);
  }

  /// The whole matrix, in either order of storage.
  std::vector<double> Full() const {
    std::vector<double> full;
    full.reserve(vector.size() * vector.size());
    for (int i = 0; i < n; ++i)
      for (int j = 0; j < n; ++j)
        full.push_back(packed.GetElem(i, j));
    return full;
  }

  int n;
  QVMath_940::QVSymMatrix packed;  // for LAPACK: the upper triangle, column after column
  std::vector<double> vector;
};

/// Fails the benchmark when another contender at this work has found another value.
inline void ExpectAgreement(benchmark::State & state, const std::string & work, double value) {
  static std::map<std::string, double> values;
  const auto [first, isFirst] = values.emplace(work, value);
  if (!isFirst && !(std::abs(value - first->second) <= 1e-9 * std::abs(first->second)))
    state.SkipWithError("the result differs from that of another contender");
}
