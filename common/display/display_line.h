/// What the display functions share: the words for one value, and the write of one finished text.
#pragma once

#include <cstddef>
#include <string>

namespace QVDisplay_940 {

/// "%g", or "miss" for the missing value.
std::string ShortNumber(double value);

/// "%.17g", or "miss" for the missing value.
std::string FullNumber(double value);

/// A line end, the text, a flush, to the display stream.
void WriteLine(const std::string & text);

/// One row of a matrix as a line: "row ", " %d", ": ", then the items as " %g" or " miss", however
/// many they are.
std::string RowText(std::size_t row, const double * values, std::size_t n);

/// Writes the line of `RowText`. Matrix classes display their rows with it.
void DisplayRow(int row, const double * values, int n);

/// The same with "%d" for the number: "row 0: ". The full forms of the matrix classes have it so.
void DisplayFullRow(int row, const double * values, int n);

}  // namespace QVDisplay_940
