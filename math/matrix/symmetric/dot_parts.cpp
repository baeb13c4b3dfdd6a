// Dot products of parts of a row or column of L, or of the symmetric matrix, with vectors that lie
// along a packed triangle. Every sum runs in ascending order of its index.
#include <algorithm>
#include <cstdint>
#include <vector>

#include "QVSymMatrix.h"
#include "math/matrix/symmetric/packed_rows.h"

namespace QVMath_940 {

namespace {

using kernels::ConstRows;

std::size_t At(int i) {
  return static_cast<std::size_t>(i);
}

// Column j of a factor of any class from its diagonal element down.
std::vector<double> CopyColumn(const IQVSymMatrix & l, int j) {
  std::vector<double> column;
  for (int k = j; k < l.GetNRows(); ++k) {
    column.push_back(l.GetElem(k, j));
  }
  return column;
}

// v-transpose L for the values of a walk.
void MultiplyByBlock(const PackedView & l, ConstRows v, std::vector<double> & out) {
  std::vector<double> product(At(l.n), 0.0);
  for (int i = 0; i < l.n; ++i) {
    AddWalk(l.isFused, i + 1, *v.start, Along(l.Row(i)), product.data());
    v = Behind(v, 1);
  }
  out.swap(product);
}

// A walk that goes on by 1 for `delay` steps and grows from `stride` on behind them.
struct DelayedWalk {
  ConstRows first;
  int firstCount;
  ConstRows second;
};
DelayedWalk Delay(const double * v, int delay, int stride, int count) {
  const int firstCount = delay < count - 1 ? delay + 1 : count;
  const double * const last = v + std::max(firstCount - 1, 0);
  const bool hasSecond = firstCount < count;
  return {Along(v), firstCount, {hasSecond ? last + stride : last, std::ptrdiff_t{stride} + 1, 1}};
}

}  // namespace

// --- Rows and columns of L ----------------------------------------------------------------------

bool QVSymMatrix::IsPartOfColumn(int j, int start, int count) const {
  return IsRow(j) && start >= j && IsPart(start, count);
}

bool QVSymMatrix::ComputeDotLRowVecPart(int i, int start, int count, const std::vector<double> & v,
                                        double & result) const {
  if (!IsRow(i) || !IsPart(start, count) || start + count > i + 1 || v.size() < At(count)) {
    return false;
  }
  const PackedView l = ViewOf(*this);
  result = DotWalks(l.isFused, count, Along(l.Row(i) + start), Along(v.data()), 0.0);
  return true;
}

bool QVSymMatrix::ComputeDotLColVecPart(int j, int start, int count, const std::vector<double> & v,
                                        double & result) const {
  if (!IsPartOfColumn(j, start, count) || v.size() < At(count)) return false;
  const PackedView l = ViewOf(*this);
  result = DotWalks(l.isFused, count, l.Column(start, j), Along(v.data()), 0.0);
  return true;
}

bool QVSymMatrix::ComputeDotLColVecIIncrPart(int j, int start, int count, const double * v,
                                             int stride, double & result) const {
  if (!IsPartOfColumn(j, start, count) || v == nullptr) return false;
  const PackedView l = ViewOf(*this);
  result = DotWalks(l.isFused, count, l.Column(start, j), {v, stride, 1}, 0.0);
  return true;
}

bool QVSymMatrix::ComputeDotLColVecIIncrDiag(int j, const double * v, int stride,
                                             double & result) const {
  return IsRow(j) && ComputeDotLColVecIIncrPart(j, j, fNRows - j, v, stride, result);
}

bool QVSymMatrix::DotLColVecDelayedIIncrPart(int j, int start, int count, const double * v,
                                             int delay, int stride, double & result) const {
  if (!IsPartOfColumn(j, start, count) || v == nullptr || delay < 0) return false;
  const PackedView l = ViewOf(*this);
  const DelayedWalk walk = Delay(v, delay, stride, count);
  const ConstRows column = l.Column(start, j);
  const double sum = DotWalks(l.isFused, walk.firstCount, column, walk.first, 0.0);
  result = DotWalks(l.isFused, count - walk.firstCount, Behind(column, walk.firstCount),
                    walk.second, sum);
  return true;
}

bool QVSymMatrix::DotLColRowPart(int j, int i, int start, int count, double & result) const {
  if (!IsPartOfColumn(j, start, count) || !IsRow(i) || start + count > i + 1) return false;
  const PackedView l = ViewOf(*this);
  result = DotWalks(l.isFused, count, l.Column(start, j), Along(l.Row(i) + start), 0.0);
  return true;
}

bool QVSymMatrix::DotProductLColRowPart(int j, const QVSymMatrix & s, int i, int start, int count,
                                        double & result) const {
  if (!IsPartOfColumn(j, start, count) || !s.IsRow(i) || !s.IsPart(start, count)) return false;
  const PackedView l = ViewOf(*this);
  PackedView other = ViewOf(s);
  other.isFused = l.isFused;
  result = DotRow(other, i, start, start + count, l.Column(start, j));
  return true;
}

// --- Rows and columns of the symmetric matrix ---------------------------------------------------

bool QVSymMatrix::ComputeDotColVecIIncrPart(int j, int start, int count, const double * v,
                                            int stride, double & result) const {
  if (!IsRow(j) || !IsPart(start, count) || v == nullptr) return false;
  result = DotRow(ViewOf(*this), j, start, start + count, {v, stride, 1});
  return true;
}

bool QVSymMatrix::DotRowVecDelayedIIncrPart(int i, int start, int count, const double * v,
                                            int delay, int stride, double & result) const {
  if (!IsRow(i) || !IsPart(start, count) || v == nullptr || delay < 0) return false;
  const PackedView s = ViewOf(*this);
  const DelayedWalk walk = Delay(v, delay, stride, count);
  const double sum = DotRow(s, i, start, start + walk.firstCount, walk.first);
  result = DotRow(s, i, start + walk.firstCount, start + count, walk.second, sum);
  return true;
}

bool QVSymMatrix::DotProductLBlockColRow(const IQVSymMatrix & l, int j, int i, int start,
                                         double & result) const {
  const int order = l.GetNRows();
  if (!IsRow(i) || j < 0 || j >= order || !IsPart(start, order)) return false;
  const std::vector<double> column = CopyColumn(l, j);
  result = DotRow(ViewOf(*this), i, start + j, start + order, Along(column.data()));
  return true;
}

bool QVSymMatrix::DotProductLBlockDiagColRow(const IQVSymMatrix & l, int j, int i,
                                             double & result) const {
  const int order = l.GetNRows();
  if (!IsRow(i) || !IsRow(j) || order < 1 || fNRows % order != 0) return false;
  return DotProductLBlockColRow(l, j % order, i, j - j % order, result);
}

// --- A vector times a block of L ----------------------------------------------------------------

bool QVSymMatrix::ComputeVecPartByL(const std::vector<double> & v, int start, int count,
                                    std::vector<double> & out) const {
  if (!IsPart(start, count) || v.size() < At(count)) return false;
  MultiplyByBlock(ViewOf(*this).Block(start, count), Along(v.data()), out);
  return true;
}

bool QVSymMatrix::ComputeVecIIncPartByL(const double * v, int stride, int start, int count,
                                        std::vector<double> & out) const {
  if (!IsPart(start, count) || v == nullptr) return false;
  MultiplyByBlock(ViewOf(*this).Block(start, count), {v, stride, 1}, out);
  return true;
}

}  // namespace QVMath_940
