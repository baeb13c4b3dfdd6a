/// Matrices by columns, naive products and inverses in extended precision, and scaled residuals:
/// what the tests of the factorisations judge by.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <random>
#include <utility>
#include <vector>

namespace linpack_test {

inline constexpr double kEpsilon = std::numeric_limits<double>::epsilon();
inline constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// The largest scaled residual that passes, as in the testers of LAPACK.
inline constexpr double kThreshold = 30.0;

/// Orders that every form is tried at.
inline const std::vector<int> kOrders = {1, 2, 3, 7, 33, 129};

/// How much larger than the true reciprocal condition an estimate may be.
inline constexpr double kEstimateFactor = 12.0;

inline std::size_t Count(int n) {
  return static_cast<std::size_t>(std::max(n, 0));
}

class Matrix {
 public:
  Matrix() = default;
  Matrix(int rows, int cols, int padding = 0)
      : fRows(rows),
        fCols(cols),
        fLead(rows + padding),
        fValues(Count(rows + padding) * Count(cols), 0.0) {}

  int Rows() const { return fRows; }
  int Cols() const { return fCols; }
  int Lead() const { return fLead; }
  double * Data() { return fValues.data(); }
  const double * Data() const { return fValues.data(); }
  double & operator()(int i, int j) { return fValues[Place(i, j)]; }
  double operator()(int i, int j) const { return fValues[Place(i, j)]; }
  bool operator==(const Matrix & other) const { return fValues == other.fValues; }

 private:
  std::size_t Place(int i, int j) const {
    return static_cast<std::size_t>(i) + static_cast<std::size_t>(j) * Count(fLead);
  }

  int fRows = 0;
  int fCols = 0;
  int fLead = 0;
  std::vector<double> fValues;
};

class Source {
 public:
  explicit Source(unsigned seed) : fEngine(seed) {}
  double Next() { return std::uniform_real_distribution<double>(-1.0, 1.0)(fEngine); }
  std::vector<double> Vector(int n) {
    std::vector<double> v(Count(n));
    for (double & x : v)
      x = Next();
    return v;
  }
  Matrix General(int rows, int cols) {
    Matrix a(rows, cols);
    for (int j = 0; j < cols; ++j) {
      for (int i = 0; i < rows; ++i)
        a(i, j) = Next();
    }
    return a;
  }
  Matrix Symmetric(int n) {
    Matrix a = General(n, n);
    for (int j = 0; j < n; ++j) {
      for (int i = 0; i < j; ++i)
        a(j, i) = a(i, j);
    }
    return a;
  }

