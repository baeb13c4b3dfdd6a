// Solving with a symmetric matrix that may be indefinite and singular.
//
// J. R. Bunch, L. Kaufman, "Some stable methods for calculating inertia and solving symmetric
// linear systems", Mathematics of Computation 31 (1977), 163-179; LINPACK's DSPCO and DSPSL.
#include <vector>

#include "Linpack.h"
#include "QVBitSet.h"
#include "QVSymMatrix.h"

namespace QVMath_940 {

namespace {

std::size_t At(int i) {
  return static_cast<std::size_t>(i);
}

// Rounding in a pivot square of S-transpose S is worth twice that of S.
constexpr double kToleranceOfSquares = 2.0;

// True when a diagonal block of the factor is singular, so that the substitution would divide by
// zero. A negative entry of `pivots` marks the two rows of a block of order 2.
bool HasSingularBlock(const QVSymMatrix & factor, const std::vector<int> & pivots) {
  for (int k = factor.GetNRows() - 1; k >= 0; --k) {
    if (pivots[At(k)] >= 0) {
      if (factor.GetElem(k, k) == 0.0) return true;
      continue;
    }
    --k;  // the block of rows k and k + 1
    const double off = factor.GetElem(k + 1, k);
    if (off == 0.0) return true;
    if ((factor.GetElem(k + 1, k + 1) / off) * (factor.GetElem(k, k) / off) - 1.0 == 0.0)
      return true;
  }
  return false;
}

// Solves S x = b for a matrix whose rows are independent; the factor takes its place. LINPACK's
// upper triangle packed by columns is the lower one packed by rows.
bool SolveInPlace(QVSymMatrix & s, std::vector<double> & x) {
  const int n = s.GetNRows();
  std::vector<int> pivots(At(n));
  std::vector<double> work(At(n));
  double * const elements = s.AsVector().data();
  const double condition = Linpack::Dspco(elements, n, pivots.data(), work.data());
  if (!(condition > 0.0) || HasSingularBlock(s, pivots)) return false;
  Linpack::Dspsl(elements, n, pivots.data(), x.data());
  return true;
}

// The independent rows of a symmetric matrix, found on its square.
std::vector<int> IndependentRows(const QVSymMatrix & s, double tol) {
  std::vector<int> rows;
  QVSymMatrix square;
  s.ComputeSTransS(square);
  square.CholIndNonRed(0, kToleranceOfSquares * tol, rows);
  return rows;
}

std::vector<double> Gather(const std::vector<double> & b, const std::vector<int> & rows) {
  std::vector<double> part;
  for (const int row : rows)
    part.push_back(b[At(row)]);
  return part;
}

}  // namespace

/// Solves with the rows and columns listed, or with those of them that are independent.
bool QVSymMatrix::SolveIndependentRows(const std::vector<int> & rows, double tol,
                                       const std::vector<double> & b,
                                       std::vector<double> & x) const {
  if (rows.empty()) return false;
  QVSymMatrix part;
  if (static_cast<int>(rows.size()) == fNRows) {
    part = *this;
    std::vector<double> solution(b.begin(), b.begin() + fNRows);
    if (!part.IsValidMatrix() || !SolveInPlace(part, solution)) return false;
    x = std::move(solution);
    return true;
  }
  if (!ExtractSubmatrix(rows, part)) return false;
  std::vector<int> kept = rows;
  const std::vector<int> ofPart = IndependentRows(part, tol);
  if (ofPart.empty()) return false;
  if (ofPart.size() < rows.size()) {
    kept.clear();
    for (const int k : ofPart)
      kept.push_back(rows[At(k)]);
    if (!ExtractSubmatrix(kept, part)) return false;
  }
  std::vector<double> solution = Gather(b, kept);
  if (!SolveInPlace(part, solution)) return false;
  x.assign(At(fNRows), 0.0);
  for (std::size_t k = 0; k < kept.size(); ++k)
    x[At(kept[k])] = solution[k];
  return true;
}

bool QVSymMatrix::SolveIndefinite(double tol, const std::vector<double> & b,
                                  std::vector<double> & x) const {
  if (fNRows < 1 || tol < 0.0 || b.size() < At(fNRows)) return false;
  return SolveIndependentRows(IndependentRows(*this, tol), tol, b, x);
}

bool QVSymMatrix::SolveIndefinite(const QVBitSet & rows, const std::vector<double> & b,
                                  std::vector<double> & x) const {
  if (fNRows < 1 || rows.Size() < fNRows || b.size() < At(fNRows)) return false;
  std::vector<int> chosen;
  for (int i = 0; i < fNRows; ++i)
    if (rows.IsIn(i)) chosen.push_back(i);
  return SolveIndependentRows(chosen, 0.0, b, x);
}

bool QVSymMatrix::SolveIndefiniteGI(double tol, const std::vector<double> & b,
                                    std::vector<double> & x) const {
  if (fNRows < 1 || tol < 0.0 || b.size() < At(fNRows)) return false;
  QVSymMatrix square;
  ComputeSTransS(square);
  std::vector<double> sb;
  if (!ComputeSV(std::vector<double>(b.begin(), b.begin() + fNRows), sb)) return false;
  const int deficiency = square.LTSolve(sb, tol, x);
  return deficiency >= 0 && deficiency < fNRows;
}

}  // namespace QVMath_940
