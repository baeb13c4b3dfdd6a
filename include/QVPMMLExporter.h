/// Turns a variable list and univariate statistics into the elements of a PMML 4.3 document, and
/// into the `DataModel` element that describes the same fields in this library's own terms.
///
/// The exporter makes the parts; the procedure puts them together with its own model between them
/// and writes the tree:
///
///     QVPMMLExporter exporter(&query);
///     std::unique_ptr<XMLElement> root(exporter.ExportPMMLElement());
///     XMLElement * part = nullptr;
///     exporter.ExportHeader(&info, "", true, part);
///     root->AddElement(part);
///     if (!exporter.ExportDataDictionary(variables, {}, part).IsOK()) ...
///     root->AddElement(part);
///     root->AddElement(model);
///     QVXML_940::WriteTreeUTF8(file, nullptr, root.get(), true);
///
/// The standard's order is header, dictionary, models; in a model, `ModelStats` (which holds the
/// `UnivariateStats` elements) stands behind `MiningSchema`.
///
/// Ownership: every element handed out is new and the caller's. The query object stays the caller's
/// and must outlive the exporter. Missing values: a statistic that is the missing value, or is not
/// finite, is left out; a missing frequency is written as "NaN". Threads: the query is asked on the
/// caller's thread; one exporter serves one call at a time.
///
/// Beware: the schema of PMML has no place for an `Extension` behind a `Value`. A field with a
/// missing-value interval and with `Value` elements (categories or discrete missing values) comes
/// out with both, in that order, and a validating reader refuses it. Give a variable that is to be
/// exported the one or the other (docs/pmml.md).
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "QVApplicInfo4XML.h"
#include "QVExport.h"
#include "QVStatus.h"

namespace QVXML_940 {
class QVUniStats;
class QVVarList;
class XMLElement;
}  // namespace QVXML_940

namespace QVCommon_940 {

class QVQueryCancel;

class QVCOMMON_API QVPMMLExporter {
 public:
  /// An exporter that asks `cancel` whether to stop; null: it never stops.
  explicit QVPMMLExporter(QVQueryCancel * cancel = nullptr);
  ~QVPMMLExporter();

  /// Copies share the query object. An element under construction is never shared.
  QVPMMLExporter(const QVPMMLExporter & other);
  QVPMMLExporter & operator=(const QVPMMLExporter & other);

  // --- The frame of the document --------------------------------------------------------------

  /// The root: "PMML" with the version "4.3", its namespace, the namespace of schema instances and
  /// the schema location. No children.
  QVXML_940::XMLElement * ExportPMMLElement() const;

  /// The same root. The name is older than the version it yields: it too is "4.3".
  QVXML_940::XMLElement * ExportPMMLElement40() const;

  /// "Header" with the copyright notice (that of `info`, or the library's own when it is empty),
  /// "description" when not empty, the child "Application" when `info` has a name or a version, and
  /// with `timestamp` the child "Timestamp": the present local time as `ctime` writes it, such as
  /// "Wed Jan  2 02:03:55 1980". A null `info` counts as one with empty texts. Always succeeds.
  ///
  /// A version without a name makes an "Application" without the "name" that the schema wants.
  QVStatus ExportHeader(const QVApplicInfo4XML * info, const std::string & description,
                        bool timestamp, QVXML_940::XMLElement *& header);

  // --- The fields -----------------------------------------------------------------------------

  /// "DataDictionary": one "DataField" for each listed position of `variables`, in the list's
  /// order, with its valid and missing values. Empty `indices` mean all variables in order, without
  /// those whose role is unused (6).
  ///
  /// The query is asked before each variable and once at the end. Result:
  ///
  ///     OK                   `dictionary` is complete
  ///     code 101, an error   an index out of range; discrete datum 0 holds it. `dictionary` holds
  ///                          the fields made before it
  ///     code 102, an error   no variable at that index; the same
  ///     code 1, an error     the query stopped the work; `dictionary` is null. It takes the place
  ///                          of a code 101 or 102
  ///
  /// A variable of unknown measure level gets no "optype", which the schema requires. A list
  /// without variables gives a dictionary without fields, which the schema refuses too.
  QVStatus ExportDataDictionary(const QVXML_940::QVVarList & variables,
                                const std::vector<int> & indices,
                                QVXML_940::XMLElement *& dictionary);

  /// "DataModel": the list's field formats element, then "Fields" with one "Field" for each listed
  /// variable: name, label, measure, storage and role. Empty `indices` mean all variables, unused
  /// ones included. Results as for `ExportDataDictionary`.
  QVStatus ExportDataModel(const QVXML_940::QVVarList & variables, const std::vector<int> & indices,
                           QVXML_940::XMLElement *& model);

  // --- Statistics and extensions --------------------------------------------------------------

  /// "UnivariateStats" of one field: its counts, then the frequencies of a categorical field, or
  /// the moments, the intervals and their frequencies of a continuous one.
  ///
  /// Statistics that fail their own `IsValid` give code 117, an error, and a null `element`.
  QVStatus ExportUniStats(const QVXML_940::QVUniStats & stats, QVXML_940::XMLElement *& element);

  /// "Extension" with "name", "value" and the vendor's identifier as "extender". Empty texts are
  /// left out.
  void ExportExtension(const std::string & name, const std::string & value,
                       QVXML_940::XMLElement *& extension);

  /// The same with a number of 15 significant digits; NaN and the infinities are left out. The
  /// missing value is an ordinary number here and is written.
  void ExportExtension(const std::string & name, double value, QVXML_940::XMLElement *& extension);

 private:
  std::unique_ptr<QVXML_940::XMLElement> fElement;  // under construction; null between calls
  QVQueryCancel * fCancel;                          // not owned
};

}  // namespace QVCommon_940
