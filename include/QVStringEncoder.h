/// Codes string categories: each new string gets the next code from 0, in order of appearance.
///
///     QVStringEncoder encoder;
///     encoder.AddDiscreteUserMissing("", "left blank");
///     encoder.Encode("red");                   // 0
///     encoder.Encode("");                      // -1: listed as missing
///     encoder.Decode(0);                       // "red"
///
/// Strings are compared as exact bytes; the empty string is a category like any other unless it is
/// listed as missing. Codes are dense and never change; only reading starts anew. Numbers do not
/// belong here: they encode to -1.0 and count as missing, and there is no missing interval.
///
/// The persistence format escapes a string on the way out and undoes nothing on the way in: a
/// category "a&b" reads back as "a&amp;b".
#pragma once

#include <map>
#include <string>
#include <vector>

#include "IQVEncoder.h"

namespace QVXML_940 {

class QVCOMMON_API QVStringEncoder : public IQVEncoder {
 public:
  /// No categories, with room for `n` (none below 1).
  explicit QVStringEncoder(int n = 2);

  /// Encodes each value in order.
  explicit QVStringEncoder(std::vector<std::string> const & values);

  ~QVStringEncoder() override;
  QVStringEncoder(QVStringEncoder const &);
  QVStringEncoder & operator=(QVStringEncoder const &);

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
  QVStringEncoder * Clone() const override;
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
  /// Points the links at the keys of this object's own map.
  void CreateLinks();
  void Clear();
  bool ReadContent(std::ifstream & in, int & lines);

  std::map<std::string, int> fCodes;
  std::vector<std::string const *> fLinks;  // keys of fCodes in code order
  std::vector<std::string> fValueLabels;
  int fLastCode;  // -1 when empty
  std::vector<std::string> fMissValues;
  std::vector<std::string> fMissLabels;  // parallel to fMissValues
};

}  // namespace QVXML_940
