#include <gtest/gtest.h>

#include <ctime>
#include <limits>
#include <memory>
#include <string>
#include <type_traits>

#include "QVPMMLExporter.h"
#include "export_test_help.h"

namespace {

using export_test::kExtender;
using export_test::Text;
using QVCommon_940::QVApplicInfo4XML;
using QVCommon_940::QVPMMLExporter;
using QVXML_940::XMLElement;

const std::string kRoot =
    "<PMML version=\"4.3\" xmlns=\"http://www.dmg.org/PMML-4_3\""
    " xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\""
    " xsi:schemaLocation=\"http://www.dmg.org/PMML-4_3 pmml-4-3.xsd\"/>";

std::string HeaderText(const QVApplicInfo4XML * info, const std::string & description,
                       bool timestamp = false) {
  XMLElement * header = nullptr;
  QVPMMLExporter exporter;
  EXPECT_TRUE(exporter.ExportHeader(info, description, timestamp, header).IsOK());
  const std::unique_ptr<XMLElement> owned(header);
  return Text(header);
}

TEST(ExportPMMLElement, HasFourAttributesAndNoChild) {
  const std::unique_ptr<XMLElement> root(QVPMMLExporter().ExportPMMLElement());
  EXPECT_EQ(Text(root.get()), kRoot);
}

TEST(ExportPMMLElement, TheOlderNameYieldsTheSameVersion) {
  const std::unique_ptr<XMLElement> root(QVPMMLExporter().ExportPMMLElement40());
  EXPECT_EQ(Text(root.get()), kRoot);
}

TEST(ExportHeader, WithoutInformationHoldsTheCopyrightNoticeOnly) {
  EXPECT_EQ(HeaderText(nullptr, ""),
            "<Header copyright=\"Copyright (c) the owners of qvcommon940r\"/>");
}

TEST(ExportHeader, EmptyTextsCountAsNoInformation) {
  const QVApplicInfo4XML info;
  EXPECT_EQ(HeaderText(&info, ""), HeaderText(nullptr, ""));
}

TEST(ExportHeader, CopyrightOfTheApplicationReplacesTheNotice) {
  QVApplicInfo4XML info;
  info.fCopyright = "(c) A & B";
  EXPECT_EQ(HeaderText(&info, "fit"), "<Header copyright=\"(c) A &amp; B\" description=\"fit\"/>");
}

TEST(ExportHeader, ApplicationHasNameThenVersion) {
  QVApplicInfo4XML info{0, "fit", "2.1", "c"};
  EXPECT_EQ(HeaderText(&info, ""),
            "<Header copyright=\"c\"><Application name=\"fit\" version=\"2.1\"/></Header>");
}

TEST(ExportHeader, ApplicationLeavesOutWhatIsEmpty) {
  QVApplicInfo4XML onlyName{0, "fit", "", "c"};
  EXPECT_EQ(HeaderText(&onlyName, ""),
            "<Header copyright=\"c\"><Application name=\"fit\"/></Header>");
  QVApplicInfo4XML onlyVersion{0, "", "2.1", "c"};
  EXPECT_EQ(HeaderText(&onlyVersion, ""),
            "<Header copyright=\"c\"><Application version=\"2.1\"/></Header>");
}

TEST(ExportHeader, TimestampIsTheLocalTimeInTheFormOfCtime) {
  QVApplicInfo4XML info{0, "fit", "", "c"};
  const std::time_t before = std::time(nullptr);
  const std::string text = HeaderText(&info, "", true);
  const std::time_t after = std::time(nullptr);
  const auto expected = [](std::time_t t) {
    std::string line = std::ctime(&t);
    line.pop_back();
    return "<Header copyright=\"c\"><Application name=\"fit\"/><Timestamp>" + line +
           "</Timestamp></Header>";
  };
  bool found = false;
  for (std::time_t t = before; t <= after; ++t)
    found = found || text == expected(t);
  EXPECT_TRUE(found) << text << "\n" << expected(before);
}

TEST(ExportExtension, TextFormPutsTheExtenderLast) {
  XMLElement * extension = nullptr;
  QVPMMLExporter().ExportExtension("a", "b", extension);
  const std::unique_ptr<XMLElement> owned(extension);
  EXPECT_EQ(Text(extension), "<Extension name=\"a\" value=\"b\" " + kExtender + "/>");
}

TEST(ExportExtension, LeavesOutEmptyTexts) {
  XMLElement * extension = nullptr;
  QVPMMLExporter().ExportExtension("", "", extension);
  const std::unique_ptr<XMLElement> owned(extension);
  EXPECT_EQ(Text(extension), "<Extension " + kExtender + "/>");
}

TEST(ExportExtension, NumberHasFifteenDigits) {
  XMLElement * extension = nullptr;
  QVPMMLExporter().ExportExtension("a", 1.0 / 3.0, extension);
  const std::unique_ptr<XMLElement> owned(extension);
  EXPECT_EQ(Text(extension),
            "<Extension name=\"a\" value=\"0.333333333333333\" " + kExtender + "/>");
}

TEST(ExportExtension, NumbersBeyondTheFiniteRangeAreLeftOut) {
  for (double value :
       {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
        -std::numeric_limits<double>::infinity()}) {
    XMLElement * extension = nullptr;
    QVPMMLExporter().ExportExtension("a", value, extension);
    const std::unique_ptr<XMLElement> owned(extension);
    EXPECT_EQ(Text(extension), "<Extension name=\"a\" " + kExtender + "/>");
  }
}

TEST(ExportExtension, TheEndsOfTheFiniteRangeAreWritten) {
  XMLElement * extension = nullptr;
  QVPMMLExporter().ExportExtension("a", std::numeric_limits<double>::lowest(), extension);
  const std::unique_ptr<XMLElement> owned(extension);
  EXPECT_EQ(Text(extension),
            "<Extension name=\"a\" value=\"-1.79769313486232e+308\" " + kExtender + "/>");
}

TEST(QVPMMLExporter, IsAPlainClassThatCanBeAssigned) {
  EXPECT_FALSE(std::is_polymorphic_v<QVPMMLExporter>);
  EXPECT_TRUE(std::is_copy_assignable_v<QVPMMLExporter>);
  EXPECT_TRUE(std::is_copy_constructible_v<QVPMMLExporter>);
}

}  // namespace
