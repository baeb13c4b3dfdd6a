#include "NumberText.h"

#include <charconv>
#include <clocale>
#include <cstdio>
#include <limits>

namespace QVXML_940 {

namespace {

constexpr int kDocumentDigits = 15;  // every decimal number of 15 digits survives a double
constexpr int kFixedDigits = 16;

// The longest text is the largest double in fixed notation: sign, integer digits, point, fraction.
constexpr int kLongestText = 1 + std::numeric_limits<double>::max_exponent10 + 1 + 1 + kFixedDigits;

// What an output stream in the classic locale writes, without the cost of a stream.
std::string ClassicText(double value, std::chars_format form, int digits) {
  char text[kLongestText];
  const std::to_chars_result end = std::to_chars(text, text + kLongestText, value, form, digits);
  return std::string(text, end.ptr);
}

}  // namespace

std::string Format(double value, bool printfForm, const char * format) {
  if (!printfForm) return ReplaceSep(value, format);
  const std::string form = format != nullptr ? std::string(format) : GetDefaultNumericFormat();

  std::string text(32, '\0');
  const int length = std::snprintf(text.data(), text.size(), form.c_str(), value);
  if (length < 0) return std::string();
  const bool fits = static_cast<std::size_t>(length) < text.size();
  text.resize(static_cast<std::size_t>(length));
  if (!fits) std::snprintf(text.data(), text.size() + 1, form.c_str(), value);
  return text;
}

std::string Format(long value) {
  return Format(static_cast<double>(value), true, nullptr);
}

std::string ReplaceSep(double value, const char * /*format*/) {
  return ClassicText(value, std::chars_format::general, kDocumentDigits);
}

std::string ReplaceSep(double value) {
  return ClassicText(value, std::chars_format::fixed, kFixedDigits);
}

std::string GetDecimalCharacter() {
  return std::localeconv()->decimal_point;
}

std::string GetListSeparator() {
  return ";";
}

std::string GetDefaultNumericFormat() {
  return "%.15g";
}

}  // namespace QVXML_940
