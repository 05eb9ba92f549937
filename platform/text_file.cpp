#include "platform/text_file.h"

#include <algorithm>
#include <cstring>

#include "platform/runtime_error.h"
#include "platform/text.h"
#include "platform/text_encoding.h"

namespace quorbind {

namespace {

using namespace std::string_view_literals;

constexpr std::size_t kChunkSize = 65'536;

constexpr std::size_t kLongestMark = kUtf8Mark.size();

/// As much of a long text as is written at once, in whole characters.
std::string_view beginningOf(std::string_view text) {
  if (text.size() <= kChunkSize) {
    return text;
  }
  std::size_t begin = kChunkSize;
  while (begin > kChunkSize - (kLongestUtf8Character - 1) && isInsideCharacter(text[begin])) {
    --begin;
  }
  // Behind so many bytes of that kind none belongs to a character.
  return text.substr(0, isInsideCharacter(text[begin]) ? kChunkSize : begin);
}

}  // namespace

TextReader::TextReader(FileSystem& files, const Locale& locale, std::string_view path)
    : bytes_(files.open(path)), locale_(locale) {
  while (unread().size() < kLongestMark && fill()) {
  }
  if (skip(kUtf8Mark)) {
    encoding_ = Encoding::kUtf8;
  } else if (skip(kUtf16LittleEndianMark)) {
    encoding_ = Encoding::kUtf16LittleEndian;
  } else if (skip(kUtf16BigEndianMark)) {
    encoding_ = Encoding::kUtf16BigEndian;
  }
}

bool TextReader::skip(std::string_view mark) {
  const bool isThere = unread().starts_with(mark);
  begin_ += isThere ? mark.size() : 0;
  return isThere;
}

void TextReader::decide() {
  const std::size_t next = position_ - unread().size();
  encoding_ = restIsUtf8() ? Encoding::kUtf8 : Encoding::kSystemCodePage;
  goTo(next);
}

bool TextReader::restIsUtf8() {
  do {
    begin_ += validUtf8Prefix(unread());
    // What is left is a character that the next bytes may complete, or none at all.
    if (unread().size() >= kLongestUtf8Character) {
      return false;
    }
  } while (fill());
  return unread().empty();
}

void TextReader::goTo(std::size_t position) {
  bytes_->rewind();
  position_ = begin_ = end_ = 0;
  while (position_ < position) {
    begin_ = end_;
    if (!fill()) {
      return;  // Somebody has shortened it.
    }
  }
  begin_ = end_ - (position_ - position);
}

bool TextReader::fill() {
  std::memmove(buffer_.data(), buffer_.data() + begin_, end_ - begin_);
  end_ -= begin_;
  begin_ = 0;
  if (buffer_.size() - end_ < kChunkSize) {
    buffer_.resize(std::max(end_ + kChunkSize, 2 * end_));
  }
  const std::size_t read = bytes_->read(buffer_.data() + end_, kChunkSize);
  end_ += read;
  position_ += read;
  return read != 0;
}

bool TextReader::atEnd() {
  return unread().empty() && !fill();
}

std::string_view TextReader::lineFeed() const {
  switch (encoding_) {
    case Encoding::kUtf16LittleEndian:
      return "\n\0"sv;
    case Encoding::kUtf16BigEndian:
      return "\0\n"sv;
    case Encoding::kUndecided:
    case Encoding::kUtf8:
    case Encoding::kSystemCodePage:
      break;
  }
  return "\n"sv;
}

std::size_t TextReader::findLineFeed(std::size_t from) const {
  const std::string_view feed = lineFeed();
  const std::size_t offset = feed.find('\n');
  std::size_t found = unread().find('\n', from + offset);
  while (found != std::string_view::npos) {
    const std::size_t start = found - offset;
    if (start % feed.size() == 0 && unread().substr(start, feed.size()) == feed) {
      return start;
    }
    found = unread().find('\n', found + 1);
  }
  return std::string_view::npos;
}

std::size_t TextReader::fillLine() {
  const std::size_t feedSize = lineFeed().size();
  std::size_t searched = 0;
  std::size_t length = findLineFeed(searched);
  while (length == std::string_view::npos) {
    searched = unread().size() - unread().size() % feedSize;
    if (!fill()) {
      return unread().size();
    }
    length = findLineFeed(searched);
  }
  return length;
}

std::string_view TextReader::readLine() {
  if (atEnd()) {
    raise(ErrorNumber::kInputPastEndOfFile);
  }
  const std::size_t length = fillLine();
  if (encoding_ == Encoding::kUndecided && !isAscii(unread().substr(0, length))) {
    decide();
    return readLine();
  }
  std::string_view line = decode(take(length));
  if (unread().empty()) {
    // The end of the file stands in for that of its last line.
    return line;
  }
  begin_ += lineFeed().size();
  if (line.ends_with('\r')) {
    line.remove_suffix(1);
  }
  return line;
}

std::string TextReader::readAll() {
  std::string raw;
  do {
    raw.append(take(unread().size()));
  } while (fill());
  if (encoding_ == Encoding::kUndecided) {
    encoding_ = isValidUtf8(raw) ? Encoding::kUtf8 : Encoding::kSystemCodePage;
  }
  const bool isText = decode(raw).data() == raw.data();
  return isText ? std::move(raw) : std::move(decoded_);
}

std::string_view TextReader::take(std::size_t size) {
  const std::string_view taken = unread().substr(0, size);
  begin_ += size;
  return taken;
}

std::string_view TextReader::decode(std::string_view raw) {
  decoded_.clear();
  switch (encoding_) {
    case Encoding::kUndecided:
      return raw;
    case Encoding::kUtf8:
      if (isValidUtf8(raw)) {
        return raw;
      }
      decoded_ = toValidUtf8(raw);
      break;
    case Encoding::kUtf16LittleEndian:
      appendUtf8FromUtf16(decoded_, raw, ByteOrder::kLittleEndian);
      break;
    case Encoding::kUtf16BigEndian:
      appendUtf8FromUtf16(decoded_, raw, ByteOrder::kBigEndian);
      break;
    case Encoding::kSystemCodePage:
      decoded_ = locale_.fromSystemCodePage(raw);
      break;
  }
  return decoded_;
}

TextWriter::TextWriter(FileSystem& files, std::string_view path)
    : replacement_(files.replace(path)), buffer_(kUtf16LittleEndianMark) {}

void TextWriter::write(std::string_view text) {
  while (!text.empty()) {
    const std::string_view piece = beginningOf(text);
    appendUtf16LittleEndian(buffer_, piece);
    if (buffer_.size() >= kChunkSize) {
      flush();
    }
    text.remove_prefix(piece.size());
  }
}

void TextWriter::writeLine(std::string_view text) {
  write(text);
  write(kLineEnd);
}

void TextWriter::close() {
  flush();
  replacement_->commit();
}

void TextWriter::flush() {
  replacement_->write(buffer_);
  buffer_.clear();
}

}  // namespace quorbind
