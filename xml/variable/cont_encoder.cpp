#include "QVContEncoder.h"

#include "QVDisplay.h"
#include "QVMV.h"
#include "xml/variable/numeric_missing.h"
#include "xml/variable/owned.h"
#include "xml/variable/persistent_parts.h"

namespace QVXML_940 {

using QVCommon_940::QVMV;

namespace {

constexpr const char * kClassName = "QVContEncoder";
constexpr int kDefaultBins = 1;

}  // namespace

QVContEncoder::QVContEncoder() : fNumberOfBins(kDefaultBins) {
}

QVContEncoder::QVContEncoder(double low, double high, int nBins)
    : fNumberOfBins(nBins), fBinning(new QVBinningEncoder(low, high, nBins)) {
}

QVContEncoder::QVContEncoder(std::vector<double> const & cuts)
    : fNumberOfBins(static_cast<int>(cuts.size()) + 1), fBinning(new QVBinningEncoder(cuts)) {
}

QVContEncoder::~QVContEncoder() = default;

QVContEncoder::QVContEncoder(QVContEncoder const & other)
    : IQVEncoder(other),
      fNumberOfBins(other.fNumberOfBins),
      fMissing(other.fMissing),
      fBinning(CloneOf(other.fBinning)) {
}

QVContEncoder & QVContEncoder::operator=(QVContEncoder const & other) {
  if (this == &other) return *this;
  fNumberOfBins = other.fNumberOfBins;
  fMissing = other.fMissing;
  fBinning = CloneOf(other.fBinning);
  return *this;
}

QVContEncoder * QVContEncoder::Clone() const {
  return new QVContEncoder(*this);
}

QVBinningEncoder const * QVContEncoder::GetBinningEncoder() const {
  return fBinning.get();
}

// --- Coding -----------------------------------------------------------------------------------

IQVEncoder::EncoderType QVContEncoder::GetEncoderType() const {
  return ContEncoder;
}

int QVContEncoder::GetNumberOfCategories() const {
  return fBinning ? fBinning->GetNumberOfCategories() : fNumberOfBins;
}

double QVContEncoder::Encode(std::string const &) {
  return QVMV::Missing();
}

double QVContEncoder::Encode(double value) {
  return EncodeConst(value);
}

double QVContEncoder::EncodeConst(std::string const &) const {
  return QVMV::Missing();
}

double QVContEncoder::EncodeConst(double value) const {
  return IsMissing(value) ? QVMV::Missing() : value;
}

bool QVContEncoder::IsMissing(std::string const &) const {
  return true;
}

bool QVContEncoder::IsMissing(double value) const {
  return IsMissingNumber(fMissing, value);
}

std::string QVContEncoder::Decode(int) const {
  return std::string();
}

double QVContEncoder::DecodeNum(int) const {
  return QVMV::Missing();
}

// --- Labels and missing values ----------------------------------------------------------------

void QVContEncoder::SetValueLabels(std::vector<std::string> const &) {
}

void QVContEncoder::SetValueLabel(int, std::string const &) {
}

bool QVContEncoder::AddDiscreteUserMissing(double value, std::string const & label) {
  fMissing.fValues.push_back(value);
  fMissing.fLabels.push_back(label);
  return true;
}

bool QVContEncoder::AddDiscreteUserMissing(std::string const &, std::string const &) {
  return false;
}

bool QVContEncoder::SetMissingInterval(double low, double high) {
  return SetInterval(fMissing, low, high);
}

std::vector<std::string> const * QVContEncoder::GetValueLabels() const {
  return nullptr;
}

std::vector<double> const * QVContEncoder::GetDiscreteMissValues() const {
  return &fMissing.fValues;
}

std::vector<std::string> const * QVContEncoder::GetDiscreteMissValuesStr() const {
  return nullptr;
}

std::vector<std::string> const * QVContEncoder::GetMissValueLabels() const {
  return &fMissing.fLabels;
}

bool QVContEncoder::GetMissingInterval(double & low, double & high) const {
  return GetInterval(fMissing, low, high);
}

// --- Keeping and showing ----------------------------------------------------------------------

int QVContEncoder::WriteObjectXML(std::ostream & out, int tabs) const {
  const XMLObj frame(kClassName, tabs);
  frame.StartObj(out);
  frame.WriteSubElement(out, fNumberOfBins);
  const int lines = kFrameLines + 1 + WriteMissing(frame, out, fMissing);
  frame.EndObj(out);
  return lines;
}

int QVContEncoder::ReadObjectXML(std::ifstream & in) {
  int lines = 0;
  if (!ReadContent(in, lines)) FailRead("Failure reading QVContEncoder!\n");
  return lines;
}

bool QVContEncoder::ReadContent(std::ifstream & in, int & lines) {
  Clear();
  if (!ParseStartObj(in, kClassName)) return false;
  if (!ParseValue(in, fNumberOfBins) || fNumberOfBins < 0) return false;
  lines = kFrameLines + 1;
  return ParseMissing(in, fMissing, lines) && ParseEndObj(in);
}

void QVContEncoder::Clear() {
  fNumberOfBins = kDefaultBins;
  fMissing = QVNumericMissing();
  fBinning.reset();
}

void QVContEncoder::Display() const {
  using namespace QVDisplay_940;
  DisplayText(1, "\tQVContEncoder: ");
  DisplayI("number of bins", fNumberOfBins);
  DisplayMissing(fMissing);
  if (fBinning) fBinning->Display();
}

}  // namespace QVXML_940
