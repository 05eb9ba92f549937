#pragma once

#include "platform/user_interface.h"
#include "platform/windows/form_window.h"

namespace quorbind {

/// The progress window. It is modeless, and the user can't close it.
///
/// The thread that it belongs to is busy while it is on the screen, so it is painted whenever it is
/// brought up to date. No message of another window is dealt with then: the host is inside a call
/// and must not be entered again.
class ProgressWindow final : public FormWindow {
 public:
  explicit ProgressWindow(HWND owner);

  void show(const ProgressView& view);
  void hide();
  [[nodiscard]] bool isVisible() const;

 private:
  bool onCreated() override { return false; }
  bool onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  void paint();
};

}  // namespace quorbind
