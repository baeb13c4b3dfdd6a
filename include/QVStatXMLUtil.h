/// Factories for the fragments of a StatXML document: counts, statistics, coordinates, arrays,
/// record information, field information, model terms and matrices.
///
///     XMLElement * root = QVStatXMLUtil::BuildRoot();
///     XMLElement * data = QVStatXMLUtil::CreateElemUnivarData("heights");
///     data->AddElement(QVStatXMLUtil::CreateElemCounts(150.0, 3.0, 0.0, 12.0));
///     data->AddElement(QVStatXMLUtil::CreateElemStatistic("mean", 1.72));
///     root->AddElement(data);
///
/// Attributes and children stand in the order in which a function's arguments and comment name
/// them. Numbers have 15 significant digits and the point under every locale.
///
/// Ownership: every function returns a new element, the caller's. A child that is handed over
/// belongs to the new element; a null child, and a null entry of a list, is skipped. A child that
/// is not taken (where a comment says so) stays the caller's.
///
/// Nothing reports failure; inconsistent input shows in the document. There is no state: safe from
/// any number of threads.
#pragma once

#include <string>
#include <vector>

#include "QVExport.h"
#include "QVVariateData.h"
#include "QVXMLCoordinates.h"
#include "QVXMLCoordinatesGroup.h"
#include "QVXMLCounts.h"
#include "QVXMLRecordInfo.h"
#include "XMLElement.h"

namespace QVXML_940 {

class QVCOMMON_API QVStatXMLUtil {
 public:
  QVStatXMLUtil();
  QVStatXMLUtil(const QVStatXMLUtil & other);
  QVStatXMLUtil & operator=(const QVStatXMLUtil & other);
  virtual ~QVStatXMLUtil();

  /// "StatXML" with its namespaces, version and schema location.
  static XMLElement * BuildRoot();

  // === Data blocks ==============================================================================

  /// "UnivariateData", "BivariateData", "MultivariateData", "StructuredData": "description" when it
  /// is not empty.
  static XMLElement * CreateElemUnivarData(const std::string & description);
  static XMLElement * CreateElemBivarData(const std::string & description);
  static XMLElement * CreateElemMultivariateData(const std::string & description);
  static XMLElement * CreateElemStructuredData(const std::string & description);

  /// An element of this name with the description, the counts and the statistics of `data`, texts
  /// or numbers by its switch, as many as there are values. "UnivariateData" takes at most two
  /// coordinates, "BivariateData" at most three, "MultivariateData" the groups and then all
  /// coordinates; any other name takes neither.
  static XMLElement * CreateElemVarData(const std::string & name, const std::string & description,
                                        const QVVariateData & data);

  // === Counts and statistics ====================================================================

  /// "Counts": "totalFreq" when finite (beware: the missing value too, as a number), "missingFreq"
  /// and "invalidFreq" when finite and not missing, "cardinality" when finite and at least 0.
  static XMLElement * CreateElemCounts(double total, double missing, double invalid,
                                       double cardinality);
  static XMLElement * CreateElemCounts(const QVXMLCounts & counts);

  /// "Statistic": "name" and "value"; a number only when it is finite and not missing.
  static XMLElement * CreateElemStatistic(const std::string & name, const std::string & value);
  static XMLElement * CreateElemStatistic(const std::string & name, double value);

  // === Coordinates ==============================================================================
  // "Coordinates": "feature" always, "field" and "statistic" when they are not empty, then `first`
  // and the array of the values.

