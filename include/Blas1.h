/// Level 1 BLAS on plain pointers, as a class of static functions.
#pragma once

#include "QVExport.h"

namespace QVMath_940 {

class QVCOMMON_API Blas1 {
 public:
  /// The constants of the machine's double arithmetic, measured afresh at each call.
  ///
  /// Job 1 is the relative spacing e of numbers at 1: 1 + e/2 rounds to 1 (2.220446049250313e-16).
  /// Job 2 is a hundred times s/e, where s is the smallest power of sixteen that division by
  /// sixteen takes to zero (8.900295434028806e-306): small, with its digits well clear of
  /// underflow. Job 3 is its reciprocal (1.1235582092889475e+305). Any other job ends the process
  /// through `XErBla`.
  static double DMach(int job);

  /// Reports a fatal error of an argument on the standard output stream and ENDS THE PROCESS with
  /// exit code 1: the one place in the library that does so.
  ///
  /// `name` is the routine, `argument` the number of its illegal argument, counted from 1.
  [[noreturn]] static void XErBla(const char * name, int argument);
};

}  // namespace QVMath_940
