#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <locale>
#include <sstream>

#include "QVMV.h"
#include "XMLPersistence.h"
#include "XMLUtil.h"
#include "xml/persist/line_tokens.h"

namespace QVXML_940 {

// --- Tokens -----------------------------------------------------------------------------------

namespace {

// The delimiters of the tokens, by what is being read. They differ: a name may hold ">" and blanks,
// a string everything but its quotes.
constexpr const char * kStartSet = " \t\r\n<>=\"";
constexpr const char * kObjectSet = " \t\r\n<=\"";
constexpr const char * kObjectNameSet = "\"";
constexpr const char * kValueSet = " \t\r\n=<\"";
constexpr const char * kAttributeSet = "=\"";
constexpr const char * kStringSet = "\r\n\"";
constexpr const char * kEndSet = " \t\r\n<>";

// Reads the line of an element with this tag, up to its value.
bool ReadAttribute(std::ifstream & in, LineTokens & line, const std::string & tag,
                   const std::string & attribute) {
  return line.Read(in) && line.NextIs(kValueSet, tag) && line.NextIs(kAttributeSet, attribute);
}

// Reads the line of an element with this tag. Gives the text of its value, or null.
const char * ReadNumber(std::ifstream & in, LineTokens & line, const std::string & tag,
                        const std::string & attribute) {
  return ReadAttribute(in, line, tag, attribute) ? line.Next(kValueSet) : nullptr;
}

// The low 32 bits of a number, once it is truncated to a 64-bit integer.
unsigned int LowBits(double number) {
  constexpr double limit = 9223372036854775808.0;  // 2 to the power of 63
  if (!(number >= -limit && number < limit)) return 0;
  return static_cast<unsigned int>(static_cast<std::int64_t>(number) & 0xFFFFFFFF);
}

}  // namespace

bool LineTokens::Read(std::istream & in) {
  fRest = fLine.data();
  in.getline(fLine.data(), static_cast<std::streamsize>(fLine.size()));
  return !in.fail();
}

const char * LineTokens::Next(const char * delimiters) {
  char * const token = fRest + std::strspn(fRest, delimiters);
  char * const end = token + std::strcspn(token, delimiters);
  fRest = end;
  if (*end != '\0') {
    *end = '\0';
    ++fRest;
  }
  return end != token ? token : nullptr;
}

bool LineTokens::NextIs(const char * delimiters, const std::string & text) {
  const char * const token = Next(delimiters);
  return token != nullptr && text == token;
}

// --- Frames -----------------------------------------------------------------------------------

bool ParseStartXML(std::ifstream & in) {
  LineTokens line;
  return line.Read(in) && line.NextIs(kStartSet, "?xml") &&      //
         line.Read(in) && line.NextIs(kStartSet, "!DOCTYPE") &&  //
         line.Read(in) && line.NextIs(kStartSet, XML_ROOT);
}

bool ParseStartObj(std::ifstream & in, const std::string & name) {
  LineTokens line;
  if (!line.Read(in)) return false;
  if (line.IsEmpty() && !line.Read(in)) return false;
  return line.NextIs(kObjectSet, XML_OBJ) && line.NextIs(kObjectSet, XML_OBJ_NAME) &&
         line.NextIs(kObjectNameSet, name);
}

bool ParseEndObj(std::ifstream & in) {
  LineTokens line;
  return line.Read(in) && line.NextIs(kEndSet, XMLUtil::BEGIN_END_ELEMENT + XML_OBJ);
}

// --- Values -----------------------------------------------------------------------------------

bool ParseValue(std::ifstream & in, int & value) {
  LineTokens line;
  const char * const text = ReadNumber(in, line, XML_INT, XML_INT_VALUE);
  if (text == nullptr) return false;
  value = static_cast<int>(std::strtol(text, nullptr, 10));  // the low bits of a longer number
  return true;
}

bool ParseValue(std::ifstream & in, unsigned int & value) {
  LineTokens line;
  const char * const text = ReadNumber(in, line, XML_INT, XML_INT_VALUE);
  if (text == nullptr) return false;
  value = LowBits(std::strtod(text, nullptr));
  return true;
}

bool ParseValue(std::ifstream & in, long & value) {
  LineTokens line;
  const char * const text = ReadNumber(in, line, XML_LONG, XML_LONG_VALUE);
  if (text == nullptr) return false;
  value = std::strtol(text, nullptr, 10);
  return true;
}

bool ParseValue(std::ifstream & in, bool & value) {
  int number = 0;
  if (!ParseValue(in, number) || (number != 0 && number != 1)) return false;
  value = number == 1;
  return true;
}

bool ParseValue(std::ifstream & in, double & value) {
  LineTokens line;
  const char * const text = ReadNumber(in, line, XML_DOUBLE, XML_DOUBLE_VALUE);
  if (text == nullptr) return false;
  if (text == XML_MISSING) {
    value = QVCommon_940::QVMV::Missing();
  } else {
    std::istringstream number(text);
    number.imbue(std::locale::classic());
    number >> value;
  }
  return true;
}

bool ParseValue(std::ifstream & in, std::string & value) {
  LineTokens line;
  if (!ReadAttribute(in, line, XML_STRING, XML_STRING_VALUE)) return false;
  const char * const text = line.Next(kStringSet);
  // An empty value leaves no token but the tail of its tag, behind the two quotes.
  const bool isEmpty = text == nullptr || std::strcmp(text - 2, "\"\"/>") == 0;
  value = isEmpty ? "" : text;
  return true;
}

}  // namespace QVXML_940
