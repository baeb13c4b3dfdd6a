// LINPACK's positive definite matrices in full storage: DPOCO, DPOFA, DPOSL, DPODI.
#include "Linpack.h"
#include "math/kernels/linpack/cholesky.h"
#include "math/kernels/linpack/columns.h"

namespace QVMath_940 {

using namespace linpack;

double Linpack::Dpoco(double * a, int lda, int n, double * z, int * info) {
  return FactorAndEstimate(FullColumns<double>{a, lda}, n, n, z, info);
}

double Linpack::Dpoco(double * a, int lda, int n, double * z) {
  return Dpoco(a, lda, n, z, nullptr);
}

int Linpack::Dpofa(double * a, int lda, int n) {
  return FactorCholesky(FullColumns<double>{a, lda}, n, n);
}

void Linpack::Dposl(const double * a, int lda, int n, double * b) {
  SolveCholesky(FullColumns<const double>{a, lda}, n, n, b);
}

void Linpack::Dpodi(double * a, int lda, int n, double * det, int job) {
  const FullColumns<double> columns{a, lda};
  if (job / 10 != 0) CholeskyDeterminant(columns, n, det);
  if (job % 10 != 0) InvertCholesky(columns, n);
}

}  // namespace QVMath_940
