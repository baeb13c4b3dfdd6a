// StatXML: the root, data blocks, counts, statistics, coordinates, arrays and record information.
#include <algorithm>

#include "NumberText.h"
#include "PMMLVocabulary.h"
#include "QVStatXMLUtil.h"
#include "xml/chart/statxml_parts.h"

namespace QVXML_940 {

namespace {

/// Items separated by blanks. A blank stands before an item once the text is not empty, so that
/// empty leading items leave none.
class ItemText {
 public:
  void Add(const std::string & item) {
    if (!fText.empty()) fText.append(" ");
    fText.append(item);
  }
  void AddTo(XMLElement & element) const { element.AddElement(XMLString::Create(fText)); }

 private:
  std::string fText;
};

std::string RealItem(double value) {
  return QVCommon_940::QVMV::IsMissing(value) ? "__MISSING__" : Format(value, false, nullptr);
}

XMLElement * MakeDataBlock(const std::string & name, const std::string & description) {
  XMLElement * const element = XMLElement::Create(name);
  AddUnlessEmpty(*element, PMML_description, description);
  return element;
}

XMLElement * MakeArray(const std::string & type) {
  XMLElement * const element = XMLElement::Create(PMML_Array);
  element->AddAttribute(PMML_type, type);
  return element;
}

XMLElement * MakeArray(const std::string & type, double n) {
  XMLElement * const element = MakeArray(type);
  element->AddAttribute(PMML_n, n);
  return element;
}

XMLElement * MakeCoordinates(const std::string & feature, const std::string & field,
                             const std::string & statistic, XMLElement * first,
                             XMLElement * array) {
  XMLElement * const element = XMLElement::Create(StatXML_Coordinates);
  element->AddAttribute(PMML_feature, feature);
  AddUnlessEmpty(*element, PMML_field, field);
  AddUnlessEmpty(*element, StatXML_statistic, statistic);
  AddChild(*element, first);
  AddChild(*element, array);
  return element;
}

template <typename T>
XMLElement * MakeRecordInfo(const std::string & recordId, const std::string & recordLabel,
                            const std::vector<std::vector<T>> & arrays) {
  constexpr std::size_t kMostArrays = 2;
  XMLElement * const element = XMLElement::Create(StatXML_RecordInfo);
  element->AddAttribute(StatXML_recordId, recordId);
  AddUnlessEmpty(*element, StatXML_recordLabel, recordLabel);
  for (std::size_t i = 0; i < std::min(arrays.size(), kMostArrays); ++i) {
    element->AddElement(QVStatXMLUtil::CreateElemArray(arrays[i]));
  }
  return element;
}

}  // namespace

QVStatXMLUtil::QVStatXMLUtil() = default;
QVStatXMLUtil::QVStatXMLUtil(const QVStatXMLUtil & other) = default;
QVStatXMLUtil & QVStatXMLUtil::operator=(const QVStatXMLUtil & other) = default;
QVStatXMLUtil::~QVStatXMLUtil() = default;

XMLElement * QVStatXMLUtil::BuildRoot() {
  XMLElement * const element = XMLElement::Create(StatXML_StatXML);
  element->AddAttribute(StatXML_xmlns, StatXML_namespace);
  element->AddAttribute(PMML_xmlns_xsi, PMML_namespace_xsi);
  element->AddAttribute(PMML_version, StatXML_version_1_0);
  element->AddAttribute(PMML_xsi_schemaLocation, StatXML_schemaLocation);
  return element;
}

XMLElement * QVStatXMLUtil::CreateElemUnivarData(const std::string & description) {
  return MakeDataBlock(StatXML_UnivariateData, description);
}

XMLElement * QVStatXMLUtil::CreateElemBivarData(const std::string & description) {
  return MakeDataBlock(StatXML_BivariateData, description);
}

XMLElement * QVStatXMLUtil::CreateElemMultivariateData(const std::string & description) {
  return MakeDataBlock(StatXML_MultivariateData, description);
}

XMLElement * QVStatXMLUtil::CreateElemStructuredData(const std::string & description) {
  return MakeDataBlock(StatXML_StructuredData, description);
}

XMLElement * QVStatXMLUtil::CreateElemVarData(const std::string & name,
                                              const std::string & description,
                                              const QVVariateData & data) {
  XMLElement * const element = MakeDataBlock(name, description);
  for (const QVXMLCounts & counts : data.fCounts) {
    element->AddElement(CreateElemCounts(counts));
  }
  // The values decide how many statistics there are; one without a name gets an empty one.
  const auto nameOf = [&data](std::size_t i) {
    return i < data.fStatisticNames.size() ? data.fStatisticNames[i] : std::string();
  };
  if (data.fUseStringStatistics) {
    for (std::size_t i = 0; i < data.fStringStatistics.size(); ++i) {
      element->AddElement(CreateElemStatistic(nameOf(i), data.fStringStatistics[i]));
    }
  } else {
    for (std::size_t i = 0; i < data.fNumericStatistics.size(); ++i) {
      element->AddElement(CreateElemStatistic(nameOf(i), data.fNumericStatistics[i]));
    }
  }
  if (name == StatXML_UnivariateData) {
    AddCoordinatesToVarData(element, data.fCoordinates, 1, 2);
  } else if (name == StatXML_BivariateData) {
    AddCoordinatesToVarData(element, data.fCoordinates, 2, 3);
  } else if (name == StatXML_MultivariateData) {
    for (const QVXMLCoordinatesGroup & group : data.fCoordinatesGroups) {
      element->AddElement(CreateElemCoordinatesGroup(group));
    }
    AddCoordinatesToVarData(element, data.fCoordinates, 0,
                            static_cast<int>(data.fCoordinates.size()));
  }
  return element;
}

// Fewer than `minimum` are added as well: the lower limit is the format's word, not a test.
void QVStatXMLUtil::AddCoordinatesToVarData(XMLElement * element,
                                            const std::vector<QVXMLCoordinates> & coordinates,
                                            int /*minimum*/, int maximum) {
  const std::size_t count = std::min(coordinates.size(), static_cast<std::size_t>(maximum));
  for (std::size_t i = 0; i < count; ++i) {
    AddChild(*element, CreateElemCoordinates(coordinates[i]));
  }
}

XMLElement * QVStatXMLUtil::CreateElemCounts(double total, double missing, double invalid,
                                             double cardinality) {
  XMLElement * const element = XMLElement::Create(StatXML_Counts);
  element->AddAttribute(StatXML_totalFreq, total);  // adds nothing for NaN and the infinities
  AddUnlessMissing(*element, PMML_missingFreq, missing);
  AddUnlessMissing(*element, PMML_invalidFreq, invalid);
  if (cardinality >= 0.0) element->AddAttribute(PMML_cardinality, cardinality);
  return element;
}

XMLElement * QVStatXMLUtil::CreateElemCounts(const QVXMLCounts & counts) {
  return CreateElemCounts(counts.fTotalFreq, counts.fMissingFreq, counts.fInvalidFreq,
                          counts.fCardinality);
}

XMLElement * QVStatXMLUtil::CreateElemStatistic(const std::string & name,
                                                const std::string & value) {
  return CreateElem(StatXML_Statistic, PMML_name, name, PMML_value, value);
}

XMLElement * QVStatXMLUtil::CreateElemStatistic(const std::string & name, double value) {
  XMLElement * const element = CreateElem(StatXML_Statistic, PMML_name, name);
  AddUnlessMissing(*element, PMML_value, value);
  return element;
}

XMLElement * QVStatXMLUtil::CreateElemCoordinates(const std::string & feature,
                                                  const std::string & field,
                                                  const std::string & statistic, const int * values,
                                                  int n) {
  return MakeCoordinates(feature, field, statistic, nullptr, CreateElemArray(values, n));
}

XMLElement * QVStatXMLUtil::CreateElemCoordinates(const std::string & feature,
                                                  const std::string & field,
                                                  const std::string & statistic,
                                                  const std::vector<int> & values) {
  return MakeCoordinates(feature, field, statistic, nullptr, CreateElemArray(values));
}

XMLElement * QVStatXMLUtil::CreateElemCoordinates(const std::string & feature,
                                                  const std::string & field,
                                                  const std::string & statistic,
                                                  const double * values, int n) {
  return MakeCoordinates(feature, field, statistic, nullptr, CreateElemArray(values, n));
}

XMLElement * QVStatXMLUtil::CreateElemCoordinates(const std::string & feature,
                                                  const std::string & field,
                                                  const std::string & statistic,
                                                  const std::vector<double> & values) {
  return MakeCoordinates(feature, field, statistic, nullptr, CreateElemArray(values));
}

XMLElement * QVStatXMLUtil::CreateElemCoordinates(const std::string & feature,
                                                  const std::string & field,
                                                  const std::string & statistic,
                                                  const std::string & text, int n) {
  return MakeCoordinates(feature, field, statistic, nullptr, CreateElemArray(text, n));
}

XMLElement * QVStatXMLUtil::CreateElemCoordinates(const std::string & feature,
                                                  const std::string & field,
                                                  const std::string & statistic,
                                                  const std::vector<std::string> & values) {
  return MakeCoordinates(feature, field, statistic, nullptr, CreateElemArray(values));
}

XMLElement * QVStatXMLUtil::CreateElemCoordinates(const std::string & feature,
                                                  const std::string & field,
                                                  const std::string & statistic,
                                                  const std::vector<int> & values,
                                                  XMLElement * first) {
  return MakeCoordinates(feature, field, statistic, first, CreateElemArray(values));
}

XMLElement * QVStatXMLUtil::CreateElemCoordinates(const std::string & feature,
                                                  const std::string & field,
                                                  const std::string & statistic,
                                                  const std::vector<double> & values,
                                                  XMLElement * first) {
  return MakeCoordinates(feature, field, statistic, first, CreateElemArray(values));
}

XMLElement * QVStatXMLUtil::CreateElemCoordinates(const std::string & feature,
                                                  const std::string & field,
                                                  const std::string & statistic,
                                                  const std::vector<std::string> & values,
                                                  XMLElement * first) {
  return MakeCoordinates(feature, field, statistic, first, CreateElemArray(values));
}

XMLElement * QVStatXMLUtil::CreateElemCoordinates(const QVXMLCoordinates & coordinates) {
  return coordinates.GetCoordinates();
}

XMLElement * QVStatXMLUtil::CreateElemCoordinatesGroup(const QVXMLCoordinatesGroup & group) {
  std::vector<XMLElement *> members;
  for (const QVXMLCoordinates & coordinates : group.fCoordinates) {
    members.push_back(CreateElemCoordinates(coordinates));
  }
  return CreateElemCoordinatesGroup(nullptr, members, group.fDescription);
}

XMLElement * QVStatXMLUtil::CreateElemCoordinatesGroup(XMLElement * first,
                                                       const std::vector<XMLElement *> & others,
                                                       const std::string & description) {
  XMLElement * const element = MakeDataBlock(StatXML_CoordinatesGroup, description);
  AddChild(*element, first);
  AddChildren(*element, others);
  return element;
}

XMLElement * QVStatXMLUtil::CreateElemArray(const int * values, int n) {
  XMLElement * const element = MakeArray(PMML_int);
  AddIntList(*element, values, n);
  return element;
}

XMLElement * QVStatXMLUtil::CreateElemArray(const std::vector<int> & values) {
  XMLElement * const element = MakeArray(PMML_int, static_cast<double>(values.size()));
  AddIntList(*element, values);
  return element;
}

XMLElement * QVStatXMLUtil::CreateElemArray(const double * values, int n) {
  XMLElement * const element = MakeArray(PMML_real, n);
  AddDoublesList(*element, values, n);
  return element;
}

XMLElement * QVStatXMLUtil::CreateElemArray(const std::vector<double> & values) {
  XMLElement * const element = MakeArray(PMML_real, static_cast<double>(values.size()));
  AddDoublesList(*element, values);
  return element;
}

XMLElement * QVStatXMLUtil::CreateElemArray(const std::vector<std::string> & values) {
  XMLElement * const element = MakeArray(PMML_string, static_cast<double>(values.size()));
  std::vector<std::string> items = values;
  bool isAnyWithBlank = false;
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (values[i].find_first_of("\"\\") != std::string::npos) {
      ReplaceSpecialChar(values[i], items[i]);
    }
    isAnyWithBlank = isAnyWithBlank || items[i].find(' ') != std::string::npos;
  }
  if (isAnyWithBlank) {
    for (std::string & item : items) {
      item.insert(0, "\"").append("\"");
    }
  }
  AddStringList(*element, items);
  return element;
}

