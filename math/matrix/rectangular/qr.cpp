// Householder QR with explicit reflectors.
//
// A. S. Householder, "Unitary triangularization of a nonsymmetric matrix", Journal of the ACM 5
// (1958), 339-342.
#include <algorithm>
#include <utility>
#include <vector>

#include "QVMathFun.h"
#include "QVRectMatrix.h"
#include "QVSymMatrix.h"
#include "math/matrix/rectangular/dense_product.h"

namespace QVMath_940 {

namespace {

using kernels::kTileCols;
using kernels::kTileRows;

std::size_t At(int i) {
  return static_cast<std::size_t>(i);
}

/// H = I - 2 v v-transpose, which changes the rows and columns from `first` on alone.
class Reflector {
 public:
  /// The reflector that turns column k of A, from the diagonal down, into a multiple of the first
  /// unit vector.
  Reflector(const QVRectMatrix & a, int k) : fFirst(k), fOrder(a.GetNRows() - k) {
    std::vector<double> u;
    a.GetCol(k, u);
    const double norm = QVMathFun::DNrm2(fOrder, u, k, 1);
    u[At(k)] += u[At(k)] > 0.0 ? norm : -norm;
    const double norm2 = QVMathFun::DNrm2(fOrder, u, k, 1);
    fIsNeeded = norm2 != 0.0;
    if (!fIsNeeded) return;
    fV.assign(u.begin() + k, u.end());
    for (double & v : fV)
      v /= norm2;
    fRows.resize(At(kTileRows) * At(fOrder));
  }

  /// False when the column is zero already at and below the diagonal.
  bool IsNeeded() const { return fIsNeeded; }

  /// Rows first .. of H A in the columns from `column` on, row after row.
  void Apply(const QVRectMatrix & a, int column, std::vector<double> & product) {
    const auto rowsOfH = [this](int first, int count, const double ** row) {
      for (int r = 0; r < count; ++r)
        row[r] = MakeRow(first + r, fRows.data() + At(r) * At(fOrder));
    };
    const auto panel = [&](int first, int width, double * to) {
      for (int t = 0; t < fOrder; ++t)
        std::copy_n(a.GetRowPtr(fFirst + t) + column + first, width, to + At(t) * At(kTileCols));
    };
    MultiplyDense(fOrder, fOrder, a.GetNCols() - column, rowsOfH, panel, product.data());
  }

 private:
  const double * MakeRow(int i, double * h) const {
    for (int j = 0; j < fOrder; ++j)
      h[j] = -2.0 * fV[At(i)] * fV[At(j)];
    h[i] += 1.0;
    return h;
  }

  int fFirst;
  int fOrder;
  bool fIsNeeded;
  std::vector<double> fV;     // v from `first` on
  std::vector<double> fRows;  // a tile of rows of H
};

/// Copies the product over the rows from `row` and the columns from `column` on.
void CopyOver(const std::vector<double> & product, int row, int column, QVRectMatrix & a) {
  const double * from = product.data();
  for (int i = row; i < a.GetNRows(); ++i) {
    std::copy_n(from, a.GetNCols() - column, a.GetRowPtr(i) + column);
    from += a.GetNCols() - column;
  }
}

}  // namespace

bool QVRectMatrix::QRDecompositionH(QVSymMatrix & r, QVRectMatrix & q) const {
  if (fNRows < 1 || fNCols < 1) return false;
  QVRectMatrix a(*this);
  if (fNRows < fNCols) a.Transpose();
  const int m = a.fNCols;
  const int order = a.fNRows;
  QVRectMatrix product(order, order, true);  // H_m ... H_1
  if (!a.IsValidMatrix() || !product.IsValidMatrix() || !r.SetNRows(m, true)) return false;
  product.AddToDiagonal(1.0);

  std::vector<double> rows(At(order) * At(order));
  for (int k = 0; k < m; ++k) {
    Reflector h(a, k);
    if (h.IsNeeded()) {
      h.Apply(a, k, rows);
      CopyOver(rows, k, k, a);
      h.Apply(product, 0, rows);
      CopyOver(rows, k, 0, product);
    }
    // Below the diagonal column k is known to be zero, whatever rounding has left there.
    for (int j = k; j < m; ++j)
      r.SetElem(k, j, a.GetElem(k, j));
  }
  if (!product.Transpose()) return false;
  q = std::move(product);
  return true;
}

}  // namespace QVMath_940
