// Solving with a Cholesky factor. A zero on the diagonal of L is a variable that has dropped out:
// its value is 0.0.
#include <algorithm>
#include <cmath>
#include <vector>

#include "QVSymMatrix.h"
#include "math/kernels/kernel_table.h"

namespace QVMath_940 {

namespace {

using kernels::kFusedOrder;
using kernels::kTileRows;
using kernels::PackedRow;

std::size_t At(int i) {
  return static_cast<std::size_t>(i);
}

double Divide(double numerator, double pivot) {
  return pivot != 0.0 ? numerator / pivot : 0.0;
}

// y_i = (b_i - sum over j = 0 .. i - 1 of L_ij y_j) / L_ii. y may be b.
void SolveForwardSmall(const double * a, int n, const double * b, double * y) {
  for (int i = 0; i < n; ++i) {
    const double * const row = a + PackedRow(i);
    double sum = 0.0;
    for (int j = 0; j < i; ++j) {
      sum += row[j] * y[j];
    }
    y[i] = Divide(b[i] - sum, row[i]);
  }
}

// Rows whose sums run side by side: two tiles hide the wait for each addition.
constexpr int kSolveRows = 2 * kTileRows;

// The same with the sums of kSolveRows rows at a time.
void SolveForwardLarge(const double * a, int n, const double * b, double * y) {
  const auto addProducts = kernels::Kernels().dotRowsFused;
  for (int first = 0; first < n; first += kSolveRows) {
    const int end = std::min(first + kSolveRows, n);
    double sums[kSolveRows] = {};
    addProducts(end - first, {a + PackedRow(first), first + 1, 1}, y, At(first), sums);
    for (int tile = first; tile < end; tile += kTileRows) {
      const int tileEnd = std::min(tile + kTileRows, end);
      for (int i = tile; i < tileEnd; ++i) {
        const double * const row = a + PackedRow(i);
        double & sum = sums[i - first];
        addProducts(1, {row + tile, 0, 0}, y + tile, At(i - tile), &sum);
        y[i] = Divide(b[i] - sum, row[i]);
      }
      if (tileEnd < end) {
        addProducts(end - tileEnd, {a + PackedRow(tileEnd) + tile, tileEnd + 1, 1}, y + tile,
                    At(tileEnd - tile), sums + (tileEnd - first));
      }
    }
  }
}

// x_i = (y_i - sum over j = n - 1, n - 2, .., i + 1 of L_ji x_j) / L_ii. x may be y. The sums run
// from the last row up, so that each row of L is read once and along its storage.
void SolveBackwardSmall(const double * a, int n, const double * y, double * x) {
  double sums[kFusedOrder] = {};
  for (int j = n - 1; j >= 0; --j) {
    const double * const row = a + PackedRow(j);
    x[j] = Divide(y[j] - sums[j], row[j]);
    for (int i = 0; i < j; ++i) {
      sums[i] += row[i] * x[j];
    }
  }
}

// The same with the additions fused, row after row as they stand in memory.
void SolveBackwardLarge(const double * a, int n, const double * y, double * x) {
  const auto addRow = kernels::Kernels().axpyFused;
  std::vector<double> sums(At(n), 0.0);
  for (int j = n - 1; j >= 0; --j) {
    const double * const row = a + PackedRow(j);
    x[j] = Divide(y[j] - sums[At(j)], row[j]);
    addRow(At(j), x[j], row, sums.data());
  }
}

void SolveForward(const double * a, int n, const double * b, double * y) {
  (n < kFusedOrder ? SolveForwardSmall : SolveForwardLarge)(a, n, b, y);
}

void SolveBackward(const double * a, int n, const double * y, double * x) {
  (n < kFusedOrder ? SolveBackwardSmall : SolveBackwardLarge)(a, n, y, x);
}

}  // namespace

int QVSymMatrix::LTSolve(const std::vector<double> & b, double tol, std::vector<double> & x) {
  if (!(tol > 0.0) || b.size() < At(std::max(fNRows, 0))) return -1;
  if (&b == &x) {
    const std::vector<double> copy = b;
    return LTSolve(copy, tol, x);
  }
  GetDiagonal(x);
  const int deficiency = LTChol(x, tol, false);
  if (deficiency < 0) return deficiency;
  LTSubstitute(b, x);
  return deficiency;
}

int QVSymMatrix::LTSubstitute(const std::vector<double> & b, std::vector<double> & x) const {
  const int n = std::max(fNRows, 0);
  if (b.size() < At(n)) return -1;
  if (&b != &x) x.resize(At(n));
  SolveForward(fElements.data(), n, b.data(), x.data());
  SolveBackward(fElements.data(), n, x.data(), x.data());
  x.resize(At(n));
  return 0;
}

bool QVSymMatrix::TSolveSubst(const std::vector<double> & b, std::vector<double> & x,
                              bool transposed) const {
  const int n = std::max(fNRows, 0);
  if (b.size() != At(n)) return false;
  x.resize(At(n));
  (transposed ? SolveBackward : SolveForward)(fElements.data(), n, b.data(), x.data());
  return true;
}

bool QVSymMatrix::DotProdRowBeforeDiagFrontVec(int i, const std::vector<double> & v,
                                               double & result) const {
  if (!IsRow(i) || v.size() < At(i)) return false;
  const double * const row = fElements.data() + RowStart(i);
  double sum = 0.0;
  if (fNRows < kFusedOrder) {
    for (int j = 0; j < i; ++j) {
      sum += row[j] * v[At(j)];
    }
  } else {
    kernels::Kernels().dotRowsFused(1, {row, 0, 0}, v.data(), At(i), &sum);
  }
  result = sum;
  return true;
}

bool QVSymMatrix::DotProdColBelowDiagBackVec(int i, const std::vector<double> & v,
                                             double & result) const {
  if (!IsRow(i) || v.size() < At(fNRows)) return false;
  double sum = 0.0;
  for (int j = fNRows - 1; j > i; --j) {
    const double element = fElements[PackedPosition(j, i)];
    sum = fNRows < kFusedOrder ? sum + element * v[At(j)] : std::fma(element, v[At(j)], sum);
  }
  result = sum;
  return true;
}

}  // namespace QVMath_940
