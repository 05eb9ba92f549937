#pragma once

// The rules of a text table of contents, without any effect: what a walk finds is told to a
// listener, which decides what becomes of it.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "platform/text.h"
#include "platform/text_file.h"
#include "toc/toc_violation.h"

namespace quorbind {

/// One line on its way through the rules; both views hold during the call that hands it over.
struct TextTocLine {
  std::size_t number;  ///< counted from 1
  std::string_view text;
};

/// One entry; the views are parts of its line.
struct TextTocEntry {
  std::int16_t level = 0;
  std::string_view name;
  std::string_view file;
  std::string_view subLink;
};

class TextTocListener {
 public:
  virtual ~TextTocListener() = default;
  /// An entry line with its pieces, cut at the quotes. False ends the walk.
  virtual bool entry(const TextTocLine& line, const Pieces& pieces) = 0;
  /// A line that breaks a rule of the file's form; the walk ends with it.
  virtual void refused(const TextTocLine& line, const TocViolation& violation) = 0;
};

/// Walks through a text table of contents: the header, a second line that nothing is asked of, and
/// entries to the end. Answers whether every line was accepted. A file that ends before its second
/// line raises 62.
bool walkTextToc(TextReader& reader, TextTocListener& listener);

/// What a walk that ended with error 62 means for the user.
TocViolation emptyTextToc();

/// Holds an entry against the rules of one entry. `previousLevel` is the level of the entry before
/// it, 0 in front of the first, and becomes this one's as soon as the level is accepted. The fields
/// go to `entry`. Answers the first rule broken.
std::optional<TocViolation> checkTextEntry(std::string_view line,
                                           const Pieces& pieces,
                                           std::int16_t& previousLevel,
                                           TextTocEntry& entry);

}  // namespace quorbind
