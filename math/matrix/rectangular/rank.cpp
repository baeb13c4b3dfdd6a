// Dependent rows and columns by a Cholesky factor of the cross-products, and estimability.
#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "QVBitSet.h"
#include "QVRectMatrix.h"
#include "QVSymMatrix.h"
#include "math/matrix/sums.h"

namespace QVMath_940 {

namespace {

std::size_t At(int i) {
  return static_cast<std::size_t>(i);
}

}  // namespace

/// `products` = R R-transpose (`rows` true) or R-transpose R.
bool QVRectMatrix::ComputeCrossProducts(bool rows, QVSymMatrix & products) const {
  if (!IsValidMatrix()) return false;
  return rows ? products.ComputeRByRTrans(*this) : products.ComputeRTransByR(*this);
}

int QVRectMatrix::FindNonRedunIndices(double tol, std::vector<int> & idx, bool rows) const {
  QVSymMatrix products;
  if (tol < 0.0 || !ComputeCrossProducts(rows, products)) return -1;
  return products.CholIndNonRed(0, tol, idx);
}

int QVRectMatrix::FindRedundancies(double tol, QVBitSet & kept, bool rows) const {
  QVSymMatrix products;
  if (tol < 0.0 || !ComputeCrossProducts(rows, products)) return -1;
  std::vector<double> squaredLengths;
  products.GetDiagonal(squaredLengths);
  return products.LTChol(squaredLengths, tol * tol, kept, false);
}

int QVRectMatrix::ExtractFullRank(double tol, QVRectMatrix & out, std::vector<int> & idx,
                                  bool rows) const {
  const int rank = FindNonRedunIndices(tol, idx, rows);
  if (rank < 0) return -1;
  const int extracted = rows ? ExtractRows(idx, out) : ExtractColumns(idx, out);
  return extracted < 0 ? -1 : rank;
}

int QVRectMatrix::CheckAddColRedundancies(const QVRectMatrix & added, double tol,
                                          QVBitSet & kept) const {
  if (tol < 0.0 || !IsValidMatrix() || added.fNRows != fNRows) return -1;
  QVRectMatrix joined(fNRows, fNCols + added.fNCols, true);
  if (!joined.IsValidMatrix()) return -1;
  for (int i = 0; i < fNRows && joined.fNCols > 0; ++i) {
    double * const row = joined.GetRowPtr(i);
    for (int j = 0; j < fNCols; ++j)
      row[j] = GetElem(i, j);
    for (int j = 0; j < added.fNCols; ++j)
      row[fNCols + j] = added.GetElem(i, j);
  }
  QVBitSet keptOfAll;
  if (joined.FindRedundancies(tol, keptOfAll, false) < 0) return -1;
  kept.Resize(added.fNCols, false);
  for (int j = 0; j < added.fNCols; ++j)
    kept.Set(j, keptOfAll.IsIn(fNCols + j));
  return added.fNCols - kept.InSet();
}

bool QVRectMatrix::IsEstimable(const QVRectMatrix & h, const QVBitSet & bits, double tol) const {
  if (fNRows < 1 || fNCols < 1 || !(tol > 0.0) || bits.Size() < fNCols) return false;
  if (h.fNRows != fNCols || h.fNCols < fNCols) return false;
  std::vector<double> chosen(At(fNCols));  // r with 0.0 in the columns that are left out
  for (int e = 0; e < fNRows; ++e) {
    const double length = RowNorm(e);
    if (length == 0.0) continue;
    const double * const r = GetRowPtr(e);
    for (int j = 0; j < fNCols; ++j)
      chosen[At(j)] = bits.IsIn(j) ? r[j] : 0.0;
    double sum = 0.0;
    for (int i = 0; i < fNCols; ++i) {
      const double image = SumOfProducts(fNCols, h.GetRowPtr(i), chosen.data());
      const double difference = image / length - r[i] / length;
      sum += difference * difference;
    }
    if (sum > tol * tol) return false;
  }
  return true;
}

bool QVRectMatrix::IsERowMultipleOfAnother(int r1, int r2, double rhs1, double rhs2,
                                           double & ratio) const {
  if (fNCols < 1 || !IsRow(r1) || !IsRow(r2)) return false;
  const double * const a = GetRowPtr(r1);
  const double * const b = GetRowPtr(r2);
  double m1 = std::abs(rhs1);
  double m2 = std::abs(rhs2);
  for (int j = 0; j < fNCols; ++j) {
    m1 = std::max(m1, std::abs(a[j]));
    m2 = std::max(m2, std::abs(b[j]));
  }
  if (m1 == 0.0 || m2 == 0.0) return false;

  int j = 0;
  while (j < fNCols && a[j] == 0.0 && b[j] == 0.0)
    ++j;
  const double first = j < fNCols ? a[j] : rhs1;
  const double second = j < fNCols ? b[j] : rhs2;
  if (first == 0.0 || second == 0.0) return false;
  const double factor = first / second;

  const auto differs = [&](double x, double y) {
    return std::abs(x - factor * y) / m1 > std::numeric_limits<double>::epsilon();
  };
  for (j = 0; j < fNCols; ++j)
    if (differs(a[j], b[j])) return false;
  if (differs(rhs1, rhs2)) return false;
  ratio = factor;
  return true;
}

}  // namespace QVMath_940
