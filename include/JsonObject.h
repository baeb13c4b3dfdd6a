/// A write-only JSON value: a string, a number, a boolean, a list or an object, nested by value.
///
///     JsonObject fit("r2", 0.87);
///     fit.AddPair("name", "model").AddPair("cases", 342);
///     stream << fit.GetJsonString(true);
///
///     {
///     	"cases" : 342,
///     	"name" : "model",
///     	"r2" : 0.87
///     }
///
/// Beware: the text is not always valid JSON. Strings and keys are written as they stand, so that
/// one that holds a double quote, a backslash or a control character must be escaped by the caller,
/// and NaN and the infinities come out as "nan" and "inf". Everything else is. Members stand in the
/// byte order of their keys. Numbers have 15 significant digits and the point under every locale.
///
/// A plain value: copies are deep, different objects may be used from different threads.
#pragma once

#include <map>
#include <string>
#include <type_traits>
#include <vector>

#include "QVExport.h"

namespace QVXML_940 {

class QVCOMMON_API JsonObject {
 public:
  enum ObjectType : int {
    ObjectTypeString = 0,
    ObjectTypeNumber = 1,
    ObjectTypeBoolean = 2,
    ObjectTypeList = 3,
    ObjectTypeObject = 4
  };

  /// Any integer but `bool`: it is kept and printed as a number.
  template <typename T>
  using IfInteger = std::enable_if_t<std::is_integral_v<T> && !std::is_same_v<T, bool>, int>;

  // === Construction =============================================================================

  /// An object without members.
  JsonObject();

  /// A scalar. A null text is an empty string.
  JsonObject(double value);
  JsonObject(bool value);
  JsonObject(const std::string & value);
  JsonObject(const char * value);
  template <typename T, IfInteger<T> = 0>
  JsonObject(T value) : JsonObject(static_cast<double>(value)) {}

  /// A list of copies of the items.
  JsonObject(const std::vector<JsonObject> & items);

  /// An object with one member.
  JsonObject(const std::string & key, const std::string & value);
  JsonObject(const std::string & key, const char * value);
  JsonObject(const std::string & key, double value);
  JsonObject(const std::string & key, bool value);
  JsonObject(const std::string & key, const JsonObject & value);
  template <typename T, IfInteger<T> = 0>
  JsonObject(const std::string & key, T value) : JsonObject(key, static_cast<double>(value)) {}

  JsonObject(const JsonObject & other);
  JsonObject(JsonObject && other) noexcept;
  JsonObject & operator=(const JsonObject & other);
  JsonObject & operator=(JsonObject && other) noexcept;
  ~JsonObject();

  // === Content ==================================================================================
  // The kind is not tested: what is added to a scalar is kept and never printed.

  /// Sets member `key`, replacing an earlier value. The result is this object, for chaining. An
  /// object may be added to itself: it is copied first.
  JsonObject & AddPair(const std::string & key, const std::string & value);
  JsonObject & AddPair(const std::string & key, const char * value);
  JsonObject & AddPair(const std::string & key, double value);
  JsonObject & AddPair(const std::string & key, bool value);
  JsonObject & AddPair(const std::string & key, const JsonObject & value);
  template <typename T, IfInteger<T> = 0>
  JsonObject & AddPair(const std::string & key, T value) {
    return AddPair(key, static_cast<double>(value));
  }

  /// Appends a copy of the item to the list. The result is this object.
  JsonObject & AddToList(const JsonObject & item);

  /// Drops all members and items; the kind stays.
  void Clear();

  ObjectType GetType() const { return fType; }

  /// The text. With `closed` false the outermost list or object is left open, so that the caller
  /// can write on; what is inside is always closed.
  std::string GetJsonString(bool closed) const;

  // === Messages of a procedure ==================================================================

  /// {"text": {"stringText": {"key": key, "value": value}}}, an empty text being left out.
  static JsonObject CreateStringText(const std::string & key, const std::string & value);

  /// {"text": {"variableText": {"variable": variable}}}
  static JsonObject CreateVariableText(const std::string & variable);

  /// {"text": {"numericDataText": {"variable": variable, "value": value}}}
  static JsonObject CreateNumDataText(const std::string & variable, double value);

  /// {"text": {"stringDataText": {"variable": variable, "value": value}}}
  static JsonObject CreateStringDataText(const std::string & variable, const std::string & value);

 private:
  void AppendTo(std::string & text, bool closed) const;
  void RaiseDepthAbove(const JsonObject & child);

  ObjectType fType = ObjectTypeObject;
  int fDepth = 0;  // 0 for a scalar, else at least the deepest child's plus 1
  double fNumber = 0.0;
  bool fBoolean = false;
  std::string fText;
  std::vector<JsonObject> fList;
  std::map<std::string, JsonObject> fPairs;
};

}  // namespace QVXML_940
