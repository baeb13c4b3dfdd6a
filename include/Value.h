/// One value of any kind: nothing, a boolean, an integer, a real, a text, an array or a map.
///
///     QVCommon_940::Value row;
///     row["age"] = 41;                  // null becomes a map
///     row["name"] = "Ann";
///     row["scores"][1] = 2.5;           // an array of a null and a real
///     std::cout << row;                 // [age:41,name:Ann,scores:{,2.5}]
///     row["age"].GetReal();             // 41.0: the Get operations convert and never throw
///     double & x = row["scores"][0];    // null becomes a real, 0.0; another kind would throw
///
/// Beware of these; each is meant so, and old data rely on it.
/// - `=` takes the kind of its argument; `SetValue` of a number does NOT: on a value that has a
/// kind
///   already it stores the argument's bytes and keeps the tag, without a conversion, so that
///   `Value(1).SetValue(2.5)` leaves an integer of 4612811918334230528. Assign instead.
/// - A null is unequal to a null, and values of different kinds are never equal: `Value(1)` is not
///   `Value(1.0)`. Reals are equal within 100 times `EPSILON` of the larger magnitude; two
///   missing reals are equal, two infinities are not.
/// - Values of different kinds are ordered by their texts: 10 comes before 9.5, "10" < "9.5".
/// - `>` of two booleans asks what `<` asks: `false > true` holds and `true > false` does not.
/// - `[key]` on a value that is neither null nor a map drops the content and begins a map;
///   `[index]` on a value that is neither null nor an array throws.
/// - Non-const access by index, by key or by reference gives a null its kind.
/// - Growing an array moves its elements: in `v[5] = v[0]` the right side may no longer exist.
///
/// Guarantees.
/// Missing: a null and a real that is the missing value count as missing; an empty text does not.
/// Ownership: a value owns its text, array or map alone; copies are deep. Moving is cheap and
/// leaves a null. A value may be assigned, or set to the text of, a part of itself.
/// Nesting of any depth is copied, compared, shown, cleared and destroyed without recursion.
/// Exceptions: `QVException`, see the operations; a throwing operation leaves the value as it was.
/// Threads: different values may be used from different threads; so may one that nobody changes.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "QVExport.h"
#include "QVTypes.h"

namespace QVCommon_940 {

class QVCOMMON_API Value {
 public:
  /// The kinds by the number that `GetType` gives.
  enum Tag : unsigned short {
    TagNull = 0,
    TagBool = 1,
    TagInteger = 2,  ///< 64 bits, signed
    TagReal = 3,
    TagString = 4,  ///< bytes without an encoding
    TagArray = 5,
    TagMap = 6  ///< keys in byte-wise order
  };

  // === Constants ================================================================================

  /// The missing real: the lowest finite double, the number of `QVMV::Missing`.
  static const double SYSMISVALUE;
  static const double QVVALUE_INFINITY;
  /// 2.22045e-16: rounded on purpose, not the machine's epsilon.
  static const double EPSILON;

  static const Value NULL_VALUE;
  static const Value BOOL_VALUE;     ///< false
  static const Value INTEGER_VALUE;  ///< 0
  static const Value REAL_VALUE;     ///< SYSMISVALUE, a real that begins as missing
  static const Value STRING_VALUE;   ///< the empty text

  static double GetSysmisValue();
  static double GetInfinity();

  // === Construction and assignment ==============================================================

  /// A null.
  constexpr Value() noexcept {}

  /// A value of the argument's kind. A null pointer counts as the empty text.
  constexpr Value(bool value) noexcept : fTag(TagBool), fPayload(value) {}
  constexpr Value(int value) noexcept : fTag(TagInteger), fPayload(static_cast<__int64>(value)) {}
  constexpr Value(long value) noexcept : fTag(TagInteger), fPayload(static_cast<__int64>(value)) {}
  constexpr Value(__int64 value) noexcept : fTag(TagInteger), fPayload(value) {}
  constexpr Value(double value) noexcept : fTag(TagReal), fPayload(value) {}
  Value(const char * value);
  Value(const std::string & value);

  /// A deep copy.
  Value(const Value & other) : Value() {
    if (other.fTag < TagString) {
      fTag = other.fTag;
      fPayload = other.fPayload;
    } else {
      CopyOwned(other);
    }
  }

  /// Takes the content; `other` becomes null.
  Value(Value && other) noexcept : fTag(other.fTag), fPayload(other.fPayload) {
    other.fTag = TagNull;
    other.fPayload = Payload();
  }

  ~Value() {
    if (fTag >= TagString) Invalidate();
  }

