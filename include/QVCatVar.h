/// A categorical variable.
///
///     QVCatVar species("species", "", 3, MeasureLevelStringCategorical, VariableRoleInput, false);
///     species.GetEncoder()->Encode("Adelie");
///     species.UpdateNumberOfCategories();      // 3: the stored count is never lowered
///
/// The number of categories is stored beside the encoder, since it may be known before the data is
/// seen. `UpdateNumberOfCategories` raises it to the encoder's count and never lowers it;
/// `ChangeEncoder` sets it to the new encoder's count, up or down.
///
/// `GetVarStatus` updates the count first and so writes: it is no read-only call.
///
/// Not persisted: the weights of the categories, the mark of a flag variable, the field format
/// element. A variable without an encoder is written, but such an object is refused on reading, as
/// is a negative number of categories.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "IQVVariable.h"

namespace QVXML_940 {

class QVCOMMON_API QVCatVar : public IQVVariable {
 public:
  /// The encoder is a `QVCatNumEncoder` with room for `nCategories` when the level is numeric
  /// categorical, and a `QVStringEncoder` for every other level. Storage is undefined.
  QVCatVar(std::string const & name, std::string const & label, int nCategories, MeasureLevel level,
           VariableRole role, bool ordinal);

  /// The same, with the sum of frequency weights of each category.
  QVCatVar(std::string const & name, std::string const & label,
           std::vector<double> const & sumFreqWts, int nCategories, MeasureLevel level,
           VariableRole role, bool ordinal);

  ~QVCatVar() override;
  QVCatVar(QVCatVar const &);
  QVCatVar & operator=(QVCatVar const &);
  QVCatVar(QVCatVar &&) noexcept;
  QVCatVar & operator=(QVCatVar &&) noexcept;

  void SetNumberOfCategories(int nCategories);

  /// Whether the order of the categories has a meaning.
  void SetOrdinalFlag(bool ordinal);
  bool GetOrdinalFlag() const;

  /// Declares the variable a binary flag whose true value has the code `trueIndex`, 0 or 1. Any
  /// other index clears the flag. The index is stored only with a flag that stays set; it is -1 at
  /// first.
  void SetBinaryFlag(bool flag, int trueIndex);
  bool GetBinaryFlag() const;
  int GetBinaryFlagTrueIndex() const;

  /// Takes ownership of `encoder`, destroys the one before and takes over its number of categories.
  /// Null leaves the variable without an encoder and with 0 categories.
  void ChangeEncoder(IQVEncoder * encoder);

  /// Copies the sums of frequency weights; false, with `sumFreqWts` unchanged, when there are none.
  bool GetSumFreqWts(std::vector<double> & sumFreqWts) const;

  MeasureLevel GetMeasureLevel() const override;
  std::string GetVariableName() const override;
  std::string GetVariableLabel() const override;
  void SetVariableLabel(std::string const & label) override;
  int GetNumberOfCategories() const override;
  VariableRole GetVariableRole() const override;
  void SetVariableRole(VariableRole role) override;
  VariableStorage GetVariableStorage() const override;
  void SetVariableStorage(VariableStorage storage) override;
  void SetFieldFormatElement(XMLElement * element) override;
  XMLElement * GetFieldFormatElement() override;
  XMLElement * GetFieldFormatElement() const override;
  int UpdateNumberOfCategories() override;
  void SetMissingValueReplacement(std::string const & text) override;
  std::string const * GetMissingValueReplacement() const override;
  QVCatVar * Clone() const override;
  IQVEncoder * GetEncoder() override;
  IQVEncoder * GetEncoder() const override;
  VarStatus GetVarStatus() override;
  int WriteObjectXML(std::ostream & out, int tabs) const override;
  int ReadObjectXML(std::ifstream & in) override;
  bool SetFlagVariable(bool flag) override;
  bool IsFlagVariable() const override;
  void Display() const override;

 private:
  bool ReadContent(std::ifstream & in, int & lines);

  std::string fName;
  std::string fLabel;
  bool fOrdinal;
  bool fBinaryFlag = false;
  int fBinaryFlagTrueIndex = -1;
  VariableRole fRole;
  VariableStorage fStorage = VariableStorageUndefined;
  int fNumberOfCategories;
  MeasureLevel fLevel;
  std::string fReplacement;
  bool fHasReplacement = false;
  std::unique_ptr<IQVEncoder> fEncoder;
  std::unique_ptr<XMLElement> fFieldFormat;
  std::vector<double> fSumFreqWts;
  bool fFlagVariable = false;
};

}  // namespace QVXML_940
