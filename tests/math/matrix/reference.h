/// Naive full matrices, the oracle of the matrix tests: every element stored, every sum written out
/// and carried in long double. Nothing here uses the library's arithmetic.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <utility>
#include <vector>

#include "QVRectMatrix.h"
#include "QVSymMatrix.h"

namespace reference {

/// The orders that matrix operations are tried at: nothing, the small cases, odd sizes, one past a
/// power of two. `OrdersWithBlocks` goes past the orders at which blocked kernels take over.
inline const std::vector<int> & Orders() {
  static const std::vector<int> orders = {0, 1, 2, 3, 7, 33, 129};
  return orders;
}
inline const std::vector<int> & OrdersWithBlocks() {
  static const std::vector<int> orders = {0, 1, 2, 3, 7, 33, 64, 65, 129, 300};
  return orders;
}

inline std::size_t At(int index) {
  return static_cast<std::size_t>(index);
}

class Full {
 public:
  Full() = default;
  Full(int rows, int cols) : fRows(rows), fCols(cols), fElements(At(rows) * At(cols), 0.0L) {}

  int Rows() const { return fRows; }
  int Cols() const { return fCols; }
  long double & operator()(int i, int j) { return fElements[At(i) * At(fCols) + At(j)]; }
  long double operator()(int i, int j) const { return fElements[At(i) * At(fCols) + At(j)]; }

 private:
  int fRows = 0;
  int fCols = 0;
  std::vector<long double> fElements;
};

// --- From and to the library's matrices
// -----------------------------------------------------------

inline Full FromSym(const QVMath_940::IQVSymMatrix & s) {
  const int n = s.GetNRows();
  Full full(n, n);
  for (int i = 0; i < n; ++i)
    for (int j = 0; j < n; ++j)
      full(i, j) = s.GetElem(i, j);
  return full;
}

/// The lower triangle alone: what a matrix object that holds a factor L stands for.
inline Full FromLower(const QVMath_940::IQVSymMatrix & l) {
  Full full = FromSym(l);
  for (int i = 0; i < full.Rows(); ++i)
    for (int j = i + 1; j < full.Cols(); ++j)
      full(i, j) = 0.0L;
  return full;
}

inline Full FromRect(const QVMath_940::IQVRectMatrix & r) {
  Full full(r.GetNRows(), r.GetNCols());
  for (int i = 0; i < full.Rows(); ++i)
    for (int j = 0; j < full.Cols(); ++j)
      full(i, j) = r.GetElem(i, j);
  return full;
}

/// A column.
inline Full FromVector(const std::vector<double> & v) {
  Full full(static_cast<int>(v.size()), 1);
  for (int i = 0; i < full.Rows(); ++i)
    full(i, 0) = v[At(i)];
  return full;
}

/// A symmetric matrix from the lower triangle of `full`.
inline QVMath_940::QVSymMatrix ToSym(const Full & full) {
  QVMath_940::QVSymMatrix s(full.Rows(), true);
  for (int i = 0; i < full.Rows(); ++i)
    for (int j = 0; j <= i; ++j)
      s.SetElem(i, j, static_cast<double>(full(i, j)));
  return s;
}

inline QVMath_940::QVRectMatrix ToRect(const Full & full) {
  QVMath_940::QVRectMatrix r(full.Rows(), full.Cols(), true);
  for (int i = 0; i < full.Rows(); ++i)
    for (int j = 0; j < full.Cols(); ++j)
      r.SetElem(i, j, static_cast<double>(full(i, j)));
  return r;
}

/// A symmetric matrix from its rows up to the diagonal: Sym({{4}, {2, 3}}).
inline QVMath_940::QVSymMatrix Sym(const std::vector<std::vector<double>> & rows) {
  QVMath_940::QVSymMatrix s(static_cast<int>(rows.size()), true);
  for (int i = 0; i < s.GetNRows(); ++i)
    for (int j = 0; j <= i; ++j)
      s.SetElem(i, j, rows[At(i)][At(j)]);
  return s;
}

/// A rectangular matrix from its rows.
inline QVMath_940::QVRectMatrix Rect(const std::vector<std::vector<double>> & rows) {
  const int cols = rows.empty() ? 0 : static_cast<int>(rows.front().size());
  QVMath_940::QVRectMatrix r(static_cast<int>(rows.size()), cols, true);
  for (int i = 0; i < r.GetNRows(); ++i)
    for (int j = 0; j < cols; ++j)
      r.SetElem(i, j, rows[At(i)][At(j)]);
  return r;
}

// --- Algebra
// --------------------------------------------------------------------------------------

inline Full Identity(int n) {
  Full full(n, n);
  for (int i = 0; i < n; ++i)
    full(i, i) = 1.0L;
  return full;
}

inline Full Transpose(const Full & a) {
  Full t(a.Cols(), a.Rows());
  for (int i = 0; i < a.Rows(); ++i)
    for (int j = 0; j < a.Cols(); ++j)
      t(j, i) = a(i, j);
  return t;
}

inline Full Multiply(const Full & a, const Full & b) {
  Full c(a.Rows(), b.Cols());
  for (int i = 0; i < a.Rows(); ++i)
    for (int k = 0; k < a.Cols(); ++k)
      for (int j = 0; j < b.Cols(); ++j)
        c(i, j) += a(i, k) * b(k, j);
  return c;
}

/// a + factor b.
inline Full Add(const Full & a, const Full & b, long double factor = 1.0L) {
  Full c = a;
  for (int i = 0; i < a.Rows(); ++i)
    for (int j = 0; j < a.Cols(); ++j)
      c(i, j) += factor * b(i, j);
  return c;
}

/// The listed rows and columns.
inline Full Part(const Full & a, const std::vector<int> & rows, const std::vector<int> & cols) {
  Full part(static_cast<int>(rows.size()), static_cast<int>(cols.size()));
  for (int i = 0; i < part.Rows(); ++i)
    for (int j = 0; j < part.Cols(); ++j)
      part(i, j) = a(rows[At(i)], cols[At(j)]);
  return part;
}

/// Gauss-Jordan with row exchanges, for a matrix that is not singular.
inline Full Inverse(Full a) {
  const int n = a.Rows();
  Full inverse = Identity(n);
  for (int k = 0; k < n; ++k) {
    int best = k;
    for (int i = k + 1; i < n; ++i)
      if (std::abs(a(i, k)) > std::abs(a(best, k))) best = i;
    for (int j = 0; j < n; ++j) {
      std::swap(a(k, j), a(best, j));
      std::swap(inverse(k, j), inverse(best, j));
    }
    const long double pivot = a(k, k);
    for (int j = 0; j < n; ++j) {
      a(k, j) /= pivot;
      inverse(k, j) /= pivot;
    }
    for (int i = 0; i < n; ++i) {
      if (i == k) continue;
      const long double factor = a(i, k);
      for (int j = 0; j < n; ++j) {
        a(i, j) -= factor * a(k, j);
        inverse(i, j) -= factor * inverse(k, j);
      }
    }
  }
  return inverse;
}

// --- Distances
// ------------------------------------------------------------------------------------

/// Largest sum of absolute values along a row.
inline double Norm(const Full & a) {
  long double norm = 0.0L;
  for (int i = 0; i < a.Rows(); ++i) {
    long double sum = 0.0L;
    for (int j = 0; j < a.Cols(); ++j)
      sum += std::abs(a(i, j));
    norm = std::max(norm, sum);
  }
  return static_cast<double>(norm);
}

/// Largest absolute difference of two elements; infinity when the shapes differ or one difference
/// is no number.
inline double MaxDifference(const Full & a, const Full & b) {
  if (a.Rows() != b.Rows() || a.Cols() != b.Cols()) return std::numeric_limits<double>::infinity();
  long double max = 0.0L;
  for (int i = 0; i < a.Rows(); ++i)
    for (int j = 0; j < a.Cols(); ++j) {
      const long double difference = std::abs(a(i, j) - b(i, j));
      if (!(difference <= std::numeric_limits<long double>::max()))
        return std::numeric_limits<double>::infinity();
      max = std::max(max, difference);
    }
  return static_cast<double>(max);
}

/// The residual as LAPACK's testers scale it: |got - wanted| / (n |wanted| epsilon). Sound results
/// stay below 30.
inline double ScaledResidual(const Full & got, const Full & wanted) {
  const int n = std::max(1, std::max(wanted.Rows(), wanted.Cols()));
  if (got.Rows() != wanted.Rows() || got.Cols() != wanted.Cols())
    return std::numeric_limits<double>::infinity();
  const double scale = n * Norm(wanted) * std::numeric_limits<double>::epsilon();
  const double difference = Norm(Add(got, wanted, -1.0L));
  if (difference == 0.0) return 0.0;
  return scale > 0.0 ? difference / scale : std::numeric_limits<double>::infinity();
}
constexpr double kResidualBound = 30.0;

/// True when the two vectors hold the same bits, NaN and the signs of zeros included.
inline bool SameBits(const std::vector<double> & a, const std::vector<double> & b) {
  return a.size() == b.size() &&
         (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(double)) == 0);
}

