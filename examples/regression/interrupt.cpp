#include "interrupt.h"

#include <csignal>

#include "failure.h"

namespace regression {

namespace {

volatile std::sig_atomic_t gStopAsked = 0;

extern "C" void AskToStop(int) {
  gStopAsked = 1;
}

}  // namespace

Interrupt::Interrupt() {
  struct sigaction action = {};
  action.sa_handler = AskToStop;
  sigemptyset(&action.sa_mask);
  for (int signal : {SIGINT, SIGTERM})
    sigaction(signal, &action, nullptr);
}

bool Interrupt::WillCancel() const {
  return gStopAsked != 0;
}

void StopIfAsked(QVMath_940::QVCancelInfo & cancel) {
  if (cancel.IsCancel()) throw Stopped();
}

}  // namespace regression
