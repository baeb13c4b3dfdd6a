/// The inner loops under every dense matrix operation, chosen once for the CPU at hand.
///
/// Two rules make a result depend on neither the CPU nor the blocking:
///
/// - Each element receives its additions one by one in the order that the operation's formula
///   gives. Only different elements are worked on side by side, never parts of one sum.
/// - From order `kFusedOrder` on, an update a += x y is one fused multiply-add (one rounding, as
///   std::fma) in every form of an operation; below it product and sum are rounded each by itself.
///
/// Each instruction set fills one `KernelTable` with the same functions; `Kernels()` is the table
/// of this process. The environment variable QVCOMMON_KERNELS (portable, avx2 or avx512), read
/// once at the first use, asks for another path than the best; a path that the CPU lacks is not
/// taken.
#pragma once

#include <cstddef>
#include <vector>

namespace QVMath_940::kernels {

/// The order from which on the kernels fuse.
inline constexpr int kFusedOrder = 64;

/// Shape of a register tile: every path computes tiles of this shape.
inline constexpr int kTileRows = 8;
inline constexpr int kTileCols = 24;

/// A walk over the rows of a matrix in memory: row r stands at `start` plus the sum of its first r
/// steps, where the first step is `step` and each later one is larger by `grow`.
///
///     full storage, leading dimension d:     {p, d, 0}
///     packed lower triangle from row i on:   {p + i(i+1)/2, i + 1, 1}
///     the same upwards from row i:           {p + i(i+1)/2, -i, 1}
///
/// (upwards, row i - 1 stands i places before row i, and row i - 2 another i - 1 places).
template <typename T>
struct RowWalk {
  T * start;
  std::ptrdiff_t step;
  std::ptrdiff_t grow;
};
using Rows = RowWalk<double>;
using ConstRows = RowWalk<const double>;

struct KernelTable {
  const char * name;

  /// c[r][j] += a[k][r] * b[k][j] for k = 0 .. count - 1 in this order; r below kTileRows, j below
  /// kTileCols. Row k of `a` holds kTileRows values, row k of `b` kTileCols.
  void (*tileFused)(int count, ConstRows a, ConstRows b, Rows c);
  void (*tilePlain)(int count, ConstRows a, ConstRows b, Rows c);

  /// The same with the left factor read along rows: c[r][j] += a[r][k * aStep] * b[k][j], for any
  /// aStep; `a` points to kTileRows pointers.
  void (*tileByRowsFused)(int count, const double * const * a, std::ptrdiff_t aStep, ConstRows b,
                          Rows c);

  /// Forward substitution along the rows of a tile of `rows` rows, which holds sums s. For
  /// m = 0 .. width - 1 in this order, with x = (row[r][m] - s[r][m]) / diagonal[m], or 0.0 where
  /// that diagonal is 0.0: row[r][m] = x, then s[r][j] += x * d[m][j] for j behind m. Row m of `d`
  /// holds kTileCols values, zeros up to and with place m.
  void (*solveForwardFused)(int rows, int width, double * const * row, double * tile,
                            const double * d, const double * diagonal);

  /// The Cholesky factor of a diagonal block of `width` rows, at most kTileCols. On entry row[i]
  /// holds the block's row i and `sums`, kTileCols values a row, the sums over the columns before
  /// the block. Pivot m is accepted when row[m][m] - s[m][m] is above bound[m]; its root, or 0.0,
  /// goes to row[m][m] and diagonal[m]. Then for each row i behind m: x = (row[i][m] - s[i][m]) /
  /// diagonal[m], or 0.0 for a zero pivot, goes to row[i][m] and to d[m][i], kTileCols values a row
  /// (which must be 0.0 elsewhere), and s[i][j] += x * d[m][j] for j behind m up to i.
  void (*factorBlockFused)(int width, double * const * row, double * sums, const double * bound,
                           double * d, double * diagonal);

  /// Backward multiplication along the rows of such a tile. For m = width - 1 .. 0, with
  /// x = s[r][m] * factor[m]: row[r][m] = x, then s[r][j] += x * d[m][j] for j before m. Row m of
  /// `d` holds zeros from place m on.
  void (*multiplyBackwardFused)(int rows, int width, double * const * row, double * tile,
                                const double * d, const double * factor);

  /// Plane rotations along `rows` rows, at most kTileRows, each with its own x[r]. For j = 0 ..
  /// count - 1 in this order, with l = row[r][j]: row[r][j] = c[j] * l + s[j] * x, and x becomes
  /// c[j] * x - s[j] * l; the first product of each is fused to the sum, the second rounded.
  void (*rotateRowsFused)(int rows, int count, const double * c, const double * s,
                          double * const * row, double * x);

  /// The inverse rotations, for j = count - 1 .. 0: row[r][j] = c[j] * l - s[j] * x, and x becomes
  /// c[j] * x + s[j] * l.
  void (*rotateRowsBackFused)(int rows, int count, const double * c, const double * s,
                              double * const * row, double * x);

