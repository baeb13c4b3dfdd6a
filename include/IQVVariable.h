/// What every variable of a data dictionary can do: tell its name, label, measurement level, role
/// and storage, and give out its encoder.
///
/// `QVCatVar` is a categorical variable, `QVContVar` a continuous one, `QVWeightVar` the frequency
/// weight. Variables live in a `QVVarList`.
///
///     IQVVariable const * variable = list.GetVariable("age");
///     if (variable && variable->GetVariableRole() == VariableRoleInput)
///       predictors.push_back(variable->GetEncoder());
///
/// Ownership: a variable owns its encoder and its field format element. Pointers given out stay
/// the variable's. `GetEncoder` may answer null, after a failed read or for a variable that was
/// saved without one; every operation of the library copes with that.
///
/// Threads: plain objects, no locks. `GetVarStatus` may write (see `QVCatVar`).
#pragma once

#include <iosfwd>
#include <string>

#include "IQVEncoder.h"
#include "QVExport.h"
#include "QVOutlierHandleMethod.h"
#include "QVVariableEnums.h"

namespace QVXML_940 {

class XMLElement;

class QVCOMMON_API IQVVariable {
 public:
  using MeasureLevel = QVXML_940::MeasureLevel;
  using VariableRole = QVXML_940::VariableRole;
  using VariableStorage = QVXML_940::VariableStorage;
  using WRoundingOption = QVXML_940::WRoundingOption;
  using VarStatus = QVXML_940::VarStatus;
  using OutlierHandleMethod = QVXML_940::OutlierHandleMethod;

  virtual ~IQVVariable();

  /// Continuous, frequency weight, or the level that a categorical variable was given.
  virtual MeasureLevel GetMeasureLevel() const = 0;

  /// The name in the data.
  virtual std::string GetVariableName() const = 0;

  /// The label for people.
  virtual std::string GetVariableLabel() const = 0;
  virtual void SetVariableLabel(std::string const & label) = 0;

  /// Categories of a categorical variable, bins of a continuous one, 0 for the weight.
  virtual int GetNumberOfCategories() const = 0;

  /// What the variable does in the model. Where it stands in a `QVVarList`, set the role through
  /// the list, which keeps the indexes of target, responses and weight.
  virtual VariableRole GetVariableRole() const = 0;
  virtual void SetVariableRole(VariableRole role) = 0;

  /// How the values are held in the data.
  virtual VariableStorage GetVariableStorage() const = 0;
  virtual void SetVariableStorage(VariableStorage storage) = 0;

  /// Takes ownership of the element that describes the field's format, and destroys the one before.
  /// Null leaves the variable without one. The content is the caller's own.
  virtual void SetFieldFormatElement(XMLElement * element) = 0;

  /// The field format element, or null.
  virtual XMLElement * GetFieldFormatElement() = 0;
  virtual XMLElement * GetFieldFormatElement() const = 0;

  /// Brings the stored number of categories up to date with the encoder and returns it.
  virtual int UpdateNumberOfCategories() = 0;

  /// Stores the text that replaces missing values; it cannot be unset.
  virtual void SetMissingValueReplacement(std::string const & text) = 0;

  /// The replacement text; null when none was set.
  virtual std::string const * GetMissingValueReplacement() const = 0;

  /// A deep copy, owned by the caller.
  virtual IQVVariable * Clone() const = 0;

  /// The encoder, or null.
  virtual IQVEncoder * GetEncoder() = 0;
  virtual IQVEncoder * GetEncoder() const = 0;

  /// Whether the variable can serve: usable, constant or empty.
  virtual VarStatus GetVarStatus() = 0;

  /// Writes the variable and its encoder as one object of the persistence format, `tabs` deep.
  /// Returns the lines written, the encoder's included.
  virtual int WriteObjectXML(std::ostream & out, int tabs) const = 0;

  /// Reads the variable back. Returns the lines read. A broken stream is reported by one line on
  /// the standard error stream (behind the encoder's own line, when the encoder failed) and a
  /// thrown pointer to a new `IOException`, which the caller deletes. The variable then holds what
  /// was read so far, and may hold no encoder.
  virtual int ReadObjectXML(std::ifstream & in) = 0;

  /// Marks the variable as a flag. False, and nothing stored, where that has no meaning.
  virtual bool SetFlagVariable(bool flag) = 0;
  virtual bool IsFlagVariable() const = 0;

  /// Shows the variable on the display stream.
  virtual void Display() const = 0;

 protected:
  IQVVariable() = default;
  IQVVariable(IQVVariable const &) = default;
  IQVVariable & operator=(IQVVariable const &) = default;
};

}  // namespace QVXML_940
