/// Matrices that say they are of another class than the dense one, so that an operation has to read
/// them through the interface, or to refuse them.
#pragma once

#include <vector>

#include "QVRectMatrix.h"
#include "QVSymMatrix.h"

namespace other_classes {

class DiagonalMatrix : public QVMath_940::QVSymMatrix {
 public:
  explicit DiagonalMatrix(const std::vector<double> & diagonal)
      : QVSymMatrix(static_cast<int>(diagonal.size()), true) {
    for (int i = 0; i < QVSymMatrix::GetNRows(); ++i)
      QVSymMatrix::SetElem(i, i, diagonal[static_cast<std::size_t>(i)]);
  }
  QVMath_940::SymMatrixType GetType() const override { return QVMath_940::SymMatrixDiagonal; }
};

class SymmetricByInterface : public QVMath_940::QVSymMatrix {
 public:
  explicit SymmetricByInterface(const QVSymMatrix & s) : QVSymMatrix(s) {}
  QVMath_940::SymMatrixType GetType() const override { return QVMath_940::SymMatrixBlockDiagonal; }
};

class RowsByInterface : public QVMath_940::QVRectMatrix {
 public:
  explicit RowsByInterface(const QVRectMatrix & r) : QVRectMatrix(r) {}
  QVMath_940::RectMatrixType GetMatrixType() const override { return QVMath_940::RectMatrixSparse; }
};

}  // namespace other_classes
