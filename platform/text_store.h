#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quorbind {

/// Texts, numbered from 0, that are kept for long: one behind the other in blocks of memory, where
/// a vector of strings takes two to three times as much.
class TextStore {
 public:
  [[nodiscard]] std::size_t size() const { return places_.size(); }
  [[nodiscard]] bool empty() const { return places_.empty(); }
  /// Stays until the store is cleared.
  [[nodiscard]] std::string_view at(std::size_t number) const;
  /// A copy of all of them.
  [[nodiscard]] std::vector<std::string> texts() const;

  void add(std::string_view text);
  void clear();

 private:
  struct Place {
    std::uint32_t block = 0;
    std::uint32_t begin = 0;
    std::uint32_t size = 0;
  };

  [[nodiscard]] bool hasRoomFor(std::string_view text) const;

  /// None grows beyond what was reserved for it, so that nothing in it moves.
  std::vector<std::string> blocks_;
  std::vector<Place> places_;
};

}  // namespace quorbind
