#include "toc/block_removal.h"

#include <algorithm>

namespace quorbind {

void BlockRemoval::beginStartMark(std::size_t origin) {
  marks_.push_back({.place = {.position = text_.size(), .origin = origin}});
}

void BlockRemoval::beginEndMark(std::size_t origin) {
  marks_.push_back({.place = {.position = text_.size(), .origin = origin}, .isEnd = true});
}

bool BlockRemoval::completeEndMark() {
  const auto repetition = findRepetition();
  if (repetition) {
    replaceByBlank(indexOfBlock(repetition->startMarks), repetition->time);
  }
  return repetition.has_value();
}

void BlockRemoval::takeOutFirstBlock() {
  const std::size_t startMarks = startMarksBeforeEnd();
  const std::size_t first = indexOfBlock(startMarks);
  ++now_;
  remember(std::string_view(text_).substr(marks_[first].place.position), startMarks);
  replaceByBlank(first, now_);
}

std::optional<BlockRemoval::Mark> BlockRemoval::firstMark(bool isEnd) const {
  const auto found = std::find_if(marks_.begin(), marks_.end(), [isEnd](const OpenMark& mark) {
    return mark.isEnd == isEnd;
  });
  return found == marks_.end() ? std::nullopt : std::optional(found->place);
}

std::size_t BlockRemoval::startMarksBeforeEnd() const {
  const auto isEnd = [](const OpenMark& mark) { return mark.isEnd; };
  const auto lastEnd = marks_.rbegin() + 1;
  return static_cast<std::size_t>(std::find_if(lastEnd, marks_.rend(), isEnd) - lastEnd);
}

std::size_t BlockRemoval::indexOfBlock(std::size_t startMarks) const {
  return marks_.size() - 1 - startMarks;
}

std::string_view BlockRemoval::tailOfBlock() const {
  return std::string_view(text_).substr(marks_[indexOfBlock(1)].place.position);
}

std::optional<BlockRemoval::Repetition> BlockRemoval::findRepetition() const {
  const std::size_t startMarks = startMarksBeforeEnd();
  if (startMarks == 0) {
    return std::nullopt;
  }
  const auto blocks = blocksByTail_.find(tailOfBlock());
  if (blocks == blocksByTail_.end()) {
    return std::nullopt;
  }
  std::optional<Repetition> earliest;
  for (const Block& block : blocks->second) {
    const auto time = block.startMarks <= startMarks ? timeOfRepetition(block) : std::nullopt;
    if (time && (!earliest || *time < earliest->time)) {
      earliest = {.startMarks = block.startMarks, .time = *time};
    }
  }
  return earliest;
}

std::optional<BlockRemoval::Time> BlockRemoval::timeOfRepetition(const Block& block) const {
  const std::size_t index = indexOfBlock(block.startMarks);
  if (std::string_view(text_).substr(marks_[index].place.position) != block.text) {
    return std::nullopt;
  }
  const auto time =
      std::upper_bound(block.times.begin(), block.times.end(), newestBlankFrom(index));
  return time == block.times.end() ? std::nullopt : std::optional(*time);
}

BlockRemoval::Time BlockRemoval::newestBlankFrom(std::size_t index) const {
  Time newest = 0;
  for (; index < marks_.size(); ++index) {
    newest = std::max(newest, marks_[index].newestBlank);
  }
  return newest;
}

void BlockRemoval::remember(std::string_view text, std::size_t startMarks) {
  const std::size_t tailSize = tailOfBlock().size();
  const auto known = blocksByTail_.find(tailOfBlock());
  if (known != blocksByTail_.end()) {
    for (Block& block : known->second) {
      if (block.text == text) {
        block.times.push_back(now_);
        return;
      }
    }
  }
  const std::string_view kept = texts_.emplace_back(text);
  blocksByTail_[kept.substr(kept.size() - tailSize)].push_back(
      {.text = kept, .startMarks = startMarks, .times = {now_}});
}

void BlockRemoval::replaceByBlank(std::size_t index, Time time) {
  text_.resize(marks_[index].place.position);
  text_.push_back(' ');
  marks_.resize(index);
  if (!marks_.empty()) {
    marks_.back().newestBlank = std::max(marks_.back().newestBlank, time);
  }
}

}  // namespace quorbind
