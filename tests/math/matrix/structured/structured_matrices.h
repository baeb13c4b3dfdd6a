/// Random structured matrices of every class, and what their tests share.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "QVDiagMatrix.h"
#include "QVSparseRectMatrix.h"
#include "QVSparseVector.h"
#include "QVSymBlockDiagMatrix.h"
#include "math/matrix/reference.h"

namespace structured {

using reference::At;
using reference::Full;

/// What stands behind an `IQVSymMatrix` in a test.
enum class Kind { Dense, Diagonal, MixedBlocks, DenseBlocks, DiagonalBlocks, OneBlock };

inline const std::vector<Kind> & Kinds() {
  static const std::vector<Kind> kinds = {Kind::Dense,          Kind::Diagonal,
                                          Kind::MixedBlocks,    Kind::DenseBlocks,
                                          Kind::DiagonalBlocks, Kind::OneBlock};
  return kinds;
}

inline std::string Name(Kind kind) {
  static const char * const names[] = {"Dense",       "Diagonal",       "MixedBlocks",
                                       "DenseBlocks", "DiagonalBlocks", "OneBlock"};
  return names[static_cast<int>(kind)];
}

/// Block sizes that sum to n: 1 to 9 rows each, at random.
inline std::vector<int> RandomSizes(int n, std::uint64_t seed) {
  reference::Random random(seed);
  std::vector<int> sizes;
  while (n > 0) {
    const int size = std::min(n, 1 + static_cast<int>((random.Next() + 1.0) * 4.5));
    sizes.push_back(size);
    n -= size;
  }
  return sizes;
}

/// A matrix of the given class and order. Positive definite, every stored element other than 0.0,
/// with diagonal elements between 1 and 3.
inline std::unique_ptr<QVMath_940::IQVSymMatrix> Make(Kind kind, int n, std::uint64_t seed) {
  std::unique_ptr<QVMath_940::IQVSymMatrix> matrix;
  if (kind == Kind::Dense) {
    matrix = std::make_unique<QVMath_940::QVSymMatrix>(n, true);
  } else if (kind == Kind::Diagonal) {
    matrix = std::make_unique<QVMath_940::QVDiagMatrix>(n, true);
  } else {
    const std::vector<int> sizes = kind == Kind::OneBlock
                                       ? (n > 0 ? std::vector<int>{n} : std::vector<int>())
                                       : RandomSizes(n, seed);
    QVMath_940::QVBitSet diagonal(static_cast<int>(sizes.size()));
    for (int b = 0; b < diagonal.Size(); ++b)
      diagonal.Set(b, kind == Kind::DiagonalBlocks || (kind == Kind::MixedBlocks && b % 2 == 1));
    matrix = std::make_unique<QVMath_940::QVSymBlockDiagMatrix>(sizes, diagonal);
  }
  reference::Random random(seed + 1);
  for (int i = 0; i < n; ++i)
    for (int j = 0; j <= i; ++j) {
      const double x = random.Next();
      matrix->SetElem(i, j, i == j ? 2.0 + x : (x + (x < 0 ? -0.1 : 0.1)) / (n + 1));
    }
  return matrix;
}

/// The dense matrix with the same elements, filled by an operation of the library where it has one.
inline QVMath_940::QVSymMatrix DenseOf(const QVMath_940::IQVSymMatrix & s) {
  QVMath_940::QVSymMatrix dense;
  if (s.GetType() == QVMath_940::SymMatrixBlockDiagonal) {
    static_cast<const QVMath_940::QVSymBlockDiagMatrix &>(s).FillDenseMatrix(dense);
    return dense;
  }
  dense.SetNRows(s.GetNRows(), true);
  for (int i = 0; i < s.GetNRows(); ++i)
    for (int j = 0; j <= i; ++j)
      dense.SetElem(i, j, s.GetElem(i, j));
  return dense;
}

/// A copy of the same class.
inline std::unique_ptr<QVMath_940::IQVSymMatrix> Clone(const QVMath_940::IQVSymMatrix & s) {
  using namespace QVMath_940;
  switch (s.GetType()) {
    case SymMatrixDense:
      return std::make_unique<QVSymMatrix>(static_cast<const QVSymMatrix &>(s));
    case SymMatrixDiagonal:
      return std::make_unique<QVDiagMatrix>(static_cast<const QVDiagMatrix &>(s));
    case SymMatrixBlockDiagonal:
      break;
  }
  return std::make_unique<QVSymBlockDiagMatrix>(static_cast<const QVSymBlockDiagMatrix &>(s));
}

/// Rows of random cells: `nnz` of them in each, in random columns, values between 0.5 and 1.5.
inline QVMath_940::QVSparseRectMatrix RandomSparse(int rows, int columns, int nnz,
                                                   std::uint64_t seed) {
  reference::Random random(seed);
  QVMath_940::QVSparseRectMatrix sparse(1, columns, nnz);
  for (int i = 0; i < rows; ++i) {
    std::vector<int> free(At(columns));
    for (int j = 0; j < columns; ++j)
      free[At(j)] = j;
    std::vector<int> places;
    std::vector<double> values;
    for (int p = 0; p < nnz; ++p) {
      const std::size_t pick =
          static_cast<std::size_t>((random.Next() + 1.0) / 2.0 * static_cast<double>(free.size()));
      places.push_back(free[pick]);
      free.erase(free.begin() + static_cast<std::ptrdiff_t>(pick));
      values.push_back(1.0 + random.Next() / 2.0);
    }
    std::sort(places.begin(), places.end());
    sparse.AddRow(QVMath_940::QVSparseVector(places, values));
  }
  return sparse;
}

inline QVMath_940::QVRectMatrix DenseOf(const QVMath_940::IQVRectMatrix & r) {
  return reference::ToRect(reference::FromRect(r));
}

/// Differences beyond rounding, as LAPACK's testers scale them.
inline double Residual(const Full & got, const Full & wanted) {
  return reference::ScaledResidual(got, wanted);
}

inline Full Product(const Full & a, const Full & b) {
  return reference::Multiply(a, b);
}
inline Full Product(const Full & a, const Full & b, const Full & c) {
  return reference::Multiply(reference::Multiply(a, b), c);
}

}  // namespace structured
