#include <cfloat>
#include <climits>
#include <limits>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "PersistenceVocabulary.h"
#include "QVMV.h"
#include "XMLObj.h"
#include "XMLPersistence.h"
#include "xml/test_locale.h"

using namespace QVXML_940;

namespace {

// What one value of an object at depth 0 writes.
template <class Value>
std::string SubElement(const Value & value) {
  std::ostringstream out;
  EXPECT_EQ(XMLObj("A", 0).WriteSubElement(out, value), 0);
  return out.str();
}

}  // namespace

TEST(PersistenceVocabulary, EveryRow) {
  EXPECT_EQ(XML_ROOT, "QVXMLRoot");
  EXPECT_EQ(XML_DOCTYPE_ROOT, "QVXMLRoot");
  EXPECT_EQ(XML_COPYRIGHT, "copyright");
  EXPECT_EQ(XML_OBJ, "Obj");
  EXPECT_EQ(XML_OBJ_NAME, "name");
  EXPECT_EQ(XML_INT, "Int");
  EXPECT_EQ(XML_INT_VALUE, "value");
  EXPECT_EQ(XML_LONG, "Long");
  EXPECT_EQ(XML_LONG_VALUE, "value");
  EXPECT_EQ(XML_DOUBLE, "Double");
  EXPECT_EQ(XML_DOUBLE_VALUE, "value");
  EXPECT_EQ(XML_MISSING, "Missing");
  EXPECT_EQ(XML_STRING, "String");
  EXPECT_EQ(XML_STRING_VALUE, "value");
  EXPECT_EQ(XML_DTD, "savexml.dtd");
}

// --- The root ---------------------------------------------------------------------------------

TEST(PersistenceRoot, StartHasNoLineEndAndEscapesTheCopyright) {
  for (const auto start : {StartRoot, WriteHeader}) {
    std::ostringstream out;
    EXPECT_EQ(start(out, "A & B  \"C\""), 0);
    EXPECT_EQ(out.str(), "<QVXMLRoot copyright=\"A &amp; B &#32;&quot;C&quot;\">");
  }
}

TEST(PersistenceRoot, StartWithNoCopyright) {
  std::ostringstream out;
  WriteHeader(out, "");
  EXPECT_EQ(out.str(), "<QVXMLRoot copyright=\"\">");
}

TEST(PersistenceRoot, EndBeginsALineAndDoesNotEndIt) {
  for (const auto end : {EndRoot, EndHeader}) {
    std::ostringstream out;
    EXPECT_EQ(end(out), 0);
    EXPECT_EQ(out.str(), "\n</QVXMLRoot>");
  }
}

// --- The frame of an object -------------------------------------------------------------------

TEST(XMLObj, NameAndDepth) {
  const XMLObj object("QVCatNumEncoder", 3);
  EXPECT_EQ(object.GetName(), "QVCatNumEncoder");
  EXPECT_EQ(object.GetNTabs(), 3);
  const XMLObj copy(object);
  EXPECT_EQ(copy.GetName(), "QVCatNumEncoder");
  EXPECT_EQ(copy.GetNTabs(), 3);
  XMLObj assigned("other", 0);
  assigned = object;
  EXPECT_EQ(assigned.GetName(), "QVCatNumEncoder");
  EXPECT_EQ(assigned.GetNTabs(), 3);
}

TEST(XMLObj, FrameAtItsDepth) {
  std::ostringstream out;
  const XMLObj object("A", 2);
  EXPECT_EQ(object.StartObj(out), 0);
  EXPECT_EQ(object.WriteSubElement(out, 1), 0);
  EXPECT_EQ(object.EndObj(out), 0);
  EXPECT_EQ(out.str(), "\n\t\t<Obj name=\"A\">\n\t\t\t<Int value=\"1\"/>\n\t\t</Obj>");
}

TEST(XMLObj, FrameAtDepthZeroHasNoTabButItsValuesHaveOne) {
  std::ostringstream out;
  const XMLObj object("A", 0);
  object.StartObj(out);
  object.WriteSubElement(out, 1);
  object.EndObj(out);
  EXPECT_EQ(out.str(), "\n<Obj name=\"A\">\n\t<Int value=\"1\"/>\n</Obj>");
}

TEST(XMLObj, NegativeDepth) {
  std::ostringstream out;
  const XMLObj object("A", -1);
  object.StartObj(out);
  object.WriteSubElement(out, 1);
  EXPECT_EQ(out.str(), "\n<Obj name=\"A\">\n<Int value=\"1\"/>");
}

TEST(XMLObj, TheNameIsNotEscaped) {
  std::ostringstream out;
  XMLObj("A & <B>", 0).StartObj(out);
  EXPECT_EQ(out.str(), "\n<Obj name=\"A & <B>\">");
}

// --- Values -----------------------------------------------------------------------------------

