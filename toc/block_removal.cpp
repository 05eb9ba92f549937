#include "toc/block_removal.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "platform/runtime_error.h"

namespace quorbind {

namespace {

constexpr std::size_t kFewestSlots = 16;

constexpr int kPrimeBits = 61;
constexpr std::uint64_t kPrime = (std::uint64_t{1} << kPrimeBits) - 1;
/// Any number will do; one whose square has less than half the bits is multiplied with sooner, and
/// so is its square.
constexpr std::uint64_t kBase = 0x5C93U;

std::uint64_t reduced(std::uint64_t value) {
  value = (value & kPrime) + (value >> kPrimeBits);
  return value >= kPrime ? value - kPrime : value;
}

/// A number below 2^63 that is the product modulo the prime, put together from halves of 31 and 30
/// bits, as there are no 128.
std::uint64_t unreducedProduct(std::uint64_t left, std::uint64_t right) {
  constexpr int kHalf = 31;
  constexpr std::uint64_t kLowHalf = (std::uint64_t{1} << kHalf) - 1;
  constexpr int kQuarter = kPrimeBits - kHalf;
  constexpr std::uint64_t kLowQuarter = (std::uint64_t{1} << kQuarter) - 1;
  const std::uint64_t leftHigh = left >> kHalf;
  const std::uint64_t leftLow = left & kLowHalf;
  const std::uint64_t rightHigh = right >> kHalf;
  const std::uint64_t rightLow = right & kLowHalf;
  const std::uint64_t middle = leftLow * rightHigh + leftHigh * rightLow;
  // Modulo the prime 2^61 is 1, and 2^62 is 2.
  return 2 * leftHigh * rightHigh + (middle >> kQuarter) + ((middle & kLowQuarter) << kHalf) +
         leftLow * rightLow;
}

std::uint64_t product(std::uint64_t left, std::uint64_t right) {
  return reduced(unreducedProduct(left, right));
}

std::uint64_t valueOf(char character) {
  return static_cast<std::uint64_t>(static_cast<unsigned char>(character)) + 1;
}

/// Takes three characters in a step, since each step waits for the one before.
std::uint64_t extended(std::uint64_t hash, std::string_view text) {
  constexpr std::uint64_t kSquare = kBase * kBase;
  const char* at = text.data();
  const char* const end = at + text.size();
  for (; end - at > 2; at += 3) {
    hash = reduced(unreducedProduct(hash, kSquare * kBase) + valueOf(at[0]) * kSquare +
                   valueOf(at[1]) * kBase + valueOf(at[2]));
  }
  for (; at != end; ++at) {
    hash = reduced(unreducedProduct(hash, kBase) + valueOf(*at));
  }
  return hash;
}

std::uint64_t powerOfBase(std::size_t exponent) {
  std::uint64_t power = 1;
  for (std::uint64_t square = kBase; exponent > 0; exponent >>= 1U) {
    power = (exponent & 1U) != 0 ? product(power, square) : power;
    square = product(square, square);
  }
  return power;
}

std::uint32_t lowHalf(std::uint64_t hash) {
  return static_cast<std::uint32_t>(hash);
}

}  // namespace

void BlockRemoval::pass(std::size_t size) {
  append(whole_.substr(passed_, size));
  passed_ += size;
}

void BlockRemoval::append(std::string_view characters) {
  text_.append(characters);
  if (marks_.empty()) {
    // Nothing that a hash will be asked for.
    return;
  }
  hash_ = extended(hash_, characters);
}

void BlockRemoval::beginMark(bool isEnd) {
  const bool followsStartMark = !marks_.empty() && !marks_.back().isEnd;
  marks_.push_back({.place = {.position = text_.size(), .origin = passed_},
                    .isEnd = isEnd,
                    .startMarksBefore = followsStartMark ? marks_.back().startMarksBefore + 1 : 0,
                    .hashBefore = hash_});
}

bool BlockRemoval::completeEndMark() {
  const auto repetition = findRepetition();
  if (repetition) {
    replaceByBlank(indexOfBlock(repetition->startMarks), repetition->time);
  }
  return repetition.has_value();
}

void BlockRemoval::takeOutFirstBlock() {
  const std::size_t startMarks = marks_.back().startMarksBefore;
  const std::size_t first = indexOfBlock(startMarks);
  takenOut_.add(lastingTextFrom(first), hashFrom(marks_[first]), startMarks);
  replaceByBlank(first, takenOut_.now());
}

std::optional<BlockRemoval::Mark> BlockRemoval::firstMark(bool isEnd) const {
  const auto found = std::find_if(
      marks_.begin(), marks_.end(), [isEnd](const OpenMark& mark) { return mark.isEnd == isEnd; });
  return found == marks_.end() ? std::nullopt : std::optional(found->place);
}

std::size_t BlockRemoval::indexOfBlock(std::size_t startMarks) const {
  return marks_.size() - 1 - startMarks;
}

std::string_view BlockRemoval::textFrom(const OpenMark& mark) const {
  return std::string_view(text_).substr(mark.place.position);
}

std::string_view BlockRemoval::lastingTextFrom(std::size_t index) {
  const std::string_view text = textFrom(marks_[index]);
  if (BlankSearch(marks_).newestFrom(index, /*limit=*/1) == 0) {
    return whole_.substr(marks_[index].place.origin, text.size());
  }
  return takenOutWithBlanks_.emplace_back(text);
}

BlockRemoval::Hash BlockRemoval::hashFrom(const OpenMark& mark) const {
  const std::size_t size = text_.size() - mark.place.position;
  return reduced(hash_ + kPrime - product(mark.hashBefore, powerOfBase(size)));
}

// What is cheapest comes first: a block that can't be the earliest is not looked for in the blanks,
// and one that may not go is not compared.
std::optional<BlockRemoval::Repetition> BlockRemoval::findRepetition() const {
  std::optional<Repetition> earliest;
  BlankSearch blanks(marks_);
  for (const std::size_t startMarks : takenOut_.startMarkCounts()) {
    if (startMarks > marks_.back().startMarksBefore) {
      break;
    }
    const std::size_t index = indexOfBlock(startMarks);
    const std::string_view text = textFrom(marks_[index]);
    Time time = 0;
    const auto goesEarliest = [&](const TakenOut::Block& block) {
      const Time limit =
          takenOut_.lastBefore(earliest ? earliest->time : std::numeric_limits<Time>::max(), block);
      const Time newest = limit == 0 ? 0 : blanks.newestFrom(index, limit);
      if (newest >= limit || block.text != text) {
        return false;
      }
      time = takenOut_.firstAfter(newest, block);
      return true;
    };
    const TakenOut::Block* block =
        takenOut_.find(hashFrom(marks_[index]), text.size(), startMarks, goesEarliest);
    if (block != nullptr) {
      earliest = {.startMarks = startMarks, .time = time};
    }
  }
  return earliest;
}

BlockRemoval::Time BlockRemoval::BlankSearch::newestFrom(std::size_t index, Time limit) {
  while (index_ > index && newest_ < limit) {
    --index_;
    newest_ = std::max(newest_, marks_[index_].newestBlank);
  }
  return newest_;
}

void BlockRemoval::replaceByBlank(std::size_t index, Time time) {
  text_.resize(marks_[index].place.position);
  hash_ = marks_[index].hashBefore;
  marks_.resize(index);
  append(" ");
  if (!marks_.empty()) {
    marks_.back().newestBlank = std::max(marks_.back().newestBlank, time);
  }
}

const std::vector<BlockRemoval::Time>& BlockRemoval::TakenOut::laterOf(const Block& block) const {
  static const std::vector<Time> kNever;
  const auto known = later_.find(block.first);
  return known == later_.end() ? kNever : known->second;
}

BlockRemoval::Time BlockRemoval::TakenOut::lastBefore(Time time, const Block& block) const {
  const std::vector<Time>& later = laterOf(block);
  const auto next = std::lower_bound(later.begin(), later.end(), time);
  if (next != later.begin()) {
    return *(next - 1);
  }
  return block.first < time ? block.first : 0;
}

BlockRemoval::Time BlockRemoval::TakenOut::firstAfter(Time time, const Block& block) const {
  if (block.first > time) {
    return block.first;
  }
  const std::vector<Time>& later = laterOf(block);
  return *std::upper_bound(later.begin(), later.end(), time);
}

template <typename Test>
const BlockRemoval::TakenOut::Block* BlockRemoval::TakenOut::find(Hash hash,
                                                                  std::size_t size,
                                                                  std::size_t startMarks,
                                                                  Test test) const {
  if (slots_.empty()) {
    return nullptr;
  }
  const std::uint32_t half = lowHalf(hash);
  for (std::size_t at = slotOf(half); slots_[at].block != Slot::kFree; at = slotBehind(at)) {
    if (slots_[at].hash != half) {
      continue;
    }
    const Block& block = blocks_[slots_[at].block];
    const bool isLikely =
        block.hash == hash && block.text.size() == size && block.startMarks == startMarks;
    if (isLikely && test(block)) {
      return &block;
    }
  }
  return nullptr;
}

void BlockRemoval::TakenOut::add(std::string_view text, Hash hash, std::size_t startMarks) {
  ++now_;
  const Block* known =
      find(hash, text.size(), startMarks, [&](const Block& block) { return block.text == text; });
  if (known != nullptr) {
    later_[known->first].push_back(now_);
    return;
  }
  addNew({.text = text, .startMarks = startMarks, .hash = hash, .first = now_});
}

void BlockRemoval::TakenOut::addNew(Block block) {
  if (blocks_.size() >= Slot::kFree) {
    raise(ErrorNumber::kOutOfMemory);
  }
  const auto count = std::lower_bound(counts_.begin(), counts_.end(), block.startMarks);
  if (count == counts_.end() || *count != block.startMarks) {
    counts_.insert(count, block.startMarks);
  }
  if (2 * blocks_.size() >= slots_.size()) {
    makeRoom();
  }
  blocks_.push_back(block);
  takeSlot({.block = static_cast<std::uint32_t>(blocks_.size() - 1), .hash = lowHalf(block.hash)});
}

void BlockRemoval::TakenOut::takeSlot(const Slot& taken) {
  std::size_t at = slotOf(taken.hash);
  while (slots_[at].block != Slot::kFree) {
    at = slotBehind(at);
  }
  slots_[at] = taken;
}

void BlockRemoval::TakenOut::makeRoom() {
  const std::vector<Slot> filled =
      std::exchange(slots_, std::vector<Slot>(std::max(2 * slots_.size(), kFewestSlots)));
  for (const Slot& slot : filled) {
    if (slot.block != Slot::kFree) {
      takeSlot(slot);
    }
  }
}

}  // namespace quorbind
