/// The two ways in which the program ends before its work is done.
#pragma once

#include <stdexcept>

namespace regression {

/// The input or the output is of no use; the text is the one line that the user gets.
class Failure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The user asked to stop.
class Stopped {};

}  // namespace regression
