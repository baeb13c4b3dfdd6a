/// What every benchmark program of this folder has in common.
///
/// A program measures pieces of work, each done by the library ("qv") and by its peers:
///
///     void RegisterBenchmarks() {
///       for (int n : {20, 200, 1000}) {
///         const std::string work = "Sweep/" + std::to_string(n);
///         AddContender(work, "qv", [n](benchmark::State & state) {
///           QVSymMatrix matrix = Example(n);
///           for (auto _ : state) matrix.Sweep(...);
///         });
///         AddContender(work, "openblas", [n](benchmark::State & state) { ... });
///       }
///     }
///
/// Register "qv" first. Prepare inside the body, before its loop: a filtered run then prepares only
/// what it measures. Every contender of a piece of work gets the same data (fixed seeds), and must
/// be shown to give the same result by a test or by `state.SkipWithError`.
#pragma once

#include <benchmark/benchmark.h>

#include <string>
#include <utility>

/// Defined by each program: registers its benchmarks.
void RegisterBenchmarks();

/// Adds one contender at one piece of work. The table (bench/table.py) groups by the name's part
/// before the last slash.
template <typename Body>
benchmark::internal::Benchmark * AddContender(const std::string & work,
                                              const std::string & contender, Body && body) {
  return benchmark::RegisterBenchmark((work + "/" + contender).c_str(), std::forward<Body>(body));
}
