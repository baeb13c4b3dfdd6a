/// The columns of the design matrix: what the model is made of.
#pragma once

#include <string>
#include <vector>

#include "QVVarList.h"

namespace regression {

/// One column: a number less its centre, or the indicator of a category.
struct Term {
  static constexpr int kNone = -1;

  int variable;      ///< place in the variable list
  int category;      ///< the encoder's code; none for a number
  double centre;     ///< taken off a number
  std::string name;  ///< "bill_length_mm" or "species = Gentoo"

  /// The column's entry for a case in the order of the variable list.
  double Value(const double * values) const {
    if (category == kNone) return values[variable] - centre;
    return values[variable] == category ? 1.0 : 0.0;
  }
};

/// A term for each continuous input and for each category of a categorical one, in the order of the
/// variables; then the target.
///
/// A number is centred on its mean, which its variable must know. The cross-products are then sums
/// of small deviations and keep the digits that a distant mean would cost them.
std::vector<Term> MakeDesign(const QVXML_940::QVVarList & variables);

}  // namespace regression
