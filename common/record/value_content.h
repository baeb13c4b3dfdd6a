/// The heap objects behind arrays and maps, and a read-only view of a value's payload.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "Value.h"

namespace QVCommon_940 {

/// An array or a map. The link threads the containers that a walk has still to visit, so that
/// freeing and clearing nested values need neither recursion nor memory.
struct Value::Content {
  explicit Content(unsigned short tag) : fTag(tag) {}

  Content * fNext = nullptr;
  const unsigned short fTag;
};

struct Value::Array : Value::Content {
  Array() : Content(TagArray) {}

  std::vector<Value> fItems;
};

struct Value::Map : Value::Content {
  Map() : Content(TagMap) {}

  std::map<std::string, Value> fEntries;
};

/// The payload for functions that walk values. Each operation requires a value of its kind.
struct ValueContent {
  using Items = std::vector<Value>;
  using Entries = std::map<std::string, Value>;

  static bool IsContainer(const Value & value) { return value.IsContainer(); }
  static bool GetBool(const Value & value) { return value.fPayload.fBool; }
  static __int64 GetInteger(const Value & value) { return value.fPayload.fInteger; }
  static double GetReal(const Value & value) { return value.fPayload.fReal; }
  static const std::string & GetText(const Value & value) { return *value.fPayload.fString; }
  static const Items & GetItems(const Value & value) { return value.fPayload.fArray->fItems; }
  static const Entries & GetEntries(const Value & value) { return value.fPayload.fMap->fEntries; }
};

}  // namespace QVCommon_940
