/// Maps a number to one of the bins between ascending cut points.
///
/// Bin k holds the values above cut k - 1 up to and including cut k; the last bin holds everything
/// above the last cut. With n cuts there are n + 1 bins.
///
///     QVBinningEncoder bins(0.0, 10.0, 5);     // cuts 2, 4, 6, 8
///     bins.Encode(4.0);                        // 1
///     bins.Encode(4.1);                        // 2
///     bins.Encode(100.0);                      // 4
///
/// A plain value, not an `IQVEncoder`: `QVContEncoder` may hold one.
///
/// Two oddities are meant so. Without cuts `Encode` answers as if one cut stood at 0. And
/// `CreateRebinned` gives an encoder that counts one category whatever its cuts; since the count
/// steers the search, that encoder answers as one without cuts until its cuts are set anew.
#pragma once

#include <vector>

#include "QVExport.h"

namespace QVXML_940 {

class QVCOMMON_API QVBinningEncoder {
 public:
  /// No cuts, 0 categories.
  QVBinningEncoder();

  /// The cuts as given, which must ascend; one category more than cuts.
  explicit QVBinningEncoder(std::vector<double> const & cuts);

  /// `n` bins of equal width between `low` and `high`: cuts at low + i (high - low) / n for i from
  /// 1 to n - 1. Below 2 bins there are no cuts; the category count is `n` all the same.
  QVBinningEncoder(double low, double high, int n);

  /// The bin of `x`, the number of cuts strictly below it. -1 for the missing value; a NaN lies
  /// behind every cut. With no cuts to search, 0 for x < 0 and 1 for any other x.
  int Encode(double x) const;

  int GetNumberOfCategories() const;

  /// The cuts; they stay the encoder's.
  std::vector<double> const & GetBinningCutpoints() const;

  /// Replaces the cuts; the category count becomes their number plus 1.
  void SetBinningCutpoints(std::vector<double> const & cuts);

  /// A new encoder, owned by the caller, with the bins that `counts` shows empty merged away (one
  /// count for each bin). Merged cuts stay as equal cells: the missing value for leading empty
  /// bins, the largest double for trailing ones, a common midpoint for inner ones. Its category
  /// count is
  /// 1. When nothing is to be merged (no empty bin, fewer than two filled ones, or counts of
  /// another length) it is a plain copy.
  QVBinningEncoder * CreateRebinned(std::vector<double> const & counts) const;

  /// Merges empty bins away in this encoder: the cells of `CreateRebinned`, with inner cells that
  /// do not exceed the one before them dropped. Missing cells at the front and largest doubles at
  /// the end stay. The category count becomes the number of cuts plus 1. When nothing is to be
  /// merged, nothing changes.
  void AdjustBinning(std::vector<double> const & counts);

  /// A copy, owned by the caller.
  QVBinningEncoder * Clone() const;

  /// Shows the encoder on the display stream.
  void Display() const;

 private:
  /// Writes the merged cut points over the cells of `out`, which has one for each cut and may be
  /// the encoder's own vector. False, and nothing written, when there is nothing to merge.
  bool ComputeCutpoints(std::vector<double> const & counts, std::vector<double> & out) const;

  int fNumberOfCategories;
  std::vector<double> fCutpoints;
};

}  // namespace QVXML_940
