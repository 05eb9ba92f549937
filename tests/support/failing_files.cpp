#include "tests/support/failing_files.h"

#include <utility>

#include "platform/abandoned.h"

namespace quorbind::testing {

using Kind = ChangingCall::Kind;

std::vector<FileFault> faultsOf(ChangingCall::Kind kind) {
  switch (kind) {
    case Kind::kWrite:
      return {{"no space", ErrorNumber::kDiskFull},
              {"an I/O error", ErrorNumber::kDeviceIoError},
              {"a short write", ErrorNumber::kDiskFull, true}};
    case Kind::kCommit:
      return {{"a failed flush", ErrorNumber::kDeviceIoError},
              {"a failed close", ErrorNumber::kDiskFull},
              {"a failed rename", ErrorNumber::kPermissionDenied}};
    case Kind::kFlush:
      return {{"a failed flush", ErrorNumber::kDeviceIoError}};
    case Kind::kCreateFolder:
    case Kind::kCopyFile:
    case Kind::kMoveFile:
    case Kind::kDeleteFile:
    case Kind::kBegin:
    case Kind::kCopy:
      return {{"no space", ErrorNumber::kDiskFull},
              {"no permission", ErrorNumber::kPermissionDenied},
              {"an I/O error", ErrorNumber::kDeviceIoError}};
  }
  return {};
}

class FailingFiles::Copies final : public CopySeries {
 public:
  explicit Copies(FailingFiles& files) : files_(files), copies_(files.files().beginCopies()) {}

  bool copy(std::string_view from, std::string_view to) override {
    files_.pass(Kind::kCopy, to);
    const bool isCopied = copies_->copy(from, to);
    isFlushed_ = isFlushed_ && !isCopied;
    return isCopied;
  }
  void flush() override {
    if (std::exchange(isFlushed_, true)) {
      return;
    }
    try {
      files_.pass(Kind::kFlush, "");
    } catch (const Abandoned&) {
      // It comes from a destructor, and the next call ends the run as well.
      return;
    }
    copies_->flush();
  }

 private:
  FailingFiles& files_;
  std::unique_ptr<CopySeries> copies_;
  bool isFlushed_ = true;
};

class FailingFiles::Replacement final : public FileReplacement {
 public:
  Replacement(FailingFiles& files, std::string_view path)
      : files_(files), path_(path), replacement_(files.files().replace(path)) {}

  void write(std::string_view bytes) override {
    if (const FileFault* fault = files_.begin(Kind::kWrite, path_)) {
      if (fault->isShortWrite) {
        replacement_->write(bytes.substr(0, bytes.size() / 2));
      }
      raise(fault->error);
    }
    replacement_->write(bytes);
  }
  void commit() override {
    files_.pass(Kind::kCommit, path_);
    replacement_->commit();
  }

 private:
  FailingFiles& files_;
  std::string path_;
  std::unique_ptr<FileReplacement> replacement_;
};

void FailingFiles::reset() {
  calls_.clear();
  fault_.reset();
  stops_ = false;
}

void FailingFiles::failAt(std::size_t number, const FileFault& fault) {
  reset();
  failing_ = number;
  fault_ = std::make_unique<const FileFault>(fault);
}

void FailingFiles::stopAt(std::size_t number) {
  reset();
  failing_ = number;
  stops_ = true;
}

void FailingFiles::createFolder(std::string_view path) {
  pass(Kind::kCreateFolder, path);
  files().createFolder(path);
}

void FailingFiles::copyFile(std::string_view from, std::string_view to) {
  pass(Kind::kCopyFile, to);
  files().copyFile(from, to);
}

std::unique_ptr<CopySeries> FailingFiles::beginCopies() {
  return std::make_unique<Copies>(*this);
}

void FailingFiles::moveFile(std::string_view from, std::string_view to) {
  pass(Kind::kMoveFile, from);
  files().moveFile(from, to);
}

void FailingFiles::deleteFile(std::string_view path) {
  pass(Kind::kDeleteFile, path);
  files().deleteFile(path);
}

std::unique_ptr<FileReplacement> FailingFiles::replace(std::string_view path) {
  pass(Kind::kBegin, path);
  return std::make_unique<Replacement>(*this, path);
}

const FileFault* FailingFiles::begin(ChangingCall::Kind kind, std::string_view path) {
  const std::size_t number = calls_.size();
  calls_.push_back({kind, path.empty() ? std::string() : files().absolutePath(path)});
  if (stops_ && number >= failing_) {
    throw Abandoned(AbandonReason::kAnswerMissing, "stopped");
  }
  return fault_ != nullptr && number == failing_ ? fault_.get() : nullptr;
}

void FailingFiles::pass(ChangingCall::Kind kind, std::string_view path) {
  if (const FileFault* fault = begin(kind, path)) {
    raise(fault->error);
  }
}

}  // namespace quorbind::testing
