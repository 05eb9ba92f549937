#pragma once

#include <string>
#include <string_view>

namespace quorbind {

/// Turns UTF-8 into the bytes of an encoding by the name that XML declarations have for it.
///
/// UTF-8 is the encoding without a name, and written without a mark; UTF-16 is little-endian, with
/// a mark. What another encoding lacks becomes a character reference.
class TextEncoder {
 public:
  /// Raises 57 for an encoding that the system can't write.
  explicit TextEncoder(std::string_view encoding);

  /// What a file begins with.
  [[nodiscard]] std::string_view mark() const;
  /// `utf8`, which ends between two characters, in the encoding. The view holds until the next
  /// call, and as long as `utf8`.
  std::string_view encode(std::string_view utf8);

 private:
  /// Appends to bytes_; false, and nothing appended, when a character is lacking.
  bool appendInCodePage(std::wstring_view text);
  void appendCharacters(std::string_view utf8);

  unsigned codePage_;
  std::string bytes_;
};

}  // namespace quorbind
