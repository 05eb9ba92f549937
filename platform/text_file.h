#pragma once

// Text files over the file-system port: one reader and one writer for both builds, so that both
// read the same file alike and write the same bytes.

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "platform/file_system.h"
#include "platform/locale.h"

namespace quorbind {

/// Reads a text file line by line, or whole.
///
/// Encoding: a byte-order mark decides (UTF-16 in either order, UTF-8); without one the file is
/// UTF-8 if all of it is valid UTF-8, else it is in the system's code page. The mark is not part of
/// the first line. Whatever has no meaning in the encoding, unpaired surrogates included, reads as
/// U+FFFD.
///
/// Lines: LF ends a line, and a CR directly before it is dropped; a CR alone is text. An end of
/// line at the end of the file does not begin a further line.
///
/// The file is read in pieces: only the line at hand has to fit into memory. Of a file without a
/// mark, ASCII reads alike whatever the encoding is. A line with something else in it has to know:
/// then the rest of the file is read to see whether it is UTF-8, and once more for its lines.
class TextReader {
 public:
  /// Opens the file. Raises what FileSystem::open raises. `files` and `locale` outlive the reader.
  TextReader(FileSystem& files, const Locale& locale, std::string_view path);

  [[nodiscard]] bool atEnd();
  /// The next line; the view holds until the next call. Raises 62 at the end of the file.
  std::string_view readLine();
  /// Everything from here to the end, line ends as they stand.
  std::string readAll();

 private:
  /// Undecided is what has no mark and was ASCII so far.
  enum class Encoding { kUndecided, kUtf8, kUtf16LittleEndian, kUtf16BigEndian, kSystemCodePage };

  [[nodiscard]] std::string_view unread() const { return {buffer_.data() + begin_, end_ - begin_}; }
  /// Whether what is unread begins with `mark`, which is then read.
  bool skip(std::string_view mark);
  /// Ends with the same bytes unread.
  void decide();
  /// Reads the file to its end.
  [[nodiscard]] bool restIsUtf8();
  /// Reads the file anew up to the byte at `position`.
  void goTo(std::size_t position);
  /// Reads on until the next line is there whole. Answers its length, without its end.
  std::size_t fillLine();
  /// Reads on by one chunk; false at the end of the file. Moves what is unread.
  bool fill();
  [[nodiscard]] std::string_view lineFeed() const;
  /// Where the next line feed stands in what is unread, looked for from `from` on.
  [[nodiscard]] std::size_t findLineFeed(std::size_t from) const;
  std::string_view take(std::size_t size);
  std::string_view decode(std::string_view raw);

  std::unique_ptr<ByteReader> bytes_;
  const Locale& locale_;
  Encoding encoding_ = Encoding::kUndecided;
  /// Bytes of the file as they stand; those from begin_ to end_ are unread.
  std::string buffer_;
  std::size_t begin_ = 0;
  std::size_t end_ = 0;
  /// How many bytes of the file have come.
  std::size_t position_ = 0;
  std::string decoded_;
};

/// Writes a "Unicode text" file: UTF-16, little-endian, with byte-order mark. Line ends inside what
/// is written stay as they are.
class TextWriter {
 public:
  /// Begins to replace the file at `path`. Raises what FileSystem::replace raises.
  TextWriter(FileSystem& files, std::string_view path);

  /// `text` is UTF-8; bytes that are not come out as U+FFFD.
  void write(std::string_view text);
  /// `text`, then CR LF.
  void writeLine(std::string_view text);
  /// Flushes, and puts the file under its name. A writer destroyed before has written nothing.
  void close();

 private:
  void flush();

  std::unique_ptr<FileReplacement> replacement_;
  std::string buffer_;
};

}  // namespace quorbind
