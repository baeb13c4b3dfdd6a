/// Arithmetic that stays clear of overflow and underflow on its way to an ordinary result.
#pragma once

#include "QVExport.h"

namespace QVMath_940 {
namespace QVExtremeNum {

/// The square root of a*a*b + c*c*d, without ever forming the squares.
///
/// With p = |a| sqrt|b| and q = |c| sqrt|d| this is the root of sign(b) p^2 + sign(d) q^2, taken as
/// the larger of the two times the root of 1 plus or minus the squared ratio. A result that is a
/// double at all is reached without overflow: a = c = 1e200, b = d = 1 gives sqrt(2) * 1e200.
///
/// Returns true and sets `result` when the argument of the root is not negative. Returns false and
/// leaves `result` alone when it is negative, when b and d are both below 0 (whatever a and c are),
/// and when a NaN leaves it without a value.
QVCOMMON_API bool SumSqRoot(double a, double b, double c, double d, double & result);

}  // namespace QVExtremeNum
}  // namespace QVMath_940

/// The functions are at home in QVMath_940 and answer to the short name as well.
namespace QVExtremeNum = QVMath_940::QVExtremeNum;
