#pragma once

#include <stdexcept>
#include <string>

namespace quorbind {

/// Why a run was given up by its user interface.
enum class AbandonReason {
  kAnswerMissing,  ///< A question had to be asked and there was nobody to ask.
  kAnswerRefused,  ///< The answer given beforehand was refused.
};

/// Ends a run from inside a question that can't be answered. It passes every error trap, so nothing
/// is saved after it. Only the terminal adapter throws it; the windowed one always has a person.
class Abandoned : public std::runtime_error {
 public:
  Abandoned(AbandonReason reason, const std::string& message)
      : std::runtime_error(message), reason_(reason) {}

  [[nodiscard]] AbandonReason reason() const noexcept { return reason_; }

 private:
  AbandonReason reason_;
};

}  // namespace quorbind
