#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quorbind {

/// Texts, each once, numbered from 0 in the order in which they came.
///
/// They stand one behind the other in one piece of memory, beside a table of numbers: a set of
/// strings has a piece for each, and to look at one, or to free it, waits for memory.
class TextIndex {
 public:
  [[nodiscard]] std::size_t size() const { return ends_.size(); }
  [[nodiscard]] bool empty() const { return ends_.empty(); }
  [[nodiscard]] std::string_view at(std::size_t number) const;

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

  [[nodiscard]] std::size_t slotFor(std::string_view text, std::uint32_t hash) const;
  void grow();

  std::string texts_;
  /// Where each ends in texts_.
  std::vector<std::size_t> ends_;
  std::vector<Slot> slots_;
};

}  // namespace quorbind
