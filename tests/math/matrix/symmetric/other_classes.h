/// Matrices of the other classes with given elements, so that an operation has to take them in a
/// path of its own, or to refuse them.
#pragma once

#include <vector>

#include "QVDiagMatrix.h"
#include "QVRectMatrix.h"
#include "QVSparseRectMatrix.h"
#include "QVSparseVector.h"
#include "QVSymBlockDiagMatrix.h"
#include "QVSymMatrix.h"

namespace other_classes {

using DiagonalMatrix = QVMath_940::QVDiagMatrix;

/// One dense block.
class OneBlock : public QVMath_940::QVSymBlockDiagMatrix {
 public:
  explicit OneBlock(const QVMath_940::QVSymMatrix & s) { AddBlock(s); }
};

/// Every element is a cell.
class FullCells : public QVMath_940::QVSparseRectMatrix {
 public:
  explicit FullCells(const QVMath_940::QVRectMatrix & r)
      : QVSparseRectMatrix(r.GetNRows(), r.GetNCols(), r.GetNCols()) {
    std::vector<int> columns;
    for (int j = 0; j < r.GetNCols(); ++j)
      columns.push_back(j);
    std::vector<double> row;
    for (int i = 0; i < r.GetNRows() && r.GetRow(i, row); ++i)
      AddRow(QVMath_940::QVSparseVector(columns, row));
  }
};

}  // namespace other_classes
