// The "UnivariateStats" element of a field.

#include "xml/export/univariate_statistics.h"

#include <cmath>
#include <limits>
#include <string>

#include "NumberText.h"
#include "PMMLVocabulary.h"
#include "QVMV.h"
#include "QVPMMLExporter.h"
#include "QVUniStats.h"
#include "XMLElement.h"
#include "XMLString.h"
#include "xml/export/field_attributes.h"

namespace QVCommon_940 {

using namespace QVXML_940;

namespace {

/// How a missing frequency reads; the lists of the StatXML builders use another word.
const char * const kMissingFrequency = "NaN";

bool IsKnown(double value) {
  return std::isfinite(value) && !QVMV::IsMissing(value);
}

void AddIfKnown(XMLElement & element, const std::string & name, double value) {
  if (IsKnown(value)) element.AddAttribute(name, value);
}

/// The frequencies as text, with a blank between two.
std::string FrequencyText(const std::vector<double> & frequencies) {
  std::string text;
  for (double frequency : frequencies) {
    if (!text.empty()) text += ' ';
    text += QVMV::IsMissing(frequency) ? kMissingFrequency : Format(frequency, false, nullptr);
  }
  return text;
}

/// "Array" of reals; an empty list leaves it without text.
void AddFrequencyArray(XMLElement & parent, const std::vector<double> & frequencies) {
  XMLElement * array = XMLElement::Create(PMML_Array);
  parent.AddElement(array);
  array->AddAttribute(PMML_type, PMML_real);
  if (!frequencies.empty()) array->AddElement(XMLString::Create(FrequencyText(frequencies)));
}

void AddDiscrStats(XMLElement & parent, const std::vector<double> & frequencies) {
  XMLElement * discrete = XMLElement::Create(PMML_DiscrStats);
  parent.AddElement(discrete);
  AddFrequencyArray(*discrete, frequencies);
}

void AddNumericInfo(XMLElement & parent, const QVUniStats::SummStats & summary) {
  XMLElement * info = XMLElement::Create(PMML_NumericInfo);
  parent.AddElement(info);
  AddIfKnown(*info, PMML_minimum, summary.fMinimum);
  if (summary.fMaximum != std::numeric_limits<double>::max()) {
    AddIfKnown(*info, PMML_maximum, summary.fMaximum);
  }
  AddIfKnown(*info, PMML_mean, summary.fMean);
  AddIfKnown(*info, PMML_standardDeviation, summary.fStdDev);
}

}  // namespace

std::unique_ptr<XMLElement> MakeContStats(const std::vector<double> & cutPoints,
                                          const std::vector<double> & frequencies, bool openLeft) {
  std::unique_ptr<XMLElement> stats(XMLElement::Create(PMML_ContStats));
  if (cutPoints.empty()) return stats;
  const std::string & closure = openLeft ? PMML_openClosed : PMML_closedOpen;
  for (std::size_t i = 0; i + 1 < cutPoints.size(); ++i) {
    XMLElement * interval = XMLElement::Create(PMML_Interval);
    stats->AddElement(interval);
    AddIfKnown(*interval, PMML_leftMargin, cutPoints[i]);
    AddIfKnown(*interval, PMML_rightMargin, cutPoints[i + 1]);
    interval->AddAttribute(PMML_closure, closure);
  }
  if (!frequencies.empty()) AddFrequencyArray(*stats, frequencies);
  return stats;
}

QVStatus QVPMMLExporter::ExportUniStats(const QVUniStats & stats, XMLElement *& element) {
  element = nullptr;
  if (!stats.IsValid()) return QVStatus(kStatusInvalidStatistics, false);

  fElement.reset(XMLElement::Create(PMML_UnivariateStats));
  fElement->AddAttribute(PMML_field, stats.GetVarName());
  XMLElement * counts = XMLElement::Create(PMML_Counts);
  fElement->AddElement(counts);
  counts->AddAttribute(PMML_totalFreq, stats.GetNumberOfCases());
  if (stats.IsCategorical()) {
    AddDiscrStats(*fElement, stats.GetFrequencies());
  } else {
    AddNumericInfo(*fElement, stats.GetSummStats());
    fElement->AddElement(
        MakeContStats(stats.GetCutPoints(), stats.GetFrequencies(), stats.AreIntervalsOpenLeft())
            .release());
  }
  element = fElement.release();
  return QVStatus();
}

}  // namespace QVCommon_940
