// LINPACK's symmetric indefinite matrices in packed storage: DSPCO, DSPFA, DSPSL, DSPDI.
#include "Linpack.h"
#include "math/kernels/linpack/cholesky.h"
#include "math/kernels/linpack/columns.h"
#include "math/kernels/linpack/diagonal_pivoting.h"

namespace QVMath_940 {

using namespace linpack;

double Linpack::Dspco(double * ap, int n, int * kpvt, double * z) {
  if (n < 1) return 0.0;
  const PackedColumns<double> columns{ap};
  const double norm = SymmetricNorm(columns, n, n, z);
  FactorIndefinite(columns, n, kpvt);
  return EstimateIndefiniteCondition(columns, n, kpvt, norm, z);
}

int Linpack::Dspfa(double * ap, int n, int * kpvt) {
  return FactorIndefinite(PackedColumns<double>{ap}, n, kpvt);
}

void Linpack::Dspsl(const double * ap, int n, const int * kpvt, double * b) {
  SolveIndefinite(PackedColumns<const double>{ap}, n, kpvt, b);
}

void Linpack::Dspdi(double * ap, int n, const int * kpvt, double * det, int * inert, double * work,
                    int job) {
  const PackedColumns<double> columns{ap};
  IndefiniteSigns(columns, n, kpvt, job % 100 / 10 != 0 ? det : nullptr,
                  job % 1000 / 100 != 0 ? inert : nullptr);
  if (job % 10 != 0) InvertIndefinite(columns, n, kpvt, work);
}

}  // namespace QVMath_940
