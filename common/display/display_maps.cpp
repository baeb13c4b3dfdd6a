#include <string>

#include "QVDisplay.h"
#include "common/display/display_line.h"

namespace QVDisplay_940 {
namespace {

// What stands before the entries: the label when there is one, or the word for no entries.
void WriteMapLabel(const std::string & label, bool empty) {
  if (empty) {
    WriteLine(label + " <empty>");
  } else if (!label.empty()) {
    WriteLine(label);
  }
}

void AppendEntry(std::string & text, const std::string & key, const std::string & value) {
  text += " (";
  text += key;
  text += ",";
  text += value;
  text += ")";
}

void WriteEntries(const std::map<int, int> & map) {
  std::string text;
  for (const auto & [key, value] : map) {
    AppendEntry(text, std::to_string(key), std::to_string(value));
  }
  WriteLine(text);
}

}  // namespace

void DisplayIIM(std::string label, const std::map<int, int> & map) {
  WriteMapLabel(label, map.empty());
  if (!map.empty()) {
    DisplayI("map size", static_cast<int>(map.size()));
    WriteEntries(map);
  }
}

void DisplayDDM(std::string label, const std::map<double, double> & map) {
  WriteMapLabel(label, map.empty());
  if (!map.empty()) {
    DisplayI("map size", static_cast<int>(map.size()));
    std::string text;
    for (const auto & [key, value] : map) {
      AppendEntry(text, ShortNumber(key), ShortNumber(value));
    }
    WriteLine(text);
  }
}

void DisplayVIM(std::string label, const std::map<int, int> & map) {
  WriteMapLabel(label, map.empty());
  if (!map.empty()) {
    WriteEntries(map);
  }
}

void DisplayIntVecIntMap(std::string label, const std::map<std::vector<int>, int> & map) {
  WriteMapLabel(label, map.empty());
  for (const auto & [key, value] : map) {
    DisplayIV("Map key", key);
    DisplayI("Map value", value);
  }
}

void DisplayIntVecDVecMap(std::string label,
                          const std::map<std::vector<int>, std::vector<double>> & map) {
  WriteMapLabel(label, map.empty());
  for (const auto & [key, value] : map) {
    DisplayIV("Map key", key);
    DisplayDV("Map value", value, false);
  }
}

void DisplaySLDM(std::string label, const std::map<std::vector<std::string>, double> & map) {
  WriteMapLabel(label, map.empty());
  for (const auto & [key, value] : map) {
    DisplaySV("Map's StringList:", key);
    DisplayD("Map's double", value);
  }
}

}  // namespace QVDisplay_940
