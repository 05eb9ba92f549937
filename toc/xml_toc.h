#pragma once

// The rules of an existing book file as a table of contents, without any effect.

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/xml_document.h"
#include "toc/toc_violation.h"

namespace quorbind {

/// Why a book file is refused.
struct XmlTocRefusal {
  TocViolation violation;
  /// What is offered on the clipboard, where something is.
  std::string offered = {};
  /// The line at fault, counted from 1; 0 when none is to blame.
  std::size_t line = 0;
  /// The character of the line at which the fault was noticed, counted from 1; 0 when not told.
  std::size_t column = 0;
  /// Whether the file could not be parsed, or not be read at all.
  bool isNotLoaded = false;
};

/// Loads the book file at `path` into `document` and holds it against the rules. Answers the first
/// one broken.
std::optional<XmlTocRefusal> loadXmlToc(XmlDocument& document, std::string_view path);

/// The folder that the text of a book file's `Book_Path` names: what stands behind the product, up
/// to the next separator; empty, which is the library's own, where nothing does.
std::string folderInBookPath(std::string_view bookPath);

}  // namespace quorbind
