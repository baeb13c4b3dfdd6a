#include "QVException.h"

namespace QVCommon_940 {

QVException::QVException(int code, const std::string & message) : fCode(code), fMessage(message) {
}

QVException::~QVException() = default;

int QVException::GetCode() const {
  return fCode;
}

std::string QVException::GetMessage() const {
  return fMessage;
}

}  // namespace QVCommon_940
