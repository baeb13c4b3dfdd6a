#include "math/matrix/structured/diagonal_blocks.h"

#include <algorithm>

namespace QVMath_940 {

namespace {

// Blocks below the order of fusing: plain loops, whose sums run in index order.

void SmallSV(const double * a, int n, const double * v, double * out) {
  for (int i = 0; i < n; ++i) {
    const double vi = v[i];
    double sum = 0.0;
    for (int j = 0; j < i; ++j) {
      sum += a[j] * v[j];
      out[j] += a[j] * vi;
    }
    out[i] = sum + a[i] * vi;
    a += i + 1;
  }
}

void SmallLV(const double * a, int n, const double * v, double * out) {
  for (int i = 0; i < n; ++i) {
    double sum = 0.0;
    for (int j = 0; j <= i; ++j)
      sum += a[j] * v[j];
    out[i] = sum;
    a += i + 1;
  }
}

void SmallLTransV(const double * a, int n, const double * v, double * out) {
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j < i; ++j)
      out[j] += a[j] * v[i];
    out[i] = a[i] * v[i];
    a += i + 1;
  }
}

}  // namespace

DiagonalBlocks::DiagonalBlocks(const IQVSymMatrix & s, int copies)
    : fOrder(s.GetNRows()), fCopies(copies), fCount(1) {
  switch (s.GetType()) {
    case SymMatrixDense:
      fSingle = {0, std::max(fOrder, 0), false,
                 static_cast<const QVSymMatrix &>(s).AsVector().data()};
      break;
    case SymMatrixDiagonal:
      fSingle = {0, std::max(fOrder, 0), true,
                 static_cast<const QVDiagMatrix &>(s).AsVector().data()};
      break;
    case SymMatrixBlockDiagonal:
      fBlocks = static_cast<const QVSymBlockDiagMatrix *>(&s);
      fCount = std::max(fBlocks->fNBlocks, 0);
      break;
  }
}

void MultiplySV(const DiagonalBlock & s, const double * v, double * out) {
  v += s.start;
  out += s.start;
  if (s.isDiagonal) {
    for (int i = 0; i < s.size; ++i)
      out[i] = s.elements[i] * v[i];
  } else if (s.size < kernels::kFusedOrder) {
    SmallSV(s.elements, s.size, v, out);
  } else {
    MultiplySymmetric(s.View(), v, out);
  }
}

void MultiplyLV(const DiagonalBlock & l, const double * v, double * out) {
  v += l.start;
  out += l.start;
  if (l.isDiagonal) {
    for (int i = 0; i < l.size; ++i)
      out[i] = l.elements[i] * v[i];
  } else if (l.size < kernels::kFusedOrder) {
    SmallLV(l.elements, l.size, v, out);
  } else {
    MultiplyLower(l.View(), v, out);
  }
}

void MultiplyLTransV(const DiagonalBlock & l, const double * v, double * out) {
  v += l.start;
  out += l.start;
  if (l.isDiagonal) {
    for (int i = 0; i < l.size; ++i)
      out[i] = l.elements[i] * v[i];
  } else if (l.size < kernels::kFusedOrder) {
    SmallLTransV(l.elements, l.size, v, out);
  } else {
    MultiplyLowerTransposed(l.View(), v, out);
  }
}

void AddRowOf(const DiagonalBlock & s, int i, double w, double * out) {
  const int r = i - s.start;
  out += s.start;
  if (s.isDiagonal) {
    out[r] += w * s.elements[r];
    return;
  }
  const PackedView view = s.View();
  AddWalk(view.isFused, r + 1, w, Along(view.Row(r)), out);
  if (r + 1 < s.size) AddWalk(view.isFused, s.size - r - 1, w, view.Column(r + 1, r), out + r + 1);
}

double DotRowOf(const DiagonalBlock & s, int i, int from, int to, const double * v) {
  from = std::max(from, s.start);
  to = std::min(to, s.End());
  double sum = 0.0;
  for (int j = from; j < to; ++j)
    sum += s.Elem(i, j) * v[j];
  return sum;
}

}  // namespace QVMath_940
