// QVMeansXProdData: the state of means and cross-products, its updates by one case and its merges.
//
// The updates are those of provisional means: Welford, B. P. (1962), "Note on a method for
// calculating corrected sums of squares and products", Technometrics 4, 419-420, with weights as in
// West, D. H. D. (1979), "Updating mean and variance estimates: an improved method",
// Communications of the ACM 22, 532-535. The merge is the pairwise form of Chan, T. F., Golub, G.
// H. and LeVeque, R. J. (1983), "Algorithms for computing the sample variance", The American
// Statistician 37, 242-247, written with the deviations of both means from the new one.

#include <algorithm>
#include <array>
#include <utility>

#include "QVDisplay.h"
#include "QVMeansXProdData.h"
#include "common/display/display_frame.h"
#include "math/kernels/packed_update.h"

namespace QVMath_940 {

namespace {

/// The deviations of one case: on the stack for the usual number of variables, since an allocation
/// would cost more than the update itself.
class Deviations {
 public:
  Deviations(const std::vector<double> & x, const std::vector<double> & means) {
    const std::size_t n = means.size();
    if (n > fOnStack.size()) {
      fOnHeap.resize(n);
      fStart = fOnHeap.data();
    }
    for (std::size_t i = 0; i < n; ++i) {
      fStart[i] = x[i] - means[i];
    }
  }
  Deviations(const Deviations &) = delete;
  Deviations & operator=(const Deviations &) = delete;

  const double * Start() const { return fStart; }

