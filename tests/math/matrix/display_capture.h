/// Catches what the display functions write while it lives:
///
///     DisplayCapture capture;
///     matrix.Display();
///     EXPECT_EQ(capture.Text(), "\nQVSymMatrix display start" ...);
#pragma once

#include <ostream>
#include <sstream>
#include <string>

#include "QVDisplay.h"

class DisplayCapture {
 public:
  DisplayCapture() : fBefore(QVDisplay_940::GetOutStream()) {
    QVDisplay_940::SetOutStream(fStream);
  }
  ~DisplayCapture() { QVDisplay_940::SetOutStream(*fBefore); }
  DisplayCapture(const DisplayCapture &) = delete;
  DisplayCapture & operator=(const DisplayCapture &) = delete;

  std::string Text() const { return fStream.str(); }

 private:
  std::ostream * fBefore;
  std::ostringstream fStream;
};
