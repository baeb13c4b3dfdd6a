/// The loops of a `KernelTable`, written once over a type of lanes.
///
/// Only the sources that fill a table include this file, each with its own lanes, compiled for its
/// own instruction set. Everything stands in an unnamed namespace and calls no inline function of
/// another header, so that no code for one instruction set can be shared with a source for another.
///
/// `Lanes` gives: `Vector`, `kWidth`, `Load`, `LoadPart(p, n)`, `Store`, `StorePart(p, n, v)`,
/// `Spread(double)`, `Fma(a, b, c)`, `MulAdd(a, b, c)` (two roundings), `Mul(a, b)`,
/// `Sub`, `Div`, `Root(double)`, `AllAbove(v, bound, n)` for the first n lanes,
/// `ScalarFma(a, b, c)`, and the register block `kBlockRows` x `kBlockVectors` of a tile.
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

inline constexpr int kDotRows = 8;

/// Eight sums run side by side, since each of them must wait for its own last addition.
template <typename Lanes>
inline void DotEightRows(const double * const * row, const double * v, std::size_t n,
                         double * sum) {
  double s0 = sum[0], s1 = sum[1], s2 = sum[2], s3 = sum[3];
  double s4 = sum[4], s5 = sum[5], s6 = sum[6], s7 = sum[7];
  for (std::size_t j = 0; j < n; ++j) {
    const double x = v[j];
    s0 = Lanes::ScalarFma(row[0][j], x, s0);
    s1 = Lanes::ScalarFma(row[1][j], x, s1);
    s2 = Lanes::ScalarFma(row[2][j], x, s2);
    s3 = Lanes::ScalarFma(row[3][j], x, s3);
    s4 = Lanes::ScalarFma(row[4][j], x, s4);
    s5 = Lanes::ScalarFma(row[5][j], x, s5);
    s6 = Lanes::ScalarFma(row[6][j], x, s6);
    s7 = Lanes::ScalarFma(row[7][j], x, s7);
  }
  sum[0] = s0, sum[1] = s1, sum[2] = s2, sum[3] = s3;
  sum[4] = s4, sum[5] = s5, sum[6] = s6, sum[7] = s7;
}

template <typename Lanes>
inline void DotOneRow(const double * row, const double * v, std::size_t n, double * sum) {
  double s = *sum;
  for (std::size_t j = 0; j < n; ++j) {
    s = Lanes::ScalarFma(row[j], v[j], s);
  }
  *sum = s;
}

template <typename Lanes>
void DotRows(int rows, ConstRows x, const double * v, std::size_t n, double * sum) {
  const double * row = x.start;
  std::ptrdiff_t step = x.step;
  int r = 0;
  for (; r + kDotRows <= rows; r += kDotRows) {
    const double * eight[kDotRows];
    for (int q = 0; q < kDotRows; ++q) {
      eight[q] = row;
      row += step;
      step += x.grow;
    }
    DotEightRows<Lanes>(eight, v, n, sum + r);
  }
  for (; r < rows; ++r) {
    DotOneRow<Lanes>(row, v, n, sum + r);
    row += step;
    step += x.grow;
  }
}

/// Columns that one pass of a symmetric product takes at a time: eight rows of them stay in the
/// first-level cache between the two uses of each element.
inline constexpr std::size_t kSymmetricColumns = 256;

template <typename Lanes>
void SymmetricRows(int rows, ConstRows x, const double * v, const double * w, std::size_t n,
                   double * sum, double * y) {
  const double * row = x.start;
  std::ptrdiff_t step = x.step;
  for (int r = 0; r < rows; r += kDotRows) {
    const int taken = rows - r < kDotRows ? rows - r : kDotRows;
    const ConstRows group{row, step, x.grow};
    for (std::size_t j = 0; j < n; j += kSymmetricColumns) {
      const std::size_t width = n - j < kSymmetricColumns ? n - j : kSymmetricColumns;
      const ConstRows part{group.start + j, group.step, group.grow};
      DotRows<Lanes>(taken, part, v + j, width, sum + r);
      Combine<Lanes>(taken, w + r, part, width, y + j);
    }
    for (int q = 0; q < taken; ++q) {
      row += step;
      step += x.grow;
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
          Axpy<Lanes, Rounding::Fused>,
          Axpy<Lanes, Rounding::Plain>,
          Combine<Lanes>,
          DotRows<Lanes>,
          SymmetricRows<Lanes>,
          RankOne<Lanes, Rounding::Fused>,
          RankOne<Lanes, Rounding::Plain>,
          SweepRow<Lanes, Rounding::Fused>,
          SweepRow<Lanes, Rounding::Plain>,
          Scale<Lanes>,
          SweepVectors<Lanes>,
          SweptDiagonalsAbove<Lanes>};
}

}  // namespace
}  // namespace QVMath_940::kernels
