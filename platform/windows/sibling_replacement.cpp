#include "platform/windows/sibling_replacement.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <random>
#include <utility>
#include <vector>

#include "platform/runtime_error.h"
#include "platform/temporary_name.h"
#include "platform/windows/com_types.h"
#include "platform/windows/system_error.h"

namespace quorbind {

namespace {

constexpr std::size_t kWriteSize = 65'536;
constexpr std::size_t kLongestName = 255;
constexpr DWORD kTemporaryAccess = GENERIC_WRITE | DELETE;
constexpr DWORD kKeptAttributes = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                                  FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;

/// FileRenameInfoEx, which not every set of headers has.
constexpr auto kRenameWithFlags = static_cast<FILE_INFO_BY_HANDLE_CLASS>(22);

/// Whether the system, or the file's disk, does not know the request.
bool isUnknownRequest(DWORD error) {
  return error == ERROR_INVALID_PARAMETER || error == ERROR_NOT_SUPPORTED ||
         error == ERROR_INVALID_FUNCTION || error == ERROR_CALL_NOT_IMPLEMENTED;
}

/// Where the symbolic links at `path` end; `path` itself when it is none.
std::wstring endOfLinks(const std::wstring& path) {
  const DWORD attributes = ::GetFileAttributesW(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) {
    return path;
  }
  const Handle file(::CreateFileW(path.c_str(),
                                  FILE_READ_ATTRIBUTES,
                                  kShareAll,
                                  nullptr,
                                  OPEN_EXISTING,
                                  FILE_FLAG_BACKUP_SEMANTICS,
                                  nullptr));
  if (!file) {
    raiseLastError(path);
  }
  std::wstring end(::GetFinalPathNameByHandleW(file.get(), nullptr, 0, FILE_NAME_NORMALIZED),
                   L'\0');
  end.resize(::GetFinalPathNameByHandleW(
      file.get(), end.data(), static_cast<DWORD>(end.size()), FILE_NAME_NORMALIZED));
  return end.empty() ? path : end;
}

/// The attributes of the file to be replaced; those of a new file when there is none. Raises an
/// error when what stands there is not to be replaced.
DWORD attributesOfOld(const std::wstring& path) {
  const DWORD attributes = ::GetFileAttributesW(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) {
    const DWORD error = ::GetLastError();
    if (error == ERROR_FILE_NOT_FOUND) {
      return FILE_ATTRIBUTE_NORMAL;
    }
    raiseSystemError(error, path);
  }
  if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) {
    raise(ErrorNumber::kPermissionDenied);
  }
  // The rename would not ask for the right to write.
  const Handle file(
      ::CreateFileW(path.c_str(), FILE_WRITE_DATA, kShareAll, nullptr, OPEN_EXISTING, 0, nullptr));
  if (!file && ::GetLastError() != ERROR_SHARING_VIOLATION) {
    raiseLastError(path);
  }
  return attributes & kKeptAttributes;
}

/// The access rights of a file as a new one can be given them; empty where there are none. Rights
/// that were inherited stay so.
std::vector<std::byte> accessRightsOf(const std::wstring& path) {
  DWORD size = 0;
  ::GetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
  std::vector<std::byte> rights(size);
  if (::GetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, rights.data(), size, &size) ==
      0) {
    return {};
  }
  ::SetSecurityDescriptorControl(rights.data(), SE_DACL_AUTO_INHERIT_REQ, SE_DACL_AUTO_INHERIT_REQ);
  return rights;
}

/// A name beside `target` that most likely nobody has.
std::wstring siblingOf(const std::wstring& target) {
  const std::wstring ending = toWide(temporaryEnding(std::random_device{}()));
  const std::size_t nameStart = target.rfind(L'\\') + 1;
  return target.substr(0, nameStart) + target.substr(nameStart, kLongestName - ending.size()) +
         ending;
}

Handle createFile(const std::wstring& path, DWORD attributes, std::vector<std::byte> accessRights) {
  SECURITY_ATTRIBUTES security{sizeof security, accessRights.data(), FALSE};
  Handle file(::CreateFileW(path.c_str(),
                            kTemporaryAccess,
                            FILE_SHARE_READ,
                            accessRights.empty() ? nullptr : &security,
                            CREATE_NEW,
                            attributes,
                            nullptr));
  if (file && !accessRights.empty()) {
    // Where a file is made, they may have been mixed with others. File systems without any refuse,
    // and have none to lose.
    ::SetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, accessRights.data());
  }
  return file;
}

/// The system says "access denied" as well for a target that is open. Whether it may be written to
/// was asked before.
DWORD asHeld(DWORD error) {
  return error == ERROR_ACCESS_DENIED ? ERROR_SHARING_VIOLATION : error;
}

