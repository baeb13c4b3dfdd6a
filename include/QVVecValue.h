/// A vector as the value of a setting: of `int`, `double`, `std::string`, of pairs of a string with
/// one of these, or of `QVSettings`. The library holds the code of these seven.
///
///     QVXML_940::QVVecValue<double> cuts({0.5, 1.5});
///     settings.AddNewSetting("cuts", cuts, "");
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "IQVSettingValue.h"

namespace QVXML_940 {

template <typename T>
class QVCOMMON_API QVVecValue : public IQVSettingValue {
 public:
  QVVecValue();
  QVVecValue(const std::vector<T> & values);
  QVVecValue(const QVVecValue & other);
  QVVecValue & operator=(const QVVecValue & other);
  ~QVVecValue() override;

  const std::vector<T> & GetVector() const { return fValues; }

  IQVSettingValue * Clone() const override;

  /// Element by element, a shorter prefix being less; false for any other kind of value, a vector
  /// of other elements included.
  bool operator==(const IQVSettingValue & other) const override;
  bool operator==(const QVVecValue & other) const {
    return *this == static_cast<const IQVSettingValue &>(other);
  }
  bool operator<(const IQVSettingValue & other) const override;

  /// The number of elements.
  int GetInt() const override;
  __int64 GetLongLong() const override;

  /// The missing value.
  double GetDouble() const override;

  /// "Vector Value: Length of vector = " and the number of elements.
  std::string GetString() const override;

  /// True when there is an element.
  bool GetBool() const override;

  ValueType GetType() const override;
  ValueSubType GetSubType() const override;
  void Display() const override;

 private:
  int Compare(const std::vector<T> & other) const;

  std::vector<T> fValues;
  int fSubType;
};

extern template class QVVecValue<int>;
extern template class QVVecValue<double>;
extern template class QVVecValue<std::string>;
extern template class QVVecValue<std::pair<std::string, int>>;
extern template class QVVecValue<std::pair<std::string, double>>;
extern template class QVVecValue<std::pair<std::string, std::string>>;
// QVVecValue<QVSettings> stands in QVSettings.h.

}  // namespace QVXML_940
