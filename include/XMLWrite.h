/// From the tree, or from any text, to a stream.
///
///     std::ofstream file("model.xml", std::ios::binary);
///     WriteTreeUTF8(file, nullptr, root, true);
///
/// Every document begins with a declaration of UTF-8 encoding. `WriteTreeUTF8` makes that true for
/// text in the process's codeset; `WriteTree` writes the bytes as they are, and leaves it to the
/// caller that the codeset is UTF-8 or the text ASCII.
///
/// Every function returns 0 whatever happens; test the stream.
#pragma once

#include <iosfwd>
#include <string>

#include "QVExport.h"
#include "XMLDocType.h"
#include "XMLElement.h"

namespace QVXML_940 {

/// Writes the bytes of `text`.
QVCOMMON_API int Write(std::ostream & out, const std::string & text);

/// Writes `text`, converted from the process's codeset to UTF-8.
///
/// The codeset is that of the current locale (`setlocale`); a locale whose codeset is ASCII, such
/// as "C", stands for UTF-8. A byte that is no part of a character in that codeset becomes U+FFFD,
/// so that what is written is always valid UTF-8.
QVCOMMON_API int WriteUTF(std::ostream & out, const std::string & text);

/// Writes a document, bytes as they are: `docType`, or the XML declaration when that is null, and
/// the tree under `root`. With `format` true each element starts on a new line. Nothing follows the
/// declaration when `root` is null.
QVCOMMON_API int WriteTree(std::ostream & out, const XMLDocType * docType, const XMLElement * root,
                           bool format);

/// The same through `WriteUTF`.
QVCOMMON_API int WriteTreeUTF8(std::ostream & out, const XMLDocType * docType,
                               const XMLElement * root, bool format);

}  // namespace QVXML_940
