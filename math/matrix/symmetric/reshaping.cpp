// A dense symmetric matrix spread over more rows, and parts of it copied to rectangular targets.
#include <algorithm>
#include <vector>

#include "QVBitSet.h"
#include "QVRectMatrix.h"
#include "QVSymMatrix.h"
#include "math/matrix/rectangular/dense_operand.h"
#include "math/matrix/symmetric/product_target.h"

namespace QVMath_940 {

namespace {

std::size_t At(int i) {
  return static_cast<std::size_t>(i);
}

constexpr int kNoSource = -1;

// Which row each row of the result comes from. False unless every row of `index` is 0.0 but for at
// most one 1.0, whose column is the source.
bool FindSources(const IQVRectMatrix & index, std::vector<int> & sources) {
  std::vector<double> row;
  sources.assign(At(std::max(index.GetNRows(), 0)), kNoSource);
  for (int i = 0; i < index.GetNRows(); ++i) {
    if (!index.GetRow(i, row)) return false;
    for (std::size_t j = 0; j < row.size(); ++j) {
      if (row[j] == 0.0) continue;
      if (row[j] != 1.0 || sources[At(i)] != kNoSource) return false;
      sources[At(i)] = static_cast<int>(j);
    }
  }
  return true;
}

// Calls store(i, j, element) for every row i and every column j up to the last one of row i that
// `width` gives.
template <typename Width, typename Store>
void Spread(const QVSymMatrix & s, const std::vector<int> & sources, Width width, Store store) {
  for (int i = 0; i < static_cast<int>(sources.size()); ++i) {
    for (int j = 0; j < width(i); ++j) {
      const int p = sources[At(i)];
      const int q = sources[At(j)];
      store(p == kNoSource || q == kNoSource ? 0.0 : s.GetElem(p, q));
    }
  }
}

// The packed lower triangle of a spread matrix.
bool SpreadInto(const QVSymMatrix & s, const std::vector<int> & sources, QVSymMatrix & out) {
  TriangleTarget target(out, static_cast<int>(sources.size()), &out == &s);
  if (!target.IsReady()) return false;
  double * element = target.Elements();
  Spread(
      s, sources, [](int i) { return i + 1; }, [&element](double x) { *element++ = x; });
  return target.Finish();
}

}  // namespace

// --- Spreading ----------------------------------------------------------------------------------

bool QVSymMatrix::Expand(const QVBitSet & rows, QVSymMatrix & out) const {
  if (fNRows < 0 || rows.InSet() != fNRows) return false;
  std::vector<int> sources(At(rows.Size()), kNoSource);
  int next = 0;
  for (int i = 0; i < rows.Size(); ++i) {
    if (rows.IsIn(i)) sources[At(i)] = next++;
  }
  return SpreadInto(*this, sources, out);
}

bool QVSymMatrix::ExpandSym(const IQVRectMatrix & index, QVSymMatrix & out) const {
  std::vector<int> sources;
  if (fNRows < 0 || index.GetNCols() != fNRows || !FindSources(index, sources)) return false;
  return SpreadInto(*this, sources, out);
}

bool QVSymMatrix::ExpandSymToRect(const IQVRectMatrix & index, QVRectMatrix & out) const {
  std::vector<int> sources;
  if (fNRows < 0 || index.GetNCols() != fNRows || !FindSources(index, sources)) return false;
  const int order = static_cast<int>(sources.size());
  DenseTarget target(out, {});
  if (!target.Shape(order, order)) return false;
  double * element = target.Data();
  Spread(
      *this, sources, [order](int) { return order; }, [&element](double x) { *element++ = x; });
  return target.Deliver();
}

// --- Parts in rectangular targets ---------------------------------------------------------------

bool QVSymMatrix::ExtractBlockInLowTriangular(int startRow, int rows, int startCol, int cols,
                                              QVRectMatrix & out) const {
  if (!IsPart(startRow, rows) || !IsPart(startCol, cols)) return false;
  if (rows > 0 && cols > 0 && startCol + cols - 1 > startRow) return false;
  DenseTarget target(out, {});
  if (!target.Shape(rows, cols)) return false;
  double * to = target.Data();
  for (int i = 0; i < rows; ++i, to += cols) {
    std::copy_n(fElements.data() + RowStart(startRow + i) + startCol, cols, to);
  }
  return target.Deliver();
}

bool QVSymMatrix::ExtractH(const QVBitSet & swept, QVRectMatrix & h) const {
  const int order = swept.Size();
  if (!IsPart(0, order)) return false;
  DenseTarget target(h, {});
  if (!target.Shape(order, order)) return false;
  for (int i = 0; i < order; ++i) {
    if (!swept.IsIn(i)) continue;
    double * const row = target.Data() + At(i) * At(order);
    for (int j = 0; j < order; ++j) {
      row[j] = i == j ? 1.0 : swept.IsIn(j) ? 0.0 : GetElem(i, j);
    }
  }
  return target.Deliver();
}

bool QVSymMatrix::CopyRowToRColumn(int i, int j, QVRectMatrix & r) const {
  if (!IsRow(i) || r.GetNRows() != fNRows || j < 0 || j >= r.GetNCols()) return false;
  for (int k = 0; k < fNRows; ++k) {
    r.SetElem(k, j, GetElem(i, k));
  }
  return true;
}

bool QVSymMatrix::GetPCol(int j, std::vector<double> & column) const {
  if (!IsRow(j)) return false;
  std::vector<double> part(At(fNRows - j));
  for (int i = j; i < fNRows; ++i) {
    part[At(i - j)] = fElements[PackedPosition(i, j)];
  }
  column.swap(part);
  return true;
}

bool QVSymMatrix::GetPCol(int j, QVRectMatrix & column) const {
  std::vector<double> part;
  if (!GetPCol(j, part)) return false;
  if (!column.SetNRowsCols(static_cast<int>(part.size()), 1, false)) return false;
  std::copy(part.begin(), part.end(), column.AsVector().begin());
  return true;
}

}  // namespace QVMath_940
