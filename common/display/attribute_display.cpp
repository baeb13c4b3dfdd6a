#include "common/display/attribute_display.h"

#include "common/display/display_line.h"

namespace QVDisplay_940 {
namespace {

constexpr char kUnrecognized[] = " = unrecognized";

const char * MeasureLevelText(QVXML_940::MeasureLevel level) {
  switch (level) {
    case QVXML_940::MeasureLevelUnknown:
      return " = Unknown measure level";
    case QVXML_940::MeasureLevelContinuous:
      return " = Continuous";
    case QVXML_940::MeasureLevelNumericCategorical:
      return " = Numeric Categorical";
    case QVXML_940::MeasureLevelStringCategorical:
      return " = String Categorical";
    case QVXML_940::MeasureLevelFrequencyWeight:
      return " = Frequency weight";
  }
  return kUnrecognized;
}

const char * VariableRoleText(QVXML_940::VariableRole role) {
  switch (role) {
    case QVXML_940::VariableRoleUndefined:
      return " = Undefined variable role";
    case QVXML_940::VariableRoleTarget:
      return " = Target";
    case QVXML_940::VariableRoleTargetResponse:
      return " = Target Response";
    case QVXML_940::VariableRoleFrequencyWeight:
      return " = Frequency weight";
    case QVXML_940::VariableRoleInput:
      return " = Input";
    case QVXML_940::VariableRolePossibleInput:
      return " = Possible Input";
    case QVXML_940::VariableRoleUnused:
      return " = Unused variable";
    case QVXML_940::VariableRoleRecordId:
      return " = Record ID variable";
  }
  return kUnrecognized;
}

const char * VariableStorageText(QVXML_940::VariableStorage storage) {
  switch (storage) {
    case QVXML_940::VariableStorageUndefined:
      return " = Undefined variable storage";
    case QVXML_940::VariableStorageInteger:
      return " = Integer";
    case QVXML_940::VariableStorageReal:
      return " = Real";
    case QVXML_940::VariableStorageString:
      return " = String";
    case QVXML_940::VariableStorageDate:
      return " = Date";
    case QVXML_940::VariableStorageTime:
      return " = Time";
    case QVXML_940::VariableStorageTimestamp:
      return " = Timestamp";
  }
  return kUnrecognized;
}

const char * RoundingOptionText(QVXML_940::WRoundingOption option) {
  switch (option) {
    case QVXML_940::WRoundingTruncate:
      return " = Truncate to smaller int";
    case QVXML_940::WRoundingClosest:
      return " = Round to closest int";
    case QVXML_940::WRoundingAsIs:
      return " = As is - no change";
  }
  return kUnrecognized;
}

}  // namespace

void DisplayMeasureLevel(std::string label, QVXML_940::MeasureLevel level) {
  WriteLine(label + MeasureLevelText(level));
}

void DisplayVariableRole(std::string label, QVXML_940::VariableRole role) {
  WriteLine(label + VariableRoleText(role));
}

void DisplayVariableStorage(std::string label, QVXML_940::VariableStorage storage) {
  WriteLine(label + VariableStorageText(storage));
}

void DisplayRoundingOption(std::string label, QVXML_940::WRoundingOption option) {
  WriteLine(label + RoundingOptionText(option));
}

}  // namespace QVDisplay_940
