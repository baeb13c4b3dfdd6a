/// Cleans frequency weights: rounds them as told and turns what is no usable weight into the
/// missing value.
///
///     QVRoundEncoder encoder(IQVVariable::WRoundingOption(1));   // round to the closest integer
///     encoder.EncodeConst(2.5);                                  // 3
///     encoder.EncodeConst(0.4);                                  // the missing value: rounds to 0
///
/// A weight of 0 or below is missing, before rounding and after. With truncation and rounding a
/// small positive weight is therefore lost; "as is" keeps it.
#pragma once

#include <string>
#include <vector>

#include "IQVEncoder.h"
#include "IQVVariable.h"
#include "QVNumericMissing.h"

namespace QVXML_940 {

class QVCOMMON_API QVRoundEncoder : public IQVEncoder {
 public:
  /// Weights as they are (option 2).
  QVRoundEncoder();

  /// 0 truncates (floor), 1 rounds to the closest integer (floor of x + 0.5), any other number
  /// leaves the weight as it is.
  explicit QVRoundEncoder(IQVVariable::WRoundingOption option);

  ~QVRoundEncoder() override;
  QVRoundEncoder(QVRoundEncoder const &);
  QVRoundEncoder & operator=(QVRoundEncoder const &);

  EncoderType GetEncoderType() const override;
  int GetNumberOfCategories() const override;
  double Encode(std::string const & value) override;
  double Encode(double value) override;
  double EncodeConst(std::string const & value) const override;
  double EncodeConst(double value) const override;
  bool IsMissing(std::string const & value) const override;
  bool IsMissing(double value) const override;
  std::string Decode(int code) const override;
  double DecodeNum(int code) const override;
  QVRoundEncoder * Clone() const override;
  void SetValueLabels(std::vector<std::string> const & labels) override;
  void SetValueLabel(int code, std::string const & label) override;
  bool AddDiscreteUserMissing(double value, std::string const & label) override;
  bool AddDiscreteUserMissing(std::string const & value, std::string const & label) override;
  bool SetMissingInterval(double low, double high) override;
  std::vector<std::string> const * GetValueLabels() const override;
  std::vector<double> const * GetDiscreteMissValues() const override;
  std::vector<std::string> const * GetDiscreteMissValuesStr() const override;
  std::vector<std::string> const * GetMissValueLabels() const override;
  bool GetMissingInterval(double & low, double & high) const override;
  int WriteObjectXML(std::ostream & out, int tabs) const override;
  int ReadObjectXML(std::ifstream & in) override;
  void Display() const override;

 private:
  void Clear();
  bool ReadContent(std::ifstream & in, int & lines);

  IQVVariable::WRoundingOption fOption;
  QVNumericMissing fMissing;
};

}  // namespace QVXML_940
