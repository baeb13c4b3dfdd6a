// Values compared: equality within a tolerance, order across kinds.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

#include "Value.h"
#include "common/record/value_content.h"

namespace QVCommon_940 {

bool Value::IsMissing() const {
  return fTag == TagNull || (fTag == TagReal && fPayload.fReal == SYSMISVALUE);
}

bool Value::IsSystemMissingValue() const {
  return IsMissing();
}

bool Value::IsZeroDiff(double a, double b, double k) {
  const double difference = std::fabs(a - b);
  if (difference == 0.0) return true;
  if (a == 0.0 || b == 0.0) return false;
  return std::max(std::fabs(a), std::fabs(b)) * (k * EPSILON) >= difference;
}

namespace {

// --- Equality ------------------------------------------------------------------------------------

constexpr double kEqualityFactor = 100.0;

bool AreEqualReals(double a, double b) {
  if (a == 0.0 && b == 0.0) return true;
  if (a == Value::SYSMISVALUE) return b == Value::SYSMISVALUE;
  if (b == Value::SYSMISVALUE) return false;
  return Value::IsZeroDiff(a, b, kEqualityFactor);
}

// Of two values of one kind that are neither arrays nor maps.
bool AreEqualLeaves(const Value & a, const Value & b) {
  switch (a.GetType()) {
    case Value::TagBool:
      return ValueContent::GetBool(a) == ValueContent::GetBool(b);
    case Value::TagInteger:
      return ValueContent::GetInteger(a) == ValueContent::GetInteger(b);
    case Value::TagReal:
      return AreEqualReals(ValueContent::GetReal(a), ValueContent::GetReal(b));
    case Value::TagString:
      return ValueContent::GetText(a) == ValueContent::GetText(b);
    default:
      return false;  // a null equals nothing
  }
}

struct Pair {
  const Value * a;
  const Value * b;
};

// Of two arrays or two maps: compares counts, keys and leaves, and puts the nested containers on
// the list.
bool AreEqualButForNested(const Value & a, const Value & b, std::vector<Pair> & nested) {
  const auto areEqualOrPut = [&nested](const Value & x, const Value & y) {
    if (x.GetType() != y.GetType()) return false;
    if (!ValueContent::IsContainer(x)) return AreEqualLeaves(x, y);
    nested.push_back({&x, &y});
    return true;
  };
  if (a.Size() != b.Size()) return false;
  if (a.GetType() == Value::TagArray) {
    const ValueContent::Items & items = ValueContent::GetItems(a);
    return std::equal(items.begin(), items.end(), ValueContent::GetItems(b).begin(), areEqualOrPut);
  }
  const ValueContent::Entries & entries = ValueContent::GetEntries(a);
  return std::equal(entries.begin(), entries.end(), ValueContent::GetEntries(b).begin(),
                    [&](const auto & x, const auto & y) {
                      return x.first == y.first && areEqualOrPut(x.second, y.second);
                    });
}

// --- Order ---------------------------------------------------------------------------------------

// Below 0 when a < b, above 0 when b < a, 0 when neither holds.
template <typename T>
int CompareBy(const T & a, const T & b) {
  if (a < b) return -1;
  return b < a ? 1 : 0;
}

int CompareBy(const std::string & a, const std::string & b) {
  return a.compare(b);
}

// Of two values of which not both are arrays or both maps.
int CompareLeaves(const Value & a, const Value & b) {
  if (a.GetType() != b.GetType()) return CompareBy(a.GetString(), b.GetString());
  switch (a.GetType()) {
    case Value::TagBool:
      return CompareBy(ValueContent::GetBool(a), ValueContent::GetBool(b));
    case Value::TagInteger:
      return CompareBy(ValueContent::GetInteger(a), ValueContent::GetInteger(b));
    case Value::TagReal:
      if (a.IsMissing() || b.IsMissing()) return 0;
      return CompareBy(ValueContent::GetReal(a), ValueContent::GetReal(b));
    case Value::TagString:
      return CompareBy(ValueContent::GetText(a), ValueContent::GetText(b));
    default:
      return 0;
  }
}

// Two arrays or two maps that are equal up to a position.
class OpenPair {
 public:
  OpenPair(const Value & a, const Value & b) : fA(&a), fB(&b) {
    if (IsArray()) return;
    fEntryA = ValueContent::GetEntries(a).begin();
    fEntryB = ValueContent::GetEntries(b).begin();
  }

  bool IsDone() const { return fPosition == std::min(fA->Size(), fB->Size()); }

  // When one is the beginning of the other, the shorter one is less.
  int CompareSizes() const { return CompareBy(fA->Size(), fB->Size()); }

  // Gives the next two values; the result is the order of their keys.
  int Advance(Pair & next) {
    const std::size_t i = static_cast<std::size_t>(fPosition++);
    if (IsArray()) {
      next = {&ValueContent::GetItems(*fA)[i], &ValueContent::GetItems(*fB)[i]};
      return 0;
    }
    next = {&fEntryA->second, &fEntryB->second};
    return CompareBy((fEntryA++)->first, (fEntryB++)->first);
  }

 private:
  bool IsArray() const { return fA->GetType() == Value::TagArray; }

  const Value * fA;
  const Value * fB;
  int fPosition = 0;
  ValueContent::Entries::const_iterator fEntryA, fEntryB;
};

// The order of two values, position by position. Asking once for both directions keeps the work
// linear: asking `<` and then its reverse at each level would double it with each level.
int Compare(const Value & a, const Value & b) {
  std::vector<OpenPair> open;
  const auto compareOrOpen = [&open](const Value & x, const Value & y) {
    if (x.GetType() != y.GetType() || !ValueContent::IsContainer(x)) return CompareLeaves(x, y);
    open.emplace_back(x, y);
    return 0;
  };
  int order = compareOrOpen(a, b);
  while (order == 0 && !open.empty()) {
    if (open.back().IsDone()) {
      order = open.back().CompareSizes();
      open.pop_back();
    } else {
      Pair next{};
      order = open.back().Advance(next);
      if (order == 0) order = compareOrOpen(*next.a, *next.b);
    }
  }
  return order;
}

}  // namespace

bool Value::operator==(const Value & other) const {
  if (fTag != other.fTag) return false;
  if (!IsContainer()) return AreEqualLeaves(*this, other);
  std::vector<Pair> pending{{this, &other}};
  while (!pending.empty()) {
    const Pair next = pending.back();
    pending.pop_back();
    if (!AreEqualButForNested(*next.a, *next.b, pending)) return false;
  }
  return true;
}

bool Value::operator!=(const Value & other) const {
  return !(*this == other);
}

bool Value::operator<(const Value & other) const {
  return Compare(*this, other) < 0;
}

bool Value::operator>(const Value & other) const {
  if (fTag == TagBool && other.fTag == TagBool) return *this < other;
  return Compare(*this, other) > 0;
}

bool Value::operator<=(const Value & other) const {
  return *this < other || *this == other;
}

bool Value::operator>=(const Value & other) const {
  return *this > other || *this == other;
}

}  // namespace QVCommon_940
