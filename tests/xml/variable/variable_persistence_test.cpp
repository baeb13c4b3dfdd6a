// Variables through the persistence format, against texts written by hand.
#include <gtest/gtest.h>

#include <limits>

#include "QVCatVar.h"
#include "QVContEncoder.h"
#include "QVContVar.h"
#include "QVMV.h"
#include "QVStringEncoder.h"
#include "QVWeightVar.h"
#include "XMLElement.h"
#include "variable_test_tools.h"

namespace {

using namespace QVXML_940;
using namespace variable_test;
using QVCommon_940::QVMV;
using Numbers = std::vector<double>;

// --- Categorical ------------------------------------------------------------------------------

const std::string kCatText =
    "\n\t<Obj name=\"QVCatVar\">"
    "\n\t\t<String value=\"colour\"/>"
    "\n\t\t<String value=\"The colour\"/>"
    "\n\t\t<Int value=\"4\"/>"
    "\n\t\t<Int value=\"3\"/>"
    "\n\t\t<Int value=\"5\"/>"
    "\n\t\t<Int value=\"3\"/>"
    "\n\t\t<Int value=\"1\"/>"
    "\n\t\t<Int value=\"1\"/>"
    "\n\t\t<Int value=\"0\"/>"
    "\n\t\t<Int value=\"1\"/>"
    "\n\t\t<String value=\"red\"/>"
    "\n\t\t<Int value=\"3\"/>"
    "\n\t\t<Obj name=\"QVStringEncoder\">"
    "\n\t\t\t<Int value=\"1\"/>"
    "\n\t\t\t<String value=\"red\"/>"
    "\n\t\t\t<Int value=\"0\"/>"
    "\n\t\t\t<Int value=\"0\"/>"
    "\n\t\t</Obj>"
    "\n\t</Obj>";

QVCatVar FullCat() {
  QVCatVar variable("colour", "The colour", Numbers{3, 4}, 5, MeasureLevelStringCategorical,
                    VariableRoleInput, true);
  variable.SetVariableStorage(VariableStorageString);
  variable.SetBinaryFlag(true, 0);
  variable.SetFlagVariable(true);
  variable.SetMissingValueReplacement("red");
  variable.GetEncoder()->Encode("red");
  variable.SetFieldFormatElement(XMLElement::Create("format"));
  return variable;
}

QVCatVar BlankCat() {
  return QVCatVar(" ", "", 0, MeasureLevelNumericCategorical, VariableRoleUndefined, false);
}

TEST(CatVarPersistence, Text) {
  const Output output = Write(FullCat(), 1);
  EXPECT_EQ(output.text, kCatText);
  EXPECT_EQ(output.lines, 20);
}

TEST(CatVarPersistence, Read) {
  QVCatVar variable = BlankCat();
  EXPECT_EQ(Read(variable, kCatText), 20);
  EXPECT_EQ(variable.GetVariableName(), "colour");
  EXPECT_EQ(variable.GetVariableLabel(), "The colour");
  EXPECT_EQ(variable.GetVariableRole(), 4);
  EXPECT_EQ(variable.GetVariableStorage(), 3);
  EXPECT_EQ(variable.GetNumberOfCategories(), 5);
  EXPECT_EQ(variable.GetMeasureLevel(), 3);
  EXPECT_TRUE(variable.GetOrdinalFlag());
  EXPECT_TRUE(variable.GetBinaryFlag());
  EXPECT_EQ(variable.GetBinaryFlagTrueIndex(), 0);
  EXPECT_EQ(*variable.GetMissingValueReplacement(), "red");
  EXPECT_EQ(variable.GetEncoder()->Decode(0), "red");
  Numbers sums;
  EXPECT_FALSE(variable.GetSumFreqWts(sums));
  EXPECT_FALSE(variable.IsFlagVariable());
  EXPECT_EQ(variable.GetFieldFormatElement(), nullptr);
  EXPECT_EQ(Write(variable, 1).text, kCatText);
}

TEST(CatVarPersistence, WhatIsNotKeptStaysAsItWas) {
  QVCatVar variable = FullCat();
  Read(variable, kCatText);
  Numbers sums;
  EXPECT_TRUE(variable.GetSumFreqWts(sums));
  EXPECT_TRUE(variable.IsFlagVariable());
  EXPECT_NE(variable.GetFieldFormatElement(), nullptr);
}

TEST(CatVarPersistence, WithoutReplacementOneLineFewer) {
  QVCatVar written("x", "", 0, MeasureLevelNumericCategorical, VariableRoleInput, false);
  const Output output = Write(written, 0);
  EXPECT_EQ(output.lines, 19);  // 13 and the empty encoder's 6
  QVCatVar variable = FullCat();
  EXPECT_EQ(Read(variable, output.text), 19);
  EXPECT_EQ(variable.GetMissingValueReplacement(), nullptr);
  EXPECT_EQ(variable.GetEncoder()->GetEncoderType(), 2);
}

TEST(CatVarPersistence, ACountLargerThanTheFileIsNoListAndReads) {
  const QVCatVar written("x", "", 2000000, MeasureLevelStringCategorical, VariableRoleInput, false);
  QVCatVar variable = BlankCat();
  EXPECT_EQ(Read(variable, Write(written, 0).text), 18);
  EXPECT_EQ(variable.GetNumberOfCategories(), 2000000);
}

TEST(CatVarPersistence, ANegativeCountIsRefused) {
  const QVCatVar written("x", "", -1, MeasureLevelStringCategorical, VariableRoleInput, false);
  QVCatVar variable = BlankCat();
  EXPECT_EQ(TryRead(variable, Write(written, 0).text).error, "Failure reading QVCatVar!\n");
}

TEST(CatVarPersistence, WithoutEncoderItIsWrittenButNotRead) {
  QVCatVar written = FullCat();
  written.ChangeEncoder(nullptr);
  const Output output = Write(written, 0);
  EXPECT_EQ(output.lines, 14);
  EXPECT_NE(output.text.find("<Int value=\"0\"/>\n</Obj>"), std::string::npos);
  QVCatVar variable = BlankCat();
  const Attempt attempt = TryRead(variable, output.text);
  EXPECT_TRUE(attempt.failed);
  EXPECT_EQ(attempt.error, "Failure reading QVCatVar!\n");
  EXPECT_EQ(variable.GetEncoder(), nullptr);
}

TEST(CatVarPersistence, AnotherEncoderIsRefused) {
  QVCatVar written = FullCat();
  written.ChangeEncoder(new QVContEncoder);
  QVCatVar variable = BlankCat();
  const Attempt attempt = TryRead(variable, Write(written, 0).text);
  EXPECT_TRUE(attempt.failed);
  EXPECT_EQ(attempt.error, "Failure reading QVCatVar!\n");
  EXPECT_EQ(attempt.output, "");
}

TEST(CatVarPersistence, TheEncodersLineComesFirst) {
  QVCatVar variable = BlankCat();
  const Attempt attempt = TryRead(
      variable, Changed(kCatText, "QVStringEncoder", "<Int value=\"1\"/>", "<Int value=\"-1\"/>"));
  EXPECT_TRUE(attempt.failed);
  EXPECT_EQ(attempt.error, "Failure reading QVStringEncoder!\nFailure reading QVCatVar!\n");
  EXPECT_EQ(variable.GetEncoder(), nullptr);
  EXPECT_EQ(variable.GetVariableName(), "colour");
}

TEST(CatVarPersistence, AFailedStartLeavesTheVariable) {
  QVCatVar variable = FullCat();
  EXPECT_TRUE(TryRead(variable, "<Obj name=\"QVContVar\">\n").failed);
  EXPECT_EQ(variable.GetEncoder()->GetNumberOfCategories(), 1);
}

TEST(CatVarPersistence, Truncated) {
  ExpectEveryTruncationFails(kCatText, BlankCat, "Failure reading QVCatVar!\n");
}

// --- Continuous -------------------------------------------------------------------------------

const std::string kContText =
    "\n<Obj name=\"QVContVar\">"
    "\n\t<String value=\"age\"/>"
    "\n\t<String value=\"\"/>"
    "\n\t<Int value=\"1\"/>"
    "\n\t<Int value=\"3\"/>"
    "\n\t<Double value=\"Missing\"/>"
    "\n\t<Double value=\"1.79769313486232e+308\"/>"
    "\n\t<Double value=\"38.5\"/>"
    "\n\t<Double value=\"0.1\"/>"
    "\n\t<Int value=\"0\"/>"
    "\n\t<Int value=\"1\"/>"
    "\n\t<String value=\"40\"/>"
    "\n\t<Double value=\"100\"/>"
    "\n\t<Double value=\"99.5\"/>"
    "\n\t<Int value=\"1\"/>"
    "\n\t<Obj name=\"QVContEncoder\">"
    "\n\t\t<Int value=\"3\"/>"
    "\n\t\t<Int value=\"0\"/>"
    "\n\t\t<Int value=\"0\"/>"
    "\n\t</Obj>"
    "\n</Obj>";

QVContVar FullCont() {
  QVContVar variable("age", "", Numbers{1, 2}, true, VariableRoleTarget);
  variable.SetMean(38.5);
  variable.SetStdDev(0.1);
  variable.SetMissingValueReplacement("40");
  variable.SetSumFreqWts(100);
  variable.SetSumCompWts(99.5);
  variable.SetOutlierHandleMethod(static_cast<OutlierHandleMethod>(2));
  return variable;
}

TEST(ContVarPersistence, Text) {
  const Output output = Write(FullCont(), 0);
  EXPECT_EQ(output.text, kContText);
  EXPECT_EQ(output.lines, 21);
}

TEST(ContVarPersistence, Read) {
  QVContVar variable;
  EXPECT_EQ(Read(variable, kContText), 21);
  EXPECT_EQ(variable.GetVariableName(), "age");
  EXPECT_EQ(variable.GetVariableRole(), 1);
  EXPECT_EQ(variable.GetVariableStorage(), 0);
  EXPECT_EQ(variable.GetNBins(), 3);
  EXPECT_EQ(variable.GetMin(), QVMV::Missing());
  EXPECT_EQ(variable.GetMax(), std::numeric_limits<double>::max());
  EXPECT_EQ(variable.GetMean(), 38.5);
  EXPECT_EQ(variable.GetStdDev(), 0.1);
  EXPECT_EQ(*variable.GetMissingValueReplacement(), "40");
  EXPECT_EQ(variable.GetSumFreqWts(), 100);
  EXPECT_EQ(variable.GetSumCompWts(), 99.5);
  EXPECT_TRUE(variable.GetCutPoints().empty());
  EXPECT_EQ(variable.GetOutlierHandleMethod(), 0);
  EXPECT_EQ(variable.GetNumberOfCategories(), 3);
  EXPECT_EQ(Write(variable, 0).text, kContText);
}

TEST(ContVarPersistence, DefaultRoundTrip) {
  const QVContVar written;
  const Output output = Write(written, 0);
  EXPECT_EQ(output.lines, 20);
  QVContVar variable = FullCont();
  EXPECT_EQ(Read(variable, output.text), 20);
  EXPECT_EQ(variable.GetNBins(), -1);
  EXPECT_EQ(variable.GetMean(), QVMV::Missing());
  EXPECT_EQ(variable.GetMissingValueReplacement(), nullptr);
  EXPECT_EQ(variable.GetCutPoints(), (Numbers{1, 2}));  // not kept in the file: as it was
  EXPECT_EQ(variable.GetOutlierHandleMethod(), 2);
}

const std::string kNoEncoderText =
    kContText.substr(0, kContText.find("\n\t<Int value=\"1\"/>\n\t<Obj")) +
    "\n\t<Int value=\"0\"/>\n</Obj>";

TEST(ContVarPersistence, WithoutEncoder) {
  QVContVar variable;
  EXPECT_EQ(Read(variable, kNoEncoderText), 16);
  EXPECT_EQ(variable.GetEncoder(), nullptr);
  EXPECT_EQ(variable.GetNumberOfCategories(), 3);
  EXPECT_EQ(variable.UpdateNumberOfCategories(), 3);
  const Output output = Write(variable, 0);
  EXPECT_EQ(output.text, kNoEncoderText);
  EXPECT_EQ(output.lines, 16);
  const QVContVar copy(variable);
  EXPECT_EQ(copy.GetEncoder(), nullptr);
  EXPECT_NE(Shown(copy).find("\nEncoder not set\nfSumFreqWts = 100"), std::string::npos);
}

TEST(ContVarPersistence, WrongEncoderType) {
  for (const char * type : {"2", "3", "4", "-1"}) {
    QVContVar variable;
    const Attempt attempt =
        TryRead(variable, Changed(kContText, "99.5", "<Int value=\"1\"/>", IntLine(type)));
    EXPECT_TRUE(attempt.failed);
    EXPECT_EQ(attempt.output, "Wrong encoder type in QVContVar!\n");
    EXPECT_EQ(attempt.error, "Failure reading QVContVar!\n");
    EXPECT_EQ(variable.GetEncoder(), nullptr);
  }
}

TEST(ContVarPersistence, TheEncodersLineComesFirst) {
  QVContVar variable;
  const Attempt attempt =
      TryRead(variable, Changed(kContText, "", "QVContEncoder", "QVRoundEncoder"));
  EXPECT_EQ(attempt.error, "Failure reading QVContEncoder!\nFailure reading QVContVar!\n");
}

TEST(ContVarPersistence, Truncated) {
  ExpectEveryTruncationFails(
      kContText, [] { return QVContVar(); }, "Failure reading QVContVar!\n");
  ExpectEveryTruncationFails(kNoEncoderText, FullCont, "Failure reading QVContVar!\n");
}

// --- Weight -----------------------------------------------------------------------------------

const std::string kWeightText =
    "\n<Obj name=\"QVWeightVar\">"
    "\n\t<String value=\"n\"/>"
    "\n\t<String value=\"Cases\"/>"
    "\n\t<Int value=\"1\"/>"
    "\n\t<Obj name=\"QVRoundEncoder\">"
    "\n\t\t<Int value=\"1\"/>"
    "\n\t\t<Int value=\"0\"/>"
    "\n\t\t<Int value=\"0\"/>"
    "\n\t</Obj>"
    "\n</Obj>";

TEST(WeightVarPersistence, TextAndRead) {
  QVWeightVar written("n", "Cases", WRoundingClosest);
  written.SetVariableStorage(VariableStorageInteger);
  const Output output = Write(written, 0);
  EXPECT_EQ(output.text, kWeightText);
  EXPECT_EQ(output.lines, 10);
  QVWeightVar variable("w", "", WRoundingAsIs);
  IQVEncoder const * const encoder = variable.GetEncoder();
  EXPECT_EQ(Read(variable, kWeightText), 10);
  EXPECT_EQ(variable.GetVariableName(), "n");
  EXPECT_EQ(variable.GetVariableLabel(), "Cases");
  EXPECT_EQ(variable.GetVariableStorage(), 1);
  EXPECT_EQ(variable.GetEncoder(), encoder);  // the one it holds
  EXPECT_EQ(encoder->EncodeConst(2.5), 3.0);
}

TEST(WeightVarPersistence, TheEncodersLineComesFirst) {
  QVWeightVar variable("w", "", WRoundingAsIs);
  const Attempt attempt =
      TryRead(variable, Changed(kWeightText, "", "QVRoundEncoder", "QVContEncoder"));
  EXPECT_TRUE(attempt.failed);
  EXPECT_EQ(attempt.error,
            "Failure reading QVRoundEncoder from XML!\nFailure reading QVWeightVar!\n");
  EXPECT_NE(variable.GetEncoder(), nullptr);
}

TEST(WeightVarPersistence, Truncated) {
  ExpectEveryTruncationFails(
      kWeightText, [] { return QVWeightVar("w", "", WRoundingAsIs); },
      "Failure reading QVWeightVar!\n");
}

}  // namespace
