// Products of the diagonal matrix with vectors and rectangular matrices, and quadratic forms.
#include <algorithm>
#include <vector>

#include "QVDiagMatrix.h"
#include "QVMV.h"
#include "QVRectMatrix.h"
#include "math/matrix/structured/block_rect_products.h"
#include "math/matrix/rectangular/dense_operand.h"
#include "math/matrix/symmetric/sparse_entries.h"

namespace QVMath_940 {

using QVCommon_940::QVMV;

namespace {

std::size_t At(int i) {
  return static_cast<std::size_t>(i);
}

}  // namespace

// --- With vectors -------------------------------------------------------------------------------

bool QVDiagMatrix::ComputeSV(const std::vector<double> & v, std::vector<double> & out) const {
  if (fNRows < 0 || v.size() != Size()) return false;
  out.resize(Size());
  for (std::size_t i = 0; i < Size(); ++i)
    out[i] = fDiagonal[i] * v[i];
  return true;
}

bool QVDiagMatrix::ComputeSV(int k, const std::vector<double> & v,
                             std::vector<double> & out) const {
  if (k < 0 || k > fNRows || v.size() < At(k)) return false;
  if (out.size() < At(k)) out.resize(At(k));
  for (std::size_t i = 0; i < At(k); ++i)
    out[i] = fDiagonal[i] * v[i];
  return true;
}

bool QVDiagMatrix::ComputeLV(const std::vector<double> & v, std::vector<double> & out) const {
  return QVDiagMatrix::ComputeSV(v, out);
}

bool QVDiagMatrix::ComputeLV(const std::vector<int> & rows, const std::vector<double> & v,
                             std::vector<double> & out) const {
  if (!AreEntries(rows, v, fNRows)) return false;
  std::vector<double> product(Size(), 0.0);
  for (std::size_t p = 0; p < v.size(); ++p)
    product[At(rows[p])] += fDiagonal[At(rows[p])] * v[p];
  out.swap(product);
  return true;
}

bool QVDiagMatrix::ComputeLTransV(const std::vector<double> & v, std::vector<double> & out) const {
  return QVDiagMatrix::ComputeSV(v, out);
}

bool QVDiagMatrix::ComputeLTransV(const std::vector<int> & rows, const std::vector<double> & v,
                                  std::vector<double> & out) const {
  return QVDiagMatrix::ComputeLV(rows, v, out);
}

double QVDiagMatrix::ComputeRVD(int i, const double * v, int stride) const {
  if (!IsRow(i) || v == nullptr) return QVMV::Missing();
  return fDiagonal[At(i)] * v[static_cast<std::ptrdiff_t>(i) * stride];
}

double QVDiagMatrix::ComputeRVD(int i, const std::vector<double> & v, int stride) const {
  if (!IsRow(i) || stride < 0 || v.size() <= At(i) * At(stride)) return QVMV::Missing();
  return fDiagonal[At(i)] * v[At(i) * At(stride)];
}

double QVDiagMatrix::ComputeRVD(int i, const IQVRectMatrix & r, int k, int offset) const {
  if (!IsRow(i) || k < 0 || k >= r.GetNRows()) return QVMV::Missing();
  if (offset < 0 || i >= r.GetNCols() - offset) return QVMV::Missing();
  return fDiagonal[At(i)] * r.GetElem(k, offset + i);
}

double QVDiagMatrix::ComputeRTransVD(int i, const IQVRectMatrix & r, int k, int offset) const {
  if (!IsRow(i) || k < 0 || k >= r.GetNCols()) return QVMV::Missing();
  if (offset < 0 || i >= r.GetNRows() - offset) return QVMV::Missing();
  return fDiagonal[At(i)] * r.GetElem(offset + i, k);
}

// --- Quadratic forms ----------------------------------------------------------------------------

double QVDiagMatrix::ComputeVSV(const std::vector<double> & v) const {
  return ComputeVSW(v, v);
}

double QVDiagMatrix::ComputeVSV(const IQVRectMatrix & r, int k) const {
  return RowQuadraticForm(DiagonalBlocks(*this), r, k);
}

double QVDiagMatrix::ComputeVSW(const std::vector<double> & v,
                                const std::vector<double> & w) const {
  if (fNRows < 1 || v.size() != Size() || w.size() != Size()) return 0.0;
  return ComputeVSW(v.data(), 1, w.data(), 1);
}

double QVDiagMatrix::ComputeVSW(const double * v, int strideV, const double * w,
                                int strideW) const {
  if (fNRows < 1 || v == nullptr || w == nullptr) return 0.0;
  double sum = 0.0;
  for (std::ptrdiff_t i = 0; i < fNRows; ++i)
    sum += w[i * strideW] * (fDiagonal[static_cast<std::size_t>(i)] * v[i * strideV]);
  return sum;
}

double QVDiagMatrix::ComputeVSW(const std::vector<double> & v, int m, int r, int c) const {
  if (m < 1 || m > fNRows || r < 0 || r >= m || c < 0 || c >= m) return 0.0;
  if (v.size() < QVSymMatrix::RowStart(m)) return 0.0;
  return fDiagonal[At(c)] * (fDiagonal[At(r)] * v[QVSymMatrix::PackedPosition(c, r)]);
}

double QVDiagMatrix::ComputeVSWParts(const double * v, int nv, const double * w, int nw) const {
  if (nv < 0 || nw < 0 || nv > fNRows || nw > fNRows) return 0.0;
  double sum = 0.0;
  for (int i = 0; i < std::min(nv, nw); ++i)
    sum += w[i] * (fDiagonal[At(i)] * v[i]);
  return sum;
}

double QVDiagMatrix::ComputeVSWParts(const std::vector<double> & v, int nv,
                                     const std::vector<double> & w, int nw) const {
  if (nv < 0 || nw < 0 || v.size() < At(nv) || w.size() < At(nw)) return 0.0;
  return ComputeVSWParts(v.data(), nv, w.data(), nw);
}

// --- With rectangular matrices ------------------------------------------------------------------

bool QVDiagMatrix::ComputeRS(const IQVRectMatrix & r, IQVRectMatrix & out) const {
  return MultiplyRS(DiagonalBlocks(*this), r, out);
}

bool QVDiagMatrix::ComputeRTransS(const IQVRectMatrix & r, IQVRectMatrix & out) const {
  return MultiplyRTransS(DiagonalBlocks(*this), r, out);
}

bool QVDiagMatrix::ComputeRSRTrans(const IQVRectMatrix & r, IQVSymMatrix & out) const {
  return MultiplyRSRTrans(DiagonalBlocks(*this), r, out);
}

bool QVDiagMatrix::ComputeRTransSR(const IQVRectMatrix & r, IQVSymMatrix & out) const {
  return MultiplyRTransSR(DiagonalBlocks(*this), r, out);
}

bool QVDiagMatrix::ComputeRTransSV(const IQVRectMatrix & r, const std::vector<double> & v,
                                   std::vector<double> & out) const {
  return MultiplyRTransSV(DiagonalBlocks(*this), r, v, out);
}

bool QVDiagMatrix::ComputeLTransR(const QVRectMatrix & r, QVRectMatrix & out, int copies) const {
  if (copies < 1 || fNRows < 0 || !r.IsValidMatrix()) return false;
  if (r.GetNRows() != static_cast<long long>(copies) * fNRows) return false;
  const int cols = r.GetNCols();
  DenseTarget target(out, {&r});
  if (!target.Shape(r.GetNRows(), cols)) return false;
  double * to = target.Data();
  for (int i = 0; i < r.GetNRows() && cols > 0; ++i) {
    const double d = fDiagonal[At(i % fNRows)];
    const double * const row = r.GetRowPtr(i);
    for (int j = 0; j < cols; ++j)
      *to++ = d * row[j];
  }
  return target.Deliver();
}

}  // namespace QVMath_940
