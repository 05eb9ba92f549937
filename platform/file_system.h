#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace quorbind {

/// Reads a file's bytes from its beginning.
class ByteReader {
 public:
  virtual ~ByteReader() = default;

  /// Reads up to `size` bytes into `buffer` and answers how many came; 0 only at the end.
  /// Raises 57.
  virtual std::size_t read(char* buffer, std::size_t size) = 0;
  /// Starts again at the first byte.
  virtual void rewind() = 0;
};

/// A file being written beside the one that it will replace.
///
/// Until `commit` the old file stands untouched under its name; `commit` flushes the new bytes to
/// the disk, puts them under the name in one step, with the old file's permissions, and flushes the
/// name. A replacement that is destroyed without `commit`, or whose `commit` failed, leaves nothing
/// behind; where no more than the last flush failed, the new file may stand, and may not last.
class FileReplacement {
 public:
  virtual ~FileReplacement() = default;

  /// Raises 61 (no space) or 57.
  virtual void write(std::string_view bytes) = 0;
  /// Raises 61, 57, or 70 when the old file may not be replaced.
  virtual void commit() = 0;
  /// Behind a commit that raised: whether no more than the last flush failed.
  [[nodiscard]] virtual bool standsAllTheSame() const { return false; }
};

/// Copies of any number of files that are flushed together, because a flush for each would take
/// most of the time.
///
/// Every copy comes under its name in one step and whole, as FileSystem::copyFile promises for a
/// process that ends at any moment. That it outlasts the machine is promised by `flush` alone.
class CopySeries {
 public:
  virtual ~CopySeries() = default;

  /// As FileSystem::copyFile, errors included, but that a file which is there already stays as it
  /// is: answers false where both names are of one file.
  virtual bool copy(std::string_view from, std::string_view to) = 0;
  /// Flushes what was copied since the last flush. Raises 61 or 57; what could not be flushed then
  /// is not tried again.
  virtual void flush() = 0;
};

/// Files and folders by name.
///
/// Names are written with `\`; `/` and doubled separators are understood, and the name of a folder
/// may end with one. A part of a name that does not stand as spelled is looked up without regard to
/// letter case (the simple upper-case forms of both); a part that does not exist at all is created
/// as spelled. Relative names start at the process's working folder, names that begin with `\` at
/// the root of the current drive.
///
/// Errors, unless an operation says otherwise: 53 the file is not there, 76 its folder (or its
/// drive) is not there, 70 permission denied (a read-only file or file system included), 75 a
/// folder stands where the operation needs a file (a name that ends with a separator always stands
/// for one), or a file where it needs a folder, 61 no space, 57 any other failure of the device, 52
/// a name that no file can have: empty, with a NUL, or too long.
class FileSystem {
 public:
  virtual ~FileSystem() = default;

  /// False for a folder, and for whatever can't be looked at.
  [[nodiscard]] virtual bool fileExists(std::string_view path) = 0;
  [[nodiscard]] virtual bool folderExists(std::string_view path) = 0;

  /// Creates one folder in an existing one, and flushes its name where the system can. Raises 58
  /// when it already exists.
  virtual void createFolder(std::string_view path) = 0;

  /// Copies contents and permissions; the target is replaced whole and flushed, as by `replace`.
  /// Source and target the same file: raises 70.
  virtual void copyFile(std::string_view from, std::string_view to) = 0;
  /// Begins a series of copies, which the file system has to outlive. Unless an adapter knows
  /// better, each of them is a `copyFile`, and there is nothing left to flush.
  [[nodiscard]] virtual std::unique_ptr<CopySeries> beginCopies();
  /// Renames, also across folders. Raises 58 when another file stands at `to`; a file moved onto
  /// itself, or to another letter case of its own name, is a success.
  virtual void moveFile(std::string_view from, std::string_view to) = 0;
  /// Deletes one file. A read-only file is not deleted: raises 70.
  virtual void deleteFile(std::string_view path) = 0;

  /// The full name that `path` stands for, with `.` and `..` and doubled separators resolved and a
  /// drive in front; it ends with a separator only when it is the root of its drive. `..` at the
  /// root stays there. Nothing needs to exist there, and no link is followed.
  [[nodiscard]] virtual std::string absolutePath(std::string_view path) = 0;
  /// Whether both names lead to one existing file.
  [[nodiscard]] virtual bool sameFile(std::string_view left, std::string_view right) = 0;
  /// The names in a folder, sorted by their bytes, `.` and `..` left out.
  [[nodiscard]] virtual std::vector<std::string> namesIn(std::string_view folder) = 0;
  /// Those of them that `fileExists` says yes to, in no order. Unless an adapter learns it from the
  /// listing, each of them is asked for.
  [[nodiscard]] virtual std::vector<std::string> fileNamesIn(std::string_view folder);

  [[nodiscard]] virtual std::unique_ptr<ByteReader> open(std::string_view path) = 0;
  /// Begins to replace (or create) the file at `path`.
  [[nodiscard]] virtual std::unique_ptr<FileReplacement> replace(std::string_view path) = 0;
};

}  // namespace quorbind
