/// The product of two dense factors on the register tiles of the kernels.
#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

#include "math/kernels/kernel_table.h"
#include "math/matrix/sums.h"

namespace QVMath_940 {

/// out(i, j) = sum over k = 0 .. inner - 1, in this order from 0.0, of left(i, k) right(k, j); i
/// below `rows`, j below `cols`; `out` is stored row after row and overwritten.
///
/// `leftRows(first, count, row)` sets row[0 .. count - 1] to pointers to the elements of the rows
/// from `first` on; they must stay good until the next call. `rightPanel(first, width, panel)`
/// writes columns first .. first + width - 1 of the right factor to `panel`, whose row k has
/// kTileCols places; the places behind `width` are not to be touched.
template <class LeftRows, class RightPanel>
void MultiplyDense(int rows, int inner, int cols, LeftRows leftRows, RightPanel rightPanel,
                   double * out) {
  using kernels::kTileCols;
  using kernels::kTileRows;
  const bool isFused = IsFusedSum(inner);
  std::vector<double> panel(static_cast<std::size_t>(inner) * kTileCols);
  double left[kTileRows * kernels::kFusedOrder];  // a tile of rows as columns, for short sums
  for (int j = 0; j < cols; j += kTileCols) {
    const int width = std::min(kTileCols, cols - j);
    if (width < kTileCols) std::fill(panel.begin(), panel.end(), 0.0);
    rightPanel(j, width, panel.data());
    for (int i = 0; i < rows; i += kTileRows) {
      const int count = std::min(kTileRows, rows - i);
      const double * row[kTileRows];
      leftRows(i, count, row);
      std::fill(row + count, row + kTileRows, row[0]);
      double tile[kTileRows * kTileCols] = {};
      if (isFused) {
        kernels::Kernels().tileByRowsFused(inner, row, 1, {panel.data(), kTileCols, 0},
                                           {tile, kTileCols, 0});
      } else {
        for (int r = 0; r < kTileRows; ++r)
          for (int k = 0; k < inner; ++k)
            left[k * kTileRows + r] = row[r][k];
        kernels::Kernels().tilePlain(inner, {left, kTileRows, 0}, {panel.data(), kTileCols, 0},
                                     {tile, kTileCols, 0});
      }
      for (int r = 0; r < count; ++r)
        std::copy_n(tile + r * kTileCols, width,
                    out + static_cast<std::size_t>(i + r) * static_cast<std::size_t>(cols) + j);
    }
  }
}

}  // namespace QVMath_940
