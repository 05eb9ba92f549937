#include "platform/portable/portable_file_system.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <optional>
#include <system_error>
#include <utility>

#include "platform/portable/copy_targets.h"
#include "platform/portable/sibling_replacement.h"
#include "platform/portable/system_call.h"
#include "platform/portable/unnamed_copies.h"
#include "platform/runtime_error.h"
#include "platform/text.h"
#include "platform/text_encoding.h"

namespace quorbind {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kOnlyDrive = "C:";
constexpr mode_t kAllPermissions = 0777;

using Status = struct stat;

std::optional<Status> statusOf(const std::string& path) {
  Status status{};
  return ::stat(path.c_str(), &status) == 0 ? std::optional(status) : std::nullopt;
}

bool isFile(const std::optional<Status>& status) {
  return status && S_ISREG(status->st_mode);
}
bool isFolder(const std::optional<Status>& status) {
  return status && S_ISDIR(status->st_mode);
}

bool isSame(const std::optional<Status>& left, const std::optional<Status>& right) {
  return left && right && left->st_dev == right->st_dev && left->st_ino == right->st_ino;
}

/// The status of the file at `path`. Raises an error when there is none, or something else.
Status statusOfFile(const std::string& path) {
  const std::optional<Status> status = statusOf(path);
  if (!status) {
    raiseSystemError(errno, path);
  }
  if (!isFile(status)) {
    raise(ErrorNumber::kPathFileAccessError);
  }
  return *status;
}

/// Whether both paths name one entry of one folder, whatever way they take to the folder.
bool isSameEntry(const std::string& left, const std::string& right) {
  return nameIn(left) == nameIn(right) &&
         isSame(statusOf(parentOf(left)), statusOf(parentOf(right)));
}

struct OpenFile {
  FileDescriptor file;
  Status status;
};

/// Opens what stands at `path`. A pipe is not waited for: it is no file. Nothing, with errno, on
/// failure.
std::optional<OpenFile> openWhatStands(const std::string& path) {
  OpenFile opened{openFile(path, O_RDONLY | O_NONBLOCK | O_NOCTTY), {}};
  if (!opened.file.isOpen() || ::fstat(opened.file.number(), &opened.status) != 0) {
    return std::nullopt;
  }
  return opened;
}

std::optional<OpenFile> openIfFile(const std::string& path) {
  auto opened = openWhatStands(path);
  return opened && S_ISREG(opened->status.st_mode) ? std::move(opened) : std::nullopt;
}

/// Opens the file at `path`.
OpenFile openForReading(const std::string& path) {
  auto opened = openWhatStands(path);
  if (!opened) {
    raiseSystemError(errno, path);
  }
  if (!S_ISREG(opened->status.st_mode)) {
    raise(ErrorNumber::kPathFileAccessError);
  }
  return *std::move(opened);
}

/// Opens the file at `path` in whatever letter case it stands. One that stands as it is spelled
/// need not be looked for before.
OpenFile openInAnyCase(const std::string& path, PathFinder& finder) {
  auto asSpelled = openIfFile(path);
  return asSpelled ? *std::move(asSpelled) : openForReading(finder.find(path).path);
}

void copyTo(const std::string& target, const OpenFile& source) {
  SiblingReplacement replacement(target);
  replacement.copyFrom(source.file);
  replacement.commit();
}

void deletePath(const std::string& path) {
  if (::unlink(path.c_str()) != 0) {
    raiseSystemError(errno, path);
  }
}

/// Between two disks a file can't be renamed. It stands at one end only, also after a failure.
void moveAcrossDisks(const std::string& from, const std::string& to) {
  copyTo(to, openForReading(from));
  try {
    deletePath(from);
  } catch (const RunTimeError&) {
    deletePath(to);
    throw;
  }
}

/// Renames to a name that was free a moment ago, without replacing what may stand there by now. Not
/// every file system can promise that; then the look before has to do.
int renameToFree(const std::string& from, const std::string& to) {
  const int result = ::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE);
  return result == -1 && errno == EINVAL ? ::rename(from.c_str(), to.c_str()) : result;
}

