// The sweep operator on the packed lower triangle.
//
// J. H. Goodnight, "A tutorial on the SWEEP operator", The American Statistician 33 (1979) 149-158.
// The sign convention here leaves minus the inverse in the swept block, which keeps the matrix
// symmetric under every sequence of sweeps.
#include <algorithm>
#include <cmath>

#include "QVSymMatrix.h"

namespace QVMath_940 {

namespace {

// What one sweep does to the elements: a_ij becomes a_ij + b_i c_j, with c the scaled column k and
// b the old column k, its sign turned when the pivot was positive.
struct PivotFactors {
  explicit PivotFactors(double pivot)
      : newPivot(-1.0 / pivot), scale(std::abs(newPivot)), turnSign(newPivot < 0.0) {}

  // Scales `element` of column k and gives the factor of its row.
  double ScaleAndGetFactor(double & element) const {
    const double b = element;
    element = scale * b;
    return turnSign ? -b : b;
  }

  double newPivot;
  double scale;
  bool turnSign;
};

// Adds b[r] x (scaled column k) to the `R` packed rows i .. i + R - 1, all of them above k or all
// below, leaving out column k. `rowK` is the packed row k: the scaled elements left of the pivot.
// One pass over the column serves all R rows, whose first i + 1 columns they have in common; the
// triangle behind these is finished row by row.
template <int R>
void UpdateRows(double * a, int i, int k, const double * rowK, const double * b) {
  double * row[R];
  for (int r = 0; r < R; ++r)
    row[r] = a + QVSymMatrix::RowStart(i + r);

  const int left = std::min(i + 1, k);  // columns left of k that all rows hold
  for (int j = 0; j < left; ++j) {
    const double c = rowK[j];
    for (int r = 0; r < R; ++r)
      row[r][j] += b[r] * c;
  }
  if (i < k) {
    for (int r = 1; r < R; ++r)
      for (int j = i + 1; j <= i + r; ++j)
        row[r][j] += b[r] * rowK[j];
    return;
  }
  std::size_t columnK = QVSymMatrix::PackedPosition(k + 1, k);  // down column k
  for (int j = k + 1; j <= i; ++j) {
    const double c = a[columnK];
    for (int r = 0; r < R; ++r)
      row[r][j] += b[r] * c;
    columnK += static_cast<std::size_t>(j) + 1;
  }
  for (int j = i + 1; j < i + R; ++j) {
    const double c = a[columnK];
    for (int r = j - i; r < R; ++r)
      row[r][j] += b[r] * c;
    columnK += static_cast<std::size_t>(j) + 1;
  }
}

// Scales column k in the R rows from i on, then updates these rows.
template <int R>
void ScaleAndUpdateRows(double * a, int i, int k, const PivotFactors & pivot) {
  double * rowK = a + QVSymMatrix::RowStart(k);
  double b[R];
  for (int r = 0; r < R; ++r)
    b[r] = pivot.ScaleAndGetFactor(a[QVSymMatrix::PackedPosition(i + r, k)]);
  UpdateRows<R>(a, i, k, rowK, b);
}

// Sweeps row k of the packed triangle of n rows, four rows at a time, above the pivot and then
// below it. Each element receives one addition with the same two factors as in SweepElementwise.
void SweepPacked(double * a, int n, int k) {
  double & diagonal = a[QVSymMatrix::PackedPosition(k, k)];
  const PivotFactors pivot(diagonal);
  diagonal = pivot.newPivot;

  int i = 0;
  for (; i + 4 <= k; i += 4)
    ScaleAndUpdateRows<4>(a, i, k, pivot);
  for (; i < k; ++i)
    ScaleAndUpdateRows<1>(a, i, k, pivot);
  for (i = k + 1; i + 4 <= n; i += 4)
    ScaleAndUpdateRows<4>(a, i, k, pivot);
  for (; i < n; ++i)
    ScaleAndUpdateRows<1>(a, i, k, pivot);
}

// The same, element by element.
void SweepElementwise(double * a, int n, int k) {
  double & diagonal = a[QVSymMatrix::PackedPosition(k, k)];
  const PivotFactors pivot(diagonal);
  diagonal = pivot.newPivot;

  for (int i = 0; i < n; ++i) {
    if (i == k) continue;
    const double b = pivot.ScaleAndGetFactor(a[QVSymMatrix::PackedPosition(i, k)]);
    double * row = a + QVSymMatrix::RowStart(i);
    for (int j = 0; j <= i; ++j)
      if (j != k) row[j] += b * a[QVSymMatrix::PackedPosition(j, k)];
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
  if (!(tol * ref[k] < pivot)) return false;
  for (int j = 0; j < fNRows; ++j) {
    if (!swept.IsIn(j)) continue;
    const double ajk = a[PackedPosition(j, k)];
    const double newDiagonal = a[PackedPosition(j, j)] - (ajk / pivot) * ajk;
    if (!(newDiagonal * tol * ref[j] > -1.0)) return false;
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
  if (isAccepted)
    for (int k = 0; k < fNRows; ++k)
      Sweep(k, tol, ref, swept, false);

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
  for (int k = 0; k < count; ++k) {
    const std::size_t pivot = PackedPosition(k, k);
    const double oldPivot = fElements[pivot];
    if (!Sweep(k, tol, ref, swept, false)) continue;
    const double d = useOldPivot ? oldPivot : -fElements[pivot];
    if (d > 0.0) logDet += std::log(d);
  }
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
  for (int k : rows)
    Sweep(k, tol, ref, swept, false);
  return true;
}

}  // namespace QVMath_940
