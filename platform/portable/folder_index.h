#pragma once

// Looks names up in folders without regard to letter case, on disks that tell the cases apart.
//
// Such a look-up can't be asked of the system: the folder has to be listed and every name compared.
// A table of contents asks for thousands of names in a few folders, most of them in vain, so the
// index keeps what it listed and compares folded names in a table.
//
// What is kept is looked at again at every use, by one stat of the folder: a name that comes, goes
// or changes gives the folder a new modification time. That proves something only when the clock
// moved on in between. A folder that was changed a moment before it was listed may be changed once
// more within the same tick of its file system's clock, and nothing would show it. Therefore a
// listing is kept only when the folder's time was older than the listing by more than such a tick,
// or had been seen so long before, which is so also where the time lies ahead: a file server has a
// clock of its own, and archives bring times along. A younger listing serves the use it was made
// for, and the folder is listed again at the next. Who puts a folder's time back after changing it
// is not noticed.
//
// Memory is bounded: when the names kept become too many, all folders but the one in use are
// forgotten.

#include <sys/types.h>

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/text_index.h"

namespace quorbind {

/// The names in one folder, found by any spelling.
class FolderListing {
 public:
  FolderListing();

  void add(std::string_view name);
  [[nodiscard]] std::size_t size() const { return names_.size(); }

  /// How the name that equals `name` without regard to letter case is spelled in the folder. Of
  /// several it is the first by its bytes.
  [[nodiscard]] std::optional<std::string_view> spellingOf(std::string_view name) const;

 private:
  [[nodiscard]] std::string_view firstSpelling(std::size_t number) const;

  TextIndex names_;
  /// Of the names that came in another spelling before it.
  std::unordered_map<std::size_t, std::string> laterFirstSpellings_;
};

/// What was listed, folder by folder. For one thread.
class FolderIndex {
 public:
  /// Keeps at most `capacity` names and folders; the folder in use alone may be larger.
  explicit FolderIndex(std::size_t capacity = 50'000) : capacity_(capacity) {}

  /// The names that stand in `folder` now; null when it is no folder or can't be listed. Holds
  /// until the next call.
  const FolderListing* listingOf(const std::string& folder);

  /// Whether what is kept proves that nothing stands at `path` now, in any letter case. Looks at
  /// the disk once where it does, and as a rule not at all where it does not.
  [[nodiscard]] bool rulesOut(const std::string& path) const;

 private:
  using Time = std::chrono::time_point<std::chrono::system_clock, std::chrono::nanoseconds>;

  /// Two equal states of a folder, seen at different ticks, hold the same names.
  struct State {
    dev_t device = 0;
    ino_t inode = 0;
    Time modified;
    bool operator==(const State&) const = default;
  };

  using Moment = std::chrono::steady_clock::time_point;

  struct Entry {
    State state;
    /// When the state was seen first.
    Moment seen;
    /// Whether the folder was at rest when it was listed, so that its state vouches for the names.
    bool settled = false;
    FolderListing names;
  };

  static std::optional<State> stateOf(const std::string& folder);
  static bool isSettled(const State& state, Time now, std::chrono::nanoseconds sinceSeen);
  const FolderListing* list(const std::string& folder, const State& state);
  void forgetOthersWhenFull(const std::string& folder);

  std::size_t capacity_;
  std::unordered_map<std::string, Entry> entries_;
  std::size_t namesKept_ = 0;  ///< in all entries together
};

}  // namespace quorbind
