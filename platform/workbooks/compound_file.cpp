#include "platform/workbooks/compound_file.h"

#include <algorithm>

#include "platform/text.h"
#include "platform/text_encoding.h"
#include "platform/workbooks/workbook_refusal.h"

namespace quorbind {

namespace {

// Places in the header and in a directory entry, as the format gives them.

constexpr std::string_view kMark = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";
constexpr std::size_t kSectorShiftAt = 30;
constexpr std::size_t kTableSectorsAt = 44;
constexpr std::size_t kDirectoryAt = 48;
constexpr std::size_t kShortTableAt = 60;
constexpr std::size_t kFurtherTableAt = 68;
constexpr std::size_t kTableInHeaderAt = 76;
constexpr std::size_t kTableInHeaderCount = 109;

constexpr std::size_t kEntrySize = 128;
constexpr std::size_t kNameLengthAt = 64;
constexpr std::size_t kTypeAt = 66;
constexpr std::size_t kLeftAt = 68;
constexpr std::size_t kRightAt = 72;
constexpr std::size_t kChildAt = 76;
constexpr std::size_t kStartAt = 116;
constexpr std::size_t kSizeAt = 120;

constexpr std::uint8_t kStreamType = 2;
constexpr std::uint32_t kLastSectorNumber = 0xFFFFFFFA;
constexpr std::uint32_t kNoEntry = 0xFFFFFFFF;
constexpr std::size_t kNumberSize = 4;

/// Streams below this size lie in short sectors, which lie in a stream of the root.
constexpr std::size_t kShortStreamLimit = 4096;
constexpr std::size_t kShortSectorSize = 64;

[[noreturn]] void refuseDamaged() {
  throw WorkbookRefusal("The file is damaged.");
}

std::vector<std::uint32_t> numbersIn(std::string_view bytes) {
  const ByteView view(bytes);
  std::vector<std::uint32_t> numbers(bytes.size() / kNumberSize);
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    numbers[i] = view.longAt(i * kNumberSize);
  }
  return numbers;
}

std::string nameIn(const ByteView& entry) {
  const std::size_t length = std::min<std::size_t>(entry.shortAt(kNameLengthAt), kNameLengthAt);
  std::string name;
  // The length counts a zero behind the name.
  appendUtf8FromUtf16(
      name, entry.part(0, std::max<std::size_t>(length, 2) - 2), ByteOrder::kLittleEndian);
  return name;
}

}  // namespace

bool CompoundFile::isOne(std::string_view bytes) {
  return bytes.starts_with(kMark);
}

CompoundFile::CompoundFile(std::string_view bytes) : bytes_(bytes) {
  constexpr unsigned kSmallShift = 9;
  constexpr unsigned kLargeShift = 12;
  const unsigned shift = bytes_.shortAt(kSectorShiftAt);
  if (shift != kSmallShift && shift != kLargeShift) {
    refuseDamaged();
  }
  sectorSize_ = std::size_t{1} << shift;
  readSectorTable();
  readDirectory();
  collectRootEntries();
}

bool CompoundFile::has(std::string_view name) const {
  return find(name) != nullptr;
}

std::string CompoundFile::stream(std::string_view name) const {
  const Entry* const entry = find(name);
  if (entry == nullptr) {
    refuseDamaged();
  }
  std::string bytes =
      entry->size < kShortStreamLimit ? shortStream(*entry) : chain(entry->start, entry->size);
  if (bytes.size() < entry->size) {
    throw WorkbookRefusal("The file is damaged or cut off.");
  }
  return bytes;
}

