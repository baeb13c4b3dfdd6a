/// Passes the numbers of a continuous variable on, missing ones as the missing value.
///
///     QVContEncoder encoder(0.0, 10.0, 5);
///     encoder.SetMissingInterval(90.0, 99.0);
///     encoder.EncodeConst(4.1);                          // 4.1: no binning takes place here
///     encoder.EncodeConst(95.0);                         // the missing value
///     encoder.GetBinningEncoder()->Encode(4.1);          // 2: the bin
///
/// It may hold a binning encoder, which a caller asks for bins. The persistence format does not
/// keep that one: after reading, only the number of bins remains.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "IQVEncoder.h"
#include "QVBinningEncoder.h"
#include "QVNumericMissing.h"

namespace QVXML_940 {

class QVCOMMON_API QVContEncoder : public IQVEncoder {
 public:
  /// One bin, no binning encoder.
  QVContEncoder();

  /// `nBins` bins of equal width between `low` and `high`.
  QVContEncoder(double low, double high, int nBins);

  /// Bins between ascending cut points, one more than cuts.
  explicit QVContEncoder(std::vector<double> const & cuts);

  ~QVContEncoder() override;
  QVContEncoder(QVContEncoder const &);
  QVContEncoder & operator=(QVContEncoder const &);

  /// The binning encoder, or null; it stays this object's.
  QVBinningEncoder const * GetBinningEncoder() const;

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
  QVContEncoder * Clone() const override;
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

  int fNumberOfBins;
  QVNumericMissing fMissing;
  std::unique_ptr<QVBinningEncoder> fBinning;
};

}  // namespace QVXML_940
