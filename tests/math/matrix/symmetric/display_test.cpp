// The dense symmetric matrix on the display stream.
#include <gtest/gtest.h>

#include "QVMV.h"
#include "QVSymMatrix.h"
#include "math/matrix/display_capture.h"
#include "math/matrix/reference.h"

namespace {

using QVMath_940::QVSymMatrix;
using reference::Sym;

TEST(SymMatrixDisplay, PackedTriangle) {
  const DisplayCapture capture;
  QVSymMatrix s = Sym({{1}, {2.5, QVCommon_940::QVMV::Missing()}});
  s.SetNBlocks(2);
  s.Display();
  EXPECT_EQ(capture.Text(),
            "\nQVSymMatrix display start"
            "\nThe number of rows = 2"
            "\nThe number of blocks = 2"
            "\nThe block size = 1"
            "\nLower triangular (number of elements = 3, number of rows = 2)"
            "\nrow  0:  1"
            "\nrow  1:  2.5 miss"
            "\nQVSymMatrix display end");
}

TEST(SymMatrixDisplay, FullRows) {
  const DisplayCapture capture;
  Sym({{1}, {2.5, 3}}).DisplayF();
  EXPECT_EQ(capture.Text(),
            "\nQVSymMatrix full matrix display start"
            "\nNumber of rows = 2"
            "\nrow 0:  1 2.5"
            "\nrow 1:  2.5 3"
            "\nQVSymMatrix display end");
}

TEST(SymMatrixDisplay, TriangleAlone) {
  const DisplayCapture capture;
  Sym({{1}, {2, 3}}).DisplayS();
  EXPECT_EQ(capture.Text(),
            "\n (number of elements = 3, number of rows = 2)"
            "\nrow  0:  1"
            "\nrow  1:  2 3");
}

TEST(SymMatrixDisplay, EmptyMatrix) {
  const DisplayCapture capture;
  QVSymMatrix().DisplayF();
  EXPECT_EQ(capture.Text(),
            "\nQVSymMatrix full matrix display start"
            "\nNumber of rows = 0"
            "\nQVSymMatrix display end");
}

}  // namespace
