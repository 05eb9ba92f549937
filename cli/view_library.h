#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "cli/library_model.h"
#include "cli/link_base.h"

namespace quorbind {

/// A library as a part of a page.
struct ViewedLibrary {
  const LibraryModel& library;
  /// Begins the names of places in the page, and differs from library to library.
  std::string prefix;
  /// Of files below the server's folder.
  const LinkBase& linkBase;
  /// The depth of the headings of its parts: 2 stands below the page's title.
  std::size_t depth = 2;
};

/// Links to the parts of a page in which something is wrong, each once and in the page's order.
struct FaultLinks {
  std::vector<std::string> missing;
  std::vector<std::string> unreadable;
  std::vector<std::string> dangling;

  FaultLinks& operator+=(const FaultLinks& more);
};

FaultLinks faultLinksOf(const ViewedLibrary& viewed);
/// The links to its parts.
std::string navigationOf(const ViewedLibrary& viewed);
/// The library itself: what can't be read, the books by category, the link identifiers.
std::string contentsOf(const ViewedLibrary& viewed);

}  // namespace quorbind
