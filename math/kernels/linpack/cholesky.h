/// The Cholesky decomposition A = R-transpose R, for full, packed and band storage.
///
/// `reach` is the number of diagonals above the main one, n - 1 when the triangle is full.
#pragma once

#include <algorithm>
#include <cmath>

#include "Blas1.h"
#include "math/kernels/linpack/condition_vector.h"
#include "math/kernels/linpack/decimal_determinant.h"
#include "math/kernels/linpack/triangular_inverse.h"

namespace QVMath_940::linpack {

/// R in place of A, column by column. The order of the first leading part that is not positive
/// definite, or 0.
template <typename Columns>
int FactorCholesky(Columns a, int n, int reach) {
  for (int j = 0; j < n; ++j) {
    const int first = std::max(0, j - reach);
    double s = 0.0;
    for (int k = first; k < j; ++k) {
      double t = a[j][k] - Blas1::DDot(k - first, a[k] + first, 1, a[j] + first, 1);
      t /= a[k][k];
      a[j][k] = t;
      s += t * t;
    }
    s = a[j][j] - s;
    if (s <= 0.0) return j + 1;
    a[j][j] = std::sqrt(s);
  }
  return 0;
}

/// The 1-norm of a symmetric matrix, from its upper triangle; z is work space of n.
template <typename Columns>
double SymmetricNorm(Columns a, int n, int reach, double * z) {
  for (int j = 0; j < n; ++j) {
    const int first = std::max(0, j - reach);
    z[j] = Blas1::DASum(j - first + 1, a[j] + first, 1);
    for (int i = first; i < j; ++i)
      z[i] += std::fabs(a[j][i]);
  }
  double norm = 0.0;
  for (int j = 0; j < n; ++j)
    norm = Blas1::D_Max(norm, z[j]);
  return norm;
}

/// The reciprocal condition of a factored matrix whose 1-norm was `norm`.
template <typename Columns>
double EstimateCholeskyCondition(Columns a, int n, int reach, double norm, double * z) {
  ConditionVector vector(n, z);
  // Solve R-transpose w = e.
  for (int k = 0; k < n; ++k) {
    vector.ChooseAndDivide(k, a[k][k], k + 1, std::min(n - 1, k + reach),
                           [a, k](int j) { return a[j][k]; });
  }
  vector.ScaleToOne();
  // Solve R y = w.
  for (int k = n - 1; k >= 0; --k) {
    const int above = std::min(k, reach);
    vector.DivideByPivot(k, a[k][k]);
    Blas1::Daxpy(above, -z[k], a[k] + k - above, 1, z + k - above, 1);
  }
  vector.StartZ();
  // Solve R-transpose v = y.
  for (int k = 0; k < n; ++k) {
    const int above = std::min(k, reach);
    z[k] -= Blas1::DDot(above, a[k] + k - above, 1, z + k - above, 1);
    vector.DivideByPivot(k, a[k][k]);
  }
  vector.ScaleToOne();
  // Solve R z = v.
  for (int k = n - 1; k >= 0; --k) {
    const int above = std::min(k, reach);
    vector.DivideByPivot(k, a[k][k]);
    Blas1::Daxpy(above, -z[k], a[k] + k - above, 1, z + k - above, 1);
  }
  vector.ScaleToOne();
  return ReciprocalCondition(vector, norm);
}

/// Factors, and estimates the condition of a positive definite matrix; 0 otherwise.
template <typename Columns>
double FactorAndEstimate(Columns a, int n, int reach, double * z, int * info) {
  int failed = 0;
  double condition = 0.0;
  if (n >= 1) {
    const double norm = SymmetricNorm(a, n, reach, z);
    failed = FactorCholesky(a, n, reach);
    if (failed == 0) condition = EstimateCholeskyCondition(a, n, reach, norm, z);
  }
  if (info != nullptr) *info = failed;
  return condition;
}

template <typename Columns>
void SolveCholesky(Columns a, int n, int reach, double * b) {
  for (int k = 0; k < n; ++k) {
    const int above = std::min(k, reach);
    b[k] = (b[k] - Blas1::DDot(above, a[k] + k - above, 1, b + k - above, 1)) / a[k][k];
  }
  for (int k = n - 1; k >= 0; --k) {
    const int above = std::min(k, reach);
    b[k] /= a[k][k];
    Blas1::Daxpy(above, -b[k], a[k] + k - above, 1, b + k - above, 1);
  }
}

/// det A, the square of det R: each diagonal element counts twice, since its square may overflow.
template <typename Columns>
void CholeskyDeterminant(Columns a, int n, double * det) {
  StartDeterminant(det);
  for (int k = 0; k < n; ++k) {
    if (!MultiplyDeterminant(det, a[k][k]) || !MultiplyDeterminant(det, a[k][k])) break;
  }
}

/// The inverse of A in place of R.
template <typename Columns>
void InvertCholesky(Columns a, int n) {
  InvertUpperTriangle(a, n);
  // inverse(R) times its transpose.
  for (int j = 0; j < n; ++j) {
    for (int k = 0; k < j; ++k)
      Blas1::Daxpy(k + 1, a[j][k], a[j], 1, a[k], 1);
    Blas1::DScal(j + 1, a[j][j], a[j], 1);
  }
}

}  // namespace QVMath_940::linpack
