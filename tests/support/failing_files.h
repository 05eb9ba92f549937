#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/read_through_files.h"
#include "platform/runtime_error.h"

namespace quorbind::testing {

/// A call that changes something on the disk.
struct ChangingCall {
  enum class Kind {
    kCreateFolder,
    kCopyFile,
    kMoveFile,
    kDeleteFile,
    /// Of a file that is to be replaced.
    kBegin,
    kWrite,
    kCommit,
    /// Of a series of copies.
    kCopy,
    kFlush
  };
  Kind kind;
  /// What is changed; of a move, what is moved. Empty for a flush.
  std::string path;

  bool operator==(const ChangingCall&) const = default;
};

/// One way in which a call can fail.
struct FileFault {
  const char* name;
  ErrorNumber error;
  /// Half of the bytes to be written arrive before it fails.
  bool isShortWrite = false;
};

/// All ways in which such a call can fail.
std::vector<FileFault> faultsOf(ChangingCall::Kind kind);

/// Files that pass everything on to others, and note the calls that change something. One of these
/// calls can be made to fail; then it is not passed on.
class FailingFiles final : public ReadThroughFiles {
 public:
  using ReadThroughFiles::ReadThroughFiles;

  /// Forgets the calls so far, and lets none fail.
  void reset();
  /// The `number`-th call from now on, counted from 0, fails.
  void failAt(std::size_t number, const FileFault& fault);
  /// The same call ends the run, as the end of the process would: nothing is changed any more.
  void stopAt(std::size_t number);
  /// In order, the one that failed included.
  [[nodiscard]] const std::vector<ChangingCall>& calls() const { return calls_; }

  void createFolder(std::string_view path) override;
  void copyFile(std::string_view from, std::string_view to) override;
  [[nodiscard]] std::unique_ptr<CopySeries> beginCopies() override;
  void moveFile(std::string_view from, std::string_view to) override;
  void deleteFile(std::string_view path) override;
  [[nodiscard]] std::unique_ptr<FileReplacement> replace(std::string_view path) override;

 private:
  class Copies;
  class Replacement;

  /// Notes a call. Answers the fault that it is to end with, if any.
  const FileFault* begin(ChangingCall::Kind kind, std::string_view path);
  /// The same, and raises the fault's error.
  void pass(ChangingCall::Kind kind, std::string_view path);

  std::vector<ChangingCall> calls_;
  std::size_t failing_ = 0;
  std::unique_ptr<const FileFault> fault_;
  bool stops_ = false;
};

}  // namespace quorbind::testing
