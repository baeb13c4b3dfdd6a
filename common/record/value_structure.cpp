// Values as arrays and maps.
#include <cstddef>
#include <stdexcept>
#include <utility>

#include "QVException.h"
#include "Value.h"
#include "common/record/value_content.h"

namespace QVCommon_940 {

namespace {

[[noreturn]] void ThrowNotAnArray() {
  throw QVException(13, "This value is not an array!");
}

[[noreturn]] void ThrowNegativeIndex() {
  throw std::out_of_range("Value: negative index");
}

}  // namespace

// --- Arrays --------------------------------------------------------------------------------------

void Value::AssertArray(int size) const {
  if (fTag != TagArray) ThrowNotAnArray();
  if (size > 0 && static_cast<std::size_t>(size) > fPayload.fArray->fItems.size()) {
    throw QVException(14, "Out of this array bounds!");
  }
}

void Value::AssertArray(int size, bool exactly) {
  if (fTag != TagNull && fTag != TagArray) ThrowNotAnArray();
  if (size < 0 && exactly) throw std::length_error("Value: negative size");
  GrowArray(size > 0 ? static_cast<std::size_t>(size) : 0, exactly);
}

// Of a null or an array. A null stays one when there is no memory for the elements.
void Value::GrowArray(std::size_t size, bool exactly) {
  if (fTag == TagNull) {
    Value array;
    array.AssertTypeOrInvalid(TagArray);
    array.fPayload.fArray->fItems.resize(size);
    Swap(array);
    return;
  }
  std::vector<Value> & items = fPayload.fArray->fItems;
  if (exactly || items.size() < size) items.resize(size);
}

const Value & Value::operator[](int i) const {
  if (fTag != TagArray) ThrowNotAnArray();
  if (i < 0) ThrowNegativeIndex();
  const std::vector<Value> & items = fPayload.fArray->fItems;
  const std::size_t index = static_cast<std::size_t>(i);
  if (index >= items.size()) throw QVException(14, "Out of this array bounds!");
  return items[index];
}

Value & Value::operator[](int i) {
  if (fTag != TagNull && fTag != TagArray) ThrowNotAnArray();
  if (i < 0) ThrowNegativeIndex();
  const std::size_t index = static_cast<std::size_t>(i);
  GrowArray(index + 1, false);
  return fPayload.fArray->fItems[index];
}

void Value::Resize(int n) {
  AssertArray(n, true);
}

// --- Maps ----------------------------------------------------------------------------------------

void Value::AssertMap() {
  if (fTag == TagMap) return;
  Value map;
  map.AssertTypeOrInvalid(TagMap);
  Swap(map);
}

Value & Value::operator[](const std::string & key) {
  if (fTag == TagMap) return fPayload.fMap->fEntries[key];
  Value map;
  map.AssertTypeOrInvalid(TagMap);
  Value & entry = map.fPayload.fMap->fEntries[key];
  Swap(map);  // frees the content last: the key may be a part of it
  return entry;
}

Value & Value::operator[](const char * key) {
  return (*this)[key != nullptr ? std::string(key) : std::string()];
}

bool Value::Contains(const std::string & key) const {
  return fTag == TagMap && fPayload.fMap->fEntries.count(key) != 0;
}

std::vector<std::string> Value::Names() const {
  std::vector<std::string> names;
  if (fTag != TagMap) return names;
  names.reserve(fPayload.fMap->fEntries.size());
  for (const auto & entry : fPayload.fMap->fEntries)
    names.push_back(entry.first);
  return names;
}

int Value::Size() const {
  switch (fTag) {
    case TagString:
      return static_cast<int>(fPayload.fString->size());
    case TagArray:
      return static_cast<int>(fPayload.fArray->fItems.size());
    case TagMap:
      return static_cast<int>(fPayload.fMap->fEntries.size());
    default:
      return -1;
  }
}

}  // namespace QVCommon_940
