/// The library's exception with a code and a message. Thrown by value.
///
/// Only the tagged variant throws it: 13 "Value type wrong!" when a value holds another type than
/// the one asked for, 13 "This value is not an array!", and 14 "Out of this array bounds!".
///
/// It has no base class: a handler for std::exception does NOT catch it.
#pragma once

#include <string>

#include "QVExport.h"

namespace QVCommon_940 {

class QVCOMMON_API QVException {
 public:
  /// Code 0 and an empty message.
  QVException() = default;
  QVException(int code, const std::string & message);

  QVException(const QVException &) = default;
  QVException & operator=(const QVException &) = default;
  virtual ~QVException();

  /// The code.
  int GetCode() const;

  /// A copy of the message.
  std::string GetMessage() const;

 private:
  int fCode = 0;
  std::string fMessage;
};

}  // namespace QVCommon_940
