/// One outcome: a code, a severity, and room for six figures that say more.
///
///     QVCommon_940::QVStatus status(101, false);    // error 101
///     status.SetDiscreteDatum(0, variableIndex);
///     if (status.IsError()) ...
///
/// The default status is success: code 0, neither error nor warning. The severity belongs to the
/// meaning; a code alone does not tell an error from a warning.
///
/// The library's own codes:
///
///     0    success  every exporter call that succeeds
///     1    error    the cancel query stopped an export
///     101  error    a requested variable index lies outside the list (discrete datum 0: the index)
///     102  error    no variable stands at the requested index (discrete datum 0: the index)
///     117  error    the statistics object failed its IsValid test
///     901  warning  integration reached its iteration limit; the value includes an unrefined rest
///     902  warning  the integrand or a bound gave the missing value
///
/// A caller's own codes are as welcome. Threads: an ordinary value.
#pragma once

#include <cstdint>

#include "QVExport.h"

namespace QVCommon_940 {

class QVCOMMON_API QVStatus {
 public:
  /// Success: code 0, severity 0, every datum 0.
  QVStatus() = default;

  /// A warning when `warning` is true, otherwise an error; never OK, whatever the code. Data are 0.
  QVStatus(long code, bool warning);

  /// True when code, severity and all six data are equal. A NaN among the scale data makes two
  /// statuses unequal, even a status and itself; the missing value is an ordinary number here.
  bool operator==(const QVStatus & other) const;

  /// The code.
  long GetErrorCode() const;

  /// What the severity says: exactly one of the three is true.
  bool IsOK() const;
  bool IsError() const;
  bool IsWarning() const;

  /// Integer detail number `i`: 0, 1 or 2. The index is NOT tested.
  long GetDiscreteDatum(unsigned i) const;
  void SetDiscreteDatum(unsigned i, long value);

  /// Real detail number `i`: 0, 1 or 2. The index is NOT tested.
  double GetScaleDatum(unsigned i) const;
  void SetScaleDatum(unsigned i, double value);

 private:
  static constexpr int kSlots = 3;

  long fErrorCode = 0;
  std::int16_t fSeverity = 0;  // 0 OK, -1 error, +1 warning
  long fDiscreteData[kSlots] = {0, 0, 0};
  double fScaleData[kSlots] = {0.0, 0.0, 0.0};
};

}  // namespace QVCommon_940
