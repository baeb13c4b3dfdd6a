/// Sweeping a packed triangle on many rows, a panel of pivots at a time.
///
/// A sweep on row k adds the product of two vectors to every element outside row and column k.
/// The tolerance tests of the next pivots need only the diagonal and the pivots' own columns, so a
/// panel keeps these current pivot by pivot, remembers the two vectors of each accepted pivot, and
/// then adds all of them to the rest of the triangle in one pass, in pivot order. Each element
/// receives the same fused additions in the same order as from single sweeps, so the result is the
/// same to the last bit.
#pragma once

#include <cmath>

#include "QVBitSet.h"

namespace QVMath_940 {

/// What to sweep, and by which tests.
struct PivotList {
  const int * rows;    ///< row numbers, in the order of their sweeps; null for 0, 1, 2, ...
  int count;           ///< how many of them; a row may stand twice
  double tol;          ///< relative tolerance of a pivot
  const double * ref;  ///< reference diagonal, n values

  int Row(int place) const { return rows == nullptr ? place : rows[place]; }
};

/// The logarithm of the pivots, summed on the way.
struct LogPivots {
  bool useOldPivot;  ///< take the pivot before its sweep, else minus the diagonal after it
  double sum;        ///< of the logarithms of those above 0.0

  void Add(double pivotBefore, double diagonalAfter) {
    const double d = useOldPivot ? pivotBefore : -diagonalAfter;
    if (d > 0.0) {
      sum += std::log(d);
    }
  }
};

/// True when `a`, a pivot going forward on a row with reference `ref`, is large enough: the bound
/// itself is refused, and so is a NaN.
inline bool PivotIsLarge(double a, double tol, double ref) {
  return tol * ref < a;
}

/// Bound of the second tolerance test.
inline constexpr double kLowestScaledDiagonal = -1.0;

/// The diagonal element of a row swept earlier, brought up to date for pivot `a` and scaled; the
/// pivot is refused unless the value is above -1.0. `ajk` is the row's element in the pivot column.
inline bool EarlierPivotStays(double ajj, double ajk, double a, double tol, double ref) {
  return (ajj - (ajk / a) * ajk) * tol * ref > kLowestScaledDiagonal;
}

/// Sweeps the packed triangle `a` of order n on the listed rows.
///
/// On entry `swept` says which rows stand swept; on exit it is brought up to date. Refused pivots
/// are passed over. False, with nothing changed, when the scratch of a panel cannot be had.
bool SweepByPanels(double * a, int n, const PivotList & list, QVBitSet & swept,
                   LogPivots * logPivots);

}  // namespace QVMath_940
