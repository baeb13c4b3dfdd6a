/// Coordinate lists that belong together in a chart of many variables.
///
/// A plain record: both fields are public.
#pragma once

#include <string>
#include <vector>

#include "QVExport.h"
#include "QVXMLCoordinates.h"

namespace QVXML_940 {

struct QVCOMMON_API QVXMLCoordinatesGroup {
  QVXMLCoordinatesGroup() = default;
  QVXMLCoordinatesGroup(const QVXMLCoordinatesGroup &) = default;
  QVXMLCoordinatesGroup & operator=(const QVXMLCoordinatesGroup &) = default;
  QVXMLCoordinatesGroup(QVXMLCoordinatesGroup &&) = default;
  QVXMLCoordinatesGroup & operator=(QVXMLCoordinatesGroup &&) = default;
  virtual ~QVXMLCoordinatesGroup();

  /// A new "CoordinatesGroup" element with a child a member, the caller's to own.
  XMLElement * GetCoordinatesGroup() const;

  /// The description when it is not empty, and each member, to the display stream.
  void Display() const;

  std::string fDescription;                    ///< attribute "description"
  std::vector<QVXMLCoordinates> fCoordinates;  ///< the members
};

}  // namespace QVXML_940
