#include "toc/block_removal.h"

#include <algorithm>
#include <functional>

namespace quorbind {

namespace {

constexpr std::size_t kFewestSlots = 16;

}  // namespace

void BlockRemoval::beginMark(std::size_t origin, bool isEnd) {
  const bool followsStartMark = !marks_.empty() && !marks_.back().isEnd;
  marks_.push_back({.place = {.position = text_.size(), .origin = origin},
                    .isEnd = isEnd,
                    .startMarksBefore = followsStartMark ? marks_.back().startMarksBefore + 1 : 0});
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
  takenOut_.add(
      std::string_view(text_).substr(marks_[first].place.position), tailOfBlock(), startMarks);
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

std::string_view BlockRemoval::tailOfBlock() const {
  return std::string_view(text_).substr(marks_[indexOfBlock(1)].place.position);
}

std::optional<BlockRemoval::Repetition> BlockRemoval::findRepetition() const {
  if (marks_.back().startMarksBefore == 0) {
    return std::nullopt;
  }
  std::optional<Repetition> earliest;
  Time time = takenOut_.lastWithTail(tailOfBlock());
  while (time != 0) {
    const TakenOut::Block& block = takenOut_.at(time);
    if (isRepeatedHere(block, time)) {
      earliest = {.startMarks = block.startMarks, .time = time};
    }
    time = block.before;
  }
  return earliest;
}

bool BlockRemoval::isRepeatedHere(const TakenOut::Block& block, Time time) const {
  if (block.startMarks > marks_.back().startMarksBefore) {
    return false;
  }
  const std::size_t index = indexOfBlock(block.startMarks);
  return std::string_view(text_).substr(marks_[index].place.position) == takenOut_.textOf(block) &&
         newestBlankFrom(index) < time;
}

BlockRemoval::Time BlockRemoval::newestBlankFrom(std::size_t index) const {
  Time newest = 0;
  for (; index < marks_.size(); ++index) {
    newest = std::max(newest, marks_[index].newestBlank);
  }
  return newest;
}

void BlockRemoval::replaceByBlank(std::size_t index, Time time) {
  text_.resize(marks_[index].place.position);
  text_.push_back(' ');
  marks_.resize(index);
  if (!marks_.empty()) {
    marks_.back().newestBlank = std::max(marks_.back().newestBlank, time);
  }
}

BlockRemoval::Time BlockRemoval::TakenOut::lastWithTail(std::string_view tail) const {
  return slots_.empty() ? 0 : slots_[slotOf(std::hash<std::string_view>()(tail))];
}

void BlockRemoval::TakenOut::add(std::string_view text,
                                 std::string_view tail,
                                 std::size_t startMarks) {
  makeRoom();
  const std::size_t hash = std::hash<std::string_view>()(tail);
  Time& last = slots_[slotOf(hash)];
  blocks_.push_back({.begin = texts_.size(),
                     .size = text.size(),
                     .startMarks = startMarks,
                     .tailHash = hash,
                     .before = last});
  last = now();
  texts_.append(text);
}

std::size_t BlockRemoval::TakenOut::slotOf(std::size_t hash) const {
  const std::size_t mask = slots_.size() - 1;
  std::size_t slot = hash & mask;
  while (slots_[slot] != 0 && at(slots_[slot]).tailHash != hash) {
    slot = (slot + 1) & mask;
  }
  return slot;
}

void BlockRemoval::TakenOut::makeRoom() {
  if (2 * blocks_.size() < slots_.size()) {
    return;
  }
  slots_.assign(std::max(2 * slots_.size(), kFewestSlots), 0);
  for (Time time = 1; time <= now(); ++time) {
    slots_[slotOf(at(time).tailHash)] = time;
  }
}

}  // namespace quorbind
