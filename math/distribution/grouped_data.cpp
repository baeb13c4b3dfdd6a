/// Percentiles of grouped data and the confidence interval of a median.

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "QVDistFun.h"
#include "math/distribution/special_functions.h"

namespace QVMath_940 {

namespace {

using Numbers = std::vector<double>;

/// Stretch of the cumulative count from `before` to `after`, over the values lo to hi.
struct Segment {
  double before;
  double after;
  double lo;
  double hi;
};

double Interpolate(const Segment & segment, double target) {
  const double d = segment.after - segment.before;
  if (d == 0.0) return kFailed;
  const double f = (target - segment.before) / d;
  if (f == 0.0) return segment.lo;
  return FiniteOrFailed((1.0 - f) * segment.lo + f * segment.hi);
}

/// Each count is centred on its value.
double PercentileOfPoints(std::size_t n, const Numbers & values, const Numbers & freqs,
                          double target, long & status) {
  double counted = 0.0;
  double twoBack = 0.0;
  double before = 0.0;
  double after = 0.0;
  for (std::size_t i = 0; i < n; ++i) {
    after = counted + freqs[i] * 0.5;
    counted += freqs[i];
    if (i == 0 && after > target) {
      status = 1;
      return kFailed;
    }
    if (i + 1 == n && target > after) {
      status = 2;
      return kFailed;
    }
    if (target >= before && after > target)
      return Interpolate({before, after, i == 0 ? kFailed : values[i - 1], values[i]}, target);
    if (before == target && target == after) {
      if (i == 0) return Interpolate({before, after, values[0], values[0]}, target);
      return Interpolate({twoBack, before, i == 1 ? kFailed : values[i - 2], values[i - 1]},
                         target);
    }
    twoBack = before;
    before = after;
  }
  return target == after ? values[n - 1] : kFailed;
}

/// Each group is as wide as every other, with its value in the middle.
double PercentileOfEqualGroups(std::size_t n, const Numbers & values, const Numbers & freqs,
                               double width, double target) {
  const double half = width / 2.0;
  double before = 0.0;
  double after = 0.0;
  for (std::size_t i = 0; i < n; ++i) {
    after = before + freqs[i];
    if (target >= before && after > target)
      return Interpolate({before, after, values[i] - half, values[i] + half}, target);
    if (before == target && target == after) {
      const double previous = values[i == 0 ? 0 : i - 1];
      return Interpolate({0.0, after, previous - half, previous + half}, target);
    }
    before = after;
  }
  return target == after ? FiniteOrFailed(values[n - 1] + half) : kFailed;
}

/// The groups are classes between limits; the last one is mirrored about its first value.
double PercentileOfClasses(std::size_t n, const Numbers & values, const Numbers & freqs,
                           const Numbers & bounds, std::size_t nBounds, double target) {
  double twoBack = 0.0;
  double before = 0.0;
  double after = 0.0;
  std::size_t next = 0;  // the first value that is not counted yet
  for (std::size_t i = 0; i < nBounds; ++i) {
    const bool last = i + 1 == nBounds;
    const double lo = bounds[i];
    double hi = 0.0;
    if (last) {
      std::size_t above = 0;
      while (above < n && !(values[above] > lo))
        ++above;
      if (above == n) return kFailed;
      hi = 2.0 * values[above] - lo;
    } else {
      hi = bounds[i + 1];
    }
    for (; next < n && values[next] < hi; ++next)
      after += freqs[next];
    if (after == 0.0 && target == 0.0) return bounds[0];
    if (last && target == after) return FiniteOrFailed(hi);
    if (before == target && target == after) {
      if (i == 0) return Interpolate({before, after, lo, hi}, target);
      return Interpolate({twoBack, before, bounds[i - 1], lo}, target);
    }
    if (target >= before && after >= target) return Interpolate({before, after, lo, hi}, target);
    twoBack = before;
    before = after;
  }
  return kFailed;
}

/// True when `n` elements are there.
bool Holds(const Numbers & numbers, long n) {
  return n >= 0 && static_cast<std::size_t>(n) <= numbers.size();
}

}  // namespace

void QVDistFun::GPTile(long n, double pct, const std::vector<double> & values,
                       const std::vector<double> & freqs, const std::vector<double> & bounds,
                       long nBounds, double & result, long & status) {
  result = kFailed;
  status = -1;
  if (n < 2 || !Holds(values, n) || !Holds(freqs, n)) return;
  if (nBounds >= 1 && !Holds(bounds, nBounds)) return;
  status = 0;
  const auto count = static_cast<std::size_t>(n);
  double total = 0.0;
  for (std::size_t i = 0; i < count; ++i)
    total += freqs[i];
  const double target = total * pct / 100.0;
  if (nBounds < 1)
    result = PercentileOfPoints(count, values, freqs, target, status);
  else if (nBounds == 1)
    result = PercentileOfEqualGroups(count, values, freqs, bounds[0], target);
  else
    result = PercentileOfClasses(count, values, freqs, bounds, static_cast<std::size_t>(nBounds),
                                 target);
}

void QVDistFun::Mednci(long n, const std::vector<double> & values,
                       const std::vector<double> & freqs, double total, double confidence,
                       bool wantActual, double & lower, double & upper, double & actual) {
  lower = kFailed;
  upper = kFailed;
  actual = kFailed;
  if (n < 1 || !Holds(values, n) || !Holds(freqs, n)) return;
  if (!(total >= 2.0)) return;
  const auto count = static_cast<std::size_t>(n);

  double r = -1.0;
  if (total != 2.0) {
    long status = 0;
    r = IdfBin(0.5 - confidence / 200.0, total, 0.5, status);
    if (status != 0) return;
  }
  if (r < 0.0) {
    lower = values[0];
    upper = values[count - 1];
    actual = 100.0;
    return;
  }

  double r1 = r + 1.0;
  if (total > r1) {
    double reached = 0.0;
    for (std::size_t i = 0; i < count; ++i) {
      reached += freqs[i];
      if (reached >= r1) {
        lower = values[i];
        break;
      }
    }
  } else {
    r1 = total;
    lower = values[count - 1];
  }

  double r2 = total - r;
  if (r2 > 1.0) {
    double left = total;
    for (std::size_t i = count; i-- > 0;) {
      left -= freqs[i];
      if (left < r2) {
        upper = values[i];
        break;
      }
    }
  } else {
    r2 = 1.0;
    upper = values[0];
  }

  if (!wantActual) return;
  long status = 0;
  const double c = cdfbet(0.5, r1, r2, status);
  if (status == 0) actual = std::max((c - 0.5) * 200.0, 0.0);
}

}  // namespace QVMath_940
