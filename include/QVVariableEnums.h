/// The attributes of a variable: measurement level, role, storage, rounding of weights, usability.
///
/// `IQVVariable` knows these enumerations under the same names (`IQVVariable::MeasureLevel`). They
/// stand by themselves because typed fields and display texts need them without the variables.
/// The numbers are part of the persistence format. Every number is a valid value; one without an
/// enumerator displays as "unrecognized".
#pragma once

namespace QVXML_940 {

/// What arithmetic the values of a variable allow.
enum MeasureLevel : int {
  MeasureLevelUnknown = 0,
  MeasureLevelContinuous = 1,
  MeasureLevelNumericCategorical = 2,
  MeasureLevelStringCategorical = 3,
  MeasureLevelFrequencyWeight = 4
};

/// What a variable does in the model.
enum VariableRole : int {
  VariableRoleUndefined = 0,
  VariableRoleTarget = 1,
  VariableRoleTargetResponse = 2,
  VariableRoleFrequencyWeight = 3,
  VariableRoleInput = 4,
  VariableRolePossibleInput = 5,
  VariableRoleUnused = 6,
  VariableRoleRecordId = 7
};

/// How the values of a variable are held in the data.
enum VariableStorage : int {
  VariableStorageUndefined = 0,
  VariableStorageInteger = 1,
  VariableStorageReal = 2,
  VariableStorageString = 3,
  VariableStorageDate = 4,
  VariableStorageTime = 5,
  VariableStorageTimestamp = 6
};

/// What becomes of a frequency weight that is no whole number.
enum WRoundingOption : int {
  WRoundingTruncate = 0,  ///< the whole number at or below it
  WRoundingClosest = 1,   ///< the nearest whole number
  WRoundingAsIs = 2       ///< itself
};

/// Whether a variable can serve in a model.
enum VarStatus : int {
  VarStatusUsable = 0,
  VarStatusConstant = 1,  ///< one category, or the minimum equal to the maximum
  VarStatusEmpty = 2      ///< no category, or the minimum above the maximum
};

}  // namespace QVXML_940
