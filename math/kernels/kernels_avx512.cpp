// The kernels for CPUs with AVX-512 (foundation, VL and DQ); compiled for them alone.
#include <immintrin.h>

#include "math/kernels/kernel_loops.h"
#include "math/kernels/kernel_paths.h"

namespace QVMath_940::kernels {
namespace {

struct Avx512Lanes {
  using Vector = __m512d;
  static constexpr int kWidth = 8;
  static constexpr int kBlockRows = 8;
  static constexpr int kBlockVectors = 3;

  static __mmask8 First(std::size_t n) { return static_cast<__mmask8>((1u << n) - 1u); }
  static Vector Load(const double * p) { return _mm512_loadu_pd(p); }
  static Vector LoadPart(const double * p, std::size_t n) {
    return _mm512_maskz_loadu_pd(First(n), p);
  }
  static void Store(double * p, Vector v) { _mm512_storeu_pd(p, v); }
  static void StorePart(double * p, std::size_t n, Vector v) {
    _mm512_mask_storeu_pd(p, First(n), v);
  }
  static Vector Spread(double a) { return _mm512_set1_pd(a); }
  static Vector Fma(Vector a, Vector b, Vector c) { return _mm512_fmadd_pd(a, b, c); }
  static Vector FmaFirst(std::size_t n, Vector a, Vector b, Vector c) {
    return _mm512_mask3_fmadd_pd(a, b, c, First(n));
  }
  static Vector FmaBehind(std::size_t n, Vector a, Vector b, Vector c) {
    return _mm512_mask3_fmadd_pd(a, b, c, static_cast<__mmask8>(~First(n)));
  }
  static Vector MulSub(Vector a, Vector b, Vector c) { return _mm512_fmsub_pd(a, b, c); }
  static Vector Mul(Vector a, Vector b) { return _mm512_mul_pd(a, b); }
  static Vector MulAdd(Vector a, Vector b, Vector c) {
    return _mm512_add_pd(c, _mm512_mul_pd(a, b));
  }
  static Vector Sub(Vector a, Vector b) { return _mm512_sub_pd(a, b); }
  static Vector Div(Vector a, Vector b) { return _mm512_div_pd(a, b); }
  static bool AllAbove(Vector v, Vector bound, std::size_t n) {
    return (_mm512_cmp_pd_mask(v, bound, _CMP_GT_OQ) & First(n)) == First(n);
  }
  static double Root(double a) { return _mm_cvtsd_f64(_mm_sqrt_pd(_mm_set_sd(a))); }
  static __m256d LoadFour(const double * p, std::size_t n) {
    return _mm256_maskz_loadu_pd(static_cast<__mmask8>((1u << n) - 1u), p);
  }
  // Of two halves, or of two vectors, by the number of the lane (the second one's from 4, or 8,
  // on); not by the named intrinsics, about which GCC 12 warns.
  static Vector Join(__m256d low, __m256d high) {
    return __builtin_shufflevector(low, high, 0, 1, 2, 3, 4, 5, 6, 7);
  }
  static void LoadColumns(const double * const * rows, std::size_t j, std::size_t n,
                          Vector * columns) {
    Vector half[2][4];  // columns 0 to 3, and 4 to 7, of rows r and r + 4
#pragma GCC unroll 4
    for (int r = 0; r < 4; ++r) {
      const double * const upper = rows[r] + j;
      const double * const lower = rows[r + 4] + j;
      if (n == kWidth) {
        half[0][r] = Join(_mm256_loadu_pd(upper), _mm256_loadu_pd(lower));
        half[1][r] = Join(_mm256_loadu_pd(upper + 4), _mm256_loadu_pd(lower + 4));
      } else {
        const std::size_t front = n < 4 ? n : 4;
        half[0][r] = Join(LoadFour(upper, front), LoadFour(lower, front));
        half[1][r] = Join(LoadFour(upper + 4, n - front), LoadFour(lower + 4, n - front));
      }
    }
#pragma GCC unroll 2
    for (int h = 0; h < 2; ++h) {
      const Vector * const r = half[h];
      const Vector even01 = __builtin_shufflevector(r[0], r[1], 0, 8, 2, 10, 4, 12, 6, 14);
      const Vector odd01 = __builtin_shufflevector(r[0], r[1], 1, 9, 3, 11, 5, 13, 7, 15);
      const Vector even23 = __builtin_shufflevector(r[2], r[3], 0, 8, 2, 10, 4, 12, 6, 14);
      const Vector odd23 = __builtin_shufflevector(r[2], r[3], 1, 9, 3, 11, 5, 13, 7, 15);
      Vector * const c = columns + 4 * h;
      c[0] = __builtin_shufflevector(even01, even23, 0, 1, 8, 9, 4, 5, 12, 13);
      c[1] = __builtin_shufflevector(odd01, odd23, 0, 1, 8, 9, 4, 5, 12, 13);
      c[2] = __builtin_shufflevector(even01, even23, 2, 3, 10, 11, 6, 7, 14, 15);
      c[3] = __builtin_shufflevector(odd01, odd23, 2, 3, 10, 11, 6, 7, 14, 15);
    }
  }
  static void StoreHalves(double * upper, double * lower, Vector v) {
    _mm256_storeu_pd(upper, __builtin_shufflevector(v, v, 0, 1, 2, 3));
    _mm256_storeu_pd(lower, __builtin_shufflevector(v, v, 4, 5, 6, 7));
  }
  static void StoreColumns(double * const * rows, std::size_t j, const Vector * columns) {
#pragma GCC unroll 2
    for (int h = 0; h < 2; ++h) {
      const Vector * const c = columns + 4 * h;
      const std::size_t place = j + static_cast<std::size_t>(4 * h);
      // Columns 0 and 1, and 2 and 3, of the rows 0, 2, 4, 6 and of the rows 1, 3, 5, 7.
      const Vector even01 = __builtin_shufflevector(c[0], c[1], 0, 8, 2, 10, 4, 12, 6, 14);
      const Vector odd01 = __builtin_shufflevector(c[0], c[1], 1, 9, 3, 11, 5, 13, 7, 15);
      const Vector even23 = __builtin_shufflevector(c[2], c[3], 0, 8, 2, 10, 4, 12, 6, 14);
      const Vector odd23 = __builtin_shufflevector(c[2], c[3], 1, 9, 3, 11, 5, 13, 7, 15);
      StoreHalves(rows[0] + place, rows[4] + place,
                  __builtin_shufflevector(even01, even23, 0, 1, 8, 9, 4, 5, 12, 13));
      StoreHalves(rows[1] + place, rows[5] + place,
                  __builtin_shufflevector(odd01, odd23, 0, 1, 8, 9, 4, 5, 12, 13));
      StoreHalves(rows[2] + place, rows[6] + place,
                  __builtin_shufflevector(even01, even23, 2, 3, 10, 11, 6, 7, 14, 15));
      StoreHalves(rows[3] + place, rows[7] + place,
                  __builtin_shufflevector(odd01, odd23, 2, 3, 10, 11, 6, 7, 14, 15));
    }
  }
  static double ScalarFma(double a, double b, double c) {
    return __builtin_fma(a, b, c);
  }
};

}  // namespace

const KernelTable kAvx512Kernels = MakeTable<Avx512Lanes>("avx512");

}  // namespace QVMath_940::kernels
