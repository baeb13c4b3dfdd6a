// The view of a sparse vector: cells, products with dense vectors and matrices, display.
#include <algorithm>

#include "QVDisplay.h"
#include "QVRectMatrix.h"
#include "QVSparseVector.h"
#include "QVSymMatrix.h"
#include "common/display/display_frame.h"

namespace QVMath_940 {

namespace {

std::size_t At(int i) {
  return static_cast<std::size_t>(i);
}

bool RisesStrictly(const std::vector<int> & indices) {
  return std::adjacent_find(indices.begin(), indices.end(), [](int a, int b) { return a >= b; }) ==
         indices.end();
}

}  // namespace

QVSparseVector::QVSparseVector(const std::vector<int> & indices, const std::vector<double> & values)
    : fSize(static_cast<int>(indices.size())),
      fIndices(&indices),
      fValues(&values),
      fIsValid(!indices.empty() && indices.size() == values.size() && indices.front() >= 0 &&
               RisesStrictly(indices)) {
}

// --- Cells --------------------------------------------------------------------------------------

int QVSparseVector::GetMinVecSize() const {
  return fSize < 1 ? 0 : fIndices->back() + 1;
}

int QVSparseVector::GetIndex(int i) const {
  return i >= 0 && i < fSize ? (*fIndices)[At(i)] : -1;
}

double QVSparseVector::GetValue(int i) const {
  return i >= 0 && At(i) < fValues->size() ? (*fValues)[At(i)] : 0.0;
}

/// True when a valid vector, moved up by `start`, ends inside `size` elements.
bool QVSparseVector::Fits(int start, long long size) const {
  return fIsValid && start >= 0 && fIndices->back() < size - start;
}

// --- Dense vectors ------------------------------------------------------------------------------

bool QVSparseVector::ConvertToRegularVector(std::vector<double> & v) const {
  if (!fIsValid) return false;
  v.assign(std::max(v.size(), At(fIndices->back()) + 1), 0.0);
  for (int i = 0; i < fSize; ++i)
    v[At((*fIndices)[At(i)])] = (*fValues)[At(i)];
  return true;
}

bool QVSparseVector::IncrementPart(std::vector<double> & v, int start, double w) const {
  if (!Fits(start, static_cast<long long>(v.size()))) return false;
  for (int i = 0; i < fSize; ++i)
    v[At(start + (*fIndices)[At(i)])] += w * (*fValues)[At(i)];
  return true;
}

double QVSparseVector::InnerProductWithPart(const std::vector<double> & v, int start) const {
  if (!Fits(start, static_cast<long long>(v.size()))) return 0.0;
  double sum = 0.0;
  for (int i = 0; i < fSize; ++i)
    sum += (*fValues)[At(i)] * v[At(start + (*fIndices)[At(i)])];
  return sum;
}

double QVSparseVector::InnerProduct(const QVSparseVector & a, const QVSparseVector & b) {
  if (!a.fIsValid || !b.fIsValid) return 0.0;
  double sum = 0.0;
  for (int i = 0, j = 0; i < a.fSize && j < b.fSize;) {
    const int p = (*a.fIndices)[At(i)];
    const int q = (*b.fIndices)[At(j)];
    if (p == q) sum += (*a.fValues)[At(i)] * (*b.fValues)[At(j)];
    i += p <= q;
    j += q <= p;
  }
  return sum;
}

// --- Matrices -----------------------------------------------------------------------------------

bool QVSparseVector::QuadraticOuterProduct(double w, QVSymMatrix & out) const {
  if (!fIsValid) return false;
  if (!out.SetNRows(std::max(out.GetNRows(), GetMinVecSize()), true)) return false;
  return QuadraticOuterProductIncr(w, out);
}

bool QVSparseVector::QuadraticOuterProductIncr(double w, QVSymMatrix & out) const {
  return QuadraticOuterProductPartIncr(w, 0, 0, out);
}

bool QVSparseVector::QuadraticOuterProductPartIncr(double w, int row, int col,
                                                   QVSymMatrix & out) const {
  if (!Fits(row, out.GetNRows()) || !Fits(col, out.GetNRows())) return false;
  std::vector<double> & elements = out.AsVector();
  for (int p = 0; p < fSize; ++p) {
    const double weighted = w * (*fValues)[At(p)];
    const int last = row == col ? p : fSize - 1;
    for (int q = 0; q <= last; ++q)
      elements[QVSymMatrix::PackedPosition(row + (*fIndices)[At(p)], col + (*fIndices)[At(q)])] +=
          weighted * (*fValues)[At(q)];
  }
  return true;
}

bool QVSparseVector::IncrementRowPart(QVRectMatrix & out, int row, int start, double w) const {
  double * const to = out.GetRowPtr(row);
  if (to == nullptr || !Fits(start, out.GetNCols())) return false;
  for (int i = 0; i < fSize; ++i)
    to[start + (*fIndices)[At(i)]] += w * (*fValues)[At(i)];
  return true;
}

// --- Display ------------------------------------------------------------------------------------

void QVSparseVector::Display() const {
  const QVDisplay_940::DisplayFrame frame("QVSparseVector");
  QVDisplay_940::DisplayI("Size", fSize);
  QVDisplay_940::DisplayIV("Indices", *fIndices);
  QVDisplay_940::DisplayDV("Values", *fValues, false);
  QVDisplay_940::DisplayB("Valid", fIsValid);
}

}  // namespace QVMath_940
