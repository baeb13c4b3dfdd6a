/// The frame around every `Display` of a class: its first and its last line.
///
/// The last line is written by a destructor, so a failure of the stream there is dropped: it must
/// not end the process.
///
///     void QVBitSet::Display() const {
///       DisplayFrame frame("QVBitSet");   // "QVBitSet display start"
///       DisplayBV("fbVec", fbVec);
///     }                                   // "QVBitSet display end"
#pragma once

#include <string>
#include <utility>

#include "QVDisplay.h"

namespace QVDisplay_940 {

class DisplayFrame {
 public:
  explicit DisplayFrame(const std::string & className)
      : DisplayFrame(className + " display start", className + " display end") {}

  /// For the classes whose lines read otherwise.
  DisplayFrame(const std::string & startLine, std::string endLine) : fEndLine(std::move(endLine)) {
    DisplayText(1, startLine);
  }

  ~DisplayFrame() {
    try {
      DisplayText(1, fEndLine);
    } catch (...) {
    }
  }

  DisplayFrame(const DisplayFrame &) = delete;
  DisplayFrame & operator=(const DisplayFrame &) = delete;

 private:
  std::string fEndLine;
};

}  // namespace QVDisplay_940
