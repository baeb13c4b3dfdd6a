// The dense symmetric matrix on the display stream.
#include "QVDisplay.h"
#include "QVSymMatrix.h"
#include "common/display/display_frame.h"
#include "common/display/display_line.h"

namespace QVMath_940 {

using QVDisplay_940::DisplayFrame;

void QVSymMatrix::Display() const {
  const DisplayFrame frame("QVSymMatrix");
  QVDisplay_940::DisplayI("The number of rows", fNRows);
  QVDisplay_940::DisplayI("The number of blocks", fNBlocks);
  QVDisplay_940::DisplayI("The block size", fBlockSize);
  QVDisplay_940::DisplayDVTR("Lower triangular", fElements, fNRows);
}

void QVSymMatrix::DisplayF() const {
  const DisplayFrame frame("QVSymMatrix full matrix display start", "QVSymMatrix display end");
  QVDisplay_940::DisplayI("Number of rows", fNRows);
  std::vector<double> row;
  for (int i = 0; i < fNRows; ++i) {
    GetRow(i, row);
    QVDisplay_940::DisplayFullRow(i, row.data(), fNRows);
  }
}

void QVSymMatrix::DisplayS() const {
  QVDisplay_940::DisplayDVTRS(fElements, fNRows);
}

}  // namespace QVMath_940
