#include "platform/text_index.h"

#include <algorithm>
#include <array>
#include <functional>

#include "platform/locale.h"
#include "platform/runtime_error.h"
#include "platform/text.h"
#include "platform/text_encoding.h"

namespace quorbind {

namespace {

constexpr std::size_t kFirstSize = 4;
constexpr std::size_t kLongestName = 64;

std::uint32_t hashOfBytes(std::string_view text) {
  return static_cast<std::uint32_t>(std::hash<std::string_view>()(text));
}

/// Most names are short and ASCII, and to hash one takes no memory then.
std::uint32_t hashOfUpperCase(std::string_view text, const Locale& locale) {
  if (text.size() > kLongestName || !isAscii(text)) {
    return hashOfBytes(locale.upperCase(text));
  }
  std::array<char, kLongestName> upper{};
  std::transform(text.begin(), text.end(), upper.begin(), upperAscii);
  return hashOfBytes({upper.data(), text.size()});
}

}  // namespace

std::uint32_t TextIndex::hashOf(std::string_view text) const {
  return anyCase_ == nullptr ? hashOfBytes(text) : hashOfUpperCase(text, *anyCase_);
}

bool TextIndex::areOne(std::string_view left, std::string_view right) const {
  return left == right ||
         (anyCase_ != nullptr && anyCase_->upperCase(left) == anyCase_->upperCase(right));
}

std::optional<std::size_t> TextIndex::find(std::string_view text) const {
  if (empty()) {
    return std::nullopt;
  }
  const Slot& slot = slots_[slotFor(text, hashOf(text))];
  return slot.number == Slot::kFree ? std::nullopt : std::optional<std::size_t>(slot.number);
}

std::pair<std::size_t, bool> TextIndex::add(std::string_view text) {
  const std::size_t count = size();
  if (2 * count >= slots_.size()) {
    grow();
  }
  const std::uint32_t hash = hashOf(text);
  Slot& slot = slots_[slotFor(text, hash)];
  if (slot.number != Slot::kFree) {
    return {slot.number, false};
  }
  if (count >= Slot::kFree) {
    raise(ErrorNumber::kOutOfMemory);
  }
  texts_.add(text);
  slot = {static_cast<std::uint32_t>(count), hash};
  return {count, true};
}

void TextIndex::clear() {
  texts_.clear();
  slots_.clear();
}

/// Where the text stands, or else where it would.
std::size_t TextIndex::slotFor(std::string_view text, std::uint32_t hash) const {
  const std::size_t mask = slots_.size() - 1;
  std::size_t at = hash & mask;
  while (slots_[at].number != Slot::kFree &&
         (slots_[at].hash != hash || !areOne(this->at(slots_[at].number), text))) {
    at = (at + 1) & mask;
  }
  return at;
}

void TextIndex::grow() {
  std::vector<Slot> larger(std::max(kFirstSize, 2 * slots_.size()));
  const std::size_t mask = larger.size() - 1;
  for (const Slot& slot : slots_) {
    if (slot.number != Slot::kFree) {
      std::size_t at = slot.hash & mask;
      while (larger[at].number != Slot::kFree) {
        at = (at + 1) & mask;
      }
      larger[at] = slot;
    }
  }
  slots_.swap(larger);
}

}  // namespace quorbind
