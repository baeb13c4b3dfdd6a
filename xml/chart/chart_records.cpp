// The plain records of a chart: their diagnostic text. Their elements stand with the builders.

#include <string>
#include <vector>

#include "QVDisplay.h"
#include "QVMV.h"
#include "QVVariateData.h"
#include "QVXMLCoordinates.h"
#include "QVXMLCoordinatesGroup.h"
#include "QVXMLCounts.h"
#include "QVXMLRecordInfo.h"
#include "common/display/display_frame.h"

namespace QVXML_940 {

using QVDisplay_940::DisplayD;
using QVDisplay_940::DisplayDV;
using QVDisplay_940::DisplayFrame;
using QVDisplay_940::DisplayIV;
using QVDisplay_940::DisplayS;
using QVDisplay_940::DisplaySV;
using QVDisplay_940::DisplayText;

namespace {

/// The value type that the displays report as an error.
constexpr int kErrorValues = 3;

void DisplayIfAny(const std::string & label, const std::string & text) {
  if (!text.empty()) DisplayS(label, text);
}

void DisplayIfKnown(const std::string & label, double frequency) {
  if (!QVCommon_940::QVMV::IsMissing(frequency)) DisplayD(label, frequency);
}

}  // namespace

// === Key functions ===============================================================================

QVXMLCounts::~QVXMLCounts() = default;
QVXMLCoordinates::~QVXMLCoordinates() = default;
QVXMLCoordinatesGroup::~QVXMLCoordinatesGroup() = default;
QVXMLRecordInfo::~QVXMLRecordInfo() = default;
QVVariateData::~QVVariateData() = default;

// === Display =====================================================================================

void QVXMLCoordinates::Display() const {
  DisplayFrame frame(" Coordinates display start: ", " Coordinates display end. ");
  DisplayIfAny("feature", fFeature);
  DisplayIfAny("field", fField);
  DisplayIfAny("statistic", fStatistic);
  if (fValueType == kIntValues) DisplayIV("values ", fIntValues);
  if (fValueType == kRealValues) DisplayDV("values ", fRealValues, false);
  if (fValueType == kStringValues) DisplaySV("values ", fStringValues);
  if (fValueType == kErrorValues) DisplayText(1, "Error");
}

void QVXMLCoordinatesGroup::Display() const {
  DisplayFrame frame(" CoordinatesGroup display start: ", " CoordinatesGroup display end. ");
  DisplayIfAny("Description", fDescription);
  for (const QVXMLCoordinates & member : fCoordinates) {
    member.Display();
  }
}

void QVXMLRecordInfo::Display() const {
  DisplayFrame frame(" RecordInfo display start: ", " RecordInfo display end. ");
  DisplayIfAny("RecordID ", fRecordId);
  DisplayIfAny("RecordLable ", fRecordLabel);  // spelt so in this display alone
  if (fValueType == kIntValues) {
    for (const std::vector<int> & array : fIntArrays) {
      DisplayIV("value ", array);
    }
  }
  if (fValueType == kRealValues) {
    for (const std::vector<double> & array : fRealArrays) {
      DisplayDV("value ", array, false);
    }
  }
  if (fValueType == kStringValues) {
    for (const std::vector<std::string> & array : fStringArrays) {
      DisplaySV("value ", array);
    }
  }
  if (fValueType == kErrorValues) DisplayText(1, "Error");
}

void QVVariateData::Display() const {
  DisplayFrame frame(" QVVariateData display start: ", " QVVariateData display end. ");
  DisplayS(" Description ", fDescription);
  if (!fCounts.empty()) DisplayText(1, " Counts: ");
  for (const QVXMLCounts & counts : fCounts) {
    DisplayIfKnown(" fTotalFreq ", counts.fTotalFreq);
    DisplayIfKnown(" fMissingFreq ", counts.fMissingFreq);
    DisplayIfKnown(" fInvalidFreq ", counts.fInvalidFreq);
  }
  DisplayText(1, " Statistics: ");
  DisplaySV(" Names ", fStatisticNames);
  if (fUseStringStatistics) {
    DisplaySV(" Values ", fStringStatistics);
  } else {
    DisplayDV(" Values ", fNumericStatistics, false);
  }
  DisplayText(1, " Coordinates: ");
  for (const QVXMLCoordinates & coordinates : fCoordinates) {
    coordinates.Display();
  }
  for (const QVXMLCoordinatesGroup & group : fCoordinatesGroups) {
    group.Display();
  }
  if (!fRecordInfos.empty()) DisplayText(1, " RecordInfo: ");
  for (const QVXMLRecordInfo & info : fRecordInfos) {
    info.Display();
  }
}

}  // namespace QVXML_940
