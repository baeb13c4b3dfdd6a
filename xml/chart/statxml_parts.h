/// What the sources of the StatXML builders share: conditional attributes and children.
#pragma once

#include <cmath>
#include <string>
#include <vector>

#include "QVMV.h"
#include "StatXMLVocabulary.h"
#include "XMLElement.h"

namespace QVXML_940 {

inline void AddUnlessEmpty(XMLElement & element, const std::string & name,
                           const std::string & value) {
  if (!value.empty()) element.AddAttribute(name, value);
}

inline void AddUnlessMissing(XMLElement & element, const std::string & name, double value) {
  if (std::isfinite(value) && !QVCommon_940::QVMV::IsMissing(value)) {
    element.AddAttribute(name, value);
  }
}

inline void AddFlag(XMLElement & element, const std::string & name, bool value) {
  element.AddAttribute(name, value ? StatXML_true : StatXML_false);
}

inline void AddChild(XMLElement & element, XMLElement * child) {
  if (child != nullptr) element.AddElement(child);
}

inline void AddChildren(XMLElement & element, const std::vector<XMLElement *> & children) {
  for (XMLElement * child : children) {
    AddChild(element, child);
  }
}

}  // namespace QVXML_940
