#include "cli/rehearsed_files.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <set>
#include <utility>

#include "platform/file_bytes.h"
#include "platform/paths.h"
#include "platform/portable/drive_name.h"
#include "platform/portable/system_call.h"
#include "platform/runtime_error.h"

namespace quorbind {

namespace {

class BytesReader final : public ByteReader {
 public:
  explicit BytesReader(std::shared_ptr<const std::string> bytes) : bytes_(std::move(bytes)) {}

  std::size_t read(char* buffer, std::size_t size) override {
    const std::size_t count = bytes_->copy(buffer, size, position_);
    position_ += count;
    return count;
  }
  void rewind() override { position_ = 0; }

 private:
  std::shared_ptr<const std::string> bytes_;
  std::size_t position_ = 0;
};

/// What does not stand there can't be forbidden.
bool isForbidden(const std::string& place, int rights) {
  return ::faccessat(AT_FDCWD, place.c_str(), rights, AT_EACCESS) != 0 && errno != ENOENT &&
         errno != ENOTDIR;
}

}  // namespace

class RehearsedFiles::Replacement final : public FileReplacement {
 public:
  Replacement(RehearsedFiles& files, std::string_view path) : files_(files), path_(path) {}

  void write(std::string_view bytes) override { bytes_.append(bytes); }
  void commit() override {
    files_.put(path_, std::make_shared<const std::string>(std::move(bytes_)));
  }

 private:
  RehearsedFiles& files_;
  std::string path_;
  std::string bytes_;
};

RehearsedFiles::RehearsedFiles(FileSystem& disk, const Locale& locale)
    : disk_(disk), locale_(locale) {}

bool RehearsedFiles::fileExists(std::string_view path) {
  const Entry* entry = find(path);
  if (entry == nullptr) {
    return disk_.fileExists(path);
  }
  return std::holds_alternative<Bytes>(entry->content) ||
         std::holds_alternative<DiskFile>(entry->content);
}

bool RehearsedFiles::folderExists(std::string_view path) {
  const Entry* entry = find(path);
  return entry == nullptr ? disk_.folderExists(path)
                          : std::holds_alternative<Folder>(entry->content);
}

void RehearsedFiles::createFolder(std::string_view path) {
  if (folderExists(path) || fileExists(path)) {
    raise(ErrorNumber::kFileAlreadyExists);
  }
  requireTarget(path);
  put(path, Folder());
}

void RehearsedFiles::copyFile(std::string_view from, std::string_view to) {
  auto content = contentOf(from);
  if (sameFile(from, to)) {
    raise(ErrorNumber::kPermissionDenied);
  }
  if (const auto* file = std::get_if<DiskFile>(&content)) {
    requireReadable(disk_, file->path);
  }
  requireTarget(to);
  put(to, std::move(content));
}

void RehearsedFiles::moveFile(std::string_view from, std::string_view to) {
  auto content = contentOf(from);
  requireTarget(to);
  if (keyOf(from) != keyOf(to) && fileExists(to)) {
    raise(ErrorNumber::kFileAlreadyExists);
  }
  requireTarget(from);
  put(from, Nothing());
  put(to, std::move(content));
}

void RehearsedFiles::deleteFile(std::string_view path) {
  static_cast<void>(contentOf(path));
  requireTarget(path);
  put(path, Nothing());
}

std::string RehearsedFiles::absolutePath(std::string_view path) {
  return disk_.absolutePath(path);
}

bool RehearsedFiles::sameFile(std::string_view left, std::string_view right) {
  if (find(left) != nullptr || find(right) != nullptr) {
    return fileExists(left) && keyOf(left) == keyOf(right);
  }
  return disk_.sameFile(left, right);
}

std::vector<std::string> RehearsedFiles::namesIn(std::string_view folder) {
  std::set<std::string> names;
  if (find(folder) == nullptr) {
    for (std::string& name : disk_.namesIn(folder)) {
      names.insert(std::move(name));
    }
  }
  const std::string key = keyOf(folder);
  for (const auto& [entryKey, entry] : entries_) {
    if (folderOf(entryKey) != key) {
      continue;
    }
    const std::string_view upperName = fileNameOf(entryKey);
    std::erase_if(names,
                  [&](const std::string& name) { return locale_.upperCase(name) == upperName; });
    if (!std::holds_alternative<Nothing>(entry.content)) {
      names.emplace(fileNameOf(entry.path));
    }
  }
  return {names.begin(), names.end()};
}

std::vector<std::string> RehearsedFiles::fileNamesIn(std::string_view folder) {
  return entries_.empty() ? disk_.fileNamesIn(folder) : FileSystem::fileNamesIn(folder);
}

std::unique_ptr<ByteReader> RehearsedFiles::open(std::string_view path) {
  const auto content = contentOf(path);
  if (const auto* bytes = std::get_if<Bytes>(&content)) {
    return std::make_unique<BytesReader>(*bytes);
  }
  return disk_.open(std::get<DiskFile>(content).path);
}

std::unique_ptr<FileReplacement> RehearsedFiles::replace(std::string_view path) {
  requireTarget(path);
  return std::make_unique<Replacement>(*this, path);
}

std::string RehearsedFiles::keyOf(std::string_view path) const {
  return locale_.upperCase(disk_.absolutePath(path));
}

const RehearsedFiles::Entry* RehearsedFiles::find(std::string_view path) const {
  if (entries_.empty()) {
    return nullptr;
  }
  const auto found = entries_.find(keyOf(path));
  return found == entries_.end() ? nullptr : &found->second;
}

void RehearsedFiles::put(std::string_view path, decltype(Entry::content) content) {
  entries_[keyOf(path)] = {disk_.absolutePath(path), std::move(content)};
}

decltype(RehearsedFiles::Entry::content) RehearsedFiles::contentOf(std::string_view path) {
  if (folderExists(path)) {
    raise(ErrorNumber::kPathFileAccessError);
  }
  const Entry* entry = find(path);
  if (!fileExists(path)) {
    const std::string folder(folderOf(disk_.absolutePath(path)));
    if (entry == nullptr && disk_.folderExists(folder)) {
      // What stands there and is no file has an error of its own.
      static_cast<void>(disk_.open(path));
    }
    raise(folderExists(folder) ? ErrorNumber::kFileNotFound : ErrorNumber::kPathNotFound);
  }
  return entry == nullptr ? DiskFile{disk_.absolutePath(path)} : entry->content;
}

void RehearsedFiles::requireTarget(std::string_view path) {
  if (folderExists(path)) {
    raise(ErrorNumber::kPathFileAccessError);
  }
  if (!folderExists(folderOf(disk_.absolutePath(path)))) {
    raise(ErrorNumber::kPathNotFound);
  }
  requireRights(path);
}

void RehearsedFiles::requireRights(std::string_view path) {
  const std::string place = finder_.find(DriveName(disk_.absolutePath(path), "").parts()).path;
  if (isForbidden(place, W_OK) || isForbidden(parentOf(place), W_OK | X_OK)) {
    raise(ErrorNumber::kPermissionDenied);
  }
}

}  // namespace quorbind
