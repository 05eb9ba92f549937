#pragma once

#include <compare>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/read_through_files.h"

namespace quorbind {

/// A change that came about.
struct FileChange {
  enum class Kind { kWritten, kMoved, kDeleted, kFolderMade };
  Kind kind = Kind::kWritten;
  /// In full, as the component names it.
  std::string path;
  /// Where a moved file went.
  std::string target = {};

  auto operator<=>(const FileChange&) const = default;
};

/// A file system that remembers what was changed through it, and what could not be. The component
/// tells a failed write in a box that does not always name the file, and goes on in places: only
/// the files themselves tell what a run has left.
class FileJournal final : public ReadThroughFiles {
 public:
  using ReadThroughFiles::ReadThroughFiles;

  /// In the order in which they came about; a file that was written more than once stands there
  /// once, and a move that was undone does not.
  [[nodiscard]] const std::vector<FileChange>& changes() const { return changes_; }
  /// The file or folder of the first write that failed.
  [[nodiscard]] const std::optional<std::string>& failedWrite() const { return failedWrite_; }

  void createFolder(std::string_view path) override;
  void copyFile(std::string_view from, std::string_view to) override;
  [[nodiscard]] std::unique_ptr<CopySeries> beginCopies() override;
  void moveFile(std::string_view from, std::string_view to) override;
  void deleteFile(std::string_view path) override;
  [[nodiscard]] std::unique_ptr<FileReplacement> replace(std::string_view path) override;

 private:
  class WatchedCopies;
  class WatchedReplacement;

  /// Runs a step that changes what stands at `path`.
  template <typename Step>
  auto changing(std::string_view path, Step&& step);
  void note(FileChange change);

  std::vector<FileChange> changes_;
  std::set<FileChange> known_;
  std::optional<std::string> failedWrite_;
};

}  // namespace quorbind
