#pragma once

#include <cstddef>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace quorbind::testing {

/// Random numbers and choices: the same for the same seed, in every build.
class RandomChoices {
 public:
  explicit RandomChoices(unsigned seed) : random_(seed) {}

  /// A number from 0 on; `bound` is not 0.
  std::size_t below(std::size_t bound) { return random_() % bound; }
  bool oneIn(std::size_t chances) { return below(chances) == 0; }

  template <typename Choice>
  const Choice& oneOf(const std::vector<Choice>& choices) {
    return choices[below(choices.size())];
  }

  /// So many of these one behind the other.
  std::string textOf(const std::vector<std::string_view>& tokens, std::size_t count) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
      text += oneOf(tokens);
    }
    return text;
  }

 private:
  std::mt19937 random_;
};

}  // namespace quorbind::testing
