#include "platform/text_encoding.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace quorbind {

namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kFirstBeyond16Bits = 0x10000;
constexpr char32_t kLastCodePoint = 0x10FFFF;

bool isAsciiByte(std::uint8_t byte) {
  return byte < 0x80;
}

bool isHighSurrogate(char32_t unit) {
  return unit >= 0xD800 && unit < 0xDC00;
}
bool isLowSurrogate(char32_t unit) {
  return unit >= 0xDC00 && unit < 0xE000;
}

constexpr std::size_t kAsciiBlock = 16;

bool beginsWithAsciiBlock(std::string_view text) {
  constexpr std::uint64_t kHighBits = 0x8080808080808080;
  std::array<std::uint64_t, kAsciiBlock / sizeof(std::uint64_t)> block{};
  if (text.size() < kAsciiBlock) {
    return false;
  }
  std::memcpy(block.data(), text.data(), sizeof block);
  return ((block[0] | block[1]) & kHighBits) == 0;
}

/// How many bytes at the beginning of `text` are ASCII. Most text is ASCII from end to end, so it
/// is looked at in blocks first.
std::size_t asciiPrefix(std::string_view text) {
  constexpr std::uint64_t kHighBits = 0x8080808080808080;
  std::array<std::uint64_t, 4> block{};
  std::size_t at = 0;
  for (; at + sizeof block <= text.size(); at += sizeof block) {
    std::memcpy(block.data(), text.data() + at, sizeof block);
    if (((block[0] | block[1] | block[2] | block[3]) & kHighBits) != 0) {
      break;
    }
  }
  while (at < text.size() && isAsciiByte(byteAt(text, at))) {
    ++at;
  }
  return at;
}

/// The length that the first byte of a character promises; 0 for a byte that begins none.
std::size_t promisedLength(std::uint8_t lead) {
  if (isAsciiByte(lead)) {
    return 1;
  }
  if (lead < 0xC0 || lead >= 0xF8) {
    return 0;
  }
  return lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
}

bool isAllowed(char32_t codePoint, std::size_t length) {
  constexpr std::array<char32_t, 1 + kLongestUtf8Character> kSmallest{0, 0, 0x80, 0x800, 0x10000};
  return codePoint >= kSmallest[length] && codePoint <= kLastCodePoint &&
         !isHighSurrogate(codePoint) && !isLowSurrogate(codePoint);
}

/// Units of UTF-16, little-endian, on their way into a text.
class Utf16Units {
 public:
  explicit Utf16Units(std::string& target) : target_(target) {}

  void addAsciiBlock(const char* ascii) {
    makeRoom();
    char* const bytes = bytes_.data() + used_;
    for (std::size_t unit = 0; unit < kAsciiBlock; ++unit) {
      bytes[2 * unit] = ascii[unit];
      bytes[2 * unit + 1] = '\0';
    }
    used_ += 2 * kAsciiBlock;
  }
  void add(char32_t codePoint) {
    makeRoom();
    if (codePoint < kFirstBeyond16Bits) {
      addUnit(codePoint);
      return;
    }
    const char32_t offset = codePoint - kFirstBeyond16Bits;
    addUnit(0xD800 | offset >> 10U);
    addUnit(0xDC00 | (offset & 0x3FF));
  }
  void flush() {
    target_.append(bytes_.data(), used_);
    used_ = 0;
  }

 private:
  void makeRoom() {
    if (used_ + 2 * kAsciiBlock > bytes_.size()) {
      flush();
    }
  }
  void addUnit(char32_t unit) {
    bytes_[used_++] = static_cast<char>(unit & 0xFFU);
    bytes_[used_++] = static_cast<char>(unit >> 8U);
  }

  std::string& target_;
  std::array<char, 1024> bytes_{};
  std::size_t used_ = 0;
};

char32_t unitAt(std::string_view bytes, std::size_t at, ByteOrder order) {
  const char32_t first = byteAt(bytes, at);
  const char32_t second = byteAt(bytes, at + 1);
  return order == ByteOrder::kLittleEndian ? second << 8U | first : first << 8U | second;
}

/// Appends the blocks of ASCII that UTF-16 `bytes` begin with. Answers how many bytes those are.
template <ByteOrder kOrder>
std::size_t appendAsciiBlocks(std::string& target, std::string_view bytes) {
  constexpr std::size_t kUnits = 16;
  constexpr std::size_t kLow = kOrder == ByteOrder::kLittleEndian ? 0 : 1;
  std::array<std::uint8_t, 2 * kUnits> block{};
  std::array<char, kUnits> ascii{};
  std::size_t at = 0;
  for (; at + block.size() <= bytes.size(); at += block.size()) {
    std::memcpy(block.data(), bytes.data() + at, block.size());
    unsigned high = 0;
    for (std::size_t unit = 0; unit < kUnits; ++unit) {
      const std::uint8_t low = block[2 * unit + kLow];
      high |= low & 0x80U;
      high |= block[2 * unit + 1 - kLow];
      ascii[unit] = static_cast<char>(low);
    }
    if (high != 0) {
      break;
    }
    target.append(ascii.data(), ascii.size());
  }
  return at;
}

