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
  static double ScalarFma(double a, double b, double c) { return __builtin_fma(a, b, c); }
};

}  // namespace

const KernelTable kAvx512Kernels = MakeTable<Avx512Lanes>("avx512");

}  // namespace QVMath_940::kernels
