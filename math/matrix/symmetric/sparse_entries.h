/// A sparse vector given by two vectors: the value v[p] stands at row rows[p], all else is 0.0.
#pragma once

#include <algorithm>
#include <vector>

namespace QVMath_940 {

/// True when there is one row for each value and every row lies within 0 .. n - 1.
inline bool AreEntries(const std::vector<int> & rows, const std::vector<double> & v, int n) {
  return n >= 0 && rows.size() == v.size() &&
         std::all_of(rows.begin(), rows.end(), [n](int row) { return row >= 0 && row < n; });
}

}  // namespace QVMath_940
