/// The last step of every node's `ToStream`.
#pragma once

#include <iosfwd>
#include <string>

namespace QVXML_940 {

/// Writes a finished piece of text: through `WriteUTF` when `utf` is true, else its bytes. Returns
/// 0.
int WritePiece(std::ostream & out, const std::string & piece, bool utf);

}  // namespace QVXML_940
