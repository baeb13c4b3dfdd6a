// The kernels for every CPU. std::fma gives the same bits in hardware and in software; where a CPU
// has no such instruction the fused loops are right but slow.
#include <cmath>

#include "math/kernels/kernel_loops.h"
#include "math/kernels/kernel_paths.h"

namespace QVMath_940::kernels {
namespace {

struct PortableLanes {
  using Vector = double;
  static constexpr int kWidth = 1;
  static constexpr int kBlockRows = 2;
  static constexpr int kBlockVectors = 4;

  static Vector Load(const double * p) { return *p; }
  static Vector LoadPart(const double * p, std::size_t) { return *p; }
  static void Store(double * p, Vector v) { *p = v; }
  static void StorePart(double * p, std::size_t, Vector v) { *p = v; }
  static Vector Spread(double a) { return a; }
  static Vector Fma(Vector a, Vector b, Vector c) { return std::fma(a, b, c); }
  static Vector FmaFirst(std::size_t n, Vector a, Vector b, Vector c) {
    return n > 0 ? std::fma(a, b, c) : c;
  }
  static Vector FmaBehind(std::size_t n, Vector a, Vector b, Vector c) {
    return n > 0 ? c : std::fma(a, b, c);
  }
  static Vector MulSub(Vector a, Vector b, Vector c) { return std::fma(a, b, -c); }
  static Vector Mul(Vector a, Vector b) { return a * b; }
  static Vector MulAdd(Vector a, Vector b, Vector c) { return c + a * b; }
  static Vector Sub(Vector a, Vector b) { return a - b; }
  static Vector Div(Vector a, Vector b) { return a / b; }
  static bool AllAbove(Vector v, Vector bound, std::size_t) { return v > bound; }
  static double Root(double a) { return std::sqrt(a); }
  static void LoadColumns(const double * const * rows, std::size_t j, std::size_t,
                          Vector * columns) {
    columns[0] = rows[0][j];
  }
  static void StoreColumns(double * const * rows, std::size_t j, const Vector * columns) {
    rows[0][j] = columns[0];
  }
  static double ScalarFma(double a, double b, double c) { return std::fma(a, b, c); }
};

}  // namespace

const KernelTable kPortableKernels = MakeTable<PortableLanes>("portable");

}  // namespace QVMath_940::kernels
