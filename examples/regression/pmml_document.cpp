#include "pmml_document.h"

#include <string>

#include "IQVEncoder.h"
#include "PMMLVocabulary.h"
#include "QVMV.h"
#include "QVPMMLExporter.h"
#include "failure.h"
#include "number_text.h"

namespace regression {

using namespace QVCommon_940;
using namespace QVXML_940;

namespace {

// Words of the standard that the library's vocabulary does not hold.
const std::string kRegressionTable = "RegressionTable";
const std::string kNumericPredictor = "NumericPredictor";
const std::string kCategoricalPredictor = "CategoricalPredictor";
const std::string kCoefficient = "coefficient";
const std::string kCategory = "category";
const std::string kFrequencyWeight = "frequencyWeight";
const std::string kIntercept = "intercept";
const std::string kLinearRegression = "linearRegression";
const std::string kTargetFieldName = "targetFieldName";
const std::string kWeighted = "weighted";

/// An extension of this program: the mark of a coefficient that the model does not need.
const std::string kIsRedundant = "isRedundant";

class DocumentMaker {
 public:
  DocumentMaker(const Cases & cases, const LinearModel & model,
                const std::vector<QVUniStats> * statistics, QVQueryCancel & query)
      : fVariables(cases.variables),
        fModel(model),
        fStatistics(statistics),
        fTargetName(fVariables.GetTargetVariable()->GetVariableName()),
        fExporter(&query) {}

  std::unique_ptr<XMLElement> Make() {
    std::unique_ptr<XMLElement> root(fExporter.ExportPMMLElement());
    AddHeader(*root);
    AddDictionary(*root);
    XMLElement & model = AddChild(*root, PMML_RegressionModel);
    model.AddAttribute(PMML_functionName, PMML_regression);
    model.AddAttribute(PMML_modelType, kLinearRegression);
    model.AddAttribute(kTargetFieldName, fTargetName);
    AddMiningSchema(model);
    if (fStatistics != nullptr) {
      AddModelStats(model);
      AddModelQuality(model);
    }
    AddRegressionTable(model);
    return root;
  }

 private:
  static XMLElement & AddChild(XMLElement & parent, const std::string & name) {
    XMLElement * child = XMLElement::Create(name);
    parent.AddElement(child);
    return *child;
  }

  static void AddKnown(XMLElement & element, const std::string & name, double value) {
    if (!QVMV::IsMissing(value)) element.AddAttribute(name, value);
  }

  /// Attaches what an exporter has made.
  static void Attach(XMLElement & parent, const QVStatus & status, XMLElement * part) {
    if (!status.IsOK()) {
      delete part;
      if (status.GetErrorCode() == kExportStopped) throw Stopped();
      throw Failure("the export failed with code " + std::to_string(status.GetErrorCode()));
    }
    parent.AddElement(part);
  }

  void AddHeader(XMLElement & root) {
    QVApplicInfo4XML info;
    info.fName = "regression";
    info.fVersion = "1.0";
    XMLElement * header = nullptr;
    const QVStatus status =
        fExporter.ExportHeader(&info, "Linear regression of " + fTargetName, true, header);
    Attach(root, status, header);
  }

  void AddDictionary(XMLElement & root) {
    XMLElement * dictionary = nullptr;
    const QVStatus status = fExporter.ExportDataDictionary(fVariables, {}, dictionary);
    Attach(root, status, dictionary);
  }

  void AddMiningSchema(XMLElement & model) {
    XMLElement & schema = AddChild(model, PMML_MiningSchema);
    for (int place = 0; place < fVariables.Size(); ++place) {
      XMLElement & field = AddChild(schema, PMML_MiningField);
      field.AddAttribute(PMML_MiningField_name, fVariables.GetVarAt(place)->GetVariableName());
      field.AddAttribute(PMML_usageType, UsageOf(fVariables.GetVariableRole(place)));
    }
  }

  static const std::string & UsageOf(VariableRole role) {
    switch (role) {
      case VariableRoleTarget:
        return PMML_target;
      case VariableRoleFrequencyWeight:
        return kFrequencyWeight;
      default:
        return PMML_active;
    }
  }

  // --- The coefficients
  // ---------------------------------------------------------------------------

