// Products and quadratic forms on the packed triangle, against BLAS: matrix products on full
// storage, products with vectors on the same packed storage (dspmv, dtpmv).

#include <cblas.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "QVRectMatrix.h"
#include "QVSymMatrix.h"
#include "contender.h"

using QVMath_940::QVRectMatrix;
using QVMath_940::QVSymMatrix;
using Vector = std::vector<double>;

namespace {

Vector Values(std::size_t count, unsigned seed) {
  std::mt19937 engine(seed);
  std::normal_distribution<double> normal;
  Vector values(count);
  for (double & x : values)
    x = normal(engine);
  return values;
}

std::size_t Square(int n) {
  return static_cast<std::size_t>(n) * static_cast<std::size_t>(n);
}

// The operands of one piece of work: symmetric matrices and a square R, packed here and full for
// BLAS.
struct Operands {
  explicit Operands(int order) : n(order) {
    for (unsigned k = 0; k < 3; ++k) {
      QVSymMatrix & packed = *all[k];
      packed.SetNRows(n, true);
      packed.AsVector() = Values(packed.AsVector().size(), k);
      full[k].resize(Square(n));
      for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j)
          full[k][Square(n) / static_cast<std::size_t>(n) * static_cast<std::size_t>(i) +
                  static_cast<std::size_t>(j)] = packed.GetElem(i, j);
    }
    r.SetNRowsCols(n, n, true);
    r.AsVector() = Values(Square(n), 3);
    v = Values(static_cast<std::size_t>(n), 4);
    half.resize(Square(n));
    result.resize(Square(n));
  }

  // What BLAS left in the lower triangle of `result` must be `out`.
  void Check(const QVSymMatrix & out, benchmark::State & state) const {
    double size = 0.0;
    double difference = 0.0;
    for (int i = 0; i < n; ++i)
      for (int j = 0; j <= i; ++j) {
        const double wanted = result[static_cast<std::size_t>(i) * static_cast<std::size_t>(n) +
                                     static_cast<std::size_t>(j)];
        size = std::max(size, std::abs(wanted));
        difference = std::max(difference, std::abs(wanted - out.GetElem(i, j)));
      }
    if (!(difference <= 1e-11 * size)) state.SkipWithError("not the same product");
  }

  void Symm(const Vector & s, const double * b, double * c) const {
    cblas_dsymm(CblasRowMajor, CblasLeft, CblasLower, n, n, 1.0, s.data(), n, b, n, 0.0, c, n);
  }

  int n;
  QVSymMatrix s, m, g;
  QVSymMatrix * all[3] = {&s, &m, &g};
  Vector full[3];
  QVRectMatrix r;
  Vector v;
  Vector half;    // the first of two products
  Vector result;  // the second one
};

// A product whose target is symmetric. `peer` leaves it in the operands' `result`.
template <typename Product, typename Peer>
void AddSymmetric(const std::string & name, int n, Product product, Peer peer) {
  const std::string work = name + "/" + std::to_string(n);
  AddContender(work, "qv", [n, product, peer](benchmark::State & state) {
    Operands operands(n);
    QVSymMatrix out(n, true);
    for (auto _ : state) {
      product(operands, out);
      benchmark::ClobberMemory();
    }
    peer(operands);
    operands.Check(out, state);
  });
  AddContender(work, "openblas", [n, peer](benchmark::State & state) {
    Operands operands(n);
    for (auto _ : state) {
      peer(operands);
      benchmark::ClobberMemory();
    }
  });
}

void AddMatrixProducts(int n) {
  AddSymmetric(
      "ComputeSTransS", n, [](Operands & o, QVSymMatrix & out) { o.s.ComputeSTransS(out); },
      [](Operands & o) {
        cblas_dsyrk(CblasRowMajor, CblasLower, CblasNoTrans, o.n, o.n, 1.0, o.full[0].data(), o.n,
                    0.0, o.result.data(), o.n);
      });
  AddSymmetric(
      "ComputeGMG", n, [](Operands & o, QVSymMatrix & out) { o.s.ComputeGMG(o.g.AsVector(), out); },
      [](Operands & o) {
        o.Symm(o.full[2], o.full[0].data(), o.half.data());
        cblas_dsymm(CblasRowMajor, CblasRight, CblasLower, o.n, o.n, 1.0, o.full[2].data(), o.n,
                    o.half.data(), o.n, 0.0, o.result.data(), o.n);
      });
  AddSymmetric(
      "ComputeMGN", n, [](Operands & o, QVSymMatrix & out) { o.g.ComputeMGN(o.m, o.s, out); },
      [](Operands & o) {
        o.Symm(o.full[1], o.full[2].data(), o.half.data());
        cblas_dsyr2k(CblasRowMajor, CblasLower, CblasNoTrans, o.n, o.n, 1.0, o.half.data(), o.n,
                     o.full[0].data(), o.n, 0.0, o.result.data(), o.n);
      });
  AddSymmetric(
      "ComputeRTransSR", n, [](Operands & o, QVSymMatrix & out) { o.s.ComputeRTransSR(o.r, out); },
      [](Operands & o) {
        const double * const r = o.r.AsVector().data();
        o.Symm(o.full[0], r, o.half.data());
        cblas_dgemm(CblasRowMajor, CblasTrans, CblasNoTrans, o.n, o.n, o.n, 1.0, r, o.n,
                    o.half.data(), o.n, 0.0, o.result.data(), o.n);
      });
  AddSymmetric(
      "ComputeRSRTrans", n, [](Operands & o, QVSymMatrix & out) { o.s.ComputeRSRTrans(o.r, out); },
      [](Operands & o) {
        const double * const r = o.r.AsVector().data();
        cblas_dsymm(CblasRowMajor, CblasRight, CblasLower, o.n, o.n, 1.0, o.full[0].data(), o.n, r,
                    o.n, 0.0, o.half.data(), o.n);
        cblas_dgemm(CblasRowMajor, CblasNoTrans, CblasTrans, o.n, o.n, o.n, 1.0, o.half.data(), o.n,
                    r, o.n, 0.0, o.result.data(), o.n);
      });
  AddSymmetric(
      "ComputeRTransByR", n, [](Operands & o, QVSymMatrix & out) { out.ComputeRTransByR(o.r); },
      [](Operands & o) {
        cblas_dsyrk(CblasRowMajor, CblasLower, CblasTrans, o.n, o.n, 1.0, o.r.AsVector().data(),
                    o.n, 0.0, o.result.data(), o.n);
      });
}

