// LINPACK's singular value decomposition: DSVDC.
#include <algorithm>
#include <cmath>
#include <utility>

#include "Blas1.h"
#include "Linpack.h"
#include "math/kernels/linpack/columns.h"

namespace QVMath_940 {

using namespace linpack;

namespace {

using Columns = FullColumns<double>;

/// The iteration on a bidiagonal matrix, diagonal s and superdiagonal e, and its vectors. Positions
/// count from 0; `m` is the order of the part that is not finished.
class BidiagonalIteration {
 public:
  BidiagonalIteration(int n, int p, double * s, double * e, Columns u, bool wantU, Columns v,
                      bool wantV)
      : fN(n), fP(p), fS(s), fE(e), fU(u), fWantU(wantU), fV(v), fWantV(wantV) {}

  /// The number of singular values that were not found, from the front.
  int Run(int order) {
    constexpr int kMaxIterations = 30;
    int iterations = 0;
    int m = order;
    while (m > 0) {
      if (iterations >= kMaxIterations) return m;
      const int split = FindSplit(m);
      if (split == m - 1) {
        Finish(split, order);
        iterations = 0;
        --m;
        continue;
      }
      const int negligible = FindNegligible(split, m);
      if (negligible == m - 1) {
        DeflateLast(split, m);
      } else if (negligible >= split) {
        SplitAt(negligible + 1, m);
      } else {
        Step(split, m);
        ++iterations;
      }
    }
    return 0;
  }

 private:
  /// The first row of the last block: below the last negligible element of e, which becomes zero.
  int FindSplit(int m) {
    for (int l = m - 2; l >= 0; --l) {
      const double test = std::fabs(fS[l]) + std::fabs(fS[l + 1]);
      // The test on zero alone makes the iteration end when s holds a NaN.
      if (fE[l] == 0.0 || test + std::fabs(fE[l]) == test) {
        fE[l] = 0.0;
        return l + 1;
      }
    }
    return 0;
  }

  /// The position in first .. m - 1 of the last negligible element of s, which becomes zero; first
  /// - 1 when there is none.
  int FindNegligible(int first, int m) {
    for (int l = m - 1; l >= first; --l) {
      double test = 0.0;
      if (l != m - 1) test += std::fabs(fE[l]);
      if (l != first) test += std::fabs(fE[l - 1]);
      if (test + std::fabs(fS[l]) == test) {
        fS[l] = 0.0;
        return l;
      }
    }
    return first - 1;
  }

  /// Deflates the negligible s[m - 1].
  void DeflateLast(int first, int m) {
    double f = fE[m - 2];
    fE[m - 2] = 0.0;
    double cs = 0.0;
    double sn = 0.0;
    for (int k = m - 2; k >= first; --k) {
      Blas1::DRotG(&fS[k], &f, &cs, &sn);
      if (k != first) {
        f = -sn * fE[k - 1];
        fE[k - 1] = cs * fE[k - 1];
      }
      if (fWantV) Blas1::DRot(fP, fV[k], 1, fV[m - 1], 1, cs, sn);
    }
  }

  /// Splits at the negligible s[first - 1].
  void SplitAt(int first, int m) {
    double f = fE[first - 1];
    fE[first - 1] = 0.0;
    double cs = 0.0;
    double sn = 0.0;
    for (int k = first; k < m; ++k) {
      Blas1::DRotG(&fS[k], &f, &cs, &sn);
      f = -sn * fE[k];
      fE[k] = cs * fE[k];
      if (fWantU && k < fN) Blas1::DRot(fN, fU[k], 1, fU[first - 1], 1, cs, sn);
    }
  }

  /// One QR step on rows first .. m - 1.
  void Step(int first, int m) {
    const double scale = std::max({std::fabs(fS[m - 1]), std::fabs(fS[m - 2]), std::fabs(fE[m - 2]),
                                   std::fabs(fS[first]), std::fabs(fE[first])});
    const double sm = fS[m - 1] / scale;
    const double smm1 = fS[m - 2] / scale;
    const double emm1 = fE[m - 2] / scale;
    const double sl = fS[first] / scale;
    const double el = fE[first] / scale;
    const double b = ((smm1 + sm) * (smm1 - sm) + emm1 * emm1) / 2.0;
    const double c = (sm * emm1) * (sm * emm1);
    double shift = 0.0;
    if (b != 0.0 || c != 0.0) {
      shift = std::sqrt(b * b + c);
      if (b < 0.0) shift = -shift;
      shift = c / (b + shift);
    }
    double f = (sl + sm) * (sl - sm) + shift;
    double g = sl * el;
    // Chase zeros.
    double cs = 0.0;
    double sn = 0.0;
    for (int k = first; k < m - 1; ++k) {
      Blas1::DRotG(&f, &g, &cs, &sn);
      if (k != first) fE[k - 1] = f;
      f = cs * fS[k] + sn * fE[k];
      fE[k] = cs * fE[k] - sn * fS[k];
      g = sn * fS[k + 1];
      fS[k + 1] = cs * fS[k + 1];
      if (fWantV) Blas1::DRot(fP, fV[k], 1, fV[k + 1], 1, cs, sn);
      Blas1::DRotG(&f, &g, &cs, &sn);
      fS[k] = f;
      f = cs * fE[k] + sn * fS[k + 1];
      fS[k + 1] = -sn * fE[k] + cs * fS[k + 1];
      g = sn * fE[k + 1];
      fE[k + 1] = cs * fE[k + 1];
      if (fWantU && k < fN - 1) Blas1::DRot(fN, fU[k], 1, fU[k + 1], 1, cs, sn);
    }
    fE[m - 2] = f;
  }

