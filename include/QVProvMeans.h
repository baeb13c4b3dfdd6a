/// Provisional means: means and cross-products kept current case by case.
///
///     QVMath_940::QVProvMeans stats(1, true);
///     for (double x : {1.0, 2.0, 3.0}) stats.Update({x}, 1.0);  // mean 2, sum of squares 2
///     stats.Update({3.0}, -1.0);                                // mean 1.5, sum of squares 0.5
///
/// A negative weight takes a case out again. `Merge`, the results and the guarantees are those of
/// `QVMeansXProdData`. Missing values are not known here, but the missing value as a weight is
/// refused as every weight that makes the number of cases negative.
#pragma once

#include <vector>

#include "QVExport.h"
#include "QVMeansXProdData.h"

namespace QVMath_940 {

class QVCOMMON_API QVProvMeans : public QVMeansXProdData {
 public:
  /// 0 variables, with intercept.
  QVProvMeans();

  /// `nVars` variables (a negative number counts as 0), no cases.
  QVProvMeans(int nVars, bool intercept);

  QVProvMeans(const QVProvMeans & other);
  QVProvMeans & operator=(const QVProvMeans & other);
  ~QVProvMeans() override;

  /// Adds the case x with weight w above 0, or takes it out again with w below 0; w = 0 changes
  /// nothing. Values of x behind the first p are not read. When the weighted number of cases
  /// becomes exactly 0 the state is cleared. False, and nothing changed, when x is shorter than p
  /// or W + w would be negative.
  bool Update(const std::vector<double> & x, double w);
};

}  // namespace QVMath_940
