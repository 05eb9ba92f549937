#include "platform/workbooks/zip_archive.h"

#include <zlib.h>

#include <algorithm>
#include <new>
#include <optional>
#include <utility>

#include "platform/text.h"
#include "platform/workbooks/workbook_refusal.h"

namespace quorbind {

namespace {

// Sizes and places of the records of a packed file, as its format gives them.

constexpr std::string_view kEndMark = "PK\x05\x06";
constexpr std::size_t kEndSize = 22;
constexpr std::size_t kLongestComment = 0xFFFF;
constexpr std::size_t kEndCountAt = 10;
constexpr std::size_t kEndDirectoryAt = 16;
constexpr std::size_t kEndCommentAt = 20;

constexpr std::string_view kEntryMark = "PK\x01\x02";
constexpr std::size_t kDirectoryEntrySize = 46;
constexpr std::size_t kEntryFlagsAt = 8;
constexpr std::size_t kEntryMethodAt = 10;
constexpr std::size_t kEntryChecksumAt = 16;
constexpr std::size_t kEntryPackedSizeAt = 20;
constexpr std::size_t kEntrySizeAt = 24;
constexpr std::size_t kEntryNameLengthAt = 28;
constexpr std::size_t kEntryExtraLengthAt = 30;
constexpr std::size_t kEntryCommentLengthAt = 32;
constexpr std::size_t kEntryPositionAt = 42;

constexpr std::string_view kPartMark = "PK\x03\x04";
constexpr std::size_t kPartSize = 30;
constexpr std::size_t kPartNameLengthAt = 26;
constexpr std::size_t kPartExtraLengthAt = 28;

constexpr std::uint16_t kEncryptedFlag = 1;
constexpr std::uint16_t kStored = 0;
constexpr std::uint16_t kDeflated = 8;
/// Deflated bytes as they stand, without a header of their own.
constexpr int kRawDeflate = -MAX_WBITS;

[[noreturn]] void refusePart(std::string_view name, std::string_view reason) {
  throw WorkbookRefusal(std::string(name).append(" ").append(reason));
}

}  // namespace

/// zlib's state of unpacking.
class ZipArchive::Inflater {
 public:
  explicit Inflater(std::string_view packed) {
    // zlib does not write to its input, though its type says so.
    stream_.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.data()));
    stream_.avail_in = static_cast<uInt>(packed.size());
    if (inflateInit2(&stream_, kRawDeflate) != Z_OK) {
      throw std::bad_alloc();
    }
  }
  ~Inflater() { inflateEnd(&stream_); }
  Inflater(const Inflater&) = delete;
  Inflater& operator=(const Inflater&) = delete;

  /// How many bytes came; 0 at the end. Nothing when the packed bytes are damaged.
  std::optional<std::size_t> read(char* buffer, std::size_t size) {
    stream_.next_out = reinterpret_cast<Bytef*>(buffer);
    stream_.avail_out = static_cast<uInt>(size);
    while (stream_.avail_out > 0 && !atEnd_) {
      const int outcome = inflate(&stream_, Z_NO_FLUSH);
      atEnd_ = outcome == Z_STREAM_END;
      if (!atEnd_ && outcome != Z_OK) {
        return std::nullopt;
      }
    }
    return size - stream_.avail_out;
  }
  [[nodiscard]] std::uint64_t consumed() const { return stream_.total_in; }

 private:
  z_stream stream_{};
  bool atEnd_ = false;
};

/// Unpacks one part, holding it against the limits and at its end against its checksum.
class ZipArchive::PartReader final : public ByteReader {
 public:
  PartReader(ZipArchive& archive, const Part& part)
      : archive_(archive), part_(part), packed_(archive.packedBytes(part)) {
    PartReader::rewind();
  }

  std::size_t read(char* buffer, std::size_t size) override {
    constexpr std::size_t kMostAtOnce = std::size_t{64} << 10U;
    const std::size_t count = unpack(buffer, std::min(size, kMostAtOnce));
    size_ += count;
    archive_.count(count);
    requireLimits();
    checksum_ = crc32(checksum_, reinterpret_cast<const Bytef*>(buffer), static_cast<uInt>(count));
    if (count == 0 && size > 0 && (size_ != part_.size || checksum_ != part_.checksum)) {
      refusePart(part_.name, "is damaged.");
    }
    return count;
  }

  void rewind() override {
    size_ = 0;
    checksum_ = crc32(0, nullptr, 0);
    if (part_.method == kDeflated) {
      inflater_.emplace(packed_);
    }
  }

