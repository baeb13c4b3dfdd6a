// Reading settings by name, with the conversions between the kinds of vectors.
#include <locale>
#include <sstream>

#include "QVSettings.h"
#include "xml/settings/double_to_integer.h"

namespace QVXML_940 {

namespace {

using StringInt = std::pair<std::string, int>;
using StringDouble = std::pair<std::string, double>;
using StringString = std::pair<std::string, std::string>;

/// The elements of a value that is a vector of T, else null.
template <typename T>
const std::vector<T> * VectorOf(const IQVSettingValue * value) {
  const auto * const vector = dynamic_cast<const QVVecValue<T> *>(value);
  return vector == nullptr ? nullptr : &vector->GetVector();
}

template <typename T>
std::string Text(const T & value) {
  std::ostringstream stream;
  stream.imbue(std::locale::classic());
  stream << value;
  return stream.str();
}

template <typename T>
bool Extract(const std::string & text, T & value) {
  std::istringstream stream(text);
  stream.imbue(std::locale::classic());
  stream >> value;
  return !stream.fail();
}

template <typename T>
void AppendTexts(const std::vector<T> & values, std::vector<std::string> & out) {
  for (const T & value : values) {
    out.push_back(Text(value));
  }
}

template <typename T>
void AppendTexts(const std::vector<std::pair<std::string, T>> & pairs,
                 std::vector<StringString> & out) {
  for (const auto & [key, value] : pairs) {
    out.emplace_back(key, Text(value));
  }
}

/// Appends the number of each text; one that is no number, and no text at all, empties `values`.
template <typename T>
bool AppendNumbers(const std::vector<std::string> & texts, std::vector<T> & values,
                   bool (*extract)(const std::string &, T &)) {
  for (const std::string & text : texts) {
    T value{};
    if (!extract(text, value)) {
      values.clear();
      return false;
    }
    values.push_back(value);
  }
  if (texts.empty()) values.clear();
  return !texts.empty();
}

}  // namespace

QVSetting * QVSettings::GetSettingAt(Index i) const {
  return i < fSettings.size() ? fSettings[i] : nullptr;
}

std::vector<QVSetting *> QVSettings::GetSettingByName(const std::string & name) const {
  std::vector<QVSetting *> found;
  const auto [first, last] = fIndexOfName.equal_range(name);
  for (auto entry = first; entry != last; ++entry) {
    found.push_back(fSettings[entry->second]);
  }
  return found;
}

void QVSettings::GetSettingNames(std::vector<std::string> & names) const {
  for (const QVSetting * setting : fSettings) {
    names.push_back(setting->GetName());
  }
}

QVSetting * QVSettings::FindSetting(const std::string & name) const {
  const auto entry = fIndexOfName.lower_bound(name);
  return entry == fIndexOfName.end() || entry->first != name ? nullptr : fSettings[entry->second];
}

IQVSettingValue * QVSettings::FindValue(const std::string & name) const {
  const QVSetting * const setting = FindSetting(name);
  return setting == nullptr ? nullptr : setting->GetValue();
}

bool QVSettings::Str2Int(const std::string & text, int & value) {
  return Extract(text, value);
}

bool QVSettings::Str2Double(const std::string & text, double & value) {
  return Extract(text, value);
}

bool QVSettings::StrVec2IntVec(const std::vector<std::string> & texts, std::vector<int> & values) {
  return AppendNumbers(texts, values, Str2Int);
}

bool QVSettings::StrVec2DoubleVec(const std::vector<std::string> & texts,
                                  std::vector<double> & values) {
  return AppendNumbers(texts, values, Str2Double);
}

bool QVSettings::MapVecValue(const IQVSettingValue * value, std::vector<int> & out) {
  if (value == nullptr) return false;
  if (const auto * ints = VectorOf<int>(value)) {
    out = *ints;
  } else if (const auto * doubles = VectorOf<double>(value)) {
    for (const double number : *doubles) {
      out.push_back(DoubleToInteger<int>(number));
    }
  } else if (const auto * texts = VectorOf<std::string>(value)) {
    return StrVec2IntVec(*texts, out);
  }
  return true;
}

bool QVSettings::MapVecValue(const IQVSettingValue * value, std::vector<double> & out) {
  if (value == nullptr) return false;
  if (const auto * doubles = VectorOf<double>(value)) {
    out = *doubles;
  } else if (const auto * ints = VectorOf<int>(value)) {
    out.insert(out.end(), ints->begin(), ints->end());
  } else if (const auto * texts = VectorOf<std::string>(value)) {
    return StrVec2DoubleVec(*texts, out);
  }
  return true;
}

bool QVSettings::MapVecValue(const IQVSettingValue * value, std::vector<std::string> & out) {
  if (value == nullptr) return false;
  if (const auto * texts = VectorOf<std::string>(value)) {
    out = *texts;
  } else if (const auto * ints = VectorOf<int>(value)) {
    AppendTexts(*ints, out);
  } else if (const auto * doubles = VectorOf<double>(value)) {
    AppendTexts(*doubles, out);
  }
  return true;
}

// A class of the caller's may be no vector of ours and still name itself one by its sub-type: it is
// accepted, and there is nothing to take from it.
bool QVSettings::MapVecValue(const IQVSettingValue * value, std::vector<StringString> & out) {
  if (value == nullptr) return false;
  if (const auto * pairs = VectorOf<StringString>(value)) {
    out = *pairs;
  } else if (const auto * withInts = VectorOf<StringInt>(value)) {
    AppendTexts(*withInts, out);
  } else if (const auto * withDoubles = VectorOf<StringDouble>(value)) {
    AppendTexts(*withDoubles, out);
  } else {
    return value->GetSubType() >= IQVSettingValue::ValueSubTypeStringInt &&
           value->GetSubType() <= IQVSettingValue::ValueSubTypeStringString;
  }
  return true;
}

bool QVSettings::MapVecValue(const IQVSettingValue * value, std::vector<QVSettings> & out) {
  if (value == nullptr) return false;
  if (const auto * bags = VectorOf<QVSettings>(value)) {
    out = *bags;
    return true;
  }
  return value->GetSubType() == IQVSettingValue::ValueSubTypeSettings;
}

template <>
bool QVSettings::GetSettingValByName(const std::string & name, int & value) const {
  const IQVSettingValue * const found = FindValue(name);
  if (found == nullptr) return false;
  value = found->GetInt();
  return true;
}

template <>
bool QVSettings::GetSettingValByName(const std::string & name, double & value) const {
  const IQVSettingValue * const found = FindValue(name);
  if (found == nullptr) return false;
  value = found->GetDouble();
  return true;
}

template <>
bool QVSettings::GetSettingValByName(const std::string & name, __int64 & value) const {
  const IQVSettingValue * const found = FindValue(name);
  if (found == nullptr) return false;
  value = found->GetLongLong();
  return true;
}

template <>
bool QVSettings::GetSettingValByName(const std::string & name, long & value) const {
  __int64 number = 0;
  if (!GetSettingValByName(name, number)) return false;
  value = static_cast<long>(number);
  return true;
}

template <>
bool QVSettings::GetSettingValByName(const std::string & name, bool & value) const {
  const IQVSettingValue * const found = FindValue(name);
  if (found == nullptr) return false;
  value = found->GetBool();
  return true;
}

template <>
bool QVSettings::GetSettingValByName(const std::string & name, std::string & value) const {
  const IQVSettingValue * const found = FindValue(name);
  if (found == nullptr) return false;
  value = found->GetString();
  return true;
}

template <>
bool QVSettings::GetSettingValByName(const std::string & name, QVSettings & value) const {
  const auto * const list = dynamic_cast<const QVSettingListValue *>(FindValue(name));
  if (list == nullptr) return false;
  value = QVSettings(*list->GetListValue());
  return true;
}

template <>
bool QVSettings::GetSettingValByName(const std::string & name, std::vector<int> & value) const {
  return MapVecValue(FindValue(name), value);
}

template <>
bool QVSettings::GetSettingValByName(const std::string & name, std::vector<double> & value) const {
  return MapVecValue(FindValue(name), value);
}

template <>
bool QVSettings::GetSettingValByName(const std::string & name,
                                     std::vector<std::string> & value) const {
  return MapVecValue(FindValue(name), value);
}

template <>
bool QVSettings::GetSettingValByName(const std::string & name, QVStringPairs & value) const {
  return MapVecValue(FindValue(name), value);
}

template <>
bool QVSettings::GetSettingValByName(const std::string & name,
                                     std::vector<QVSettings> & value) const {
  return MapVecValue(FindValue(name), value);
}

}  // namespace QVXML_940
