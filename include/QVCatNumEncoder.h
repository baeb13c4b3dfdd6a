/// Codes numeric categories: each new number gets the next code from 0, in order of appearance.
///
///     QVCatNumEncoder encoder;
///     encoder.Encode(5.0);                     // 0
///     encoder.Encode(3.0);                     // 1
///     encoder.Encode(5.0);                     // 0
///     encoder.DecodeNum(1);                    // 3
///     encoder.Decode(1);                       // "3"
///
/// Codes are dense and never change; only reading starts anew. Missing values and NaN get no code
/// (-1.0). Strings do not belong here: they encode to -1.0 and count as missing.
///
/// The persistence format keeps 15 digits of a number: two categories that differ only beyond them
/// read back as one.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "IQVEncoder.h"
#include "QVNumericMissing.h"

namespace QVXML_940 {

class QVCOMMON_API QVCatNumEncoder : public IQVEncoder {
 public:
  /// No categories, with room for `n` (none below 1).
  explicit QVCatNumEncoder(int n = 2);

  /// Encodes each value in order; missing ones get no code.
  explicit QVCatNumEncoder(std::vector<double> const & values);

  ~QVCatNumEncoder() override;
  QVCatNumEncoder(QVCatNumEncoder const &);
  QVCatNumEncoder & operator=(QVCatNumEncoder const &);

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
  QVCatNumEncoder * Clone() const override;
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

  std::map<double, int> fCodes;
  std::vector<double> fValues;  // in code order
  std::vector<std::string> fValueLabels;
  int fLastCode;  // -1 when empty
  QVNumericMissing fMissing;
};

}  // namespace QVXML_940
