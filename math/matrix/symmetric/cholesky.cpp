// The Cholesky factorisation that never pivots and never fails: a dependent row gets a zero pivot.
// What is built on it without the inverse or a solution stands here too.
#include <algorithm>
#include <cmath>

#include "QVSymMatrix.h"
#include "math/kernels/kernel_table.h"
#include "math/matrix/symmetric/determinant.h"
#include "math/matrix/symmetric/packed_cholesky.h"

namespace QVMath_940 {

namespace {

// Before any diagonal element is looked at.
constexpr double kNoDiagonal = -1.7976931348623157e308;

bool IsAnyNegative(const std::vector<double> & values, int n) {
  return std::any_of(values.begin(), values.begin() + n, [](double value) { return value < 0.0; });
}

}  // namespace

bool QVSymMatrix::AreCholeskyArguments(const std::vector<double> & ref, double tol) const {
  const int n = std::max(fNRows, 0);
  return !(tol < 0.0) && ref.size() >= static_cast<std::size_t>(n) && !IsAnyNegative(ref, n);
}

int QVSymMatrix::LTChol(const std::vector<double> & ref, double tol, bool check) {
  if (check && !AreCholeskyArguments(ref, tol)) return -1;
  if (fNRows < 1) return 0;
  return FactorPacked(fElements.data(), fNRows, {ref.data(), tol}, nullptr);
}

int QVSymMatrix::LTChol(const std::vector<double> & ref, double tol, QVBitSet & accepted,
                        bool check) {
  if (accepted.Size() < fNRows) {
    accepted.Resize(fNRows, false);
  } else {
    accepted.Clear();
  }
  if (check && !AreCholeskyArguments(ref, tol)) return -1;
  if (fNRows < 1) return 0;
  std::vector<char> isAccepted(static_cast<std::size_t>(fNRows));
  const int deficiency =
      FactorPacked(fElements.data(), fNRows, {ref.data(), tol}, isAccepted.data());
  for (int i = 0; i < fNRows; ++i) {
    if (isAccepted[static_cast<std::size_t>(i)] != 0) accepted.Set(i, true);
  }
  return deficiency;
}

int QVSymMatrix::LTChol(double tol, double & minDiag, bool check) {
  minDiag = kNoDiagonal;
  std::vector<double> ref;
  GetNCheckDiagonal(ref, tol, 1.0);
  const int deficiency = LTChol(ref, tol, check);
  if (deficiency >= 0) GetSmallestDiagonal(minDiag);
  return deficiency;
}

void QVSymMatrix::GetSmallestDiagonal(double & minDiag) const {
  if (fNRows < 1) return;
  minDiag = GetElem(0, 0);
  for (int i = 1; i < fNRows; ++i) {
    minDiag = std::min(minDiag, GetElem(i, i));
  }
}

int QVSymMatrix::CholIndNonRed(int maxCount, double tol, std::vector<int> & rows) const {
  rows.clear();
  if (maxCount <= 0 || maxCount > fNRows) maxCount = fNRows;
  if (tol < 0.0) return 0;
  std::vector<double> ref;
  GetDiagonal(ref);
  std::vector<double> factor = fElements;
  const PivotThresholds thresholds{ref.data(), tol};
  const bool isFused = fNRows >= kernels::kFusedOrder;
  if (maxCount == fNRows && fNRows > 0) {
    std::vector<char> isAccepted(static_cast<std::size_t>(fNRows));
    FactorPacked(factor.data(), fNRows, thresholds, isAccepted.data());
    for (int i = 0; i < fNRows; ++i) {
      if (isAccepted[static_cast<std::size_t>(i)] != 0) rows.push_back(i);
    }
  } else {
    for (int i = 0; i < fNRows && static_cast<int>(rows.size()) < maxCount; ++i) {
      if (FactorRow(factor.data(), i, isFused, thresholds)) rows.push_back(i);
    }
  }
  return static_cast<int>(rows.size());
}

bool QVSymMatrix::ComputeDeterminant(double tol, double * const det) const {
  if (fNRows < 1) return false;
  QVSymMatrix factor(*this);
  if (!factor.IsValidMatrix()) return false;
  double minDiag;
  if (factor.LTChol(tol, minDiag, true) < 0) return false;
  if (minDiag == 0.0) {
    det[0] = 0.0;
    det[1] = 0.0;
    return true;
  }
  factor.LTDetInverse(det, 1);
  det[0] *= det[0];
  det[1] *= 2.0;
  NormaliseDeterminant(det);
  return true;
}

int QVSymMatrix::TransformToPositiveDefinite(double tol, bool & changed, double & shift) {
  // Far above any normal use: the loops below end in tens of trials, but for a matrix that holds a
  // NaN they would not end at all.
  constexpr int kMaxTrials = 2000;

  changed = false;
  shift = 0.0;
  if (fNRows < 2) return -1;
  if (!(tol > 0.0)) return -2;

  QVSymMatrix trial(*this);
  std::vector<double> ref;
  GetNCheckDiagonal(ref, 1e-06, 1.0);
  int deficiency = trial.LTChol(ref, tol, false);
  int trials = 1;
  if (deficiency == 0) return trials;

  const auto tryShift = [&](double added) {
    trial.SetData(*this);
    trial.AddToDiagonal(added);
    deficiency = trial.LTChol(ref, tol, false);
    ++trials;
  };

  double maxDiag, minDiag, maxOff, minOff;
  MaxMinDiagOffDiag(maxDiag, minDiag, maxOff, minOff);
  double step = std::max(std::max(std::abs(maxDiag), std::abs(minDiag)),
                         std::max(std::abs(maxOff), std::abs(minOff)));
  step = std::max(step, fNRows == 2 ? 1.0 : fNRows - 2.0);
  while (deficiency > 0 && trials < kMaxTrials) {
    shift += step;
    tryShift(shift);
  }

  // The smallest shift that serves, by bisection.
  double low = 0.0;
  double high = shift;
  const auto halfWidth = [&](double mid) {
    const double width = high - low;
    return (mid > 1.0 ? width / mid : width) * 0.5;
  };
  double mid = (high + low) * 0.5;
  while (halfWidth(mid) > tol && trials < kMaxTrials) {
    tryShift(mid);
    (deficiency < 1 ? high : low) = mid;
    mid = (high + low) * 0.5;
  }

  shift = high;
  AddToDiagonal(high);
  MaxMinDiag(maxDiag, minDiag);
  const double margin = 0.01 * maxDiag;
  AddToDiagonal(margin);
  shift += margin;
  MultiplyByNumber(1.0 / (shift + ref[0]));
  changed = true;
  return trials;
}

int QVSymMatrix::CheckMDependent(int m, const std::vector<double> & packed, const QVBitSet & rows,
                                 double tol) {
  if (m < 0 || packed.size() < RowStart(m) || rows.Size() < m) return -1;
  if (m == 0) return 0;
  std::vector<int> chosen;
  for (int i = 0; i < m; ++i) {
    if (rows.IsIn(i)) chosen.push_back(i);
  }
  if (!SetNRows(static_cast<int>(chosen.size()), false)) return -2;
  std::size_t place = 0;
  for (std::size_t i = 0; i < chosen.size(); ++i) {
    for (std::size_t j = 0; j <= i; ++j) {
      fElements[place++] = packed[PackedPosition(chosen[i], chosen[j])];
    }
  }
  std::vector<double> ref;
  GetNCheckDiagonal(ref, tol, 1.0);
  return LTChol(ref, tol, false);
}

}  // namespace QVMath_940
