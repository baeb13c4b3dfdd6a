/// A continuous variable.
///
///     QVContVar age("age", "Age in years", 0.0, 100.0, VariableRoleInput, true, 10);
///     age.GetEncoder()->EncodeConst(42.0);     // 42
///     age.SetMean(38.5);
///
/// Until they are set, mean and standard deviation are missing, the minimum is missing (the most
/// negative number) and the maximum the largest double.
///
/// Not persisted: the cut points, the binning encoder, the outlier method, the field format
/// element. A variable without an encoder is saved as such and reads back with none.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "IQVVariable.h"

namespace QVXML_940 {

class QVCOMMON_API QVContVar : public IQVVariable {
 public:
  /// No name, undefined storage and role, -1 bins, a default `QVContEncoder`.
  QVContVar();

  /// Storage real, -1 bins, a default encoder. Every other form leaves the storage undefined.
  QVContVar(std::string const & name, std::string const & label, VariableRole role);

  /// `nBins` bins of equal width, by a binning encoder when `useBins` is true, `max > min` and
  /// `nBins >= 2`; otherwise the encoder is the default one and the number only stored.
  QVContVar(std::string const & name, std::string const & label, double min, double max,
            VariableRole role, bool useBins, int nBins);

  /// Bins between cut points, one more than cuts, by a binning encoder when `useBins` is true and
  /// there is a cut. The cut points are kept in the variable in any case.
  QVContVar(std::string const & name, std::string const & label, std::vector<double> const & cuts,
            bool useBins, VariableRole role);

  /// The same with a range; the binning encoder then also wants `max > min`.
  QVContVar(std::string const & name, std::string const & label, double min, double max,
            std::vector<double> const & cuts, bool useBins, VariableRole role);

  ~QVContVar() override;
  QVContVar(QVContVar const &);
  QVContVar & operator=(QVContVar const &);
  QVContVar(QVContVar &&) noexcept;
  QVContVar & operator=(QVContVar &&) noexcept;

  /// Figures that the caller found in the data. `GetVarStatus` reads the minimum and the maximum.
  void SetMean(double mean);
  double GetMean() const;
  void SetStdDev(double stdDev);
  double GetStdDev() const;
  void SetMinMax(double min, double max);
  double GetMin() const;
  double GetMax() const;

  /// The number of bins kept in the variable, which need not be the encoder's.
  void SetNBins(int nBins);
  int GetNBins() const;

  /// The cut points given to the constructor; they stay the variable's.
  std::vector<double> const & GetCutPoints() const;

  /// What a scorer does with values outside the range.
  void SetOutlierHandleMethod(OutlierHandleMethod method);
  OutlierHandleMethod GetOutlierHandleMethod() const;

  /// Sums of the frequency weights and of the complete case weights (frequency times regression
  /// weight); 0 at first.
  double GetSumFreqWts() const;
  void SetSumFreqWts(double sum);
  double GetSumCompWts() const;
  void SetSumCompWts(double sum);

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
  QVContVar * Clone() const override;
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
  VariableRole fRole;
  VariableStorage fStorage;
  double fMin;
  double fMax;
  int fNBins;
  double fMean;
  double fStdDev;
  std::vector<double> fCutPoints;
  std::string fReplacement;
  bool fHasReplacement = false;
  std::unique_ptr<IQVEncoder> fEncoder;
  double fSumFreqWts = 0.0;
  double fSumCompWts = 0.0;
  OutlierHandleMethod fOutlierMethod = OutlierMethodDefault;
  std::unique_ptr<XMLElement> fFieldFormat;
};

}  // namespace QVXML_940
