#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace quorbind {

/// The value of a text box. Whoever changes it, the user or the program, the change handler runs
/// after every change, and only after one.
class TextBox {
 public:
  explicit TextBox(std::function<void()> onChange = {});

  [[nodiscard]] const std::string& text() const { return text_; }
  void setText(std::string_view text);
  /// Empties the box as unloading its form does: without telling the handler.
  void discard() { text_.clear(); }

 private:
  std::string text_;
  std::function<void()> onChange_;
};

}  // namespace quorbind
