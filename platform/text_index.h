#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/text_store.h"

namespace quorbind {

class Locale;

/// Texts, each once, numbered from 0 in the order in which they came.
///
/// Beside the texts stands a table of numbers: a set of strings has a piece of memory for each, and
/// to look at one, or to free it, waits for memory.
class TextIndex {
 public:
  /// Tells texts apart by their characters.
  TextIndex() = default;
  /// Takes texts in different letter case for one. The locale is kept by reference.
  explicit TextIndex(const Locale& locale) : anyCase_(&locale) {}

  [[nodiscard]] std::size_t size() const { return texts_.size(); }
  [[nodiscard]] bool empty() const { return texts_.empty(); }
  /// As it came first; stays until the index is cleared.
  [[nodiscard]] std::string_view at(std::size_t number) const { return texts_.at(number); }

  [[nodiscard]] std::optional<std::size_t> find(std::string_view text) const;
  [[nodiscard]] bool contains(std::string_view text) const { return find(text).has_value(); }

  /// The number of the text, and whether it is new.
  std::pair<std::size_t, bool> add(std::string_view text);
  void clear();

 private:
  /// Of the table, whose size is a power of two; never full.
  struct Slot {
    static constexpr std::uint32_t kFree = UINT32_MAX;
    std::uint32_t number = kFree;
    std::uint32_t hash = 0;
  };

  [[nodiscard]] std::uint32_t hashOf(std::string_view text) const;
  [[nodiscard]] bool areOne(std::string_view left, std::string_view right) const;
  [[nodiscard]] std::size_t slotFor(std::string_view text, std::uint32_t hash) const;
  void grow();

  /// Null where letter case counts.
  const Locale* anyCase_ = nullptr;
  TextStore texts_;
  std::vector<Slot> slots_;
};

}  // namespace quorbind
