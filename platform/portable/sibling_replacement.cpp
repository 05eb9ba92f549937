#include "platform/portable/sibling_replacement.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <filesystem>
#include <optional>
#include <random>
#include <system_error>

#include "platform/portable/extended_attributes.h"
#include "platform/runtime_error.h"
#include "platform/temporary_name.h"

namespace quorbind {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kWriteSize = 65'536;
constexpr int kMaximumLinks = 40;
constexpr mode_t kOwnerOnly = S_IRUSR | S_IWUSR;
constexpr mode_t kAllButExecute = 0666;

using Status = struct stat;

/// Where the symbolic links at `path` end, whether something stands there or not.
std::string endOfLinks(std::string path) {
  for (int links = 0; links < kMaximumLinks; ++links) {
    std::error_code isNoLink;
    const fs::path target = fs::read_symlink(path, isNoLink);
    if (isNoLink) {
      return path;
    }
    path = (fs::path(path).parent_path() / target).string();
  }
  raise(ErrorNumber::kDeviceIoError);
}

/// The status of the file to be replaced; nothing when there is none. Raises an error when what
/// stands there is not to be replaced.
std::optional<Status> statusOfOld(const std::string& path) {
  Status status{};
  if (::stat(path.c_str(), &status) != 0) {
    if (errno == ENOENT) {
      return std::nullopt;
    }
    raiseSystemError(errno, path);
  }
  if (!S_ISREG(status.st_mode)) {
    raise(ErrorNumber::kPathFileAccessError);
  }
  // The rename would not ask for this: it changes the folder, not the file.
  if (::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0) {
    raiseSystemError(errno, path);
  }
  return status;
}

/// The device is kept: to find out what the processor has takes a virtual machine longer than to
/// rename a file.
std::uint32_t chance() {
  thread_local std::random_device device;
  return device();
}

/// A name beside `target` that most likely nobody has.
std::string siblingOf(const std::string& target) {
  const std::string ending = temporaryEnding(chance());
  const std::size_t nameStart = target.rfind('/') + 1;
  return target.substr(0, nameStart) + target.substr(nameStart, NAME_MAX - ending.size()) + ending;
}

void setPermissions(const FileDescriptor& file, mode_t permissions) {
  // File systems without permissions refuse, and have none to lose.
  static_cast<void>(::fchmod(file.number(), permissions & kPermissionBits));
}

/// Gives the file its old owner and group, or the group alone. Answers whether it has that group.
bool takeOverGroup(const FileDescriptor& file, const Status& old) {
  constexpr auto kSameOwner = static_cast<uid_t>(-1);
  return ::fchown(file.number(), old.st_uid, old.st_gid) == 0 ||
         ::fchown(file.number(), kSameOwner, old.st_gid) == 0;
}

/// What is left of permissions when the file gets another group: that and all others, the old one
/// among them, may do what both were allowed.
mode_t withoutRightsOfGroup(mode_t permissions) {
  const mode_t ofBoth = permissions & (permissions >> 3U) & S_IRWXO;
  return (permissions & S_IRWXU) | (ofBoth << 3U) | ofBoth;
}

void takeOver(const FileDescriptor& file, const std::string& oldPath, const Status& old) {
  const bool hasGroup = takeOverGroup(file, old);
  setPermissions(file, hasGroup ? old.st_mode : withoutRightsOfGroup(old.st_mode));
  copyExtendedAttributes(
      oldPath, file, hasGroup ? AccessList::kAsItIs : AccessList::kWithoutRightsOfGroup);
}

}  // namespace

SiblingReplacement::SiblingReplacement(const std::string& path) : target_(endOfLinks(path)) {
  const std::optional<Status> old = statusOfOld(target_);
  isNew_ = !old;
  do {
    temporary_ = siblingOf(target_);
    file_ = openFile(temporary_, O_WRONLY | O_CREAT | O_EXCL, old ? kOwnerOnly : kAllButExecute);
  } while (!file_.isOpen() && errno == EEXIST);
  if (!file_.isOpen()) {
    raiseSystemError(errno, target_);
  }
  if (old) {
    takeOver(file_, target_, *old);
  }
}

SiblingReplacement::~SiblingReplacement() {
  discard();
}

void SiblingReplacement::write(std::string_view bytes) {
  requireOpen();
  if (buffer_.size() + bytes.size() > kWriteSize) {
    flushBuffer();
  }
  if (bytes.size() >= kWriteSize) {
    writeThrough(bytes);
  } else {
    buffer_.append(bytes);
  }
}

void SiblingReplacement::commit() {
  requireOpen();
  flushBuffer();
  if (uninterrupted([this] { return ::fsync(file_.number()); }) != 0) {
    fail(errno);
  }
  putUnderName();
  flushName();
}

void SiblingReplacement::commitUnflushed(UnflushedDisks& disks) {
  requireOpen();
  flushBuffer();
  if (!disks.add(file_)) {
    fail(errno);
  }
  putUnderName();
}

void SiblingReplacement::copyFrom(const FileDescriptor& source) {
  requireOpen();
  Status status{};
  if (::fstat(source.number(), &status) != 0) {
    fail(errno);
  }
  setPermissions(file_, status.st_mode);
  if (copyInKernel(source, file_, status.st_size)) {
    return;
  }
  // Not every pair of file systems copies by itself. Whatever is left is copied from here, and an
  // error comes up again.
  std::string chunk(kWriteSize, '\0');
  while (const std::size_t count = readFrom(source, chunk.data(), chunk.size())) {
    write(std::string_view(chunk).substr(0, count));
  }
}

void SiblingReplacement::flushBuffer() {
  writeThrough(buffer_);
  buffer_.clear();
}

void SiblingReplacement::writeThrough(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count =
        uninterrupted([&] { return ::write(file_.number(), bytes.data(), bytes.size()); });
    if (count == -1) {
      fail(errno);
    }
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
}

void SiblingReplacement::putUnderName() {
  if (!file_.close() || ::rename(temporary_.c_str(), target_.c_str()) != 0) {
    fail(errno);
  }
  temporary_.clear();
  isUnderName_ = true;
}

void SiblingReplacement::flushName() {
  const int error = flushFolderOf(target_);
  if (error == 0) {
    return;
  }
  if (isNew_ && ::unlink(target_.c_str()) == 0) {
    isUnderName_ = false;
  }
  fail(error);
}

void SiblingReplacement::requireOpen() const {
  if (!file_.isOpen()) {
    raise(ErrorNumber::kDeviceIoError);
  }
}

void SiblingReplacement::fail(int error) {
  discard();
  raiseSystemError(error, target_);
}

void SiblingReplacement::discard() {
  file_.close();
  if (!temporary_.empty()) {
    ::unlink(temporary_.c_str());
    temporary_.clear();
  }
}

}  // namespace quorbind
