#pragma once

// Text is UTF-8 everywhere in the core. Marks and separators are ASCII, so byte positions of a
// found mark always lie between characters.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quorbind {

/// What ends a line of every file that is written.
inline constexpr std::string_view kLineEnd = "\r\n";

/// Without the blanks (character 32, no other) at both ends.
std::string_view trimBlanks(std::string_view text);
/// Without any of `characters` at both ends.
std::string_view trimAnyOf(std::string_view text, std::string_view characters);

/// The pieces of a split text. Asking for a piece that is not there raises error 9.
class Pieces {
 public:
  /// Splits `text` at every `separator`. An empty text has no pieces at all; any other text has one
  /// more than it has separators. The pieces view into `text`.
  Pieces(std::string_view text, std::string_view separator) { split(text, separator); }
  /// None at all, until something is split.
  Pieces() = default;
  /// The same for another text.
  void split(std::string_view text, std::string_view separator);

  [[nodiscard]] std::string_view at(std::size_t index) const;
  [[nodiscard]] std::string_view last() const;
  [[nodiscard]] std::size_t count() const { return pieces_.size(); }
  [[nodiscard]] auto begin() const { return pieces_.begin(); }
  [[nodiscard]] auto end() const { return pieces_.end(); }

 private:
  std::vector<std::string_view> pieces_;
};

/// The entries of a list as people type it: separated by `;` or, when there is none, by `,`. They
/// keep the blanks around them. A text with neither is one entry; an empty text has none.
Pieces listEntries(std::string_view list);

/// The number of pieces that splitting `text` would give, without splitting it.
std::size_t countPieces(std::string_view text, std::string_view separator);

[[nodiscard]] bool contains(std::string_view text, std::string_view part);
[[nodiscard]] bool containsAnyOf(std::string_view text, std::string_view characters);

/// `text` with every occurrence of `from` (not empty) turned into `to`.
std::string replaceAll(std::string_view text, std::string_view from, std::string_view to);

/// A to Z instead of a to z, and everything else as it was: the folding under which marks are
/// searched. For the words of a language use Locale::upperCase.
[[nodiscard]] constexpr char upperAscii(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}
std::string upperCaseAscii(std::string_view text);
[[nodiscard]] bool equalIgnoringAsciiCase(std::string_view left, std::string_view right);
[[nodiscard]] bool startsIgnoringAsciiCase(std::string_view text, std::string_view beginning);
[[nodiscard]] bool endsIgnoringAsciiCase(std::string_view text, std::string_view ending);
/// Where `part` (not empty) begins in `text`, from `from` on, under that folding; npos when it does
/// not.
[[nodiscard]] std::size_t findIgnoringAsciiCase(std::string_view text,
                                                std::string_view part,
                                                std::size_t from = 0);

}  // namespace quorbind
