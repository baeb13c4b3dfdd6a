#include "progress.h"

#include <unistd.h>

#include <cstdio>

namespace regression {

Progress::Progress(std::string what)
    : fWhat(std::move(what)),
      fOnTerminal(isatty(STDERR_FILENO) != 0),
      fNext(Clock::now() + std::chrono::seconds(1)) {
}

Progress::~Progress() {
  if (fShown) std::fputs("\r\033[K", stderr);
}

void Progress::Show(double done, double total) {
  if (!fOnTerminal || Clock::now() < fNext) return;
  fNext = Clock::now() + std::chrono::milliseconds(100);
  fShown = true;
  if (total > 0.0) {
    std::fprintf(stderr, "\r%s: %3.0f %%\033[K", fWhat.c_str(), 100.0 * done / total);
  } else {
    std::fprintf(stderr, "\r%s: %.0f\033[K", fWhat.c_str(), done);
  }
  std::fflush(stderr);
}

}  // namespace regression
