// LINPACK's general matrices: DGECO, DGEFA, DGESL, DGEDI.
#include "Blas1.h"
#include "Linpack.h"
#include "math/kernels/linpack/columns.h"
#include "math/kernels/linpack/elimination.h"
#include "math/kernels/linpack/triangular_inverse.h"

namespace QVMath_940 {

using namespace linpack;

double Linpack::Dgeco(double * a, int lda, int n, int * ipvt, double * z) {
  if (n < 1) return 0.0;
  const FullColumns<double> columns{a, lda};
  const Band band = FullBand(n);
  const double norm = LargestColumnSum(columns, band);
  Eliminate(columns, band, ipvt);
  return EstimateCondition(columns, band, ipvt, norm, z);
}

int Linpack::Dgefa(double * a, int lda, int n, int * ipvt) {
  return Eliminate(FullColumns<double>{a, lda}, FullBand(n), ipvt);
}

void Linpack::Dgesl(const double * a, int lda, int n, const int * ipvt, double * b, int job) {
  const FullColumns<const double> columns{a, lda};
  if (job == 0) {
    SolveEliminated(columns, FullBand(n), ipvt, b);
  } else {
    SolveEliminatedTransposed(columns, FullBand(n), ipvt, b);
  }
}

void Linpack::Dgedi(double * a, int lda, int n, const int * ipvt, double * det, double * work,
                    int job) {
  const FullColumns<double> columns{a, lda};
  if (job / 10 != 0) EliminatedDeterminant(columns, n, ipvt, det);
  if (job % 10 == 0) return;

  InvertUpperTriangle(columns, n);
  // inverse(U) times inverse(L), then the columns back into their places.
  for (int k = n - 2; k >= 0; --k) {
    for (int i = k + 1; i < n; ++i) {
      work[i] = columns[k][i];
      columns[k][i] = 0.0;
    }
    for (int j = k + 1; j < n; ++j)
      Blas1::Daxpy(n, work[j], columns[j], 1, columns[k], 1);
    const int l = ipvt[k] - 1;
    if (l != k) Blas1::DSwap(n, columns[k], 1, columns[l], 1);
  }
}

}  // namespace QVMath_940
