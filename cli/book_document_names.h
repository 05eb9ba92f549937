#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/locale.h"
#include "platform/text_index.h"

namespace quorbind {

/// A document that a book file names.
struct NamedByBook {
  /// As the book file has it, without a bookmark.
  std::string name;
  /// The name below the folder of the book file; nothing where it leads out of there.
  std::optional<std::string> below;
};

/// Picks out of a book file's elements what they name as documents: the main file of the book and
/// those of its headings, each once.
class BookDocumentNames {
 public:
  /// `path` is the book file's, which the component names so. The locale is kept by reference.
  BookDocumentNames(std::string_view path, const Locale& locale);

  /// The document that an element with this text names; nothing when it names none, or one that was
  /// taken before in whatever letter case.
  std::optional<NamedByBook> take(std::string_view element, std::string_view text);

 private:
  const Locale& locale_;
  /// The name of the book's folder and a `\`.
  const std::string folder_;
  TextIndex taken_;
};

}  // namespace quorbind
