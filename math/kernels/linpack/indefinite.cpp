// LINPACK's symmetric indefinite matrices in full storage: DSICO, DSIFA, DSISL, DSIDI.
#include "Linpack.h"
#include "math/kernels/linpack/cholesky.h"
#include "math/kernels/linpack/columns.h"
#include "math/kernels/linpack/diagonal_pivoting.h"

namespace QVMath_940 {

using namespace linpack;

double Linpack::Dsico(double * a, int lda, int n, int * kpvt, double * z) {
  if (n < 1) return 0.0;
  const FullColumns<double> columns{a, lda};
  const double norm = SymmetricNorm(columns, n, n, z);
  FactorIndefinite(columns, n, kpvt);
  return EstimateIndefiniteCondition(columns, n, kpvt, norm, z);
}

int Linpack::Dsifa(double * a, int lda, int n, int * kpvt) {
  return FactorIndefinite(FullColumns<double>{a, lda}, n, kpvt);
}

void Linpack::Dsisl(const double * a, int lda, int n, const int * kpvt, double * b) {
  SolveIndefinite(FullColumns<const double>{a, lda}, n, kpvt, b);
}

void Linpack::Dsidi(double * a, int lda, int n, const int * kpvt, double * det, int * inert,
                    double * work, int job) {
  const FullColumns<double> columns{a, lda};
  IndefiniteSigns(columns, n, kpvt, job % 100 / 10 != 0 ? det : nullptr,
                  job % 1000 / 100 != 0 ? inert : nullptr);
  if (job % 10 != 0) InvertIndefinite(columns, n, kpvt, work);
}

}  // namespace QVMath_940
