// LINPACK's general band matrices: DGBCO, DGBFA, DGBSL, DGBDI.
#include <algorithm>

#include "Linpack.h"
#include "math/kernels/linpack/columns.h"
#include "math/kernels/linpack/elimination.h"

namespace QVMath_940 {

using namespace linpack;

namespace {

/// Zeroes the ml diagonals above the band, which the elimination fills.
void ZeroFillIn(BandColumns<double> a, const Band & band) {
  for (int j = band.mu + 1; j < band.n; ++j) {
    std::fill(a[j] + std::max(0, j - band.ml - band.mu), a[j] + j - band.mu, 0.0);
  }
}

template <typename T>
BandColumns<T> Columns(T * abd, int lda, int ml, int mu) {
  return {abd, lda, ml + mu};
}

}  // namespace

double Linpack::Dgbco(double * abd, int lda, int n, int ml, int mu, int * ipvt, double * z) {
  if (n < 1) return 0.0;
  const BandColumns<double> columns = Columns(abd, lda, ml, mu);
  const Band band{n, ml, mu};
  const double norm = LargestColumnSum(columns, band);
  Dgbfa(abd, lda, n, ml, mu, ipvt);
  return EstimateCondition(columns, band, ipvt, norm, z);
}

int Linpack::Dgbfa(double * abd, int lda, int n, int ml, int mu, int * ipvt) {
  const BandColumns<double> columns = Columns(abd, lda, ml, mu);
  const Band band{n, ml, mu};
  ZeroFillIn(columns, band);
  return Eliminate(columns, band, ipvt);
}

void Linpack::Dgbsl(const double * abd, int lda, int n, int ml, int mu, const int * ipvt,
                    double * b, int job) {
  const BandColumns<const double> columns = Columns(abd, lda, ml, mu);
  const Band band{n, ml, mu};
  if (job == 0) {
    SolveEliminated(columns, band, ipvt, b);
  } else {
    SolveEliminatedTransposed(columns, band, ipvt, b);
  }
}

void Linpack::Dgbdi(const double * abd, int lda, int n, int ml, int mu, const int * ipvt,
                    double * det) {
  EliminatedDeterminant(Columns(abd, lda, ml, mu), n, ipvt, det);
}

}  // namespace QVMath_940
