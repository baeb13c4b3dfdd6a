/// Means and cross-products of whole matrices of cases, with frequency and regression weights.
///
/// The rows of a data matrix are the cases. Its columns are the p variables, then the frequency
/// weight if there is one, then the regression weight if there is one; the weight of a case is the
/// product of the weights it has, and 1 without any. Every other number of columns is refused.
///
///     QVMath_940::QVMeansXProducts stats(2, true, true, false);  // x, y, frequency weight
///     stats.Compute(data, 0);                                    // two passes over all rows
///     stats.Update(more, 0);                                     // and the rows of another matrix
///
/// Two ways lead through the data:
///
/// - `Compute` and `Update` walk each matrix twice, for the means and then for the deviations. They
///   lose no digits, also when the means are large beside the spread. Prefer them.
/// - `UpdateOnePass`, between `StartUpdateOnePass` and `FinishUpdateOnePass`, walks it once and
/// sums
///   raw products. It is quicker, and it loses about as many digits as the square of mean /
///   standard deviation has.
///
/// `Merge`, the results and the guarantees are those of `QVMeansXProdData`. `Merge` joins finished
/// results alone: the sums of an unfinished `UpdateOnePass` stay where they are.
#pragma once

#include <vector>

#include "QVExport.h"
#include "QVMeansXProdData.h"
#include "QVRectMatrix.h"

namespace QVMath_940 {

class QVCOMMON_API QVMeansXProducts : public QVMeansXProdData {
 public:
  /// 0 variables, with intercept, without weights.
  QVMeansXProducts();

  /// `nVars` variables (a negative number counts as 0), no cases. `freqWeight` and `regWeight` say
  /// which weight columns the data have.
  QVMeansXProducts(int nVars, bool intercept, bool freqWeight, bool regWeight);

  QVMeansXProducts(const QVMeansXProducts & other);
  QVMeansXProducts & operator=(const QVMeansXProducts & other);
  ~QVMeansXProducts() override;

  /// Replaces the state by that of the first `nRows` rows of `data`, all rows for `nRows` below 1
  /// or above their number. The mean of a column whose values are all equal is that value exactly,
  /// and its products are 0.0. No rows, or a total weight of 0, leave the cleared state. False, and
  /// nothing changed, when the number of columns does not fit.
  bool Compute(const QVRectMatrix & data, int nRows);

  /// Adds the first `nRows` rows of `data` (all for `nRows` below 1): `Compute` on them, then
  /// `Merge` with what was there. False when either refuses; for a number of columns that does not
  /// fit nothing is changed.
  bool Update(const QVRectMatrix & data, int nRows);

  /// Do nothing: `Update` needs no frame. They stand here beside their one-pass counterparts.
  void StartUpdate();
  void FinishUpdate();

  /// Clears the sums of `UpdateOnePass`, with room for p variables.
  void StartUpdateOnePass();

  /// Adds the first `nRows` rows of `data` (all for `nRows` below 1) to the raw sums. The results
  /// show them after `FinishUpdateOnePass`. When the count of these sums is exactly 0, or the
  /// number of variables has changed since, `StartUpdateOnePass` runs first. False, and nothing
  /// changed, when the number of columns does not fit.
  bool UpdateOnePass(const QVRectMatrix & data, int nRows);

  /// Replaces the state by that of the raw sums; with a count of exactly 0 the state is cleared.
  /// The sums stay: a further `UpdateOnePass` continues them. Beware: the products of the means are
  /// subtracted whether or not the intercept is on.
  void FinishUpdateOnePass();

  /// Shows the fields of `QVMeansXProdData`, then those of this class.
  void Display() const override;

 private:
  bool HasColumns(const QVRectMatrix & data) const;
  int NumberOfWeights() const;
  double CaseWeight(const double * row) const;
  double ComputeMeans(const QVRectMatrix & data, int nRows);
  void AddDeviationProducts(const QVRectMatrix & data, int nRows);

  bool fFreqWeight = false;
  bool fRegWeight = false;
  double fOnePassNCases = 0.0;
  std::vector<double> fOnePassSums;
  QVSymMatrix fOnePassXProds;
};

}  // namespace QVMath_940
