#include "math/matrix/symmetric/packed_rows.h"

namespace QVMath_940 {

using kernels::ConstRows;

double DotWalks(bool isFused, int count, ConstRows x, ConstRows y, double sum) {
  if (isFused) return kernels::Kernels().dotWalkFused(static_cast<std::size_t>(count), x, y, sum);
  for (int j = 0; j < count; ++j) {
    sum += *x.start * *y.start;
    x = Behind(x, 1);
    y = Behind(y, 1);
  }
  return sum;
}

void AddWalk(bool isFused, int count, double factor, ConstRows x, double * y) {
  if (isFused) {
    const std::size_t size = static_cast<std::size_t>(count);
    if (x.step == 1 && x.grow == 0) {
      kernels::Kernels().axpyFused(size, factor, x.start, y);
    } else {
      kernels::Kernels().axpyWalkFused(size, factor, x, y);
    }
    return;
  }
  for (int j = 0; j < count; ++j) {
    y[j] += factor * *x.start;
    x = Behind(x, 1);
  }
}

double DotRow(const PackedView & s, int i, int from, int to, ConstRows v, double sum) {
  if (from <= i && from < to) {
    const int count = std::min(to, i + 1) - from;
    sum = DotWalks(s.isFused, count, s.RowFrom(i, from), v, sum);
    v = Behind(v, count);
    from += count;
  }
  return from < to ? DotWalks(s.isFused, to - from, s.Column(from, i), v, sum) : sum;
}

double DotTwoRows(const PackedView & s, int i, const PackedView & t, int j, int from, int to) {
  double sum = 0.0;
  while (from < to) {
    int end = to;
    if (from <= i) end = std::min(end, i + 1);
    if (from <= j) end = std::min(end, j + 1);
    sum = DotWalks(s.isFused, end - from, s.RowFrom(i, from), t.RowFrom(j, from), sum);
    from = end;
  }
  return sum;
}

void MultiplySymmetric(const PackedView & s, const double * v, double * y) {
  if (s.isFused && s.first == 0) {
    kernels::Kernels().symmetricProductFused(s.n, s.a, v, y);
    return;
  }
  for (int i = 0; i < s.n; ++i) {
    const double * const row = s.Row(i);
    y[i] = DotWalks(s.isFused, i + 1, Along(row), Along(v), 0.0);
    AddWalk(s.isFused, i, v[i], Along(row), y);
  }
}

void MultiplyLower(const PackedView & l, const double * v, double * y) {
  if (l.isFused && l.first == 0) {
    kernels::Kernels().lowerProductFused(l.n, l.a, v, y);
    return;
  }
  for (int i = 0; i < l.n; ++i) {
    y[i] = DotWalks(l.isFused, i + 1, Along(l.Row(i)), Along(v), 0.0);
  }
}

void MultiplyLowerTransposed(const PackedView & l, const double * v, double * y) {
  if (l.isFused && l.first == 0) {
    kernels::Kernels().lowerTransposedProductFused(l.n, l.a, v, y);
    return;
  }
  for (int i = 0; i < l.n; ++i) {
    y[i] = 0.0;
    AddWalk(l.isFused, i + 1, v[i], Along(l.Row(i)), y);
  }
}

void CopySymmetricRow(const PackedView & s, int i, int from, int to, double * row) {
  for (int k = from; k < to; ++k) {
    row[k] = s.Elem(i, k);
  }
}

}  // namespace QVMath_940
