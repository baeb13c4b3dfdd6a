#include "JsonObject.h"

#include <algorithm>
#include <utility>

#include "NumberText.h"

namespace QVXML_940 {

JsonObject::JsonObject() : fDepth(1) {
}

JsonObject::JsonObject(double value) : fType(ObjectTypeNumber), fNumber(value) {
}

JsonObject::JsonObject(bool value) : fType(ObjectTypeBoolean), fBoolean(value) {
}

JsonObject::JsonObject(const std::string & value) : fType(ObjectTypeString), fText(value) {
}

JsonObject::JsonObject(const char * value)
    : fType(ObjectTypeString), fText(value == nullptr ? "" : value) {
}

JsonObject::JsonObject(const std::vector<JsonObject> & items) : fType(ObjectTypeList), fDepth(1) {
  for (const JsonObject & item : items) {
    AddToList(item);
  }
}

JsonObject::JsonObject(const std::string & key, const std::string & value) : JsonObject() {
  AddPair(key, value);
}

JsonObject::JsonObject(const std::string & key, const char * value) : JsonObject() {
  AddPair(key, value);
}

JsonObject::JsonObject(const std::string & key, double value) : JsonObject() {
  AddPair(key, value);
}

JsonObject::JsonObject(const std::string & key, bool value) : JsonObject() {
  AddPair(key, value);
}

JsonObject::JsonObject(const std::string & key, const JsonObject & value) : JsonObject() {
  AddPair(key, value);
}

JsonObject::JsonObject(const JsonObject & other) = default;
JsonObject::JsonObject(JsonObject && other) noexcept = default;
JsonObject & JsonObject::operator=(const JsonObject & other) = default;
JsonObject & JsonObject::operator=(JsonObject && other) noexcept = default;
JsonObject::~JsonObject() = default;

JsonObject & JsonObject::AddPair(const std::string & key, const std::string & value) {
  fPairs[key] = JsonObject(value);
  return *this;
}

JsonObject & JsonObject::AddPair(const std::string & key, const char * value) {
  fPairs[key] = JsonObject(value);
  return *this;
}

JsonObject & JsonObject::AddPair(const std::string & key, double value) {
  fPairs[key] = JsonObject(value);
  return *this;
}

JsonObject & JsonObject::AddPair(const std::string & key, bool value) {
  fPairs[key] = JsonObject(value);
  return *this;
}

JsonObject & JsonObject::AddPair(const std::string & key, const JsonObject & value) {
  JsonObject copy(value);  // `value` may be this object or a part of it
  RaiseDepthAbove(copy);
  fPairs[key] = std::move(copy);
  return *this;
}

JsonObject & JsonObject::AddToList(const JsonObject & item) {
  JsonObject copy(item);
  RaiseDepthAbove(copy);
  fList.push_back(std::move(copy));
  return *this;
}

void JsonObject::RaiseDepthAbove(const JsonObject & child) {
  fDepth = std::max(fDepth, child.fDepth + 1);
}

void JsonObject::Clear() {
  fPairs.clear();
  fList.clear();
  fDepth = 1;
}

std::string JsonObject::GetJsonString(bool closed) const {
  std::string text;
  AppendTo(text, closed);
  return text;
}

void JsonObject::AppendTo(std::string & text, bool closed) const {
  const char * separator = "";
  switch (fType) {
    case ObjectTypeString:
      text.append("\"").append(fText).append("\"");
      break;
    case ObjectTypeNumber:
      text.append(Format(fNumber, false, nullptr));
      break;
    case ObjectTypeBoolean:
      text.append(fBoolean ? "true" : "false");
      break;
    case ObjectTypeList:
      text.append("[");
      for (const JsonObject & item : fList) {
        text.append(separator);
        item.AppendTo(text, true);
        separator = ",\n";
      }
      if (closed) text.append("]");
      break;
    case ObjectTypeObject:
      text.append("{\n");
      for (const auto & [key, value] : fPairs) {
        text.append(separator).append("\t\"").append(key).append("\" : ");
        value.AppendTo(text, true);
        separator = ",\n";
      }
      text.append("\n");
      if (closed) text.append("}\n");
      break;
  }
}

JsonObject JsonObject::CreateStringText(const std::string & key, const std::string & value) {
  JsonObject inner;
  if (!key.empty()) inner.AddPair("key", key);
  if (!value.empty()) inner.AddPair("value", value);
  return JsonObject("text", JsonObject("stringText", inner));
}

JsonObject JsonObject::CreateVariableText(const std::string & variable) {
  return JsonObject("text", JsonObject("variableText", JsonObject("variable", variable)));
}

JsonObject JsonObject::CreateNumDataText(const std::string & variable, double value) {
  JsonObject inner("variable", variable);
  inner.AddPair("value", value);
  return JsonObject("text", JsonObject("numericDataText", inner));
}

JsonObject JsonObject::CreateStringDataText(const std::string & variable,
                                            const std::string & value) {
  JsonObject inner("variable", variable);
  inner.AddPair("value", value);
  return JsonObject("text", JsonObject("stringDataText", inner));
}

}  // namespace QVXML_940
