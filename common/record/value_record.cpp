#include "ValueRecord.h"

#include <cstddef>
#include <ostream>

namespace QVCommon_940 {

namespace {

constexpr int kDefaultRoom = 2;

}  // namespace

ValueRecord::ValueRecord() : ValueRecord(kDefaultRoom) {
}

ValueRecord::ValueRecord(int n) {
  if (n > 0) fValues.reserve(static_cast<std::size_t>(n));
}

ValueRecord::ValueRecord(const ValueRecord & other) = default;

ValueRecord & ValueRecord::operator=(const ValueRecord & other) {
  if (this == &other) return *this;
  std::vector<Value> values = other.fValues;
  std::map<std::string, int> indices = other.fIndices;
  fValues.swap(values);
  fIndices.swap(indices);
  return *this;
}

ValueRecord::~ValueRecord() = default;

bool ValueRecord::operator==(const ValueRecord & other) const {
  if (this == &other) return true;
  if (Size() != other.Size()) return false;
  auto theirs = other.fIndices.begin();
  for (const auto & ours : fIndices) {
    if (theirs == other.fIndices.end()) return false;  // a derived class has its own Size
    if (Get(ours.second) != other.Get(theirs->second)) return false;
    ++theirs;
  }
  return true;
}

int ValueRecord::Add(const std::string & name, const Value & value) {
  const int found = IndexOf(name);
  if (found >= 0) {
    (*this)[found] = value;
    return found;
  }
  const int index = static_cast<int>(fValues.size());
  const auto entry = fIndices.emplace(name, index).first;
  try {
    fValues.push_back(value);
  } catch (...) {
    fIndices.erase(entry);
    throw;
  }
  return index;
}

bool ValueRecord::AddAll(const ValueRecord & other) {
  for (const auto & [name, index] : other.fIndices)
    Add(name, other[index]);
  return true;
}

bool ValueRecord::Set(const std::string & name, const Value & value, bool typeStrict) {
  const int index = IndexOf(name);
  if (index < 0) return false;
  Value & field = (*this)[index];
  if (typeStrict && !field.IsNull() && field.GetType() != value.GetType()) return false;
  field = value;
  return true;
}

void ValueRecord::Remove(const std::string & name) {
  const auto found = fIndices.find(name);
  if (found == fIndices.end()) return;
  const int removed = found->second;
  fIndices.erase(found);
  fValues.erase(fValues.begin() + removed);
  for (auto & entry : fIndices) {
    if (entry.second > removed) --entry.second;
  }
}

void ValueRecord::Clear() {
  fValues.clear();
  fIndices.clear();
}

void ValueRecord::ClearValues() {
  for (Value & value : fValues)
    value.ClearValue();
}

void ValueRecord::SetMissingValue(int i) {
  (*this)[i].Clear();
}

Value ValueRecord::Get(int i) const {
  if (i < 0 || static_cast<std::size_t>(i) >= fValues.size()) return Value();
  return (*this)[i];
}

Value ValueRecord::Get(const std::string & name) const {
  const int index = IndexOf(name);
  return index < 0 ? Value() : Get(index);
}

int ValueRecord::IndexOf(const std::string & name) const {
  const auto found = fIndices.find(name);
  return found == fIndices.end() ? -1 : found->second;
}

bool ValueRecord::Contains(const std::string & name) {
  return IndexOf(name) >= 0;
}

int ValueRecord::Size() const {
  return static_cast<int>(fIndices.size());
}

std::vector<std::string> ValueRecord::Names(bool fieldOrder) const {
  std::vector<std::string> names;
  if (fieldOrder) {
    names.resize(fIndices.size());
    for (const auto & [name, index] : fIndices)
      names[static_cast<std::size_t>(index)] = name;
  } else {
    names.reserve(fIndices.size());
    for (const auto & entry : fIndices)
      names.push_back(entry.first);
  }
  return names;
}

std::string ValueRecord::GetName(int i) const {
  for (const auto & [name, index] : fIndices) {
    if (index == i) return name;
  }
  return std::string();
}

bool ValueRecord::SetValue(int i, const std::string & value) {
  (*this)[i] = value;
  return true;
}

bool ValueRecord::SetValue(int i, const char * value) {
  (*this)[i] = value;
  return true;
}

bool ValueRecord::SetValue(int i, double value) {
  (*this)[i] = value;
  return true;
}

bool ValueRecord::SetValue(int i, __int64 value) {
  (*this)[i] = value;
  return true;
}

bool ValueRecord::SetValue(int i, int value) {
  (*this)[i] = value;
  return true;
}

bool ValueRecord::SetValue(int i, bool value) {
  (*this)[i] = value;
  return true;
}

void * ValueRecord::GetRecord() const {
  return nullptr;
}

Value & ValueRecord::operator[](const std::string & name) {
  int index = IndexOf(name);
  if (index < 0) index = Add(name, Value());
  return (*this)[index];
}

Value & ValueRecord::operator[](int i) {
  return fValues[static_cast<std::size_t>(i)];
}

const Value & ValueRecord::operator[](int i) const {
  return fValues[static_cast<std::size_t>(i)];
}

void ValueRecord::Display(std::ostream & stream) const {
  stream << "[";
  const char * separator = "";
  for (const auto & [name, index] : fIndices) {
    stream << separator << name << ":";
    (*this)[index].Display(stream);
    separator = ",";
  }
  stream << "]";
}

std::ostream & operator<<(std::ostream & stream, const ValueRecord & record) {
  record.Display(stream);
  return stream;
}

}  // namespace QVCommon_940
