// The elements of the chart records.
#include "QVStatXMLUtil.h"
#include "QVVariateData.h"
#include "StatXMLVocabulary.h"

namespace QVXML_940 {

XMLElement * QVXMLCoordinates::GetCoordinates() const {
  switch (fValueType) {
    case kIntValues:
      return QVStatXMLUtil::CreateElemCoordinates(fFeature, fField, fStatistic, fIntValues);
    case kRealValues:
      return QVStatXMLUtil::CreateElemCoordinates(fFeature, fField, fStatistic, fRealValues);
    case kStringValues:
      return QVStatXMLUtil::CreateElemCoordinates(fFeature, fField, fStatistic, fStringValues);
    default:
      return nullptr;
  }
}

XMLElement * QVXMLCoordinatesGroup::GetCoordinatesGroup() const {
  return QVStatXMLUtil::CreateElemCoordinatesGroup(*this);
}

XMLElement * QVVariateData::GetUnivariateDataElem() const {
  return QVStatXMLUtil::CreateElemVarData(StatXML_UnivariateData, fDescription, *this);
}

XMLElement * QVVariateData::GetBivariateDataElem() const {
  return QVStatXMLUtil::CreateElemVarData(StatXML_BivariateData, fDescription, *this);
}

XMLElement * QVVariateData::GetMultiVariateDataElem() const {
  return QVStatXMLUtil::CreateElemVarData(StatXML_MultivariateData, fDescription, *this);
}

}  // namespace QVXML_940
