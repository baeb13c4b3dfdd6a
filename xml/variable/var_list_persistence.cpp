// What the list of variables keeps in a file, and how it shows itself.
#include <algorithm>

#include "QVCatVar.h"
#include "QVContVar.h"
#include "QVDisplay.h"
#include "QVVarList.h"
#include "XMLElement.h"
#include "xml/variable/persistent_parts.h"

namespace QVXML_940 {

namespace {

constexpr const char * kClassName = "QVVarList";

// Lines told for the list itself. The object has seven; the two of its frame do not count.
constexpr int kOwnLines = 5;

// An object of the class that a level stands for, to be read into. The weight is the one kept from
// before the read, if there is one. Null for a level that no class has.
std::unique_ptr<IQVVariable> MakeVariable(IQVVariable::MeasureLevel level,
                                          std::unique_ptr<IQVVariable> & keptWeight) {
  const char * const blankName = " ";
  switch (level) {
    case MeasureLevelContinuous:
      return std::make_unique<QVContVar>();
    case MeasureLevelNumericCategorical:
    case MeasureLevelStringCategorical:
      return std::make_unique<QVCatVar>(blankName, "", 0, level, VariableRoleInput, false);
    case MeasureLevelFrequencyWeight:
      if (keptWeight) return std::move(keptWeight);
      return std::make_unique<QVWeightVar>(blankName, "", WRoundingAsIs);
    default:
      return nullptr;
  }
}

}  // namespace

int QVVarList::WriteObjectXML(std::ostream & out, int tabs) const {
  const XMLObj frame(kClassName, tabs);
  frame.StartObj(out);
  const auto gaps = std::count(fVariables.begin(), fVariables.end(), nullptr);
  frame.WriteSubElement(out, static_cast<int>(Size() - gaps));
  int lines = kOwnLines;
  for (auto const & variable : fVariables) {
    if (!variable) continue;
    frame.WriteSubElement(out, static_cast<int>(variable->GetMeasureLevel()));
    lines += 1 + variable->WriteObjectXML(out, tabs + 1);
  }
  frame.WriteSubElement(out, fNumberOfContinuous);
  frame.WriteSubElement(out, fNumberOfCategorical);
  frame.WriteSubElement(out, fTargetIndex);
  frame.WriteSubElement(out, fTargetRespIndex);
  frame.EndObj(out);
  return lines;
}

int QVVarList::ReadObjectXML(std::ifstream & in) {
  int lines = 0;
  if (!ReadContent(in, lines)) FailRead("Failure reading QVVarList!\n");
  return lines;
}

bool QVVarList::ReadContent(std::ifstream & in, int & lines) {
  if (!ParseStartObj(in, kClassName)) return false;
  std::unique_ptr<IQVVariable> weight;
  if (GetFreqWeightVariable()) {
    weight = std::move(fVariables[static_cast<std::size_t>(fFreqWeightIndex)]);
  }
  fVariables.clear();
  lines = kOwnLines;
  return ReadVariables(in, std::move(weight), lines) &&  //
         ParseValue(in, fNumberOfContinuous) && ParseValue(in, fNumberOfCategorical) &&
         ParseValue(in, fTargetIndex) && ParseValue(in, fTargetRespIndex) && ParseEndObj(in);
}

bool QVVarList::ReadVariables(std::ifstream & in, std::unique_ptr<IQVVariable> weight,
                              int & lines) {
  int count = 0;
  if (!ParseCount(in, count)) return false;
  // The entries stand empty until their variables are read, unless nothing bounds their number.
  if (FileSize(in) >= 0) fVariables.resize(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    IQVVariable::MeasureLevel level = MeasureLevelUnknown;
    if (!ParseEnum(in, level)) return false;
    std::unique_ptr<IQVVariable> variable = MakeVariable(level, weight);
    lines += 1;
    if (!variable || !ParseObject(in, *variable, lines)) return false;
    if (i == Size()) fVariables.emplace_back();
    fVariables[static_cast<std::size_t>(i)] = std::move(variable);
  }
  return true;
}

void QVVarList::Display() const {
  using namespace QVDisplay_940;
  DisplayText(1, "Begin display of QVVarList object.");
  DisplayI("Total variables", Size());
  DisplayI("Number of Continuous Variables", fNumberOfContinuous);
  DisplayI("Number of Categorical Variables", fNumberOfCategorical);
  for (int i = 0; i < Size(); ++i) {
    DisplayText(1, "Variable " + std::to_string(i));
    if (IQVVariable const * const variable = GetVarAt(i)) variable->Display();
  }
  DisplayText(1, "End of display for QVVarList object.");
}

}  // namespace QVXML_940
