// Products of the rectangular matrix with vectors, and dot products of its rows and columns.
#include <algorithm>
#include <vector>

#include "QVMV.h"
#include "QVMathFun.h"
#include "QVRectMatrix.h"
#include "QVSparseVector.h"
#include "math/matrix/sums.h"

namespace QVMath_940 {

namespace {

std::size_t At(int i) {
  return static_cast<std::size_t>(i);
}

bool HasSize(const std::vector<double> & v, int n) {
  return n >= 0 && v.size() == At(n);
}

bool AreCells(const std::vector<int> & places, const std::vector<double> & v, int size) {
  return places.size() == v.size() && std::all_of(places.begin(), places.end(), [size](int place) {
           return place >= 0 && place < size;
         });
}

// y += w x by the rounding of a sum of `length` terms.
void AddRowTo(int length, std::size_t n, double w, const double * x, double * y) {
  const kernels::KernelTable & table = kernels::Kernels();
  (IsFusedSum(length) ? table.axpyFused : table.axpyPlain)(n, w, x, y);
}

}  // namespace

// --- R v and v R --------------------------------------------------------------------------------

bool QVRectMatrix::ComputeRV(const std::vector<double> & v, std::vector<double> & out) const {
  if (!IsValidMatrix() || !HasSize(v, fNCols)) return false;
  std::vector<double> product(At(fNRows), 0.0);
  if (IsFusedSum(fNCols)) {
    kernels::Kernels().dotRowsFused(fNRows, {fElements.data(), fNCols, 0}, v.data(), At(fNCols),
                                    product.data());
  } else if (fNCols > 0) {
    for (int i = 0; i < fNRows; ++i)
      product[At(i)] = SumOfProducts(fNCols, GetRowPtr(i), v.data());
  }
  out = std::move(product);
  return true;
}

bool QVRectMatrix::ComputeRV(const std::vector<int> & columns, const std::vector<double> & v,
                             std::vector<double> & out) const {
  if (!IsValidMatrix() || !AreCells(columns, v, fNCols)) return false;
  std::vector<double> product(At(fNRows), 0.0);
  for (int i = 0; i < fNRows; ++i)
    for (std::size_t p = 0; p < columns.size(); ++p)
      product[At(i)] =
          AddProduct(IsFusedSum(fNCols), fElements[Position(i, columns[p])], v[p], product[At(i)]);
  out = std::move(product);
  return true;
}

bool QVRectMatrix::ComputeVR(const std::vector<double> & v, std::vector<double> & out) const {
  if (!IsValidMatrix() || !HasSize(v, fNRows)) return false;
  std::vector<double> product(At(fNCols), 0.0);
  if (IsFusedSum(fNRows)) {
    kernels::Kernels().combineFused(fNRows, v.data(), {fElements.data(), fNCols, 0}, At(fNCols),
                                    product.data());
  } else {
    for (int i = 0; i < fNRows; ++i)
      kernels::Kernels().axpyPlain(At(fNCols), v[At(i)], GetRowPtr(i), product.data());
  }
  out = std::move(product);
  return true;
}

bool QVRectMatrix::ComputeVR(const std::vector<int> & rows, const std::vector<double> & v,
                             std::vector<double> & out) const {
  if (!IsValidMatrix() || !AreCells(rows, v, fNRows)) return false;
  std::vector<double> product(At(fNCols), 0.0);
  for (std::size_t p = 0; p < rows.size(); ++p)
    AddRowTo(fNRows, At(fNCols), v[p], GetRowPtr(rows[p]), product.data());
  out = std::move(product);
  return true;
}

bool QVRectMatrix::ComputeRDiagV(const std::vector<double> & diagonal,
                                 const std::vector<double> & v, std::vector<double> & out) const {
  if (!HasSize(diagonal, fNCols) || !HasSize(v, fNCols)) return false;
  std::vector<double> scaled(v.size());
  for (std::size_t j = 0; j < v.size(); ++j)
    scaled[j] = diagonal[j] * v[j];
  return QVRectMatrix::ComputeRV(scaled, out);
}

double QVRectMatrix::ComputeVRW(const std::vector<double> & v,
                                const std::vector<double> & w) const {
  std::vector<double> rw;
  if (!HasSize(v, fNRows) || !QVRectMatrix::ComputeRV(w, rw)) return 0.0;
  return SumOfProducts(fNRows, v.data(), rw.data());
}

double QVRectMatrix::ComputeSpVRSpW(const QVSparseVector & v, const QVSparseVector & w) const {
  if (!v.IsValid() || !w.IsValid() || v.GetMinVecSize() > fNRows || w.GetMinVecSize() > fNCols)
    return 0.0;
  double total = 0.0;
  for (int p = 0; p < v.GetSize(); ++p) {
    const double * const row = GetRowPtr(v.GetIndex(p));
    double sum = 0.0;
    for (int q = 0; q < w.GetSize(); ++q)
      sum = AddProduct(IsFusedSum(fNCols), row[w.GetIndex(q)], w.GetValue(q), sum);
    total = AddProduct(IsFusedSum(fNRows), v.GetValue(p), sum, total);
  }
  return total;
}

bool QVRectMatrix::ComputeVecProduct(const std::vector<double> & v, const std::vector<double> & w) {
  if (!SetNRowsCols(static_cast<int>(v.size()), static_cast<int>(w.size()), false)) return false;
  std::size_t place = 0;
  for (const double a : v)
    for (const double b : w)
      fElements[place++] = a * b;
  return true;
}

// --- Dot products and norms ---------------------------------------------------------------------

double QVRectMatrix::DotProductCol(int j, int k) const {
  if (!IsCol(j) || !IsCol(k)) return 0.0;
  return SumOfProducts(fNRows, GetColPtr(j), fNCols, GetColPtr(k), fNCols);
}

double QVRectMatrix::DotProductRows(int i, int k) const {
  if (!IsRow(i) || !IsRow(k)) return 0.0;
  return SumOfProducts(fNCols, GetRowPtr(i), GetRowPtr(k));
}

double QVRectMatrix::DotProductRowCol(int i, const IQVRectMatrix & other, int j) const {
  std::vector<double> column;
  if (!IsRow(i) || other.GetNRows() != fNCols || !other.GetCol(j, column)) return 0.0;
  return SumOfProducts(fNCols, GetRowPtr(i), column.data());
}

double QVRectMatrix::DotProductRowRow(int i, const IQVRectMatrix & other, int k) const {
  if (other.GetMatrixType() == RectMatrixSparse && IsRow(i))
    return other.DotProductRowRow(k, *this, i);  // over the cells
  std::vector<double> row;
  if (!IsRow(i) || other.GetNCols() != fNCols || !other.GetRow(k, row)) return 0.0;
  return SumOfProducts(fNCols, GetRowPtr(i), row.data());
}

double QVRectMatrix::ColNorm(int j) const {
  if (!IsCol(j)) return QVCommon_940::QVMV::Missing();
  return QVMathFun::DNrm2(fNRows, fElements, j, fNCols);
}

double QVRectMatrix::RowNorm(int i) const {
  std::vector<double> row;  // its own offset may be beyond an int
  if (!QVRectMatrix::GetRow(i, row)) return QVCommon_940::QVMV::Missing();
  return QVMathFun::DNrm2(fNCols, row, 0, 1);
}

}  // namespace QVMath_940
