// StatXML: general elements, fields, model terms and matrices.
#include "PMMLVocabulary.h"
#include "QVStatXMLUtil.h"
#include "xml/chart/statxml_parts.h"

namespace QVXML_940 {

XMLElement * QVStatXMLUtil::CreateElem(const std::string & name, const std::string & attribute,
                                       const std::string & value) {
  XMLElement * const element = XMLElement::Create(name);
  element->AddAttribute(attribute, value);
  return element;
}

XMLElement * QVStatXMLUtil::CreateElem(const std::string & name, const std::string & attribute,
                                       double value) {
  XMLElement * const element = XMLElement::Create(name);
  element->AddAttribute(attribute, value);  // adds nothing for NaN and the infinities
  return element;
}

XMLElement * QVStatXMLUtil::CreateElem(const std::string & name, const std::string & attribute1,
                                       const std::string & value1, const std::string & attribute2,
                                       const std::string & value2) {
  XMLElement * const element = CreateElem(name, attribute1, value1);
  element->AddAttribute(attribute2, value2);
  return element;
}

XMLElement * QVStatXMLUtil::CreateElem(const std::string & name, const std::string & attribute1,
                                       const std::string & value1, const std::string & attribute2,
                                       const std::string & value2, const std::string & attribute3,
                                       const std::string & value3) {
  XMLElement * const element = CreateElem(name, attribute1, value1, attribute2, value2);
  element->AddAttribute(attribute3, value3);
  return element;
}

XMLElement * QVStatXMLUtil::CreateElemFieldInfo(const std::string & fieldName,
                                                const std::string & fieldValue, bool isNull) {
  XMLElement * const element = CreateElem(StatXML_FieldInfo, StatXML_fieldName, fieldName);
  AddUnlessEmpty(*element, StatXML_fieldValue, fieldValue);
  AddFlag(*element, StatXML_isNull, isNull);
  return element;
}

XMLElement * QVStatXMLUtil::CreateElemFieldInfo(const std::string & fieldName, double fieldValue,
                                                bool isNull) {
  XMLElement * const element = CreateElem(StatXML_FieldInfo, StatXML_fieldName, fieldName);
  AddUnlessMissing(*element, StatXML_fieldValue, fieldValue);
  AddFlag(*element, StatXML_isNull, isNull);
  return element;
}

XMLElement * QVStatXMLUtil::CreateElemCovariate(const std::string & field, int power) {
  XMLElement * const element = CreateElem(StatXML_Covariate, PMML_field, field);
  element->AddAttribute(StatXML_power, static_cast<double>(power));
  return element;
}

XMLElement * QVStatXMLUtil::CreateElemFactor(const std::string & field, const std::string & value,
                                             bool nest) {
  XMLElement * const element = CreateElem(StatXML_Factor, PMML_field, field, PMML_value, value);
  AddFlag(*element, StatXML_nest, nest);
  return element;
}

XMLElement * QVStatXMLUtil::CreateElemFactor(const std::string & field, double value, bool nest) {
  XMLElement * const element = CreateElem(StatXML_Factor, PMML_field, field);
  element->AddAttribute(PMML_value, value);  // the missing value too
  AddFlag(*element, StatXML_nest, nest);
  return element;
}

XMLElement * QVStatXMLUtil::CreateElemRegressionParameter(const std::string & name,
                                                          bool isIntercept) {
  return CreateElemRegressionParameter({}, {}, name, isIntercept);
}

XMLElement * QVStatXMLUtil::CreateElemRegressionParameter(const std::vector<XMLElement *> & first,
                                                          const std::vector<XMLElement *> & second,
                                                          const std::string & name,
                                                          bool isIntercept) {
  XMLElement * const element = XMLElement::Create(StatXML_RegressionParameter);
  AddUnlessEmpty(*element, PMML_name, name);
  AddFlag(*element, StatXML_isIntercept, isIntercept);
  AddChildren(*element, first);
  AddChildren(*element, second);
  return element;
}

XMLElement * QVStatXMLUtil::CreateElemLabel(const std::string & label) {
  return CreateElemLabel(label, nullptr);
}

XMLElement * QVStatXMLUtil::CreateElemLabel(const std::string & label, XMLElement * child) {
  XMLElement * const element = XMLElement::Create(StatXML_Label);
  AddUnlessEmpty(*element, PMML_label, label);
  AddChild(*element, child);
  return element;
}

XMLElement * QVStatXMLUtil::CreateElemLabel(const std::vector<XMLElement *> & first,
                                            const std::vector<XMLElement *> & second,
                                            const std::string & name, bool isIntercept,
                                            const std::string & label) {
  return CreateElemLabel(label, CreateElemRegressionParameter(first, second, name, isIntercept));
}

XMLElement * QVStatXMLUtil::CreateElemRowColLabels(const std::string & dimension) {
  return CreateElem(StatXML_RowColLabels, StatXML_dimension, dimension);
}

XMLElement * QVStatXMLUtil::CreateElemRowColLabels(XMLElement * child,
                                                   const std::string & dimension) {
  XMLElement * const element = CreateElemRowColLabels(dimension);
  AddChild(*element, child);
  return element;
}

XMLElement * QVStatXMLUtil::CreateElemRowColLabels(const std::vector<XMLElement *> & children,
                                                   const std::string & dimension) {
  XMLElement * const element = CreateElemRowColLabels(dimension);
  AddChildren(*element, children);
  return element;
}

XMLElement * QVStatXMLUtil::CreateElemMatrixLabels(const std::vector<XMLElement *> & labels) {
  XMLElement * const element = XMLElement::Create(StatXML_MatrixLabels);
  if (labels.size() == 1 || labels.size() == 2) AddChildren(*element, labels);
  return element;
}

XMLElement * QVStatXMLUtil::CreateElemSegmentInfo(XMLElement * child) {
  XMLElement * const element = XMLElement::Create(StatXML_SegmentInfo);
  AddChild(*element, child);
  return element;
}

XMLElement * QVStatXMLUtil::CreateElemSegmentInfo(const std::vector<XMLElement *> & children) {
  XMLElement * const element = XMLElement::Create(StatXML_SegmentInfo);
  AddChildren(*element, children);
  return element;
}

XMLElement * QVStatXMLUtil::CreateElemIndices(XMLElement * child, const std::string & dimension) {
  XMLElement * const element = CreateElem(StatXML_Indices, StatXML_dimension, dimension);
  AddChild(*element, child);
  return element;
}

XMLElement * QVStatXMLUtil::CreateElemSegmentData(XMLElement * first, XMLElement * second) {
  XMLElement * const element = XMLElement::Create(StatXML_SegmentData);
  AddChild(*element, first);
  AddChild(*element, second);
  return element;
}

XMLElement * QVStatXMLUtil::CreateElemMatrix(XMLElement * first, std::vector<XMLElement *> pair,
                                             XMLElement * third, XMLElement * fourth,
                                             unsigned int rows, unsigned int cols,
                                             const std::string & kind, bool rowMajor) {
  XMLElement * const element = CreateElem(StatXML_Matrix, PMML_kind, kind);
  element->AddAttribute(StatXML_nbRows, static_cast<double>(rows));
  if (kind != StatXML_symmetric) {
    element->AddAttribute(StatXML_nbCols, static_cast<double>(cols));
  }
  AddFlag(*element, StatXML_rowMajor, rowMajor);
  AddChild(*element, first);
  if (pair.size() == 2) AddChildren(*element, pair);
  AddChild(*element, third);
  AddChild(*element, fourth);
  return element;
}

}  // namespace QVXML_940