  /// A deep copy in place of the content, whatever kind this was; also of a part of the content.
  Value & operator=(const Value & other) {
    if (this != &other) {
      Value copy(other);
      Swap(copy);
    }
    return *this;
  }

  /// Takes the content; `other` becomes null unless it is this value itself.
  Value & operator=(Value && other) noexcept {
    Value taken(static_cast<Value &&>(other));
    Swap(taken);
    return *this;
  }

  /// The value takes the argument's kind, whatever kind it was.
  Value & operator=(bool value) { return *this = Value(value); }
  Value & operator=(int value) { return *this = Value(value); }
  Value & operator=(long value) { return *this = Value(value); }
  Value & operator=(__int64 value) { return *this = Value(value); }
  Value & operator=(double value) { return *this = Value(value); }
  Value & operator=(const char * value) { return *this = Value(value); }
  Value & operator=(const std::string & value) { return *this = Value(value); }

  /// A new deep copy that the caller deletes.
  Value * Clone() const;

  /// The value becomes null.
  void Clear();

  /// Stores a number. A null takes the argument's kind; so does a text, an array or a map, whose
  /// content is freed. A boolean, an integer or a real KEEPS its kind and takes the argument's
  /// bytes without a conversion: 8 bytes, of which a boolean looks at the first alone (false when
  /// it is 0); a `bool` is one byte and leaves the other seven as they were.
  void SetValue(bool value);
  void SetValue(int value);
  void SetValue(long value);
  void SetValue(__int64 value);
  void SetValue(double value);

  /// The value becomes this text, whatever kind it was. A null pointer counts as the empty text.
  void SetValue(const char * value);
  void SetValue(const std::string & value);

  // === Access that asks for the kind ============================================================

  /// A copy of the content. Throws QVException 13 "Value type wrong!" for another kind, and for a
  /// null.
  operator bool() const;
  operator __int64() const;
  operator double() const;
  operator std::string() const;

  /// The content itself. A null first takes the kind asked for: false, 0, 0.0 or the empty text.
  /// Throws QVException 13 "Value type wrong!" for another kind.
  operator bool &();
  operator __int64 &();
  operator double &();
  operator std::string &();

  /// The text itself; an empty text for any other kind. Never throws.
  const std::string & GetStringRef() const;

  // === Access that converts =====================================================================
  // None of these throws for its content or changes the value.

  /// Null: false. Numbers: not 0, so that the missing real gives true. Text: 0 or 1 as a stream
  /// reads it, false when empty. Arrays and maps: not empty.
  bool GetBool() const;

  /// Null: 0. Boolean: 1 or 0. Real: cut off towards zero; the lowest 64-bit integer when out of
  /// range, missing or NaN. Text: as a stream reads it, 0 when empty. Arrays and maps: the count.
  __int64 GetInteger() const;

  /// Null: the missing value. Boolean: 1.0 or 0.0. Text: as a stream reads it, the missing value
  /// when empty or blank, 0.0 when it begins with no number; what follows a number does not count.
  /// The point is the decimal character under every locale; the character of the standard output
  /// stream's locale is understood as well. Arrays and maps: the count.
  double GetReal() const;

  /// Null: empty. Boolean: "1" or "0". Integer: as a stream writes it. Real: 6 significant digits,
  /// the first comma made a point ("2.5" under a locale with a decimal comma too; the missing value
  /// is "-1.79769e+308"). Arrays and maps: the text of `Display`, in which reals keep the comma.
  std::string GetString() const;

  // === Structure ================================================================================

  /// Element i of an array. Throws QVException 13 "This value is not an array!" for another kind, a
  /// null included, and 14 "Out of this array bounds!" when i is past the end; std::out_of_range
  /// for a negative i.
  const Value & operator[](int i) const;

  /// Element i of an array that grows to i + 1 elements, the new ones null; a null becomes such an
  /// array. Throws QVException 13 "This value is not an array!" for another kind, std::out_of_range
  /// for a negative i.
  Value & operator[](int i);

  /// The entry for a key, a new null when there was none. Beware: a value that is neither null nor
  /// a map loses its content and becomes a map. A null pointer counts as the empty key.
  Value & operator[](const std::string & key);
  Value & operator[](const char * key);

  /// Bytes of a text, elements of an array, entries of a map; -1 for every other kind.
  int Size() const;

  /// Gives an array exactly n elements: the new ones null, the surplus destroyed; a null becomes an
  /// array. Throws QVException 13 "This value is not an array!" for another kind,
  /// std::length_error for a negative n.
  void Resize(int n);

  /// A map has an entry for the key; false for every other kind.
  bool Contains(const std::string & key) const;

