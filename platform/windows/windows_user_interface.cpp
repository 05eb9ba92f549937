#include "platform/windows/windows_user_interface.h"

#include <utility>

#include "platform/windows/clipboard.h"
#include "platform/windows/dialog_window.h"
#include "platform/windows/message_box.h"
#include "platform/windows/modality.h"
#include "platform/windows/progress_window.h"

namespace quorbind {

namespace {

/// Puts a value in a variable until the end of the block.
template <typename Value>
class Temporarily {
 public:
  Temporarily(Value& variable, Value value)
      : variable_(variable), before_(std::exchange(variable, value)) {}
  ~Temporarily() { variable_ = before_; }
  Temporarily(const Temporarily&) = delete;
  Temporarily& operator=(const Temporarily&) = delete;

 private:
  Value& variable_;
  Value before_;
};

}  // namespace

WindowsUserInterface::WindowsUserInterface() = default;
WindowsUserInterface::~WindowsUserInterface() = default;

void WindowsUserInterface::show(const UserMessage& message) {
  const HWND owner = frontWindow();
  const OtherWindowsDisabled modal(owner);
  showMessageBox(owner, message);
}

void WindowsUserInterface::showModal(ModalForm& form) {
  const HWND owner = hostWindow();
  const OtherWindowsDisabled modal(owner);
  DialogWindow dialog(form);
  const Temporarily<const DialogWindow*> current(dialog_, &dialog);
  dialog.run(owner);
}

// The window goes with its owner, which is the host's to destroy at any time.
void WindowsUserInterface::showProgress(const ProgressView& view) {
  if (progress_ == nullptr || progress_->window() == nullptr) {
    progress_ = std::make_unique<ProgressWindow>(hostWindow());
  }
  progress_->show(view);
}

void WindowsUserInterface::hideProgress() {
  if (progress_ != nullptr) {
    progress_->hide();
  }
}

void WindowsUserInterface::unloadProgress() {
  progress_.reset();
}

void WindowsUserInterface::putOnClipboard(std::string_view text) {
  putTextOnClipboard(text);
}

HWND WindowsUserInterface::hostWindow() const {
  const HWND active = ::GetActiveWindow();
  const bool isOurs = progress_ != nullptr && active == progress_->window();
  const HWND hosts = isOurs ? ::GetWindow(active, GW_OWNER) : active;
  return ::IsWindowVisible(hosts) != FALSE ? hosts : nullptr;
}

HWND WindowsUserInterface::frontWindow() const {
  if (dialog_ != nullptr && dialog_->window() != nullptr) {
    return dialog_->window();
  }
  if (progress_ != nullptr && progress_->isVisible()) {
    return progress_->window();
  }
  return hostWindow();
}

}  // namespace quorbind
