// Products of a dense symmetric matrix, or of a factor that it holds, with vectors.
#include <algorithm>
#include <cmath>
#include <vector>

#include "QVSymMatrix.h"
#include "math/matrix/symmetric/packed_rows.h"
#include "math/matrix/symmetric/sparse_entries.h"

namespace QVMath_940 {

namespace {

std::size_t At(int i) {
  return static_cast<std::size_t>(i);
}

using Multiply = void (*)(const PackedView &, const double *, double *);

// out = the product with v, where out may be v.
bool MultiplyInto(Multiply multiply, const PackedView & s, const std::vector<double> & v,
                  std::vector<double> & out) {
  if (s.n < 0 || v.size() != At(s.n)) return false;
  if (&v == &out) {
    std::vector<double> product(v.size());
    multiply(s, v.data(), product.data());
    out.swap(product);
  } else {
    out.resize(v.size());
    multiply(s, v.data(), out.data());
  }
  return true;
}

// The same for a sparse v: addColumn(row, value, product) adds what one entry contributes.
template <typename AddColumn>
bool MultiplySparseInto(const PackedView & s, const std::vector<int> & rows,
                        const std::vector<double> & v, std::vector<double> & out,
                        AddColumn addColumn) {
  if (!AreEntries(rows, v, s.n)) return false;
  std::vector<double> product(At(s.n), 0.0);
  for (std::size_t p = 0; p < v.size(); ++p) {
    addColumn(rows[p], v[p], product.data());
  }
  out.swap(product);
  return true;
}

}  // namespace

// --- S v ----------------------------------------------------------------------------------------

bool QVSymMatrix::ComputeSV(const std::vector<double> & v, std::vector<double> & out) const {
  return MultiplyInto(MultiplySymmetric, ViewOf(*this), v, out);
}

bool QVSymMatrix::ComputeSV(int k, const std::vector<double> & v, std::vector<double> & out) const {
  if (k < 0 || k > fNRows || v.size() < At(k)) return false;
  if (out.size() < At(k)) out.resize(At(k));
  if (&v == &out) {
    const std::vector<double> copy(v.begin(), v.begin() + k);
    MultiplySymmetric(ViewOf(*this).Leading(k), copy.data(), out.data());
  } else {
    MultiplySymmetric(ViewOf(*this).Leading(k), v.data(), out.data());
  }
  return true;
}

bool QVSymMatrix::ComputeSV(const std::vector<int> & rows, const std::vector<double> & v,
                            std::vector<double> & out) const {
  const PackedView s = ViewOf(*this);
  return MultiplySparseInto(s, rows, v, out, [&s](int row, double value, double * product) {
    AddWalk(s.isFused, row + 1, value, Along(s.Row(row)), product);
    if (row + 1 < s.n) {
      AddWalk(s.isFused, s.n - row - 1, value, s.Column(row + 1, row), product + row + 1);
    }
  });
}

// --- L v, L-transpose v -------------------------------------------------------------------------

bool QVSymMatrix::ComputeLV(const std::vector<double> & v, std::vector<double> & out) const {
  return MultiplyInto(MultiplyLower, ViewOf(*this), v, out);
}

bool QVSymMatrix::ComputeLV(const std::vector<int> & rows, const std::vector<double> & v,
                            std::vector<double> & out) const {
  const PackedView l = ViewOf(*this);
  return MultiplySparseInto(l, rows, v, out, [&l](int row, double value, double * product) {
    AddWalk(l.isFused, l.n - row, value, l.Column(row, row), product + row);
  });
}

bool QVSymMatrix::ComputeLTransV(const std::vector<double> & v, std::vector<double> & out) const {
  return MultiplyInto(MultiplyLowerTransposed, ViewOf(*this), v, out);
}

bool QVSymMatrix::ComputeLTransV(const std::vector<int> & rows, const std::vector<double> & v,
                                 std::vector<double> & out) const {
  const PackedView l = ViewOf(*this);
  return MultiplySparseInto(l, rows, v, out, [&l](int row, double value, double * product) {
    AddWalk(l.isFused, row + 1, value, Along(l.Row(row)), product);
  });
}

// --- One row ------------------------------------------------------------------------------------

double QVSymMatrix::ComputeRVD(int i, const double * v, int stride) const {
  if (!IsRow(i) || v == nullptr) return 0.0;
  return DotRow(ViewOf(*this), i, 0, fNRows, {v, stride, 0});
}

double QVSymMatrix::ComputeRVD(int i, const std::vector<double> & v, int stride) const {
  if (!IsRow(i) || stride < 0 || v.size() <= At(fNRows - 1) * At(stride)) return 0.0;
  return ComputeRVD(i, v.data(), stride);
}

double QVSymMatrix::ComputeRVD(int i, const int * rows, const double * v, int count) const {
  if (!IsRow(i) || count < 1 || rows == nullptr || v == nullptr) return 0.0;
  if (!std::all_of(rows, rows + count, [this](int row) { return IsRow(row); })) return 0.0;
  const PackedView s = ViewOf(*this);
  double sum = 0.0;
  for (int p = 0; p < count; ++p) {
    sum = AddProduct(s.isFused, s.Elem(i, rows[p]), v[p], sum);
  }
  return sum;
}

}  // namespace QVMath_940
