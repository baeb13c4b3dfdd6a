// Level 1 BLAS: Lawson, Hanson, Kincaid and Krogh (1979), algorithm 539.
#include <cmath>
#include <cstddef>
#include <utility>

#include "Blas1.h"

namespace QVMath_940 {
namespace {

using Index = std::ptrdiff_t;

/// Where a walk of n elements starts: a negative stride starts at the far end.
Index Start(int n, int inc) {
  return inc < 0 ? (1 - static_cast<Index>(n)) * inc : 0;
}

}  // namespace

double Blas1::DASum(int n, const double * x, int incx) {
  if (n < 1 || incx < 1) return 0.0;
  double sum = 0.0;
  for (Index i = 0; i < n; ++i)
    sum += std::fabs(x[i * incx]);
  return sum;
}

void Blas1::Daxpy(int n, double a, const double * x, int incx, double * y, int incy) {
  if (n < 1 || a == 0.0) return;
  if (incx == 1 && incy == 1) {
    for (Index i = 0; i < n; ++i)
      y[i] += a * x[i];
    return;
  }
  Index ix = Start(n, incx);
  Index iy = Start(n, incy);
  for (int i = 0; i < n; ++i, ix += incx, iy += incy)
    y[iy] += a * x[ix];
}

void Blas1::DCopy(int n, const double * x, int incx, double * y, int incy) {
  if (n < 1) return;
  if (incx == 1 && incy == 1) {
    for (Index i = 0; i < n; ++i)
      y[i] = x[i];
    return;
  }
  Index ix = Start(n, incx);
  Index iy = Start(n, incy);
  for (int i = 0; i < n; ++i, ix += incx, iy += incy)
    y[iy] = x[ix];
}

double Blas1::DDot(int n, const double * x, int incx, const double * y, int incy) {
  if (n < 1) return 0.0;
  double sum = 0.0;
  if (incx == 1 && incy == 1) {
    for (Index i = 0; i < n; ++i)
      sum += x[i] * y[i];
    return sum;
  }
  Index ix = Start(n, incx);
  Index iy = Start(n, incy);
  for (int i = 0; i < n; ++i, ix += incx, iy += incy)
    sum += x[ix] * y[iy];
  return sum;
}

double Blas1::DNrm2(int n, const double * x, int incx) {
  if (n < 1 || incx < 1) return 0.0;
  if (n == 1) return std::fabs(x[0]);
  // The norm so far is scale * sqrt(ssq).
  double scale = 0.0;
  double ssq = 1.0;
  for (Index i = 0; i < n; ++i) {
    const double a = std::fabs(x[i * incx]);
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

void Blas1::DRot(int n, double * x, int incx, double * y, int incy, double c, double s) {
  if (n < 1) return;
  Index ix = Start(n, incx);
  Index iy = Start(n, incy);
  for (int i = 0; i < n; ++i, ix += incx, iy += incy) {
    const double turned = c * x[ix] + s * y[iy];
    y[iy] = c * y[iy] - s * x[ix];
    x[ix] = turned;
  }
}

void Blas1::DRotG(double * a, double * b, double * c, double * s) {
  const double roe = std::fabs(*a) > std::fabs(*b) ? *a : *b;
  const double scale = std::fabs(*a) + std::fabs(*b);
  if (scale == 0.0) {
    *c = 1.0;
    *s = 0.0;
    *a = 0.0;
    *b = 0.0;
    return;
  }
  const double aScaled = *a / scale;
  const double bScaled = *b / scale;
  const double r = D_Sign(1.0, roe) * (scale * std::sqrt(aScaled * aScaled + bScaled * bScaled));
  const double cosine = *a / r;
  const double sine = *b / r;
  double z = 1.0;
  if (std::fabs(*a) > std::fabs(*b)) {
    z = sine;
  } else if (cosine != 0.0) {
    z = 1.0 / cosine;
  }
  *a = r;
  *b = z;
  *c = cosine;
  *s = sine;
}

void Blas1::DScal(int n, double a, double * x, int incx) {
  if (n < 1 || incx < 1) return;
  if (incx == 1) {
    for (Index i = 0; i < n; ++i)
      x[i] *= a;
    return;
  }
  for (Index i = 0; i < n; ++i)
    x[i * incx] *= a;
}

void Blas1::DSwap(int n, double * x, int incx, double * y, int incy) {
  if (n < 1) return;
  Index ix = Start(n, incx);
  Index iy = Start(n, incy);
  for (int i = 0; i < n; ++i, ix += incx, iy += incy)
    std::swap(x[ix], y[iy]);
}

int Blas1::IDAMax(int n, const double * x, int incx) {
  if (n < 1 || incx < 1) return 0;
  int largest = 0;
  double magnitude = std::fabs(x[0]);
  for (int i = 1; i < n; ++i) {
    const double a = std::fabs(x[static_cast<Index>(i) * incx]);
    if (a > magnitude) {
      largest = i;
      magnitude = a;
    }
  }
  return largest + 1;
}

bool Blas1::LSame(char a, char b) {
  const auto lower = [](char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
  };
  return lower(a) == lower(b);
}

double Blas1::D_Abs(double x) {
  return std::fabs(x);
}

double Blas1::D_Max(double a, double b) {
  return a >= b ? a : b;
}

double Blas1::D_Sign(double a, double b) {
  return b >= 0.0 ? std::fabs(a) : -std::fabs(a);
}

int Blas1::I_Max(int a, int b) {
  return a >= b ? a : b;
}

int Blas1::I_Min(int a, int b) {
  return a <= b ? a : b;
}

}  // namespace QVMath_940
