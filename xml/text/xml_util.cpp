#include "XMLUtil.h"

#include <cstdio>
#include <cstring>

#include "xml/text/escape.h"

namespace QVXML_940 {

const std::string XMLUtil::AMPERSAND = "&";
const std::string XMLUtil::LESS_THAN = "<";
const std::string XMLUtil::GREATER_THAN = ">";
const std::string XMLUtil::QUOTE = "\"";

const std::string XMLUtil::XML_AMPERSAND = "&amp;";
const std::string XMLUtil::XML_LESS_THAN = "&lt;";
const std::string XMLUtil::XML_GREATER_THAN = "&gt;";
const std::string XMLUtil::XML_QUOTE = "&quot;";
const std::string XMLUtil::XML_CHARREF_TAB = "&#9;";
const std::string XMLUtil::XML_CHARREF_NL = "&#10;";
const std::string XMLUtil::XML_CHARREF_CR = "&#13;";
const std::string XMLUtil::XML_CHARREF_SP = "&#32;";
const std::string XMLUtil::XML_SP_CHARREF_SP = " &#32;";

const std::string XMLUtil::BEGIN_ELEMENT = "<";
const std::string XMLUtil::END_ELEMENT = ">";
const std::string XMLUtil::BEGIN_END_ELEMENT = "/";
const std::string XMLUtil::BEGIN_PREPROCESSOR = "!";
const std::string XMLUtil::EQUAL = "=";
const std::string XMLUtil::SPACE = " ";
const std::string XMLUtil::ROWSEP = "\n";
const std::string XMLUtil::ITEMINDENT = "\t";

const std::string XMLUtil::FIRST_LINE = "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>";

std::string XMLUtil::Escape(const std::string & text) {
  std::string escaped;
  escaped.reserve(text.size());
  AppendEscapedValue(escaped, text);
  return escaped;
}

std::string XMLUtil::GetTabs(int n) {
  return n < 1 ? std::string() : std::string(static_cast<std::size_t>(n), ITEMINDENT.front());
}

std::string XMLUtil::toString(int value) {
  return std::to_string(value);
}

int XMLUtil::ReplaceString(std::string & text, const char * from, const std::string & to) {
  int position = 0;
  return ReplaceAtPos(text, from, to, position);
}

int XMLUtil::ReplaceAll(std::string & text, const char * from, const std::string & to) {
  const std::size_t fromLength = from != nullptr ? std::strlen(from) : 0;
  if (fromLength == 0) return -1;
  std::size_t found = text.find(from);
  if (found == std::string::npos) return -1;

  // Built beside the text in one go: `to` may be the text itself.
  std::string replaced;
  std::size_t copied = 0;
  while (found != std::string::npos) {
    replaced.append(text, copied, found - copied).append(to);
    copied = found + fromLength;
    found = text.find(from, copied, fromLength);
  }
  const int lastSearch = static_cast<int>(replaced.size());
  replaced.append(text, copied, text.size() - copied);
  text = std::move(replaced);
  return lastSearch - 1;
}

int XMLUtil::ReplaceAtPos(std::string & text, const char * from, const std::string & to,
                          int & position) {
  if (from == nullptr || position < 0 || static_cast<std::size_t>(position) > text.size())
    return -1;
  const std::size_t found = text.find(from, static_cast<std::size_t>(position));
  if (found == std::string::npos) {
    --position;
    return -1;
  }
  text.replace(found, std::strlen(from), to);
  position = static_cast<int>(found);
  return position;
}

}  // namespace QVXML_940
