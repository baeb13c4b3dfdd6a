/// The classification matrix of a model: weighted counts of actual by predicted category.
///
///     QVMath_940::QVClassificationMatrix hits(2);
///     hits.UpdateData(1.0, 1, 0);            // a case of category 1, taken for category 0
///     hits.GetMatrix().GetElem(1, 0);        // 1.0
///
/// Categories count from 0. Threads: one object from one thread at a time.
#pragma once

#include "QVExport.h"
#include "QVRectMatrix.h"

namespace QVMath_940 {

class QVCOMMON_API QVClassificationMatrix {
 public:
  /// A square matrix of zeros; a negative number of categories counts as 0.
  explicit QVClassificationMatrix(int nCategories);

  QVClassificationMatrix(const QVClassificationMatrix &) = default;
  QVClassificationMatrix & operator=(const QVClassificationMatrix &) = default;
  QVClassificationMatrix(QVClassificationMatrix &&) = default;
  QVClassificationMatrix & operator=(QVClassificationMatrix &&) = default;
  virtual ~QVClassificationMatrix();

  /// Adds `weight` to the cell (actual, predicted). False, and nothing changed, for a weight that
  /// is not above 0 (NaN too) or a category that is none.
  bool UpdateData(double weight, int actual, int predicted);

  /// The counts: actual categories down, predicted ones across.
  const QVRectMatrix & GetMatrix() const;

 private:
  int fNCategories = 0;
  double fTotalWeight = 0.0;
  QVRectMatrix fMatrix;
};

}  // namespace QVMath_940