/// Renames the open file over `target`, which its readers keep as it was. Answers an error.
DWORD renameUnderReaders(const Handle& file, const std::wstring& target) {
  const std::size_t nameSize = target.size() * sizeof(wchar_t);
  std::vector<std::byte> request(sizeof(FILE_RENAME_INFO) + nameSize);
  auto* info = reinterpret_cast<FILE_RENAME_INFO*>(request.data());
  info->Flags = FILE_RENAME_FLAG_REPLACE_IF_EXISTS | FILE_RENAME_FLAG_POSIX_SEMANTICS;
  info->FileNameLength = static_cast<DWORD>(nameSize);
  std::memcpy(info->FileName, target.data(), nameSize);
  return errorOfCall(::SetFileInformationByHandle(
      file.get(), kRenameWithFlags, request.data(), static_cast<DWORD>(request.size())));
}

}  // namespace

SiblingReplacement::SiblingReplacement(const std::wstring& path, Patience& patience)
    : patience_(patience), target_(endOfLinks(path)), attributes_(attributesOfOld(target_)) {
  do {
    temporary_ = siblingOf(target_);
    file_ = createFile(temporary_, attributes_, accessRightsOf(target_));
  } while (!file_ && ::GetLastError() == ERROR_FILE_EXISTS);
  if (!file_) {
    temporary_.clear();
    raiseLastError(target_);
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
  patience_.beginCall();
  commitFlushed();
}

void SiblingReplacement::commitFlushed() {
  requireOpen();
  flushBuffer();
  flushFile();
  putUnderName();
  // Of a file that is still open a second flush takes the name along. Where it is closed by now,
  // its name was written through.
  if (file_) {
    flushFile();
  }
  file_.close();
}

void SiblingReplacement::commitUnflushed() {
  requireOpen();
  flushBuffer();
  putUnderName();
  file_.close();
}

void SiblingReplacement::copyFrom(const std::wstring& source) {
  requireOpen();
  file_.close();
  // Copying over a hidden file is refused, and a read-only one can't be opened for the flush.
  ::SetFileAttributesW(temporary_.c_str(), FILE_ATTRIBUTE_NORMAL);
  const DWORD copied = patience_.whenFree(
      source, [&] { return errorOfCall(::CopyFileW(source.c_str(), temporary_.c_str(), FALSE)); });
  if (copied != ERROR_SUCCESS) {
    fail(copied);
  }
  const DWORD attributes = ::GetFileAttributesW(source.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) {
    fail(::GetLastError());
  }
  attributes_ = attributes & (kKeptAttributes | FILE_ATTRIBUTE_READONLY);
  ::SetFileAttributesW(temporary_.c_str(), FILE_ATTRIBUTE_NORMAL);
  const DWORD opened = patience_.whenFree(temporary_, [&] {
    file_ = Handle(::CreateFileW(
        temporary_.c_str(), kTemporaryAccess, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
    return errorOfCall(file_ ? TRUE : FALSE);
  });
  if (opened != ERROR_SUCCESS) {
    fail(opened);
  }
}

void SiblingReplacement::flushBuffer() {
  writeThrough(buffer_);
  buffer_.clear();
}

void SiblingReplacement::writeThrough(std::string_view bytes) {
  constexpr std::size_t kMost = 1U << 30U;
  while (!bytes.empty()) {
    DWORD written = 0;
    if (::WriteFile(file_.get(),
                    bytes.data(),
                    static_cast<DWORD>(std::min(bytes.size(), kMost)),
                    &written,
                    nullptr) == 0) {
      fail(::GetLastError());
    }
    bytes.remove_prefix(written);
  }
}

void SiblingReplacement::flushFile() {
  if (::FlushFileBuffers(file_.get()) == 0) {
    fail(::GetLastError());
  }
}

void SiblingReplacement::putUnderName() {
  if (::SetFileAttributesW(temporary_.c_str(), attributes_) == 0) {
    fail(::GetLastError());
  }
  const DWORD error = patience_.whenFree(target_, [this] { return asHeld(rename()); });
  if (error != ERROR_SUCCESS) {
    fail(error);
  }
  temporary_.clear();
  isUnderName_ = true;
}

DWORD SiblingReplacement::rename() {
  if (file_) {
    const DWORD error = renameUnderReaders(file_, target_);
    if (!isUnknownRequest(error)) {
      return error;
    }
    file_.close();
  }
  return errorOfCall(::MoveFileExW(
      temporary_.c_str(), target_.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH));
}

void SiblingReplacement::requireOpen() const {
  if (!file_) {
    raise(ErrorNumber::kDeviceIoError);
  }
}

void SiblingReplacement::fail(DWORD error) {
  discard();
  raiseSystemError(error, target_);
}

void SiblingReplacement::discard() {
  file_.close();
  if (!temporary_.empty()) {
    ::SetFileAttributesW(temporary_.c_str(), FILE_ATTRIBUTE_NORMAL);
    // Whoever held the file that was to be replaced does not hold this one.
    patience_.beginCall();
    patience_.whenFree(temporary_,
                       [this] { return errorOfCall(::DeleteFileW(temporary_.c_str())); });
    temporary_.clear();
  }
}

}  // namespace quorbind
