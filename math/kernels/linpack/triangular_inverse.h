/// The inverse of an upper triangle in place, for full and packed storage.
#pragma once

#include "Blas1.h"

namespace QVMath_940::linpack {

/// Column k of the inverse, given the columns before it; the pivot must not be zero.
template <typename Columns>
void InvertUpperColumn(Columns a, int n, int k) {
  a[k][k] = 1.0 / a[k][k];
  Blas1::DScal(k, -a[k][k], a[k], 1);
  for (int j = k + 1; j < n; ++j) {
    const double t = a[j][k];
    a[j][k] = 0.0;
    Blas1::Daxpy(k + 1, t, a[k], 1, a[j], 1);
  }
}

template <typename Columns>
void InvertUpperTriangle(Columns a, int n) {
  for (int k = 0; k < n; ++k)
    InvertUpperColumn(a, n, k);
}

}  // namespace QVMath_940::linpack
