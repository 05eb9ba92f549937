#pragma once

#include <utility>

namespace quorbind {

/// Lets a variable have another value as long as it lives.
template <typename Value>
class Replaced {
 public:
  Replaced(Value& variable, Value value)
      : variable_(variable), before_(std::exchange(variable, value)) {}
  ~Replaced() { variable_ = before_; }
  Replaced(const Replaced&) = delete;
  Replaced& operator=(const Replaced&) = delete;

 private:
  Value& variable_;
  Value before_;
};

}  // namespace quorbind
