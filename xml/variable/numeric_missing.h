/// The operations on the user-missing values of a numeric encoder.
#pragma once

#include <iosfwd>

#include "QVNumericMissing.h"

namespace QVXML_940 {

class XMLObj;

/// True for the missing value, a number inside the interval (ends included), and a listed one.
bool IsMissingNumber(QVNumericMissing const & missing, double value);

/// Sets the interval; false, and no change, unless `high > low` and none is set yet.
bool SetInterval(QVNumericMissing & missing, double low, double high);

/// The interval; false, and no change, when none is set.
bool GetInterval(QVNumericMissing const & missing, double & low, double & high);

/// Writes and reads the interval, then the listed values, then their labels. `lines` grows by the
/// lines read; writing returns them.
int WriteMissing(XMLObj const & frame, std::ostream & out, QVNumericMissing const & missing);
bool ParseMissing(std::ifstream & in, QVNumericMissing & missing, int & lines);

/// Shows the listed values, their labels, and the interval when one is set.
void DisplayMissing(QVNumericMissing const & missing);

}  // namespace QVXML_940
