// QVAccumXProdPair: statistics of pairs of variables from pairwise present cases.

#include <algorithm>
#include <cmath>

#include "QVAccumXProdPair.h"
#include "QVDisplay.h"
#include "QVMV.h"
#include "common/display/display_frame.h"

namespace QVMath_940 {

namespace {

/// Number of cells with one cell for each pair of n variables.
std::size_t NumberOfPairs(int n) {
  return n < 2 ? 0 : QVSymMatrix::RowStart(n - 1);
}

double & Cell(QVSymMatrix & store, std::size_t cell) {
  return store.AsVector()[cell];
}

double Cell(const QVSymMatrix & store, std::size_t cell) {
  return store.AsVector()[cell];
}

}  // namespace

QVAccumXProdPair::QVAccumXProdPair(int nVars, int nAccum)
    : fNVars(std::max(nVars, 0)), fNAccum(std::max(nAccum, 1)) {
  InitAccumCounts(fNVars - 1);
  InitStores(fNVars - 1);
}

QVAccumXProdPair::QVAccumXProdPair(const QVAccumXProdPair & other)
    : fNVars(other.fNVars),
      fNAccum(other.fNAccum),
      fAccumCounts(other.fAccumCounts),
      fAccumCases(other.fAccumCases),
      fAccumSum1(other.fAccumSum1),
      fAccumSum2(other.fAccumSum2),
      fAccumSumSq1(other.fAccumSumSq1),
      fAccumSumSq2(other.fAccumSumSq2),
      fAccumXProds(other.fAccumXProds),
      fTotalCases(other.fTotalCases),
      fMean1(other.fMean1),
      fMean2(other.fMean2),
      fVariance1(other.fVariance1),
      fVariance2(other.fVariance2),
      fCovar(other.fCovar),
      fCorr(other.fCorr) {
  DropUnlessStored();
}

QVAccumXProdPair & QVAccumXProdPair::operator=(const QVAccumXProdPair & other) {
  fNVars = other.fNVars;
  fNAccum = other.fNAccum;
  fAccumCounts = other.fAccumCounts;
  fAccumCases = other.fAccumCases;
  fAccumSum1 = other.fAccumSum1;
  fAccumSum2 = other.fAccumSum2;
  fAccumSumSq1 = other.fAccumSumSq1;
  fAccumSumSq2 = other.fAccumSumSq2;
  fAccumXProds = other.fAccumXProds;
  fTotalCases = other.fTotalCases;
  fMean1 = other.fMean1;
  fMean2 = other.fMean2;
  fVariance1 = other.fVariance1;
  fVariance2 = other.fVariance2;
  fCovar = other.fCovar;
  fCorr = other.fCorr;
  DropUnlessStored();
  return *this;
}

QVAccumXProdPair::~QVAccumXProdPair() = default;

/// The twelve cell stores beside the counts.
std::vector<QVSymMatrix *> QVAccumXProdPair::Stores() {
  return {&fAccumCases, &fAccumSum1, &fAccumSum2, &fAccumSumSq1, &fAccumSumSq2, &fAccumXProds,
          &fTotalCases, &fMean1,     &fMean2,     &fVariance1,   &fVariance2,   &fCovar};
}

void QVAccumXProdPair::InitAccumCounts(int order) {
  fAccumCounts.SetNRows(std::max(order, 0), true);
  DropUnlessStored();
}

void QVAccumXProdPair::InitStores(int order) {
  for (QVSymMatrix * store : Stores()) {
    store->SetNRows(std::max(order, 0), true);
  }
  DropUnlessStored();
}

/// Keeps the promise that n variables have a cell for each pair in every store.
void QVAccumXProdPair::DropUnlessStored() {
  const std::vector<QVSymMatrix *> stores = Stores();
  const bool isStored =
      fAccumCounts.IsValidMatrix() &&
      std::all_of(stores.begin(), stores.end(), [](auto * s) { return s->IsValidMatrix(); });
  if (isStored) return;
  fNVars = 0;
  fAccumCounts = QVSymMatrix();
  for (QVSymMatrix * store : stores) {
    *store = QVSymMatrix();
  }
}

void QVAccumXProdPair::InitAll() {
  InitAccumCounts(fNVars - 1);
  InitStores(fNVars < 2 ? 0 : fNVars);
}

void QVAccumXProdPair::SetNAccum(int nAccum) {
  if (nAccum >= 1) fNAccum = nAccum;
}

int QVAccumXProdPair::GetNAccum() const {
  return fNAccum;
}

int QVAccumXProdPair::GetNVars() const {
  return fNVars;
}

std::size_t QVAccumXProdPair::NumberOfCells() const {
  return NumberOfPairs(fNVars);
}

bool QVAccumXProdPair::Update(int i, double x, int j, double y, double w) {
  if (j < 0 || j >= i || i >= fNVars) return false;
  return Update(static_cast<int>(QVSymMatrix::RowStart(i - 1)) + j, x, y, w);
}

bool QVAccumXProdPair::Update(int cell, double x, double y, double w) {
  if (cell < 0 || static_cast<std::size_t>(cell) >= NumberOfCells()) return false;
  const std::size_t k = static_cast<std::size_t>(cell);
  Cell(fAccumCounts, k) += 1.0;
  Cell(fAccumCases, k) += w;
  Cell(fAccumSum1, k) += x * w;
  Cell(fAccumSum2, k) += y * w;
  Cell(fAccumSumSq1, k) += x * w * x;
  Cell(fAccumSumSq2, k) += y * w * y;
  Cell(fAccumXProds, k) += y * w * x;
  return Cell(fAccumCounts, k) >= fNAccum ? IncrStats(cell) : true;
}

bool QVAccumXProdPair::IncrStats(int cell) {
  const std::size_t k = static_cast<std::size_t>(cell);
  double & accumCases = Cell(fAccumCases, k);
  double & total = Cell(fTotalCases, k);
  const double newTotal = total + accumCases;
  if (newTotal <= 1.0 || accumCases <= 0.0) return newTotal > 1.0;

  double & mean1 = Cell(fMean1, k);
  double & mean2 = Cell(fMean2, k);
  double & variance1 = Cell(fVariance1, k);
  double & variance2 = Cell(fVariance2, k);
  double & covar = Cell(fCovar, k);
  const double sum1 = mean1 * total + Cell(fAccumSum1, k);
  const double sum2 = mean2 * total + Cell(fAccumSum2, k);
  const double newMean1 = sum1 / newTotal;
  const double newMean2 = sum2 / newTotal;
  variance1 = ((total - 1.0) * variance1 + mean1 * total * mean1 + Cell(fAccumSumSq1, k) -
               newMean1 * sum1) /
              (newTotal - 1.0);
  variance2 = ((total - 1.0) * variance2 + mean2 * total * mean2 + Cell(fAccumSumSq2, k) -
               newMean2 * sum2) /
              (newTotal - 1.0);
  covar =
      ((total - 1.0) * covar + mean2 * total * mean1 + Cell(fAccumXProds, k) - sum2 * newMean1) /
      (newTotal - 1.0);
  mean1 = newMean1;
  mean2 = newMean2;
  total = newTotal;
  for (QVSymMatrix * sum : {&fAccumCounts, &fAccumCases, &fAccumSum1, &fAccumSum2, &fAccumSumSq1,
                            &fAccumSumSq2, &fAccumXProds}) {
    Cell(*sum, k) = 0.0;
  }
  return true;
}

bool QVAccumXProdPair::Finish() {
  const std::size_t cells = NumberOfCells();
  for (std::size_t k = 0; k < cells; ++k) {
    if (Cell(fAccumCases, k) <= 0.0) continue;
    if (!IncrStats(static_cast<int>(k))) return false;
  }
  return true;
}

bool QVAccumXProdPair::Merge(const QVAccumXProdPair & other) {
  if (fNVars == 0) {
    fNVars = other.fNVars;
    InitAll();
  }
  if (fNVars != other.fNVars) return false;

  const std::size_t cells = NumberOfCells();
  const std::size_t cellsWithSums = std::min(cells, static_cast<std::size_t>(fNVars));
  for (std::size_t k = 0; k < cellsWithSums; ++k) {
    Cell(fAccumCases, k) += Cell(other.fAccumCases, k);
    Cell(fAccumSum1, k) += Cell(other.fAccumSum1, k);
    Cell(fAccumSum2, k) += Cell(other.fAccumSum2, k);
    Cell(fAccumSumSq1, k) += Cell(other.fAccumSumSq1, k);
    Cell(fAccumSumSq2, k) += Cell(other.fAccumSumSq2, k);
    Cell(fAccumXProds, k) += Cell(other.fAccumXProds, k);
  }

  for (std::size_t k = 0; k < cells; ++k) {
    const double total1 = Cell(fTotalCases, k);
    const double total2 = Cell(other.fTotalCases, k);
    const double total = total1 + total2;
    if (!(total > 1.0 && total2 > 0.0)) continue;

    double & mean1 = Cell(fMean1, k);
    double & mean2 = Cell(fMean2, k);
    double & variance1 = Cell(fVariance1, k);
    double & variance2 = Cell(fVariance2, k);
    double & covar = Cell(fCovar, k);
    const double sum1 = mean1 * total1;
    const double sum2 = mean2 * total1;
    // The other's total of its first variable stands for its second one as well.
    const double otherMean = Cell(other.fMean1, k);
    const double otherSum = otherMean * total2;
    const double newSum1 = sum1 + otherSum;
    const double newSum2 = otherSum + sum2;
    const double newMean1 = newSum1 / total;
    const double newMean2 = newSum2 / total;
    variance1 =
        ((total1 - 1.0) * variance1 + sum1 * mean1 + (total2 - 1.0) * Cell(other.fVariance1, k) +
         otherSum * otherMean - newMean1 * newSum1) /
        (total - 1.0);
    variance2 =
        ((total1 - 1.0) * variance2 + sum2 * mean2 + (total2 - 1.0) * Cell(other.fVariance2, k) +
         otherSum * otherMean - newMean2 * newSum2) /
        (total - 1.0);
    if (total1 == 0.0) {
      covar = Cell(other.fCovar, k);
    } else {
      covar =
          ((total1 - 1.0) * covar + sum2 * sum1 / total1 + (total2 - 1.0) * Cell(other.fCovar, k) +
           otherSum * otherSum / total2 - newSum2 * newSum1 / total) /
          (total - 1.0);
    }
    mean1 = newMean1;
    mean2 = newMean2;
    Cell(fTotalCases, k) = total;
    IncrStats(static_cast<int>(k));
  }
  return true;
}

template <typename Pointer>
bool QVAccumXProdPair::MergeAll(const std::vector<Pointer> & others) {
  const auto first =
      std::find_if(others.begin(), others.end(), [](Pointer p) { return p != nullptr; });
  if (first == others.end()) return false;
  if (fNVars != 0 && fNVars != (*first)->fNVars) return false;
  return std::all_of(first, others.end(), [this](Pointer p) { return p == nullptr || Merge(*p); });
}

bool QVAccumXProdPair::Merge(const std::vector<const QVAccumXProdPair *> & others) {
  return MergeAll(others);
}

bool QVAccumXProdPair::Merge(const std::vector<QVAccumXProdPair *> & others) {
  return MergeAll(others);
}

const QVSymMatrix & QVAccumXProdPair::GetCovar() const {
  return fCovar;
}

const QVSymMatrix & QVAccumXProdPair::GetCorr() {
  fCorr.Resize(fNVars);
  std::vector<double> & corr = fCorr.AsVector();
  const std::vector<double> & covar = fCovar.AsVector();
  // The root of a diagonal element; 0.0, and so unusable, where the store ends before it.
  const auto rootOfDiagonal = [&covar](std::size_t i) {
    const std::size_t position = i * (i + 3) / 2;
    return position < covar.size() ? std::sqrt(covar[position]) : 0.0;
  };
  std::size_t i = 0;
  std::size_t j = 0;
  for (std::size_t position = 0; position < corr.size(); ++position) {
    const double root1 = rootOfDiagonal(i);
    const double root2 = rootOfDiagonal(j);
    corr[position] = root1 > 0.0 && root2 > 0.0
                         ? covar[position] / std::sqrt(root1) / std::sqrt(root2)
                         : QVCommon_940::QVMV::Missing();
    if (++j > i) {
      ++i;
      j = 0;
    }
  }
  return fCorr;
}

void QVAccumXProdPair::Display() const {
  using namespace QVDisplay_940;
  const DisplayFrame frame("QVAccumXProdPair");
  const auto displayStore = [](const char * label, const QVSymMatrix & store) {
    DisplayDVTR(label, store.AsVector(), store.GetNRows());
  };
  DisplayI("Number of variables", fNVars);
  DisplayI("Number of accumulations", fNAccum);
  displayStore("The matrix of counts of accumulations", fAccumCounts);
  displayStore("The matrix of accumulated numbers of cases", fAccumCases);
  displayStore("The matrix of accumulated sums of first variable", fAccumSum1);
  displayStore("The matrix of accumulated sums of second variable", fAccumSum2);
  displayStore("The matrix of accumulated sums of squares of first variable", fAccumSumSq1);
  displayStore("The matrix of accumulated sums of cross-products", fAccumXProds);
  displayStore("The matrix of total numbers of cases", fTotalCases);
  displayStore("The matrix of means of first variable", fMean1);
  displayStore("The matrix of means of second variable", fMean2);
  displayStore("The matrix of variances of first variable", fVariance1);
  displayStore("The matrix of variances of second variable", fVariance2);
  displayStore("The matrix of covariances", fCovar);
  displayStore("The matrix of correlations", fCorr);
}

}  // namespace QVMath_940
