/// The stock progress report of an iterative fit: the estimates, the step, the likelihood, the
/// time.
///
///     QVMath_940::QVIterationReporter report;
///     report.SetInfo(&estimates, iteration, halvings, loglik, seconds);
///     report.ScaleMeasure("loglik");
///
/// Measures: "iterNum", "stepHalving" (discrete), "loglik", "time" in seconds (scale),
/// "paramEstim", "paramEstim2", "paramEstim3" (vectors). Names are compared exactly, case included.
///
/// The vectors stay the caller's: only their addresses are kept, and copies share them.
/// Threads: one object from one thread at a time.
#pragma once

#include <string>
#include <vector>

#include "ProgressReportVect.h"
#include "QVExport.h"

namespace QVMath_940 {

class QVCOMMON_API QVIterationReporter : public QVCommon_940::ProgressReportVect {
 public:
  /// All measures zero or null.
  QVIterationReporter() = default;
  QVIterationReporter(const QVIterationReporter &) = default;
  QVIterationReporter & operator=(const QVIterationReporter &) = default;
  ~QVIterationReporter() override;

  /// Stores the five; the second and third vectors stay as they are.
  void SetInfo(const std::vector<double> * estimates, int iteration, int halvings, double loglik,
               double time);

  /// Stores the six; the step halvings stay as they are.
  void SetInfo(const std::vector<double> * estimates, const std::vector<double> * second,
               const std::vector<double> * third, int iteration, double loglik, double time);

  /// "iterNum" or "stepHalving"; -1 for any other name.
  int DiscreteMeasure(const std::string & name) override;

  /// "loglik" or "time"; the missing value for any other name.
  double ScaleMeasure(const std::string & name) override;

  /// "paramEstim", "paramEstim2" or "paramEstim3"; null for any other name.
  const std::vector<double> * VectorMeasure(const std::string & name) override;

  /// Makes all measures zero or null.
  virtual void Reset();

  /// Writes the measures to the display stream; of the second and third vector those that are set.
  virtual void Display() const;

 private:
  const std::vector<double> * fEstimates = nullptr;
  const std::vector<double> * fEstimates2 = nullptr;
  const std::vector<double> * fEstimates3 = nullptr;
  int fIteration = 0;
  int fHalvings = 0;
  double fLoglik = 0.0;
  double fTime = 0.0;
};

}  // namespace QVMath_940
