// QVUniStats: the finished summary of one field.

#include <algorithm>

#include "QVMV.h"
#include "QVUniStats.h"

namespace QVXML_940 {

using QVCommon_940::QVMV;

QVUniStats::QVUniStats() = default;

QVUniStats::QVUniStats(const std::string & name, double nCases,
                       const std::vector<double> & frequencies)
    : fVarName(name), fNCases(nCases), fFrequencies(frequencies) {
}

QVUniStats::QVUniStats(const std::string & name, double nCases, const SummStats & summStats,
                       const std::vector<double> & cutPoints,
                       const std::vector<double> & frequencies)
    : fVarName(name),
      fCategorical(false),
      fNCases(nCases),
      fFrequencies(frequencies),
      fCutPoints(cutPoints),
      fSummStats(summStats) {
}

bool QVUniStats::IsValid() const {
  const bool areFrequenciesValid = std::none_of(fFrequencies.begin(), fFrequencies.end(),
                                                [](double frequency) { return frequency < 0.0; });
  if (fVarName.empty() || fNCases < 0.0) return false;
  if (fCategorical) return areFrequenciesValid;

  if (fFrequencies.empty()) {
    if (!fCutPoints.empty()) return false;
  } else if (!areFrequenciesValid || !AreCutPointsValid()) {
    return false;
  }

  const bool hasMinimum = !QVMV::IsMissing(fSummStats.fMinimum);
  const bool hasMaximum = !QVMV::IsMissing(fSummStats.fMaximum);
  const bool hasMean = !QVMV::IsMissing(fSummStats.fMean);
  const bool hasStdDev = !QVMV::IsMissing(fSummStats.fStdDev);
  if (fNCases < 2.0 && hasStdDev) return false;
  if (fNCases == 0.0 && (hasMinimum || hasMaximum || hasMean)) return false;
  if (hasStdDev && fSummStats.fStdDev < 0.0) return false;
  return !(hasMinimum && hasMaximum && fSummStats.fMinimum > fSummStats.fMaximum);
}

/// One cut point more than frequencies; missing only at the ends, one at least not missing, the
/// others strictly ascending.
bool QVUniStats::AreCutPointsValid() const {
  if (fCutPoints.size() != fFrequencies.size() + 1) return false;
  auto first = fCutPoints.begin();
  auto last = fCutPoints.end();
  if (QVMV::IsMissing(*first)) ++first;
  if (first != last && QVMV::IsMissing(*(last - 1))) --last;
  if (first == last || std::any_of(first, last, QVMV::IsMissing)) return false;
  return std::adjacent_find(first, last, [](double a, double b) { return !(a < b); }) == last;
}

bool QVUniStats::IsCategorical() const {
  return fCategorical;
}

const std::string & QVUniStats::GetVarName() const {
  return fVarName;
}

double QVUniStats::GetNumberOfCases() const {
  return fNCases;
}

const std::vector<double> & QVUniStats::GetFrequencies() const {
  return fFrequencies;
}

const std::vector<double> & QVUniStats::GetCutPoints() const {
  return fCutPoints;
}

const QVUniStats::SummStats & QVUniStats::GetSummStats() const {
  return fSummStats;
}

void QVUniStats::SetIntervalsOpenLeft(bool openLeft) {
  fOpenLeft = openLeft;
}

bool QVUniStats::AreIntervalsOpenLeft() const {
  return fOpenLeft;
}

}  // namespace QVXML_940
