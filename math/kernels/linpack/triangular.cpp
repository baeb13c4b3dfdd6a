// LINPACK's triangular matrices: DTRCO, DTRSL, DTRDI.
#include "Blas1.h"
#include "Linpack.h"
#include "math/kernels/linpack/columns.h"
#include "math/kernels/linpack/condition_vector.h"
#include "math/kernels/linpack/decimal_determinant.h"
#include "math/kernels/linpack/triangular_inverse.h"

namespace QVMath_940 {

using namespace linpack;

namespace {

using ConstColumns = FullColumns<const double>;

/// The position of the first zero on the diagonal, or 0.
int FirstZeroDiagonal(ConstColumns t, int n) {
  for (int k = 0; k < n; ++k) {
    if (t[k][k] == 0.0) return k + 1;
  }
  return 0;
}

void SolveLower(ConstColumns t, int n, double * b) {
  for (int j = 0; j < n; ++j) {
    b[j] /= t[j][j];
    Blas1::Daxpy(n - 1 - j, -b[j], t[j] + j + 1, 1, b + j + 1, 1);
  }
}

void SolveUpper(ConstColumns t, int n, double * b) {
  for (int j = n - 1; j >= 0; --j) {
    b[j] /= t[j][j];
    Blas1::Daxpy(j, -b[j], t[j], 1, b, 1);
  }
}

void SolveLowerTransposed(ConstColumns t, int n, double * b) {
  for (int j = n - 1; j >= 0; --j) {
    b[j] -= Blas1::DDot(n - 1 - j, t[j] + j + 1, 1, b + j + 1, 1);
    b[j] /= t[j][j];
  }
}

void SolveUpperTransposed(ConstColumns t, int n, double * b) {
  for (int j = 0; j < n; ++j) {
    b[j] -= Blas1::DDot(j, t[j], 1, b, 1);
    b[j] /= t[j][j];
  }
}

int InvertUpper(FullColumns<double> t, int n) {
  for (int k = 0; k < n; ++k) {
    if (t[k][k] == 0.0) return k + 1;
    InvertUpperColumn(t, n, k);
  }
  return 0;
}

int InvertLower(FullColumns<double> t, int n) {
  for (int k = n - 1; k >= 0; --k) {
    if (t[k][k] == 0.0) return k + 1;
    t[k][k] = 1.0 / t[k][k];
    Blas1::DScal(n - 1 - k, -t[k][k], t[k] + k + 1, 1);
    for (int j = 0; j < k; ++j) {
      const double factor = t[j][k];
      t[j][k] = 0.0;
      Blas1::Daxpy(n - k, factor, t[k] + k, 1, t[j] + k, 1);
    }
  }
  return 0;
}

}  // namespace

double Linpack::Dtrco(const double * t, int ldt, int n, double * z, int job) {
  if (n < 1) return 0.0;
  const ConstColumns columns{t, ldt};
  const bool lower = job == 0;
  double norm = 0.0;
  for (int j = 0; j < n; ++j) {
    norm = Blas1::D_Max(
        norm, lower ? Blas1::DASum(n - j, columns[j] + j, 1) : Blas1::DASum(j + 1, columns[j], 1));
  }

  ConditionVector vector(n, z);
  // Solve T-transpose y = e.
  for (int step = 0; step < n; ++step) {
    const int k = lower ? n - 1 - step : step;
    vector.ChooseAndDivide(k, columns[k][k], lower ? 0 : k + 1, lower ? k - 1 : n - 1,
                           [columns, k](int j) { return columns[j][k]; });
  }
  vector.StartZ();
  // Solve T z = y.
  for (int step = 0; step < n; ++step) {
    const int k = lower ? step : n - 1 - step;
    vector.DivideByPivot(k, columns[k][k]);
    const int first = lower ? k + 1 : 0;
    Blas1::Daxpy(n - 1 - step, -z[k], columns[k] + first, 1, z + first, 1);
  }
  vector.ScaleToOne();
  return ReciprocalCondition(vector, norm);
}

int Linpack::Dtrsl(const double * t, int ldt, int n, double * b, int job) {
  const ConstColumns columns{t, ldt};
  const int info = FirstZeroDiagonal(columns, n);
  if (info != 0) return info;
  const bool upper = job % 10 != 0;
  const bool transposed = job % 100 / 10 != 0;
  if (!transposed && !upper) SolveLower(columns, n, b);
  if (!transposed && upper) SolveUpper(columns, n, b);
  if (transposed && !upper) SolveLowerTransposed(columns, n, b);
  if (transposed && upper) SolveUpperTransposed(columns, n, b);
  return 0;
}

int Linpack::Dtrdi(double * t, int ldt, int n, double * det, int job) {
  const FullColumns<double> columns{t, ldt};
  if (job / 100 != 0) {
    StartDeterminant(det);
    for (int k = 0; k < n; ++k) {
      if (!MultiplyDeterminant(det, columns[k][k])) break;
    }
  }
  if (job / 10 % 10 == 0) return 0;
  return job % 10 != 0 ? InvertUpper(columns, n) : InvertLower(columns, n);
}

}  // namespace QVMath_940
