/// A bag of named, typed settings that a caller hands to a component: numbers, texts, vectors and
/// nested bags. It keeps the order of insertion and allows several settings under one name.
///
///     QVXML_940::QVSettings settings;
///     settings.AddSetting("tolerance", 1e-9, true);
///     settings.AddNewSetting("method", "forward", "");
///     double tolerance = 1e-12;
///     settings.GetSettingValByName("tolerance", tolerance);  // false leaves the default
///
/// Beware: bags compare by position and by value; names and type texts do not count, so that two
/// bags with the same values under different names are equal.
///
/// A bag owns its settings; copies are deep. Pointers to settings go stale with `Clear`,
/// `RemoveSetting`, `AddSetting` that replaces, and assignment. Nothing throws but failed
/// allocation.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "QVExport.h"
#include "QVNumValue.h"
#include "QVSetting.h"
#include "QVSettingListValue.h"
#include "QVStrValue.h"
#include "QVTypes.h"
#include "QVVecValue.h"

namespace QVXML_940 {

class QVCOMMON_API QVSettings {
 public:
  using Index = unsigned long long;

  QVSettings();
  QVSettings(const QVSettings & other);
  QVSettings & operator=(const QVSettings & other);
  virtual ~QVSettings();

  // === Adding and removing ======================================================================

  /// Adds a setting with an empty type text; with `replace` all settings of that name go first.
  /// True.
  bool AddSetting(const std::string & name, double value, bool replace);
  bool AddSetting(const std::string & name, const std::string & value, bool replace);

  /// Adds a setting beside those of the same name. The value is copied.
  void AddNewSetting(const std::string & name, double value, const std::string & type);
  void AddNewSetting(const std::string & name, const std::string & value, const std::string & type);
  void AddNewSetting(const std::string & name, const QVSettings & value, const std::string & type);
  void AddNewSetting(const std::string & name, const IQVSettingValue & value,
                     const std::string & type);

  /// Adds a vector of n texts, or of copies of n bags; a null entry counts as an empty one, an n
  /// below 0 as 0.
  void AddNewSetting(const std::string & name, const char * const * values, int n,
                     const std::string & type);
  void AddNewSetting(const std::string & name, const QVSettings * const * values, int n,
                     const std::string & type);

  /// Removes the first setting of that name, or all of them; false when there is none.
  bool RemoveSetting(const std::string & name, bool all);

  void Clear();

  // === Reading ==================================================================================

  Index Size() const { return fSettings.size(); }

  /// Setting i in the order of insertion; null past the end.
  QVSetting * GetSettingAt(Index i) const;

  /// Every setting of that name, in the order of insertion.
  std::vector<QVSetting *> GetSettingByName(const std::string & name) const;

  /// Appends all names in the order of insertion, repeated ones included.
  void GetSettingNames(std::vector<std::string> & names) const;

  /// Reads the first setting of that name into `value`; false, and no change, when there is none.
  ///
  /// T is `int`, `double`, `__int64` (or `long`), `bool` or `std::string`: any value is converted
  /// as its `GetInt` and so on, so that a vector read as `int` gives its size. T is `QVSettings`:
  /// false for a value that is no bag.
  ///
  /// T is a vector of `int`, `double` or `std::string`: a vector of the same kind is assigned; one
  /// of the other two kinds is converted, and beware, appended to what `value` holds; anything else
  /// leaves `value` as it was and the result is true. A text that is no number empties `value`:
  /// false. T is a vector of pairs of strings: one of these is assigned, one of strings with
  /// numbers appended; T is a vector of `QVSettings`: one of these is assigned; anything else is
  /// false.
  template <typename T>
  bool GetSettingValByName(const std::string & name, T & value) const;

  // === Copies and comparison ====================================================================

  /// A deep copy, owned by the caller.
  QVSettings * Clone() const;

  bool operator==(const QVSettings & other) const { return Compare(other) == 0; }
  bool operator<(const QVSettings & other) const { return Compare(other) < 0; }

  /// The value of two bags as -1, 0 or 1: position by position, a shorter prefix being less.
  /// (`QVSettingListValue` compares by it.)
  int Compare(const QVSettings & other) const;

  /// Shows each setting.
  void Display() const;

 private:
  using NameMap = std::multimap<std::string, Index>;

  QVSetting * FindSetting(const std::string & name) const;
  IQVSettingValue * FindValue(const std::string & name) const;
  void Insert(QVSetting * setting, std::string type);
  void Delete(NameMap::iterator entry, Index index);

  static bool Str2Int(const std::string & text, int & value);
  static bool Str2Double(const std::string & text, double & value);
  static bool StrVec2IntVec(const std::vector<std::string> & texts, std::vector<int> & values);
  static bool StrVec2DoubleVec(const std::vector<std::string> & texts,
                               std::vector<double> & values);

  static bool MapVecValue(const IQVSettingValue * value, std::vector<int> & out);
  static bool MapVecValue(const IQVSettingValue * value, std::vector<double> & out);
  static bool MapVecValue(const IQVSettingValue * value, std::vector<std::string> & out);
  static bool MapVecValue(const IQVSettingValue * value,
                          std::vector<std::pair<std::string, std::string>> & out);
  static bool MapVecValue(const IQVSettingValue * value, std::vector<QVSettings> & out);

  std::vector<QVSetting *> fSettings;  // owned
  NameMap fIndexOfName;
};

extern template class QVVecValue<QVSettings>;

using QVStringPairs = std::vector<std::pair<std::string, std::string>>;

template <>
QVCOMMON_API bool QVSettings::GetSettingValByName(const std::string & name, int & value) const;
template <>
QVCOMMON_API bool QVSettings::GetSettingValByName(const std::string & name, double & value) const;
template <>
QVCOMMON_API bool QVSettings::GetSettingValByName(const std::string & name, __int64 & value) const;
template <>
QVCOMMON_API bool QVSettings::GetSettingValByName(const std::string & name, long & value) const;
template <>
QVCOMMON_API bool QVSettings::GetSettingValByName(const std::string & name, bool & value) const;
template <>
QVCOMMON_API bool QVSettings::GetSettingValByName(const std::string & name,
                                                  std::string & value) const;
template <>
QVCOMMON_API bool QVSettings::GetSettingValByName(const std::string & name,
                                                  QVSettings & value) const;
template <>
QVCOMMON_API bool QVSettings::GetSettingValByName(const std::string & name,
                                                  std::vector<int> & value) const;
template <>
QVCOMMON_API bool QVSettings::GetSettingValByName(const std::string & name,
                                                  std::vector<double> & value) const;
template <>
QVCOMMON_API bool QVSettings::GetSettingValByName(const std::string & name,
                                                  std::vector<std::string> & value) const;
template <>
QVCOMMON_API bool QVSettings::GetSettingValByName(const std::string & name,
                                                  QVStringPairs & value) const;
template <>
QVCOMMON_API bool QVSettings::GetSettingValByName(const std::string & name,
                                                  std::vector<QVSettings> & value) const;

}  // namespace QVXML_940
