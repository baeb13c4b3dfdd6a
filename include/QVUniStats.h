/// The finished univariate summary of one field, as the model output reads it.
///
///     QVXML_940::QVUniStats species("species", 344.0, {152.0, 68.0, 124.0});       // categorical
///     QVXML_940::QVUniStats mass("mass", 342.0, {2700.0, 6300.0, 4201.8, 802.0},   // continuous
///                                {2700.0, 4500.0, 6300.0}, {219.0, 123.0});
///     if (mass.IsValid()) ...
///
/// A continuous field has its summary statistics and may have a histogram: the frequencies of the
/// intervals between neighbouring cut points. A first or last cut point that is missing leaves the
/// outer interval open to that side.
///
/// The object only keeps what it is given; `IsValid` judges it. Threads: different objects may be
/// used from different threads.
#pragma once

#include <string>
#include <vector>

#include "QVExport.h"
#include "QVMV.h"

namespace QVXML_940 {

class QVCOMMON_API QVUniStats {
 public:
  /// Summary statistics of a continuous field; each may be missing.
  struct SummStats {
    double fMinimum = QVCommon_940::QVMV::Missing();
    double fMaximum = QVCommon_940::QVMV::Missing();
    double fMean = QVCommon_940::QVMV::Missing();
    double fStdDev = QVCommon_940::QVMV::Missing();
  };

  /// A categorical field named "x" without cases.
  QVUniStats();

  /// A categorical field: the frequencies of its categories.
  QVUniStats(const std::string & name, double nCases, const std::vector<double> & frequencies);

  /// A continuous field: its statistics and its histogram, which may be empty.
  QVUniStats(const std::string & name, double nCases, const SummStats & summStats,
             const std::vector<double> & cutPoints, const std::vector<double> & frequencies);

  /// True when the parts fit together:
  ///
  /// - no frequency is negative (the missing value is negative), the name is not empty and the
  ///   number of cases not negative. A categorical field needs no more;
  /// - with frequencies there is one cut point more than there are frequencies; only the first and
  ///   the last may be missing, one at least is not, and the others ascend strictly. Without
  ///   frequencies there are no cut points;
  /// - the standard deviation is missing with fewer than 2 cases, and all statistics are with none;
  /// - the standard deviation is not negative, and the minimum not above the maximum, where they
  ///   are not missing.
  bool IsValid() const;

  /// What the object holds. Frequencies are those of the categories, or of the intervals between
  /// the cut points.
  bool IsCategorical() const;
  const std::string & GetVarName() const;
  double GetNumberOfCases() const;
  const std::vector<double> & GetFrequencies() const;
  const std::vector<double> & GetCutPoints() const;
  const SummStats & GetSummStats() const;

  /// Whether an interval holds its right cut point and not its left one (true, as at the start) or
  /// the other way round.
  void SetIntervalsOpenLeft(bool openLeft);
  bool AreIntervalsOpenLeft() const;

 private:
  bool AreCutPointsValid() const;

  std::string fVarName = "x";
  bool fCategorical = true;
  double fNCases = 0.0;
  std::vector<double> fFrequencies;
  bool fOpenLeft = true;
  std::vector<double> fCutPoints;
  SummStats fSummStats;
};

}  // namespace QVXML_940
