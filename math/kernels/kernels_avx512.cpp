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
  static Vector Join(__m256d low, __m256d high) {
    return _mm512_insertf64x4(_mm512_castpd256_pd512(low), high, 1);
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
    const __m512i even = _mm512_setr_epi64(0, 1, 8, 9, 4, 5, 12, 13);
    const __m512i odd = _mm512_setr_epi64(2, 3, 10, 11, 6, 7, 14, 15);
#pragma GCC unroll 2
    for (int h = 0; h < 2; ++h) {
      const Vector low01 = _mm512_unpacklo_pd(half[h][0], half[h][1]);
      const Vector high01 = _mm512_unpackhi_pd(half[h][0], half[h][1]);
      const Vector low23 = _mm512_unpacklo_pd(half[h][2], half[h][3]);
      const Vector high23 = _mm512_unpackhi_pd(half[h][2], half[h][3]);
      columns[4 * h + 0] = _mm512_permutex2var_pd(low01, even, low23);
      columns[4 * h + 1] = _mm512_permutex2var_pd(high01, even, high23);
      columns[4 * h + 2] = _mm512_permutex2var_pd(low01, odd, low23);
      columns[4 * h + 3] = _mm512_permutex2var_pd(high01, odd, high23);
    }
  }
  static double ScalarFma(double a, double b, double c) { return __builtin_fma(a, b, c); }
};

}  // namespace

const KernelTable kAvx512Kernels = MakeTable<Avx512Lanes>("avx512");

}  // namespace QVMath_940::kernels
