/// Numbers as text that reads back as the same number.
#pragma once

#include <charconv>
#include <string>

namespace regression {

/// The shortest text that reads back as exactly `value`, whatever the locale. Fifteen digits, which
/// the attributes of the library's elements have, are not always enough for that.
inline std::string ExactText(double value) {
  char text[32];
  const auto result = std::to_chars(text, text + sizeof text, value);
  return std::string(text, result.ptr);
}

}  // namespace regression
