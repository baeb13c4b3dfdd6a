// The only place that asks what the CPU can do.
#include <cstdlib>
#include <cstring>

#include "math/kernels/kernel_paths.h"

namespace QVMath_940::kernels {

namespace {

#if defined(QVCOMMON_X86_KERNELS)
bool HasAvx2() {
  return __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma");
}

bool HasAvx512() {
  return HasAvx2() && __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512vl") &&
         __builtin_cpu_supports("avx512dq");
}
#endif

const KernelTable & ChooseTable() {
  const std::vector<const KernelTable *> available = AvailableKernels();
  const char * const wanted = std::getenv("QVCOMMON_KERNELS");
  if (wanted != nullptr) {
    for (const KernelTable * table : available) {
      if (std::strcmp(table->name, wanted) == 0) {
        return *table;
      }
    }
  }
  return *available.back();
}

}  // namespace

std::vector<const KernelTable *> AvailableKernels() {
  std::vector<const KernelTable *> tables{&kPortableKernels};
#if defined(QVCOMMON_X86_KERNELS)
  __builtin_cpu_init();
  if (HasAvx2()) {
    tables.push_back(&kAvx2Kernels);
  }
  if (HasAvx512()) {
    tables.push_back(&kAvx512Kernels);
  }
#endif
  return tables;
}

const KernelTable & Kernels() {
  static const KernelTable & table = ChooseTable();
  return table;
}

namespace {

// Chooses when the library is loaded, so that no operation allocates for it later.
[[maybe_unused]] const KernelTable & gChosenAtLoad = Kernels();

}  // namespace

}  // namespace QVMath_940::kernels
