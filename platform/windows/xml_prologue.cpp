#include "platform/windows/xml_prologue.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

#include "platform/text_encoding.h"

namespace quorbind {

namespace {

using namespace std::string_view_literals;

constexpr char kEnd = '\0';
constexpr char kOther = '\x7F';

/// The markup characters of a file one by one, whatever its encoding: markup is ASCII in all of
/// them, and everything else comes out as kOther.
class Markup {
 public:
  explicit Markup(ByteReader& bytes) : bytes_(bytes) {
    const std::string_view start = fillWithStart();
    const bool isBigEndian = start.starts_with(kUtf16BigEndianMark) || start.starts_with("\0<"sv);
    const bool isLittleEndian =
        start.starts_with(kUtf16LittleEndianMark) || start.starts_with("<\0"sv);
    unit_ = isBigEndian || isLittleEndian ? 2 : 1;
    low_ = isBigEndian ? 1 : 0;
  }

  [[nodiscard]] int line() const { return line_; }

  /// The next character; kEnd behind the last one.
  char next() {
    std::array<char, 2> unit{};
    for (std::size_t i = 0; i < unit_; ++i) {
      if (at_ == size_ && !fill()) {
        return kEnd;
      }
      unit[i] = chunk_[at_++];
    }
    const bool isBeyondLatin = unit_ == 2 && unit[1 - low_] != '\0';
    const char character = unit[low_];
    if (isBeyondLatin || character == kEnd) {
      return kOther;
    }
    line_ += character == '\n' ? 1 : 0;
    return character;
  }

  /// Skips to behind the next `mark`; false when there is none.
  bool skipBehind(std::string_view mark) {
    std::array<char, 3> last{};
    const std::string_view tail(last.data() + last.size() - mark.size(), mark.size());
    while (tail != mark) {
      std::rotate(last.begin(), last.begin() + 1, last.end());
      last.back() = next();
      if (last.back() == kEnd) {
        return false;
      }
    }
    return true;
  }

 private:
  /// What tells the encoding, in however small pieces the file comes.
  std::string_view fillWithStart() {
    constexpr std::size_t kUnit = 2;
    std::size_t count = 0;
    do {
      count = bytes_.read(chunk_.data() + size_, chunk_.size() - size_);
      size_ += count;
    } while (count != 0 && size_ < kUnit);
    return {chunk_.data(), size_};
  }

  bool fill() {
    at_ = 0;
    size_ = bytes_.read(chunk_.data(), chunk_.size());
    return size_ != 0;
  }

  ByteReader& bytes_;
  std::array<char, 4096> chunk_{};
  std::size_t at_ = 0;
  std::size_t size_ = 0;
  std::size_t unit_ = 1;
  /// Where in a unit of two bytes the lower one stands.
  std::size_t low_ = 0;
  int line_ = 1;
};

}  // namespace

std::optional<int> lineOfDocumentType(ByteReader& bytes) {
  Markup markup(bytes);
  while (markup.skipBehind("<")) {
    switch (markup.next()) {
      case '?':
        markup.skipBehind("?>");
        break;
      case '!':
        if (markup.next() != '-') {
          return markup.line();
        }
        markup.skipBehind("-->");
        break;
      default:
        return std::nullopt;
    }
  }
  return std::nullopt;
}

}  // namespace quorbind