  /// The standard wants the numbers before the categories.
  void AddRegressionTable(XMLElement & model) {
    XMLElement & table = AddChild(model, kRegressionTable);
    table.AddAttribute(kIntercept, ExactText(fModel.coefficients.front().estimate));
    for (const Coefficient & c : fModel.coefficients) {
      if (c.variable != Coefficient::kNone && c.category == Coefficient::kNone) {
        AddPredictor(table, kNumericPredictor, c);
      }
    }
    for (const Coefficient & c : fModel.coefficients) {
      if (c.category != Coefficient::kNone) AddPredictor(table, kCategoricalPredictor, c);
    }
  }

  void AddPredictor(XMLElement & table, const std::string & kind, const Coefficient & c) {
    XMLElement & predictor = AddChild(table, kind);
    predictor.AddAttribute(PMML_name, fVariables.GetVarAt(c.variable)->GetVariableName());
    if (c.category != Coefficient::kNone) {
      predictor.AddAttribute(PMML_value, fVariables.GetEncoderAt(c.variable)->Decode(c.category));
    }
    predictor.AddAttribute(kCoefficient, ExactText(c.estimate));
    if (c.redundant) {
      XMLElement * mark = nullptr;
      fExporter.ExportExtension(kIsRedundant, PMML_true, mark);
      predictor.AddElement(mark);
    }
  }

  // --- Statistics
  // ---------------------------------------------------------------------------------

  void AddModelStats(XMLElement & model) {
    XMLElement & all = AddChild(model, PMML_ModelStats);
    for (const QVUniStats & stats : *fStatistics) {
      XMLElement * element = nullptr;
      const QVStatus status = fExporter.ExportUniStats(stats, element);
      Attach(all, status, element);
      if (fVariables.GetFreqWeightIndex() >= 0) element->AddAttribute(kWeighted, "1");
    }
    XMLElement & tests = AddChild(all, PMML_MultivariateStats);
    for (const Coefficient & c : fModel.coefficients)
      AddTest(tests, c);
  }

  void AddTest(XMLElement & tests, const Coefficient & c) {
    XMLElement & test = AddChild(tests, PMML_MultivariateStat);
    if (c.variable == Coefficient::kNone) {
      test.AddAttribute(PMML_isIntercept, PMML_true);
    } else {
      test.AddAttribute(PMML_name, fVariables.GetVarAt(c.variable)->GetVariableName());
    }
    if (c.category != Coefficient::kNone) {
      test.AddAttribute(kCategory, fVariables.GetEncoderAt(c.variable)->Decode(c.category));
    }
    AddKnown(test, PMML_stdError, c.stdError);
    AddKnown(test, PMML_tValue, c.t);
    if (!QVMV::IsMissing(c.t)) test.AddAttribute(PMML_dF, fModel.residualDf);
    AddKnown(test, PMML_pValueFinal, c.significance);
  }

  void AddModelQuality(XMLElement & model) {
    XMLElement & quality =
        AddChild(AddChild(model, PMML_ModelExplanation), PMML_PredictiveModelQuality);
    quality.AddAttribute(PMML_targetField, fTargetName);
    AddKnown(quality, PMML_r_squared, fModel.rSquared);
    AddKnown(quality, PMML_adj_r_squared, fModel.adjustedRSquared);
    quality.AddAttribute(PMML_sumSquaredError, fModel.residualSS);
    quality.AddAttribute(PMML_sumSquaredRegression, fModel.modelSS);
    quality.AddAttribute(PMML_numOfRecords, fVariables.GetUnWeightedCount());
    quality.AddAttribute(PMML_numOfRecordsWeighted, fVariables.GetWeightedCount());
    quality.AddAttribute(PMML_numOfPredictors, fModel.modelDf);
    quality.AddAttribute(PMML_degreesOfFreedom, fModel.residualDf);
    AddKnown(quality, PMML_fStatistic, fModel.f);
  }

  /// What an exporter answers when its query stopped it.
  static constexpr long kExportStopped = 1;

  const QVVarList & fVariables;
  const LinearModel & fModel;
  const std::vector<QVUniStats> * fStatistics;
  const std::string fTargetName;
  QVPMMLExporter fExporter;
};

}  // namespace

std::unique_ptr<XMLElement> MakePmmlDocument(const Cases & cases, const LinearModel & model,
                                             const std::vector<QVUniStats> * statistics,
                                             QVQueryCancel & query) {
  return DocumentMaker(cases, model, statistics, query).Make();
}

}  // namespace regression
