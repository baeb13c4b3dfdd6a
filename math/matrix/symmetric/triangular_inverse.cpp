// From a Cholesky factor to its determinant and inverse, and the two products of a factor with its
// own transpose, all on the packed triangle.
//
// J. J. Dongarra, C. B. Moler, J. R. Bunch, G. W. Stewart, "LINPACK Users' Guide", SIAM 1979:
// DTRDI.
#include <algorithm>
#include <cmath>
#include <vector>

#include "QVSymMatrix.h"
#include "math/kernels/kernel_table.h"
#include "math/matrix/symmetric/determinant.h"

namespace QVMath_940 {

namespace {

using kernels::ConstRows;
using kernels::kFusedOrder;
using kernels::kTileCols;
using kernels::kTileRows;
using kernels::PackedRow;

std::size_t At(int i) {
  return static_cast<std::size_t>(i);
}

// The inverse X of L row by row, from the last row up. Row i of X needs the rows of L up to i:
//     X_ii = 1 / L_ii,   X_ij = -(sum over k = i, i - 1, .., j + 1 of X_ik L_kj) / L_jj,
// the sum running in this order, which is the order in which the columns of DTRDI add to the
// element. Row and column of a zero pivot are 0.0 and add nothing. `sums` has room for n values.
void InvertRow(double * a, int i, bool isFused, double * sums) {
  const auto addRow = isFused ? kernels::Kernels().axpyFused : kernels::Kernels().axpyPlain;
  double * const row = a + PackedRow(i);
  if (row[i] == 0.0) {
    std::fill_n(row, At(i) + 1, 0.0);
    return;
  }
  row[i] = 1.0 / row[i];
  std::fill_n(sums, At(i), 0.0);
  addRow(At(i), row[i], row, sums);
  for (int j = i - 1; j >= 0; --j) {
    const double * const rowJ = a + PackedRow(j);
    if (rowJ[j] == 0.0) {
      row[j] = 0.0;
      continue;
    }
    row[j] = sums[j] * -(1.0 / rowJ[j]);
    addRow(At(j), row[j], rowJ, sums);
  }
}

void InvertRowByRow(double * a, int n) {
  std::vector<double> sums(At(n));
  for (int i = n - 1; i >= 0; --i) {
    InvertRow(a, i, n >= kFusedOrder, sums.data());
  }
}

// Rows that go through a block of columns together, in tiles of kTileRows: they read the block's
// elements of all other rows from the cache after the first of them.
constexpr int kGroupRows = 6 * kTileRows;

// The same for a factor without zero pivots, a tile of kTileRows rows of X at a time: their sums
// over all rows k between come as tiles, and each block of columns follows by substitution.
class BlockedInverse {
 public:
  BlockedInverse(double * a, int n) : fA(a), fN(n), fSums(At(kGroupRows) * At(n)) {
    const int blocks = (n + kTileCols - 1) / kTileCols;
    fOwn.resize(At(blocks) * At(kTileCols) * At(kTileCols));
    fFactor.resize(At(blocks) * At(kTileCols));
    for (int j = 0; j < n; ++j) {
      const int m = j % kTileCols;
      std::copy_n(Row(j) + j - m, m, fOwn.data() + At(j) * At(kTileCols));
      fFactor[At(j)] = -(1.0 / Row(j)[j]);
    }
  }

  void Run() {
    for (int end = fN; end > 0; end -= kGroupRows) {
      InvertGroup(std::max(end - kGroupRows, 0), end);
    }
  }

 private:
  double * Row(int i) const { return fA + PackedRow(i); }

  /// The tile of rows whose last row stands before `end`. Tiles end kTileRows apart.
  struct RowTile {
    int first;
    int rows;
    double * sums;  // kTileRows rows of n
  };
  RowTile TileBefore(int end, int groupEnd) {
    const int first = std::max(end - kTileRows, 0);
    return {first, end - first, fSums.data() + At(groupEnd - end) * At(fN)};
  }

  /// Rows first .. end - 1. Every block of columns is finished from the last tile up, and a tile
  /// starts, overwriting its own columns of L, when the tiles below it are through with them.
  void InvertGroup(int groupFirst, int end) {
    int started = end;  // where the last tile that has started begins
    for (int block = (end - 1) / kTileCols * kTileCols; block >= 0; block -= kTileCols) {
      for (int tileEnd = end; tileEnd > groupFirst; tileEnd -= kTileRows) {
        const RowTile tile = TileBefore(tileEnd, end);
        const bool isLastBlock = block == 0;
        if (tile.first <= block && !isLastBlock) break;
        if (tile.first < started) {
          StartTile(tile);
          started = tile.first;
        }
        if (tile.first > block) FinishBlock(tile, block);
      }
    }
  }

