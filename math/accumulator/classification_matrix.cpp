// QVClassificationMatrix: actual by predicted categories.

#include "QVClassificationMatrix.h"

namespace QVMath_940 {

QVClassificationMatrix::QVClassificationMatrix(int nCategories)
    : fNCategories(nCategories < 0 ? 0 : nCategories), fMatrix(fNCategories, fNCategories, true) {
}

QVClassificationMatrix::~QVClassificationMatrix() = default;

bool QVClassificationMatrix::UpdateData(double weight, int actual, int predicted) {
  if (!(weight > 0.0)) return false;
  if (actual < 0 || actual >= fNCategories) return false;
  if (predicted < 0 || predicted >= fNCategories) return false;
  // A matrix without storage takes no element.
  if (!fMatrix.SetElem(actual, predicted, fMatrix.GetElem(actual, predicted) + weight)) {
    return false;
  }
  fTotalWeight += weight;
  return true;
}

const QVRectMatrix & QVClassificationMatrix::GetMatrix() const {
  return fMatrix;
}

}  // namespace QVMath_940
