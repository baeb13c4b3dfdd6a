#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "QVCatVar.h"
#include "QVPMMLExporter.h"
#include "QVVarList.h"
#include "export_test_help.h"

namespace {

using namespace QVXML_940;
using export_test::StopAtQuestion;
using export_test::StopOnce;
using export_test::Text;
using QVCommon_940::QVPMMLExporter;
using QVCommon_940::QVStatus;

struct Result {
  QVStatus status;
  std::string text;
};

Result Export(const QVVarList & variables, const std::vector<int> & indices = {},
              QVCommon_940::QVQueryCancel * query = nullptr) {
  XMLElement * model = nullptr;
  QVPMMLExporter exporter(query);
  const QVStatus status = exporter.ExportDataModel(variables, indices, model);
  const std::unique_ptr<XMLElement> owned(model);
  return {status, Text(model)};
}

std::string Model(int count, const std::string & fields, const std::string & formats = "") {
  const std::string head = "<DataModel>" + formats + "<Fields count=\"" + std::to_string(count);
  return head + (fields.empty() ? "\"/></DataModel>" : "\">" + fields + "</Fields></DataModel>");
}

std::string Field(const std::string & name, const std::string & measure,
                  const std::string & role = "input", const std::string & storage = "real") {
  return "<Field name=\"" + name + "\" measure=\"" + measure + "\" storage=\"" + storage +
         "\" role=\"" + role + "\"/>";
}

QVCatVar & CategoricalAt(QVVarList & variables, int i) {
  return dynamic_cast<QVCatVar &>(*variables.GetVarAt(i));
}

TEST(ExportDataModel, EmptyListHasEmptyFields) {
  const Result result = Export(QVVarList());
  EXPECT_TRUE(result.status.IsOK());
  EXPECT_EQ(result.text, Model(0, ""));
}

TEST(ExportDataModel, LabelStandsBehindTheName) {
  QVVarList variables;
  variables.AddContVar("x", "the x", VariableRoleInput);
  EXPECT_EQ(Export(variables).text,
            Model(1,
                  "<Field name=\"x\" displayLabel=\"the x\" measure=\"continuous\""
                  " storage=\"real\" role=\"input\"/>"));
}

TEST(ExportDataModel, StorageNames) {
  const char * const names[] = {"real", "integer", "real",      "string",
                                "date", "time",    "timestamp", "real"};
  for (int storage = 0; storage < 8; ++storage) {
    QVVarList variables;
    variables.AddContVar("x", "", VariableRoleInput);
    variables.GetVarAt(0)->SetVariableStorage(static_cast<VariableStorage>(storage));
    EXPECT_EQ(Export(variables).text, Model(1, Field("x", "continuous", "input", names[storage])));
  }
}

TEST(ExportDataModel, RoleNames) {
  const char * const names[] = {"input", "target", "target",   "freqWeight", "input",
                                "input", "none",   "recordId", "input"};
  for (int role = 0; role < 9; ++role) {
    QVVarList variables;
    variables.AddContVar("x", "", static_cast<VariableRole>(role));
    EXPECT_EQ(Export(variables).text, Model(1, Field("x", "continuous", names[role]))) << role;
  }
}

TEST(ExportDataModel, UnusedVariablesAreNotLeftOut) {
  QVVarList variables;
  variables.AddContVar("x", "", VariableRoleUnused);
  EXPECT_EQ(Export(variables).text, Model(1, Field("x", "continuous", "none")));
}

TEST(ExportDataModel, Weight) {
  QVVarList variables;
  variables.SetWeightVar("w", "", WRoundingAsIs);
  EXPECT_EQ(Export(variables).text, Model(1, Field("w", "continuous", "freqWeight")));
}

TEST(ExportDataModel, MeasuresOfCategories) {
  for (int level : {2, 3}) {
    QVVarList variables;
    variables.AddCatVar("nominal", "", 0, static_cast<MeasureLevel>(level), VariableRoleInput);
    variables.AddCatVar("ordinal", "", 0, static_cast<MeasureLevel>(level), VariableRoleInput);
    variables.AddCatVar("flag", "", 0, static_cast<MeasureLevel>(level), VariableRoleInput);
    variables.AddCatVar("both", "", 0, static_cast<MeasureLevel>(level), VariableRoleInput);
    CategoricalAt(variables, 1).SetOrdinalFlag(true);
    CategoricalAt(variables, 2).SetBinaryFlag(true, 0);
    CategoricalAt(variables, 3).SetOrdinalFlag(true);
    CategoricalAt(variables, 3).SetBinaryFlag(true, 1);
    EXPECT_EQ(Export(variables).text,
              Model(4, Field("nominal", "nominal") + Field("ordinal", "ordinal") +
                           Field("flag", "flag") + Field("both", "flag")));
  }
}

TEST(ExportDataModel, UnknownLevelHasNoMeasure) {
  QVVarList variables;
  variables.AddCatVar("c", "", 0, MeasureLevelUnknown, VariableRoleInput);
  EXPECT_EQ(Export(variables).text,
            Model(1, "<Field name=\"c\" storage=\"real\" role=\"input\"/>"));
}

TEST(ExportDataModel, FormatElementsAreCopied) {
  QVVarList variables;
  variables.AddContVar("x", "", VariableRoleInput);
  variables.SetFieldFormatsElement(XMLElement::Create("Formats"));
  variables.GetVarAt(0)->SetFieldFormatElement(XMLElement::Create("Format"));
  const std::string expected =
      Model(1,
            "<Field name=\"x\" measure=\"continuous\" storage=\"real\" role=\"input\">"
            "<Format/></Field>",
            "<Formats/>");
  EXPECT_EQ(Export(variables).text, expected);
  EXPECT_EQ(Export(variables).text, expected) << "the originals stay with their owners";
}

TEST(ExportDataModel, AnIndexOutOfRangeEndsTheListWithCode101) {
  QVVarList variables;
  variables.AddContVar("x", "", VariableRoleInput);
  for (int bad : {-1, 1}) {
    const Result result = Export(variables, {0, bad, 0});
    EXPECT_EQ(result.status.GetErrorCode(), 101);
    EXPECT_TRUE(result.status.IsError());
    EXPECT_EQ(result.status.GetDiscreteDatum(0), bad);
    EXPECT_EQ(result.text, Model(1, Field("x", "continuous")));
  }
}

TEST(ExportDataModel, CancelGivesCode1AndNothingElse) {
  QVVarList variables;
  variables.AddContVar("x", "", VariableRoleInput);
  variables.SetFieldFormatsElement(XMLElement::Create("Formats"));
  for (int question : {1, 2}) {
    StopOnce query(question);
    const Result result = Export(variables, {}, &query);
    EXPECT_EQ(result.status.GetErrorCode(), 1);
    EXPECT_TRUE(result.status.IsError());
    EXPECT_EQ(result.text, "(null)");
  }
}

TEST(ExportDataModel, AsksOnceBeforeEachVariableAndOnceAtTheEnd) {
  QVVarList variables;
  variables.AddContVar("x", "", VariableRoleInput);
  StopAtQuestion never(1000);
  EXPECT_TRUE(Export(variables, {}, &never).status.IsOK());
  EXPECT_EQ(never.questions, 2);
}

}  // namespace
