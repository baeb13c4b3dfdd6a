/// One beta variate, shared by the beta and the binomial generator.
#pragma once

#include "math/random/uniform_source.h"

namespace QVMath_940 {

/// a > 0 and b > 0. -1.0 where the inverse of the distribution function fails.
double BetaVariate(UniformSource & uniform, double a, double b);

}  // namespace QVMath_940
