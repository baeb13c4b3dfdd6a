/// Updates of a packed lower triangle by cases: the inner loops of the accumulators.
///
/// Element (i, j), j at or below i, stands at i(i+1)/2 + j. Each element receives its additions one
/// by one in the order of the cases, so that a result does not depend on how cases are grouped.
#pragma once

#include <cstddef>

namespace QVMath_940::kernels {

/// a(i, j) += (x[i] w) x[j] for j at or below i, i below n.
void PackedRank1Update(int n, double w, const double * x, double * a);

/// Rows of values in memory: row r starts at start + r x stride.
struct CaseRows {
  const double * start;
  std::ptrdiff_t stride;
};

/// For r = 0 .. rows - 1 in this order: a(i, j) += (left[r][i] right[r][j]) weights[r]; without the
/// last factor when `weights` is null.
void PackedRankKUpdate(int n, int rows, CaseRows left, CaseRows right, const double * weights,
                       double * a);

}  // namespace QVMath_940::kernels
