/// The parts that the persistent objects and displays of categorical and continuous variables have
/// in common: the missing value replacement and the encoder.
#pragma once

#include <iosfwd>
#include <string>

#include "IQVEncoder.h"
#include "XMLObj.h"

namespace QVXML_940 {

/// Writes whether there is a replacement, and the text; the lines written.
int WriteReplacement(XMLObj const & frame, std::ostream & out, std::string const * replacement);

/// Reads what `WriteReplacement` writes and adds the lines; false when that failed.
bool ParseReplacement(std::ifstream & in, bool & hasReplacement, std::string & replacement,
                      int & lines);

/// Writes the encoder's type, 0 for none, and the encoder one tab deeper; the lines written.
int WriteTypedEncoder(XMLObj const & frame, std::ostream & out, IQVEncoder const * encoder);

/// Shows the encoder, or the line "Encoder not set".
void DisplayEncoder(IQVEncoder const * encoder);

}  // namespace QVXML_940
