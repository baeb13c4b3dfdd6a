/// A collector of warnings: two lists without repetitions, and typed parameters by warning code.
///
///     warnings.AddWarning(status, QVWarnings::DestinationFirst);
///     warnings.AddParameter(status, "income");
///     for (const QVStatus & warning : warnings.GetWarnings(true)) ...
///
/// A list keeps the order of first arrival. Equality is that of `QVStatus`, so two warnings with
/// one code and different data are both kept. Parameters go by the code alone: statuses that share
/// a code share one parameter list, and the code need not stand in any list.
///
/// References that `GetWarnings` and `GetParameters` return belong to the collector.
/// Threads: one object from one thread at a time, `GetParameters` included, which writes a member.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "QVExport.h"
#include "QVStatus.h"

namespace QVCommon_940 {

class QVCOMMON_API QVWarnings {
 public:
  /// One typed value. Only the field that `GetType` names is meaningful; the others keep their
  /// defaults, 0, 0.0 and the empty string.
  class QVCOMMON_API QVParameterValue {
   public:
    enum ValueType : int { IntegerParameter = 0, DoubleParameter = 1, StringParameter = 2 };

    QVParameterValue() = default;

    /// Which kind was stored; `IntegerParameter` in the default state.
    ValueType GetType() const;

    /// The stored fields as they stand. There is NO conversion between the kinds: `ToDouble` of an
    /// integer parameter is 0.0.
    int ToInteger() const;
    double ToDouble() const;
    std::string ToString() const;

   private:
    friend class QVWarnings;

    void SetValue(int value);
    void SetValue(double value);
    void SetValue(std::string value);

    ValueType fType = IntegerParameter;
    int fInteger = 0;
    double fDouble = 0.0;
    std::string fString;
  };

  /// The kinds of parameter under the collector's own name.
  using ValueType = QVParameterValue::ValueType;
  static constexpr ValueType IntegerParameter = QVParameterValue::IntegerParameter;
  static constexpr ValueType DoubleParameter = QVParameterValue::DoubleParameter;
  static constexpr ValueType StringParameter = QVParameterValue::StringParameter;

  /// Which lists a warning goes to. Every other number means both.
  enum Destination : int { DestinationFirst = 0, DestinationSecond = 1, DestinationBoth = 2 };

  /// An empty collector.
  QVWarnings() = default;
  QVWarnings(const QVWarnings &) = default;
  QVWarnings & operator=(const QVWarnings &) = default;
  virtual ~QVWarnings();

  /// Appends `status` to each list of `destination` that does not hold an equal one yet; each list
  /// is tested by itself. A status that is no warning changes nothing.
  void AddWarning(const QVStatus & status, Destination destination);

  /// Each status in order, to the first list, as `AddWarning`.
  void AddWarnings(const std::vector<QVStatus> & statuses);

  /// Merges another collector: what its two lists hold beyond these goes to the end of these, and
  /// the parameters of codes that have none here are taken over. For a code with parameters here
  /// the other's are DROPPED, not appended. Severities are not tested again.
  void AddWarnings(QVWarnings other);

  /// The first list for true, the second for false.
  const std::vector<QVStatus> & GetWarnings(bool first) const;

  /// Empties the FIRST list and nothing else: the second list and all parameters stay.
  void ClearWarnings();

  /// Appends one value to the parameters of the status's code; repeated values are kept. Always
  /// true.
  bool AddParameter(const QVStatus & status, int value);
  bool AddParameter(const QVStatus & status, double value);
  bool AddParameter(const QVStatus & status, std::string value);

  /// True when the status's code has parameters.
  bool HasParameter(const QVStatus & status) const;

  /// The parameters of the status's code, empty when it has none. The reference names one scratch
  /// list of the collector, which the NEXT CALL overwrites: copy it to keep it.
  const std::vector<QVParameterValue> & GetParameters(const QVStatus & status);

 private:
  /// The list of the code's parameters, made when there is none.
  std::vector<QVParameterValue> & ParameterList(const QVStatus & status);

  std::vector<QVStatus> fFirstWarnings;
  std::vector<QVStatus> fSecondWarnings;
  std::map<int, int> fParameterIndex;  // error code -> place in fParameterPool
  std::vector<std::vector<QVParameterValue>> fParameterPool;
  std::vector<QVParameterValue> fParameterResult;
};

}  // namespace QVCommon_940
