// QVMeansXProducts: passes over whole matrices of cases.

#include <algorithm>

#include "QVDisplay.h"
#include "QVMeansXProducts.h"
#include "common/display/display_frame.h"
#include "math/kernels/packed_update.h"

namespace QVMath_940 {

namespace {

/// Rows that are prepared (centred or weighted) at a time before they enter the products: a panel
/// of them stays in the cache beside the triangle.
constexpr int kPanelRows = 64;

/// How many rows an operation takes: all of them when `wanted` is below 1.
int RowsToTake(const QVRectMatrix & data, int wanted) {
  const int rows = data.GetNRows();
  return wanted < 1 ? rows : std::min(wanted, rows);
}

/// The rows of `data` one after the other, also when there are no columns and so no storage.
class RowWalk {
 public:
  explicit RowWalk(const QVRectMatrix & data)
      : fStart(data.GetNCols() > 0 ? data.GetRowPtr(0) : nullptr), fStride(data.GetNCols()) {}
  const double * Row(int r) const { return fStart + r * fStride; }
  kernels::CaseRows From(int r) const { return {Row(r), fStride}; }

 private:
  const double * fStart;
  std::ptrdiff_t fStride;
};

}  // namespace

QVMeansXProducts::QVMeansXProducts() = default;

QVMeansXProducts::QVMeansXProducts(int nVars, bool intercept, bool freqWeight, bool regWeight)
    : QVMeansXProdData(nVars, intercept), fFreqWeight(freqWeight), fRegWeight(regWeight) {
}

QVMeansXProducts::QVMeansXProducts(const QVMeansXProducts & other) = default;

QVMeansXProducts & QVMeansXProducts::operator=(const QVMeansXProducts & other) = default;

QVMeansXProducts::~QVMeansXProducts() = default;

int QVMeansXProducts::NumberOfWeights() const {
  return (fFreqWeight ? 1 : 0) + (fRegWeight ? 1 : 0);
}

/// The columns of `data` are the variables and the weights.
bool QVMeansXProducts::HasColumns(const QVRectMatrix & data) const {
  return data.IsValidMatrix() && data.GetNCols() - NumberOfWeights() == fNVars;
}

/// The weight of a case: the product of its weight columns, 1 without any.
double QVMeansXProducts::CaseWeight(const double * row) const {
  switch (NumberOfWeights()) {
    case 0:
      return 1.0;
    case 1:
      return row[fNVars];
    default:
      return row[fNVars] * row[fNVars + 1];
  }
}

// === Two passes ==================================================================================

bool QVMeansXProducts::Compute(const QVRectMatrix & data, int nRows) {
  if (!HasColumns(data)) return false;
  Clear();
  const int rows = RowsToTake(data, nRows);
  fNCases = ComputeMeans(data, rows);
  if (fNCases == 0.0) {
    Clear();
  } else {
    AddDeviationProducts(data, rows);
  }
  return true;
}

/// The first pass: fills the means and gives the total weight. A column whose values are all equal
/// gets that value as its mean, free of rounding: without weights its sum is compared with the sum
/// of as many first values, which a constant column equals to the last bit.
double QVMeansXProducts::ComputeMeans(const QVRectMatrix & data, int nRows) {
  if (nRows < 1) return 0.0;
  const std::size_t n = fMeans.size();
  const RowWalk walk(data);
  const double * first = walk.Row(0);
  std::vector<double> sums(n, 0.0);
  if (NumberOfWeights() == 0) {
    std::vector<double> sumsOfFirst(n, 0.0);
    for (int r = 0; r < nRows; ++r) {
      const double * x = walk.Row(r);
      for (std::size_t j = 0; j < n; ++j) {
        sums[j] += x[j];
        sumsOfFirst[j] += first[j];
      }
    }
    for (std::size_t j = 0; j < n; ++j) {
      fMeans[j] = sums[j] == sumsOfFirst[j] ? first[j] : sums[j] / nRows;
    }
    return nRows;
  }

  std::vector<int> rowsUnlikeFirst(n, 0);
  double weight = 0.0;
  for (int r = 0; r < nRows; ++r) {
    const double * x = walk.Row(r);
    const double caseWeight = CaseWeight(x);
    weight += caseWeight;
    for (std::size_t j = 0; j < n; ++j) {
      sums[j] += caseWeight * x[j];
      rowsUnlikeFirst[j] += x[j] == first[j] ? 0 : 1;
    }
  }
  for (std::size_t j = 0; j < n; ++j) {
    fMeans[j] = rowsUnlikeFirst[j] == 0 ? first[j] : sums[j] / weight;
  }
  return weight;
}

/// The second pass: adds the products of the deviations, or of the raw values without intercept.
void QVMeansXProducts::AddDeviationProducts(const QVRectMatrix & data, int nRows) {
  if (fNVars == 0) return;
  const std::size_t n = fMeans.size();
  const RowWalk walk(data);
  const bool weighted = NumberOfWeights() > 0;
  std::vector<double> panel(fIntercept ? kPanelRows * n : 0);
  std::vector<double> weights(weighted ? kPanelRows : 0);
  for (int start = 0; start < nRows; start += kPanelRows) {
    const int rows = std::min(kPanelRows, nRows - start);
    kernels::CaseRows cases = walk.From(start);
    if (fIntercept) {
      double * deviation = panel.data();
      for (int r = 0; r < rows; ++r) {
        const double * x = walk.Row(start + r);
        for (std::size_t j = 0; j < n; ++j) {
          *deviation++ = x[j] - fMeans[j];
        }
      }
      cases = {panel.data(), static_cast<std::ptrdiff_t>(n)};
    }
    double * const xProds = fXProds.AsVector().data();
    if (weighted) {
      for (int r = 0; r < rows; ++r) {
        weights[static_cast<std::size_t>(r)] = CaseWeight(walk.Row(start + r));
      }
      kernels::PackedWeightedRankKUpdate(fNVars, rows, cases, weights.data(), xProds);
    } else {
      kernels::PackedRankKUpdate(fNVars, rows, cases, cases, xProds);
    }
  }
}

bool QVMeansXProducts::Update(const QVRectMatrix & data, int nRows) {
  if (fNCases == 0.0) return Compute(data, nRows);
  if (!HasColumns(data)) return false;
  const QVMeansXProdData before(*this);
  if (before.GetNVars() != fNVars) return false;  // no storage for the copy
  return Compute(data, nRows) && Merge(before);
}

void QVMeansXProducts::StartUpdate() {
}

void QVMeansXProducts::FinishUpdate() {
}

// === One pass ====================================================================================

void QVMeansXProducts::StartUpdateOnePass() {
  fOnePassNCases = 0.0;
  fOnePassSums.assign(fMeans.size(), 0.0);
  fOnePassXProds.SetNRows(fNVars, true);
}

bool QVMeansXProducts::UpdateOnePass(const QVRectMatrix & data, int nRows) {
  if (!HasColumns(data)) return false;
  if (fOnePassNCases == 0.0 || fOnePassSums.size() != fMeans.size()) StartUpdateOnePass();
  if (!fOnePassXProds.IsValidMatrix()) return false;

  const std::size_t n = fMeans.size();
  const RowWalk walk(data);
  const bool weighted = NumberOfWeights() > 0;
  const int allRows = RowsToTake(data, nRows);
  if (!weighted) fOnePassNCases += allRows;
  std::vector<double> panel(weighted ? kPanelRows * n : 0);
  for (int start = 0; start < allRows; start += kPanelRows) {
    const int rows = std::min(kPanelRows, allRows - start);
    kernels::CaseRows left = walk.From(start);
    if (weighted) {
      double * product = panel.data();
      for (int r = 0; r < rows; ++r) {
        const double * x = walk.Row(start + r);
        const double caseWeight = CaseWeight(x);
        fOnePassNCases += caseWeight;
        for (std::size_t j = 0; j < n; ++j) {
          *product++ = caseWeight * x[j];
        }
      }
      left = {panel.data(), static_cast<std::ptrdiff_t>(n)};
    }
    for (int r = 0; r < rows; ++r) {
      const double * x = left.start + r * left.stride;
      for (std::size_t j = 0; j < n; ++j) {
        fOnePassSums[j] += x[j];
      }
    }
    kernels::PackedRankKUpdate(fNVars, rows, left, walk.From(start),
                               fOnePassXProds.AsVector().data());
  }
  return true;
}

void QVMeansXProducts::FinishUpdateOnePass() {
  if (fOnePassNCases == 0.0 || fOnePassSums.size() != fMeans.size() ||
      !fOnePassXProds.IsValidMatrix()) {
    Clear();
    return;
  }
  fNCases = fOnePassNCases;
  double * row = fXProds.AsVector().data();
  const double * productRow = fOnePassXProds.AsVector().data();
  for (std::size_t i = 0; i < fMeans.size(); ++i) {
    fMeans[i] = fOnePassSums[i] / fOnePassNCases;
    for (std::size_t j = 0; j <= i; ++j) {
      row[j] = productRow[j] - fMeans[i] * fOnePassSums[j];
    }
    row += i + 1;
    productRow += i + 1;
  }
}

void QVMeansXProducts::Display() const {
  using namespace QVDisplay_940;
  const DisplayFrame frame("QVMeansXProducts");
  QVMeansXProdData::Display();
  DisplayB("Frequency weight indicator", fFreqWeight);
  DisplayB("Regression weight indicator", fRegWeight);
  DisplayD("Weighted number of cases accumulated by UpdateOnePass", fOnePassNCases);
  DisplayDV("Weighted sums accumulated by UpdateOnePass", fOnePassSums, false);
  DisplayDVTR("Weighted sums of products accumulated by UpdateOnePass", fOnePassXProds.AsVector(),
              fOnePassXProds.GetNRows());
}

}  // namespace QVMath_940
