/// The sums of the matrix products: from 0.0 in index order, each addition fused from a length
/// of `kernels::kFusedOrder` on. The length is that of the whole sum, whatever part of it is zero;
/// where a symmetric matrix takes part its order decides instead.
#pragma once

#include <cmath>
#include <cstddef>

#include "math/kernels/kernel_table.h"

namespace QVMath_940 {

inline bool IsFusedSum(int length) {
  return length >= kernels::kFusedOrder;
}

/// One addition to a sum.
inline double AddProduct(bool isFused, double x, double y, double sum) {
  return isFused ? std::fma(x, y, sum) : sum + x * y;
}

/// The sum of x[k] y[k] for k below n.
inline double SumOfProducts(int n, const double * x, const double * y) {
  double sum = 0.0;
  if (IsFusedSum(n)) {
    kernels::Kernels().dotRowsFused(1, {x, 0, 0}, y, static_cast<std::size_t>(n), &sum);
  } else {
    for (int k = 0; k < n; ++k)
      sum += x[k] * y[k];
  }
  return sum;
}

/// The same down two columns, whose elements lie `xStep` and `yStep` apart.
inline double SumOfProducts(int n, const double * x, std::ptrdiff_t xStep, const double * y,
                            std::ptrdiff_t yStep) {
  double sum = 0.0;
  for (int k = 0; k < n; ++k)
    sum = AddProduct(IsFusedSum(n), x[k * xStep], y[k * yStep], sum);
  return sum;
}

}  // namespace QVMath_940
