/// Narrow text to UTF-8.
///
/// The road has two steps: from the codeset to UTF-16 units, and from the units to UTF-8. Text that
/// is UTF-8 already takes a shorter one, with the same result: it is checked and passed on.
#pragma once

#include <string>
#include <string_view>

namespace QVXML_940 {

/// The codeset of the current locale by the name that iconv knows; "UTF-8" when that is ASCII.
std::string_view NarrowCodeset();

/// `text` has no byte that `RepairUtf8` would replace.
bool IsValidUtf8(std::string_view text);

/// `text` with every byte that is no part of a valid UTF-8 sequence replaced by U+FFFD.
std::string RepairUtf8(std::string_view text);

/// `text` in UTF-16 units; a byte that means nothing in `codeset` becomes U+FFFD. Of a codeset that
/// the system cannot convert, only the ASCII characters are kept.
std::u16string Utf16FromCodeset(std::string_view text, std::string_view codeset);

/// `units` in UTF-8. Units are not validated: a high surrogate writes the first two bytes of a
/// sequence and keeps two bits for the low surrogate, which writes the other two. A low surrogate
/// with no high one before it takes the bits that the last one left, at first none.
std::string Utf8FromUtf16(std::u16string_view units);

}  // namespace QVXML_940
