#include "cli/file_journal.h"

#include <utility>

#include "cli/failure.h"
#include "platform/runtime_error.h"

namespace quorbind {

template <typename Step>
auto FileJournal::changing(std::string_view path, Step&& step) {
  try {
    return std::forward<Step>(step)();
  } catch (const RunTimeError& error) {
    if (isWriteError(error.number()) && !failedWrite_) {
      failedWrite_ = files().absolutePath(path);
    }
    throw;
  }
}

class FileJournal::WatchedReplacement final : public FileReplacement {
 public:
  WatchedReplacement(FileJournal& journal, std::string_view path)
      : journal_(journal), path_(path), replacement_(journal.files().replace(path)) {}

  void write(std::string_view bytes) override {
    journal_.changing(path_, [&] { replacement_->write(bytes); });
  }
  void commit() override {
    journal_.changing(path_, [&] { replacement_->commit(); });
    journal_.note({FileChange::Kind::kWritten, path_});
  }

 private:
  FileJournal& journal_;
  std::string path_;
  std::unique_ptr<FileReplacement> replacement_;
};

class FileJournal::WatchedCopies final : public CopySeries {
 public:
  explicit WatchedCopies(FileJournal& journal)
      : journal_(journal), copies_(journal.files().beginCopies()) {}

  bool copy(std::string_view from, std::string_view to) override {
    const bool isCopied = journal_.changing(to, [&] { return copies_->copy(from, to); });
    if (isCopied) {
      journal_.note({FileChange::Kind::kWritten, std::string(to)});
      last_ = to;
    }
    return isCopied;
  }
  void flush() override {
    journal_.changing(last_, [&] { copies_->flush(); });
  }

 private:
  FileJournal& journal_;
  std::unique_ptr<CopySeries> copies_;
  /// Stands for all of them where they could not be flushed.
  std::string last_;
};

void FileJournal::createFolder(std::string_view path) {
  changing(path, [&] { files().createFolder(path); });
  note({FileChange::Kind::kFolderMade, std::string(path)});
}

void FileJournal::copyFile(std::string_view from, std::string_view to) {
  changing(to, [&] { files().copyFile(from, to); });
  note({FileChange::Kind::kWritten, std::string(to)});
}

std::unique_ptr<CopySeries> FileJournal::beginCopies() {
  return std::make_unique<WatchedCopies>(*this);
}

void FileJournal::moveFile(std::string_view from, std::string_view to) {
  changing(from, [&] { files().moveFile(from, to); });
  const FileChange undone{
      FileChange::Kind::kMoved, files().absolutePath(to), files().absolutePath(from)};
  if (!changes_.empty() && changes_.back() == undone) {
    known_.erase(undone);
    changes_.pop_back();
  } else {
    note({FileChange::Kind::kMoved, std::string(from), files().absolutePath(to)});
  }
}

void FileJournal::deleteFile(std::string_view path) {
  changing(path, [&] { files().deleteFile(path); });
  note({FileChange::Kind::kDeleted, std::string(path)});
}

std::unique_ptr<FileReplacement> FileJournal::replace(std::string_view path) {
  return changing(path, [&]() -> std::unique_ptr<FileReplacement> {
    return std::make_unique<WatchedReplacement>(*this, path);
  });
}

void FileJournal::note(FileChange change) {
  change.path = files().absolutePath(change.path);
  if (known_.insert(change).second) {
    changes_.push_back(std::move(change));
  }
}

}  // namespace quorbind