/// The path of a folder, which need not stand, from the system's root; without a `/` at its end.
std::string withoutLinks(const fs::path& folder) {
  std::error_code error;
  const fs::path full = fs::absolute(folder, error);
  const fs::path real = fs::weakly_canonical(full, error);
  std::string path = (real.empty() ? full : real).string();
  while (path.ends_with('/')) {
    path.pop_back();
  }
  return path;
}

class FileReader final : public ByteReader {
 public:
  explicit FileReader(FileDescriptor file) : file_(std::move(file)) {}

  std::size_t read(char* buffer, std::size_t size) override {
    return readFrom(file_, buffer, size);
  }
  void rewind() override {
    if (::lseek(file_.number(), 0, SEEK_SET) == -1) {
      raise(ErrorNumber::kDeviceIoError);
    }
  }

 private:
  FileDescriptor file_;
};

}  // namespace

class PortableFileSystem::Copies final : public CopySeries {
 public:
  explicit Copies(PortableFileSystem& files)
      : files_(files), targets_(files.finder_), newCopies_(disks_) {}

  bool copy(std::string_view from, std::string_view to) override {
    const OpenFile source = open(from);
    const std::string path = files_.pathOfFile(files_.nameOf(to));
    const PathFinder::Place target = targets_.find(path);
    if (target.stands) {
      if (isSame(source.status, statusOf(target.path))) {
        return false;
      }
      replace(target.path, source);
      return true;
    }
    if (!newCopies_.copy(source.file, source.status, target.path)) {
      replace(target.path, open(from));
    }
    targets_.add(path);
    return true;
  }
  void flush() override {
    if (const int error = disks_.flush(); error != 0) {
      raiseSystemError(error, files_.root_);
    }
  }

 private:
  OpenFile open(std::string_view name) {
    return openInAnyCase(files_.pathOfFile(files_.nameOf(name)), files_.finder_);
  }

  void replace(const std::string& path, const OpenFile& source) {
    SiblingReplacement replacement(path);
    replacement.copyFrom(source.file);
    replacement.commitUnflushed(disks_);
  }

  PortableFileSystem& files_;
  CopyTargets targets_;
  UnflushedDisks disks_;
  UnnamedCopies newCopies_;
};

PortableFileSystem::PortableFileSystem(const fs::path& driveRoot)
    : root_(withoutLinks(driveRoot)), finder_(root_) {}

bool PortableFileSystem::fileExists(std::string_view path) {
  try {
    const PathFinder::Place place = locateFile(nameOf(path));
    return place.isKnownFile || (place.stands && isFile(statusOf(place.path)));
  } catch (const RunTimeError&) {
    return false;
  }
}

bool PortableFileSystem::folderExists(std::string_view path) {
  try {
    const PathFinder::Place place = locate(nameOf(path));
    return place.isKnownFolder || (place.stands && isFolder(statusOf(place.path)));
  } catch (const RunTimeError&) {
    return false;
  }
}

void PortableFileSystem::createFolder(std::string_view path) {
  const PathFinder::Place place = locate(nameOf(path));
  if (::mkdir(place.path.c_str(), kAllPermissions) != 0) {
    raiseSystemError(errno, place.path);
  }
  if (const int error = flushFolderOf(place.path); error != 0) {
    ::rmdir(place.path.c_str());
    raiseSystemError(error, place.path);
  }
}

void PortableFileSystem::copyFile(std::string_view from, std::string_view to) {
  const OpenFile file = openInAnyCase(pathOfFile(nameOf(from)), finder_);
  const PathFinder::Place target = locateFile(nameOf(to));
  if (isSame(file.status, statusOf(target.path))) {
    raise(ErrorNumber::kPermissionDenied);
  }
  copyTo(target.path, file);
}

std::unique_ptr<CopySeries> PortableFileSystem::beginCopies() {
  return std::make_unique<Copies>(*this);
}

