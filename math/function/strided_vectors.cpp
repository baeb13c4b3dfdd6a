// Loops over strided parts of vectors, and over columns of packed triangles.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "QVMathFun.h"

namespace QVMath_940 {
namespace {

using Index = std::ptrdiff_t;
using Vector = std::vector<double>;

bool IsInside(const Vector & v, Index position) {
  return position >= 0 && position < static_cast<Index>(v.size());
}

/// True when the n >= 1 places off, off + inc, ... all lie in v.
bool HoldsWalk(const Vector & v, Index n, Index off, Index inc) {
  return IsInside(v, off) && IsInside(v, off + (n - 1) * inc);
}

/// How far step k of a walk with first stride inc, which grows by 1, lies from the start.
Index GrowingDistance(Index k, Index inc) {
  return k * inc + k * (k - 1) / 2;
}

/// True when the n >= 1 places of a walk with growing stride all lie in v. The walk runs down while
/// its stride is negative and up from then on, so that its lowest place is where the stride is 0.
bool HoldsGrowingWalk(const Vector & v, Index n, Index off, Index inc) {
  const Index lowest = std::clamp<Index>(-inc, 0, n - 1);
  return IsInside(v, off) && IsInside(v, off + GrowingDistance(lowest, inc)) &&
         IsInside(v, off + GrowingDistance(n - 1, inc));
}

/// True when a walk that runs upwards only, with n >= 1 places, has somewhere to go.
bool HoldsUpwardWalk(const Vector & v, Index n, Index off, Index inc) {
  return (n == 1 || inc >= 1) && HoldsWalk(v, n, off, inc);
}

}  // namespace

double QVMathFun::DASum(int n, const Vector & v, int inc, int off) {
  if (n < 1 || v.empty()) return 0.0;
  Index position = off;
  if (inc < 0) position -= (static_cast<Index>(n) - 1) * inc;
  double sum = 0.0;
  for (int k = 0; k < n; ++k, position += inc) {
    if (IsInside(v, position)) sum += std::fabs(v[static_cast<std::size_t>(position)]);
  }
  return sum;
}

void QVMathFun::Daxpy(int n, double a, const Vector & x, int offX, int incX, Vector & y, int offY,
                      int incY) {
  if (n < 1 || !HoldsWalk(x, n, offX, incX) || !HoldsWalk(y, n, offY, incY)) return;
  const double * const xFirst = x.data() + offX;
  double * const yFirst = y.data() + offY;
  if (incX == 1 && incY == 1) {
    for (Index k = 0; k < n; ++k)
      yFirst[k] += a * xFirst[k];
    return;
  }
  for (Index k = 0; k < n; ++k)
    yFirst[k * incY] += a * xFirst[k * incX];
}

double QVMathFun::DDot(int n, const Vector & x, int offX, int incX, const Vector & y, int offY,
                       int incY) {
  if (n < 1 || !HoldsWalk(x, n, offX, incX) || !HoldsWalk(y, n, offY, incY)) return 0.0;
  const double * const xFirst = x.data() + offX;
  const double * const yFirst = y.data() + offY;
  double sum = 0.0;
  if (incX == 1 && incY == 1) {
    for (Index k = 0; k < n; ++k)
      sum += xFirst[k] * yFirst[k];
    return sum;
  }
  for (Index k = 0; k < n; ++k)
    sum += xFirst[k * incX] * yFirst[k * incY];
  return sum;
}

void QVMathFun::DLoad(int n, double a, Vector & v, int off, int inc) {
  if (n < 1 || !HoldsUpwardWalk(v, n, off, inc)) return;
  double * const first = v.data() + off;
  for (Index k = 0; k < n; ++k)
    first[k * inc] = a;
}

double QVMathFun::DNrm2(int n, const Vector & v, int off, int inc) {
  if (n < 1 || !HoldsUpwardWalk(v, n, off, inc)) return 0.0;
  const double * const first = v.data() + off;
  if (n == 1) return std::fabs(*first);
  // The norm so far is scale * sqrt(ssq).
  double scale = 0.0;
  double ssq = 1.0;
  for (Index k = 0; k < n; ++k) {
    const double a = std::fabs(first[k * inc]);
    if (a == 0.0) continue;
    if (a > scale) {
      const double ratio = scale / a;
      ssq = 1.0 + ssq * (ratio * ratio);
      scale = a;
    } else {
      const double ratio = a / scale;
      ssq += ratio * ratio;
    }
  }
  return scale * std::sqrt(ssq);
}

void QVMathFun::DScal(int n, double a, Vector & v, int off, int inc) {
  if (n < 1 || a == 1.0 || !HoldsUpwardWalk(v, n, off, inc)) return;
  double * const first = v.data() + off;
  if (inc == 1) {
    for (Index k = 0; k < n; ++k)
      first[k] *= a;
    return;
  }
  for (Index k = 0; k < n; ++k)
    first[k * inc] *= a;
}

double QVMathFun::DSum(int n, const Vector & v, int inc) {
  if (n < 1 || inc == 0 || !HoldsUpwardWalk(v, n, 0, inc)) return 0.0;
  double sum = 0.0;
  for (Index k = 0; k < n; ++k)
    sum += v.data()[k * inc];
  return sum;
}

void QVMathFun::IIAxpy(int n, double a, const Vector & x, int offX, int incX, Vector & y, int offY,
                       int incY) {
  if (n < 1 || !HoldsGrowingWalk(x, n, offX, incX) || !HoldsGrowingWalk(y, n, offY, incY)) return;
  Index xPlace = offX;
  Index yPlace = offY;
  for (Index k = 0; k < n; ++k) {
    y.data()[yPlace] += a * x.data()[xPlace];
    xPlace += incX + k;
    yPlace += incY + k;
  }
}

double QVMathFun::IIDot(int n, const Vector & x, int offX, int incX, const Vector & y, int offY,
                        int incY) {
  if (n < 1 || !HoldsGrowingWalk(x, n, offX, incX) || !HoldsGrowingWalk(y, n, offY, incY)) {
    return 0.0;
  }
  Index xPlace = offX;
  Index yPlace = offY;
  double sum = 0.0;
  for (Index k = 0; k < n; ++k) {
    sum += x.data()[xPlace] * y.data()[yPlace];
    xPlace += incX + k;
    yPlace += incY + k;
  }
  return sum;
}

void QVMathFun::IIInit(int n, double a, Vector & v, int off, int inc) {
  if (n < 1 || !HoldsGrowingWalk(v, n, off, inc)) return;
  Index place = off;
  for (Index k = 0; k < n; ++k) {
    v.data()[place] = a;
    place += inc + k;
  }
}

void QVMathFun::IIScal(int n, double a, Vector & v, int off, int inc) {
  if (n < 1 || !HoldsGrowingWalk(v, n, off, inc)) return;
  Index place = off;
  for (Index k = 0; k < n; ++k) {
    v.data()[place] *= a;
    place += inc + k;
  }
}

}  // namespace QVMath_940