  /// y[j] += a * x[j], j below n.
  void (*axpyFused)(std::size_t n, double a, const double * x, double * y);
  void (*axpyPlain)(std::size_t n, double a, const double * x, double * y);

  /// y[j] += w[k] * x[k][j] for k = 0 .. count - 1 in this order; j below n.
  void (*combineFused)(int count, const double * w, ConstRows x, std::size_t n, double * y);

  /// sum[r] += x[r][j] * v[j] for j = 0 .. n - 1 in this order; r below `rows`, any number.
  void (*dotRowsFused)(int rows, ConstRows x, const double * v, std::size_t n, double * sum);

  /// sum + the products x(j) * y(j) of two walks, each of whose rows is one value, for
  /// j = 0 .. n - 1 in this order: for columns of a packed triangle and vectors with a stride.
  double (*dotWalkFused)(std::size_t n, ConstRows x, ConstRows y, double sum);

  /// y[j] += a * x(j), j below n, for such a walk x.
  void (*axpyWalkFused)(std::size_t n, double a, ConstRows x, double * y);

  /// sum[j] += x[j] * y[j], j below n.
  void (*multiplyAddFused)(std::size_t n, const double * x, const double * y, double * sum);

  /// Products of a packed triangle `a` of order n with a vector; y is not v. Each element of y
  /// starts from 0.0 and receives its products in the order of j:
  ///     symmetricProductFused        y[i] = sum over all j of a(i, j) * v[j]
  ///     lowerProductFused            y[i] = sum over j up to i of a(i, j) * v[j]
  ///     lowerTransposedProductFused  y[i] = sum over j from i of a(j, i) * v[j]
  void (*symmetricProductFused)(int n, const double * a, const double * v, double * y);
  void (*lowerProductFused)(int n, const double * a, const double * v, double * y);
  void (*lowerTransposedProductFused)(int n, const double * a, const double * v, double * y);

  /// Packed lower triangle: a(i, j) += b[i] * c[j] for j at or below i, i below n.
  void (*rankOneFused)(int n, const double * b, const double * c, double * a);
  void (*rankOnePlain)(int n, const double * b, const double * c, double * a);

  /// Packed lower triangle: a(i, j) += -x[i] * y[j], then a(i, j) += -y[i] * x[j], for j at or
  /// below i, i below n.
  void (*rankTwoFused)(int n, const double * x, const double * y, double * a);
  void (*rankTwoPlain)(int n, const double * x, const double * y, double * a);

  /// A chain of plane rotations of neighbouring rows of n elements, `step` apart. For
  /// i = count - 1 .. 0: with x = z[i + 1][k] and y = z[i][k], z[i + 1][k] becomes x c[i] + y s[i]
  /// and z[i][k] becomes y c[i] - x s[i]. Fused, the first product of each is: fma(x, c, y * s) and
  /// fma(y, c, -(x * s)).
  void (*rotateChainFused)(int count, const double * c, const double * s, double * z,
                           std::ptrdiff_t step, std::size_t n);
  void (*rotateChainPlain)(int count, const double * c, const double * s, double * z,
                           std::ptrdiff_t step, std::size_t n);

  /// One sweep of a packed triangle of order n on row k: a(i, j) += b[i] * c[j] outside row and
  /// column k, which become c[0], c[1], .. with `pivot` at (k, k). c[k] must be 0.0.
  void (*sweepRowFused)(int n, int k, const double * b, const double * c, double pivot, double * a);
  void (*sweepRowPlain)(int n, int k, const double * b, const double * c, double pivot, double * a);

  /// x[j] *= a, j below n.
  void (*scale)(std::size_t n, double a, double * x);

  /// The two vectors of a sweep's pivot, and the diagonal after it. On entry `column` holds the
  /// pivot's column; for each j: scaled[j] = s * column[j], then column[j] changes its sign when
  /// `negate` is true, then diagonal[j] += column[j] * scaled[j].
  void (*sweepVectorsFused)(std::size_t n, double s, bool negate, double * column, double * scaled,
                            double * diagonal);

  /// True when (d[j] - (c[j] / a) * c[j]) * tol * ref[j], rounded at each step, is above `bound`
  /// for every j below n.
  bool (*sweptDiagonalsAbove)(std::size_t n, const double * d, const double * c, double a,
                              double tol, const double * ref, double bound);
};

/// The table in use.
const KernelTable & Kernels();

/// Every table that this CPU can run, the portable one first: for the tests.
std::vector<const KernelTable *> AvailableKernels();

/// Position of row i in a packed lower triangle.
constexpr std::size_t PackedRow(std::ptrdiff_t i) {
  return static_cast<std::size_t>(i) * (static_cast<std::size_t>(i) + 1) / 2;
}

}  // namespace QVMath_940::kernels