 private:
  std::array<double, 256> fOnStack;  // left without values on purpose
  std::vector<double> fOnHeap;
  double * fStart = fOnStack.data();
};

}  // namespace

QVMeansXProdData::QVMeansXProdData() = default;

QVMeansXProdData::QVMeansXProdData(int nVars, bool intercept) : fIntercept(intercept) {
  SetNVars(std::max(nVars, 0));
}

QVMeansXProdData::QVMeansXProdData(const QVMeansXProdData & other)
    : fNVars(other.fNVars),
      fIntercept(other.fIntercept),
      fNCases(other.fNCases),
      fMeans(other.fMeans),
      fXProds(other.fXProds) {
  DropUnlessStored();
}

QVMeansXProdData & QVMeansXProdData::operator=(const QVMeansXProdData & other) {
  std::vector<double> means = other.fMeans;  // may throw: before anything changes
  fNVars = other.fNVars;
  fIntercept = other.fIntercept;
  fNCases = other.fNCases;
  fMeans = std::move(means);
  fXProds = other.fXProds;
  DropUnlessStored();
  return *this;
}

QVMeansXProdData::~QVMeansXProdData() = default;

/// Keeps the promise that p variables have storage of order p.
void QVMeansXProdData::DropUnlessStored() {
  if (fXProds.IsValidMatrix()) return;
  fNVars = 0;
  fNCases = 0.0;
  fMeans.clear();
}

void QVMeansXProdData::Clear() {
  fNCases = 0.0;
  std::fill(fMeans.begin(), fMeans.end(), 0.0);
  fXProds.Clear();
}

bool QVMeansXProdData::SetNVars(int nVars) {
  if (nVars < 0) return false;
  fMeans.assign(static_cast<std::size_t>(nVars), 0.0);
  fNVars = nVars;
  fNCases = 0.0;
  fXProds.SetNRows(nVars, true);
  DropUnlessStored();
  return fNVars == nVars && fXProds.IsValidMatrix();
}

void QVMeansXProdData::SetIntercept(bool intercept) {
  fIntercept = intercept;
}

bool QVMeansXProdData::IsIntercept() const {
  return fIntercept;
}

int QVMeansXProdData::GetNVars() const {
  return fNVars;
}

double QVMeansXProdData::GetNCases() const {
  return fNCases;
}

const std::vector<double> & QVMeansXProdData::GetMeans() const {
  return fMeans;
}

const QVSymMatrix & QVMeansXProdData::GetXProds() const {
  return fXProds;
}

bool QVMeansXProdData::HasAllVars(const std::vector<double> & x) const {
  return x.size() >= fMeans.size();
}

void QVMeansXProdData::AddCase(const std::vector<double> & x, double w) {
  if (!HasAllVars(x)) return;
  const double newNCases = fNCases + w;
  if (newNCases == 0.0) {
    Clear();
    return;
  }
  UpdateXX(x, fIntercept ? fNCases * w / newNCases : w);
  const double share = w / newNCases;
  for (std::size_t i = 0; i < fMeans.size(); ++i) {
    fMeans[i] += (x[i] - fMeans[i]) * share;
  }
  fNCases = newNCases;
}

void QVMeansXProdData::DeleteCase(const std::vector<double> & x, double w) {
  if (!HasAllVars(x) || fNCases == 0.0) return;
  const double newNCases = fNCases - w;
  if (newNCases == 0.0) {
    Clear();
    return;
  }
  const double oldShare = fNCases / newNCases;
  const double caseShare = w / newNCases;
  for (std::size_t i = 0; i < fMeans.size(); ++i) {
    fMeans[i] = oldShare * fMeans[i] - caseShare * x[i];
  }
  UpdateXX(x, -(fIntercept ? newNCases * w / fNCases : w));
  fNCases = newNCases;
}

void QVMeansXProdData::UpdateXX(const std::vector<double> & x, double f) {
  double * xProds = fXProds.AsVector().data();
  if (fIntercept) {
    const Deviations deviations(x, fMeans);
    kernels::PackedRank1Update(fNVars, f, deviations.Start(), xProds);
  } else {
    kernels::PackedRank1Update(fNVars, f, x.data(), xProds);
  }
}

bool QVMeansXProdData::Merge(const QVMeansXProdData & other) {
  if (fNVars == 0) {
    fIntercept = other.fIntercept;
    if (!SetNVars(other.fNVars)) return false;
  }
  if (fNVars != other.fNVars || fIntercept != other.fIntercept) return false;

  const double nCases1 = fNCases;
  const double nCases2 = other.fNCases;
  const double nCases = nCases1 + nCases2;
  if (!(nCases > 0.0)) return true;

  const std::size_t n = fMeans.size();
  const std::vector<double> & means1 = fMeans;
  const std::vector<double> & means2 = other.fMeans;
  std::vector<double> means(n);
  for (std::size_t i = 0; i < n; ++i) {
    means[i] = means1[i] + (means2[i] - means1[i]) * nCases2 / nCases;
  }

  double * row1 = fXProds.AsVector().data();
  const double * row2 = other.fXProds.AsVector().data();
  for (std::size_t i = 0; i < n; ++i) {
    if (fIntercept) {
      const double shift1 = (means[i] - means1[i]) * nCases1;
      const double shift2 = (means[i] - means2[i]) * nCases2;
      for (std::size_t j = 0; j <= i; ++j) {
        row1[j] += row2[j] + shift1 * (means[j] - means1[j]) + shift2 * (means[j] - means2[j]);
      }
    } else {
      for (std::size_t j = 0; j <= i; ++j) {
        row1[j] += row2[j];
      }
    }
    row1 += i + 1;
    row2 += i + 1;
  }
  fMeans = std::move(means);
  fNCases = nCases;
  return true;
}

template <typename Pointer>
bool QVMeansXProdData::MergeAll(const std::vector<Pointer> & others) {
  const auto first =
      std::find_if(others.begin(), others.end(), [](Pointer p) { return p != nullptr; });
  if (first == others.end()) return false;
  if (fNVars == 0) {
    fIntercept = (*first)->fIntercept;
    if (!SetNVars((*first)->fNVars)) return false;
  }
  if (fNVars != (*first)->fNVars) return false;
  return std::all_of(first, others.end(), [this](Pointer p) { return p == nullptr || Merge(*p); });
}

bool QVMeansXProdData::Merge(const std::vector<const QVMeansXProdData *> & others) {
  return MergeAll(others);
}

bool QVMeansXProdData::Merge(const std::vector<QVMeansXProdData *> & others) {
  return MergeAll(others);
}

void QVMeansXProdData::Display() const {
  using namespace QVDisplay_940;
  const DisplayFrame frame("QVMeansXProdData");
  DisplayI("Number of variables", fNVars);
  DisplayB("Intercept indicator", fIntercept);
  DisplayD("Weighted number of cases", fNCases);
  DisplayDV("Vector of means", fMeans, false);
  DisplayText(1, "Matrix of cross-products:");
  fXProds.Display();
}

}  // namespace QVMath_940
