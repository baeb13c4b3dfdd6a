// Linear equations and projections with the rectangular matrix.
#include <vector>

#include "Linpack.h"
#include "QVRectMatrix.h"
#include "QVSymMatrix.h"

namespace QVMath_940 {

namespace {

std::size_t At(int i) {
  return static_cast<std::size_t>(i);
}

}  // namespace

bool QVRectMatrix::SolveLinearSquare(const std::vector<double> & b, std::vector<double> & x,
                                     double tol) const {
  if (fNRows < 1 || fNRows != fNCols || tol < 0.0 || b.size() < At(fNRows)) return false;
  // Row after row here is column after column of the transpose for LINPACK, which solves with a
  // transpose as well.
  constexpr int kSolveWithTranspose = 1;
  std::vector<double> factor(fElements);
  std::vector<int> pivots(At(fNRows));
  std::vector<double> work(At(fNRows));
  const double condition =
      Linpack::Dgeco(factor.data(), fNRows, fNRows, pivots.data(), work.data());
  if (!(condition > tol)) return false;
  std::vector<double> solution(b.begin(), b.begin() + fNRows);
  Linpack::Dgesl(factor.data(), fNRows, fNRows, pivots.data(), solution.data(),
                 kSolveWithTranspose);
  x = std::move(solution);
  return true;
}

int QVRectMatrix::EstimateLinearGI(const std::vector<double> & b, std::vector<double> & x,
                                   double tol) const {
  if (fNRows < 1 || fNCols < 1 || !(tol > 0.0) || b.size() < At(fNRows)) return -1;
  if (SolveLinearSquare(b, x, tol)) return 0;
  QVSymMatrix products;
  std::vector<double> w;
  if (!ComputeCrossProducts(false, products)) return -1;
  if (!QVRectMatrix::ComputeVR(std::vector<double>(b.begin(), b.begin() + fNRows), w)) return -1;
  return products.LTSolve(w, tol, x);
}

int QVRectMatrix::ResidOfOrthProjection(const std::vector<double> & v, double tol,
                                        std::vector<double> & resid) const {
  if (fNRows < 1 || fNCols < 1 || !(tol > 0.0) || v.size() != At(fNRows)) return -1;
  QVSymMatrix products;
  std::vector<double> coefficients;
  std::vector<double> projection;
  if (!ComputeCrossProducts(false, products)) return -1;
  QVRectMatrix::ComputeVR(v, coefficients);
  const int dependent = products.LTSolve(coefficients, tol, coefficients);
  if (dependent < 0) return -1;
  QVRectMatrix::ComputeRV(coefficients, projection);
  for (std::size_t i = 0; i < projection.size(); ++i)
    projection[i] = v[i] - projection[i];
  resid = std::move(projection);
  return dependent;
}

}  // namespace QVMath_940
