// Values in other kinds and as text.
#include <iostream>
#include <limits>
#include <locale>
#include <ostream>
#include <sstream>

#include "Value.h"
#include "common/record/value_content.h"

namespace QVCommon_940 {

namespace {

constexpr double kTwoTo63 = 9223372036854775808.0;

// What stream extraction makes of a text; `atFirst` when there is nothing to extract.
template <typename Number>
Number Extract(const std::string & text, Number atFirst, const std::locale & locale) {
  std::istringstream stream(text);
  stream.imbue(locale);
  stream >> atFirst;
  return atFirst;
}

// The point becomes the decimal character of the standard output stream, and the text is read by
// that same locale.
double ExtractReal(std::string text) {
  const std::locale locale = std::cout.getloc();
  const std::size_t point = text.find('.');
  if (point != std::string::npos) {
    text[point] = std::use_facet<std::numpunct<char>>(locale).decimal_point();
  }
  return Extract(text, Value::SYSMISVALUE, locale);
}

template <typename Number>
std::string StreamText(const Number & value) {
  std::ostringstream stream;
  stream << value;
  return stream.str();
}

std::string RealText(double value) {
  std::string text = StreamText(value);
  const std::size_t comma = text.find(',');
  if (comma != std::string::npos) text[comma] = '.';
  return text;
}

__int64 CutOff(double value) {
  const bool inRange = value >= -kTwoTo63 && value < kTwoTo63;
  return inRange ? static_cast<__int64>(value) : std::numeric_limits<__int64>::min();
}

}  // namespace

bool Value::GetBool() const {
  switch (fTag) {
    case TagBool:
      return fPayload.fBool;
    case TagInteger:
      return fPayload.fInteger != 0;
    case TagReal:
      return fPayload.fReal != 0.0;
    case TagString:
      return Extract(*fPayload.fString, false, std::locale());
    default:
      return Size() > 0;
  }
}

__int64 Value::GetInteger() const {
  switch (fTag) {
    case TagBool:
      return fPayload.fBool ? 1 : 0;
    case TagInteger:
      return fPayload.fInteger;
    case TagReal:
      return CutOff(fPayload.fReal);
    case TagString:
      return Extract(*fPayload.fString, __int64{0}, std::locale());
    case TagArray:
    case TagMap:
      return Size();
    default:
      return 0;
  }
}

double Value::GetReal() const {
  switch (fTag) {
    case TagBool:
      return fPayload.fBool ? 1.0 : 0.0;
    case TagInteger:
      return static_cast<double>(fPayload.fInteger);
    case TagReal:
      return fPayload.fReal;
    case TagString:
      return ExtractReal(*fPayload.fString);
    case TagArray:
    case TagMap:
      return Size();
    default:
      return SYSMISVALUE;
  }
}

std::string Value::GetString() const {
  switch (fTag) {
    case TagBool:
      return StreamText(fPayload.fBool);
    case TagInteger:
      return StreamText(fPayload.fInteger);
    case TagReal:
      return RealText(fPayload.fReal);
    case TagString:
      return *fPayload.fString;
    case TagArray:
    case TagMap:
      return StreamText(*this);
    default:
      return std::string();
  }
}

// --- Display -------------------------------------------------------------------------------------

namespace {

void DisplayLeaf(std::ostream & stream, const Value & value) {
  switch (value.GetType()) {
    case Value::TagBool:
      stream << ValueContent::GetBool(value);
      break;
    case Value::TagInteger:
      stream << ValueContent::GetInteger(value);
      break;
    case Value::TagReal:
      stream << ValueContent::GetReal(value);
      break;
    case Value::TagString:
      stream << ValueContent::GetText(value);
      break;
    default:
      break;
  }
}

// An array or map of which some elements are written.
class OpenContainer {
 public:
  explicit OpenContainer(const Value & value) : fValue(&value) {
    if (!IsArray()) fEntry = ValueContent::GetEntries(value).begin();
  }

  const char * GetOpening() const { return IsArray() ? "{" : "["; }
  const char * GetClosing() const { return IsArray() ? "}" : "]"; }

  bool IsDone() const {
    const std::size_t size = IsArray() ? ValueContent::GetItems(*fValue).size()
                                       : ValueContent::GetEntries(*fValue).size();
    return fNWritten == size;
  }

  // Writes what stands before the next element and gives the element.
  const Value & Advance(std::ostream & stream) {
    if (fNWritten++ > 0) stream << ",";
    if (IsArray()) return ValueContent::GetItems(*fValue)[fNWritten - 1];
    const auto & [key, value] = *fEntry++;
    stream << key << ":";
    return value;
  }

 private:
  bool IsArray() const { return fValue->GetType() == Value::TagArray; }

  const Value * fValue;
  std::size_t fNWritten = 0;
  ValueContent::Entries::const_iterator fEntry;
};

}  // namespace

void Value::Display(std::ostream & stream) const {
  std::vector<OpenContainer> open;
  const auto begin = [&](const Value & value) {
    if (!value.IsContainer()) {
      DisplayLeaf(stream, value);
      return;
    }
    open.emplace_back(value);
    stream << open.back().GetOpening();
  };
  begin(*this);
  while (!open.empty()) {
    if (open.back().IsDone()) {
      stream << open.back().GetClosing();
      open.pop_back();
    } else {
      begin(open.back().Advance(stream));
    }
  }
}

std::ostream & operator<<(std::ostream & stream, const Value & value) {
  value.Display(stream);
  return stream;
}

}  // namespace QVCommon_940