 private:
  std::mt19937 fEngine;
};

inline Matrix Identity(int n) {
  Matrix a(n, n);
  for (int i = 0; i < n; ++i)
    a(i, i) = 1.0;
  return a;
}

inline Matrix Transpose(const Matrix & a) {
  Matrix t(a.Cols(), a.Rows());
  for (int j = 0; j < a.Cols(); ++j) {
    for (int i = 0; i < a.Rows(); ++i)
      t(j, i) = a(i, j);
  }
  return t;
}

inline Matrix Multiply(const Matrix & a, const Matrix & b) {
  Matrix c(a.Rows(), b.Cols());
  for (int j = 0; j < b.Cols(); ++j) {
    for (int i = 0; i < a.Rows(); ++i) {
      long double sum = 0.0L;
      for (int k = 0; k < a.Cols(); ++k)
        sum += static_cast<long double>(a(i, k)) * b(k, j);
      c(i, j) = static_cast<double>(sum);
    }
  }
  return c;
}

inline std::vector<double> Multiply(const Matrix & a, const std::vector<double> & x) {
  std::vector<double> y(Count(a.Rows()));
  for (int i = 0; i < a.Rows(); ++i) {
    long double sum = 0.0L;
    for (int k = 0; k < a.Cols(); ++k) {
      sum += static_cast<long double>(a(i, k)) * x[Count(k)];
    }
    y[Count(i)] = static_cast<double>(sum);
  }
  return y;
}

inline Matrix Subtract(const Matrix & a, const Matrix & b) {
  Matrix c(a.Rows(), a.Cols());
  for (int j = 0; j < a.Cols(); ++j) {
    for (int i = 0; i < a.Rows(); ++i)
      c(i, j) = a(i, j) - b(i, j);
  }
  return c;
}

/// A positive definite matrix, S-transpose S plus a little of the identity.
inline Matrix PositiveDefinite(Source & source, int n) {
  const Matrix s = source.General(n, n);
  Matrix a = Multiply(Transpose(s), s);
  for (int i = 0; i < n; ++i)
    a(i, i) += 0.1;
  for (int j = 0; j < n; ++j) {
    for (int i = 0; i < j; ++i)
      a(j, i) = a(i, j);
  }
  return a;
}

/// The largest column sum of magnitudes.
inline double Norm1(const Matrix & a) {
  double norm = 0.0;
  for (int j = 0; j < a.Cols(); ++j) {
    double sum = 0.0;
    for (int i = 0; i < a.Rows(); ++i)
      sum += std::fabs(a(i, j));
    if (!(sum <= norm)) norm = sum;
  }
  return norm;
}

inline double Norm1(const std::vector<double> & x) {
  double sum = 0.0;
  for (const double v : x)
    sum += std::fabs(v);
  return sum;
}

/// |a - b| over n, the norm of a and epsilon.
inline double Distance(const Matrix & a, const Matrix & b) {
  const double norm = Norm1(a);
  const double difference = Norm1(Subtract(a, b));
  if (difference == 0.0) return 0.0;
  return difference / (std::max(a.Rows(), a.Cols()) * norm * kEpsilon);
}

/// |A x - b| over n, the norms of A and x, and epsilon.
inline double SolveResidual(const Matrix & a, const std::vector<double> & x,
                            const std::vector<double> & b) {
  std::vector<double> r = Multiply(a, x);
  for (std::size_t i = 0; i < r.size(); ++i)
    r[i] -= b[i];
  const double residual = Norm1(r);
  if (residual == 0.0) return 0.0;
  return residual / (a.Rows() * Norm1(a) * Norm1(x) * kEpsilon);
}

/// |A B - I| over n, the norms of both and epsilon.
inline double InverseResidual(const Matrix & a, const Matrix & b) {
  const double residual = Norm1(Subtract(Multiply(a, b), Identity(a.Rows())));
  if (residual == 0.0) return 0.0;
  return residual / (a.Rows() * Norm1(a) * Norm1(b) * kEpsilon);
}

/// |Q-transpose Q - I| over n and epsilon.
inline double OrthogonalityResidual(const Matrix & q) {
  return Norm1(Subtract(Multiply(Transpose(q), q), Identity(q.Cols()))) / (q.Rows() * kEpsilon);
}

/// Gauss-Jordan elimination with complete pivoting in extended precision.
struct Elimination {
  Matrix inverse;
  long double logDeterminant = 0.0L;  ///< of the magnitude
  int sign = 1;
};

inline Elimination Eliminate(const Matrix & a) {
  const int n = a.Rows();
  const std::size_t width = Count(2 * n);
  std::vector<std::vector<long double>> rows(Count(n), std::vector<long double>(width, 0.0L));
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j < n; ++j)
      rows[Count(i)][Count(j)] = a(i, j);
    rows[Count(i)][Count(n + i)] = 1.0L;
  }
  Elimination result;
  std::vector<int> column(Count(n));
  for (int k = 0; k < n; ++k)
    column[Count(k)] = k;
  for (int k = 0; k < n; ++k) {
    int pivotRow = k;
    int pivotCol = k;
    for (int i = k; i < n; ++i) {
      for (int j = k; j < n; ++j) {
        if (std::fabs(rows[Count(i)][Count(j)]) >
            std::fabs(rows[Count(pivotRow)][Count(pivotCol)])) {
          pivotRow = i;
          pivotCol = j;
        }
      }
    }
    if (pivotRow != k) {
      std::swap(rows[Count(pivotRow)], rows[Count(k)]);
      result.sign = -result.sign;
    }
    if (pivotCol != k) {
      for (auto & row : rows)
        std::swap(row[Count(pivotCol)], row[Count(k)]);
      std::swap(column[Count(pivotCol)], column[Count(k)]);
      result.sign = -result.sign;
    }
    const long double pivot = rows[Count(k)][Count(k)];
    if (pivot < 0.0L) result.sign = -result.sign;
    result.logDeterminant += std::log10(std::fabs(pivot));
    for (long double & x : rows[Count(k)])
      x /= pivot;
    for (int i = 0; i < n; ++i) {
      const long double factor = rows[Count(i)][Count(k)];
      if (i == k || factor == 0.0L) continue;
      for (std::size_t j = 0; j < width; ++j)
        rows[Count(i)][j] -= factor * rows[Count(k)][j];
    }
  }
  result.inverse = Matrix(n, n);
  for (int k = 0; k < n; ++k) {
    for (int j = 0; j < n; ++j) {
      result.inverse(column[Count(k)], j) = static_cast<double>(rows[Count(k)][Count(n + j)]);
    }
  }
  return result;
}

