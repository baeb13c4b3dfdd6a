// The kernels for CPUs with AVX2 and FMA; compiled for them alone.
#include <immintrin.h>

#include "math/kernels/kernel_loops.h"
#include "math/kernels/kernel_paths.h"

namespace QVMath_940::kernels {
namespace {

struct Avx2Lanes {
  using Vector = __m256d;
  static constexpr int kWidth = 4;
  static constexpr int kBlockRows = 4;
  static constexpr int kBlockVectors = 3;

  static __m256i First(std::size_t n) {
    return _mm256_cmpgt_epi64(_mm256_set1_epi64x(static_cast<long long>(n)),
                              _mm256_setr_epi64x(0, 1, 2, 3));
  }
  static Vector Load(const double * p) { return _mm256_loadu_pd(p); }
  static Vector LoadPart(const double * p, std::size_t n) {
    return _mm256_maskload_pd(p, First(n));
  }
  static void Store(double * p, Vector v) { _mm256_storeu_pd(p, v); }
  static void StorePart(double * p, std::size_t n, Vector v) {
    _mm256_maskstore_pd(p, First(n), v);
  }
  static Vector Spread(double a) { return _mm256_set1_pd(a); }
  static Vector Fma(Vector a, Vector b, Vector c) { return _mm256_fmadd_pd(a, b, c); }
  static Vector FmaFirst(std::size_t n, Vector a, Vector b, Vector c) {
    return _mm256_blendv_pd(c, Fma(a, b, c), _mm256_castsi256_pd(First(n)));
  }
  static Vector FmaBehind(std::size_t n, Vector a, Vector b, Vector c) {
    return _mm256_blendv_pd(Fma(a, b, c), c, _mm256_castsi256_pd(First(n)));
  }
  static Vector MulSub(Vector a, Vector b, Vector c) { return _mm256_fmsub_pd(a, b, c); }
  static Vector Mul(Vector a, Vector b) { return _mm256_mul_pd(a, b); }
  static Vector MulAdd(Vector a, Vector b, Vector c) {
    return _mm256_add_pd(c, _mm256_mul_pd(a, b));
  }
  static Vector Sub(Vector a, Vector b) { return _mm256_sub_pd(a, b); }
  static Vector Div(Vector a, Vector b) { return _mm256_div_pd(a, b); }
  static bool AllAbove(Vector v, Vector bound, std::size_t n) {
    const int wanted = (1 << n) - 1;
    return (_mm256_movemask_pd(_mm256_cmp_pd(v, bound, _CMP_GT_OQ)) & wanted) == wanted;
  }
  static double Root(double a) { return _mm_cvtsd_f64(_mm_sqrt_pd(_mm_set_sd(a))); }
  static __m128d LoadTwo(const double * p, std::size_t n) {
    return n >= 2 ? _mm_loadu_pd(p) : n == 1 ? _mm_load_sd(p) : _mm_setzero_pd();
  }
  static void LoadColumns(const double * const * rows, std::size_t j, std::size_t n,
                          Vector * columns) {
    Vector left[2];   // columns 0 and 1 of rows r and r + 2
    Vector right[2];  // columns 2 and 3
    for (int r = 0; r < 2; ++r) {
      const double * const upper = rows[r] + j;
      const double * const lower = rows[r + 2] + j;
      if (n == kWidth) {
        left[r] = _mm256_loadu2_m128d(lower, upper);
        right[r] = _mm256_loadu2_m128d(lower + 2, upper + 2);
      } else {
        const std::size_t behind = n > 2 ? n - 2 : 0;
        left[r] = _mm256_set_m128d(LoadTwo(lower, n), LoadTwo(upper, n));
        right[r] = _mm256_set_m128d(LoadTwo(lower + 2, behind), LoadTwo(upper + 2, behind));
      }
    }
    columns[0] = _mm256_unpacklo_pd(left[0], left[1]);
    columns[1] = _mm256_unpackhi_pd(left[0], left[1]);
    columns[2] = _mm256_unpacklo_pd(right[0], right[1]);
    columns[3] = _mm256_unpackhi_pd(right[0], right[1]);
  }
  static void StoreColumns(double * const * rows, std::size_t j, const Vector * columns) {
    for (int c = 0; c < 4; c += 2) {
      const std::size_t place = j + static_cast<std::size_t>(c);
      _mm256_storeu2_m128d(rows[2] + place, rows[0] + place,
                           _mm256_unpacklo_pd(columns[c], columns[c + 1]));
      _mm256_storeu2_m128d(rows[3] + place, rows[1] + place,
                           _mm256_unpackhi_pd(columns[c], columns[c + 1]));
    }
  }
  static double ScalarFma(double a, double b, double c) { return __builtin_fma(a, b, c); }
};

}  // namespace

const KernelTable kAvx2Kernels = MakeTable<Avx2Lanes>("avx2");

}  // namespace QVMath_940::kernels
