// The plain records of a chart: their fields, their copies and their diagnostic text.

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

#include "QVMV.h"
#include "QVVariateData.h"
#include "common/display/captured_display.h"

using QVCommon_940::QVMV;
using QVXML_940::QVVariateData;
using QVXML_940::QVXMLCoordinates;
using QVXML_940::QVXMLCoordinatesGroup;
using QVXML_940::QVXMLCounts;
using QVXML_940::QVXMLRecordInfo;

namespace {

template <typename Record>
std::string Displayed(const Record & record) {
  CapturedDisplay display;
  record.Display();
  return display.Text();
}

QVXMLCoordinates Reals(const std::string & feature, const std::vector<double> & values) {
  QVXMLCoordinates coordinates;
  coordinates.fFeature = feature;
  coordinates.fRealValues = values;
  coordinates.fValueType = QVXML_940::kRealValues;
  return coordinates;
}

// === Fields ======================================================================================

TEST(ChartRecords, FreshCountsAreAllMissing) {
  const QVXMLCounts counts;
  EXPECT_TRUE(QVMV::IsMissing(counts.fTotalFreq));
  EXPECT_TRUE(QVMV::IsMissing(counts.fMissingFreq));
  EXPECT_TRUE(QVMV::IsMissing(counts.fInvalidFreq));
  EXPECT_TRUE(QVMV::IsMissing(counts.fCardinality));
}

TEST(ChartRecords, FreshCoordinatesHaveNoValueType) {
  const QVXMLCoordinates coordinates;
  EXPECT_EQ(coordinates.fValueType, -1);
  EXPECT_TRUE(coordinates.fFeature.empty() && coordinates.fField.empty());
  EXPECT_TRUE(coordinates.fStatistic.empty() && coordinates.fStringValues.empty());
  EXPECT_TRUE(coordinates.fIntValues.empty() && coordinates.fRealValues.empty());
}

TEST(ChartRecords, FreshRecordInfoHasNoValueType) {
  const QVXMLRecordInfo info;
  EXPECT_EQ(info.fValueType, -1);
  EXPECT_TRUE(info.fRecordId.empty() && info.fRecordLabel.empty());
  EXPECT_TRUE(info.fIntArrays.empty() && info.fRealArrays.empty() && info.fStringArrays.empty());
}

TEST(ChartRecords, FreshVariateDataIsEmptyWithStringStatistics) {
  const QVVariateData data;
  EXPECT_TRUE(data.fUseStringStatistics);
  EXPECT_TRUE(data.fCounts.empty() && data.fStatisticNames.empty() && data.fDescription.empty());
  EXPECT_TRUE(data.fStringStatistics.empty() && data.fNumericStatistics.empty());
  EXPECT_TRUE(data.fCoordinates.empty() && data.fRecordInfos.empty());
  EXPECT_TRUE(data.fCoordinatesGroups.empty());
}

TEST(ChartRecords, FieldsStandInTheOrderInWhichTheyAreWritten) {
  QVXMLCounts counts;
  auto & [total, missing, invalid, cardinality] = counts;
  total = 1.0, missing = 2.0, invalid = 3.0, cardinality = 4.0;
  EXPECT_EQ(counts.fTotalFreq, 1.0);
  EXPECT_EQ(counts.fMissingFreq, 2.0);
  EXPECT_EQ(counts.fInvalidFreq, 3.0);
  EXPECT_EQ(counts.fCardinality, 4.0);

  QVXMLCoordinates coordinates;
  auto & [feature, field, statistic, ints, reals, strings, type] = coordinates;
  feature = "a", field = "b", statistic = "c", type = 2;
  ints = {1}, reals = {2.5}, strings = {"s"};
  EXPECT_EQ(coordinates.fFeature + coordinates.fField + coordinates.fStatistic, "abc");
  EXPECT_EQ(coordinates.fIntValues.at(0), 1);
  EXPECT_EQ(coordinates.fRealValues.at(0), 2.5);
  EXPECT_EQ(coordinates.fStringValues.at(0), "s");
  EXPECT_EQ(coordinates.fValueType, 2);

  QVXMLCoordinatesGroup group;
  auto & [groupDescription, members] = group;
  groupDescription = "g";
  members.push_back(coordinates);
  EXPECT_EQ(group.fDescription, "g");
  EXPECT_EQ(group.fCoordinates.size(), 1u);

  QVXMLRecordInfo info;
  auto & [id, label, intArrays, realArrays, stringArrays, infoType] = info;
  id = "17", label = "L", infoType = 1;
  intArrays = {{1}}, realArrays = {{2.0}}, stringArrays = {{"t"}};
  EXPECT_EQ(info.fRecordId + info.fRecordLabel, "17L");
  EXPECT_EQ(info.fRealArrays.at(0).at(0), 2.0);
  EXPECT_EQ(info.fIntArrays.size() + info.fStringArrays.size(), 2u);
  EXPECT_EQ(info.fValueType, 1);

  QVVariateData data;
  auto & [dataCounts, names, useStrings, stringValues, numbers, lists, infos, description, groups] =
      data;
  dataCounts.resize(1), names.resize(2), useStrings = false, stringValues.resize(3);
  numbers.resize(4), lists.resize(5), infos.resize(6), description = "d", groups.resize(7);
  EXPECT_EQ(data.fCounts.size(), 1u);
  EXPECT_EQ(data.fStatisticNames.size(), 2u);
  EXPECT_FALSE(data.fUseStringStatistics);
  EXPECT_EQ(data.fStringStatistics.size(), 3u);
  EXPECT_EQ(data.fNumericStatistics.size(), 4u);
  EXPECT_EQ(data.fCoordinates.size(), 5u);
  EXPECT_EQ(data.fRecordInfos.size(), 6u);
  EXPECT_EQ(data.fDescription, "d");
  EXPECT_EQ(data.fCoordinatesGroups.size(), 7u);
}

TEST(ChartRecords, HaveAVirtualDestructor) {
  EXPECT_TRUE(std::has_virtual_destructor_v<QVXMLCounts>);
  EXPECT_TRUE(std::has_virtual_destructor_v<QVXMLCoordinates>);
  EXPECT_TRUE(std::has_virtual_destructor_v<QVXMLCoordinatesGroup>);
  EXPECT_TRUE(std::has_virtual_destructor_v<QVXMLRecordInfo>);
  EXPECT_TRUE(std::has_virtual_destructor_v<QVVariateData>);
}

TEST(ChartRecords, CopiesAreWholeAndIndependent) {
  QVVariateData data;
  data.fCounts.resize(1);
  data.fCounts[0].fCardinality = 3.0;
  data.fStatisticNames = {"mean"};
  data.fUseStringStatistics = false;
  data.fStringStatistics = {"x"};
  data.fNumericStatistics = {2.5};
  data.fCoordinates = {Reals("observed", {1.0})};
  data.fRecordInfos.resize(1);
  data.fRecordInfos[0].fRecordId = "17";
  data.fDescription = "d";
  data.fCoordinatesGroups.resize(1);
  data.fCoordinatesGroups[0].fDescription = "g";

  const QVVariateData copy(data);
  QVVariateData assigned;
  assigned = data;
  data = QVVariateData();
  for (const QVVariateData & each : {copy, assigned}) {
    EXPECT_EQ(each.fCounts.at(0).fCardinality, 3.0);
    EXPECT_EQ(each.fStatisticNames.at(0), "mean");
    EXPECT_FALSE(each.fUseStringStatistics);
    EXPECT_EQ(each.fStringStatistics.at(0), "x");
    EXPECT_EQ(each.fNumericStatistics.at(0), 2.5);
    EXPECT_EQ(each.fCoordinates.at(0).fRealValues.at(0), 1.0);
    EXPECT_EQ(each.fRecordInfos.at(0).fRecordId, "17");
    EXPECT_EQ(each.fDescription, "d");
    EXPECT_EQ(each.fCoordinatesGroups.at(0).fDescription, "g");
  }
  EXPECT_TRUE(data.fCounts.empty());
  EXPECT_TRUE(data.fUseStringStatistics);
}

// === Display =====================================================================================

TEST(ChartRecordsDisplay, FreshCoordinatesShowTheFrameAlone) {
  EXPECT_EQ(Displayed(QVXMLCoordinates()),
            "\n Coordinates display start: \n Coordinates display end. ");
}

TEST(ChartRecordsDisplay, CoordinatesShowTextsAndTheListInUse) {
  QVXMLCoordinates coordinates = Reals("observed", {1.5, QVMV::Missing()});
  coordinates.fField = "height";
  coordinates.fStatistic = "mean";
  coordinates.fIntValues = {7};
  coordinates.fStringValues = {"a", "b"};
  const std::string head =
      "\n Coordinates display start: \nfeature = observed\nfield = height\nstatistic = mean";
  const std::string end = "\n Coordinates display end. ";
  EXPECT_EQ(Displayed(coordinates), head + "\nvalues  (size = 2)\n 1.5 miss" + end);
  coordinates.fValueType = 0;
  EXPECT_EQ(Displayed(coordinates), head + "\nvalues  (size = 1)\n 7" + end);
  coordinates.fValueType = 2;
  EXPECT_EQ(Displayed(coordinates), head + "\nvalues  (size = 2)\n \"a\" \"b\"" + end);
  coordinates.fValueType = 3;
  EXPECT_EQ(Displayed(coordinates), head + "\nError" + end);
  for (const int unknown : {-1, 4}) {
    coordinates.fValueType = unknown;
    EXPECT_EQ(Displayed(coordinates), head + end) << unknown;
  }
}

TEST(ChartRecordsDisplay, GroupShowsItsMembers) {
  QVXMLCoordinatesGroup group;
  EXPECT_EQ(Displayed(group),
            "\n CoordinatesGroup display start: \n CoordinatesGroup display end. ");
  group.fDescription = "pair";
  group.fCoordinates = {Reals("x", {1.0}), QVXMLCoordinates()};
  EXPECT_EQ(Displayed(group),
            "\n CoordinatesGroup display start: \nDescription = pair"
            "\n Coordinates display start: \nfeature = x\nvalues  (size = 1)\n 1"
            "\n Coordinates display end. "
            "\n Coordinates display start: \n Coordinates display end. "
            "\n CoordinatesGroup display end. ");
}

TEST(ChartRecordsDisplay, RecordInfoShowsEachArrayOfTheListInUse) {
  QVXMLRecordInfo info;
  EXPECT_EQ(Displayed(info), "\n RecordInfo display start: \n RecordInfo display end. ");
  info.fRecordId = "17";
  info.fRecordLabel = "outlier";
  info.fIntArrays = {{1, 2}, {3}};
  info.fRealArrays = {{0.5}};
  info.fStringArrays = {{"s"}};
  // "RecordLable" is this display's own spelling.
  const std::string head = "\n RecordInfo display start: \nRecordID  = 17\nRecordLable  = outlier";
  const std::string end = "\n RecordInfo display end. ";
  EXPECT_EQ(Displayed(info), head + end);
  info.fValueType = 0;
  EXPECT_EQ(Displayed(info), head + "\nvalue  (size = 2)\n 1 2\nvalue  (size = 1)\n 3" + end);
  info.fValueType = 1;
  EXPECT_EQ(Displayed(info), head + "\nvalue  (size = 1)\n 0.5" + end);
  info.fValueType = 2;
  EXPECT_EQ(Displayed(info), head + "\nvalue  (size = 1)\n \"s\"" + end);
  info.fValueType = 3;
  EXPECT_EQ(Displayed(info), head + "\nError" + end);
}

TEST(ChartRecordsDisplay, VariateDataShowsEverythingButTheCardinality) {
  QVVariateData data;
  data.fDescription = "d";
  data.fCounts.resize(2);
  data.fCounts[0].fTotalFreq = 10.0;
  data.fCounts[0].fMissingFreq = 2.0;
  data.fCounts[0].fInvalidFreq = 1.0;
  data.fCounts[0].fCardinality = 5.0;
  data.fStatisticNames = {"mean"};
  data.fStringStatistics = {"high"};
  data.fNumericStatistics = {2.5};
  data.fCoordinates = {QVXMLCoordinates()};
  data.fCoordinatesGroups.resize(1);
  data.fRecordInfos.resize(1);
  const auto text = [](const std::string & values) {
    return "\n QVVariateData display start: \n Description  = d\n Counts: "
           "\n fTotalFreq  = 10\n fMissingFreq  = 2\n fInvalidFreq  = 1"
           "\n Statistics: \n Names  (size = 1)\n \"mean\"\n Values  (size = 1)\n " +
           values +
           "\n Coordinates: \n Coordinates display start: \n Coordinates display end. "
           "\n CoordinatesGroup display start: \n CoordinatesGroup display end. "
           "\n RecordInfo: \n RecordInfo display start: \n RecordInfo display end. "
           "\n QVVariateData display end. ";
  };
  EXPECT_EQ(Displayed(data), text("\"high\""));
  data.fUseStringStatistics = false;
  EXPECT_EQ(Displayed(data), text("2.5"));
}

TEST(ChartRecordsDisplay, FreshVariateDataShowsNoCountsAndNoRecordInfo) {
  EXPECT_EQ(Displayed(QVVariateData()),
            "\n QVVariateData display start: \n Description  = \n Statistics: "
            "\n Names  (size = 0)\n Values  (size = 0)\n Coordinates: "
            "\n QVVariateData display end. ");
}

}  // namespace
