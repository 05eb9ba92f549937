#include "platform/portable/system_call.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <memory>

#include "platform/runtime_error.h"

namespace quorbind {

namespace {

constexpr std::size_t kKernelCopySize = 0x4000'0000;

struct CloseFolder {
  void operator()(DIR* folder) const { ::closedir(folder); }
};

bool isFolder(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

ErrorNumber errorNumberOf(int error, const std::string& path) {
  switch (error) {
    case ENOENT:
      return isFolder(parentOf(path)) ? ErrorNumber::kFileNotFound : ErrorNumber::kPathNotFound;
    case ENOTDIR:
      return ErrorNumber::kPathNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
      return ErrorNumber::kPermissionDenied;
    case EEXIST:
      return ErrorNumber::kFileAlreadyExists;
    case EISDIR:
      return ErrorNumber::kPathFileAccessError;
    case ENOSPC:
    case EDQUOT:
      return ErrorNumber::kDiskFull;
    case ENAMETOOLONG:
      return ErrorNumber::kBadFileName;
    default:
      return ErrorNumber::kDeviceIoError;
  }
}

bool isFile(const dirent& entry, int folder) {
  if (entry.d_type == DT_REG || entry.d_type == DT_DIR) {
    return entry.d_type == DT_REG;
  }
  struct stat status {};
  return ::fstatat(folder, entry.d_name, &status, 0) == 0 && S_ISREG(status.st_mode);
}

}  // namespace

bool FileDescriptor::close() {
  if (!isOpen()) {
    return true;
  }
  // The descriptor is gone even when a signal interrupts the call, so it is never closed again.
  return ::close(std::exchange(number_, -1)) == 0 || errno == EINTR;
}

FileDescriptor openFile(const std::string& path, int flags, unsigned permissions) {
  return FileDescriptor(
      uninterrupted([&] { return ::open(path.c_str(), flags | O_CLOEXEC, permissions); }));
}

std::size_t readFrom(const FileDescriptor& file, char* buffer, std::size_t size) {
  const ssize_t count = uninterrupted([&] { return ::read(file.number(), buffer, size); });
  if (count == -1) {
    raise(ErrorNumber::kDeviceIoError);
  }
  return static_cast<std::size_t>(count);
}

bool copyInKernel(const FileDescriptor& source, const FileDescriptor& target, off_t size) {
  off_t copied = 0;
  while (copied < size) {
    const ssize_t count =
        ::copy_file_range(source.number(), nullptr, target.number(), nullptr, kKernelCopySize, 0);
    if (count <= 0) {
      return false;
    }
    copied += count;
  }
  return size > 0;
}

std::optional<std::vector<std::string>> listFolder(const std::string& folder, Listed listed) {
  const std::unique_ptr<DIR, CloseFolder> stream(::opendir(folder.c_str()));
  if (!stream) {
    return std::nullopt;
  }
  std::vector<std::string> names;
  for (;;) {
    errno = 0;
    const dirent* entry = ::readdir(stream.get());
    if (entry == nullptr) {
      break;
    }
    const std::string_view name = entry->d_name;
    if (name != "." && name != ".." &&
        (listed == Listed::kAll || isFile(*entry, ::dirfd(stream.get())))) {
      names.emplace_back(name);
    }
  }
  if (errno != 0) {
    return std::nullopt;
  }
  return names;
}

int flushFolderOf(const std::string& path) {
  const FileDescriptor folder = openFile(parentOf(path), O_RDONLY | O_DIRECTORY);
  if (!folder.isOpen()) {
    return errno == EACCES ? 0 : errno;
  }
  const bool isFlushed = uninterrupted([&] { return ::fsync(folder.number()); }) == 0;
  return isFlushed || errno == EINVAL || errno == ENOTSUP ? 0 : errno;
}

std::string parentOf(const std::string& path) {
  const std::size_t separator = path.rfind('/');
  return path.substr(0, separator == 0 ? 1 : separator);
}

std::string_view nameIn(std::string_view path) {
  return path.substr(path.rfind('/') + 1);
}

std::string pathIn(std::string_view folder, std::string_view name) {
  std::string path;
  path.reserve(folder.size() + 1 + name.size());
  path.append(folder);
  if (!folder.ends_with('/')) {
    path += '/';
  }
  return path.append(name);
}

bool isIn(std::string_view folder, std::string_view path) {
  return !folder.empty() && path.starts_with(folder) && path.rfind('/') == folder.size();
}

void raiseSystemError(int error, const std::string& path) {
  raise(errorNumberOf(error, path));
}

}  // namespace quorbind
