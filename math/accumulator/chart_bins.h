/// The rule by which the charts put a value into a bin.
#pragma once

namespace QVMath_940 {

/// The bin in 0 .. nBins - 1 that holds x, for nBins bins of `length` from `min` on. Values outside
/// fall into the outermost bins; a length of 0 and NaN give the first one. The position is clamped
/// before it becomes an integer, so that no value leaves the range of int.
inline int BinNumber(double x, double min, double length, int nBins) {
  if (length == 0.0) return 0;
  const double position = (x - min) / length;
  if (!(position > 0.0)) return 0;
  if (position >= nBins - 1) return nBins - 1;
  return static_cast<int>(position);
}

}  // namespace QVMath_940
