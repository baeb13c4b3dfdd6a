#include "xml/text/narrow_text.h"

#include <iconv.h>
#include <langinfo.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace QVXML_940 {

namespace {

constexpr std::string_view kUtf8 = "UTF-8";
constexpr char16_t kReplacement = 0xFFFD;
constexpr std::string_view kReplacementUtf8 = "\xEF\xBF\xBD";

bool IsAscii(char byte) {
  return static_cast<unsigned char>(byte) < 0x80;
}

// The length of the valid UTF-8 sequence at the head of `text`, or 0. The table is that of
// well-formed sequences in The Unicode Standard, chapter 3 (table 3-7): the second byte's range
// depends on the first, which rules out overlong forms, surrogates and what lies above U+10FFFF.
std::size_t SequenceLength(std::string_view text) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned lead = byte(0);
  if (lead < 0x80) return 1;

  std::size_t length = 0;
  unsigned low = 0x80;
  unsigned high = 0xBF;
  if (lead >= 0xC2 && lead <= 0xDF) {
    length = 2;
  } else if (lead >= 0xE0 && lead <= 0xEF) {
    length = 3;
    if (lead == 0xE0) low = 0xA0;
    if (lead == 0xED) high = 0x9F;
  } else if (lead >= 0xF0 && lead <= 0xF4) {
    length = 4;
    if (lead == 0xF0) low = 0x90;
    if (lead == 0xF4) high = 0x8F;
  } else {
    return 0;
  }
  if (text.size() < length || byte(1) < low || byte(1) > high) return 0;
  for (std::size_t i = 2; i < length; ++i) {
    if (byte(i) < 0x80 || byte(i) > 0xBF) return 0;
  }
  return length;
}

// The length of the run of ASCII at the head of `text`.
std::size_t AsciiLength(std::string_view text) {
  std::size_t i = 0;
  for (; i + sizeof(std::uint64_t) <= text.size(); i += sizeof(std::uint64_t)) {
    std::uint64_t word = 0;
    std::memcpy(&word, text.data() + i, sizeof word);
    if ((word & 0x8080808080808080) != 0) break;
  }
  while (i < text.size() && IsAscii(text[i]))
    ++i;
  return i;
}

// The place of the first byte that begins no valid sequence, or the text's length.
std::size_t FindInvalidUtf8(std::string_view text) {
  std::size_t i = AsciiLength(text);
  while (i < text.size()) {
    const std::size_t length = SequenceLength(text.substr(i));
    if (length == 0) break;
    i += length;
    if (i < text.size() && IsAscii(text[i])) i += AsciiLength(text.substr(i));
  }
  return i;
}

// One conversion descriptor, closed at the end of its scope.
class Converter {
 public:
  Converter(const std::string & from, const char * to) : fHandle(iconv_open(to, from.c_str())) {}
  ~Converter() {
    if (IsOpen()) iconv_close(fHandle);
  }
  Converter(const Converter &) = delete;
  Converter & operator=(const Converter &) = delete;

  bool IsOpen() const { return fHandle != reinterpret_cast<iconv_t>(-1); }
  iconv_t Handle() const { return fHandle; }

 private:
  iconv_t fHandle;
};

}  // namespace

std::string_view NarrowCodeset() {
  const std::string_view codeset = nl_langinfo(CODESET);
  const bool isAscii = codeset == "ANSI_X3.4-1968" || codeset == "US-ASCII" || codeset == "ASCII";
  return isAscii || codeset.empty() ? kUtf8 : codeset;
}

bool IsValidUtf8(std::string_view text) {
  return FindInvalidUtf8(text) == text.size();
}

std::string RepairUtf8(std::string_view text) {
  std::string repaired;
  repaired.reserve(text.size());
  while (!text.empty()) {
    const std::size_t valid = FindInvalidUtf8(text);
    repaired.append(text.substr(0, valid));
    text.remove_prefix(valid);
    if (!text.empty()) {
      repaired.append(kReplacementUtf8);
      text.remove_prefix(1);
    }
  }
  return repaired;
}

std::u16string Utf16FromCodeset(std::string_view text, std::string_view codeset) {
  std::u16string units;
  units.reserve(text.size());
  const Converter converter{std::string(codeset), "UTF-16LE"};
  if (!converter.IsOpen()) {
    for (const char byte : text) {
      units.push_back(IsAscii(byte) ? static_cast<char16_t>(byte) : kReplacement);
    }
    return units;
  }

  std::array<unsigned char, 1024> chunk;
  const auto append = [&](std::size_t bytes) {
    for (std::size_t i = 0; i + 1 < bytes; i += 2) {
      units.push_back(static_cast<char16_t>(chunk[i] | (chunk[i + 1] << 8)));
    }
  };
  char * in = const_cast<char *>(text.data());  // iconv reads it only
  std::size_t inLeft = text.size();
  while (inLeft > 0) {
    char * out = reinterpret_cast<char *>(chunk.data());
    std::size_t outLeft = chunk.size();
    const std::size_t result = iconv(converter.Handle(), &in, &inLeft, &out, &outLeft);
    const bool isInvalid = result == static_cast<std::size_t>(-1) && errno != E2BIG;
    append(chunk.size() - outLeft);
    if (isInvalid) {
      units.push_back(kReplacement);
      ++in;
      --inLeft;
    }
  }
  // What a codeset holds back at the end of its text.
  char * out = reinterpret_cast<char *>(chunk.data());
  std::size_t outLeft = chunk.size();
  iconv(converter.Handle(), nullptr, nullptr, &out, &outLeft);
  append(chunk.size() - outLeft);
  return units;
}

std::string Utf8FromUtf16(std::u16string_view units) {
  std::string text;
  text.reserve(units.size());
  const auto put = [&](unsigned byte) { text.push_back(static_cast<char>(byte)); };
  unsigned carried = 0;  // the last two bits of a high surrogate
  for (const char16_t unit : units) {
    const unsigned u = unit;
    if (u < 0x80) {
      put(u);
    } else if (u < 0x800) {
      put(0xC0 | u >> 6);
      put(0x80 | (u & 0x3F));
    } else if (u < 0xD800 || u > 0xDFFF) {
      put(0xE0 | u >> 12);
      put(0x80 | (u >> 6 & 0x3F));
      put(0x80 | (u & 0x3F));
    } else if (u < 0xDC00) {
      const unsigned upper = u - 0xD800 + 0x40;  // the code point without its low ten bits
      put(0xF0 | upper >> 8);
      put(0x80 | (upper >> 2 & 0x3F));
      carried = upper & 0x3;
    } else {
      put(0x80 | carried << 4 | (u - 0xDC00) >> 6);
      put(0x80 | (u & 0x3F));
    }
  }
  return text;
}

}  // namespace QVXML_940
