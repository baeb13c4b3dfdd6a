#include "QVStatus.h"

namespace QVCommon_940 {
namespace {

constexpr std::int16_t kError = -1;
constexpr std::int16_t kWarning = 1;

}  // namespace

QVStatus::QVStatus(long code, bool warning)
    : fErrorCode(code), fSeverity(warning ? kWarning : kError) {
}

bool QVStatus::operator==(const QVStatus & other) const {
  if (fErrorCode != other.fErrorCode || fSeverity != other.fSeverity) {
    return false;
  }
  for (int i = 0; i < kSlots; ++i) {
    if (fDiscreteData[i] != other.fDiscreteData[i] || fScaleData[i] != other.fScaleData[i]) {
      return false;
    }
  }
  return true;
}

long QVStatus::GetErrorCode() const {
  return fErrorCode;
}

bool QVStatus::IsOK() const {
  return fSeverity == 0;
}

bool QVStatus::IsError() const {
  return fSeverity < 0;
}

bool QVStatus::IsWarning() const {
  return fSeverity > 0;
}

long QVStatus::GetDiscreteDatum(unsigned i) const {
  return fDiscreteData[i];
}

void QVStatus::SetDiscreteDatum(unsigned i, long value) {
  fDiscreteData[i] = value;
}

double QVStatus::GetScaleDatum(unsigned i) const {
  return fScaleData[i];
}

void QVStatus::SetScaleDatum(unsigned i, double value) {
  fScaleData[i] = value;
}

}  // namespace QVCommon_940
