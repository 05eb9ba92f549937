#pragma once

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "platform/read_through_files.h"
#include "platform/runtime_error.h"

namespace quorbind {

/// A change that came about.
struct FileChange {
  enum class Kind { kWritten, kMoved, kDeleted, kFolderMade };
  Kind kind = Kind::kWritten;
  /// In full, as the component names it.
  std::string path;
  /// Where a moved file went.
  std::string target = {};

  bool operator==(const FileChange&) const = default;
};

/// A file system that remembers what was changed through it, and what could not be changed or read.
/// The component tells a failed write in a box that does not always name the file, and goes on in
/// places: only the files themselves tell what a run has left, and what it has left out.
class FileJournal final : public ReadThroughFiles {
 public:
  using ReadThroughFiles::ReadThroughFiles;

  /// In the order in which they came about; a file that was written more than once stands there
  /// once, and a move that was undone does not.
  [[nodiscard]] const std::vector<FileChange>& changes() const { return changes_; }
  /// The file or folder of the first write that failed.
  [[nodiscard]] const std::optional<std::string>& failedWrite() const { return failedWrite_; }
  /// The file or folder of the first read that failed. One that is not there was not to be read.
  [[nodiscard]] const std::optional<std::string>& failedRead() const { return failedRead_; }

  [[nodiscard]] bool fileExists(std::string_view path) override;
  void createFolder(std::string_view path) override;
  void copyFile(std::string_view from, std::string_view to) override;
  [[nodiscard]] std::unique_ptr<CopySeries> beginCopies() override;
  void moveFile(std::string_view from, std::string_view to) override;
  void deleteFile(std::string_view path) override;
  [[nodiscard]] std::vector<std::string> namesIn(std::string_view folder) override;
  [[nodiscard]] std::vector<std::string> fileNamesIn(std::string_view folder) override;
  [[nodiscard]] std::unique_ptr<ByteReader> open(std::string_view path) override;
  [[nodiscard]] std::unique_ptr<FileReplacement> replace(std::string_view path) override;

 private:
  struct InAnyOrder {
    bool operator()(const FileChange& left, const FileChange& right) const {
      return std::tie(left.kind, left.path, left.target) <
             std::tie(right.kind, right.path, right.target);
    }
  };
  class WatchedCopies;
  class WatchedReplacement;
  class WatchedReader;

  /// Runs a step that changes what stands at `path`.
  template <typename Step>
  auto changing(std::string_view path, Step&& step);
  /// Runs a step that reads what stands at `path`.
  template <typename Step>
  auto reading(std::string_view path, Step&& step);
  /// Runs a step that copies.
  template <typename Step>
  void copying(std::string_view from, std::string_view to, Step&& step);
  [[nodiscard]] bool isReadable(std::string_view path);
  [[nodiscard]] std::string closedEndOf(const RunTimeError& error,
                                        std::string_view from,
                                        std::string_view to);
  void note(FileChange change);

  std::vector<FileChange> changes_;
  std::set<FileChange, InAnyOrder> known_;
  std::optional<std::string> failedWrite_;
  std::optional<std::string> failedRead_;
};

}  // namespace quorbind
