#include "cli/document_finder.h"

#include <algorithm>
#include <vector>

#include "platform/error_trap.h"
#include "platform/file_system.h"
#include "platform/locale.h"
#include "platform/paths.h"
#include "platform/text.h"

namespace quorbind {

namespace {

std::string_view withoutMark(std::string_view bookmark) {
  bookmark.remove_prefix(bookmark.starts_with('#') ? 1 : 0);
  return bookmark;
}

}  // namespace

std::string documentKey(std::string_view name, const Locale& locale) {
  const std::string_view document = name.substr(0, name.find('#'));
  return locale.upperCase(nameBelow(document).value_or(std::string(document)));
}

FoundDocument DocumentFinder::find(std::string_view folder,
                                   std::string_view name,
                                   std::string_view bookmark) {
  const std::size_t mark = std::min(name.find('#'), name.size());
  const std::string_view document = name.substr(0, mark);
  if (document.empty()) {
    return {};
  }
  FoundDocument found{
      .state = FoundDocument::State::kMissing,
      .bookmark = std::string(withoutMark(bookmark.empty() ? name.substr(mark) : bookmark))};
  if (const auto below = nameBelow(document)) {
    if (auto file = spelled(joinedPath(folder, *below))) {
      found.state = FoundDocument::State::kThere;
      found.file = *std::move(file);
    }
  }
  return found;
}

std::optional<std::string> DocumentFinder::spelled(std::string_view path) {
  std::string folder;
  const std::string_view parents = folderOf(path);
  for (const std::string_view part : Pieces(parents, "\\")) {
    const auto name = spelledPart(folder, part, Kind::kAll);
    if (!name) {
      return std::nullopt;
    }
    folder = joinedPath(folder, *name);
  }
  const auto name = spelledPart(folder, fileNameOf(path), Kind::kFiles);
  return name ? std::optional(joinedPath(folder, *name)) : std::nullopt;
}

/// The very name where it stands, else the first in another letter case.
std::optional<std::string> DocumentFinder::spelledPart(const std::string& folder,
                                                       std::string_view part,
                                                       Kind kind) {
  const auto [begin, end] = namesIn(folder, kind).equal_range(platform_.locale.upperCase(part));
  const auto less = [](const auto& left, const auto& right) { return left.second < right.second; };
  const auto same = std::find_if(begin, end, [&](const auto& name) { return name.second == part; });
  if (same != end) {
    return same->second;
  }
  return begin == end ? std::nullopt : std::optional(std::min_element(begin, end, less)->second);
}

/// A folder that can't be listed shows nothing to a reader either.
const DocumentFinder::Names& DocumentFinder::namesIn(const std::string& folder, Kind kind) {
  auto& listings = kind == Kind::kFiles ? files_ : all_;
  const auto [listing, isNew] = listings.try_emplace(folder);
  if (isNew) {
    std::vector<std::string> names;
    static_cast<void>(errorOf([&] {
      names = kind == Kind::kFiles ? platform_.files.fileNamesIn(root_ + folder)
                                   : platform_.files.namesIn(root_ + folder);
    }));
    for (std::string& name : names) {
      std::string key = platform_.locale.upperCase(name);
      listing->second.emplace(std::move(key), std::move(name));
    }
  }
  return listing->second;
}

}  // namespace quorbind
