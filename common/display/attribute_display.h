/// Display of a variable's attributes: the label, and the attribute's text, as one line.
///
///     DisplayVariableRole("Variable role", VariableRoleTarget);   // "\nVariable role = Target"
///
/// A number without an enumerator displays as " = unrecognized".
#pragma once

#include <string>

#include "QVVariableEnums.h"

namespace QVDisplay_940 {

void DisplayMeasureLevel(std::string label, QVXML_940::MeasureLevel level);
void DisplayVariableRole(std::string label, QVXML_940::VariableRole role);
void DisplayVariableStorage(std::string label, QVXML_940::VariableStorage storage);
void DisplayRoundingOption(std::string label, QVXML_940::WRoundingOption option);

}  // namespace QVDisplay_940
