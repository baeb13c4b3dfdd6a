// The dense rectangular matrix on the display stream.
#include <gtest/gtest.h>

#include "QVRectMatrix.h"
#include "math/matrix/display_capture.h"
#include "math/matrix/reference.h"

namespace {

TEST(RectMatrixDisplay, Rows) {
  const DisplayCapture capture;
  reference::Rect({{1, 2.5}, {-3, 4}}).Display();
  EXPECT_EQ(capture.Text(),
            "\nQVRectMatrix display start"
            "\nNumber of rows = 2"
            "\nNumber of columns = 2"
            "\nrow  0:  1 2.5"
            "\nrow  1:  -3 4"
            "\nQVRectMatrix display end");
}

TEST(RectMatrixDisplay, FullForm) {
  const DisplayCapture capture;
  reference::Rect({{1, 2.5}}).DisplayF();
  EXPECT_EQ(capture.Text(),
            "\nQVRectMatrix full matrix display start"
            "\nNumber of rows = 1"
            "\nNumber of columns = 2"
            "\nrow 0:  1 2.5"
            "\nQVRectMatrix display end");
}

TEST(RectMatrixDisplay, EmptyMatrix) {
  const DisplayCapture capture;
  QVMath_940::QVRectMatrix().Display();
  EXPECT_EQ(capture.Text(),
            "\nQVRectMatrix display start"
            "\nNumber of rows = 0"
            "\nNumber of columns = 0"
            "\nQVRectMatrix display end");
}

}  // namespace
