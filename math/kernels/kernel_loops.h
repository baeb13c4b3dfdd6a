/// The loops of a `KernelTable`, written once over a type of lanes.
///
/// Only the sources that fill a table include this file, each with its own lanes, compiled for its
/// own instruction set. Everything stands in an unnamed namespace and calls no inline function of
/// another header, so that no code for one instruction set can be shared with a source for another.
///
/// `Lanes` gives: `Vector`, `kWidth`, `Load`, `LoadPart(p, n)`, `Store`, `StorePart(p, n, v)`,
/// `Spread(double)`, `Fma(a, b, c)`, `MulAdd(a, b, c)` (two roundings), `Mul(a, b)`,
/// `MulSub(a, b, c)` (a b - c, one rounding), `Sub`, `Div`, `Root(double)`, `AllAbove(v, bound, n)`
/// for the first n lanes, `ScalarFma(a, b, c)`, `LoadColumns(rows, j, n, columns)`, which gives
/// column j + c of kWidth rows in columns[c] for c below n (the others hold zeros),
/// `StoreColumns(rows, j, columns)`, which takes kWidth of them back, `FmaFirst(n, a,
/// b, c)` and `FmaBehind(n, a, b, c)`, which leave c in the lanes behind the first n, or in these,
/// and the register block `kBlockRows` x `kBlockVectors` of a tile.
#pragma once

#include "math/kernels/kernel_table.h"

