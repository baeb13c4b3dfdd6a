// The sweep operator on the packed lower triangle.
//
// J. H. Goodnight, "A tutorial on the SWEEP operator", The American Statistician 33 (1979) 149-158.
// The sign convention here leaves minus the inverse in the swept block, which keeps the matrix
// symmetric under every sequence of sweeps.
#include <algorithm>
#include <cmath>

#include "QVSymMatrix.h"
#include "math/kernels/kernel_table.h"
#include "math/matrix/symmetric/sweep_panel.h"

namespace QVMath_940 {

namespace {

// What one sweep does to the elements: a_ij becomes a_ij + b_i c_j, with c the scaled column k and
// b the old column k, its sign turned when the pivot was positive.
struct PivotFactors {
  explicit PivotFactors(double pivot)
      : newPivot(-1.0 / pivot), scale(std::abs(newPivot)), turnSign(newPivot < 0.0) {}

  double B(double element) const { return turnSign ? -element : element; }
  double C(double element) const { return scale * element; }

  double newPivot;
  double scale;
  bool turnSign;
};

// Orders up to this one have their pivot column and its factors on the stack.
constexpr int kStackOrder = 2048;

// Sweeps row k in one pass over the triangle.
void SweepInOnePass(double * a, int n, int k) {
  double b[kStackOrder];
  double c[kStackOrder];
  const PivotFactors pivot(a[QVSymMatrix::PackedPosition(k, k)]);
  const auto setFactors = [&](int j, double element) {
    b[j] = pivot.B(element);
    c[j] = pivot.C(element);
  };
  const double * const rowK = a + QVSymMatrix::RowStart(k);
  for (int j = 0; j < k; ++j) {
    setFactors(j, rowK[j]);
  }
  b[k] = 0.0;
  c[k] = 0.0;
  const double * element = rowK + k;
  for (int i = k + 1; i < n; ++i) {
    element += i;
    setFactors(i, *element);
  }
  const kernels::KernelTable & table = kernels::Kernels();
  (n < kernels::kFusedOrder ? table.sweepRowPlain : table.sweepRowFused)(n, k, b, c, pivot.newPivot,
                                                                         a);
}

// Columns whose scaled factors stand on the stack at a time.
constexpr int kColumnsAtOnce = kStackOrder;

// Updates columns first .. last - 1, which lie on one side of k, in all rows that hold them. Column
// and row k still have their old values, from which the factors come.
void UpdateColumns(double * a, int n, int k, int first, int last, const PivotFactors & pivot) {
  double c[kColumnsAtOnce];
  for (int j = first; j < last; ++j) {
    c[j - first] = pivot.C(a[QVSymMatrix::PackedPosition(j, k)]);
  }
  for (int i = first; i < n; ++i) {
    if (i == k) {
      continue;
    }
    const double b = pivot.B(a[QVSymMatrix::PackedPosition(i, k)]);
    const int width = std::min(i + 1, last) - first;
    kernels::Kernels().axpyFused(static_cast<std::size_t>(width), b, c,
                                 a + QVSymMatrix::PackedPosition(i, first));
  }
}

// Writes the scaled column k and the new pivot. Nothing but column and row k changes.
void ScalePivotColumn(double * a, int n, int k, const PivotFactors & pivot) {
  double * const rowK = a + QVSymMatrix::RowStart(k);
  for (int j = 0; j < k; ++j) {
    rowK[j] = pivot.C(rowK[j]);
  }
  rowK[k] = pivot.newPivot;
  for (int i = k + 1; i < n; ++i) {
    double & element = a[QVSymMatrix::PackedPosition(i, k)];
    element = pivot.C(element);
  }
}

// Sweeps row k of a larger triangle, some columns at a time.
void SweepByColumns(double * a, int n, int k) {
  const PivotFactors pivot(a[QVSymMatrix::PackedPosition(k, k)]);
  for (int first = 0; first < k; first += kColumnsAtOnce) {
    UpdateColumns(a, n, k, first, std::min(first + kColumnsAtOnce, k), pivot);
  }
  for (int first = k + 1; first < n; first += kColumnsAtOnce) {
    UpdateColumns(a, n, k, first, std::min(first + kColumnsAtOnce, n), pivot);
  }
  ScalePivotColumn(a, n, k, pivot);
}

void SweepPacked(double * a, int n, int k) {
  (n <= kStackOrder ? SweepInOnePass : SweepByColumns)(a, n, k);
}

// The same, element by element, as the formula reads.
void SweepElementwise(double * a, int n, int k) {
  const bool isFused = n >= kernels::kFusedOrder;
  double & diagonal = a[QVSymMatrix::PackedPosition(k, k)];
  const PivotFactors pivot(diagonal);
  diagonal = pivot.newPivot;

  for (int i = 0; i < n; ++i) {
    if (i == k) continue;
    double & elementIK = a[QVSymMatrix::PackedPosition(i, k)];
    const double b = pivot.B(elementIK);
    elementIK = pivot.C(elementIK);
    double * row = a + QVSymMatrix::RowStart(i);
    for (int j = 0; j <= i; ++j) {
      if (j == k) continue;
      const double c = a[QVSymMatrix::PackedPosition(j, k)];
      row[j] = isFused ? std::fma(b, c, row[j]) : row[j] + b * c;
    }
  }
}

bool IsAnyNegative(const double * ref, int n) {
  return std::any_of(ref, ref + std::max(n, 0), [](double value) { return value < 0.0; });
}

// The list forms judge small variables by 1.0, not by their own diagonal.
void RaiseToOne(double * ref, int n) {
  for (int i = 0; i < n; ++i)
    if (ref[i] < 1.0) ref[i] = 1.0;
}

}  // namespace

bool QVSymMatrix::AreSweepArguments(int k, double tol, const double * ref,
                                    const QVBitSet & swept) const {
  return IsRow(k) && tol > 0.0 && swept.Size() >= fNRows && ref != nullptr &&
         !IsAnyNegative(ref, fNRows);
}

bool QVSymMatrix::IsPivotAccepted(int k, double tol, const double * ref,
                                  const QVBitSet & swept) const {
  const double * a = fElements.data();
  const double pivot = a[PackedPosition(k, k)];
  if (!PivotIsLarge(pivot, tol, ref[k])) return false;
  for (int j = 0; j < fNRows; ++j) {
    if (swept.IsIn(j) &&
        !EarlierPivotStays(a[PackedPosition(j, j)], a[PackedPosition(j, k)], pivot, tol, ref[j])) {
      return false;
    }
  }
  return true;
}

bool QVSymMatrix::Sweep(int k, double tol, const double * ref, QVBitSet & swept, bool check) {
  if (check && !AreSweepArguments(k, tol, ref, swept)) return false;
  const bool wasSwept = swept.IsIn(k);
  if (!wasSwept && !IsPivotAccepted(k, tol, ref, swept)) return false;
  SweepPacked(fElements.data(), fNRows, k);
  swept.Set(k, !wasSwept);
  return true;
}

bool QVSymMatrix::Sweep(int k, double tol, const std::vector<double> & ref, QVBitSet & swept,
                        bool check) {
  if (check && static_cast<long long>(ref.size()) < fNRows) return false;
  return Sweep(k, tol, ref.data(), swept, check);
}

bool QVSymMatrix::SweepOrig(int k, double tol, const std::vector<double> & ref, QVBitSet & swept,
                            bool check) {
  if (check && static_cast<long long>(ref.size()) < fNRows) return false;
  if (check && !AreSweepArguments(k, tol, ref.data(), swept)) return false;
  const bool wasSwept = swept.IsIn(k);
  if (!wasSwept && !IsPivotAccepted(k, tol, ref.data(), swept)) return false;
  SweepElementwise(fElements.data(), fNRows, k);
  swept.Set(k, !wasSwept);
  return true;
}

void QVSymMatrix::SweepInOrder(const PivotList & list, QVBitSet & swept, LogPivots * logPivots) {
  double * const a = fElements.data();
  if (fNRows >= kernels::kFusedOrder && SweepByPanels(a, fNRows, list, swept, logPivots)) return;
  for (int place = 0; place < list.count; ++place) {
    const int k = list.Row(place);
    const double oldPivot = a[PackedPosition(k, k)];
    if (Sweep(k, list.tol, list.ref, swept, false) && logPivots != nullptr) {
      logPivots->Add(oldPivot, a[PackedPosition(k, k)]);
    }
  }
}

bool QVSymMatrix::SweepOnAll(double tol, QVBitSet & swept, bool check, bool zeroRedundant,
                             bool changeSign, double * ref) {
  std::vector<double> diagonal;
  if (ref == nullptr) {
    GetDiagonal(diagonal);
    ref = diagonal.data();
  }
  if (swept.Size() != fNRows) swept.Resize(fNRows, false);
  swept.Clear();

  bool isAccepted = true;
  if (check) {
    isAccepted = tol > 0.0 && !IsAnyNegative(ref, fNRows);
    if (isAccepted) RaiseToOne(ref, fNRows);
  }
  if (isAccepted) SweepInOrder({nullptr, fNRows, tol, ref}, swept, nullptr);

  if (zeroRedundant && swept.InSet() < fNRows) ZeroOutRedundant(swept);
  if (changeSign) ChangeSign();
  return isAccepted;
}

bool QVSymMatrix::SweepOnMany(int count, double tol, bool useOldPivot, QVBitSet & swept,
                              double & logDet, bool check, double * ref) {
  std::vector<double> diagonal;
  if (ref == nullptr) {
    GetDiagonal(diagonal);
    ref = diagonal.data();
  }
  if (swept.Size() == 0) swept.Resize(fNRows, false);
  if (check) {
    if (count < 1 || count > fNRows || !(tol > 0.0)) return false;
    if (IsAnyNegative(ref, fNRows) || swept.Size() < count) return false;
    RaiseToOne(ref, fNRows);
  }

  logDet = 0.0;
  swept.SetRange(0, count - 1, false);  // does nothing unless count - 1 is a bit of the set
  LogPivots logPivots{useOldPivot, 0.0};
  SweepInOrder({nullptr, count, tol, ref}, swept, &logPivots);
  logDet = logPivots.sum;
  return true;
}

bool QVSymMatrix::SweepOnSelected(const std::vector<int> & rows, double tol, QVBitSet & swept,
                                  bool check, double * ref) {
  std::vector<double> diagonal;
  if (ref == nullptr) {
    GetDiagonal(diagonal);
    ref = diagonal.data();
  }
  if (swept.Size() == 0) swept.Resize(fNRows, false);
  if (check) {
    if (IsAnyNegative(ref, fNRows) || swept.Size() < fNRows) return false;
    if (!std::all_of(rows.begin(), rows.end(), [this](int k) { return IsRow(k); })) return false;
    RaiseToOne(ref, fNRows);
  }
  SweepInOrder({rows.data(), static_cast<int>(rows.size()), tol, ref}, swept, nullptr);
  return true;
}

}  // namespace QVMath_940
