// The data dictionary of a PMML document: its fields with their values.

#include <algorithm>
#include <limits>

#include "IQVEncoder.h"
#include "PMMLVocabulary.h"
#include "QVCatVar.h"
#include "QVPMMLExporter.h"
#include "QVVarList.h"
#include "XMLElement.h"
#include "XMLUtil.h"
#include "xml/export/field_attributes.h"

namespace QVCommon_940 {

using namespace QVXML_940;

namespace {

constexpr int kRoleUnused = 6;
constexpr int kLevelContinuous = 1;
constexpr int kLevelNumericCategorical = 2;
constexpr int kLevelStringCategorical = 3;
constexpr int kLevelFrequencyWeight = 4;

/// The label of entry i, or an empty text when there is none.
std::string LabelAt(const std::vector<std::string> * labels, std::size_t i) {
  return labels != nullptr && i < labels->size() ? (*labels)[i] : std::string();
}

void AddOpType(XMLElement & field, const IQVVariable & variable) {
  switch (static_cast<int>(variable.GetMeasureLevel())) {
    case kLevelContinuous:
    case kLevelFrequencyWeight:
      field.AddAttribute(PMML_optype, PMML_continuous);
      break;
    case kLevelNumericCategorical:
    case kLevelStringCategorical: {
      const QVCatVar * categorical = AsCategorical(variable);
      const bool ordinal = categorical != nullptr && categorical->GetOrdinalFlag();
      field.AddAttribute(PMML_optype, ordinal ? PMML_ordinal : PMML_categorical);
      break;
    }
    default:
      break;
  }
}

/// An extension of the field itself. Its attributes stand in another order than those of
/// `ExportExtension`: "extender" comes first here.
XMLElement & AddFieldExtension(XMLElement & field, const std::string & name) {
  XMLElement * extension = XMLElement::Create(PMML_Extension);
  field.AddElement(extension);
  extension->AddAttribute(PMML_extender, PMML_vendor);
  extension->AddAttribute(PMML_name, name);
  return *extension;
}

/// The true value of a flag.
void AddFlagExtension(XMLElement & field, const QVCatVar & variable, const IQVEncoder * encoder) {
  const int trueIndex = variable.GetBinaryFlagTrueIndex();
  if (!variable.GetBinaryFlag() || trueIndex < 0) return;
  XMLElement & extension = AddFieldExtension(field, PMML_flagTypeTrueValue);
  const int type = encoder != nullptr ? static_cast<int>(encoder->GetEncoderType()) : 0;
  if (type == 2 || type == 3) extension.AddAttribute(PMML_value, encoder->Decode(trueIndex));
}

/// A mark for readers that would trim categories, when one ends in a blank.
void AddTrimExtension(XMLElement & field, const IQVEncoder & encoder) {
  for (int i = 0; i < encoder.GetNumberOfCategories(); ++i) {
    const std::string category = encoder.Decode(i);
    if (category.empty() || category.back() != ' ') continue;
    AddFieldExtension(field, PMML_noSpaceTrim).AddAttribute(PMML_value, PMML_true);
    return;
  }
}

/// Behind "value": the label and whether the value is valid or missing.
void AddLabelAndProperty(XMLElement & value, const std::string & label,
                         const std::string & property) {
  if (!label.empty()) value.AddAttribute(PMML_displayValue, label);
  value.AddAttribute(PMML_property, property);
}

XMLElement & AddValue(XMLElement & field) {
  XMLElement * value = XMLElement::Create(PMML_Value);
  field.AddElement(value);
  return *value;
}

/// The categories. Labels count only when the variable and its encoder agree on their number.
void AddValidValues(XMLElement & field, const IQVVariable & variable, const IQVEncoder & encoder) {
  const int n = encoder.GetNumberOfCategories();
  const bool useLabels = n == variable.GetNumberOfCategories();
  const std::vector<std::string> * labels = useLabels ? encoder.GetValueLabels() : nullptr;
  for (int i = 0; i < n; ++i) {
    XMLElement & value = AddValue(field);
    value.AddAttribute(PMML_value, encoder.Decode(i));
    AddLabelAndProperty(value, LabelAt(labels, static_cast<std::size_t>(i)), PMML_valid);
  }
}

/// The discrete missing values: the strings, or the numbers when there are no strings.
void AddMissingValues(XMLElement & field, const IQVEncoder & encoder) {
  const std::vector<std::string> * texts = encoder.GetDiscreteMissValuesStr();
  const std::vector<double> * numbers = encoder.GetDiscreteMissValues();
  const std::vector<std::string> * labels = encoder.GetMissValueLabels();
  const auto add = [&](std::size_t i, const auto & missing) {
    XMLElement & value = AddValue(field);
    value.AddAttribute(PMML_value, missing);  // of a number, nothing beyond the finite range
    AddLabelAndProperty(value, LabelAt(labels, i), PMML_missing);
  };
  if (texts != nullptr && !texts->empty()) {
    for (std::size_t i = 0; i < texts->size(); ++i)
      add(i, (*texts)[i]);
  } else if (numbers != nullptr) {
    for (std::size_t i = 0; i < numbers->size(); ++i)
      add(i, (*numbers)[i]);
  }
}

/// The missing-value interval; a bound at the end of the doubles is no bound.
void AddMissingInterval(XMLElement & field, const IQVEncoder & encoder, QVPMMLExporter & exporter) {
  double low = 0.0;
  double high = 0.0;
  if (!encoder.GetMissingInterval(low, high)) return;
  const auto add = [&](const std::string & name, double bound) {
    XMLElement * extension = nullptr;
    exporter.ExportExtension(name, bound, extension);
    field.AddElement(extension);
  };
  if (low != std::numeric_limits<double>::lowest()) add(PMML_invalidRangeLower, low);
  if (high != std::numeric_limits<double>::max()) add(PMML_invalidRangeUpper, high);
}

/// One "DataField": attributes, extensions, valid values, missing values, range extensions.
void FillDataField(XMLElement & field, const IQVVariable & variable, QVPMMLExporter & exporter) {
  field.AddAttribute(PMML_name, variable.GetVariableName());
  const std::string label = variable.GetVariableLabel();
  if (!label.empty()) field.AddAttribute(PMML_displayName, label);
  AddOpType(field, variable);
  field.AddAttribute(PMML_dataType, DataTypeOf(variable.GetVariableStorage()));

  const int level = static_cast<int>(variable.GetMeasureLevel());
  const IQVEncoder * encoder = variable.GetEncoder();
  const QVCatVar * categorical = AsCategorical(variable);
  if (categorical != nullptr) AddFlagExtension(field, *categorical, encoder);
  if (encoder == nullptr) return;
  if (level == kLevelStringCategorical) AddTrimExtension(field, *encoder);
  if (categorical != nullptr) AddValidValues(field, variable, *encoder);
  AddMissingValues(field, *encoder);
  AddMissingInterval(field, *encoder, exporter);
}

/// Every position but those of unused variables. A null entry stays in the list, to be reported.
std::vector<int> PositionsInUse(const QVVarList & variables) {
  std::vector<int> positions = AllPositions(variables);
  std::erase_if(positions, [&](int i) {
    const IQVVariable * variable = variables.GetVarAt(i);
    return variable != nullptr && static_cast<int>(variable->GetVariableRole()) == kRoleUnused;
  });
  return positions;
}

}  // namespace

QVStatus QVPMMLExporter::ExportDataDictionary(const QVVarList & variables,
                                              const std::vector<int> & indices,
                                              XMLElement *& dictionary) {
  QVMath_940::QVCancelInfo cancel(fCancel);
  int count = 0;
  fElement.reset(XMLElement::Create(PMML_DataDictionary));
  const QVStatus status =
      WalkVariables(variables, indices.empty() ? PositionsInUse(variables) : indices, cancel,
                    [&](const IQVVariable & variable) {
                      XMLElement * field = XMLElement::Create(PMML_DataField);
                      fElement->AddElement(field);
                      ++count;
                      FillDataField(*field, variable, *this);
                    });
  fElement->AddAttribute(PMML_numberOfFields, XMLUtil::toString(count));

  if (cancel.IsCancel()) {
    fElement.reset();
    dictionary = nullptr;
    return QVStatus(kStatusCancelled, false);
  }
  dictionary = fElement.release();
  return status;
}

}  // namespace QVCommon_940
