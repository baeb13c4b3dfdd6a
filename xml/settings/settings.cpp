// The bag of settings: its order, its names and its comparison. Reading stands in
// settings_reading.cpp.
#include "QVSettings.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace QVXML_940 {

QVSettings::QVSettings() = default;

QVSettings::QVSettings(const QVSettings & other) {
  for (const QVSetting * setting : other.fSettings) {
    auto copy = std::make_unique<QVSetting>(*setting);
    Insert(copy.release(), setting->GetType());
  }
}

QVSettings & QVSettings::operator=(const QVSettings & other) {
  if (this == &other) return *this;
  QVSettings copy(other);
  fSettings.swap(copy.fSettings);
  fIndexOfName.swap(copy.fIndexOfName);
  return *this;
}

QVSettings::~QVSettings() {
  Clear();
}

void QVSettings::Clear() {
  for (QVSetting * setting : fSettings) {
    delete setting;
  }
  fSettings.clear();
  fIndexOfName.clear();
}

bool QVSettings::AddSetting(const std::string & name, double value, bool replace) {
  if (replace) RemoveSetting(name, true);
  AddNewSetting(name, value, "");
  return true;
}

bool QVSettings::AddSetting(const std::string & name, const std::string & value, bool replace) {
  const std::string copy = value;  // it may stand in a setting that goes
  if (replace) RemoveSetting(std::string(name), true);
  AddNewSetting(name, copy, "");
  return true;
}

void QVSettings::AddNewSetting(const std::string & name, double value, const std::string & type) {
  Insert(new QVSetting(name, value), type);
}

void QVSettings::AddNewSetting(const std::string & name, const std::string & value,
                               const std::string & type) {
  Insert(new QVSetting(name, value), type);
}

void QVSettings::AddNewSetting(const std::string & name, const QVSettings & value,
                               const std::string & type) {
  Insert(new QVSetting(name, value), type);
}

void QVSettings::AddNewSetting(const std::string & name, const IQVSettingValue & value,
                               const std::string & type) {
  Insert(new QVSetting(name, value), type);
}

void QVSettings::AddNewSetting(const std::string & name, const char * const * values, int n,
                               const std::string & type) {
  std::vector<std::string> texts;
  for (int i = 0; i < n; ++i) {
    texts.emplace_back(values[i] == nullptr ? "" : values[i]);
  }
  AddNewSetting(name, QVVecValue<std::string>(texts), type);
}

void QVSettings::AddNewSetting(const std::string & name, const QVSettings * const * values, int n,
                               const std::string & type) {
  std::vector<QVSettings> bags;
  for (int i = 0; i < n; ++i) {
    bags.push_back(values[i] == nullptr ? QVSettings() : *values[i]);
  }
  AddNewSetting(name, QVVecValue<QVSettings>(bags), type);
}

void QVSettings::Insert(QVSetting * setting, std::string type) {
  std::unique_ptr<QVSetting> owned(setting);
  owned->SetType(std::move(type));
  fSettings.push_back(setting);
  static_cast<void>(owned.release());
  fIndexOfName.emplace(setting->GetName(), fSettings.size() - 1);
}

bool QVSettings::RemoveSetting(const std::string & name, bool all) {
  const std::string wanted = name;  // it may stand in a setting that goes
  auto entry = fIndexOfName.find(wanted);
  if (entry == fIndexOfName.end()) return false;
  do {
    entry = fIndexOfName.lower_bound(wanted);
    Delete(entry, entry->second);
  } while (all && fIndexOfName.find(wanted) != fIndexOfName.end());
  return true;
}

void QVSettings::Delete(NameMap::iterator entry, Index index) {
  delete fSettings[index];
  fSettings.erase(fSettings.begin() + static_cast<std::ptrdiff_t>(index));
  fIndexOfName.erase(entry);
  for (auto & [name, place] : fIndexOfName) {
    if (place > index) --place;
  }
}

QVSettings * QVSettings::Clone() const {
  return new QVSettings(*this);
}

int QVSettings::Compare(const QVSettings & other) const {
  if (this == &other) return 0;
  const std::size_t common = std::min(fSettings.size(), other.fSettings.size());
  for (std::size_t i = 0; i < common; ++i) {
    const QVSetting & left = *fSettings[i];
    const QVSetting & right = *other.fSettings[i];
    if (left < right) return -1;
    if (right < left) return 1;
  }
  if (fSettings.size() == other.fSettings.size()) return 0;
  return fSettings.size() < other.fSettings.size() ? -1 : 1;
}

void QVSettings::Display() const {
  for (const QVSetting * setting : fSettings) {
    setting->Display();
  }
}

}  // namespace QVXML_940
