/// The escaping of attribute values the slow way: ten passes, one after the other.
#pragma once

#include <string>

namespace test {

inline void ReplaceEach(std::string & text, const std::string & from, const std::string & to) {
  for (std::size_t at = text.find(from); at != std::string::npos;
       at = text.find(from, at + to.size())) {
    text.replace(at, from.size(), to);
  }
}

inline std::string NaiveEscape(std::string text) {
  ReplaceEach(text, "&", "&amp;");
  ReplaceEach(text, "<", "&lt;");
  ReplaceEach(text, ">", "&gt;");
  ReplaceEach(text, "\"", "&quot;");
  ReplaceEach(text, "\t", "&#9;");
  ReplaceEach(text, "\n", "&#10;");
  ReplaceEach(text, "\r", "&#13;");
  ReplaceEach(text, "  ", " &#32;");
  if (text.empty()) return text;
  if (text.front() == ' ') text.replace(0, 1, "&#32;");
  if (text.back() == ' ') text.replace(text.size() - 1, 1, "&#32;");
  return text;
}

}  // namespace test
