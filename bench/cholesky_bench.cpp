// Factoring, inverting and solving: packed here, packed and full in LAPACK (OpenBLAS). Every
// contender starts from a fresh copy of the matrix, which is not timed from order 200 on, where
// stopping the clock costs nothing beside the work.

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "QVBitSet.h"
#include "QVSymMatrix.h"
#include "contender.h"
#include "positive_definite.h"

using QVMath_940::QVBitSet;
using QVMath_940::QVSymMatrix;

// The routines themselves: LAPACKE's row-major forms would copy, and its column-major ones look for
// NaN first.
extern "C" {
void dpotrf_(const char *, const int *, double *, const int *, int *, std::size_t);
void dpotri_(const char *, const int *, double *, const int *, int *, std::size_t);
void dpptrf_(const char *, const int *, double *, int *, std::size_t);
void dpptri_(const char *, const int *, double *, int *, std::size_t);
void dpptrs_(const char *, const int *, const int *, const double *, double *, const int *, int *,
             std::size_t);
void dppsv_(const char *, const int *, const int *, double *, double *, const int *, int *,
            std::size_t);
}

namespace {

constexpr double kTolerance = 1e-12;
constexpr int kOne = 1;
constexpr int kSmall = 200;  // below this order the copy is timed

/// Runs `work` on a fresh copy of `original` in each round, and gives the last one's result.
template <typename Matrix, typename Work>
Matrix OnCopies(benchmark::State & state, int n, const Matrix & original, Work && work) {
  Matrix copy = original;
  for (auto _ : state) {
    if (n < kSmall) {
      copy = original;
    } else {
      state.PauseTiming();
      copy = original;
      state.ResumeTiming();
    }
    work(copy);
    benchmark::ClobberMemory();
  }
  return copy;
}

/// The last diagonal element, in each storage.
double Last(const QVSymMatrix & s) {
  return s.GetElem(s.GetNRows() - 1, s.GetNRows() - 1);
}
double Last(const std::vector<double> & elements) {
  return elements.back();
}

std::string Name(const char * operation, int n) {
  return std::string(operation) + "/" + std::to_string(n);
}

/// LAPACK's lower triangle in full storage stands for either order of storage.
template <typename Work>
void AddFull(const std::string & work, const char * contender, int n, Work && job) {
  AddContender(work, contender, [=](benchmark::State & state) {
    const auto result = OnCopies(state, n, Example(n).Full(), job);
    ExpectAgreement(state, work, std::abs(Last(result)));
  });
}
template <typename Work>
void AddPacked(const std::string & work, const char * contender, int n, Work && job) {
  AddContender(work, contender, [=](benchmark::State & state) {
    const auto result = OnCopies(state, n, Example(n).packed.AsVector(), job);
    ExpectAgreement(state, work, std::abs(Last(result)));
  });
}

void AddInverses(const std::string & work, int n, bool withPacked) {
  AddFull(work, "dpotrf+dpotri", n, [n](std::vector<double> & a) {
    int info;
    dpotrf_("L", &n, a.data(), &n, &info, 1);
    dpotri_("L", &n, a.data(), &n, &info, 1);
  });
  if (!withPacked) return;
  AddPacked(work, "dpptrf+dpptri", n, [n](std::vector<double> & a) {
    int info;
    dpptrf_("U", &n, a.data(), &info, 1);
    dpptri_("U", &n, a.data(), &info, 1);
  });
}

void Factor(int n) {
  const std::string work = Name("LTChol", n);
  AddContender(work, "qv", [=](benchmark::State & state) {
    const Example example(n);
    const std::vector<double> ref(static_cast<std::size_t>(n), 1.0);
    const QVSymMatrix result = OnCopies(state, n, example.packed,
                                        [&](QVSymMatrix & s) { s.LTChol(ref, kTolerance, false); });
    ExpectAgreement(state, work, Last(result));
  });
  AddFull(work, "dpotrf", n, [n](std::vector<double> & a) {
    int info;
    dpotrf_("L", &n, a.data(), &n, &info, 1);
  });
  AddPacked(work, "dpptrf", n, [n](std::vector<double> & a) {
    int info;
    dpptrf_("U", &n, a.data(), &info, 1);
  });
}

void Inverse(int n) {
  const std::string work = Name("CholInverse", n);
  AddContender(work, "qv", [=](benchmark::State & state) {
    const Example example(n);
    const std::vector<double> ref(static_cast<std::size_t>(n), 1.0);
    const QVSymMatrix result = OnCopies(
        state, n, example.packed, [&](QVSymMatrix & s) { s.CholInverse(ref, kTolerance, s); });
    ExpectAgreement(state, work, Last(result));
  });
  AddInverses(work, n, false);
}

void Sweep(int n) {
  const std::string work = Name("SweepOnAll", n);
  AddContender(work, "qv", [=](benchmark::State & state) {
    const Example example(n);
    QVBitSet swept(n);
    std::vector<double> ref(static_cast<std::size_t>(n), 1.0);
    const QVSymMatrix result = OnCopies(state, n, example.packed, [&](QVSymMatrix & s) {
      s.SweepOnAll(kTolerance, swept, false, false, false, ref.data());
    });
    ExpectAgreement(state, work, std::abs(Last(result)));
  });
  AddInverses(work, n, true);
}

void Solve(int n) {
  const std::string work = Name("LTSolve", n);
  AddContender(work, "qv", [=](benchmark::State & state) {
    const Example example(n);
    std::vector<double> x;
    OnCopies(state, n, example.packed,
             [&](QVSymMatrix & s) { s.LTSolve(example.vector, kTolerance, x); });
    ExpectAgreement(state, work, x.back());
  });
  AddContender(work, "dppsv", [=](benchmark::State & state) {
    const Example example(n);
    std::vector<double> x;
    OnCopies(state, n, example.packed.AsVector(), [&](std::vector<double> & a) {
      int info;
      x = example.vector;
      dppsv_("U", &n, &kOne, a.data(), x.data(), &n, &info, 1);
    });
    ExpectAgreement(state, work, x.back());
  });
}

void Substitute(int n) {
  const std::string work = Name("LTSubstitute", n);
  AddContender(work, "qv", [=](benchmark::State & state) {
    Example example(n);
    example.packed.LTChol(std::vector<double>(static_cast<std::size_t>(n), 1.0), kTolerance, false);
    std::vector<double> x;
    for (auto _ : state) {
      example.packed.LTSubstitute(example.vector, x);
      benchmark::ClobberMemory();
    }
    ExpectAgreement(state, work, x.back());
  });
  AddContender(work, "dpptrs", [=](benchmark::State & state) {
    Example example(n);
    int info;
    dpptrf_("U", &n, example.packed.AsVector().data(), &info, 1);
    std::vector<double> x;
    for (auto _ : state) {
      x = example.vector;
      dpptrs_("U", &n, &kOne, example.packed.AsVector().data(), x.data(), &n, &info, 1);
      benchmark::ClobberMemory();
    }
    ExpectAgreement(state, work, x.back());
  });
}

}  // namespace

void RegisterBenchmarks() {
  for (int n : {200, 500, 1000, 2000})
    Factor(n);
  for (int n : {500, 1000})
    Inverse(n);
  for (int n : {5, 10, 20, 50, 100, 500, 1000, 2000})
    Sweep(n);
  Solve(1000);
  Substitute(1000);
}
