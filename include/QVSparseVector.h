/// A sparse vector: a view of the caller's list of indices and list of values.
///
/// It is what rows are added with to a sparse or a dense matrix, and a multiplicand of its own. It
/// owns nothing: both lists must outlive it and must not change their size.
///
///     const std::vector<int> places = {0, 3};
///     const std::vector<double> values = {1.0, 2.5};
///     QVMath_940::QVSparseVector x(places, values);     // 1.0 at 0, 2.5 at 3, 0.0 elsewhere
///     x.GetMinVecSize();                                // 4
///     x.InnerProductWithPart({9.0, 1.0, 0.0, 0.0, 2.0}, 1);  // 1.0 x 1.0 + 2.5 x 2.0 = 6.0
///
/// Guarantees.
/// A vector is valid when its lists are not empty, have one size, and the indices rise strictly
/// from 0 or above. An invalid vector, and one that does not fit its partner, is refused by every
/// operation: false or 0.0, and nothing changes.
/// Sums run in the order of the cells, every product and sum rounded by itself.
/// Different objects may be used from different threads, also on the same lists.
#pragma once

#include <vector>

#include "QVExport.h"

namespace QVMath_940 {

class QVRectMatrix;
class QVSymMatrix;

class QVCOMMON_API QVSparseVector {
 public:
  /// Keeps the addresses of both lists; cell i has index indices[i] and value values[i].
  QVSparseVector(const std::vector<int> & indices, const std::vector<double> & values);

  // === Cells ====================================================================================

  /// True when neither list is empty, both have the same size, the first index is not negative and
  /// the indices rise strictly. Found out once, at construction.
  bool IsValid() const { return fIsValid; }

  /// Number of cells: the size of the list of indices.
  int GetSize() const { return fSize; }

  /// Last index + 1, the size of the smallest dense vector that can hold it; 0 without cells.
  int GetMinVecSize() const;

  /// Index of cell i; -1 for a bad i.
  int GetIndex(int i) const;

  /// Value of cell i; 0.0 for a bad i.
  double GetValue(int i) const;

  // === Dense vectors ============================================================================

  /// v becomes the dense form. It grows to `GetMinVecSize` elements when it is shorter; a longer
  /// one keeps its size, with 0.0 behind the last cell.
  bool ConvertToRegularVector(std::vector<double> & v) const;

  /// v[start + index] += w x value for each cell. False for a negative start and when v ends before
  /// start + `GetMinVecSize`.
  bool IncrementPart(std::vector<double> & v, int start, double w) const;

  /// The sum of value x v[start + index] over the cells; 0.0 for a negative start and when v ends
  /// before start + `GetMinVecSize`.
  double InnerProductWithPart(const std::vector<double> & v, int start) const;

  /// The sum of a's value x b's value over the indices that both have.
  static double InnerProduct(const QVSparseVector & a, const QVSparseVector & b);

  // === Matrices =================================================================================

  /// `out` = w v v-transpose. It takes `GetMinVecSize` rows when it has fewer; a larger one keeps
  /// its order, with 0.0 elsewhere. False also when its storage could not be obtained.
  bool QuadraticOuterProduct(double w, QVSymMatrix & out) const;

  /// `out` += w v v-transpose; false when it has fewer than `GetMinVecSize` rows.
  bool QuadraticOuterProductIncr(double w, QVSymMatrix & out) const;

  /// The block of `out` that starts at element (row, col) += w v v-transpose: the cross-products of
  /// one part of a stacked vector with another, as the categories of a multinomial model need them.
  ///
  /// With row = col it is a diagonal block, and each element (row + p, row + q) with p >= q gets
  /// its term once. Otherwise each element (row + p, col + q) gets its term; beware that (i, j) and
  /// (j, i) are one element of `out`, which gets two terms where the block reaches across the
  /// diagonal. False for a negative start and when `out` ends before either start +
  /// `GetMinVecSize`.
  bool QuadraticOuterProductPartIncr(double w, int row, int col, QVSymMatrix & out) const;

  /// Element (row, start + index) of `out` += w x value for each cell; false for a bad row or a
  /// negative start, and when the columns end before start + `GetMinVecSize`.
  bool IncrementRowPart(QVRectMatrix & out, int row, int start, double w) const;

  // === Multinomial logit ========================================================================

  /// Probabilities of the categories of a multinomial logit model for this row of predictors. The
  /// last category is the reference, with linear predictor 0; `beta` holds for each other category
  /// in turn `width` coefficients. probs[c] receives the probability of category c, logLast the
  /// logarithm of the last one's. probs grows to `categories` elements when it is shorter.
  ///
  /// False, and nothing changed, when categories or width is below 1, when beta has fewer than
  /// (categories - 1) x width elements, when the last index is not below width, and for an invalid
  /// vector. Otherwise the probabilities sum to 1 within rounding, however large or small the
  /// linear predictors are; those below exp(-708.39) become 0.0.
  ///
  /// Beware: with a NaN among the linear predictors probs[0] becomes 1.0, logLast 0.0, and the
  /// other entries stay as they were.
  bool ComputeProbabilities(const std::vector<double> & beta, int categories, int width,
                            std::vector<double> & probs, double & logLast) const;

  // === Display ==================================================================================

  /// Shows the number of cells, the indices, the values and whether the vector is valid.
  void Display() const;

 private:
  bool Fits(int start, long long size) const;

  int fSize;
  const std::vector<int> * fIndices;
  const std::vector<double> * fValues;
  bool fIsValid;
};

}  // namespace QVMath_940