TEST(XMLObj, Integers) {
  EXPECT_EQ(SubElement(5), "\n\t<Int value=\"5\"/>");
  EXPECT_EQ(SubElement(0), "\n\t<Int value=\"0\"/>");
  EXPECT_EQ(SubElement(INT_MIN), "\n\t<Int value=\"-2147483648\"/>");
  EXPECT_EQ(SubElement(4294967295u), "\n\t<Int value=\"4294967295\"/>");
  EXPECT_EQ(SubElement(true), "\n\t<Int value=\"1\"/>");
  EXPECT_EQ(SubElement(false), "\n\t<Int value=\"0\"/>");
  EXPECT_EQ(SubElement(5L), "\n\t<Long value=\"5\"/>");
  EXPECT_EQ(SubElement(-2147483647L), "\n\t<Long value=\"-2147483647\"/>");
}

TEST(XMLObj, Doubles) {
  EXPECT_EQ(SubElement(0.5), "\n\t<Double value=\"0.5\"/>");
  EXPECT_EQ(SubElement(1.0 / 3.0), "\n\t<Double value=\"0.333333333333333\"/>");
  EXPECT_EQ(SubElement(1e15), "\n\t<Double value=\"1e+15\"/>");
  EXPECT_EQ(SubElement(DBL_MAX), "\n\t<Double value=\"1.79769313486232e+308\"/>");
}

TEST(XMLObj, TheMissingValueHasItsWord) {
  EXPECT_EQ(SubElement(QVCommon_940::QVMV::Missing()), "\n\t<Double value=\"Missing\"/>");
}

TEST(XMLObj, NumbersThatAreNotFiniteComeOutAsTheStreamWritesThem) {
  EXPECT_EQ(SubElement(std::numeric_limits<double>::quiet_NaN()), "\n\t<Double value=\"nan\"/>");
  EXPECT_EQ(SubElement(std::numeric_limits<double>::infinity()), "\n\t<Double value=\"inf\"/>");
  EXPECT_EQ(SubElement(-std::numeric_limits<double>::infinity()), "\n\t<Double value=\"-inf\"/>");
}

TEST(XMLObj, Strings) {
  EXPECT_EQ(SubElement(std::string("text")), "\n\t<String value=\"text\"/>");
  EXPECT_EQ(SubElement(std::string()), "\n\t<String value=\"\"/>");
  EXPECT_EQ(SubElement(std::string("a&b  c\t\"")),
            "\n\t<String value=\"a&amp;b &#32;c&#9;&quot;\"/>");
}

TEST(XMLObj, AStringLiteralIsAString) {
  std::ostringstream out;
  XMLObj("A", 0).WriteSubElement(out, "text");
  EXPECT_EQ(out.str(), "\n\t<String value=\"text\"/>");
  const char * const nothing = nullptr;
  EXPECT_EQ(SubElement(nothing), "\n\t<String value=\"\"/>");
}

TEST(XMLObj, BytesPassWithoutConversion) {
  EXPECT_EQ(SubElement(std::string("\xE9\xFF")), "\n\t<String value=\"\xE9\xFF\"/>");
}

TEST(XMLObj, ResultIsZeroOnABrokenStream) {
  std::ostringstream out;
  out.setstate(std::ios::badbit);
  const XMLObj object("A", 0);
  EXPECT_EQ(object.StartObj(out), 0);
  EXPECT_EQ(object.WriteSubElement(out, 0.5), 0);
  EXPECT_EQ(object.EndObj(out), 0);
  EXPECT_EQ(out.str(), "");
}

TEST(XMLObj, NumbersDoNotChangeWithTheLocale) {
  const TestLocale german("de_DE.UTF-8");
  ASSERT_TRUE(german.IsSet()) << german.Help();
  EXPECT_EQ(SubElement(0.5), "\n\t<Double value=\"0.5\"/>");
  EXPECT_EQ(SubElement(1234567), "\n\t<Int value=\"1234567\"/>");
}

TEST(XMLObj, AWholeFile) {
  std::ostringstream out;
  out << "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n"
      << "<!DOCTYPE QVXMLRoot SYSTEM \"savexml.dtd\">\n";
  WriteHeader(out, "2024");
  const XMLObj outer("Outer", 1);
  outer.StartObj(out);
  outer.WriteSubElement(out, 5);
  const XMLObj inner("Inner", outer.GetNTabs() + 1);
  inner.StartObj(out);
  inner.WriteSubElement(out, "text");
  inner.EndObj(out);
  outer.EndObj(out);
  EndHeader(out);
  EXPECT_EQ(out.str(),
            "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n"
            "<!DOCTYPE QVXMLRoot SYSTEM \"savexml.dtd\">\n"
            "<QVXMLRoot copyright=\"2024\">\n"
            "\t<Obj name=\"Outer\">\n"
            "\t\t<Int value=\"5\"/>\n"
            "\t\t<Obj name=\"Inner\">\n"
            "\t\t\t<String value=\"text\"/>\n"
            "\t\t</Obj>\n"
            "\t</Obj>\n"
            "</QVXMLRoot>");
}
