// The dense rectangular matrix on the display stream.
#include <string>

#include "QVDisplay.h"
#include "QVRectMatrix.h"
#include "common/display/display_frame.h"

namespace QVMath_940 {

using QVDisplay_940::DisplayFrame;

namespace {

// The counts and the rows; `numberLead` stands before the number of a row.
void DisplayRows(const QVRectMatrix & matrix, const std::string & numberLead) {
  QVDisplay_940::DisplayI("Number of rows", matrix.GetNRows());
  QVDisplay_940::DisplayI("Number of columns", matrix.GetNCols());
  for (int i = 0; i < matrix.GetNRows(); ++i) {
    const std::string label = "row " + numberLead + std::to_string(i) + ": ";
    QVDisplay_940::DisplayDA(label, matrix.GetRowPtr(i), matrix.GetNCols(), false);
  }
}

}  // namespace

void QVRectMatrix::Display() const {
  const DisplayFrame frame("QVRectMatrix");
  DisplayRows(*this, " ");
}

void QVRectMatrix::DisplayF() const {
  const DisplayFrame frame("QVRectMatrix full matrix display start", "QVRectMatrix display end");
  DisplayRows(*this, "");
}

}  // namespace QVMath_940
