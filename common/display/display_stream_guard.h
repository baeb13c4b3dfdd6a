/// Sends the display functions to another stream for the life of the guard.
#pragma once

#include <ostream>

#include "QVDisplay.h"

namespace QVDisplay_940 {

class DisplayStreamGuard {
 public:
  explicit DisplayStreamGuard(std::ostream & stream) : fBefore(GetOutStream()) {
    SetOutStream(stream);
  }
  ~DisplayStreamGuard() { SetOutStream(*fBefore); }

  DisplayStreamGuard(const DisplayStreamGuard &) = delete;
  DisplayStreamGuard & operator=(const DisplayStreamGuard &) = delete;

 private:
  std::ostream * fBefore;
};

}  // namespace QVDisplay_940
