// A case comes into a Cholesky factor and goes out again: here, in Eigen, and by LINPACK's loops as
// they were published (DCHUD and DCHDD for one matrix without further columns).

#include <Eigen/Dense>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "QVSymMatrix.h"
#include "contender.h"
#include "positive_definite.h"

using QVMath_940::QVSymMatrix;

namespace {

using Vector = std::vector<double>;

// A plane rotation that takes (a, b) to (r, 0), as in the level 1 BLAS.
void MakeRotation(double & a, double b, double & c, double & s) {
  const double scale = std::abs(a) + std::abs(b);
  const double r =
      std::copysign(scale * std::sqrt(a / scale * (a / scale) + b / scale * (b / scale)),
                    std::abs(a) > std::abs(b) ? a : b);
  c = a / r;
  s = b / r;
  a = r;
}

/// An upper triangle in full storage, column after column.
struct Triangle {
  int n;
  Vector elements;
  double & operator()(int i, int j) {
    return elements[static_cast<std::size_t>(i) +
                    static_cast<std::size_t>(j) * static_cast<std::size_t>(n)];
  }
};

void PublishedUpdate(Triangle & r, const Vector & x, Vector & c, Vector & s) {
  for (int j = 0; j < r.n; ++j) {
    double xj = x[j];
    double * const column = &r(0, j);
    for (int i = 0; i < j; ++i) {
      const double t = c[i] * column[i] + s[i] * xj;
      xj = c[i] * xj - s[i] * column[i];
      column[i] = t;
    }
    MakeRotation(column[j], xj, c[j], s[j]);
  }
}

void PublishedDowndate(Triangle & r, const Vector & x, Vector & c, Vector & s) {
  double squares = 0.0;
  for (int j = 0; j < r.n; ++j) {
    const double * const column = &r(0, j);
    double dot = 0.0;
    for (int i = 0; i < j; ++i)
      dot += column[i] * s[i];
    s[j] = (x[j] - dot) / column[j];
    squares += s[j] * s[j];
  }
  double alpha = std::sqrt(1.0 - squares);
  for (int i = r.n - 1; i >= 0; --i) {
    const double scale = alpha + std::abs(s[i]);
    const double a = alpha / scale;
    const double b = s[i] / scale;
    const double norm = std::sqrt(a * a + b * b);
    c[i] = a / norm;
    s[i] = b / norm;
    alpha = scale * norm;
  }
  for (int j = 0; j < r.n; ++j) {
    double * const column = &r(0, j);
    double xx = 0.0;
    for (int i = j; i >= 0; --i) {
      const double t = c[i] * xx + s[i] * column[i];
      column[i] = c[i] * column[i] - s[i] * xx;
      xx = t;
    }
  }
}

/// What every contender starts from: a factor and a vector that can go out of it.
struct Factored {
  explicit Factored(int n) : factor(Example(n).packed), x(Example(n).vector) {
    double minDiag;
    factor.LTChol(1e-12, minDiag, false);
    for (double & element : x)
      element *= 0.5;
  }
  Triangle Upper() const {
    const int n = factor.GetNRows();
    Triangle r{n, Vector(x.size() * x.size(), 0.0)};
    for (int j = 0; j < n; ++j)
      for (int i = 0; i <= j; ++i)
        r(i, j) = factor.GetElem(j, i);
    return r;
  }
  QVSymMatrix factor;
  Vector x;
};

/// Each round works on a fresh copy, which is not timed.
template <typename Matrix, typename Work>
Matrix OnCopies(benchmark::State & state, const Matrix & original, Work && work) {
  Matrix copy = original;
  for (auto _ : state) {
    state.PauseTiming();
    copy = original;
    state.ResumeTiming();
    work(copy);
    benchmark::ClobberMemory();
  }
  return copy;
}

void Change(int n, bool isUpdate) {
  const std::string work = (isUpdate ? "LTCholUpdateR1/" : "LTCholDowndate/") + std::to_string(n);
  AddContender(work, "qv", [=](benchmark::State & state) {
    const Factored start(n);
    Vector c(start.x.size()), s(start.x.size());
    const QVSymMatrix result = OnCopies(state, start.factor, [&](QVSymMatrix & l) {
      if (isUpdate) {
        l.LTCholUpdateR1(start.x, c, s);
      } else {
        l.LTCholDowndate(start.x, c, s, false);
      }
    });
    ExpectAgreement(state, work, std::abs(result.GetElem(n - 1, n - 1)));
  });
  AddContender(work, "linpack", [=](benchmark::State & state) {
    const Factored start(n);
    Vector c(start.x.size()), s(start.x.size());
    Triangle result = OnCopies(state, start.Upper(), [&](Triangle & r) {
      (isUpdate ? PublishedUpdate : PublishedDowndate)(r, start.x, c, s);
    });
    ExpectAgreement(state, work, std::abs(result(n - 1, n - 1)));
  });
  AddContender(work, "eigen", [=](benchmark::State & state) {
    const Factored start(n);
    const Eigen::Map<const Eigen::VectorXd> x(start.x.data(), n);
    Eigen::MatrixXd matrix(n, n);
    const QVSymMatrix original = Example(n).packed;
    for (int i = 0; i < n; ++i)
      for (int j = 0; j < n; ++j)
        matrix(i, j) = original.GetElem(i, j);
    const Eigen::LLT<Eigen::MatrixXd> factor(matrix);
    const auto result = OnCopies(state, factor, [&](Eigen::LLT<Eigen::MatrixXd> & llt) {
      llt.rankUpdate(x, isUpdate ? 1.0 : -1.0);
    });
    ExpectAgreement(state, work, std::abs(result.matrixLLT()(n - 1, n - 1)));
  });
}

}  // namespace

void RegisterBenchmarks() {
  for (int n : {100, 500, 1000}) {
    Change(n, true);
    Change(n, false);
  }
}
