#pragma once

// The ground rules of this folder's system calls: descriptors close themselves, interrupted calls
// are made again, and errno becomes the run-time error that the file-system port promises for it.

#include <sys/stat.h>
#include <sys/types.h>

#include <cerrno>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quorbind {

/// Who may read, write and execute a file, of all that its mode says.
inline constexpr mode_t kPermissionBits = S_IRWXU | S_IRWXG | S_IRWXO;

/// An open file or folder, or none.
class FileDescriptor {
 public:
  explicit FileDescriptor(int number = -1) : number_(number) {}
  FileDescriptor(FileDescriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  FileDescriptor& operator=(FileDescriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  ~FileDescriptor() { close(); }

  [[nodiscard]] bool isOpen() const { return number_ != -1; }
  [[nodiscard]] int number() const { return number_; }
  /// Closes the file, if one is open. False, with errno, when bytes written to it may be lost.
  bool close();

 private:
  int number_;
};

/// Makes a system call that answers -1 for a failure, again as long as a signal interrupts it.
template <typename Call>
auto uninterrupted(Call call) {
  for (;;) {
    const auto result = call();
    if (result != -1 || errno != EINTR) {
      return result;
    }
  }
}

/// Opens a file; the descriptor is not handed on to other programs. None, with errno, on failure.
FileDescriptor openFile(const std::string& path, int flags, unsigned permissions = 0);

/// Reads up to `size` bytes; 0 only at the end of the file. Raises 57.
std::size_t readFrom(const FileDescriptor& file, char* buffer, std::size_t size);

/// Has the system copy `size` bytes by itself. Answers whether it could; if not, some may have been
/// copied. Of a file without a size nobody knows whether it is empty, so it can't.
bool copyInKernel(const FileDescriptor& source, const FileDescriptor& target, off_t size);

enum class Listed { kAll, kFilesOnly };

/// The names in a folder, in no order, `.` and `..` left out; or those of its files, and of links
/// to files. Nothing, with errno, on failure.
std::optional<std::vector<std::string>> listFolder(const std::string& folder,
                                                   Listed listed = Listed::kAll);

/// Makes it last that a file or folder at `path`, from the root, has its name. Answers 0 or an
/// error; none where the folder around it may not be read, or its file system flushes no folders.
int flushFolderOf(const std::string& path);

/// The folder that a path from the root lies in, the name behind it, and both put together.
std::string parentOf(const std::string& path);
std::string_view nameIn(std::string_view path);
std::string pathIn(std::string_view folder, std::string_view name);
/// Whether `path` is that of a file or folder right in `folder`, which is neither the root nor
/// empty.
bool isIn(std::string_view folder, std::string_view path);

/// Raises the run-time error for `error`, which an operation on the file at `path` ended with.
[[noreturn]] void raiseSystemError(int error, const std::string& path);

}  // namespace quorbind
