#pragma once

#include <windows.h>

#include <memory>

#include "platform/user_interface.h"

namespace quorbind {

class DialogWindow;
class ProgressWindow;

/// The user interface of windows: message boxes, dialogs made from resources, and the clipboard.
///
/// Windows are owned by the host's active window and stand in its middle. While a box or a dialog
/// is on the screen, no other window of the host's thread takes input. What the system refuses is
/// raised by its own number. To be destroyed on the thread that showed the progress window.
class WindowsUserInterface final : public UserInterface {
 public:
  WindowsUserInterface();
  ~WindowsUserInterface() override;
  WindowsUserInterface(const WindowsUserInterface&) = delete;
  WindowsUserInterface& operator=(const WindowsUserInterface&) = delete;

  void show(const UserMessage& message) override;
  void showModal(ModalForm& form) override;
  void showProgress(const ProgressView& view) override;
  void hideProgress() override;
  void unloadProgress() override;
  void putOnClipboard(std::string_view text) override;

 private:
  /// The host's active window; null when it has none.
  [[nodiscard]] HWND hostWindow() const;
  /// The window of ours that the user sees, else the host's.
  [[nodiscard]] HWND frontWindow() const;

  /// The dialog that the user works on at this moment, or null.
  const DialogWindow* dialog_ = nullptr;
  std::unique_ptr<ProgressWindow> progress_;
};

}  // namespace quorbind
