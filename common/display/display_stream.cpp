#include <iostream>

#include "QVDisplay.h"
#include "common/display/display_line.h"

namespace QVDisplay_940 {
namespace {

std::ostream * gOutStream = &std::cout;

// Unformatted output: a width that the caller left on the stream must not pad the text.
void WriteText(std::ostream & stream, const std::string & text) {
  stream.write(text.data(), static_cast<std::streamsize>(text.size()));
  stream.flush();
}

}  // namespace

void SetOutStream(std::ostream & stream) {
  gOutStream = &stream;
}

std::ostream * GetOutStream() {
  return gOutStream;
}

void WriteLine(const std::string & text) {
  *gOutStream << std::endl;
  WriteText(*gOutStream, text);
}

void DisplayText(const long & lines, const char * text) {
  if (text != nullptr) {
    DisplayText(lines, std::string(text));
  }
}

void DisplayText(const long & lines, const std::string & text) {
  for (long line = 0; line < lines; ++line) {
    *gOutStream << std::endl;
  }
  WriteText(*gOutStream, text);
}

}  // namespace QVDisplay_940