/// The character that UTF-16 `bytes` begin with, and how many bytes it takes: none where there is
/// no whole and valid one.
Utf8Character firstUtf16Character(std::string_view bytes, ByteOrder order) {
  if (bytes.size() < 2) {
    return {};
  }
  const char32_t unit = unitAt(bytes, 0, order);
  if (!isHighSurrogate(unit)) {
    return isLowSurrogate(unit) ? Utf8Character{} : Utf8Character{unit, 2};
  }
  const char32_t next = bytes.size() < 4 ? 0 : unitAt(bytes, 2, order);
  if (!isLowSurrogate(next)) {
    return {};
  }
  return {kFirstBeyond16Bits + ((unit & 0x3FF) << 10U | (next & 0x3FF)), 4};
}

/// The meaning of the bytes 0x80 to 0x9F; all others mean the code point of their own number.
constexpr std::array<char16_t, 32> kWindows1252Middle{
    0x20AC, 0xFFFD, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  // 80 to 87
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0xFFFD, 0x017D, 0xFFFD,  // 88 to 8F
    0xFFFD, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 90 to 97
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0xFFFD, 0x017E, 0x0178,  // 98 to 9F
};

}  // namespace

Utf8Character firstUtf8Character(std::string_view text) {
  const std::uint8_t lead = byteAt(text, 0);
  const std::size_t length = promisedLength(lead);
  if (length == 1) {
    return {lead, 1};
  }
  if (length == 0 || length > text.size()) {
    return {};
  }
  char32_t codePoint = lead & (0xFFU >> (length + 1));
  for (std::size_t at = 1; at < length; ++at) {
    if (!isInsideCharacter(text[at])) {
      return {};
    }
    codePoint = codePoint << 6U | (byteAt(text, at) & 0x3FU);
  }
  return isAllowed(codePoint, length) ? Utf8Character{codePoint, length} : Utf8Character{};
}

void appendUtf8(std::string& target, char32_t codePoint) {
  const auto append = [&target](char32_t byte) { target.push_back(static_cast<char>(byte)); };
  const auto appendTrail = [&](unsigned shift) { append(0x80 | (codePoint >> shift & 0x3F)); };
  if (codePoint < 0x80) {
    append(codePoint);
  } else if (codePoint < 0x800) {
    append(0xC0 | codePoint >> 6U);
    appendTrail(0);
  } else if (codePoint < kFirstBeyond16Bits) {
    append(0xE0 | codePoint >> 12U);
    appendTrail(6);
    appendTrail(0);
  } else {
    append(0xF0 | codePoint >> 18U);
    appendTrail(12);
    appendTrail(6);
    appendTrail(0);
  }
}

std::size_t validUtf8Prefix(std::string_view text) {
  std::size_t valid = 0;
  for (;;) {
    valid += asciiPrefix(text.substr(valid));
    if (valid == text.size()) {
      return valid;
    }
    const Utf8Character character = firstUtf8Character(text.substr(valid));
    if (character.length == 0) {
      return valid;
    }
    valid += character.length;
  }
}

bool isAscii(std::string_view text) {
  return asciiPrefix(text) == text.size();
}

bool isValidUtf8(std::string_view text) {
  return validUtf8Prefix(text) == text.size();
}

std::string toValidUtf8(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (;;) {
    const std::size_t valid = validUtf8Prefix(text);
    result.append(text, 0, valid);
    if (valid == text.size()) {
      return result;
    }
    appendUtf8(result, kReplacement);
    text.remove_prefix(valid + 1);
  }
}

void appendUtf16LittleEndian(std::string& target, std::string_view utf8) {
  Utf16Units units(target);
  while (!utf8.empty()) {
    if (beginsWithAsciiBlock(utf8)) {
      units.addAsciiBlock(utf8.data());
      utf8.remove_prefix(kAsciiBlock);
      continue;
    }
    const Utf8Character character = firstUtf8Character(utf8);
    units.add(character.codePoint);
    utf8.remove_prefix(character.length == 0 ? 1 : character.length);
  }
  units.flush();
}

std::size_t appendUtf16Prefix(std::string& target, std::string_view bytes, ByteOrder order) {
  constexpr std::size_t kRunWithoutBlocks = 16;
  std::size_t at = 0;
  for (;;) {
    const std::string_view rest = bytes.substr(at);
    at += order == ByteOrder::kLittleEndian
              ? appendAsciiBlocks<ByteOrder::kLittleEndian>(target, rest)
              : appendAsciiBlocks<ByteOrder::kBigEndian>(target, rest);
    for (std::size_t run = 0; run < kRunWithoutBlocks; ++run) {
      const Utf8Character character = firstUtf16Character(bytes.substr(at), order);
      if (character.length == 0) {
        return at;
      }
      appendUtf8(target, character.codePoint);
      at += character.length;
    }
  }
}

void appendUtf8FromUtf16(std::string& target, std::string_view bytes, ByteOrder order) {
  for (;;) {
    bytes.remove_prefix(appendUtf16Prefix(target, bytes, order));
    if (bytes.empty()) {
      return;
    }
    appendUtf8(target, kReplacement);
    bytes.remove_prefix(std::min(bytes.size(), std::size_t{2}));
  }
}

void appendUtf8FromWindows1252(std::string& target, std::string_view bytes) {
  constexpr std::uint8_t kMiddle = 0x80;
  for (const char c : bytes) {
    const auto byte = static_cast<std::uint8_t>(c);
    const bool inMiddle = byte >= kMiddle && byte < kMiddle + kWindows1252Middle.size();
    appendUtf8(target, inMiddle ? kWindows1252Middle[byte - kMiddle] : byte);
  }
}

}  // namespace quorbind
