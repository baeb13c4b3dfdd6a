/// The Cholesky factor of a packed lower triangle, in place, that writes a zero pivot for each
/// dependent row and goes on.
///
/// Element (i, j) of the factor is (a_ij - sum over k below j of L_ik L_jk) / L_jj; the sum starts
/// from 0.0 and runs in the order of k. Below order `kernels::kFusedOrder` the plain loops run;
/// from there on each addition to a sum is fused, and tiles of sums are taken in one pass along k.
#pragma once

namespace QVMath_940 {

/// Row i is accepted when its pivot square is strictly above tol x ref[i].
struct PivotThresholds {
  const double * ref;
  double tol;

  double Bound(int i) const { return tol * ref[i]; }
};

/// Replaces the packed triangle `a` of order n by its factor. The result is the number of rows that
/// were not accepted; where `accepted` is not null, accepted[i] becomes 1 for each row that was.
int FactorPacked(double * a, int n, const PivotThresholds & thresholds, char * accepted);

/// Factors row i alone, from the finished rows above it. True when the row was accepted.
bool FactorRow(double * a, int i, bool isFused, const PivotThresholds & thresholds);

}  // namespace QVMath_940
