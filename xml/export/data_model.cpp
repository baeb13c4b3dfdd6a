// The "DataModel" element: the fields in the library's own terms of measure, storage and role.

#include "DataModelVocabulary.h"
#include "QVCatVar.h"
#include "QVPMMLExporter.h"
#include "QVVarList.h"
#include "XMLElement.h"
#include "XMLUtil.h"
#include "xml/export/field_attributes.h"

namespace QVCommon_940 {

using namespace QVXML_940;

namespace {

void AddMeasure(XMLElement & field, const IQVVariable & variable) {
  switch (static_cast<int>(variable.GetMeasureLevel())) {
    case 1:
    case 4:
      field.AddAttribute(DataModel_measure, DataModel_continuous);
      break;
    case 2:
    case 3: {
      const QVCatVar * categorical = AsCategorical(variable);
      const bool flag = categorical != nullptr && categorical->GetBinaryFlag();
      const bool ordinal = categorical != nullptr && categorical->GetOrdinalFlag();
      field.AddAttribute(DataModel_measure, flag      ? DataModel_flag
                                            : ordinal ? DataModel_ordinal
                                                      : DataModel_nominal);
      break;
    }
    default:
      break;
  }
}

const std::string & RoleNameOf(IQVVariable::VariableRole role) {
  switch (static_cast<int>(role)) {
    case 1:
    case 2:
      return DataModel_target;
    case 3:
      return DataModel_freqWeight;
    case 6:
      return DataModel_none;
    case 7:
      return DataModel_recordId;
    default:
      return DataModel_input;
  }
}

void FillField(XMLElement & field, const IQVVariable & variable) {
  if (const XMLElement * format = variable.GetFieldFormatElement()) {
    field.AddElement(format->Clone());
  }
  field.AddAttribute(DataModel_name, variable.GetVariableName());
  const std::string label = variable.GetVariableLabel();
  if (!label.empty()) field.AddAttribute(DataModel_displayLabel, label);
  AddMeasure(field, variable);
  field.AddAttribute(DataModel_storage, StorageNameOf(variable.GetVariableStorage()));
  field.AddAttribute(DataModel_role, RoleNameOf(variable.GetVariableRole()));
}

}  // namespace

QVStatus QVPMMLExporter::ExportDataModel(const QVVarList & variables,
                                         const std::vector<int> & indices, XMLElement *& model) {
  QVMath_940::QVCancelInfo cancel(fCancel);
  int count = 0;
  fElement.reset(XMLElement::Create(DataModel_DataModel));
  if (const XMLElement * formats = variables.GetFieldFormatsElement()) {
    fElement->AddElement(formats->Clone());
  }
  XMLElement * fields = XMLElement::Create(DataModel_Fields);
  fElement->AddElement(fields);
  const QVStatus status =
      WalkVariables(variables, indices.empty() ? AllPositions(variables) : indices, cancel,
                    [&](const IQVVariable & variable) {
                      XMLElement * field = XMLElement::Create(DataModel_Field);
                      fields->AddElement(field);
                      FillField(*field, variable);
                      ++count;
                    });
  fields->AddAttribute(DataModel_count, XMLUtil::toString(count));

  if (cancel.IsCancel()) {
    fElement.reset();
    model = nullptr;
    return QVStatus(kStatusCancelled, false);
  }
  model = fElement.release();
  return status;
}

}  // namespace QVCommon_940
