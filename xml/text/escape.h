/// The escaping of the writer, straight into the text that is being built.
#pragma once

#include <string>

namespace QVXML_940 {

/// Appends `XMLUtil::Escape(text)` to `out`.
void AppendEscapedValue(std::string & out, const std::string & text);

/// Appends `text` to `out` with "&" and "<" escaped: the form of element content.
void AppendEscapedContent(std::string & out, const std::string & text);

}  // namespace QVXML_940
