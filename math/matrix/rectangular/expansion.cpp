// A reduced rectangular matrix spread back to the places that a bit set marks.
#include <vector>

#include "QVBitSet.h"
#include "QVRectMatrix.h"
#include "math/matrix/rectangular/dense_operand.h"

namespace QVMath_940 {

namespace {

std::vector<int> MarkedPlaces(const QVBitSet & places) {
  std::vector<int> marked;
  for (int place = 0; place < places.Size(); ++place)
    if (places.IsIn(place)) marked.push_back(place);
  return marked;
}

std::vector<int> AllPlaces(int count) {
  std::vector<int> all;
  for (int place = 0; place < count; ++place)
    all.push_back(place);
  return all;
}

/// Where the rows and columns of a matrix go in one of the shape rows x columns.
struct Spread {
  std::vector<int> rowPlaces;
  std::vector<int> columnPlaces;
  int rows;
  int columns;
};

bool SpreadMatrix(const QVRectMatrix & from, const Spread & spread, QVRectMatrix & to) {
  if (!from.IsValidMatrix() || static_cast<int>(spread.rowPlaces.size()) != from.GetNRows() ||
      static_cast<int>(spread.columnPlaces.size()) != from.GetNCols())
    return false;
  DenseTarget target(to, {&from});
  if (!target.Shape(spread.rows, spread.columns)) return false;
  int i = 0;
  for (const int row : spread.rowPlaces) {
    const double * element = from.GetRowPtr(i++);
    for (const int column : spread.columnPlaces)
      target.Row(row)[column] = *element++;
  }
  return target.Deliver();
}

}  // namespace

bool QVRectMatrix::Expand(const QVBitSet & places, bool rows, QVRectMatrix & out) const {
  const std::vector<int> marked = MarkedPlaces(places);
  return rows ? SpreadMatrix(*this, {marked, AllPlaces(fNCols), places.Size(), fNCols}, out)
              : SpreadMatrix(*this, {AllPlaces(fNRows), marked, fNRows, places.Size()}, out);
}

bool QVRectMatrix::ExpandRectangular(const QVBitSet & rows, const QVBitSet & columns,
                                     QVRectMatrix & out) const {
  return SpreadMatrix(
      *this, {MarkedPlaces(rows), MarkedPlaces(columns), rows.Size(), columns.Size()}, out);
}

bool QVRectMatrix::ExpandSquare(const QVBitSet & places, QVRectMatrix & out) const {
  return ExpandRectangular(places, places, out);
}

}  // namespace QVMath_940
