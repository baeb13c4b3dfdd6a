/// The tables of the instruction sets. A new one (NEON, say) gets its own source beside these, its
/// line here, and its line in dispatch.cpp.
#pragma once

#include "math/kernels/kernel_table.h"

namespace QVMath_940::kernels {

extern const KernelTable kPortableKernels;
extern const KernelTable kAvx2Kernels;
extern const KernelTable kAvx512Kernels;

}  // namespace QVMath_940::kernels
