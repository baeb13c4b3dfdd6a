/// Means, variances and covariances of each pair of variables, from the cases in which both are
/// present.
///
/// Each pair (i, j) with i > j has a cell of its own, at j + i(i-1)/2, with its own number of
/// cases:
///
///     cell    0      1      2      3      4      5    ...
///     pair  (1,0)  (2,0)  (2,1)  (3,0)  (3,1)  (3,2)  ...
///
/// Cases are first summed raw; after every `nAccum` of them the sums of the cell are folded into
/// its means, variances and covariance, and `Finish` folds what is left.
///
///     QVMath_940::QVAccumXProdPair pairs(2, 100);
///     for (...) if (both present) pairs.Update(1, y, 0, x, 1.0);
///     pairs.Finish();
///     double covariance = pairs.GetCovar().GetElem(0);   // cell 0: the pair (1, 0)
///
/// Beware of three oddities, which are kept:
///
/// - `GetCorr` reads the cells as a packed symmetric matrix with its diagonal and takes the square
///   root of each diagonal element twice. `Update` fills cells for pairs alone, so that it does not
///   give the correlations of the pairs; take the variances for those from an accumulator of your
///   own (`QVContStats`).
/// - `Merge` takes the other's total of the first variable for that of the second one, and joins
///   unfolded sums in the first n cells alone (n variables). It is right when both variables of
///   each pair have one mean and one variance in the other object, after `Finish` on the other.
/// - The stores have order n - 1 (one cell a pair) until `InitAll`, and order n afterwards.
///
/// Guarantees.
/// Missing values are not known here: leave such cases out, pair by pair. Copies are deep.
/// Threads: different objects may be used from different threads.
#pragma once

#include <cstddef>
#include <vector>

#include "QVExport.h"
#include "QVSymMatrix.h"

namespace QVMath_940 {

class QVCOMMON_API QVAccumXProdPair {
 public:
  /// `nVars` variables (a negative number counts as 0), folding after every `nAccum` cases of a
  /// cell (below 1 counts as 1). Storage that cannot be obtained leaves 0 variables.
  QVAccumXProdPair(int nVars, int nAccum);

  QVAccumXProdPair(const QVAccumXProdPair & other);
  QVAccumXProdPair & operator=(const QVAccumXProdPair & other);
  virtual ~QVAccumXProdPair();

  /// Forgets all cases. The stores take order n, the counts of accumulations stay at n - 1.
  void InitAll();

  /// Sets after how many cases of a cell its sums are folded; below 1 is ignored.
  void SetNAccum(int nAccum);
  int GetNAccum() const;

  /// Number of variables n.
  int GetNVars() const;

  /// Adds a case of the pair (i, j), i > j, with values x of variable i and y of variable j and
  /// weight w: `Update` of its cell. False, and nothing changed, unless 0 <= j < i < n.
  bool Update(int i, double x, int j, double y, double w);

  /// Adds a case to a cell. When the cell holds at least `GetNAccum` cases that are not folded yet
  /// they are folded, and the result tells whether the total number of cases is above 1, as folding
  /// needs; otherwise it is true. So with nAccum = 1 the first case of weight 1 gives false, stays
  /// in the sums and is folded with the next. False, and nothing changed, for a cell outside
  /// 0 .. n(n-1)/2 - 1.
  bool Update(int cell, double x, double y, double w);

  /// Joins the statistics of `other`, cell by cell. An object with 0 variables takes the number of
  /// variables of `other` and runs `InitAll`. False, and nothing changed, when the numbers of
  /// variables differ. See the oddities above. A cell without cases takes the other's covariance.
  bool Merge(const QVAccumXProdPair & other);

  /// `Merge` with each entry in order, null entries skipped. An object with 0 variables takes the
  /// number of the first entry; with variables it must be that of the first entry. False for a list
  /// without an entry. Ends with false at the first entry that does not fit.
  bool Merge(const std::vector<const QVAccumXProdPair *> & others);
  bool Merge(const std::vector<QVAccumXProdPair *> & others);

  /// Folds every cell that holds cases not folded yet. False at the first cell whose total number
  /// of cases is not above 1: the cells behind it are not folded. True with fewer than two
  /// variables.
  bool Finish();

  /// The covariances, cell by cell: `GetElem(int cell)`.
  const QVSymMatrix & GetCovar() const;

  /// With C the covariance cells read as a packed symmetric matrix and r_i = sqrt(C_ii): element
  /// (i, j) is C_ij / sqrt(r_i) / sqrt(r_j) when r_i and r_j are above 0.0, and the missing value
  /// otherwise, also where the store has no such cell. Of order n; see the oddities above.
  const QVSymMatrix & GetCorr();

  /// Shows all fields but the sums of squares of the second variable, which have no line.
  virtual void Display() const;

 private:
  /// Folds the sums of a cell. When the total number of cases would not be above 1, or there is
  /// nothing to fold, nothing changes and the result tells whether that total is above 1.
  bool IncrStats(int cell);

  /// Gives the counts of accumulations `order` rows of zeros.
  void InitAccumCounts(int order);

  template <typename Pointer>
  bool MergeAll(const std::vector<Pointer> & others);
  void InitStores(int order);
  void DropUnlessStored();
  std::size_t NumberOfCells() const;
  std::vector<QVSymMatrix *> Stores();

  int fNVars = 0;
  int fNAccum = 1;
  // One cell for each pair. Sums that are not folded yet:
  QVSymMatrix fAccumCounts;
  QVSymMatrix fAccumCases;
  QVSymMatrix fAccumSum1;
  QVSymMatrix fAccumSum2;
  QVSymMatrix fAccumSumSq1;
  QVSymMatrix fAccumSumSq2;
  QVSymMatrix fAccumXProds;
  // Folded statistics:
  QVSymMatrix fTotalCases;
  QVSymMatrix fMean1;
  QVSymMatrix fMean2;
  QVSymMatrix fVariance1;
  QVSymMatrix fVariance2;
  QVSymMatrix fCovar;
  QVSymMatrix fCorr;  // made by GetCorr
};

}  // namespace QVMath_940
