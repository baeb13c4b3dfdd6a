/// What stands behind an `IQVRectMatrix` in an operation on dense matrices: an operand of any class
/// read as a dense matrix, and a target that may be one of the operands.
#pragma once

#include <algorithm>
#include <initializer_list>
#include <utility>
#include <vector>

#include "QVRectMatrix.h"

namespace QVMath_940 {

/// A dense matrix with the elements of `matrix`: itself, or a copy where it is of another class.
class DenseOperand {
 public:
  explicit DenseOperand(const IQVRectMatrix & matrix) {
    if (matrix.GetMatrixType() == RectMatrixDense) {
      fDense = static_cast<const QVRectMatrix *>(&matrix);
      return;
    }
    fDense = &fCopy;
    if (!fCopy.SetNRowsCols(matrix.GetNRows(), matrix.GetNCols(), false)) return;
    std::vector<double> row;
    for (int i = 0; i < fCopy.GetNRows() && matrix.GetRow(i, row); ++i)
      if (!row.empty()) std::copy(row.begin(), row.end(), fCopy.GetRowPtr(i));
  }
  DenseOperand(const DenseOperand &) = delete;
  DenseOperand & operator=(const DenseOperand &) = delete;

  const QVRectMatrix & operator*() const { return *fDense; }
  const QVRectMatrix * operator->() const { return fDense; }

 private:
  const QVRectMatrix * fDense;
  QVRectMatrix fCopy;
};

/// A target of dense results. Where it is one of the operands the result is made aside and moved in
/// at the end.
///
///     DenseTarget out(target, {this, &b});
///     if (!out.Shape(rows, columns)) return false;
///     ... out.Row(i)[j] = ...
///     return out.Deliver();
class DenseTarget {
 public:
  DenseTarget(IQVRectMatrix & target, std::initializer_list<const IQVRectMatrix *> operands)
      : fTarget(target.GetMatrixType() == RectMatrixDense ? static_cast<QVRectMatrix *>(&target)
                                                          : nullptr),
        fResult(fTarget) {
    for (const IQVRectMatrix * operand : operands)
      if (operand == fTarget) fResult = &fAside;
  }
  DenseTarget(const DenseTarget &) = delete;
  DenseTarget & operator=(const DenseTarget &) = delete;

  /// Gives the result its shape, all 0.0. False when the target is not dense or its storage could
  /// not be obtained, which makes it invalid.
  bool Shape(int rows, int columns) {
    if (fTarget == nullptr) return false;
    if (fResult->SetNRowsCols(rows, columns, true)) return true;
    Deliver();
    return false;
  }

  double * Row(int i) { return fResult->GetRowPtr(i); }
  double * Data() { return fResult->AsVector().data(); }

  bool Deliver() {
    if (fResult != fTarget) *fTarget = std::move(fAside);
    return true;
  }

 private:
  QVRectMatrix * fTarget;
  QVRectMatrix * fResult;
  QVRectMatrix fAside;
};

}  // namespace QVMath_940