  static XMLElement * CreateElemCoordinates(const std::string & feature, const std::string & field,
                                            const std::string & statistic, const int * values,
                                            int n);
  static XMLElement * CreateElemCoordinates(const std::string & feature, const std::string & field,
                                            const std::string & statistic,
                                            const std::vector<int> & values);
  static XMLElement * CreateElemCoordinates(const std::string & feature, const std::string & field,
                                            const std::string & statistic, const double * values,
                                            int n);
  static XMLElement * CreateElemCoordinates(const std::string & feature, const std::string & field,
                                            const std::string & statistic,
                                            const std::vector<double> & values);
  static XMLElement * CreateElemCoordinates(const std::string & feature, const std::string & field,
                                            const std::string & statistic, const std::string & text,
                                            int n);
  static XMLElement * CreateElemCoordinates(const std::string & feature, const std::string & field,
                                            const std::string & statistic,
                                            const std::vector<std::string> & values);
  static XMLElement * CreateElemCoordinates(const std::string & feature, const std::string & field,
                                            const std::string & statistic,
                                            const std::vector<int> & values, XMLElement * first);
  static XMLElement * CreateElemCoordinates(const std::string & feature, const std::string & field,
                                            const std::string & statistic,
                                            const std::vector<double> & values, XMLElement * first);
  static XMLElement * CreateElemCoordinates(const std::string & feature, const std::string & field,
                                            const std::string & statistic,
                                            const std::vector<std::string> & values,
                                            XMLElement * first);

  /// As `QVXMLCoordinates::GetCoordinates`: null for a value type other than the three lists'.
  static XMLElement * CreateElemCoordinates(const QVXMLCoordinates & coordinates);

  /// "CoordinatesGroup": "description" when it is not empty, then the members.
  static XMLElement * CreateElemCoordinatesGroup(const QVXMLCoordinatesGroup & group);
  static XMLElement * CreateElemCoordinatesGroup(XMLElement * first,
                                                 const std::vector<XMLElement *> & others,
                                                 const std::string & description);

  // === Arrays ===================================================================================
  // "Array": "type" ("int", "real", "string"), "n" (but beware: not in the form for a pointer to
  // int) and one text with all the items.

  static XMLElement * CreateElemArray(const int * values, int n);
  static XMLElement * CreateElemArray(const std::vector<int> & values);
  static XMLElement * CreateElemArray(const double * values, int n);
  static XMLElement * CreateElemArray(const std::vector<double> & values);

  /// Double quotes and backslashes in the items get a backslash before them. When any item holds a
  /// blank, every item is enclosed in double quotes.
  static XMLElement * CreateElemArray(const std::vector<std::string> & values);

  /// The text as one piece, as it stands.
  static XMLElement * CreateElemArray(const std::string & text, int n);

  /// Add one text child with the items, separated by blanks; an empty list adds an empty text, a
  /// null pointer nothing. A missing double reads "__MISSING__". Beware: the form for a pointer to
  /// int writes one significant digit ("%.0g"), so that 12 reads "1e+01".
  static void AddDoublesList(XMLElement & element, const double * values, int n);
  static void AddDoublesList(XMLElement & element, const std::vector<double> & values);
  static void AddIntList(XMLElement & element, const int * values, int n);
  static void AddIntList(XMLElement & element, const std::vector<int> & values);
  static void AddStringList(XMLElement & element, const std::vector<std::string> & values);
  static void AddStringList(XMLElement & element, const std::string & text);

  // === Record information =======================================================================

  /// "RecordInfo": "recordId", "recordLabel" when it is not empty, then the first two arrays at
  /// most.
  static XMLElement * CreateElemRecordInfo(const std::string & recordId,
                                           const std::string & recordLabel,
                                           const std::vector<std::vector<int>> & arrays);
  static XMLElement * CreateElemRecordInfo(const std::string & recordId,
                                           const std::string & recordLabel,
                                           const std::vector<std::vector<double>> & arrays);
  static XMLElement * CreateElemRecordInfo(const std::string & recordId,
                                           const std::string & recordLabel,
                                           const std::vector<std::vector<std::string>> & arrays);

  /// By the record's value type; null for one other than the three lists'.
  static XMLElement * CreateElemRecordInfo(const QVXMLRecordInfo & record);

  /// Adds the element of each record.
  static void AddRecordInfos(XMLElement & element, const std::vector<QVXMLRecordInfo> & records);

  // === General elements =========================================================================

  /// An element with one attribute; a number only when it is finite.
  static XMLElement * CreateElem(const std::string & name, const std::string & attribute,
                                 const std::string & value);
  static XMLElement * CreateElem(const std::string & name, const std::string & attribute,
                                 double value);

