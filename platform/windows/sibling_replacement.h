#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "platform/file_system.h"
#include "platform/windows/com_types.h"
#include "platform/windows/patience.h"

namespace quorbind {

/// Others may go on doing with an opened file whatever they do.
inline constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// Replaces a file by writing a temporary in the same folder and renaming it over the file.
///
/// The temporary has the old file's attributes and access rights from its beginning; its owner is
/// who writes it. A symbolic link at the file's name stays; the file that it leads to is replaced.
///
/// The rename is one step for every reader. One who has the old file open keeps it, where the
/// system can do so; where it can't, and against programs that let nobody rename what they look at,
/// the rename waits for them.
///
/// The system's own call for replacing files is not used: under it a reader may for a moment find
/// no file at all.
class SiblingReplacement final : public FileReplacement {
 public:
  /// Begins to replace (or create) the file at `path`. Raises what FileSystem::replace raises.
  /// `patience` is kept by reference.
  SiblingReplacement(const std::wstring& path, Patience& patience);
  ~SiblingReplacement() override;
  SiblingReplacement(const SiblingReplacement&) = delete;
  SiblingReplacement& operator=(const SiblingReplacement&) = delete;

  void write(std::string_view bytes) override;
  void commit() override;
  [[nodiscard]] bool standsAllTheSame() const override { return isUnderName_; }
  /// The same as a part of another call of the port, whose waits it shares.
  void commitFlushed();
  /// As `commitFlushed`, but leaves the flush of the file to the caller.
  void commitUnflushed();

  /// Takes contents and attributes of the file at `source` instead of writing. Raises what `write`
  /// raises.
  void copyFrom(const std::wstring& source);

  /// Where the file stands once it is committed.
  [[nodiscard]] const std::wstring& target() const { return target_; }
  /// Whether nobody may write to the file once it is committed, not even to flush it.
  [[nodiscard]] bool becomesReadOnly() const {
    return (attributes_ & FILE_ATTRIBUTE_READONLY) != 0;
  }

 private:
  void flushBuffer();
  void writeThrough(std::string_view bytes);
  void flushFile();
  void putUnderName();
  [[nodiscard]] DWORD rename();
  void requireOpen() const;
  [[noreturn]] void fail(DWORD error);
  void discard();

  Patience& patience_;
  std::wstring target_;
  std::wstring temporary_;
  Handle file_;
  /// The attributes that the file is to have in the end.
  DWORD attributes_ = FILE_ATTRIBUTE_NORMAL;
  std::string buffer_;
  bool isUnderName_ = false;
};

}  // namespace quorbind
