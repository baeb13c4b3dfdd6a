#include "QVWeightVar.h"

#include "QVDisplay.h"
#include "QVRoundEncoder.h"
#include "XMLElement.h"
#include "common/display/attribute_display.h"
#include "common/display/display_frame.h"
#include "xml/variable/owned.h"
#include "xml/variable/persistent_parts.h"
#include "xml/variable/variable_parts.h"

namespace QVXML_940 {

namespace {

constexpr const char * kClassName = "QVWeightVar";

}  // namespace

QVWeightVar::QVWeightVar(std::string const & name, std::string const & label,
                         WRoundingOption option)
    : fName(name), fLabel(label), fEncoder(std::make_unique<QVRoundEncoder>(option)) {
}

QVWeightVar::~QVWeightVar() = default;
QVWeightVar::QVWeightVar(QVWeightVar &&) noexcept = default;
QVWeightVar & QVWeightVar::operator=(QVWeightVar &&) noexcept = default;

QVWeightVar::QVWeightVar(QVWeightVar const & other)
    : IQVVariable(other),
      fName(other.fName),
      fLabel(other.fLabel),
      fStorage(other.fStorage),
      fEncoder(CloneOf(other.fEncoder)),
      fFieldFormat(CloneOf(other.fFieldFormat)) {
}

QVWeightVar & QVWeightVar::operator=(QVWeightVar const & other) {
  if (this != &other) *this = QVWeightVar(other);
  return *this;
}

QVWeightVar * QVWeightVar::Clone() const {
  return new QVWeightVar(*this);
}

// --- Attributes -------------------------------------------------------------------------------

IQVVariable::MeasureLevel QVWeightVar::GetMeasureLevel() const {
  return MeasureLevelFrequencyWeight;
}

std::string QVWeightVar::GetVariableName() const {
  return fName;
}
std::string QVWeightVar::GetVariableLabel() const {
  return fLabel;
}
void QVWeightVar::SetVariableLabel(std::string const & label) {
  fLabel = label;
}

IQVVariable::VariableRole QVWeightVar::GetVariableRole() const {
  return VariableRoleFrequencyWeight;
}

void QVWeightVar::SetVariableRole(VariableRole) {
}
IQVVariable::VariableStorage QVWeightVar::GetVariableStorage() const {
  return fStorage;
}
void QVWeightVar::SetVariableStorage(VariableStorage storage) {
  fStorage = storage;
}
void QVWeightVar::SetFieldFormatElement(XMLElement * element) {
  TakeOver(fFieldFormat, element);
}
XMLElement * QVWeightVar::GetFieldFormatElement() {
  return fFieldFormat.get();
}
XMLElement * QVWeightVar::GetFieldFormatElement() const {
  return fFieldFormat.get();
}
void QVWeightVar::SetMissingValueReplacement(std::string const &) {
}
std::string const * QVWeightVar::GetMissingValueReplacement() const {
  return nullptr;
}
bool QVWeightVar::SetFlagVariable(bool) {
  return false;
}
bool QVWeightVar::IsFlagVariable() const {
  return false;
}

IQVEncoder * QVWeightVar::GetEncoder() {
  return fEncoder.get();
}
IQVEncoder * QVWeightVar::GetEncoder() const {
  return fEncoder.get();
}
int QVWeightVar::GetNumberOfCategories() const {
  return 0;
}
int QVWeightVar::UpdateNumberOfCategories() {
  return 0;
}
IQVVariable::VarStatus QVWeightVar::GetVarStatus() {
  return VarStatusUsable;
}

// --- Keeping and showing ----------------------------------------------------------------------

int QVWeightVar::WriteObjectXML(std::ostream & out, int tabs) const {
  const XMLObj frame(kClassName, tabs);
  frame.StartObj(out);
  frame.WriteSubElement(out, fName);
  frame.WriteSubElement(out, fLabel);
  frame.WriteSubElement(out, static_cast<int>(fStorage));
  int lines = kFrameLines + 3;
  if (fEncoder) lines += fEncoder->WriteObjectXML(out, tabs + 1);
  frame.EndObj(out);
  return lines;
}

int QVWeightVar::ReadObjectXML(std::ifstream & in) {
  int lines = 0;
  if (!ReadContent(in, lines)) FailRead("Failure reading QVWeightVar!\n");
  return lines;
}

bool QVWeightVar::ReadContent(std::ifstream & in, int & lines) {
  if (!ParseStartObj(in, kClassName) || !ParseValue(in, fName) || !ParseValue(in, fLabel) ||
      !ParseEnum(in, fStorage)) {
    return false;
  }
  lines = kFrameLines + 3;
  if (!fEncoder) fEncoder = std::make_unique<QVRoundEncoder>();
  return ParseObject(in, *fEncoder, lines) && ParseEndObj(in);
}

void QVWeightVar::Display() const {
  using namespace QVDisplay_940;
  const DisplayFrame frame(kClassName);
  DisplayS("Weight variable: name", fName);
  DisplayS("Label", fLabel);
  DisplayVariableStorage("Variable storage", fStorage);
  DisplayEncoder(fEncoder.get());
}

}  // namespace QVXML_940
