// The implicit QL iteration on a symmetric tridiagonal matrix.
//
// TQL2 in its implicit form: A. Dubrulle, R. S. Martin, J. H. Wilkinson, "The implicit QL
// algorithm", Numerische Mathematik 12 (1968) 377-383; B. T. Smith et al., "Matrix Eigensystem
// Routines - EISPACK Guide", Springer 1976: IMTQL2. The letters are those of the published
// routines.
#include <algorithm>
#include <cmath>

#include "QVEigenValues.h"
#include "math/kernels/kernel_table.h"

namespace QVMath_940 {

namespace {

std::size_t At(int i) {
  return static_cast<std::size_t>(i);
}

}  // namespace

int QVEigenValues::EigenValuesTQLI() {
  const int n = fNRows;
  if (n < 1 || fvDiag3.size() != At(n) || fvSubdiag3.size() != At(n)) return -1;
  std::vector<double> w(At(n), 0.0);  // the subdiagonal, from place 0
  std::copy(fvSubdiag3.begin() + 1, fvSubdiag3.end(), w.begin());
  if (fComputeVectors) {
    if (!fmEigenVectors.SetNRowsCols(n, n, true)) return -1;
    fmEigenVectors.AddToDiagonal(1.0);
  }
  std::vector<double> cosines(At(n));
  std::vector<double> sines(At(n));
  for (int l = 0; l < n; ++l) {
    if (!IterateQL(l, w, cosines, sines)) {
      fNComputed = l;
      return l + 1;
    }
  }
  fNComputed = n;
  return 0;
}

// Up to maxIter steps until element l is an eigenvalue; false when they did not suffice.
bool QVEigenValues::IterateQL(int l, std::vector<double> & w, std::vector<double> & cosines,
                              std::vector<double> & sines) {
  for (int round = 0; round < fMaxIter; ++round) {
    const int m = FindSmallSubdiagonal(l, w);
    if (m == l) return true;
    QLStep(l, m, w, cosines, sines);
  }
  return false;
}

// The first m from l on whose subdiagonal element is negligible.
int QVEigenValues::FindSmallSubdiagonal(int l, const std::vector<double> & w) const {
  const int n = fNRows;
  int m = l;
  while (m < n - 1 && !(std::abs(w[At(m)]) <=
                        fTolerance * (std::abs(fvDiag3[At(m)]) + std::abs(fvDiag3[At(m + 1)])))) {
    ++m;
  }
  return m;
}

// One QL step with Wilkinson's shift on the rows l to m.
void QVEigenValues::QLStep(int l, int m, std::vector<double> & w, std::vector<double> & cosines,
                           std::vector<double> & sines) {
  std::vector<double> & d = fvDiag3;
  double g = (d[At(l + 1)] - d[At(l)]) / (2.0 * w[At(l)]);
  double r = std::sqrt(g * g + 1.0);
  if (g < 0.0) r = -r;
  g = d[At(m)] - d[At(l)] + w[At(l)] / (g + r);
  double s = 1.0;
  double c = 1.0;
  double p = 0.0;
  for (int i = m - 1; i >= l; --i) {
    const double f = s * w[At(i)];
    const double b = c * w[At(i)];
    if (f == 0.0 && g == 0.0) {  // nothing to rotate
      c = 1.0;
      s = 0.0;
      w[At(i + 1)] = 0.0;
    } else if (std::abs(f) >= std::abs(g)) {
      c = g / f;
      r = std::sqrt(c * c + 1.0);
      w[At(i + 1)] = f * r;
      s = 1.0 / r;
      c *= s;
    } else {
      s = f / g;
      r = std::sqrt(s * s + 1.0);
      w[At(i + 1)] = g * r;
      c = 1.0 / r;
      s *= c;
    }
    g = d[At(i + 1)] - p;
    r = (d[At(i)] - g) * s + 2.0 * c * b;
    p = s * r;
    d[At(i + 1)] = g + p;
    g = c * r - b;
    cosines[At(i)] = c;
    sines[At(i)] = s;
  }
  if (fComputeVectors) {
    const kernels::KernelTable & table = kernels::Kernels();
    (IsFused() ? table.rotateChainFused : table.rotateChainPlain)(
        m - l, cosines.data() + l, sines.data() + l, fmEigenVectors.GetRowPtr(l), fNRows,
        At(fNRows));
  }
  d[At(l)] -= p;
  w[At(l)] = g;
  w[At(m)] = 0.0;
}

}  // namespace QVMath_940
