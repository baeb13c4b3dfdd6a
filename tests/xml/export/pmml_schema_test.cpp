// Documents made of the exporter's parts against the published schema of PMML 4.3.

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "IQVEncoder.h"
#include "QVCatVar.h"
#include "QVPMMLExporter.h"
#include "QVUniStats.h"
#include "QVVarList.h"
#include "XMLWrite.h"

namespace {

using namespace QVXML_940;
using QVCommon_940::QVApplicInfo4XML;
using QVCommon_940::QVPMMLExporter;

XMLElement * AddChild(XMLElement & parent, const std::string & name) {
  XMLElement * child = XMLElement::Create(name);
  parent.AddElement(child);
  return child;
}

/// A whole document: the parts of the exporter, and the smallest model that the schema knows.
std::unique_ptr<XMLElement> MakeDocument(const QVVarList & variables,
                                         const std::vector<QVUniStats> & statistics) {
  QVPMMLExporter exporter;
  std::unique_ptr<XMLElement> root(exporter.ExportPMMLElement());
  const QVApplicInfo4XML info{0, "schema test", "1 <\"&> 2", ""};
  XMLElement * part = nullptr;
  EXPECT_TRUE(exporter.ExportHeader(&info, "a description", true, part).IsOK());
  root->AddElement(part);
  EXPECT_TRUE(exporter.ExportDataDictionary(variables, {}, part).IsOK());
  root->AddElement(part);

  XMLElement * model = AddChild(*root, "RegressionModel");
  model->AddAttribute("functionName", "regression");
  XMLElement * field = AddChild(*AddChild(*model, "MiningSchema"), "MiningField");
  field->AddAttribute("name", "x");
  XMLElement * modelStats = AddChild(*model, "ModelStats");
  for (const QVUniStats & stats : statistics) {
    EXPECT_TRUE(exporter.ExportUniStats(stats, part).IsOK());
    modelStats->AddElement(part);
  }
  AddChild(*model, "RegressionTable")->AddAttribute("intercept", "1");
  return root;
}

/// xmllint's verdict on the document.
bool IsValid(const XMLElement & root, const std::string & name) {
  const std::string path = testing::TempDir() + "qvcommon_" + name + ".pmml";
  {
    std::ofstream file(path, std::ios::binary);
    WriteTreeUTF8(file, nullptr, &root, true);
  }
  const std::string command = std::string(QVCOMMON_XMLLINT) + " --noout --schema " +
                              QVCOMMON_TEST_DATA "/pmml-4-3.xsd " + path + " 2>&1";
  const bool valid = std::system(command.c_str()) == 0;
  std::remove(path.c_str());
  return valid;
}

/// Every kind of field that the dictionary knows, and of statistics.
QVVarList AllKindsOfFields() {
  QVVarList variables;
  variables.AddContVar("x", "a label", VariableRoleTarget);
  variables.AddContVar("with missing", "", VariableRoleInput);
  variables.GetEncoderAt(1)->AddDiscreteUserMissing(99.0, "refused");
  variables.AddContVar("with interval", "", VariableRoleInput);
  variables.GetEncoderAt(2)->SetMissingInterval(-9.0, -1.0);
  variables.AddCatVar("strings", "", std::vector<std::string>{"a ", "b\xC3\xA9", "<\"&>"},
                      VariableRoleInput);
  variables.GetEncoderAt(3)->AddDiscreteUserMissing(std::string("n/a"), "");
  variables.AddCatVar("numbers", "", std::vector<double>{0.0, 1.0},
                      std::vector<std::string>{"no", "yes"}, VariableRoleInput);
  dynamic_cast<QVCatVar &>(*variables.GetVarAt(4)).SetBinaryFlag(true, 1);
  dynamic_cast<QVCatVar &>(*variables.GetVarAt(4)).SetOrdinalFlag(true);
  variables.SetWeightVar("w", "", WRoundingAsIs);
  for (int storage = 0; storage <= 6; ++storage) {
    const int i = variables.AddContVar("storage" + std::to_string(storage), "", VariableRoleInput);
    variables.GetVarAt(i)->SetVariableStorage(static_cast<VariableStorage>(storage));
  }
  return variables;
}

TEST(PmmlSchema, EveryKindOfFieldAndStatisticsIsValid) {
  QVUniStats::SummStats summary;
  summary.fMinimum = 1.0;
  summary.fMaximum = 3.0;
  summary.fMean = 2.0;
  summary.fStdDev = 0.5;
  const std::vector<QVUniStats> statistics = {
      QVUniStats("x", 3.0, summary, {}, {}),
      QVUniStats("with missing", 3.0, summary, {1.0, 2.0, 3.0}, {1.0, 2.0}),
      QVUniStats("strings", 3.0, {1.0, 1.0, 1.0}),
      QVUniStats("numbers", 0.0, std::vector<double>()),
  };
  EXPECT_TRUE(IsValid(*MakeDocument(AllKindsOfFields(), statistics), "all_kinds"));
}

// What the header and docs/pmml.md warn of: these tests would tell when the warning has gone stale.
TEST(PmmlSchema, AnIntervalBehindValuesIsRefused) {
  QVVarList variables;
  variables.AddContVar("x", "", VariableRoleTarget);
  variables.GetEncoderAt(0)->AddDiscreteUserMissing(99.0, "");
  variables.GetEncoderAt(0)->SetMissingInterval(-9.0, -1.0);
  EXPECT_FALSE(IsValid(*MakeDocument(variables, {}), "interval_behind_values"));
}

TEST(PmmlSchema, AFieldOfUnknownLevelIsRefused) {
  QVVarList variables;
  variables.AddCatVar("x", "", 0, MeasureLevelUnknown, VariableRoleTarget);
  EXPECT_FALSE(IsValid(*MakeDocument(variables, {}), "unknown_level"));
}

TEST(PmmlSchema, ADictionaryWithoutFieldsIsRefused) {
  EXPECT_FALSE(IsValid(*MakeDocument(QVVarList(), {}), "no_fields"));
}

}  // namespace
