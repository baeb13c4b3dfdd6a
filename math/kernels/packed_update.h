/// Updates of a packed lower triangle by cases: the inner loops of the accumulators.
///
/// Element (i, j), j at or below i, stands at i(i+1)/2 + j. Each element receives its additions one
/// by one in the order of the cases, so that a result depends neither on how cases are grouped nor
/// on the CPU. Below order `kFusedOrder` (kernel_table.h) every product and sum is rounded by
/// itself; from it on the last product and the sum are one fused multiply-add.
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

/// For r = 0 .. rows - 1 in this order: a(i, j) += left[r][i] right[r][j].
/// Needs scratch for `rows` rows, so pass some tens of cases at a time.
void PackedRankKUpdate(int n, int rows, CaseRows left, CaseRows right, double * a);

/// For r = 0 .. rows - 1 in this order: a(i, j) += (x[r][i] x[r][j]) weights[r] below order
/// `kFusedOrder`, and a(i, j) += (x[r][i] weights[r]) x[r][j], fused, from it on.
void PackedWeightedRankKUpdate(int n, int rows, CaseRows x, const double * weights, double * a);

}  // namespace QVMath_940::kernels
