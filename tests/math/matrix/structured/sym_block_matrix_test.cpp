// QVSymBlockMatrix: cells, flattening, display.
#include <vector>

#include <gtest/gtest.h>

#include "QVSymBlockMatrix.h"
#include "math/matrix/allocation_limit.h"
#include "math/matrix/display_capture.h"
#include "math/matrix/reference.h"

namespace {

using QVMath_940::QVSymBlockMatrix;
using QVMath_940::QVSymMatrix;

TEST(SymBlockMatrix, Shape) {
  const QVSymBlockMatrix none;
  EXPECT_TRUE(none.IsValid());
  EXPECT_TRUE(none.AsVectorSS().empty());
  QVSymBlockMatrix m(3, 2);
  EXPECT_EQ(m.AsVectorSS().size(), 6u);
  for (const QVSymMatrix & cell : m.AsVectorSS())
    EXPECT_EQ(cell.AsVector(), std::vector<double>(3, 0.0));
  EXPECT_TRUE(m.SetNRows(-1, 3, true));
  EXPECT_TRUE(m.AsVectorSS().empty());
  EXPECT_TRUE(m.SetNRows(2, -3, true));
  EXPECT_EQ(m.AsVectorSS().size(), 3u);
  EXPECT_EQ(m.GetElemSSRef(1, 1).GetNRows(), 0);
}

TEST(SymBlockMatrix, CellsAreOneObjectForBothOrders) {
  QVSymBlockMatrix m(3, 2);
  EXPECT_EQ(&m.GetElemSSRef(1, 2), &m.GetElemSSRef(2, 1));
  EXPECT_EQ(&m.GetElemSSRef(2, 1), &m.AsVectorSS()[4]);
  const QVSymBlockMatrix & constant = m;
  EXPECT_EQ(&constant.GetElemSSRef(0, 0), &m.AsVectorSS()[0]);
}

// Cell (I, J) holds 100 I + 10 J + its packed position.
QVSymBlockMatrix Example() {
  QVSymBlockMatrix m(2, 2);
  for (int i = 0; i < 2; ++i)
    for (int j = 0; j <= i; ++j)
      for (int p = 0; p < 3; ++p)
        m.GetElemSSRef(i, j).SetElem(p, 100.0 * i + 10.0 * j + p);
  return m;
}

TEST(SymBlockMatrix, FlattensCellsToSquares) {
  QVSymMatrix flat(1, true);
  EXPECT_EQ(Example().CopyToSymMatrix(flat), 4);
  EXPECT_EQ(flat.AsVector(), (std::vector<double>{0, 1, 2, 100, 101, 110, 101, 102, 111, 112}));
  EXPECT_EQ(flat.GetElem(2, 1), 101.0);  // the cell off the diagonal fills its square
  EXPECT_EQ(flat.GetElem(3, 0), 101.0);
}

TEST(SymBlockMatrix, FlattensOneCellAndNone) {
  QVSymBlockMatrix m(1, 3);
  m.GetElemSSRef(0, 0).SetElem(2, 1, 5.0);
  m.GetElemSSRef(0, 0).SetNBlocks(3);
  QVSymMatrix flat;
  EXPECT_EQ(m.CopyToSymMatrix(flat), 3);
  EXPECT_EQ(flat.GetElem(2, 1), 5.0);
  EXPECT_EQ(flat.GetNBlocks(), 3);  // a copy of the one cell
  EXPECT_EQ(m.CopyToSymMatrix(m.GetElemSSRef(0, 0)), 3);
  EXPECT_EQ(QVSymBlockMatrix().CopyToSymMatrix(flat), 0);
  EXPECT_EQ(flat.GetNRows(), 0);
}

TEST(SymBlockMatrix, FlattensIntoACell) {
  QVSymBlockMatrix m = Example();
  QVSymMatrix flat;
  m.CopyToSymMatrix(flat);
  EXPECT_EQ(m.CopyToSymMatrix(m.GetElemSSRef(1, 0)), 4);
  EXPECT_EQ(m.GetElemSSRef(1, 0).AsVector(), flat.AsVector());
}

TEST(SymBlockMatrix, ClearAndSetNRows) {
  QVSymBlockMatrix m = Example();
  EXPECT_TRUE(m.SetNRows(3, 3, false));
  EXPECT_EQ(m.GetElemSSRef(0, 0).AsVector()[2], 2.0);  // leading rows stay
  EXPECT_EQ(m.GetElemSSRef(2, 2).AsVector(), std::vector<double>(6, 0.0));
  m.Clear();
  for (const QVSymMatrix & cell : m.AsVectorSS())
    EXPECT_EQ(cell.AsVector(), std::vector<double>(6, 0.0));
}

TEST(SymBlockMatrix, CopiesAreDeep) {
  QVSymBlockMatrix m = Example();
  const QVSymBlockMatrix copy = m;
  m.Clear();
  EXPECT_EQ(copy.GetElemSSRef(1, 1).GetElem(0, 0), 110.0);
  m = copy;
  EXPECT_EQ(m.GetElemSSRef(1, 1).GetElem(0, 0), 110.0);
}

TEST(SymBlockMatrix, FailedStorage) {
  const QVSymBlockMatrix large(2, 30);
  const AllocationLimit limit(1000);
  QVSymBlockMatrix m(2, 3);
  EXPECT_FALSE(m.SetNRows(2, 30, true));
  EXPECT_FALSE(m.IsValid());
  EXPECT_TRUE(m.AsVectorSS().empty());
  QVSymMatrix flat;
  EXPECT_EQ(m.CopyToSymMatrix(flat), -1);
  EXPECT_EQ(large.CopyToSymMatrix(flat), -1);
  EXPECT_FALSE(QVSymBlockMatrix(large).IsValid());
  std::vector<QVSymMatrix> cells;
  int blockRows = 2;
  int rows = 30;
  EXPECT_FALSE(QVSymBlockMatrix::ResizeNRows(cells, blockRows, rows));
  EXPECT_EQ(blockRows, -1);
  EXPECT_EQ(rows, -1);
  EXPECT_TRUE(m.SetNRows(1, 2, true));
  EXPECT_TRUE(m.IsValid());
}

TEST(SymBlockMatrix, Display) {
  const DisplayCapture capture;
  QVSymBlockMatrix m(2, 1);
  m.GetElemSSRef(1, 0).SetElem(0, 0, 2.5);
  m.Display();
  const auto cell = [](const char * row, const char * column, const char * value) {
    return std::string("\nRow number in the QVSymBlockMatrix = ") + row +
           "\nColumn number in the QVSymBlockMatrix = " + column +
           "\nQVMATH_NAMESPACE::QVSymMatrix matrix:"
           "\nQVSymMatrix display start"
           "\nThe number of rows = 1"
           "\nThe number of blocks = 1"
           "\nThe block size = 1"
           "\nLower triangular (number of elements = 1, number of rows = 1)"
           "\nrow  0:  " +
           value + "\nQVSymMatrix display end";
  };
  EXPECT_EQ(capture.Text(),
            "\nQVSymBlockMatrix display start"
            "\nThe number of rows in the QVSymBlockMatrix = 2" +
                cell("0", "0", "0") + cell("1", "0", "2.5") + cell("1", "1", "0") +
                "\nQVSymBlockMatrix display end");
}

}  // namespace
