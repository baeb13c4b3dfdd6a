// The StatXML builders against documents written by hand.
#include "QVStatXMLUtil.h"

#include <limits>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ExportFormat.h"
#include "QVMV.h"

namespace {

using namespace QVXML_940;
using Util = QVStatXMLUtil;

const double kMissing = QVCommon_940::QVMV::Missing();
const double kInfinity = std::numeric_limits<double>::infinity();
const double kNaN = std::numeric_limits<double>::quiet_NaN();
const char * const kMissingText = "-1.79769313486232e+308";

/// The text of a new element, without layout; the element goes.
std::string Text(XMLElement * element) {
  const std::unique_ptr<XMLElement> owned(element);
  ExportFormat format;
  format.SetFormat(false);
  std::string text;
  owned->ToString(text, format);
  return text;
}

XMLElement * Child(const char * name) {
  return XMLElement::Create(name);
}

TEST(StatXML, Root) {
  EXPECT_EQ(
      Text(Util::BuildRoot()),
      "<StatXML xmlns=\"http://www.qvcommon.example/software/analytics/zelv/xml/extension\" "
      "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" version=\"1.0\" "
      "xsi:schemaLocation=\"http://www.qvcommon.example/software/analytics/zelv/xml/extension/"
      "StatXML_7.0.xsd\"/>");
}

TEST(StatXML, DataBlocks) {
  EXPECT_EQ(Text(Util::CreateElemUnivarData("d")), "<UnivariateData description=\"d\"/>");
  EXPECT_EQ(Text(Util::CreateElemBivarData("")), "<BivariateData/>");
  EXPECT_EQ(Text(Util::CreateElemMultivariateData("d")), "<MultivariateData description=\"d\"/>");
  EXPECT_EQ(Text(Util::CreateElemStructuredData("")), "<StructuredData/>");
}

TEST(StatXML, CountsLeaveOutWhatIsNotKnown) {
  EXPECT_EQ(Text(Util::CreateElemCounts(10, 1.5, 0, 3)),
            "<Counts totalFreq=\"10\" missingFreq=\"1.5\" invalidFreq=\"0\" cardinality=\"3\"/>");
  EXPECT_EQ(Text(Util::CreateElemCounts(kNaN, kMissing, kInfinity, -1)), "<Counts/>");
  EXPECT_EQ(Text(Util::CreateElemCounts(-kInfinity, kNaN, -kInfinity, kNaN)), "<Counts/>");
  EXPECT_EQ(Text(Util::CreateElemCounts(kInfinity, kMissing, kMissing, kInfinity)), "<Counts/>");
  EXPECT_EQ(Text(Util::CreateElemCounts(1, 2, 3, 0)),
            "<Counts totalFreq=\"1\" missingFreq=\"2\" invalidFreq=\"3\" cardinality=\"0\"/>");
}

TEST(StatXML, MissingTotalIsWrittenAsANumber) {
  EXPECT_EQ(Text(Util::CreateElemCounts(QVXMLCounts())),
            std::string("<Counts totalFreq=\"") + kMissingText + "\"/>");
}

TEST(StatXML, Statistics) {
  EXPECT_EQ(Text(Util::CreateElemStatistic("", "")), "<Statistic name=\"\" value=\"\"/>");
  EXPECT_EQ(Text(Util::CreateElemStatistic("mean", 0.1)),
            "<Statistic name=\"mean\" value=\"0.1\"/>");
  for (const double value : {kMissing, kInfinity, -kInfinity, kNaN}) {
    EXPECT_EQ(Text(Util::CreateElemStatistic("mean", value)), "<Statistic name=\"mean\"/>");
  }
}

// --- arrays -------------------------------------------------------------------------------------

TEST(StatXMLArray, PointerToIntHasNoNumberAndOneDigit) {
  const int values[] = {5, 12, 100, 149, -7};
  EXPECT_EQ(Text(Util::CreateElemArray(values, 5)),
            "<Array type=\"int\">5 1e+01 1e+02 1e+02 -7</Array>");
  EXPECT_EQ(Text(Util::CreateElemArray(values, 0)), "<Array type=\"int\"></Array>");
  EXPECT_EQ(Text(Util::CreateElemArray(static_cast<const int *>(nullptr), 3)),
            "<Array type=\"int\"/>");
}

TEST(StatXMLArray, VectorOfIntHasAllDigits) {
  EXPECT_EQ(Text(Util::CreateElemArray(std::vector<int>{5, 12, 2147483647})),
            "<Array type=\"int\" n=\"3\">5 12 2147483647</Array>");
  EXPECT_EQ(Text(Util::CreateElemArray(std::vector<int>{})),
            "<Array type=\"int\" n=\"0\"></Array>");
}

TEST(StatXMLArray, Reals) {
  const double values[] = {0.5, kMissing, 1e300};
  EXPECT_EQ(Text(Util::CreateElemArray(values, 3)),
            "<Array type=\"real\" n=\"3\">0.5 __MISSING__ 1e+300</Array>");
  EXPECT_EQ(Text(Util::CreateElemArray(std::vector<double>(values, values + 2))),
            "<Array type=\"real\" n=\"2\">0.5 __MISSING__</Array>");
  EXPECT_EQ(Text(Util::CreateElemArray(std::vector<double>{})),
            "<Array type=\"real\" n=\"0\"></Array>");
  EXPECT_EQ(Text(Util::CreateElemArray(static_cast<const double *>(nullptr), 3)),
            "<Array type=\"real\" n=\"3\"/>");
}

TEST(StatXMLArray, StringsAreQuotedTogetherOrNotAtAll) {
  using Strings = std::vector<std::string>;
  EXPECT_EQ(Text(Util::CreateElemArray(Strings{"a", "c"})),
            "<Array type=\"string\" n=\"2\">a c</Array>");
  EXPECT_EQ(Text(Util::CreateElemArray(Strings{"a b", "c"})),
            "<Array type=\"string\" n=\"2\">\"a b\" \"c\"</Array>");
  EXPECT_EQ(Text(Util::CreateElemArray(Strings{"a\"b", "c d", "e\\f"})),
            "<Array type=\"string\" n=\"3\">\"a\\\"b\" \"c d\" "
            "\"e\\\\f\"</Array>");
  EXPECT_EQ(Text(Util::CreateElemArray(Strings{"a\"b"})),
            "<Array type=\"string\" n=\"1\">a\\\"b</Array>");
  EXPECT_EQ(Text(Util::CreateElemArray(Strings{"", "", "x", "", "y"})),
            "<Array type=\"string\" n=\"5\">x  y</Array>");  // leading empty items leave no blank
  EXPECT_EQ(Text(Util::CreateElemArray(Strings{})), "<Array type=\"string\" n=\"0\"></Array>");
}

TEST(StatXMLArray, OneTextAsItStands) {
  EXPECT_EQ(Text(Util::CreateElemArray(std::string("a b \"c"), 7)),
            "<Array type=\"string\" n=\"7\">a b \"c</Array>");
}

// --- coordinates --------------------------------------------------------------------------------

TEST(StatXMLCoordinates, NineForms) {
  const std::vector<int> ints{1, 12};
  const std::vector<double> reals{0.5};
  const std::vector<std::string> strings{"u v"};
  const std::string open = "<Coordinates feature=\"f\" field=\"x\" statistic=\"s\">";
  const std::string close = "</Coordinates>";
  const std::string first = "<First/>";
  const std::string intArray = "<Array type=\"int\" n=\"2\">1 12</Array>";
  const std::string realArray = "<Array type=\"real\" n=\"1\">0.5</Array>";
  const std::string stringArray = "<Array type=\"string\" n=\"1\">\"u v\"</Array>";
  EXPECT_EQ(Text(Util::CreateElemCoordinates("f", "x", "s", ints.data(), 2)),
            open + "<Array type=\"int\">1 1e+01</Array>" + close);
  EXPECT_EQ(Text(Util::CreateElemCoordinates("f", "x", "s", ints)), open + intArray + close);
  EXPECT_EQ(Text(Util::CreateElemCoordinates("f", "x", "s", reals.data(), 1)),
            open + realArray + close);
  EXPECT_EQ(Text(Util::CreateElemCoordinates("f", "x", "s", reals)), open + realArray + close);
  EXPECT_EQ(Text(Util::CreateElemCoordinates("f", "x", "s", std::string("u v"), 1)),
            open + "<Array type=\"string\" n=\"1\">u v</Array>" + close);
  EXPECT_EQ(Text(Util::CreateElemCoordinates("f", "x", "s", strings)), open + stringArray + close);
  EXPECT_EQ(Text(Util::CreateElemCoordinates("f", "x", "s", ints, Child("First"))),
            open + first + intArray + close);
  EXPECT_EQ(Text(Util::CreateElemCoordinates("f", "x", "s", reals, Child("First"))),
            open + first + realArray + close);
  EXPECT_EQ(Text(Util::CreateElemCoordinates("f", "x", "s", strings, Child("First"))),
            open + first + stringArray + close);
  EXPECT_EQ(Text(Util::CreateElemCoordinates("f", "x", "s", reals, nullptr)),
            open + realArray + close);
}

TEST(StatXMLCoordinates, EmptyFeatureIsWritten) {
  EXPECT_EQ(Text(Util::CreateElemCoordinates("", "", "", std::vector<int>{1})),
            "<Coordinates feature=\"\"><Array type=\"int\" n=\"1\">1</Array></Coordinates>");
}

QVXMLCoordinates Coordinates(const char * feature, int type) {
  QVXMLCoordinates coordinates;
  coordinates.fFeature = feature;
  coordinates.fValueType = type;
  coordinates.fIntValues = {1};
  coordinates.fRealValues = {2.5};
  coordinates.fStringValues = {"s"};
  return coordinates;
}

const std::string kA =
    "<Coordinates feature=\"a\"><Array type=\"int\" n=\"1\">1</Array></Coordinates>";
const std::string kB =
    "<Coordinates feature=\"b\"><Array type=\"real\" n=\"1\">2.5</Array></Coordinates>";
const std::string kC =
    "<Coordinates feature=\"c\"><Array type=\"string\" n=\"1\">s</Array></Coordinates>";

TEST(StatXMLCoordinates, RecordsChooseByTheirType) {
  EXPECT_EQ(Text(Util::CreateElemCoordinates(Coordinates("a", 0))), kA);
  EXPECT_EQ(Text(Util::CreateElemCoordinates(Coordinates("b", 1))), kB);
  EXPECT_EQ(Text(Coordinates("c", 2).GetCoordinates()), kC);
  EXPECT_EQ(Util::CreateElemCoordinates(QVXMLCoordinates()), nullptr);
  EXPECT_EQ(Coordinates("d", 3).GetCoordinates(), nullptr);
}

TEST(StatXMLCoordinates, Groups) {
  QVXMLCoordinatesGroup group;
  EXPECT_EQ(Text(group.GetCoordinatesGroup()), "<CoordinatesGroup/>");
  group.fDescription = "d";
  group.fCoordinates = {Coordinates("a", 0), Coordinates("x", 7), Coordinates("b", 1)};
  EXPECT_EQ(Text(Util::CreateElemCoordinatesGroup(group)),
            "<CoordinatesGroup description=\"d\">" + kA + kB + "</CoordinatesGroup>");
  EXPECT_EQ(
      Text(Util::CreateElemCoordinatesGroup(Child("F"), {Child("O"), nullptr, Child("P")}, "")),
      "<CoordinatesGroup><F/><O/><P/></CoordinatesGroup>");
  EXPECT_EQ(Text(Util::CreateElemCoordinatesGroup(nullptr, {}, "e")),
            "<CoordinatesGroup description=\"e\"/>");
}

// --- variate data -------------------------------------------------------------------------------

QVVariateData Variate() {
  QVVariateData data;
  QVXMLCounts counts;
  counts.fTotalFreq = 9.0;
  data.fCounts = {counts, counts};
  data.fStatisticNames = {"n1", "n2"};
  data.fStringStatistics = {"v1"};
  data.fNumericStatistics = {1.5, 2.5, 3.5};
  data.fCoordinates = {Coordinates("a", 0), Coordinates("b", 1), Coordinates("c", 2),
                       Coordinates("a", 0)};
  QVXMLCoordinatesGroup group;
  group.fCoordinates = {Coordinates("b", 1)};
  data.fCoordinatesGroups = {group};
  data.fDescription = "mine";
  return data;
}

const std::string kCounts = "<Counts totalFreq=\"9\"/><Counts totalFreq=\"9\"/>";
const std::string kText = "<Statistic name=\"n1\" value=\"v1\"/>";

TEST(StatXMLVarData, LimitsFollowTheName) {
  const QVVariateData data = Variate();
  EXPECT_EQ(Text(Util::CreateElemVarData("UnivariateData", "d", data)),
            "<UnivariateData description=\"d\">" + kCounts + kText + kA + kB + "</UnivariateData>");
  EXPECT_EQ(Text(Util::CreateElemVarData("BivariateData", "", data)),
            "<BivariateData>" + kCounts + kText + kA + kB + kC + "</BivariateData>");
  EXPECT_EQ(Text(Util::CreateElemVarData("MultivariateData", "", data)),
            "<MultivariateData>" + kCounts + kText + "<CoordinatesGroup>" + kB +
                "</CoordinatesGroup>" + kA + kB + kC + kA + "</MultivariateData>");
  EXPECT_EQ(Text(Util::CreateElemVarData("StructuredData", "", data)),
            "<StructuredData>" + kCounts + kText + "</StructuredData>");
}

TEST(StatXMLVarData, FewerThanTheLowerLimitAreWrittenToo) {
  QVVariateData data = Variate();
  data.fCoordinates.resize(1);
  EXPECT_EQ(Text(Util::CreateElemVarData("BivariateData", "", data)),
            "<BivariateData>" + kCounts + kText + kA + "</BivariateData>");
}

TEST(StatXMLVarData, UnknownValueTypesCountAndAreSkipped) {
  QVVariateData data = Variate();
  data.fCoordinates[0].fValueType = 5;
  EXPECT_EQ(Text(Util::CreateElemVarData("UnivariateData", "", data)),
            "<UnivariateData>" + kCounts + kText + kB + "</UnivariateData>");
}

TEST(StatXMLVarData, NumbersWhenTheSwitchIsOff) {
  QVVariateData data = Variate();
  data.fUseStringStatistics = false;
  EXPECT_EQ(Text(Util::CreateElemVarData("StructuredData", "", data)),
            "<StructuredData>" + kCounts +
                "<Statistic name=\"n1\" value=\"1.5\"/><Statistic name=\"n2\" value=\"2.5\"/>"
                "<Statistic name=\"\" value=\"3.5\"/></StructuredData>");
}

TEST(StatXMLVarData, RecordsGiveTheirElements) {
  const QVVariateData data = Variate();
  EXPECT_EQ(Text(data.GetUnivariateDataElem()),
            Text(Util::CreateElemVarData("UnivariateData", "mine", data)));
  EXPECT_EQ(Text(data.GetBivariateDataElem()),
            Text(Util::CreateElemVarData("BivariateData", "mine", data)));
  EXPECT_EQ(Text(data.GetMultiVariateDataElem()),
            Text(Util::CreateElemVarData("MultivariateData", "mine", data)));
}

// --- record information -------------------------------------------------------------------------

TEST(StatXMLRecordInfo, TwoArraysAtMost) {
  EXPECT_EQ(
      Text(Util::CreateElemRecordInfo("7", "l", std::vector<std::vector<int>>{{1}, {2}, {3}})),
      "<RecordInfo recordId=\"7\" recordLabel=\"l\"><Array type=\"int\" n=\"1\">1</Array>"
      "<Array type=\"int\" n=\"1\">2</Array></RecordInfo>");
  EXPECT_EQ(Text(Util::CreateElemRecordInfo("", "", std::vector<std::vector<double>>{{0.5}})),
            "<RecordInfo recordId=\"\"><Array type=\"real\" n=\"1\">0.5</Array></RecordInfo>");
  EXPECT_EQ(Text(Util::CreateElemRecordInfo("7", "", std::vector<std::vector<std::string>>{})),
            "<RecordInfo recordId=\"7\"/>");
}

QVXMLRecordInfo Record(int type) {
  QVXMLRecordInfo record;
  record.fRecordId = "7";
  record.fIntArrays = {{1}};
  record.fRealArrays = {{0.5}};
  record.fStringArrays = {{"s"}};
  record.fValueType = type;
  return record;
}

TEST(StatXMLRecordInfo, RecordsChooseByTheirType) {
  const std::string ints =
      "<RecordInfo recordId=\"7\"><Array type=\"int\" n=\"1\">1</Array></RecordInfo>";
  const std::string strings =
      "<RecordInfo recordId=\"7\"><Array type=\"string\" n=\"1\">s</Array></RecordInfo>";
  EXPECT_EQ(Text(Util::CreateElemRecordInfo(Record(0))), ints);
  EXPECT_EQ(Text(Util::CreateElemRecordInfo(Record(1))),
            "<RecordInfo recordId=\"7\"><Array type=\"real\" n=\"1\">0.5</Array></RecordInfo>");
  EXPECT_EQ(Text(Util::CreateElemRecordInfo(Record(2))), strings);
  EXPECT_EQ(Util::CreateElemRecordInfo(Record(3)), nullptr);
  XMLElement * const element = Child("E");
  Util::AddRecordInfos(*element, {Record(0), Record(-1), Record(2)});
  std::string wanted = "<E>";
  wanted.append(ints).append(strings).append("</E>");
  EXPECT_EQ(Text(element), wanted);
}

// --- general elements, terms, matrices ----------------------------------------------------------

TEST(StatXML, GeneralElements) {
  EXPECT_EQ(Text(Util::CreateElem("E", "a", "")), "<E a=\"\"/>");
  EXPECT_EQ(Text(Util::CreateElem("E", "a", 2.5)), "<E a=\"2.5\"/>");
  EXPECT_EQ(Text(Util::CreateElem("E", "a", kMissing)),
            std::string("<E a=\"") + kMissingText + "\"/>");
  EXPECT_EQ(Text(Util::CreateElem("E", "a", kInfinity)), "<E/>");
  EXPECT_EQ(Text(Util::CreateElem("E", "a", kNaN)), "<E/>");
  EXPECT_EQ(Text(Util::CreateElem("E", "b", "1", "a", "2")), "<E b=\"1\" a=\"2\"/>");
  EXPECT_EQ(Text(Util::CreateElem("E", "c", "1", "b", "2", "a", "3")),
            "<E c=\"1\" b=\"2\" a=\"3\"/>");
}

TEST(StatXML, FieldInfo) {
  EXPECT_EQ(Text(Util::CreateElemFieldInfo("x", "v", false)),
            "<FieldInfo fieldName=\"x\" fieldValue=\"v\" isNull=\"false\"/>");
  EXPECT_EQ(Text(Util::CreateElemFieldInfo("x", "", true)),
            "<FieldInfo fieldName=\"x\" isNull=\"true\"/>");
  EXPECT_EQ(Text(Util::CreateElemFieldInfo("x", 0.5, false)),
            "<FieldInfo fieldName=\"x\" fieldValue=\"0.5\" isNull=\"false\"/>");
  for (const double value : {kMissing, kInfinity, kNaN}) {
    EXPECT_EQ(Text(Util::CreateElemFieldInfo("x", value, true)),
              "<FieldInfo fieldName=\"x\" isNull=\"true\"/>");
  }
}

TEST(StatXML, CovariatesAndFactors) {
  EXPECT_EQ(Text(Util::CreateElemCovariate("x", 2)), "<Covariate field=\"x\" power=\"2\"/>");
  EXPECT_EQ(Text(Util::CreateElemFactor("x", "", true)),
            "<Factor field=\"x\" value=\"\" nest=\"true\"/>");
  EXPECT_EQ(Text(Util::CreateElemFactor("x", 1.5, false)),
            "<Factor field=\"x\" value=\"1.5\" nest=\"false\"/>");
  EXPECT_EQ(Text(Util::CreateElemFactor("x", kMissing, false)),
            std::string("<Factor field=\"x\" value=\"") + kMissingText + "\" nest=\"false\"/>");
  EXPECT_EQ(Text(Util::CreateElemFactor("x", kNaN, false)), "<Factor field=\"x\" nest=\"false\"/>");
}

TEST(StatXML, RegressionParametersAndLabels) {
  EXPECT_EQ(Text(Util::CreateElemRegressionParameter("p", true)),
            "<RegressionParameter name=\"p\" isIntercept=\"true\"/>");
  EXPECT_EQ(
      Text(Util::CreateElemRegressionParameter({Child("A"), nullptr}, {Child("B")}, "", false)),
      "<RegressionParameter isIntercept=\"false\"><A/><B/></RegressionParameter>");
  EXPECT_EQ(Text(Util::CreateElemLabel("")), "<Label/>");
  EXPECT_EQ(Text(Util::CreateElemLabel("l")), "<Label label=\"l\"/>");
  EXPECT_EQ(Text(Util::CreateElemLabel("l", Child("A"))), "<Label label=\"l\"><A/></Label>");
  EXPECT_EQ(Text(Util::CreateElemLabel("", static_cast<XMLElement *>(nullptr))), "<Label/>");
  EXPECT_EQ(Text(Util::CreateElemLabel({Child("A")}, {Child("B")}, "p", false, "l")),
            "<Label label=\"l\"><RegressionParameter name=\"p\" isIntercept=\"false\"><A/><B/>"
            "</RegressionParameter></Label>");
}

TEST(StatXML, LabelsOfRowsAndColumns) {
  EXPECT_EQ(Text(Util::CreateElemRowColLabels("")), "<RowColLabels dimension=\"\"/>");
  EXPECT_EQ(Text(Util::CreateElemRowColLabels(Child("A"), "row")),
            "<RowColLabels dimension=\"row\"><A/></RowColLabels>");
  EXPECT_EQ(Text(Util::CreateElemRowColLabels(static_cast<XMLElement *>(nullptr), "col")),
            "<RowColLabels dimension=\"col\"/>");
  EXPECT_EQ(Text(Util::CreateElemRowColLabels(
                std::vector<XMLElement *>{Child("A"), nullptr, Child("B")}, "both")),
            "<RowColLabels dimension=\"both\"><A/><B/></RowColLabels>");
}

TEST(StatXML, MatrixLabelsTakeOneOrTwo) {
  EXPECT_EQ(Text(Util::CreateElemMatrixLabels({})), "<MatrixLabels/>");
  EXPECT_EQ(Text(Util::CreateElemMatrixLabels({Child("A")})), "<MatrixLabels><A/></MatrixLabels>");
  EXPECT_EQ(Text(Util::CreateElemMatrixLabels({Child("A"), Child("B")})),
            "<MatrixLabels><A/><B/></MatrixLabels>");
  // More stay the caller's.
  const std::unique_ptr<XMLElement> a(Child("A")), b(Child("B")), c(Child("C"));
  EXPECT_EQ(Text(Util::CreateElemMatrixLabels({a.get(), b.get(), c.get()})), "<MatrixLabels/>");
}

TEST(StatXML, SegmentsAndIndices) {
  EXPECT_EQ(Text(Util::CreateElemSegmentInfo(Child("A"))), "<SegmentInfo><A/></SegmentInfo>");
  EXPECT_EQ(Text(Util::CreateElemSegmentInfo(static_cast<XMLElement *>(nullptr))),
            "<SegmentInfo/>");
  EXPECT_EQ(Text(Util::CreateElemSegmentInfo(std::vector<XMLElement *>{Child("A"), Child("B")})),
            "<SegmentInfo><A/><B/></SegmentInfo>");
  EXPECT_EQ(Text(Util::CreateElemIndices(Child("A"), "row")),
            "<Indices dimension=\"row\"><A/></Indices>");
  EXPECT_EQ(Text(Util::CreateElemIndices(nullptr, "")), "<Indices dimension=\"\"/>");
  EXPECT_EQ(Text(Util::CreateElemSegmentData(Child("A"), Child("B"))),
            "<SegmentData><A/><B/></SegmentData>");
  EXPECT_EQ(Text(Util::CreateElemSegmentData(nullptr, Child("B"))),
            "<SegmentData><B/></SegmentData>");
}

TEST(StatXML, Matrix) {
  EXPECT_EQ(Text(Util::CreateElemMatrix(Child("F"), {Child("P"), Child("Q")}, Child("T"),
                                        Child("U"), 2, 3, "any", true)),
            "<Matrix kind=\"any\" nbRows=\"2\" nbCols=\"3\" rowMajor=\"true\"><F/><P/><Q/><T/><U/>"
            "</Matrix>");
  EXPECT_EQ(Text(Util::CreateElemMatrix(nullptr, {}, nullptr, nullptr, 4294967295u, 0, "symmetric",
                                        false)),
            "<Matrix kind=\"symmetric\" nbRows=\"4294967295\" rowMajor=\"false\"/>");
  EXPECT_EQ(Text(Util::CreateElemMatrix(nullptr, {nullptr, Child("Q")}, nullptr, nullptr, 1, 1,
                                        "diagonal", false)),
            "<Matrix kind=\"diagonal\" nbRows=\"1\" nbCols=\"1\" rowMajor=\"false\"><Q/></Matrix>");
}

TEST(StatXML, APairOfAnotherSizeStaysTheCallers) {
  const std::unique_ptr<XMLElement> one(Child("P"));
  EXPECT_EQ(
      Text(Util::CreateElemMatrix(nullptr, {one.get()}, nullptr, Child("U"), 1, 1, "any", true)),
      "<Matrix kind=\"any\" nbRows=\"1\" nbCols=\"1\" rowMajor=\"true\"><U/></Matrix>");
}

TEST(StatXML, CopiesAndDerivesAsAnEmptyClass) {
  const Util util;
  Util copy(util);
  copy = util;
  EXPECT_TRUE(std::has_virtual_destructor<Util>::value);
}

}  // namespace
