#include "QVCatVar.h"

#include "QVCatNumEncoder.h"
#include "QVDisplay.h"
#include "QVStringEncoder.h"
#include "XMLElement.h"
#include "common/display/attribute_display.h"
#include "xml/variable/owned.h"
#include "xml/variable/persistent_parts.h"
#include "xml/variable/variable_parts.h"

namespace QVXML_940 {

namespace {

constexpr const char * kClassName = "QVCatVar";
constexpr int kRoomOfReadEncoder = 2;

std::unique_ptr<IQVEncoder> MakeEncoder(IQVVariable::MeasureLevel level, int nCategories) {
  if (level == MeasureLevelNumericCategorical)
    return std::make_unique<QVCatNumEncoder>(nCategories);
  return std::make_unique<QVStringEncoder>(nCategories);
}

// The category encoder of a type; null for every other type.
std::unique_ptr<IQVEncoder> MakeEncoder(IQVEncoder::EncoderType type) {
  if (type == IQVEncoder::CatNumEncoder) {
    return std::make_unique<QVCatNumEncoder>(kRoomOfReadEncoder);
  }
  if (type == IQVEncoder::StringEncoder) {
    return std::make_unique<QVStringEncoder>(kRoomOfReadEncoder);
  }
  return nullptr;
}

}  // namespace

QVCatVar::QVCatVar(std::string const & name, std::string const & label, int nCategories,
                   MeasureLevel level, VariableRole role, bool ordinal)
    : QVCatVar(name, label, std::vector<double>(), nCategories, level, role, ordinal) {
}

QVCatVar::QVCatVar(std::string const & name, std::string const & label,
                   std::vector<double> const & sumFreqWts, int nCategories, MeasureLevel level,
                   VariableRole role, bool ordinal)
    : fName(name),
      fLabel(label),
      fOrdinal(ordinal),
      fRole(role),
      fNumberOfCategories(nCategories),
      fLevel(level),
      fEncoder(MakeEncoder(level, nCategories)),
      fSumFreqWts(sumFreqWts) {
}

QVCatVar::~QVCatVar() = default;
QVCatVar::QVCatVar(QVCatVar &&) noexcept = default;
QVCatVar & QVCatVar::operator=(QVCatVar &&) noexcept = default;

QVCatVar::QVCatVar(QVCatVar const & other)
    : IQVVariable(other),
      fName(other.fName),
      fLabel(other.fLabel),
      fOrdinal(other.fOrdinal),
      fBinaryFlag(other.fBinaryFlag),
      fBinaryFlagTrueIndex(other.fBinaryFlagTrueIndex),
      fRole(other.fRole),
      fStorage(other.fStorage),
      fNumberOfCategories(other.fNumberOfCategories),
      fLevel(other.fLevel),
      fReplacement(other.fReplacement),
      fHasReplacement(other.fHasReplacement),
      fEncoder(CloneOf(other.fEncoder)),
      fFieldFormat(CloneOf(other.fFieldFormat)),
      fSumFreqWts(other.fSumFreqWts),
      fFlagVariable(other.fFlagVariable) {
}

QVCatVar & QVCatVar::operator=(QVCatVar const & other) {
  if (this != &other) *this = QVCatVar(other);
  return *this;
}

QVCatVar * QVCatVar::Clone() const {
  return new QVCatVar(*this);
}

// --- Attributes -------------------------------------------------------------------------------

IQVVariable::MeasureLevel QVCatVar::GetMeasureLevel() const {
  return fLevel;
}
std::string QVCatVar::GetVariableName() const {
  return fName;
}
std::string QVCatVar::GetVariableLabel() const {
  return fLabel;
}
void QVCatVar::SetVariableLabel(std::string const & label) {
  fLabel = label;
}
IQVVariable::VariableRole QVCatVar::GetVariableRole() const {
  return fRole;
}
void QVCatVar::SetVariableRole(VariableRole role) {
  fRole = role;
}
IQVVariable::VariableStorage QVCatVar::GetVariableStorage() const {
  return fStorage;
}
void QVCatVar::SetVariableStorage(VariableStorage storage) {
  fStorage = storage;
}
void QVCatVar::SetFieldFormatElement(XMLElement * element) {
  TakeOver(fFieldFormat, element);
}
XMLElement * QVCatVar::GetFieldFormatElement() {
  return fFieldFormat.get();
}
XMLElement * QVCatVar::GetFieldFormatElement() const {
  return fFieldFormat.get();
}

void QVCatVar::SetMissingValueReplacement(std::string const & text) {
  fReplacement = text;
  fHasReplacement = true;
}

std::string const * QVCatVar::GetMissingValueReplacement() const {
  return fHasReplacement ? &fReplacement : nullptr;
}

void QVCatVar::SetOrdinalFlag(bool ordinal) {
  fOrdinal = ordinal;
}
bool QVCatVar::GetOrdinalFlag() const {
  return fOrdinal;
}

void QVCatVar::SetBinaryFlag(bool flag, int trueIndex) {
  const bool isBinary = trueIndex == 0 || trueIndex == 1;
  fBinaryFlag = flag && isBinary;
  if (fBinaryFlag) fBinaryFlagTrueIndex = trueIndex;
}

bool QVCatVar::GetBinaryFlag() const {
  return fBinaryFlag;
}
int QVCatVar::GetBinaryFlagTrueIndex() const {
  return fBinaryFlagTrueIndex;
}

bool QVCatVar::SetFlagVariable(bool flag) {
  if (fLevel != MeasureLevelNumericCategorical && fLevel != MeasureLevelStringCategorical) {
    return false;
  }
  fFlagVariable = flag;
  return true;
}

bool QVCatVar::IsFlagVariable() const {
  return fFlagVariable;
}

bool QVCatVar::GetSumFreqWts(std::vector<double> & sumFreqWts) const {
  if (fSumFreqWts.empty()) return false;
  sumFreqWts = fSumFreqWts;
  return true;
}

// --- Categories -------------------------------------------------------------------------------

IQVEncoder * QVCatVar::GetEncoder() {
  return fEncoder.get();
}
IQVEncoder * QVCatVar::GetEncoder() const {
  return fEncoder.get();
}

void QVCatVar::ChangeEncoder(IQVEncoder * encoder) {
  TakeOver(fEncoder, encoder);
  fNumberOfCategories = fEncoder ? fEncoder->GetNumberOfCategories() : 0;
}

void QVCatVar::SetNumberOfCategories(int nCategories) {
  fNumberOfCategories = nCategories;
}
int QVCatVar::GetNumberOfCategories() const {
  return fNumberOfCategories;
}

int QVCatVar::UpdateNumberOfCategories() {
  const int encoded = fEncoder ? fEncoder->GetNumberOfCategories() : 0;
  if (fEncoder && encoded > fNumberOfCategories) fNumberOfCategories = encoded;
  return fNumberOfCategories;
}

IQVVariable::VarStatus QVCatVar::GetVarStatus() {
  const int categories = UpdateNumberOfCategories();
  if (categories == 1) return VarStatusConstant;
  return categories < 1 ? VarStatusEmpty : VarStatusUsable;
}

// --- Keeping and showing ----------------------------------------------------------------------

int QVCatVar::WriteObjectXML(std::ostream & out, int tabs) const {
  const XMLObj frame(kClassName, tabs);
  frame.StartObj(out);
  frame.WriteSubElement(out, fName);
  frame.WriteSubElement(out, fLabel);
  frame.WriteSubElement(out, static_cast<int>(fRole));
  frame.WriteSubElement(out, static_cast<int>(fStorage));
  frame.WriteSubElement(out, fNumberOfCategories);
  frame.WriteSubElement(out, static_cast<int>(fLevel));
  frame.WriteSubElement(out, fOrdinal);
  frame.WriteSubElement(out, fBinaryFlag);
  frame.WriteSubElement(out, fBinaryFlagTrueIndex);
  int lines = kFrameLines + 9;
  lines += WriteReplacement(frame, out, GetMissingValueReplacement());
  lines += WriteTypedEncoder(frame, out, fEncoder.get());
  frame.EndObj(out);
  return lines;
}

int QVCatVar::ReadObjectXML(std::ifstream & in) {
  int lines = 0;
  if (!ReadContent(in, lines)) FailRead("Failure reading QVCatVar!\n");
  return lines;
}

bool QVCatVar::ReadContent(std::ifstream & in, int & lines) {
  if (!ParseStartObj(in, kClassName)) return false;
  fEncoder.reset();
  const bool fieldsRead = ParseValue(in, fName) && ParseValue(in, fLabel) &&          //
                          ParseEnum(in, fRole) && ParseEnum(in, fStorage) &&          //
                          ParseValue(in, fNumberOfCategories) &&                      //
                          fNumberOfCategories >= 0 && ParseEnum(in, fLevel) &&        //
                          ParseValue(in, fOrdinal) && ParseValue(in, fBinaryFlag) &&  //
                          ParseValue(in, fBinaryFlagTrueIndex);
  if (!fieldsRead) return false;
  lines = kFrameLines + 9;
  IQVEncoder::EncoderType type = IQVEncoder::NoEncoder;
  if (!ParseReplacement(in, fHasReplacement, fReplacement, lines) || !ParseEnum(in, type)) {
    return false;
  }
  lines += 1;
  std::unique_ptr<IQVEncoder> encoder = MakeEncoder(type);
  if (!encoder || !ParseObject(in, *encoder, lines)) return false;
  fEncoder = std::move(encoder);
  return ParseEndObj(in);
}

void QVCatVar::Display() const {
  using namespace QVDisplay_940;
  DisplayS("Categorical variable: name", fName);
  DisplayS("Label", fLabel);
  DisplayVariableRole("Variable role", fRole);
  DisplayVariableStorage("Variable storage", fStorage);
  DisplayMeasureLevel("Measurement Level", fLevel);
  DisplayI("Number of categories", fNumberOfCategories);
  DisplayB("Ordinal variable indicator", fOrdinal);
  DisplayB("Binary Flag variable indicator", fBinaryFlag);
  DisplayI("Index of Binary Flag's true value", fBinaryFlagTrueIndex);
  if (fHasReplacement) DisplayS("Missing value replacement", fReplacement);
  DisplayEncoder(fEncoder.get());
}

}  // namespace QVXML_940
