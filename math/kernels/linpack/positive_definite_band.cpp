// LINPACK's positive definite band matrices: DPBCO, DPBFA, DPBSL, DPBDI.
#include "Linpack.h"
#include "math/kernels/linpack/cholesky.h"
#include "math/kernels/linpack/columns.h"

namespace QVMath_940 {

using namespace linpack;

double Linpack::Dpbco(double * abd, int lda, int n, int m, double * z, int * info) {
  return FactorAndEstimate(BandColumns<double>{abd, lda, m}, n, m, z, info);
}

double Linpack::Dpbco(double * abd, int lda, int n, int m, double * z) {
  return Dpbco(abd, lda, n, m, z, nullptr);
}

int Linpack::Dpbfa(double * abd, int lda, int n, int m) {
  return FactorCholesky(BandColumns<double>{abd, lda, m}, n, m);
}

void Linpack::Dpbsl(const double * abd, int lda, int n, int m, double * b) {
  SolveCholesky(BandColumns<const double>{abd, lda, m}, n, m, b);
}

void Linpack::Dpbdi(const double * abd, int lda, int n, int m, double * det) {
  CholeskyDeterminant(BandColumns<const double>{abd, lda, m}, n, det);
}

}  // namespace QVMath_940
