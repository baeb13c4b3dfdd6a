// LINPACK's positive definite matrices in packed storage: DPPCO, DPPFA, DPPSL, DPPDI.
#include "Linpack.h"
#include "math/kernels/linpack/cholesky.h"
#include "math/kernels/linpack/columns.h"

namespace QVMath_940 {

using namespace linpack;

double Linpack::Dppco(double * ap, int n, double * z, int * info) {
  return FactorAndEstimate(PackedColumns<double>{ap}, n, n, z, info);
}

double Linpack::Dppco(double * ap, int n, double * z) {
  return Dppco(ap, n, z, nullptr);
}

int Linpack::Dppfa(double * ap, int n) {
  return FactorCholesky(PackedColumns<double>{ap}, n, n);
}

void Linpack::Dppsl(const double * ap, int n, double * b) {
  SolveCholesky(PackedColumns<const double>{ap}, n, n, b);
}

void Linpack::Dppdi(double * ap, int n, double * det, int job) {
  const PackedColumns<double> columns{ap};
  if (job / 10 != 0) CholeskyDeterminant(columns, n, det);
  if (job % 10 != 0) InvertCholesky(columns, n);
}

}  // namespace QVMath_940