  /// Makes the singular value at l positive and moves it to its place among the finished ones.
  void Finish(int l, int order) {
    if (fS[l] < 0.0) {
      fS[l] = -fS[l];
      if (fWantV) Blas1::DScal(fP, -1.0, fV[l], 1);
    }
    for (; l < order - 1 && fS[l] < fS[l + 1]; ++l) {
      std::swap(fS[l], fS[l + 1]);
      if (fWantV && l < fP - 1) Blas1::DSwap(fP, fV[l], 1, fV[l + 1], 1);
      if (fWantU && l < fN - 1) Blas1::DSwap(fN, fU[l], 1, fU[l + 1], 1);
    }
  }

  int fN;
  int fP;
  double * fS;
  double * fE;
  Columns fU;
  bool fWantU;
  Columns fV;
  bool fWantV;
};

/// Makes the transformation that takes `count` elements to a multiple of the first unit vector:
/// the vector replaces them. The result is the first element that they are taken to.
double MakeReflector(int count, double * vector) {
  double norm = Blas1::DNrm2(count, vector, 1);
  if (norm != 0.0) {
    if (vector[0] != 0.0) norm = Blas1::D_Sign(norm, vector[0]);
    Blas1::DScal(count, 1.0 / norm, vector, 1);
    vector[0] += 1.0;
  }
  return -norm;
}

/// Applies the transformation of `vector` to `target`.
void ApplyReflector(int count, const double * vector, double * target) {
  const double t = -Blas1::DDot(count, vector, 1, target, 1) / vector[0];
  Blas1::Daxpy(count, t, vector, 1, target, 1);
}

/// The left vectors' transformations, in the leading `count` columns of u, become the matrix.
void GenerateLeft(Columns u, int n, int columns, int count, const double * s) {
  for (int j = count; j < columns; ++j) {
    std::fill(u[j], u[j] + n, 0.0);
    u[j][j] = 1.0;
  }
  for (int l = count - 1; l >= 0; --l) {
    if (s[l] != 0.0) {
      for (int j = l + 1; j < columns; ++j)
        ApplyReflector(n - l, u[l] + l, u[j] + l);
      Blas1::DScal(n - l, -1.0, u[l] + l, 1);
      u[l][l] += 1.0;
      std::fill(u[l], u[l] + l, 0.0);
    } else {
      std::fill(u[l], u[l] + n, 0.0);
      u[l][l] = 1.0;
    }
  }
}

/// The right vectors' transformations, in the leading `count` columns of v, become the matrix.
void GenerateRight(Columns v, int p, int count, const double * e) {
  for (int l = p - 1; l >= 0; --l) {
    if (l < count && e[l] != 0.0) {
      for (int j = l + 1; j < p; ++j)
        ApplyReflector(p - 1 - l, v[l] + l + 1, v[j] + l + 1);
    }
    std::fill(v[l], v[l] + p, 0.0);
    v[l][l] = 1.0;
  }
}

}  // namespace

int Linpack::Dsvdc(double * x, int ldx, int n, int p, double * s, double * e, double * u, int ldu,
                   double * v, int ldv, double * work, int job) {
  if (n < 1 || p < 1) return 0;
  const Columns xColumns{x, ldx};
  const Columns uColumns{u, ldu};
  const Columns vColumns{v, ldv};
  const int leftJob = job % 100 / 10;
  const bool wantU = leftJob != 0;
  const bool wantV = job % 10 != 0;
  const int leftColumns = leftJob > 1 ? std::min(n, p) : n;

  // Reduce x to bidiagonal form, the diagonal in s and the superdiagonal in e.
  const int columnSteps = std::min(n - 1, p);
  const int rowSteps = std::max(0, std::min(p - 2, n));
  for (int l = 0; l < std::max(columnSteps, rowSteps); ++l) {
    const bool reduceColumn = l < columnSteps;
    if (reduceColumn) s[l] = MakeReflector(n - l, xColumns[l] + l);
    for (int j = l + 1; j < p; ++j) {
      if (reduceColumn && s[l] != 0.0) ApplyReflector(n - l, xColumns[l] + l, xColumns[j] + l);
      e[j] = xColumns[j][l];
    }
    if (wantU && reduceColumn) {
      for (int i = l; i < n; ++i)
        uColumns[l][i] = xColumns[l][i];
    }
    if (l >= rowSteps) continue;

    e[l] = MakeReflector(p - 1 - l, e + l + 1);
    if (l + 1 < n && e[l] != 0.0) {
      const int rows = n - 1 - l;
      std::fill(work + l + 1, work + n, 0.0);
      for (int j = l + 1; j < p; ++j) {
        Blas1::Daxpy(rows, e[j], xColumns[j] + l + 1, 1, work + l + 1, 1);
      }
      for (int j = l + 1; j < p; ++j) {
        Blas1::Daxpy(rows, -e[j] / e[l + 1], work + l + 1, 1, xColumns[j] + l + 1, 1);
      }
    }
    if (wantV) {
      for (int i = l + 1; i < p; ++i)
        vColumns[l][i] = e[i];
    }
  }

  // The final bidiagonal matrix of order m.
  const int m = std::min(p, n + 1);
  if (columnSteps < p) s[columnSteps] = xColumns[columnSteps][columnSteps];
  if (n < m) s[m - 1] = 0.0;
  if (rowSteps + 1 < m) e[rowSteps] = xColumns[m - 1][rowSteps];
  e[m - 1] = 0.0;

  if (wantU) GenerateLeft(uColumns, n, leftColumns, columnSteps, s);
  if (wantV) GenerateRight(vColumns, p, rowSteps, e);
  return BidiagonalIteration(n, p, s, e, uColumns, wantU, vColumns, wantV).Run(m);
}

}  // namespace QVMath_940