XMLElement * QVStatXMLUtil::CreateElemArray(const std::string & text, int n) {
  XMLElement * const element = MakeArray(PMML_string, n);
  AddStringList(*element, text);
  return element;
}

void QVStatXMLUtil::ReplaceSpecialChar(const std::string & in, std::string & out) {
  out.clear();
  for (const char c : in) {
    if (c == '"' || c == '\\') out.push_back('\\');
    out.push_back(c);
  }
}

void QVStatXMLUtil::AddDoublesList(XMLElement & element, const double * values, int n) {
  if (values == nullptr) return;
  ItemText text;
  for (int i = 0; i < n; ++i) {
    text.Add(RealItem(values[i]));
  }
  text.AddTo(element);
}

void QVStatXMLUtil::AddDoublesList(XMLElement & element, const std::vector<double> & values) {
  ItemText text;
  for (const double value : values) {
    text.Add(RealItem(value));
  }
  text.AddTo(element);
}

void QVStatXMLUtil::AddIntList(XMLElement & element, const int * values, int n) {
  if (values == nullptr) return;
  ItemText text;
  for (int i = 0; i < n; ++i) {
    text.Add(Format(static_cast<double>(values[i]), true, "%.0g"));
  }
  text.AddTo(element);
}

void QVStatXMLUtil::AddIntList(XMLElement & element, const std::vector<int> & values) {
  ItemText text;
  for (const int value : values) {
    text.Add(Format(static_cast<double>(value), true, nullptr));
  }
  text.AddTo(element);
}

