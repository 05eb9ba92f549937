#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "platform/platform.h"

namespace quorbind {

/// Whether a document that a library names is there, and where.
struct FoundDocument {
  enum class State { kNone, kThere, kMissing };
  /// kNone where no document is named.
  State state = State::kNone;
  /// Of one that is there: its name below the server's folder, with `\`, spelled as on the disk.
  std::string file = {};
  /// The place in it, without the `#`; empty for the document itself.
  std::string bookmark = {};

  [[nodiscard]] bool isMissing() const { return state == State::kMissing; }
};

/// A document's name in a form that all names of one document have, whatever their letter case,
/// their separators and their bookmarks.
std::string documentKey(std::string_view name, const Locale& locale);

/// Finds documents below a server's folder as the disk spells them: a browser asks for a file by
/// its very name, and books name theirs in any letter case. Each folder is listed once, because a
/// book names thousands of documents in a few folders.
class DocumentFinder {
 public:
  /// `serverRoot` ends with `\`. The platform is kept by reference.
  DocumentFinder(const Platform& platform, std::string serverRoot)
      : platform_(platform), root_(std::move(serverRoot)) {}

  /// `folder` is one below the server's, without a `\` at its end. A name that leads out of it is
  /// missing and is never looked up. What stands behind a `#` of the name is taken for the bookmark
  /// unless one is given, with or without its `#`.
  FoundDocument find(std::string_view folder, std::string_view name, std::string_view bookmark);

 private:
  /// Names of a folder: as the disk spells them, by their upper case.
  using Names = std::unordered_multimap<std::string, std::string>;
  enum class Kind { kFiles, kAll };

  [[nodiscard]] std::optional<std::string> spelled(std::string_view path);
  [[nodiscard]] std::optional<std::string> spelledPart(const std::string& folder,
                                                       std::string_view part,
                                                       Kind kind);
  [[nodiscard]] const Names& namesIn(const std::string& folder, Kind kind);

  const Platform& platform_;
  const std::string root_;
  std::unordered_map<std::string, Names> files_;
  std::unordered_map<std::string, Names> all_;
};

}  // namespace quorbind
