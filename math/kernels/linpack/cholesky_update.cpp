// LINPACK's updates of a Cholesky factor: DCHUD, DCHDD, DCHEX.
#include <algorithm>
#include <cmath>

#include "Blas1.h"
#include "Linpack.h"
#include "math/kernels/linpack/columns.h"

namespace QVMath_940 {

using namespace linpack;

namespace {

using Columns = FullColumns<double>;

/// Turns the elements (upper, lower) by the rotation (c, s).
void Turn(double c, double s, double & upper, double & lower) {
  const double t = c * upper + s * lower;
  lower = c * lower - s * upper;
  upper = t;
}

/// sqrt(a a + b b) of numbers that are not both zero.
double Length(double a, double b) {
  const double scale = a + b;
  const double aScaled = a / scale;
  const double bScaled = b / scale;
  return scale * std::sqrt(aScaled * aScaled + bScaled * bScaled);
}

/// Columns k .. l move one place to the right, and column l comes to k; k and l count from 0.
void ShiftRight(Columns r, int p, int k, int l, Columns z, int nz, double * c, double * s) {
  // The old column l waits in s, upside down.
  for (int i = 0; i <= l; ++i)
    s[i] = r[l][l - i];
  for (int j = l - 1; j >= k; --j) {
    for (int i = 0; i <= j; ++i)
      r[j + 1][i] = r[j][i];
    r[j + 1][j + 1] = 0.0;
  }
  for (int i = 0; i < k; ++i)
    r[k][i] = s[l - i];
  // Rotations that take its elements below k to zero, from the bottom.
  const int count = l - k;
  double t = s[0];
  for (int i = 0; i < count; ++i) {
    Blas1::DRotG(&s[i + 1], &t, &c[i], &s[i]);
    t = s[i + 1];
  }
  r[k][k] = t;
  for (int j = k + 1; j < p; ++j) {
    for (int i = std::max(0, l - j); i < count; ++i) {
      const int row = l - 1 - i;
      Turn(c[i], s[i], r[j][row], r[j][row + 1]);
    }
  }
  for (int j = 0; j < nz; ++j) {
    for (int i = 0; i < count; ++i) {
      const int row = l - 1 - i;
      Turn(c[i], s[i], z[j][row], z[j][row + 1]);
    }
  }
}

/// Columns k + 1 .. l move one place to the left, and column k comes to l; k and l count from 0.
void ShiftLeft(Columns r, int p, int k, int l, Columns z, int nz, double * c, double * s) {
  const int count = l - k;
  // The old column k waits behind the places that receive the subdiagonal.
  for (int i = 0; i <= k; ++i)
    s[count + i] = r[k][i];
  for (int j = k; j < l; ++j) {
    for (int i = 0; i <= j; ++i)
      r[j][i] = r[j + 1][i];
    s[j - k] = r[j + 1][j + 1];
  }
  for (int i = 0; i <= k; ++i)
    r[l][i] = s[count + i];
  for (int i = k + 1; i <= l; ++i)
    r[l][i] = 0.0;
  // Rotations that take the subdiagonal to zero, from the top.
  for (int j = k; j < p; ++j) {
    for (int i = k; i < std::min(j, l); ++i)
      Turn(c[i - k], s[i - k], r[j][i], r[j][i + 1]);
    if (j < l) {
      double t = s[j - k];
      Blas1::DRotG(&r[j][j], &t, &c[j - k], &s[j - k]);
    }
  }
  for (int j = 0; j < nz; ++j) {
    for (int i = k; i < l; ++i)
      Turn(c[i - k], s[i - k], z[j][i], z[j][i + 1]);
  }
}

}  // namespace

void Linpack::Dchud(double * r, int ldr, int p, const double * x, double * z, int ldz, int nz,
                    const double * y, double * rho, double * c, double * s) {
  const Columns rColumns{r, ldr};
  const Columns zColumns{z, ldz};
  for (int j = 0; j < p; ++j) {
    double xj = x[j];
    for (int i = 0; i < j; ++i)
      Turn(c[i], s[i], rColumns[j][i], xj);
    Blas1::DRotG(&rColumns[j][j], &xj, &c[j], &s[j]);
  }
  for (int j = 0; j < nz; ++j) {
    double zeta = y[j];
    for (int i = 0; i < p; ++i)
      Turn(c[i], s[i], zColumns[j][i], zeta);
    const double azeta = std::fabs(zeta);
    if (azeta != 0.0 && rho[j] >= 0.0) rho[j] = Length(azeta, rho[j]);
  }
}

int Linpack::Dchdd(double * r, int ldr, int p, const double * x, double * z, int ldz, int nz,
                   const double * y, double * rho, double * c, double * s) {
  const Columns rColumns{r, ldr};
  const Columns zColumns{z, ldz};
  // Solve R-transpose a = x; a stands in s.
  for (int j = 0; j < p; ++j) {
    s[j] = x[j] - Blas1::DDot(j, rColumns[j], 1, s, 1);
    s[j] /= rColumns[j][j];
  }
  const double norm = Blas1::DNrm2(p, s, 1);
  if (norm >= 1.0) return -1;

  double alpha = std::sqrt(1.0 - norm * norm);
  for (int i = p - 1; i >= 0; --i) {
    const double scale = alpha + std::fabs(s[i]);
    const double a = alpha / scale;
    const double b = s[i] / scale;
    const double length = std::sqrt(a * a + b * b);
    c[i] = a / length;
    s[i] = b / length;
    alpha = scale * length;
  }
  for (int j = 0; j < p; ++j) {
    double xx = 0.0;
    for (int i = j; i >= 0; --i) {
      const double t = c[i] * xx + s[i] * rColumns[j][i];
      rColumns[j][i] = c[i] * rColumns[j][i] - s[i] * xx;
      xx = t;
    }
  }
  int info = 0;
  for (int j = 0; j < nz; ++j) {
    double zeta = y[j];
    for (int i = 0; i < p; ++i) {
      zColumns[j][i] = (zColumns[j][i] - s[i] * zeta) / c[i];
      zeta = c[i] * zeta - s[i] * zColumns[j][i];
    }
    const double azeta = std::fabs(zeta);
    if (azeta > rho[j]) {
      info = 1;
      rho[j] = -1.0;
    } else if (rho[j] != 0.0) {
      const double ratio = azeta / rho[j];
      rho[j] *= std::sqrt(1.0 - ratio * ratio);
    }
  }
  return info;
}

void Linpack::Dchex(double * r, int ldr, int p, int k, int l, double * z, int ldz, int nz,
                    double * c, double * s, int job) {
  const Columns rColumns{r, ldr};
  const Columns zColumns{z, ldz};
  if (job == 2) {
    ShiftLeft(rColumns, p, k - 1, l - 1, zColumns, nz, c, s);
  } else {
    ShiftRight(rColumns, p, k - 1, l - 1, zColumns, nz, c, s);
  }
}

}  // namespace QVMath_940
