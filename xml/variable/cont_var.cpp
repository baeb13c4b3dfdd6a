#include "QVContVar.h"

#include <iostream>
#include <limits>

#include "QVContEncoder.h"
#include "QVDisplay.h"
#include "QVMV.h"
#include "XMLElement.h"
#include "common/display/attribute_display.h"
#include "xml/variable/owned.h"
#include "xml/variable/persistent_parts.h"
#include "xml/variable/variable_parts.h"

namespace QVXML_940 {

using QVCommon_940::QVMV;

namespace {

constexpr const char * kClassName = "QVContVar";
constexpr double kLargest = std::numeric_limits<double>::max();
constexpr int kNoBins = -1;
constexpr int kFewestBins = 2;  // one bin is no binning

int BinsBetween(std::vector<double> const & cuts) {
  return static_cast<int>(cuts.size()) + 1;
}

}  // namespace

QVContVar::QVContVar() : QVContVar(std::string(), std::string(), VariableRoleUndefined) {
  fStorage = VariableStorageUndefined;
}

QVContVar::QVContVar(std::string const & name, std::string const & label, VariableRole role)
    : fName(name),
      fLabel(label),
      fRole(role),
      fStorage(VariableStorageReal),
      fMin(QVMV::Missing()),
      fMax(kLargest),
      fNBins(kNoBins),
      fMean(QVMV::Missing()),
      fStdDev(QVMV::Missing()),
      fEncoder(std::make_unique<QVContEncoder>()) {
}

QVContVar::QVContVar(std::string const & name, std::string const & label, double min, double max,
                     VariableRole role, bool useBins, int nBins)
    : QVContVar(name, label, role) {
  fStorage = VariableStorageUndefined;
  fMin = min;
  fMax = max;
  fNBins = nBins;
  if (useBins && max > min && nBins >= kFewestBins) {
    fEncoder = std::make_unique<QVContEncoder>(min, max, nBins);
  }
}

QVContVar::QVContVar(std::string const & name, std::string const & label,
                     std::vector<double> const & cuts, bool useBins, VariableRole role)
    : QVContVar(name, label, QVMV::Missing(), kLargest, cuts, useBins, role) {
}

QVContVar::QVContVar(std::string const & name, std::string const & label, double min, double max,
                     std::vector<double> const & cuts, bool useBins, VariableRole role)
    : QVContVar(name, label, role) {
  fStorage = VariableStorageUndefined;
  fMin = min;
  fMax = max;
  fNBins = BinsBetween(cuts);
  fCutPoints = cuts;
  if (useBins && max > min && fNBins >= kFewestBins) {
    fEncoder = std::make_unique<QVContEncoder>(cuts);
  }
}

QVContVar::~QVContVar() = default;
QVContVar::QVContVar(QVContVar &&) noexcept = default;
QVContVar & QVContVar::operator=(QVContVar &&) noexcept = default;

QVContVar::QVContVar(QVContVar const & other)
    : IQVVariable(other),
      fName(other.fName),
      fLabel(other.fLabel),
      fRole(other.fRole),
      fStorage(other.fStorage),
      fMin(other.fMin),
      fMax(other.fMax),
      fNBins(other.fNBins),
      fMean(other.fMean),
      fStdDev(other.fStdDev),
      fCutPoints(other.fCutPoints),
      fReplacement(other.fReplacement),
      fHasReplacement(other.fHasReplacement),
      fEncoder(CloneOf(other.fEncoder)),
      fSumFreqWts(other.fSumFreqWts),
      fSumCompWts(other.fSumCompWts),
      fOutlierMethod(other.fOutlierMethod),
      fFieldFormat(CloneOf(other.fFieldFormat)) {
}

QVContVar & QVContVar::operator=(QVContVar const & other) {
  if (this != &other) *this = QVContVar(other);
  return *this;
}

QVContVar * QVContVar::Clone() const {
  return new QVContVar(*this);
}

// --- Attributes -------------------------------------------------------------------------------

IQVVariable::MeasureLevel QVContVar::GetMeasureLevel() const {
  return MeasureLevelContinuous;
}
std::string QVContVar::GetVariableName() const {
  return fName;
}
std::string QVContVar::GetVariableLabel() const {
  return fLabel;
}
void QVContVar::SetVariableLabel(std::string const & label) {
  fLabel = label;
}
IQVVariable::VariableRole QVContVar::GetVariableRole() const {
  return fRole;
}
void QVContVar::SetVariableRole(VariableRole role) {
  fRole = role;
}
IQVVariable::VariableStorage QVContVar::GetVariableStorage() const {
  return fStorage;
}
void QVContVar::SetVariableStorage(VariableStorage storage) {
  fStorage = storage;
}
void QVContVar::SetFieldFormatElement(XMLElement * element) {
  TakeOver(fFieldFormat, element);
}
XMLElement * QVContVar::GetFieldFormatElement() {
  return fFieldFormat.get();
}
XMLElement * QVContVar::GetFieldFormatElement() const {
  return fFieldFormat.get();
}

void QVContVar::SetMissingValueReplacement(std::string const & text) {
  fReplacement = text;
  fHasReplacement = true;
}

std::string const * QVContVar::GetMissingValueReplacement() const {
  return fHasReplacement ? &fReplacement : nullptr;
}

bool QVContVar::SetFlagVariable(bool) {
  return false;
}
bool QVContVar::IsFlagVariable() const {
  return false;
}

// --- Distribution -----------------------------------------------------------------------------

void QVContVar::SetMean(double mean) {
  fMean = mean;
}
double QVContVar::GetMean() const {
  return fMean;
}
void QVContVar::SetStdDev(double stdDev) {
  fStdDev = stdDev;
}
double QVContVar::GetStdDev() const {
  return fStdDev;
}

void QVContVar::SetMinMax(double min, double max) {
  fMin = min;
  fMax = max;
}

double QVContVar::GetMin() const {
  return fMin;
}
double QVContVar::GetMax() const {
  return fMax;
}
void QVContVar::SetNBins(int nBins) {
  fNBins = nBins;
}
int QVContVar::GetNBins() const {
  return fNBins;
}
std::vector<double> const & QVContVar::GetCutPoints() const {
  return fCutPoints;
}

void QVContVar::SetOutlierHandleMethod(OutlierHandleMethod method) {
  fOutlierMethod = method;
}

IQVVariable::OutlierHandleMethod QVContVar::GetOutlierHandleMethod() const {
  return fOutlierMethod;
}

double QVContVar::GetSumFreqWts() const {
  return fSumFreqWts;
}
void QVContVar::SetSumFreqWts(double sum) {
  fSumFreqWts = sum;
}
double QVContVar::GetSumCompWts() const {
  return fSumCompWts;
}
void QVContVar::SetSumCompWts(double sum) {
  fSumCompWts = sum;
}

IQVEncoder * QVContVar::GetEncoder() {
  return fEncoder.get();
}
IQVEncoder * QVContVar::GetEncoder() const {
  return fEncoder.get();
}

int QVContVar::GetNumberOfCategories() const {
  return fEncoder ? fEncoder->GetNumberOfCategories() : fNBins;
}

int QVContVar::UpdateNumberOfCategories() {
  fNBins = GetNumberOfCategories();
  return fNBins;
}

IQVVariable::VarStatus QVContVar::GetVarStatus() {
  if (fMin > fMax) return VarStatusEmpty;
  return fMin == fMax ? VarStatusConstant : VarStatusUsable;
}

// --- Keeping and showing ----------------------------------------------------------------------

int QVContVar::WriteObjectXML(std::ostream & out, int tabs) const {
  const XMLObj frame(kClassName, tabs);
  frame.StartObj(out);
  frame.WriteSubElement(out, fName);
  frame.WriteSubElement(out, fLabel);
  frame.WriteSubElement(out, static_cast<int>(fRole));
  frame.WriteSubElement(out, fNBins);
  frame.WriteSubElement(out, fMin);
  frame.WriteSubElement(out, fMax);
  frame.WriteSubElement(out, fMean);
  frame.WriteSubElement(out, fStdDev);
  frame.WriteSubElement(out, static_cast<int>(fStorage));
  int lines = kFrameLines + 9;
  lines += WriteReplacement(frame, out, GetMissingValueReplacement());
  frame.WriteSubElement(out, fSumFreqWts);
  frame.WriteSubElement(out, fSumCompWts);
  lines += 2;
  lines += WriteTypedEncoder(frame, out, fEncoder.get());
  frame.EndObj(out);
  return lines;
}

int QVContVar::ReadObjectXML(std::ifstream & in) {
  int lines = 0;
  if (!ReadContent(in, lines)) FailRead("Failure reading QVContVar!\n");
  return lines;
}

bool QVContVar::ReadContent(std::ifstream & in, int & lines) {
  if (!ParseStartObj(in, kClassName)) return false;
  fEncoder.reset();
  const bool fieldsRead = ParseValue(in, fName) && ParseValue(in, fLabel) &&   //
                          ParseEnum(in, fRole) && ParseValue(in, fNBins) &&    //
                          ParseValue(in, fMin) && ParseValue(in, fMax) &&      //
                          ParseValue(in, fMean) && ParseValue(in, fStdDev) &&  //
                          ParseEnum(in, fStorage);
  if (!fieldsRead) return false;
  lines = kFrameLines + 9;
  IQVEncoder::EncoderType type = IQVEncoder::NoEncoder;
  if (!ParseReplacement(in, fHasReplacement, fReplacement, lines) || !ParseValue(in, fSumFreqWts) ||
      !ParseValue(in, fSumCompWts) || !ParseEnum(in, type)) {
    return false;
  }
  lines += 3;
  if (type != IQVEncoder::NoEncoder && type != IQVEncoder::ContEncoder) {
    std::cout << "Wrong encoder type in QVContVar!\n" << std::flush;
    return false;
  }
  if (type == IQVEncoder::ContEncoder) {
    auto encoder = std::make_unique<QVContEncoder>();
    if (!ParseObject(in, *encoder, lines)) return false;
    fEncoder = std::move(encoder);
  }
  return ParseEndObj(in);
}

void QVContVar::Display() const {
  using namespace QVDisplay_940;
  DisplayS("Continuous variable: name", fName);
  DisplayS("Label", fLabel);
  DisplayVariableRole("Variable role", fRole);
  DisplayVariableStorage("Variable storage", fStorage);
  DisplayI("Number of bins", fNBins);
  DisplayD("Minimum", fMin);
  DisplayD("Maximum", fMax);
  DisplayD("Mean", fMean);
  DisplayD("Standard deviation", fStdDev);
  if (fHasReplacement) DisplayS("Missing value replacement", fReplacement);
  DisplayEncoder(fEncoder.get());
  DisplayD("fSumFreqWts", fSumFreqWts);
  DisplayD("fSumCompWts", fSumCompWts);
  DisplayText(1, "End display for Continuous variable " + fName);
}

}  // namespace QVXML_940
