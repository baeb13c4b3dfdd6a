#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "QVMV.h"
#include "QVPMMLExporter.h"
#include "QVUniStats.h"
#include "export_test_help.h"

namespace {

using export_test::Text;
using QVCommon_940::QVMV;
using QVCommon_940::QVPMMLExporter;
using QVCommon_940::QVStatus;
using QVXML_940::QVUniStats;
using QVXML_940::XMLElement;

const double kMissing = QVMV::Missing();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

std::string Export(const QVUniStats & stats) {
  XMLElement * element = nullptr;
  const QVStatus status = QVPMMLExporter().ExportUniStats(stats, element);
  EXPECT_TRUE(status.IsOK());
  const std::unique_ptr<XMLElement> owned(element);
  return Text(element);
}

QVUniStats::SummStats Summary(double minimum, double maximum, double mean, double deviation) {
  QVUniStats::SummStats summary;
  summary.fMinimum = minimum;
  summary.fMaximum = maximum;
  summary.fMean = mean;
  summary.fStdDev = deviation;
  return summary;
}

std::string Continuous(const std::string & cases, const std::string & info,
                       const std::string & rest) {
  return "<UnivariateStats field=\"x\"><Counts totalFreq=\"" + cases + "\"/><NumericInfo" + info +
         "/>" + rest + "</UnivariateStats>";
}

TEST(ExportUniStats, CategoricalField) {
  EXPECT_EQ(Export(QVUniStats("c", 3.5, {1.0, 2.5, 0.0})),
            "<UnivariateStats field=\"c\"><Counts totalFreq=\"3.5\"/><DiscrStats>"
            "<Array type=\"real\">1 2.5 0</Array></DiscrStats></UnivariateStats>");
}

TEST(ExportUniStats, CategoricalFieldWithoutFrequencies) {
  EXPECT_EQ(Export(QVUniStats("c", 0.0, std::vector<double>())),
            "<UnivariateStats field=\"c\"><Counts totalFreq=\"0\"/><DiscrStats>"
            "<Array type=\"real\"/></DiscrStats></UnivariateStats>");
}

TEST(ExportUniStats, DefaultStatisticsAreCategorical) {
  EXPECT_EQ(Export(QVUniStats()),
            "<UnivariateStats field=\"x\"><Counts totalFreq=\"0\"/><DiscrStats>"
            "<Array type=\"real\"/></DiscrStats></UnivariateStats>");
}

TEST(ExportUniStats, ContinuousFieldWithoutIntervals) {
  EXPECT_EQ(Export(QVUniStats("x", 4.0, Summary(1.0, 9.0, 4.25, 0.1), {}, {})),
            Continuous("4", " minimum=\"1\" maximum=\"9\" mean=\"4.25\" standardDeviation=\"0.1\"",
                       "<ContStats/>"));
}

TEST(ExportUniStats, MissingFiguresAreLeftOut) {
  EXPECT_EQ(Export(QVUniStats("x", 4.0, Summary(kMissing, kMissing, kMissing, kMissing), {}, {})),
            Continuous("4", "", "<ContStats/>"));
}

TEST(ExportUniStats, FiguresThatAreNotFiniteAreLeftOut) {
  EXPECT_EQ(
      Export(QVUniStats("x", 4.0, Summary(-kInfinity, kInfinity, std::nan(""), kInfinity), {}, {})),
      Continuous("4", "", "<ContStats/>"));
}

TEST(ExportUniStats, TheLargestDoubleIsNoMaximumButAnyOtherFigure) {
  const double largest = std::numeric_limits<double>::max();
  EXPECT_EQ(Export(QVUniStats("x", 4.0, Summary(largest, largest, largest, largest), {}, {})),
            Continuous("4",
                       " minimum=\"1.79769313486232e+308\" mean=\"1.79769313486232e+308\""
                       " standardDeviation=\"1.79769313486232e+308\"",
                       "<ContStats/>"));
}

TEST(ExportUniStats, InfiniteNumberOfCasesIsLeftOut) {
  EXPECT_EQ(Export(QVUniStats("c", kInfinity, {1.0})),
            "<UnivariateStats field=\"c\"><Counts/><DiscrStats>"
            "<Array type=\"real\">1</Array></DiscrStats></UnivariateStats>");
}

TEST(ExportUniStats, IntervalsAreOpenToTheLeftUnlessToldOtherwise) {
  QVUniStats stats("x", 4.0, Summary(0.0, 2.0, 1.0, 0.5), {0.0, 1.0, 2.0}, {3.0, 1.0});
  const std::string info = " minimum=\"0\" maximum=\"2\" mean=\"1\" standardDeviation=\"0.5\"";
  const auto expected = [&](const std::string & closure) {
    return Continuous("4", info,
                      "<ContStats><Interval leftMargin=\"0\" rightMargin=\"1\" closure=\"" +
                          closure + "\"/><Interval leftMargin=\"1\" rightMargin=\"2\" closure=\"" +
                          closure + "\"/><Array type=\"real\">3 1</Array></ContStats>");
  };
  EXPECT_EQ(Export(stats), expected("openClosed"));
  stats.SetIntervalsOpenLeft(false);
  EXPECT_EQ(Export(stats), expected("closedOpen"));
}

TEST(ExportUniStats, MissingOuterCutPointsLeaveTheMarginOut) {
  EXPECT_EQ(Export(QVUniStats("x", 3.0, Summary(1.0, 5.0, 3.0, 2.0), {kMissing, 3.0, kMissing},
                              {1.0, 2.0})),
            Continuous("3", " minimum=\"1\" maximum=\"5\" mean=\"3\" standardDeviation=\"2\"",
                       "<ContStats><Interval rightMargin=\"3\" closure=\"openClosed\"/>"
                       "<Interval leftMargin=\"3\" closure=\"openClosed\"/>"
                       "<Array type=\"real\">1 2</Array></ContStats>"));
}

TEST(ExportUniStats, InvalidStatisticsGiveCode117AndNull) {
  const std::unique_ptr<XMLElement> other(XMLElement::Create("other"));
  XMLElement * element = other.get();
  const QVStatus status = QVPMMLExporter().ExportUniStats(QVUniStats("c", 1.0, {-1.0}), element);
  EXPECT_EQ(status.GetErrorCode(), 117);
  EXPECT_TRUE(status.IsError());
  EXPECT_EQ(element, nullptr);
}

}  // namespace
