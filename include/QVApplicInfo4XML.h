/// What an application tells about itself in the header of the documents it writes.
///
///     QVCommon_940::QVApplicInfo4XML info;
///     info.fName = "regression";
///     info.fVersion = "1.0";
///     exporter.ExportHeader(&info, "body mass of penguins", true, header);
///
/// A plain value. Texts are narrow strings like every text of the library (UTF-8 under a UTF-8 or
/// an ASCII locale).
#pragma once

#include <string>

namespace QVCommon_940 {

struct QVApplicInfo4XML {
  int fReserved = 0;       ///< kept for the application; no operation of the library reads it
  std::string fName;       ///< the application's name; empty: not told
  std::string fVersion;    ///< its version; empty: not told
  std::string fCopyright;  ///< its copyright notice; empty: the library's own notice is written
};

}  // namespace QVCommon_940
