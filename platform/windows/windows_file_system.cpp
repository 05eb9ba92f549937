#include "platform/windows/windows_file_system.h"

#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

#include "platform/runtime_error.h"
#include "platform/windows/com_types.h"
#include "platform/windows/sibling_replacement.h"
#include "platform/windows/system_error.h"
#include "platform/windows/win32_path.h"

namespace quorbind {

namespace {

struct CloseSearch {
  void operator()(HANDLE search) const { ::FindClose(search); }
};
using Search = std::unique_ptr<void, CloseSearch>;

/// The attributes of what stands at `path`; nothing when it can't be looked at.
std::optional<DWORD> attributesOf(const std::wstring& path) {
  const DWORD attributes = ::GetFileAttributesW(path.c_str());
  return attributes == INVALID_FILE_ATTRIBUTES ? std::nullopt : std::optional(attributes);
}

bool isFolder(std::optional<DWORD> attributes) {
  return attributes && (*attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}
bool isFile(std::optional<DWORD> attributes) {
  return attributes && !isFolder(attributes);
}

/// The attributes of the file at `path`. Raises an error when there is none, or a folder.
DWORD attributesOfFile(const std::wstring& path) {
  const std::optional<DWORD> attributes = attributesOf(path);
  if (!attributes) {
    raiseLastError(path);
  }
  if (isFolder(attributes)) {
    raise(ErrorNumber::kPathFileAccessError);
  }
  return *attributes;
}

Handle openFile(const std::wstring& path, DWORD access) {
  return Handle(::CreateFileW(
      path.c_str(), access, kShareAll, nullptr, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
}

bool isSameFile(const std::wstring& left, const std::wstring& right) {
  // Both stay open until they are compared: a number is given again once its file is gone.
  const Handle leftFile = openFile(left, FILE_READ_ATTRIBUTES);
  const Handle rightFile = openFile(right, FILE_READ_ATTRIBUTES);
  BY_HANDLE_FILE_INFORMATION leftInfo{};
  BY_HANDLE_FILE_INFORMATION rightInfo{};
  return leftFile && rightFile && ::GetFileInformationByHandle(leftFile.get(), &leftInfo) != 0 &&
         ::GetFileInformationByHandle(rightFile.get(), &rightInfo) != 0 &&
         leftInfo.dwVolumeSerialNumber == rightInfo.dwVolumeSerialNumber &&
         leftInfo.nFileIndexHigh == rightInfo.nFileIndexHigh &&
         leftInfo.nFileIndexLow == rightInfo.nFileIndexLow;
}

std::wstring_view nameIn(const std::wstring& path) {
  return std::wstring_view(path).substr(path.rfind(L'\\') + 1);
}

/// How the name of the file at `path` is spelled on the disk.
std::wstring spellingOf(const std::wstring& path) {
  WIN32_FIND_DATAW found{};
  const HANDLE search = ::FindFirstFileW(path.c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) {
    raiseLastError(path);
  }
  ::FindClose(search);
  return found.cFileName;
}

/// Opens the file at `path` as soon as nobody holds it. Answers an error.
DWORD openWhenFree(Patience& patience, const std::wstring& path, DWORD access, Handle& file) {
  return patience.whenFree(path, [&] {
    file = openFile(path, access);
    return errorOfCall(file ? TRUE : FALSE);
  });
}

/// Gives a file's name the spelling of `path`, where the system takes that for the name which the
/// file has already.
void respell(const std::wstring& path) {
  const std::wstring between = path + L".respelled";
  if (::MoveFileExW(path.c_str(), between.c_str(), 0) == 0) {
    raiseLastError(path);
  }
  if (::MoveFileExW(between.c_str(), path.c_str(), MOVEFILE_WRITE_THROUGH) == 0) {
    const DWORD error = ::GetLastError();
    ::MoveFileExW(between.c_str(), path.c_str(), 0);
    raiseSystemError(error, path);
  }
}

/// The names in a folder that `accepts` takes by their attributes.
template <typename Accepts>
std::vector<std::string> list(std::string_view folder, Accepts&& accepts) {
  const std::wstring path = pathOf(folder);
  const std::optional<DWORD> attributes = attributesOf(path);
  if (!attributes) {
    raise(ErrorNumber::kPathNotFound);
  }
  if (!isFolder(attributes)) {
    raise(ErrorNumber::kPathFileAccessError);
  }
  WIN32_FIND_DATAW found{};
  const HANDLE handle = ::FindFirstFileExW((path + L"\\*").c_str(),
                                           FindExInfoBasic,
                                           &found,
                                           FindExSearchNameMatch,
                                           nullptr,
                                           FIND_FIRST_EX_LARGE_FETCH);
  if (handle == INVALID_HANDLE_VALUE) {
    raiseLastError(path);
  }
  const Search search(handle);
  std::vector<std::string> names;
  do {
    const std::wstring_view name = found.cFileName;
    if (name != L"." && name != L".." && accepts(found.dwFileAttributes)) {
      names.push_back(toUtf8(name));
    }
  } while (::FindNextFileW(search.get(), &found) != 0);
  if (::GetLastError() != ERROR_NO_MORE_FILES) {
    raiseLastError(path);
  }
  return names;
}

/// Both ends of a copy.
struct CopyWay {
  std::wstring source;
  std::wstring target;
  bool isThere = false;  ///< Both are one file.
};

/// Raises what copyFile raises for them.
CopyWay findCopyWay(std::string_view from, std::string_view to) {
  CopyWay way;
  way.source = pathOfFile(from);
  attributesOfFile(way.source);
  way.target = pathOfFile(to);
  way.isThere = isSameFile(way.source, way.target);
  return way;
}

/// Flushes the file at `path`, unless somebody has taken it away. Answers an error.
DWORD flushFile(const std::wstring& path, Patience& patience) {
  Handle file;
  const DWORD opened = openWhenFree(patience, path, GENERIC_WRITE, file);
  if (!file) {
    return opened == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : opened;
  }
  return errorOfCall(::FlushFileBuffers(file.get()));
}

/// There is no flush of a whole disk for ordinary users. Flushed at the end, most files have been
/// written by the system meanwhile, and what is left is to wait for each.
class Copies final : public CopySeries {
 public:
  explicit Copies(Patience& patience) : patience_(patience) {}

  bool copy(std::string_view from, std::string_view to) override {
    const CopyWay way = findCopyWay(from, to);
    if (way.isThere) {
      return false;
    }
    patience_.beginCall();
    SiblingReplacement replacement(way.target, patience_);
    replacement.copyFrom(way.source);
    if (replacement.becomesReadOnly()) {
      // Nobody can open it for a flush any more.
      replacement.commitFlushed();
    } else {
      replacement.commitUnflushed();
      unflushed_.push_back(replacement.target());
    }
    return true;
  }

  void flush() override {
    patience_.beginCall();
    DWORD firstError = ERROR_SUCCESS;
    std::wstring firstPath;
    for (std::wstring& path : std::exchange(unflushed_, {})) {
      const DWORD error = flushFile(path, patience_);
      if (error != ERROR_SUCCESS && firstError == ERROR_SUCCESS) {
        firstError = error;
        firstPath = std::move(path);
      }
    }
    if (firstError != ERROR_SUCCESS) {
      raiseSystemError(firstError, firstPath);
    }
  }

 private:
  Patience& patience_;
  std::vector<std::wstring> unflushed_;
};

class FileReader final : public ByteReader {
 public:
  explicit FileReader(Handle file) : file_(std::move(file)) {}

  std::size_t read(char* buffer, std::size_t size) override {
    constexpr std::size_t kMost = 1U << 30U;
    DWORD count = 0;
    if (::ReadFile(
            file_.get(), buffer, static_cast<DWORD>(std::min(size, kMost)), &count, nullptr) == 0) {
      raise(ErrorNumber::kDeviceIoError);
    }
    return count;
  }
  void rewind() override {
    if (::SetFilePointerEx(file_.get(), LARGE_INTEGER{}, nullptr, FILE_BEGIN) == 0) {
      raise(ErrorNumber::kDeviceIoError);
    }
  }

 private:
  Handle file_;
};

}  // namespace

bool WindowsFileSystem::fileExists(std::string_view path) {
  try {
    return isFile(attributesOf(pathOfFile(path)));
  } catch (const RunTimeError&) {
    return false;
  }
}

bool WindowsFileSystem::folderExists(std::string_view path) {
  try {
    return isFolder(attributesOf(pathOf(path)));
  } catch (const RunTimeError&) {
    return false;
  }
}

void WindowsFileSystem::createFolder(std::string_view path) {
  const std::wstring folder = pathOf(path);
  if (::CreateDirectoryW(folder.c_str(), nullptr) == 0) {
    const DWORD error = ::GetLastError();
    // The system refuses access to a drive's root instead of telling that it exists.
    raiseSystemError(attributesOf(folder) ? ERROR_ALREADY_EXISTS : error, folder);
  }
}

void WindowsFileSystem::copyFile(std::string_view from, std::string_view to) {
  const CopyWay way = findCopyWay(from, to);
  if (way.isThere) {
    raise(ErrorNumber::kPermissionDenied);
  }
  patience_.beginCall();
  SiblingReplacement replacement(way.target, patience_);
  replacement.copyFrom(way.source);
  replacement.commitFlushed();
}

std::unique_ptr<CopySeries> WindowsFileSystem::beginCopies() {
  return std::make_unique<Copies>(patience_);
}

void WindowsFileSystem::moveFile(std::string_view from, std::string_view to) {
  const std::wstring source = pathOfFile(from);
  attributesOfFile(source);
  const std::wstring target = pathOfFile(to);
  if (isFolder(attributesOf(target))) {
    raise(ErrorNumber::kPathFileAccessError);
  }
  patience_.beginCall();
  const DWORD moved = patience_.whenFree(source, [&] {
    return errorOfCall(::MoveFileExW(
        source.c_str(), target.c_str(), MOVEFILE_COPY_ALLOWED | MOVEFILE_WRITE_THROUGH));
  });
  if (moved != ERROR_SUCCESS) {
    raiseSystemError(moved, target);
  }
  if (spellingOf(target) != nameIn(target)) {
    respell(target);
  }
}

void WindowsFileSystem::deleteFile(std::string_view path) {
  const std::wstring file = pathOfFile(path);
  if ((attributesOfFile(file) & FILE_ATTRIBUTE_READONLY) != 0) {
    raise(ErrorNumber::kPermissionDenied);
  }
  patience_.beginCall();
  const DWORD deleted =
      patience_.whenFree(file, [&] { return errorOfCall(::DeleteFileW(file.c_str())); });
  if (deleted != ERROR_SUCCESS) {
    raiseSystemError(deleted, file);
  }
}

std::string WindowsFileSystem::absolutePath(std::string_view path) {
  return toUtf8(withoutTrailingSeparator(fullPath(path)));
}

bool WindowsFileSystem::sameFile(std::string_view left, std::string_view right) {
  try {
    return isSameFile(pathOfFile(left), pathOfFile(right));
  } catch (const RunTimeError&) {
    return false;
  }
}

std::vector<std::string> WindowsFileSystem::namesIn(std::string_view folder) {
  std::vector<std::string> names = list(folder, [](DWORD) { return true; });
  std::sort(names.begin(), names.end());
  return names;
}

std::vector<std::string> WindowsFileSystem::fileNamesIn(std::string_view folder) {
  return list(folder, [](DWORD attributes) { return isFile(attributes); });
}

std::unique_ptr<ByteReader> WindowsFileSystem::open(std::string_view path) {
  const std::wstring file = pathOfFile(path);
  attributesOfFile(file);
  patience_.beginCall();
  Handle handle;
  if (const DWORD error = openWhenFree(patience_, file, GENERIC_READ, handle); !handle) {
    raiseSystemError(error, file);
  }
  return std::make_unique<FileReader>(std::move(handle));
}

std::unique_ptr<FileReplacement> WindowsFileSystem::replace(std::string_view path) {
  return std::make_unique<SiblingReplacement>(pathOfFile(path), patience_);
}

}  // namespace quorbind
