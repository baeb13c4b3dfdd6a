// The dense rectangular matrix on the display stream.
#include "QVDisplay.h"
#include "QVRectMatrix.h"
#include "common/display/display_frame.h"
#include "common/display/display_line.h"

namespace QVMath_940 {

using QVDisplay_940::DisplayFrame;

void QVRectMatrix::Display() const {
  const DisplayFrame frame("QVRectMatrix");
  QVDisplay_940::DisplayI("Number of rows", fNRows);
  QVDisplay_940::DisplayI("Number of columns", fNCols);
  for (int i = 0; i < fNRows; ++i)
    QVDisplay_940::DisplayRow(i, GetRowPtr(i), fNCols);
}

void QVRectMatrix::DisplayF() const {
  const DisplayFrame frame("QVRectMatrix full matrix display start", "QVRectMatrix display end");
  QVDisplay_940::DisplayI("Number of rows", fNRows);
  QVDisplay_940::DisplayI("Number of columns", fNCols);
  for (int i = 0; i < fNRows; ++i)
    QVDisplay_940::DisplayFullRow(i, GetRowPtr(i), fNCols);
}

}  // namespace QVMath_940
