// The eigenproblem from its matrices to sorted results; the two numerical halves stand in
// householder.cpp and ql_iteration.cpp.
#include <algorithm>
#include <functional>
#include <iterator>

#include "QVEigenValues.h"
#include "common/display/display_frame.h"

namespace QVMath_940 {

namespace {

constexpr double kDefaultTolerance = 1e-12;
constexpr int kDefaultMaxIter = 30;
constexpr double kDefaultEps = 1e-6;

double EpsOrDefault(double eps) {
  return eps > 0.0 ? eps : kDefaultEps;
}

}  // namespace

QVEigenValues::QVEigenValues() : QVEigenValues(kDefaultTolerance, kDefaultMaxIter) {
}

QVEigenValues::QVEigenValues(double tol, int maxIter)
    : fTolerance(tol > 0.0 ? tol : kDefaultTolerance),
      fMaxIter(maxIter > 0 ? maxIter : kDefaultMaxIter) {
}

QVEigenValues::QVEigenValues(const QVSymMatrix & h, double tol, int maxIter)
    : QVEigenValues(tol, maxIter) {
  SetHMatrix(h);
}

QVEigenValues::QVEigenValues(const QVSymMatrix & h, const QVSymMatrix & e, double tol, int maxIter)
    : QVEigenValues(h, tol, maxIter) {
  SetEMatrix(e);
}

QVEigenValues::QVEigenValues(const QVEigenValues & other) = default;
QVEigenValues & QVEigenValues::operator=(const QVEigenValues & other) = default;
QVEigenValues::~QVEigenValues() = default;

bool QVEigenValues::SetTolerance(double tol) {
  if (!(tol > 0.0)) return false;
  fTolerance = tol;
  return true;
}

bool QVEigenValues::SetMaxIter(int maxIter) {
  if (maxIter < 1) return false;
  fMaxIter = maxIter;
  return true;
}

void QVEigenValues::SetHMatrix(const QVSymMatrix & h) {
  fmH = h;
  fNRows = fmH.GetNRows();
}

bool QVEigenValues::SetEMatrix(const QVSymMatrix & e) {
  if (e.GetNRows() != fNRows) {
    RemoveEMatrix();
    return false;
  }
  fmE = e;
  fmEChol = e;
  fmEChol.GetDiagonal(fvEDiag);
  const int lost = fmE.IsValidMatrix() && fmEChol.IsValidMatrix()
                       ? fmEChol.LTChol(fvEDiag, fTolerance, false)
                       : -1;
  fRankE = lost < 0 ? 0 : fNRows - lost;
  if (fRankE > 0) {
    fmGenInvEChol = fmEChol;
    double det[2];
    fmGenInvEChol.LTDetInverse(det, 10);
    fIsValidE = fmH.ComputeLSLTrans(fmGenInvEChol, fmVHV);
  } else {
    fIsValidE = false;
  }
  if (!fIsValidE) RemoveEMatrix();
  return fIsValidE;
}

void QVEigenValues::RemoveEMatrix() {
  fmE.Resize(0);
  fmEChol.Resize(0);
  fmGenInvEChol.Resize(0);
  fRankE = 0;
  fIsValidE = false;
}

int QVEigenValues::Compute(std::vector<double> & values) {
  if (fRankE > 0 && fmVHV.GetNRows() != fNRows) return 0;  // reduced for an H of another order
  TriDiag();
  const int code = EigenValuesTQLI();
  const int count = code == 0 ? fNRows : code - 1;
  if (count < 1) return count;
  const std::size_t n = static_cast<std::size_t>(fNRows);
  if (fvEigenVal.size() != n) {
    fvEigenVal.assign(n, 0.0);
    std::copy_n(fvDiag3.begin(), count, fvEigenVal.begin());
  }
  values = fvEigenVal;
  return count;
}

int QVEigenValues::Compute(std::vector<double> & values, QVRectMatrix & vectors) {
  fComputeVectors = true;
  const int count = Compute(values);
  if (count < 1) return count;
  BackTransVectors();
  vectors = fmEigenVectors;
  return count;
}

int QVEigenValues::GetSorted(std::vector<double> & values, bool descending) {
  int count = fNComputed;
  if (fvEigenVal.empty()) {
    count = Compute(values);
  } else if (count >= 1) {
    values = fvEigenVal;
  }
  if (count < 1) return count;
  const auto last = values.begin() + std::min<std::ptrdiff_t>(count, std::ssize(values));
  if (descending) {
    std::sort(values.begin(), last, std::greater<>());
  } else {
    std::sort(values.begin(), last);
  }
  return count;
}

int QVEigenValues::GetSorted(std::vector<double> & values, QVRectMatrix & vectors,
                             bool descending) {
  if (fmEigenVectors.GetNRows() < 1) {
    fComputeVectors = true;
    const int count = Compute(values);
    if (count < 1) return count;
    BackTransVectors();
  }
  const int count =
      std::min({fNComputed, fmEigenVectors.GetNRows(), static_cast<int>(fvEigenVal.size())});
  if (count < 1) return count;
  fvEigPairs.clear();
  for (int j = 0; j < count; ++j) {
    fvEigPairs.emplace_back(fvEigenVal[static_cast<std::size_t>(j)], j);
  }
  std::sort(fvEigPairs.begin(), fvEigPairs.end(), [descending](const auto & a, const auto & b) {
    return descending ? a.first > b.first : a.first < b.first;
  });
  values.assign(static_cast<std::size_t>(fNRows), 0.0);
  if (!vectors.SetNRowsCols(fNRows, fNRows, true)) return -1;
  for (int j = 0; j < count; ++j) {
    const auto & [value, row] = fvEigPairs[static_cast<std::size_t>(j)];
    values[static_cast<std::size_t>(j)] = value;
    fmEigenVectors.CopyRowToRow(row, j, vectors);
  }
  return count;
}

bool QVEigenValues::IsPDHMatrix(double eps, bool & isPD) {
  const double least = EpsOrDefault(eps);
  std::vector<double> values;
  if (Compute(values) != fNRows || fNRows < 1) return false;
  isPD = std::none_of(values.begin(), values.end(), [least](double v) { return v < least; });
  return true;
}

bool QVEigenValues::GetPDHMatrix(double eps, QVSymMatrix & out, bool & changed) {
  const double least = EpsOrDefault(eps);
  changed = false;
  if (!out.SetNRows(fNRows, true)) return false;
  fComputeVectors = true;
  std::vector<double> values;
  if (Compute(values) != fNRows || fNRows < 1) return false;
  if (*std::min_element(values.begin(), values.end()) >= least) {
    out = fmH;
    return out.IsValidMatrix();
  }
  BackTransVectors();
  std::vector<double> v;
  for (int i = 0; i < fNRows; ++i) {
    const double lambda = std::max(values[static_cast<std::size_t>(i)], least);
    if (!fmEigenVectors.GetRow(i, v)) return false;
    fmWork.SetToVV(v);
    if (!out.ComputeAXpY(lambda, fmWork)) return false;
  }
  changed = true;
  return true;
}

bool QVEigenValues::GetPDHMatrix(double eps, QVSymMatrix & out) {
  bool changed;
  return GetPDHMatrix(eps, out, changed);
}

void QVEigenValues::Display() const {
  using namespace QVDisplay_940;
  const auto displayMatrix = [](const char * label, const QVSymMatrix & matrix) {
    DisplayText(1, label);
    matrix.Display();
  };
  const DisplayFrame frame("QVEigenValues");
  DisplayI("Number of rows", fNRows);
  DisplayD("Tolerance", fTolerance);
  DisplayI("Maximum number of iterations", fMaxIter);
  DisplayB("Compute eigenvectors indicator", fComputeVectors);
  displayMatrix("Matrix H:", fmH);
  if (fmE.GetNRows() > 0) {
    displayMatrix("Matrix E:", fmE);
  } else {
    DisplayText(1, "Matrix E is identity");
  }
  DisplayDV("fvEDiag", fvEDiag, false);
  displayMatrix("Chol(E):", fmEChol);
  displayMatrix("Gen.Inverse of Chol(E):", fmGenInvEChol);
  displayMatrix("fmVHV:", fmVHV);
  displayMatrix("fmOrthInfo:", fmOrthInfo);
  DisplayI("Rank of the E matrix", fRankE);
  DisplayDV("fvDiag3", fvDiag3, false);
  DisplayDV("fvSubdiag3", fvSubdiag3, false);
  DisplayDV("fvEigenVal", fvEigenVal, false);
  DisplayI("Number of computed eigenvalues", fNComputed);
  DisplayText(1, "fmEigenVectors:");
  fmEigenVectors.Display();
  DisplayVPDI("fvEigPairs", fvEigPairs);
}

}  // namespace QVMath_940
