/// The persistence file: its root, and the reader that takes it line by line.
///
///     std::ofstream out("model.sav");
///     out << "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n"
///         << "<!DOCTYPE QVXMLRoot SYSTEM \"savexml.dtd\">\n";
///     WriteHeader(out, "Copyright ...");
///     encoder.WriteObjectXML(out, 1);
///     EndHeader(out);
///
///     std::ifstream in("model.sav");
///     if (ParseStartXML(in)) encoder.ReadObjectXML(in);
///
/// The reader is no XML parser: it wants one element on a line, in the order in which they were
/// written. It takes lines of at most 255 bytes; a longer one is a failed read. It undoes no
/// escaping: a string written with "&" comes back with "&amp;". docs/persistence.md shows the
/// format.
///
/// A failed operation returns false, leaves its target as it was and the stream behind what it
/// read. Nothing here throws.
///
/// Threads: the reader keeps no state of its own; different streams may be read by different
/// threads.
#pragma once

#include <fstream>
#include <iosfwd>
#include <string>

#include "PersistenceVocabulary.h"
#include "QVExport.h"

namespace QVXML_940 {

// --- Writing: always 0 ------------------------------------------------------------------------

/// Writes `<QVXMLRoot copyright="TEXT">`, the copyright escaped, with no line end. The two lines
/// that have to stand above it are the caller's to write.
QVCOMMON_API int StartRoot(std::ostream & out, std::string copyright);
QVCOMMON_API int WriteHeader(std::ostream & out, std::string copyright);

/// Writes a line feed and `</QVXMLRoot>`, with no line end.
QVCOMMON_API int EndRoot(std::ostream & out);
QVCOMMON_API int EndHeader(std::ostream & out);

// --- Reading ----------------------------------------------------------------------------------

/// Reads the three lines at the head of a file: "<?xml", "<!DOCTYPE" and "<QVXMLRoot". The rest of
/// each line is ignored.
QVCOMMON_API bool ParseStartXML(std::ifstream & in);

/// Reads the line `<Obj name="NAME">`, where NAME has to equal `name`, and one empty line before it
/// when there is one.
QVCOMMON_API bool ParseStartObj(std::ifstream & in, const std::string & name);

/// Reads an "Int" or "Long" line. A text that is no number gives 0. Of a longer "Int" the low 32
/// bits are kept; a "Long" stops at the ends of the machine's range.
QVCOMMON_API bool ParseValue(std::ifstream & in, int & value);
QVCOMMON_API bool ParseValue(std::ifstream & in, long & value);

/// Reads an "Int" line: the number truncated to a 64-bit integer, of which the low 32 bits are
/// kept, so that -1 gives 4294967295. A number beyond 64 bits gives 0.
QVCOMMON_API bool ParseValue(std::ifstream & in, unsigned int & value);

/// Reads an "Int" line that holds 0 or 1; any other number is a failed read.
QVCOMMON_API bool ParseValue(std::ifstream & in, bool & value);

/// Reads a "Double" line: "Missing" gives the missing value, anything else what stream extraction
/// in the classic locale makes of it (0 for no number, the largest double of its sign for a number
/// beyond the range). The result is true either way.
QVCOMMON_API bool ParseValue(std::ifstream & in, double & value);

/// Reads a "String" line. The value is taken as it stands in the file, references included.
QVCOMMON_API bool ParseValue(std::ifstream & in, std::string & value);

/// Reads the line `</Obj>`.
QVCOMMON_API bool ParseEndObj(std::ifstream & in);

}  // namespace QVXML_940
