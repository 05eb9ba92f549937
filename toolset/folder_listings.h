#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace quorbind {

class FileSystem;
class Locale;

/// File names, without regard to letter case like the file system's.
class NameSet {
 public:
  /// Kept by reference.
  explicit NameSet(const Locale& locale) : locale_(locale) {}

  /// Whether the name is new.
  bool add(std::string_view name);

 private:
  const Locale& locale_;
  std::unordered_set<std::string> names_;
};

/// Tells what files there are, from one listing of each folder: a book names thousands of documents
/// in a few folders, and to ask the disk for each that is missing would take most of the time. A
/// file that comes into a listed folder later is not seen.
class FolderListings {
 public:
  /// Kept by reference.
  FolderListings(FileSystem& files, const Locale& locale) : files_(files), locale_(locale) {}

  [[nodiscard]] bool hasFile(const std::string& path);

 private:
  /// Names in upper case, sorted; nothing for a folder that can't be listed.
  using Listing = std::optional<std::vector<std::string>>;

  [[nodiscard]] bool mayHold(const Listing& listing, std::string_view name) const;
  const Listing& listingOf(const std::string& folder);
  [[nodiscard]] Listing list(const std::string& folder) const;

  FileSystem& files_;
  const Locale& locale_;
  std::unordered_map<std::string, Listing> listings_;
};

}  // namespace quorbind
