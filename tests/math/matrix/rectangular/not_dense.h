/// A dense matrix that says it is sparse: an operand or a target of another class.
#pragma once

#include "QVRectMatrix.h"

namespace reference {

class SaysSparse : public QVMath_940::QVRectMatrix {
 public:
  using QVMath_940::QVRectMatrix::QVRectMatrix;
  explicit SaysSparse(const QVMath_940::QVRectMatrix & r) : QVRectMatrix(r) {}
  QVMath_940::RectMatrixType GetMatrixType() const override { return QVMath_940::RectMatrixSparse; }
};

}  // namespace reference
