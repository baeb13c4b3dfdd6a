/// What the gains charts share: the number of segments, and the rule that cuts the cases.
///
/// n cases in descending order of score are cut into S segments of n / S cases (integer division;
/// the last one takes the remainder too). From 51 cases on a smaller first segment comes before
/// them: 1% of the cases, cut to an integer, plus one. Fewer cases than segments give as many rows
/// as cases: one case a row, or behind a first segment of several, one each until none is left.
///
///     100 cases, S = 20:  2 | 5 | 5 | ... | 5 | 3     21 rows
///      40 cases, S = 20:  2 | 2 | ... | 2             20 rows
///      10 cases, S = 20:  1 | 1 | ... | 1             10 rows
///
/// BEWARE: the first segment takes its cases from the others, so the last rows may hold none. Such
/// a row has count 0, and a mean score that is not a number.
///
/// Counts are sums of weights each cut to an integer: a weight of 0.5 counts 0, 2.7 counts 2. Sums
/// of scores and of actual values take the weights whole. A row whose count is 0 divides by it.
/// Counts beyond the range of int stay at its end.
///
/// Order: ties have none. Scores that are not a number come last. Threads: the charts keep no state
/// but the number of segments.
#pragma once

#include "QVExport.h"

namespace QVMath_940 {

class QVCOMMON_API GainsChart {
 public:
  GainsChart() = default;
  GainsChart(const GainsChart &) = default;
  GainsChart & operator=(const GainsChart &) = default;
  virtual ~GainsChart();

  /// The number of segments S; 20 without this call. With S below 1 there are no rows.
  virtual void SetCountOfSegment(int count);

 protected:
  int fCountOfSegment = 20;
};

}  // namespace QVMath_940
