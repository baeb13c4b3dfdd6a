/// Category counts of one variable.
///
///     QVMath_940::QVCatStats counts;
///     counts.Update(2.0, 1.0);    // one case of category 2
///     counts.Update(2.0, 0.5);
///     counts.GetCatCount(2);      // 1.5
///
/// Categories are codes 0, 1, 2, ... as an encoder gives them. The missing value is refused as code
/// and as weight. Threads: give each thread its own object and `Pool` at the end.
#pragma once

#include <vector>

#include "QVExport.h"

namespace QVMath_940 {

class QVCOMMON_API QVCatStats {
 public:
  /// Adds `weight` to the count of category `category`, truncated to a whole number; the counts
  /// grow as far as needed. Beware: a weight of 0 or below counts as 1. False, and nothing changed,
  /// when `category` is missing, negative, NaN or above the largest int, when `weight` is missing,
  /// or when the counts cannot grow that far.
  bool Update(double category, double weight);

  /// Adds the counts of `other`.
  void Pool(const QVCatStats & other);

  /// With `all` true the number of counts, zeros included. With false this number less the zeros
  /// found by a walk from category 0, which ends where the shrinking number is reached. Beware:
  /// each zero found so shortens the walk, and zeros near the end may be counted as categories.
  unsigned int GetNCategories(bool all) const;

  /// Sum of the counts.
  double GetSumCounts() const;

  /// The count of a category, 0.0 behind the last one.
  double GetCatCount(unsigned int category) const;

  /// The counts, indexed by category.
  const std::vector<double> & GetCatCounts() const;

  void Display() const;

 private:
  std::vector<double> fCounts;
};

}  // namespace QVMath_940
