/// What a chart of one, two or many variables needs: counts, named statistics, coordinate lists.
///
///     QVXML_940::QVVariateData data = histogram.GenerateQVVariateData("height");
///     XMLElement * element = data.GetUnivariateDataElem();   // the caller's to attach or delete
///
/// A plain record: every field is public and filled directly by a producer, which keeps the names
/// and the values of statistics parallel: the elements take one name a value and check nothing.
///
/// The three elements hold, in order: the counts, the statistics that the switch selects, and the
/// coordinates: at most two lists of a univariate block, at most three of a bivariate one, every
/// group and then every list of a multivariate one. Groups do not appear in the first two, and
/// record infos in none (QVStatXMLUtil::AddRecordInfos writes them).
#pragma once

#include <string>
#include <vector>

#include "QVExport.h"
#include "QVXMLCoordinates.h"
#include "QVXMLCoordinatesGroup.h"
#include "QVXMLCounts.h"
#include "QVXMLRecordInfo.h"

namespace QVXML_940 {

struct QVCOMMON_API QVVariateData {
  QVVariateData() = default;
  QVVariateData(const QVVariateData &) = default;
  QVVariateData & operator=(const QVVariateData &) = default;
  QVVariateData(QVVariateData &&) = default;
  QVVariateData & operator=(QVVariateData &&) = default;
  virtual ~QVVariateData();

  /// New elements "UnivariateData", "BivariateData" and "MultivariateData", the caller's to own.
  XMLElement * GetUnivariateDataElem() const;
  XMLElement * GetBivariateDataElem() const;
  XMLElement * GetMultiVariateDataElem() const;

  /// Every field to the display stream; of the counts the known frequencies, but never the
  /// cardinality.
  void Display() const;

  std::vector<QVXMLCounts> fCounts;            ///< one "Counts" child each
  std::vector<std::string> fStatisticNames;    ///< names for either list of values
  bool fUseStringStatistics = true;            ///< true: the strings count; false: the numbers
  std::vector<std::string> fStringStatistics;  ///< values, parallel to the names
  std::vector<double> fNumericStatistics;      ///< values, parallel to the names
  std::vector<QVXMLCoordinates> fCoordinates;  ///< the data of the chart
  std::vector<QVXMLRecordInfo> fRecordInfos;   ///< details of single records
  std::string fDescription;                    ///< attribute "description" of the block
  std::vector<QVXMLCoordinatesGroup> fCoordinatesGroups;  ///< for the multivariate form
};

}  // namespace QVXML_940
