// Values: construction, copying, freeing, setting and access that asks for the kind.
#include "Value.h"

#include <cstring>
#include <limits>
#include <memory>
#include <type_traits>

#include "QVException.h"
#include "common/record/value_content.h"

namespace QVCommon_940 {

namespace {

// Stands behind GetStringRef for values that hold no text.
const std::string & EmptyText() {
  static const std::string text;
  return text;
}

std::string TextOrEmpty(const char * text) {
  return text != nullptr ? std::string(text) : std::string();
}

}  // namespace

// All but the last are set before any code runs.
const double Value::SYSMISVALUE = std::numeric_limits<double>::lowest();
const double Value::QVVALUE_INFINITY = std::numeric_limits<double>::infinity();
const double Value::EPSILON = 2.22045e-16;
const Value Value::NULL_VALUE;
const Value Value::BOOL_VALUE(false);
const Value Value::INTEGER_VALUE(0);
const Value Value::REAL_VALUE(std::numeric_limits<double>::lowest());
const Value Value::STRING_VALUE("");

double Value::GetSysmisValue() {
  return SYSMISVALUE;
}

double Value::GetInfinity() {
  return QVVALUE_INFINITY;
}

// --- Owning --------------------------------------------------------------------------------------

Value::Value(const char * value) : Value() {
  Own(TagString, new std::string(TextOrEmpty(value)));
}

Value::Value(const std::string & value) : Value() {
  Own(TagString, new std::string(value));
}

// Makes a value without heap content the owner of `content`.
template <typename Pointer>
void Value::Own(unsigned short tag, Pointer content) {
  fTag = tag;
  fPayload = Payload(content);
}

Value::Content * Value::GetContent() const {
  if (fTag == TagArray) return fPayload.fArray;
  return fPayload.fMap;
}

// Makes a null a copy of a value that is neither an array nor a map.
void Value::CopyLeaf(const Value & other) {
  if (other.fTag == TagString) {
    Own(TagString, new std::string(*other.fPayload.fString));
  } else {
    fTag = other.fTag;
    fPayload = other.fPayload;
  }
}

// Makes a null a copy of any value. Containers found on the way wait in a list: each begins as a
// null at its place in the copy and is filled in its turn.
void Value::CopyOwned(const Value & other) {
  if (!other.IsContainer()) {
    CopyLeaf(other);
    return;
  }
  struct Pending {
    Value * to;
    const Value * from;
  };
  std::vector<Pending> pending;
  const auto copyOrPut = [&pending](Value & to, const Value & from) {
    if (from.IsContainer()) {
      pending.push_back({&to, &from});
    } else {
      to.CopyLeaf(from);
    }
  };
  Pending next{this, &other};
  while (true) {
    next.to->AssertTypeOrInvalid(next.from->fTag);
    if (next.from->fTag == TagArray) {
      const std::vector<Value> & items = next.from->fPayload.fArray->fItems;
      std::vector<Value> & copies = next.to->fPayload.fArray->fItems;
      copies.reserve(items.size());  // so that the places of the copies stay
      for (const Value & item : items)
        copyOrPut(copies.emplace_back(), item);
    } else {
      auto & copies = next.to->fPayload.fMap->fEntries;
      for (const auto & [key, value] : next.from->fPayload.fMap->fEntries)
        copyOrPut(copies.emplace_hint(copies.end(), key, Value())->second, value);
    }
    if (pending.empty()) return;
    next = pending.back();
    pending.pop_back();
  }
}

void Value::Invalidate() noexcept {
  if (fTag == TagString) {
    delete fPayload.fString;
  } else if (IsContainer()) {
    // Each container gives its own containers to the list before it is freed, so that freeing it
    // meets nothing but leaves.
    Content * pending = GetContent();
    const auto takeContainer = [&pending](Value & item) {
      if (!item.IsContainer()) return;
      Content * content = item.GetContent();
      content->fNext = pending;
      pending = content;
      item.Own(TagNull, __int64{0});
    };
    pending->fNext = nullptr;
    while (pending != nullptr) {
      Content * content = pending;
      pending = content->fNext;
      if (content->fTag == TagArray) {
        const std::unique_ptr<Array> array(static_cast<Array *>(content));
        for (Value & item : array->fItems)
          takeContainer(item);
      } else {
        const std::unique_ptr<Map> map(static_cast<Map *>(content));
        for (auto & entry : map->fEntries)
          takeContainer(entry.second);
      }
    }
  }
  fTag = TagNull;
  fPayload = Payload();
}

Value * Value::Clone() const {
  return new Value(*this);
}

void Value::Clear() {
  Invalidate();
}

void Value::ClearValue() {
  if (!IsContainer()) {
    Invalidate();
    return;
  }
  Content * pending = GetContent();
  const auto clearOrPut = [&pending](Value & item) {
    if (!item.IsContainer()) {
      item.Invalidate();
      return;
    }
    Content * content = item.GetContent();
    content->fNext = pending;
    pending = content;
  };
  pending->fNext = nullptr;
  while (pending != nullptr) {
    Content * content = pending;
    pending = content->fNext;
    if (content->fTag == TagArray) {
      for (Value & item : static_cast<Array *>(content)->fItems)
        clearOrPut(item);
    } else {
      for (auto & entry : static_cast<Map *>(content)->fEntries)
        clearOrPut(entry.second);
    }
  }
}

// --- Setting -------------------------------------------------------------------------------------

// The bytes are copied, so that they may be read as the kind that the tag names.
template <typename Number>
void Value::StoreNumber(Number value) {
  constexpr unsigned short tag = std::is_same_v<Number, bool>     ? TagBool
                                 : std::is_same_v<Number, double> ? TagReal
                                                                  : TagInteger;
  if (fTag == tag || fTag == TagNull || fTag >= TagString) {
    Invalidate();
    Own(tag, value);
  } else if (fTag == TagBool) {
    unsigned char first = 0;
    std::memcpy(&first, &value, 1);
    fPayload.fBool = first != 0;
  } else if (fTag == TagInteger) {
    std::memcpy(&fPayload.fInteger, &value, sizeof value);
  } else {
    std::memcpy(&fPayload.fReal, &value, sizeof value);
  }
}

void Value::SetValue(bool value) {
  StoreNumber(value);
}

void Value::SetValue(int value) {
  StoreNumber<__int64>(value);
}

void Value::SetValue(long value) {
  StoreNumber<__int64>(value);
}

void Value::SetValue(__int64 value) {
  StoreNumber(value);
}

void Value::SetValue(double value) {
  StoreNumber(value);
}

// The text may lie within this value: it is copied before anything is freed.
void Value::SetValue(const char * value) {
  std::string text = TextOrEmpty(value);
  if (fTag == TagString) {
    fPayload.fString->swap(text);
  } else {
    *this = Value(text);
  }
}

void Value::SetValue(const std::string & value) {
  if (fTag != TagString) {
    *this = Value(value);
  } else if (&value != fPayload.fString) {
    *fPayload.fString = value;
  }
}

// --- Access that asks for the kind ---------------------------------------------------------------

void Value::AssertTypeOrInvalid(unsigned short tag) const {
  if (fTag != tag) throw QVException(13, "Value type wrong!");
}

void Value::AssertTypeOrInvalid(unsigned short tag) {
  if (fTag == tag) return;
  if (fTag != TagNull) throw QVException(13, "Value type wrong!");
  switch (tag) {
    case TagBool:
      Own(tag, false);
      break;
    case TagReal:
      Own(tag, 0.0);
      break;
    case TagString:
      Own(tag, new std::string);
      break;
    case TagArray:
      Own(tag, new Array);
      break;
    case TagMap:
      Own(tag, new Map);
      break;
    default:
      Own(tag, __int64{0});
  }
}

Value::operator bool() const {
  AssertTypeOrInvalid(TagBool);
  return fPayload.fBool;
}

Value::operator __int64() const {
  AssertTypeOrInvalid(TagInteger);
  return fPayload.fInteger;
}

Value::operator double() const {
  AssertTypeOrInvalid(TagReal);
  return fPayload.fReal;
}

Value::operator std::string() const {
  AssertTypeOrInvalid(TagString);
  return *fPayload.fString;
}

Value::operator bool &() {
  AssertTypeOrInvalid(TagBool);
  return fPayload.fBool;
}

Value::operator __int64 &() {
  AssertTypeOrInvalid(TagInteger);
  return fPayload.fInteger;
}

Value::operator double &() {
  AssertTypeOrInvalid(TagReal);
  return fPayload.fReal;
}

Value::operator std::string &() {
  AssertTypeOrInvalid(TagString);
  return *fPayload.fString;
}

const std::string & Value::GetStringRef() const {
  return fTag == TagString ? *fPayload.fString : EmptyText();
}

}  // namespace QVCommon_940
