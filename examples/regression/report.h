/// What the user reads: the tables on the terminal and the file of predictions.
#pragma once

#include <iosfwd>
#include <vector>

#include "QVUniStats.h"
#include "QVWarnings.h"
#include "case_reader.h"
#include "linear_model.h"

namespace regression {

/// Moments of each continuous field, frequencies of each category.
void PrintStatistics(std::ostream & out, const Cases & cases,
                     const std::vector<QVXML_940::QVUniStats> & statistics);

/// The cases used and dropped, the coefficients with their tests, the analysis of variance. A
/// single point stands for a figure that cannot be had.
void PrintModel(std::ostream & out, const Cases & cases, const LinearModel & model);

/// A line for each warning.
void PrintWarnings(std::ostream & out, QVCommon_940::QVWarnings & warnings);

/// One line for each case used: its observed and its predicted target, with all their digits.
void WritePredictions(std::ostream & out, const Cases & cases, const LinearModel & model);

}  // namespace regression