/// The sectors that hold the table are listed in the header, and, beyond what fits there, in
/// sectors of their own, each of which ends with the number of the next.
void CompoundFile::readSectorTable() {
  const std::size_t count = bytes_.longAt(kTableSectorsAt);
  if (count > bytes_.size() / sectorSize_) {
    refuseDamaged();
  }
  std::vector<std::uint32_t> tableSectors =
      numbersIn(bytes_.part(kTableInHeaderAt, kTableInHeaderCount * kNumberSize));
  std::uint32_t further = bytes_.longAt(kFurtherTableAt);
  while (tableSectors.size() < count) {
    std::vector<std::uint32_t> more = numbersIn(sector(further));
    further = more.back();
    more.pop_back();
    tableSectors.insert(tableSectors.end(), more.begin(), more.end());
  }
  tableSectors.resize(count);
  for (const std::uint32_t number : tableSectors) {
    const std::vector<std::uint32_t> part = numbersIn(sector(number));
    next_.insert(next_.end(), part.begin(), part.end());
  }
}

void CompoundFile::readDirectory() {
  const std::string directory = chain(bytes_.longAt(kDirectoryAt), bytes_.size());
  for (std::size_t at = 0; at + kEntrySize <= directory.size(); at += kEntrySize) {
    const ByteView entry(std::string_view(directory).substr(at, kEntrySize));
    entries_.push_back({.name = nameIn(entry),
                        .type = entry.byteAt(kTypeAt),
                        .left = entry.longAt(kLeftAt),
                        .right = entry.longAt(kRightAt),
                        .child = entry.longAt(kChildAt),
                        .start = entry.longAt(kStartAt),
                        .size = entry.longAt(kSizeAt)});
  }
  if (entries_.empty()) {
    refuseDamaged();
  }
}

/// What lies at the root stands in a tree of its own; what lies in its folders, such as an embedded
/// workbook, does not count.
void CompoundFile::collectRootEntries() {
  std::vector<bool> seen(entries_.size(), false);
  std::vector<std::uint32_t> open{entries_.front().child};
  while (!open.empty()) {
    const std::uint32_t number = open.back();
    open.pop_back();
    if (number == kNoEntry) {
      continue;
    }
    if (number >= entries_.size() || seen[number]) {
      refuseDamaged();
    }
    seen[number] = true;
    atRoot_.push_back(number);
    open.push_back(entries_[number].left);
    open.push_back(entries_[number].right);
  }
}

/// The first sector follows the header, which takes the room of one.
std::string_view CompoundFile::sector(std::uint32_t number) const {
  return bytes_.part((std::size_t{number} + 1) * sectorSize_, sectorSize_);
}

std::string CompoundFile::chain(std::uint32_t start, std::size_t size) const {
  std::string bytes;
  std::size_t steps = 0;
  for (std::uint32_t number = start; number <= kLastSectorNumber && bytes.size() < size;
       number = next_[number]) {
    if (number >= next_.size() || ++steps > next_.size()) {
      refuseDamaged();
    }
    bytes.append(sector(number));
  }
  bytes.resize(std::min(bytes.size(), size));
  return bytes;
}

std::string CompoundFile::shortStream(const Entry& entry) const {
  const Entry& root = entries_.front();
  const std::string sectors = chain(root.start, root.size);
  const std::vector<std::uint32_t> next =
      numbersIn(chain(bytes_.longAt(kShortTableAt), bytes_.size()));
  const ByteView view(sectors);
  std::string bytes;
  std::size_t steps = 0;
  for (std::uint32_t number = entry.start; number <= kLastSectorNumber && bytes.size() < entry.size;
       number = next[number]) {
    if (number >= next.size() || ++steps > next.size()) {
      refuseDamaged();
    }
    bytes.append(view.part(std::size_t{number} * kShortSectorSize, kShortSectorSize));
  }
  bytes.resize(std::min<std::size_t>(bytes.size(), entry.size));
  return bytes;
}

const CompoundFile::Entry* CompoundFile::find(std::string_view name) const {
  const auto found = std::find_if(atRoot_.begin(), atRoot_.end(), [&](std::uint32_t number) {
    return entries_[number].type == kStreamType &&
           equalIgnoringAsciiCase(entries_[number].name, name);
  });
  return found == atRoot_.end() ? nullptr : &entries_[*found];
}

}  // namespace quorbind
