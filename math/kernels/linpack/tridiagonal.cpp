// LINPACK's tridiagonal systems: DGTSL, DPTSL.
#include <cmath>
#include <utility>

#include "Linpack.h"

namespace QVMath_940 {

int Linpack::Dgtsl(int n, double * c, double * d, double * e, double * b) {
  if (n < 1) return 0;
  // Row k of the eliminated matrix is c[k], d[k], e[k]: its diagonal and the two elements behind.
  c[0] = d[0];
  if (n > 1) {
    d[0] = e[0];
    e[0] = 0.0;
    e[n - 1] = 0.0;
  }
  for (int k = 0; k < n - 1; ++k) {
    if (std::fabs(c[k + 1]) >= std::fabs(c[k])) {
      std::swap(c[k + 1], c[k]);
      std::swap(d[k + 1], d[k]);
      std::swap(e[k + 1], e[k]);
      std::swap(b[k + 1], b[k]);
    }
    if (c[k] == 0.0) return k + 1;
    const double t = -c[k + 1] / c[k];
    c[k + 1] = d[k + 1] + t * d[k];
    d[k + 1] = e[k + 1] + t * e[k];
    e[k + 1] = 0.0;
    b[k + 1] += t * b[k];
  }
  if (c[n - 1] == 0.0) return n;

  b[n - 1] /= c[n - 1];
  if (n > 1) b[n - 2] = (b[n - 2] - d[n - 2] * b[n - 1]) / c[n - 2];
  for (int k = n - 3; k >= 0; --k) {
    b[k] = (b[k] - d[k] * b[k + 1] - e[k] * b[k + 2]) / c[k];
  }
  return 0;
}

void Linpack::Dptsl(int n, double * d, const double * e, double * b) {
  if (n < 1) return;
  // Zero the top half of the subdiagonal and the bottom half of the superdiagonal.
  const int half = (n - 1) / 2;
  for (int k = 0; k < half; ++k) {
    const double t1 = e[k] / d[k];
    d[k + 1] -= t1 * e[k];
    b[k + 1] -= t1 * b[k];
    const int low = n - 2 - k;
    const double t2 = e[low] / d[low + 1];
    d[low] -= t2 * e[low];
    b[low] -= t2 * b[low + 1];
  }
  // An even order leaves a block of order 2 in the middle.
  int middle = half;
  if (n % 2 == 0) {
    const double t1 = e[middle] / d[middle];
    d[middle + 1] -= t1 * e[middle];
    b[middle + 1] -= t1 * b[middle];
    ++middle;
  }
  // Solve from the middle outwards.
  b[middle] /= d[middle];
  for (int step = 1; step <= half; ++step) {
    const int k = middle - step;
    const int low = middle + step;
    b[k] = (b[k] - e[k] * b[k + 1]) / d[k];
    b[low] = (b[low] - e[low - 1] * b[low - 1]) / d[low];
  }
  if (n % 2 == 0) b[0] = (b[0] - e[0] * b[1]) / d[0];
}

}  // namespace QVMath_940
