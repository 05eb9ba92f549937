#include "platform/text_encoding.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <string>
#include <string_view>

namespace quorbind::testing {

namespace {

using namespace std::string_literals;

std::string toUtf16(std::string_view utf8) {
  std::string bytes;
  appendUtf16LittleEndian(bytes, utf8);
  return bytes;
}

std::string fromUtf16(std::string_view bytes, ByteOrder order = ByteOrder::kLittleEndian) {
  std::string utf8;
  appendUtf8FromUtf16(utf8, bytes, order);
  return utf8;
}

std::string fromWindows1252(std::string_view bytes) {
  std::string utf8;
  appendUtf8FromWindows1252(utf8, bytes);
  return utf8;
}

std::string utf8Of(char32_t codePoint) {
  std::string utf8;
  appendUtf8(utf8, codePoint);
  return utf8;
}

/// The characters at the edges of what one, two, three and four bytes can say.
constexpr std::array<char32_t, 11> kEdges{
    0x00, 0x7F, 0x80, 0x7FF, 0x800, 0xD7FF, 0xE000, 0xFFFD, 0xFFFF, 0x10000, 0x10FFFF};

TEST(Utf8, IsValidAtEveryEdge) {
  for (const char32_t edge : kEdges) {
    const std::string character = utf8Of(edge);
    EXPECT_TRUE(isValidUtf8(character)) << static_cast<unsigned>(edge);
    EXPECT_EQ(firstUtf8Character(character + "x").codePoint, edge);
    EXPECT_EQ(firstUtf8Character(character + "x").length, character.size());
  }
}

TEST(Utf8, IsWrittenInTheShortestForm) {
  EXPECT_EQ(utf8Of(0x7F), "\x7F");
  EXPECT_EQ(utf8Of(0x80), "\xC2\x80");
  EXPECT_EQ(utf8Of(0x7FF), "\xDF\xBF");
  EXPECT_EQ(utf8Of(0x800), "\xE0\xA0\x80");
  EXPECT_EQ(utf8Of(0xFFFF), "\xEF\xBF\xBF");
  EXPECT_EQ(utf8Of(0x10000), "\xF0\x90\x80\x80");
  EXPECT_EQ(utf8Of(0x10FFFF), "\xF4\x8F\xBF\xBF");
}

TEST(Utf8, HasNoLongerFormsThanNeeded) {
  EXPECT_FALSE(isValidUtf8("\xC0\x80"));
  EXPECT_FALSE(isValidUtf8("\xC1\xBF"));
  EXPECT_FALSE(isValidUtf8("\xE0\x9F\xBF"));
  EXPECT_FALSE(isValidUtf8("\xF0\x8F\xBF\xBF"));
}

TEST(Utf8, HasNoSurrogates) {
  EXPECT_FALSE(isValidUtf8("\xED\xA0\x80"));
  EXPECT_FALSE(isValidUtf8("\xED\xBF\xBF"));
}

TEST(Utf8, EndsAtTheLastCodePoint) {
  EXPECT_FALSE(isValidUtf8("\xF4\x90\x80\x80"));
  EXPECT_FALSE(isValidUtf8("\xF8\x88\x80\x80\x80"));
  EXPECT_FALSE(isValidUtf8("\xFF"));
}

TEST(Utf8, IsInvalidWhereACharacterIsCutOff) {
  EXPECT_FALSE(isValidUtf8("\xC3"));
  EXPECT_FALSE(isValidUtf8("\xE2\x82"));
  EXPECT_FALSE(isValidUtf8("\xF0\x9F\x98"));
  EXPECT_FALSE(isValidUtf8("\xE2\x82x"));
  EXPECT_FALSE(isValidUtf8("\x80"));
}

TEST(Utf8, IsLookedThroughAtEveryPlaceOfALongText) {
  for (std::size_t place = 0; place <= 70; ++place) {
    std::string valid(place, 'x');
    valid.append("é").append(70 - place, 'x');
    std::string invalid(place, 'x');
    invalid.append("\xE9").append(70 - place, 'x');
    EXPECT_TRUE(isValidUtf8(valid)) << place;
    EXPECT_EQ(validUtf8Prefix(invalid), place);
  }
}

TEST(ValidUtf8Prefix, EndsBeforeTheFirstByteThatIsNoPartOfACharacter) {
  EXPECT_EQ(validUtf8Prefix(""), 0U);
  EXPECT_EQ(validUtf8Prefix("aé"), 3U);
  EXPECT_EQ(validUtf8Prefix("aé\xE9z"), 3U);
  EXPECT_EQ(validUtf8Prefix("aé\xF0\x9F\x98"), 3U);
}

TEST(ToValidUtf8, PutsOneReplacementCharacterForEachLostByte) {
  EXPECT_EQ(toValidUtf8("a\xE9\xE9z"), "a\uFFFD\uFFFDz");
  EXPECT_EQ(toValidUtf8("\xE2\x82"), "\uFFFD\uFFFD");
  EXPECT_EQ(toValidUtf8("\xED\xA0\x80"), "\uFFFD\uFFFD\uFFFD");
}

TEST(ToValidUtf8, LeavesValidTextAlone) {
  EXPECT_EQ(toValidUtf8("aé€😀"), "aé€😀");
  EXPECT_EQ(toValidUtf8(""), "");
}

TEST(Utf16, HoldsEveryCharacterAndGivesItBack) {
  std::string text = "plain text, ";
  for (const char32_t edge : kEdges) {
    appendUtf8(text, edge);
  }
  EXPECT_EQ(fromUtf16(toUtf16(text)), text);
}

TEST(Utf16, HasItsLowByteFirst) {
  EXPECT_EQ(toUtf16("aé€"), "a\0\xE9\0\xAC\x20"s);
}

TEST(Utf16, HoldsHighCharactersAsPairs) {
  EXPECT_EQ(toUtf16("😀"), "\x3D\xD8\x00\xDE"s);
  EXPECT_EQ(toUtf16("\U0010FFFF"), "\xFF\xDB\xFF\xDF");
}

TEST(Utf16, IsAppendedToWhatIsThere) {
  std::string bytes = "\xFF\xFE";
  appendUtf16LittleEndian(bytes, "a");
  EXPECT_EQ(bytes,
            "\xFF\xFE"
            "a\0"s);
}

TEST(Utf16, TakesBytesThatAreNoUtf8AsReplacementCharacters) {
  EXPECT_EQ(toUtf16("a\xE9\xE9z"), "a\0\xFD\xFF\xFD\xFFz\0"s);
}

TEST(Utf16, IsReadInEitherOrder) {
  EXPECT_EQ(fromUtf16("\x3D\xD8\x00\xDE"
                      "a\0"s),
            "😀a");
  EXPECT_EQ(fromUtf16("\xD8\x3D\xDE\x00\0a"s, ByteOrder::kBigEndian), "😀a");
}

TEST(Utf16, ReadsSurrogatesWithoutTheirOtherHalfAsReplacementCharacters) {
  EXPECT_EQ(fromUtf16("\x3D\xD8"
                      "a\0"s),
            "\uFFFDa");
  EXPECT_EQ(fromUtf16("\x00\xDE"
                      "a\0"s),
            "\uFFFDa");
  EXPECT_EQ(fromUtf16("\x3D\xD8\x3D\xD8\x00\xDE"s), "\uFFFD😀");
  EXPECT_EQ(fromUtf16("a\0\x3D\xD8"s), "a\uFFFD");
  EXPECT_EQ(fromUtf16(std::string_view("\x3D\xD8\x00\xDE", 2)), "\uFFFD");
}

TEST(Utf16, IsReadAlikeInBlocksAndCharacterByCharacter) {
  std::mt19937 random(1);
  for (int round = 0; round < 3000; ++round) {
    std::string bytes;
    for (auto left = random() % 90; left > 0; --left) {
      const auto kind = random() % 40;
      bytes += static_cast<char>(random() % 0x80);
      bytes += static_cast<char>(kind == 0 ? 0xD8 + random() % 8 : kind == 1 ? random() % 256 : 0);
    }
    if (!bytes.empty() && random() % 8 == 0) {
      bytes.pop_back();
    }
    std::string expected;
    for (std::size_t at = 0; at < bytes.size();) {
      const bool isPair =
          at + 3 < bytes.size() && (bytes[at + 1] & 0xFC) == 0xD8 && (bytes[at + 3] & 0xFC) == 0xDC;
      const std::size_t length = std::min<std::size_t>(isPair ? 4 : 2, bytes.size() - at);
      expected += fromUtf16(bytes.substr(at, length));
      at += length;
    }
    ASSERT_EQ(fromUtf16(bytes), expected);
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
      std::swap(bytes[at], bytes[at + 1]);
    }
    ASSERT_EQ(fromUtf16(bytes, ByteOrder::kBigEndian), expected);
  }
}

TEST(Utf16, IsTakenUpToWhereItIsNotWholeOrNotValid) {
  std::string utf8;
  EXPECT_EQ(appendUtf16Prefix(utf8, "a\0\x3D\xD8\x00\xDE\x3D\xD8"s, ByteOrder::kLittleEndian), 6U);
  EXPECT_EQ(utf8, "a😀");
  EXPECT_EQ(appendUtf16Prefix(utf8, "\x00\xDE"s, ByteOrder::kLittleEndian), 0U);
  EXPECT_EQ(appendUtf16Prefix(utf8, "b\0c"s, ByteOrder::kLittleEndian), 2U);
  EXPECT_EQ(utf8, "a😀b");
}

TEST(Utf16, ReadsALastOddByteAsAReplacementCharacter) {
  EXPECT_EQ(fromUtf16("a\0b"s), "a\uFFFD");
  EXPECT_EQ(fromUtf16("\x3D\xD8\x00"s), "\uFFFD\uFFFD");
}

TEST(Windows1252, IsLatin1OutsideItsMiddle) {
  EXPECT_EQ(fromWindows1252("caf\xE9 \xA0\xFF\x7F"), "café \u00A0ÿ\x7F");
}

TEST(Windows1252, HasMarksAndLettersInItsMiddle) {
  EXPECT_EQ(fromWindows1252("\x80\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C\x8E"),
            "€‚ƒ„…†‡ˆ‰Š‹ŒŽ");
  EXPECT_EQ(fromWindows1252("\x91\x92\x93\x94\x95\x96\x97\x98\x99\x9A\x9B\x9C\x9E\x9F"),
            "‘’“”•–—˜™š›œžŸ");
}

TEST(Windows1252, HasFiveBytesWithoutAMeaning) {
  EXPECT_EQ(fromWindows1252("\x81\x8D\x8F\x90\x9D"), "\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD");
}

}  // namespace

}  // namespace quorbind::testing
