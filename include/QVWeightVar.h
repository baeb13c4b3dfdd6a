/// The frequency weight variable.
///
///     QVWeightVar weight("n", "Number of cases", IQVVariable::WRoundingOption(1));
///     weight.GetEncoder()->EncodeConst(2.5);   // 3
///
/// Its encoder is always a `QVRoundEncoder`. Level and role are fixed: `SetVariableRole` does
/// nothing. It has no categories (0), no missing value replacement (null; setting it is ignored),
/// is no flag variable and always usable.
///
/// Not persisted: the field format element.
#pragma once

#include <memory>
#include <string>

#include "IQVVariable.h"

namespace QVXML_940 {

class QVCOMMON_API QVWeightVar : public IQVVariable {
 public:
  QVWeightVar(std::string const & name, std::string const & label, WRoundingOption option);
  ~QVWeightVar() override;
  QVWeightVar(QVWeightVar const &);
  QVWeightVar & operator=(QVWeightVar const &);
  QVWeightVar(QVWeightVar &&) noexcept;
  QVWeightVar & operator=(QVWeightVar &&) noexcept;

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
  QVWeightVar * Clone() const override;
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
  VariableStorage fStorage = VariableStorageUndefined;
  std::unique_ptr<IQVEncoder> fEncoder;
  std::unique_ptr<XMLElement> fFieldFormat;
};

}  // namespace QVXML_940
