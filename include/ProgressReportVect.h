/// A progress report that also offers vectors, such as the current parameter estimates.
#pragma once

#include <string>
#include <vector>

#include "ProgressReport.h"
#include "QVExport.h"

namespace QVCommon_940 {

class QVCOMMON_API ProgressReportVect : public ProgressReport {
 public:
  ~ProgressReportVect() override;

  /// The vector of that name, still owned by whoever computes it; null when there is none.
  virtual const std::vector<double> * VectorMeasure(const std::string & name) = 0;
};

}  // namespace QVCommon_940
