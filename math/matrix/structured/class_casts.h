/// The class behind an `IQVSymMatrix`, and copies of operands that are the target too.
#pragma once

#include "QVDiagMatrix.h"
#include "QVSymBlockDiagMatrix.h"
#include "QVSymMatrix.h"

namespace QVMath_940 {

/// Null when another class stands there.
inline const QVDiagMatrix * AsDiagonal(const IQVSymMatrix & s) {
  return s.GetType() == SymMatrixDiagonal ? static_cast<const QVDiagMatrix *>(&s) : nullptr;
}
inline QVDiagMatrix * AsDiagonal(IQVSymMatrix & s) {
  return s.GetType() == SymMatrixDiagonal ? static_cast<QVDiagMatrix *>(&s) : nullptr;
}
inline const QVSymBlockDiagMatrix * AsBlockDiagonal(const IQVSymMatrix & s) {
  return s.GetType() == SymMatrixBlockDiagonal ? static_cast<const QVSymBlockDiagMatrix *>(&s)
                                               : nullptr;
}
inline QVSymBlockDiagMatrix * AsBlockDiagonal(IQVSymMatrix & s) {
  return s.GetType() == SymMatrixBlockDiagonal ? static_cast<QVSymBlockDiagMatrix *>(&s) : nullptr;
}

/// Calls multiply(copy of s) with a copy of the class of s; false when the copy cannot be had. For
/// an operand that is the target too.
template <class Multiply>
bool WithCopyOf(const IQVSymMatrix & s, Multiply multiply) {
  switch (s.GetType()) {
    case SymMatrixDense: {
      const QVSymMatrix copy(static_cast<const QVSymMatrix &>(s));
      return copy.IsValidMatrix() && multiply(copy);
    }
    case SymMatrixDiagonal: {
      const QVDiagMatrix copy(static_cast<const QVDiagMatrix &>(s));
      return copy.IsValidMatrix() && multiply(copy);
    }
    case SymMatrixBlockDiagonal: {
      const QVSymBlockDiagMatrix copy(static_cast<const QVSymBlockDiagMatrix &>(s));
      return copy.IsValidMatrix() && multiply(copy);
    }
  }
  return false;
}

}  // namespace QVMath_940
