#include "QVDisplay.h"
#include "QVIterationReporter.h"
#include "QVMV.h"
#include "common/display/display_frame.h"

namespace QVCommon_940 {

ProgressReport::~ProgressReport() = default;

ProgressReportVect::~ProgressReportVect() = default;

}  // namespace QVCommon_940

namespace QVMath_940 {

QVIterationReporter::~QVIterationReporter() = default;

void QVIterationReporter::SetInfo(const std::vector<double> * estimates, int iteration,
                                  int halvings, double loglik, double time) {
  fEstimates = estimates;
  fIteration = iteration;
  fHalvings = halvings;
  fLoglik = loglik;
  fTime = time;
}

void QVIterationReporter::SetInfo(const std::vector<double> * estimates,
                                  const std::vector<double> * second,
                                  const std::vector<double> * third, int iteration, double loglik,
                                  double time) {
  fEstimates = estimates;
  fEstimates2 = second;
  fEstimates3 = third;
  fIteration = iteration;
  fLoglik = loglik;
  fTime = time;
}

int QVIterationReporter::DiscreteMeasure(const std::string & name) {
  if (name == "iterNum") {
    return fIteration;
  }
  if (name == "stepHalving") {
    return fHalvings;
  }
  return -1;
}

double QVIterationReporter::ScaleMeasure(const std::string & name) {
  if (name == "loglik") {
    return fLoglik;
  }
  if (name == "time") {
    return fTime;
  }
  return QVCommon_940::QVMV::Missing();
}

const std::vector<double> * QVIterationReporter::VectorMeasure(const std::string & name) {
  if (name == "paramEstim") {
    return fEstimates;
  }
  if (name == "paramEstim2") {
    return fEstimates2;
  }
  if (name == "paramEstim3") {
    return fEstimates3;
  }
  return nullptr;
}

void QVIterationReporter::Reset() {
  SetInfo(nullptr, nullptr, nullptr, 0, 0.0, 0.0);
  fHalvings = 0;
}

void QVIterationReporter::Display() const {
  const QVDisplay_940::DisplayFrame frame("QVIterationReporter");
  QVDisplay_940::DisplayI("Iteration number", fIteration);
  QVDisplay_940::DisplayI("Number of step halving", fHalvings);
  QVDisplay_940::DisplayD("Pseudo -2 log-likelihood", fLoglik);
  QVDisplay_940::DisplayD("Elapsed time in sec", fTime);
  if (fEstimates != nullptr) {
    QVDisplay_940::DisplayDV("Parameter estimates", *fEstimates, false);
  } else {
    QVDisplay_940::DisplayText(1, "Parameter estimates pointer is 0");
  }
  if (fEstimates2 != nullptr) {
    QVDisplay_940::DisplayDV("Parameter estimates, second vector", *fEstimates2, false);
  }
  if (fEstimates3 != nullptr) {
    QVDisplay_940::DisplayDV("Parameter estimates, third vector", *fEstimates3, false);
  }
}

}  // namespace QVMath_940
