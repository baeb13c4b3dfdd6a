#include "math/matrix/structured/block_sym_products.h"

#include <algorithm>

namespace QVMath_940 {

namespace {

std::size_t At(int i) {
  return static_cast<std::size_t>(i);
}

}  // namespace

// --- Products that leave a dense matrix ---------------------------------------------------------

void MultiplyGSG(const DiagonalBlocks & s, const PackedView & g, double * out) {
  std::vector<double> row(At(g.n)), y(At(g.n)), z(At(g.n));
  for (int i = 0; i < g.n; ++i) {
    CopySymmetricRow(g, i, 0, g.n, row.data());
    MultiplySV(s, row.data(), y.data());
    MultiplySymmetric(g, y.data(), z.data());
    out = std::copy_n(z.begin(), i + 1, out);
  }
}

void MultiplyLSLTrans(const DiagonalBlocks & s, const PackedView & l, double * out) {
  std::vector<double> row(At(l.n)), y(At(l.n)), z(At(l.n));
  for (int i = 0; i < l.n; ++i) {
    std::copy_n(l.Row(i), i + 1, row.begin());  // behind the diagonal it is 0.0
    MultiplySV(s, row.data(), y.data());
    MultiplyLower(l.Leading(i + 1), y.data(), z.data());
    out = std::copy_n(z.begin(), i + 1, out);
  }
}

void MultiplyLTransSL(const DiagonalBlocks & s, const PackedView & l, double * out) {
  std::vector<double> column(At(l.n)), y(At(l.n));
  for (int i = 0; i < l.n; ++i) {
    std::fill_n(column.begin(), i, 0.0);
    for (int k = i; k < l.n; ++k)
      column[At(k)] = l.Row(k)[i];
    MultiplySV(s, column.data(), y.data());
    for (int k = 0; k < l.n; ++k)
      AddWalk(l.isFused, std::min(k, i) + 1, y[At(k)], Along(l.Row(k)), out);
    out += i + 1;
  }
}

void MultiplyMSN(const DiagonalBlocks & s, const PackedView & m, const PackedView & n,
                 double * out) {
  std::vector<double> row(At(m.n)), y(At(m.n)), z(At(m.n));
  for (int i = 0; i < m.n; ++i) {
    CopySymmetricRow(m, i, 0, m.n, row.data());
    MultiplySV(s, row.data(), y.data());
    MultiplySymmetric(n, y.data(), z.data());
    std::copy_n(z.begin(), i + 1, out);
    CopySymmetricRow(n, i, 0, m.n, row.data());
    MultiplySV(s, row.data(), y.data());
    MultiplySymmetric(m, y.data(), z.data());
    for (int j = 0; j <= i; ++j)
      out[j] += z[At(j)];
    out += i + 1;
  }
}

namespace {

// What stands on the two sides of W: S itself, L, or L-transpose.
enum class Side { Symmetric, Lower, LowerTransposed };

// The rows k of W that row i of A W needs, all inside i's block.
template <Side kSide>
int FirstNeeded(const DiagonalBlock & a, int i) {
  return kSide == Side::LowerTransposed ? i : a.FirstInRow(i);
}
template <Side kSide>
int EndNeeded(const DiagonalBlock & a, int i) {
  return kSide == Side::Lower ? i + 1 : a.EndOfRow(i);
}

// Element i of A y: the sum over the needed places k of A_ik y_k.
template <Side kSide>
double DotSide(const DiagonalBlock & a, bool isFused, int i, const double * y) {
  const int r = i - a.start;
  if (a.isDiagonal) return a.elements[r] * y[i];
  const PackedView view{a.elements, a.size, isFused};
  if constexpr (kSide == Side::Symmetric) {
    return DotRow(view, r, 0, a.size, Along(y + a.start));
  } else if constexpr (kSide == Side::Lower) {
    return DotWalks(isFused, r + 1, Along(view.Row(r)), Along(y + a.start), 0.0);
  } else {
    return DotWalks(isFused, a.size - r, view.Column(r, r), Along(y + i), 0.0);
  }
}

// out = A W A-transpose, some rows of it at a time: row i of T = A W from the rows of W that it
// needs, then its products with the rows of A. Element (i, j) of the triangle is the sum over k of
// T_ik A_jk for a symmetric A and of A_ik T_jk for a triangular one, as the dense products have it.
template <Side kSide>
void MultiplyAround(const DiagonalBlocks & a, const PackedView & w, double * out) {
  constexpr int kRowsAtATime = 16;
  std::vector<double> row(At(w.n));
  std::vector<double> product(At(kRowsAtATime) * At(w.n));
  for (int b = 0; b < a.Count(); ++b) {
    const DiagonalBlock block = a[b];
    for (int first = block.start; first < block.End(); first += kRowsAtATime) {
      const int last = std::min(first + kRowsAtATime, block.End()) - 1;
      std::fill(product.begin(), product.end(), 0.0);
      for (int k = FirstNeeded<kSide>(block, first); k < EndNeeded<kSide>(block, last); ++k) {
        CopySymmetricRow(w, k, 0, w.n, row.data());
        for (int i = first; i <= last; ++i)
          if (k >= FirstNeeded<kSide>(block, i) && k < EndNeeded<kSide>(block, i))
            AddWalk(w.isFused, w.n, block.Elem(i, k), Along(row.data()),
                    product.data() + At(i - first) * At(w.n));
      }
      for (int i = first; i <= last; ++i) {
        const double * const y = product.data() + At(i - first) * At(w.n);
        if constexpr (kSide == Side::Symmetric) {
          for (int j = 0; j <= i; ++j)
            out[QVSymMatrix::PackedPosition(i, j)] = DotSide<kSide>(a.OfRow(j), w.isFused, j, y);
        } else {
          for (int j = i; j < w.n; ++j)
            out[QVSymMatrix::PackedPosition(j, i)] = DotSide<kSide>(a.OfRow(j), w.isFused, j, y);
        }
      }
    }
  }
}

}  // namespace

void MultiplySWS(const DiagonalBlocks & s, const PackedView & w, double * out) {
  MultiplyAround<Side::Symmetric>(s, w, out);
}

void MultiplyLWLTrans(const DiagonalBlocks & l, const PackedView & w, double * out) {
  MultiplyAround<Side::Lower>(l, w, out);
}

void MultiplyLTransWL(const DiagonalBlocks & l, const PackedView & w, double * out) {
  MultiplyAround<Side::LowerTransposed>(l, w, out);
}

// --- Numbers ------------------------------------------------------------------------------------

double DotRows(const DiagonalBlocks & s, int i, const DiagonalBlocks & t, int j) {
  const DiagonalBlock si = s.OfRow(i);
  const DiagonalBlock tj = t.OfRow(j);
  // The columns that both rows store.
  int from = std::max(si.start, tj.start);
  int to = std::min(si.End(), tj.End());
  if (si.isDiagonal) {
    from = std::max(from, i);
    to = std::min(to, i + 1);
  }
  if (tj.isDiagonal) {
    from = std::max(from, j);
    to = std::min(to, j + 1);
  }
  double sum = 0.0;
  for (int k = from; k < to; ++k)
    sum += si.Elem(i, k) * tj.Elem(j, k);
  return sum;
}

double TraceOfBlocks(const DiagonalBlocks & s, const DiagonalBlocks & t) {
  if (s.NRows() < 1 || t.NRows() != s.NRows()) return 0.0;
  double trace = 0.0;
  for (int i = 0; i < s.NRows(); ++i)
    trace += DotRows(s, i, t, i);
  return trace;
}

double TraceOfBlocks(const DiagonalBlocks & s, const DiagonalBlocks & a, const DiagonalBlocks & b) {
  if (s.NRows() < 1 || a.NRows() != s.NRows() || b.NRows() != s.NRows()) return 0.0;
  double trace = 0.0;
  for (int i = 0; i < s.NRows(); ++i) {
    const DiagonalBlock block = s.OfRow(i);
    const int from = block.isDiagonal ? i : block.start;
    const int to = block.isDiagonal ? i + 1 : block.End();
    for (int k = from; k < to; ++k)
      trace += block.Elem(i, k) * DotRows(a, k, b, i);
  }
  return trace;
}

double SandwichElement(const DiagonalBlocks & s, const PackedView & v, int r, int c) {
  const DiagonalBlock left = s.OfRow(r);
  const DiagonalBlock right = s.OfRow(c);
  double form = 0.0;
  for (int i = right.start; i < std::min(right.End(), v.n); ++i) {
    const double factor = right.Elem(i, c);
    if (right.isDiagonal && i != c) continue;
    double sum = 0.0;
    for (int k = left.start; k < std::min(left.End(), v.n); ++k)
      if (!left.isDiagonal || k == r) sum += left.Elem(r, k) * v.Elem(i, k);
    form += factor * sum;
  }
  return form;
}

double LeadingForm(const DiagonalBlocks & s, const double * v, int nv, const double * w, int nw) {
  double form = 0.0;
  for (int i = 0; i < nw; ++i) {
    const DiagonalBlock block = s.OfRow(i);
    if (block.isDiagonal) {
      if (i < nv) form += w[i] * (block.Elem(i, i) * v[i]);
    } else {
      form += w[i] * DotRowOf(block, i, block.start, nv, v);
    }
  }
  return form;
}

}  // namespace QVMath_940
