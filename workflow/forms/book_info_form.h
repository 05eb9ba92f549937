#pragma once

#include <string>
#include <string_view>

#include "platform/platform.h"
#include "workflow/forms/dialog.h"
#include "workflow/forms/text_box.h"

namespace quorbind {

struct ProcessState;

/// The dialog "Book Information", which asks for a book's name and acronym.
///
/// What is typed goes into the process-wide current name and acronym at once, so that they hold the
/// last typed values even after Cancel. OK keeps the dialog open with a message until the values
/// obey the rules; a book name is held to fewer rules than an acronym, because only the acronym
/// becomes part of file names.
class frmBookInfo final : public Dialog {
 public:
  /// Both are kept by reference.
  frmBookInfo(const Platform& platform, ProcessState& state);

  TextBox& txtBookName();
  TextBox& txtBookAcro();
  void setFileNameLabel(std::string text);
  /// The value of the control that was active when the dialog was left: False for as long as the
  /// dialog is loaded. Raises 364 when it was unloaded, which is how a cancelled dialog is told.
  [[nodiscard]] bool activeControlValue() const;

  void cmdOk_Click();
  void cmdCancel_Click();

  [[nodiscard]] std::string_view name() const override;
  [[nodiscard]] std::string labelText(std::string_view label) const override;
  [[nodiscard]] std::string boxText(std::string_view textBox) const override;
  void type(std::string_view textBox, std::string_view text) override;
  void click(std::string_view button) override;

 private:
  void txtBookName_Change();
  void txtBookAcro_Change();
  [[nodiscard]] bool acceptedByTextRules();
  void discardValues() override;

  const Platform& platform_;
  ProcessState& state_;
  std::string fileNameLabel_;
  TextBox bookName_;
  TextBox bookAcro_;
};

}  // namespace quorbind
