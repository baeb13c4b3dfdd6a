/// A line on the terminal that tells how far a long piece of work has come.
#pragma once

#include <chrono>
#include <string>

namespace regression {

/// Shows itself on standard error, when that is a terminal and the work has taken more than a
/// second, at most ten times a second; wipes itself out at the end.
class Progress {
 public:
  explicit Progress(std::string what);
  ~Progress();
  Progress(const Progress &) = delete;
  Progress & operator=(const Progress &) = delete;

  /// `done` of `total`, in any unit. A total of 0 is not known.
  void Show(double done, double total);

 private:
  using Clock = std::chrono::steady_clock;

  const std::string fWhat;
  const bool fOnTerminal;
  Clock::time_point fNext;  // not shown again before
  bool fShown = false;
};

}  // namespace regression
