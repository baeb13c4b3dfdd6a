#include "math/kernels/packed_update.h"

#include <algorithm>
#include <vector>

#include "math/kernels/kernel_table.h"

namespace QVMath_940::kernels {

namespace {

/// Below this order the loops of this file are quicker than tiles, which are mostly empty there.
constexpr int kSmallestTiledOrder = 24;

/// Below this order a call for each update costs more than it gains.
constexpr int kSmallestCalledOrder = 18;

/// Up to this order the factors of one case stand on the stack.
constexpr int kOrderOnStack = 512;

const double * Row(CaseRows rows, int r) {
  return rows.start + r * rows.stride;
}

// === Loops for small orders ======================================================================

void AddCase(int n, const double * left, const double * right, double * __restrict a) {
  for (int i = 0; i < n; ++i) {
    const double factor = left[i];
    for (int j = 0; j <= i; ++j) {
      a[j] += factor * right[j];
    }
    a += i + 1;
  }
}

void AddWeightedCase(int n, const double * x, double weight, double * __restrict a) {
  for (int i = 0; i < n; ++i) {
    const double factor = x[i];
    for (int j = 0; j <= i; ++j) {
      a[j] += factor * x[j] * weight;
    }
    a += i + 1;
  }
}

/// Four cases in one walk over the triangle: each element is loaded and stored once for them.
void AddFourCases(int n, CaseRows left, CaseRows right, double * __restrict a) {
  const double * left0 = Row(left, 0);
  const double * left1 = Row(left, 1);
  const double * left2 = Row(left, 2);
  const double * left3 = Row(left, 3);
  const double * right0 = Row(right, 0);
  const double * right1 = Row(right, 1);
  const double * right2 = Row(right, 2);
  const double * right3 = Row(right, 3);
  for (int i = 0; i < n; ++i) {
    const double factor0 = left0[i];
    const double factor1 = left1[i];
    const double factor2 = left2[i];
    const double factor3 = left3[i];
    for (int j = 0; j <= i; ++j) {
      double sum = a[j];
      sum += factor0 * right0[j];
      sum += factor1 * right1[j];
      sum += factor2 * right2[j];
      sum += factor3 * right3[j];
      a[j] = sum;
    }
    a += i + 1;
  }
}

void AddFourWeightedCases(int n, CaseRows x, const double * weights, double * __restrict a) {
  const double * x0 = Row(x, 0);
  const double * x1 = Row(x, 1);
  const double * x2 = Row(x, 2);
  const double * x3 = Row(x, 3);
  const double weight0 = weights[0];
  const double weight1 = weights[1];
  const double weight2 = weights[2];
  const double weight3 = weights[3];
  for (int i = 0; i < n; ++i) {
    const double factor0 = x0[i];
    const double factor1 = x1[i];
    const double factor2 = x2[i];
    const double factor3 = x3[i];
    for (int j = 0; j <= i; ++j) {
      double sum = a[j];
      sum += factor0 * x0[j] * weight0;
      sum += factor1 * x1[j] * weight1;
      sum += factor2 * x2[j] * weight2;
      sum += factor3 * x3[j] * weight3;
      a[j] = sum;
    }
    a += i + 1;
  }
}

// === Tiles =======================================================================================

/// A copy of the first n values of each case, each row filled up with zeros to `stride`.
std::vector<double> Padded(int n, int rows, CaseRows cases, std::ptrdiff_t stride) {
  std::vector<double> copy(static_cast<std::size_t>(rows * stride), 0.0);
  for (int r = 0; r < rows; ++r) {
    std::copy_n(Row(cases, r), n, copy.data() + r * stride);
  }
  return copy;
}

/// The update by tiles of the triangle. `left` and `right` are padded to whole tiles.
void AddByTiles(int n, int rows, CaseRows left, CaseRows right, double * a) {
  const KernelTable & table = Kernels();
  const auto tileKernel = n < kFusedOrder ? table.tilePlain : table.tileFused;
  double tile[kTileRows * kTileCols];
  for (int i = 0; i < n; i += kTileRows) {
    const int tileRows = std::min(kTileRows, n - i);
    for (int j = 0; j < i + tileRows; j += kTileCols) {
      const ConstRows leftHere = {left.start + i, left.stride, 0};
      const ConstRows rightHere = {right.start + j, right.stride, 0};
      double * const corner = a + PackedRow(i) + j;
      if (tileRows == kTileRows && j + kTileCols <= i + 1) {
        tileKernel(rows, leftHere, rightHere, {corner, i + 1, 1});
        continue;
      }
      // A tile that reaches over the diagonal or the last row: its part of the triangle is carried
      // through a tile of its own.
      std::fill_n(tile, kTileRows * kTileCols, 0.0);
      const auto length = [i, j](int r) { return std::clamp(i + r + 1 - j, 0, kTileCols); };
      double * row = corner;
      for (int r = 0; r < tileRows; ++r) {
        std::copy_n(row, length(r), tile + r * kTileCols);
        row += i + r + 1;
      }
      tileKernel(rows, leftHere, rightHere, {tile, kTileCols, 0});
      row = corner;
      for (int r = 0; r < tileRows; ++r) {
        std::copy_n(tile + r * kTileCols, length(r), row);
        row += i + r + 1;
      }
    }
  }
}

/// The row length of padded cases: whole tiles in both directions.
std::ptrdiff_t PaddedStride(int n) {
  static_assert(kTileCols % kTileRows == 0);
  return (n + kTileCols - 1) / kTileCols * kTileCols;
}

}  // namespace

void PackedRank1Update(int n, double w, const double * x, double * a) {
  if (n < kSmallestCalledOrder) {
    double * __restrict row = a;
    for (int i = 0; i < n; ++i) {
      const double factor = x[i] * w;
      for (int j = 0; j <= i; ++j) {
        row[j] += factor * x[j];
      }
      row += i + 1;
    }
    return;
  }
  // An allocation for each case would cost more than the update at the usual orders.
  double onStack[kOrderOnStack];
  std::vector<double> onHeap(static_cast<std::size_t>(n > kOrderOnStack ? n : 0));
  double * const factors = n > kOrderOnStack ? onHeap.data() : onStack;
  for (int i = 0; i < n; ++i) {
    factors[i] = x[i] * w;
  }
  if (n < kFusedOrder) {
    Kernels().rankOnePlain(n, factors, x, a);
  } else {
    Kernels().rankOneFused(n, factors, x, a);
  }
}

void PackedRankKUpdate(int n, int rows, CaseRows left, CaseRows right, double * a) {
  if (rows < 1) return;
  if (n >= kSmallestTiledOrder) {
    const std::ptrdiff_t stride = PaddedStride(n);
    const std::vector<double> paddedRight = Padded(n, rows, right, stride);
    if (left.start == right.start) {
      AddByTiles(n, rows, {paddedRight.data(), stride}, {paddedRight.data(), stride}, a);
    } else {
      const std::vector<double> paddedLeft = Padded(n, rows, left, stride);
      AddByTiles(n, rows, {paddedLeft.data(), stride}, {paddedRight.data(), stride}, a);
    }
    return;
  }
  int r = 0;
  for (; r + 4 <= rows; r += 4) {
    AddFourCases(n, {Row(left, r), left.stride}, {Row(right, r), right.stride}, a);
  }
  for (; r < rows; ++r) {
    AddCase(n, Row(left, r), Row(right, r), a);
  }
}

void PackedWeightedRankKUpdate(int n, int rows, CaseRows x, const double * weights, double * a) {
  if (rows < 1) return;
  if (n >= kFusedOrder) {
    const std::ptrdiff_t stride = PaddedStride(n);
    const std::vector<double> right = Padded(n, rows, x, stride);
    std::vector<double> left = right;
    for (int r = 0; r < rows; ++r) {
      double * row = left.data() + r * stride;
      for (int i = 0; i < n; ++i) {
        row[i] *= weights[r];
      }
    }
    AddByTiles(n, rows, {left.data(), stride}, {right.data(), stride}, a);
    return;
  }
  int r = 0;
  for (; r + 4 <= rows; r += 4) {
    AddFourWeightedCases(n, {Row(x, r), x.stride}, weights + r, a);
  }
  for (; r < rows; ++r) {
    AddWeightedCase(n, Row(x, r), weights[r], a);
  }
}

}  // namespace QVMath_940::kernels
