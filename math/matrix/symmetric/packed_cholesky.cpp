#include "math/matrix/symmetric/packed_cholesky.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <stdexcept>
#include <vector>

#include "math/kernels/kernel_table.h"

namespace QVMath_940 {

namespace {

using kernels::kTileCols;
using kernels::kTileRows;
using kernels::PackedRow;

std::size_t At(int i) {
  return static_cast<std::size_t>(i);
}

double AddProduct(bool isFused, double x, double y, double sum) {
  return isFused ? std::fma(x, y, sum) : sum + x * y;
}

/// Columns that are factored together: the rows below read their own finished elements once for
/// all of them. A multiple of kTileCols.
constexpr int kPanelCols = 4 * kTileCols;

/// Left-looking by panels of columns. For each block of kTileCols columns in a panel the sums over
/// the columns before the block come as tiles; the block's own columns follow by substitution.
class BlockedFactor {
 public:
  BlockedFactor(double * a, int n, const PivotThresholds & thresholds, char * accepted)
      : fA(a), fN(n), fThresholds(thresholds), fAccepted(accepted) {
    for (Block & block : fBlocks) {
      block.columns.resize(At(n) * At(kTileCols));
      block.own.resize(At(kTileCols) * At(kTileCols));
    }
  }

  int Run() {
    for (int panel = 0; panel < fN; panel += kPanelCols) {
      const int panelEnd = std::min(panel + kPanelCols, fN);
      int used = 0;
      for (int j = panel; j < panelEnd; j += kTileCols, ++used) {
        Block & block = fBlocks[At(used)];
        block.first = j;
        block.width = std::min(kTileCols, panelEnd - j);
        PackColumns(block);
        FactorDiagonalBlock(block);
        for (int i = j + block.width; i < panelEnd; i += kTileRows) {
          FinishRows(block, i, std::min(kTileRows, panelEnd - i));
        }
      }
      for (int i = panelEnd; i < fN; i += kTileRows) {
        for (int q = 0; q < used; ++q) {
          FinishRows(fBlocks[At(q)], i, std::min(kTileRows, fN - i));
        }
      }
    }
    return fDeficiency;
  }

 private:
  /// A block of columns j = first .. first + width - 1 with what the rows below need of it.
  struct Block {
    int first = 0;
    int width = 0;
    std::vector<double> columns;  // row k: L_jk of the block's rows j, for each k before the block
    std::vector<double> own;      // row m: L_jm of the rows j behind m, m counted in the block
    double diagonal[kTileCols] = {};
  };

  double * Row(int i) const { return fA + PackedRow(i); }

  void PackColumns(Block & block) const {
    if (block.width < kTileCols) {
      std::fill(block.columns.begin(), block.columns.end(), 0.0);
    }
    for (int k = 0; k < block.first; k += kTileRows) {
      const int kEnd = std::min(k + kTileRows, block.first);
      for (int m = 0; m < block.width; ++m) {
        const double * const row = Row(block.first + m);
        for (int kk = k; kk < kEnd; ++kk) {
          block.columns[At(kk) * At(kTileCols) + At(m)] = row[kk];
        }
      }
    }
  }

  /// The sums over the columns before the block for `rows` rows from i on.
  void SumTile(const Block & block, int i, int rows, double * tile) const {
    const double * row[kTileRows];
    for (int r = 0; r < kTileRows; ++r) {
      row[r] = Row(i + std::min(r, rows - 1));
    }
    std::fill_n(tile, kTileRows * kTileCols, 0.0);
    kernels::Kernels().tileByRowsFused(block.first, row, 1, {block.columns.data(), kTileCols, 0},
                                       {tile, kTileCols, 0});
  }

  void FactorDiagonalBlock(Block & block) {
    double sums[kTileCols * kTileCols];
    double bound[kTileCols];
    double * row[kTileCols];
    for (int m = 0; m < block.width; m += kTileRows) {
      SumTile(block, block.first + m, std::min(kTileRows, block.width - m), sums + m * kTileCols);
    }
    for (int m = 0; m < block.width; ++m) {
      row[m] = Row(block.first + m) + block.first;
      bound[m] = fThresholds.Bound(block.first + m);
    }
    std::fill(block.own.begin(), block.own.end(), 0.0);
    kernels::Kernels().factorBlockFused(block.width, row, sums, bound, block.own.data(),
                                        block.diagonal);
    for (int m = 0; m < block.width; ++m) {
      const bool isAccepted = block.diagonal[m] != 0.0;
      fDeficiency += !isAccepted;
      if (fAccepted != nullptr) {
        fAccepted[block.first + m] = isAccepted;
      }
    }
  }

  void FinishRows(const Block & block, int i, int rows) const {
    double tile[kTileRows * kTileCols];
    SumTile(block, i, rows, tile);
    double * row[kTileRows];
    for (int r = 0; r < rows; ++r) {
      row[r] = Row(i + r) + block.first;
    }
    kernels::Kernels().solveForwardFused(rows, block.width, row, tile, block.own.data(),
                                         block.diagonal);
  }

  double * fA;
  int fN;
  PivotThresholds fThresholds;
  char * fAccepted;
  int fDeficiency = 0;
  Block fBlocks[kPanelCols / kTileCols];
};

int FactorRowByRow(double * a, int n, const PivotThresholds & thresholds, char * accepted) {
  int deficiency = 0;
  for (int i = 0; i < n; ++i) {
    const bool isAccepted = FactorRow(a, i, n >= kernels::kFusedOrder, thresholds);
    deficiency += !isAccepted;
    if (accepted != nullptr) {
      accepted[i] = isAccepted;
    }
  }
  return deficiency;
}

}  // namespace

bool FactorRow(double * a, int i, bool isFused, const PivotThresholds & thresholds) {
  double * const rowI = a + PackedRow(i);
  double squares = 0.0;
  for (int j = 0; j < i; ++j) {
    const double * const rowJ = a + PackedRow(j);
    double s = 0.0;
    for (int k = 0; k < j; ++k) {
      s = AddProduct(isFused, rowI[k], rowJ[k], s);
    }
    rowI[j] = rowJ[j] != 0.0 ? (rowI[j] - s) / rowJ[j] : 0.0;
    squares = AddProduct(isFused, rowI[j], rowI[j], squares);
  }
  const double pivotSquare = rowI[i] - squares;
  const bool isAccepted = pivotSquare > thresholds.Bound(i);
  rowI[i] = isAccepted ? std::sqrt(pivotSquare) : 0.0;
  return isAccepted;
}

int FactorPacked(double * a, int n, const PivotThresholds & thresholds, char * accepted) {
  if (n >= kernels::kFusedOrder) {
    try {
      return BlockedFactor(a, n, thresholds, accepted).Run();
    } catch (const std::bad_alloc &) {  // no scratch: row by row, with the same result
    } catch (const std::length_error &) {
    }
  }
  return FactorRowByRow(a, n, thresholds, accepted);
}

}  // namespace QVMath_940
