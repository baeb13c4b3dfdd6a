#include "xml/variable/persistent_parts.h"

#include <iostream>

namespace QVXML_940 {

void FailRead(const char * line) {
  std::cerr << line << std::flush;
  throw new IOException;
}

std::streamoff FileSize(std::ifstream & in) {
  std::filebuf & buffer = *in.rdbuf();
  const std::streamoff unknown = -1;
  const std::streampos here = buffer.pubseekoff(0, std::ios_base::cur, std::ios_base::in);
  if (here == std::streampos(unknown)) return unknown;
  const std::streampos end = buffer.pubseekoff(0, std::ios_base::end, std::ios_base::in);
  buffer.pubseekpos(here, std::ios_base::in);
  return end;
}

bool ParseCount(std::ifstream & in, int & count) {
  if (!ParseValue(in, count) || count < 0) return false;
  const std::streamoff bytes = FileSize(in);
  return bytes < 0 || count <= bytes;
}

}  // namespace QVXML_940