namespace QVMath_940::kernels {
namespace {

/// How an update rounds: once (fused), or the product and the sum each by itself.
enum class Rounding { Fused, Plain };

template <typename Lanes, Rounding kRounding>
inline typename Lanes::Vector Accumulate(typename Lanes::Vector a, typename Lanes::Vector b,
                                         typename Lanes::Vector c) {
  if constexpr (kRounding == Rounding::Fused) {
    return Lanes::Fma(a, b, c);
  } else {
    return Lanes::MulAdd(a, b, c);
  }
}

/// Doubles in a cache line.
inline constexpr int kDoublesInLine = 8;

/// One register block of a tile: kBlockRows rows by kBlockVectors vectors stay in registers over
/// the whole walk along k.
template <typename Lanes, Rounding kRounding>
inline void TileBlock(int count, ConstRows a, ConstRows b, Rows c) {
  constexpr int kRows = Lanes::kBlockRows;
  constexpr int kVectors = Lanes::kBlockVectors;
  typename Lanes::Vector sum[kRows][kVectors];
  double * cRow = c.start;
  std::ptrdiff_t cStep = c.step;
#pragma GCC unroll 8
  for (int r = 0; r < kRows; ++r) {
#pragma GCC unroll 4
    for (int v = 0; v < kVectors; ++v) {
      sum[r][v] = Lanes::Load(cRow + v * Lanes::kWidth);
    }
    cRow += cStep;
    cStep += c.grow;
  }
  // The tile that usually follows stands in the next rows: have it ready.
#pragma GCC unroll 8
  for (int r = 0; r < kRows; ++r) {
    for (int v = 0; v <= kVectors * Lanes::kWidth; v += kDoublesInLine) {
      __builtin_prefetch(cRow + v, 1);
    }
    cRow += cStep;
    cStep += c.grow;
  }
  const double * aRow = a.start;
  const double * bRow = b.start;
  std::ptrdiff_t aStep = a.step;
  std::ptrdiff_t bStep = b.step;
  for (int k = 0; k < count; ++k) {
    typename Lanes::Vector bValues[kVectors];
#pragma GCC unroll 4
    for (int v = 0; v < kVectors; ++v) {
      bValues[v] = Lanes::Load(bRow + v * Lanes::kWidth);
    }
#pragma GCC unroll 8
    for (int r = 0; r < kRows; ++r) {
      const typename Lanes::Vector aValue = Lanes::Spread(aRow[r]);
#pragma GCC unroll 4
      for (int v = 0; v < kVectors; ++v) {
        sum[r][v] = Accumulate<Lanes, kRounding>(aValue, bValues[v], sum[r][v]);
      }
    }
    aRow += aStep;
    aStep += a.grow;
    bRow += bStep;
    bStep += b.grow;
  }
  cRow = c.start;
  cStep = c.step;
#pragma GCC unroll 8
  for (int r = 0; r < kRows; ++r) {
#pragma GCC unroll 4
    for (int v = 0; v < kVectors; ++v) {
      Lanes::Store(cRow + v * Lanes::kWidth, sum[r][v]);
    }
    cRow += cStep;
    cStep += c.grow;
  }
}

template <typename Lanes, Rounding kRounding>
void Tile(int count, ConstRows a, ConstRows b, Rows c) {
  constexpr int kCols = Lanes::kBlockVectors * Lanes::kWidth;
  static_assert(kTileRows % Lanes::kBlockRows == 0 && kTileCols % kCols == 0);
  for (int r = 0; r < kTileRows; r += Lanes::kBlockRows) {
    for (int j = 0; j < kTileCols; j += kCols) {
      TileBlock<Lanes, kRounding>(count, {a.start + r, a.step, a.grow},
                                  {b.start + j, b.step, b.grow}, {c.start + j, c.step, c.grow});
    }
    for (int skipped = 0; skipped < Lanes::kBlockRows; ++skipped) {
      c.start += c.step;
      c.step += c.grow;
    }
  }
}

/// As TileBlock, fused, with the left factor along rows.
template <typename Lanes>
inline void TileByRowsBlock(int count, const double * const * a, std::ptrdiff_t aStep, ConstRows b,
                            Rows c) {
  constexpr int kRows = Lanes::kBlockRows;
  constexpr int kVectors = Lanes::kBlockVectors;
  typename Lanes::Vector sum[kRows][kVectors];
  const double * aRow[kRows];
  double * cRow = c.start;
  std::ptrdiff_t cStep = c.step;
#pragma GCC unroll 8
  for (int r = 0; r < kRows; ++r) {
    aRow[r] = a[r];
#pragma GCC unroll 4
    for (int v = 0; v < kVectors; ++v) {
      sum[r][v] = Lanes::Load(cRow + v * Lanes::kWidth);
    }
    cRow += cStep;
    cStep += c.grow;
  }
  const double * bRow = b.start;
  std::ptrdiff_t bStep = b.step;
  std::ptrdiff_t place = 0;
  for (int k = 0; k < count; ++k) {
    typename Lanes::Vector bValues[kVectors];
#pragma GCC unroll 4
    for (int v = 0; v < kVectors; ++v) {
      bValues[v] = Lanes::Load(bRow + v * Lanes::kWidth);
    }
#pragma GCC unroll 8
    for (int r = 0; r < kRows; ++r) {
      const typename Lanes::Vector aValue = Lanes::Spread(aRow[r][place]);
#pragma GCC unroll 4
      for (int v = 0; v < kVectors; ++v) {
        sum[r][v] = Lanes::Fma(aValue, bValues[v], sum[r][v]);
      }
    }
    place += aStep;
    bRow += bStep;
    bStep += b.grow;
  }
  cRow = c.start;
  cStep = c.step;
#pragma GCC unroll 8
  for (int r = 0; r < kRows; ++r) {
#pragma GCC unroll 4
    for (int v = 0; v < kVectors; ++v) {
      Lanes::Store(cRow + v * Lanes::kWidth, sum[r][v]);
    }
    cRow += cStep;
    cStep += c.grow;
  }
}

template <typename Lanes>
void TileByRows(int count, const double * const * a, std::ptrdiff_t aStep, ConstRows b, Rows c) {
  constexpr int kCols = Lanes::kBlockVectors * Lanes::kWidth;
  for (int r = 0; r < kTileRows; r += Lanes::kBlockRows) {
    for (int j = 0; j < kTileCols; j += kCols) {
      TileByRowsBlock<Lanes>(count, a + r, aStep, {b.start + j, b.step, b.grow},
                             {c.start + j, c.step, c.grow});
    }
    for (int skipped = 0; skipped < Lanes::kBlockRows; ++skipped) {
      c.start += c.step;
      c.step += c.grow;
    }
  }
}

template <typename Lanes>
void SolveForward(int rows, int width, double * const * row, double * tile, const double * d,
                  const double * diagonal) {
  for (int m = 0; m < width; ++m) {
    const double * const dRow = d + m * kTileCols;
    const double pivot = diagonal[m];
    for (int r = 0; r < rows; ++r) {
      double * const s = tile + r * kTileCols;
      const double x = pivot != 0.0 ? (row[r][m] - s[m]) / pivot : 0.0;
      row[r][m] = x;
      const typename Lanes::Vector factor = Lanes::Spread(x);
      for (int j = m / Lanes::kWidth * Lanes::kWidth; j < width; j += Lanes::kWidth) {
        Lanes::Store(s + j, Lanes::Fma(factor, Lanes::Load(dRow + j), Lanes::Load(s + j)));
      }
    }
  }
}

template <typename Lanes>
void FactorBlock(int width, double * const * row, double * sums, const double * bound, double * d,
                 double * diagonal) {
  constexpr int kWidth = Lanes::kWidth;
  for (int m = 0; m < width; ++m) {
    double * const dRow = d + m * kTileCols;
    const double pivotSquare = row[m][m] - sums[m * kTileCols + m];
    const double pivot = pivotSquare > bound[m] ? Lanes::Root(pivotSquare) : 0.0;
    row[m][m] = pivot;
    diagonal[m] = pivot;
    for (int i = m + 1; i < width; ++i) {
      const double x = pivot != 0.0 ? (row[i][m] - sums[i * kTileCols + m]) / pivot : 0.0;
      row[i][m] = x;
      dRow[i] = x;
    }
    for (int i = m + 1; i < width; ++i) {
      double * const s = sums + i * kTileCols;
      const typename Lanes::Vector factor = Lanes::Spread(dRow[i]);
      for (int j = (m + 1) / kWidth * kWidth; j <= i; j += kWidth) {
        Lanes::Store(s + j, Lanes::Fma(factor, Lanes::Load(dRow + j), Lanes::Load(s + j)));
      }
    }
  }
}

template <typename Lanes>
void MultiplyBackward(int rows, int width, double * const * row, double * tile, const double * d,
                      const double * factor) {
  for (int m = width - 1; m >= 0; --m) {
    const double * const dRow = d + m * kTileCols;
    for (int r = 0; r < rows; ++r) {
      double * const s = tile + r * kTileCols;
      const double x = s[m] * factor[m];
      row[r][m] = x;
      const typename Lanes::Vector spread = Lanes::Spread(x);
      for (int j = 0; j < m; j += Lanes::kWidth) {
        Lanes::Store(s + j, Lanes::Fma(spread, Lanes::Load(dRow + j), Lanes::Load(s + j)));
      }
    }
  }
}

/// The last full vector overlaps the one before it where n is no multiple of the width; it is made
/// from the old values, so that no element is changed twice. A masked store instead would hold up
/// the loads of the next row of a packed triangle, which begins where this one ends.
/// One rotation of l and x; `kBack` takes its inverse.
template <bool kBack>
struct Rotation {
  template <typename Lanes>
  static void Turn(typename Lanes::Vector c, typename Lanes::Vector s, typename Lanes::Vector & l,
                   typename Lanes::Vector & x) {
    const typename Lanes::Vector sx = Lanes::Mul(s, x);
    const typename Lanes::Vector sl = Lanes::Mul(s, l);
    l = kBack ? Lanes::MulSub(c, l, sx) : Lanes::Fma(c, l, sx);
    x = kBack ? Lanes::Fma(c, x, sl) : Lanes::MulSub(c, x, sl);
  }
};

/// The rotations of columns `from` .. `to` - 1, row by row: what is left of the full blocks.
template <typename Lanes, bool kBack>
inline void RotateEachRow(int rows, int from, int to, const double * c, const double * s,
                          double * const * row, double * x) {
  for (int r = 0; r < rows; ++r) {
    double xr = x[r];
    for (int k = from; k < to; ++k) {
      const int j = kBack ? from + to - 1 - k : k;
      const double l = row[r][j];
      const double sx = s[j] * xr;
      const double sl = s[j] * l;
      row[r][j] = Lanes::ScalarFma(c[j], l, kBack ? -sx : sx);
      xr = Lanes::ScalarFma(c[j], xr, kBack ? sl : -sl);
    }
    x[r] = xr;
  }
}

/// The first `count` columns of kWidth rows, count being a multiple of kWidth. A block of kWidth
/// columns lies in registers as its columns, a lane for each row, so that the chains of the rows
/// run side by side.
template <typename Lanes, bool kBack>
inline void RotateGroup(int count, const double * c, const double * s, double * const * row,
                        double * x) {
  constexpr int kWidth = Lanes::kWidth;
  typename Lanes::Vector xs = Lanes::Load(x);
  for (int k = 0; k < count; k += kWidth) {
    const int j = kBack ? count - kWidth - k : k;
    typename Lanes::Vector columns[kWidth];
    Lanes::LoadColumns(row, static_cast<std::size_t>(j), Lanes::kWidth, columns);
#pragma GCC unroll 8
    for (int q = 0; q < kWidth; ++q) {
      const int m = kBack ? kWidth - 1 - q : q;
      Rotation<kBack>::template Turn<Lanes>(Lanes::Spread(c[j + m]), Lanes::Spread(s[j + m]),
                                            columns[m], xs);
    }
    Lanes::StoreColumns(row, static_cast<std::size_t>(j), columns);
  }
  Lanes::Store(x, xs);
}

template <typename Lanes, bool kBack>
void RotateRows(int rows, int count, const double * c, const double * s, double * const * row,
                double * x) {
  constexpr int kWidth = Lanes::kWidth;
  const int blocksEnd = count / kWidth * kWidth;
  if (kBack) {
    RotateEachRow<Lanes, kBack>(rows, blocksEnd, count, c, s, row, x);
  }
  int r = 0;
  for (; r + kWidth <= rows && blocksEnd > 0; r += kWidth) {
    RotateGroup<Lanes, kBack>(blocksEnd, c, s, row + r, x + r);
  }
  if (r < rows && blocksEnd > 0) {
    // Lanes without a row of their own repeat the last one, with the same result.
    double * group[kWidth];
    double xGroup[kWidth];
    for (int lane = 0; lane < kWidth; ++lane) {
      const int own = r + lane < rows ? r + lane : rows - 1;
      group[lane] = row[own];
      xGroup[lane] = x[own];
    }
    RotateGroup<Lanes, kBack>(blocksEnd, c, s, group, xGroup);
    for (int lane = 0; r + lane < rows; ++lane) {
      x[r + lane] = xGroup[lane];
    }
  }
  if (!kBack) {
    RotateEachRow<Lanes, kBack>(rows, blocksEnd, count, c, s, row, x);
  }
}

template <typename Lanes, Rounding kRounding>
inline void Axpy(std::size_t n, double a, const double * x, double * y) {
  const typename Lanes::Vector factor = Lanes::Spread(a);
  if (n < Lanes::kWidth) {
    if (n > 0) {
      Lanes::StorePart(
          y, n, Accumulate<Lanes, kRounding>(factor, Lanes::LoadPart(x, n), Lanes::LoadPart(y, n)));
    }
    return;
  }
  const std::size_t lastStart = n - Lanes::kWidth;
  const typename Lanes::Vector last =
      Accumulate<Lanes, kRounding>(factor, Lanes::Load(x + lastStart), Lanes::Load(y + lastStart));
  for (std::size_t j = 0; j < lastStart; j += Lanes::kWidth) {
    Lanes::Store(y + j,
                 Accumulate<Lanes, kRounding>(factor, Lanes::Load(x + j), Lanes::Load(y + j)));
  }
  Lanes::Store(y + lastStart, last);
}

/// Four vectors of y stay in registers while all the rows of x pass over them.
template <typename Lanes>
void Combine(int count, const double * w, ConstRows x, std::size_t n, double * y) {
  constexpr std::size_t kStride = 4 * Lanes::kWidth;
  std::size_t j = 0;
  for (; j + kStride <= n; j += kStride) {
    typename Lanes::Vector y0 = Lanes::Load(y + j);
    typename Lanes::Vector y1 = Lanes::Load(y + j + Lanes::kWidth);
    typename Lanes::Vector y2 = Lanes::Load(y + j + 2 * Lanes::kWidth);
    typename Lanes::Vector y3 = Lanes::Load(y + j + 3 * Lanes::kWidth);
    const double * row = x.start + j;
    std::ptrdiff_t step = x.step;
    for (int k = 0; k < count; ++k) {
      const typename Lanes::Vector factor = Lanes::Spread(w[k]);
      y0 = Lanes::Fma(factor, Lanes::Load(row), y0);
      y1 = Lanes::Fma(factor, Lanes::Load(row + Lanes::kWidth), y1);
      y2 = Lanes::Fma(factor, Lanes::Load(row + 2 * Lanes::kWidth), y2);
      y3 = Lanes::Fma(factor, Lanes::Load(row + 3 * Lanes::kWidth), y3);
      row += step;
      step += x.grow;
    }
    Lanes::Store(y + j, y0);
    Lanes::Store(y + j + Lanes::kWidth, y1);
    Lanes::Store(y + j + 2 * Lanes::kWidth, y2);
    Lanes::Store(y + j + 3 * Lanes::kWidth, y3);
  }
  for (; j < n; j += Lanes::kWidth) {
    const std::size_t rest = n - j < Lanes::kWidth ? n - j : Lanes::kWidth;
    typename Lanes::Vector y0 = Lanes::LoadPart(y + j, rest);
    const double * row = x.start + j;
    std::ptrdiff_t step = x.step;
    for (int k = 0; k < count; ++k) {
      y0 = Lanes::Fma(Lanes::Spread(w[k]), Lanes::LoadPart(row, rest), y0);
      row += step;
      step += x.grow;
    }
    Lanes::StorePart(y + j, rest, y0);
  }
}

template <typename Lanes>
inline void DotOneRow(const double * row, const double * v, std::size_t n, double * sum) {
  double s = *sum;
  for (std::size_t j = 0; j < n; ++j) {
    s = Lanes::ScalarFma(row[j], v[j], s);
  }
  *sum = s;
}

/// Rows whose sums run side by side, since each of them must wait for its own last addition.
inline constexpr int kDotRows = 16;

/// kVectors vectors of sums, one row a lane: the rows' elements are turned into columns on the way.
/// Reads `ahead`, as much as the rows hold, into the cache.
template <typename Lanes, int kVectors>
inline void DotVectors(const double * const * row, const double * v, std::size_t n,
                       const double * ahead, typename Lanes::Vector * sum) {
  using Vector = typename Lanes::Vector;
  constexpr std::size_t kWidth = Lanes::kWidth;
  Vector s[kVectors];
#pragma GCC unroll 16
  for (int q = 0; q < kVectors; ++q) {
    s[q] = sum[q];
  }
  std::size_t j = 0;
  for (; j + kWidth <= n; j += kWidth) {
    Vector column[kVectors][kWidth];
#pragma GCC unroll 16
    for (int q = 0; q < kVectors; ++q) {
      Lanes::LoadColumns(row + q * static_cast<int>(kWidth), j, kWidth, column[q]);
    }
#pragma GCC unroll 16
    for (std::size_t line = 0; line < kVectors * kWidth * kWidth; line += kDoublesInLine) {
      __builtin_prefetch(ahead + line);
    }
    ahead += kVectors * kWidth * kWidth;
#pragma GCC unroll 8
    for (std::size_t c = 0; c < kWidth; ++c) {
      const Vector x = Lanes::Spread(v[j + c]);
#pragma GCC unroll 16
      for (int q = 0; q < kVectors; ++q) {
        s[q] = Lanes::Fma(column[q][c], x, s[q]);
      }
    }
  }
  if (j < n) {
    Vector column[kVectors][kWidth];
#pragma GCC unroll 16
    for (int q = 0; q < kVectors; ++q) {
      Lanes::LoadColumns(row + q * static_cast<int>(kWidth), j, n - j, column[q]);
    }
#pragma GCC unroll 8
    for (std::size_t c = 0; c < kWidth; ++c) {
      if (j + c < n) {
        const Vector x = Lanes::Spread(v[j + c]);
#pragma GCC unroll 16
        for (int q = 0; q < kVectors; ++q) {
          s[q] = Lanes::Fma(column[q][c], x, s[q]);
        }
      }
    }
  }
#pragma GCC unroll 16
  for (int q = 0; q < kVectors; ++q) {
    sum[q] = s[q];
  }
}

/// The rows of a group that is not full stand in for the missing ones.
template <typename Lanes, int kCount>
inline void DotSomeRows(int rows, const double ** row, const double * v, std::size_t n,
                        double * sum) {
  constexpr int kWidth = static_cast<int>(Lanes::kWidth);
  double padded[kCount] = {};
  for (int q = 0; q < rows; ++q) {
    padded[q] = sum[q];
  }
  for (int q = rows; q < kCount; ++q) {
    row[q] = row[0];
  }
  typename Lanes::Vector sums[kCount / kWidth];
  for (int q = 0; q < kCount / kWidth; ++q) {
    sums[q] = Lanes::Load(padded + q * kWidth);
  }
  DotVectors<Lanes, kCount / kWidth>(row, v, n, row[0] + n, sums);
  for (int q = 0; q < kCount / kWidth; ++q) {
    Lanes::Store(padded + q * kWidth, sums[q]);
  }
  for (int q = 0; q < rows; ++q) {
    sum[q] = padded[q];
  }
}

template <typename Lanes>
void DotRows(int rows, ConstRows x, const double * v, std::size_t n, double * sum) {
  constexpr int kHalf = kDotRows / 2;
  const double * row[kDotRows];
  const double * next = x.start;
  std::ptrdiff_t step = x.step;
  for (int taken = 0; rows > 0; rows -= taken, sum += taken) {
    taken = rows < kDotRows ? rows : kDotRows;
    for (int q = 0; q < taken; ++q) {
      row[q] = next;
      next += step;
      step += x.grow;
    }
    if (taken > kHalf) {
      DotSomeRows<Lanes, kDotRows>(taken, row, v, n, sum);
    } else if (taken > 1) {
      DotSomeRows<Lanes, kHalf>(taken, row, v, n, sum);
    } else {
      DotOneRow<Lanes>(row[0], v, n, sum);
    }
  }
}

template <typename Lanes>
double DotWalk(std::size_t n, ConstRows x, ConstRows y, double sum) {
  for (std::size_t j = 0; j < n; ++j) {
    sum = Lanes::ScalarFma(*x.start, *y.start, sum);
    x.start += x.step;
    x.step += x.grow;
    y.start += y.step;
    y.step += y.grow;
  }
  return sum;
}

template <typename Lanes>
void AxpyWalk(std::size_t n, double a, ConstRows x, double * y) {
  for (std::size_t j = 0; j < n; ++j) {
    y[j] = Lanes::ScalarFma(a, *x.start, y[j]);
    x.start += x.step;
    x.step += x.grow;
  }
}

template <typename Lanes>
void MultiplyAdd(std::size_t n, const double * x, const double * y, double * sum) {
  for (std::size_t j = 0; j < n; j += Lanes::kWidth) {
    const std::size_t part = n - j < Lanes::kWidth ? n - j : Lanes::kWidth;
    Lanes::StorePart(sum + j, part,
                     Lanes::Fma(Lanes::LoadPart(x + j, part), Lanes::LoadPart(y + j, part),
                                Lanes::LoadPart(sum + j, part)));
  }
}

/// Columns that one pass of a symmetric product takes at a time: the rows' part of them stays in
/// the first-level cache between the two uses of each element.
inline constexpr std::size_t kSymmetricColumns = 128;

/// The sums of kDotRows rows of a triangle, of which row[r] is at column `first`, its diagonal
/// element at row[r][r]: the products of the columns up to the diagonal. All reads lie inside these
/// rows. `v` is at column `first` too.
template <typename Lanes>
inline void DotDiagonal(const double * const * row, const double * v,
                        typename Lanes::Vector * sum) {
  using Vector = typename Lanes::Vector;
  constexpr int kWidth = static_cast<int>(Lanes::kWidth);
  constexpr int kVectors = kDotRows / kWidth;
#pragma GCC unroll 16
  for (int b = 0; b < kVectors; ++b) {
    Vector column[kVectors][kWidth];
#pragma GCC unroll 16
    for (int q = b; q < kVectors; ++q) {
      Lanes::LoadColumns(row + q * kWidth, static_cast<std::size_t>(b * kWidth), kWidth, column[q]);
    }
#pragma GCC unroll 8
    for (int c = 0; c < kWidth; ++c) {
      const Vector x = Lanes::Spread(v[b * kWidth + c]);
      sum[b] = Lanes::FmaBehind(static_cast<std::size_t>(c), column[b][c], x, sum[b]);
#pragma GCC unroll 16
      for (int q = b + 1; q < kVectors; ++q) {
        sum[q] = Lanes::Fma(column[q][c], x, sum[q]);
      }
    }
  }
}

/// The other half: what the elements before the diagonal add to the sums of their columns.
template <typename Lanes>
inline void CombineDiagonal(const double * const * row, const double * v,
                            typename Lanes::Vector * sum) {
  constexpr int kWidth = static_cast<int>(Lanes::kWidth);
#pragma GCC unroll 16
  for (int r = 1; r < kDotRows; ++r) {
    const typename Lanes::Vector x = Lanes::Spread(v[r]);
#pragma GCC unroll 16
    for (int q = 0; q * kWidth < r; ++q) {
      const double * const elements = row[r] + q * kWidth;
      if (r - q * kWidth >= kWidth) {
        sum[q] = Lanes::Fma(Lanes::Load(elements), x, sum[q]);
      } else {
        const std::size_t part = static_cast<std::size_t>(r - q * kWidth);
        sum[q] = Lanes::FmaFirst(part, Lanes::LoadPart(elements, part), x, sum[q]);
      }
    }
  }
}

/// The rows before the first full group of a product of a triangle with a vector.
template <typename Lanes, bool kIsSymmetric>
inline void MultiplyFirstRows(int rows, const double * a, const double * v, double * y) {
  for (int i = 0; i < rows; ++i) {
    y[i] = 0.0;
  }
  for (int i = 0; i < rows; ++i) {
    double sum = 0.0;
    for (int j = 0; j < i; ++j) {
      sum = Lanes::ScalarFma(a[j], v[j], sum);
      if constexpr (kIsSymmetric) {
        y[j] = Lanes::ScalarFma(a[j], v[i], y[j]);
      }
    }
    y[i] = Lanes::ScalarFma(a[i], v[i], sum);
    a += i + 1;
  }
}

template <typename Lanes, bool kIsSymmetric>
void TriangleProduct(int n, const double * a, const double * v, double * y) {
  using Vector = typename Lanes::Vector;
  constexpr int kWidth = static_cast<int>(Lanes::kWidth);
  constexpr int kVectors = kDotRows / kWidth;
  int first = n % kDotRows;
  MultiplyFirstRows<Lanes, kIsSymmetric>(first, a, v, y);
  const double * next = a + first * (first + 1) / 2;
  for (; first < n; first += kDotRows) {
    const double * row[kDotRows];
    const std::ptrdiff_t step = first + 1;
    const ConstRows group{next, step, 1};
    for (int r = 0; r < kDotRows; ++r) {
      row[r] = next;
      next += first + r + 1;
    }
    Vector sum[kVectors];
#pragma GCC unroll 16
    for (int q = 0; q < kVectors; ++q) {
      sum[q] = Lanes::Spread(0.0);
    }
    const std::size_t before = static_cast<std::size_t>(first);
    if constexpr (kIsSymmetric) {
      for (std::size_t j = 0; j < before; j += kSymmetricColumns) {
        const std::size_t width = before - j < kSymmetricColumns ? before - j : kSymmetricColumns;
        DotVectors<Lanes, kVectors>(row, v + j, width, next + j * kDotRows, sum);
        Combine<Lanes>(kDotRows, v + first, {group.start + j, step, 1}, width, y + j);
        for (int r = 0; r < kDotRows; ++r) {
          row[r] += width;
        }
      }
    } else {
      DotVectors<Lanes, kVectors>(row, v, before, next, sum);
      for (int r = 0; r < kDotRows; ++r) {
        row[r] += before;
      }
    }
    DotDiagonal<Lanes>(row, v + first, sum);
    if constexpr (kIsSymmetric) {
      CombineDiagonal<Lanes>(row, v + first, sum);
    }
#pragma GCC unroll 16
    for (int q = 0; q < kVectors; ++q) {
      Lanes::Store(y + first + q * kWidth, sum[q]);
    }
  }
}

template <typename Lanes>
void LowerTransposedProduct(int n, const double * a, const double * v, double * y) {
  const double * row = a;
  int rows = n % kDotRows == 0 ? kDotRows : n % kDotRows;
  for (int first = 0; first < n; first += rows, rows = kDotRows) {
    Combine<Lanes>(rows, v + first, {row, first + 1, 1}, static_cast<std::size_t>(first), y);
    for (int r = 0; r < rows; ++r) {
      y[first + r] = 0.0;
      for (int q = 0; q <= r; ++q) {
        y[first + q] = Lanes::ScalarFma(row[first + q], v[first + r], y[first + q]);
      }
      row += first + r + 1;
    }
  }
}

template <typename Lanes, Rounding kRounding>
void RankOne(int n, const double * b, const double * c, double * a) {
  double * row = a;
  for (int i = 0; i < n; ++i) {
    Axpy<Lanes, kRounding>(static_cast<std::size_t>(i) + 1, b[i], c, row);
    row += i + 1;
  }
}

template <typename Lanes, Rounding kRounding>
inline void RankTwoPart(std::size_t n, typename Lanes::Vector minusX, typename Lanes::Vector minusY,
                        const double * x, const double * y, double * a) {
  const typename Lanes::Vector first =
      Accumulate<Lanes, kRounding>(minusX, Lanes::LoadPart(y, n), Lanes::LoadPart(a, n));
  Lanes::StorePart(a, n, Accumulate<Lanes, kRounding>(minusY, Lanes::LoadPart(x, n), first));
}

template <typename Lanes, Rounding kRounding>
void RankTwo(int n, const double * x, const double * y, double * a) {
  double * row = a;
  for (int i = 0; i < n; ++i) {
    const typename Lanes::Vector minusX = Lanes::Spread(-x[i]);
    const typename Lanes::Vector minusY = Lanes::Spread(-y[i]);
    const std::size_t length = static_cast<std::size_t>(i) + 1;
    std::size_t j = 0;
    for (; j + Lanes::kWidth <= length; j += Lanes::kWidth) {
      const typename Lanes::Vector first =
          Accumulate<Lanes, kRounding>(minusX, Lanes::Load(y + j), Lanes::Load(row + j));
      Lanes::Store(row + j, Accumulate<Lanes, kRounding>(minusY, Lanes::Load(x + j), first));
    }
    if (j < length) {
      RankTwoPart<Lanes, kRounding>(length - j, minusX, minusY, x + j, y + j, row + j);
    }
    row += length;
  }
}

/// x c + y s, in the rounding of the chain.
template <typename Lanes, Rounding kRounding>
inline typename Lanes::Vector Turn(typename Lanes::Vector x, typename Lanes::Vector c,
                                   typename Lanes::Vector y, typename Lanes::Vector s) {
  const typename Lanes::Vector second = Lanes::Mul(y, s);
  return Accumulate<Lanes, kRounding>(x, c, second);
}

/// One group of columns through the whole chain: the row that the next rotation needs stays in
/// registers.
template <typename Lanes, Rounding kRounding>
inline void RotateColumns(int count, const double * c, const double * s, double * z,
                          std::ptrdiff_t step) {
  constexpr int kVectors = 8;
  typename Lanes::Vector x[kVectors];
  double * row = z + count * step;
#pragma GCC unroll 8
  for (int v = 0; v < kVectors; ++v) {
    x[v] = Lanes::Load(row + v * static_cast<int>(Lanes::kWidth));
  }
  for (int i = count - 1; i >= 0; --i) {
    double * const below = row - step;
    const typename Lanes::Vector cosine = Lanes::Spread(c[i]);
    const typename Lanes::Vector sine = Lanes::Spread(s[i]);
    const typename Lanes::Vector minusSine = Lanes::Spread(-s[i]);
#pragma GCC unroll 8
    for (int v = 0; v < kVectors; ++v) {
      const int k = v * static_cast<int>(Lanes::kWidth);
      const typename Lanes::Vector y = Lanes::Load(below + k);
      Lanes::Store(row + k, Turn<Lanes, kRounding>(x[v], cosine, y, sine));
      x[v] = Turn<Lanes, kRounding>(y, cosine, x[v], minusSine);
    }
    row = below;
  }
#pragma GCC unroll 8
  for (int v = 0; v < kVectors; ++v) {
    Lanes::Store(row + v * static_cast<int>(Lanes::kWidth), x[v]);
  }
}

template <typename Lanes, Rounding kRounding>
void RotateChain(int count, const double * c, const double * s, double * z, std::ptrdiff_t step,
                 std::size_t n) {
  constexpr std::size_t kColumns = 8 * Lanes::kWidth;
  std::size_t k = 0;
  for (; k + kColumns <= n; k += kColumns) {
    RotateColumns<Lanes, kRounding>(count, c, s, z + k, step);
  }
  for (; k < n; k += Lanes::kWidth) {
    const std::size_t part = n - k < Lanes::kWidth ? n - k : Lanes::kWidth;
    double * row = z + k + count * step;
    typename Lanes::Vector x = Lanes::LoadPart(row, part);
    for (int i = count - 1; i >= 0; --i) {
      const typename Lanes::Vector cosine = Lanes::Spread(c[i]);
      const typename Lanes::Vector y = Lanes::LoadPart(row - step, part);
      Lanes::StorePart(row, part, Turn<Lanes, kRounding>(x, cosine, y, Lanes::Spread(s[i])));
      x = Turn<Lanes, kRounding>(y, cosine, x, Lanes::Spread(-s[i]));
      row -= step;
    }
    Lanes::StorePart(row, part, x);
  }
}

/// Row k takes part in nothing; column k takes part with a factor of 0.0 and gets its value at
/// once.
template <typename Lanes, Rounding kRounding>
void SweepRow(int n, int k, const double * b, const double * c, double pivot, double * a) {
  double * row = a;
  for (int i = 0; i < k; ++i) {
    Axpy<Lanes, kRounding>(static_cast<std::size_t>(i) + 1, b[i], c, row);
    row += i + 1;
  }
  for (int j = 0; j < k; ++j) {
    row[j] = c[j];
  }
  row[k] = pivot;
  row += k + 1;
  for (int i = k + 1; i < n; ++i) {
    Axpy<Lanes, kRounding>(static_cast<std::size_t>(i) + 1, b[i], c, row);
    row[k] = c[i];
    row += i + 1;
  }
}

template <typename Lanes>
void Scale(std::size_t n, double a, double * x) {
  const typename Lanes::Vector factor = Lanes::Spread(a);
  std::size_t j = 0;
  for (; j + Lanes::kWidth <= n; j += Lanes::kWidth) {
    Lanes::Store(x + j, Lanes::Mul(factor, Lanes::Load(x + j)));
  }
  if (j < n) {
    Lanes::StorePart(x + j, n - j, Lanes::Mul(factor, Lanes::LoadPart(x + j, n - j)));
  }
}

template <typename Lanes>
inline void SweepVectorsPart(std::size_t n, typename Lanes::Vector factor,
                             typename Lanes::Vector sign, double * column, double * scaled,
                             double * diagonal) {
  const typename Lanes::Vector old = Lanes::LoadPart(column, n);
  const typename Lanes::Vector c = Lanes::Mul(factor, old);
  const typename Lanes::Vector b = Lanes::Mul(sign, old);
  Lanes::StorePart(scaled, n, c);
  Lanes::StorePart(column, n, b);
  Lanes::StorePart(diagonal, n, Lanes::Fma(b, c, Lanes::LoadPart(diagonal, n)));
}

template <typename Lanes>
void SweepVectors(std::size_t n, double s, bool negate, double * column, double * scaled,
                  double * diagonal) {
  const typename Lanes::Vector factor = Lanes::Spread(s);
  const typename Lanes::Vector sign = Lanes::Spread(negate ? -1.0 : 1.0);
  for (std::size_t j = 0; j < n; j += Lanes::kWidth) {
    const std::size_t part = n - j < Lanes::kWidth ? n - j : Lanes::kWidth;
    SweepVectorsPart<Lanes>(part, factor, sign, column + j, scaled + j, diagonal + j);
  }
}

template <typename Lanes>
bool SweptDiagonalsAbove(std::size_t n, const double * d, const double * c, double a, double tol,
                         const double * ref, double bound) {
  using Vector = typename Lanes::Vector;
  const Vector pivot = Lanes::Spread(a);
  const Vector tolerance = Lanes::Spread(tol);
  const Vector limit = Lanes::Spread(bound);
  for (std::size_t j = 0; j < n; j += Lanes::kWidth) {
    const std::size_t part = n - j < Lanes::kWidth ? n - j : Lanes::kWidth;
    const Vector cj = Lanes::LoadPart(c + j, part);
    const Vector taken = Lanes::Mul(Lanes::Div(cj, pivot), cj);
    const Vector left = Lanes::Sub(Lanes::LoadPart(d + j, part), taken);
    const Vector value = Lanes::Mul(Lanes::Mul(left, tolerance), Lanes::LoadPart(ref + j, part));
    if (!Lanes::AllAbove(value, limit, part)) {
      return false;
    }
  }
  return true;
}

template <typename Lanes>
constexpr KernelTable MakeTable(const char * name) {
  return {name,
          Tile<Lanes, Rounding::Fused>,
          Tile<Lanes, Rounding::Plain>,
          TileByRows<Lanes>,
          SolveForward<Lanes>,
          FactorBlock<Lanes>,
          MultiplyBackward<Lanes>,
          RotateRows<Lanes, false>,
          RotateRows<Lanes, true>,
          Axpy<Lanes, Rounding::Fused>,
          Axpy<Lanes, Rounding::Plain>,
          Combine<Lanes>,
          DotRows<Lanes>,
          DotWalk<Lanes>,
          AxpyWalk<Lanes>,
          MultiplyAdd<Lanes>,
          TriangleProduct<Lanes, true>,
          TriangleProduct<Lanes, false>,
          LowerTransposedProduct<Lanes>,
          RankOne<Lanes, Rounding::Fused>,
          RankOne<Lanes, Rounding::Plain>,
          RankTwo<Lanes, Rounding::Fused>,
          RankTwo<Lanes, Rounding::Plain>,
          RotateChain<Lanes, Rounding::Fused>,
          RotateChain<Lanes, Rounding::Plain>,
          SweepRow<Lanes, Rounding::Fused>,
          SweepRow<Lanes, Rounding::Plain>,
          Scale<Lanes>,
          SweepVectors<Lanes>,
          SweptDiagonalsAbove<Lanes>};
}

}  // namespace
}  // namespace QVMath_940::kernels
