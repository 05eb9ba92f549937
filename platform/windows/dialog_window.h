#pragma once

#include "platform/form.h"
#include "platform/windows/form_window.h"

namespace quorbind {

/// A form as a modal dialog: what the user types and presses goes to the form, and what the form's
/// handlers change comes back into the boxes.
class DialogWindow final : public FormWindow {
 public:
  /// Kept by reference. The form's layout must exist (424 otherwise).
  explicit DialogWindow(ModalForm& form);

  /// Returns when the form is no longer shown. Raises 364 when the window went another way, because
  /// its owner was destroyed or the program is to end; the form counts as closed by the user then.
  void run(HWND owner);

 private:
  bool onCreated() override;
  bool onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  bool onCommand(int id, int notification);
  void onTyped(std::size_t place);
  void press(ControlKind button);
  void follow();

  ModalForm& form_;
};

}  // namespace quorbind
