/// Named measures of a computation under way. The library offers them; the caller asks by name.
#pragma once

#include <string>

#include "QVExport.h"

namespace QVCommon_940 {

class QVCOMMON_API ProgressReport {
 public:
  virtual ~ProgressReport();

  /// The integer measure of that name.
  virtual int DiscreteMeasure(const std::string & name) = 0;

  /// The real measure of that name.
  virtual double ScaleMeasure(const std::string & name) = 0;
};

}  // namespace QVCommon_940
