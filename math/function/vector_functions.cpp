// Whole vectors, packed triangles, sorted search and single numbers.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

#include "QVMV.h"
#include "QVMathFun.h"

namespace QVMath_940 {

using QVCommon_940::QVMV;

namespace {

using Index = std::ptrdiff_t;
using Vector = std::vector<double>;

constexpr double kEpsilon = std::numeric_limits<double>::epsilon();

/// Position of row i in a packed lower triangle; of i = n, the number of its elements.
Index PackedRow(Index i) {
  return i * (i + 1) / 2;
}

Index Size(const Vector & v) {
  return static_cast<Index>(v.size());
}

template <typename T>
int InsertionPlace(const std::vector<T> & v, int lo, int hi, double x, bool after) {
  constexpr int kOutside = -1;
  constexpr int kBadRange = -2;
  const auto at = [&v](int i) { return static_cast<double>(v[static_cast<std::size_t>(i)]); };

  if (lo < 0 || lo > hi || static_cast<std::size_t>(hi) >= v.size()) return kBadRange;
  if (x > at(hi) || (after && x == at(hi))) return kOutside;
  if (lo > 0 && (x < at(lo - 1) || (!after && x == at(lo - 1)))) return kOutside;
  if (lo == hi) return lo;

  int left = lo;
  int right = hi - 1;
  int mid = left;
  while (left <= right) {
    mid = left + (right - left) / 2;
    if (at(mid) == x) return mid + (after ? 1 : 0);
    if (at(mid) > x) {
      right = mid - 1;
    } else {
      left = mid + 1;
    }
  }
  return at(mid) > x ? mid : mid + 1;
}

template <typename Counts>
void TwoLargest(const Vector & v, double & first, double & second, Counts counts) {
  double largest = QVMV::Missing();
  double next = QVMV::Missing();
  int found = 0;
  for (const double x : v) {
    if (std::isnan(x) || !counts(x)) continue;
    if (found == 0 || x > largest) {
      if (found > 0) next = largest;
      largest = x;
    } else if (found == 1 || x > next) {
      next = x;
    }
    found = std::min(found + 1, 2);
  }
  first = largest;
  second = next;
}

}  // namespace

int QVMathFun::BinSearch(const std::vector<double> & v, int lo, int hi, double x, bool after) {
  return InsertionPlace(v, lo, hi, x, after);
}

int QVMathFun::BinSearch(const std::vector<int> & v, int lo, int hi, double x, bool after) {
  return InsertionPlace(v, lo, hi, x, after);
}

void QVMathFun::LTGltl(int n, Vector & t) {
  if (n < 1 || Size(t) < PackedRow(n)) return;
  // Row k adds L(k, i) L(k, j) to every element above it, which no longer need L's own rows; its
  // own elements start with that same term. So each sum runs over k in order.
  for (Index k = 0; k < n; ++k) {
    double * const row = t.data() + PackedRow(k);
    for (Index i = 0; i < k; ++i) {
      double * const target = t.data() + PackedRow(i);
      const double factor = row[i];
      for (Index j = 0; j <= i; ++j)
        target[j] += factor * row[j];
    }
    const double diagonal = row[k];
    for (Index j = 0; j <= k; ++j)
      row[j] *= diagonal;
  }
}

double QVMathFun::RVD(const Vector & t, int n, int row, const Vector & d, int inc) {
  if (n < 1 || row < 0 || row >= n || Size(t) < PackedRow(n)) return QVMV::Missing();
  const Index last = (static_cast<Index>(n) - 1) * inc;
  if (d.empty() || last < 0 || last >= Size(d)) return QVMV::Missing();
  double sum = 0.0;
  const double * element = t.data() + PackedRow(row);
  for (Index j = 0; j < n; ++j) {
    sum += *element * d.data()[j * inc];
    element += j < row ? 1 : j + 1;
  }
  return sum;
}

double QVMathFun::VSV(const Vector & v, int n, const Vector & s) {
  if (n < 1 || Size(v) < n || Size(s) < PackedRow(n)) return 0.0;
  double sum = 0.0;
  for (Index i = 0; i < n; ++i) {
    const double * const row = s.data() + PackedRow(i);
    double below = 0.0;
    for (Index j = 0; j < i; ++j)
      below += row[j] * v.data()[j];
    const double vi = v.data()[i];
    sum += vi * (2.0 * below + row[i] * vi);
  }
  return sum;
}

void QVMathFun::FindTwoLargest(const Vector & v, double & first, double & second) {
  TwoLargest(v, first, second, [](double) { return true; });
}

void QVMathFun::FindTwoLargestNonMiss(const Vector & v, double & first, double & second) {
  TwoLargest(v, first, second, [](double x) { return !QVMV::IsMissing(x); });
}

void QVMathFun::LRZero(Vector & v, int from, int to) {
  const Index first = std::max(from, 0);
  const Index end = std::min(static_cast<Index>(to) + 1, Size(v));
  for (Index k = first; k < end; ++k)
    v.data()[k] = 0.0;
}

double QVMathFun::VMaxRelDiff(const Vector & a, const Vector & b, double eps) {
  constexpr double kDefaultFloor = 1e-6;
  const double floor = eps == 0.0 ? kDefaultFloor : std::fabs(eps);
  double largest = 0.0;
  for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i) {
    const double difference = std::fabs(a[i] - b[i]) / (std::fabs(b[i]) + floor);
    if (difference > largest) largest = difference;
  }
  return largest;
}

double QVMathFun::VNrm1Diff(const Vector & a, const Vector & b) {
  double sum = 0.0;
  for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i)
    sum += std::fabs(a[i] - b[i]);
  return sum;
}

bool QVMathFun::IsValidDouble(double x) {
  constexpr double kLargest = std::numeric_limits<double>::max();
  return x >= -kLargest && x <= kLargest;
}

bool QVMathFun::QLReps(double x, double scale) {
  return scale > 0.0 && std::fabs(x) < scale * kEpsilon;
}

double QVMathFun::ReplaceIfSmall(double x, double floor) {
  if (!(std::fabs(x) < floor)) return x;
  return x < 0.0 ? -floor : floor;
}

}  // namespace QVMath_940
