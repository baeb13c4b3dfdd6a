// QR and square systems of the rectangular matrix, which are made for small model matrices, beside
// Eigen's.

#include <Eigen/Dense>
#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "QVRectMatrix.h"
#include "QVSymMatrix.h"
#include "contender.h"
#include "positive_definite.h"

using QVMath_940::QVRectMatrix;
using QVMath_940::QVSymMatrix;

namespace {

using RowMajor = Eigen::Matrix<double, Eigen::Dynamic, Eigen::Dynamic, Eigen::RowMajor>;

QVRectMatrix Random(int rows, int cols) {
  std::mt19937 engine(7);
  std::uniform_real_distribution<double> uniform(-1.0, 1.0);
  QVRectMatrix r(rows, cols, true);
  for (double & element : r.AsVector())
    element = uniform(engine);
  return r;
}

Eigen::Map<const RowMajor> InEigen(const QVRectMatrix & r) {
  return {r.AsVector().data(), r.GetNRows(), r.GetNCols()};
}

void Decompose(int rows, int cols) {
  const std::string work = "QRDecompositionH/" + std::to_string(rows) + "x" + std::to_string(cols);
  AddContender(work, "qv", [=](benchmark::State & state) {
    const QVRectMatrix matrix = Random(rows, cols);
    QVSymMatrix r;
    QVRectMatrix q;
    for (auto _ : state) {
      matrix.QRDecompositionH(r, q);
      benchmark::ClobberMemory();
    }
    ExpectAgreement(state, work, std::abs(r.GetElem(cols - 1, cols - 1)));
  });
  AddContender(work, "eigen", [=](benchmark::State & state) {
    const QVRectMatrix matrix = Random(rows, cols);
    Eigen::MatrixXd q;
    double last = 0.0;
    for (auto _ : state) {
      const Eigen::HouseholderQR<Eigen::MatrixXd> qr(InEigen(matrix));
      q = qr.householderQ();
      last = qr.matrixQR()(cols - 1, cols - 1);
      benchmark::ClobberMemory();
    }
    ExpectAgreement(state, work, std::abs(last));
  });
}

void Solve(int n) {
  const std::string work = "SolveLinearSquare/" + std::to_string(n);
  AddContender(work, "qv", [=](benchmark::State & state) {
    const QVRectMatrix matrix = Random(n, n);
    const std::vector<double> b = Example(n).vector;
    std::vector<double> x;
    for (auto _ : state) {
      matrix.SolveLinearSquare(b, x, 1e-14);
      benchmark::ClobberMemory();
    }
    ExpectAgreement(state, work, x.back());
  });
  AddContender(work, "eigen", [=](benchmark::State & state) {
    const QVRectMatrix matrix = Random(n, n);
    const std::vector<double> b = Example(n).vector;
    Eigen::VectorXd x;
    double condition = 0.0;
    for (auto _ : state) {
      const Eigen::PartialPivLU<Eigen::MatrixXd> lu(InEigen(matrix));
      condition = lu.rcond();
      x = lu.solve(Eigen::Map<const Eigen::VectorXd>(b.data(), n));
      benchmark::ClobberMemory();
    }
    benchmark::DoNotOptimize(condition);
    ExpectAgreement(state, work, x[n - 1]);
  });
}

}  // namespace

void RegisterBenchmarks() {
  Decompose(200, 50);
  Decompose(20, 5);
  Solve(20);
  Solve(200);
}