 private:
  std::size_t unpack(char* buffer, std::size_t size) {
    if (part_.method == kStored) {
      return packed_.substr(static_cast<std::size_t>(size_)).copy(buffer, size);
    }
    const std::optional<std::size_t> count = inflater_->read(buffer, size);
    if (!count) {
      refusePart(part_.name, "is damaged.");
    }
    return *count;
  }

  void requireLimits() const {
    const ZipLimits& limits = archive_.limits_;
    if (size_ > limits.partSize) {
      refusePart(part_.name, "is larger than a part of a workbook may be.");
    }
    const bool isPacked = part_.method == kDeflated && size_ > limits.ratioAfter;
    if (isPacked && size_ > limits.ratio * inflater_->consumed()) {
      refusePart(part_.name, "is packed more tightly than a part of a workbook may be.");
    }
  }

  ZipArchive& archive_;
  const Part& part_;
  std::string_view packed_;
  std::optional<Inflater> inflater_;
  std::uint64_t size_ = 0;
  uLong checksum_ = 0;
};

ZipArchive::ZipArchive(std::string_view bytes, const ZipLimits& limits)
    : bytes_(bytes), limits_(limits) {
  readDirectory();
}

bool ZipArchive::has(std::string_view name) const {
  return parts_.contains(upperCaseAscii(name));
}

std::unique_ptr<ByteReader> ZipArchive::open(std::string_view name) {
  const auto found = parts_.find(upperCaseAscii(name));
  if (found == parts_.end()) {
    refusePart(name, "is missing.");
  }
  const Part& part = found->second;
  if ((part.flags & kEncryptedFlag) != 0) {
    refusePart(name, "is encrypted.");
  }
  if (part.method != kStored && part.method != kDeflated) {
    refusePart(name, "is packed in an unknown way.");
  }
  return std::make_unique<PartReader>(*this, part);
}

void ZipArchive::readDirectory() {
  const std::size_t end = directoryEnd();
  const std::size_t count = bytes_.shortAt(end + kEndCountAt);
  if (count > limits_.parts) {
    throw WorkbookRefusal("The file has more parts than a workbook may have.");
  }
  std::size_t position = bytes_.longAt(end + kEndDirectoryAt);
  for (std::size_t i = 0; i < count; ++i) {
    position = addPart(position);
  }
}

/// The record at the end of the file, behind which only a comment may stand.
std::size_t ZipArchive::directoryEnd() const {
  const std::size_t size = bytes_.size();
  const std::size_t furthest = std::min(size, kEndSize + kLongestComment);
  for (std::size_t back = kEndSize; back <= furthest; ++back) {
    const std::size_t position = size - back;
    if (bytes_.part(position, kEndMark.size()) == kEndMark &&
        bytes_.shortAt(position + kEndCommentAt) == back - kEndSize) {
      return position;
    }
  }
  throw WorkbookRefusal("The file is cut off: the list of its parts is missing.");
}

/// Answers where the next entry stands.
std::size_t ZipArchive::addPart(std::size_t position) {
  const ByteView entry(bytes_.from(position));
  if (entry.part(0, kEntryMark.size()) != kEntryMark) {
    throw WorkbookRefusal("The list of the file's parts is damaged.");
  }
  const std::size_t nameLength = entry.shortAt(kEntryNameLengthAt);
  Part part{.name = std::string(entry.part(kDirectoryEntrySize, nameLength)),
            .flags = entry.shortAt(kEntryFlagsAt),
            .method = entry.shortAt(kEntryMethodAt),
            .checksum = entry.longAt(kEntryChecksumAt),
            .packedSize = entry.longAt(kEntryPackedSizeAt),
            .size = entry.longAt(kEntrySizeAt),
            .position = entry.longAt(kEntryPositionAt)};
  std::string key = upperCaseAscii(part.name);
  if (!parts_.emplace(std::move(key), std::move(part)).second) {
    throw WorkbookRefusal("The list of the file's parts names one of them twice.");
  }
  return position + kDirectoryEntrySize + nameLength + entry.shortAt(kEntryExtraLengthAt) +
         entry.shortAt(kEntryCommentLengthAt);
}

std::string_view ZipArchive::packedBytes(const Part& part) const {
  const ByteView header(bytes_.from(part.position));
  if (header.part(0, kPartMark.size()) != kPartMark) {
    refusePart(part.name, "is damaged.");
  }
  const std::size_t begin =
      kPartSize + header.shortAt(kPartNameLengthAt) + header.shortAt(kPartExtraLengthAt);
  return header.part(begin, part.packedSize);
}

void ZipArchive::count(std::uint64_t bytes) {
  unpacked_ += bytes;
  if (unpacked_ > limits_.totalSize) {
    throw WorkbookRefusal("The parts of the file are larger than those of a workbook may be.");
  }
}

}  // namespace quorbind
