// How much memory the in-place operations need: the largest amount in use while one runs on a
// matrix of order 5000, divided by its packed storage. Run it with --benchmark_filter=PeakMemory to
// see the counters; a benchmark fails when its figure is above 1.1.

#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <new>
#include <string>
#include <vector>

#include "QVBitSet.h"
#include "QVSymMatrix.h"
#include "contender.h"
#include "positive_definite.h"

using QVMath_940::QVBitSet;
using QVMath_940::QVSymMatrix;

namespace {

std::size_t gInUse = 0;
std::size_t gPeak = 0;

}  // namespace

void * operator new(std::size_t bytes) {
  void * const memory = std::malloc(bytes == 0 ? 1 : bytes);
  if (memory == nullptr) throw std::bad_alloc();
  gInUse += malloc_usable_size(memory);
  gPeak = std::max(gPeak, gInUse);
  return memory;
}
void operator delete(void * memory) noexcept {
  gInUse -= malloc_usable_size(memory);
  std::free(memory);
}
void operator delete(void * memory, std::size_t) noexcept {
  operator delete(memory);
}

namespace {

constexpr int kOrder = 5000;
constexpr double kAllowed = 1.1;

template <typename Work>
void Measure(const char * operation, Work && work) {
  AddContender("PeakMemory/" + std::string(operation) + "/" + std::to_string(kOrder), "qv",
               [=](benchmark::State & state) {
                 QVSymMatrix s = Example(kOrder).packed;
                 const std::size_t before = gInUse;
                 const double packed = static_cast<double>(s.AsVector().size() * sizeof(double));
                 for (auto _ : state) {
                   gPeak = gInUse;
                   work(s);
                 }
                 const double most = packed + static_cast<double>(gPeak - before);
                 state.counters["peak/packed"] = most / packed;
                 if (!(most <= kAllowed * packed))
                   state.SkipWithError("more than 1.1 times the storage");
               })
      ->Iterations(1)
      ->Unit(benchmark::kMillisecond);
}

std::vector<double> Ones() {
  return std::vector<double>(static_cast<std::size_t>(kOrder), 1.0);
}

}  // namespace

void RegisterBenchmarks() {
  Measure("SweepOnAll", [](QVSymMatrix & s) {
    QVBitSet swept;
    s.SweepOnAll(1e-12, swept, true, false, false, nullptr);
  });
  Measure("LTChol", [](QVSymMatrix & s) { s.LTChol(Ones(), 1e-12, true); });
  Measure("LTInverse", [](QVSymMatrix & s) { s.LTInverse(); });
  Measure("CholInverse", [](QVSymMatrix & s) { s.CholInverse(Ones(), 1e-12, s); });
  Measure("LTSolve", [](QVSymMatrix & s) {
    std::vector<double> x;
    s.LTSolve(Ones(), 1e-12, x);
  });
  Measure("LTCholUpdateR1", [](QVSymMatrix & s) {
    std::vector<double> c = Ones(), d = Ones();
    s.LTCholUpdateR1(Ones(), c, d);
  });
  Measure("LTCholDowndate", [](QVSymMatrix & s) {
    std::vector<double> c = Ones(), d = Ones();
    s.LTCholDowndate(Ones(), c, d, false);
  });
}
