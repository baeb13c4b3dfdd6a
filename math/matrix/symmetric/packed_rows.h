/// Sums along the rows and columns of a packed lower triangle, read in place.
///
/// Every sum runs in ascending order of its index. With `isFused` each addition is one fused
/// multiply-add, otherwise product and sum are rounded each by itself: the caller decides by the
/// order of the matrix that its operation belongs to, so that all forms of the operation agree.
#pragma once

#include <algorithm>
#include <cstddef>

#include "QVSymMatrix.h"
#include "math/kernels/kernel_table.h"
#include "math/matrix/sums.h"

namespace QVMath_940 {

/// A symmetric matrix, or a lower triangular one, of order n: the diagonal block from row and
/// column `first` on of the packed triangle at `a`. The whole triangle has `first` 0.
struct PackedView {
  const double * a;
  int n;
  bool isFused;
  int first = 0;

  /// Row i from column 0 to its diagonal element.
  const double * Row(int i) const { return a + kernels::PackedRow(first + i) + first; }

  /// Element (i, j) of the symmetric matrix.
  double Elem(int i, int j) const { return i < j ? Row(j)[i] : Row(i)[j]; }

  /// Column j from row i downwards, i at or behind j.
  kernels::ConstRows Column(int i, int j) const { return {Row(i) + j, first + i + 1, 1}; }

  /// Row i of the symmetric matrix from column k on: as far as its diagonal element when k is not
  /// behind it, else to the end.
  kernels::ConstRows RowFrom(int i, int k) const {
    return k <= i ? kernels::ConstRows{Row(i) + k, 1, 0} : Column(k, i);
  }

  /// The leading rows and columns.
  PackedView Leading(int order) const { return {a, order, isFused, first}; }

  /// The diagonal block from row `start` on.
  PackedView Block(int start, int order) const { return {a, order, isFused, first + start}; }
};

/// All of a dense matrix; its order decides about fusing.
inline PackedView ViewOf(const QVSymMatrix & s) {
  return {s.AsVector().data(), s.GetNRows(), s.GetNRows() >= kernels::kFusedOrder};
}

/// Values that follow one another.
inline kernels::ConstRows Along(const double * values) {
  return {values, 1, 0};
}

/// The walk from its place `count` on.
inline kernels::ConstRows Behind(kernels::ConstRows walk, std::ptrdiff_t count) {
  return {walk.start + count * walk.step + walk.grow * (count * (count - 1) / 2),
          walk.step + count * walk.grow, walk.grow};
}

/// sum + the products of the first `count` values of two walks.
double DotWalks(bool isFused, int count, kernels::ConstRows x, kernels::ConstRows y, double sum);

/// y[j] += factor * x(j) for the first `count` values of a walk.
void AddWalk(bool isFused, int count, double factor, kernels::ConstRows x, double * y);

/// sum + the elements k = from .. to - 1 of the symmetric row i by the values of v.
double DotRow(const PackedView & s, int i, int from, int to, kernels::ConstRows v,
              double sum = 0.0);

/// The elements k = from .. to - 1 of the symmetric row i of s by those of row j of t.
double DotTwoRows(const PackedView & s, int i, const PackedView & t, int j, int from, int to);

/// y = S v; y is not v.
void MultiplySymmetric(const PackedView & s, const double * v, double * y);

/// y = L v, y = L-transpose v; y is not v.
void MultiplyLower(const PackedView & l, const double * v, double * y);
void MultiplyLowerTransposed(const PackedView & l, const double * v, double * y);

/// Elements from .. to - 1 of the symmetric row i, to row[from] .. row[to - 1].
void CopySymmetricRow(const PackedView & s, int i, int from, int to, double * row);

}  // namespace QVMath_940
