#include "xml/text/escape.h"

#include <array>
#include <cstddef>

#include "XMLUtil.h"

namespace QVXML_940 {

namespace {

// The bytes at which a value may have to be escaped.
constexpr std::array<bool, 256> kStops = [] {
  std::array<bool, 256> stops{};
  for (const char c : {'&', '<', '>', '"', '\t', '\n', '\r', ' '}) {
    stops[static_cast<unsigned char>(c)] = true;
  }
  return stops;
}();

// What stands for the byte at place `i`, or null where it stands for itself. Blanks go in pairs
// from the left, a blank and a reference; `i` is then the second one. A blank at either end of the
// text becomes a reference as well.
const std::string * Reference(const std::string & text, std::size_t i, std::size_t runStart) {
  switch (text[i]) {
    case '&':
      return &XMLUtil::XML_AMPERSAND;
    case '<':
      return &XMLUtil::XML_LESS_THAN;
    case '>':
      return &XMLUtil::XML_GREATER_THAN;
    case '"':
      return &XMLUtil::XML_QUOTE;
    case '\t':
      return &XMLUtil::XML_CHARREF_TAB;
    case '\n':
      return &XMLUtil::XML_CHARREF_NL;
    case '\r':
      return &XMLUtil::XML_CHARREF_CR;
    default:
      break;
  }
  const bool isSecondOfPair = (i - runStart) % 2 == 1;
  const bool isAtEnd = i == 0 || i + 1 == text.size();
  return isSecondOfPair || isAtEnd ? &XMLUtil::XML_CHARREF_SP : nullptr;
}

}  // namespace

void AppendEscapedValue(std::string & out, const std::string & text) {
  const std::size_t length = text.size();
  std::size_t copied = 0;    // everything before this place stands in `out`
  std::size_t runStart = 0;  // where the present run of blanks began
  for (std::size_t i = 0; i < length; ++i) {
    if (!kStops[static_cast<unsigned char>(text[i])]) continue;
    if (text[i] == ' ' && (i == 0 || text[i - 1] != ' ')) runStart = i;
    if (const std::string * const reference = Reference(text, i, runStart)) {
      out.append(text, copied, i - copied).append(*reference);
      copied = i + 1;
    }
  }
  out.append(text, copied, length - copied);
}

void AppendEscapedContent(std::string & out, const std::string & text) {
  std::size_t copied = 0;
  for (std::size_t i = text.find_first_of("&<"); i != std::string::npos;
       i = text.find_first_of("&<", copied)) {
    out.append(text, copied, i - copied);
    out.append(text[i] == '&' ? XMLUtil::XML_AMPERSAND : XMLUtil::XML_LESS_THAN);
    copied = i + 1;
  }
  out.append(text, copied, text.size() - copied);
}

}  // namespace QVXML_940
