#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "IQVEncoder.h"
#include "QVCatVar.h"
#include "QVPMMLExporter.h"
#include "QVVarList.h"
#include "export_test_help.h"

namespace {

using namespace QVXML_940;
using export_test::kExtender;
using export_test::StopAtQuestion;
using export_test::StopOnce;
using export_test::Text;
using QVCommon_940::QVPMMLExporter;
using QVCommon_940::QVStatus;

using Strings = std::vector<std::string>;
using Numbers = std::vector<double>;

constexpr double kLargest = std::numeric_limits<double>::max();

struct Result {
  QVStatus status;
  std::string text;
};

Result Export(const QVVarList & variables, const std::vector<int> & indices = {},
              QVCommon_940::QVQueryCancel * query = nullptr) {
  XMLElement * dictionary = nullptr;
  QVPMMLExporter exporter(query);
  const QVStatus status = exporter.ExportDataDictionary(variables, indices, dictionary);
  const std::unique_ptr<XMLElement> owned(dictionary);
  return {status, Text(dictionary)};
}

/// The dictionary around fields.
std::string Dictionary(int count, const std::string & fields) {
  const std::string number = " numberOfFields=\"" + std::to_string(count) + "\"";
  if (fields.empty()) return "<DataDictionary" + number + "/>";
  return "<DataDictionary" + number + ">" + fields + "</DataDictionary>";
}

std::string Extension(const std::string & name, const std::string & value) {
  return "<Extension " + kExtender + " name=\"" + name + "\" value=\"" + value + "\"/>";
}

QVCatVar & CategoricalAt(QVVarList & variables, int i) {
  return dynamic_cast<QVCatVar &>(*variables.GetVarAt(i));
}

TEST(ExportDataDictionary, EmptyListHasNoFields) {
  const Result result = Export(QVVarList());
  EXPECT_TRUE(result.status.IsOK());
  EXPECT_EQ(result.text, Dictionary(0, ""));
}

TEST(ExportDataDictionary, ContinuousField) {
  QVVarList variables;
  variables.AddContVar("income", "Income, yearly", VariableRoleInput);
  EXPECT_EQ(Export(variables).text,
            Dictionary(1,
                       "<DataField name=\"income\" displayName=\"Income, yearly\""
                       " optype=\"continuous\" dataType=\"double\"/>"));
}

TEST(ExportDataDictionary, EmptyLabelIsLeftOut) {
  QVVarList variables;
  variables.AddContVar("x", "", VariableRoleInput);
  EXPECT_EQ(Export(variables).text,
            Dictionary(1, "<DataField name=\"x\" optype=\"continuous\" dataType=\"double\"/>"));
}

TEST(ExportDataDictionary, FrequencyWeightIsContinuous) {
  QVVarList variables;
  variables.SetWeightVar("w", "", WRoundingAsIs);
  EXPECT_EQ(Export(variables).text,
            Dictionary(1, "<DataField name=\"w\" optype=\"continuous\" dataType=\"double\"/>"));
}

TEST(ExportDataDictionary, DataTypeOfEachStorage) {
  const struct {
    int storage;
    const char * dataType;
  } rows[] = {{0, "double"},
              {1, "integer"},
              {2, "double"},
              {3, "string"},
              {4, "dateDaysSince[1970]"},
              {5, "timeSeconds"},
              {6, "dateTimeSecondsSince[1970]"},
              {7, "double"},
              {-1, "double"}};
  for (const auto & row : rows) {
    QVVarList variables;
    variables.AddContVar("x", "", VariableRoleInput);
    variables.GetVarAt(0)->SetVariableStorage(static_cast<VariableStorage>(row.storage));
    EXPECT_EQ(Export(variables).text,
              Dictionary(1, std::string("<DataField name=\"x\" optype=\"continuous\" dataType=\"") +
                                row.dataType + "\"/>"))
        << row.storage;
  }
}

TEST(ExportDataDictionary, StringCategories) {
  QVVarList variables;
  variables.AddCatVar("sex", "", Strings{"f", "m"}, VariableRoleInput);
  EXPECT_EQ(Export(variables).text,
            Dictionary(1,
                       "<DataField name=\"sex\" optype=\"categorical\" dataType=\"double\">"
                       "<Value value=\"f\" property=\"valid\"/>"
                       "<Value value=\"m\" property=\"valid\"/></DataField>"));
}

TEST(ExportDataDictionary, NumericCategoriesWithLabels) {
  QVVarList variables;
  variables.AddCatVar("size", "", Numbers{2.0, 0.5}, Strings{"large", ""}, VariableRoleInput);
  variables.GetVarAt(0)->SetVariableStorage(VariableStorageReal);
  EXPECT_EQ(Export(variables).text,
            Dictionary(1,
                       "<DataField name=\"size\" optype=\"categorical\" dataType=\"double\">"
                       "<Value value=\"2\" displayValue=\"large\" property=\"valid\"/>"
                       "<Value value=\"0.5\" property=\"valid\"/></DataField>"));
}

TEST(ExportDataDictionary, FewerLabelsThanCategories) {
  QVVarList variables;
  variables.AddCatVar("c", "", Strings{"a", "b"}, Strings{"A"}, VariableRoleInput);
  EXPECT_EQ(Export(variables).text,
            Dictionary(1,
                       "<DataField name=\"c\" optype=\"categorical\" dataType=\"double\">"
                       "<Value value=\"a\" displayValue=\"A\" property=\"valid\"/>"
                       "<Value value=\"b\" property=\"valid\"/></DataField>"));
}

TEST(ExportDataDictionary, LabelsCountOnlyWhenVariableAndEncoderAgreeOnTheCategories) {
  QVVarList variables;
  variables.AddCatVar("c", "", Strings{"a", "b"}, Strings{"A", "B"}, VariableRoleInput);
  CategoricalAt(variables, 0).SetNumberOfCategories(3);
  EXPECT_EQ(Export(variables).text,
            Dictionary(1,
                       "<DataField name=\"c\" optype=\"categorical\" dataType=\"double\">"
                       "<Value value=\"a\" property=\"valid\"/>"
                       "<Value value=\"b\" property=\"valid\"/></DataField>"));
}

TEST(ExportDataDictionary, OrdinalFlag) {
  for (int level : {2, 3}) {
    QVVarList variables;
    variables.AddCatVar("c", "", 0, static_cast<MeasureLevel>(level), VariableRoleInput);
    CategoricalAt(variables, 0).SetOrdinalFlag(true);
    EXPECT_EQ(Export(variables).text,
              Dictionary(1, "<DataField name=\"c\" optype=\"ordinal\" dataType=\"double\"/>"));
  }
}

TEST(ExportDataDictionary, UnknownLevelHasNoOpTypeAndNoValidValues) {
  QVVarList variables;
  variables.AddCatVar("c", "", 0, MeasureLevelUnknown, VariableRoleInput);
  CategoricalAt(variables, 0).SetOrdinalFlag(true);
  CategoricalAt(variables, 0).SetBinaryFlag(true, 0);
  variables.GetEncoderAt(0)->Encode(std::string("blank "));
  variables.GetEncoderAt(0)->AddDiscreteUserMissing(std::string("?"), "");
  EXPECT_EQ(Export(variables).text,
            Dictionary(1,
                       "<DataField name=\"c\" dataType=\"double\">"
                       "<Value value=\"?\" property=\"missing\"/></DataField>"));
}

TEST(ExportDataDictionary, NumericFlagTellsItsTrueValue) {
  QVVarList variables;
  variables.AddCatVar("b", "", Numbers{0.0, 1.0}, VariableRoleInput);
  CategoricalAt(variables, 0).SetBinaryFlag(true, 1);
  EXPECT_EQ(Export(variables).text,
            Dictionary(1, "<DataField name=\"b\" optype=\"categorical\" dataType=\"double\">" +
                              Extension("flagTypeTrueValue", "1") +
                              "<Value value=\"0\" property=\"valid\"/>"
                              "<Value value=\"1\" property=\"valid\"/></DataField>"));
}

TEST(ExportDataDictionary, StringFlagTellsItsTrueValue) {
  QVVarList variables;
  variables.AddCatVar("b", "", Strings{"yes", "no"}, VariableRoleInput);
  CategoricalAt(variables, 0).SetBinaryFlag(true, 0);
  EXPECT_EQ(Export(variables).text,
            Dictionary(1, "<DataField name=\"b\" optype=\"categorical\" dataType=\"double\">" +
                              Extension("flagTypeTrueValue", "yes") +
                              "<Value value=\"yes\" property=\"valid\"/>"
                              "<Value value=\"no\" property=\"valid\"/></DataField>"));
}

TEST(ExportDataDictionary, AFlagThatIsOffTellsNothing) {
  QVVarList variables;
  variables.AddCatVar("b", "", Numbers{0.0}, VariableRoleInput);
  CategoricalAt(variables, 0).SetBinaryFlag(true, 0);
  CategoricalAt(variables, 0).SetBinaryFlag(false, 0);
  EXPECT_EQ(Export(variables).text,
            Dictionary(1,
                       "<DataField name=\"b\" optype=\"categorical\" dataType=\"double\">"
                       "<Value value=\"0\" property=\"valid\"/></DataField>"));
}

TEST(ExportDataDictionary, ATrueValueThatNoCategoryHasIsEmpty) {
  QVVarList variables;
  variables.AddCatVar("b", "", Strings{"no"}, VariableRoleInput);
  CategoricalAt(variables, 0).SetBinaryFlag(true, 1);
  EXPECT_EQ(Export(variables).text,
            Dictionary(1, "<DataField name=\"b\" optype=\"categorical\" dataType=\"double\">" +
                              Extension("flagTypeTrueValue", "") +
                              "<Value value=\"no\" property=\"valid\"/></DataField>"));
}

TEST(ExportDataDictionary, OneTrimExtensionForCategoriesThatEndInABlank) {
  QVVarList variables;
  variables.AddCatVar("c", "", Strings{"", " ab", "ab ", "cd "}, VariableRoleInput);
  EXPECT_EQ(Export(variables).text,
            Dictionary(1, "<DataField name=\"c\" optype=\"categorical\" dataType=\"double\">" +
                              Extension("noSpaceTrim", "true") +
                              "<Value value=\"\" property=\"valid\"/>"
                              "<Value value=\"&#32;ab\" property=\"valid\"/>"
                              "<Value value=\"ab&#32;\" property=\"valid\"/>"
                              "<Value value=\"cd&#32;\" property=\"valid\"/></DataField>"));
}

TEST(ExportDataDictionary, LeadingBlanksAndEmptyCategoriesNeedNoTrimExtension) {
  QVVarList variables;
  variables.AddCatVar("c", "", Strings{"", " a", "b\t"}, VariableRoleInput);
  EXPECT_EQ(Export(variables).text,
            Dictionary(1,
                       "<DataField name=\"c\" optype=\"categorical\" dataType=\"double\">"
                       "<Value value=\"\" property=\"valid\"/>"
                       "<Value value=\"&#32;a\" property=\"valid\"/>"
                       "<Value value=\"b&#9;\" property=\"valid\"/></DataField>"));
}

TEST(ExportDataDictionary, FlagExtensionStandsBeforeTrimExtension) {
  QVVarList variables;
  variables.AddCatVar("c", "", Strings{"y "}, VariableRoleInput);
  CategoricalAt(variables, 0).SetBinaryFlag(true, 0);
  EXPECT_EQ(Export(variables).text,
            Dictionary(1, "<DataField name=\"c\" optype=\"categorical\" dataType=\"double\">" +
                              Extension("flagTypeTrueValue", "y&#32;") +
                              Extension("noSpaceTrim", "true") +
                              "<Value value=\"y&#32;\" property=\"valid\"/></DataField>"));
}

TEST(ExportDataDictionary, ContinuousFieldWithMissingValues) {
  QVVarList variables;
  variables.AddContVar("x", "", VariableRoleInput);
  variables.GetEncoderAt(0)->AddDiscreteUserMissing(99.0, "refused");
  variables.GetEncoderAt(0)->AddDiscreteUserMissing(-1.5, "");
  EXPECT_EQ(Export(variables).text,
            Dictionary(1,
                       "<DataField name=\"x\" optype=\"continuous\" dataType=\"double\">"
                       "<Value value=\"99\" displayValue=\"refused\" property=\"missing\"/>"
                       "<Value value=\"-1.5\" property=\"missing\"/></DataField>"));
}

TEST(ExportDataDictionary, WeightWithAMissingValue) {
  QVVarList variables;
  variables.SetWeightVar("w", "", WRoundingAsIs);
  variables.GetEncoderAt(0)->AddDiscreteUserMissing(9.0, "");
  EXPECT_EQ(Export(variables).text,
            Dictionary(1,
                       "<DataField name=\"w\" optype=\"continuous\" dataType=\"double\">"
                       "<Value value=\"9\" property=\"missing\"/></DataField>"));
}

TEST(ExportDataDictionary, NumberBeyondTheFiniteRangeLeavesTheValueOut) {
  QVVarList variables;
  variables.AddContVar("x", "", VariableRoleInput);
  variables.GetEncoderAt(0)->AddDiscreteUserMissing(std::numeric_limits<double>::infinity(), "inf");
  EXPECT_EQ(Export(variables).text,
            Dictionary(1,
                       "<DataField name=\"x\" optype=\"continuous\" dataType=\"double\">"
                       "<Value displayValue=\"inf\" property=\"missing\"/></DataField>"));
}

TEST(ExportDataDictionary, MissingStringsStandBehindTheCategories) {
  QVVarList variables;
  variables.AddCatVar("c", "", Strings{"a"}, VariableRoleInput);
  variables.GetEncoderAt(0)->AddDiscreteUserMissing(std::string("n/a"), "not asked");
  EXPECT_EQ(Export(variables).text,
            Dictionary(1,
                       "<DataField name=\"c\" optype=\"categorical\" dataType=\"double\">"
                       "<Value value=\"a\" property=\"valid\"/>"
                       "<Value value=\"n/a\" displayValue=\"not asked\" property=\"missing\"/>"
                       "</DataField>"));
}

TEST(ExportDataDictionary, MissingNumbersOfANumericCategory) {
  QVVarList variables;
  variables.AddCatVar("c", "", Numbers{1.0}, VariableRoleInput);
  variables.GetEncoderAt(0)->AddDiscreteUserMissing(9.0, "dk");
  EXPECT_EQ(Export(variables).text,
            Dictionary(1,
                       "<DataField name=\"c\" optype=\"categorical\" dataType=\"double\">"
                       "<Value value=\"1\" property=\"valid\"/>"
                       "<Value value=\"9\" displayValue=\"dk\" property=\"missing\"/>"
                       "</DataField>"));
}

std::string RangeExtension(const std::string & name, const std::string & value) {
  return "<Extension name=\"" + name + "\" value=\"" + value + "\" " + kExtender + "/>";
}

TEST(ExportDataDictionary, MissingIntervalGivesBothBounds) {
  QVVarList variables;
  variables.AddContVar("x", "", VariableRoleInput);
  variables.GetEncoderAt(0)->SetMissingInterval(-1.0, 0.25);
  EXPECT_EQ(Export(variables).text,
            Dictionary(1, "<DataField name=\"x\" optype=\"continuous\" dataType=\"double\">" +
                              RangeExtension("invalidRangeLower", "-1") +
                              RangeExtension("invalidRangeUpper", "0.25") + "</DataField>"));
}

TEST(ExportDataDictionary, BoundsAtTheEndsOfTheDoublesAreLeftOut) {
  QVVarList variables;
  variables.AddContVar("below", "", VariableRoleInput);
  variables.AddContVar("above", "", VariableRoleInput);
  variables.AddContVar("all", "", VariableRoleInput);
  variables.GetEncoderAt(0)->SetMissingInterval(-kLargest, 3.0);
  variables.GetEncoderAt(1)->SetMissingInterval(3.0, kLargest);
  variables.GetEncoderAt(2)->SetMissingInterval(-kLargest, kLargest);
  EXPECT_EQ(
      Export(variables).text,
      Dictionary(3, "<DataField name=\"below\" optype=\"continuous\" dataType=\"double\">" +
                        RangeExtension("invalidRangeUpper", "3") +
                        "</DataField>"
                        "<DataField name=\"above\" optype=\"continuous\" dataType=\"double\">" +
                        RangeExtension("invalidRangeLower", "3") +
                        "</DataField>"
                        "<DataField name=\"all\" optype=\"continuous\" dataType=\"double\"/>"));
}

// The order that PMML's own schema does not know; the header warns of it.
TEST(ExportDataDictionary, RangeExtensionsStandLastEvenBehindValues) {
  QVVarList variables;
  variables.AddContVar("x", "", VariableRoleInput);
  variables.GetEncoderAt(0)->AddDiscreteUserMissing(9.0, "");
  variables.GetEncoderAt(0)->SetMissingInterval(20.0, 30.0);
  EXPECT_EQ(Export(variables).text,
            Dictionary(1,
                       "<DataField name=\"x\" optype=\"continuous\" dataType=\"double\">"
                       "<Value value=\"9\" property=\"missing\"/>" +
                           RangeExtension("invalidRangeLower", "20") +
                           RangeExtension("invalidRangeUpper", "30") + "</DataField>"));
}

// --- Which variables, and how it ends
// -------------------------------------------------------------

QVVarList ThreeVariables() {
  QVVarList variables;
  variables.AddContVar("a", "", VariableRoleInput);
  variables.AddContVar("b", "", VariableRoleUnused);
  variables.AddContVar("c", "", VariableRoleTarget);
  return variables;
}

std::string Field(const std::string & name) {
  return "<DataField name=\"" + name + "\" optype=\"continuous\" dataType=\"double\"/>";
}

TEST(ExportDataDictionary, WithoutIndicesUnusedVariablesAreLeftOut) {
  EXPECT_EQ(Export(ThreeVariables()).text, Dictionary(2, Field("a") + Field("c")));
}

TEST(ExportDataDictionary, IndicesAreTakenInTheirOrderUnusedAndRepeatedOnesToo) {
  EXPECT_EQ(Export(ThreeVariables(), {2, 1, 2}).text,
            Dictionary(3, Field("c") + Field("b") + Field("c")));
}

TEST(ExportDataDictionary, AnIndexOutOfRangeEndsTheListWithCode101) {
  for (int bad : {-1, 3, 1000}) {
    const Result result = Export(ThreeVariables(), {0, bad, 2});
    EXPECT_EQ(result.status.GetErrorCode(), 101);
    EXPECT_TRUE(result.status.IsError());
    EXPECT_EQ(result.status.GetDiscreteDatum(0), bad);
    EXPECT_EQ(result.text, Dictionary(1, Field("a")));
  }
}

TEST(ExportDataDictionary, AsksOnceBeforeEachVariableAndOnceAtTheEnd) {
  StopAtQuestion never(1000);
  EXPECT_TRUE(Export(ThreeVariables(), {0, 1, 2}, &never).status.IsOK());
  EXPECT_EQ(never.questions, 4);
}

TEST(ExportDataDictionary, CancelGivesCode1AndNothingElse) {
  for (int question : {1, 2, 3, 4}) {
    StopAtQuestion query(question);
    const Result result = Export(ThreeVariables(), {0, 1, 2}, &query);
    EXPECT_EQ(result.status.GetErrorCode(), 1) << question;
    EXPECT_TRUE(result.status.IsError());
    EXPECT_EQ(result.text, "(null)");
  }
}

TEST(ExportDataDictionary, CancelSetsThePointerToNull) {
  StopAtQuestion query(1);
  const std::unique_ptr<XMLElement> other(XMLElement::Create("other"));
  XMLElement * dictionary = other.get();
  QVPMMLExporter(&query).ExportDataDictionary(ThreeVariables(), {}, dictionary);
  EXPECT_EQ(dictionary, nullptr);
}

TEST(ExportDataDictionary, AStopIsRememberedWhateverTheQueryAnswersLater) {
  StopOnce query(2);
  const Result result = Export(ThreeVariables(), {0, 1, 2}, &query);
  EXPECT_EQ(result.status.GetErrorCode(), 1);
  EXPECT_EQ(result.text, "(null)");
}

TEST(ExportDataDictionary, CancelTakesThePlaceOfAnError) {
  StopAtQuestion query(3);  // before index 0, before index 9, at the end
  const Result result = Export(ThreeVariables(), {0, 9}, &query);
  EXPECT_EQ(query.questions, 3);
  EXPECT_EQ(result.status.GetErrorCode(), 1);
  EXPECT_EQ(result.status.GetDiscreteDatum(0), 0);
  EXPECT_EQ(result.text, "(null)");
}

TEST(ExportDataDictionary, OneExporterServesManyCalls) {
  StopOnce query(1);
  QVPMMLExporter exporter(&query);
  const QVVarList variables = ThreeVariables();
  XMLElement * dictionary = nullptr;
  EXPECT_EQ(exporter.ExportDataDictionary(variables, {}, dictionary).GetErrorCode(), 1);
  EXPECT_TRUE(exporter.ExportDataDictionary(variables, {}, dictionary).IsOK());
  const std::unique_ptr<XMLElement> owned(dictionary);
  EXPECT_EQ(Text(dictionary), Dictionary(2, Field("a") + Field("c")));
}

TEST(ExportDataDictionary, AnAssignedExporterAsksTheSameQuery) {
  StopAtQuestion query(1);
  QVPMMLExporter exporter;
  exporter = QVPMMLExporter(&query);
  XMLElement * dictionary = nullptr;
  EXPECT_EQ(exporter.ExportDataDictionary(QVVarList(), {}, dictionary).GetErrorCode(), 1);
  EXPECT_EQ(query.questions, 1);
}

}  // namespace
