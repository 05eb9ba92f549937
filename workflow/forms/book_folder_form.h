#pragma once

#include <string>
#include <string_view>

#include "platform/platform.h"
#include "workflow/forms/dialog.h"
#include "workflow/forms/text_box.h"

namespace quorbind {

/// The dialog "Enter Book Folder", which asks for the folder of a book whose table of contents
/// names none. It has no cancel button; OK keeps it open with a message until the name is one that
/// a folder can have.
class frmBookFolder final : public Dialog {
 public:
  /// Kept by reference.
  explicit frmBookFolder(const Platform& platform);

  TextBox& Text1();

  void cmdOk_Click();

  [[nodiscard]] std::string_view name() const override;
  [[nodiscard]] std::string labelText(std::string_view label) const override;
  [[nodiscard]] std::string boxText(std::string_view textBox) const override;
  void type(std::string_view textBox, std::string_view text) override;
  void click(std::string_view button) override;

 private:
  [[nodiscard]] bool acceptedByTextRules();
  void discardValues() override;

  const Platform& platform_;
  TextBox folder_;
};

}  // namespace quorbind