inline double TrueReciprocalCondition(const Matrix & a) {
  return 1.0 / (Norm1(a) * Norm1(Eliminate(a).inverse));
}

/// True when det[0] times 10 to the power det[1] is the determinant of a, and normalised.
inline bool IsDeterminant(const double * det, const Matrix & a, double tolerance = 1e-8) {
  const Elimination elimination = Eliminate(a);
  if (!(std::fabs(det[0]) >= 1.0 && std::fabs(det[0]) < 10.0)) return false;
  if ((det[0] < 0.0) != (elimination.sign < 0)) return false;
  const double logarithm = std::log10(std::fabs(det[0])) + det[1];
  return std::fabs(logarithm - static_cast<double>(elimination.logDeterminant)) < tolerance;
}

inline Matrix Hilbert(int n) {
  Matrix a(n, n);
  for (int j = 0; j < n; ++j) {
    for (int i = 0; i < n; ++i)
      a(i, j) = 1.0 / (i + j + 1);
  }
  return a;
}

/// A unit upper triangle whose inverse grows like 2 to the power n when the right-hand side is well
/// chosen: +1 and -1 above the diagonal, so that rows and columns change their signs at random.
inline Matrix Growing(Source & source, int n) {
  std::vector<double> left(Count(n));
  std::vector<double> right(Count(n));
  for (int i = 0; i < n; ++i) {
    left[Count(i)] = source.Next() < 0.0 ? -1.0 : 1.0;
    right[Count(i)] = source.Next() < 0.0 ? -1.0 : 1.0;
  }
  Matrix a(n, n);
  for (int j = 0; j < n; ++j) {
    for (int i = 0; i <= j; ++i)
      a(i, j) = (i == j ? 1.0 : -1.0) * left[Count(i)] * right[Count(j)];
  }
  return a;
}

/// The upper triangle packed by columns.
inline std::vector<double> PackUpper(const Matrix & a) {
  std::vector<double> packed;
  for (int j = 0; j < a.Cols(); ++j) {
    for (int i = 0; i <= j; ++i)
      packed.push_back(a(i, j));
  }
  return packed;
}

/// The upper triangle alone, zeroes below.
inline Matrix UpperTriangle(const Matrix & a) {
  Matrix r(std::min(a.Rows(), a.Cols()), a.Cols());
  for (int j = 0; j < a.Cols(); ++j) {
    for (int i = 0; i <= std::min(j, r.Rows() - 1); ++i)
      r(i, j) = a(i, j);
  }
  return r;
}

/// The symmetric matrix whose upper triangle stands in a.
inline Matrix FromUpper(const Matrix & a) {
  Matrix s(a.Cols(), a.Cols());
  for (int j = 0; j < a.Cols(); ++j) {
    for (int i = 0; i <= j; ++i)
      s(i, j) = s(j, i) = a(i, j);
  }
  return s;
}

}  // namespace linpack_test
