#include "design.h"

#include "IQVEncoder.h"
#include "QVContVar.h"

namespace regression {

using namespace QVXML_940;

namespace {

Term NumberTerm(const QVVarList & variables, int place) {
  const auto & variable = dynamic_cast<const QVContVar &>(*variables.GetVarAt(place));
  return {place, Term::kNone, variable.GetMean(), variable.GetVariableName()};
}

}  // namespace

std::vector<Term> MakeDesign(const QVVarList & variables) {
  std::vector<Term> design;
  for (int place = 0; place < variables.Size(); ++place) {
    if (variables.GetVariableRole(place) != VariableRoleInput) continue;
    const IQVVariable & variable = *variables.GetVarAt(place);
    if (variable.GetMeasureLevel() == MeasureLevelContinuous) {
      design.push_back(NumberTerm(variables, place));
      continue;
    }
    const IQVEncoder & encoder = *variable.GetEncoder();
    for (int code = 0; code < encoder.GetNumberOfCategories(); ++code) {
      const std::string name = variable.GetVariableName() + " = " + encoder.Decode(code);
      design.push_back({place, code, 0.0, name});
    }
  }
  design.push_back(NumberTerm(variables, variables.GetTargetIndex()));
  return design;
}

}  // namespace regression