  /// The tile's rows of X from the diagonal down to the tile's first column, and their sums over
  /// these for the columns before.
  void StartTile(const RowTile & tile) {
    for (int i = tile.first + tile.rows - 1; i >= tile.first; --i) {
      double * const row = Row(i);
      double * const sums = tile.sums + At(i - tile.first) * At(fN);
      row[i] = 1.0 / row[i];
      std::fill_n(sums, At(i), 0.0);
      kernels::Kernels().axpyFused(At(i), row[i], row, sums);
      for (int j = i - 1; j >= tile.first; --j) {
        row[j] = sums[j] * fFactor[At(j)];
        kernels::Kernels().axpyFused(At(j), row[j], Row(j), sums);
      }
    }
  }

  /// Columns block .. block + kTileCols - 1 of the tile's rows, as far as they lie before the
  /// tile's first column.
  void FinishBlock(const RowTile & tile, int block) {
    const int first = tile.first;
    const int width = std::min(kTileCols, first - block);
    const int behind = block + width;  // rows k = first - 1 .. behind are still to be added
    double values[kTileRows * kTileCols] = {};
    const double * x[kTileRows];
    double * out[kTileRows];
    for (int r = 0; r < kTileRows; ++r) {
      const int i = std::min(r, tile.rows - 1);
      std::copy_n(tile.sums + At(i) * At(fN) + block, width, values + r * kTileCols);
      x[r] = Row(first + i) + first - 1;
      out[r] = Row(first + i) + block;
    }
    if (first > behind) {
      const ConstRows l{Row(first - 1) + block, -(first - 1), 1};
      kernels::Kernels().tileByRowsFused(first - behind, x, -1, l, {values, kTileCols, 0});
    }
    kernels::Kernels().multiplyBackwardFused(tile.rows, width, out, values,
                                             fOwn.data() + At(block) * At(kTileCols),
                                             fFactor.data() + block);
  }

  double * fA;
  int fN;
  std::vector<double> fSums;    // kGroupRows rows of n
  std::vector<double> fOwn;     // row j: L_jc of the columns c before j in j's block
  std::vector<double> fFactor;  // -1 / L_jj
};

// L-transpose L in place by the plain order: row i of the result needs the rows from i on.
void MultiplyTransposedSmall(double * a, int n) {
  for (int i = 0; i < n; ++i) {
    double * const row = a + PackedRow(i);
    const double own = row[i];
    for (int j = 0; j <= i; ++j) {
      row[j] = own * row[j];
    }
    for (int k = i + 1; k < n; ++k) {
      const double * const rowK = a + PackedRow(k);
      kernels::Kernels().axpyPlain(At(i) + 1, rowK[i], rowK, row);
    }
  }
}

// The same by tiles of rows. The results of a group of them wait in a buffer until all stand.
class BlockedProduct {
 public:
  BlockedProduct(double * a, int n)
      : fA(a), fN(n), fPitch(At(n) + At(kTileCols)), fBuffer(At(kGroupRows) * fPitch) {}

  void Run() {
    for (int first = 0; first < fN; first += kGroupRows) {
      const int end = std::min(first + kGroupRows, fN);
      std::fill(fBuffer.begin(), fBuffer.end(), 0.0);
      for (int tile = first; tile < end; tile += kTileRows) {
        AddOwnRows(first, tile, std::min(tile + kTileRows, end));
      }
      for (int last = end; last > 0; last -= kTileCols) {
        for (int tile = first; tile < end; tile += kTileRows) {
          AddRowsBehind(first, tile, std::min(tile + kTileRows, end), last);
        }
      }
      for (int i = first; i < end; ++i) {
        std::copy_n(Result(first, i), At(i) + 1, fA + PackedRow(i));
      }
    }
  }

 private:
  double * Result(int groupFirst, int i) { return fBuffer.data() + At(i - groupFirst) * fPitch; }

  /// What the rows k of a tile add to the tile's rows i up to k.
  void AddOwnRows(int groupFirst, int tile, int tileEnd) {
    for (int k = tile; k < tileEnd; ++k) {
      const double * const rowK = fA + PackedRow(k);
      for (int i = tile; i <= k; ++i) {
        kernels::Kernels().axpyFused(At(i) + 1, rowK[i], rowK, Result(groupFirst, i));
      }
    }
  }

