// Operations on single elements of a symmetric matrix, packed here and full in Eigen.

#include <Eigen/Dense>
#include <string>

#include "QVSymMatrix.h"
#include "contender.h"

using QVMath_940::QVSymMatrix;

namespace {

// Adds to all of the diagonal but its last element, the longest range that is accepted.
void AddToDiagonalPart(int n) {
  const std::string work = "AddToDiagonalPart/" + std::to_string(n);
  AddContender(work, "qv", [n](benchmark::State & state) {
    QVSymMatrix matrix(n, true);
    for (auto _ : state) {
      matrix.AddToDiagonalPart(0, n - 1, 0.5);
      benchmark::ClobberMemory();
    }
    if (matrix.GetElem(0, 0) == 0.0) state.SkipWithError("the diagonal stayed as it was");
  });
  AddContender(work, "eigen", [n](benchmark::State & state) {
    Eigen::MatrixXd matrix = Eigen::MatrixXd::Zero(n, n);
    for (auto _ : state) {
      matrix.diagonal().head(n - 1).array() += 0.5;
      benchmark::ClobberMemory();
    }
    if (matrix(0, 0) == 0.0) state.SkipWithError("the diagonal stayed as it was");
  });
}

}  // namespace

void RegisterBenchmarks() {
  for (int n : {20, 200, 1000})
    AddToDiagonalPart(n);
}
