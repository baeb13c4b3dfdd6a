// LINPACK's QR decomposition: DQRDC, DQRSL.
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

/// Moves the columns with a positive entry to the front and those with a negative one to the end,
/// and fills jpvt with the original positions. The free columns are left at first .. last.
void PlaceColumns(Columns x, int n, int p, int * jpvt, int & first, int & last) {
  first = 0;
  for (int j = 0; j < p; ++j) {
    const bool toFront = jpvt[j] > 0;
    jpvt[j] = jpvt[j] < 0 ? -(j + 1) : j + 1;
    if (!toFront) continue;
    if (j != first) Blas1::DSwap(n, x[first], 1, x[j], 1);
    jpvt[j] = jpvt[first];
    jpvt[first] = j + 1;
    ++first;
  }
  last = p - 1;
  for (int j = p - 1; j >= 0; --j) {
    if (jpvt[j] >= 0) continue;
    jpvt[j] = -jpvt[j];
    if (j != last) {
      Blas1::DSwap(n, x[last], 1, x[j], 1);
      std::swap(jpvt[last], jpvt[j]);
    }
    --last;
  }
}

/// Brings the free column with the largest reduced norm to position l.
void ExchangeLargest(Columns x, int n, int l, int last, double * qraux, int * jpvt, double * work) {
  double largest = 0.0;
  int pivot = l;
  for (int j = l; j <= last; ++j) {
    if (qraux[j] > largest) {
      largest = qraux[j];
      pivot = j;
    }
  }
  if (pivot == l) return;
  Blas1::DSwap(n, x[l], 1, x[pivot], 1);
  qraux[pivot] = qraux[l];
  work[pivot] = work[l];
  std::swap(jpvt[pivot], jpvt[l]);
}

/// The norm of a free column below row l, once its element in row l has been taken off. Where too
/// many digits would cancel it is calculated afresh.
void ReduceNorm(const double * column, int n, int l, double & norm, double & reference) {
  if (norm == 0.0) return;
  const double ratio = std::fabs(column[l]) / norm;
  const double t = Blas1::D_Max(1.0 - ratio * ratio, 0.0);
  const double relative = norm / reference;
  if (1.0 + 0.05 * t * (relative * relative) != 1.0) {
    norm *= std::sqrt(t);
  } else {
    norm = Blas1::DNrm2(n - l - 1, column + l + 1, 1);
    reference = norm;
  }
}

/// Applies the transformation I - u u-transpose / u(0), where u is `head` and the `below` elements
/// behind it, to the vector y.
void Reflect(int below, double head, const double * tail, double * y) {
  double dot = head * y[0];
  for (int i = 0; i < below; ++i)
    dot += tail[i] * y[i + 1];
  const double t = -dot / head;
  y[0] += t * head;
  Blas1::Daxpy(below, t, tail, 1, y + 1, 1);
}

/// R b = b for the leading k columns. The position of a zero on the diagonal, or 0.
int SolveR(FullColumns<const double> x, int k, double * b) {
  for (int j = k - 1; j >= 0; --j) {
    if (x[j][j] == 0.0) return j + 1;
    b[j] /= x[j][j];
    Blas1::Daxpy(j, -b[j], x[j], 1, b, 1);
  }
  return 0;
}

}  // namespace

void Linpack::Dqrdc(double * x, int ldx, int n, int p, double * qraux, int * jpvt, double * work,
                    int job) {
  if (n < 1 || p < 1) return;
  const Columns columns{x, ldx};
  int first = 0;
  int last = -1;
  if (job != 0) {
    PlaceColumns(columns, n, p, jpvt, first, last);
    for (int j = first; j <= last; ++j) {
      qraux[j] = Blas1::DNrm2(n, columns[j], 1);
      work[j] = qraux[j];
    }
  }

  for (int l = 0; l < std::min(n, p); ++l) {
    if (l >= first && l < last) ExchangeLargest(columns, n, l, last, qraux, jpvt, work);
    qraux[l] = 0.0;
    if (l == n - 1) break;

    const int rows = n - l;
    double * const vector = columns[l] + l;
    double norm = Blas1::DNrm2(rows, vector, 1);
    if (norm == 0.0) continue;
    if (vector[0] != 0.0) norm = Blas1::D_Sign(norm, vector[0]);
    Blas1::DScal(rows, 1.0 / norm, vector, 1);
    vector[0] += 1.0;
    for (int j = l + 1; j < p; ++j) {
      const double t = -Blas1::DDot(rows, vector, 1, columns[j] + l, 1) / vector[0];
      Blas1::Daxpy(rows, t, vector, 1, columns[j] + l, 1);
      if (j >= first && j <= last) ReduceNorm(columns[j], n, l, qraux[j], work[j]);
    }
    qraux[l] = vector[0];
    vector[0] = -norm;
  }
}

int Linpack::Dqrsl(const double * x, int ldx, int n, int k, const double * qraux, const double * y,
                   double * qy, double * qty, double * b, double * rsd, double * xb, int job) {
  if (n < 1) return 0;
  k = std::clamp(k, 0, n);
  const FullColumns<const double> columns{x, ldx};
  const bool wantQy = job / 10000 != 0;
  const bool wantQty = job % 10000 != 0;
  const bool wantB = job % 1000 / 100 != 0;
  const bool wantRsd = job % 100 / 10 != 0;
  const bool wantXb = job % 10 != 0;
  const int steps = std::min(k, n - 1);
  const auto reflect = [columns, qraux, n](int j, double * target) {
    if (qraux[j] != 0.0) Reflect(n - 1 - j, qraux[j], columns[j] + j + 1, target + j);
  };

  // The order of the copies lets arrays share their places.
  if (wantQy) Blas1::DCopy(n, y, 1, qy, 1);
  if (wantQty) Blas1::DCopy(n, y, 1, qty, 1);
  if (wantQy) {
    for (int j = steps - 1; j >= 0; --j)
      reflect(j, qy);
  }
  if (wantQty) {
    for (int j = 0; j < steps; ++j)
      reflect(j, qty);
  }

  if (wantB) Blas1::DCopy(k, qty, 1, b, 1);
  if (wantXb) Blas1::DCopy(k, qty, 1, xb, 1);
  if (wantRsd && k < n) Blas1::DCopy(n - k, qty + k, 1, rsd + k, 1);
  if (wantXb) std::fill(xb + k, xb + n, 0.0);
  if (wantRsd) std::fill(rsd, rsd + k, 0.0);
  const int info = wantB ? SolveR(columns, k, b) : 0;
  for (int j = steps - 1; j >= 0; --j) {
    if (wantRsd) reflect(j, rsd);
    if (wantXb) reflect(j, xb);
  }
  return info;
}

}  // namespace QVMath_940
