/// One line of the persistence file, cut into tokens.
///
///     LineTokens line;
///     if (!line.Read(in)) return false;
///     const char * tag = line.Next(" <");       // null when there is none left
///
/// The cutting is that of `strtok` with its place kept here: leading delimiters are skipped, the
/// token ends before the next delimiter, and that one character is gone.
#pragma once

#include <array>
#include <cstddef>
#include <istream>

namespace QVXML_940 {

class LineTokens {
 public:
  /// The longest line, its end not counted.
  static constexpr std::size_t kLongestLine = 255;

  /// Reads the next line. False when the stream failed, as it does on a longer line and behind the
  /// last one; a last line without a line end is read.
  bool Read(std::istream & in);

  bool IsEmpty() const { return fLine[0] == '\0'; }

  /// The next token by this set of delimiters, or null. It lives as long as the line.
  const char * Next(const char * delimiters);

  /// The next token by this set is `text`.
  bool NextIs(const char * delimiters, const std::string & text);

 private:
  std::array<char, kLongestLine + 1> fLine{};
  char * fRest = fLine.data();
};

}  // namespace QVXML_940
