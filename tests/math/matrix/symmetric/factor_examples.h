/// What the tests of the Cholesky family share: matrices whose dependent rows are known, and the
/// factor by its definition.
#pragma once

#include <cmath>
#include <vector>

#include "QVBitSet.h"
#include "QVSymMatrix.h"
#include "math/matrix/reference.h"

namespace reference {

/// 1 / (i + j + 1): positive definite, and so badly conditioned that order 13 is singular to a
/// computer.
inline QVMath_940::QVSymMatrix Hilbert(int n) {
  QVMath_940::QVSymMatrix s(n, true);
  for (int i = 0; i < n; ++i)
    for (int j = 0; j <= i; ++j)
      s.SetElem(i, j, 1.0 / (i + j + 1));
  return s;
}

/// Positive definite with row and column i scaled by 10 to the power -i / 4, alternately up and
/// down.
inline QVMath_940::QVSymMatrix Graded(int n, std::uint64_t seed) {
  QVMath_940::QVSymMatrix s = RandomPositive(n, seed);
  const auto scale = [](int i) { return std::pow(10.0, i % 2 == 0 ? -i / 4 : i / 4); };
  for (int i = 0; i < n; ++i)
    for (int j = 0; j <= i; ++j)
      s.SetElem(i, j, s.GetElem(i, j) * scale(i) * scale(j));
  return s;
}

/// Cross-products X-transpose X of small whole numbers, exact in double. Column k of X, for each k
/// in `dependent`, is the sum of the two columns before it (the first of all is 0), plus `noise`
/// times a column of its own.
inline QVMath_940::QVSymMatrix WithDependentRows(int n, const std::vector<int> & dependent,
                                                 double noise = 0.0) {
  Random random(static_cast<std::uint64_t>(n) + 17);
  Full x(2 * n + 3, n);
  for (int i = 0; i < x.Rows(); ++i)
    for (int j = 0; j < n; ++j)
      x(i, j) = std::floor(8.0 * random.Next());
  for (const int k : dependent)
    for (int i = 0; i < x.Rows(); ++i)
      x(i, k) = (k > 0 ? x(i, k - 1) : 0.0L) + (k > 1 ? x(i, k - 2) : 0.0L) +
                static_cast<long double>(noise) * x(i, k);
  return ToSym(Multiply(Transpose(x), x));
}

/// Places of dependent rows at the front, in the middle, at the end, and at all of them.
inline std::vector<std::vector<int>> PlantedPlaces(int n) {
  return {{0}, {1}, {n / 2}, {n - 1}, {0, n / 2, n - 1}, {n / 2, n / 2 + 1, n / 2 + 2}};
}

inline std::vector<double> Diagonal(const QVMath_940::QVSymMatrix & s) {
  std::vector<double> diagonal;
  s.GetDiagonal(diagonal);
  return diagonal;
}

/// How far L is from a factor of A: the scaled residual over all elements (i, j), j at or below i,
/// whose row j stayed in. (The others are free: row j is a combination of earlier ones.)
inline double FactorResidual(const QVMath_940::QVSymMatrix & l, const QVMath_940::QVSymMatrix & a) {
  const Full lower = FromLower(l);
  Full product = Multiply(lower, Transpose(lower));
  const Full wanted = FromSym(a);
  for (int i = 0; i < lower.Rows(); ++i)
    for (int j = 0; j < lower.Rows(); ++j) {
      const int earlier = i < j ? i : j;
      if (l.GetElem(earlier, earlier) == 0.0) product(i, j) = wanted(i, j);
    }
  return ScaledResidual(product, wanted);
}

/// |A x - b| / (n |A| |x| epsilon), as LAPACK's testers judge a solution.
inline double SolutionResidual(const QVMath_940::QVSymMatrix & a, const std::vector<double> & x,
                               const std::vector<double> & b) {
  const Full full = FromSym(a);
  const Full residual = Add(Multiply(full, FromVector(x)), FromVector(b), -1.0L);
  const double scale =
      Norm(full) * Norm(FromVector(x)) * a.GetNRows() * std::numeric_limits<double>::epsilon();
  const double size = Norm(residual);
  return size == 0.0 ? 0.0 : size / scale;
}

/// A dense matrix that says it is none: a target or an operand of another class.
class NotDense : public QVMath_940::QVSymMatrix {
 public:
  using QVMath_940::QVSymMatrix::QVSymMatrix;
  QVMath_940::SymMatrixType GetType() const override { return QVMath_940::SymMatrixDiagonal; }
};

}  // namespace reference