void PortableFileSystem::moveFile(std::string_view from, std::string_view to) {
  const PathFinder::Place source = locateFile(nameOf(from));
  statusOfFile(source.path);
  const DriveName targetName = nameOf(to);
  const PathFinder::Place target = locateFile(targetName);
  const bool isOwnName = target.stands && isSameEntry(source.path, target.path);
  if (target.stands && !isOwnName) {
    raise(isFolder(statusOf(target.path)) ? ErrorNumber::kPathFileAccessError
                                          : ErrorNumber::kFileAlreadyExists);
  }
  const std::string newPath = pathIn(parentOf(target.path), nameIn(targetName.parts()));
  const int result = isOwnName ? ::rename(source.path.c_str(), newPath.c_str())
                               : renameToFree(source.path, newPath);
  if (result == 0) {
    return;
  }
  if (errno != EXDEV) {
    raiseSystemError(errno, newPath);
  }
  moveAcrossDisks(source.path, newPath);
}

void PortableFileSystem::deleteFile(std::string_view path) {
  const PathFinder::Place place = locateFile(nameOf(path));
  // The disk would delete it: on this system the right to do so is the folder's, not the file's.
  const bool isReadOnly = (statusOfFile(place.path).st_mode & S_IWUSR) == 0;
  if (isReadOnly) {
    raise(ErrorNumber::kPermissionDenied);
  }
  deletePath(place.path);
}

std::string PortableFileSystem::absolutePath(std::string_view path) {
  return nameOf(path).text();
}

bool PortableFileSystem::sameFile(std::string_view left, std::string_view right) {
  try {
    const std::optional<Status> status = statusOf(locateFile(nameOf(left)).path);
    return isFile(status) && isSame(status, statusOf(locateFile(nameOf(right)).path));
  } catch (const RunTimeError&) {
    return false;
  }
}

std::vector<std::string> PortableFileSystem::namesIn(std::string_view folder) {
  std::vector<std::string> names = list(folder, Listed::kAll);
  std::sort(names.begin(), names.end());
  return names;
}

std::vector<std::string> PortableFileSystem::fileNamesIn(std::string_view folder) {
  return list(folder, Listed::kFilesOnly);
}

std::vector<std::string> PortableFileSystem::list(std::string_view folder, Listed listed) {
  const PathFinder::Place place = locate(nameOf(folder));
  if (!place.stands) {
    raise(ErrorNumber::kPathNotFound);
  }
  std::optional<std::vector<std::string>> names = listFolder(place.path, listed);
  if (!names) {
    if (errno == ENOTDIR) {
      raise(ErrorNumber::kPathFileAccessError);
    }
    raiseSystemError(errno, place.path);
  }
  // What would be read as a path of several parts names nothing that can be asked for.
  std::erase_if(*names, [](const std::string& name) { return contains(name, "\\"); });
  std::transform(names->begin(), names->end(), names->begin(), toValidUtf8);
  return *std::move(names);
}

std::unique_ptr<ByteReader> PortableFileSystem::open(std::string_view path) {
  return std::make_unique<FileReader>(openInAnyCase(pathOfFile(nameOf(path)), finder_).file);
}

std::unique_ptr<FileReplacement> PortableFileSystem::replace(std::string_view path) {
  return std::make_unique<SiblingReplacement>(locateFile(nameOf(path)).path);
}

DriveName PortableFileSystem::nameOf(std::string_view name) const {
  return {name, DriveName::isRelative(name) ? workingFolder() : std::string()};
}

std::string PortableFileSystem::workingFolder() const {
  std::error_code isGone;
  const std::string folder = fs::current_path(isGone).string();
  const bool isOnDrive =
      folder.starts_with(root_) && (folder.size() == root_.size() || folder[root_.size()] == '/');
  return isOnDrive ? folder.substr(root_.size()) : std::string();
}

std::string PortableFileSystem::pathOf(const DriveName& name) const {
  if (!equalIgnoringAsciiCase(name.drive(), kOnlyDrive)) {
    raise(ErrorNumber::kPathNotFound);
  }
  return root_ + (name.parts().empty() ? "/" : name.parts());
}

std::string PortableFileSystem::pathOfFile(const DriveName& name) const {
  if (name.isWrittenAsFolder() || name.parts().empty()) {
    raise(ErrorNumber::kPathFileAccessError);
  }
  return pathOf(name);
}

PathFinder::Place PortableFileSystem::locate(const DriveName& name) {
  return finder_.find(pathOf(name));
}

PathFinder::Place PortableFileSystem::locateFile(const DriveName& name) {
  return finder_.find(pathOfFile(name));
}

}  // namespace quorbind
