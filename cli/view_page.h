#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "cli/library_model.h"
#include "cli/link_base.h"

namespace quorbind {

/// How every page begins: by this a page is known that may be made anew.
inline constexpr std::string_view kPageBeginning =
    "<!DOCTYPE html>\n<!-- made by quorbind view, which makes it anew -->\n";

/// One HTML page of a library, or of all libraries of a server. It needs nothing from elsewhere and
/// lets nothing come from there; without its script everything is there to read. The same libraries
/// give the same bytes.
class ViewPage {
 public:
  /// `linkBase` is that of the page's folder and the server's.
  explicit ViewPage(LinkBase linkBase) : linkBase_(std::move(linkBase)) {}

  [[nodiscard]] std::string ofLibrary(const LibraryModel& library) const;
  [[nodiscard]] std::string ofServer(const std::vector<LibraryModel>& libraries) const;

 private:
  const LinkBase linkBase_;
};

}  // namespace quorbind
