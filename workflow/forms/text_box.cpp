#include "workflow/forms/text_box.h"

#include <utility>

namespace quorbind {

TextBox::TextBox(std::function<void()> onChange) : onChange_(std::move(onChange)) {}

void TextBox::setText(std::string_view text) {
  if (text_ == text) {
    return;
  }
  text_ = text;
  if (onChange_) {
    onChange_();
  }
}

}  // namespace quorbind
