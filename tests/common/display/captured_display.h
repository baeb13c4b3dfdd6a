/// Sends the display stream into a string for the length of a test.
#pragma once

#include <ostream>
#include <sstream>
#include <string>

#include "QVDisplay.h"

class CapturedDisplay {
 public:
  CapturedDisplay() : fFormer(QVDisplay_940::GetOutStream()) {
    QVDisplay_940::SetOutStream(fStream);
  }
  ~CapturedDisplay() { QVDisplay_940::SetOutStream(*fFormer); }

  CapturedDisplay(const CapturedDisplay &) = delete;
  CapturedDisplay & operator=(const CapturedDisplay &) = delete;

  /// What was displayed since the last call.
  std::string Text() {
    const std::string text = fStream.str();
    fStream.str("");
    return text;
  }

  std::ostringstream & Stream() { return fStream; }

 private:
  std::ostream * fFormer;
  std::ostringstream fStream;
};