// --- Test matrices
// --------------------------------------------------------------------------------

/// A small reproducible generator (the multiplier of Knuth's MMIX), the same on every platform.
class Random {
 public:
  explicit Random(std::uint64_t seed) : fState(seed * 2654435761u + 1) {}

  /// Uniform in [-1, 1).
  double Next() {
    fState = fState * 6364136223846793005u + 1442695040888963407u;
    return static_cast<double>(fState >> 11) * 0x1p-52 - 1.0;
  }

 private:
  std::uint64_t fState;
};

inline std::vector<double> RandomVector(int n, std::uint64_t seed) {
  Random random(seed);
  std::vector<double> v(At(n));
  for (double & x : v)
    x = random.Next();
  return v;
}

inline QVMath_940::QVRectMatrix RandomRect(int rows, int cols, std::uint64_t seed) {
  Random random(seed);
  QVMath_940::QVRectMatrix r(rows, cols, true);
  for (int i = 0; i < rows; ++i)
    for (int j = 0; j < cols; ++j)
      r.SetElem(i, j, random.Next());
  return r;
}

/// Symmetric, indefinite.
inline QVMath_940::QVSymMatrix RandomSym(int n, std::uint64_t seed) {
  Random random(seed);
  QVMath_940::QVSymMatrix s(n, true);
  for (int i = 0; i < n; ++i)
    for (int j = 0; j <= i; ++j)
      s.SetElem(i, j, random.Next());
  return s;
}

/// Positive definite and well conditioned: cross-products of 2n random rows, over n.
inline QVMath_940::QVSymMatrix RandomPositive(int n, std::uint64_t seed) {
  const Full x = FromRect(RandomRect(2 * n, n, seed));
  Full s = Multiply(Transpose(x), x);
  for (int i = 0; i < n; ++i)
    for (int j = 0; j < n; ++j)
      s(i, j) /= n;
  return ToSym(s);
}

}  // namespace reference
