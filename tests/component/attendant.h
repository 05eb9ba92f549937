#pragma once

#include <functional>
#include <optional>
#include <queue>
#include <string>
#include <utility>
#include <vector>

#include "tests/component/window_driver.h"

namespace quorbind::testing {

/// A person who sits in front of the screen during calls: notes every box and closes it, answers
/// the book dialog as told, and closes a dialog that there is no answer for.
class Attendant {
 public:
  /// Will fill in the next book dialog and press OK, or press Cancel.
  void willEnter(const std::string& name, const std::string& acronym) {
    answers_.push(Naming{name, acronym});
  }
  void willCancel() { answers_.push(std::nullopt); }

  /// Attends the screen while `call` runs.
  void during(const std::function<void()>& call);

  /// What was seen since the last call of this, a line each: `critical: TEXT`, `information: TEXT`,
  /// `message: TEXT` or `form NAME`. A caption that is not the component's name stands in
  /// brackets before the text.
  std::vector<std::string> takeShown() { return std::exchange(shown_, {}); }

 private:
  struct Naming {
    std::string name;
    std::string acronym;
  };

  void attend();
  void answerForm(const ScreenWindow& form);
  void closeBox(const ScreenWindow& box);

  std::queue<std::optional<Naming>> answers_;
  std::vector<std::string> shown_;
};

}  // namespace quorbind::testing
