// Traces of products. Each is the sum of the diagonal elements in row order, every one of them a
// sum in the order of its index.
#include <algorithm>
#include <vector>

#include "IQVRectMatrix.h"
#include "QVMV.h"
#include "QVSymMatrix.h"
#include "math/kernels/kernel_table.h"
#include "math/matrix/symmetric/packed_rows.h"
#include "math/matrix/symmetric/product_target.h"
#include "math/matrix/symmetric/tiled_product.h"

namespace QVMath_940 {

namespace {

std::size_t At(int i) {
  return static_cast<std::size_t>(i);
}

// The trace of S T, read row by row: below the diagonal each element of the product also belongs to
// the row of its column, whose own elements have all been added by then.
double TraceOfTwo(const PackedView & s, const PackedView & t) {
  std::vector<double> diagonal(At(s.n));
  for (int i = 0; i < s.n; ++i) {
    const double * const x = s.Row(i);
    const double * const y = t.Row(i);
    diagonal[At(i)] = DotWalks(s.isFused, i + 1, Along(x), Along(y), 0.0);
    if (s.isFused) {
      kernels::Kernels().multiplyAddFused(At(i), x, y, diagonal.data());
    } else {
      for (int j = 0; j < i; ++j) {
        diagonal[At(j)] += x[j] * y[j];
      }
    }
  }
  double trace = 0.0;
  for (const double element : diagonal) {
    trace += element;
  }
  return trace;
}

// Rows of S A that are made at a time for the trace of S A B. A multiple of the tile's rows.
constexpr int kRowsAtATime = 96;

}  // namespace

double QVSymMatrix::TraceOfProduct(const IQVSymMatrix & t) const {
  if (fNRows < 1 || t.GetNRows() != fNRows) return 0.0;
  const QVSymMatrix * const dense = AsDense(t);
  if (dense == nullptr) return QVCommon_940::QVMV::Missing();
  return TraceOfTwo(ViewOf(*this), ViewOf(*dense));
}

double QVSymMatrix::TraceOfProductSubSym(const IQVSymMatrix & t, int start) const {
  const int order = t.GetNRows();
  if (order < 1 || !IsPart(start, order)) return 0.0;
  const QVSymMatrix * const dense = AsDense(t);
  if (dense == nullptr) return QVCommon_940::QVMV::Missing();
  return TraceOfTwo(ViewOf(*this).Block(start, order), ViewOf(*dense));
}

double QVSymMatrix::TraceOfProductSubMatSym(const IQVRectMatrix & r, int startRow,
                                            int startCol) const {
  if (fNRows < 1 || startRow < 0 || startCol < 0) return 0.0;
  if (r.GetNRows() - startRow < fNRows || r.GetNCols() - startCol < fNRows) return 0.0;
  const PackedView s = ViewOf(*this);
  std::vector<double> row;
  double trace = 0.0;
  for (int i = 0; i < fNRows && r.GetRow(startRow + i, row); ++i) {
    trace += DotRow(s, i, 0, fNRows, Along(row.data() + startCol));
  }
  return trace;
}

double QVSymMatrix::TraceOfProductOfThree(const IQVSymMatrix & a, const IQVSymMatrix & b) const {
  if (fNRows < 1 || a.GetNRows() != fNRows || b.GetNRows() != fNRows) return 0.0;
  const QVSymMatrix * const denseA = AsDense(a);
  const QVSymMatrix * const denseB = AsDense(b);
  if (denseA == nullptr || denseB == nullptr) return QVCommon_940::QVMV::Missing();
  const PackedView s = ViewOf(*this);
  const SymmetricFactor left(s);
  const SymmetricFactor right(ViewOf(*denseA));
  const PackedView last = ViewOf(*denseB);
  const int most = std::min(kRowsAtATime, fNRows);
  std::vector<double> product(At(most) * At(fNRows));  // rows of S A
  std::vector<double> row(At(fNRows));
  double trace = 0.0;
  for (int first = 0; first < fNRows; first += most) {
    const int rows = std::min(most, fNRows - first);
    std::fill(product.begin(), product.end(), 0.0);
    if (s.isFused) {
      AddTilesToRows(left, first, rows, right, 0, fNRows, 0, fNRows, product.data());
    }
    for (int i = first; i < first + rows; ++i) {
      double * const own = product.data() + At(i - first) * At(fNRows);
      if (!s.isFused) {
        left.CopyRow(i, row.data());
        for (int k = 0; k < fNRows; ++k) {
          own[k] = right.Dot(k, 0, fNRows, row.data(), false, 0.0);
        }
      }
      trace += DotRow(last, i, 0, fNRows, Along(own));
    }
  }
  return trace;
}

}  // namespace QVMath_940
