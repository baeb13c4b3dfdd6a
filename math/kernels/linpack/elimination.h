/// Gaussian elimination with partial pivoting, for full and band storage.
///
/// A matrix of order n has `ml` diagonals below the main one and `mu` above it (n - 1 each when it
/// is full); U then has up to ml + mu above. The multipliers stand below the diagonal, signs
/// changed.
#pragma once

#include <algorithm>
#include <cmath>
#include <utility>

#include "Blas1.h"
#include "math/kernels/linpack/condition_vector.h"
#include "math/kernels/linpack/decimal_determinant.h"

namespace QVMath_940::linpack {

/// The shape of a matrix under elimination.
struct Band {
  int n;
  int ml;
  int mu;

  int CountBelow(int k) const { return std::min(ml, n - 1 - k); }
  /// Elements above the diagonal in column k of U.
  int CountAbove(int k) const { return std::min(k, ml + mu); }
  /// The last column that row k of U reaches once row `pivot` has come into its place, given the
  /// last column `reach` of the rows before.
  int Reach(int reach, int pivot) const { return std::min(std::max(reach, mu + pivot), n - 1); }
};

inline Band FullBand(int n) {
  return {n, std::max(n - 1, 0), std::max(n - 1, 0)};
}

template <typename Columns>
int Eliminate(Columns a, const Band & band, int * ipvt) {
  const int n = band.n;
  if (n < 1) return 0;
  int info = 0;
  int reach = 0;
  for (int k = 0; k < n - 1; ++k) {
    const int below = band.CountBelow(k);
    const int l = Blas1::IDAMax(below + 1, a[k] + k, 1) + k - 1;
    ipvt[k] = l + 1;
    if (a[k][l] == 0.0) {
      info = k + 1;
      continue;
    }
    if (l != k) std::swap(a[k][l], a[k][k]);
    Blas1::DScal(below, -1.0 / a[k][k], a[k] + k + 1, 1);
    reach = band.Reach(reach, l);
    for (int j = k + 1; j <= reach; ++j) {
      const double t = a[j][l];
      if (l != k) {
        a[j][l] = a[j][k];
        a[j][k] = t;
      }
      Blas1::Daxpy(below, t, a[k] + k + 1, 1, a[j] + k + 1, 1);
    }
  }
  ipvt[n - 1] = n;
  if (a[n - 1][n - 1] == 0.0) info = n;
  return info;
}

/// The 1-norm before the elimination.
template <typename Columns>
double LargestColumnSum(Columns a, const Band & band) {
  double largest = 0.0;
  for (int j = 0; j < band.n; ++j) {
    const int first = std::max(0, j - band.mu);
    largest =
        Blas1::D_Max(largest, Blas1::DASum(j + band.CountBelow(j) - first + 1, a[j] + first, 1));
  }
  return largest;
}

/// The reciprocal condition of a factored matrix whose 1-norm was `norm`.
template <typename Columns>
double EstimateCondition(Columns a, const Band & band, const int * ipvt, double norm, double * z) {
  const int n = band.n;
  ConditionVector vector(n, z);
  // Solve U-transpose w = e.
  int reach = 0;
  for (int k = 0; k < n; ++k) {
    reach = band.Reach(reach, ipvt[k] - 1);
    vector.ChooseAndDivide(k, a[k][k], k + 1, reach, [a, k](int j) { return a[j][k]; });
  }
  vector.ScaleToOne();
  // Solve L-transpose y = w.
  for (int k = n - 1; k >= 0; --k) {
    z[k] += Blas1::DDot(band.CountBelow(k), a[k] + k + 1, 1, z + k + 1, 1);
    vector.Limit(k, 1.0);
    std::swap(z[k], z[ipvt[k] - 1]);
  }
  vector.StartZ();
  // Solve L v = y.
  for (int k = 0; k < n; ++k) {
    const double t = z[ipvt[k] - 1];
    z[ipvt[k] - 1] = z[k];
    z[k] = t;
    Blas1::Daxpy(band.CountBelow(k), t, a[k] + k + 1, 1, z + k + 1, 1);
    vector.Limit(k, 1.0);
  }
  vector.ScaleToOne();
  // Solve U z = v.
  for (int k = n - 1; k >= 0; --k) {
    vector.DivideByPivot(k, a[k][k]);
    const int above = band.CountAbove(k);
    Blas1::Daxpy(above, -z[k], a[k] + k - above, 1, z + k - above, 1);
  }
  vector.ScaleToOne();
  return ReciprocalCondition(vector, norm);
}

template <typename Columns>
void SolveEliminated(Columns a, const Band & band, const int * ipvt, double * b) {
  const int n = band.n;
  for (int k = 0; k < n - 1; ++k) {
    const int l = ipvt[k] - 1;
    const double t = b[l];
    if (l != k) std::swap(b[l], b[k]);
    Blas1::Daxpy(band.CountBelow(k), t, a[k] + k + 1, 1, b + k + 1, 1);
  }
  for (int k = n - 1; k >= 0; --k) {
    b[k] /= a[k][k];
    const int above = band.CountAbove(k);
    Blas1::Daxpy(above, -b[k], a[k] + k - above, 1, b + k - above, 1);
  }
}

template <typename Columns>
void SolveEliminatedTransposed(Columns a, const Band & band, const int * ipvt, double * b) {
  const int n = band.n;
  for (int k = 0; k < n; ++k) {
    const int above = band.CountAbove(k);
    b[k] = (b[k] - Blas1::DDot(above, a[k] + k - above, 1, b + k - above, 1)) / a[k][k];
  }
  for (int k = n - 2; k >= 0; --k) {
    b[k] += Blas1::DDot(band.CountBelow(k), a[k] + k + 1, 1, b + k + 1, 1);
    const int l = ipvt[k] - 1;
    if (l != k) std::swap(b[l], b[k]);
  }
}

template <typename Columns>
void EliminatedDeterminant(Columns a, int n, const int * ipvt, double * det) {
  StartDeterminant(det);
  for (int k = 0; k < n; ++k) {
    if (ipvt[k] != k + 1) det[0] = -det[0];
    if (!MultiplyDeterminant(det, a[k][k])) break;
  }
}

}  // namespace QVMath_940::linpack
