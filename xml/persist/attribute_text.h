/// The one attribute that an element of the persistence file has.
#pragma once

#include <memory>
#include <string>

#include "XMLAttribute.h"

namespace QVXML_940 {

/// `name="value"`, the value escaped or, if a number, with 15 significant digits.
template <class Value>
std::string AttributeText(const std::string & name, const Value & value) {
  const std::unique_ptr<XMLAttribute> attribute(XMLAttribute::Create(name, value));
  std::string text;
  ExportFormat format;
  attribute->ToString(text, format);
  return text;
}

}  // namespace QVXML_940
