// LINPACK's Cholesky decomposition with pivoting: DCHDC.
#include <cmath>
#include <utility>

#include "Blas1.h"
#include "Linpack.h"
#include "math/kernels/linpack/columns.h"

namespace QVMath_940 {

using namespace linpack;

namespace {

using Columns = FullColumns<double>;

/// Exchanges rows and columns p < q of a symmetric matrix held in its upper triangle.
void ExchangeDiagonals(Columns a, int n, int p, int q) {
  Blas1::DSwap(p, a[p], 1, a[q], 1);
  std::swap(a[p][p], a[q][q]);
  for (int j = p + 1; j < q; ++j)
    std::swap(a[j][p], a[q][j]);
  for (int j = q + 1; j < n; ++j)
    std::swap(a[j][p], a[j][q]);
}

/// Moves the diagonals with a positive entry to the front and those with a negative one to the end,
/// and fills jpvt with the original positions. The free ones are left at first .. last.
void PlaceDiagonals(Columns a, int p, int * jpvt, int & first, int & last) {
  first = 0;
  for (int k = 0; k < p; ++k) {
    const bool toFront = jpvt[k] > 0;
    jpvt[k] = jpvt[k] < 0 ? -(k + 1) : k + 1;
    if (!toFront) continue;
    if (k != first) {
      ExchangeDiagonals(a, p, first, k);
      jpvt[k] = jpvt[first];
      jpvt[first] = k + 1;
    }
    ++first;
  }
  last = p - 1;
  for (int k = p - 1; k >= first; --k) {
    if (jpvt[k] >= 0) continue;
    jpvt[k] = -jpvt[k];
    if (k != last) {
      ExchangeDiagonals(a, p, k, last);
      std::swap(jpvt[k], jpvt[last]);
    }
    --last;
  }
}

}  // namespace

int Linpack::Dchdc(double * a, int lda, int p, double * work, int * jpvt, int job) {
  if (p < 1) return 0;
  const Columns columns{a, lda};
  int first = 0;
  int last = -1;
  if (job != 0) PlaceDiagonals(columns, p, jpvt, first, last);

  for (int k = 0; k < p; ++k) {
    int pivot = k;
    double largest = columns[k][k];
    if (k >= first && k < last) {
      for (int l = k + 1; l <= last; ++l) {
        if (columns[l][l] > largest) {
          largest = columns[l][l];
          pivot = l;
        }
      }
    }
    if (largest <= 0.0) return k;
    if (pivot != k) {
      ExchangeDiagonals(columns, p, k, pivot);
      std::swap(jpvt[k], jpvt[pivot]);
    }
    work[k] = std::sqrt(columns[k][k]);
    columns[k][k] = work[k];
    for (int j = k + 1; j < p; ++j) {
      columns[j][k] /= work[k];
      work[j] = columns[j][k];
      Blas1::Daxpy(j - k, -columns[j][k], work + k + 1, 1, columns[j] + k + 1, 1);
    }
  }
  return p;
}

}  // namespace QVMath_940
