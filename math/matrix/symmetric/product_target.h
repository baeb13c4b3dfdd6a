/// Where the result of a matrix product goes: straight into the target, or, when the target is one
/// of the operands too, aside first and into the target at the end.
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "QVRectMatrix.h"
#include "QVSymMatrix.h"

namespace QVMath_940 {

/// The dense matrix behind an interface; null when another class stands there.
inline QVSymMatrix * AsDense(IQVSymMatrix & s) {
  return s.GetType() == SymMatrixDense ? static_cast<QVSymMatrix *>(&s) : nullptr;
}
inline const QVSymMatrix * AsDense(const IQVSymMatrix & s) {
  return s.GetType() == SymMatrixDense ? static_cast<const QVSymMatrix *>(&s) : nullptr;
}
inline const QVRectMatrix * AsDense(const IQVRectMatrix & r) {
  return r.GetMatrixType() == RectMatrixDense ? static_cast<const QVRectMatrix *>(&r) : nullptr;
}

/// Zeros for the packed triangle of order n of a symmetric target, which takes that order (a target
/// that has it keeps its blocks).
class TriangleTarget {
 public:
  TriangleTarget(QVSymMatrix & out, int n, bool isOperand) : fOut(out), fN(n), fIsAside(isOperand) {
    if (fIsAside) {
      fAside.assign(QVSymMatrix::RowStart(n), 0.0);
    } else if (fOut.GetNRows() == n) {
      fOut.Clear();
    } else {
      fIsReady = fOut.SetNRows(n, true);
    }
  }

  /// False when the storage could not be obtained: the target is invalid then.
  bool IsReady() const { return fIsReady; }

  double * Elements() { return fIsAside ? fAside.data() : fOut.AsVector().data(); }

  /// Puts the result into the target; the operation's own result.
  bool Finish() {
    if (fIsAside) {
      if (fOut.GetNRows() != fN && !fOut.SetNRows(fN, false)) return false;
      fOut.AsVector().swap(fAside);
    }
    return true;
  }

 private:
  QVSymMatrix & fOut;
  int fN;
  bool fIsAside;
  bool fIsReady = true;
  std::vector<double> fAside;
};

}  // namespace QVMath_940