  /// The keys of a map in byte-wise order; none for every other kind.
  std::vector<std::string> Names() const;

  /// Scalars and texts become null. An array keeps its length and a map its keys: their elements
  /// are cleared in the same way, to the last leaf.
  void ClearValue();

  // === Tests ====================================================================================

  bool IsNull() const { return fTag == TagNull; }

  /// The kind, one of `Tag`.
  unsigned short GetType() const { return fTag; }

  /// An integer or a real. A boolean is not numeric.
  bool IsNumericValue() const { return fTag == TagInteger || fTag == TagReal; }

  /// A null, or a real equal to SYSMISVALUE. Both are the same test.
  bool IsMissing() const;
  bool IsSystemMissingValue() const;

  /// a and b differ by no more than k times EPSILON of the larger magnitude:
  /// max(|a|, |b|) (k EPSILON) >= |a - b|. A zero is near to nothing but a zero; an infinity and
  /// NaN are near to nothing, themselves included.
  static bool IsZeroDiff(double a, double b, double k);

  // === Comparison ===============================================================================

  /// The same kind and the same content; reals within 100 EPSILON. A null is unequal to everything,
  /// a null included, and so is an array or map with a null in it.
  bool operator==(const Value & other) const;
  bool operator!=(const Value & other) const;

  /// Different kinds: by their `GetString` texts, byte-wise. Nulls: false. Missing reals: false.
  /// Arrays and maps: by the first elements, or entries, of which one is less; then the shorter
  /// one.
  bool operator<(const Value & other) const;

  /// `other < *this`, but for two booleans: there `*this < other`. `false > true` holds.
  bool operator>(const Value & other) const;

  /// Less (greater) or equal: of two missing reals both hold, of two nulls neither.
  bool operator<=(const Value & other) const;
  bool operator>=(const Value & other) const;

  /// Writes the value: nothing for a null, numbers with the flags and the locale of the stream, a
  /// text as it is, an array as {1,2}, a map as [key:1,other:2].
  void Display(std::ostream & stream) const;

 protected:
  /// Frees the content; the value becomes null.
  void Invalidate() noexcept;

  /// Throws QVException 13 "Value type wrong!" unless the value is of kind `tag`. The non-const
  /// form gives a null that kind first: 0, or an empty text, array or map.
  void AssertTypeOrInvalid(unsigned short tag) const;
  void AssertTypeOrInvalid(unsigned short tag);

  /// Throws QVException 13 "This value is not an array!" for another kind, 14 "Out of this array
  /// bounds!" for an array of fewer than `size` elements.
  void AssertArray(int size) const;

  /// Makes a null an array and grows an array to `size` elements; with `exactly`, shortens it too.
  /// Throws QVException 13 "This value is not an array!" for another kind, and std::length_error
  /// for a negative size with `exactly`.
  void AssertArray(int size, bool exactly);

  /// Makes the value an empty map unless it is a map.
  void AssertMap();

 private:
  struct Content;  // what the heap objects of arrays and maps have in common
  struct Array;
  struct Map;
  friend struct ValueContent;

  // The member that the tag names is the active one; fInteger for a null.
  union Payload {
    constexpr Payload() noexcept : fInteger(0) {}
    constexpr explicit Payload(bool value) noexcept : fBool(value) {}
    constexpr explicit Payload(__int64 value) noexcept : fInteger(value) {}
    constexpr explicit Payload(double value) noexcept : fReal(value) {}
    constexpr explicit Payload(std::string * value) noexcept : fString(value) {}
    constexpr explicit Payload(Array * value) noexcept : fArray(value) {}
    constexpr explicit Payload(Map * value) noexcept : fMap(value) {}

    bool fBool;
    __int64 fInteger;
    double fReal;
    std::string * fString;
    Array * fArray;
    Map * fMap;
  };

  template <typename Number>
  void StoreNumber(Number value);
  template <typename Pointer>
  void Own(unsigned short tag, Pointer content);
  bool IsContainer() const { return fTag == TagArray || fTag == TagMap; }
  Content * GetContent() const;
  void CopyOwned(const Value & other);
  void CopyLeaf(const Value & other);
  void GrowArray(std::size_t size, bool exactly);

  void Swap(Value & other) noexcept {
    const unsigned short tag = fTag;
    const Payload payload = fPayload;
    fTag = other.fTag;
    fPayload = other.fPayload;
    other.fTag = tag;
    other.fPayload = payload;
  }

  unsigned short fTag = TagNull;
  Payload fPayload;
};

/// `value.Display(stream)`.
QVCOMMON_API std::ostream & operator<<(std::ostream & stream, const Value & value);

}  // namespace QVCommon_940
