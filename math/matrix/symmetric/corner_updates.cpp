// Updates of a corner or a diagonal block of the dense symmetric matrix by cases that are shorter
// than it: the pattern of UpdateXX.
#include <algorithm>
#include <vector>

#include "QVRectMatrix.h"
#include "QVSymMatrix.h"
#include "math/matrix/symmetric/sparse_entries.h"

namespace QVMath_940 {

namespace {

std::size_t At(int i) {
  return static_cast<std::size_t>(i);
}

// a(first + i, first + j) += (left_i w) right_j for j at or below i; rows with left_i = 0.0 are
// skipped.
void AddCase(std::vector<double> & a, int first, int count, const double * left,
             const double * right, double w) {
  for (int i = 0; i < count; ++i) {
    if (left[i] == 0.0) continue;
    const double factor = left[i] * w;
    double * const row = a.data() + QVSymMatrix::RowStart(first + i) + first;
    for (int j = 0; j <= i; ++j) {
      row[j] += factor * right[j];
    }
  }
}

}  // namespace

bool QVSymMatrix::UpdateXXCornerBlock(const std::vector<double> & x, double w) {
  return UpdateXXCornerBlock(0, x, w);
}

bool QVSymMatrix::UpdateXXCornerBlock(int start, const std::vector<double> & x, double w) {
  if (fNRows < 0 || x.size() > At(fNRows) || !(w > 0.0)) return false;
  const int count = static_cast<int>(x.size());
  if (!IsPart(start, count)) return false;
  AddCase(fElements, start, count, x.data(), x.data(), w);
  return true;
}

bool QVSymMatrix::UpdateXXCornerSparse(int corner, const std::vector<int> & rows,
                                       const std::vector<double> & x, double w) {
  if (!IsPart(0, corner) || !AreEntries(rows, x, corner) || !(w > 0.0)) return false;
  for (std::size_t p = 0; p < x.size(); ++p) {
    if (x[p] == 0.0) continue;
    const double factor = x[p] * w;
    double * const row = fElements.data() + RowStart(rows[p]);
    for (std::size_t q = 0; q < x.size(); ++q) {
      if (rows[q] <= rows[p]) row[rows[q]] += factor * x[q];
    }
  }
  return true;
}

bool QVSymMatrix::UpdateXXMat2(const QVRectMatrix & a, const QVRectMatrix & b, double w) {
  if (!a.IsValidMatrix() || a.GetNRows() != b.GetNRows() || a.GetNCols() != b.GetNCols()) {
    return false;
  }
  const int cols = a.GetNCols();
  if (!IsPart(0, cols) || !(w > 0.0)) return false;
  for (int r = 0; r < a.GetNRows(); ++r) {
    AddCase(fElements, 0, cols, a.GetRowPtr(r), b.GetRowPtr(r), w);
  }
  return true;
}

}  // namespace QVMath_940