void AddSS(int n) {
  const std::string work = "ComputeSS/" + std::to_string(n);
  AddContender(work, "qv", [n](benchmark::State & state) {
    Operands o(n);
    QVRectMatrix out(n, n, true);
    for (auto _ : state) {
      o.s.ComputeSS(o.m, out);
      benchmark::ClobberMemory();
    }
    o.Symm(o.full[0], o.full[1].data(), o.result.data());
    double size = 0.0;
    double difference = 0.0;
    for (std::size_t p = 0; p < o.result.size(); ++p) {
      size = std::max(size, std::abs(o.result[p]));
      difference = std::max(difference, std::abs(o.result[p] - out.AsVector()[p]));
    }
    if (!(difference <= 1e-11 * size)) state.SkipWithError("not the same product");
  });
  AddContender(work, "openblas", [n](benchmark::State & state) {
    Operands o(n);
    for (auto _ : state) {
      o.Symm(o.full[0], o.full[1].data(), o.result.data());
      benchmark::ClobberMemory();
    }
  });
}

// out = A v on the packed storage itself.
template <typename Product, typename Peer>
void AddVectorProduct(const std::string & name, int n, Product product, Peer peer) {
  const std::string work = name + "/" + std::to_string(n);
  AddContender(work, "qv", [n, product, peer](benchmark::State & state) {
    Operands o(n);
    Vector out(static_cast<std::size_t>(n));
    for (auto _ : state) {
      product(o, out);
      benchmark::ClobberMemory();
    }
    Vector wanted(static_cast<std::size_t>(n));
    peer(o, wanted);
    for (std::size_t i = 0; i < out.size(); ++i)
      if (!(std::abs(out[i] - wanted[i]) <= 1e-11 * n)) state.SkipWithError("not the same product");
  });
  AddContender(work, "openblas", [n, peer](benchmark::State & state) {
    Operands o(n);
    Vector out(static_cast<std::size_t>(n));
    for (auto _ : state) {
      peer(o, out);
      benchmark::ClobberMemory();
    }
  });
}

void SymmetricByBlas(Operands & o, Vector & out) {
  cblas_dspmv(CblasRowMajor, CblasLower, o.n, 1.0, o.s.AsVector().data(), o.v.data(), 1, 0.0,
              out.data(), 1);
}

void AddVectorProducts(int n) {
  AddVectorProduct(
      "ComputeSV", n, [](Operands & o, Vector & out) { o.s.ComputeSV(o.v, out); }, SymmetricByBlas);
  AddVectorProduct(
      "ComputeVSV", n, [](Operands & o, Vector & out) { out[0] = o.s.ComputeVSV(o.v); },
      [](Operands & o, Vector & out) {
        SymmetricByBlas(o, o.half);
        out[0] = cblas_ddot(o.n, o.v.data(), 1, o.half.data(), 1);
      });
  AddVectorProduct(
      "ComputeLV", n, [](Operands & o, Vector & out) { o.s.ComputeLV(o.v, out); },
      [](Operands & o, Vector & out) {
        out = o.v;
        cblas_dtpmv(CblasRowMajor, CblasLower, CblasNoTrans, CblasNonUnit, o.n,
                    o.s.AsVector().data(), out.data(), 1);
      });
  AddVectorProduct(
      "ComputeLTransV", n, [](Operands & o, Vector & out) { o.s.ComputeLTransV(o.v, out); },
      [](Operands & o, Vector & out) {
        out = o.v;
        cblas_dtpmv(CblasRowMajor, CblasLower, CblasTrans, CblasNonUnit, o.n, o.s.AsVector().data(),
                    out.data(), 1);
      });
}

}  // namespace

void RegisterBenchmarks() {
  for (int n : {100, 1000})
    AddVectorProducts(n);
  for (int n : {500, 1000}) {
    AddMatrixProducts(n);
    AddSS(n);
  }
}
