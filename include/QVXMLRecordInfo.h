/// What a chart tells of one record: its identity and up to two arrays of values.
///
///     QVXML_940::QVXMLRecordInfo outlier;
///     outlier.fRecordId = "17";
///     outlier.fValueType = QVXML_940::kRealValues;
///     outlier.fRealArrays = {{4.8, 3.1}};
///
/// A plain record: every field is public, and the producer keeps the value type and the filled list
/// in agreement.
#pragma once

#include <string>
#include <vector>

#include "QVExport.h"
#include "QVXMLCoordinates.h"

namespace QVXML_940 {

struct QVCOMMON_API QVXMLRecordInfo {
  QVXMLRecordInfo() = default;
  QVXMLRecordInfo(const QVXMLRecordInfo &) = default;
  QVXMLRecordInfo & operator=(const QVXMLRecordInfo &) = default;
  QVXMLRecordInfo(QVXMLRecordInfo &&) = default;
  QVXMLRecordInfo & operator=(QVXMLRecordInfo &&) = default;
  virtual ~QVXMLRecordInfo();

  /// The texts that are not empty and each array of the list in use under the label "value ", to
  /// the display stream. Value type 3 shows the line "Error", any other unknown one no arrays.
  void Display() const;

  std::string fRecordId;                                ///< attribute "recordId"
  std::string fRecordLabel;                             ///< attribute "recordLabel"
  std::vector<std::vector<int>> fIntArrays;             ///< the arrays of type kIntValues
  std::vector<std::vector<double>> fRealArrays;         ///< the arrays of type kRealValues
  std::vector<std::vector<std::string>> fStringArrays;  ///< the arrays of type kStringValues
  int fValueType = kNoValues;                           ///< which of the three lists is in use
};

}  // namespace QVXML_940
