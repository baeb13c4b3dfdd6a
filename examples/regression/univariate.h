/// The statistics of each field.
#pragma once

#include <vector>

#include "QVCancelInfo.h"
#include "QVUniStats.h"
#include "case_reader.h"

namespace regression {

/// One pass over the cases: the frequencies of each categorical variable; minimum, maximum, mean
/// and standard deviation of each continuous one, which it is also told. In the order of the
/// variables, the weight left out.
std::vector<QVXML_940::QVUniStats> ComputeStatistics(Cases & cases,
                                                     QVMath_940::QVCancelInfo & cancel);

}  // namespace regression