void QVStatXMLUtil::AddStringList(XMLElement & element, const std::vector<std::string> & values) {
  ItemText text;
  for (const std::string & value : values) {
    text.Add(value);
  }
  text.AddTo(element);
}

void QVStatXMLUtil::AddStringList(XMLElement & element, const std::string & text) {
  element.AddElement(XMLString::Create(text));
}

XMLElement * QVStatXMLUtil::CreateElemRecordInfo(const std::string & recordId,
                                                 const std::string & recordLabel,
                                                 const std::vector<std::vector<int>> & arrays) {
  return MakeRecordInfo(recordId, recordLabel, arrays);
}

XMLElement * QVStatXMLUtil::CreateElemRecordInfo(const std::string & recordId,
                                                 const std::string & recordLabel,
                                                 const std::vector<std::vector<double>> & arrays) {
  return MakeRecordInfo(recordId, recordLabel, arrays);
}

XMLElement * QVStatXMLUtil::CreateElemRecordInfo(
    const std::string & recordId, const std::string & recordLabel,
    const std::vector<std::vector<std::string>> & arrays) {
  return MakeRecordInfo(recordId, recordLabel, arrays);
}

XMLElement * QVStatXMLUtil::CreateElemRecordInfo(const QVXMLRecordInfo & record) {
  switch (record.fValueType) {
    case kIntValues:
      return CreateElemRecordInfo(record.fRecordId, record.fRecordLabel, record.fIntArrays);
    case kRealValues:
      return CreateElemRecordInfo(record.fRecordId, record.fRecordLabel, record.fRealArrays);
    case kStringValues:
      return CreateElemRecordInfo(record.fRecordId, record.fRecordLabel, record.fStringArrays);
    default:
      return nullptr;
  }
}

void QVStatXMLUtil::AddRecordInfos(XMLElement & element,
                                   const std::vector<QVXMLRecordInfo> & records) {
  for (const QVXMLRecordInfo & record : records) {
    AddChild(element, CreateElemRecordInfo(record));
  }
}

}  // namespace QVXML_940
