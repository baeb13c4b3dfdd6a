// The reduction of a packed symmetric matrix to tridiagonal form, and the way back for
// eigenvectors.
//
// TRED3 and TRBAK3: R. S. Martin, C. Reinsch, J. H. Wilkinson, "Householder's tridiagonalization of
// a symmetric matrix", Numerische Mathematik 11 (1968) 181-195; B. T. Smith et al., "Matrix
// Eigensystem Routines - EISPACK Guide", Springer 1976. The letters are those of the published
// routines.
#include <algorithm>
#include <cmath>
#include <limits>

#include "QVEigenValues.h"
#include "QVMathFun.h"
#include "math/kernels/kernel_table.h"

namespace QVMath_940 {

namespace {

using kernels::PackedRow;

std::size_t At(int i) {
  return static_cast<std::size_t>(i);
}

// sum[r] += x[r] . y over the first n elements, in their order, for `rows` rows x that lie `step`
// apart.
void AddDotProducts(bool isFused, int n, int rows, const double * x, int step, const double * y,
                    double * sum) {
  if (isFused) {
    kernels::Kernels().dotRowsFused(rows, {x, step, 0}, y, At(n), sum);
    return;
  }
  for (int r = 0; r < rows; ++r) {
    for (int k = 0; k < n; ++k) {
      sum[r] += x[At(r) * At(step) + At(k)] * y[k];
    }
  }
}

double DotProduct(bool isFused, int n, const std::vector<double> & x,
                  const std::vector<double> & y) {
  double sum = 0.0;
  AddDotProducts(isFused, n, 1, x.data(), 0, y.data(), &sum);
  return sum;
}

// Eigenvectors that go through all reflections together: they stay in the first-level cache.
constexpr int kVectorsAtOnce = 16;

}  // namespace

bool QVEigenValues::IsFused() const {
  return fNRows >= kernels::kFusedOrder;
}

void QVEigenValues::TriDiag() {
  fmOrthInfo = fRankE > 0 ? fmVHV : fmH;
  Tred3();
  if (!fComputeVectors) fmOrthInfo.Resize(0);
}

void QVEigenValues::Tred3() {
  const int n = std::max(fmOrthInfo.GetNRows(), 0);
  fvDiag3.assign(At(n), 0.0);
  fvSubdiag3.assign(At(n), 0.0);
  if (n < 1) return;
  for (int i = n - 1; i >= 1; --i) {
    ReduceRow(i);
  }
  fvSubdiag3[0] = 0.0;
  fvDiag3[0] = fmOrthInfo.GetElem(0, 0);
  fmOrthInfo.SetElem(0, 0, 0.0);
}

// Row i of the triangle: the reflection that clears it before the subdiagonal, applied to the rows
// above. Its vector, unscaled, stays in the row, and the root of its h in the diagonal element.
void QVEigenValues::ReduceRow(int i) {
  std::vector<double> & d = fvDiag3;
  std::vector<double> & e = fvSubdiag3;
  double * const a = fmOrthInfo.AsVector().data();
  double * const row = a + PackedRow(i);
  std::copy_n(row, At(i) + 1, d.begin());
  const double scale = QVMathFun::DASum(i, d, 1, 0);
  if (scale <= std::numeric_limits<double>::min()) {
    e[At(i)] = 0.0;
    d[At(i)] = row[i];
    row[i] = 0.0;
    return;
  }
  QVMathFun::DScal(i, 1.0 / scale, d, 0, 1);
  double h = DotProduct(IsFused(), i, d, d);
  const double f = d[At(i - 1)];
  const double g = f >= 0.0 ? -std::sqrt(h) : std::sqrt(h);
  e[At(i)] = g * scale;
  h -= f * g;
  d[At(i - 1)] = f - g;
  row[i - 1] = (f - g) * scale;

  // p = A d / h, e = p - hh d; A becomes A - d e' - e d'.
  fmOrthInfo.ComputeSV(i, d, e);
  const double inverseH = 1.0 / h;
  QVMathFun::DScal(i, inverseH, e, 0, 1);
  const double hh = DotProduct(IsFused(), i, e, d) * inverseH * 0.5;
  const kernels::KernelTable & table = kernels::Kernels();
  (IsFused() ? table.axpyFused : table.axpyPlain)(At(i), -hh, d.data(), e.data());
  (IsFused() ? table.rankTwoFused : table.rankTwoPlain)(i, d.data(), e.data(), a);

  d[At(i)] = row[i];
  row[i] = std::sqrt(h) * scale;
}

// Turns each eigenvector of the tridiagonal matrix into one of the matrix itself: reflection after
// reflection, z becomes z - (z . u) / h / h x u, with u and h as `ReduceRow` left them.
void QVEigenValues::BackTransVectors() {
  const int n = fNRows;
  if (n < 2 || fmOrthInfo.GetNRows() != n || fmEigenVectors.GetNRows() != n) return;
  const double * const a = fmOrthInfo.AsVector().data();
  const kernels::KernelTable & table = kernels::Kernels();
  const auto addTo = IsFused() ? table.axpyFused : table.axpyPlain;
  for (int first = 0; first < fNComputed; first += kVectorsAtOnce) {
    const int count = std::min(kVectorsAtOnce, fNComputed - first);
    double * const z = fmEigenVectors.GetRowPtr(first);
    for (int i = 1; i < n; ++i) {
      const double * const u = a + PackedRow(i);
      const double h = u[i];
      if (h == 0.0) continue;
      double sums[kVectorsAtOnce] = {};
      AddDotProducts(IsFused(), i, count, z, n, u, sums);
      for (int k = 0; k < count; ++k) {
        addTo(At(i), -(sums[k] / h / h), u, z + At(k) * At(n));
      }
    }
  }
}

}  // namespace QVMath_940
