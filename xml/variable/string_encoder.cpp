#include "QVStringEncoder.h"

#include <algorithm>
#include <cstddef>

#include "QVDisplay.h"
#include "QVMV.h"
#include "xml/variable/persistent_parts.h"

namespace QVXML_940 {

namespace {

constexpr double kNoCode = -1.0;
constexpr const char * kClassName = "QVStringEncoder";

}  // namespace

QVStringEncoder::QVStringEncoder(int n) : fLastCode(-1) {
  if (n > 0) fLinks.reserve(static_cast<std::size_t>(n));
}

QVStringEncoder::QVStringEncoder(std::vector<std::string> const & values) : fLastCode(-1) {
  for (std::string const & value : values)
    QVStringEncoder::Encode(value);
}

QVStringEncoder::~QVStringEncoder() = default;

QVStringEncoder::QVStringEncoder(QVStringEncoder const & other)
    : IQVEncoder(other),
      fCodes(other.fCodes),
      fValueLabels(other.fValueLabels),
      fLastCode(other.fLastCode),
      fMissValues(other.fMissValues),
      fMissLabels(other.fMissLabels) {
  CreateLinks();
}

QVStringEncoder & QVStringEncoder::operator=(QVStringEncoder const & other) {
  if (this == &other) return *this;
  fCodes = other.fCodes;
  fValueLabels = other.fValueLabels;
  fLastCode = other.fLastCode;
  fMissValues = other.fMissValues;
  fMissLabels = other.fMissLabels;
  CreateLinks();
  return *this;
}

void QVStringEncoder::CreateLinks() {
  fLinks.assign(static_cast<std::size_t>(fLastCode + 1), nullptr);
  for (auto const & [category, code] : fCodes)
    fLinks[static_cast<std::size_t>(code)] = &category;
}

QVStringEncoder * QVStringEncoder::Clone() const {
  return new QVStringEncoder(*this);
}

// --- Coding -----------------------------------------------------------------------------------

IQVEncoder::EncoderType QVStringEncoder::GetEncoderType() const {
  return StringEncoder;
}

int QVStringEncoder::GetNumberOfCategories() const {
  return fLastCode + 1;
}

double QVStringEncoder::Encode(std::string const & value) {
  if (IsMissing(value)) return kNoCode;
  const auto [entry, isNew] = fCodes.try_emplace(value, fLastCode + 1);
  if (isNew) {
    fLinks.push_back(&entry->first);
    ++fLastCode;
  }
  return entry->second;
}

double QVStringEncoder::Encode(double) {
  return kNoCode;
}

double QVStringEncoder::EncodeConst(std::string const & value) const {
  if (IsMissing(value)) return kNoCode;
  const auto entry = fCodes.find(value);
  return entry != fCodes.end() ? entry->second : kNoCode;
}

double QVStringEncoder::EncodeConst(double) const {
  return kNoCode;
}

bool QVStringEncoder::IsMissing(std::string const & value) const {
  return std::find(fMissValues.begin(), fMissValues.end(), value) != fMissValues.end();
}

bool QVStringEncoder::IsMissing(double) const {
  return true;
}

std::string QVStringEncoder::Decode(int code) const {
  if (code < 0 || code > fLastCode) return std::string();
  std::string const * const category = fLinks[static_cast<std::size_t>(code)];
  return category ? *category : std::string();
}

double QVStringEncoder::DecodeNum(int) const {
  return QVCommon_940::QVMV::Missing();
}

// --- Labels and missing values ----------------------------------------------------------------

void QVStringEncoder::SetValueLabels(std::vector<std::string> const & labels) {
  fValueLabels = labels;
}

void QVStringEncoder::SetValueLabel(int code, std::string const & label) {
  const std::size_t categories = static_cast<std::size_t>(GetNumberOfCategories());
  if (fValueLabels.size() < categories) fValueLabels.resize(categories);
  if (code >= 0 && code < GetNumberOfCategories()) {
    fValueLabels[static_cast<std::size_t>(code)] = label;
  }
}

bool QVStringEncoder::AddDiscreteUserMissing(double, std::string const &) {
  return false;
}

bool QVStringEncoder::AddDiscreteUserMissing(std::string const & value, std::string const & label) {
  fMissValues.push_back(value);
  fMissLabels.push_back(label);
  return true;
}

bool QVStringEncoder::SetMissingInterval(double, double) {
  return false;
}

std::vector<std::string> const * QVStringEncoder::GetValueLabels() const {
  return &fValueLabels;
}

std::vector<double> const * QVStringEncoder::GetDiscreteMissValues() const {
  return nullptr;
}

std::vector<std::string> const * QVStringEncoder::GetDiscreteMissValuesStr() const {
  return &fMissValues;
}

std::vector<std::string> const * QVStringEncoder::GetMissValueLabels() const {
  return &fMissLabels;
}

bool QVStringEncoder::GetMissingInterval(double &, double &) const {
  return false;
}

// --- Keeping and showing ----------------------------------------------------------------------

int QVStringEncoder::WriteObjectXML(std::ostream & out, int tabs) const {
  const XMLObj frame(kClassName, tabs);
  frame.StartObj(out);
  int lines = kFrameLines;
  const int categories = GetNumberOfCategories();
  frame.WriteSubElement(out, categories);
  for (int code = 0; code < categories; ++code)
    frame.WriteSubElement(out, Decode(code));
  lines += 1 + categories;
  lines += WriteCountedList(frame, out, fValueLabels);
  lines += WriteCountedList(frame, out, fMissValues);
  lines += WriteList(frame, out, fMissLabels);
  frame.EndObj(out);
  return lines;
}

int QVStringEncoder::ReadObjectXML(std::ifstream & in) {
  int lines = 0;
  if (!ReadContent(in, lines)) FailRead("Failure reading QVStringEncoder!\n");
  return lines;
}

bool QVStringEncoder::ReadContent(std::ifstream & in, int & lines) {
  Clear();
  int count = 0;
  if (!ParseStartObj(in, kClassName) || !ParseCount(in, count)) return false;
  for (int i = 0; i < count; ++i) {
    std::string value;
    if (!ParseValue(in, value)) return false;
    Encode(value);
  }
  lines = kFrameLines + 1 + count;
  if (!ParseCount(in, count) || !ParseList(in, count, fValueLabels)) return false;
  lines += 1 + count;
  if (!ParseCount(in, count) || !ParseList(in, count, fMissValues) ||
      !ParseList(in, count, fMissLabels)) {
    return false;
  }
  lines += 1 + 2 * count;
  return ParseEndObj(in);
}

void QVStringEncoder::Clear() {
  fCodes.clear();
  fLinks.clear();
  fValueLabels.clear();
  fLastCode = -1;
  fMissValues.clear();
  fMissLabels.clear();
}

void QVStringEncoder::Display() const {
  using namespace QVDisplay_940;
  DisplayText(1, "\tBNStringEncoder object:");
  DisplayI("Last code", fLastCode);
  for (std::string const * category : fLinks) {
    DisplayText(1, category ? "\t\t" + *category : std::string("\t\tERROR"));
  }
  DisplaySV("Value Labels:", fValueLabels);
  DisplayText(1, "\t\tMissing Values and their Labels: ");
  for (std::size_t i = 0; i < fMissValues.size(); ++i) {
    DisplayS("\t\t" + fMissValues[i], i < fMissLabels.size() ? fMissLabels[i] : std::string());
  }
}

}  // namespace QVXML_940
