// Products of the block-diagonal symmetric matrix with vectors and rectangular matrices, and
// quadratic forms.
#include <algorithm>
#include <vector>

#include "QVSymBlockDiagMatrix.h"
#include "math/matrix/structured/block_rect_products.h"
#include "math/matrix/structured/block_sym_products.h"
#include "math/matrix/symmetric/sparse_entries.h"

namespace QVMath_940 {

namespace {

std::size_t At(int i) {
  return static_cast<std::size_t>(i);
}

// out = the product of each block with its slice of v, where out may be v.
template <class Multiply>
bool MultiplyBlocks(const QVSymBlockDiagMatrix & s, const std::vector<double> & v,
                    std::vector<double> & out, Multiply multiply) {
  if (s.GetNRows() < 0 || v.size() != At(s.GetNRows())) return false;
  const std::vector<double> copy(&v == &out ? v : std::vector<double>());
  const double * const from = &v == &out ? copy.data() : v.data();
  out.resize(v.size());
  const DiagonalBlocks blocks(s);
  for (int b = 0; b < blocks.Count(); ++b)
    multiply(blocks[b], from, out.data());
  return true;
}

}  // namespace

// --- With vectors -------------------------------------------------------------------------------

bool QVSymBlockDiagMatrix::ComputeSV(const std::vector<double> & v,
                                     std::vector<double> & out) const {
  return MultiplyBlocks(
      *this, v, out,
      [](const DiagonalBlock & block, const double * x, double * y) { MultiplySV(block, x, y); });
}

bool QVSymBlockDiagMatrix::ComputeSV(int k, const std::vector<double> & v,
                                     std::vector<double> & out) const {
  if (k < 0 || k > fNRows || v.size() < At(k)) return false;
  std::vector<double> product(At(k));
  for (int i = 0; i < k; ++i)
    product[At(i)] = ComputeRVDParts(i, v.data(), 1, 0, k);
  if (out.size() < At(k)) out.resize(At(k));
  std::copy(product.begin(), product.end(), out.begin());
  return true;
}

bool QVSymBlockDiagMatrix::ComputeLV(const std::vector<double> & v,
                                     std::vector<double> & out) const {
  return MultiplyBlocks(
      *this, v, out,
      [](const DiagonalBlock & block, const double * x, double * y) { MultiplyLV(block, x, y); });
}

bool QVSymBlockDiagMatrix::ComputeLV(const std::vector<int> & rows, const std::vector<double> & v,
                                     std::vector<double> & out) const {
  if (!AreEntries(rows, v, fNRows)) return false;
  std::vector<double> product(Size(), 0.0);
  for (std::size_t p = 0; p < v.size(); ++p)
    UpdateDenseColumnPart(rows[p], v[p], product.data());
  out.swap(product);
  return true;
}

bool QVSymBlockDiagMatrix::ComputeLTransV(const std::vector<double> & v,
                                          std::vector<double> & out) const {
  return MultiplyBlocks(*this, v, out,
                        [](const DiagonalBlock & block, const double * x, double * y) {
                          MultiplyLTransV(block, x, y);
                        });
}

bool QVSymBlockDiagMatrix::ComputeLTransV(const std::vector<int> & rows,
                                          const std::vector<double> & v,
                                          std::vector<double> & out) const {
  if (!AreEntries(rows, v, fNRows)) return false;
  std::vector<double> product(Size(), 0.0);
  for (std::size_t p = 0; p < v.size(); ++p)
    for (int j = GetIndexFirstInRow(rows[p]); j <= rows[p]; ++j)
      product[At(j)] += GetElem(rows[p], j) * v[p];
  out.swap(product);
  return true;
}

/// The sum over the columns j = first .. first + count - 1 of element (i, j) v[j x stride].
double QVSymBlockDiagMatrix::ComputeRVDParts(int i, const double * v, int stride, int first,
                                             int count) const {
  const int from = std::max(first, GetIndexFirstInRow(i));
  const int to = std::min(first + count, GetIndexEndOfRow(i));
  double sum = 0.0;
  for (int j = from; j < to; ++j)
    sum += GetElem(i, j) * v[static_cast<std::ptrdiff_t>(j) * stride];
  return sum;
}

double QVSymBlockDiagMatrix::ComputeRVD(int i, const double * v, int stride) const {
  return IsRow(i) && v != nullptr ? ComputeRVDParts(i, v, stride, 0, fNRows) : 0.0;
}

double QVSymBlockDiagMatrix::ComputeRVD(int i, const std::vector<double> & v, int stride) const {
  if (!IsRow(i) || stride < 0 || v.size() <= At(fNRows - 1) * At(stride)) return 0.0;
  return ComputeRVDParts(i, v.data(), stride, 0, fNRows);
}

// --- Quadratic forms ----------------------------------------------------------------------------

double QVSymBlockDiagMatrix::ComputeVSV(const std::vector<double> & v) const {
  return ComputeVSW(v, v);
}

double QVSymBlockDiagMatrix::ComputeVSV(const IQVRectMatrix & r, int k) const {
  return RowQuadraticForm(DiagonalBlocks(*this), r, k);
}

double QVSymBlockDiagMatrix::ComputeVSW(const std::vector<double> & v,
                                        const std::vector<double> & w) const {
  if (fNRows < 1 || v.size() != Size() || w.size() != Size()) return 0.0;
  return LeadingForm(DiagonalBlocks(*this), v.data(), fNRows, w.data(), fNRows);
}

double QVSymBlockDiagMatrix::ComputeVSW(const double * v, int strideV, const double * w,
                                        int strideW) const {
  if (fNRows < 1 || v == nullptr || w == nullptr) return 0.0;
  return ComputeVSWParts(v, strideV, fNRows, w, strideW, fNRows);
}

/// The sum over i below nw of w[i x strideW] times the sum over j below nv of element (i, j)
/// v[j x strideV].
double QVSymBlockDiagMatrix::ComputeVSWParts(const double * v, int strideV, int nv,
                                             const double * w, int strideW, int nw) const {
  double form = 0.0;
  for (int i = 0; i < nw; ++i)
    form += w[static_cast<std::ptrdiff_t>(i) * strideW] * ComputeRVDParts(i, v, strideV, 0, nv);
  return form;
}

double QVSymBlockDiagMatrix::ComputeVSW(const std::vector<double> & v, int m, int r, int c) const {
  if (m < 1 || m > fNRows || r < 0 || r >= m || c < 0 || c >= m) return 0.0;
  if (v.size() < QVSymMatrix::RowStart(m)) return 0.0;
  return SandwichElement(DiagonalBlocks(*this), {v.data(), m, false}, r, c);
}

double QVSymBlockDiagMatrix::ComputeVSWParts(const double * v, int nv, const double * w,
                                             int nw) const {
  if (nv < 0 || nw < 0 || nv > fNRows || nw > fNRows) return 0.0;
  return LeadingForm(DiagonalBlocks(*this), v, nv, w, nw);
}

double QVSymBlockDiagMatrix::ComputeVSWParts(const std::vector<double> & v, int nv,
                                             const std::vector<double> & w, int nw) const {
  if (nv < 0 || nw < 0 || v.size() < At(nv) || w.size() < At(nw)) return 0.0;
  return ComputeVSWParts(v.data(), nv, w.data(), nw);
}

// --- With rectangular matrices ------------------------------------------------------------------

bool QVSymBlockDiagMatrix::ComputeRS(const IQVRectMatrix & r, IQVRectMatrix & out) const {
  return MultiplyRS(DiagonalBlocks(*this), r, out);
}

bool QVSymBlockDiagMatrix::ComputeRTransS(const IQVRectMatrix & r, IQVRectMatrix & out) const {
  return MultiplyRTransS(DiagonalBlocks(*this), r, out);
}

bool QVSymBlockDiagMatrix::ComputeRSRTrans(const IQVRectMatrix & r, IQVSymMatrix & out) const {
  return MultiplyRSRTrans(DiagonalBlocks(*this), r, out);
}

bool QVSymBlockDiagMatrix::ComputeRTransSR(const IQVRectMatrix & r, IQVSymMatrix & out) const {
  return MultiplyRTransSR(DiagonalBlocks(*this), r, out);
}

bool QVSymBlockDiagMatrix::ComputeRTransSV(const IQVRectMatrix & r, const std::vector<double> & v,
                                           std::vector<double> & out) const {
  return MultiplyRTransSV(DiagonalBlocks(*this), r, v, out);
}

// --- This matrix as L ---------------------------------------------------------------------------

/// column[i] += w L_ij for the rows i of j's block from j down.
void QVSymBlockDiagMatrix::UpdateDenseColumnPart(int j, double w, double * column) const {
  for (int i = j; i < GetIndexEndOfRow(j); ++i)
    column[i] += w * GetElem(i, j);
}

/// out[j] = the sum over k = j .. count - 1 of v[k] L_kj, for every column j.
void QVSymBlockDiagMatrix::ComputeVecPartByL(const double * v, int count, double * out) const {
  for (int j = 0; j < fNRows; ++j)
    out[j] = DotProductLColDenseRowPart(j, v, count);
}

/// The sum over the rows k = j .. count - 1 of L_kj row[k].
double QVSymBlockDiagMatrix::DotProductLColDenseRowPart(int j, const double * row,
                                                        int count) const {
  double sum = 0.0;
  for (int k = j; k < std::min(GetIndexEndOfRow(j), count); ++k)
    sum += GetElem(k, j) * row[k];
  return sum;
}

/// out[j] += the sum over k from the larger of j and `first` on of v_k L_kj, for every column j; v
/// points to v_first, its stride grows.
void QVSymBlockDiagMatrix::ComputeVecIIncrPartByL(const double * v, std::ptrdiff_t stride,
                                                  int first, double * out) const {
  for (int j = 0; j < fNRows; ++j) {
    if (j < first) {
      out[j] += DotProductColVecIIncrPart(j, v, stride, first);
    } else {
      out[j] += DotProductLColVecIIncrPart(j, v, stride);
      v += stride++;
    }
  }
}

/// The sum over the rows k of column j from the diagonal down of L_kj v_k; v points to v_j.
double QVSymBlockDiagMatrix::DotProductLColVecIIncrPart(int j, const double * v,
                                                        std::ptrdiff_t stride) const {
  return DotProductColVecIIncrPart(j, v, stride, j);
}

/// The same from row `first` down; v points to v_first.
double QVSymBlockDiagMatrix::DotProductColVecIIncrPart(int j, const double * v,
                                                       std::ptrdiff_t stride, int first) const {
  double sum = 0.0;
  for (int k = first; k < GetIndexEndOfRow(j); ++k) {
    sum += GetElem(k, j) * *v;
    if (k + 1 < GetIndexEndOfRow(j)) v += stride++;
  }
  return sum;
}

/// out = L-transpose by elements offset .. offset + n - 1 of the symmetric row i of s: a row of S
/// L.
void QVSymBlockDiagMatrix::ComputeSymRowByL(const QVSymMatrix & s, int i, int offset,
                                            double * out) const {
  const PackedView view = ViewOf(s);
  const int inRow = std::min(std::max(i + 1 - offset, 0), fNRows);  // the others stand below
  ComputeVecPartByL(inRow > 0 ? view.Row(i) + offset : nullptr, inRow, out);
  if (inRow == fNRows) return;
  const kernels::ConstRows column = view.Column(offset + inRow, i);
  ComputeVecIIncrPartByL(column.start, column.step, inRow, out);
}

}  // namespace QVMath_940
