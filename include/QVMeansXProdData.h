/// Weighted means and cross-products of deviations, updated case by case.
///
/// The state is the weighted number of cases W, the p means and the packed lower triangle of the
/// sums of w (x_i - mean_i) (x_j - mean_j). A case enters (`AddCase`) or leaves (`DeleteCase`) in
/// one step and nothing of the raw data is kept. `QVProvMeans` is the checked front for single
/// cases, `QVMeansXProducts` the one for whole matrices of cases; both are this class with more
/// operations.
///
///     QVMath_940::QVMeansXProdData state(2, true);
///     state.AddCase({1.0, 10.0}, 1.0);
///     state.AddCase({3.0, 30.0}, 1.0);
///     state.GetMeans()[1];            // 20.0
///     state.GetXProds().GetElem(1, 0) // 20.0, the sum of (x0 - 2)(x1 - 20)
///
/// Without the intercept the products are those of the raw values, sums of w x_i x_j; the means are
/// kept all the same.
///
/// Guarantees.
/// Missing values are not known here: -1.8e308 enters as a number. Drop such cases before.
/// Copies are deep and independent. A state whose storage could not be obtained has 0 variables.
/// Only the means and local scratch can throw std::bad_alloc.
/// Threads: different objects may be used from different threads; give each thread its own and
/// `Merge` at the end.
#pragma once

#include <vector>

#include "QVExport.h"
#include "QVSymMatrix.h"

namespace QVMath_940 {

class QVCOMMON_API QVMeansXProdData {
 public:
  /// 0 variables, with intercept. `Merge` makes such an object take the shape of the other.
  QVMeansXProdData();

  /// `nVars` variables (a negative number counts as 0), no cases.
  QVMeansXProdData(int nVars, bool intercept);

  QVMeansXProdData(const QVMeansXProdData & other);
  QVMeansXProdData & operator=(const QVMeansXProdData & other);
  virtual ~QVMeansXProdData();

  // === Shape and results ========================================================================

  /// Forgets all cases; the number of variables and the intercept stay.
  void Clear();

  /// Takes `nVars` variables and forgets all cases; the intercept stays. False, and nothing
  /// changed, for a negative number; false, and 0 variables, when the storage could not be
  /// obtained.
  bool SetNVars(int nVars);

  /// Sets whether products are of deviations from the means (true) or of raw values. Set it before
  /// the first case: what is accumulated is not changed.
  void SetIntercept(bool intercept);
  bool IsIntercept() const;

  /// Number of variables p.
  int GetNVars() const;

  /// Weighted number of cases W.
  double GetNCases() const;

  /// The p means; all 0.0 without cases.
  const std::vector<double> & GetMeans() const;

  /// The cross-products, of order p. Copy the matrix to sweep it.
  const QVSymMatrix & GetXProds() const;

  // === Single cases =============================================================================

  /// Adds the case x (at least p values) with weight w. Nothing happens when x is shorter; the
  /// state is cleared when W + w is exactly 0.
  void AddCase(const std::vector<double> & x, double w);

  /// Takes the case x, added before with weight w, out again: the exact inverse of `AddCase` but
  /// for rounding. Nothing happens when x is shorter than p or there are no cases; the state is
  /// cleared when W - w is exactly 0.
  void DeleteCase(const std::vector<double> & x, double w);

  // === Joining partial results ==================================================================

  /// Adds the cases that `other` stands for. An object with 0 variables takes the number of
  /// variables and the intercept of `other` first. False, and nothing changed, when the numbers of
  /// variables or the intercepts differ. With no weight on either side nothing is added; true.
  bool Merge(const QVMeansXProdData & other);

  /// `Merge` with each entry in order, null entries skipped. An object with 0 variables takes the
  /// shape of the first entry; with variables their number must be that of the first entry. False
  /// for a list without an entry. Ends with false at the first entry that does not fit; beware, the
  /// entries before it have been merged then.
  bool Merge(const std::vector<const QVMeansXProdData *> & others);
  bool Merge(const std::vector<QVMeansXProdData *> & others);

  /// Shows all fields, the matrix by its own `Display`.
  virtual void Display() const;

 protected:
  /// Element (i, j) of the cross-products grows by (d_i f) d_j, where d is x less the means with
  /// the intercept and x without it. x holds at least p values; there is no test.
  void UpdateXX(const std::vector<double> & x, double f);

  /// x has a value for each variable.
  bool HasAllVars(const std::vector<double> & x) const;

  int fNVars = 0;
  bool fIntercept = true;
  double fNCases = 0.0;
  std::vector<double> fMeans;
  QVSymMatrix fXProds;  // of order fNVars, or invalid when fNVars is 0

 private:
  template <typename Pointer>
  bool MergeAll(const std::vector<Pointer> & others);
  void DropUnlessStored();
};

}  // namespace QVMath_940
