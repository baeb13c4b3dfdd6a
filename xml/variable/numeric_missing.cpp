#include "xml/variable/numeric_missing.h"

#include <algorithm>

#include "QVDisplay.h"
#include "common/display/display_line.h"
#include "xml/variable/persistent_parts.h"

namespace QVXML_940 {

bool IsMissingNumber(QVNumericMissing const & missing, double value) {
  if (QVCommon_940::QVMV::IsMissing(value)) return true;
  if (missing.fHasInterval && missing.fLow <= value && value <= missing.fHigh) return true;
  return std::find(missing.fValues.begin(), missing.fValues.end(), value) != missing.fValues.end();
}

bool SetInterval(QVNumericMissing & missing, double low, double high) {
  if (!(high > low) || missing.fHasInterval) return false;
  missing.fHasInterval = true;
  missing.fLow = low;
  missing.fHigh = high;
  return true;
}

bool GetInterval(QVNumericMissing const & missing, double & low, double & high) {
  if (!missing.fHasInterval) return false;
  low = missing.fLow;
  high = missing.fHigh;
  return true;
}

int WriteMissing(XMLObj const & frame, std::ostream & out, QVNumericMissing const & missing) {
  frame.WriteSubElement(out, missing.fHasInterval);
  int lines = 1;
  if (missing.fHasInterval) {
    frame.WriteSubElement(out, missing.fLow);
    frame.WriteSubElement(out, missing.fHigh);
    lines += 2;
  }
  lines += WriteCountedList(frame, out, missing.fValues);
  return lines + WriteList(frame, out, missing.fLabels);
}

bool ParseMissing(std::ifstream & in, QVNumericMissing & missing, int & lines) {
  missing = QVNumericMissing();
  if (!ParseValue(in, missing.fHasInterval)) return false;
  lines += 1;
  if (missing.fHasInterval) {
    if (!ParseValue(in, missing.fLow) || !ParseValue(in, missing.fHigh)) return false;
    lines += 2;
  }
  int count = 0;
  if (!ParseCount(in, count) || !ParseList(in, count, missing.fValues) ||
      !ParseList(in, count, missing.fLabels)) {
    return false;
  }
  lines += 1 + 2 * count;
  return true;
}

void DisplayMissing(QVNumericMissing const & missing) {
  using namespace QVDisplay_940;
  DisplayDV("Discrete user missing values", missing.fValues, false);
  DisplaySV("\t\tMissing Value Labels:", missing.fLabels);
  if (missing.fHasInterval) {
    DisplayText(1, "\t\tUser-missing interval for this encoder: ");
    DisplayText(1, "\t\t[ " + ShortNumber(missing.fLow) + ", " + ShortNumber(missing.fHigh) + " ]");
  }
}

}  // namespace QVXML_940
