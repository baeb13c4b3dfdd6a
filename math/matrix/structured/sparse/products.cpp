// Products of the sparse rectangular matrix, over its cells alone.
#include <algorithm>
#include <vector>

#include "QVSparseRectMatrix.h"
#include "math/kernels/kernel_table.h"
#include "math/matrix/rectangular/dense_operand.h"
#include "math/matrix/structured/sparse/sparse_result.h"

namespace QVMath_940 {

namespace {

std::size_t At(int i) {
  return static_cast<std::size_t>(i);
}

// The sum of the products of the cells that two rows have in the same columns.
double DotCells(const RowCells & x, const RowCells & y) {
  double sum = 0.0;
  for (int p = 0, q = 0; p < x.count && q < y.count;) {
    if (x.columns[p] == y.columns[q]) sum += x.values[p] * y.values[q];
    const bool isXBehind = x.columns[p] <= y.columns[q];
    q += y.columns[q] <= x.columns[p];
    p += isXBehind;
  }
  return sum;
}

// A row of sums, most of which are 0.0: which ones were touched is kept beside it.
class SparseSums {
 public:
  explicit SparseSums(int columns) : fSums(At(columns), 0.0), fIsTouched(At(columns), 0) {}

  void Add(int column, double value) {
    if (fIsTouched[At(column)] == 0) {
      fIsTouched[At(column)] = 1;
      fTouched.push_back(column);
    }
    fSums[At(column)] += value;
  }

  // The next row of `result`; the sums are 0.0 afterwards.
  bool MoveTo(SparseResult & result) {
    std::sort(fTouched.begin(), fTouched.end());
    fValues.clear();
    for (const int column : fTouched) {
      fValues.push_back(fSums[At(column)]);
      fSums[At(column)] = 0.0;
      fIsTouched[At(column)] = 0;
    }
    const bool isStored = result.AddRow(fTouched, fValues);
    fTouched.clear();
    return isStored;
  }

