#include "platform/text_store.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "platform/runtime_error.h"

namespace quorbind {

namespace {

/// Blocks begin small, because there may be a store for every folder, and double up to a size.
constexpr std::size_t kFirstBlockSize = 64;
constexpr std::size_t kDoublings = 10;
constexpr std::size_t kLargest = std::numeric_limits<std::uint32_t>::max();

}  // namespace

std::string_view TextStore::at(std::size_t number) const {
  const Place& place = places_[number];
  return std::string_view(blocks_[place.block]).substr(place.begin, place.size);
}

std::vector<std::string> TextStore::texts() const {
  std::vector<std::string> texts;
  texts.reserve(size());
  for (std::size_t number = 0; number < size(); ++number) {
    texts.emplace_back(at(number));
  }
  return texts;
}

void TextStore::add(std::string_view text) {
  if (text.size() > kLargest || size() >= kLargest) {
    raise(ErrorNumber::kOutOfMemory);
  }
  if (!hasRoomFor(text)) {
    std::string block;
    const std::size_t size = kFirstBlockSize << std::min(blocks_.size(), kDoublings);
    block.reserve(std::max(size, text.size()));
    blocks_.push_back(std::move(block));
  }
  std::string& block = blocks_.back();
  places_.push_back({static_cast<std::uint32_t>(blocks_.size() - 1),
                     static_cast<std::uint32_t>(block.size()),
                     static_cast<std::uint32_t>(text.size())});
  block.append(text);
}

void TextStore::clear() {
  blocks_.clear();
  places_.clear();
}

bool TextStore::hasRoomFor(std::string_view text) const {
  return !blocks_.empty() && text.size() <= blocks_.back().capacity() - blocks_.back().size();
}

}  // namespace quorbind
