/// One list of coordinates of a chart: integers, reals or strings, and what they tell.
///
///     QVXML_940::QVXMLCoordinates heights;
///     heights.fFeature = "observed";
///     heights.fField = "height";
///     heights.fValueType = QVXML_940::kRealValues;
///     heights.fRealValues = {1.62, 1.75};
///
/// A plain record: every field is public, and the producer keeps the value type and the filled list
/// in agreement.
#pragma once

#include <string>
#include <vector>

#include "QVExport.h"

namespace QVXML_940 {

class XMLElement;

/// The value types of coordinates and record infos: which list holds the values.
constexpr int kNoValues = -1;
constexpr int kIntValues = 0;
constexpr int kRealValues = 1;
constexpr int kStringValues = 2;

struct QVCOMMON_API QVXMLCoordinates {
  QVXMLCoordinates() = default;
  QVXMLCoordinates(const QVXMLCoordinates &) = default;
  QVXMLCoordinates & operator=(const QVXMLCoordinates &) = default;
  QVXMLCoordinates(QVXMLCoordinates &&) = default;
  QVXMLCoordinates & operator=(QVXMLCoordinates &&) = default;
  virtual ~QVXMLCoordinates();

  /// A new "Coordinates" element with the values of the list in use, the caller's to own; null for
  /// a value type other than the three lists'.
  XMLElement * GetCoordinates() const;

  /// The texts that are not empty and the list in use, to the display stream. Value type 3 shows
  /// the line "Error", any other unknown one no values.
  void Display() const;

  std::string fFeature;                    ///< attribute "feature"
  std::string fField;                      ///< attribute "field"
  std::string fStatistic;                  ///< attribute "statistic"
  std::vector<int> fIntValues;             ///< the values of type kIntValues
  std::vector<double> fRealValues;         ///< the values of type kRealValues
  std::vector<std::string> fStringValues;  ///< the values of type kStringValues
  int fValueType = kNoValues;              ///< which of the three lists holds the values
};

}  // namespace QVXML_940
