/// From a CSV file to a variable list and encoded cases.
#pragma once

#include <cstddef>
#include <vector>

#include "QVCancelInfo.h"
#include "QVVarList.h"
#include "options.h"

namespace regression {

/// The complete cases and the variables that they are made of.
///
/// The variables stand in this order: the predictors as the user named them, the target, and the
/// frequency weight if there is one. A case holds one number for each of them: the value itself, or
/// the encoder's code of a category.
struct Cases {
  QVXML_940::QVVarList variables;
  std::vector<double> values;  ///< case after case
  std::size_t width = 0;       ///< numbers in a case

  std::size_t Size() const { return width == 0 ? 0 : values.size() / width; }
  const double * At(std::size_t i) const { return values.data() + i * width; }

  /// 1 where there is no weight variable.
  double Weight(std::size_t i) const {
    const int place = variables.GetFreqWeightIndex();
    return place < 0 ? 1.0 : At(i)[place];
  }
};

/// Reads the named columns of the CSV file.
///
/// A column whose first value is a number is continuous; any other is a category, coded in the
/// order in which complete cases show its values. An empty cell is missing. A case with a missing
/// predictor, target or weight is dropped, and so is one whose weight is not above 0. The variable
/// list keeps the counts: cases used and their weight; cases dropped, those among them whose weight
/// was missing or not above 0, and the weight of the others.
///
/// Throws `Failure` when a column is not there or stands there twice, when the target or the weight
/// is no number, when a text stands in a column of numbers, and when no case is left.
Cases ReadCases(const Options & options, QVMath_940::QVCancelInfo & cancel);

}  // namespace regression
