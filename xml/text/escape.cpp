#include "xml/text/escape.h"

#include <cstddef>

#include "XMLUtil.h"

namespace QVXML_940 {

void AppendEscapedValue(std::string & out, const std::string & text) {
  const std::size_t length = text.size();
  std::size_t copied = 0;  // everything before this place stands in `out`
  const auto replace = [&](std::size_t place, std::size_t count, const std::string & by) {
    out.append(text, copied, place - copied).append(by);
    copied = place + count;
  };

  for (std::size_t i = 0; i < length; ++i) {
    switch (text[i]) {
      case '&':
        replace(i, 1, XMLUtil::XML_AMPERSAND);
        break;
      case '<':
        replace(i, 1, XMLUtil::XML_LESS_THAN);
        break;
      case '>':
        replace(i, 1, XMLUtil::XML_GREATER_THAN);
        break;
      case '"':
        replace(i, 1, XMLUtil::XML_QUOTE);
        break;
      case '\t':
        replace(i, 1, XMLUtil::XML_CHARREF_TAB);
        break;
      case '\n':
        replace(i, 1, XMLUtil::XML_CHARREF_NL);
        break;
      case '\r':
        replace(i, 1, XMLUtil::XML_CHARREF_CR);
        break;
      case ' ': {
        // Blanks go in pairs from the left: a blank and a reference. A blank at either end of the
        // text becomes a reference as well.
        const bool paired = i + 1 < length && text[i + 1] == ' ';
        if (i == 0) replace(i, 1, XMLUtil::XML_CHARREF_SP);
        if (paired) {
          replace(++i, 1, XMLUtil::XML_CHARREF_SP);
        } else if (i != 0 && i + 1 == length) {
          replace(i, 1, XMLUtil::XML_CHARREF_SP);
        }
        break;
      }
      default:
        break;
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
