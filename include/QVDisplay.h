/// Diagnostic display: the free functions that every `Display` operation of the library is made of.
///
/// The text is for a developer's eyes; nothing reads it back. Each function writes a line end, its
/// label with the value behind it, and a flush, to one process-wide stream (the standard output
/// until `SetOutStream` names another).
///
///     QVDisplay_940::SetOutStream(log);
///     QVDisplay_940::DisplayText(1, "fit display start");
///     QVDisplay_940::DisplayD("deviance", 12.5);            // "\ndeviance = 12.5"
///     QVDisplay_940::DisplayIV("rows", {1, 2});             // "\nrows (size = 2)\n 1 2"
///
/// Missing values print as the word "miss". A list prints at most ten items on a line, and each
/// item brings the blank before it. The rows of a table and of a triangle stand on one line each.
/// Numbers take the decimal character of the process's locale, as printf does.
///
/// Threads: the stream pointer is shared by the whole process and unguarded; do not call
/// `SetOutStream` while another thread displays. The stream stays the caller's and must outlive its
/// use here.
#pragma once

#include <iosfwd>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "QVExport.h"

namespace QVDisplay_940 {

/// Replaces the display stream.
QVCOMMON_API void SetOutStream(std::ostream & stream);

/// The display stream in use.
QVCOMMON_API std::ostream * GetOutStream();

// --- Scalars ----------------------------------------------------------------------------------

/// `lines` line ends when that is above 0, then the text. A null `text` writes nothing at all.
QVCOMMON_API void DisplayText(const long & lines, const char * text);
QVCOMMON_API void DisplayText(const long & lines, const std::string & text);

/// "label = true" or "label = false".
QVCOMMON_API void DisplayB(std::string label, bool value);

/// "label = %g".
QVCOMMON_API void DisplayD(std::string label, double value);

/// "label = %.17g": all digits.
QVCOMMON_API void DisplayDF(std::string label, double value);

/// "label = %d".
QVCOMMON_API void DisplayI(std::string label, int value);

/// "label = value".
QVCOMMON_API void DisplayS(std::string label, std::string value);

/// The local time as "year-month-day-hour-minute-second: label".
QVCOMMON_API void DisplayTimeStamp(std::string label);

// --- Lists: "label (size = n)", then the items ------------------------------------------------

/// Doubles as " %g". The head shows the size only when `withSize` is true. No items for n below 1.
QVCOMMON_API void DisplayDA(std::string label, const double * values, int n, bool withSize);

/// The items of `DisplayDA` without a head.
QVCOMMON_API void DisplayDAS(const double * values, int n);

/// Doubles; `fine` true writes one item a line with all digits, " = %.17g".
QVCOMMON_API void DisplayDV(std::string label, const std::vector<double> & values, bool fine);

/// Integers as " %d" and " %u".
QVCOMMON_API void DisplayIV(std::string label, const std::vector<int> & values);
QVCOMMON_API void DisplayUV(std::string label, const std::vector<unsigned int> & values);

/// Flags as " t" and " f".
QVCOMMON_API void DisplayBV(std::string label, const std::vector<bool> & values);

/// Strings in double quotes.
QVCOMMON_API void DisplaySV(std::string label, const std::vector<std::string> & values);

/// Pairs of doubles as " %g %g".
QVCOMMON_API void DisplayVPD(std::string label,
                             const std::vector<std::pair<double, double>> & values);

/// Pairs of a double and an integer as " %g" and "%d". NOTHING stands between the two: (1.5, 7)
/// reads " 1.57".
QVCOMMON_API void DisplayVPDI(std::string label,
                              const std::vector<std::pair<double, int>> & values);

/// Pairs of integers as "(%d,%d) ", behind one blank that starts each line.
QVCOMMON_API void DisplayVPII(std::string label, const std::vector<std::pair<int, int>> & values);

// --- Nested forms: the label when it is not empty, then each row ------------------------------

/// Each row as `DisplayDV` under "vec[i]"; an empty list prints " <none>" behind the label.
QVCOMMON_API void DisplayDVV(std::string label, const std::vector<std::vector<double>> & rows,
                             bool fine);

/// Each row as `DisplaySV` under "vec[i]"; an empty list prints " <none>" behind the label.
QVCOMMON_API void DisplaySVV(std::string label, const std::vector<std::vector<std::string>> & rows);

/// A table of flags, a row a line as " t" and " f", behind the head
/// "label ( number of rows =  2, number of columns =  3 )". The columns are those of the first row.
QVCOMMON_API void DisplayBVV(std::string label, const std::vector<std::vector<bool>> & rows);

/// A packed lower triangle with `rows` rows: "label (number of elements = 3, number of rows = 2)",
/// then a row a line as "row  1:  2 3". Where `values` is too short the rows end with it.
QVCOMMON_API void DisplayDVTR(std::string label, const std::vector<double> & values, int rows);

/// `DisplayDVTR` with an empty label.
QVCOMMON_API void DisplayDVTRS(const std::vector<double> & values, int rows);

// --- Maps: an empty map prints " <empty>" behind the label ------------------------------------

/// "map size = n", then the entries on one line as " (%d,%d)" or " (%g,%g)".
QVCOMMON_API void DisplayIIM(std::string label, const std::map<int, int> & map);
QVCOMMON_API void DisplayDDM(std::string label, const std::map<double, double> & map);

/// The entries of `DisplayIIM` without the size.
QVCOMMON_API void DisplayVIM(std::string label, const std::map<int, int> & map);

/// Each entry: the key under "Map key", the value under "Map value".
QVCOMMON_API void DisplayIntVecIntMap(std::string label,
                                      const std::map<std::vector<int>, int> & map);
QVCOMMON_API void DisplayIntVecDVecMap(std::string label,
                                       const std::map<std::vector<int>, std::vector<double>> & map);

/// Each entry: the key under "Map's StringList:", the value under "Map's double".
QVCOMMON_API void DisplaySLDM(std::string label,
                              const std::map<std::vector<std::string>, double> & map);

}  // namespace QVDisplay_940