 private:
  std::vector<double> fSums;
  std::vector<char> fIsTouched;
  std::vector<int> fTouched;
  std::vector<double> fValues;
};

// A dense B and a dense target: whole rows of B are added.
bool MultiplyDense(const QVSparseRectMatrix & r, const QVRectMatrix & b, IQVRectMatrix & out) {
  DenseTarget target(out, {&b});
  if (!target.Shape(r.GetNRows(), b.GetNCols())) return false;
  const std::size_t columns = At(b.GetNCols());
  double * row = target.Data();
  for (int i = 0; i < r.GetNRows() && columns > 0; ++i, row += columns) {
    const RowCells cells = CellsOf(r, i);
    for (int p = 0; p < cells.count; ++p)
      kernels::Kernels().axpyPlain(columns, cells.values[p], b.GetRowPtr(cells.columns[p]), row);
  }
  return target.Deliver();
}

}  // namespace

// --- With matrices ------------------------------------------------------------------------------

bool QVSparseRectMatrix::ComputeMatrixProduct(const IQVRectMatrix & b, IQVRectMatrix & out) const {
  if (!IsValidMatrix() || !b.IsValidMatrix() || b.GetNRows() != fNCols) return false;
  const QVSparseRectMatrix * const sparse = AsSparse(b);
  if (sparse == nullptr && AsSparse(out) == nullptr)
    return MultiplyDense(*this, static_cast<const QVRectMatrix &>(b), out);
  SparseResult result(out, fNRows, b.GetNCols());
  if (!result.IsReady()) return false;
  SparseSums sums(b.GetNCols());
  for (int i = 0; i < fNRows; ++i) {
    const RowCells cells = CellsOf(*this, i);
    for (int p = 0; p < cells.count; ++p) {
      if (sparse != nullptr) {
        const RowCells other = CellsOf(*sparse, cells.columns[p]);
        for (int q = 0; q < other.count; ++q)
          sums.Add(other.columns[q], cells.values[p] * other.values[q]);
      } else {
        for (int j = 0; j < b.GetNCols(); ++j)
          sums.Add(j, cells.values[p] * b.GetElem(cells.columns[p], j));
      }
    }
    if (!sums.MoveTo(result)) return false;
  }
  return result.Deliver();
}

bool QVSparseRectMatrix::ComputeProductMatrixTrans(const IQVRectMatrix & b,
                                                   QVRectMatrix & out) const {
  if (!IsValidMatrix() || !b.IsValidMatrix() || b.GetNCols() != fNCols) return false;
  DenseTarget target(out, {&b});
  if (!target.Shape(fNRows, b.GetNRows())) return false;
  const QVSparseRectMatrix * const sparse = AsSparse(b);
  double * element = target.Data();
  for (int i = 0; i < fNRows; ++i) {
    const RowCells cells = CellsOf(*this, i);
    for (int j = 0; j < b.GetNRows(); ++j, ++element) {
      if (sparse != nullptr) {
        *element = DotCells(cells, CellsOf(*sparse, j));
        continue;
      }
      const double * const row = static_cast<const QVRectMatrix &>(b).GetRowPtr(j);
      for (int p = 0; p < cells.count; ++p)
        *element += cells.values[p] * row[cells.columns[p]];
    }
  }
  return target.Deliver();
}

// --- With vectors -------------------------------------------------------------------------------

bool QVSparseRectMatrix::ComputeRV(const std::vector<double> & v, std::vector<double> & out) const {
  if (!IsValidMatrix() || v.size() != At(fNCols)) return false;
  std::vector<double> aside(&v == &out ? At(fNRows) : 0);
  if (&v != &out) out.resize(At(fNRows));
  double * const product = &v == &out ? aside.data() : out.data();
  const int * columns = fColumns.data();
  const double * values = fValues.data();
  for (int i = 0; i < fNRows; ++i, columns += fNNZ, values += fNNZ) {
    double sum = 0.0;
    if (columns[0] >= 0)
      for (int p = 0; p < fNNZ; ++p)
        sum += values[p] * v[At(columns[p])];
    product[i] = sum;
  }
  if (&v == &out) out.swap(aside);
  return true;
}

bool QVSparseRectMatrix::ComputeVR(const std::vector<double> & v, std::vector<double> & out) const {
  if (!IsValidMatrix() || v.size() != At(fNRows)) return false;
  std::vector<double> product(At(fNCols), 0.0);
  const int * columns = fColumns.data();
  const double * values = fValues.data();
  for (int i = 0; i < fNRows; ++i, columns += fNNZ, values += fNNZ) {
    if (columns[0] < 0) continue;
    for (int p = 0; p < fNNZ; ++p)
      product[At(columns[p])] += v[At(i)] * values[p];
  }
  out = std::move(product);
  return true;
}

// --- Dot products -------------------------------------------------------------------------------

double QVSparseRectMatrix::DotProductCol(int j, int k) const {
  if (!IsCol(j) || !IsCol(k)) return 0.0;
  double sum = 0.0;
  for (int i = 0; i < fNRows; ++i)
    sum += GetElem(i, j) * GetElem(i, k);
  return sum;
}

double QVSparseRectMatrix::DotProductRows(int i, int k) const {
  return IsRow(i) && IsRow(k) ? DotCells(CellsOf(*this, i), CellsOf(*this, k)) : 0.0;
}

double QVSparseRectMatrix::DotProductRowCol(int i, const IQVRectMatrix & other, int j) const {
  if (!IsRow(i) || other.GetNRows() != fNCols || j < 0 || j >= other.GetNCols()) return 0.0;
  const RowCells cells = CellsOf(*this, i);
  double sum = 0.0;
  for (int p = 0; p < cells.count; ++p)
    sum += cells.values[p] * other.GetElem(cells.columns[p], j);
  return sum;
}

double QVSparseRectMatrix::DotProductRowRow(int i, const IQVRectMatrix & other, int k) const {
  if (!IsRow(i) || other.GetNCols() != fNCols || k < 0 || k >= other.GetNRows()) return 0.0;
  const RowCells cells = CellsOf(*this, i);
  double sum = 0.0;
  for (int p = 0; p < cells.count; ++p)
    sum += cells.values[p] * other.GetElem(k, cells.columns[p]);
  return sum;
}

}  // namespace QVMath_940
