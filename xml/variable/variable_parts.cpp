#include "xml/variable/variable_parts.h"

#include "QVDisplay.h"
#include "xml/variable/persistent_parts.h"

namespace QVXML_940 {

int WriteReplacement(XMLObj const & frame, std::ostream & out, std::string const * replacement) {
  frame.WriteSubElement(out, replacement != nullptr);
  if (!replacement) return 1;
  frame.WriteSubElement(out, *replacement);
  return 2;
}

bool ParseReplacement(std::ifstream & in, bool & hasReplacement, std::string & replacement,
                      int & lines) {
  bool follows = false;
  if (!ParseValue(in, follows)) return false;
  std::string text;
  if (follows && !ParseValue(in, text)) return false;
  hasReplacement = follows;
  replacement.swap(text);
  lines += follows ? 2 : 1;
  return true;
}

int WriteTypedEncoder(XMLObj const & frame, std::ostream & out, IQVEncoder const * encoder) {
  const IQVEncoder::EncoderType type = encoder ? encoder->GetEncoderType() : IQVEncoder::NoEncoder;
  frame.WriteSubElement(out, static_cast<int>(type));
  return encoder ? 1 + encoder->WriteObjectXML(out, frame.GetNTabs() + 1) : 1;
}

void DisplayEncoder(IQVEncoder const * encoder) {
  if (encoder) {
    encoder->Display();
  } else {
    QVDisplay_940::DisplayText(1, "Encoder not set");
  }
}

}  // namespace QVXML_940
