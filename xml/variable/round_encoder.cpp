#include "QVRoundEncoder.h"

#include <cmath>

#include "QVDisplay.h"
#include "QVMV.h"
#include "common/display/attribute_display.h"
#include "xml/variable/numeric_missing.h"
#include "xml/variable/persistent_parts.h"

namespace QVXML_940 {

using QVCommon_940::QVMV;

namespace {

constexpr const char * kClassName = "QVRoundEncoder";

}  // namespace

QVRoundEncoder::QVRoundEncoder() : fOption(WRoundingAsIs) {
}

QVRoundEncoder::QVRoundEncoder(IQVVariable::WRoundingOption option) : fOption(option) {
}

QVRoundEncoder::~QVRoundEncoder() = default;
QVRoundEncoder::QVRoundEncoder(QVRoundEncoder const &) = default;
QVRoundEncoder & QVRoundEncoder::operator=(QVRoundEncoder const &) = default;

QVRoundEncoder * QVRoundEncoder::Clone() const {
  return new QVRoundEncoder(*this);
}

// --- Coding -----------------------------------------------------------------------------------

IQVEncoder::EncoderType QVRoundEncoder::GetEncoderType() const {
  return RoundEncoder;
}

int QVRoundEncoder::GetNumberOfCategories() const {
  return 0;
}

double QVRoundEncoder::Encode(std::string const &) {
  return QVMV::Missing();
}

double QVRoundEncoder::Encode(double value) {
  return EncodeConst(value);
}

double QVRoundEncoder::EncodeConst(std::string const &) const {
  return QVMV::Missing();
}

double QVRoundEncoder::EncodeConst(double value) const {
  if (IsMissing(value)) return QVMV::Missing();
  double weight = value;
  if (fOption == WRoundingTruncate) weight = std::floor(value);
  if (fOption == WRoundingClosest) weight = std::floor(value + 0.5);
  return weight <= 0.0 ? QVMV::Missing() : weight;
}

bool QVRoundEncoder::IsMissing(std::string const &) const {
  return true;
}

bool QVRoundEncoder::IsMissing(double value) const {
  return value <= 0.0 || IsMissingNumber(fMissing, value);
}

std::string QVRoundEncoder::Decode(int) const {
  return std::string();
}

double QVRoundEncoder::DecodeNum(int) const {
  return QVMV::Missing();
}

// --- Labels and missing values ----------------------------------------------------------------

void QVRoundEncoder::SetValueLabels(std::vector<std::string> const &) {
}

void QVRoundEncoder::SetValueLabel(int, std::string const &) {
}

bool QVRoundEncoder::AddDiscreteUserMissing(double value, std::string const & label) {
  fMissing.fValues.push_back(value);
  fMissing.fLabels.push_back(label);
  return true;
}

bool QVRoundEncoder::AddDiscreteUserMissing(std::string const &, std::string const &) {
  return false;
}

bool QVRoundEncoder::SetMissingInterval(double low, double high) {
  return SetInterval(fMissing, low, high);
}

std::vector<std::string> const * QVRoundEncoder::GetValueLabels() const {
  return nullptr;
}

std::vector<double> const * QVRoundEncoder::GetDiscreteMissValues() const {
  return &fMissing.fValues;
}

std::vector<std::string> const * QVRoundEncoder::GetDiscreteMissValuesStr() const {
  return nullptr;
}

std::vector<std::string> const * QVRoundEncoder::GetMissValueLabels() const {
  return &fMissing.fLabels;
}

bool QVRoundEncoder::GetMissingInterval(double & low, double & high) const {
  return GetInterval(fMissing, low, high);
}

// --- Keeping and showing ----------------------------------------------------------------------

int QVRoundEncoder::WriteObjectXML(std::ostream & out, int tabs) const {
  const XMLObj frame(kClassName, tabs);
  frame.StartObj(out);
  frame.WriteSubElement(out, static_cast<int>(fOption));
  const int lines = kFrameLines + 1 + WriteMissing(frame, out, fMissing);
  frame.EndObj(out);
  return lines;
}

int QVRoundEncoder::ReadObjectXML(std::ifstream & in) {
  int lines = 0;
  if (!ReadContent(in, lines)) FailRead("Failure reading QVRoundEncoder from XML!\n");
  return lines;
}

bool QVRoundEncoder::ReadContent(std::ifstream & in, int & lines) {
  Clear();
  if (!ParseStartObj(in, kClassName) || !ParseEnum(in, fOption)) return false;
  lines = kFrameLines + 1;
  return ParseMissing(in, fMissing, lines) && ParseEndObj(in);
}

void QVRoundEncoder::Clear() {
  fOption = WRoundingAsIs;
  fMissing = QVNumericMissing();
}

void QVRoundEncoder::Display() const {
  QVDisplay_940::DisplayRoundingOption("QVRoundEncoder: option", fOption);
  DisplayMissing(fMissing);
}

}  // namespace QVXML_940
