// The main program of every benchmark: makes the peers run as they should, then measures.

#include <cblas.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <string>

#include "contender.h"

namespace {

// The kernels that OpenBLAS should use on this CPU. Debian's build does not know recent Intel
// servers and would take its slowest ones there.
const char * BestBlasKernels() {
  if (__builtin_cpu_supports("avx512f") != 0) return "SkylakeX";
  if (__builtin_cpu_supports("avx2") != 0) return "Haswell";
  return nullptr;
}

// OpenBLAS reads its environment when it is loaded, before main: set it and start again.
void RestartWithBlasEnvironment(char ** argv) {
  constexpr const char * Mark = "QVCOMMON_BENCH_ENVIRONMENT_SET";
  if (std::getenv(Mark) != nullptr) return;
  setenv(Mark, "1", 1);
  setenv("OPENBLAS_NUM_THREADS", "1", 1);
  setenv("OMP_NUM_THREADS", "1", 1);
  if (const char * kernels = BestBlasKernels()) setenv("OPENBLAS_CORETYPE", kernels, 0);
  execv("/proc/self/exe", argv);  // comes back only when it fails: then measure as things stand
}

std::string CpuName() {
  std::ifstream info("/proc/cpuinfo");
  for (std::string line; std::getline(info, line);) {
    if (line.rfind("model name", 0) == 0) return line.substr(line.find(": ") + 2);
  }
  return "unknown";
}

}  // namespace

int main(int argc, char ** argv) {
  RestartWithBlasEnvironment(argv);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::AddCustomContext("cpu", CpuName());
  benchmark::AddCustomContext("openblas_core", openblas_get_corename());
  RegisterBenchmarks();
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
