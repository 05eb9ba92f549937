#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/scan_watch.h"
#include "platform/platform.h"
#include "platform/text_store.h"
#include "platform/xml_document.h"

namespace quorbind {

/// One heading of a book file.
struct BookHeading {
  /// 0 for a heading of the first level.
  std::size_t depth = 0;
  /// As it was typed.
  std::string title;
  /// The document's name, as the book file has it, and the bookmark in it; both may be empty.
  std::string document;
  std::string bookmark;

  bool operator==(const BookHeading&) const = default;
};

/// Walks through the book file at `path`. A file that is not there, can't be read or does not parse
/// is a CommandFailure that says which and where.
void scanBookFile(const Platform& platform, const std::string& path, XmlScanHandler& scan);

/// Hands over the headings of the book file at `path` in their order. Fails as scanBookFile does.
void readHeadings(const Platform& platform,
                  const std::string& path,
                  const std::function<void(const BookHeading&)>& visitor);

/// The link of the book in the book file at `path`; empty when it has none. Fails as readHeadings
/// does, and for a file that describes no book.
std::string readBookLink(const Platform& platform, const std::string& path);
/// Whether two book files tell of the same headings. False also where one of them can't be read.
bool haveSameHeadings(const Platform& platform, const std::string& left, const std::string& right);

/// The documents that a book names, its main file included, each once and in its order.
struct BookDocuments {
  std::vector<std::string> present;
  TextStore missing;
};

/// Looks for the documents of the book file at `path` beside it. Fails as readHeadings does.
BookDocuments findDocuments(const Platform& platform, const std::string& path);
/// The same of a book file that is known to name these.
BookDocuments findDocuments(const Platform& platform,
                            const std::string& path,
                            const NamedFiles& named);

}  // namespace quorbind
