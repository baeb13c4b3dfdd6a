/// Where the columns of a matrix stand: one algorithm then serves full, packed and band storage.
///
/// `a[j][i]` is element (i, j), counted from 0; consecutive elements of a column are neighbours in
/// memory. Only elements that the storage holds may be touched.
#pragma once

#include <cstddef>

namespace QVMath_940::linpack {

/// A full matrix with leading dimension `lda`.
template <typename T>
struct FullColumns {
  T * a;
  std::ptrdiff_t lda;
  T * operator[](int j) const { return a + j * lda; }
};

/// An upper triangle packed by columns.
template <typename T>
struct PackedColumns {
  T * ap;
  T * operator[](int j) const { return ap + static_cast<std::ptrdiff_t>(j) * (j + 1) / 2; }
};

/// A band matrix whose main diagonal is row `diagonal` of the array.
template <typename T>
struct BandColumns {
  T * abd;
  std::ptrdiff_t lda;
  std::ptrdiff_t diagonal;
  T * operator[](int j) const { return abd + j * (lda - 1) + diagonal; }
};

}  // namespace QVMath_940::linpack
