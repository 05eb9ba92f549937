#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace quorbind {

/// What a file of text may begin with to tell its encoding.
inline constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
inline constexpr std::string_view kUtf16LittleEndianMark = "\xFF\xFE";
inline constexpr std::string_view kUtf16BigEndianMark = "\xFE\xFF";

/// U+FFFD, which stands for what is no character.
inline constexpr std::string_view kReplacementCharacter = "\xEF\xBF\xBD";

inline std::uint8_t byteAt(std::string_view text, std::size_t at) {
  return static_cast<std::uint8_t>(text[at]);
}

/// The most bytes that one character takes in UTF-8.
inline constexpr std::size_t kLongestUtf8Character = 4;

/// Whether a byte of a text is not the first of its character.
inline bool isInsideCharacter(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

struct Utf8Character {
  char32_t codePoint = 0xFFFD;
  std::size_t length = 0;  ///< in bytes; 0 when there is no whole and valid character
};

/// The character that `text`, which is not empty, begins with.
Utf8Character firstUtf8Character(std::string_view text);

/// Appends one character to `target`.
void appendUtf8(std::string& target, char32_t codePoint);

/// How many bytes at the beginning of `text` are whole and valid UTF-8 characters: shortest forms
/// only, no surrogates, nothing above U+10FFFF.
std::size_t validUtf8Prefix(std::string_view text);

/// Whether all of `text` is ASCII, which is the same in UTF-8 and in any code page of a system.
bool isAscii(std::string_view text);

/// Whether all of `text` is valid UTF-8.
bool isValidUtf8(std::string_view text);

/// `text` with every byte that is no part of a valid character turned into U+FFFD.
std::string toValidUtf8(std::string_view text);

/// Appends `utf8` to `target` as UTF-16, little-endian. Invalid bytes come out as U+FFFD.
void appendUtf16LittleEndian(std::string& target, std::string_view utf8);

enum class ByteOrder { kLittleEndian, kBigEndian };

/// Appends to `target`, as UTF-8, the whole and valid characters that `bytes` begin with. Answers
/// how many of the bytes those are.
std::size_t appendUtf16Prefix(std::string& target, std::string_view bytes, ByteOrder order);

/// Appends UTF-16 bytes to `target` as UTF-8. Unpaired surrogates, and a last odd byte, come out as
/// U+FFFD.
void appendUtf8FromUtf16(std::string& target, std::string_view bytes, ByteOrder order);

/// Appends text in Windows-1252 to `target` as UTF-8. Its five bytes without a meaning come out as
/// U+FFFD.
void appendUtf8FromWindows1252(std::string& target, std::string_view bytes);

}  // namespace quorbind
