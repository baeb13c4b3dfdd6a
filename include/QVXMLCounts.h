/// How many cases a chart speaks of, by fate.
///
///     QVXML_940::QVXMLCounts counts;
///     counts.fTotalFreq = 344.0;
///     data.fCounts.push_back(counts);
///
/// A plain record: every field is public, in the order in which it is written, and the missing
/// value says "not known".
#pragma once

#include "QVExport.h"
#include "QVMV.h"

namespace QVXML_940 {

struct QVCOMMON_API QVXMLCounts {
  QVXMLCounts() = default;
  QVXMLCounts(const QVXMLCounts &) = default;
  QVXMLCounts & operator=(const QVXMLCounts &) = default;
  virtual ~QVXMLCounts();

  /// Sum of the frequencies, written as "totalFreq". Beware: it is written even when it is missing,
  /// as the missing value's number.
  double fTotalFreq = QVCommon_940::QVMV::Missing();
  /// Frequency of missing cases, "missingFreq".
  double fMissingFreq = QVCommon_940::QVMV::Missing();
  /// Frequency of invalid cases, "invalidFreq".
  double fInvalidFreq = QVCommon_940::QVMV::Missing();
  /// Number of different values, "cardinality"; written from 0 on.
  double fCardinality = QVCommon_940::QVMV::Missing();
};

}  // namespace QVXML_940
