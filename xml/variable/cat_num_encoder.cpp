#include "QVCatNumEncoder.h"

#include <cmath>
#include <cstddef>
#include <string>

#include "NumberText.h"
#include "QVDisplay.h"
#include "QVMV.h"
#include "xml/variable/numeric_missing.h"
#include "xml/variable/persistent_parts.h"

namespace QVXML_940 {

namespace {

constexpr double kNoCode = -1.0;
constexpr const char * kClassName = "QVCatNumEncoder";

}  // namespace

QVCatNumEncoder::QVCatNumEncoder(int n) : fLastCode(-1) {
  if (n > 0) fValues.reserve(static_cast<std::size_t>(n));
}

QVCatNumEncoder::QVCatNumEncoder(std::vector<double> const & values) : fLastCode(-1) {
  for (double value : values)
    QVCatNumEncoder::Encode(value);
}

QVCatNumEncoder::~QVCatNumEncoder() = default;
QVCatNumEncoder::QVCatNumEncoder(QVCatNumEncoder const &) = default;
QVCatNumEncoder & QVCatNumEncoder::operator=(QVCatNumEncoder const &) = default;

QVCatNumEncoder * QVCatNumEncoder::Clone() const {
  return new QVCatNumEncoder(*this);
}

// --- Coding -----------------------------------------------------------------------------------

IQVEncoder::EncoderType QVCatNumEncoder::GetEncoderType() const {
  return CatNumEncoder;
}

int QVCatNumEncoder::GetNumberOfCategories() const {
  return static_cast<int>(fCodes.size());
}

double QVCatNumEncoder::Encode(std::string const &) {
  return kNoCode;
}

double QVCatNumEncoder::Encode(double value) {
  // A NaN has no place in the order of the map: it would be found as every number.
  if (IsMissing(value) || std::isnan(value)) return kNoCode;
  const auto [entry, isNew] = fCodes.try_emplace(value, fLastCode + 1);
  if (isNew) {
    fValues.push_back(value);
    ++fLastCode;
  }
  return entry->second;
}

double QVCatNumEncoder::EncodeConst(std::string const &) const {
  return kNoCode;
}

double QVCatNumEncoder::EncodeConst(double value) const {
  if (IsMissing(value) || std::isnan(value)) return kNoCode;
  const auto entry = fCodes.find(value);
  return entry != fCodes.end() ? entry->second : kNoCode;
}

bool QVCatNumEncoder::IsMissing(std::string const &) const {
  return true;
}

bool QVCatNumEncoder::IsMissing(double value) const {
  return IsMissingNumber(fMissing, value);
}

std::string QVCatNumEncoder::Decode(int code) const {
  if (code < 0 || code >= GetNumberOfCategories()) return std::string();
  return ReplaceSep(fValues[static_cast<std::size_t>(code)], nullptr);
}

double QVCatNumEncoder::DecodeNum(int code) const {
  if (code < 0 || code >= GetNumberOfCategories()) return QVCommon_940::QVMV::Missing();
  return fValues[static_cast<std::size_t>(code)];
}

// --- Labels and missing values ----------------------------------------------------------------

void QVCatNumEncoder::SetValueLabels(std::vector<std::string> const & labels) {
  fValueLabels = labels;
}

void QVCatNumEncoder::SetValueLabel(int code, std::string const & label) {
  const std::size_t categories = fCodes.size();
  if (fValueLabels.size() < categories) fValueLabels.resize(categories);
  if (code >= 0 && code < GetNumberOfCategories()) {
    fValueLabels[static_cast<std::size_t>(code)] = label;
  }
}

bool QVCatNumEncoder::AddDiscreteUserMissing(double value, std::string const & label) {
  fMissing.fValues.push_back(value);
  fMissing.fLabels.push_back(label);
  return true;
}

bool QVCatNumEncoder::AddDiscreteUserMissing(std::string const &, std::string const &) {
  return false;
}

bool QVCatNumEncoder::SetMissingInterval(double low, double high) {
  return SetInterval(fMissing, low, high);
}

std::vector<std::string> const * QVCatNumEncoder::GetValueLabels() const {
  return &fValueLabels;
}

std::vector<double> const * QVCatNumEncoder::GetDiscreteMissValues() const {
  return &fMissing.fValues;
}

std::vector<std::string> const * QVCatNumEncoder::GetDiscreteMissValuesStr() const {
  return nullptr;
}

std::vector<std::string> const * QVCatNumEncoder::GetMissValueLabels() const {
  return &fMissing.fLabels;
}

bool QVCatNumEncoder::GetMissingInterval(double & low, double & high) const {
  return GetInterval(fMissing, low, high);
}

// --- Keeping and showing ----------------------------------------------------------------------

int QVCatNumEncoder::WriteObjectXML(std::ostream & out, int tabs) const {
  const XMLObj frame(kClassName, tabs);
  frame.StartObj(out);
  int lines = kFrameLines;
  lines += WriteCountedList(frame, out, fValues);
  lines += WriteCountedList(frame, out, fValueLabels);
  lines += WriteMissing(frame, out, fMissing);
  frame.EndObj(out);
  return lines;
}

int QVCatNumEncoder::ReadObjectXML(std::ifstream & in) {
  int lines = 0;
  if (!ReadContent(in, lines)) FailRead("Failure reading QVCatNumEncoder!\n");
  return lines;
}

bool QVCatNumEncoder::ReadContent(std::ifstream & in, int & lines) {
  Clear();
  int count = 0;
  if (!ParseStartObj(in, kClassName) || !ParseCount(in, count)) return false;
  for (int i = 0; i < count; ++i) {
    double value = 0.0;
    if (!ParseValue(in, value)) return false;
    Encode(value);
  }
  lines = kFrameLines + 1 + count;
  if (!ParseCount(in, count) || !ParseList(in, count, fValueLabels)) return false;
  lines += 1 + count;
  return ParseMissing(in, fMissing, lines) && ParseEndObj(in);
}

void QVCatNumEncoder::Clear() {
  fCodes.clear();
  fValues.clear();
  fValueLabels.clear();
  fLastCode = -1;
  fMissing = QVNumericMissing();
}

void QVCatNumEncoder::Display() const {
  using namespace QVDisplay_940;
  DisplayText(1, "\tBNCatNumEncoder: ");
  DisplayText(1, "Last code = " + std::to_string(fLastCode));
  DisplayDV("\t\tNumeric values of categories: ", fValues, false);
  DisplaySV("Value Labels:", fValueLabels);
  DisplayMissing(fMissing);
}

}  // namespace QVXML_940
