// QVProvMeans: the checked front of the case-by-case updates.

#include "QVProvMeans.h"

namespace QVMath_940 {

QVProvMeans::QVProvMeans() = default;

QVProvMeans::QVProvMeans(int nVars, bool intercept) : QVMeansXProdData(nVars, intercept) {
}

QVProvMeans::QVProvMeans(const QVProvMeans & other) = default;

QVProvMeans & QVProvMeans::operator=(const QVProvMeans & other) = default;

QVProvMeans::~QVProvMeans() = default;

bool QVProvMeans::Update(const std::vector<double> & x, double w) {
  const double newNCases = fNCases + w;
  if (!HasAllVars(x) || newNCases < 0.0) return false;
  if (newNCases == 0.0) {
    Clear();
  } else if (w > 0.0) {
    AddCase(x, w);
  } else if (w < 0.0) {
    DeleteCase(x, -w);
  }
  return true;
}

}  // namespace QVMath_940
