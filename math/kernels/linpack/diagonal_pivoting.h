/// Symmetric indefinite matrices A = U D U-transpose by diagonal pivoting, for full and packed
/// storage (Bunch and Kaufman, 1977, Mathematics of Computation 31, 163-179).
#pragma once

#include <cmath>
#include <cstdlib>
#include <utility>

#include "Blas1.h"
#include "math/kernels/linpack/condition_vector.h"
#include "math/kernels/linpack/decimal_determinant.h"

namespace QVMath_940::linpack {

/// Exchanges rows and columns p <= q of the leading part of order q + 1.
template <typename Columns>
void ExchangeSymmetric(Columns a, int p, int q) {
  Blas1::DSwap(p + 1, a[p], 1, a[q], 1);
  for (int j = q; j >= p; --j)
    std::swap(a[q][j], a[j][p]);
}

/// The pivot block that ends at k: its order, and the row to exchange with its first row.
struct PivotChoice {
  int order;
  bool exchange;
  int row;
};

template <typename Columns>
PivotChoice ChoosePivot(Columns a, int k) {
  const double alpha = (1.0 + std::sqrt(17.0)) / 8.0;
  const double diagonal = std::fabs(a[k][k]);
  const int imax = Blas1::IDAMax(k, a[k], 1) - 1;
  const double colmax = std::fabs(a[k][imax]);
  if (diagonal >= alpha * colmax) return {1, false, imax};

  double rowmax = 0.0;
  for (int j = imax + 1; j <= k; ++j)
    rowmax = Blas1::D_Max(rowmax, std::fabs(a[j][imax]));
  if (imax > 0) {
    const int jmax = Blas1::IDAMax(imax, a[imax], 1) - 1;
    rowmax = Blas1::D_Max(rowmax, std::fabs(a[imax][jmax]));
  }
  if (std::fabs(a[imax][imax]) >= alpha * rowmax) return {1, true, imax};
  if (diagonal >= alpha * colmax * (colmax / rowmax)) return {1, false, imax};
  return {2, imax != k - 1, imax};
}

/// Eliminates with the pivot of order 1 at k; its column becomes the multipliers.
template <typename Columns>
void EliminateWithOne(Columns a, int k) {
  for (int j = k - 1; j >= 0; --j) {
    const double multiplier = -a[k][j] / a[k][k];
    Blas1::Daxpy(j + 1, multiplier, a[k], 1, a[j], 1);
    a[k][j] = multiplier;
  }
}

/// Eliminates with the pivot of order 2 at k - 1 and k; its columns become the multipliers.
template <typename Columns>
void EliminateWithTwo(Columns a, int k) {
  const double ak = a[k][k] / a[k][k - 1];
  const double akm1 = a[k - 1][k - 1] / a[k][k - 1];
  const double denom = 1.0 - ak * akm1;
  for (int j = k - 2; j >= 0; --j) {
    const double bk = a[k][j] / a[k][k - 1];
    const double bkm1 = a[k - 1][j] / a[k][k - 1];
    const double mulk = (akm1 * bk - bkm1) / denom;
    const double mulkm1 = (ak * bkm1 - bk) / denom;
    Blas1::Daxpy(j + 1, mulk, a[k], 1, a[j], 1);
    Blas1::Daxpy(j + 1, mulkm1, a[k - 1], 1, a[j], 1);
    a[k][j] = mulk;
    a[k - 1][j] = mulkm1;
  }
}

template <typename Columns>
int FactorIndefinite(Columns a, int n, int * kpvt) {
  int info = 0;
  int k = n - 1;
  while (k > 0) {
    const PivotChoice choice = ChoosePivot(a, k);
    const int imax = choice.row;
    if (a[k][k] == 0.0 && a[k][imax] == 0.0) {
      // The whole column is zero.
      kpvt[k] = k + 1;
      info = k + 1;
    } else if (choice.order == 1) {
      if (choice.exchange) ExchangeSymmetric(a, imax, k);
      EliminateWithOne(a, k);
      kpvt[k] = choice.exchange ? imax + 1 : k + 1;
    } else {
      if (choice.exchange) {
        ExchangeSymmetric(a, imax, k - 1);
        std::swap(a[k][k - 1], a[k][imax]);
      }
      EliminateWithTwo(a, k);
      kpvt[k] = choice.exchange ? -(imax + 1) : -k;
      kpvt[k - 1] = kpvt[k];
    }
    k -= choice.order;
  }
  if (k == 0) {
    kpvt[0] = 1;
    if (a[0][0] == 0.0) info = 1;
  }
  return info;
}

/// Solves with the pivot of order 2 at k - 1 and k, in place.
template <typename Columns>
void SolvePivotOfTwo(Columns a, int k, double * b) {
  const double ak = a[k][k] / a[k][k - 1];
  const double akm1 = a[k - 1][k - 1] / a[k][k - 1];
  const double bk = b[k] / a[k][k - 1];
  const double bkm1 = b[k - 1] / a[k][k - 1];
  const double denom = ak * akm1 - 1.0;
  b[k] = (akm1 * bk - bkm1) / denom;
  b[k - 1] = (ak * bkm1 - bk) / denom;
}

inline int PivotOrder(const int * kpvt, int k) {
  return kpvt[k] < 0 ? 2 : 1;
}

/// The row that the exchange of the block at k concerned.
inline int PivotRow(const int * kpvt, int k) {
  return std::abs(kpvt[k]) - 1;
}

/// b = inverse(U-transpose) b, with the exchanges undone.
template <typename Columns>
void SolveTransposedU(Columns a, int n, const int * kpvt, double * b) {
  int k = 0;
  while (k < n) {
    const int order = PivotOrder(kpvt, k);
    if (k > 0) {
      b[k] += Blas1::DDot(k, a[k], 1, b, 1);
      if (order == 2) b[k + 1] += Blas1::DDot(k, a[k + 1], 1, b, 1);
      const int row = PivotRow(kpvt, k);
      if (row != k) std::swap(b[k], b[row]);
    }
    k += order;
  }
}

template <typename Columns>
void SolveIndefinite(Columns a, int n, const int * kpvt, double * b) {
  int k = n - 1;
  while (k >= 0) {
    const int order = PivotOrder(kpvt, k);
    const int first = k + 1 - order;
    if (first > 0) {
      const int row = PivotRow(kpvt, k);
      if (row != first) std::swap(b[first], b[row]);
      Blas1::Daxpy(first, b[k], a[k], 1, b, 1);
      if (order == 2) Blas1::Daxpy(first, b[k - 1], a[k - 1], 1, b, 1);
    }
    if (order == 1) {
      b[k] /= a[k][k];
    } else {
      SolvePivotOfTwo(a, k, b);
    }
    k -= order;
  }
  SolveTransposedU(a, n, kpvt, b);
}

/// The reciprocal condition of a factored matrix whose 1-norm was `norm`.
template <typename Columns>
double EstimateIndefiniteCondition(Columns a, int n, const int * kpvt, double norm, double * z) {
  ConditionVector vector(n, z);
  // Solve U D w = e.
  int k = n - 1;
  while (k >= 0) {
    const int order = PivotOrder(kpvt, k);
    const int first = k + 1 - order;
    const int row = PivotRow(kpvt, k);
    if (row != first) std::swap(z[first], z[row]);
    vector.AddChosen(k);
    Blas1::Daxpy(first, z[k], a[k], 1, z, 1);
    if (order == 2) {
      vector.AddChosen(k - 1);
      Blas1::Daxpy(first, z[k - 1], a[k - 1], 1, z, 1);
      SolvePivotOfTwo(a, k, z);
    } else {
      vector.DivideChosenByPivot(k, a[k][k]);
    }
    k -= order;
  }
  vector.ScaleToOne();
  SolveTransposedU(a, n, kpvt, z);
  vector.StartZ();
  // Solve U D v = y.
  k = n - 1;
  while (k >= 0) {
    const int order = PivotOrder(kpvt, k);
    const int first = k + 1 - order;
    if (first > 0) {
      const int row = PivotRow(kpvt, k);
      if (row != first) std::swap(z[first], z[row]);
      Blas1::Daxpy(first, z[k], a[k], 1, z, 1);
      if (order == 2) Blas1::Daxpy(first, z[k - 1], a[k - 1], 1, z, 1);
    }
    if (order == 1) {
      vector.DivideByPivot(k, a[k][k]);
    } else {
      SolvePivotOfTwo(a, k, z);
    }
    k -= order;
  }
  vector.ScaleToOne();
  SolveTransposedU(a, n, kpvt, z);
  vector.ScaleToOne();
  return ReciprocalCondition(vector, norm);
}

/// Counts positive, negative and zero eigenvalues into `inert` and multiplies the determinant into
/// `det`; a null pointer asks for neither.
template <typename Columns>
void IndefiniteSigns(Columns a, int n, const int * kpvt, double * det, int * inert) {
  if (inert != nullptr) inert[0] = inert[1] = inert[2] = 0;
  if (det != nullptr) StartDeterminant(det);
  const auto count = [det, inert](double factor) {
    if (inert != nullptr) ++inert[factor > 0.0 ? 0 : factor < 0.0 ? 1 : 2];
    if (det != nullptr) MultiplyDeterminant(det, factor);
  };
  int k = 0;
  while (k < n) {
    const int order = PivotOrder(kpvt, k);
    if (order == 1) {
      count(a[k][k]);
    } else {
      // A block (d s; s c) has one positive and one negative eigenvalue. Its determinant is
      // (d / t c - t) t with t = |s|, which does not overflow.
      const double t = std::fabs(a[k + 1][k]);
      count((a[k][k] / t) * a[k + 1][k + 1] - t);
      count(t);
    }
    k += order;
  }
}

/// Multiplies the part of column `k` above the block at `order` by the inverse that stands before
/// it; `work` receives the old column.
template <typename Columns>
void MultiplyByLeadingInverse(Columns a, int order, int k, double * work) {
  Blas1::DCopy(order, a[k], 1, work, 1);
  for (int j = 0; j < order; ++j) {
    a[k][j] = Blas1::DDot(j + 1, a[j], 1, work, 1);
    Blas1::Daxpy(j, work[j], a[j], 1, a[k], 1);
  }
}

template <typename Columns>
void InvertIndefinite(Columns a, int n, const int * kpvt, double * work) {
  int k = 0;
  while (k < n) {
    const int order = PivotOrder(kpvt, k);
    if (order == 1) {
      a[k][k] = 1.0 / a[k][k];
    } else {
      const double t = std::fabs(a[k + 1][k]);
      const double ak = a[k][k] / t;
      const double akp1 = a[k + 1][k + 1] / t;
      const double akkp1 = a[k + 1][k] / t;
      const double d = t * (ak * akp1 - 1.0);
      a[k][k] = akp1 / d;
      a[k + 1][k + 1] = ak / d;
      a[k + 1][k] = -akkp1 / d;
      if (k > 0) {
        MultiplyByLeadingInverse(a, k, k + 1, work);
        a[k + 1][k + 1] += Blas1::DDot(k, work, 1, a[k + 1], 1);
        a[k + 1][k] += Blas1::DDot(k, a[k], 1, a[k + 1], 1);
      }
    }
    if (k > 0) {
      MultiplyByLeadingInverse(a, k, k, work);
      a[k][k] += Blas1::DDot(k, work, 1, a[k], 1);
    }
    const int row = PivotRow(kpvt, k);
    if (row != k) {
      ExchangeSymmetric(a, row, k);
      if (order == 2) std::swap(a[k + 1][row], a[k + 1][k]);
    }
    k += order;
  }
}

}  // namespace QVMath_940::linpack