  /// What all rows behind a tile add to the block of columns that ends before `last`. Columns
  /// behind the tile's own are computed too, from whatever stands there, and never read.
  void AddRowsBehind(int groupFirst, int tile, int tileEnd, int last) {
    const int block = std::max(last - kTileCols, 0);
    if (block >= tileEnd || tileEnd >= fN) return;
    double values[kTileRows * kTileCols];
    for (int r = 0; r < kTileRows; ++r) {
      std::copy_n(Result(groupFirst, tile + r) + block, kTileCols, values + r * kTileCols);
    }
    kernels::Kernels().tileFused(fN - tileEnd, {fA + PackedRow(tileEnd) + tile, tileEnd + 1, 1},
                                 {fA + PackedRow(tileEnd) + block, tileEnd + 1, 1},
                                 {values, kTileCols, 0});
    for (int r = 0; r < kTileRows; ++r) {
      std::copy_n(values + r * kTileCols, last - block, Result(groupFirst, tile + r) + block);
    }
  }

  double * fA;
  int fN;
  std::size_t fPitch;
  std::vector<double> fBuffer;  // kGroupRows rows of the product
};

}  // namespace

int QVSymMatrix::LTDetInverse(double * const det, int job) {
  int zeros = 0;
  for (int i = 0; i < fNRows; ++i) {
    zeros += fElements[PackedPosition(i, i)] == 0.0;
  }
  if (job % 10 != 0) {
    det[0] = zeros > 0 ? 0.0 : 1.0;
    det[1] = 0.0;
    for (int i = 0; i < fNRows && zeros == 0; ++i) {
      det[0] *= fElements[PackedPosition(i, i)];
      NormaliseDeterminant(det);
    }
  }
  if (job / 10 == 0 || fNRows < 1) return zeros;
  if (fNRows < kFusedOrder || zeros > 0) {
    InvertRowByRow(fElements.data(), fNRows);
  } else {
    BlockedInverse(fElements.data(), fNRows).Run();
  }
  return zeros;
}

bool QVSymMatrix::LTInverse() {
  double det[2];
  LTDetInverse(det, 10);
  LTLTransL();
  return true;
}

void QVSymMatrix::LTLLTrans() {
  const bool isFused = fNRows >= kFusedOrder;
  std::vector<double> product(fElements.size());
  std::size_t place = 0;
  for (int i = 0; i < fNRows; ++i) {
    const double * const rowI = fElements.data() + RowStart(i);
    for (int j = 0; j <= i; ++j) {
      const double * const rowJ = fElements.data() + RowStart(j);
      double sum = 0.0;
      for (int k = 0; k <= j; ++k) {
        sum = isFused ? std::fma(rowI[k], rowJ[k], sum) : sum + rowI[k] * rowJ[k];
      }
      product[place++] = sum;
    }
  }
  fElements = std::move(product);
}

void QVSymMatrix::LTLTransL() {
  if (fNRows < 1) return;
  if (fNRows < kFusedOrder) {
    MultiplyTransposedSmall(fElements.data(), fNRows);
  } else {
    BlockedProduct(fElements.data(), fNRows).Run();
  }
}

int QVSymMatrix::CholInverse(const std::vector<double> & ref, double tol,
                             IQVSymMatrix & out) const {
  return InvertByCholesky(ref, tol, out, nullptr, nullptr);
}

int QVSymMatrix::CholInverse(const std::vector<double> & ref, double tol, IQVSymMatrix & out,
                             QVBitSet & accepted) const {
  return InvertByCholesky(ref, tol, out, &accepted, nullptr);
}

int QVSymMatrix::CholInverse(const std::vector<double> & ref, double tol, IQVSymMatrix & out,
                             double & minDiag) const {
  return InvertByCholesky(ref, tol, out, nullptr, &minDiag);
}

int QVSymMatrix::InvertByCholesky(const std::vector<double> & ref, double tol, IQVSymMatrix & out,
                                  QVBitSet * accepted, double * minDiag) const {
  if (out.GetType() != SymMatrixDense) return -1;
  QVSymMatrix & inverse = static_cast<QVSymMatrix &>(out);
  if (&inverse != this) inverse.SetData(*this);
  if (minDiag != nullptr) *minDiag = -1.7976931348623157e308;
  const int deficiency = accepted == nullptr ? inverse.LTChol(ref, tol, false)
                                             : inverse.LTChol(ref, tol, *accepted, false);
  if (deficiency < 0) return deficiency;
  if (minDiag != nullptr) inverse.GetSmallestDiagonal(*minDiag);
  inverse.LTInverse();
  return inverse.GetNRows() - deficiency;
}

}  // namespace QVMath_940
