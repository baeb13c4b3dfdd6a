// Quadratic and bilinear forms: the sum over i of w_i times the inner sum over j of S_ij v_j.
#include <algorithm>
#include <vector>

#include "IQVRectMatrix.h"
#include "QVSymMatrix.h"
#include "math/matrix/structured/block_rect_products.h"
#include "math/matrix/symmetric/packed_rows.h"
#include "math/matrix/symmetric/sparse_entries.h"

namespace QVMath_940 {

namespace {

using kernels::ConstRows;

std::size_t At(int i) {
  return static_cast<std::size_t>(i);
}

// The whole form, with the inner sums of all rows at once.
double Form(const PackedView & s, const double * v, ConstRows w) {
  std::vector<double> inner(At(s.n));
  MultiplySymmetric(s, v, inner.data());
  return DotWalks(s.isFused, s.n, w, Along(inner.data()), 0.0);
}

// The form over a rectangle of S: rows firstRow + i by w(i), columns firstCol + j by v(j).
struct Part {
  int first;
  int count;
};
double FormOverPart(const PackedView & s, Part cols, ConstRows v, Part rows, ConstRows w) {
  double sum = 0.0;
  for (int i = 0; i < rows.count; ++i) {
    const double inner = DotRow(s, rows.first + i, cols.first, cols.first + cols.count, v);
    sum = AddProduct(s.isFused, *w.start, inner, sum);
    w = Behind(w, 1);
  }
  return sum;
}

// Values that are read by a walk, one behind the other.
std::vector<double> Gather(ConstRows walk, int count) {
  std::vector<double> values(At(count));
  for (double & value : values) {
    value = *walk.start;
    walk = Behind(walk, 1);
  }
  return values;
}

}  // namespace

// --- v-transpose S v ----------------------------------------------------------------------------

double QVSymMatrix::ComputeVSV(const std::vector<double> & v) const {
  return ComputeVSW(v, v);
}

double QVSymMatrix::ComputeVSV(const IQVRectMatrix & r, int k) const {
  if (r.GetMatrixType() == RectMatrixSparse) return RowQuadraticForm(DiagonalBlocks(*this), r, k);
  std::vector<double> row;
  if (fNRows < 1 || r.GetNCols() != fNRows || !r.GetRow(k, row)) return 0.0;
  return ComputeVSV(row);
}

double QVSymMatrix::ComputeVSV(const std::vector<int> & rows, const std::vector<double> & v) const {
  return ComputeSpVSSpW(rows, v, rows, v);
}

// --- v-transpose S w ----------------------------------------------------------------------------

double QVSymMatrix::ComputeVSW(const std::vector<double> & v, const std::vector<double> & w) const {
  if (fNRows < 1 || v.size() != At(fNRows) || w.size() != At(fNRows)) return 0.0;
  return Form(ViewOf(*this), v.data(), Along(w.data()));
}

double QVSymMatrix::ComputeVSW(const double * v, int strideV, const double * w, int strideW) const {
  if (fNRows < 1 || v == nullptr || w == nullptr) return 0.0;
  return Form(ViewOf(*this), Gather({v, strideV, 0}, fNRows).data(), {w, strideW, 0});
}

double QVSymMatrix::ComputeVSW(const std::vector<double> & v, int m, int r, int c) const {
  if (m < 1 || m > fNRows || r < 0 || r >= m || c < 0 || c >= m || v.size() < RowStart(m)) {
    return 0.0;
  }
  const PackedView s = ViewOf(*this);
  const PackedView inner{v.data(), m, s.isFused};
  double sum = 0.0;
  for (int i = 0; i < m; ++i) {
    sum = AddProduct(s.isFused, s.Elem(i, c), DotTwoRows(s, r, inner, i, 0, m), sum);
  }
  return sum;
}

double QVSymMatrix::ComputeSpVSSpW(const std::vector<int> & rowsV, const std::vector<double> & v,
                                   const std::vector<int> & rowsW,
                                   const std::vector<double> & w) const {
  if (!AreEntries(rowsV, v, fNRows) || !AreEntries(rowsW, w, fNRows)) return 0.0;
  const PackedView s = ViewOf(*this);
  double sum = 0.0;
  for (std::size_t p = 0; p < w.size(); ++p) {
    double inner = 0.0;
    for (std::size_t q = 0; q < v.size(); ++q) {
      inner = AddProduct(s.isFused, s.Elem(rowsW[p], rowsV[q]), v[q], inner);
    }
    sum = AddProduct(s.isFused, w[p], inner, sum);
  }
  return sum;
}

double QVSymMatrix::ComputeViiSW(const double * v, int strideV, const double * w,
                                 int strideW) const {
  if (fNRows < 1 || v == nullptr || w == nullptr) return 0.0;
  return Form(ViewOf(*this), Gather({v, strideV, 1}, fNRows).data(), {w, strideW, 0});
}

double QVSymMatrix::ComputeVSWii(const double * v, int strideV, const double * w,
                                 int strideW) const {
  if (fNRows < 1 || v == nullptr || w == nullptr) return 0.0;
  return Form(ViewOf(*this), Gather({v, strideV, 0}, fNRows).data(), {w, strideW, 1});
}

// --- Parts of S ---------------------------------------------------------------------------------

double QVSymMatrix::ComputeVSWParts(const double * v, int nv, const double * w, int nw) const {
  return ComputeVSWParts(v, 0, nv, w, 0, nw);
}

double QVSymMatrix::ComputeVSWParts(const std::vector<double> & v, int nv,
                                    const std::vector<double> & w, int nw) const {
  if (nv < 0 || nw < 0 || v.size() < At(nv) || w.size() < At(nw)) return 0.0;
  return ComputeVSWParts(v.data(), 0, nv, w.data(), 0, nw);
}

double QVSymMatrix::ComputeVSWParts(const double * v, int startV, int nv, const double * w,
                                    int startW, int nw) const {
  if (!IsPart(startV, nv) || !IsPart(startW, nw)) return 0.0;
  if (nv == 0 || nw == 0 || v == nullptr || w == nullptr) return 0.0;
  return FormOverPart(ViewOf(*this), {startV, nv}, Along(v + startV), {startW, nw},
                      Along(w + startW));
}

double QVSymMatrix::ComputeVSSubWParts(const std::vector<double> & v, int startV,
                                       const std::vector<double> & w, int startW) const {
  if (fNRows < 1 || v.size() > At(fNRows) || w.size() > At(fNRows)) return 0.0;
  const Part cols{startV, static_cast<int>(v.size())};
  const Part rows{startW, static_cast<int>(w.size())};
  if (!IsPart(cols.first, cols.count) || !IsPart(rows.first, rows.count)) return 0.0;
  return FormOverPart(ViewOf(*this), cols, Along(v.data()), rows, Along(w.data()));
}

double QVSymMatrix::ComputeVSymSubW(const std::vector<double> & v, const std::vector<double> & w,
                                    int start) const {
  return v.size() == w.size() ? ComputeVSSubWParts(v, start, w, start) : 0.0;
}

double QVSymMatrix::ComputeBlockVSW(int p, int q, const std::vector<double> & v,
                                    const std::vector<double> & w) const {
  const bool areBlocks = p >= 0 && p < fNBlocks && q >= 0 && q < fNBlocks;
  if (!areBlocks || v.size() != At(fBlockSize) || w.size() != At(fBlockSize)) return 0.0;
  // DeleteOneRow and Resize may have left blocks that reach past the rows.
  const std::ptrdiff_t end = (std::ptrdiff_t{std::max(p, q)} + 1) * fBlockSize;
  if (end > fNRows) return 0.0;
  return FormOverPart(ViewOf(*this), {p * fBlockSize, fBlockSize}, Along(v.data()),
                      {q * fBlockSize, fBlockSize}, Along(w.data()));
}

double QVSymMatrix::ComputeBlockVSV(int p, int q, const std::vector<double> & v) const {
  return ComputeBlockVSW(p, q, v, v);
}

}  // namespace QVMath_940
