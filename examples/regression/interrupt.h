/// Ctrl-C as a cancel query of the library.
#pragma once

#include "QVCancelInfo.h"
#include "QVQueryCancel.h"

namespace regression {

/// Turns the signals that ask a program to end (SIGINT, SIGTERM) into a flag from its construction
/// on, and answers with that flag. A system call that waits is interrupted, not restarted, so that
/// the question is asked soon.
class Interrupt : public QVCommon_940::QVQueryCancel {
 public:
  Interrupt();

  bool IsCancel() override { return WillCancel(); }
  bool WillCancel() const override;
};

/// Throws `Stopped` when the user asked to stop.
void StopIfAsked(QVMath_940::QVCancelInfo & cancel);

}  // namespace regression
