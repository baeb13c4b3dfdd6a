// A Cholesky factor after a case has come in or gone out: the rank-one update and downdate.
//
// J. J. Dongarra, C. B. Moler, J. R. Bunch, G. W. Stewart, "LINPACK Users' Guide", SIAM 1979: DCHUD
// and DCHDD.
//
// A column of their triangle R is a row of L here. Every row i carries its own x_i through the
// rotations of the columns before it, so that rows are independent along their earlier columns and
// go through them several at a time.
#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "Blas1.h"
#include "QVMathFun.h"
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

/// The plane rotations, one for each row.
struct Rotations {
  double * c;
  double * s;
};

// --- Update -------------------------------------------------------------------------------------

/// Up to kTileRows rows of L on their way through the rotations of the columns before them.
class RowsUnderUpdate {
 public:
  RowsUnderUpdate(double * a, int n, int first, const double * x, const Rotations & rotations)
      : fFirst(first), fRows(std::min(kTileRows, n - first)), fRotations(rotations) {
    for (int r = 0; r < fRows; ++r) {
      fRow[r] = a + PackedRow(first + r);
      fX[r] = x[first + r];
    }
  }

  int First() const { return fFirst; }
  int Rows() const { return fRows; }

  /// Goes on through the columns below `end`.
  void RotateBefore(int end) {
    if (end <= fDone) return;
    double * from[kTileRows];
    for (int r = 0; r < fRows; ++r)
      from[r] = fRow[r] + fDone;
    kernels::Kernels().rotateRowsFused(fRows, end - fDone, fRotations.c + fDone,
                                       fRotations.s + fDone, from, fX);
    fDone = end;
  }

  /// Finishes row r, whose columns before the tile are done, and makes its rotation.
  void FinishRow(int r) {
    double * own = fRow[r] + fFirst;
    double * const c = fRotations.c + fFirst;
    double * const s = fRotations.s + fFirst;
    kernels::Kernels().rotateRowsFused(1, r, c, s, &own, fX + r);
    Blas1::DRotG(own + r, fX + r, c + r, s + r);
  }

 private:
  int fFirst;
  int fRows;
  int fDone = 0;
  Rotations fRotations;
  double * fRow[kTileRows];
  double fX[kTileRows];
};

/// Making a rotation takes long and every row waits for the one before it. Meanwhile the next tile
/// goes through a part of the columns whose rotations are there already.
void UpdateLarge(double * a, int n, const double * x, const Rotations & rotations) {
  RowsUnderUpdate tile(a, n, 0, x, rotations);
  while (true) {
    const int behind = tile.First() + tile.Rows();
    RowsUnderUpdate next(a, n, std::min(behind, n - 1), x, rotations);
    const int part =
        (tile.First() + kTileRows * kTileRows - 1) / (kTileRows * kTileRows) * kTileRows;
    tile.RotateBefore(tile.First());
    for (int r = 0; r < tile.Rows(); ++r) {
      tile.FinishRow(r);
      if (behind < n) next.RotateBefore(std::min((r + 1) * part, tile.First()));
    }
    if (behind >= n) return;
    tile = next;
  }
}

void UpdateSmall(double * a, int n, const double * x, const Rotations & rotations) {
  const auto [c, s] = rotations;
  for (int i = 0; i < n; ++i) {
    double * const row = a + PackedRow(i);
    double xi = x[i];
    for (int j = 0; j < i; ++j) {
      const double t = c[j] * row[j] + s[j] * xi;
      xi = c[j] * xi - s[j] * row[j];
      row[j] = t;
    }
    Blas1::DRotG(row + i, &xi, c + i, s + i);
  }
}

// --- Downdate -----------------------------------------------------------------------------------

/// The rotations that take the unit vector (p, alpha) back to the last axis, p standing in s.
void MakeDowndateRotations(int n, double alpha, const Rotations & rotations) {
  for (int i = n - 1; i >= 0; --i) {
    double & si = rotations.s[i];
    const double scale = alpha + std::abs(si);
    const double a = alpha / scale;
    const double b = si / scale;
    const double r = std::sqrt(a * a + b * b);
    rotations.c[i] = a / r;
    si = b / r;
    alpha = scale * r;
  }
}

void DowndateLarge(double * a, int n, const Rotations & rotations) {
  const kernels::KernelTable & table = kernels::Kernels();
  for (int first = 0; first < n; first += kTileRows) {
    const int rows = std::min(kTileRows, n - first);
    double * row[kTileRows];
    double xx[kTileRows] = {};
    for (int r = 0; r < rows; ++r) {
      row[r] = a + PackedRow(first + r);
      double * own = row[r] + first;
      table.rotateRowsBackFused(1, r + 1, rotations.c + first, rotations.s + first, &own, xx + r);
    }
    table.rotateRowsBackFused(rows, first, rotations.c, rotations.s, row, xx);
  }
}

void DowndateSmall(double * a, int n, const Rotations & rotations) {
  const auto [c, s] = rotations;
  for (int i = 0; i < n; ++i) {
    double * const row = a + PackedRow(i);
    double xx = 0.0;
    for (int j = i; j >= 0; --j) {
      const double t = c[j] * xx + s[j] * row[j];
      row[j] = c[j] * row[j] - s[j] * xx;
      xx = t;
    }
  }
}

bool HaveSize(int n, const std::vector<double> & x, const std::vector<double> & c,
              const std::vector<double> & s) {
  return n >= 0 && x.size() == At(n) && c.size() == At(n) && s.size() == At(n);
}

}  // namespace

bool QVSymMatrix::LTCholUpdateR1(const std::vector<double> & x, std::vector<double> & c,
                                 std::vector<double> & s) {
  if (!HaveSize(fNRows, x, c, s)) return false;
  if (fNRows < 1) return true;
  (fNRows < kFusedOrder ? UpdateSmall : UpdateLarge)(fElements.data(), fNRows, x.data(),
                                                     {c.data(), s.data()});
  return true;
}

bool QVSymMatrix::LTCholDowndate(const std::vector<double> & x, std::vector<double> & c,
                                 std::vector<double> & s, bool rescale) {
  constexpr double kRepair = 0.1;      // of the largest diagonal element, for those not above 0.0
  constexpr double kScaledNorm = 0.9;  // a norm that lets the downdate go on

  if (!HaveSize(fNRows, x, c, s) || fNRows < 1 || !(fElements[0] > 0.0)) return false;
  double largest = fElements[0];
  for (int i = 1; i < fNRows; ++i)
    largest = std::max(largest, fElements[PackedPosition(i, i)]);
  for (int i = 1; i < fNRows; ++i) {
    double & pivot = fElements[PackedPosition(i, i)];
    if (!(pivot > 0.0)) pivot = kRepair * largest;
  }

  TSolveSubst(x, s, false);
  double norm = QVMathFun::DNrm2(fNRows, s, 0, 1);
  if (norm >= 1.0) {
    if (!rescale) return false;
    kernels::Kernels().scale(fElements.size(), norm / kScaledNorm, fElements.data());
    QVMathFun::DScal(fNRows, kScaledNorm / norm, s, 0, 1);
    norm = kScaledNorm;
  }
  const Rotations rotations{c.data(), s.data()};
  MakeDowndateRotations(fNRows, std::sqrt(1.0 - norm * norm), rotations);
  (fNRows < kFusedOrder ? DowndateSmall : DowndateLarge)(fElements.data(), fNRows, rotations);
  return true;
}

}  // namespace QVMath_940
