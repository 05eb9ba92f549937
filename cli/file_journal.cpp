#include "cli/file_journal.h"

#include <utility>

#include "cli/failure.h"
#include "platform/error_trap.h"
#include "platform/file_bytes.h"
#include "platform/paths.h"
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

template <typename Step>
auto FileJournal::reading(std::string_view path, Step&& step) {
  try {
    return std::forward<Step>(step)();
  } catch (const RunTimeError& error) {
    if (isReadError(error.number()) && !failedRead_) {
      failedRead_ = files().absolutePath(path);
    }
    throw;
  }
}

// What a failed copy raises does not tell which of the two files it is about.
template <typename Step>
void FileJournal::copying(std::string_view from, std::string_view to, Step&& step) {
  if (const auto error = errorOf(std::forward<Step>(step))) {
    if (!isReadable(from)) {
      throw RunTimeError(*error);
    }
    changing(to, [&] { throw RunTimeError(*error); });
  }
}

class FileJournal::WatchedReader final : public ByteReader {
 public:
  WatchedReader(FileJournal& journal, std::string_view path)
      : journal_(journal), path_(path), reader_(journal.files().open(path)) {}

  std::size_t read(char* buffer, std::size_t size) override {
    return journal_.reading(path_, [&] { return reader_->read(buffer, size); });
  }
  void rewind() override { reader_->rewind(); }

 private:
  FileJournal& journal_;
  std::string path_;
  std::unique_ptr<ByteReader> reader_;
};

class FileJournal::WatchedReplacement final : public FileReplacement {
 public:
  WatchedReplacement(FileJournal& journal, std::string_view path)
      : journal_(journal), path_(path), replacement_(journal.files().replace(path)) {}

  void write(std::string_view bytes) override {
    journal_.changing(path_, [&] { replacement_->write(bytes); });
  }
  void commit() override {
    const auto error = errorOf([&] { replacement_->commit(); });
    if (!error || replacement_->standsAllTheSame()) {
      journal_.note({FileChange::Kind::kWritten, path_});
    }
    if (error) {
      journal_.changing(path_, [&] { throw RunTimeError(*error); });
    }
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
    bool isCopied = false;
    journal_.copying(from, to, [&] { isCopied = copies_->copy(from, to); });
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

/// Notes it when it is not, as any read does.
bool FileJournal::isReadable(std::string_view path) {
  return ignoringErrors([&] { requireReadable(*this, path); }) == 0;
}

// What can't be looked at counts as missing, and has to be told all the same.
bool FileJournal::fileExists(std::string_view path) {
  const bool exists = files().fileExists(path);
  if (!exists) {
    ignoringErrors([&] { static_cast<void>(open(path)); });
  }
  return exists;
}

void FileJournal::createFolder(std::string_view path) {
  changing(path, [&] { files().createFolder(path); });
  note({FileChange::Kind::kFolderMade, std::string(path)});
}

void FileJournal::copyFile(std::string_view from, std::string_view to) {
  copying(from, to, [&] { files().copyFile(from, to); });
  note({FileChange::Kind::kWritten, std::string(to)});
}

std::unique_ptr<CopySeries> FileJournal::beginCopies() {
  return std::make_unique<WatchedCopies>(*this);
}

/// The end of a move that can't be written. What a move raises does not tell which.
std::string FileJournal::closedEndOf(const RunTimeError& error,
                                     std::string_view from,
                                     std::string_view to) {
  const bool canArrive = !isWriteError(error.number()) ||
                         ignoringErrors([&] { static_cast<void>(files().replace(to)); }) == 0;
  return canArrive ? std::string(from) : std::string(folderOf(files().absolutePath(to)));
}

void FileJournal::moveFile(std::string_view from, std::string_view to) {
  if (const auto error = errorOf([&] { files().moveFile(from, to); })) {
    changing(closedEndOf(*error, from, to), [&] { throw RunTimeError(*error); });
  }
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

std::vector<std::string> FileJournal::namesIn(std::string_view folder) {
  return reading(folder, [&] { return files().namesIn(folder); });
}

// Whoever looks for files asks for each where the folder can't be listed.
std::vector<std::string> FileJournal::fileNamesIn(std::string_view folder) {
  return files().fileNamesIn(folder);
}

std::unique_ptr<ByteReader> FileJournal::open(std::string_view path) {
  return reading(path, [&]() -> std::unique_ptr<ByteReader> {
    return std::make_unique<WatchedReader>(*this, path);
  });
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