  /// With two and with three attributes.
  static XMLElement * CreateElem(const std::string & name, const std::string & attribute1,
                                 const std::string & value1, const std::string & attribute2,
                                 const std::string & value2);
  static XMLElement * CreateElem(const std::string & name, const std::string & attribute1,
                                 const std::string & value1, const std::string & attribute2,
                                 const std::string & value2, const std::string & attribute3,
                                 const std::string & value3);

  // === Fields and model terms ===================================================================

  /// "FieldInfo": "fieldName", "fieldValue" (a text when it is not empty, a number when it is
  /// finite and not missing), "isNull".
  static XMLElement * CreateElemFieldInfo(const std::string & fieldName,
                                          const std::string & fieldValue, bool isNull);
  static XMLElement * CreateElemFieldInfo(const std::string & fieldName, double fieldValue,
                                          bool isNull);

  /// "Covariate": "field", "power".
  static XMLElement * CreateElemCovariate(const std::string & field, int power);

  /// "Factor": "field", "value" (a number when it is finite; beware: the missing value too),
  /// "nest".
  static XMLElement * CreateElemFactor(const std::string & field, const std::string & value,
                                       bool nest);
  static XMLElement * CreateElemFactor(const std::string & field, double value, bool nest);

  /// "RegressionParameter": "name" when it is not empty, "isIntercept", then the children.
  static XMLElement * CreateElemRegressionParameter(const std::string & name, bool isIntercept);
  static XMLElement * CreateElemRegressionParameter(const std::vector<XMLElement *> & first,
                                                    const std::vector<XMLElement *> & second,
                                                    const std::string & name, bool isIntercept);

  /// "Label": "label" when it is not empty, then the child, or a "RegressionParameter" with these
  /// children, name and flag.
  static XMLElement * CreateElemLabel(const std::string & label);
  static XMLElement * CreateElemLabel(const std::string & label, XMLElement * child);
  static XMLElement * CreateElemLabel(const std::vector<XMLElement *> & first,
                                      const std::vector<XMLElement *> & second,
                                      const std::string & name, bool isIntercept,
                                      const std::string & label);

  // === Matrices =================================================================================

  /// "RowColLabels": "dimension" ("row", "col" or "both"), then the children.
  static XMLElement * CreateElemRowColLabels(const std::string & dimension);
  static XMLElement * CreateElemRowColLabels(XMLElement * child, const std::string & dimension);
  static XMLElement * CreateElemRowColLabels(const std::vector<XMLElement *> & children,
                                             const std::string & dimension);

  /// "MatrixLabels" with 1 or 2 children. Any other number is not taken, and the element is empty.
  static XMLElement * CreateElemMatrixLabels(const std::vector<XMLElement *> & labels);

  /// "SegmentInfo" with the children.
  static XMLElement * CreateElemSegmentInfo(XMLElement * child);
  static XMLElement * CreateElemSegmentInfo(const std::vector<XMLElement *> & children);

  /// "Indices": "dimension", then the child.
  static XMLElement * CreateElemIndices(XMLElement * child, const std::string & dimension);

  /// "SegmentData" with both children.
  static XMLElement * CreateElemSegmentData(XMLElement * first, XMLElement * second);

  /// "Matrix": "kind" ("symmetric", "diagonal" or "any"), "nbRows", "nbCols" unless the kind is
  /// "symmetric", "rowMajor", then `first`, the two entries of `pair`, `third` and `fourth`. A
  /// `pair` with any other number of entries is not taken.
  static XMLElement * CreateElemMatrix(XMLElement * first, std::vector<XMLElement *> pair,
                                       XMLElement * third, XMLElement * fourth, unsigned int rows,
                                       unsigned int cols, const std::string & kind, bool rowMajor);

 private:
  static void AddCoordinatesToVarData(XMLElement * element,
                                      const std::vector<QVXMLCoordinates> & coordinates,
                                      int minimum, int maximum);
  static void ReplaceSpecialChar(const std::string & in, std::string & out);
};

}  // namespace QVXML_940
