#include "xml/text/narrow_text.h"

#include <random>
#include <string>

#include <gtest/gtest.h>

using namespace QVXML_940;

namespace {

const std::string kReplacement = "\xEF\xBF\xBD";

std::string ThroughUnits(const std::string & text, const char * codeset) {
  return Utf8FromUtf16(Utf16FromCodeset(text, codeset));
}

// UTF-8 by the definition, code point by code point.
std::string Utf8(char32_t c) {
  std::string text;
  const auto put = [&](char32_t byte) { text.push_back(static_cast<char>(byte)); };
  if (c < 0x80) {
    put(c);
  } else if (c < 0x800) {
    put(0xC0 + c / 64), put(0x80 + c % 64);
  } else if (c < 0x10000) {
    put(0xE0 + c / 4096), put(0x80 + c / 64 % 64), put(0x80 + c % 64);
  } else {
    put(0xF0 + c / 262144), put(0x80 + c / 4096 % 64), put(0x80 + c / 64 % 64), put(0x80 + c % 64);
  }
  return text;
}

}  // namespace

TEST(NarrowText, TheClassicLocaleStandsForUtf8) {
  EXPECT_EQ(NarrowCodeset(), "UTF-8");
}

// --- From UTF-16 units ------------------------------------------------------------------------

TEST(NarrowText, EveryCodePointFromItsUnits) {
  for (char32_t c = 0; c <= 0x10FFFF; ++c) {
    if (c == 0xD800) c = 0xE000;
    std::u16string units;
    if (c < 0x10000) {
      units.push_back(static_cast<char16_t>(c));
    } else {
      units.push_back(static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10)));
      units.push_back(static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF)));
    }
    ASSERT_EQ(Utf8FromUtf16(units), Utf8(c)) << static_cast<unsigned long>(c);
  }
}

TEST(NarrowText, ALoneLowSurrogateGivesTwoContinuationBytes) {
  EXPECT_EQ(Utf8FromUtf16(std::u16string(1, u'\xDC00')), "\x80\x80");
  EXPECT_EQ(Utf8FromUtf16(std::u16string(1, u'\xDFFF')), "\x8F\xBF");
}

TEST(NarrowText, ALoneLowSurrogateTakesTheBitsOfTheLastHighOne) {
  // U+D843 ends in the bits 11, which stay for the second low surrogate.
  const std::u16string units{u'\xD843', u'\xDC00', u'x', u'\xDC01'};
  EXPECT_EQ(Utf8FromUtf16(units), "\xF0\xA0\xB0\x80x\xB0\x81");
}

TEST(NarrowText, ALoneHighSurrogateGivesTwoBytes) {
  EXPECT_EQ(Utf8FromUtf16(std::u16string{u'\xD800', u'a'}),
            "\xF0\x90"
            "a");
}

// --- UTF-8 ------------------------------------------------------------------------------------

TEST(NarrowText, EveryCodePointIsValid) {
  for (char32_t c = 0; c <= 0x10FFFF; ++c) {
    if (c == 0xD800) c = 0xE000;
    ASSERT_TRUE(IsValidUtf8(Utf8(c))) << static_cast<unsigned long>(c);
  }
  for (char32_t c = 0xD800; c < 0xE000; ++c)
    ASSERT_FALSE(IsValidUtf8(Utf8(c)));
}

TEST(NarrowText, ABrokenByteIsFoundAtEveryPlace) {
  for (std::size_t length = 1; length <= 40; ++length) {
    EXPECT_TRUE(IsValidUtf8(std::string(length, 'a')));
    for (std::size_t at = 0; at < length; ++at) {
      std::string text(length, 'a');
      text[at] = '\x80';
      EXPECT_FALSE(IsValidUtf8(text));
      std::string expected(length, 'a');
      expected.replace(at, 1, kReplacement);
      EXPECT_EQ(RepairUtf8(text), expected);
    }
  }
}

TEST(NarrowText, RepairedTextIsValidAndTheRestStays) {
  std::mt19937 random(940);
  for (int i = 0; i < 20000; ++i) {
    std::string text(random() % 20, '\0');
    for (char & c : text)
      c = static_cast<char>(random() % 2 ? random() % 256 : 0x80 + random() % 0x80);
    const std::string repaired = RepairUtf8(text);
    ASSERT_TRUE(IsValidUtf8(repaired));
    ASSERT_EQ(IsValidUtf8(text), repaired == text);
    ASSERT_EQ(RepairUtf8(repaired), repaired);
    // The system's converter finds the same bytes wrong.
    ASSERT_EQ(ThroughUnits(text, "UTF-8"), repaired);
  }
}

// --- Other codesets ---------------------------------------------------------------------------

TEST(NarrowText, OtherCodesets) {
  EXPECT_EQ(ThroughUnits("", "ISO-8859-1"), "");
  EXPECT_EQ(ThroughUnits("\xE9", "ISO-8859-1"), "\xC3\xA9");
  EXPECT_EQ(ThroughUnits("\xA4", "ISO-8859-15"), "\xE2\x82\xAC");
  EXPECT_EQ(ThroughUnits("\x80", "CP1252"), "\xE2\x82\xAC");
}

TEST(NarrowText, BytesOutsideTheCodesetBecomeTheReplacementCharacter) {
  EXPECT_EQ(ThroughUnits("a\x81z", "CP1252"), "a" + kReplacement + "z");
}

TEST(NarrowText, LongTextsPassTheConvertersChunks) {
  const std::string text(5001, '\xE9');
  std::string expected;
  for (std::size_t i = 0; i < text.size(); ++i)
    expected += "\xC3\xA9";
  EXPECT_EQ(ThroughUnits(text, "ISO-8859-1"), expected);
}

TEST(NarrowText, AnUnknownCodesetKeepsItsAscii) {
  EXPECT_EQ(ThroughUnits("a\xE9z", "no-such-codeset"), "a" + kReplacement + "z");
}
